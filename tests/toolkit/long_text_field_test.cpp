#include "toolkit/long_text_field.h"

#include <future>
#include <thread>
#include <tuple>

#include "toolkit/gdi_objects.h"
#include "toolkit/long_text_testing.h"

namespace tallymere::testing_support {
namespace {

int CALLBACK NeverBreak(LPWSTR, int, int, int) {
    return 0;
}

TEST_P(LongTextFieldOfBoth, KeepsShortTextsAsTheyAre) {
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
    ExpectShortInnerLines();
    Select(40'000, 50'000);
    Replace(text);
    EXPECT_TRUE(Text() == text.substr(0, 40'000) + text + text.substr(50'000));
    ExpectShortInnerLines();
    EXPECT_EQ(Selection(), std::pair(128'661, 128'661));
}

TEST_P(LongTextFieldOfBoth, TakesMoreTextAtItsEndAsIfItHadBeenThereAtOnce) {
    std::u16string whole;
    SetText(whole);
    size_t length = 1;
    for (int part = 0; part < 60; part++) {
        length = length * 7 % 997;
        std::u16string text = Digits(length);
        if (part % 5 == 0) {
            text += u"\r\n";
        }
        whole += text;
        Select(0, 3);
        changes = 0;
        ASSERT_TRUE(AppendLongText(field, text.c_str()));
        EXPECT_EQ(changes, 1);
        ASSERT_TRUE(Text() == whole) << part;
    }
    EXPECT_EQ(Selection(),
              std::pair(static_cast<int>(whole.size()), static_cast<int>(whole.size())));
    const std::u16string broken = InnerText();
    SetText(whole);
    EXPECT_TRUE(broken == InnerText());
}

TEST_F(LongTextField, GrowsAtItsEndInTheSameMemoryAndGivesItBack) {
    const std::u16string lines = Digits(1'000) + u"\r\n" + Digits(20'000) + u"\r\n";
    for (int run = 0; run < 2; run++) {
        for (const std::u16string& text : {Digits(10), std::u16string()}) {
            SetText(text);
            EXPECT_TRUE(Text() == text);
            EXPECT_EQ(LineCount(), 1);
            EXPECT_LT(MemorySize(), 1'000'000u);
        }
        std::u16string whole;
        size_t grown = 0;
        for (int part = 0; part < 10; part++) {
            ASSERT_TRUE(AppendLongText(field, lines.c_str()));
            whole += lines;
            ASSERT_TRUE(Text() == whole) << part;
            EXPECT_TRUE(part == 0 || MemorySize() == grown) << part;
            grown = MemorySize();
        }
    }
}

TEST_P(LongTextFieldOfBoth, ScrollsToTheTextAtItsEnd) {
    SetText(u"");
    std::u16string lines;
    for (int line = 0; line < 100; line++) {
        lines += u"line\r\n";
    }
    AppendLongText(field, lines.c_str());
    EXPECT_GT(SendMessageW(field, EM_GETFIRSTVISIBLELINE, 0, 0), 50);
}

TEST_P(LongTextFieldOfBoth, RefusesTextAtItsEndThatItCannotTake) {
    const std::u16string lines = Digits(1'000) + u"\r\n";
    SetText(lines);
    const std::u16string broken = InnerText();
    SendMessageW(field, EM_SETLIMITTEXT, broken.size() + 4, 0);
    EXPECT_FALSE(AppendLongText(field, u"12345"));
    EXPECT_TRUE(InnerText() == broken);
    EXPECT_TRUE(AppendLongText(field, u"1234"));
    EXPECT_TRUE(Text() == lines + u"1234");
}

TEST_P(LongTextFieldOfBoth, ATextAtItsEndCannotBeUndone) {
    SetText(Digits(1'000));
    Replace(u"typed");
    EXPECT_TRUE(SendMessageW(field, EM_CANUNDO, 0, 0));
    AppendLongText(field, u"more");
    EXPECT_FALSE(SendMessageW(field, EM_CANUNDO, 0, 0));
}

TEST_F(LongTextField, BreaksBehindBlanksUnlessItHasARuleOfItsOwn) {
    std::u16string text;
    for (int number = 100'000; number < 100'500; number++) {
        const std::string digits = std::to_string(number);
        text.append(digits.begin(), digits.end());
        text += u", ";
    }
    const auto countBreaks = [this](bool behindBlanks) {
        const std::u16string inner = InnerText();
        int count = 0;
        for (size_t at = inner.find(SoftBreak); at != inner.npos;
             at = inner.find(SoftBreak, at + 1)) {
            count += (inner[at - 1] == u' ') == behindBlanks;
        }
        return count;
    };
    SetText(text);
    EXPECT_GT(countBreaks(true), 10);
    EXPECT_EQ(countBreaks(false), 0);
    SetText(u"");
    AppendLongText(field, text.c_str());
    EXPECT_GT(countBreaks(true), 10);
    EXPECT_EQ(countBreaks(false), 0);
    SetText(u" " + Digits(1'000));
    EXPECT_TRUE(Text() == u" " + Digits(1'000));
    EXPECT_LT(LineCount(), 100) << "a line of digits is full";
    SendMessageW(field, EM_SETWORDBREAKPROC, 0, reinterpret_cast<LPARAM>(NeverBreak));
    SetText(text);
    EXPECT_GT(countBreaks(false), 0);
}

TEST_F(LongTextField, WrapsWhereTheSystemWould) {
    SetText(Digits(300));
    const int lines = LineCount();
    SetText(Digits(600));
    EXPECT_GE(LineCount(), 2 * lines - 2);
    EXPECT_LE(LineCount(), 2 * lines);
}

TEST_F(LongTextField, FillsItsLinesWithoutTheSystemsHelp) {
    MoveWindow(field, 0, 0, 380, 100, TRUE);
    const HFONT large = CreateFontW(40, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, 0,
                                    0, 0, 0, L"Verdana");
    for (const HFONT font : {defaultGuiFont, large}) {
        SendMessageW(field, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
        SetText(std::u16string(1000, u'i'));
        const int length = EndOfFirstLine();
        EXPECT_EQ(LineCount(), (1000 + length - 1) / length);
        EXPECT_EQ(SendMessageW(field, EM_LINELENGTH, 0, 0), length);
    }
    DeleteObject(large);
}

TEST_P(LongTextFieldOfBoth, WrapsAnewForAnotherWidthOrFont) {
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

class ResizedLongTextField : public LongTextField {
protected:
    int LineWidth() const {
        RECT room = {};
        AskSystem(field, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&room));
        return room.right - room.left;
    }
    // As a drag of the frame does.
    void Resize(int from, int to) const {
        for (int width = from; width != to; width += from < to ? 20 : -20) {
            MoveWindow(field, 0, 0, width, 100, TRUE);
        }
        MoveWindow(field, 0, 0, to, 100, TRUE);
    }
    // The message loop until a timer has fired.
    static void LoopUntilTimer() {
        MSG message = {};
        do {
            GetMessageW(&message, nullptr, 0, 0);
            DispatchMessageW(&message);
        } while (message.message != WM_TIMER);
    }
};

TEST_F(ResizedLongTextField, WrapsAVeryLongTextForTheLastSizeAlone) {
    const std::u16string text = Digits(40'000) + u"\r\n" + Digits(40'000);
    SetText(text);
    Select(500, 510);
    for (const auto& [from, to] : {std::pair(200, 380), std::pair(380, 200)}) {
        const std::u16string before = InnerText();
        const int width = LineWidth();
        Resize(from, to);
        EXPECT_TRUE(InnerText() == before);
        EXPECT_EQ(LineWidth(), width);
        LoopUntilTimer();
        EXPECT_NE(LineWidth(), width);
        EXPECT_TRUE(Text() == text);
        EXPECT_EQ(Selection(), std::pair(500, 510));
        const std::u16string after = InnerText();
        SetText(text);
        EXPECT_TRUE(after == InnerText()) << "no other than those of a new text";
        EXPECT_TRUE(after != before);
        Select(500, 510);
    }
}

TEST_F(ResizedLongTextField, TakesTheLastSizeThoughItsTextHasChanged) {
    for (const std::u16string& text : {std::u16string(), Digits(1000)}) {
        for (const auto& [from, to] : {std::pair(200, 380), std::pair(380, 200)}) {
            SetText(Digits(80'000));
            const int width = LineWidth();
            Resize(from, to);
            SetText(text);
            LoopUntilTimer();
            EXPECT_EQ(LineWidth(), width + to - from);
            const std::u16string after = InnerText();
            SetText(text);
            EXPECT_EQ(after, InnerText());
        }
    }
}

TEST_F(ResizedLongTextField, GrowsOnAtItsEndBeforeAndAfterItIsWrapped) {
    SetText(u"");
    std::u16string whole;
    size_t memory = 0;
    for (int part = 0; part < 12; part++) {
        const std::u16string text = Digits(9'999);
        ASSERT_TRUE(AppendLongText(field, text.c_str()));
        whole += text;
        if (part == 8) {
            Resize(200, 380);
        } else if (part == 9) {
            LoopUntilTimer();
        }
        ASSERT_TRUE(Text() == whole) << part;
        EXPECT_TRUE(part < 3 || MemorySize() == memory) << part;
        memory = MemorySize();
    }
    const std::u16string inner = InnerText();
    SetText(whole);
    EXPECT_TRUE(inner == InnerText());
}

TEST_P(LongTextFieldOfBoth, GivesAsMuchTextAsThereIsRoomFor) {
    SetText(Digits(1000));
    char16_t buffer[600];
    EXPECT_EQ(SendMessageW(field, WM_GETTEXT, 600, reinterpret_cast<LPARAM>(buffer)), 599);
    EXPECT_EQ(std::u16string(buffer), Digits(599));
    EXPECT_EQ(SendMessageW(field, WM_GETTEXT, 0, reinterpret_cast<LPARAM>(buffer)), 0);
    EXPECT_EQ(GetWindowTextLengthW(field), 1000);
}

TEST_P(LongTextFieldOfBoth, SelectsByThePositionsOfItsText) {
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
}

// The control of Wine answers otherwise than it should.
TEST_F(LongTextField, TellsNoSelectionThatIsTooFarAwayForTheAnswer) {
    SetText(Digits(70'000));
    Select(1, 65'535);
    EXPECT_EQ(SendMessageW(field, EM_GETSEL, 0, 0), MAKELRESULT(1, 65'535));
    Select(1, 65'536);
    EXPECT_EQ(SendMessageW(field, EM_GETSEL, 0, 0), -1);
}

TEST_P(LongTextFieldOfBoth, TakesWhatIsTypedAtTheCaret) {
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
    ExpectShortInnerLines();
}

TEST_P(LongTextFieldOfBoth, DeletesOverTheEndOfALine) {
    SetText(Digits(1000));
    const int end = EndOfFirstLine();
    Select(end, end);
    TypeCharacter(field, VK_BACK);
    const std::u16string shorter = Digits(1000).erase(static_cast<size_t>(end) - 1, 1);
    EXPECT_EQ(Text(), shorter);
    EXPECT_EQ(Selection(), std::pair(end - 1, end - 1));

    Select(end - 1, end - 1);
    PressKey(field, VK_DELETE);
    EXPECT_EQ(Text(), std::u16string(shorter).erase(static_cast<size_t>(end) - 1, 1));
    Select(0, 990);
    SendMessageW(field, WM_CLEAR, 0, 0);
    EXPECT_EQ(Text(), Digits(1000).substr(992));

    SetText(Digits(1000));
    Select(end, end + 10);
    TypeCharacter(field, VK_BACK);
    EXPECT_EQ(Text(), Digits(1000).erase(static_cast<size_t>(end), 10));
}

TEST_F(LongTextField, DeletesTheCharacterBehindALineThatTheCaretIsAtTheEndOf) {
    SetText(Digits(1000));
    const int end = EndOfFirstLine();
    // The end of the line, where the key End leads to, and not the start of the next.
    AskSystem(field, EM_SETSEL, static_cast<WPARAM>(end), end);
    PressKey(field, VK_DELETE);
    EXPECT_EQ(Text(), Digits(1000).erase(static_cast<size_t>(end), 1));
}

TEST_P(LongTextFieldOfBoth, CopiesCutsAndPastesWithoutItsBreaks) {
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

TEST_F(LongTextField, CutsNothingWhileAnotherOwnerHasTheClipboard) {
    const std::u16string text = Digits(1000);
    SetText(text);
    Select(100, 900);
    std::promise<void> isHeld;
    std::promise<void> wasTried;
    std::thread other([&isHeld, &wasTried] {
        const bool opened = OpenClipboard(nullptr) != FALSE;
        isHeld.set_value();
        wasTried.get_future().wait();
        EXPECT_TRUE(opened);
        CloseClipboard();
    });
    isHeld.get_future().wait();
    SendMessageW(field, WM_CUT, 0, 0);
    EXPECT_EQ(Text(), text);
    PressKey(field, VK_DELETE, VK_SHIFT);
    EXPECT_EQ(Text(), text);
    wasTried.set_value();
    other.join();
    SendMessageW(field, WM_CUT, 0, 0);
    EXPECT_EQ(Text(), text.substr(0, 100) + text.substr(900));
    EXPECT_EQ(TextOnClipboard(parent), text.substr(100, 800));
}

TEST_P(LongTextFieldOfBoth, BringsBackWhatWasReplaced) {
    const std::u16string text = Digits(1'000);
    SetText(text);
    EXPECT_FALSE(SendMessageW(field, EM_CANUNDO, 0, 0));
    Select(100, 900);
    Replace(u"typed");
    const std::u16string after = Text();
    for (const std::u16string& there : {text, after, text}) {
        EXPECT_TRUE(SendMessageW(field, EM_CANUNDO, 0, 0));
        EXPECT_TRUE(SendMessageW(field, EM_UNDO, 0, 0));
        EXPECT_EQ(Text(), there);
    }
}

TEST_P(LongTextFieldOfBoth, KeepsTheLinesOfItsText) {
    const std::u16string text = Digits(500) + u"\r\n" + Digits(500);
    SetText(text);
    EXPECT_EQ(Text(), text);
    TypeCharacter(field, u'x');
    EXPECT_EQ(Text(), u"x" + text);
}

TEST_P(LongTextFieldOfBoth, KeysCopyAndCutWithoutItsBreaks) {
    const std::u16string text = Digits(1000);
    SetText(text);
    Select(100, 900);
    PutOnEmptyClipboard(parent, u"");
    PressKey(field, VK_INSERT, VK_CONTROL);
    EXPECT_EQ(TextOnClipboard(parent), text.substr(100, 800));
    EXPECT_EQ(Text(), text);
    PutOnEmptyClipboard(parent, u"");
    PressKey(field, VK_DELETE, VK_SHIFT);
    EXPECT_EQ(TextOnClipboard(parent), text.substr(100, 800));
    EXPECT_EQ(Text(), text.substr(0, 100) + text.substr(900));
    SetText(text);
    Select(100, 900);
    PutOnEmptyClipboard(parent, u"");
    PressKey(field, VK_DELETE);
    EXPECT_EQ(TextOnClipboard(parent), u"none");
    SetText(text);
    Select(0, 50);
    PressKey(field, VK_DELETE, VK_SHIFT, VK_CONTROL);
    EXPECT_EQ(TextOnClipboard(parent), u"none");
}

TEST_P(LongTextFieldOfBoth, CopiesInsteadOfAnythingThatTheClipboardHas) {
    SetText(Digits(1000));
    Select(0, 500);
    PutOnEmptyClipboard(parent, u"");
    OpenClipboard(parent);
    SetClipboardData(CF_PRIVATEFIRST, GlobalAlloc(GMEM_MOVEABLE, 1));
    CloseClipboard();
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_PRIVATEFIRST));
    SendMessageW(field, WM_COPY, 0, 0);
    EXPECT_FALSE(IsClipboardFormatAvailable(CF_PRIVATEFIRST));
}

TEST_P(LongTextFieldOfBoth, KeepsItsSelectionIfThereIsNothingToPaste) {
    SetText(Digits(1000));
    Select(100, 900);
    PutOnEmptyClipboard(parent, u"");
    SendMessageW(field, WM_PASTE, 0, 0);
    EXPECT_EQ(Text(), Digits(1000));
    EXPECT_EQ(Selection(), std::pair(100, 900));
    EXPECT_EQ(changes, 0);
}

TEST_P(LongTextFieldOfBoth, TakesNothingFromTheClipboardWhileItIsOnlyToBeRead) {
    SetText(Digits(1000));
    PutOnEmptyClipboard(parent, u"x");
    SendMessageW(field, EM_SETREADONLY, TRUE, 0);
    SendMessageW(field, WM_PASTE, 0, 0);
    EXPECT_EQ(Text(), Digits(1000));
}

TEST_F(LongTextField, LosesSoftBreaksThatArePasted) {
    PutOnEmptyClipboard(parent, Digits(200) + std::u16string(SoftBreak) + u"\r\n" + Digits(200));
    SetText(u"<>");
    Select(1, 1);
    SendMessageW(field, WM_PASTE, 0, 0);
    EXPECT_EQ(Text(), u"<" + Digits(200) + u"\r\n" + Digits(200) + u">");
    EXPECT_EQ(Selection(), std::pair(403, 403));
}

TEST_P(LongTextFieldOfBoth, ArrowsStepOverTheEndOfALineInOneGo) {
    SetText(Digits(1000));
    const int end = EndOfFirstLine();
    Select(end - 2, end - 2);
    for (int i = -1; i <= 2; i++) {
        PressKey(field, VK_RIGHT);
        EXPECT_EQ(Selection(), std::pair(end + i, end + i));
    }
    for (int i = 1; i >= -2; i--) {
        PressKey(field, VK_LEFT);
        EXPECT_EQ(Selection(), std::pair(end + i, end + i));
    }
    Select(end, end);
    PressKey(field, VK_LEFT, VK_SHIFT);
    EXPECT_EQ(Selection(), std::pair(end - 1, end));
}

TEST_P(LongTextFieldOfBoth, ShiftAndDeleteErasesWhatIsBeforeTheCaret) {
    SetText(Digits(1000));
    const int end = EndOfFirstLine();
    Select(end, end);
    PressKey(field, VK_DELETE, VK_SHIFT);
    EXPECT_EQ(Text(), Digits(1000).erase(static_cast<size_t>(end) - 1, 1));
    EXPECT_EQ(Selection(), std::pair(end - 1, end - 1));
}

TEST_P(LongTextFieldOfBoth, CountsLinesAndPlacesByThePositionsOfItsText) {
    const auto ask = [this](UINT message, LRESULT first, LPARAM second = 0) {
        return SendMessageW(field, message, static_cast<WPARAM>(first), second);
    };
    SetText(Digits(1'000) + u"\r\n" + LinesOfDigits(89'000));
    const int end = EndOfFirstLine();
    EXPECT_EQ(ask(EM_LINEFROMCHAR, end - 1), 0);
    EXPECT_EQ(ask(EM_LINEFROMCHAR, end), 1);
    EXPECT_EQ(ask(EM_LINEINDEX, 1), end);
    EXPECT_EQ(ask(EM_LINEINDEX, 1'000'000), -1);
    EXPECT_EQ(ask(EM_LINELENGTH, end - 1), end);
    const LRESULT line = ask(EM_LINEFROMCHAR, 80'000);
    const LRESULT start = ask(EM_LINEINDEX, line);
    EXPECT_LE(start, 80'000);
    EXPECT_GT(start + ask(EM_LINELENGTH, 80'000), 80'000);
    Select(80'000, 80'000);
    EXPECT_EQ(ask(EM_LINEFROMCHAR, -1), line);
    EXPECT_EQ(ask(EM_LINEINDEX, -1), start);

    ask(EM_SCROLLCARET, 0);
    const LRESULT place = ask(EM_POSFROMCHAR, 80'000);
    EXPECT_NE(place, -1);
    const LRESULT found = ask(EM_CHARFROMPOS, 0, MAKELPARAM(LOWORD(place) + 1, HIWORD(place) + 1));
    EXPECT_EQ(LOWORD(found), 80'000 % 0x10000);
    EXPECT_EQ(HIWORD(found), line);
    EXPECT_EQ(ask(EM_CHARFROMPOS, 0, MAKELPARAM(5000, 5000)),
              AskSystem(field, EM_CHARFROMPOS, 0, MAKELPARAM(5000, 5000)));
}

TEST_P(LongTextFieldOfBoth, ShowsTheSameLinesAfterAChange) {
    SetText(Digits(5000));
    const auto firstLine = [this] { return SendMessageW(field, EM_GETFIRSTVISIBLELINE, 0, 0); };
    const auto scroll = [this](LPARAM lines) { SendMessageW(field, EM_LINESCROLL, 0, lines); };
    Select(2500, 2500);
    SendMessageW(field, EM_SCROLLCARET, 0, 0);
    scroll(2);
    const LRESULT first = firstLine();
    EXPECT_GT(first, 10);
    TypeCharacter(field, u'x');
    EXPECT_EQ(firstLine(), first);
    Replace(u"x");
    EXPECT_EQ(firstLine(), first);
    SendMessageW(field, WM_UNDO, 0, 0);
    EXPECT_EQ(firstLine(), first);
    scroll(-10);
    MoveWindow(field, 0, 0, 210, 100, TRUE);
    EXPECT_EQ(firstLine(), first - 10) << "the caret is not shown";
    Replace(u"x");
    EXPECT_GT(firstLine(), first - 10) << "the caret is shown";
}

TEST_P(LongTextFieldOfBoth, IsModifiedByTheUserAlone) {
    SetText(Digits(1000));
    const auto isModified = [this] { return SendMessageW(field, EM_GETMODIFY, 0, 0) != FALSE; };
    EXPECT_FALSE(isModified());
    MoveWindow(field, 0, 0, 380, 100, TRUE);
    EXPECT_FALSE(isModified());
    TypeCharacter(field, u'x');
    EXPECT_TRUE(isModified());
    SetText(Digits(1000));
    Replace(u"12");
    EXPECT_TRUE(isModified());
    MoveWindow(field, 0, 0, 200, 100, TRUE);
    EXPECT_TRUE(isModified());
}

TEST_P(LongTextFieldOfBoth, BecomesLongAndShortAgainByTyping) {
    SetText(Digits(298));
    Select(298, 298);
    for (int i = 0; i < 5; i++) {
        TypeCharacter(field, u'x');
    }
    EXPECT_EQ(Text(), Digits(298) + u"xxxxx");
    EXPECT_EQ(InnerText() != Text(), isWine);
    for (int i = 0; i < 5; i++) {
        TypeCharacter(field, VK_BACK);
        EXPECT_EQ(Selection(), std::pair(302 - i, 302 - i));
    }
    EXPECT_EQ(Text(), Digits(298));
    EXPECT_EQ(InnerText(), Text());
    EXPECT_EQ(changes, 10);
}

TEST_P(LongTextFieldOfBoth, TakesBothHalvesOfACharacter) {
    SetText(Digits(1000));
    const int end = EndOfFirstLine();
    for (int place = end - 2; place <= end + 1; place++) {
        SetText(Digits(1000));
        Select(place, place);
        TypeCharacter(field, 0xD835);
        TypeCharacter(field, 0xDF0B);
        EXPECT_EQ(Text(), Digits(1000).insert(static_cast<size_t>(place), u"\U0001D70B"));
        EXPECT_EQ(Selection(), std::pair(place + 2, place + 2));
    }
}

TEST_P(LongTextFieldOfBoth, BeginsAndJoinsLines) {
    SetText(Digits(1000));
    Select(500, 500);
    TypeCharacter(field, u'\n');
    EXPECT_EQ(Text(), Digits(1000).insert(500, u"\r\n"));
    EXPECT_EQ(Selection(), std::pair(502, 502));
    TypeCharacter(field, VK_BACK);
    EXPECT_EQ(Text(), Digits(1000));
    TypeCharacter(field, u'\n');
    Select(500, 500);
    PressKey(field, VK_DELETE);
    EXPECT_EQ(Text(), Digits(1000));
}

TEST_F(LongTextField, ShowsANewTextAsTheSystemWould) {
    const HWND twin = CreateLongTextField(parent, {0, 100, 200, 100}, u"");
    const auto scrollBar = [](HWND window) {
        SCROLLINFO info = {};
        info.cbSize = sizeof info;
        info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
        GetScrollInfo(window, SB_VERT, &info);
        return std::tuple(info.nMin, info.nMax, info.nPage, info.nPos);
    };
    for (const size_t before : {0u, 10u, 5000u}) {
        for (const size_t length : {301u, 1000u, 5000u}) {
            for (const HWND window : {field, twin}) {
                SetWindowTextW(window, ToWide(Digits(before).c_str()));
                SendMessageW(window, EM_SETSEL, 5, 9);
                SendMessageW(window, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"12"));
                SendMessageW(window, EM_LINESCROLL, 0, 20);
            }
            changes = 0;
            const LRESULT memoryBefore = AskSystem(field, EM_GETHANDLE, 0, 0);
            SetText(Digits(length));
            EXPECT_NE(AskSystem(field, EM_GETHANDLE, 0, 0), memoryBefore);
            EXPECT_EQ(changes, 0);
            AskSystem(twin, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(InnerText().c_str()));
            for (const UINT message : {EM_GETSEL, EM_GETFIRSTVISIBLELINE, EM_GETLINECOUNT,
                                       EM_GETMODIFY, WM_GETTEXTLENGTH}) {
                EXPECT_EQ(AskSystem(field, message, 0, 0), AskSystem(twin, message, 0, 0))
                    << message;
            }
            EXPECT_FALSE(SendMessageW(field, EM_CANUNDO, 0, 0));
            EXPECT_EQ(scrollBar(field), scrollBar(twin));
        }
    }
}

TEST_P(LongTextFieldOfBoth, GrowsAndShrinksAfterANewText) {
    for (int round = 0; round < 20; round++) {
        SetText(Digits(500));
        Select(500, 500);
        Replace(LinesOfDigits(20'000));
        EXPECT_TRUE(Text() == Digits(500) + LinesOfDigits(20'000));
        Select(10, 20'490);
        Replace(u"+");
        EXPECT_EQ(Text(), u"1234567890+" + LinesOfDigits(20'000).substr(19'990));
        SetText(LinesOfDigits(40'000));
        EXPECT_TRUE(Text() == LinesOfDigits(40'000));
    }
}

int32_t valueChanges = 0;

// By itself it tells them nothing.
TEST_F(LongTextField, TellsScreenReadersOfANewText) {
    const auto count = [](HWINEVENTHOOK, DWORD, HWND, LONG object, LONG child, DWORD, DWORD) {
        valueChanges += object == OBJID_CLIENT && child == CHILDID_SELF;
    };
    const HWINEVENTHOOK hook =
        SetWinEventHook(EVENT_OBJECT_VALUECHANGE, EVENT_OBJECT_VALUECHANGE, nullptr, count,
                        GetCurrentProcessId(), GetCurrentThreadId(), WINEVENT_OUTOFCONTEXT);
    valueChanges = 0;
    SetText(Digits(1000));
    MSG message = {};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        DispatchMessageW(&message);
    }
    EXPECT_EQ(valueChanges, 1);
    UnhookWinEvent(hook);
}

TEST_F(LongTextField, KeepsNothingOfWhatItMeasuredWith) {
    constexpr int32_t Rounds = 20;
    SetText(Digits(1000));
    const int64_t before = CountGdiObjects(GetCurrentProcess());
    ASSERT_GT(before, 0);
    for (int32_t round = 0; round < Rounds; round++) {
        SetText(Digits(1000 + round));
    }
    EXPECT_LT(CountGdiObjects(GetCurrentProcess()), before + Rounds);
}

TEST_P(LongTextFieldOfBoth, IsEmptiedByNoText) {
    SetText(Digits(1000));
    SetWindowTextW(field, nullptr);
    EXPECT_EQ(Text(), u"");
}

INSTANTIATE_TEST_SUITE_P(Of, LongTextFieldOfBoth, ::testing::Bool(), NameOfSystem);

}  // namespace
}  // namespace tallymere::testing_support
