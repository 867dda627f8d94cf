#include "toolkit/number_base_control.h"

#include "layout/decimal_text.h"
#include "toolkit/control_focus.h"
#include "toolkit/environment.h"
#include "toolkit/standard_controls.h"
#include "toolkit/wide_text.h"
#include "toolkit/window_class.h"

namespace tallymere {

namespace {

enum NumberBaseSlot : int32_t { LabelSlot, ListSlot, ChosenSlot, NumberBaseSlotCount };

NumberBaseRows RowsOf(HWND control) {
    return RowsOfNumberBases(WindowStyle(control));
}

void CreateChildren(HWND control) {
    const LayoutRect listPlace = LayOutNumberBase(WindowStyle(control)).list;
    const HWND list = CreateDropList(control, {0, 0, listPlace.width, listPlace.height});
    SetSlot(control, ListSlot, list);
    SetSlot(control, LabelSlot, CreateStatic(control, {0, 0, 40, 0}, nullptr));
    const NumberBaseRows rows = RowsOf(control);
    for (int32_t row = 0; row < rows.count; row++) {
        const DecimalText text = DecimalTextOf(rows.bases[row]);
        SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.text));
    }
}

void PlaceChildren(HWND control) {
    const NumberBaseLayout layout = LayOutNumberBase(WindowStyle(control));
    const HWND label = NumberBaseLabel(control);
    const int32_t frame = PlaceInParent(label).height - ClientSize(label).height;
    const LayoutRect place = ToScreenPixels(layout.label);
    SetWindowPos(label, nullptr, place.x, place.y, place.width, frame + place.height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    SetWindowPos(NumberBaseList(control), nullptr, ToScreenPixels(layout.list.x),
                 ToScreenPixels(layout.list.y), 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void TellChosenBase(HWND control) {
    const auto chosen = GetSlot<NumberBaseChosen>(control, ChosenSlot);
    const int32_t base = SelectedNumberBase(control);
    if (chosen != nullptr && base != 0) {
        chosen(base);
    }
}

LRESULT CALLBACK NumberBaseProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE:
            CreateChildren(window);
            break;
        case WM_COMMAND:
            if (HIWORD(wParam) == CBN_CLOSEUP &&
                reinterpret_cast<HWND>(lParam) == NumberBaseList(window)) {
                TellChosenBase(window);
            }
            break;
        case WM_ENABLE:
            EnableWindow(NumberBaseLabel(window), wParam != FALSE);
            EnableWindow(NumberBaseList(window), wParam != FALSE);
            break;
        default:
            break;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

ToolkitClass numberBaseClass = {NumberBaseClass, NumberBaseProc, 0, NumberBaseSlotCount, false};

}  // namespace

HWND CreateNumberBaseControl(HWND parent, int32_t x, int32_t y, uint32_t style) {
    return CreateOwnControl(parent, numberBaseClass,
                            {x, y, NumberBaseSize.width, NumberBaseSize.height},
                            style | BehindNeighbours);
}

void SetNumberBaseChosen(HWND control, NumberBaseChosen chosen) {
    SetSlot(control, ChosenSlot, chosen);
}

void SetNumberBaseLabel(HWND control, const char16_t* text) {
    PlaceChildren(control);
    SetWindowTextW(NumberBaseLabel(control), ToWide(text));
}

void SelectNumberBase(HWND control, int32_t base) {
    int32_t row;
    if (FindNumberBaseRow(RowsOf(control), base, row)) {
        SendMessageW(NumberBaseList(control), CB_SETCURSEL, static_cast<WPARAM>(row), 0);
    }
}

int32_t SelectedNumberBase(HWND control) {
    const LRESULT row = SendMessageW(NumberBaseList(control), CB_GETCURSEL, 0, 0);
    return NumberBaseOfRow(RowsOf(control), static_cast<int32_t>(row));
}

HWND NumberBaseLabel(HWND control) {
    return GetSlot<HWND>(control, LabelSlot);
}

HWND NumberBaseList(HWND control) {
    return GetSlot<HWND>(control, ListSlot);
}

}  // namespace tallymere
