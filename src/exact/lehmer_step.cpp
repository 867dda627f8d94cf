#include "exact/lehmer_step.h"

#include <bit>
#include <utility>

#include "core/contract.h"
#include "core/wide_arithmetic.h"
#include "exact/limb_division.h"

namespace tallymere {

namespace {

// The leading parts have 126 bits, so that two bits of 128 are left for a sign.
constexpr int LeadingShift = 2;

// The top 126 bits of the limbs shifted left by `shift` bits.
Wide LeadingPart(LeadingLimbs x, int shift) {
    const auto moved = [shift](uint64_t limb, uint64_t below) {
        return (limb << shift) | ((below >> 1) >> (63 - shift));
    };
    const uint64_t high = moved(x.high, x.middle);
    const uint64_t low = moved(x.middle, x.low);
    return {high >> LeadingShift, (low >> LeadingShift) | (high << (64 - LeadingShift))};
}

bool IsNegative(Wide x) {
    return (x.high >> 63) != 0;
}

// The low 128 bits of x k.
Wide MultiplyWord(Wide x, uint64_t k) {
    Wide product = wide::Multiply(x.low, k);
    product.high += x.high * k;
    return product;
}

// x plus a carry that is a signed number.
Wide AddSigned(Wide x, uint64_t carry) {
    return wide::Add(x, {IsNegative({carry, 0}) ? ~uint64_t{0} : 0, carry});
}

bool IsAtLeast(LeadingLimbs x, LeadingLimbs y) {
    if (x.high != y.high) {
        return x.high > y.high;
    }
    return AtLeast({x.middle, x.low}, {y.middle, y.low});
}

}  // namespace

bool LehmerFactorsAreWellFormed(const LehmerFactors& factors) {
    constexpr uint64_t limit = uint64_t{1} << 63;
    const Wide kept = wide::Multiply(factors.keepX, factors.keepY);
    const Wide taken = wide::Multiply(factors.takeX, factors.takeY);
    const Wide determinant = wide::Subtract(kept, taken);
    return factors.keepX < limit && factors.takeY < limit && factors.keepY < limit &&
           factors.takeX < limit && determinant.high == 0 && determinant.low == 1;
}

// Why the factors are right for all numbers with these leading limbs:
//
// Let x and y be the leading parts, x < 2^126. Euclid's algorithm makes remainders of them. Each is
// s x - t y or t y - s x, where s and t are at most 2^126 / r, and r is the remainder before it.
//
// A step is taken only if its remainder is at least 2^64 and the remainder before it is larger by
// at least 2^64. So r was above 2^65, and s and t are at most 2^61.
//
// Now count in units of the last place of the leading parts. The limbs that were cut off change a
// remainder by less than max(s, t). They change the difference of two remainders by less than the
// sum of the factors of both. Both changes are below 2^64, so no remainder and no difference can
// become 0 or negative.
bool FindLehmerFactors(LehmerFactors& factors, LeadingLimbs x, LeadingLimbs y) {
    TALLYMERE_REQUIRE(x.high > 0 && IsAtLeast(x, y));
    const int shift = std::countl_zero(x.high);
    Wide larger = LeadingPart(x, shift);
    Wide smaller = LeadingPart(y, shift);
    if (smaller.high == 0) {
        return false;
    }
    // larger = |s0 x - t0 y| and smaller = |s1 x - t1 y| at all times.
    uint64_t s0 = 1;
    uint64_t t0 = 0;
    uint64_t s1 = 0;
    uint64_t t1 = 1;
    bool swapped = false;
    for (;;) {
        const int zeros = std::countl_zero(larger.high);
        const auto leadingWord = [zeros](Wide part) {
            return (part.high << zeros) | ((part.low >> 1) >> (63 - zeros));
        };
        const uint64_t divisor = leadingWord(smaller);
        // The quotient of the leading words is below 2^32 then, and too large by at most 2.
        if ((divisor >> 32) == 0) {
            break;
        }
        uint64_t quotient = leadingWord(larger) / divisor;
        Wide rest = wide::Subtract(larger, MultiplyWord(smaller, quotient));
        while (IsNegative(rest)) {
            rest = wide::Add(rest, smaller);
            quotient--;
        }
        if (rest.high == 0 || wide::Subtract(smaller, rest).high == 0) {
            break;
        }
        larger = std::exchange(smaller, rest);
        s0 = std::exchange(s1, s0 + quotient * s1);
        t0 = std::exchange(t1, t0 + quotient * t1);
        swapped = !swapped;
    }
    if (s1 == 0) {
        return false;
    }
    factors = swapped ? LehmerFactors{s1, t1, t0, s0, true} : LehmerFactors{s0, t0, t1, s1, false};
    return true;
}

// The factors are below 2^63. So a difference of two products, plus a signed carry, fits a signed
// number of 128 bits.
void ApplyLehmerFactors(uint64_t* x, uint64_t* y, int64_t n, const LehmerFactors& factors) {
    TALLYMERE_REQUIRE(n >= 0 && LehmerFactorsAreWellFormed(factors));
    TALLYMERE_REQUIRE(UintLimbsAreApart(x, n, y, n));
    uint64_t carryX = 0;
    uint64_t carryY = 0;
    for (int64_t i = 0; i < n; i++) {
        const uint64_t limbX = x[i];
        const uint64_t limbY = y[i];
        const Wide newX = AddSigned(wide::Subtract(wide::Multiply(factors.keepX, limbX),
                                                   wide::Multiply(factors.takeY, limbY)),
                                    carryX);
        const Wide newY = AddSigned(wide::Subtract(wide::Multiply(factors.keepY, limbY),
                                                   wide::Multiply(factors.takeX, limbX)),
                                    carryY);
        x[i] = newX.low;
        y[i] = newY.low;
        carryX = newX.high;
        carryY = newY.high;
    }
    TALLYMERE_REQUIRE(carryX == 0 && carryY == 0);
}

}  // namespace tallymere
