// How the tests of roots judge a root without computing one.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>

#include "core/real_add.h"
#include "core/real_compare.h"
#include "core/real_layout.h"
#include "core/real_multiply.h"
#include "support/real_testing.h"

namespace tallymere::testing_support {

/// dest = x^n for n >= 1, exact where the layout has room for it.
inline void RaiseExactly(RealNumber* dest, const RealBuffer& x, int64_t n) {
    RealCopy(dest, x);
    for (int64_t i = 1; i < n; i++) {
        RealMulRaw(dest, dest, x);
    }
}

/// Expects root^degree to be x but for an error of the root of at most `hundredths` hundredths of a
/// unit in its last place: x lies between the exact powers of the two numbers so far below and
/// above the root. Both are finite, positive and of the layout in force.
inline void ExpectRootWithin(const RealNumber* root, const RealNumber* x, int64_t degree,
                             uint64_t hundredths) {
    const RealLayout layout = CurrentRealLayout();
    const std::string message = PlainText(root) + " is no root of " + PlainText(x);
    RealLayoutScope scope;
    InstallRealLayout(LayoutForDigits(degree * (layout.digits + 4)));
    RealBuffer wideRoot;
    RealBuffer wideX;
    RealConvertLayout(wideRoot, root, layout);
    RealConvertLayout(wideX, x, layout);
    RealBuffer error("1e-2");
    RealMulUint(error, error, hundredths);
    RealSetExponent(error, RealExponent(error) + RealExponent(root) - (layout.digits - 1));
    RealBuffer end;
    RealBuffer power;
    RealAddRaw(end, wideRoot, error, true);
    RaiseExactly(power, end, degree);
    EXPECT_LE(RealCompare(power, wideX), 0) << message << ": too large";
    RealAddRaw(end, wideRoot, error, false);
    RaiseExactly(power, end, degree);
    EXPECT_GE(RealCompare(power, wideX), 0) << message << ": too small";
}

}  // namespace tallymere::testing_support
