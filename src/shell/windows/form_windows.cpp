#include "shell/windows/form_windows.h"

#include "layout/control_kinds.h"
#include "shell/number_type_rows.h"
#include "shell/windows/program_windows.h"
#include "toolkit/control_data.h"
#include "toolkit/digit_count_control.h"
#include "toolkit/environment.h"
#include "toolkit/grid_control.h"
#include "toolkit/long_text_field.h"
#include "toolkit/number_base_control.h"
#include "toolkit/number_type_control.h"
#include "toolkit/numeric_up_down.h"
#include "toolkit/splitter_control.h"
#include "toolkit/standard_controls.h"
#include "toolkit/tab_page.h"
#include "toolkit/wide_text.h"

namespace tallymere {

namespace {

HWND CreateDigitCount(HWND parent, const FormControl& control) {
    const HWND window =
        CreateDigitCountControl(parent, control.place.x, control.place.y, control.style);
    SetWindowTextW(DigitCountLabel(window), ToWide(FormText(control)));
    return window;
}

HWND CreateNumberBase(HWND parent, const FormControl& control) {
    const HWND window =
        CreateNumberBaseControl(parent, control.place.x, control.place.y, control.style);
    SetNumberBaseLabel(window, FormText(control));
    return window;
}

HWND CreateNumberType(HWND parent, const FormControl& control) {
    const HWND window = CreateNumberTypeControl(parent, control.place.x, NumberTypeRows());
    SelectNumberType(window, NumberTypeReal);
    return window;
}

HWND CreateFormControl(HWND parent, const FormControl& control) {
    const char16_t* text = FormText(control);
    switch (control.kind) {
        case FormStatic:
            return CreateStatic(parent, control.place, text);
        case FormPushButton:
            return CreateButton(parent, control.place, text);
        case FormMultilineButton:
            return CreateButton(parent, control.place, text, BS_MULTILINE | BS_CENTER);
        case FormOwnerDrawnButton:
            return CreateControl(parent, ButtonClass, control.place, text,
                                 BS_OWNERDRAW | WS_TABSTOP);
        case FormCheckBox:
            return CreateCheckBox(parent, control.place, text);
        case FormRadioButton:
            return CreateRadioButton(parent, control.place, text);
        case FormDropList:
            return CreateDropList(parent, control.place);
        case FormGroupBox:
            return CreateGroupBox(parent, control.place, text, nullptr);
        case FormTabControl:
            return CreateTabControl(parent, control.place);
        case FormTabPage:
            return AddTabPage(parent, text);
        case FormFocusSink:
            return CreateControl(parent, ButtonClass, control.place, text, BS_PUSHBUTTON);
        case FormField:
            return CreateEdit(parent, control.place, text, ES_AUTOHSCROLL, WS_EX_CLIENTEDGE);
        case FormMultilineField:
            return CreateLongTextField(parent, control.place, text);
        case FormUnbrokenField:
            return CreateEdit(
                parent, control.place, text,
                ES_MULTILINE | ES_AUTOVSCROLL | ES_AUTOHSCROLL | WS_VSCROLL | WS_HSCROLL,
                WS_EX_CLIENTEDGE);
        case FormGrid:
            return CreateGrid(parent, control.place, 0, WS_EX_CLIENTEDGE);
        case FormList:
            return CreateControl(parent, ListBoxClass, control.place, text,
                                 WS_VSCROLL | WS_TABSTOP | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT,
                                 WS_EX_CLIENTEDGE);
        case FormSlider:
            return CreateTrackbar(parent, control.place.x, control.place.width);
        case FormNumericUpDown:
            return CreateNumericUpDown(parent, control.place);
        case FormSplitter:
            return CreateSplitter(parent, control.place,
                                  static_cast<SplitterOrientation>(control.style), nullptr);
        case FormDigitCount:
            return CreateDigitCount(parent, control);
        case FormNumberBase:
            return CreateNumberBase(parent, control);
        case FormNumberType:
            return CreateNumberType(parent, control);
    }
    return nullptr;
}

}  // namespace

HWND CreatePageWindow(LayoutSize size, const char16_t* title, WindowHandler handler) {
    return CreateDialogWindow(hiddenOwnerWindow, size, title, handler,
                              WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX |
                                  DialogClientSize | DialogCentred,
                              0);
}

void CreateFormControls(HWND window, const FormControl* form, int32_t count, HWND* controls) {
    for (int32_t i = 0; i < count; i++) {
        const HWND parent = form[i].parent == FormWindow ? window : controls[form[i].parent];
        controls[i] = CreateFormControl(parent, form[i]);
    }
}

void PlaceFormControls(HWND window, std::span<const HWND> controls, FormPlacer place) {
    const LayoutSize client = LogicalClientSize(window);
    for (size_t i = 0; i < controls.size(); i++) {
        PlaceControl(controls[i], place(static_cast<int32_t>(i), client));
    }
}

}  // namespace tallymere
