// The logic half has its own copies of numbers of the system. Here they are checked against the
// system's headers.
#include "layout/control_keys.h"
#include "layout/control_kinds.h"
#include "layout/logical_units.h"
#include "toolkit/win32.h"

namespace tallymere {

static_assert(LogicalDpi == USER_DEFAULT_SCREEN_DPI);

static_assert(KeyTab == VK_TAB && KeyReturn == VK_RETURN && KeySpace == VK_SPACE);
static_assert(KeyLeft == VK_LEFT && KeyUp == VK_UP && KeyRight == VK_RIGHT && KeyDown == VK_DOWN);

static_assert(StyleChild == WS_CHILD && StyleDisabled == WS_DISABLED && StyleTabStop == WS_TABSTOP);

static_assert(ButtonTypeMask == BS_TYPEMASK);
static_assert(ButtonTypePush == BS_PUSHBUTTON && ButtonTypeDefaultPush == BS_DEFPUSHBUTTON);
static_assert(ButtonTypeRadio == BS_RADIOBUTTON && ButtonTypeAutoRadio == BS_AUTORADIOBUTTON);

static_assert(StaticTypeMask == SS_TYPEMASK);
static_assert(StaticTypeLeft == SS_LEFT && StaticTypeCentre == SS_CENTER);
static_assert(StaticTypeRight == SS_RIGHT && StaticTypeLeftNoWrap == SS_LEFTNOWORDWRAP);

static_assert(EditWantsReturn == ES_WANTRETURN);

}  // namespace tallymere
