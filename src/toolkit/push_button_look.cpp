#include "toolkit/push_button_look.h"

#include "layout/control_kinds.h"
#include "toolkit/control_focus.h"

namespace tallymere {

void ApplyLooks(const LookChanges<HWND>& looks) {
    for (const LookChange<HWND>& look : looks) {
        // The message replaces the lower 16 bits of the style, so all 16 are passed.
        const uint32_t type = look.isDefault ? ButtonTypeDefaultPush : ButtonTypePush;
        const uint32_t style = PushButtonStyle(WindowStyle(look.button)) | type;
        SendMessageW(look.button, BM_SETSTYLE, LOWORD(style), TRUE);
    }
}

}  // namespace tallymere
