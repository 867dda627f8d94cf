#include "calculator/windows/calculator_display.h"

#include <algorithm>
#include <string_view>

#include "calculator/calculator_settings.h"
#include "calculator/key_view.h"
#include "calculator/result_forms.h"
#include "calculator/windows/calculator_controls.h"
#include "calculator/windows/calculator_run.h"
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

// How the keys look, so that one that stays as it is costs no message to it: between the press of
// "=" and the result every key is looked at.
struct ShownKey {
    KeyView view;
    bool isShown;
};
ShownKey shownKeys[KeyCount] = {};

void ShowKey(int32_t index, const KeyView& view) {
    ShownKey& shown = shownKeys[index];
    const HWND key = KeyWindow(index);
    if (!shown.isShown || shown.view.info.font != view.info.font) {
        SendMessageW(key, WM_SETFONT, reinterpret_cast<WPARAM>(keyFonts[view.info.font]), TRUE);
    }
    if (!shown.isShown || std::u16string_view(shown.view.info.caption) != view.info.caption) {
        SetWindowTextW(key, ToWide(view.info.caption));
    }
    if (!shown.isShown || shown.view.enabled != view.enabled) {
        EnableWindow(key, view.enabled);
    }
    shown = {view, true};
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

void PrepareCalculatorDisplay() {
    std::fill_n(shownKeys, KeyCount, ShownKey{});
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
    const PagePhase phase = calculatorRun.states.phase;
    if (KeysStay(phase)) {
        return;
    }
    const KeypadStyle style = StyleOfKeypad(settings, osVersionCode);
    for (int32_t i = 0; i < KeyCount; i++) {
        ShowKey(i, ViewOfKey(phase, i, style));
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
    SetWindowTextW(ControlOf(CalculatorResult), ToWide(text));
    if (const int32_t digits = ResultDigitCount(); digits >= 0) {
        ShowDigitCount(ControlOf(ContainerDigitCount), digits);
    }
}

}  // namespace tallymere
