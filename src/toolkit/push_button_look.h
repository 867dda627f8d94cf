// The look of the default button on real push buttons.
#pragma once

#include "layout/default_look.h"
#include "toolkit/win32.h"

namespace tallymere {

/// Gives push buttons the look of a default button or the plain look, and repaints them. The rest
/// of their style stays.
void ApplyLooks(const LookChanges<HWND>& looks);

}  // namespace tallymere
