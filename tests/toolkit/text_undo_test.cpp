#include "toolkit/text_undo.h"

#include "toolkit/long_text_testing.h"

namespace tallymere::testing_support {
namespace {

class LongTextUndo : public LongTextField {
protected:
    bool Undo() const { return SendMessageW(field, WM_UNDO, 0, 0) != FALSE; }
    bool CanUndo() const { return SendMessageW(field, EM_CANUNDO, 0, 0) != FALSE; }
    void Type(const std::u16string& text) const {
        for (const char16_t c : text) {
            TypeCharacter(field, c);
        }
    }
    // Undo leads back to a text and selection, and a second one to those there are now.
    void ExpectUndo(const std::u16string& before, std::pair<int, int> selection) {
        const std::u16string after = Text();
        for (int round = 0; round < 2; round++) {
            EXPECT_TRUE(CanUndo());
            changes = 0;
            EXPECT_TRUE(Undo());
            EXPECT_EQ(changes, 1);
            EXPECT_EQ(Text(), before);
            EXPECT_EQ(Selection(), selection);
            EXPECT_LE(LongestInnerLine(), 300u);
            EXPECT_TRUE(SendMessageW(field, EM_UNDO, 0, 0));
            EXPECT_EQ(Text(), after);
        }
    }

    const std::u16string text = Digits(1000);
};

TEST_F(LongTextUndo, BringsBackWhatAPasteReplaced) {
    for (const size_t length : {1u, 200u, 2000u}) {
        PutOnEmptyClipboard(parent, std::u16string(length, u'x'));
        SetText(text);
        EXPECT_FALSE(CanUndo());
        Select(100, 900);
        SendMessageW(field, WM_PASTE, 0, 0);
        ExpectUndo(text, {100, 900});
    }
}

TEST_F(LongTextUndo, MakesATextShortThatWasMadeLong) {
    SetText(u"1+23");
    Select(2, 4);
    Replace(text);
    ExpectUndo(u"1+23", {2, 4});
    EXPECT_EQ(Text(), u"1+" + text);
    SetText(text);
    Select(0, 1000);
    Replace(u"5");
    ExpectUndo(text, {0, 1000});
}

TEST_F(LongTextUndo, TakesAllBackThatWasTypedInOneGo) {
    SetText(text);
    Select(100, 600);
    Type(u"a b\n");
    ExpectUndo(text, {100, 600});
    Type(u"d");
    std::u16string before = Text();
    Select(5, 5);
    Type(u"e");
    ExpectUndo(before, {5, 5});
    Select(6, 6);
    Type(u"f");
    before = Text();
    Select(7, 10);
    Type(u"h");
    ExpectUndo(before, {7, 10});
    Undo();
    Select(7, 7);
    Type(u"g");
    ExpectUndo(before, {7, 7});
    before = Text();
    Replace(u"12");
    const std::u16string replaced = Text();
    ExpectUndo(before, {8, 8});
    Replace(u"34");
    ExpectUndo(replaced, {10, 10});
}

TEST_F(LongTextUndo, BeginsAnewWithWhatIsTypedAfterIt) {
    SetText(text);
    Select(100, 100);
    Type(u"abc");
    Undo();
    Type(u"d");
    ExpectUndo(text, {100, 100});
}

TEST_F(LongTextUndo, TakesAllBackThatWasErasedInOneGo) {
    SetText(text);
    Select(500, 500);
    Type(u"a");
    const std::u16string typed = Text();
    for (int i = 0; i < 60; i++) {
        TypeCharacter(field, VK_BACK);
    }
    ExpectUndo(typed, {501, 501});
    SetText(text);
    Select(500, 500);
    for (int i = 0; i < 60; i++) {
        PressKey(field, VK_DELETE);
    }
    ExpectUndo(text, {500, 500});
}

TEST_F(LongTextUndo, BringsBackWhatWasCutOrCleared) {
    for (const UINT message : {WM_CUT, WM_CLEAR}) {
        for (const int from : {0, 100}) {
            SetText(text);
            Select(from, 900);
            SendMessageW(field, message, 0, 0);
            ExpectUndo(text, {from, 900});
        }
    }
}

TEST_F(LongTextUndo, BringsALongTextBackAfterTypingMadeItShort) {
    SetText(text);
    Select(0, 1000);
    Type(u"ab");
    EXPECT_EQ(Text(), u"ab");
    EXPECT_TRUE(Undo());
    EXPECT_EQ(Text(), text);
    EXPECT_TRUE(Undo());
    EXPECT_EQ(Text(), u"ab");
}

TEST_F(LongTextUndo, IsTheSystemsForAShortText) {
    SetText(text);
    Select(2, 1000);
    Replace(u"");
    Type(u"3");
    for (int round = 0; round < 2; round++) {
        EXPECT_TRUE(Undo());
        EXPECT_EQ(Text(), u"12");
        EXPECT_TRUE(Undo());
        EXPECT_EQ(Text(), u"123");
    }
}

TEST_F(LongTextUndo, HasNothingAfterATextThatTheProgramWrites) {
    for (const bool isLong : {false, true}) {
        SetText(text);
        Replace(u"x");
        const std::u16string after = Text();
        SetText(isLong ? after : u"12");
        EXPECT_FALSE(CanUndo());
        Undo();
        EXPECT_EQ(Text(), isLong ? after : u"12");
    }
    SetText(text);
    Replace(u"x");
    SendMessageW(field, EM_EMPTYUNDOBUFFER, 0, 0);
    EXPECT_FALSE(CanUndo());
    Replace(u"x");
    SendMessageW(field, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L"y"));
    EXPECT_FALSE(CanUndo());
}

TEST_F(LongTextUndo, WorksInAnotherWidth) {
    SetText(text);
    Select(100, 600);
    Replace(u"x");
    MoveWindow(field, 0, 0, 380, 100, TRUE);
    ExpectUndo(text, {100, 600});
    SetText(text);
    EXPECT_EQ(LongestInnerLine(), static_cast<size_t>(EndOfFirstLine()) + 2);
}

TEST_F(LongTextUndo, IsNotSpentByKeysThatChangeNothing) {
    SetText(text);
    Select(0, 10);
    Replace(u"");
    TypeCharacter(field, VK_BACK);
    ExpectUndo(text, {0, 10});
}

}  // namespace
}  // namespace tallymere::testing_support
