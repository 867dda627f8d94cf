#include "exact/big_uint_logarithms.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "exact/big_uint.h"
#include "exact/big_uint_powers.h"
#include "support/exact_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// The floor of a logarithm, the code, and whether it is exact.
struct Logarithm {
    Outcome outcome;
    bool exact;
    bool operator==(const Logarithm&) const = default;
};

void PrintTo(const Logarithm& log, std::ostream* out) {
    *out << log.outcome.text << " code " << log.outcome.code << (log.exact ? " exact" : " inexact");
}

Logarithm Exact(int64_t log) {
    return {Silent(std::to_string(log)), true};
}
Logarithm Inexact(int64_t log) {
    return {Silent(std::to_string(log)), false};
}
const Logarithm NoLogarithm = {Refused(CalcErrorOverflow), false};

Logarithm LogTwo(std::string_view x) {
    UintBuffer dest;
    const bool exact = BigUintLogTwo(dest, UintBuffer(x));
    return {TakeOutcome(dest), exact};
}

Logarithm LogTen(std::string_view x) {
    UintBuffer dest;
    const bool exact = BigUintLogTen(dest, UintBuffer(x));
    return {TakeOutcome(dest), exact};
}

Logarithm Log(std::string_view base, std::string_view x) {
    UintBuffer dest;
    const bool exact = BigUintLog(dest, UintBuffer(base), UintBuffer(x));
    return {TakeOutcome(dest), exact};
}

TEST(BigUintLog, OfZeroIsRefused) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(LogTwo("0"), NoLogarithm);
        EXPECT_EQ(LogTen("0"), NoLogarithm);
        for (const std::string& base : {TwoTo(0), TwoTo(1), TwoTo(2), TwoTo(UintBits(), "-1")}) {
            EXPECT_EQ(Log(base, "0"), NoLogarithm) << base;
        }
        EXPECT_EQ(Log("0", "0"), NoLogarithm);
    }
}

TEST(BigUintLog, ToTheBasesZeroAndOneIsRefused) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        for (const std::string& x : {TwoTo(0), TwoTo(1), TwoTo(2), TwoTo(UintBits(), "-1")}) {
            EXPECT_EQ(Log("0", x), NoLogarithm) << x;
            EXPECT_EQ(Log("1", x), NoLogarithm) << x;
        }
    }
}

TEST(BigUintLog, ToTheBaseTwo) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        for (const int64_t e : {int64_t{0}, int64_t{1}, int64_t{31}, int64_t{63}, UintBits() - 1}) {
            EXPECT_EQ(LogTwo(TwoTo(e)), Exact(e));
            EXPECT_EQ(Log("2", TwoTo(e)), Exact(e));
            if (e > 1) {
                EXPECT_EQ(LogTwo(TwoTo(e, "+1")), Inexact(e));
                EXPECT_EQ(LogTwo(TwoTo(e, "-1")), Inexact(e - 1));
                EXPECT_EQ(Log("2", TwoTo(e, "+1")), Inexact(e));
                EXPECT_EQ(Log("2", TwoTo(e, "-1")), Inexact(e - 1));
            }
        }
        EXPECT_EQ(LogTwo(TwoTo(UintBits(), "-1")), Inexact(UintBits() - 1));
        EXPECT_EQ(LogTwo("3"), Inexact(1));
    }
    // A bit in another limb counts as well.
    WidthScope scope(2);
    EXPECT_EQ(LogTwo(TwoTo(64)), Exact(64));
    EXPECT_EQ(LogTwo(TwoTo(127, "+1")), Inexact(127));
}

TEST(BigUintLog, CountsDivisions) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        for (uint64_t base = 2; base <= 12; base++) {
            for (uint64_t x = 1; x <= 300; x += limbs <= 2 ? 1 : 7) {
                int64_t count = 0;
                uint64_t power = 1;
                while (power * base <= x) {
                    power *= base;
                    count++;
                }
                const Logarithm expected = power == x ? Exact(count) : Inexact(count);
                EXPECT_EQ(Log(std::to_string(base), std::to_string(x)), expected);
                if (base == 10) {
                    EXPECT_EQ(LogTen(std::to_string(x)), expected);
                }
            }
        }
    }
}

TEST(BigUintLog, IsNotExactWhereTheLastQuotientIsAboveOne) {
    WidthScope scope(2);
    EXPECT_EQ(LogTen("1000"), Exact(3));
    EXPECT_EQ(LogTen("2000"), Inexact(3));
    EXPECT_EQ(LogTen("1001"), Inexact(3));
    EXPECT_EQ(LogTen("1100"), Inexact(3));
    EXPECT_EQ(LogTen("9000"), Inexact(3));
}

TEST(BigUintLog, ToABaseThatIsNotBelowTheNumber) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        const std::string largest = TwoTo(UintBits(), "-1");
        EXPECT_EQ(Log(largest, largest), Exact(1));
        EXPECT_EQ(Log(largest, TwoTo(UintBits() - 1)), Inexact(0));
        EXPECT_EQ(Log(largest, TwoTo(UintBits(), "-2")), Inexact(0));
        EXPECT_EQ(Log(TwoTo(UintBits(), "-2"), largest), Inexact(1));
        EXPECT_EQ(Log(largest, "2"), Inexact(0));
        EXPECT_EQ(Log(largest, "1"), Exact(0));
        EXPECT_EQ(Log("10", "1"), Exact(0));
        EXPECT_EQ(Log("3", "3"), Exact(1));
    }
}

TEST(BigUintLog, OfThePowersOfTen) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        const int64_t digits = UintWidthForLimbs(limbs).digits;
        for (int64_t n = 1; n <= digits;
             n = n < 50 || n + 2 >= digits ? n + 1 : std::min(n + 1 + digits / 3, digits - 2)) {
            const std::string power = "1" + std::string(static_cast<size_t>(n), '0');
            EXPECT_EQ(LogTen(power), Exact(n));
            EXPECT_EQ(LogTen(std::string(static_cast<size_t>(n), '9')), Inexact(n - 1));
            EXPECT_EQ(LogTen(power.substr(0, static_cast<size_t>(n)) + "1"), Inexact(n));
        }
    }
}

// Three times what BinaryLog gives for these bases is above what it gives for their third powers.
TEST(BigUintLog, OfThirdPowersWhoseLogarithmsAreRoundedFurtherDown) {
    WidthScope scope(2);
    struct Row {
        const char* base;
        const char* power;
    };
    for (const auto& [base, power] :
         {Row{"7597221", "438494630939313024861"}, Row{"141631825", "2841074053498682834640625"},
          Row{"409433309742", "68635612920458579664183135123346488"}}) {
        EXPECT_LT(BinaryLog(UintBuffer(power)), 3 * BinaryLog(UintBuffer(base)));
        EXPECT_EQ(Log(base, power), Exact(3));
        UintBuffer x(power);
        BigUintSubOne(x, x);
        EXPECT_EQ(Log(base, x.Text()), Inexact(2));
        BigUintAddSmall(x, x, 2);
        EXPECT_EQ(Log(base, x.Text()), Inexact(3));
    }
}

// A power of the base that would be above the number may be one that does not fit.
TEST(BigUintLog, BelowAPowerThatDoesNotFit) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        for (const int64_t e : {2, 4, 8, 16, 32}) {
            EXPECT_EQ(Log(TwoTo(UintBits() / e), TwoTo(UintBits(), "-1")), Inexact(e - 1)) << e;
        }
        EXPECT_EQ(Log("4", TwoTo(UintBits(), "-1")), Inexact(UintBits() / 2 - 1));
        EXPECT_EQ(Log("16", TwoTo(UintBits(), "-1")), Inexact(UintBits() / 4 - 1));
    }
}

TEST(BigUintLog, MayBeWrittenOverItsOperands) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        UintBuffer x("1024");
        EXPECT_TRUE(BigUintLogTwo(x, x));
        EXPECT_EQ(TakeOutcome(x), Silent("10"));
        x = UintBuffer("1000");
        EXPECT_TRUE(BigUintLogTen(x, x));
        EXPECT_EQ(TakeOutcome(x), Silent("3"));
        x = UintBuffer("2186");
        EXPECT_FALSE(BigUintLog(x, UintBuffer("3"), x));
        EXPECT_EQ(TakeOutcome(x), Silent("6"));
        UintBuffer base("3");
        EXPECT_TRUE(BigUintLog(base, base, UintBuffer("2187")));
        EXPECT_EQ(TakeOutcome(base), Silent("7"));
        base = UintBuffer("3");
        EXPECT_TRUE(BigUintLog(base, base, UintBuffer("1")));
        EXPECT_EQ(TakeOutcome(base), Silent("0"));
        UintBuffer one("1");
        EXPECT_TRUE(BigUintLog(one, UintBuffer("3"), one));
        EXPECT_EQ(TakeOutcome(one), Silent("0"));
        UintBuffer both(TwoTo(UintBits(), "-1"));
        EXPECT_TRUE(BigUintLog(both, both, both));
        EXPECT_EQ(TakeOutcome(both), Silent("1"));
    }
}

TEST(BigUintLog, KeepsACodeThatWasNoted) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        const auto after = [](auto operation) {
            UintBuffer dest;
            SetCalcError(CalcErrorSyntax);
            operation(dest.Get());
            return TakeOutcome(dest);
        };
        const UintBuffer zero("0");
        const UintBuffer ten("10");
        const UintBuffer largest(TwoTo(UintBits(), "-1"));
        const UintBuffer root(TwoTo(UintBits() / 2));
        const auto kept = [](const char* text) { return Outcome{text, CalcErrorSyntax}; };
        EXPECT_EQ(after([&](uint64_t* d) { BigUintLogTwo(d, ten); }), kept("3"));
        EXPECT_EQ(after([&](uint64_t* d) { BigUintLogTwo(d, zero); }), kept("0"));
        EXPECT_EQ(after([&](uint64_t* d) { BigUintLogTen(d, ten); }), kept("1"));
        EXPECT_EQ(after([&](uint64_t* d) { BigUintLogTen(d, zero); }), kept("0"));
        EXPECT_EQ(after([&](uint64_t* d) { BigUintLog(d, root, largest); }), kept("1"));
        EXPECT_EQ(after([&](uint64_t* d) { BigUintLog(d, zero, largest); }), kept("0"));
    }
}

TEST(BinaryLog, OfPowersOfTwoIsExact) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        for (int64_t e = 0; e < UintBits(); e += 1 + e / 10) {
            EXPECT_EQ(BinaryLog(UintBuffer(TwoTo(e))), uint64_t(e) << BinaryLogPlaces);
            // log2(2^e + 1) is below 1.5 / 2^e above e, log2(2^e - 1) not nearer to it than that.
            if (e > BinaryLogPlaces + 1) {
                EXPECT_EQ(BinaryLog(UintBuffer(TwoTo(e, "+1"))), uint64_t(e) << BinaryLogPlaces);
                EXPECT_GE(BinaryLog(UintBuffer(TwoTo(e, "-1"))),
                          (uint64_t(e) << BinaryLogPlaces) - BinaryLogErrorUnits);
            }
        }
        for (int e = 0; e < 64; e++) {
            EXPECT_EQ(BinaryLogSmall(uint64_t{1} << e), uint64_t(e) << BinaryLogPlaces);
        }
    }
}

// log2 of base^e is e times that of the base, so that the bounds of both must meet.
TEST(BinaryLog, IsWithinItsBounds) {
    RandomSource random;
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        for (int round = 0; round < TestRounds(50); round++) {
            UintBuffer base;
            FillUint(random, base, 1);
            BigUintShiftRight(base, base, random.Between(0, 61));
            if (BigUintBitLength(base) < 2) {
                continue;
            }
            const int64_t e = UintBits() / BigUintBitLength(base);
            UintBuffer power;
            ASSERT_TRUE(BigUintPowerIfFits(power, base, e));
            const uint64_t log = BinaryLog(base);
            EXPECT_EQ(log, BinaryLogSmall(base[0]));
            EXPECT_LT(BinaryLog(power), uint64_t(e) * (log + BinaryLogErrorUnits))
                << base.Text() << " ^ " << e;
            EXPECT_GT(BinaryLog(power) + BinaryLogErrorUnits, uint64_t(e) * log)
                << base.Text() << " ^ " << e;
        }
    }
}

}  // namespace
}  // namespace tallymere
