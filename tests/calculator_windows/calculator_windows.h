// The calculator page and the dialog of variables, as the program makes them.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "calculator/calculator_settings.h"
#include "calculator/calculator_sliders.h"
#include "calculator/variables_form.h"
#include "calculator/windows/calculator_controls.h"
#include "calculator/windows/calculator_page.h"
#include "calculator/windows/variables_window.h"
#include "core/scratch.h"
#include "shell/separators.h"
#include "shell/settings.h"
#include "shell/ui_error.h"
#include "shell/windows/main_window.h"
#include "shell/windows/program_windows.h"
#include "toolkit/control_focus.h"
#include "toolkit/environment.h"
#include "toolkit/loop_deadline.h"
#include "toolkit/whole_text.h"
#include "toolkit/wide_text.h"
#include "toolkit/win32.h"

#include <commctrl.h>

namespace tallymere::testing_support {

/// What is selected in a field; begin and end are the caret's place when nothing is.
inline std::pair<DWORD, DWORD> SelectionIn(HWND field) {
    std::pair<DWORD, DWORD> place;
    SendMessageW(field, EM_GETSEL, reinterpret_cast<WPARAM>(&place.first),
                 reinterpret_cast<LPARAM>(&place.second));
    return place;
}

inline void Click(HWND button) {
    SendMessageW(button, BM_CLICK, 0, 0);
}

inline HWND VariablesWindowControl(VariablesControl control) {
    HWND child = GetWindow(variablesWindow, GW_CHILD);
    for (int32_t i = 0; i < control; i++) {
        child = GetWindow(child, GW_HWNDNEXT);
    }
    return child;
}

inline std::u16string TextOfRow(WPARAM row) {
    const HWND list = VariablesWindowControl(VariablesList);
    std::u16string text(static_cast<size_t>(SendMessageW(list, LB_GETTEXTLEN, row, 0)), u'\0');
    SendMessageW(list, LB_GETTEXT, row, reinterpret_cast<LPARAM>(text.data()));
    return text;
}

/// The rows of the list of variables, each with a blank behind it.
inline std::u16string VariableNames() {
    std::u16string names;
    const LRESULT count = SendMessageW(VariablesWindowControl(VariablesList), LB_GETCOUNT, 0, 0);
    for (LRESULT row = 0; row < count; row++) {
        names += TextOfRow(static_cast<WPARAM>(row)) + u" ";
    }
    return names;
}

/// The windows are made for the first test, in English and with the settings and two variables
/// below, and are shared by all: each begins with the page shown, without formula, result and
/// variables, in the type real and with the separators "." and ",".
class CalculatorWindowsTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        if (calculatorWindows.page == nullptr) {
            MakeWindows();
        }
    }

    CalculatorWindowsTest() {
        ApplySeparators(DecimalPoint, ThousandsComma);
        ClearErrors();
        ChooseType(NumberTypeReal);
        ChooseAngleUnit(AngleRadians);
        ShowProgramWindow(calculatorWindows.page);
        while (variableTable.count > 0) {
            Click(VariablesWindowControl(VariablesDelete));
        }
        Press(ActionClearAll);
        settings.settingsDirty = false;
    }
    ~CalculatorWindowsTest() override {
        ShowWindow(variablesWindow, SW_HIDE);
        ClearErrors();
    }

    /// Clicks the key with an action in the type of the settings.
    static void Press(KeyAction action) {
        Click(KeyWindow(KeyOfAction(action, settings.numberType)));
    }

    static void ChooseType(NumberType type) {
        MoveSlider(ContainerTypeSlider, PositionOfType(type));
    }
    static void ChooseAngleUnit(AngleType angle) {
        MoveSlider(ContainerAngleSlider, PositionOfAngle(angle));
    }

    static std::u16string Formula() { return WholeText(ControlOf(CalculatorFormula)); }
    static void SetFormula(const std::u16string& text) {
        SetWindowTextW(ControlOf(CalculatorFormula), ToWide(text.c_str()));
        calculator.formulaTouched = true;
    }

    /// What the dialog of variables showed when it had been made.
    static inline std::u16string namesAtStart;
    static inline std::u16string valueAtStart;
    static inline bool settingsDirtyAtStart;

private:
    static void MoveSlider(ContainerControl slider, int32_t position) {
        SendMessageW(ControlOf(slider), TBM_SETPOS, TRUE, position);
        SendMessageW(calculatorWindows.container, WM_HSCROLL, SB_ENDSCROLL,
                     reinterpret_cast<LPARAM>(ControlOf(slider)));
    }

    static void MakeWindows() {
        programInstance = GetModuleHandleW(nullptr);
        osVersionCode = 0x0A00;
        isWine = true;
        screenDpi = LogicalDpi;
        const INITCOMMONCONTROLSEX common = {sizeof common, 0xFFFF};
        InitCommonControlsEx(&common);
        CreateScratchStack();
        InstallLanguage(LanguageEnglish);
        settings = Settings{};
        settings.decimalPrecision = 10;
        settings.variableCount = 2;
        settings.variables[0] = {u"rate", u"1.5"};
        settings.variables[1] = {u"", u"2*pi"};
        ApplySeparators(DecimalComma, ThousandsPoint);
        CreateMainWindow();
        CreateCalculatorPage();
        CreateVariablesWindow();
        namesAtStart = VariableNames();
        valueAtStart = WholeText(VariablesWindowControl(VariablesValue));
        settingsDirtyAtStart = settings.settingsDirty || variableTable.variablesChanged;
    }

    const LoopDeadline deadline_;
};

}  // namespace tallymere::testing_support
