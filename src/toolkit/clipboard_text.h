// The text on the clipboard.
#pragma once

#include <cstddef>
#include <string_view>

#include "toolkit/win32.h"

namespace tallymere {

/// The text in a block of memory of so many bytes: what is before its first zero, all of it without
/// one, since other programs may forget the zero. No copy is made.
std::u16string_view TextInBlock(const char16_t* text, size_t bytes);

/// The text on the clipboard. It does not change as long as this record lives.
class ClipboardText {
public:
    /// Opens the clipboard for a window.
    explicit ClipboardText(HWND owner);
    ~ClipboardText();
    ClipboardText(const ClipboardText&) = delete;
    ClipboardText& operator=(const ClipboardText&) = delete;

    /// False when the clipboard has no text or cannot be opened.
    bool IsThere() const { return text_ != nullptr; }

    /// The text; empty when there is none.
    std::u16string_view View() const;

private:
    bool isOpen_;
    HANDLE memory_;
    const wchar_t* text_;
};

/// Puts a text on the clipboard in place of what is there. False without memory, or while another
/// program has the clipboard open: the text is not there then.
bool PutOnClipboard(HWND owner, std::u16string_view text);

}  // namespace tallymere
