#include "console/input_text.h"

#include <algorithm>

#include "console/utf8.h"
#include "core/limits.h"
#include "shell/ui_error.h"

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

}  // namespace tallymere
