#include "toolkit/long_text_painting.h"

#include <string>

#include "shell_windows/picture.h"
#include "toolkit/long_text_testing.h"

namespace tallymere {
namespace {

using testing_support::AskSystem;
using testing_support::LongTextField;
using testing_support::Picture;

// How often the system's control was asked to paint.
int32_t systemPaintings = 0;
WNDPROC systemProcedure = nullptr;

// Whether the last field that was destroyed still had its property.
bool leavesProperty = false;

// What the control says of the start of each line but the first; 0 for the truth.
LRESULT nextLine = 0;

LRESULT CALLBACK CountPaintings(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    systemPaintings += message == WM_PAINT;
    if (message == WM_NCDESTROY) {
        leavesProperty = GetPropW(window, ToWide(SlowPaintingProperty)) != nullptr;
    }
    if (message == EM_LINEINDEX && wParam > 0 && nextLine != 0) {
        return nextLine;
    }
    return CallWindowProcW(systemProcedure, window, message, wParam, lParam);
}

std::u16string Lines(int32_t count) {
    std::u16string text;
    for (int32_t i = 0; i < count; i++) {
        const std::string number = std::to_string(10'007 * (i + 1));
        text.append(number.begin(), number.end());
        text += u" = 2^3 * 10007\r\n";
    }
    return text;
}

const std::u16string& LongText() {
    static const std::u16string text = Lines(3'000);
    return text;
}

// A field that the system is slow with, as soon as it has painted it once.
class LongTextPainting : public LongTextField {
protected:
    LongTextPainting() {
        nextLine = 0;
        ShowWindow(parent, SW_SHOWNORMAL);
        const auto counting = reinterpret_cast<LONG_PTR>(&CountPaintings);
        systemProcedure =
            reinterpret_cast<WNDPROC>(SetClassLongPtrW(field, GCLP_WNDPROC, counting));
        longestSystemPainting = -1;
    }
    ~LongTextPainting() override {
        SetClassLongPtrW(field, GCLP_WNDPROC, reinterpret_cast<LONG_PTR>(systemProcedure));
        longestSystemPainting = longestBefore_;
    }

    void Paint(const Picture& picture) const {
        SendMessageW(field, WM_PAINT, reinterpret_cast<WPARAM>(picture.dc), 0);
    }

    // Puts the text into the field, and has the system paint it once.
    void Show(const std::u16string& text) {
        SetText(text);
        Paint(Picture(220, 120));
        systemPaintings = 0;
    }

    // Whether the field paints its rows itself, and as the system does.
    void ExpectOwnRows() const {
        const Picture own(220, 120);
        systemPaintings = 0;
        Paint(own);
        EXPECT_EQ(systemPaintings, 0);
        EXPECT_TRUE(own.HasInk());
        const Picture expected(220, 120);
        AskSystem(field, WM_PAINT, reinterpret_cast<WPARAM>(expected.dc), 0);
        EXPECT_TRUE(own.IsLike(expected));
    }
    void ExpectRowsOfTheSystem() const {
        systemPaintings = 0;
        Paint(Picture(220, 120));
        EXPECT_EQ(systemPaintings, 1);
    }
    void ScrollTo(int line) const {
        SendMessageW(field, EM_LINESCROLL, 0,
                     line - SendMessageW(field, EM_GETFIRSTVISIBLELINE, 0, 0));
    }

private:
    const double longestBefore_ = longestSystemPainting;
};

TEST_F(LongTextPainting, ShowsTheRowsThatTheSystemWouldShow) {
    Show(LongText());
    for (const int line : {0, 1, 1'500, 2'993, 3'000}) {
        ScrollTo(line);
        ExpectOwnRows();
    }
    SetFocus(field);
    ExpectOwnRows();
}

TEST_F(LongTextPainting, ShowsLinesWithSoftBreaks) {
    Show(testing_support::Digits(70'000));
    ExpectOwnRows();
    ScrollTo(2'000);
    ExpectOwnRows();
}

TEST_F(LongTextPainting, ShowsTheEndOfTheText) {
    for (const char16_t* end : {u"", u"\r\n", u"last", u"1\r\n\r\n\r\n\u00E4\u00D6\u00DF = \u00A7",
                                u"1\u202F234\u202F567 = 1'127 * 1.129", u"FAFA F.7 AVTo fi"}) {
        Show(LongText() + end);
        ScrollTo(LineCount());
        ExpectOwnRows();
    }
}

TEST_F(LongTextPainting, IsTheSystemsUntilThatWasSlow) {
    longestSystemPainting = 1e9;
    Show(LongText());
    ExpectRowsOfTheSystem();
    ExpectRowsOfTheSystem();
    longestSystemPainting = -1;
    ExpectRowsOfTheSystem();
    ExpectOwnRows();
}

TEST_F(LongTextPainting, IsTheSystemsForAnotherField) {
    Show(LongText());
    ExpectOwnRows();
    const HWND other = CreateLongTextField(parent, {0, 120, 200, 100}, LongText().c_str());
    systemPaintings = 0;
    SendMessageW(other, WM_PAINT, reinterpret_cast<WPARAM>(Picture(220, 120).dc), 0);
    EXPECT_EQ(systemPaintings, 1);
    SendMessageW(other, WM_PAINT, reinterpret_cast<WPARAM>(Picture(220, 120).dc), 0);
    EXPECT_EQ(systemPaintings, 1);
    ExpectOwnRows();
    leavesProperty = true;
    DestroyWindow(other);
    EXPECT_FALSE(leavesProperty);
}

TEST_F(LongTextPainting, IsTheSystemsAgainForAShorterText) {
    Show(LongText());
    ExpectOwnRows();
    Show(Lines(1'000));
    ExpectRowsOfTheSystem();
    SetText(LongText());
    ExpectRowsOfTheSystem();
    ExpectOwnRows();
}

TEST_F(LongTextPainting, LeavesWhatLooksOtherwiseToTheSystem) {
    Show(LongText());
    ExpectOwnRows();
    EnableWindow(field, FALSE);
    ExpectRowsOfTheSystem();
    EnableWindow(field, TRUE);
    SendMessageW(field, EM_SETREADONLY, TRUE, 0);
    ExpectRowsOfTheSystem();
    SendMessageW(field, EM_SETREADONLY, FALSE, 0);
    // It shows its selection without the focus, too.
    SetWindowLongPtrW(field, GWL_STYLE, WindowStyle(field) | ES_NOHIDESEL);
    ExpectRowsOfTheSystem();
    SetWindowLongPtrW(field, GWL_STYLE, WindowStyle(field) & ~ES_NOHIDESEL);
    const LONG_PTR usual = GetWindowLongPtrW(field, GWL_EXSTYLE);
    for (const LONG_PTR other : {WS_EX_RIGHT, WS_EX_RTLREADING, WS_EX_LEFTSCROLLBAR}) {
        SetWindowLongPtrW(field, GWL_EXSTYLE, usual | other);
        ExpectRowsOfTheSystem();
    }
    SetWindowLongPtrW(field, GWL_EXSTYLE, usual);
    ExpectOwnRows();
}

TEST_F(LongTextPainting, ShowsTheSelectionWhileTheFieldHasTheFocus) {
    Show(u"AVTo fi\r\n\r\n" + testing_support::Digits(100) + u"\r\n" +
         testing_support::Digits(1'000) + u"\r\n" + LongText());
    const int end = GetWindowTextLengthW(field);
    for (const HWND focused : {field, HWND{nullptr}}) {
        const struct {
            int from;
            int to;
        } selections[] = {{0, -1},  {0, 1},     {1, 2},     {2, 5},    {3, 7},        {3, 9},
                          {9, 11},  {7, 12},    {5, 300},   {30, 31},  {0, end},      {40, 1'113},
                          {50, 50}, {300, 310}, {300, 900}, {11, 250}, {end - 9, end}};
        for (const auto& [from, to] : selections) {
            for (const int line : {0, 3, 20, LineCount()}) {
                SetFocus(focused);
                Select(from, to);
                ScrollTo(line);
                ExpectOwnRows();
                if (HasFailure()) {
                    FAIL() << from << " to " << to << " at line " << line << " with the focus "
                           << (focused == field);
                }
            }
        }
    }
}

TEST_F(LongTextPainting, LeavesCharactersThatAreNotPutSideBySideToTheSystem) {
    for (const char16_t* odd : {u"1\t2", u"\u0301", u"\u05D0\u05D1", u"\U0001D7D8"}) {
        Show(odd + (u"\r\n" + LongText()));
        ScrollTo(0);
        ExpectRowsOfTheSystem();
        ScrollTo(1);
        ExpectOwnRows();
    }
}

// They are short enough for the control to wrap.
TEST_F(LongTextPainting, ShowsLinesThatTheControlHasWrapped) {
    std::u16string divisors = u"Divisors: 1";
    for (int32_t i = 2; divisors.size() < 290; i = i * 3 / 2 + 1) {
        const std::string number = std::to_string(i);
        divisors += u", " + std::u16string(number.begin(), number.end());
    }
    for (const std::u16string& line : {testing_support::Digits(100), divisors,
                                       u" " + testing_support::Digits(60) + u" * 2  *   3",
                                       u"1" + std::u16string(100, u' ') + u"2"}) {
        const std::u16string wrapped = line + u"\r\n";
        Show(wrapped + LongText() + wrapped + wrapped);
        const int last = LineCount();
        for (const int row : {0, 1, 2, 3, last - 12, last - 9, last}) {
            ScrollTo(row);
            ExpectOwnRows();
        }
        Show(LongText() + line);
        ScrollTo(LineCount());
        ExpectOwnRows();
    }
}

TEST_F(LongTextPainting, LeavesRowsThatTheControlHasElsewhereToTheSystem) {
    Show(LongText());
    for (const LRESULT answer : {LRESULT{1}, LRESULT{-1}}) {
        nextLine = answer;
        ExpectRowsOfTheSystem();
    }
    nextLine = 0;
    ExpectOwnRows();
}

TEST_F(LongTextPainting, PaintsWhatHasToBePaintedAnew) {
    Show(LongText());
    // The picture is without the caret.
    SetFocus(nullptr);
    const HDC dc = GetDC(field);
    RECT all = {};
    GetClientRect(field, &all);
    FillRect(dc, &all, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    RedrawWindow(field, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    EXPECT_EQ(systemPaintings, 0);
    EXPECT_FALSE(GetUpdateRect(field, nullptr, FALSE)) << "it would be painted for ever";
    const Picture shown(220, 120);
    BitBlt(shown.dc, 0, 0, all.right, all.bottom, dc, 0, 0, SRCCOPY);
    const Picture expected(220, 120);
    AskSystem(field, WM_PAINT, reinterpret_cast<WPARAM>(expected.dc), 0);
    EXPECT_TRUE(shown.HasInk());
    EXPECT_TRUE(shown.IsLike(expected));
    ReleaseDC(field, dc);
}

}  // namespace
}  // namespace tallymere
