#include "exact/big_uint_gcd.h"

#include <gtest/gtest.h>

#include "exact/big_uint.h"
#include "exact/big_uint_multiply.h"
#include "support/exact_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

using Operation = void (*)(uint64_t* dest, const uint64_t* a, const uint64_t* b);

Outcome Find(Operation operation, std::string_view a, std::string_view b) {
    UintBuffer dest;
    operation(dest, UintBuffer(a), UintBuffer(b));
    return TakeOutcome(dest);
}

TEST(BigUintGcd, RefusesZeroArguments) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Find(BigUintGcd, "0", "5"), Refused(CalcErrorUndefined));
        EXPECT_EQ(Find(BigUintGcd, "5", "0"), Refused(CalcErrorUndefined));
        EXPECT_EQ(Find(BigUintGcd, "0", "0"), Refused(CalcErrorUndefined));
    }
}

TEST(BigUintGcd, FindsHandCheckedDivisors) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Find(BigUintGcd, "1", "1"), Silent("1"));
        EXPECT_EQ(Find(BigUintGcd, "12", "18"), Silent("6"));
        EXPECT_EQ(Find(BigUintGcd, "18", "12"), Silent("6"));
        EXPECT_EQ(Find(BigUintGcd, "17", "5"), Silent("1"));
        EXPECT_EQ(Find(BigUintGcd, "2^63", "2^40"), UintValue("2^40"));
        EXPECT_EQ(Find(BigUintGcd, "2^64-1", "2^64-1"), UintValue("2^64-1"));
        EXPECT_EQ(Find(BigUintGcd, "2^64-1", "3"), Silent("3"));
    }
}

// gcd(2^a - 1, 2^b - 1) = 2^gcd(a, b) - 1.
TEST(BigUintGcd, FindsDivisorsOfManyLimbs) {
    WidthScope scope(1039);
    EXPECT_EQ(Find(BigUintGcd, "2^66000-1", "2^44000-1"), UintValue("2^22000-1"));
    EXPECT_EQ(Find(BigUintGcd, "2^44000-1", "2^66000-1"), UintValue("2^22000-1"));
    EXPECT_EQ(Find(BigUintGcd, "2^66496-1", "2^65-1"), Silent("1"));
    EXPECT_EQ(Find(BigUintGcd, "2^66495-1", "2^65-1"), UintValue("2^65-1"));
    EXPECT_EQ(Find(BigUintGcd, "2^66000", "2^100"), UintValue("2^100"));
    EXPECT_EQ(Find(BigUintGcd, "2^66000+1", "2^66000-1"), Silent("1"));
}

// Neighbours in Fibonacci's sequence take the most steps, all of them with a quotient of 1.
TEST(BigUintGcd, FindsDivisorsOfFibonacciNumbers) {
    for (int64_t limbs : {1, 2, 3, 26, 520}) {
        WidthScope scope(limbs);
        UintBuffer before("0");
        UintBuffer last("1");
        for (;;) {
            UintBuffer next;
            BigUintAdd(next, before, last);
            if (TakeCode() != CalcErrorNone) {
                break;
            }
            before = last;
            last = next;
        }
        UintBuffer divisor;
        BigUintGcd(divisor, last, before);
        EXPECT_EQ(TakeOutcome(divisor), Silent("1"));
    }
}

TEST(BigUintGcd, WritesOverItsOperands) {
    for (Operation operation : {BigUintGcd, BigUintLcm, BigUintGcdAllowingZero}) {
        WidthScope scope(6);
        for (const char* text : {"48", "2^127-1", "2^128+8", "0"}) {
            const UintBuffer a("2^130+64");
            const UintBuffer b(text);
            UintBuffer expected;
            operation(expected, a, b);
            const CalcError code = TakeCode();
            UintBuffer x = a;
            operation(x, x, b);
            EXPECT_EQ(x, expected);
            EXPECT_EQ(TakeCode(), code);
            x = b;
            operation(x, a, x);
            EXPECT_EQ(x, expected);
            EXPECT_EQ(TakeCode(), code);
            x = a;
            operation(x, x, x);
            EXPECT_EQ(TakeOutcome(x), Silent(a.Text()));
        }
    }
}

TEST(BigUintGcd, KeepsACodeThatWasNotedBefore) {
    WidthScope scope(2);
    SetCalcError(CalcErrorOverflow);
    EXPECT_EQ(Find(BigUintGcd, "12", "18"), (Outcome{"6", CalcErrorOverflow}));
    SetCalcError(CalcErrorOverflow);
    EXPECT_EQ(Find(BigUintGcd, "12", "0"), (Outcome{"0", CalcErrorOverflow}));
}

TEST(BigUintGcdAllowingZero, TakesZeroForAMultipleOfEverything) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        const std::string ones = TwoTo(64 * limbs, "-1");
        EXPECT_EQ(Find(BigUintGcdAllowingZero, "0", "0"), Silent("0"));
        EXPECT_EQ(Find(BigUintGcdAllowingZero, "0", ones), UintValue(ones));
        EXPECT_EQ(Find(BigUintGcdAllowingZero, ones, "0"), UintValue(ones));
        EXPECT_EQ(Find(BigUintGcdAllowingZero, "12", "18"), Silent("6"));
    }
}

TEST(BigUintLcm, RefusesZeroArguments) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Find(BigUintLcm, "0", "5"), Refused(CalcErrorUndefined));
        EXPECT_EQ(Find(BigUintLcm, "5", "0"), Refused(CalcErrorUndefined));
        EXPECT_EQ(Find(BigUintLcm, "0", "0"), Refused(CalcErrorUndefined));
    }
}

TEST(BigUintLcm, FindsHandCheckedMultiples) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Find(BigUintLcm, "4", "6"), Silent("12"));
        EXPECT_EQ(Find(BigUintLcm, "1", "7"), Silent("7"));
        EXPECT_EQ(Find(BigUintLcm, "4294967296", "4294967295"), Silent("18446744069414584320"));
    }
}

TEST(BigUintLcm, OverflowsOnlyWhenTheMultipleItselfDoesNotFit) {
    WidthScope scope(2);
    EXPECT_EQ(Find(BigUintLcm, "2^127", "2^126"), UintValue("2^127"));
    EXPECT_EQ(Find(BigUintLcm, "2^128-1", "2^128-1"), UintValue("2^128-1"));
    EXPECT_EQ(Find(BigUintLcm, "2^64", "2^64-1"),
              UintValue("340282366920938463444927863358058659840"));
    EXPECT_EQ(Find(BigUintLcm, "2^64", "2^64+1"), Refused(CalcErrorOverflow));
    EXPECT_EQ(Find(BigUintLcm, "2^127", "3"), Refused(CalcErrorOverflow));
}

}  // namespace
}  // namespace tallymere
