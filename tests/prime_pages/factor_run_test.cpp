#include "prime_pages/factor_run.h"

#include <algorithm>
#include <atomic>
#include <string_view>
#include <thread>
#include <vector>

#include "factor_run_testing.h"
#include "prime_pages/run_progress.h"

namespace tallymere {
namespace {

using namespace testing_support;

class FactorRunTexts : public FactorRunTest {};

TEST_F(FactorRunTexts, OfFactors) {
    EXPECT_EQ(Run(Factors, "1"), Sends(u"1 = Number has no prime factors!\r\n"));
    EXPECT_EQ(Run(Factors, "2"), Sends(u"2 = 2\r\n"));
    EXPECT_EQ(Run(Factors, "4"), Sends(u"4 = 2^2\r\n"));
    EXPECT_EQ(Run(Factors, "360"), Sends(u"360 = 2^3 * 3^2 * 5\r\n"));
    EXPECT_EQ(Run(Factors, "2^127"), Sends(u"170141183460469231731687303715884105728 = 2^127\r\n"));
    EXPECT_EQ(Run(Factors, "2^127-1"), Sends(u"170141183460469231731687303715884105727 = "
                                             u"170141183460469231731687303715884105727\r\n"));
}

TEST_F(FactorRunTexts, OfDivisors) {
    EXPECT_EQ(Run(Divisors, "1"), Sends(u"D 1 = { 1 }\r\n"));
    EXPECT_EQ(Run(Divisors, "12"), Sends(u"D 12 = { 1, 2, 3, 4, 6, 12 }\r\n"));
    EXPECT_EQ(Run(CountedDivisors, "12"), Sends(u"D 12 = { 1, 2, 3, 4, 6, 12 }  [6]\r\n"));
    EXPECT_EQ(Run(CountedDivisors, "1"), Sends(u"D 1 = { 1 }  [1]\r\n"));
}

TEST_F(FactorRunTexts, OfIntervals) {
    EXPECT_EQ(Run(Factors, "1", 4), Sends(u"1 = Number has no prime factors!\r\n2 = 2\r\n"
                                          u"3 = 3\r\n4 = 2^2\r\n"));
    EXPECT_EQ(Run(CountedDivisors, "5", 2),
              Sends(u"D 5 = { 1, 5 }  [2]\r\nD 6 = { 1, 2, 3, 6 }  [4]\r\n"));
    EXPECT_EQ(Run(Factors, "2^64-1", 2),
              Sends(u"18446744073709551615 = 3 * 5 * 17 * 257 * 641 * 65537 * 6700417\r\n"
                    u"18446744073709551616 = 2^64\r\n"));
}

// Multiplicities have the flags of the number; the count of divisors has none.
TEST_F(FactorRunTexts, AreWrittenByThePrintFlags) {
    const uint32_t hexadecimal = PrimePrintFlags(16, false);
    EXPECT_EQ(Run(Factors, "255", 1, hexadecimal), Sends(u"FF = 3 * 5 * 11\r\n"));
    EXPECT_EQ(Run(Factors, "0x10000", 1, hexadecimal), Sends(u"10000 = 2^10\r\n"));
    EXPECT_EQ(Run(Factors, "0x10000", 1, PrimePrintFlags(16, true)), Sends(u"1,0000 = 2^10\r\n"));
    EXPECT_EQ(Run(Factors, "1000003", 1, PrimePrintFlags(10, true)),
              Sends(u"1,000,003 = 1,000,003\r\n"));
    EXPECT_EQ(Run(CountedDivisors, "0x800", 1, hexadecimal),
              Sends(u"D 800 = { 1, 2, 4, 8, 10, 20, 40, 80, 100, 200, 400, 800 }  [12]\r\n"));
    EXPECT_EQ(Run(Divisors, "2003", 1, PrimePrintFlags(10, true)),
              Sends(u"D 2,003 = { 1, 2,003 }\r\n"));
}

TEST_F(FactorRunTexts, AreThoseOfTheLanguage) {
    InstallLanguage(LanguageGerman);
    EXPECT_EQ(Run(Factors, "1"), Sends(u"1 = Zahl hat keine Primfaktoren!\r\n"));
    EXPECT_EQ(Run(CountedDivisors, "3"), Sends(u"T 3 = { 1, 3 }  [2]\r\n"));
    InstallLanguage(LanguageEnglish);
}

class FactorRunEnds : public FactorRunTest {
protected:
    static RunResult Overflows(const std::u16string& text) {
        return {text, UiErrorPrimeFactorOverflow, u""};
    }
};

const std::u16string LargestLine =
    u"340282366920938463463374607431768211455 = 3 * 5 * 17 * 257 * 641 * 65537 * 274177 * 6700417 "
    u"* 67280421310721\r\n";

// Also where no further number is asked for: the number rises behind the last one too.
TEST_F(FactorRunEnds, BehindTheLargestNumber) {
    const std::u16string lineBefore =
        u"340282366920938463463374607431768211454 = 2 * "
        u"170141183460469231731687303715884105727\r\n";
    EXPECT_EQ(Run(Factors, "2^128-1"), Overflows(LargestLine));
    EXPECT_EQ(Run(Factors, "2^128-1", 10), Overflows(LargestLine));
    EXPECT_EQ(Run(Factors, "2^128-2"), Sends(lineBefore));
    EXPECT_EQ(Run(Factors, "2^128-2", 2), Overflows(lineBefore + LargestLine));
}

// 13082761331670030 is the product of the first 14 primes.
TEST_F(FactorRunEnds, WithANumberThatHasTooManyDivisors) {
    const RunResult most = Run(CountedDivisors, "13082761331670030");
    EXPECT_EQ(most.error, UiErrorNone);
    EXPECT_TRUE(most.text.starts_with(u"D 13082761331670030 = { 1, 2, 3, 5, 6, 7, 10, "));
    EXPECT_TRUE(most.text.ends_with(u", 6541380665835015, 13082761331670030 }  [16384]\r\n"));
    EXPECT_EQ(std::ranges::count(most.text, u','), 16'383);

    EXPECT_EQ(Argument(Divisors, "26165522663340060", 0), u"26165522663340060");
    EXPECT_EQ(Argument(Divisors, "26165522663340060", PrimePrintFlags(10, true)),
              u"26,165,522,663,340,060");
    EXPECT_EQ(Argument(Divisors, "26165522663340060", PrimePrintFlags(16, true)),
              u"5C,F567,7BB5,F81C");
    EXPECT_EQ(keptText, u"");
    EXPECT_EQ(Run(Factors, "26165522663340060"),
              Sends(u"26165522663340060 = 2^2 * 3 * 5 * 7 * 11 * 13 * 17 * 19 * 23 * 29 * 31 * 37 "
                    u"* 41 * 43\r\n"));
    // What came before it stays.
    EXPECT_EQ(
        Run(CountedDivisors, "26165522663340059", 5),
        (RunResult{u"D 26165522663340059 = { 1, 21519583, 1215893573, 26165522663340059 }  [4]\r\n",
                   UiErrorTooManyPrimeFactors, u"26165522663340060"}));
}

TEST_F(FactorRunEnds, AtAnotherWidth) {
    for (const int64_t limbs : {1, 3, 65}) {
        const UintWidthScope width(limbs);
        const FactorRequest request = {.number = {6, 0}, .interval = 1};
        EXPECT_EQ(ResultOf([&] { FactorWorker(request, KeepPiece); }),
                  (RunResult{u"", UiErrorInternal, u""}));
    }
}

TEST_F(FactorRunEnds, WithAPieceThatDoesNotFit) {
    const std::u16string longText(500, u'x');
    uiText.TextFactorsNumberNoPrimeFactors = longText.c_str();
    const RunResult result = Run(Factors, "1", 2);
    InstallLanguage(LanguageEnglish);
    EXPECT_EQ(result.error, UiErrorTextOverflow);
    EXPECT_TRUE(result.text.starts_with(u"1 = " + longText.substr(0, 100)));
    EXPECT_TRUE(result.text.ends_with(u"x\u2026")) << "no line of 2";
}

// A stop ends the text behind a line of factors, and behind a divisor. It is pending from then on.
class FactorRunStops : public FactorRunTest {
protected:
    static RunResult Stops(const std::u16string& text) { return {text, UiErrorStopped, u""}; }
};

TEST_F(FactorRunStops, BeforeItsFirstNumber) {
    for (const Shown shown : {Factors, Divisors}) {
        for (const char* number : {"1", "360", "2^128-1"}) {
            RequestStop();
            EXPECT_EQ(Run(shown, number, 10), Stops(u""));
        }
    }
}

TEST_F(FactorRunStops, BehindAPendingError) {
    SetUiError(UiErrorInternal);
    EXPECT_EQ(Run(Factors, "360", 10), (RunResult{u"", UiErrorInternal, u""}));
}

TEST_F(FactorRunStops, InItsMidst) {
    const SendText stopInFour = [](const char16_t* text) {
        KeepPiece(text);
        if (HasKept(u"4 = ")) {
            RequestStop();
        }
    };
    EXPECT_EQ(Run(Factors, "3", 5, 0, stopInFour), Stops(u"3 = 3\r\n4 = 2^2\r\n"));
    // No overflow comes behind a stop.
    const SendText stop = [](const char16_t* text) {
        KeepPiece(text);
        RequestStop();
    };
    EXPECT_EQ(Run(Factors, "2^128-1", 1, 0, stop), Stops(LargestLine));
}

TEST_F(FactorRunStops, InTheMidstOfALineOfDivisors) {
    const SendText stopInThree = [](const char16_t* text) {
        KeepPiece(text);
        if (std::u16string(text) == u"3, ") {
            RequestStop();
        }
    };
    EXPECT_EQ(Run(CountedDivisors, "13082761331670030", 2, 0, stopInThree),
              Stops(u"D 13082761331670030 = { 1, 2, 3, "));
    EXPECT_EQ(CurrentRunProgress().done, 0u);
    const SendText fail = [](const char16_t* text) {
        KeepPiece(text);
        SetUiError(UiErrorTextOverflow);
    };
    EXPECT_EQ(Run(CountedDivisors, "12", 2, 0, fail),
              (RunResult{u"D 12 = { ", UiErrorTextOverflow, u""}));
}

TEST_F(FactorRunStops, FromAnotherThread) {
    static std::atomic<size_t> characters;
    characters = 0;
    std::thread stopping([] {
        while (characters < 10'000) {
            std::this_thread::yield();
        }
        RequestStop();
    });
    const RunResult result =
        Run(Factors, "1000000000", MaxFactorInterval, 0,
            [](const char16_t* text) { characters += std::u16string_view(text).size(); });
    stopping.join();
    EXPECT_EQ(result.error, UiErrorStopped);
    EXPECT_GE(characters, 10'000u);
    EXPECT_LT(CurrentRunProgress().done, CurrentRunProgress().total);
}

// A number is done when its line was sent.
TEST_F(FactorRunTexts, GoOutNumberByNumber) {
    struct Moment {
        RunProgress progress;
        int64_t lines;
    };
    static std::vector<Moment> seen;
    seen.clear();
    const SendText look = [](const char16_t* text) {
        KeepPiece(text);
        seen.push_back({CurrentRunProgress(), std::ranges::count(keptText, u'\n')});
    };
    Run(Factors, "100", 3, 0, look);
    ASSERT_GE(seen.size(), 3u);
    for (const auto& [progress, lines] : seen) {
        EXPECT_EQ(progress.total, 3u);
        EXPECT_LE(static_cast<int64_t>(progress.done), lines);
        EXPECT_LE(lines, static_cast<int64_t>(progress.done) + 1);
    }
    EXPECT_EQ(CurrentRunProgress().done, 3u);
}

}  // namespace
}  // namespace tallymere
