// The About window: its fonts, what it draws itself, and that closing only hides it.
#include "shell/windows/about_window.h"

#include <string>

#include "shell/about_form.h"
#include "shell/ui_text.h"
#include "shell/windows/main_window.h"
#include "shell/windows/program_windows.h"
#include "toolkit/test_dialog.h"

namespace tallymere {
namespace {

using testing_support::TextOf;

constexpr COLORREF Paper = RGB(1, 2, 3);

// A picture to draw on, all of it in one colour.
class Picture {
public:
    Picture() {
        const HDC screen = GetDC(nullptr);
        bitmap_ = CreateCompatibleBitmap(screen, Width, Height);
        ReleaseDC(nullptr, screen);
        SelectObject(dc, bitmap_);
        const HBRUSH brush = CreateSolidBrush(Paper);
        const RECT all = {0, 0, Width, Height};
        FillRect(dc, &all, brush);
        DeleteObject(brush);
        SetBkMode(dc, OPAQUE);
        SetBkColor(dc, Paper);
    }
    ~Picture() {
        DeleteDC(dc);
        DeleteObject(bitmap_);
    }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    // Whether anything was drawn in that part of it.
    bool HasInk(int32_t left, int32_t right) const {
        for (int32_t y = 0; y < Height; y++) {
            for (int32_t x = left; x < right; x++) {
                if (GetPixel(dc, x, y) != GetNearestColor(dc, Paper)) {
                    return true;
                }
            }
        }
        return false;
    }

    bool IsLike(const Picture& other) const {
        for (int32_t y = 0; y < Height; y++) {
            for (int32_t x = 0; x < Width; x++) {
                if (GetPixel(dc, x, y) != GetPixel(other.dc, x, y)) {
                    return false;
                }
            }
        }
        return true;
    }

    static constexpr int32_t Width = 192;
    static constexpr int32_t Height = 47;

    const HDC dc = CreateCompatibleDC(nullptr);

private:
    HBITMAP bitmap_;
};

class AboutWindow : public testing_support::ToolkitTest {
protected:
    AboutWindow() {
        InstallLanguage(LanguageEnglish);
        CreateMainWindow();
        ShowWindow(mainWindow, SW_SHOWNORMAL);
        CreateAboutWindow();
    }
    ~AboutWindow() override {
        DestroyWindow(aboutWindow);
        DestroyWindow(mainWindow);
        DestroyWindow(hiddenOwnerWindow);
    }

    static HWND Control(AboutControl control) {
        HWND window = GetWindow(aboutWindow, GW_CHILD);
        for (int32_t i = 0; i < control; i++) {
            window = GetWindow(window, GW_HWNDNEXT);
        }
        return window;
    }
    static HFONT FontOf(HWND window) {
        return reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0));
    }
    static LOGFONTW FontForm(HFONT font) {
        LOGFONTW form = {};
        GetObjectW(font, sizeof form, &form);
        return form;
    }

    // Asks the window to draw the Donate button in the middle part of a picture.
    static LRESULT DrawDonateButton(const Picture& picture, UINT action) {
        DRAWITEMSTRUCT item = {};
        item.CtlType = ODT_BUTTON;
        item.itemAction = action;
        item.hwndItem = Control(AboutDonate);
        item.hDC = picture.dc;
        item.rcItem = {50, 0, 142, Picture::Height};
        return SendMessageW(aboutWindow, WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&item));
    }
};

TEST_F(AboutWindow, BelongsToTheMainWindowAndIsHiddenAtFirst) {
    EXPECT_EQ(GetWindow(aboutWindow, GW_OWNER), mainWindow);
    EXPECT_FALSE(IsWindowVisible(aboutWindow));
    EXPECT_EQ(TextOf(aboutWindow), "About Tallymere");
}

TEST_F(AboutWindow, WritesItsTitleInAFontOfItsOwnThatGoesWithIt) {
    const HFONT font = FontOf(Control(AboutTitle));
    EXPECT_EQ(std::wstring(FontForm(font).lfFaceName), L"Verdana");
    EXPECT_EQ(FontForm(font).lfHeight, 30);
    EXPECT_EQ(FontForm(font).lfWeight, 0);
    EXPECT_NE(FontOf(Control(AboutNotice)), font);
    DestroyWindow(aboutWindow);
    EXPECT_EQ(GetObjectType(font), 0u);
}

TEST_F(AboutWindow, FontsGrowWithTheScreen) {
    DestroyWindow(aboutWindow);
    screenDpi = 144;
    CreateAboutWindow();
    EXPECT_EQ(FontForm(FontOf(Control(AboutTitle))).lfHeight, 45);
}

TEST_F(AboutWindow, OnlyHidesWhenItIsClosed) {
    for (const bool byButton : {true, false}) {
        ShowProgramWindow(aboutWindow);
        EXPECT_TRUE(IsWindowVisible(aboutWindow));
        if (byButton) {
            SendMessageW(Control(AboutClose), BM_CLICK, 0, 0);
        } else {
            SendMessageW(aboutWindow, WM_CLOSE, 0, 0);
        }
        EXPECT_TRUE(IsWindow(aboutWindow));
        EXPECT_FALSE(IsWindowVisible(aboutWindow));
    }
}

TEST_F(AboutWindow, DrawsTheDonateButtonOnlyWhenAllOfItIsAsked) {
    const Picture picture;
    EXPECT_EQ(DrawDonateButton(picture, ODA_FOCUS), TRUE);
    EXPECT_EQ(DrawDonateButton(picture, ODA_SELECT), TRUE);
    EXPECT_FALSE(picture.HasInk(0, Picture::Width));
    EXPECT_EQ(DrawDonateButton(picture, ODA_DRAWENTIRE | ODA_FOCUS), TRUE);
    EXPECT_TRUE(picture.HasInk(50, 142));
    EXPECT_FALSE(picture.HasInk(0, 50));
    EXPECT_FALSE(picture.HasInk(142, Picture::Width));
}

TEST_F(AboutWindow, LeavesTheDrawingAsItWas) {
    const Picture picture;
    const HGDIOBJ font = GetCurrentObject(picture.dc, OBJ_FONT);
    SetTextColor(picture.dc, RGB(200, 0, 0));
    DrawDonateButton(picture, ODA_DRAWENTIRE);
    EXPECT_EQ(GetCurrentObject(picture.dc, OBJ_FONT), font);
    EXPECT_EQ(GetBkMode(picture.dc), OPAQUE);
    EXPECT_EQ(GetTextColor(picture.dc), RGB(200, 0, 0));
}

TEST_F(AboutWindow, WritesTheDonateButtonInBoldItalicsOnePixelLower) {
    const Picture drawn;
    DrawDonateButton(drawn, ODA_DRAWENTIRE);

    const Picture expected;
    auto* icon = static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), L"DonateBtnIcon",
                                               IMAGE_ICON, 92, Picture::Height, LR_DEFAULTCOLOR));
    DrawIconEx(expected.dc, 50, 0, icon, 92, Picture::Height, 0, nullptr, DI_NORMAL);
    DestroyIcon(icon);
    LOGFONTW form = {};
    form.lfHeight = 21;
    form.lfWeight = 600;
    form.lfItalic = TRUE;
    lstrcpyW(form.lfFaceName, L"Segoe UI");
    const HFONT font = CreateFontIndirectW(&form);
    const HGDIOBJ before = SelectObject(expected.dc, font);
    SetBkMode(expected.dc, TRANSPARENT);
    RECT place = {50, 1, 142, Picture::Height};
    DrawTextW(expected.dc, L"Donate", -1, &place, DT_CENTER);
    SelectObject(expected.dc, before);
    DeleteObject(font);
    EXPECT_TRUE(drawn.IsLike(expected));
}

TEST_F(AboutWindow, PaintsItself) {
    ShowProgramWindow(aboutWindow);
    InvalidateRect(aboutWindow, nullptr, TRUE);
    EXPECT_TRUE(GetUpdateRect(aboutWindow, nullptr, FALSE));
    UpdateWindow(aboutWindow);
    EXPECT_FALSE(GetUpdateRect(aboutWindow, nullptr, FALSE));
}

}  // namespace
}  // namespace tallymere
