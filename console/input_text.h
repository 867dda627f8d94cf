// From the bytes of an operand to a text of the program, and from an error of the program to a
// line.
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

/// "error CODE: MESSAGE" of the pending error, which is cleared. A position other than 0 stands
/// behind the code.
std::string TakeErrorLine(uint64_t position = 0);

/// The same for a code and a message that are no pending error.
std::string ErrorLine(uint64_t code, uint64_t position, const char16_t* message);

}  // namespace tallymere
