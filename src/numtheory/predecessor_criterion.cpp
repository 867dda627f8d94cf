#include "numtheory/predecessor_criterion.h"

#include "core/contract.h"
#include "numtheory/wide_integers.h"

namespace tallymere {

namespace {

// From it on, F is large enough for any n below 2^128, since 2 F^3 is at least 2^130.
constexpr Wide AlwaysLargeEnough = {0, uint64_t{1} << 43};

}  // namespace

bool IsFactoredPartLargeEnough(Wide factoredPart, Wide rest) {
    TALLYMERE_REQUIRE(!IsOdd(factoredPart) && !IsZero(factoredPart) && IsOdd(rest));
    if (AtLeast(factoredPart, AlwaysLargeEnough)) {
        return true;
    }
    const uint64_t f = factoredPart.low;
    const Wide n = wide::Add(MultiplyLow(factoredPart, rest), Widen(1));
    const uint64_t r = RemainderByWord(rest, 2 * f);
    const Wide bound = wide::Add(wide::Multiply(2 * f + r - 1, f), Widen(1));
    // n < (F + 1) bound, without an overflow.
    return IsBelow(QuotientByWord(n, f + 1), bound);
}

// R = a b F + a + b, where a b is even since R is odd. F is so large that a + b < 2 F. So
// R = 2 F s + r with a b = 2 s and a + b = r, and r^2 - 8 s is the square of a - b. Where it is a
// square, a and b follow from it.
bool IsProductOfTwoFactors(Wide factoredPart, Wide rest) {
    TALLYMERE_REQUIRE(IsFactoredPartLargeEnough(factoredPart, rest));
    if (IsBelow(rest, factoredPart)) {
        return false;  // a b F alone would be above R
    }
    // F^2 < n here, so F is a word.
    const uint64_t f = factoredPart.low;
    const Wide quotient = QuotientByWord(rest, f);
    const Wide s = Half(quotient);
    const Wide r =
        wide::Add({0, RemainderByWord(rest, f)}, IsOdd(quotient) ? factoredPart : Wide{});
    // a + b <= a b + 1. Where r is not above that, r is below 2^64 and s below 2^45.
    if (IsBelow(wide::Add(quotient, Widen(1)), r)) {
        return false;
    }
    TALLYMERE_REQUIRE(r.high == 0 && s.high == 0 && s.low >> 45 == 0);
    const Wide square = wide::Multiply(r.low, r.low);
    const Wide subtracted = {0, 8 * s.low};
    if (IsBelow(square, subtracted)) {
        return false;
    }
    const Wide difference = wide::Subtract(square, subtracted);
    const uint64_t root = SquareRootOf(difference);
    return wide::Multiply(root, root) == difference;
}

}  // namespace tallymere
