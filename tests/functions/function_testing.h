// What tests of the elementary functions share.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "core/real_add.h"
#include "core/real_compare.h"
#include "core/real_integer.h"
#include "core/real_layout.h"
#include "core/real_rounding.h"
#include "support/decimal_text.h"
#include "support/real_testing.h"

namespace tallymere::testing_support {

/// What a function gives where it has no value, and when it is asked to stop.
inline const Outcome Undefined = {"nan", CalcErrorUndefined};
inline const Outcome Cancelled = {"nan", CalcErrorCancelled};

/// The result and the code of f(x), which must be the same with the operand as destination.
template <typename Function>
Outcome ResultOf(Function f, std::string_view text) {
    const RealBuffer x(text);
    RealBuffer dest;
    f(dest, x);
    const Outcome outcome = {PlainText(dest), TakeCode()};
    RealBuffer same = x;
    f(same, same);
    EXPECT_EQ(same, dest) << "with the destination as operand";
    EXPECT_EQ(TakeCode(), outcome.code);
    return outcome;
}

/// The same for f(a, b), whose operands may be the destination one by one.
template <typename Function>
Outcome ResultOf(Function f, std::string_view first, std::string_view second) {
    const RealBuffer a(first);
    const RealBuffer b(second);
    RealBuffer dest;
    f(dest, a, b);
    const Outcome outcome = {PlainText(dest), TakeCode()};
    RealBuffer same = a;
    f(same, same, b);
    EXPECT_EQ(same, dest) << "with the destination as first operand";
    EXPECT_EQ(TakeCode(), outcome.code);
    same = b;
    f(same, a, same);
    EXPECT_EQ(same, dest) << "with the destination as second operand";
    EXPECT_EQ(TakeCode(), outcome.code);
    return outcome;
}

/// The number that the text denotes, rounded to p digits; as PlainText.
inline std::string RoundedText(std::string_view text, int64_t p) {
    return ReadDecimal(WideText(text), p, u'.', 0).plain;
}

/// What a function gives at the precision in force if it gives the number that the digits begin,
/// correctly rounded and without a code.
inline Outcome Digits(std::string_view digits) {
    return Silent(RoundedText(digits, numberContext.precisionDigits));
}

/// The number that the digits begin, rounded to the precision in force.
inline RealBuffer NumberOf(std::string_view digits) {
    return RealBuffer(Digits(digits).text);
}

/// Fails unless `actual` is at most `units` units in the last place of `expected` away from it.
inline void ExpectWithin(int64_t units, const RealBuffer& actual, const RealBuffer& expected) {
    RealBuffer difference;
    RealSub(difference, actual, expected);
    RealBuffer bound;
    RealFromUint(bound, static_cast<uint64_t>(units));
    RealSetExponent(
        bound, RealExponent(bound) + RealExponent(expected) - (numberContext.precisionDigits - 1));
    EXPECT_LE(RealCompare(difference, bound, true), 0)
        << PlainText(actual) << " is off " << PlainText(expected) << " by "
        << PlainText(difference);
}

/// Fails unless `rounded` gives what the inner form f gives with guardDigits(x) guard digits, for
/// random x of exponents from low to high. Enough of them have digits close enough to a tie for a
/// digit less to show.
template <typename GuardDigits>
void ExpectGuardDigits(RealRoundedUnary rounded, RealUnaryFunction f, GuardDigits guardDigits,
                       int64_t low, int64_t high, bool positive = false) {
    RandomSource random;
    for (int round = 0; round < TestRounds(2000); round++) {
        PrecisionScope scope(random.Between(10, 60));
        RealBuffer x;
        FillReal(random, x, 0);
        RealSetExponent(x, random.Between(low, high));
        if (positive) {
            RealSetSign(x, 0);
        }
        RealBuffer dest;
        rounded(dest, x);
        const CalcError code = TakeCode();
        RealBuffer expected;
        RealRound(expected, WithGuardDigitsUnary(expected, x, guardDigits(x), f));
        EXPECT_EQ(dest, expected) << PlainText(x);
        EXPECT_EQ(TakeCode(), code);
    }
}

/// The same for a function of two numbers, which fill(random, a, b) makes; guardDigits gets both.
template <typename GuardDigits, typename Fill>
void ExpectBinaryGuardDigits(RealRoundedBinary rounded, RealBinaryFunction f,
                             GuardDigits guardDigits, Fill fill) {
    RandomSource random;
    for (int round = 0; round < TestRounds(2000); round++) {
        PrecisionScope scope(random.Between(10, 60));
        RealBuffer a;
        RealBuffer b;
        fill(random, a, b);
        RealBuffer dest;
        rounded(dest, a, b);
        const CalcError code = TakeCode();
        RealBuffer expected;
        RealRound(expected, WithGuardDigitsBinary(expected, a, b, guardDigits(a, b), f));
        EXPECT_EQ(dest, expected) << PlainText(a) << " and " << PlainText(b);
        EXPECT_EQ(TakeCode(), code);
    }
}

/// A finite number above zero with an exponent from low to high.
inline void FillPositive(RandomSource& random, RealNumber* x, int64_t low, int64_t high) {
    FillReal(random, x, 0);
    x->header = MakeHeader(random.Between(low, high), 0);
}

}  // namespace tallymere::testing_support
