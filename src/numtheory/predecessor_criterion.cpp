#include "numtheory/predecessor_criterion.h"

#include "core/contract.h"
#include "numtheory/residue_inverse.h"
#include "numtheory/wide_integers.h"

namespace tallymere {

namespace {

// From it on, F is large enough for any n below 2^128, since 2 F^3 is at least 2^130.
constexpr Wide AlwaysLargeEnough = {0, uint64_t{1} << 43};

constexpr Wide One = {0, 1};

}  // namespace

bool IsLargeEnoughFactor(Wide factored, Wide rest) {
    TALLYMERE_REQUIRE(!IsOdd(factored) && !IsZero(factored) && IsOdd(rest));
    if (AtLeast(factored, AlwaysLargeEnough)) {
        return true;
    }
    const uint64_t f = factored.low;
    const Wide n = wide::Add(MultiplyLow(factored, rest), One);
    const uint64_t r = RemainderByWord(rest, 2 * f);
    const Wide bound = wide::Add(wide::Multiply(2 * f + r - 1, f), One);
    // n < (F + 1) bound, without an overflow.
    return IsBelow(DivideByWord(n, f + 1), bound);
}

// R = a b F + a + b, where a b is even since R is odd. F is so large that a + b < 2 F. So
// R = 2 F s + r with a b = 2 s and a + b = r, and r^2 - 8 s is the square of a - b. Where it is a
// square, a and b follow from it.
bool IsProductOfTwoOfTheForm(Wide factored, Wide rest) {
    TALLYMERE_REQUIRE(IsLargeEnoughFactor(factored, rest));
    if (IsBelow(rest, factored)) {
        return false;  // s = 0
    }
    // F^2 < n here, so F is a word.
    const uint64_t f = factored.low;
    const Wide quotient = DivideByWord(rest, f);
    const Wide s = Half(quotient);
    const Wide r = wide::Add({0, RemainderByWord(rest, f)}, IsOdd(quotient) ? factored : Wide{});
    // a + b <= a b + 1. Where r is not above that, r is below 2^64 and s below 2^45.
    if (IsZero(s) || IsBelow(wide::Add(quotient, One), r)) {
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
