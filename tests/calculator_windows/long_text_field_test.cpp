#include "calculator/windows/long_text_field.h"

#include <cstring>

#include "calculator_windows/calculator_windows.h"

namespace tallymere::testing_support {
namespace {

// Digits, with a line end at some place.
std::u16string LongText(size_t length, size_t lineEnd) {
    std::u16string text(length, u'0');
    for (size_t i = 0; i < length; i++) {
        text[i] = static_cast<char16_t>(u'0' + i * i % 7);
    }
    if (lineEnd + 1 < length) {
        text[lineEnd] = u'\r';
        text[lineEnd + 1] = u'\n';
    }
    return text;
}

bool PutOnClipboard(const std::u16string& text) {
    const size_t bytes = (text.size() + 1) * sizeof(char16_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
    std::memcpy(GlobalLock(memory), text.c_str(), bytes);
    GlobalUnlock(memory);
    if (OpenClipboard(calculatorWindows.page) == 0) {
        return false;
    }
    EmptyClipboard();
    const bool isTaken = SetClipboardData(CF_UNICODETEXT, memory) != nullptr;
    CloseClipboard();
    return isTaken;
}

class LongTextFieldTest : public CalculatorWindowsTest {
protected:
    HWND field = ControlOf(CalculatorFormula);
};

TEST_F(LongTextFieldTest, TextsOfEachLengthArriveWhole) {
    for (const size_t length :
         {0U, 1U, 999U, 1000U, 1001U, 1023U, 1024U, 1025U, 10'000U, 88'661U}) {
        for (const size_t lineEnd : {255U, 511U, 100'000U}) {
            const std::u16string text = LongText(length, lineEnd);
            WriteLongText(field, text.c_str());
            EXPECT_TRUE(WholeText(field) == text) << length << " " << lineEnd;
            EXPECT_EQ(SelectionIn(field), (std::pair<DWORD, DWORD>(0, 0)));
        }
    }
}

TEST_F(LongTextFieldTest, WritingCannotBeUndone) {
    WriteLongText(field, LongText(5000, 300).c_str());
    EXPECT_FALSE(SendMessageW(field, EM_CANUNDO, 0, 0));
}

TEST_F(LongTextFieldTest, PlacingKeepsTextAndSelection) {
    for (const size_t length : {10U, 5000U, 100'000U}) {
        const std::u16string text = LongText(length, 300);
        WriteLongText(field, text.c_str());
        SendMessageW(field, EM_SETSEL, 4, 7);
        const LayoutRect before = PlaceInParent(field);
        const LayoutRect after = {before.x + 1, before.y + 2, before.width - 30, before.height + 5};
        PlaceLongTextField(field, after);
        const LayoutRect place = PlaceInParent(field);
        EXPECT_EQ(place.x, after.x);
        EXPECT_EQ(place.y, after.y);
        EXPECT_EQ(place.width, after.width);
        EXPECT_EQ(place.height, after.height);
        EXPECT_TRUE(WholeText(field) == text) << length;
        EXPECT_EQ(SelectionIn(field), (std::pair<DWORD, DWORD>(4, 7)));
        PlaceLongTextField(field, before);
    }
}

TEST_F(LongTextFieldTest, PastingReplacesTheSelectionAtTheEnd) {
    const std::u16string text = LongText(3000, 511);
    ASSERT_TRUE(PutOnClipboard(text));
    SetWindowTextW(field, L"1+23");
    SendMessageW(field, EM_SETSEL, 2, 4);
    SendMessageW(field, WM_PASTE, 0, 0);
    EXPECT_TRUE(WholeText(field) == u"1+" + text);
    EXPECT_EQ(SelectionIn(field), (std::pair<DWORD, DWORD>(3002, 3002)));
}

TEST_F(LongTextFieldTest, OtherPastingIsLeftToTheField) {
    SetWindowTextW(field, L"1+23");
    ASSERT_TRUE(PutOnClipboard(u"456"));
    SendMessageW(field, EM_SETSEL, 4, 4);
    EXPECT_FALSE(PasteLongText(field));
    const std::u16string text = LongText(1001, 511);
    ASSERT_TRUE(PutOnClipboard(text));
    SendMessageW(field, EM_SETSEL, 1, 1);
    EXPECT_FALSE(PasteLongText(field));
    SendMessageW(field, WM_PASTE, 0, 0);
    EXPECT_TRUE(WholeText(field) == u"1" + text + u"+23");
}

}  // namespace
}  // namespace tallymere::testing_support
