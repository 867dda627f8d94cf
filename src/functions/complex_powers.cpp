#include "functions/complex_powers.h"

#include "core/complex_arithmetic.h"
#include "core/contract.h"
#include "core/real_integer.h"
#include "core/scratch.h"
#include "functions/powers.h"

namespace tallymere {

void ComplexPowerInt(ComplexNumber* dest, const ComplexNumber* z, int64_t n) {
    TALLYMERE_REQUIRE(ComplexIsWellFormed(z));
    TALLYMERE_REQUIRE(ComplexSameOrApart(dest, z));
    if (ComplexIsReal(z) || n == 0) {
        RealPowerIntRounded(RealPart(dest), RealPart(z), n);
        ComplexClearImaginaryPart(dest);
        return;
    }
    CoreScratchScope scratch;
    ComplexNumber* base = ComplexAt(scratch.Take(ComplexWords()));
    ComplexCopy(base, z);
    // The first factor is copied, and nothing is squared that is no factor: a product with 1 would
    // have no value for an infinite z, and a square too many could overflow.
    uint64_t count = IntegerMagnitude(n);
    for (; count % 2 == 0; count /= 2) {
        ComplexMul(base, base, base);
    }
    ComplexCopy(dest, base);
    for (count /= 2; count != 0; count /= 2) {
        ComplexMul(base, base, base);
        if (count % 2 != 0) {
            ComplexMul(dest, dest, base);
        }
    }
    if (n < 0) {
        ComplexReciprocal(dest, dest);
    }
}

void ComplexPower(ComplexNumber* dest, const ComplexNumber* z, const ComplexNumber* y) {
    TALLYMERE_REQUIRE(ComplexIsWellFormed(z) && ComplexIsWellFormed(y));
    TALLYMERE_REQUIRE(ComplexSameOrApart(dest, z) && ComplexSameOrApart(dest, y));
    if (ComplexIsReal(z) || !ComplexIsReal(y)) {
        ComplexRealOnly(dest, z, y, RealPowerRounded);
        return;
    }
    int64_t n = 0;
    if (!RealToInt(&n, RealPart(y), IntegerExact)) {
        ComplexSetNaN(dest, CalcErrorUndefined);
        return;
    }
    ComplexPowerInt(dest, z, n);
}

}  // namespace tallymere
