// The fields of both pages: the count of digits, the base, and what Start makes of their texts.

#include <algorithm>

#include "prime_pages_windows/prime_pages_windows.h"
#include "toolkit/long_text_field.h"

namespace tallymere::testing_support {
namespace {

constexpr PrimePage* Pages[] = {&primeNumbersPage, &primeFactorsPage};

std::u16string Digits(size_t length) {
    return std::u16string(length, u'7');
}

// 2^128 - 1 and the number behind it.
const std::u16string WidestOfTwoLimbs = u"340282366920938463463374607431768211455";
const std::u16string TooWideForTwoLimbs = u"340282366920938463463374607431768211456";

class PrimeFieldsTest : public PrimePagesTest {
protected:
    // As a user does who selects all and pastes.
    static void ReplaceNumber(const PrimePage& page, const std::u16string& text) {
        const HWND field = Control(page, page.kind->number);
        SendMessageW(field, EM_SETSEL, 0, -1);
        SendMessageW(field, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
    }

    static std::string InvalidInput(const std::string& text) {
        return "Invalid input \"" + text + "\" !";
    }

    // Start with these fields shows one message, starts no run and leaves the fields.
    static void ExpectInvalid(const PrimePage& page, const std::u16string& number,
                              const std::u16string& interval, const std::string& invalid) {
        const MessageBoxAnswer answer;
        Write(page, page.kind->output, u"before");
        WriteNumber(page, number);
        WriteInterval(page, interval);
        Click(page, page.kind->start);
        EXPECT_EQ(page.run.states.phase, PageIdle);
        EXPECT_EQ(answer.boxes, 1);
        EXPECT_EQ(answer.caption, "Error");
        EXPECT_EQ(answer.text, InvalidInput(invalid));
        EXPECT_EQ(NumberOf(page), number);
        EXPECT_EQ(IntervalOf(page), interval);
        EXPECT_EQ(Output(page), u"");
        EXPECT_TRUE(IsEnabled(page, page.kind->start));
        EXPECT_FALSE(IsEnabled(page, page.kind->stop));
    }
};

TEST_F(PrimeFieldsTest, DigitsAndLettersAreCountedAsTheyAreWritten) {
    for (const PrimePage* page : Pages) {
        const struct {
            const char16_t* text;
            const char16_t* count;
        } cases[] = {{u"7", u"1 "},       {u"1,234", u"4 "},  {u" 12 34 ", u"4 "},
                     {u"FF zaZA", u"6 "}, {u"-1.5e7", u"4 "}, {u"\u00E4\u0660 @[`{/:", u"0 "},
                     {u"", u"0 "}};
        for (const auto& [text, count] : cases) {
            ReplaceNumber(*page, text);
            EXPECT_EQ(DigitsOf(*page), count);
        }
        SendMessageW(Control(*page, page->kind->number), WM_CHAR, u'5', 1);
        EXPECT_EQ(DigitsOf(*page), u"1 ");
        WriteInterval(*page, u"123");
        EXPECT_EQ(DigitsOf(*page), u"1 ") << "of the number alone";
    }
}

TEST_F(PrimeFieldsTest, LongTextsArriveWhole) {
    for (const PrimePage* page : Pages) {
        for (const size_t length : {1'252u, 10'000u}) {
            ReplaceNumber(*page, Digits(length));
            EXPECT_TRUE(NumberOf(*page) == Digits(length)) << length;
            const std::string count = std::to_string(length) + " ";
            EXPECT_EQ(DigitsOf(*page), std::u16string(count.begin(), count.end()));
        }
    }
}

TEST_F(PrimeFieldsTest, AnotherBaseWritesBothFieldsAnew) {
    for (PrimePage* page : Pages) {
        WriteNumber(*page, u"1,000,000");
        WriteInterval(*page, u"255");
        ChooseBase(*page, 16);
        EXPECT_EQ(NumberOf(*page), u"F4240");
        EXPECT_EQ(IntervalOf(*page), u"FF");
        EXPECT_EQ(DigitsOf(*page), u"5 ");
        settings.groupPrimes = true;
        ChooseBase(*page, 10);
        EXPECT_EQ(NumberOf(*page), u"1,000,000");
        ChooseBase(*page, 16);
        EXPECT_EQ(NumberOf(*page), u"F,4240");
        EXPECT_EQ(IntervalOf(*page), u"FF");
        settings.groupPrimes = false;
        ChooseBase(*page, 10);
        EXPECT_EQ(NumberOf(*page), u"1000000");
    }
}

TEST_F(PrimeFieldsTest, AnotherBaseLeavesBlankFieldsAlone) {
    const MessageBoxAnswer answer;
    for (PrimePage* page : Pages) {
        for (const char16_t* blank : {u"", u"  "}) {
            WriteNumber(*page, blank);
            WriteInterval(*page, blank);
            ChooseBase(*page, 16);
            EXPECT_EQ(page->base, 16);
            EXPECT_EQ(NumberOf(*page), blank);
            EXPECT_EQ(IntervalOf(*page), blank);
            ChooseBase(*page, 10);
        }
    }
    EXPECT_EQ(answer.boxes, 0);
}

TEST_F(PrimeFieldsTest, TheSameBaseAgainChangesNothing) {
    const MessageBoxAnswer answer;
    for (PrimePage* page : Pages) {
        WriteNumber(*page, u"no number");
        WriteInterval(*page, u" 0012");
        ChooseBase(*page, 10);
        EXPECT_EQ(NumberOf(*page), u"no number");
        EXPECT_EQ(IntervalOf(*page), u" 0012");
    }
    EXPECT_EQ(answer.boxes, 0);
}

TEST_F(PrimeFieldsTest, AFieldThatCannotBeReadStaysAndTheBaseIsTakenOver) {
    for (PrimePage* page : Pages) {
        const MessageBoxAnswer answer;
        WriteNumber(*page, u"12x");
        WriteInterval(*page, u"16");
        ChooseBase(*page, 16);
        EXPECT_EQ(answer.boxes, 1);
        EXPECT_EQ(answer.text, InvalidInput("12x"));
        EXPECT_EQ(NumberOf(*page), u"12x");
        EXPECT_EQ(IntervalOf(*page), u"10");
        EXPECT_EQ(page->base, 16);
        WriteNumber(*page, u"1F");
        WriteInterval(*page, u"-");
        ChooseBase(*page, 10);
        EXPECT_EQ(answer.boxes, 2);
        EXPECT_EQ(answer.text, InvalidInput("-"));
        EXPECT_EQ(NumberOf(*page), u"31");
        EXPECT_EQ(IntervalOf(*page), u"-");
    }
}

TEST_F(PrimeFieldsTest, TheWidthOfAChangeOfTheBaseIsThatOfThePage) {
    const MessageBoxAnswer answer;
    WriteNumber(primeFactorsPage, WidestOfTwoLimbs);
    ChooseBase(primeFactorsPage, 16);
    EXPECT_EQ(NumberOf(primeFactorsPage), std::u16string(32, u'F'));
    EXPECT_EQ(answer.boxes, 0);
    ChooseBase(primeFactorsPage, 10);
    WriteNumber(primeFactorsPage, TooWideForTwoLimbs);
    ChooseBase(primeFactorsPage, 16);
    EXPECT_EQ(answer.boxes, 1);
    EXPECT_EQ(NumberOf(primeFactorsPage), TooWideForTwoLimbs);

    // Exact is chosen, whose numbers have two limbs.
    WriteNumber(primeNumbersPage, TooWideForTwoLimbs);
    ChooseBase(primeNumbersPage, 16);
    EXPECT_EQ(NumberOf(primeNumbersPage), u"1" + std::u16string(32, u'0'));
    WriteNumber(primeNumbersPage, std::u16string(65 * 16, u'F'));
    ChooseBase(primeNumbersPage, 10);
    EXPECT_EQ(answer.boxes, 1);
    EXPECT_EQ(NumberOf(primeNumbersPage).size(), 1'253u);
    WriteNumber(primeNumbersPage, Digits(1'254));
    ChooseBase(primeNumbersPage, 16);
    EXPECT_EQ(answer.boxes, 2);
    EXPECT_EQ(NumberOf(primeNumbersPage), Digits(1'254));
}

TEST_F(PrimeFieldsTest, AChangeOfTheBaseLeavesTheNumbersOfOthersAlone) {
    const NumberSetupScope scope({.type = NumberTypeRational, .digits = 33});
    for (PrimePage* page : Pages) {
        WriteNumber(*page, u"12");
        ChooseBase(*page, 16);
        EXPECT_EQ(CurrentNumberSetup().type, NumberTypeRational);
        EXPECT_EQ(CurrentNumberSetup().digits, 33);
    }
}

TEST_F(PrimeFieldsTest, ANumberThatIsNoneStartsNothing) {
    for (PrimePage* page : Pages) {
        for (const char* number : {"", "0", "-1", "1.5", "12a"}) {
            const std::string text = number;
            ExpectInvalid(*page, std::u16string(text.begin(), text.end()), u"5", text);
        }
        ExpectInvalid(*page, TooWideForTwoLimbs, u"5", "340282366920938463463374607431768211456");
        WriteNumber(*page, u"");
        ChooseBase(*page, 16);
        ExpectInvalid(*page, u"12G", u"5", "12G");
    }
}

TEST_F(PrimeFieldsTest, AVeryLongNumberIsInvalidAndNotCut) {
    Click(primeNumbersPage, PrimeNumbersProbabilistic);
    const struct {
        PrimePage* page;
        size_t zeros;
    } cases[] = {{&primeFactorsPage, 9'999},
                 {&primeNumbersPage, 9'999},
                 {&primeNumbersPage, PrimeFieldCapacity}};
    for (const auto& [page, zeros] : cases) {
        const MessageBoxAnswer answer;
        const std::u16string number = u"1" + std::u16string(zeros, u'0');
        WriteNumber(*page, number);
        Click(*page, page->kind->start);
        EXPECT_EQ(page->run.states.phase, PageIdle);
        EXPECT_EQ(answer.boxes, 1);
        EXPECT_TRUE(NumberOf(*page) == number);
        ChooseBase(*page, 26 - page->base);
        EXPECT_EQ(answer.boxes, 2);
        EXPECT_TRUE(NumberOf(*page) == number);
    }
    // Its end, which is not read, may not make a number of it.
    const MessageBoxAnswer answer;
    const std::u16string number = std::u16string(PrimeFieldCapacity, u'0') + u"12";
    WriteNumber(primeNumbersPage, number);
    Click(primeNumbersPage, PrimeNumbersStart);
    EXPECT_EQ(answer.boxes, 1);
    EXPECT_TRUE(NumberOf(primeNumbersPage) == number);
}

TEST_F(PrimeFieldsTest, TheLongestTextThatIsReadIsReadWhole) {
    const MessageBoxAnswer answer;
    const std::u16string number = std::u16string(PrimeFieldCapacity - 2, u'0') + u"12";
    Click(primeNumbersPage, PrimeNumbersTest);
    EXPECT_EQ(Run(primeNumbersPage, number, u""), u"12 is not a prime number.\r\n");
    EXPECT_EQ(answer.boxes, 0);
}

// A field of many lines stands in for that of the interval: under Wine one of a single line takes
// seconds for such a text.
TEST_F(PrimeFieldsTest, AVeryLongIntervalIsInvalidAndNotCut) {
    const std::u16string interval = std::u16string(PrimeFieldCapacity - 1, u'0') + u"12";
    for (PrimePage* page : Pages) {
        const MessageBoxAnswer answer;
        page->controls[page->kind->interval] =
            CreateLongTextField(page->window, {0, 0, 200, 60}, u"");
        WriteNumber(*page, u"7");
        WriteInterval(*page, interval);
        Click(*page, page->kind->start);
        EXPECT_EQ(page->run.states.phase, PageIdle);
        EXPECT_EQ(answer.boxes, 1);
        EXPECT_EQ(Output(*page), u"");
        ChooseBase(*page, 16);
        EXPECT_EQ(answer.boxes, 2);
        EXPECT_TRUE(IntervalOf(*page) == interval);
    }
}

TEST_F(PrimeFieldsTest, AnIntervalThatIsNoneStartsNothing) {
    for (const char* interval : {"", "0", "ten", "2147483648"}) {
        const std::string text = interval;
        ExpectInvalid(primeNumbersPage, u"7", std::u16string(text.begin(), text.end()), text);
    }
    for (const char* interval : {"0", "ten", "1000001", "18446744073709551617"}) {
        const std::string text = interval;
        ExpectInvalid(primeFactorsPage, u"7", std::u16string(text.begin(), text.end()), text);
    }
}

TEST_F(PrimeFieldsTest, TheNumberIsToldBeforeTheInterval) {
    for (PrimePage* page : Pages) {
        ExpectInvalid(*page, u"a number", u"an interval", "a number");
    }
}

TEST_F(PrimeFieldsTest, ABlankIntervalIsOneNumberOnThePrimeFactorsPageAlone) {
    for (const char16_t* blank : {u"", u"  "}) {
        EXPECT_EQ(Run(primeFactorsPage, u"12", blank), u"12 = 2^2 * 3\r\n");
        EXPECT_EQ(IntervalOf(primeFactorsPage), blank);
    }
}

TEST_F(PrimeFieldsTest, OtherModesDoNotLookAtTheInterval) {
    Click(primeNumbersPage, PrimeNumbersNextPrime);
    EXPECT_EQ(Run(primeNumbersPage, u"14", u"no interval"), u"Next prime number:\r\n17");
    Click(primeNumbersPage, PrimeNumbersTest);
    EXPECT_EQ(Run(primeNumbersPage, u"14", u""), u"14 is not a prime number.\r\n");
    EXPECT_EQ(IntervalOf(primeNumbersPage), u"");
}

TEST_F(PrimeFieldsTest, StartWritesNumbersInTheirNormalForm) {
    Run(primeFactorsPage, u"  0,012", u" 0,0,3 ");
    EXPECT_EQ(NumberOf(primeFactorsPage), u"12");
    EXPECT_EQ(IntervalOf(primeFactorsPage), u"3");
    settings.groupPrimes = true;
    Run(primeFactorsPage, u"1000", u"01");
    EXPECT_EQ(NumberOf(primeFactorsPage), u"1,000");
    EXPECT_EQ(DigitsOf(primeFactorsPage), u"4 ");
    Run(primeNumbersPage, u"1000", u" 010");
    EXPECT_EQ(NumberOf(primeNumbersPage), u"1,000");
    EXPECT_EQ(IntervalOf(primeNumbersPage), u" 010") << "the page leaves its interval as it is";
    ChooseBase(primeFactorsPage, 16);
    Run(primeFactorsPage, u"fffff", u"1");
    EXPECT_EQ(NumberOf(primeFactorsPage), u"F,FFFF");
}

TEST_F(PrimeFieldsTest, AnIntervalIsReadInTheBaseOfThePage) {
    for (PrimePage* page : Pages) {
        ChooseBase(*page, 16);
    }
    EXPECT_EQ(Run(primeNumbersPage, u"1", u"a"),
              u"Prime numbers from 1 to A:\r\n{ 2, 3, 5, 7 }\r\nNumber of prime numbers: 4\r\n");
    const std::u16string output = Run(primeFactorsPage, u"10", u"0b");
    EXPECT_TRUE(output.ends_with(u"19 = 5^2\r\n1A = 2 * D\r\n"));
    EXPECT_EQ(IntervalOf(primeFactorsPage), u"B");
    ExpectInvalid(primeFactorsPage, u"7", u"F4241", "F4241");
    ExpectInvalid(primeNumbersPage, u"7", u"80000000", "80000000");
}

// Its end, which is not read, may not make a number of it.
const std::u16string TooLongInterval = std::u16string(PrimeFieldCapacity, u'0') + u"5";

// Says that this is the text of a field. A real one would take its time for it.
LRESULT TellTooLongInterval(HWND, UINT message, WPARAM wParam, LPARAM lParam, bool& callDefault) {
    const size_t length = TooLongInterval.size();
    callDefault = message != WM_GETTEXTLENGTH && message != WM_GETTEXT;
    if (message != WM_GETTEXT) {
        return static_cast<LRESULT>(length);
    }
    auto* text = reinterpret_cast<char16_t*>(lParam);
    const size_t count = TooLongInterval.copy(text, std::min<size_t>(wParam - 1, length));
    text[count] = 0;
    return static_cast<LRESULT>(count);
}

TEST_F(PrimeFieldsTest, AnIntervalThatIsTooLongToBeReadIsInvalidAndNotCut) {
    for (PrimePage* page : Pages) {
        const MessageBoxAnswer answer;
        WriteNumber(*page, u"7");
        SetControlHandler(Control(*page, page->kind->interval), TellTooLongInterval);
        Click(*page, page->kind->start);
        EXPECT_EQ(page->run.states.phase, PageIdle);
        EXPECT_EQ(answer.boxes, 1);
        EXPECT_EQ(answer.text.substr(0, 20), "Invalid input \"00000");
        EXPECT_EQ(Output(*page), u"");
        ChooseBase(*page, 16);
        EXPECT_EQ(answer.boxes, 2);
        EXPECT_TRUE(IntervalOf(*page) == TooLongInterval);
    }
}

// As an arrow key does in the list while it is closed.
TEST_F(PrimeFieldsTest, StartReadsTheFieldsInTheBaseThatIsShown) {
    for (PrimePage* page : Pages) {
        const HWND base = Control(*page, page->kind->base);
        WriteNumber(*page, u"10");
        WriteInterval(*page, u"10");
        SendMessageW(NumberBaseList(base), WM_KEYDOWN, VK_DOWN, 1);
        SendMessageW(NumberBaseList(base), WM_KEYUP, VK_DOWN, 0xC0000001);
        ASSERT_EQ(SelectedNumberBase(base), 16);
        EXPECT_EQ(page->base, 10) << "the page does not know of it";
        Click(*page, page->kind->start);
        Finish(*page);
        EXPECT_EQ(page->base, 16);
        EXPECT_EQ(NumberOf(*page), u"10");
        // From here on the base is that of the page.
        ChooseBase(*page, 10);
        EXPECT_EQ(NumberOf(*page), u"16");
        EXPECT_EQ(IntervalOf(*page), u"16");
    }
    EXPECT_EQ(Output(primeNumbersPage),
              u"Prime numbers from 10 to 1F:\r\n{ 11, 13, 17, 1D, 1F }"
              u"\r\nNumber of prime numbers: 5\r\n");
    EXPECT_TRUE(Output(primeFactorsPage).starts_with(u"10 = 2^4\r\n11 = 11\r\n"));
    EXPECT_TRUE(Output(primeFactorsPage).ends_with(u"1F = 1F\r\n"));
}

TEST_F(PrimeFieldsTest, TheProbabilisticMethodAloneTakesWideNumbers) {
    const std::u16string wide = u"1" + std::u16string(1'252, u'0');
    Click(primeNumbersPage, PrimeNumbersTest);
    {
        const MessageBoxAnswer answer;
        WriteNumber(primeNumbersPage, wide);
        Click(primeNumbersPage, PrimeNumbersStart);
        EXPECT_EQ(answer.boxes, 1);
        EXPECT_EQ(answer.text.substr(0, 20), "Invalid input \"10000");
    }
    Click(primeNumbersPage, PrimeNumbersProbabilistic);
    EXPECT_EQ(Run(primeNumbersPage, wide, u""), wide + u" is not a prime number.\r\n");
}

}  // namespace
}  // namespace tallymere::testing_support
