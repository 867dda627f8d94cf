#include "console/error_line.h"

#include "console/utf8.h"
#include "shell/ui_error.h"
#include "shell/ui_message.h"

namespace tallymere {

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
