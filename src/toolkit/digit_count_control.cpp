#include "toolkit/digit_count_control.h"

#include "toolkit/control_focus.h"
#include "toolkit/standard_controls.h"
#include "toolkit/wide_text.h"
#include "toolkit/window_class.h"

namespace tallymere {

namespace {

enum DigitCountSlot : int32_t { LabelSlot, FieldSlot, DigitCountSlotCount };

void CreateChildren(HWND control) {
    const DigitCountLayout layout = LayOutDigitCount(WindowStyle(control));
    SetSlot(control, LabelSlot, CreateStatic(control, layout.label, nullptr));
    SetSlot(control, FieldSlot, CreateStatic(control, layout.count, nullptr, SS_RIGHT | SS_SUNKEN));
    ShowDigitCount(control, 0);
}

LRESULT CALLBACK DigitCountProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CREATE) {
        CreateChildren(window);
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

ToolkitClass digitCountClass = {DigitCountClass, DigitCountProc, 0, DigitCountSlotCount, false};

}  // namespace

HWND CreateDigitCountControl(HWND parent, int32_t x, int32_t y, uint32_t style) {
    const LayoutSize size = LayOutDigitCount(style).control;
    return CreateOwnControl(parent, digitCountClass, {x, y, size.width, size.height},
                            style | BehindNeighbours);
}

void ShowDigitCount(HWND control, int32_t count) {
    SetWindowTextW(DigitCountField(control), ToWide(DigitCountText(count).text));
}

HWND DigitCountLabel(HWND control) {
    return GetSlot<HWND>(control, LabelSlot);
}

HWND DigitCountField(HWND control) {
    return GetSlot<HWND>(control, FieldSlot);
}

}  // namespace tallymere
