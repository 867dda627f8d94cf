#include "prime_pages/windows/prime_page.h"

#include <algorithm>

#include "shell/settings.h"
#include "shell/windows/error_report.h"
#include "shell/windows/window_text.h"
#include "toolkit/digit_count_control.h"
#include "toolkit/environment.h"
#include "toolkit/field_state.h"
#include "toolkit/number_base_control.h"
#include "toolkit/wide_text.h"

namespace tallymere {

namespace {

// A control of a group that is larger than what it shows would cover the frame of the group. What
// reaches into the frame is cut off; its place stays.
void LeaveFrameFree(HWND control) {
    constexpr int32_t FrameWidth = 3;
    const int32_t frame = ToScreenPixels(FrameWidth);
    const LayoutSize group = ClientSize(GetParent(control));
    const LayoutRect place = PlaceInParent(control);
    SetWindowRgn(control,
                 CreateRectRgn(0, 0, group.width - frame - place.x, group.height - frame - place.y),
                 FALSE);
}

// The text lies on the heap, since it has no limit and the ScratchStack has one.
void ShowDigits(const PrimePage& page) {
    const HWND field = page.controls[page.kind->number];
    const int length = GetWindowTextLengthW(field);
    HeapText text(length);
    if (text.IsThere()) {
        GetWindowTextW(field, ToWide(text.buffer.get()), length + 1);
        ShowDigitCount(page.controls[page.kind->digits], CountFieldDigits(text.buffer.get()));
    }
}

// A field of many lines does not tell that its text was set.
void WriteField(const PrimePage& page, int32_t control, const char16_t* text) {
    SetWindowTextW(page.controls[control], ToWide(text));
    if (control == page.kind->number) {
        ShowDigits(page);
    }
}

// The number of a field, which was read with the old flags, in the new base.
void WriteInNewBase(const PrimePage& page, int32_t control, uint32_t parseFlags,
                    uint32_t printFlags) {
    ScratchStackScope scope;
    const char16_t* text = TakeFieldText(scope, page, control);
    if (text != nullptr) {
        text = FieldTextInNewBase(scope, text, parseFlags, printFlags);
    }
    if (text != nullptr) {
        WriteField(page, control, text);
    }
}

void DescribeRun(PrimePage& page, const PageTask& task) {
    const PrimePageKind& kind = *page.kind;
    int32_t disabledCount = 0;
    for (int32_t i = 0; i < kind.page.count; i++) {
        if (kind.isDisabledDuringRun(i)) {
            page.disabled[disabledCount++] = page.controls[i];
        }
    }
    page.run.startTask = &task;
    page.run.controls = {.startButton = page.controls[kind.start],
                         .stopButton = page.controls[kind.stop],
                         .disabled = page.disabled,
                         .disabledCount = disabledCount,
                         .output = page.controls[kind.output]};
    page.run.states.rules = {StopFromTheStart, LeavesAtOnce};
}

}  // namespace

void CreatePrimePage(PrimePage& page, const PrimePageKind& kind, WindowHandler handler,
                     const PageTask& task) {
    page = {};
    page.kind = &kind;
    CreateFormPage(page, kind.page, handler);
    LeaveFrameFree(page.controls[kind.digits]);
    LeaveFrameFree(page.controls[kind.base]);
    SelectNumberBase(page.controls[kind.base], page.base);
    EnableWindow(page.controls[kind.stop], FALSE);
    DescribeRun(page, task);
    CompleteFormPage(page, kind.page);
}

LRESULT HandlePrimePage(PrimePage& page, UINT message, WPARAM wParam, LPARAM lParam,
                        bool& callDefault) {
    if (page.window != nullptr && message == WM_COMMAND && HIWORD(wParam) == EN_CHANGE &&
        reinterpret_cast<HWND>(lParam) == page.controls[page.kind->number]) {
        ShowDigits(page);
    }
    return HandleFormPage(page, page.kind->page, message, wParam, lParam, callDefault);
}

bool IsChecked(const PrimePage& page, int32_t control) {
    return SendMessageW(page.controls[control], BM_GETCHECK, 0, 0) == BST_CHECKED;
}

uint32_t PageParseFlags(const PrimePage& page) {
    return PrimeParseFlags(page.base);
}

uint32_t PagePrintFlags(const PrimePage& page) {
    return PrimePrintFlags(page.base, settings.groupPrimes);
}

const char16_t* TakeFieldText(ScratchScope& scope, const PrimePage& page, int32_t control) {
    const HWND field = page.controls[control];
    const int64_t length = GetWindowTextLengthW(field);
    bool isCut = false;
    const char16_t* text =
        TakeWindowText(scope, field, std::clamp<int64_t>(length, 1, PrimeFieldCapacity), &isCut);
    if (isCut) {
        SetUiError(UiErrorInvalidInput, text);
        return nullptr;
    }
    return text;
}

bool ReadPageNumber(const PrimePage& page, uint64_t* number) {
    ScratchStackScope scope;
    const char16_t* text = TakeFieldText(scope, page, page.kind->number);
    if (text == nullptr || !ReadPrimeNumberField(number, text, PageParseFlags(page))) {
        return false;
    }
    WriteField(page, page.kind->number, NumberFieldText(scope, number, PagePrintFlags(page)));
    return true;
}

void EmptyOutput(const PrimePage& page) {
    WriteField(page, page.kind->output, u"");
}

void TakeShownBase(PrimePage& page) {
    const int32_t shown = SelectedNumberBase(page.controls[page.kind->base]);
    if (shown != 0) {
        page.base = shown;
    }
}

void ChangePrimeBase(PrimePage& page, int32_t base, const NumberSetup& setup) {
    if (base == page.base) {
        return;
    }
    const uint32_t parseFlags = PageParseFlags(page);
    page.base = base;
    {
        const NumberSetupScope scope(setup);
        WriteInNewBase(page, page.kind->number, parseFlags, PagePrintFlags(page));
        WriteInNewBase(page, page.kind->interval, parseFlags, PagePrintFlags(page));
    }
    ReportUiError();
}

}  // namespace tallymere
