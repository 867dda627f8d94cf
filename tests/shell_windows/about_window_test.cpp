// The About window: its fonts, what it draws itself, and that closing only hides it.
#include "shell/windows/about_window.h"

#include <string>

#include "shell/about_form.h"
#include "shell/ui_text.h"
#include "shell/windows/main_window.h"
#include "shell/windows/program_windows.h"
#include "shell_windows/main_windows.h"
#include "shell_windows/picture.h"
#include "toolkit/gdi_objects.h"
#include "toolkit/test_dialog.h"

namespace tallymere {
namespace {

using testing_support::CountGdiObjects;
using testing_support::Picture;
using testing_support::TextOf;

// A picture of the Donate button lies in the middle part of one of this size.
constexpr int32_t DonateWidth = 192;
constexpr int32_t DonateHeight = 47;

// How often a test does what could leave an object behind.
constexpr int32_t Rounds = 20;

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
        testing_support::DestroyMainWindows();
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

    static void PaintAbout() {
        ShowProgramWindow(aboutWindow);
        RedrawWindow(aboutWindow, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    }

    // Asks the window to draw the Donate button in the middle part of a picture.
    static LRESULT DrawDonateButton(const Picture& picture, UINT action) {
        DRAWITEMSTRUCT item = {};
        item.CtlType = ODT_BUTTON;
        item.itemAction = action;
        item.hwndItem = Control(AboutDonate);
        item.hDC = picture.dc;
        item.rcItem = {50, 0, 142, DonateHeight};
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
    const Picture picture(DonateWidth, DonateHeight);
    EXPECT_EQ(DrawDonateButton(picture, ODA_FOCUS), TRUE);
    EXPECT_EQ(DrawDonateButton(picture, ODA_SELECT), TRUE);
    EXPECT_FALSE(picture.HasInk(0, DonateWidth));
    EXPECT_EQ(DrawDonateButton(picture, ODA_DRAWENTIRE | ODA_FOCUS), TRUE);
    EXPECT_TRUE(picture.HasInk(50, 142));
    EXPECT_FALSE(picture.HasInk(0, 50));
    EXPECT_FALSE(picture.HasInk(142, DonateWidth));
}

TEST_F(AboutWindow, LeavesTheDrawingAsItWas) {
    const Picture picture(DonateWidth, DonateHeight);
    const HGDIOBJ font = GetCurrentObject(picture.dc, OBJ_FONT);
    SetTextColor(picture.dc, RGB(200, 0, 0));
    DrawDonateButton(picture, ODA_DRAWENTIRE);
    EXPECT_EQ(GetCurrentObject(picture.dc, OBJ_FONT), font);
    EXPECT_EQ(GetBkMode(picture.dc), OPAQUE);
    EXPECT_EQ(GetTextColor(picture.dc), RGB(200, 0, 0));
}

TEST_F(AboutWindow, WritesTheDonateButtonInBoldItalicsOnePixelLower) {
    const Picture drawn(DonateWidth, DonateHeight);
    DrawDonateButton(drawn, ODA_DRAWENTIRE);

    const Picture expected(DonateWidth, DonateHeight);
    auto* icon = static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), L"DonateBtnIcon",
                                               IMAGE_ICON, 92, DonateHeight, LR_DEFAULTCOLOR));
    DrawIconEx(expected.dc, 50, 0, icon, 92, DonateHeight, 0, nullptr, DI_NORMAL);
    DestroyIcon(icon);
    LOGFONTW form = {};
    form.lfHeight = 21;
    form.lfWeight = 600;
    form.lfItalic = TRUE;
    lstrcpyW(form.lfFaceName, L"Segoe UI");
    const HFONT font = CreateFontIndirectW(&form);
    const HGDIOBJ before = SelectObject(expected.dc, font);
    SetBkMode(expected.dc, TRANSPARENT);
    RECT place = {50, 1, 142, DonateHeight};
    DrawTextW(expected.dc, L"Donate", -1, &place, DT_CENTER);
    SelectObject(expected.dc, before);
    DeleteObject(font);
    EXPECT_TRUE(drawn.IsLike(expected));
}

TEST_F(AboutWindow, PaintsTheIconOfTheProgramAndNothingElse) {
    PaintAbout();
    auto* icon = static_cast<HICON>(
        LoadImageW(GetModuleHandleW(nullptr), L"!AppIcon", IMAGE_ICON, 48, 48, LR_DEFAULTCOLOR));
    const COLORREF background = GetSysColor(COLOR_BTNFACE);
    Picture expected(48, 48, background);
    expected.DrawIcon(icon);
    DestroyIcon(icon);
    ASSERT_TRUE(expected.HasInk());

    const HDC window = GetDC(aboutWindow);
    const Picture shown(48, 48);
    BitBlt(shown.dc, 0, 0, 48, 48, window, 15, 13, SRCCOPY);
    EXPECT_TRUE(shown.IsLike(expected));
    for (const POINT beside : {POINT{14, 37}, {63, 37}, {39, 12}, {39, 61}}) {
        EXPECT_EQ(GetPixel(window, beside.x, beside.y), background);
    }
    ReleaseDC(aboutWindow, window);
    EXPECT_FALSE(GetUpdateRect(aboutWindow, nullptr, FALSE));
}

TEST_F(AboutWindow, KeepsNothingOfWhatItDrewWith) {
    const Picture picture(DonateWidth, DonateHeight);
    DrawDonateButton(picture, ODA_DRAWENTIRE);
    PaintAbout();
    const int64_t before = CountGdiObjects(GetCurrentProcess());
    ASSERT_GT(before, 0);
    for (int32_t round = 0; round < Rounds; round++) {
        DrawDonateButton(picture, ODA_DRAWENTIRE);
        PaintAbout();
    }
    EXPECT_LT(CountGdiObjects(GetCurrentProcess()), before + Rounds);
}

TEST_F(AboutWindow, KeepsNothingWhenItIsDestroyed) {
    const int64_t before = CountGdiObjects(GetCurrentProcess());
    for (int32_t round = 0; round < Rounds; round++) {
        DestroyWindow(aboutWindow);
        CreateAboutWindow();
    }
    EXPECT_LT(CountGdiObjects(GetCurrentProcess()), before + Rounds);
}

}  // namespace
}  // namespace tallymere
