// Texts of windows for the tests.
#pragma once

#include <string>

#include "toolkit/wide_text.h"
#include "toolkit/win32.h"

namespace tallymere::testing_support {

/// The whole text of a window.
inline std::u16string WholeText(HWND window) {
    std::u16string text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, u'\0');
    const int length = GetWindowTextW(window, ToWide(text.data()), static_cast<int>(text.size()));
    text.resize(static_cast<size_t>(length));
    return text;
}

}  // namespace tallymere::testing_support
