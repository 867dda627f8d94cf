// The words for an error: from the codes of UiError and of formulas to texts of UiText.
#pragma once

#include <cstdint>

#include "formula/formula_error.h"
#include "shell/text_sink.h"

namespace tallymere {

/// Appends the message for uiError.code, with the record's arguments in it. A code without a text
/// of its own takes that of an unknown error, and arg1 is overwritten by the code in decimal first;
/// UiErrorStopped has no message and appends nothing.
void FormatUiErrorMessage(TextSink& sink);

/// Characters of a reported message, the terminating 0 not counted.
inline constexpr int64_t UiErrorMessageCapacity = 1'023;

/// The report of an error, up to showing it: formats the message of the pending error into a buffer
/// of capacity + 1 characters and ends it with a 0; one that is too long ends in an ellipsis. Then
/// clears everything as ClearErrors does. Returns whether there is something to show: with no error
/// pending, or UiErrorStopped, it is false and the message empty.
bool TakeUiErrorMessage(char16_t* buffer, int64_t capacity);

/// The text for the code of a formula error, a format whose "%d" is the 1-based character position
/// of the error; some of the texts do not show it. Unknown codes give that of an internal error.
const char16_t* FormulaErrorText(FormulaError code);

}  // namespace tallymere
