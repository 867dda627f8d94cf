// A copy of what a field shows.
#pragma once

#include <cstdint>
#include <memory>
#include <new>
#include <string_view>

namespace tallymere {

/// A text on the heap. Without memory for it the text is empty.
struct HeapText {
    /// Room for `characters` characters and a terminating 0.
    explicit HeapText(int64_t characters)
        : buffer(new (std::nothrow) char16_t[static_cast<size_t>(characters) + 1]()) {}

    bool IsThere() const { return buffer != nullptr; }
    std::u16string_view View() const { return {buffer.get(), static_cast<size_t>(length)}; }

    std::unique_ptr<char16_t[]> buffer;  ///< null without memory
    int64_t length = 0;
};

/// The characters from `from` to before `to`. With nothing selected both are the place of the
/// caret.
struct TextSelection {
    int64_t from;
    int64_t to;
};

struct FieldState {
    HeapText text;
    TextSelection selection;
};

}  // namespace tallymere
