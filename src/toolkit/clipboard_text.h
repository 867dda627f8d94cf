// The text on the clipboard.
#pragma once

#include <string_view>

#include "toolkit/win32.h"

namespace tallymere {

/// The clipboard's text, which stays as it is as long as the record lives.
class ClipboardText {
public:
    /// Opens the clipboard for a window.
    explicit ClipboardText(HWND owner);
    ~ClipboardText();
    ClipboardText(const ClipboardText&) = delete;
    ClipboardText& operator=(const ClipboardText&) = delete;

    /// False where something else than text is on the clipboard, or it cannot be opened.
    bool IsThere() const { return text_ != nullptr; }

    /// Empty where there is no text.
    std::u16string_view View() const;

private:
    bool isOpen_;
    HANDLE memory_;
    const wchar_t* text_;
};

/// Replaces what is on the clipboard. Without memory, or while another program has the clipboard
/// open, it stays as it is.
void PutOnClipboard(HWND owner, std::u16string_view text);

}  // namespace tallymere
