#include "reference/root_twins.h"

#include "core/real_add.h"
#include "core/real_divide.h"
#include "core/real_integer.h"
#include "core/real_multiply.h"
#include "functions/root_seeds.h"
#include "support/real_testing.h"

namespace tallymere::reference {

namespace {

using testing_support::RealBuffer;

// floor(a / b).
int64_t FloorQuotient(int64_t a, int64_t b) {
    return a / b - (a % b < 0 ? 1 : 0);
}

// x = 10^k * scaled with scaled in [1, 10^degree), k a multiple of the degree. Returns k / degree.
int64_t Scale(RealNumber* scaled, const RealNumber* x, int64_t degree) {
    const int64_t k = FloorQuotient(RealExponent(x), degree);
    RealCopy(scaled, x);
    RealSetExponent(scaled, RealExponent(x) - degree * k);
    return k;
}

void SetSeed(RealNumber* dest, uint64_t seed) {
    RealFromUint(dest, seed);
    RealSetExponent(dest, 0);
}

// The hundredfold value of x, for 1 <= x < 1000.
uint64_t Hundredfold(const RealNumber* x) {
    return RealLeadingDigits(RealLimbs(x), 3) * PowerOfTen(RealExponent(x));
}

}  // namespace

void TwinSqrt(RealNumber* dest, const RealNumber* x) {
    RealBuffer scaled;
    const int64_t exponent = Scale(scaled, x, 2);
    const uint64_t value = Hundredfold(scaled);
    const uint64_t factor = value < 400 ? 1 : value < 1600 ? 2 : value < 2500 ? 3 : 5;
    RealDivUint(scaled, scaled, factor * factor);
    SetSeed(dest, SquareRootSeed(RealLeadingDigits(RealLimbs(scaled), DigitsPerLimb)));
    for (int64_t tenths = SquareRootSeedTenths; tenths < 10 * numberContext.precisionDigits;
         tenths *= 2) {
        RealBuffer quotient;
        RealDivRaw(quotient, scaled, dest);
        RealAddRaw(dest, dest, quotient, false);
        RealDivUint(dest, dest, 2);
    }
    RealSetExponent(dest, RealExponent(dest) + exponent);
    RealMulUint(dest, dest, factor);
}

void TwinCbrt(RealNumber* dest, const RealNumber* x) {
    RealBuffer scaled;
    const int64_t exponent = Scale(scaled, x, 3);
    const uint64_t value = Hundredfold(scaled);
    const uint64_t factor = value < 800 ? 1 : value < 6400 ? 2 : value < 51200 ? 4 : 8;
    RealDivUint(scaled, scaled, factor * factor * factor);
    SetSeed(dest, CubeRootSeed(RealLeadingDigits(RealLimbs(scaled), DigitsPerLimb)));
    for (int64_t tenths = CubeRootSeedTenths; tenths < 10 * numberContext.precisionDigits;
         tenths *= 2) {
        RealBuffer twice;
        RealBuffer quotient;
        RealMulUint(twice, dest, 2);
        RealMulRaw(quotient, dest, dest);
        RealDivRaw(quotient, scaled, quotient);
        RealAddRaw(dest, twice, quotient, false);
        RealDivUint(dest, dest, 3);
    }
    RealSetExponent(dest, RealExponent(dest) + exponent);
    RealMulUint(dest, dest, factor);
}

}  // namespace tallymere::reference
