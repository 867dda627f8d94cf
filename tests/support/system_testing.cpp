#include "support/system_testing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

#include "core/limits.h"
#include "core/number_context.h"
#include "shell/ui_error.h"

namespace tallymere::testing_support {

namespace {

// Of the characters that results have beside those of ASCII.
std::string Utf8(std::u16string_view text) {
    std::string bytes;
    for (const char16_t c : text) {
        if (c < 128) {
            bytes += c == u'\r' ? "" : std::string(1, static_cast<char>(c));
        } else {
            bytes += c == u'\u2026' ? "…" : "?";
        }
    }
    return bytes;
}

void ReadCell(void* context, int32_t row, int32_t column, char16_t* text) {
    const auto& cells = *static_cast<const SystemTexts*>(context);
    const std::string& cell = cells[static_cast<size_t>(row)][static_cast<size_t>(column)];
    const size_t length = std::min<size_t>(cell.size(), CoefficientCharacters + 1);
    std::copy_n(cell.begin(), length, text);
    text[length] = 0;
}

std::string TakeErrorText() {
    if (PendingUiError() == UiErrorNone) {
        return {};
    }
    std::string error = "error " + std::to_string(PendingUiError());
    for (const char16_t* argument : {uiError.arg1, uiError.arg2, uiError.arg3}) {
        if (argument[0] != 0 && std::u16string_view(argument) != u"?") {
            error += " " + Utf8(argument);
        }
    }
    return error;
}

}  // namespace

std::string ShownSystem(const SystemTexts& cells, NumberType type, int64_t digits, bool grouped) {
    SystemTexts copy = cells;
    const SystemRequest request = {.count = static_cast<int32_t>(cells.size()),
                                   .type = type,
                                   .digits = digits,
                                   .grouped = grouped,
                                   .readCell = ReadCell,
                                   .context = &copy};
    std::u16string shown;
    RunSystem(
        request,
        [](void* context, const char16_t* text) { *static_cast<std::u16string*>(context) += text; },
        &shown);
    EXPECT_EQ(numberContext.calcError, CalcErrorNone);
    const std::string text = Utf8(shown) + TakeErrorText();
    ClearErrors();
    return text;
}

}  // namespace tallymere::testing_support
