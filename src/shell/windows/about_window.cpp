#include "shell/windows/about_window.h"

#include "shell/about_texts.h"
#include "shell/program_facts.h"
#include "shell/windows/browser.h"
#include "shell/windows/fonts.h"
#include "shell/windows/form_windows.h"
#include "shell/windows/program_windows.h"
#include "toolkit/dialog_window.h"
#include "toolkit/environment.h"
#include "toolkit/wide_text.h"

namespace tallymere {

namespace {

constexpr int64_t TextCapacity = 511;
constexpr int64_t DonateTextCapacity = 30;
constexpr int32_t TitleFontHeight = 30;
constexpr int32_t DonateFontHeight = 21;
constexpr int32_t DonateFontWeight = 600;

HWND controls[AboutControlCount];
HFONT titleFont = nullptr;

void CreateAboutControls(HWND window) {
    CreateFormControls(window, AboutForm, AboutControlCount, controls);
    for (int32_t i = 0; i < AboutControlCount; i++) {
        char16_t text[TextCapacity + 1];
        FormatAboutText(text, TextCapacity, static_cast<AboutControl>(i));
        SetWindowTextW(controls[i], ToWide(text));
    }
    titleFont = MakeFont({u"Verdana", TitleFontHeight});
    SendMessageW(controls[AboutTitle], WM_SETFONT, reinterpret_cast<WPARAM>(titleFont), FALSE);
}

// Not a shared icon: of these the system gives the one that it has, whatever its size.
void DrawResourceIcon(HDC dc, const wchar_t* name, const LayoutRect& place) {
    auto* icon = static_cast<HICON>(
        LoadImageW(programInstance, name, IMAGE_ICON, place.width, place.height, LR_DEFAULTCOLOR));
    DrawIconEx(dc, place.x, place.y, icon, place.width, place.height, 0, nullptr, DI_NORMAL);
    DestroyIcon(icon);
}

void PaintAboutIcon(HWND window) {
    PAINTSTRUCT paint;
    DrawResourceIcon(BeginPaint(window, &paint), L"!AppIcon", AboutIconPixels);
    EndPaint(window, &paint);
}

void DrawDonateButton(const DRAWITEMSTRUCT& item) {
    if ((item.itemAction & ODA_DRAWENTIRE) == 0) {
        return;
    }
    RECT place = item.rcItem;
    DrawResourceIcon(item.hDC, L"DonateBtnIcon",
                     {place.left, place.top, place.right - place.left, place.bottom - place.top});

    char16_t text[DonateTextCapacity + 1];
    GetWindowTextW(item.hwndItem, ToWide(text), DonateTextCapacity + 1);
    const HFONT font = MakeFont({u"Segoe UI", DonateFontHeight, DonateFontWeight, true});
    const HGDIOBJ fontBefore = SelectObject(item.hDC, font);
    const int modeBefore = SetBkMode(item.hDC, TRANSPARENT);
    place.top += 1;
    DrawTextW(item.hDC, ToWide(text), -1, &place, DT_CENTER);
    SetBkMode(item.hDC, modeBefore);
    SelectObject(item.hDC, fontBefore);
    DeleteObject(font);
}

void HandleAboutButton(HWND window, HWND button) {
    if (button == controls[AboutHomepage]) {
        OpenInBrowser(MakerHomepage);
    } else if (button == controls[AboutDonate]) {
        OpenInBrowser(DonationPage);
    } else if (button == controls[AboutClose]) {
        SendMessageW(window, WM_CLOSE, 0, 0);
    }
}

LRESULT AboutWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                        bool& callDefault) {
    switch (message) {
        case WM_PAINT:
            callDefault = false;
            PaintAboutIcon(window);
            break;
        case WM_DRAWITEM:
            callDefault = false;
            DrawDonateButton(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
            return TRUE;
        case WM_COMMAND:
            if (HIWORD(wParam) == BN_CLICKED && lParam != 0) {
                HandleAboutButton(window, reinterpret_cast<HWND>(lParam));
            }
            break;
        case WM_CLOSE:
            callDefault = false;
            ShowWindow(window, SW_HIDE);
            break;
        case WM_NCDESTROY:
            DeleteObject(titleFont);
            break;
        default:
            break;
    }
    return 0;
}

}  // namespace

void CreateAboutWindow() {
    char16_t caption[TextCapacity + 1];
    FormatAboutCaption(caption, TextCapacity);
    aboutWindow = CreateDialogWindow(mainWindow, AboutSize, caption, AboutWindowProc,
                                     WS_SYSMENU | DialogClientSize | DialogCentred, 0);
    CreateAboutControls(aboutWindow);
}

}  // namespace tallymere
