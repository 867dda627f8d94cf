#include "toolkit/number_type_control.h"

#include "toolkit/standard_controls.h"
#include "toolkit/wide_text.h"
#include "toolkit/window_class.h"

namespace tallymere {

namespace {

enum NumberTypeSlot : int32_t { ListSlot, ChosenSlot, NumberTypeSlotCount };

constexpr int32_t NumberTypeY = 29;
constexpr LayoutSize NumberTypeSize = {70, 23};

void CreateChildren(HWND control) {
    const HWND list = CreateDropList(control, {0, 0, NumberTypeSize.width, NumberTypeSize.height});
    SetSlot(control, ListSlot, list);
}

void TellChosenType(HWND control) {
    if (const auto chosen = GetSlot<NumberTypeChosen>(control, ChosenSlot); chosen != nullptr) {
        chosen(control, SelectedNumberType(control));
    }
}

LRESULT CALLBACK NumberTypeProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE:
            CreateChildren(window);
            break;
        case WM_COMMAND:
            if (HIWORD(wParam) == CBN_SELCHANGE &&
                reinterpret_cast<HWND>(lParam) == NumberTypeList(window)) {
                TellChosenType(window);
            }
            break;
        default:
            break;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

ToolkitClass numberTypeClass = {NumberTypeClass, NumberTypeProc, 0, NumberTypeSlotCount, false};

}  // namespace

HWND CreateNumberTypeControl(HWND parent, int32_t x, std::span<const ListRow> rows) {
    const HWND control = CreateOwnControl(
        parent, numberTypeClass, {x, NumberTypeY, NumberTypeSize.width, NumberTypeSize.height});
    const HWND list = NumberTypeList(control);
    for (const ListRow& row : rows) {
        const LRESULT index =
            SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(row.text)));
        SendMessageW(list, CB_SETITEMDATA, static_cast<WPARAM>(index), row.value);
    }
    return control;
}

void SetNumberTypeChosen(HWND control, NumberTypeChosen chosen) {
    SetSlot(control, ChosenSlot, chosen);
}

void SelectNumberType(HWND control, int32_t type) {
    const HWND list = NumberTypeList(control);
    const LRESULT count = SendMessageW(list, CB_GETCOUNT, 0, 0);
    for (WPARAM index = 0; index < static_cast<WPARAM>(count); index++) {
        if (SendMessageW(list, CB_GETITEMDATA, index, 0) == type) {
            SendMessageW(list, CB_SETCURSEL, index, 0);
        }
    }
}

int32_t SelectedNumberType(HWND control) {
    const HWND list = NumberTypeList(control);
    const LRESULT index = SendMessageW(list, CB_GETCURSEL, 0, 0);
    if (index < 0) {
        return 0;
    }
    return static_cast<int32_t>(SendMessageW(list, CB_GETITEMDATA, static_cast<WPARAM>(index), 0));
}

HWND NumberTypeList(HWND control) {
    return GetSlot<HWND>(control, ListSlot);
}

}  // namespace tallymere
