#include "shell/windows/main_window.h"

#include "shell/main_menu.h"
#include "shell/program_facts.h"
#include "shell/settings.h"
#include "shell/text_format.h"
#include "shell/window_states.h"
#include "shell/windows/help.h"
#include "shell/windows/page_run.h"
#include "shell/windows/program_windows.h"
#include "shell/windows/settings_file.h"
#include "shell/windows/window_making.h"
#include "toolkit/dialog_window.h"
#include "toolkit/environment.h"
#include "toolkit/modal_loop.h"
#include "toolkit/wide_text.h"

namespace tallymere {

namespace {

constexpr LayoutSize MainWindowSize = {370, 40};
constexpr LayoutSize HiddenOwnerSize = {10, 10};
constexpr int64_t TitleCapacity = 63;

// How long the program that is closed waits for its run, which hears a stop within 0.3 s.
constexpr UINT_PTR DeafRunTimer = 1;
constexpr UINT DeafRunMilliseconds = 2'000;

WindowStateList<HWND> windowStates;

bool isProgramClosed = false;

void InsertMenuCaption(HMENU menu, const MenuItem& item, HMENU dropDown) {
    MENUITEMINFOW info = {};
    info.cbSize = sizeof(info);
    info.fMask = MIIM_ID | MIIM_STRING | (dropDown == nullptr ? 0u : UINT{MIIM_SUBMENU});
    info.wID = static_cast<UINT>(item.id);
    info.hSubMenu = dropDown;
    // Only read in a call that sets.
    info.dwTypeData = const_cast<wchar_t*>(ToWide(uiText.*item.caption));
    InsertMenuItemW(menu, static_cast<UINT>(GetMenuItemCount(menu)), TRUE, &info);
}

void BuildMainMenu(HWND window) {
    const HMENU bar = CreateMenu();
    HMENU dropDown = nullptr;
    for (const MenuItem& item : MainMenu) {
        if (item.IsBarItem()) {
            dropDown = CreateMenu();
            InsertMenuCaption(bar, item, dropDown);
        } else {
            InsertMenuCaption(dropDown, item, nullptr);
        }
    }
    SetMenu(window, bar);
}

// The menu is there before it is known which pages the program has, so its items are looked at each
// time that it drops down.
void EnableMenuItems(HMENU dropDown) {
    bool hasPage[PageCount];
    for (int32_t page = 0; page < PageCount; page++) {
        hasPage[page] = HasProgramWindow(&pageWindows[page]);
    }
    for (const MenuItem& item : MainMenu) {
        EnableMenuItem(dropDown, static_cast<UINT>(item.id),
                       IsMenuItemEnabled(item, hasPage) ? MF_ENABLED : MF_GRAYED);
    }
}

BOOL CALLBACK NoteThreadWindow(HWND window, LPARAM) {
    const bool isVisible = IsWindowVisible(window) != FALSE;
    WINDOWPLACEMENT placement = {};
    placement.length = sizeof(placement);
    GetWindowPlacement(window, &placement);
    return NoteWindowState(windowStates, window, isVisible, placement.showCmd);
}

void HideNotedWindows() {
    EnumThreadWindows(GetCurrentThreadId(), NoteThreadWindow, 0);
    for (int32_t i = 0; i < windowStates.count; i++) {
        const WindowState<HWND>& state = windowStates.states[i];
        if (FollowsMainWindow(state, mainWindow)) {
            ShowWindow(state.window, SW_HIDE);
        }
    }
}

void ShowNotedWindows() {
    for (int32_t i = 0; i < windowStates.count; i++) {
        const WindowState<HWND>& state = windowStates.states[i];
        if (FollowsMainWindow(state, mainWindow)) {
            ShowWindow(state.window, static_cast<int>(state.showState));
        }
    }
    windowStates.count = 0;
}

void RunMenuCommand(MenuCommand command) {
    switch (command.action) {
        case MenuDoesNothing:
            break;
        case MenuShowsOptions:
            ShowProgramWindow(EnsureWindow(&optionsWindow));
            break;
        case MenuClosesProgram:
            SendMessageW(mainWindow, WM_CLOSE, 0, 0);
            break;
        case MenuShowsPage:
            ShowProgramWindow(EnsureWindow(&pageWindows[command.page]));
            break;
        case MenuOpensHelp:
            ShowHelp();
            break;
        case MenuRunsAbout:
            RunModal(EnsureWindow(&aboutWindow));
            break;
    }
}

void EndMessageLoop() {
    isProgramClosed = true;
    KillTimer(mainWindow, DeafRunTimer);
    // What is being typed is taken over when its box loses the focus.
    SetFocus(nullptr);
    // The loop of a menu goes on in Wine, whatever else is posted to it.
    PostMessageW(nullptr, WM_CANCELMODE, 0, 0);
    PostQuitMessage(0);
}

// The memory of a run under way must stay until it has ended. Its page shuts the main window out,
// but other programs can close it all the same. A run that does not hear its stop ends with the
// process, see RunProgram.
void CloseProgram() {
    StopRunThen(EndMessageLoop);
    if (IsRunUnderWay() && SetTimer(mainWindow, DeafRunTimer, DeafRunMilliseconds, nullptr) == 0) {
        EndMessageLoop();
    }
}

// Whoever closes it means the program. By default all windows would be destroyed with it.
LRESULT HiddenOwnerProc(HWND, UINT message, WPARAM, LPARAM, bool& callDefault) {
    if (message == WM_CLOSE) {
        callDefault = false;
        CloseProgram();
    } else if (message == WM_DESTROY) {
        EndMessageLoop();
    }
    return 0;
}

LRESULT MainWindowProc(HWND, UINT message, WPARAM wParam, LPARAM lParam, bool& callDefault) {
    switch (message) {
        case WM_SIZE:
            if (wParam == SIZE_MINIMIZED) {
                HideNotedWindows();
            } else if (wParam == SIZE_RESTORED) {
                ShowNotedWindows();
            }
            break;
        case WM_INITMENUPOPUP:
            EnableMenuItems(reinterpret_cast<HMENU>(wParam));
            break;
        case WM_COMMAND:
            RunMenuCommand(CommandOfMenu(LOWORD(wParam), lParam));
            break;
        case WM_CLOSE:
            callDefault = false;
            CloseProgram();
            break;
        case WM_TIMER:
            // Of a run that has ended, the message box may still be there.
            KillTimer(mainWindow, DeafRunTimer);
            if (IsRunUnderWay()) {
                EndMessageLoop();
            }
            break;
        case WM_DESTROY:
            // Nobody sees the program any more, and nobody could close it.
            EndMessageLoop();
            break;
        case WM_QUERYENDSESSION:
        case WM_ENDSESSION:
            // At the question, since the system may end the process without another word. At the
            // end once more: windows that were asked after this one took over what was typed.
            SaveSettings();
            break;
        default:
            break;
    }
    return 0;
}

// The class is registered by now, so the icon is put into it by way of a window that is thrown away
// again.
void SetIconOfAllWindows() {
    const HWND window = CreateDialogWindow(nullptr, HiddenOwnerSize, u"", nullptr, 0, 0);
    const HICON icon = LoadIconW(programInstance, L"!AppIcon");
    SetClassLongPtrW(window, GCLP_HICON, reinterpret_cast<LONG_PTR>(icon));
    SetClassLongPtrW(window, GCLP_HICONSM, 0);
    DestroyWindow(window);
}

}  // namespace

void CreateMainWindow() {
    isProgramClosed = false;
    hiddenOwnerWindow = CreateDialogWindow(nullptr, HiddenOwnerSize, u"", HiddenOwnerProc, 0, 0);
    char16_t title[TitleCapacity + 1];
    FormatBounded(title, TitleCapacity, u"%s %s", {ProgramName, ProgramVersion});
    mainWindow = CreateDialogWindow(hiddenOwnerWindow, MainWindowSize, title, MainWindowProc,
                                    WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX |
                                        DialogClientSize | DialogCentred,
                                    WS_EX_APPWINDOW);
    BuildMainMenu(mainWindow);
    SetIconOfAllWindows();
}

void OpenMainWindow() {
    ShowWindow(mainWindow, SW_SHOWNORMAL);
    // Painted before anything else is made.
    UpdateWindow(mainWindow);
    if (settings.showWelcomeHint) {
        RunModal(EnsureWindow(&aboutWindow));
        ChangeSetting(settings, &Settings::showWelcomeHint, false);
    }
}

// The keys that lead through dialogs are the business of their controls, so the loop is a plain
// one.
int RunMainLoop() {
    MSG message = {};
    for (;;) {
        // A loop of the system inside this one, such as that of a window that is being moved, may
        // have used up the request.
        if (isProgramClosed) {
            PostQuitMessage(0);
        }
        if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
            return static_cast<int>(message.wParam);
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}  // namespace tallymere
