// What tests of the elementary functions share.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "core/real_layout.h"
#include "core/real_rounding.h"
#include "support/real_testing.h"

namespace tallymere::testing_support {

using RoundedUnaryFunction = void (*)(RealNumber* dest, const RealNumber* x);
using RoundedBinaryFunction = void (*)(RealNumber* dest, const RealNumber* a, const RealNumber* b);

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

/// The number that the text denotes, of at most 120 digits, rounded to p digits; as PlainText.
inline std::string RoundedText(std::string_view text, int64_t p) {
    PrecisionScope scope(120);
    RealBuffer x(text);
    RealRoundDigits(x, x, p);
    return PlainText(x);
}

}  // namespace tallymere::testing_support
