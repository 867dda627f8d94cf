#include "calculator/windows/calculator_container.h"

#include "calculator/calculator_settings.h"
#include "calculator/calculator_sliders.h"
#include "calculator/windows/calculator_controls.h"
#include "calculator/windows/calculator_display.h"
#include "calculator/windows/calculator_run.h"
#include "calculator/windows/colours.h"
#include "calculator/windows/key_drawing.h"
#include "shell/windows/error_report.h"
#include "shell/windows/form_windows.h"
#include "toolkit/control_data.h"
#include "toolkit/control_focus.h"
#include "toolkit/number_base_control.h"
#include "toolkit/numeric_up_down.h"
#include "toolkit/standard_controls.h"
#include "toolkit/window_class.h"

#include <commctrl.h>

namespace tallymere {

namespace {

ToolkitClass containerClass = {u"SciCalcContainerControl", DefWindowProcW, 0, 0, false};

int32_t SliderPosition(ContainerControl slider) {
    return static_cast<int32_t>(SendMessageW(ControlOf(slider), TBM_GETPOS, 0, 0));
}

void SetSliderPosition(ContainerControl slider, int32_t position) {
    SendMessageW(ControlOf(slider), TBM_SETPOS, TRUE, position);
}

// The controls that set up numbers are disabled during a run, but other programs can speak to them
// all the same. Numbers that they set up would be those of the run. So a slider goes back then.
void HandleSlider(HWND slider, int32_t news) {
    if (!MovesSlider(news)) {
        return;
    }
    if (IsRunUnderWay()) {
        SetSliderPosition(ContainerTypeSlider, PositionOfType(settings.numberType));
        SetSliderPosition(ContainerAngleSlider, PositionOfAngle(settings.angleType));
        return;
    }
    const NumberSetupScope scope(CalcNumberSetup());
    if (slider == ControlOf(ContainerTypeSlider)) {
        const NumberType type = TypeOfPosition(SliderPosition(ContainerTypeSlider));
        if (ChooseNumberType(settings, type, SelectedNumberBase(ControlOf(ContainerNumberBase)))) {
            ShowNumberType();
        }
    } else if (slider == ControlOf(ContainerAngleSlider)) {
        if (ChooseAngle(settings, AngleOfPosition(SliderPosition(ContainerAngleSlider)))) {
            ShowAngle();
        }
    }
}

void HandlePrecision(HWND field, int32_t precision) {
    if (IsRunUnderWay()) {
        SetNumericPosition(field, static_cast<int32_t>(calculator.calcPrecision));
        return;
    }
    const NumberSetupScope scope(CalcNumberSetup());
    ChoosePrecision(settings, precision);
    ShowResultState();
}

// The report of an error comes when the scope of the numbers has ended: other pages may calculate
// behind the message box.
void ShowResultAnew() {
    {
        const NumberSetupScope scope(CalcNumberSetup());
        ShowResultText();
    }
    ReportUiError();
}

void HandleOutputBase(int32_t base) {
    if (IsRunUnderWay()) {
        SelectNumberBase(ControlOf(ContainerNumberBase),
                         static_cast<int32_t>(calculator.calcOutputBase));
        return;
    }
    if (ChooseOutputBase(settings, base)) {
        ShowResultAnew();
    }
    ShowKeys();
}

void HandleCaseKey() {
    if (IsRunUnderWay()) {
        return;
    }
    if (SwitchLetterCase(settings)) {
        ShowResultAnew();
    }
    ShowKeys();
}

void HandleButton(int32_t id) {
    if (id == CaseKeyId) {
        HandleCaseKey();
    } else if (id >= FirstKeyId && id < FirstKeyId + KeyCount) {
        ClickCalculatorKey(id - FirstKeyId);
    }
}

// The label beside the position of its slider stands out. Labels of no slider have the id 0, which
// is also the position of a slider before it is set.
bool IsCurrentLabel(HWND label) {
    const int id = GetDlgCtrlID(label);
    return id != 0 && (id == SliderPosition(ContainerTypeSlider) ||
                       id == SliderPosition(ContainerAngleSlider));
}

HBRUSH PrepareCurrentLabel(HDC dc) {
    SetTextColor(dc, ToColorRef(CurrentLabelColour));
    SetBkMode(dc, TRANSPARENT);
    return GetSysColorBrush(COLOR_BTNFACE);
}

LRESULT ContainerHandler(HWND, UINT message, WPARAM wParam, LPARAM lParam, bool& callDefault) {
    switch (message) {
        case WM_COMMAND:
            if (HIWORD(wParam) == BN_CLICKED && lParam != 0) {
                HandleButton(GetDlgCtrlID(reinterpret_cast<HWND>(lParam)));
            }
            break;
        case WM_HSCROLL:
        case WM_VSCROLL:
            HandleSlider(reinterpret_cast<HWND>(lParam), LOWORD(wParam));
            break;
        case WM_CTLCOLORSTATIC:
            if (IsCurrentLabel(reinterpret_cast<HWND>(lParam))) {
                callDefault = false;
                return reinterpret_cast<LRESULT>(
                    PrepareCurrentLabel(reinterpret_cast<HDC>(wParam)));
            }
            break;
        case WM_NOTIFY:
            if (reinterpret_cast<const NMHDR*>(lParam)->code == NM_CUSTOMDRAW) {
                callDefault = false;
                return DrawKey(*reinterpret_cast<const NMCUSTOMDRAW*>(lParam));
            }
            break;
        default:
            break;
    }
    return 0;
}

void SetId(HWND control, int32_t id) {
    SetWindowLongW(control, GWL_ID, id);
}

void NumberControls() {
    for (int32_t i = 0; i < KeyCount; i++) {
        SetId(KeyWindow(i), FirstKeyId + i);
    }
    SetId(ControlOf(ContainerCaseKey), CaseKeyId);
    for (int32_t label = ContainerTypeUint; label <= ContainerTypeCplx; label++) {
        SetId(calculatorWindows.containerControls[label],
              FirstTypePosition + label - ContainerTypeUint);
    }
    for (int32_t label = ContainerAngleDeg; label <= ContainerAngleGon; label++) {
        SetId(calculatorWindows.containerControls[label],
              FirstAnglePosition + label - ContainerAngleDeg);
    }
}

void SetSlider(ContainerControl slider, int32_t first, int32_t last, int32_t position) {
    const HWND window = ControlOf(slider);
    // The range that a slider has at first ends below the new one, so that the end comes first.
    SendMessageW(window, TBM_SETRANGEMAX, FALSE, last);
    SendMessageW(window, TBM_SETRANGEMIN, FALSE, first);
    SetSliderPosition(slider, position);
}

// The field counts this precision as reported, so leaving it without a change reports nothing. A
// precision of the settings that is out of range moves to the nearer end of the range. That end is
// then chosen, because the field shows it.
void ShowPrecision() {
    const HWND precision = ControlOf(ContainerPrecision);
    SetNumericRange(precision, LowestPrecision, HighestPrecision);
    SetNumericPosition(precision, static_cast<int32_t>(calculator.calcPrecision));
    SyncNumericUpDown(precision, true, true);
    if (const int32_t shown = NumericPosition(precision); shown != calculator.calcPrecision) {
        ChoosePrecision(settings, shown);
    }
    SetNumericChanged(precision, HandlePrecision);
}

void ShowSettings() {
    SetSlider(ContainerTypeSlider, FirstTypePosition, LastTypePosition,
              PositionOfType(settings.numberType));
    SetSlider(ContainerAngleSlider, FirstAnglePosition, LastAnglePosition,
              PositionOfAngle(settings.angleType));
    ShowPrecision();
    const HWND base = ControlOf(ContainerNumberBase);
    SelectNumberBase(base, static_cast<int32_t>(InstalledOutputBase(settings)));
    SetNumberBaseChosen(base, HandleOutputBase);
}

}  // namespace

void CreateCalculatorContainer() {
    const HWND container =
        CreateOwnControl(calculatorWindows.page, containerClass, CalculatorContainer);
    calculatorWindows.container = container;
    AttachControlData(container, ContainerHandler);
    CreateFormControls(container, ContainerForm.data(), ContainerControlCount,
                       calculatorWindows.containerControls);
    NumberControls();
    ShowSettings();
    ShowControl(ControlOf(ContainerBracketMark), false);
}

}  // namespace tallymere
