#include "toolkit/numeric_up_down.h"

#include "layout/control_keys.h"
#include "layout/decimal_text.h"
#include "layout/numeric_sync.h"
#include "toolkit/control_data.h"
#include "toolkit/environment.h"
#include "toolkit/standard_controls.h"
#include "toolkit/wide_text.h"
#include "toolkit/window_class.h"

namespace tallymere {

namespace {

enum NumericSlot : int32_t { EditSlot, SpinSlot, ChangedSlot, LastReportedSlot, NumericSlotCount };

constexpr const char16_t* SpinClass = u"msctls_updown32";

// Room for the characters of any position, with its sign.
constexpr int32_t NumericTextCapacity = 31;

void WriteText(HWND control, int32_t position) {
    SetWindowTextW(NumericEdit(control), ToWide(DecimalTextOf(position).text));
}

void Sync(HWND control, NumericEvent event) {
    const NumericSyncRequest request = SyncAfter(event);
    SyncNumericUpDown(control, request.write, request.notify);
}

void MoveCaretToEnd(HWND edit) {
    const int length = GetWindowTextLengthW(edit);
    SendMessageW(edit, EM_SETSEL, static_cast<WPARAM>(length), length);
    HideCaret(edit);
}

LRESULT HandleEdit(HWND edit, UINT message, WPARAM wParam, LPARAM, bool& callDefault) {
    const HWND control = GetParent(edit);
    switch (message) {
        case WM_KILLFOCUS:
            Sync(control, NumericTextDone);
            break;
        case WM_CHAR:
            if (wParam == KeyReturn) {
                Sync(control, NumericTextDone);
                callDefault = false;
            }
            break;
        case WM_LBUTTONDOWN:
            // Losing and getting back the focus at once makes a hidden caret visible again.
            SetFocus(control);
            break;
        default:
            break;
    }
    return 0;
}

void CreateChildren(HWND control) {
    const LayoutSize size = ClientSize(control);
    const LayoutRect place = {0, 0, FromScreenPixels(size.width), FromScreenPixels(size.height)};
    // The field uses Return itself. So Return does not click the dialog's default button. An edit
    // control that does not scroll takes no character beyond its width, and the largest numbers of
    // narrow fields could not be typed.
    const HWND edit = CreateEdit(control, place, nullptr, ES_RIGHT | ES_WANTRETURN | ES_AUTOHSCROLL,
                                 WS_EX_CLIENTEDGE);
    // A narrow field has no room for the margins that its font asks for.
    SendMessageW(edit, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);
    const HWND spin =
        CreateControl(control, SpinClass, {}, nullptr,
                      UDS_SETBUDDYINT | UDS_ALIGNRIGHT | UDS_ARROWKEYS | UDS_NOTHOUSANDS);
    SetSlot(control, EditSlot, edit);
    SetSlot(control, SpinSlot, spin);
    SetControlHandler(edit, HandleEdit);
    SendMessageW(spin, UDM_SETBUDDY, reinterpret_cast<WPARAM>(edit), 0);
    SetNumericRange(control, 0, 100);
}

LRESULT CALLBACK NumericUpDownProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE:
            CreateChildren(window);
            break;
        case WM_HSCROLL:
        case WM_VSCROLL:
            Sync(window, NumericSpun);
            MoveCaretToEnd(NumericEdit(window));
            break;
        case WM_ENABLE:
            EnableWindow(NumericEdit(window), wParam != FALSE);
            EnableWindow(NumericSpin(window), wParam != FALSE);
            break;
        default:
            break;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

ToolkitClass numericUpDownClass = {NumericUpDownClass, NumericUpDownProc, 0, NumericSlotCount,
                                   false};

}  // namespace

HWND CreateNumericUpDown(HWND parent, const LayoutRect& place) {
    return CreateOwnControl(parent, numericUpDownClass, place);
}

void SetNumericChanged(HWND control, NumericChanged changed) {
    SetSlot(control, ChangedSlot, changed);
}

void SetNumericRange(HWND control, int32_t low, int32_t high) {
    SendMessageW(NumericSpin(control), UDM_SETRANGE32, static_cast<WPARAM>(low), high);
    Sync(control, NumericRangeSet);
}

int32_t NumericPosition(HWND control) {
    const HWND spin = NumericSpin(control);
    BOOL failed = FALSE;
    const auto position = static_cast<int32_t>(
        SendMessageW(spin, UDM_GETPOS32, 0, reinterpret_cast<LPARAM>(&failed)));
    // For a typed number outside the range the message fails. Then the text itself is read.
    if (!failed) {
        return position;
    }
    int low = 0;
    int high = 0;
    SendMessageW(spin, UDM_GETRANGE32, reinterpret_cast<WPARAM>(&low),
                 reinterpret_cast<LPARAM>(&high));
    char16_t text[NumericTextCapacity + 1];
    GetWindowTextW(NumericEdit(control), ToWide(text), NumericTextCapacity + 1);
    return PositionOfText(text, position, low, high);
}

void SetNumericPosition(HWND control, int32_t position) {
    SendMessageW(NumericSpin(control), UDM_SETPOS32, 0, position);
    Sync(control, NumericPositionSet);
}

void ChooseNumericPosition(HWND control, int32_t position) {
    SetNumericPosition(control, position);
    SyncNumericUpDown(control, true, true);
}

void SyncNumericUpDown(HWND control, bool write, bool notify) {
    const int32_t position = NumericPosition(control);
    if (write) {
        WriteText(control, position);
    }
    if (!ReportsPosition(notify, position, GetSlot<int32_t>(control, LastReportedSlot))) {
        return;
    }
    SetSlot(control, LastReportedSlot, position);
    if (const auto changed = GetSlot<NumericChanged>(control, ChangedSlot); changed != nullptr) {
        changed(control, position);
    }
}

HWND NumericEdit(HWND control) {
    return GetSlot<HWND>(control, EditSlot);
}

HWND NumericSpin(HWND control) {
    return GetSlot<HWND>(control, SpinSlot);
}

}  // namespace tallymere
