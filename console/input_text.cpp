#include "console/input_text.h"

#include <algorithm>

#include "console/utf8.h"
#include "core/limits.h"
#include "shell/ui_error.h"
#include "shell/ui_message.h"

namespace tallymere {

InputText ReadInputText(std::string_view bytes) {
    InputText input;
    if (bytes.size() > MaxLineBytes) {
        SetUiError(UiErrorInputTooLong);
        input.errorPosition = MaxLineBytes + 1;
        return input;
    }
    DecodedText decoded = DecodeUtf8(bytes);
    input.text = std::move(decoded.text);
    const size_t invalid = std::min(decoded.firstInvalid, input.text.find(u'\0'));
    if (invalid != DecodedText::NoPosition) {
        // The message quotes it in one line.
        std::replace(input.text.begin(), input.text.end(), u'\0', ReplacementCharacter);
        BlankControlCharacters(input.text);
        SetUiError(UiErrorInvalidInput, input.text.c_str());
        input.errorPosition = invalid + 1;
    }
    return input;
}

bool IsBlankText(std::u16string_view text) {
    return text.find_first_not_of(u" \t\r\n") == text.npos;
}

std::string ErrorLine(uint64_t code, uint64_t position, const char16_t* message) {
    std::string line = "error " + std::to_string(code);
    if (position != 0) {
        line += ' ';
        line += std::to_string(position);
    }
    return line + ": " + EncodeUtf8(message);
}

std::string TakeErrorLine(uint64_t position) {
    const auto code = static_cast<uint64_t>(PendingUiError());
    char16_t message[UiErrorMessageCapacity + 1];
    TakeUiErrorMessage(message, UiErrorMessageCapacity);
    return ErrorLine(code, position, message);
}

}  // namespace tallymere
