#include "toolkit/long_text_field.h"

#include <algorithm>
#include <string>

#include "layout/soft_breaks.h"
#include "toolkit/test_dialog.h"

namespace tallymere {
namespace {

using testing_support::TypeCharacter;

std::u16string Digits(size_t length) {
    std::u16string text;
    while (text.size() < length) {
        text += u"1234567890";
    }
    text.resize(length);
    return text;
}

// What the system's control makes of a message by itself.
LRESULT AskSystem(HWND field, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto procedure = reinterpret_cast<WNDPROC>(GetClassLongPtrW(field, GCLP_WNDPROC));
    return CallWindowProcW(procedure, field, message, wParam, lParam);
}

int32_t changes = 0;

LRESULT CountChanges(HWND, UINT message, WPARAM wParam, LPARAM, bool&) {
    changes += message == WM_COMMAND && HIWORD(wParam) == EN_CHANGE;
    return 0;
}

class LongTextField : public testing_support::ToolkitTest {
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

    // What the system's control has.
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

    // The position behind the first line as it is wrapped.
    int EndOfFirstLine() const { return static_cast<int>(InnerText().find(SoftBreak)); }

    HWND parent;
    HWND field;
};

TEST_F(LongTextField, KeepsShortTextsAsTheyAre) {
    for (const std::u16string& text : {std::u16string(u"1+2"), Digits(300)}) {
        SetText(text);
        EXPECT_EQ(Text(), text);
        EXPECT_EQ(InnerText(), text);
    }
}

TEST_F(LongTextField, NeverHandsALongLineToTheSystem) {
    const std::u16string text = Digits(88'661);
    SetText(text);
    EXPECT_TRUE(Text() == text);
    EXPECT_LE(LongestInnerLine(), 300u);
    Select(40'000, 50'000);
    Replace(text);
    EXPECT_TRUE(Text() == text.substr(0, 40'000) + text + text.substr(50'000));
    EXPECT_LE(LongestInnerLine(), 300u);
    EXPECT_EQ(Selection(), std::pair(128'661, 128'661));
}

TEST_F(LongTextField, WrapsWhereTheSystemWould) {
    SetText(Digits(300));
    const int lines = LineCount();
    SetText(Digits(600));
    EXPECT_GE(LineCount(), 2 * lines - 2);
    EXPECT_LE(LineCount(), 2 * lines);
}

TEST_F(LongTextField, WrapsAnewForAnotherWidthOrFont) {
    SetText(Digits(1000));
    Select(500, 510);
    const int lines = LineCount();
    MoveWindow(field, 0, 0, 380, 100, TRUE);
    EXPECT_LT(LineCount(), lines * 2 / 3);
    EXPECT_EQ(Text(), Digits(1000));
    EXPECT_EQ(Selection(), std::pair(500, 510));
    const int wideLines = LineCount();
    const HFONT large = CreateFontW(40, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, 0,
                                    0, 0, 0, L"Verdana");
    SendMessageW(field, WM_SETFONT, reinterpret_cast<WPARAM>(large), FALSE);
    EXPECT_GT(LineCount(), wideLines * 3 / 2);
    EXPECT_EQ(Text(), Digits(1000));
    DeleteObject(large);
}

TEST_F(LongTextField, GivesAsMuchTextAsThereIsRoomFor) {
    SetText(Digits(1000));
    char16_t buffer[600];
    EXPECT_EQ(SendMessageW(field, WM_GETTEXT, 600, reinterpret_cast<LPARAM>(buffer)), 599);
    EXPECT_EQ(std::u16string(buffer), Digits(599));
    EXPECT_EQ(SendMessageW(field, WM_GETTEXT, 0, reinterpret_cast<LPARAM>(buffer)), 0);
    EXPECT_EQ(GetWindowTextLengthW(field), 1000);
}

TEST_F(LongTextField, SelectsByThePositionsOfItsText) {
    SetText(Digits(1000));
    for (const auto& [from, to] : {std::pair(0, 0), std::pair(0, 1000), std::pair(333, 777)}) {
        Select(from, to);
        EXPECT_EQ(Selection(), std::pair(from, to));
        EXPECT_EQ(SendMessageW(field, EM_GETSEL, 0, 0), MAKELRESULT(from, to));
    }
    Select(0, -1);
    EXPECT_EQ(Selection(), std::pair(0, 1000));
    Select(-1, 0);
    EXPECT_EQ(Selection().first, Selection().second);
    SetText(Digits(70'000));
    Select(0, -1);
    EXPECT_EQ(SendMessageW(field, EM_GETSEL, 0, 0), -1);
}

TEST_F(LongTextField, TakesWhatIsTypedAtTheCaret) {
    SetText(Digits(1000));
    const int end = EndOfFirstLine();
    Select(end - 1, end - 1);
    for (const char16_t c : {u'a', u'b', u'c'}) {
        TypeCharacter(field, c);
    }
    const auto place = static_cast<size_t>(end) - 1;
    EXPECT_EQ(Text(), Digits(1000).insert(place, u"abc"));
    EXPECT_EQ(Selection(), std::pair(end + 2, end + 2));
    EXPECT_EQ(changes, 3);
    EXPECT_LE(LongestInnerLine(), 300u);
}

TEST_F(LongTextField, DeletesOverTheEndOfALine) {
    SetText(Digits(1000));
    const int end = EndOfFirstLine();
    Select(end, end);
    TypeCharacter(field, VK_BACK);
    const std::u16string shorter = Digits(1000).erase(static_cast<size_t>(end) - 1, 1);
    EXPECT_EQ(Text(), shorter);
    EXPECT_EQ(Selection(), std::pair(end - 1, end - 1));

    Select(end - 1, end - 1);
    testing_support::PressKey(field, VK_DELETE);
    EXPECT_EQ(Text(), std::u16string(shorter).erase(static_cast<size_t>(end) - 1, 1));
    Select(0, 990);
    SendMessageW(field, WM_CLEAR, 0, 0);
    EXPECT_EQ(Text(), Digits(1000).substr(992));
}

TEST_F(LongTextField, DeletesTheCharacterBehindALineThatTheCaretIsAtTheEndOf) {
    SetText(Digits(1000));
    const int end = EndOfFirstLine();
    // The end of the line, where the key End leads to, and not the start of the next.
    AskSystem(field, EM_SETSEL, static_cast<WPARAM>(end), end);
    testing_support::PressKey(field, VK_DELETE);
    EXPECT_EQ(Text(), Digits(1000).erase(static_cast<size_t>(end), 1));
}

TEST_F(LongTextField, CopiesCutsAndPastesWithoutItsBreaks) {
    const std::u16string text = Digits(1000);
    SetText(text);
    Select(100, 900);
    SendMessageW(field, WM_CUT, 0, 0);
    EXPECT_EQ(Text(), text.substr(0, 100) + text.substr(900));
    SetText(u"<>");
    Select(1, 1);
    SendMessageW(field, WM_PASTE, 0, 0);
    EXPECT_EQ(Text(), u"<" + text.substr(100, 800) + u">");
    Select(1, 501);
    SendMessageW(field, WM_COPY, 0, 0);
    SetText(u"");
    changes = 0;
    SendMessageW(field, WM_PASTE, 0, 0);
    EXPECT_EQ(Text(), text.substr(100, 500));
    EXPECT_EQ(changes, 1);
}

TEST_F(LongTextField, KeepsTheLinesOfItsText) {
    const std::u16string text = Digits(500) + u"\r\n" + Digits(500);
    SetText(text);
    EXPECT_EQ(Text(), text);
    TypeCharacter(field, u'x');
    EXPECT_EQ(Text(), u"x" + text);
}

TEST_F(LongTextField, IsEmptiedByNoText) {
    SetText(Digits(1000));
    SetWindowTextW(field, nullptr);
    EXPECT_EQ(Text(), u"");
}

}  // namespace
}  // namespace tallymere
