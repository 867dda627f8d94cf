// A field for long texts in a dialog, and hands for it.
#pragma once

#include <algorithm>
#include <cstring>
#include <string>
#include <utility>

#include "layout/soft_breaks.h"
#include "toolkit/long_text_field.h"
#include "toolkit/test_dialog.h"

namespace tallymere::testing_support {

inline std::u16string Digits(size_t length) {
    std::u16string text;
    while (text.size() < length) {
        text += u"1234567890";
    }
    text.resize(length);
    return text;
}

/// The same in lines that are short enough for the control of Wine.
inline std::u16string LinesOfDigits(size_t length) {
    constexpr size_t Line = 60;
    std::u16string text = Digits(length);
    for (size_t end = Line; end + 2 <= length; end += Line) {
        text.replace(end - 2, 2, u"\r\n");
    }
    return text;
}

/// What the system's control makes of a message by itself.
inline LRESULT AskSystem(HWND field, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto procedure = reinterpret_cast<WNDPROC>(GetClassLongPtrW(field, GCLP_WNDPROC));
    return CallWindowProcW(procedure, field, message, wParam, lParam);
}

/// The clipboard's text, "none" without one.
inline std::u16string TextOnClipboard(HWND owner) {
    std::u16string text = u"none";
    OpenClipboard(owner);
    if (const HANDLE memory = GetClipboardData(CF_UNICODETEXT); memory != nullptr) {
        text = FromWide(static_cast<const wchar_t*>(GlobalLock(memory)));
        GlobalUnlock(memory);
    }
    CloseClipboard();
    return text;
}

inline void PutOnEmptyClipboard(HWND owner, const std::u16string& text) {
    OpenClipboard(owner);
    EmptyClipboard();
    if (!text.empty()) {
        const size_t bytes = (text.size() + 1) * sizeof(char16_t);
        const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
        std::memcpy(GlobalLock(memory), text.c_str(), bytes);
        GlobalUnlock(memory);
        SetClipboardData(CF_UNICODETEXT, memory);
    }
    CloseClipboard();
}

/// How many EN_CHANGE the parent of the field has got.
inline int32_t changes = 0;

inline LRESULT CountChanges(HWND, UINT message, WPARAM wParam, LPARAM, bool&) {
    changes += message == WM_COMMAND && HIWORD(wParam) == EN_CHANGE;
    return 0;
}

/// The way of Wine, unless a test says otherwise before it writes a text.
class LongTextField : public ToolkitTest {
protected:
    LongTextField() {
        parent = CreateDialogWindow(nullptr, {400, 300}, u"Parent", CountChanges, WS_SYSMENU, 0);
        field = CreateLongTextField(parent, {0, 0, 200, 100}, u"");
        changes = 0;
    }
    ~LongTextField() override { DestroyWindow(parent); }

    std::u16string Text() const {
        std::u16string text(static_cast<size_t>(GetWindowTextLengthW(field)) + 1, u'?');
        text.resize(static_cast<size_t>(
            GetWindowTextW(field, ToWide(text.data()), static_cast<int>(text.size()))));
        return text;
    }
    void SetText(const std::u16string& text) { SetWindowTextW(field, ToWide(text.c_str())); }

    /// What the system's control has.
    std::u16string InnerText() const {
        const LRESULT length = AskSystem(field, WM_GETTEXTLENGTH, 0, 0);
        std::u16string text(static_cast<size_t>(length) + 1, u'?');
        AskSystem(field, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
        text.pop_back();
        return text;
    }

    size_t LongestInnerLine() const {
        const std::u16string text = InnerText();
        size_t longest = 0;
        size_t start = 0;
        for (size_t end = text.find(u'\n'); end != text.npos; end = text.find(u'\n', start)) {
            longest = std::max(longest, end - start);
            start = end + 1;
        }
        return std::max(longest, text.size() - start);
    }

    /// Of the memory that the system's control has its text in.
    size_t MemorySize() const {
        return LocalSize(reinterpret_cast<HLOCAL>(AskSystem(field, EM_GETHANDLE, 0, 0)));
    }

    int LineCount() const { return static_cast<int>(SendMessageW(field, EM_GETLINECOUNT, 0, 0)); }

    void Select(int from, int to) const {
        SendMessageW(field, EM_SETSEL, static_cast<WPARAM>(from), to);
    }
    std::pair<int, int> Selection() const {
        DWORD from = 0;
        DWORD to = 0;
        SendMessageW(field, EM_GETSEL, reinterpret_cast<WPARAM>(&from),
                     reinterpret_cast<LPARAM>(&to));
        return {static_cast<int>(from), static_cast<int>(to)};
    }
    void Replace(const std::u16string& text) const {
        SendMessageW(field, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
    }

    /// The position behind the first line as it is wrapped.
    int EndOfFirstLine() const { return static_cast<int>(SendMessageW(field, EM_LINEINDEX, 1, 0)); }

    /// On Wine no long line reaches the system.
    void ExpectShortInnerLines() const { EXPECT_TRUE(!isWine || LongestInnerLine() <= 300); }

    HWND parent;
    HWND field;
};

/// A field on each system: true for Wine.
class LongTextFieldOfBoth : public LongTextField, public ::testing::WithParamInterface<bool> {
protected:
    LongTextFieldOfBoth() { isWine = GetParam(); }
};

inline std::string NameOfSystem(const ::testing::TestParamInfo<bool>& info) {
    return info.param ? "Wine" : "Windows";
}

}  // namespace tallymere::testing_support
