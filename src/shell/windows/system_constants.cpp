// The logic half writes down what it needs of the system's numbers; here both are held together.
#include "shell/window_states.h"
#include "toolkit/win32.h"

namespace tallymere {

static_assert(WindowHidden == SW_HIDE && WindowNormal == SW_SHOWNORMAL);
static_assert(WindowMaximised == SW_SHOWMAXIMIZED);

}  // namespace tallymere
