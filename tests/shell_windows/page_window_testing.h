// Windows of pages for a test, made as the program makes them.
#pragma once

#include <initializer_list>
#include <vector>

#include "core/scratch.h"
#include "core/stop_request.h"
#include "shell/languages.h"
#include "shell/separators.h"
#include "shell/settings.h"
#include "shell/windows/form_page.h"
#include "shell/windows/program_windows.h"
#include "shell_windows/message_boxes.h"
#include "toolkit/test_dialog.h"

namespace tallymere::testing_support {

struct TestedPage {
    PageIndex index;
    void (*create)();
    const FormPage* page;
};

/// Makes pages, hidden, in English, with the separators "." and ",". The dialog is the main window.
/// At the end of a test their runs must be over and leave nothing behind.
class PageWindowTest : public ToolkitTest {
protected:
    explicit PageWindowTest(std::initializer_list<TestedPage> tested) {
        pages = tested;
        CreateScratchStack();
        settings = Settings{};
        ApplySeparators(DecimalPoint, ThousandsComma);
        ClearErrors();
        mainWindow = dialog;
        hiddenOwnerWindow = nullptr;
        Make();
    }
    ~PageWindowTest() override {
        for (const TestedPage& tested : pages) {
            EXPECT_EQ(tested.page->run.states.phase, PageIdle);
        }
        EXPECT_EQ(*CurrentScratchStack().top, CurrentScratchStack().base);
        EXPECT_EQ(PendingUiError(), UiErrorNone);
        EXPECT_FALSE(StopRequested());
        EXPECT_TRUE(IsWindowEnabled(dialog));
        Destroy();
        mainWindow = nullptr;
        settings = Settings{};
        InstallLanguage(LanguageEnglish);
        DestroyScratchStack();
    }

    static void Make(Language language = LanguageEnglish) {
        InstallLanguage(language);
        for (const TestedPage& tested : pages) {
            tested.create();
        }
    }
    static void MakeAgain(Language language, int32_t dpi = LogicalDpi) {
        Destroy();
        screenDpi = dpi;
        Make(language);
    }
    static void Destroy() {
        for (const TestedPage& tested : pages) {
            DestroyWindow(pageWindows[tested.index]);
            pageWindows[tested.index] = nullptr;
        }
    }

    /// Makes the client area so large, in logical units.
    static void Resize(const FormPage& page, LayoutSize client) {
        const LayoutRect window = PlaceInParent(page.window);
        const LayoutSize inner = ClientSize(page.window);
        SetWindowPos(page.window, nullptr, 0, 0,
                     window.width - inner.width + ToScreenPixels(client.width),
                     window.height - inner.height + ToScreenPixels(client.height),
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }

    // What all pages do alike.

    static void ExpectToBeResizableAndInTheMiddle() {
        hiddenOwnerWindow = CreateDialogWindow(nullptr, {100, 100}, u"", nullptr, 0, 0);
        MakeAgain(LanguageEnglish);
        for (const TestedPage& tested : pages) {
            const HWND window = tested.page->window;
            EXPECT_EQ(pageWindows[tested.index], window);
            EXPECT_EQ(GetWindow(window, GW_OWNER), hiddenOwnerWindow);
            const uint32_t wanted =
                WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX;
            EXPECT_EQ(WindowStyle(window) & wanted, wanted);
            const LayoutRect place = PlaceInParent(window);
            EXPECT_EQ(place.x, (GetSystemMetrics(SM_CXSCREEN) - place.width) / 2);
            EXPECT_EQ(place.y, (GetSystemMetrics(SM_CYSCREEN) - place.height) / 2);
        }
        Destroy();
        DestroyWindow(hiddenOwnerWindow);
        hiddenOwnerWindow = nullptr;
    }
    static void ExpectToBeGoneWithItsWindow() {
        Destroy();
        for (const TestedPage& tested : pages) {
            EXPECT_EQ(tested.page->window, nullptr);
        }
    }
    /// `control` is one that the layout moves.
    static void ExpectNotToBeLaidOutWhileMinimised(const FormPage& page, HWND control) {
        const LayoutRect elsewhere = {1, 2, 3, 4};
        MoveWindow(control, 1, 2, 3, 4, FALSE);
        SendMessageW(page.window, WM_SIZE, SIZE_MINIMIZED, 0);
        EXPECT_EQ(PlaceInParent(control), elsewhere);
        for (const WPARAM how : {SIZE_RESTORED, SIZE_MAXIMIZED}) {
            MoveWindow(control, 1, 2, 3, 4, FALSE);
            SendMessageW(page.window, WM_SIZE, how, 0);
            EXPECT_NE(PlaceInParent(control), elsewhere) << how;
        }
    }
    static void ExpectCloseToHide(const FormPage& page, HWND close) {
        ShowWindow(page.window, SW_SHOW);
        SendMessageW(page.window, WM_COMMAND, MAKEWPARAM(0, BN_SETFOCUS),
                     reinterpret_cast<LPARAM>(close));
        EXPECT_TRUE(IsWindowVisible(page.window)) << "a click alone closes it";
        SendMessageW(close, BM_CLICK, 0, 0);
        EXPECT_TRUE(IsWindow(page.window));
        EXPECT_FALSE(IsWindowVisible(page.window));
        ShowWindow(page.window, SW_SHOW);
        SendMessageW(page.window, WM_CLOSE, 0, 0);
        EXPECT_TRUE(IsWindow(page.window));
        EXPECT_FALSE(IsWindowVisible(page.window));
    }
    /// Tab goes from each of these windows to the next one and from the last to the first, and with
    /// Shift the other way.
    static void ExpectTabOrder(const FormPage& page, const std::vector<HWND>& order) {
        ShowWindow(page.window, SW_SHOW);
        SetFocus(order[0]);
        for (size_t i = 1; i <= order.size(); i++) {
            PressKey(GetFocus(), VK_TAB);
            EXPECT_EQ(GetFocus(), order[i % order.size()]) << i;
        }
        for (size_t i = order.size(); i-- > 0;) {
            PressKey(GetFocus(), VK_TAB, VK_SHIFT);
            EXPECT_EQ(GetFocus(), order[i]) << i;
        }
    }

    /// The message loop, until the condition holds.
    template <typename Condition>
    static void LoopUntil(Condition condition) {
        MSG message;
        while (!condition() && GetMessageW(&message, nullptr, 0, 0) > 0) {
            DispatchMessageW(&message);
        }
    }
    static void Finish(const PageRun& run) {
        LoopUntil([&run] { return run.states.phase == PageIdle; });
    }

private:
    static inline std::vector<TestedPage> pages;
};

}  // namespace tallymere::testing_support
