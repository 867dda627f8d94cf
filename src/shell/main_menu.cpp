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

}  // namespace tallymere
