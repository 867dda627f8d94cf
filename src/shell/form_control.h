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
    FormTabPage,         ///< fills its tab control; its place is empty
    FormFocusSink,       ///< a push button that nobody sees or reaches by Tab, to put the focus on
    FormField,           ///< an edit control of one line
    FormMultilineField,  ///< an edit control of many lines that scrolls
    FormList,            ///< a list that keeps its order and tells of selections
    FormSlider,          ///< a slider; only x and width of its place count
    FormNumericUpDown,
    FormSplitter,    ///< `style` is a SplitterOrientation
    FormDigitCount,  ///< `style` is DigitCountLabelAbove or 0; its text is that of the label
    FormNumberBase,  ///< `style` is of NumberBaseStyle; its text is that of the label
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
    const char16_t* fixedText = nullptr;  ///< the same in every language, where there is no entry
    uint32_t style = 0;                   ///< of the kinds that have one

    bool operator==(const FormControl&) const = default;
};

/// The text that a control is made with, empty for none.
inline const char16_t* FormText(const FormControl& control) {
    if (control.text != nullptr) {
        return uiText.*control.text;
    }
    return control.fixedText != nullptr ? control.fixedText : u"";
}

}  // namespace tallymere
