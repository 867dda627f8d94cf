#include "calculator/windows/calculator_display.h"

#include <string_view>

#include "calculator/calc_phase.h"
#include "calculator/calculator_settings.h"
#include "calculator/result_forms.h"
#include "calculator/windows/calculator_controls.h"
#include "calculator/windows/long_text_field.h"
#include "shell/windows/fonts.h"
#include "toolkit/control_data.h"
#include "toolkit/control_focus.h"
#include "toolkit/digit_count_control.h"
#include "toolkit/environment.h"
#include "toolkit/wide_text.h"

namespace tallymere {

namespace {

HFONT fieldFont = nullptr;
HFONT keyFonts[KeyFontCount] = {};

bool HasCaption(HWND key, std::u16string_view caption) {
    char16_t shown[KeyCaptionCharacters + 1];
    GetWindowTextW(key, ToWide(shown), KeyCaptionCharacters + 1);
    return shown == caption;
}

// Only what changed is touched, so that the keypad does not flicker.
void ShowKey(HWND key, const KeyView& view) {
    const HFONT font = keyFonts[view.info.font];
    if (reinterpret_cast<HFONT>(SendMessageW(key, WM_GETFONT, 0, 0)) != font) {
        SendMessageW(key, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    }
    if (!HasCaption(key, view.info.caption)) {
        SetWindowTextW(key, ToWide(view.info.caption));
    }
    EnableWindow(key, view.enabled);
}

void RepaintLabels(ContainerControl first, ContainerControl last) {
    for (int32_t label = first; label <= last; label++) {
        InvalidateRect(calculatorWindows.containerControls[label], nullptr, TRUE);
    }
}

// The bracket mark comes and goes with the result.
bool DependsOnTypeAlone(int32_t control) {
    return control != ContainerBracketMark;
}

}  // namespace

void MakeCalculatorFonts() {
    fieldFont = MakeFont(CalculatorFieldFont);
    for (int32_t i = 0; i < KeyFontCount; i++) {
        keyFonts[i] = MakeFont(KeyFonts[i]);
    }
}

void DeleteCalculatorFonts() {
    DeleteObject(fieldFont);
    for (const HFONT font : keyFonts) {
        DeleteObject(font);
    }
}

HFONT FieldFont() {
    return fieldFont;
}

void ShowKeys() {
    // A run that ends soon is to change no key.
    if (calcPhase == CalcBusy) {
        return;
    }
    const KeypadStyle style = StyleOfKeypad(settings, osVersionCode);
    for (int32_t i = 0; i < KeyCount; i++) {
        ShowKey(KeyWindow(i), ViewOfKey(i, style));
    }
}

void ShowNumberType() {
    RepaintLabels(ContainerTypeUint, ContainerTypeCplx);
    for (int32_t i = 0; i < ContainerControlCount; i++) {
        const HWND control = calculatorWindows.containerControls[i];
        const bool isShown = (WindowStyle(control) & WS_VISIBLE) != 0;
        const bool show = IsShownForType(static_cast<ContainerControl>(i), settings.numberType);
        if (DependsOnTypeAlone(i) && isShown != show) {
            ShowControl(control, show);
        }
    }
    ShowResultState();
}

void ShowAngle() {
    RepaintLabels(ContainerAngleDeg, ContainerAngleGon);
    ShowKeys();
}

void ShowResultState() {
    InvalidateRect(ControlOf(CalculatorResult), nullptr, TRUE);
    EnableWindow(ControlOf(ContainerBracketMark), calculator.resultValid);
    ShowKeys();
}

void ShowResultText() {
    ShowResultText(ShowResult(StyleOfResult(settings)));
}

void ShowResultText(const char16_t* text) {
    if (text == nullptr) {
        return;
    }
    WriteLongText(ControlOf(CalculatorResult), text);
    if (const int32_t digits = ResultDigitCount(); digits >= 0) {
        ShowDigitCount(ControlOf(ContainerDigitCount), digits);
    }
}

}  // namespace tallymere
