// The logic half has its own copies of numbers of the system. Here they are checked against the
// system's headers.
#include "layout/control_keys.h"
#include "layout/control_kinds.h"
#include "layout/grid_keys.h"
#include "layout/logical_units.h"
#include "toolkit/win32.h"

namespace tallymere {

static_assert(LogicalDpi == USER_DEFAULT_SCREEN_DPI);

static_assert(KeyTab == VK_TAB && KeyReturn == VK_RETURN && KeySpace == VK_SPACE);
static_assert(KeyLeft == VK_LEFT && KeyUp == VK_UP && KeyRight == VK_RIGHT && KeyDown == VK_DOWN);

static_assert(GridKeyTab == VK_TAB && GridKeyReturn == VK_RETURN && GridKeyShift == VK_SHIFT);
static_assert(GridKeyControl == VK_CONTROL && GridKeyAlt == VK_MENU && GridKeyPause == VK_PAUSE);
static_assert(GridKeyCapsLock == VK_CAPITAL && GridKeyEscape == VK_ESCAPE);
static_assert(GridKeyPageUp == VK_PRIOR && GridKeyPageDown == VK_NEXT);
static_assert(GridKeyEnd == VK_END && GridKeyHome == VK_HOME);
static_assert(GridKeyLeft == VK_LEFT && GridKeyUp == VK_UP);
static_assert(GridKeyRight == VK_RIGHT && GridKeyDown == VK_DOWN);
static_assert(GridKeyInsert == VK_INSERT);
static_assert(GridKeyLeftWindows == VK_LWIN && GridKeyRightWindows == VK_RWIN);
static_assert(GridKeyMenu == VK_APPS && GridKeyF1 == VK_F1 && GridKeyF24 == VK_F24);
static_assert(GridKeyNumLock == VK_NUMLOCK && GridKeyScrollLock == VK_SCROLL);
static_assert(GridKeyLeftShift == VK_LSHIFT && GridKeyRightAlt == VK_RMENU);
static_assert(GridKeyFirstMedia == VK_BROWSER_BACK && GridKeyLastMedia == VK_LAUNCH_APP2);

static_assert(StyleChild == WS_CHILD && StyleDisabled == WS_DISABLED && StyleTabStop == WS_TABSTOP);

static_assert(ButtonTypeMask == BS_TYPEMASK);
static_assert(ButtonTypePush == BS_PUSHBUTTON && ButtonTypeDefaultPush == BS_DEFPUSHBUTTON);
static_assert(ButtonTypeRadio == BS_RADIOBUTTON && ButtonTypeAutoRadio == BS_AUTORADIOBUTTON);

static_assert(StaticTypeMask == SS_TYPEMASK);
static_assert(StaticTypeLeft == SS_LEFT && StaticTypeCentre == SS_CENTER);
static_assert(StaticTypeRight == SS_RIGHT && StaticTypeLeftNoWrap == SS_LEFTNOWORDWRAP);

static_assert(EditWantsReturn == ES_WANTRETURN);

}  // namespace tallymere
