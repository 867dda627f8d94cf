// The captions of the keys, drawn in the colours of their classes.
#pragma once

#include "toolkit/win32.h"

#include <commctrl.h>

namespace tallymere {

/// What a control of the container asks by NM_CUSTOMDRAW. Draws the caption of a key that is
/// enabled, once its face is drawn, and answers that no more is to be done. Anything else is left
/// to the system, disabled keys too, which it draws grey.
LRESULT DrawKey(const NMCUSTOMDRAW& draw);

}  // namespace tallymere
