// The controls of a window as a table, which the window is made from and which tests read.
#pragma once

#include <cstdint>

#include "layout/logical_units.h"
#include "shell/ui_text.h"

namespace tallymere {

enum FormControlKind {
    FormStatic,
    FormPushButton,
    FormMultilineButton,   ///< a push button with centred text of more than one line
    FormOwnerDrawnButton,  ///< a push button that the window draws
    FormCheckBox,
    FormRadioButton,
    FormDropList,
    FormGroupBox,
    FormTabControl,
    FormTabPage,  ///< fills its tab control; its place is empty
};

/// The parent of controls that lie in the window itself.
inline constexpr int32_t FormWindow = -1;

/// The index of a control in its table is the enumerator that names it. A parent comes before its
/// children, and the order of the table is that in which the controls are made and in which the Tab
/// key visits them.
struct FormControl {
    int32_t parent;  ///< the index of a control of the table, or FormWindow
    FormControlKind kind;
    LayoutRect place;  ///< in the parent, in logical units
    UiTextEntry text;  ///< null for a control without text or with one that is no entry
};

}  // namespace tallymere
