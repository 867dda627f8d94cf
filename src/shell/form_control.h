// The controls of a window as a table. The window is made from it, and tests read it.
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
    FormFocusSink,       ///< a push button out of sight, without tab stop, to put the focus on
    FormField,           ///< an edit control of one line
    FormMultilineField,  ///< an edit control of many lines that scrolls
    FormUnbrokenField,   ///< likewise, but long lines are not broken and it scrolls sideways too
    FormGrid,            ///< a grid of text cells, empty at first
    FormList,            ///< an unsorted list that reports selections
    FormSlider,          ///< a slider; only x and width of its place count
    FormNumericUpDown,
    FormSplitter,    ///< `style` is a SplitterOrientation
    FormDigitCount,  ///< `style` is DigitCountLabelAbove or 0; its text is that of the label
    FormNumberBase,  ///< `style` is of NumberBaseStyle; its text is that of the label
    FormNumberType,  ///< NumberTypeRows, real at first; only x of its place counts
};

/// The parent of a control that lies directly in the window.
inline constexpr int32_t FormWindow = -1;

/// One row of the table. The index of a row is the enumerator that names the control. A parent
/// comes before its children. Controls are made in the order of the table, and the Tab key visits
/// them in this order.
struct FormControl {
    int32_t parent;  ///< the index of a control of the table, or FormWindow
    FormControlKind kind;
    LayoutRect place;                     ///< in the parent, in logical units
    UiTextEntry text;                     ///< null for a control without text or with a fixed text
    const char16_t* fixedText = nullptr;  ///< a text that is the same in every language
    uint32_t style = 0;                   ///< for kinds whose comment above names it

    bool operator==(const FormControl&) const = default;
};

/// The text of a control when it is made; empty for none.
inline const char16_t* FormText(const FormControl& control) {
    if (control.text != nullptr) {
        return uiText.*control.text;
    }
    return control.fixedText != nullptr ? control.fixedText : u"";
}

}  // namespace tallymere
