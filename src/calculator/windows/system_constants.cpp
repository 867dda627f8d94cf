// The logic half writes down what it needs of the system's numbers; here both are held together.
#include "calculator/calculator_sliders.h"
#include "calculator/field_editing.h"
#include "toolkit/win32.h"

namespace tallymere {

static_assert(SliderTracks == SB_THUMBTRACK && SliderRests == SB_ENDSCROLL);

static_assert(FieldKeyDown == WM_KEYDOWN && FieldCharacter == WM_CHAR);
static_assert(FieldCut == WM_CUT && FieldPaste == WM_PASTE && FieldClear == WM_CLEAR);
static_assert(FieldUndo == WM_UNDO && FieldUndoEdit == EM_UNDO);
static_assert(FieldDeleteKey == VK_DELETE && FieldBackspace == VK_BACK && FieldReturn == VK_RETURN);

}  // namespace tallymere
