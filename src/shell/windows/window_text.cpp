#include "shell/windows/window_text.h"

#include "core/text_writer.h"
#include "toolkit/wide_text.h"

namespace tallymere {

namespace {

const char16_t* ReadWindowText(char16_t* text, HWND window, int64_t capacity, bool* isCut) {
    GetWindowTextW(window, ToWide(text), static_cast<int>(capacity + 1));
    const bool cut = GetWindowTextLengthW(window) > capacity;
    if (cut) {
        text[capacity - 1] = Ellipsis;
    }
    if (isCut != nullptr) {
        *isCut = cut;
    }
    return text;
}

}  // namespace

const char16_t* TakeWindowText(ScratchScope& scope, HWND window, int64_t capacity, bool* isCut) {
    return ReadWindowText(TakeText(scope, capacity), window, capacity, isCut);
}

const char16_t* TakeWindowText(ScratchArea& area, HWND window, int64_t capacity, bool* isCut) {
    return ReadWindowText(TakeText(area, capacity), window, capacity, isCut);
}

void AppendWindowText(HWND field, const char16_t* text) {
    const auto end = static_cast<WPARAM>(GetWindowTextLengthW(field));
    SendMessageW(field, EM_SETSEL, end, static_cast<LPARAM>(end));
    SendMessageW(field, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(text));
}

}  // namespace tallymere
