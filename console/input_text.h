// From the bytes of an operand to a text of the program.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tallymere {

struct InputText {
    std::u16string text;
    /// 1-based, of the first character that cannot be read; 0 when all can. An error is pending
    /// then.
    uint64_t errorPosition = 0;
};

/// Reads UTF-8 without a NUL. What is none raises UiErrorInvalidInput, and more than MaxLineBytes
/// UiErrorInputTooLong.
InputText ReadInputText(std::string_view bytes);

/// Whether a text has nothing but blanks, tabs and line ends.
bool IsBlankText(std::u16string_view text);

}  // namespace tallymere
