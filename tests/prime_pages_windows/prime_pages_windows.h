// Both prime pages for a test, and hands for their controls.
#pragma once

#include <string>

#include "prime_pages/windows/prime_factors_page.h"
#include "prime_pages/windows/prime_numbers_page.h"
#include "shell_windows/page_window_testing.h"
#include "toolkit/digit_count_control.h"
#include "toolkit/number_base_control.h"

namespace tallymere::testing_support {

class PrimePagesTest : public PageWindowTest {
protected:
    PrimePagesTest()
        : PageWindowTest({{PagePrimeNumbers, CreatePrimeNumbersPage, &primeNumbersPage},
                          {PagePrimeFactors, CreatePrimeFactorsPage, &primeFactorsPage}}) {}

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

    static void Finish(const PrimePage& page) { PageWindowTest::Finish(page.run); }

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
