// Windows of pages for a test, made as the program makes them.
#pragma once

#include <initializer_list>
#include <vector>

#include "core/scratch.h"
#include "core/stop_request.h"
#include "shell/languages.h"
#include "shell/separators.h"
#include "shell/settings.h"
#include "shell/windows/page_run.h"
#include "shell/windows/program_windows.h"
#include "shell_windows/message_boxes.h"
#include "toolkit/test_dialog.h"

namespace tallymere::testing_support {

struct TestedPage {
    PageIndex index;
    void (*create)();
    const PageRun* run;
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
        Make();
    }
    ~PageWindowTest() override {
        for (const TestedPage& page : pages) {
            EXPECT_EQ(page.run->states.phase, PageIdle);
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
        for (const TestedPage& page : pages) {
            page.create();
        }
    }
    static void MakeAgain(Language language, int32_t dpi = LogicalDpi) {
        Destroy();
        screenDpi = dpi;
        Make(language);
    }
    static void Destroy() {
        for (const TestedPage& page : pages) {
            DestroyWindow(pageWindows[page.index]);
            pageWindows[page.index] = nullptr;
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
