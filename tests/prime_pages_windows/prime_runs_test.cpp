// Runs of both pages, and how they are stopped and closed.

#include "prime_pages/factor_run.h"
#include "prime_pages_windows/prime_pages_windows.h"

namespace tallymere::testing_support {
namespace {

constexpr PrimePage* Pages[] = {&primeNumbersPage, &primeFactorsPage};

class PrimeRunsTest : public PrimePagesTest {
protected:
    // A run that lasts longer than any test and has shown something.
    static void StartEndlessRun(const PrimePage& page) {
        WriteNumber(page, u"1");
        WriteInterval(page, page.kind->page.index == PagePrimeNumbers ? u"2147483647" : u"1000000");
        Click(page, page.kind->start);
        LoopUntil([&page] { return !Output(page).empty(); });
        EXPECT_EQ(page.run.states.phase, StopShown);
    }
};

TEST_F(PrimeRunsTest, FactorsOfOneNumberOrMany) {
    EXPECT_EQ(Run(primeFactorsPage, u"360", u""), u"360 = 2^3 * 3^2 * 5\r\n");
    EXPECT_EQ(Run(primeFactorsPage, u"1", u"4"),
              u"1 = Number has no prime factors!\r\n2 = 2\r\n3 = 3\r\n4 = 2^2\r\n");
}

TEST_F(PrimeRunsTest, FactorsInHexadecimalAndInGroups) {
    ChooseBase(primeFactorsPage, 16);
    EXPECT_EQ(Run(primeFactorsPage, u"ff", u""), u"FF = 3 * 5 * 11\r\n");
    EXPECT_EQ(Run(primeFactorsPage, u"400", u""), u"400 = 2^A\r\n")
        << "multiplicities are hexadecimal as well";
    settings.groupPrimes = true;
    EXPECT_EQ(Run(primeFactorsPage, u"20002", u""), u"2,0002 = 2 * 1,0001\r\n");
    ChooseBase(primeFactorsPage, 10);
    EXPECT_EQ(Run(primeFactorsPage, u"4014", u""), u"4,014 = 2 * 3^2 * 223\r\n");
}

TEST_F(PrimeRunsTest, DivisorsWithAndWithoutTheirNumber) {
    Click(primeFactorsPage, PrimeFactorsDivisors);
    EXPECT_EQ(Run(primeFactorsPage, u"12", u"2"),
              u"D 12 = { 1, 2, 3, 4, 6, 12 }\r\nD 13 = { 1, 13 }\r\n");
    Click(primeFactorsPage, PrimeFactorsShowCount);
    EXPECT_EQ(Run(primeFactorsPage, u"12", u""), u"D 12 = { 1, 2, 3, 4, 6, 12 }  [6]\r\n");
    Click(primeFactorsPage, PrimeFactorsFactors);
    EXPECT_EQ(Run(primeFactorsPage, u"12", u""), u"12 = 2^2 * 3\r\n");
}

TEST_F(PrimeRunsTest, TheListOfDivisorsHasItsRoomDuringTheRunAlone) {
    const uint64_t* before = *CurrentScratchStack().top;
    for (const bool divisors : {false, true}) {
        Click(primeFactorsPage, divisors ? PrimeFactorsDivisors : PrimeFactorsFactors);
        StartEndlessRun(primeFactorsPage);
        EXPECT_EQ(*CurrentScratchStack().top - before, divisors ? FactorDivisorWords : 0);
        Click(primeFactorsPage, PrimeFactorsStop);
        Finish(primeFactorsPage);
        EXPECT_EQ(*CurrentScratchStack().top, before);
    }
}

TEST_F(PrimeRunsTest, ACodeOfTheArithmeticIsReportedAsThatOfThePage) {
    EXPECT_EQ(primeNumbersPage.run.startTask->fallback, UiErrorPrimeNumberOverflow);
    EXPECT_EQ(primeFactorsPage.run.startTask->fallback, UiErrorPrimeFactorOverflow);
}

TEST_F(PrimeRunsTest, PrimesOfAnInterval) {
    for (const PrimeNumbersControl method : {PrimeNumbersExact, PrimeNumbersProbabilistic}) {
        Click(primeNumbersPage, method);
        EXPECT_EQ(Run(primeNumbersPage, u"1", u"10"),
                  u"Prime numbers from 1 to 10:\r\n{ 2, 3, 5, 7 }\r\nNumber of prime numbers: "
                  u"4\r\n");
    }
}

TEST_F(PrimeRunsTest, NextPrimeAndTest) {
    for (const PrimeNumbersControl method : {PrimeNumbersExact, PrimeNumbersProbabilistic}) {
        Click(primeNumbersPage, method);
        Click(primeNumbersPage, PrimeNumbersNextPrime);
        EXPECT_EQ(Run(primeNumbersPage, u"14", u""), u"Next prime number:\r\n17");
        Click(primeNumbersPage, PrimeNumbersTest);
        EXPECT_EQ(Run(primeNumbersPage, u"17", u""), u"17 is a prime number.\r\n");
        EXPECT_EQ(Run(primeNumbersPage, u"1", u""), u"1 is not a prime number.\r\n");
    }
}

TEST_F(PrimeRunsTest, SpeaksTheLanguageOfTheProgram) {
    MakeAgain(LanguageGerman);
    EXPECT_EQ(Run(primeNumbersPage, u"1", u"10"),
              u"Primzahlen von 1 bis 10:\r\n{ 2, 3, 5, 7 }\r\nAnzahl der Primzahlen: 4\r\n");
    EXPECT_EQ(Run(primeFactorsPage, u"1", u""), u"1 = Zahl hat keine Primfaktoren!\r\n");
    Click(primeFactorsPage, PrimeFactorsDivisors);
    EXPECT_EQ(Run(primeFactorsPage, u"5", u""), u"T 5 = { 1, 5 }\r\n");
}

TEST_F(PrimeRunsTest, AnIntervalBeyondAllNumbersEndsWithItsMessage) {
    const MessageBoxAnswer answer;
    EXPECT_EQ(Run(primeNumbersPage, u"340282366920938463463374607431768211455", u"2"),
              u"Prime numbers from 340282366920938463463374607431768211455");
    EXPECT_EQ(answer.boxes, 1);
    EXPECT_EQ(answer.text, "Overflow in prime number calculation!");
}

const struct {
    Language language;
    const char* caption;
    const char* invalidInput;
    const char* primeOverflow;
    const char* factorOverflow;
    const char* tooMany;
    const char* tooLong;
} MessagesOfLanguages[] = {
    {LanguageEnglish, "Error", "Invalid input \"12x\" !", "Overflow in prime number calculation!",
     "Overflow in prime factor calculation!",
     "The number \"5CF5677BB5F81C\" has to many prime factors or divisors!",
     "String buffer overflow!"},
    {LanguageGerman, "Fehler", "Ung\xFCltige Eingabe \"12x\" !",
     "\xDC"
     "berlauf bei der Primzahlberechnung!",
     "\xDC"
     "berlauf bei der Primfaktorberechnung!",
     "Die Zahl \"5CF5677BB5F81C\" hat zu viele Primfaktoren bzw. Teiler!",
     "Stringpuffer\xFC"
     "berlauf!"},
};

// The number behind the largest one is asked for, and one has more divisors than a list holds.
TEST_F(PrimeRunsTest, TellsWhatEndsARunInBothLanguages) {
    for (const auto& expected : MessagesOfLanguages) {
        MakeAgain(expected.language);
        const MessageBoxAnswer answer;
        int32_t boxes = 0;
        const auto expectMessage = [&](const char* text) {
            EXPECT_EQ(answer.boxes, ++boxes);
            EXPECT_EQ(answer.caption, expected.caption);
            EXPECT_EQ(answer.text, text);
        };
        for (const PrimePage* page : Pages) {
            EXPECT_EQ(Run(*page, u"12x", u"1"), u"");
            expectMessage(expected.invalidInput);
        }
        Click(primeNumbersPage, PrimeNumbersNextPrime);
        EXPECT_EQ(Run(primeNumbersPage, u"340282366920938463463374607431768211454", u""),
                  std::u16string(uiText.TextPrimesNextPrimeNumber2) + u"\r\n");
        expectMessage(expected.primeOverflow);
        WriteNumber(primeFactorsPage, u"");
        ChooseBase(primeFactorsPage, 16);
        EXPECT_EQ(Run(primeFactorsPage, std::u16string(31, u'F') + u"E", u"3"),
                  u"FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFE = 2 * 7FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF\r\n"
                  u"FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF = 3 * 5 * 11 * 101 * 281 * 10001 * 42F01 * "
                  u"663D81 * 3D30F19CD101\r\n");
        expectMessage(expected.factorOverflow);
        Click(primeFactorsPage, PrimeFactorsDivisors);
        EXPECT_EQ(Run(primeFactorsPage, u"5CF5677BB5F81C", u"2"), u"");
        expectMessage(expected.tooMany);
        SendMessageW(Control(primeFactorsPage, PrimeFactorsOutput), EM_SETLIMITTEXT, 20, 0);
        Run(primeFactorsPage, u"30", u"20");
        expectMessage(expected.tooLong);
    }
}

TEST_F(PrimeRunsTest, EachRunBeginsWithAnEmptyOutput) {
    Run(primeFactorsPage, u"12", u"");
    EXPECT_EQ(Run(primeFactorsPage, u"13", u""), u"13 = 13\r\n");
    Run(primeNumbersPage, u"12", u"5");
    Click(primeNumbersPage, PrimeNumbersTest);
    EXPECT_EQ(Run(primeNumbersPage, u"13", u""), u"13 is a prime number.\r\n");
}

TEST_F(PrimeRunsTest, APageThatRunsShutsOthersOut) {
    for (PrimePage* page : Pages) {
        StartEndlessRun(*page);
        for (int32_t i = 0; i < page->kind->page.count; i++) {
            const bool wasDisabled = page == &primeFactorsPage && i == PrimeFactorsShowCount;
            const bool isDisabled =
                i == page->kind->start || page->kind->isDisabledDuringRun(i) || wasDisabled;
            EXPECT_EQ(IsEnabled(*page, i), !isDisabled) << i;
        }
        EXPECT_FALSE(IsWindowEnabled(dialog));
        EXPECT_TRUE(IsWindowEnabled(page->window));
        Click(*page, page->kind->stop);
        Finish(*page);
        for (int32_t i = 0; i < page->kind->page.count; i++) {
            const bool isDisabled =
                i == page->kind->stop || (page == &primeFactorsPage && i == PrimeFactorsShowCount);
            EXPECT_EQ(IsEnabled(*page, i), !isDisabled) << i;
        }
    }
}

TEST_F(PrimeRunsTest, StopEndsARunWithoutAWordAndKeepsWhatIsThere) {
    const MessageBoxAnswer answer;
    for (PrimePage* page : Pages) {
        StartEndlessRun(*page);
        Click(*page, page->kind->stop);
        Finish(*page);
        EXPECT_NE(Output(*page), u"");
    }
    EXPECT_TRUE(Output(primeNumbersPage)
                    .starts_with(u"Prime numbers from 1 to 2147483647:\r\n{ 2, 3, 5, 7, 11"));
    EXPECT_EQ(Output(primeNumbersPage).find(u"Number of"), std::u16string::npos);
    EXPECT_TRUE(Output(primeFactorsPage).starts_with(u"1 = Number has no prime factors!\r\n2 = 2"));
    EXPECT_EQ(answer.boxes, 0);
}

TEST_F(PrimeRunsTest, APageThatWasStoppedListensAgainAtOnce) {
    for (PrimePage* page : Pages) {
        StartEndlessRun(*page);
        Click(*page, page->kind->stop);
        LoopUntil([page] { return page->run.states.phase != StopShown; });
        EXPECT_TRUE(IsEnabled(*page, page->kind->start));
        EXPECT_TRUE(IsWindowEnabled(dialog));
        Finish(*page);
    }
}

TEST_F(PrimeRunsTest, ClosingAPageStopsItsRun) {
    const MessageBoxAnswer answer;
    for (PrimePage* page : Pages) {
        for (const bool byButton : {true, false}) {
            ShowWindow(page->window, SW_SHOW);
            StartEndlessRun(*page);
            if (byButton) {
                Click(*page, page->kind->page.close);
            } else {
                SendMessageW(page->window, WM_CLOSE, 0, 0);
            }
            EXPECT_FALSE(IsWindowVisible(page->window));
            Finish(*page);
            EXPECT_TRUE(IsWindowEnabled(dialog));
        }
    }
    EXPECT_EQ(answer.boxes, 0);
}

TEST_F(PrimeRunsTest, TextThatTheOutputCannotHoldEndsTheRunWithItsMessage) {
    for (PrimePage* page : Pages) {
        const MessageBoxAnswer answer;
        SendMessageW(Control(*page, page->kind->output), EM_SETLIMITTEXT, 200'000, 0);
        WriteNumber(*page, u"1");
        WriteInterval(*page, u"1000000");
        Click(*page, page->kind->start);
        Finish(*page);
        EXPECT_EQ(answer.boxes, 1);
        EXPECT_EQ(answer.text, "String buffer overflow!");
        EXPECT_GT(Output(*page).size(), 100'000u);
    }
}

TEST_F(PrimeRunsTest, ManyPrimesArriveWhole) {
    const std::u16string output = Run(primeNumbersPage, u"1", u"1000000");
    EXPECT_TRUE(
        output.ends_with(u"999961, 999979, 999983 }\r\nNumber of prime numbers: 78498\r\n"));
    size_t count = 0;
    for (const char16_t c : output) {
        count += c == u',';
    }
    EXPECT_EQ(count, 78'497u);
    EXPECT_EQ(output.find(u"\r\r"), std::u16string::npos);
}

}  // namespace
}  // namespace tallymere::testing_support
