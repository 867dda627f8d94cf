#include "functions/complex_roots.h"

#include "core/contract.h"
#include "core/real_add.h"
#include "core/real_compare.h"
#include "core/real_divide.h"
#include "core/real_integer.h"
#include "core/real_layout.h"
#include "core/real_multiply.h"
#include "core/real_rounding.h"
#include "core/scratch.h"
#include "functions/hypotenuse.h"
#include "functions/inverse_trigonometric.h"
#include "functions/roots.h"
#include "functions/stored_constants.h"
#include "functions/trigonometric.h"

namespace tallymere {

namespace {

constexpr int64_t RootBranchGuardDigits = 4;

// Keeps 4 k + 2 quarter turns, twice, within 64 bits.
constexpr int64_t MaxDegree = (int64_t{1} << 61) - 1;

// The angle of x + iy, not both zero, in (-pi, pi], as the number of quarter turns returned, -2 to
// 2, and a rest of at most an eighth of a turn either way. Near the axes, and on them, the angle so
// has no part of pi in it that would take its digits.
int64_t SplitAngle(RealNumber* rest, const RealNumber* x, const RealNumber* y) {
    const bool nearRealAxis = RealCompare(y, x, true) <= 0;
    RealCopy(rest, nearRealAxis ? x : y);
    const bool positive = RealSign(rest) == 0;
    RealSetSign(rest, 0);
    RealAtan2(rest, nearRealAxis ? y : x, rest);
    if (nearRealAxis) {
        if (positive) {
            return 0;
        }
        RealNegate(rest);
        return RealSign(y) != 0 && !RealIsZero(y) ? -2 : 2;
    }
    if (!positive) {
        return -1;
    }
    RealNegate(rest);
    return 1;
}

// Sine and cosine of (quarters * pi/2 + rest) / n. Changes rest.
void SinCosOfShare(RealNumber* sine, RealNumber* cosine, RealNumber* rest, int64_t quarters,
                   int64_t n) {
    const uint64_t degree = static_cast<uint64_t>(n);
    if (quarters % n != 0) {
        CoreScratchScope scratch;
        RealNumber* turned = RealAt(scratch.Take(RealWords()));
        LoadConstantMultiple(turned, ConstPiQuarter, 2 * IntegerMagnitude(quarters));
        RealSetSign(turned, quarters < 0 ? 1 : 0);
        RealAddRaw(turned, turned, rest, false);
        RealDivUint(turned, turned, degree);
        RealSinCos(sine, cosine, turned);
        return;
    }
    // Whole quarter turns only swap and negate, so that pi does not come in.
    const uint64_t turns = static_cast<uint64_t>(quarters / n) % 4;
    const bool swapped = turns % 2 != 0;
    RealDivUint(rest, rest, degree);
    RealSinCos(swapped ? cosine : sine, swapped ? sine : cosine, rest);
    if (turns == 1 || turns == 2) {
        RealNegate(cosine);
    }
    if (turns == 2 || turns == 3) {
        RealNegate(sine);
    }
}

void TakeRoot(RealNumber* dest, int64_t n, const RealNumber* x) {
    if (n == 2) {
        RealSqrt(dest, x);
    } else if (n == 3) {
        RealCbrt(dest, x);
    } else {
        RealRootInt(dest, n, x);
    }
}

// Puts branch k of the n-th root in place of x + iy, not both zero; raw.
void TakeRootBranch(RealNumber* x, RealNumber* y, int64_t n, int64_t k) {
    CoreScratchScope scratch;
    RealNumber* rest = RealAt(scratch.Take(RealWords()));
    RealNumber* sine = RealAt(scratch.Take(RealWords()));
    RealNumber* cosine = RealAt(scratch.Take(RealWords()));
    const int64_t quarters = 4 * k + SplitAngle(rest, x, y);
    SinCosOfShare(sine, cosine, rest, quarters, n);
    RealNumber* modulus = rest;
    RealHypot(modulus, x, y);
    TakeRoot(modulus, n, modulus);
    RealMulRaw(x, modulus, cosine);
    RealMulRaw(y, modulus, sine);
}

// The body of all root branches; 1 <= n <= MaxDegree.
void RootBranch(ComplexNumber* dest, int64_t n, const ComplexNumber* z, const RealNumber* branch) {
    TALLYMERE_REQUIRE(ComplexIsWellFormed(z) && RealIsWellFormed(branch));
    TALLYMERE_REQUIRE(ComplexSameOrApart(dest, z));
    int64_t k = 0;
    if (!RealToInt(&k, branch, IntegerExact) || k < 0 || k >= n) {
        ComplexSetNaN(dest, CalcErrorUndefined);
        return;
    }
    if (ComplexIsZero(z)) {
        ComplexSetZero(dest, RealSign(RealPart(z)));
        return;
    }
    const int64_t g = RootBranchGuardDigits;
    const int64_t oldLimbs = numberContext.realLimbs;
    const RealLayout widened = WidenedLayout(g);
    const int64_t increase = widened.limbs - oldLimbs;
    CoreScratchScope scratch;
    RealNumber* x = RealAt(scratch.Take(widened.limbs + 1));
    RealNumber* y = RealAt(scratch.Take(widened.limbs + 1));
    RealWiden(x, RealPart(z), g, oldLimbs, increase);
    RealWiden(y, ImaginaryPart(z), g, oldLimbs, increase);
    {
        RealLayoutScope layout;
        InstallRealLayout(widened);
        TakeRootBranch(x, y, n, k);
    }
    RealRound(RealPart(dest), RealNarrow(RealPart(dest), x, g, oldLimbs, increase));
    RealRound(ImaginaryPart(dest), RealNarrow(ImaginaryPart(dest), y, g, oldLimbs, increase));
}

}  // namespace

void ComplexRootBranch(ComplexNumber* dest, const RealNumber* n, const ComplexNumber* z,
                       const RealNumber* k) {
    TALLYMERE_REQUIRE(RealIsWellFormed(n));
    int64_t degree = 0;
    if (!RealToInt(&degree, n, IntegerExact) || degree < 1 || degree > MaxDegree) {
        ComplexSetNaN(dest, CalcErrorUndefined);
        return;
    }
    RootBranch(dest, degree, z, k);
}

void ComplexSqrtBranch(ComplexNumber* dest, const ComplexNumber* z, const RealNumber* k) {
    RootBranch(dest, 2, z, k);
}

void ComplexCbrtBranch(ComplexNumber* dest, const ComplexNumber* z, const RealNumber* k) {
    RootBranch(dest, 3, z, k);
}

}  // namespace tallymere
