#include "prime_pages/windows/prime_factors_page.h"

#include "prime_pages/factor_run.h"
#include "toolkit/control_data.h"
#include "toolkit/number_base_control.h"
#include "toolkit/wide_text.h"

namespace tallymere {

PrimePage primeFactorsPage;

namespace {

// Written before a run, and only read during the run.
FactorRequest request;

bool ReadInterval() {
    ScratchStackScope scope;
    const char16_t* text = TakeFieldText(scope, primeFactorsPage, PrimeFactorsInterval);
    if (text == nullptr) {
        return false;
    }
    if (IsBlankField(text)) {
        request.interval = BlankFactorInterval;
        return true;
    }
    int64_t interval = 0;
    if (!ReadIntervalField(&interval, text, request.parseFlags, MaxFactorInterval)) {
        return false;
    }
    request.interval = static_cast<int32_t>(interval);
    SetWindowTextW(primeFactorsPage.controls[PrimeFactorsInterval],
                   ToWide(IntervalFieldText(scope, interval, request.printFlags)));
    return true;
}

void PrepareFactors() {
    PrimePage& page = primeFactorsPage;
    EmptyOutput(page);
    TakeShownBase(page);
    request = {.showDivisors = IsChecked(page, PrimeFactorsDivisors),
               .showCount = IsChecked(page, PrimeFactorsShowCount),
               .number = {},
               .interval = BlankFactorInterval,
               .printFlags = PagePrintFlags(page),
               .parseFlags = PageParseFlags(page),
               .divisors = nullptr};
    if (ReadPageNumber(page, request.number) && ReadInterval() && request.showDivisors) {
        request.divisors = ScratchTake(CurrentScratchStack(), FactorDivisorWords);
    }
}

void FindFactors() {
    FactorWorker(request, SendPageText);
}

// The lines are all that there is to show.
void FinishFactors(bool) {}

constexpr PageTask FactorsTask = {FactorNumberSetup, PrepareFactors, FindFactors, FinishFactors,
                                  UiErrorPrimeFactorOverflow};

void ShowEnabling() {
    const PrimeFactorsControl mode = IsChecked(primeFactorsPage, PrimeFactorsDivisors)
                                         ? PrimeFactorsDivisors
                                         : PrimeFactorsFactors;
    EnableWindow(primeFactorsPage.controls[PrimeFactorsShowCount],
                 IsEnabledInMode(PrimeFactorsShowCount, mode));
}

LRESULT ModeHandler(HWND, UINT message, WPARAM wParam, LPARAM, bool&) {
    if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED) {
        ShowEnabling();
    }
    return 0;
}

void ChangeBase(int32_t base) {
    ChangePrimeBase(primeFactorsPage, base, FactorNumberSetup());
}

LRESULT PrimeFactorsProc(HWND, UINT message, WPARAM wParam, LPARAM lParam, bool& callDefault) {
    return HandlePrimePage(primeFactorsPage, message, wParam, lParam, callDefault);
}

constexpr PrimePageKind Kind = {
    .page =
        {
            .index = PagePrimeFactors,
            .title = &UiText::TextFactorsPrimeFactorsDivisors,
            .size = PrimeFactorsSize,
            .form = PrimeFactorsForm,
            .count = PrimeFactorsControlCount,
            .place =
                [](int32_t control, LayoutSize client) {
                    return PlacePrimeFactorsControl(static_cast<PrimeFactorsControl>(control),
                                                    client);
                },
            .close = PrimeFactorsClose,
            .click = nullptr,
        },
    .number = PrimeFactorsNumber,
    .digits = PrimeFactorsDigits,
    .base = PrimeFactorsBase,
    .interval = PrimeFactorsInterval,
    .output = PrimeFactorsOutput,
    .start = PrimeFactorsStart,
    .stop = PrimeFactorsStop,
    .isDisabledDuringRun =
        [](int32_t control) {
            return IsDisabledDuringRun(static_cast<PrimeFactorsControl>(control));
        },
};
static_assert(Kind.page.count <= MaxPageControls);

}  // namespace

void CreatePrimeFactorsPage() {
    PrimePage& page = primeFactorsPage;
    CreatePrimePage(page, Kind, PrimeFactorsProc, FactorsTask);
    SetNumberBaseChosen(page.controls[PrimeFactorsBase], ChangeBase);
    SetControlHandler(page.controls[PrimeFactorsModeGroup], ModeHandler);
    SendMessageW(page.controls[PrimeFactorsFactors], BM_SETCHECK, BST_CHECKED, 0);
    ShowEnabling();
}

}  // namespace tallymere
