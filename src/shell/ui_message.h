// The messages for errors. They come from UiText, by the codes of UiError and of formulas.
#pragma once

#include <cstdint>

#include "formula/formula_error.h"
#include "shell/text_sink.h"

namespace tallymere {

/// Appends the message for uiError.code, with the arguments of the record. A code without a message
/// of its own has that of an unknown error; before, uiError.arg1 becomes the code in decimal.
/// UiErrorStopped has no message and appends nothing.
void FormatUiErrorMessage(TextSink& sink);

/// Reports the pending error, except for showing it. Formats its message into a buffer of
/// capacity + 1 characters and ends it with a 0. A message that is too long ends with an ellipsis.
/// Then calls ClearErrors. Returns true when there is a message to show. With no pending error, and
/// for UiErrorStopped, the message is empty and the result is false.
bool TakeUiErrorMessage(char16_t* buffer, int64_t capacity);

/// The text for the code of a formula error. It is a format: "%d" is the position of the error, in
/// characters from 1. Some texts have no "%d". An unknown code gives the text of an internal error.
const char16_t* FormulaErrorText(FormulaError code);

/// Writes the text for an error of a formula at a position, in characters from 1, into a buffer of
/// capacity + 1 characters, and ends it with a 0. FormatBounded says what becomes of a longer one.
void FormatFormulaError(char16_t* buffer, int64_t capacity, FormulaError code, uint64_t position);

}  // namespace tallymere
