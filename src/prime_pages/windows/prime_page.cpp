#include "prime_pages/windows/prime_page.h"

#include <algorithm>

#include "core/contract.h"
#include "shell/settings.h"
#include "shell/windows/error_report.h"
#include "shell/windows/program_windows.h"
#include "shell/windows/window_text.h"
#include "toolkit/digit_count_control.h"
#include "toolkit/environment.h"
#include "toolkit/field_state.h"
#include "toolkit/number_base_control.h"
#include "toolkit/wide_text.h"

namespace tallymere {

namespace {

void LayOutPage(const PrimePage& page) {
    PlaceFormControls(page.window, {page.controls, static_cast<size_t>(page.kind->count)},
                      page.kind->place);
}

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

void HandleCommand(const PrimePage& page, HWND control, int32_t news) {
    if (control == page.controls[page.kind->number] && news == EN_CHANGE) {
        ShowDigits(page);
    } else if (control == page.controls[page.kind->close] && news == BN_CLICKED) {
        SendMessageW(page.window, WM_CLOSE, 0, 0);
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

PageRun MakeRun(PrimePage& page, const PageTask& task) {
    const PrimePageKind& kind = *page.kind;
    int32_t disabledCount = 0;
    for (int32_t i = 0; i < kind.count; i++) {
        if (kind.isDisabledDuringRun(i)) {
            page.disabled[disabledCount++] = page.controls[i];
        }
    }
    return {.page = page.window,
            .startTask = &task,
            .controls = {.startButton = page.controls[kind.start],
                         .stopButton = page.controls[kind.stop],
                         .disabled = page.disabled,
                         .disabledCount = disabledCount,
                         .output = page.controls[kind.output]},
            .states = {.rules = {StopFromTheStart, LeavesAtOnce}}};
}

}  // namespace

void CreatePrimePage(PrimePage& page, const PrimePageKind& kind, WindowHandler handler,
                     const PageTask& task) {
    TALLYMERE_REQUIRE(kind.count <= MaxPrimeControls);
    page = {};
    page.kind = &kind;
    const HWND window = CreatePageWindow(kind.size, uiText.*kind.title, handler);
    CreateFormControls(window, kind.form, kind.count, page.controls);
    LeaveFrameFree(page.controls[kind.digits]);
    LeaveFrameFree(page.controls[kind.base]);
    SelectNumberBase(page.controls[kind.base], page.base);
    EnableWindow(page.controls[kind.stop], FALSE);
    page.window = window;
    page.run = MakeRun(page, task);
    LayOutPage(page);
    pageWindows[kind.index] = window;
}

LRESULT HandlePrimePage(PrimePage& page, UINT message, WPARAM wParam, LPARAM lParam,
                        bool& callDefault) {
    if (page.window == nullptr || HandlePageRun(page.run, message, wParam, lParam, callDefault)) {
        return 0;
    }
    switch (message) {
        case WM_SIZE:
            if (wParam != SIZE_MINIMIZED) {
                LayOutPage(page);
            }
            break;
        case WM_COMMAND:
            if (lParam != 0) {
                HandleCommand(page, reinterpret_cast<HWND>(lParam), HIWORD(wParam));
            }
            break;
        case WM_NCDESTROY:
            page.window = nullptr;
            break;
        default:
            break;
    }
    return 0;
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
