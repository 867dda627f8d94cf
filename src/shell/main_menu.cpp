#include "shell/main_menu.h"

namespace tallymere {

MenuCommand CommandOfMenu(int64_t id, int64_t sender) {
    if (sender != 0) {
        return {};
    }
    for (const MenuItem& item : MainMenu) {
        if (item.id == id) {
            return item.command;
        }
    }
    return {};
}

bool IsMenuItemEnabled(const MenuItem& item, const bool (&hasPage)[PageCount]) {
    return item.command.action != MenuShowsPage || hasPage[item.command.page];
}

}  // namespace tallymere
