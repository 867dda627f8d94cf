// Both pages as they are made: every control, its place, its text, what is chosen and enabled.

#include "layout/control_kinds.h"
#include "prime_pages_windows/prime_pages_windows.h"

namespace tallymere::testing_support {
namespace {

class PrimeFormTest : public PrimePagesTest {
protected:
    static const char* ClassOf(FormControlKind kind) {
        switch (kind) {
            case FormStatic:
                return "static";
            case FormField:
            case FormMultilineField:
                return "edit";
            case FormDigitCount:
                return "digitcountcontrol";
            case FormNumberBase:
                return "numberbasecontrol";
            default:
                return "button";
        }
    }
    static std::string LowerClassName(HWND window) {
        char name[64];
        GetClassNameA(window, name, 64);
        CharLowerA(name);
        return name;
    }
    static DWORD Style(const PrimePage& page, int32_t control) {
        return WindowStyle(Control(page, control));
    }

    static void ExpectControls(const PrimePage& page, LayoutSize client) {
        for (int32_t i = 0; i < page.kind->page.count; i++) {
            SCOPED_TRACE(i);
            const FormControl& row = page.kind->page.form[i];
            const HWND control = Control(page, i);
            EXPECT_EQ(LowerClassName(control), ClassOf(row.kind));
            EXPECT_EQ(GetParent(control),
                      row.parent == FormWindow ? page.window : Control(page, row.parent));
            EXPECT_EQ(PlaceInParent(control), ToScreenPixels(page.kind->page.place(i, client)));
            if (row.text != nullptr && row.kind != FormDigitCount && row.kind != FormNumberBase) {
                EXPECT_EQ(WholeText(control), uiText.*row.text);
            }
        }
        EXPECT_EQ(WholeText(DigitCountLabel(Control(page, page.kind->digits))),
                  uiText.TextCtlDigits);
        EXPECT_EQ(WholeText(NumberBaseLabel(Control(page, page.kind->base))), uiText.TextCtlBase);
    }
};

TEST_F(PrimeFormTest, HasEveryControlInItsPlaceInBothLanguages) {
    for (const Language language : {LanguageEnglish, LanguageGerman}) {
        for (const int32_t dpi : {96, 120, 144}) {
            SCOPED_TRACE(dpi);
            MakeAgain(language, dpi);
            EXPECT_EQ(ClientSize(primeNumbersPage.window),
                      (LayoutSize{ToScreenPixels(650), ToScreenPixels(368)}));
            EXPECT_EQ(ClientSize(primeFactorsPage.window),
                      (LayoutSize{ToScreenPixels(562), ToScreenPixels(316)}));
            ExpectControls(primeNumbersPage, PrimeNumbersSize);
            ExpectControls(primeFactorsPage, PrimeFactorsSize);
        }
    }
    EXPECT_EQ(WholeText(primeNumbersPage.window), u"Primzahlen");
    EXPECT_EQ(WholeText(primeFactorsPage.window), u"Primfaktoren und Teiler");
    EXPECT_EQ(Text(primeNumbersPage, PrimeNumbersExact), u"exakt (max. 38 bis 39 Dezimalziffern)");
    MakeAgain(LanguageEnglish);
    EXPECT_EQ(WholeText(primeNumbersPage.window), u"Prime numbers");
    EXPECT_EQ(WholeText(primeFactorsPage.window), u"Prime factors and divisors");
    EXPECT_EQ(Text(primeNumbersPage, PrimeNumbersExact), u"exact (max. 38 to 39 decimal digits)");
    EXPECT_EQ(Text(primeNumbersPage, PrimeNumbersProbabilistic),
              u"probabilistic (max. 1253 decimal digits)");
    EXPECT_EQ(pageWindows[PagePrimeNumbers], primeNumbersPage.window);
    EXPECT_EQ(pageWindows[PagePrimeFactors], primeFactorsPage.window);
}

TEST_F(PrimeFormTest, BeginsWithItsChoices) {
    EXPECT_TRUE(IsChecked(primeNumbersPage, PrimeNumbersIntervalMode));
    EXPECT_FALSE(IsChecked(primeNumbersPage, PrimeNumbersNextPrime));
    EXPECT_FALSE(IsChecked(primeNumbersPage, PrimeNumbersTest));
    EXPECT_TRUE(IsChecked(primeNumbersPage, PrimeNumbersExact));
    EXPECT_FALSE(IsChecked(primeNumbersPage, PrimeNumbersProbabilistic));
    EXPECT_EQ(IntervalOf(primeNumbersPage), u"100");
    EXPECT_TRUE(IsChecked(primeFactorsPage, PrimeFactorsFactors));
    EXPECT_FALSE(IsChecked(primeFactorsPage, PrimeFactorsDivisors));
    EXPECT_FALSE(IsChecked(primeFactorsPage, PrimeFactorsShowCount));
    EXPECT_EQ(IntervalOf(primeFactorsPage), u"");
    for (const PrimePage* page : {&primeNumbersPage, &primeFactorsPage}) {
        EXPECT_EQ(NumberOf(*page), u"");
        EXPECT_EQ(Output(*page), u"");
        EXPECT_EQ(DigitsOf(*page), u"0 ");
        EXPECT_EQ(SelectedNumberBase(Control(*page, page->kind->base)), 10);
        EXPECT_FALSE(IsWindowVisible(page->window));
        for (int32_t i = 0; i < page->kind->page.count; i++) {
            const bool isDisabled =
                i == page->kind->stop || (page == &primeFactorsPage && i == PrimeFactorsShowCount);
            EXPECT_EQ(IsEnabled(*page, i), !isDisabled) << i;
        }
    }
}

TEST_F(PrimeFormTest, CanBeResizedAndStandsInTheMiddle) {
    ExpectToBeResizableAndInTheMiddle();
}

TEST_F(PrimeFormTest, IsGoneWithItsWindow) {
    ExpectToBeGoneWithItsWindow();
}

TEST_F(PrimeFormTest, FieldsAreOfOneLineOrOfMany) {
    EXPECT_TRUE(Style(primeNumbersPage, PrimeNumbersNumber) & ES_MULTILINE);
    EXPECT_TRUE(Style(primeNumbersPage, PrimeNumbersNumber) & WS_VSCROLL);
    EXPECT_FALSE(Style(primeFactorsPage, PrimeFactorsNumber) & ES_MULTILINE);
    EXPECT_TRUE(Style(primeFactorsPage, PrimeFactorsNumber) & ES_AUTOHSCROLL);
    for (const PrimePage* page : {&primeNumbersPage, &primeFactorsPage}) {
        EXPECT_TRUE(Style(*page, page->kind->output) & ES_MULTILINE);
        EXPECT_TRUE(Style(*page, page->kind->output) & WS_VSCROLL);
        EXPECT_FALSE(Style(*page, page->kind->interval) & ES_MULTILINE);
    }
}

TEST_F(PrimeFormTest, OffersTheBases10And16) {
    for (const PrimePage* page : {&primeNumbersPage, &primeFactorsPage}) {
        const HWND list = NumberBaseList(Control(*page, page->kind->base));
        ASSERT_EQ(SendMessageW(list, CB_GETCOUNT, 0, 0), 2);
        for (const auto& [row, text] : {std::pair(0, L"10"), std::pair(1, L"16")}) {
            wchar_t shown[16];
            SendMessageW(list, CB_GETLBTEXT, static_cast<WPARAM>(row),
                         reinterpret_cast<LPARAM>(shown));
            EXPECT_EQ(std::wstring(shown), text);
        }
    }
}

TEST_F(PrimeFormTest, FillsItsClientArea) {
    for (const int32_t dpi : {96, 120}) {
        MakeAgain(LanguageEnglish, dpi);
        for (const PrimePage* page : {&primeNumbersPage, &primeFactorsPage}) {
            for (const LayoutSize client : {LayoutSize{800, 500}, page->kind->page.size}) {
                Resize(*page, client);
                ExpectControls(*page, client);
            }
        }
    }
}

// In such an area some controls come to stand where the form says, though they stood elsewhere.
TEST_F(PrimeFormTest, FillsAClientAreaInWhichItsLayoutIsThatOfTheForm) {
    for (const PrimePage* page : {&primeNumbersPage, &primeFactorsPage}) {
        const FormControl& output = page->kind->page.form[page->kind->output];
        const FormControl& start = page->kind->page.form[page->kind->start];
        const int32_t room = -page->kind->page.place(page->kind->start, {400, 0}).y;
        const LayoutSize client = {400, room + start.place.y};
        ASSERT_EQ(page->kind->page.place(page->kind->start, client), start.place);
        Resize(*page, {800, 500});
        Resize(*page, client);
        ASSERT_EQ(ClientSize(page->window), client);
        EXPECT_EQ(PlaceInParent(Control(*page, page->kind->start)), ToScreenPixels(start.place));
        EXPECT_EQ(PlaceInParent(Control(*page, page->kind->output)).y, output.place.y);
    }
}

TEST_F(PrimeFormTest, AMinimisedPageIsNotLaidOut) {
    for (const PrimePage* page : {&primeNumbersPage, &primeFactorsPage}) {
        ExpectNotToBeLaidOutWhileMinimised(*page, Control(*page, page->kind->output));
    }
}

TEST_F(PrimeFormTest, ControlsOfAGroupLeaveItsFrameFree) {
    for (const PrimePage* page : {&primeNumbersPage, &primeFactorsPage}) {
        for (const int32_t index : {page->kind->digits, page->kind->base}) {
            const HWND control = Control(*page, index);
            const HRGN region = CreateRectRgn(0, 0, 0, 0);
            RECT shown = {};
            ASSERT_EQ(GetWindowRgn(control, region), SIMPLEREGION);
            GetRgnBox(region, &shown);
            DeleteObject(region);
            const LayoutRect place = PlaceInParent(control);
            const LayoutSize group = ClientSize(GetParent(control));
            EXPECT_LT(place.x + shown.right, group.width - 1);
            EXPECT_LT(place.y + shown.bottom, group.height - 1);
            // What is in it is still seen.
            for (HWND child = GetWindow(control, GW_CHILD); child != nullptr;
                 child = GetWindow(child, GW_HWNDNEXT)) {
                const LayoutRect inner = PlaceInParent(child);
                EXPECT_LE(inner.x + inner.width, shown.right);
                EXPECT_LE(inner.y + inner.height, shown.bottom);
            }
        }
    }
}

TEST_F(PrimeFormTest, TheNumberOfDivisorsIsAskedForWithDivisorsAlone) {
    Click(primeFactorsPage, PrimeFactorsDivisors);
    EXPECT_TRUE(IsEnabled(primeFactorsPage, PrimeFactorsShowCount));
    Click(primeFactorsPage, PrimeFactorsShowCount);
    EXPECT_TRUE(IsChecked(primeFactorsPage, PrimeFactorsShowCount));
    Click(primeFactorsPage, PrimeFactorsFactors);
    EXPECT_FALSE(IsEnabled(primeFactorsPage, PrimeFactorsShowCount));
    EXPECT_TRUE(IsChecked(primeFactorsPage, PrimeFactorsShowCount)) << "it keeps its mark";
}

TEST_F(PrimeFormTest, TabAndArrowsReachTheButtonsOfAGroupTogether) {
    ShowWindow(primeNumbersPage.window, SW_SHOW);
    const HWND mode = Control(primeNumbersPage, PrimeNumbersIntervalMode);
    SetFocus(mode);
    PressKey(mode, VK_TAB);
    EXPECT_EQ(GetFocus(), Control(primeNumbersPage, PrimeNumbersInterval));
    PressKey(GetFocus(), VK_TAB, VK_SHIFT);
    EXPECT_EQ(GetFocus(), mode);
    PressKey(mode, VK_DOWN);
    EXPECT_TRUE(IsChecked(primeNumbersPage, PrimeNumbersNextPrime));
    EXPECT_FALSE(IsChecked(primeNumbersPage, PrimeNumbersIntervalMode));
    PressKey(GetFocus(), VK_DOWN);
    EXPECT_TRUE(IsChecked(primeNumbersPage, PrimeNumbersTest));
    EXPECT_FALSE(IsChecked(primeNumbersPage, PrimeNumbersNextPrime));
}

TEST_F(PrimeFormTest, TabGoesThroughThePrimeFactorsPageInTheOrderOfItsControls) {
    const PrimePage& page = primeFactorsPage;
    const HWND base = NumberBaseList(Control(page, PrimeFactorsBase));
    // Stop is disabled, and so is the box while Divisors is not chosen.
    ExpectTabOrder(page,
                   {Control(page, PrimeFactorsNumber), base, Control(page, PrimeFactorsFactors),
                    Control(page, PrimeFactorsInterval), Control(page, PrimeFactorsOutput),
                    Control(page, PrimeFactorsStart), Control(page, PrimeFactorsClose)});
    Click(page, PrimeFactorsDivisors);
    ExpectTabOrder(page, {Control(page, PrimeFactorsNumber), base,
                          Control(page, PrimeFactorsDivisors), Control(page, PrimeFactorsShowCount),
                          Control(page, PrimeFactorsInterval), Control(page, PrimeFactorsOutput),
                          Control(page, PrimeFactorsStart), Control(page, PrimeFactorsClose)});
}

TEST_F(PrimeFormTest, CloseHidesThePage) {
    for (const PrimePage* page : {&primeNumbersPage, &primeFactorsPage}) {
        ExpectCloseToHide(*page, Control(*page, page->kind->page.close));
    }
}

}  // namespace
}  // namespace tallymere::testing_support
