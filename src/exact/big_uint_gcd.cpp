#include "exact/big_uint_gcd.h"

#include <algorithm>
#include <utility>

#include "core/contract.h"
#include "core/number_context.h"
#include "core/scratch.h"
#include "exact/big_uint.h"
#include "exact/big_uint_division.h"
#include "exact/big_uint_multiply.h"
#include "exact/lehmer_step.h"
#include "exact/limb_division.h"

namespace tallymere {

namespace {

// A number of `count` limbs. The highest is not 0 after Trim.
struct Operand {
    uint64_t* limbs;
    int64_t count;

    void Trim() {
        while (count > 0 && limbs[count - 1] == 0) {
            count--;
        }
    }
};

// x, y = y, x mod y. For x >= y > 0.
void EuclidStep(Operand& x, Operand& y) {
    CoreScratchScope scratch;
    const UintLimbDivisor divisor = PrepareDivisor(scratch.Take(y.count), y.limbs, y.count);
    uint64_t* rest = scratch.Take(x.count + 1);
    rest[x.count] = UintLimbsShiftLeft(rest, x.limbs, x.count, divisor.shift);
    UintLimbsDivide(nullptr, rest, x.count + 1 - y.count, divisor);
    UintLimbsShiftRight(x.limbs, rest, y.count, divisor.shift);
    x.count = y.count;
    x.Trim();
    std::swap(x, y);
}

// The three limbs of x below place `limbs`, highest first. Places that x does not have are 0.
LeadingLimbs Leading(const Operand& x, int64_t limbs) {
    const auto limb = [&](int64_t i) { return i >= 0 && i < x.count ? x.limbs[i] : 0; };
    return {limb(limbs - 1), limb(limbs - 2), limb(limbs - 3)};
}

// Does many steps of Euclid at once, for x >= y > 0. Returns false, and does nothing, when the
// leading limbs do not even determine one.
bool LehmerStep(Operand& x, Operand& y) {
    const int64_t n = x.count;
    LehmerFactors factors;
    if (!FindLehmerFactors(factors, Leading(x, n), Leading(y, n))) {
        return false;
    }
    std::fill(y.limbs + y.count, y.limbs + n, uint64_t{0});
    ApplyLehmerFactors(x.limbs, y.limbs, n, factors);
    x.count = n;
    y.count = n;
    x.Trim();
    y.Trim();
    if (factors.swaps) {
        std::swap(x, y);
    }
    return true;
}

uint64_t GcdSmall(uint64_t x, uint64_t y) {
    while (y != 0) {
        x = std::exchange(y, x % y);
    }
    return x;
}

// Refuses a zero argument: dest = 0, notes CalcErrorUndefined and returns true. Else returns false.
bool RefuseZero(uint64_t* dest, const uint64_t* a, const uint64_t* b) {
    if (!BigUintIsZero(a) && !BigUintIsZero(b)) {
        return false;
    }
    BigUintSetFailed(dest, CalcErrorUndefined);
    return true;
}

}  // namespace

void BigUintGcdAllowingZero(uint64_t* dest, const uint64_t* a, const uint64_t* b) {
    TALLYMERE_REQUIRE(BigUintsAreSameOrApart(dest, a) && BigUintsAreSameOrApart(dest, b));
    const int64_t width = numberContext.uintLimbs;
    CoreScratchScope scratch;
    Operand x = {scratch.Take(width), width};
    Operand y = {scratch.Take(width), width};
    BigUintCopy(x.limbs, a);
    BigUintCopy(y.limbs, b);
    if (BigUintCompare(a, b) < 0) {
        std::swap(x, y);
    }
    x.Trim();
    y.Trim();
    while (y.count > 1) {
        if (!LehmerStep(x, y)) {
            EuclidStep(x, y);
        }
    }
    if (y.count == 1 && x.count > 1) {
        EuclidStep(x, y);
    }
    if (y.count == 1) {
        BigUintFromUnsigned(dest, GcdSmall(x.limbs[0], y.limbs[0]));
    } else {
        BigUintClear(dest);
        std::copy_n(x.limbs, x.count, dest);
    }
}

void BigUintGcd(uint64_t* dest, const uint64_t* a, const uint64_t* b) {
    if (!RefuseZero(dest, a, b)) {
        BigUintGcdAllowingZero(dest, a, b);
    }
}

void BigUintLcm(uint64_t* dest, const uint64_t* a, const uint64_t* b) {
    TALLYMERE_REQUIRE(BigUintsAreSameOrApart(dest, a) && BigUintsAreSameOrApart(dest, b));
    if (RefuseZero(dest, a, b)) {
        return;
    }
    CoreScratchScope scratch;
    uint64_t* factor = scratch.Take(numberContext.uintLimbs);
    BigUintGcdAllowingZero(factor, a, b);
    BigUintDivide(factor, nullptr, a, factor);
    BigUintMul(dest, factor, b);
}

}  // namespace tallymere
