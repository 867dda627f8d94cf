// Both prime pages for a test, and hands for their controls.
#pragma once

#include <string>

#include "core/scratch.h"
#include "prime_pages/windows/prime_factors_page.h"
#include "prime_pages/windows/prime_numbers_page.h"
#include "shell/languages.h"
#include "shell/separators.h"
#include "shell/settings.h"
#include "shell/windows/program_windows.h"
#include "shell_windows/message_boxes.h"
#include "toolkit/digit_count_control.h"
#include "toolkit/number_base_control.h"
#include "toolkit/test_dialog.h"

namespace tallymere::testing_support {

/// Makes both pages, hidden, in English, with the separators "." and "," and without grouping.
class PrimePagesTest : public ToolkitTest {
protected:
    PrimePagesTest() {
        CreateScratchStack();
        settings = Settings{};
        ApplySeparators(DecimalPoint, ThousandsComma);
        ClearErrors();
        Make();
    }
    ~PrimePagesTest() override {
        for (const PrimePage* page : {&primeNumbersPage, &primeFactorsPage}) {
            EXPECT_EQ(page->run.states.phase, PageIdle);
        }
        EXPECT_EQ(*CurrentScratchStack().top, CurrentScratchStack().base);
        EXPECT_EQ(PendingUiError(), UiErrorNone);
        EXPECT_FALSE(StopRequested());
        EXPECT_TRUE(IsWindowEnabled(dialog));
        Destroy();
        settings = Settings{};
        InstallLanguage(LanguageEnglish);
        DestroyScratchStack();
    }

    static void Make(Language language = LanguageEnglish) {
        InstallLanguage(language);
        CreatePrimeNumbersPage();
        CreatePrimeFactorsPage();
    }
    static void MakeAgain(Language language, int32_t dpi = LogicalDpi) {
        Destroy();
        screenDpi = dpi;
        Make(language);
    }
    static void Destroy() {
        for (const PageIndex index : {PagePrimeNumbers, PagePrimeFactors}) {
            DestroyWindow(pageWindows[index]);
            pageWindows[index] = nullptr;
        }
    }

    static HWND Control(const PrimePage& page, int32_t control) { return page.controls[control]; }
    static std::u16string Text(const PrimePage& page, int32_t control) {
        return WholeText(Control(page, control));
    }
    static std::u16string Output(const PrimePage& page) { return Text(page, page.kind->output); }
    static void Write(const PrimePage& page, int32_t control, const std::u16string& text) {
        SetWindowTextW(Control(page, control), ToWide(text.c_str()));
    }
    static void WriteNumber(const PrimePage& page, const std::u16string& text) {
        Write(page, page.kind->number, text);
    }
    static void WriteInterval(const PrimePage& page, const std::u16string& text) {
        Write(page, page.kind->interval, text);
    }
    static std::u16string NumberOf(const PrimePage& page) { return Text(page, page.kind->number); }
    static std::u16string IntervalOf(const PrimePage& page) {
        return Text(page, page.kind->interval);
    }
    static std::u16string DigitsOf(const PrimePage& page) {
        return WholeText(DigitCountField(Control(page, page.kind->digits)));
    }
    static void Click(const PrimePage& page, int32_t control) {
        SendMessageW(Control(page, control), BM_CLICK, 0, 0);
    }
    static bool IsEnabled(const PrimePage& page, int32_t control) {
        return IsWindowEnabled(Control(page, control)) != FALSE;
    }

    /// As the list does when it closes with this base selected.
    static void ChooseBase(const PrimePage& page, int32_t base) {
        const HWND control = Control(page, page.kind->base);
        SelectNumberBase(control, base);
        SendMessageW(control, WM_COMMAND, MAKEWPARAM(0, CBN_CLOSEUP),
                     reinterpret_cast<LPARAM>(NumberBaseList(control)));
    }

    /// The message loop, until the condition holds.
    template <typename Condition>
    static void LoopUntil(Condition condition) {
        MSG message;
        while (!condition() && GetMessageW(&message, nullptr, 0, 0) > 0) {
            DispatchMessageW(&message);
        }
    }
    static void Finish(const PrimePage& page) {
        LoopUntil([&page] { return page.run.states.phase == PageIdle; });
    }

    /// Runs a page and returns its output.
    static std::u16string Run(const PrimePage& page, const std::u16string& number,
                              const std::u16string& interval) {
        WriteNumber(page, number);
        WriteInterval(page, interval);
        Click(page, page.kind->start);
        Finish(page);
        return Output(page);
    }
};

}  // namespace tallymere::testing_support
