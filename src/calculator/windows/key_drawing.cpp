#include "calculator/windows/key_drawing.h"

#include "calculator/keypad.h"
#include "calculator/windows/colours.h"
#include "toolkit/control_focus.h"
#include "toolkit/environment.h"
#include "toolkit/wide_text.h"

namespace tallymere {

namespace {

UINT CaptionAlignment(HWND key) {
    switch (WindowStyle(key) & BS_CENTER) {
        case BS_LEFT:
            return DT_LEFT;
        case BS_RIGHT:
            return DT_RIGHT;
        default:
            return DT_CENTER;
    }
}

// The system has drawn the key's face. Its focus rectangle has to be drawn here as well.
void DrawKeyCaption(const NMCUSTOMDRAW& draw, KeyClass colourClass) {
    const HWND key = draw.hdr.hwndFrom;
    char16_t caption[KeyCaptionCharacters + 1];
    GetWindowTextW(key, ToWide(caption), KeyCaptionCharacters + 1);
    RECT place = draw.rc;
    place.left += KeyCaptionMargin;
    place.right -= KeyCaptionMargin;
    const HGDIOBJ fontBefore =
        SelectObject(draw.hdc, reinterpret_cast<HFONT>(SendMessageW(key, WM_GETFONT, 0, 0)));
    const int modeBefore = SetBkMode(draw.hdc, TRANSPARENT);
    const COLORREF colourBefore = SetTextColor(draw.hdc, ToColorRef(KeyColours[colourClass]));
    DrawTextW(draw.hdc, ToWide(caption), -1, &place,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | CaptionAlignment(key));
    SetTextColor(draw.hdc, colourBefore);
    SetBkMode(draw.hdc, modeBefore);
    SelectObject(draw.hdc, fontBefore);
    if ((draw.uItemState & CDIS_FOCUS) != 0 && (draw.uItemState & CDIS_SHOWKEYBOARDCUES) != 0) {
        DrawFocusRect(draw.hdc, &place);
    }
}

}  // namespace

LRESULT DrawKey(const NMCUSTOMDRAW& draw) {
    const HWND key = draw.hdr.hwndFrom;
    const int32_t index = GetDlgCtrlID(key) - FirstKeyId;
    if (index < 0 || index >= KeyCount || draw.dwDrawStage != CDDS_PREPAINT ||
        !IsWindowEnabled(key)) {
        return CDRF_DODEFAULT;
    }
    DrawKeyCaption(draw, KeypadEntry(index, StyleOfKeypad(settings, osVersionCode)).colourClass);
    return CDRF_SKIPDEFAULT;
}

}  // namespace tallymere
