#include "exact/big_uint_powers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "exact/big_uint.h"
#include "support/exact_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

const Outcome Overflow = Refused(CalcErrorOverflow);
const Outcome Undefined = Refused(CalcErrorUndefined);

Outcome Power(std::string_view base, int64_t e) {
    UintBuffer dest;
    BigUintPowerSmall(dest, UintBuffer(base), e);
    return TakeOutcome(dest);
}

Outcome Power(std::string_view base, std::string_view e) {
    UintBuffer dest;
    BigUintPower(dest, UintBuffer(base), UintBuffer(e));
    return TakeOutcome(dest);
}

TEST(BigUintPower, IsTheProductOfItsFactors) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        for (uint64_t base = 0; base <= 12; base++) {
            uint64_t product = 1;
            for (int64_t e = 0; e <= 17; e++) {
                const std::string text = std::to_string(base);
                EXPECT_EQ(Power(text, e), Silent(std::to_string(product))) << base << " ^ " << e;
                EXPECT_EQ(Power(text, std::to_string(e)), Silent(std::to_string(product)));
                product *= base;
            }
        }
    }
}

TEST(BigUintPower, OfZeroAndOne) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Power("0", 0), Silent("1"));
        EXPECT_EQ(Power("0", "0"), Silent("1"));
        for (const int64_t e : {int64_t{1}, int64_t{2}, int64_t{1} << 62, INT64_MAX}) {
            EXPECT_EQ(Power("0", e), Silent("0"));
            EXPECT_EQ(Power("1", e), Silent("1"));
            EXPECT_EQ(Power("0", std::to_string(e)), Silent("0"));
            EXPECT_EQ(Power("1", std::to_string(e)), Silent("1"));
        }
    }
}

TEST(BigUintPower, RefusesNegativeExponents) {
    for (const int64_t limbs : {1, 2, 26}) {
        WidthScope scope(limbs);
        for (const char* base : {"0", "1", "2", "18446744073709551615"}) {
            EXPECT_EQ(Power(base, -1), Undefined);
            EXPECT_EQ(Power(base, INT64_MIN), Undefined);
        }
    }
}

TEST(BigUintPower, TakesExponentsOfAnyLength) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        for (const std::string& e : {TwoTo(63), TwoTo(UintBits(), "-1"), TwoTo(UintBits() - 1)}) {
            EXPECT_EQ(Power("0", e), Silent("0"));
            EXPECT_EQ(Power("1", e), Silent("1"));
            EXPECT_EQ(Power("2", e), Overflow);
            EXPECT_EQ(Power(TwoTo(UintBits(), "-1"), e), Overflow);
        }
        EXPECT_EQ(Power("2", INT64_MAX), Overflow);
        EXPECT_EQ(Power("3", TwoTo(63, "-1")), Overflow);
    }
    // Of these exponents the lowest limb alone would have a power.
    for (const int64_t limbs : {2, 26}) {
        WidthScope scope(limbs);
        for (const std::string& e : {TwoTo(64), TwoTo(64, "+1"), TwoTo(UintBits() - 1)}) {
            EXPECT_EQ(Power("0", e), Silent("0"));
            EXPECT_EQ(Power("1", e), Silent("1"));
            EXPECT_EQ(Power("2", e), Overflow);
        }
    }
    WidthScope scope(2);
    EXPECT_EQ(Power(TwoTo(64), "1"), UintValue(TwoTo(64)));
    EXPECT_EQ(Power(TwoTo(64), "2"), Overflow);
    EXPECT_EQ(Power(TwoTo(64), TwoTo(63)), Overflow);
}

TEST(BigUintPower, FillsTheWidthAndNoMore) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Power("2", UintBits() - 1), UintValue(TwoTo(UintBits() - 1)));
        EXPECT_EQ(Power("2", UintBits()), Overflow);
        // (2^k - 1)^2 = 2^2k - 2^(k + 1) + 1, here in all the bits there are.
        UintBuffer twice(TwoTo(UintBits() / 2 + 1));
        UintBuffer expected(TwoTo(UintBits(), "-1"));
        BigUintSub(expected, expected, twice);
        BigUintAddSmall(expected, expected, 2);
        EXPECT_EQ(Power(TwoTo(UintBits() / 2, "-1"), 2), Silent(expected.Text()));
        EXPECT_EQ(Power(TwoTo(UintBits() / 2), 2), Overflow);
        EXPECT_EQ(Power(TwoTo(UintBits() / 2), 1), UintValue(TwoTo(UintBits() / 2)));
        EXPECT_EQ(Power(TwoTo(UintBits(), "-1"), 2), Overflow);
    }
}

// A squaring that no bit of the exponent asks for must not count.
TEST(BigUintPower, SquaresOnlyForFurtherBits) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Power(TwoTo(UintBits(), "-1"), 1), UintValue(TwoTo(UintBits(), "-1")));
        EXPECT_EQ(Power(TwoTo(UintBits() - 1), 1), UintValue(TwoTo(UintBits() - 1)));
        const int64_t third = (UintBits() - 1) / 3;
        EXPECT_EQ(Power(TwoTo(third), 2), UintValue(TwoTo(2 * third)));
        EXPECT_EQ(Power(TwoTo(third), 3), UintValue(TwoTo(3 * third)));
        EXPECT_EQ(Power(TwoTo(third), 4), Overflow);
        EXPECT_EQ(Power(TwoTo(UintBits() / 8), 7), UintValue(TwoTo(UintBits() / 8 * 7)));
        EXPECT_EQ(Power(TwoTo(UintBits() / 8), 8), Overflow);
    }
    WidthScope scope(1);
    EXPECT_EQ(Power("3", 40), Silent("12157665459056928801"));
    EXPECT_EQ(Power("3", 41), Overflow);
    EXPECT_EQ(Power("15", 16), Silent("6568408355712890625"));
    EXPECT_EQ(Power("16", 16), Overflow);
    EXPECT_EQ(Power("10", 19), Silent("10000000000000000000"));
    EXPECT_EQ(Power("4294967295", 2), Silent("18446744065119617025"));
    EXPECT_EQ(Power("4294967296", 2), Overflow);
}

TEST(BigUintPower, MayBeWrittenOverItsOperands) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        UintBuffer base("7");
        BigUintPowerSmall(base, base, 13);
        EXPECT_EQ(TakeOutcome(base), Silent("96889010407"));
        base = UintBuffer("7");
        BigUintPower(base, base, UintBuffer("13"));
        EXPECT_EQ(TakeOutcome(base), Silent("96889010407"));
        UintBuffer e("13");
        BigUintPower(e, UintBuffer("7"), e);
        EXPECT_EQ(TakeOutcome(e), Silent("96889010407"));
        UintBuffer both("11");
        BigUintPower(both, both, both);
        EXPECT_EQ(TakeOutcome(both), Silent("285311670611"));
        both = UintBuffer(TwoTo(UintBits(), "-1"));
        BigUintPower(both, both, both);
        EXPECT_EQ(TakeOutcome(both), Overflow);
        UintBuffer one("1");
        BigUintPower(one, one, UintBuffer(TwoTo(UintBits(), "-1")));
        EXPECT_EQ(TakeOutcome(one), Silent("1"));
        UintBuffer large(TwoTo(63));
        BigUintPower(large, UintBuffer("1"), large);
        EXPECT_EQ(TakeOutcome(large), Silent("1"));
    }
}

TEST(BigUintPower, LeavesItsOperands) {
    WidthScope scope(2);
    const UintBuffer base("12345");
    const UintBuffer e("9");
    UintBuffer dest;
    BigUintPower(dest, base, e);
    EXPECT_EQ(base.Text(), "12345");
    EXPECT_EQ(e.Text(), "9");
    EXPECT_EQ(TakeOutcome(dest), Silent("6659166111488656281486807152009765625"));
}

TEST(BigUintPower, KeepsACodeThatWasNoted) {
    WidthScope scope(2);
    const auto after = [](auto operation) {
        UintBuffer dest;
        SetCalcError(CalcErrorSyntax);
        operation(dest.Get());
        return TakeOutcome(dest);
    };
    const UintBuffer two("2");
    const UintBuffer seven("7");
    const UintBuffer large(TwoTo(100));
    const auto kept = [](const char* text) { return Outcome{text, CalcErrorSyntax}; };
    EXPECT_EQ(after([&](uint64_t* d) { BigUintPowerSmall(d, seven, 3); }), kept("343"));
    EXPECT_EQ(after([&](uint64_t* d) { BigUintPowerSmall(d, seven, 300); }), kept("0"));
    EXPECT_EQ(after([&](uint64_t* d) { BigUintPowerSmall(d, seven, -3); }), kept("0"));
    EXPECT_EQ(after([&](uint64_t* d) { BigUintPowerSmall(d, seven, 0); }), kept("1"));
    EXPECT_EQ(after([&](uint64_t* d) { BigUintPower(d, two, seven); }), kept("128"));
    EXPECT_EQ(after([&](uint64_t* d) { BigUintPower(d, two, large); }), kept("0"));
    EXPECT_EQ(after([&](uint64_t* d) { BigUintPowerOfTwo(d, seven); }), kept("128"));
    EXPECT_EQ(after([&](uint64_t* d) { BigUintPowerOfTwo(d, large); }), kept("0"));
    EXPECT_EQ(after([&](uint64_t* d) { BigUintPowerOfTwoSmall(d, 128); }), kept("0"));
    EXPECT_EQ(after([&](uint64_t* d) { BigUintPowerOfTen(d, seven); }), kept("10000000"));
    EXPECT_EQ(after([&](uint64_t* d) { BigUintPowerOfTenSmall(d, 20); }),
              kept("100000000000000000000"));
    EXPECT_EQ(after([&](uint64_t* d) { BigUintPowerOfTenSmall(d, 39); }), kept("0"));
    EXPECT_EQ(after([&](uint64_t* d) { BigUintPowerOfTenSmall(d, -1); }), kept("0"));
}

TEST(BigUintPowerIfFits, LeavesNoCode) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        UintBuffer dest;
        EXPECT_TRUE(BigUintPowerIfFits(dest, UintBuffer("3"), 40));
        EXPECT_EQ(TakeOutcome(dest), Silent("12157665459056928801"));
        EXPECT_TRUE(BigUintPowerIfFits(dest, UintBuffer("0"), 5));
        EXPECT_EQ(TakeOutcome(dest), Silent("0"));
        EXPECT_FALSE(BigUintPowerIfFits(dest, UintBuffer("3"), UintBits()));
        EXPECT_EQ(TakeOutcome(dest), Silent("0"));
        SetCalcError(CalcErrorSyntax);
        EXPECT_TRUE(BigUintPowerIfFits(dest, UintBuffer("3"), 2));
        EXPECT_FALSE(BigUintPowerIfFits(dest, UintBuffer("3"), UintBits()));
        EXPECT_EQ(TakeCode(), CalcErrorSyntax);
    }
}

Outcome PowerOfTwo(int64_t n) {
    UintBuffer dest;
    BigUintPowerOfTwoSmall(dest, n);
    return TakeOutcome(dest);
}

Outcome PowerOfTwo(std::string_view n) {
    UintBuffer dest(n);
    BigUintPowerOfTwo(dest, dest);
    return TakeOutcome(dest);
}

TEST(BigUintPowerOfTwo, IsASingleBit) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        for (const int64_t n : {int64_t{0}, int64_t{1}, int64_t{2}, int64_t{31}, int64_t{32},
                                int64_t{63}, UintBits() - 1}) {
            EXPECT_EQ(PowerOfTwo(n), UintValue(TwoTo(n)));
            EXPECT_EQ(PowerOfTwo(std::to_string(n)), UintValue(TwoTo(n)));
        }
        for (const int64_t n : {UintBits(), UintBits() + 1, INT64_MAX}) {
            EXPECT_EQ(PowerOfTwo(n), Overflow);
            EXPECT_EQ(PowerOfTwo(std::to_string(n)), Overflow);
        }
        EXPECT_EQ(PowerOfTwo(TwoTo(63)), Overflow);
        EXPECT_EQ(PowerOfTwo(TwoTo(UintBits(), "-1")), Overflow);
        EXPECT_EQ(PowerOfTwo(-1), Undefined);
        EXPECT_EQ(PowerOfTwo(INT64_MIN), Undefined);
    }
    WidthScope scope(2);
    EXPECT_EQ(PowerOfTwo(64), Silent("18446744073709551616"));
    EXPECT_EQ(PowerOfTwo(TwoTo(64)), Overflow);
    EXPECT_EQ(PowerOfTwo(TwoTo(64, "+5")), Overflow);
}

Outcome PowerOfTen(int64_t n) {
    UintBuffer dest;
    BigUintPowerOfTenSmall(dest, n);
    return TakeOutcome(dest);
}

Outcome PowerOfTen(std::string_view n) {
    UintBuffer dest(n);
    BigUintPowerOfTen(dest, dest);
    return TakeOutcome(dest);
}

TEST(BigUintPowerOfTen, IsAOneWithZeros) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        const int64_t last = UintWidthForLimbs(limbs).digits;
        for (int64_t n = 0; n <= last;
             n = n < 100 || n + 2 >= last ? n + 1 : std::min(n + 1 + last / 10, last - 2)) {
            const Outcome expected = Silent("1" + std::string(static_cast<size_t>(n), '0'));
            EXPECT_EQ(PowerOfTen(n), expected) << n;
            EXPECT_EQ(PowerOfTen(std::to_string(n)), expected) << n;
        }
        for (const int64_t n : {last + 1, last + 16, 2 * last, 16 * last, INT64_MAX}) {
            EXPECT_EQ(PowerOfTen(n), Overflow) << n;
            EXPECT_EQ(PowerOfTen(std::to_string(n)), Overflow) << n;
        }
        EXPECT_EQ(PowerOfTen(TwoTo(63)), Overflow);
        EXPECT_EQ(PowerOfTen(TwoTo(UintBits(), "-1")), Overflow);
        EXPECT_EQ(PowerOfTen(-1), Undefined);
        EXPECT_EQ(PowerOfTen(INT64_MIN), Undefined);
    }
    WidthScope scope(2);
    EXPECT_EQ(PowerOfTen(TwoTo(64)), Overflow);
    EXPECT_EQ(PowerOfTen(TwoTo(64, "+5")), Overflow);
}

}  // namespace
}  // namespace tallymere
