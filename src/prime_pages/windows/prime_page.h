// What both prime pages are made of: the window with its controls, the fields, the base, and the
// messages that both handle in the same way.
#pragma once

#include <cstdint>

#include "core/scratch.h"
#include "prime_pages/prime_fields.h"
#include "shell/windows/form_page.h"

namespace tallymere {

/// The longest text of a field that is read, in characters. A longer one is no number.
inline constexpr int64_t PrimeFieldCapacity = 100'000;

/// What makes a page the one or the other. Controls are named by their index in the form.
struct PrimePageKind {
    FormPageKind page;
    int32_t number;
    int32_t digits;
    int32_t base;
    int32_t interval;
    int32_t output;
    int32_t start;
    int32_t stop;
    bool (*isDisabledDuringRun)(int32_t control);
};

struct PrimePage : FormPage {
    const PrimePageKind* kind = nullptr;
    HWND disabled[MaxPageControls] = {};  ///< during a run
    int32_t base = InitialPrimeBase;
};

/// Makes the page, hidden, and puts it into pageWindows. `handler` is that of its window, `task`
/// what Start starts. `page` and `kind` live as long as the window.
void CreatePrimePage(PrimePage& page, const PrimePageKind& kind, WindowHandler handler,
                     const PageTask& task);

/// Handles what HandleFormPage does, and shows the count of digits. The handler of the window
/// passes everything on to it.
LRESULT HandlePrimePage(PrimePage& page, UINT message, WPARAM wParam, LPARAM lParam,
                        bool& callDefault);

/// Whether a radio button or check box is checked.
bool IsChecked(const PrimePage& page, int32_t control);

/// The flags of the page's base and of the settings.
uint32_t PageParseFlags(const PrimePage& page);
uint32_t PagePrintFlags(const PrimePage& page);

/// The text of a field, in the scope. Null, with UiErrorInvalidInput, for one that is longer than
/// PrimeFieldCapacity.
const char16_t* TakeFieldText(ScratchScope& scope, const PrimePage& page, int32_t control);

/// Reads the number field, with the width in force, and writes the number back in its normal form.
/// Returns false with a UiError if that is not possible; the field stays as it is then.
bool ReadPageNumber(const PrimePage& page, uint64_t* number);

/// Empties the output.
void EmptyOutput(const PrimePage& page);

/// Makes the base that the list shows that of the page. An arrow key changes the closed list
/// without a word to the page. The fields stay as they are: what stands in them beside a base is
/// meant in that base.
void TakeShownBase(PrimePage& page);

/// A base was chosen: writes both fields anew, which are read with the numbers `setup`. A field
/// that cannot be read stays, and its error is reported.
void ChangePrimeBase(PrimePage& page, int32_t base, const NumberSetup& setup);

}  // namespace tallymere
