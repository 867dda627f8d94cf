#include "prime_pages/windows/prime_numbers_page.h"

#include "prime_pages/prime_run.h"
#include "toolkit/control_data.h"
#include "toolkit/number_base_control.h"
#include "toolkit/wide_text.h"

namespace tallymere {

PrimePage primeNumbersPage;

namespace {

// Written before a run, and only read during the run.
PrimeRequest request;

PrimeMethod ChosenMethod() {
    if (IsChecked(primeNumbersPage, PrimeNumbersExact)) {
        return ExactMethod;
    }
    return IsChecked(primeNumbersPage, PrimeNumbersProbabilistic) ? ProbabilisticMethod : NoMethod;
}

PrimeMode ChosenMode() {
    if (IsChecked(primeNumbersPage, PrimeNumbersNextPrime)) {
        return NextPrimeMode;
    }
    return IsChecked(primeNumbersPage, PrimeNumbersTest) ? TestMode : IntervalMode;
}

NumberSetup SetupOfPage() {
    return PrimeNumberSetup(ChosenMethod());
}

// The field of the interval size counts for an interval alone.
void ReadCount() {
    int64_t count = MaxPrimeInterval;
    if (request.mode == IntervalMode) {
        ScratchStackScope scope;
        const char16_t* text = TakeFieldText(scope, primeNumbersPage, PrimeNumbersInterval);
        if (text != nullptr) {
            ReadIntervalField(&count, text, request.parseFlags, MaxPrimeInterval);
        }
    }
    request.count = static_cast<uint64_t>(count);
}

void PreparePrimes() {
    PrimePage& page = primeNumbersPage;
    EmptyOutput(page);
    TakeShownBase(page);
    uint64_t* number = ScratchTake(CurrentScratchStack(), CurrentNumberSetup().width.limbs);
    request = {.method = ChosenMethod(),
               .mode = ChosenMode(),
               .number = number,
               .count = 0,
               .printFlags = PagePrintFlags(page),
               .parseFlags = PageParseFlags(page)};
    if (ReadPageNumber(page, number)) {
        ReadCount();
    }
}

void FindPrimes() {
    PrimeWorker(request, SendPageText);
}

// The text is all that there is to show.
void FinishPrimes(bool) {}

constexpr PageTask PrimesTask = {SetupOfPage, PreparePrimes, FindPrimes, FinishPrimes,
                                 UiErrorPrimeNumberOverflow};

// The wide numbers, whichever method is chosen.
void ChangeBase(int32_t base) {
    ChangePrimeBase(primeNumbersPage, base, PrimeNumberSetup(ProbabilisticMethod));
}

LRESULT PrimeNumbersProc(HWND, UINT message, WPARAM wParam, LPARAM lParam, bool& callDefault) {
    return HandlePrimePage(primeNumbersPage, message, wParam, lParam, callDefault);
}

constexpr PrimePageKind Kind = {
    .page =
        {
            .index = PagePrimeNumbers,
            .title = &UiText::TextPrimesPrimeNumbers,
            .size = PrimeNumbersSize,
            .form = PrimeNumbersForm,
            .count = PrimeNumbersControlCount,
            .place =
                [](int32_t control, LayoutSize client) {
                    return PlacePrimeNumbersControl(static_cast<PrimeNumbersControl>(control),
                                                    client);
                },
            .close = PrimeNumbersClose,
            .click = nullptr,
        },
    .number = PrimeNumbersNumber,
    .digits = PrimeNumbersDigits,
    .base = PrimeNumbersBase,
    .interval = PrimeNumbersInterval,
    .output = PrimeNumbersOutput,
    .start = PrimeNumbersStart,
    .stop = PrimeNumbersStop,
    .isDisabledDuringRun =
        [](int32_t control) {
            return IsDisabledDuringRun(static_cast<PrimeNumbersControl>(control));
        },
};
static_assert(Kind.page.count <= MaxPageControls);

void ShowMethod(PrimeNumbersControl control) {
    char16_t text[PrimeMethodTextCapacity + 1];
    WritePrimeMethodText(text, control);
    SetWindowTextW(primeNumbersPage.controls[control], ToWide(text));
}

}  // namespace

void CreatePrimeNumbersPage() {
    PrimePage& page = primeNumbersPage;
    CreatePrimePage(page, Kind, PrimeNumbersProc, PrimesTask);
    SetNumberBaseChosen(page.controls[PrimeNumbersBase], ChangeBase);
    ShowMethod(PrimeNumbersExact);
    ShowMethod(PrimeNumbersProbabilistic);
    for (const PrimeNumbersControl chosen : {PrimeNumbersIntervalMode, PrimeNumbersExact}) {
        SendMessageW(page.controls[chosen], BM_SETCHECK, BST_CHECKED, 0);
    }
}

}  // namespace tallymere
