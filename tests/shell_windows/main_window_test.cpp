// The main window: its menu, the windows that follow it, and the end of the program.
#include "shell/windows/main_window.h"

#include <iterator>
#include <string>

#include "shell/ui_text.h"
#include "shell/windows/program_windows.h"
#include "toolkit/test_dialog.h"

namespace tallymere {
namespace {

using testing_support::TextOf;

LRESULT Ignore(HWND, UINT, WPARAM, LPARAM, bool&) {
    return 0;
}

class MainWindow : public testing_support::ToolkitTest {
protected:
    MainWindow() {
        InstallLanguage(LanguageEnglish);
        CreateMainWindow();
        pageWindows[PageCalculator] =
            CreateDialogWindow(hiddenOwnerWindow, {100, 100}, u"Page", Ignore, 0, 0);
    }
    ~MainWindow() override {
        DestroyWindow(pageWindows[PageCalculator]);
        pageWindows[PageCalculator] = nullptr;
        DestroyWindow(mainWindow);
        DestroyWindow(hiddenOwnerWindow);
    }

    static void ChooseMenuItem(WPARAM id, LPARAM sender = 0) {
        SendMessageW(mainWindow, WM_COMMAND, id, sender);
    }
};

TEST_F(MainWindow, HasItsTitleItsMenuAndItsOwner) {
    EXPECT_EQ(TextOf(mainWindow), "Tallymere 3.9");
    EXPECT_EQ(GetWindow(mainWindow, GW_OWNER), hiddenOwnerWindow);
    EXPECT_FALSE(IsWindowVisible(mainWindow));
    const HMENU bar = GetMenu(mainWindow);
    ASSERT_EQ(GetMenuItemCount(bar), 3);
    const int counts[] = {2, 6, 2};
    for (int i = 0; i < 3; i++) {
        EXPECT_EQ(GetMenuItemCount(GetSubMenu(bar, i)), counts[i]);
    }
    wchar_t caption[64];
    GetMenuStringW(bar, 206, caption, static_cast<int>(std::size(caption)), MF_BYCOMMAND);
    EXPECT_EQ(std::wstring(caption), L"Prime Factors && Divisors");
}

TEST_F(MainWindow, ShowsPagesThatAreThereAndIgnoresTheOthers) {
    ChooseMenuItem(201, 1);
    EXPECT_FALSE(IsWindowVisible(pageWindows[PageCalculator])) << "that is no menu";
    ChooseMenuItem(202);
    ChooseMenuItem(201);
    EXPECT_TRUE(IsWindowVisible(pageWindows[PageCalculator]));
}

TEST_F(MainWindow, HidesAndShowsAllWindowsWithItself) {
    ShowWindow(mainWindow, SW_SHOWNORMAL);
    ChooseMenuItem(201);
    SendMessageW(mainWindow, WM_SIZE, SIZE_MINIMIZED, 0);
    EXPECT_FALSE(IsWindowVisible(pageWindows[PageCalculator]));
    EXPECT_FALSE(IsWindowVisible(dialog));
    SendMessageW(mainWindow, WM_SIZE, SIZE_RESTORED, 0);
    EXPECT_TRUE(IsWindowVisible(pageWindows[PageCalculator]));
    EXPECT_TRUE(IsWindowVisible(dialog));
    EXPECT_FALSE(IsWindowVisible(hiddenOwnerWindow));
}

TEST_F(MainWindow, EndsTheMessageLoopWhenItIsClosed) {
    ChooseMenuItem(102);
    EXPECT_TRUE(IsWindow(mainWindow));
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        DispatchMessageW(&message);
    }
    EXPECT_EQ(message.message, UINT{WM_QUIT});
    EXPECT_EQ(message.wParam, 0u);
}

}  // namespace
}  // namespace tallymere
