#include "exact/big_uint_combinatorics.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <thread>
#include <vector>

#include "exact/big_uint.h"
#include "exact/big_uint_multiply.h"
#include "support/exact_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

const Outcome Overflow = Refused(CalcErrorOverflow);
const Outcome Undefined = Refused(CalcErrorUndefined);
const Outcome Cancelled = Refused(CalcErrorCancelled);

Outcome Factorial(std::string_view n) {
    UintBuffer dest;
    BigUintFactorial(dest, UintBuffer(n));
    return TakeOutcome(dest);
}

Outcome Factorial(uint64_t n) {
    return Factorial(std::to_string(n));
}

// n over k.
Outcome Ncr(std::string_view n, std::string_view k) {
    UintBuffer dest;
    BigUintBinomial(dest, UintBuffer(n), UintBuffer(k), false);
    return TakeOutcome(dest);
}

Outcome Ncr(uint64_t n, uint64_t k) {
    return Ncr(std::to_string(n), std::to_string(k));
}

// The falling factorial.
Outcome Npr(std::string_view n, std::string_view k) {
    UintBuffer dest;
    BigUintBinomial(dest, UintBuffer(n), UintBuffer(k), true);
    return TakeOutcome(dest);
}

Outcome Npr(uint64_t n, uint64_t k) {
    return Npr(std::to_string(n), std::to_string(k));
}

TEST(BigUintFactorial, MultipliesUpwards) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        uint64_t product = 1;
        for (uint64_t n = 0; n <= 20; n++) {
            product *= n == 0 ? 1 : n;
            EXPECT_EQ(Factorial(n), Silent(std::to_string(product))) << n;
        }
    }
    WidthScope scope(2);
    EXPECT_EQ(Factorial("25"), Silent("15511210043330985984000000"));
    EXPECT_EQ(Factorial("34"), Silent("295232799039604140847618609643520000000"));
}

TEST(BigUintFactorial, EndsWhereTheWidthEnds) {
    struct Last {
        int64_t limbs;
        uint64_t n;
    };
    // The greatest n with n! < 2^(64 limbs).
    for (const Last last : {Last{1, 20}, Last{2, 34}, Last{26, 253}, Last{65, 543}, Last{520, 3253},
                            Last{1039, 5987}}) {
        WidthScope scope(last.limbs);
        EXPECT_EQ(Factorial(last.n).code, CalcErrorNone) << last.n;
        EXPECT_EQ(Factorial(last.n + 1), Overflow) << last.n;
    }
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Factorial(TwoTo(20)), Overflow);
        EXPECT_EQ(Factorial(TwoTo(63)), Overflow);
        EXPECT_EQ(Factorial(TwoTo(64, "-1")), Overflow);
        EXPECT_EQ(Factorial(TwoTo(UintBits(), "-1")), Overflow);
    }
    // Of these the lowest limb alone would have a factorial.
    WidthScope scope(2);
    EXPECT_EQ(Factorial(TwoTo(64)), Overflow);
    EXPECT_EQ(Factorial(TwoTo(64, "+5")), Overflow);
}

TEST(BigUintFactorial, MayBeWrittenOverItsOperand) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        UintBuffer n("13");
        BigUintFactorial(n, n);
        EXPECT_EQ(TakeOutcome(n), Silent("6227020800"));
        n = UintBuffer(TwoTo(UintBits(), "-1"));
        BigUintFactorial(n, n);
        EXPECT_EQ(TakeOutcome(n), Overflow);
    }
}

TEST(BigUintFactorial, DoesNotLookAtTheByteThatAsksToStop) {
    WidthScope scope(26);
    uint8_t stop = 1;
    const FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    EXPECT_EQ(Factorial("20"), Silent("2432902008176640000"));
}

TEST(BigUintCombinatorics, KeepACodeThatWasNotedBefore) {
    WidthScope scope(2);
    // With the earlier code a result stays as it is, and a refusal is still a refusal.
    const auto afterCode = [](auto operation, std::string_view n, std::string_view k) {
        SetCalcError(CalcErrorSyntax);
        return operation(n, k);
    };
    const auto factorial = [](std::string_view n, std::string_view) { return Factorial(n); };
    const auto ncr = [](std::string_view n, std::string_view k) { return Ncr(n, k); };
    const auto npr = [](std::string_view n, std::string_view k) { return Npr(n, k); };
    const auto kept = [](const char* text) { return Outcome{text, CalcErrorSyntax}; };
    EXPECT_EQ(afterCode(factorial, "0", ""), kept("1"));
    EXPECT_EQ(afterCode(factorial, "5", ""), kept("120"));
    EXPECT_EQ(afterCode(factorial, "35", ""), kept("0"));
    EXPECT_EQ(afterCode(factorial, "2^64+5", ""), kept("0"));
    EXPECT_EQ(afterCode(ncr, "7", "5"), kept("21"));
    EXPECT_EQ(afterCode(npr, "7", "5"), kept("2520"));
    EXPECT_EQ(afterCode(ncr, "5", "0"), kept("1"));
    EXPECT_EQ(afterCode(npr, "5", "0"), kept("1"));
    EXPECT_EQ(afterCode(ncr, "3", "5"), kept("0"));
    EXPECT_EQ(afterCode(npr, "35", "35"), kept("0"));
    EXPECT_EQ(afterCode(ncr, "2^66", "2^65"), kept("0"));
    uint8_t stop = 1;
    const FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    EXPECT_EQ(afterCode(ncr, "7", "5"), kept("0"));
    EXPECT_EQ(afterCode(npr, "7", "5"), kept("0"));
}

TEST(BigUintBinomial, CountsSubsets) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Ncr(7, 5), Silent("21"));
        EXPECT_EQ(Ncr(7, 2), Silent("21"));
        EXPECT_EQ(Ncr(49, 6), Silent("13983816"));
        EXPECT_EQ(Ncr(60, 30), Silent("118264581564861424"));
        EXPECT_EQ(Npr(7, 5), Silent("2520"));
        EXPECT_EQ(Npr(7, 2), Silent("42"));
        EXPECT_EQ(Npr(49, 6), Silent("10068347520"));
        EXPECT_EQ(Npr(20, 20), Silent("2432902008176640000"));
    }
}

TEST(BigUintBinomial, OfNothingAndOfEverything) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        for (const std::string& n :
             {std::string("0"), TwoTo(0), TwoTo(5), TwoTo(UintBits(), "-1")}) {
            EXPECT_EQ(Ncr(n, "0"), Silent("1")) << n;
            EXPECT_EQ(Npr(n, "0"), Silent("1")) << n;
            EXPECT_EQ(Ncr(n, n), Silent("1")) << n;
        }
        EXPECT_EQ(Npr(0, 0), Silent("1"));
        EXPECT_EQ(Npr(5, 5), Silent("120"));
        for (const std::string& n : {TwoTo(0), TwoTo(5), TwoTo(UintBits(), "-1")}) {
            EXPECT_EQ(Ncr(n, "1"), UintValue(n)) << n;
            EXPECT_EQ(Npr(n, "1"), UintValue(n)) << n;
        }
        EXPECT_EQ(Ncr(TwoTo(UintBits(), "-1"), TwoTo(UintBits(), "-2")),
                  UintValue(TwoTo(UintBits(), "-1")));
    }
}

TEST(BigUintBinomial, IsZeroForMoreThanThereIs) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        // Nothing is looked at after that.
        uint8_t stop = 1;
        const FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
        for (const auto count :
             {static_cast<Outcome (*)(std::string_view, std::string_view)>(Ncr),
              static_cast<Outcome (*)(std::string_view, std::string_view)>(Npr)}) {
            EXPECT_EQ(count("5", "7"), Silent("0"));
            EXPECT_EQ(count("0", "1"), Silent("0"));
            EXPECT_EQ(count("5", TwoTo(UintBits(), "-1")), Silent("0"));
            EXPECT_EQ(count(TwoTo(UintBits(), "-2"), TwoTo(UintBits(), "-1")), Silent("0"));
        }
    }
}

// Each step multiplies before it divides, so that the last product must fit, which is the result
// times the number of factors.
TEST(BigUintBinomial, RefusesAStepThatDoesNotFit) {
    WidthScope scope(1);
    std::vector<uint64_t> row = {1};
    for (uint64_t n = 1; n <= 67; n++) {
        std::vector<uint64_t> next(n + 1, 1);
        for (uint64_t k = 1; k < n; k++) {
            next[k] = row[k - 1] + row[k];
        }
        row = next;
        for (uint64_t k = 0; k <= n; k++) {
            const uint64_t factors = std::min(k, n - k);
            const bool fits = factors == 0 || row[k] <= UINT64_MAX / factors;
            EXPECT_EQ(Ncr(n, k), fits ? Silent(std::to_string(row[k])) : Overflow)
                << n << " over " << k;
        }
    }
    EXPECT_EQ(Ncr(62, 31), Silent("465428353255261088"));
    EXPECT_EQ(Ncr(63, 31), Overflow);
    EXPECT_EQ(Npr(21, 20), Overflow);
    EXPECT_EQ(Npr(21, 18), Silent("8515157028618240000"));
}

TEST(BigUintBinomial, TakesTheShorterWayForSubsetsAlone) {
    WidthScope scope(3);
    // 2 factors, or more than a limb counts.
    EXPECT_EQ(Ncr(TwoTo(64, "+5"), TwoTo(64, "+3")),
              Silent("170141183460469231814697652047577088010"));
    EXPECT_EQ(Ncr(TwoTo(64, "+5"), TwoTo(64, "+5")), Silent("1"));
    EXPECT_EQ(Npr(TwoTo(64, "+5"), TwoTo(64, "+5")), Undefined);
    EXPECT_EQ(Npr(TwoTo(64, "+5"), TwoTo(64, "+3")), Undefined);
    EXPECT_EQ(Npr(TwoTo(64, "+5"), TwoTo(64, "-1")), Overflow);
    // Both ways are too long, or just not.
    EXPECT_EQ(Ncr(TwoTo(65), TwoTo(64)), Undefined);
    EXPECT_EQ(Ncr(TwoTo(66), TwoTo(65)), Undefined);
    EXPECT_EQ(Ncr(TwoTo(127), TwoTo(64)), Undefined);
    EXPECT_EQ(Ncr(TwoTo(65, "-1"), TwoTo(64)), Overflow);
    EXPECT_EQ(Ncr(TwoTo(127), TwoTo(64, "-1")), Overflow);
}

TEST(BigUintBinomial, RefusesTooManyFactorsBeforeAnythingElse) {
    WidthScope scope(2);
    uint8_t stop = 1;
    const FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    EXPECT_EQ(Ncr(TwoTo(66), TwoTo(65)), Undefined);
    EXPECT_EQ(Npr(TwoTo(66), TwoTo(65)), Undefined);
}

TEST(BigUintBinomial, MayBeWrittenOverItsOperands) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        for (const bool falling : {false, true}) {
            const Outcome expected = Silent(falling ? "10068347520" : "13983816");
            UintBuffer n("49");
            BigUintBinomial(n, n, UintBuffer("6"), falling);
            EXPECT_EQ(TakeOutcome(n), expected);
            UintBuffer k("6");
            BigUintBinomial(k, UintBuffer("49"), k, falling);
            EXPECT_EQ(TakeOutcome(k), expected);
            UintBuffer both("6");
            BigUintBinomial(both, both, both, falling);
            EXPECT_EQ(TakeOutcome(both), Silent(falling ? "720" : "1"));
        }
    }
}

TEST(BigUintBinomial, LeavesItsOperands) {
    WidthScope scope(2);
    const UintBuffer n("49");
    const UintBuffer k("43");
    UintBuffer dest;
    BigUintBinomial(dest, n, k, false);
    EXPECT_EQ(TakeOutcome(dest), Silent("13983816"));
    EXPECT_EQ(n.Text(), "49");
    EXPECT_EQ(k.Text(), "43");
}

// Reciprocals of the divisors come from a table up to 2,000 and are computed above.
TEST(BigUintBinomial, GoesOnAboveTheTableOfReciprocals) {
    struct Case {
        int64_t limbs;
        uint64_t n;
        uint64_t k;
    };
    for (const Case c : {Case{65, 4091, 2045}, Case{520, 4501, 2250}, Case{1039, 20'001, 9'000}}) {
        WidthScope scope(c.limbs);
        const auto binomial = [](uint64_t n, uint64_t k) {
            UintBuffer dest;
            BigUintBinomial(dest, UintBuffer(std::to_string(n)), UintBuffer(std::to_string(k)),
                            false);
            return dest;
        };
        // k (n over k) = n (n - 1 over k - 1).
        UintBuffer left = binomial(c.n, c.k);
        UintBuffer right = binomial(c.n - 1, c.k - 1);
        EXPECT_GT(BigUintBitLength(left), int64_t(c.k));
        BigUintMulSmall(left, left, c.k);
        BigUintMulSmall(right, right, c.n);
        EXPECT_EQ(left, right);
        EXPECT_EQ(TakeCode(), CalcErrorNone);
    }
}

TEST(BigUintBinomial, StopsAtTheByteThatAsksForIt) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        uint8_t stop = 1;
        const FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
        EXPECT_EQ(Ncr(7, 5), Cancelled);
        EXPECT_EQ(Npr(7, 5), Cancelled);
        EXPECT_EQ(Npr(7, 1), Cancelled);
        // The most factors that there can be.
        EXPECT_EQ(Ncr(TwoTo(64, "-1"), TwoTo(63)), Cancelled);
        EXPECT_EQ(Npr(TwoTo(64, "-1"), TwoTo(64, "-1")), Cancelled);
        EXPECT_EQ(Npr(TwoTo(UintBits(), "-1"), TwoTo(64, "-1")), Cancelled);
        // Where there is no factor the byte is not looked at.
        EXPECT_EQ(Ncr(7, 0), Silent("1"));
        EXPECT_EQ(Ncr(7, 7), Silent("1"));
        EXPECT_EQ(Npr(7, 0), Silent("1"));
    }
}

TEST(BigUintBinomial, LooksAtTheByteBeforeEveryFactor) {
    for (const int64_t limbs : {2, 26, 65}) {
        WidthScope scope(limbs);
        UintBuffer dest("0");
        // The byte is the low end of the result's second limb and no longer 0 when the product
        // reaches 2^64.
        const FieldScope<uint8_t*> flag(numberContext.abortFlag,
                                        reinterpret_cast<uint8_t*>(dest.Get() + 1));
        const auto count = [&](const char* n, const char* k, bool falling) {
            BigUintBinomial(dest, UintBuffer(n), UintBuffer(k), falling);
            return TakeOutcome(dest);
        };
        EXPECT_EQ(count("20", "20", true), Silent("2432902008176640000"));
        EXPECT_EQ(count("21", "21", true), Silent("51090942171709440000"));
        EXPECT_EQ(count("22", "22", true), Cancelled);
        EXPECT_EQ(count("68", "34", false), Silent("28453041475240576740"));
        EXPECT_EQ(count("70", "34", false), Cancelled);
    }
}

TEST(BigUintBinomial, CanBeStoppedFromAnotherThread) {
    for (const bool falling : {false, true}) {
        WidthScope scope(1039);
        uint8_t stop = 0;
        const FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
        const UintBuffer n("60000");
        const UintBuffer k(falling ? "4000" : "30000");
        UintBuffer dest;
        std::thread other([&stop] { SetStopByte(&stop, 1); });
        CalcError code = CalcErrorNone;
        while (code == CalcErrorNone) {
            BigUintBinomial(dest, n, k, falling);
            code = TakeCode();
        }
        other.join();
        EXPECT_EQ(code, CalcErrorCancelled);
        EXPECT_EQ(dest.Text(), "0");
    }
}

}  // namespace
}  // namespace tallymere
