// The fields of the page and of the dialog with long texts, on both systems. On Wine these have
// tens of thousands of characters, which the system's control never gets in one line.

#include <cstring>
#include <string>

#include "calculator/field_editing.h"
#include "calculator/variables_form.h"
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

void PressInsertWithShift(HWND window) {
    BYTE keys[256] = {};
    keys[VK_SHIFT] = 0x80;
    SetKeyboardState(keys);
    SendMessageW(window, WM_KEYDOWN, VK_INSERT, 1);
    keys[VK_SHIFT] = 0;
    SetKeyboardState(keys);
}

// The longest line that the system's control has.
size_t LongestLine(HWND field) {
    size_t longest = 0;
    const LRESULT lines = SendMessageW(field, EM_GETLINECOUNT, 0, 0);
    for (LRESULT line = 0; line < lines; line++) {
        const LRESULT start = SendMessageW(field, EM_LINEINDEX, static_cast<WPARAM>(line), 0);
        const LRESULT length = SendMessageW(field, EM_LINELENGTH, static_cast<WPARAM>(start), 0);
        longest = std::max(longest, static_cast<size_t>(length));
    }
    return longest;
}

// True for Wine. On Windows the control takes all lines as they are, and that of Wine is slow then,
// so that the texts are short enough for it.
class LongTextsTest : public CalculatorWindowsTest, public ::testing::WithParamInterface<bool> {
protected:
    LongTextsTest() { isWine = GetParam(); }
    ~LongTextsTest() override {
        for (const HWND each : fields) {
            SetWindowTextW(each, L"");
        }
        isWine = true;
    }

    static constexpr size_t LongestForSystem = 3'000;
    static bool IsTooLong(size_t length) { return !isWine && length > LongestForSystem; }

    HWND fields[3] = {ControlOf(CalculatorFormula), ControlOf(CalculatorResult),
                      VariablesWindowControl(VariablesValue)};
    HWND field = fields[0];
};

TEST_P(LongTextsTest, ArriveWholeAtEachLength) {
    for (const HWND each : fields) {
        for (const size_t length : {0U, 1U, 299U, 300U, 301U, 1000U, 10'000U, 88'661U}) {
            for (const size_t lineEnd : {255U, 511U, 100'000U}) {
                if (IsTooLong(length)) {
                    continue;
                }
                const std::u16string text = LongText(length, lineEnd);
                SetWindowTextW(each, ToWide(text.c_str()));
                EXPECT_TRUE(WholeText(each) == text) << length << " " << lineEnd;
                EXPECT_EQ(SelectionIn(each), (std::pair<DWORD, DWORD>(0, 0)));
            }
        }
        EXPECT_LT(LongestLine(each), 100U);
        SetWindowTextW(each, L"");
    }
}

TEST_P(LongTextsTest, KeepTextAndSelectionWhenTheirFieldIsSized) {
    for (const size_t length : {10U, 3000U, 100'000U}) {
        if (IsTooLong(length)) {
            continue;
        }
        const std::u16string text = LongText(length, 300);
        SetWindowTextW(field, ToWide(text.c_str()));
        SendMessageW(field, EM_SETSEL, 4, 7);
        const LayoutRect before = PlaceInParent(field);
        MoveWindow(field, before.x, before.y, before.width - 130, before.height + 5, TRUE);
        EXPECT_TRUE(WholeText(field) == text) << length;
        EXPECT_EQ(SelectionIn(field), (std::pair<DWORD, DWORD>(4, 7)));
        MoveWindow(field, before.x, before.y, before.width, before.height, TRUE);
    }
}

TEST_P(LongTextsTest, ArePastedAtEachPlace) {
    const std::u16string text = LongText(3000, 511);
    ASSERT_TRUE(PutOnClipboard(text));
    SetFormula(u"1+23");
    SendMessageW(field, EM_SETSEL, 2, 4);
    SendMessageW(field, WM_PASTE, 0, 0);
    EXPECT_TRUE(Formula() == u"1+" + text);
    EXPECT_EQ(SelectionIn(field), (std::pair<DWORD, DWORD>(3002, 3002)));
    SendMessageW(field, EM_SETSEL, 0, 1);
    SendMessageW(field, WM_PASTE, 0, 0);
    EXPECT_TRUE(Formula() == text + u"+" + text);
    EXPECT_EQ(SelectionIn(field), (std::pair<DWORD, DWORD>(3000, 3000)));
}

TEST_P(LongTextsTest, ArePastedIntoTheFormulaAfterAKey) {
    const std::u16string text = LongText(3000, 100'000);
    ASSERT_TRUE(PutOnClipboard(text));
    const HWND sink = ControlOf(CalculatorFocusSink);
    SetFormula(u"");
    SetFocus(sink);
    SendMessageW(sink, WM_CHAR, FieldPasteKey, 1);
    EXPECT_TRUE(Formula() == text);
    EXPECT_EQ(GetFocus(), field);
    SetFocus(sink);
    PressInsertWithShift(sink);
    EXPECT_TRUE(Formula() == text + text);
}

TEST_P(LongTextsTest, CannotBeChangedInTheResult) {
    const HWND result = ControlOf(CalculatorResult);
    const std::u16string text = LongText(3000, 100'000);
    SetWindowTextW(result, ToWide(text.c_str()));
    ASSERT_TRUE(PutOnClipboard(u"1"));
    SendMessageW(result, EM_SETSEL, 10, 1010);
    for (const UINT message : {WM_CUT, WM_PASTE, WM_CLEAR, WM_UNDO}) {
        SendMessageW(result, message, 0, 0);
    }
    SendMessageW(result, WM_CHAR, u'5', 1);
    SendMessageW(result, WM_CHAR, VK_BACK, 1);
    SendMessageW(result, WM_KEYDOWN, VK_DELETE, 1);
    SendMessageW(result, WM_CHAR, FieldPasteKey, 1);
    PressInsertWithShift(result);
    EXPECT_TRUE(WholeText(result) == text);
    SendMessageW(result, WM_COPY, 0, 0);
    SetFormula(u"");
    SendMessageW(field, WM_PASTE, 0, 0);
    EXPECT_TRUE(Formula() == text.substr(10, 1000));
}

INSTANTIATE_TEST_SUITE_P(Of, LongTextsTest, ::testing::Bool(), [](const auto& info) {
    return std::string(info.param ? "Wine" : "Windows");
});

}  // namespace
}  // namespace tallymere::testing_support
