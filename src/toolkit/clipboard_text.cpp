#include "toolkit/clipboard_text.h"

#include <algorithm>

#include "toolkit/wide_text.h"

namespace tallymere {

std::u16string_view TextInBlock(const char16_t* text, size_t bytes) {
    const std::u16string_view block(text, bytes / sizeof(char16_t));
    return block.substr(0, block.find(u'\0'));
}

ClipboardText::ClipboardText(HWND owner) : isOpen_(OpenClipboard(owner) != 0) {
    memory_ = isOpen_ ? GetClipboardData(CF_UNICODETEXT) : nullptr;
    text_ = memory_ != nullptr ? static_cast<const wchar_t*>(GlobalLock(memory_)) : nullptr;
}

ClipboardText::~ClipboardText() {
    if (text_ != nullptr) {
        GlobalUnlock(memory_);
    }
    if (isOpen_) {
        CloseClipboard();
    }
}

std::u16string_view ClipboardText::View() const {
    return IsThere() ? TextInBlock(FromWide(text_), GlobalSize(memory_)) : u"";
}

bool PutOnClipboard(HWND owner, std::u16string_view text) {
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(char16_t));
    if (memory == nullptr || OpenClipboard(owner) == 0) {
        GlobalFree(memory);
        return false;
    }
    auto* copy = static_cast<char16_t*>(GlobalLock(memory));
    *std::copy(text.begin(), text.end(), copy) = 0;
    GlobalUnlock(memory);
    EmptyClipboard();
    const bool isThere = SetClipboardData(CF_UNICODETEXT, memory) != nullptr;
    if (!isThere) {
        GlobalFree(memory);
    }
    CloseClipboard();
    return isThere;
}

}  // namespace tallymere
