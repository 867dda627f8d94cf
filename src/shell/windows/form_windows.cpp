#include "shell/windows/form_windows.h"

#include "layout/control_kinds.h"
#include "toolkit/standard_controls.h"
#include "toolkit/tab_page.h"

namespace tallymere {

namespace {

HWND CreateFormControl(HWND parent, const FormControl& control) {
    const char16_t* text = control.text == nullptr ? u"" : uiText.*control.text;
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
    }
    return nullptr;
}

}  // namespace

void CreateFormControls(HWND window, const FormControl* form, int32_t count, HWND* controls) {
    for (int32_t i = 0; i < count; i++) {
        const HWND parent = form[i].parent == FormWindow ? window : controls[form[i].parent];
        controls[i] = CreateFormControl(parent, form[i]);
    }
}

}  // namespace tallymere
