#include "algebra/exact_root.h"

#include <algorithm>

#include "algebra/exact_root_text.h"
#include "core/complex_arithmetic.h"
#include "core/contract.h"
#include "core/limits.h"
#include "core/real_add.h"
#include "core/real_multiply.h"
#include "core/scratch.h"
#include "exact/big_uint.h"
#include "functions/roots.h"
#include "values/exact_conversions.h"

namespace tallymere {

namespace {

// So many digits more than asked for tell on which side of the middle between two numbers a
// fraction of two limbs lies, unless it is that middle itself. A difference from it is at least
// 2^-129 of the last place.
constexpr int64_t FractionGuardDigits = 45;

// And so many more than twice the digits tell it of p + q sqrt(r), which is never the middle. It is
// the root of an equation with integers as coefficients. There the polynomial is at least 1 / v^2
// at a fraction u / v, and its derivative at most 2^705: these are 425 digits. What is lost where p
// and q sqrt(r) cancel is at most 270 digits.
constexpr int64_t SurdGuardDigits = 720;

int64_t WorkingDigits(const ExactRoot& root, int64_t digits) {
    const int64_t enough =
        root.q == nullptr ? digits + FractionGuardDigits : 2 * digits + SurdGuardDigits;
    return std::min(enough, MaxPrecisionDigits);
}

}  // namespace

bool ExactRootIsWellFormed(const ExactRoot& root) {
    if (!RationalIsWellFormed(root.p)) {
        return false;
    }
    if (root.q == nullptr) {
        return true;
    }
    const bool hasRadicand = !BigUintIsZero(root.r) && !BigUintEqualsSmall(root.r, 1);
    return RationalIsWellFormed(root.q) && !RationalIsZero(root.q) &&
           (hasRadicand || (root.imaginary && BigUintEqualsSmall(root.r, 1)));
}

void ExactRootToComplex(ComplexNumber* dest, const ExactRoot& root, int64_t digits) {
    TALLYMERE_REQUIRE(digits >= 1 && digits <= numberContext.precisionDigits);
    TALLYMERE_REQUIRE(ExactRootIsWellFormed(root));
    const int64_t working = WorkingDigits(root, digits);
    RealLayoutScope layout;
    InstallRealLayout(LayoutForDigits(working));
    CoreScratchScope scratch;
    ComplexNumber* value = ComplexAt(scratch.Take(ComplexWords()));
    ComplexSetZero(value, 0);
    if (!RationalIsZero(root.p)) {
        RealFromRational(RealPart(value), root.p);
    }
    if (root.q != nullptr) {
        RealNumber* term = RealAt(scratch.Take(RealWords()));
        RealNumber* factor = RealAt(scratch.Take(RealWords()));
        // Exact, since 2 limbs have fewer digits.
        RealFromBigUint(term, root.r, numberContext.uintLimbs);
        RealSqrtRounded(term, term);
        RealFromRational(factor, root.q);
        RealMul(term, term, factor);
        if (root.imaginary) {
            RealCopy(ImaginaryPart(value), term);
        } else {
            RealAdd(RealPart(value), RealPart(value), term);
        }
    }
    ComplexRoundDigits(value, value, digits);
    ComplexConvertPrecision(dest, layout.Saved().digits, value, working);
}

RootOutcome PutExactRoot(SolutionSet& solutions, int64_t slot, const ExactRoot& root,
                         int64_t digits) {
    TALLYMERE_REQUIRE(slot >= 0 && slot < solutions.count);
    ExactRootToComplex(solutions.values[slot], root, digits);
    return WriteExactRoot(solutions.exactTexts[slot], root) ? RootOutcome::Found
                                                            : RootOutcome::TextOverflow;
}

}  // namespace tallymere
