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
/// unit in its last place: x lies between the powers of the two numbers so far below and above the
/// root. Both are finite and positive; the root is of layout `rootLayout`, and x of the layout in
/// force, which has room for those powers.
inline void ExpectWideRootWithin(const RealNumber* root, RealLayout rootLayout, const RealNumber* x,
                                 int64_t degree, uint64_t hundredths) {
    RealBuffer wideRoot;
    RealConvertLayout(wideRoot, root, rootLayout);
    RealBuffer error("1e-2");
    RealMulUint(error, error, hundredths);
    RealSetExponent(error, RealExponent(error) + RealExponent(root) - (rootLayout.digits - 1));
    RealBuffer end;
    RealBuffer power;
    RealAddRaw(end, wideRoot, error, true);
    RaiseExactly(power, end, degree);
    EXPECT_LE(RealCompare(power, x), 0)
        << PlainText(wideRoot) << " is too large as root of " << PlainText(x);
    RealAddRaw(end, wideRoot, error, false);
    RaiseExactly(power, end, degree);
    EXPECT_GE(RealCompare(power, x), 0)
        << PlainText(wideRoot) << " is too small as root of " << PlainText(x);
}

/// The same for an x of the root's own layout, which is in force.
inline void ExpectRootWithin(const RealNumber* root, const RealNumber* x, int64_t degree,
                             uint64_t hundredths) {
    const RealLayout layout = CurrentRealLayout();
    RealLayoutScope scope;
    InstallRealLayout(LayoutForDigits(degree * (layout.digits + 4)));
    RealBuffer wideX;
    RealConvertLayout(wideX, x, layout);
    ExpectWideRootWithin(root, layout, wideX, degree, hundredths);
}

}  // namespace tallymere::testing_support
