#include "prime_pages/prime_run.h"

#include <atomic>
#include <string_view>
#include <thread>
#include <vector>

#include "prime_pages/run_progress.h"
#include "prime_run_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

constexpr PrimeMethod BothMethods[] = {ExactMethod, ProbabilisticMethod};

class PrimeRunTexts : public PrimeRunTest {};

TEST_F(PrimeRunTexts, OfAnInterval) {
    for (const PrimeMethod method : BothMethods) {
        EXPECT_EQ(Interval("1", 10, method),
                  Sends(u"Prime numbers from 1 to 10:\r\n{ 2, 3, 5, 7 }\r\n"
                        u"Number of prime numbers: 4\r\n"));
        EXPECT_EQ(Interval("2", 1, method),
                  Sends(u"Prime numbers from 2 to 2:\r\n{ 2 }\r\nNumber of prime numbers: 1\r\n"));
        EXPECT_EQ(Interval("1", 1, method),
                  Sends(u"Prime numbers from 1 to 1:\r\n{  }\r\nNumber of prime numbers: 0\r\n"));
        EXPECT_EQ(Interval("1", 2, method),
                  Sends(u"Prime numbers from 1 to 2:\r\n{ 2 }\r\nNumber of prime numbers: 1\r\n"));
        EXPECT_EQ(Interval("24", 5, method),
                  Sends(u"Prime numbers from 24 to 28:\r\n{  }\r\nNumber of prime numbers: 0\r\n"));
        EXPECT_EQ(Interval("8", 1, method),
                  Sends(u"Prime numbers from 8 to 8:\r\n{  }\r\nNumber of prime numbers: 0\r\n"));
        EXPECT_EQ(Interval("996", 14, method),
                  Sends(u"Prime numbers from 996 to 1009:\r\n{ 997, 1009 }\r\n"
                        u"Number of prime numbers: 2\r\n"));
    }
}

TEST_F(PrimeRunTexts, OfTheNextPrime) {
    for (const PrimeMethod method : BothMethods) {
        const auto next = [&](const std::string& number) {
            return Run(method, NextPrimeMode, number);
        };
        EXPECT_EQ(next("1"), Sends(u"Next prime number:\r\n2"));
        EXPECT_EQ(next("2"), Sends(u"Next prime number:\r\n2"));
        EXPECT_EQ(next("3"), Sends(u"Next prime number:\r\n3"));
        EXPECT_EQ(next("14"), Sends(u"Next prime number:\r\n17"));
        EXPECT_EQ(next("17"), Sends(u"Next prime number:\r\n17"));
        EXPECT_EQ(next("10000000000000000000000000000000000000"),
                  Sends(u"Next prime number:\r\n10000000000000000000000000000000000043"));
    }
}

TEST_F(PrimeRunTexts, OfATest) {
    for (const PrimeMethod method : BothMethods) {
        const auto test = [&](const std::string& number) { return Run(method, TestMode, number); };
        EXPECT_EQ(test("1"), Sends(u"1 is not a prime number.\r\n"));
        EXPECT_EQ(test("2"), Sends(u"2 is a prime number.\r\n"));
        EXPECT_EQ(test("4"), Sends(u"4 is not a prime number.\r\n"));
        EXPECT_EQ(test("997"), Sends(u"997 is a prime number.\r\n"));
        EXPECT_EQ(test("1000000007"), Sends(u"1000000007 is a prime number.\r\n"));
        EXPECT_EQ(test("1729"), Sends(u"1729 is not a prime number.\r\n"));
        EXPECT_EQ(test("2^127-1"),
                  Sends(u"170141183460469231731687303715884105727 is a prime number.\r\n"));
        EXPECT_EQ(test("2^128-1"),
                  Sends(u"340282366920938463463374607431768211455 is not a prime number.\r\n"));
    }
}

TEST_F(PrimeRunTexts, OfNoMethod) {
    EXPECT_EQ(Run(NoMethod, IntervalMode, "1", 10), Sends(u""));
}

TEST_F(PrimeRunTexts, GoOutDuringTheRun) {
    static uint64_t doneAtFirstPrime;
    doneAtFirstPrime = MaxPrimeInterval;
    const SendText look = [](const char16_t* text) {
        KeepPiece(text);
        if (doneAtFirstPrime == MaxPrimeInterval && HasKept(u"{ 1000003")) {
            doneAtFirstPrime = CurrentRunProgress().done;
        }
    };
    Run(ExactMethod, IntervalMode, "1000000", 10'000, 0, look);
    EXPECT_LT(doneAtFirstPrime, 5'000u);
}

TEST_F(PrimeRunTexts, AreWrittenByThePrintFlags) {
    const uint32_t grouped = PrimePrintFlags(10, true);
    const uint32_t hexadecimal = PrimePrintFlags(16, false);
    for (const PrimeMethod method : BothMethods) {
        EXPECT_EQ(Interval("999990", 20, method, grouped),
                  Sends(u"Prime numbers from 999,990 to 1,000,009:\r\n{ 1,000,003 }\r\n"
                        u"Number of prime numbers: 1\r\n"));
        EXPECT_EQ(Interval("250", 10, method, hexadecimal),
                  Sends(u"Prime numbers from FA to 103:\r\n{ FB, 101 }\r\n"
                        u"Number of prime numbers: 2\r\n"));
        EXPECT_EQ(Run(method, NextPrimeMode, "0x10000", OtherModes, PrimePrintFlags(16, true)),
                  Sends(u"Next prime number:\r\n1,0001"));
        EXPECT_EQ(Run(method, TestMode, "0xabcdef", OtherModes, hexadecimal),
                  Sends(u"ABCDEF is not a prime number.\r\n"));
    }
}

// The count of the last line is an ordinary number whatever the flags.
TEST_F(PrimeRunTexts, CountInPlainDecimalDigits) {
    const RunResult result = Interval("1", 10'000, ExactMethod, PrimePrintFlags(16, true));
    const std::u16string last = u" }\r\nNumber of prime numbers: 1229\r\n";
    ASSERT_GT(result.text.size(), last.size());
    EXPECT_EQ(result.text.substr(result.text.size() - last.size()), last);
}

TEST_F(PrimeRunTexts, AreThoseOfTheLanguage) {
    InstallLanguage(LanguageGerman);
    EXPECT_EQ(Interval("1", 3),
              Sends(u"Primzahlen von 1 bis 3:\r\n{ 2, 3 }\r\nAnzahl der Primzahlen: 2\r\n"));
    EXPECT_EQ(Run(ExactMethod, NextPrimeMode, "14"), Sends(u"N\u00e4chste Primzahl:\r\n17"));
    EXPECT_EQ(Run(ExactMethod, TestMode, "7"), Sends(u"7 ist eine Primzahl.\r\n"));
    EXPECT_EQ(Run(ExactMethod, TestMode, "8"), Sends(u"8 ist keine Primzahl.\r\n"));
    InstallLanguage(LanguageEnglish);
}

// The end of the numbers: what was sent stays.
class PrimeRunEnds : public PrimeRunTest {
protected:
    static RunResult Overflows(const std::u16string& text) {
        return {text, UiErrorPrimeNumberOverflow, u""};
    }
};

TEST_F(PrimeRunEnds, BeforeAnIntervalThatLeavesTheWidth) {
    EXPECT_EQ(Interval("2^128-1", 2),
              Overflows(u"Prime numbers from 340282366920938463463374607431768211455"));
    EXPECT_EQ(Interval("2^128-200", 201),
              Overflows(u"Prime numbers from 340282366920938463463374607431768211256"));
    const RunResult longest = Interval("2^4160-1", 2, ProbabilisticMethod);
    EXPECT_EQ(longest.error, UiErrorPrimeNumberOverflow);
    EXPECT_TRUE(longest.text.starts_with(u"Prime numbers from "));
    EXPECT_EQ(longest.text.find(u" to "), longest.text.npos);
}

TEST_F(PrimeRunEnds, WithTheLastIntervalOfTheWidth) {
    EXPECT_EQ(Interval("2^128-160", 160),
              Sends(u"Prime numbers from 340282366920938463463374607431768211296 to "
                    u"340282366920938463463374607431768211455:\r\n"
                    u"{ 340282366920938463463374607431768211297 }\r\n"
                    u"Number of prime numbers: 1\r\n"));
    EXPECT_EQ(Interval("2^128-1", 1),
              Sends(u"Prime numbers from 340282366920938463463374607431768211455 to "
                    u"340282366920938463463374607431768211455:\r\n{  }\r\n"
                    u"Number of prime numbers: 0\r\n"));
}

TEST_F(PrimeRunEnds, BehindTheLastPrimeOfTheWidth) {
    EXPECT_EQ(Run(ExactMethod, NextPrimeMode, "2^128-159"),
              Sends(u"Next prime number:\r\n340282366920938463463374607431768211297"));
    EXPECT_EQ(Run(ExactMethod, NextPrimeMode, "2^128-158"), Overflows(u"Next prime number:\r\n"));
    EXPECT_EQ(Run(ExactMethod, NextPrimeMode, "2^128-1"), Overflows(u"Next prime number:\r\n"));
    EXPECT_EQ(Run(ProbabilisticMethod, NextPrimeMode, "2^4160-1"),
              Overflows(u"Next prime number:\r\n"));
}

TEST_F(PrimeRunEnds, WithAPieceThatDoesNotFit) {
    const std::u16string longText(500, u'x');
    uiText.TextPrimesPrimeNumbersFrom = longText.c_str();
    const RunResult result = Interval("1", 10);
    InstallLanguage(LanguageEnglish);
    EXPECT_EQ(result.error, UiErrorTextOverflow);
    EXPECT_TRUE(result.text.starts_with(longText.substr(0, 100)));
    EXPECT_NE(result.text.find(u"x\u2026"), result.text.npos);
    EXPECT_TRUE(result.text.ends_with(u"{ ")) << "the header alone";
}

// A stop ends the text where it stands.
class PrimeRunStops : public PrimeRunTest {
protected:
    static RunResult Stops(const std::u16string& text) { return {text, UiErrorStopped, u""}; }
};

TEST_F(PrimeRunStops, BeforeItsFirstNumber) {
    for (const PrimeMethod method : BothMethods) {
        for (const char* number : {"1", "2", "100"}) {
            RequestStop();
            EXPECT_EQ(Run(method, NextPrimeMode, number), Stops(u"Next prime number:\r\n"));
        }
        RequestStop();
        EXPECT_EQ(Interval("1", 10, method), Stops(u"Prime numbers from 1 to 10:\r\n{ "));
        for (const char* number : {"1", "7", "8", "2^127-1"}) {
            RequestStop();
            EXPECT_EQ(Run(method, TestMode, number), Stops(u""));
        }
    }
}

TEST_F(PrimeRunStops, BehindAPendingError) {
    for (const PrimeMethod method : BothMethods) {
        SetUiError(UiErrorInternal);
        EXPECT_EQ(Interval("100", 10, method),
                  (RunResult{u"Prime numbers from 100 to 109:\r\n{ ", UiErrorInternal, u""}));
        SetUiError(UiErrorInternal);
        EXPECT_EQ(Run(method, TestMode, "7"), (RunResult{u"", UiErrorInternal, u""}));
    }
}

TEST_F(PrimeRunStops, InItsMidst) {
    const SendText stopBehindFive = [](const char16_t* text) {
        KeepPiece(text);
        if (HasKept(u", 5")) {
            RequestStop();
        }
    };
    for (const PrimeMethod method : BothMethods) {
        EXPECT_EQ(Run(method, IntervalMode, "1", 100, 0, stopBehindFive),
                  Stops(u"Prime numbers from 1 to 100:\r\n{ 2, 3, 5"));
    }
}

// The run would send the 105,097,565 primes below 2^31 otherwise.
TEST_F(PrimeRunStops, FromAnotherThread) {
    static std::atomic<size_t> characters;
    const SendText count = [](const char16_t* text) {
        characters += std::u16string_view(text).size();
    };
    for (const PrimeMethod method : BothMethods) {
        characters = 0;
        std::thread stopping([] {
            while (characters < 100'000) {
                std::this_thread::yield();
            }
            RequestStop();
        });
        const RunResult result = Run(method, IntervalMode, "1", MaxPrimeInterval, 0, count);
        stopping.join();
        EXPECT_EQ(result.error, UiErrorStopped);
        EXPECT_GE(characters, 100'000u);
        EXPECT_LT(CurrentRunProgress().done, CurrentRunProgress().total);
    }
}

class PrimeRunProgress : public PrimeRunTest {};

TEST_F(PrimeRunProgress, GrowsUpToTheInterval) {
    static std::vector<RunProgress> seen;
    const SendText look = [](const char16_t*) { seen.push_back(CurrentRunProgress()); };
    for (const PrimeMethod method : BothMethods) {
        seen.clear();
        Run(method, IntervalMode, "1000", 100, 0, look);
        ASSERT_FALSE(seen.empty());
        uint64_t last = 0;
        bool isUnderWay = false;
        for (const RunProgress& progress : seen) {
            EXPECT_EQ(progress.total, 100u);
            EXPECT_GE(progress.done, last);
            EXPECT_LE(progress.done, 100u);
            isUnderWay = isUnderWay || (progress.done > 0 && progress.done < 100);
            last = progress.done;
        }
        EXPECT_TRUE(isUnderWay);
        EXPECT_EQ(CurrentRunProgress().done, 100u);
    }
}

TEST_F(PrimeRunProgress, HasNoTotalWhereNobodyKnowsIt) {
    Run(ExactMethod, IntervalMode, "100", 10);
    Run(ExactMethod, NextPrimeMode, "114");
    EXPECT_EQ(CurrentRunProgress().total, 0u);
    EXPECT_GT(CurrentRunProgress().done, 10u);
    Run(ExactMethod, TestMode, "101");
    EXPECT_EQ(CurrentRunProgress().total, 0u);
    EXPECT_EQ(CurrentRunProgress().done, 0u);
}

}  // namespace
}  // namespace tallymere
