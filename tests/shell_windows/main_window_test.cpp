// The main window: its menu, the windows that follow it, and the end of the program.
#include "shell/windows/main_window.h"

#include <iterator>
#include <string>
#include <vector>

#include "shell/main_menu.h"
#include "shell/program_facts.h"
#include "shell/settings.h"
#include "shell/settings_testing.h"
#include "shell/ui_text.h"
#include "shell/windows/program_windows.h"
#include "shell_windows/main_windows.h"
#include "shell_windows/message_boxes.h"
#include "shell_windows/picture.h"
#include "shell_windows/settings_folder.h"
#include "toolkit/test_dialog.h"

namespace tallymere {
namespace {

using testing_support::Picture;
using testing_support::TextOf;

constexpr int32_t IconSize = 32;  // of what LoadIconW gives

BOOL CALLBACK CountDialog(HWND window, LPARAM count) {
    if (IsDialogWindow(window)) {
        ++*reinterpret_cast<size_t*>(count);
    }
    return TRUE;
}

size_t CountDialogs() {
    size_t count = 0;
    EnumThreadWindows(GetCurrentThreadId(), CountDialog, reinterpret_cast<LPARAM>(&count));
    return count;
}

int greetings;

LRESULT CloseWhenShown(HWND window, UINT message, WPARAM wParam, LPARAM, bool& callDefault) {
    if (message == WM_SHOWWINDOW && wParam == TRUE) {
        greetings++;
        EXPECT_TRUE(IsModal(window));
        PostMessageW(window, WM_CLOSE, 0, 0);
    }
    if (message == WM_CLOSE) {
        EXPECT_FALSE(IsWindowEnabled(pageWindows[PageCalculator]));
        callDefault = false;
        HideProgramWindow(window);
    }
    return 0;
}

void ExpectMenuItem(HMENU menu, int position, const MenuItem& item) {
    wchar_t caption[64] = L"";
    MENUITEMINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_ID | MIIM_STRING;
    info.dwTypeData = caption;
    info.cch = static_cast<UINT>(std::size(caption));
    ASSERT_TRUE(GetMenuItemInfoW(menu, static_cast<UINT>(position), TRUE, &info)) << item.id;
    EXPECT_EQ(info.wID, static_cast<UINT>(item.id));
    EXPECT_EQ(std::wstring(caption), ToWide(uiText.*item.caption));
}

// How a page goes: that it is hidden and that it is no longer the active window.
std::vector<UINT> partings;

LRESULT NotePartings(HWND, UINT message, WPARAM wParam, LPARAM, bool&) {
    if ((message == WM_SHOWWINDOW && wParam == FALSE) ||
        (message == WM_ACTIVATE && LOWORD(wParam) == WA_INACTIVE)) {
        partings.push_back(message);
    }
    return 0;
}

class MainWindow : public testing_support::ToolkitTest {
protected:
    MainWindow() {
        InstallLanguage(LanguageEnglish);
        CreateMainWindow();
        pageWindows[PageCalculator] =
            CreateDialogWindow(hiddenOwnerWindow, {100, 100}, u"Page", NotePartings, 0, 0);
    }
    ~MainWindow() override {
        DestroyWindow(pageWindows[PageCalculator]);
        pageWindows[PageCalculator] = nullptr;
        testing_support::DestroyMainWindows();
    }

    static void ChooseMenuItem(WPARAM id, LPARAM sender = 0) {
        SendMessageW(mainWindow, WM_COMMAND, id, sender);
    }

    static bool IsGreyWhenDroppedDown(UINT id) {
        const HMENU bar = GetMenu(mainWindow);
        for (int position = 0; position < GetMenuItemCount(bar); position++) {
            SendMessageW(mainWindow, WM_INITMENUPOPUP,
                         reinterpret_cast<WPARAM>(GetSubMenu(bar, position)),
                         MAKELPARAM(position, FALSE));
        }
        return (GetMenuState(bar, id, MF_BYCOMMAND) & MF_GRAYED) != 0;
    }
};

TEST_F(MainWindow, HasItsTitleItsMenuAndItsOwner) {
    const std::u16string version = ProgramVersion;
    EXPECT_EQ(TextOf(mainWindow), "Tallymere " + std::string(version.begin(), version.end()));
    EXPECT_EQ(GetWindow(mainWindow, GW_OWNER), hiddenOwnerWindow);
    EXPECT_FALSE(IsWindowVisible(mainWindow));
    const HMENU bar = GetMenu(mainWindow);
    ASSERT_EQ(GetMenuItemCount(bar), 3);
    int barPosition = -1;
    int position = 0;
    for (const MenuItem& item : MainMenu) {
        if (item.IsBarItem()) {
            barPosition++;
            position = 0;
            ExpectMenuItem(bar, barPosition, item);
            continue;
        }
        ExpectMenuItem(GetSubMenu(bar, barPosition), position++, item);
        EXPECT_LE(position, GetMenuItemCount(GetSubMenu(bar, barPosition)));
    }
    const int counts[] = {2, 6, 2};
    for (int i = 0; i < 3; i++) {
        EXPECT_EQ(GetMenuItemCount(GetSubMenu(bar, i)), counts[i]);
    }
}

TEST_F(MainWindow, IsAShortWindowThatCanBeResizedInTheMiddleOfTheScreen) {
    const DWORD style = WindowStyle(mainWindow);
    const DWORD wanted = WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX;
    EXPECT_EQ(style & wanted, wanted);
    EXPECT_EQ(style & (WS_CHILD | WS_VISIBLE | WS_DISABLED), 0u);
    EXPECT_NE(GetWindowLongPtrW(mainWindow, GWL_EXSTYLE) & WS_EX_APPWINDOW, 0);

    // The size was reckoned without the menu, which takes its line from the client area.
    RECT frame = {0, 0, 370, 40};
    AdjustWindowRectEx(&frame, style, FALSE,
                       static_cast<DWORD>(GetWindowLongPtrW(mainWindow, GWL_EXSTYLE)));
    const LayoutRect place = PlaceInParent(mainWindow);
    EXPECT_EQ(place.width, frame.right - frame.left);
    EXPECT_EQ(place.height, frame.bottom - frame.top);
    EXPECT_EQ(ClientSize(mainWindow).width, 370);
    EXPECT_EQ(place.x, (GetSystemMetrics(SM_CXSCREEN) - place.width) / 2);
    EXPECT_EQ(place.y, (GetSystemMetrics(SM_CYSCREEN) - place.height) / 2);
}

TEST_F(MainWindow, HasAnOwnerThatIsNeverSeen) {
    EXPECT_EQ(GetWindow(hiddenOwnerWindow, GW_OWNER), nullptr);
    EXPECT_EQ(TextOf(hiddenOwnerWindow), "");
    EXPECT_FALSE(IsWindowVisible(hiddenOwnerWindow));
    EXPECT_TRUE(IsDialogWindow(hiddenOwnerWindow));
}

TEST_F(MainWindow, GivesAllWindowsTheIconOfTheProgramAndLeavesNoOtherWindowBehind) {
    auto* icon = static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), L"!AppIcon", IMAGE_ICON,
                                               IconSize, IconSize, LR_DEFAULTCOLOR));
    Picture expected(IconSize, IconSize);
    expected.DrawIcon(icon);
    DestroyIcon(icon);
    ASSERT_TRUE(expected.HasInk());
    const HWND windows[] = {mainWindow, hiddenOwnerWindow, pageWindows[PageCalculator], dialog};
    for (HWND window : windows) {
        Picture shown(IconSize, IconSize);
        shown.DrawIcon(reinterpret_cast<HICON>(GetClassLongPtrW(window, GCLP_HICON)));
        EXPECT_TRUE(shown.IsLike(expected));
    }
    EXPECT_EQ(CountDialogs(), std::size(windows));
}

TEST_F(MainWindow, IsActivatedWhenAWindowThatItShowedIsClosed) {
    ShowWindow(mainWindow, SW_SHOWNORMAL);
    const HWND page = pageWindows[PageCalculator];
    ChooseMenuItem(201);
    EXPECT_EQ(GetActiveWindow(), page);
    SetActiveWindow(dialog);
    HidePageWindow(page);
    EXPECT_FALSE(IsWindowVisible(page));
    EXPECT_EQ(GetActiveWindow(), mainWindow);

    // In this order, also where the main window is shut out.
    EnableWindow(mainWindow, FALSE);
    ChooseMenuItem(201);
    EXPECT_EQ(GetActiveWindow(), page);
    partings.clear();
    HidePageWindow(page);
    EnableWindow(mainWindow, TRUE);
    EXPECT_EQ(partings, (std::vector<UINT>{WM_SHOWWINDOW, WM_ACTIVATE}));
    EXPECT_EQ(GetActiveWindow(), mainWindow);

    // A dialog goes back to its owner.
    const HWND owned = CreateDialogWindow(page, {100, 100}, u"", nullptr, 0, 0);
    ShowProgramWindow(page);
    ShowProgramWindow(owned);
    HideProgramWindow(owned);
    EXPECT_FALSE(IsWindowVisible(owned));
    EXPECT_EQ(GetActiveWindow(), page);
    DestroyWindow(owned);
}

TEST_F(MainWindow, GreetsOnceAndNotesThat) {
    settings = Settings{};
    aboutWindow = CreateDialogWindow(mainWindow, {100, 100}, u"About", CloseWhenShown, 0, 0);
    for (const bool greeted : {true, false}) {
        greetings = 0;
        settings.settingsDirty = false;
        OpenMainWindow();
        EXPECT_TRUE(IsWindowVisible(mainWindow));
        EXPECT_FALSE(IsIconic(mainWindow));
        EXPECT_EQ(greetings, greeted ? 1 : 0);
        EXPECT_EQ(settings.settingsDirty, greeted);
        EXPECT_FALSE(settings.showWelcomeHint);
    }
    ChooseMenuItem(302);
    EXPECT_EQ(greetings, 1) << "whoever asks is greeted again, and modally as well";
    DestroyWindow(aboutWindow);
    aboutWindow = nullptr;
    settings = Settings{};
}

TEST_F(MainWindow, ShowsEachWindowInFrontByItsItem) {
    HWND* const windows[] = {&optionsWindow,
                             &pageWindows[PageAlgebraicEquations],
                             &pageWindows[PageLinearSystems],
                             &pageWindows[PagePolynomialCalculation],
                             &pageWindows[PagePrimeNumbers],
                             &pageWindows[PagePrimeFactors]};
    const WPARAM items[] = {101, 202, 203, 204, 205, 206};
    for (HWND* window : windows) {
        *window = CreateDialogWindow(hiddenOwnerWindow, {100, 100}, u"", nullptr, 0, 0);
    }
    for (size_t i = 0; i < std::size(windows); i++) {
        ChooseMenuItem(items[i]);
        EXPECT_EQ(GetForegroundWindow(), *windows[i]) << items[i];
        for (size_t k = 0; k < std::size(windows); k++) {
            EXPECT_EQ(IsWindowVisible(*windows[k]) != FALSE, k <= i) << items[i];
        }
    }
    ChooseMenuItem(101);
    EXPECT_EQ(GetForegroundWindow(), optionsWindow) << "shown already, but behind the others";
    ChooseMenuItem(202);
    ShowWindow(optionsWindow, SW_SHOWMINIMIZED);
    ChooseMenuItem(101);
    EXPECT_EQ(GetForegroundWindow(), optionsWindow) << "minimised";
    EXPECT_FALSE(IsIconic(optionsWindow));
    for (HWND* window : windows) {
        DestroyWindow(*window);
        *window = nullptr;
    }
}

TEST_F(MainWindow, ShowsPagesThatAreThereAndIgnoresTheOthers) {
    ChooseMenuItem(201, 1);
    EXPECT_FALSE(IsWindowVisible(pageWindows[PageCalculator])) << "that is no menu";
    ChooseMenuItem(202);
    ChooseMenuItem(201);
    EXPECT_TRUE(IsWindowVisible(pageWindows[PageCalculator]));
}

TEST_F(MainWindow, GreysTheItemsOfPagesThatAreNotThere) {
    const UINT pages[] = {201, 202, 203, 204, 205, 206};
    for (const UINT page : pages) {
        EXPECT_EQ(IsGreyWhenDroppedDown(page), page != 201) << page;
    }
    for (const UINT item : {101, 102, 301, 302}) {
        EXPECT_FALSE(IsGreyWhenDroppedDown(item)) << item;
    }

    // A page that comes later, or goes.
    pageWindows[PagePrimeNumbers] = dialog;
    EXPECT_FALSE(IsGreyWhenDroppedDown(205));
    EXPECT_TRUE(IsGreyWhenDroppedDown(206));
    pageWindows[PagePrimeNumbers] = nullptr;
    EXPECT_TRUE(IsGreyWhenDroppedDown(205));
    EXPECT_FALSE(IsGreyWhenDroppedDown(201));
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

TEST_F(MainWindow, ShowsAMaximisedPageMaximisedAgainAndAHiddenOneNot) {
    ShowWindow(mainWindow, SW_SHOWNORMAL);
    ShowWindow(pageWindows[PageCalculator], SW_SHOWMAXIMIZED);
    ShowWindow(dialog, SW_HIDE);
    SendMessageW(mainWindow, WM_SIZE, SIZE_MINIMIZED, 0);
    EXPECT_FALSE(IsWindowVisible(pageWindows[PageCalculator]));
    EXPECT_TRUE(IsWindowVisible(mainWindow));
    SendMessageW(mainWindow, WM_SIZE, SIZE_MAXIMIZED, 0);
    EXPECT_FALSE(IsWindowVisible(pageWindows[PageCalculator])) << "that is no restoring";
    SendMessageW(mainWindow, WM_SIZE, SIZE_RESTORED, 0);
    EXPECT_TRUE(IsWindowVisible(pageWindows[PageCalculator]));
    EXPECT_TRUE(IsZoomed(pageWindows[PageCalculator]));
    EXPECT_FALSE(IsWindowVisible(dialog));

    // A restoring that follows no minimising shows nothing.
    ShowWindow(pageWindows[PageCalculator], SW_HIDE);
    SendMessageW(mainWindow, WM_SIZE, SIZE_RESTORED, 0);
    EXPECT_FALSE(IsWindowVisible(pageWindows[PageCalculator]));
}

TEST_F(MainWindow, SavesTheSettingsAtTheEndOfTheSession) {
    const testing_support::SettingsFolder settingsFolder;
    for (const UINT message : {WM_QUERYENDSESSION, WM_ENDSESSION}) {
        ChangeSetting(settings, &Settings::groupPrimes, !settings.groupPrimes);
        EXPECT_EQ(SendMessageW(mainWindow, message, TRUE, 0), message == WM_QUERYENDSESSION);
        EXPECT_FALSE(settings.settingsDirty);
        EXPECT_EQ(settingsFolder.Content(),
                  testing_support::FileBytes(testing_support::WrittenText(settings)));
    }
}

TEST_F(MainWindow, DelaysTheEndOfTheSessionByNoMessageBox) {
    const testing_support::SettingsFolder settingsFolder;
    testing_support::fs::remove_all(settingsFolder.folder);
    testing_support::PutBytes(settingsFolder.folder, "mine");
    ChangeSetting(settings, &Settings::groupPrimes, true);
    const testing_support::MessageBoxAnswer answer;
    EXPECT_TRUE(SendMessageW(mainWindow, WM_QUERYENDSESSION, 0, 0));
    SendMessageW(mainWindow, WM_ENDSESSION, TRUE, 0);
    EXPECT_EQ(answer.boxes, 0);
    EXPECT_TRUE(settings.settingsDirty);
    testing_support::fs::remove_all(settingsFolder.folder);
    EXPECT_TRUE(SaveSettings());
}

TEST_F(MainWindow, IsClosedWhileItIsBeingMovedOrItsMenuIsOpen) {
    for (const WPARAM command : {SC_MOVE, SC_SIZE, SC_KEYMENU}) {
        testing_support::DestroyMainWindows();
        CreateMainWindow();
        ShowWindow(mainWindow, SW_SHOWNORMAL);
        PostMessageW(mainWindow, WM_SYSCOMMAND, command, command == SC_KEYMENU ? u'F' : 0);
        PostMessageW(hiddenOwnerWindow, WM_CLOSE, 0, 0);
        PostMessageW(mainWindow, WM_CLOSE, 0, 0);
        EXPECT_EQ(RunMainLoop(), 0);
        EXPECT_TRUE(IsWindow(mainWindow));
    }
}

TEST_F(MainWindow, EndsTheMessageLoopWhenItOrItsOwnerIsClosedOrDestroyed) {
    const auto expectEnd = [] {
        MSG message;
        while (GetMessageW(&message, nullptr, 0, 0) > 0) {
            DispatchMessageW(&message);
        }
        EXPECT_EQ(message.message, UINT{WM_QUIT});
        EXPECT_EQ(message.wParam, 0u);
        EXPECT_TRUE(IsWindow(mainWindow));
        EXPECT_TRUE(IsWindow(pageWindows[PageCalculator]));
    };
    ChooseMenuItem(102);
    expectEnd();
    PostMessageW(hiddenOwnerWindow, WM_CLOSE, 0, 0);
    expectEnd();
    for (const HWND window : {mainWindow, hiddenOwnerWindow}) {
        PostMessageW(window, WM_DESTROY, 0, 0);
        expectEnd();
    }
}

}  // namespace
}  // namespace tallymere
