#include "toolkit/push_button_look.h"

#include "layout/control_kinds.h"
#include "toolkit/control_focus.h"

namespace tallymere {

void ApplyLooks(const LookChanges<HWND>& looks) {
    for (const LookChange<HWND>& look : looks) {
        // The message takes the lower half of the style, so all of it is given.
        const uint32_t type = look.isDefault ? ButtonTypeDefaultPush : ButtonTypePush;
        const uint32_t style = PushButtonStyle(WindowStyle(look.button)) | type;
        SendMessageW(look.button, BM_SETSTYLE, LOWORD(style), TRUE);
    }
}

}  // namespace tallymere
