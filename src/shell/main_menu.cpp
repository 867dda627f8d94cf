#include "shell/main_menu.h"

namespace tallymere {

MenuCommand CommandOfMenu(int64_t id, int64_t sender) {
    if (sender != 0) {
        return {MenuDoesNothing, {}};
    }
    if (id >= MenuFirstPage && id < MenuFirstPage + PageCount) {
        return {MenuShowsPage, static_cast<PageIndex>(id - MenuFirstPage)};
    }
    switch (id) {
        case MenuOptions:
            return {MenuShowsOptions, {}};
        case MenuExit:
            return {MenuClosesProgram, {}};
        case MenuShowHelp:
            return {MenuOpensHelp, {}};
        case MenuInfo:
            return {MenuRunsAbout, {}};
        default:
            return {MenuDoesNothing, {}};
    }
}

}  // namespace tallymere
