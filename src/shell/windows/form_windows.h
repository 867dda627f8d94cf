// Controls made from the tables of the forms.
#pragma once

#include <cstdint>

#include "shell/form_control.h"
#include "toolkit/win32.h"

namespace tallymere {

/// Makes the first `count` controls of a form in a window and stores them in `controls`, each at
/// its index. A control with no entry of the text table has no text.
void CreateFormControls(HWND window, const FormControl* form, int32_t count, HWND* controls);

}  // namespace tallymere
