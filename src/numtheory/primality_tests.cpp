#include "numtheory/primality_tests.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "core/contract.h"
#include "core/number_context.h"
#include "core/scratch.h"
#include "core/stop_request.h"
#include "exact/big_uint.h"
#include "exact/big_uint_division.h"
#include "exact/uint_modulus.h"
#include "numtheory/small_primes.h"

namespace tallymere {

namespace {

// (2 / n) for an odd n, from its lowest limb.
int32_t JacobiSymbolOfTwo(const uint64_t* n) {
    return ((n[0] * n[0] - 1) & 8) == 0 ? 1 : -1;
}

// dest = base x, for a residue x that is not at dest, without a product.
void MultiplyByBase(uint64_t* dest, const uint64_t* x, int base, const UintModulus& modulus) {
    const uint64_t* addend = x;
    for (int factor = 1; factor < base; factor++) {
        UintResidueAdd(dest, addend, x, modulus);
        addend = dest;
    }
}

// True when base^((n - 1) / 2) = symbol modulo n, for an odd n and a base of 2 or 3.
// False and CalcErrorCancelled when a stop is requested.
bool PowerIsSymbol(int base, int32_t symbol, const uint64_t* n) {
    const int64_t limbs = BigUintLength(n);
    const int64_t bits = BigUintBitLength(n);
    CoreScratchScope scratch;
    const UintModulus modulus = PrepareUintModulus(scratch.Take(UintModulusRoom(limbs)), n, limbs);
    uint64_t* power = scratch.Take(limbs);
    uint64_t* expected = scratch.Take(limbs);
    const UintWidthScope width(limbs);
    BigUintFromUnsigned(expected, 1);
    UintResidueFrom(power, expected, 1, modulus);
    // The bits of n above the lowest one are those of (n - 1) / 2.
    for (int64_t i = bits - 1; i >= 1; i--) {
        if (StopRequested()) {
            SetCalcError(CalcErrorCancelled);
            return false;
        }
        UintResidueSquare(power, power, modulus);
        if (BigUintBit(n, i) != 0) {
            BigUintCopy(expected, power);
            MultiplyByBase(power, expected, base, modulus);
        }
    }
    UintResidueTo(power, power, modulus);
    if (symbol == 1) {
        return BigUintEqualsSmall(power, 1);
    }
    BigUintSubOne(expected, n);
    return BigUintCompare(power, expected) == 0;
}

}  // namespace

int IsCompositeNumber(const uint64_t* n) {
    const int64_t limbs = BigUintLength(n);
    if (limbs <= 1 && n[0] < FirstLargePrime) {
        return IsSmallPrime(n[0]) ? 0 : 1;
    }
    if ((n[0] & 1) == 0 || HasSmallOddPrime(n, limbs)) {
        return 1;
    }
    return EulerTestBase2(n) && EulerTestBase3(n) ? 0 : 1;
}

bool EulerTestBase2(const uint64_t* n) {
    TALLYMERE_REQUIRE(BigUintBit(n, 0) != 0 && BigUintLength(n) > 0);
    if (numberContext.uintLimbs > MaxEulerTestLimbs) {
        SetCalcError(CalcErrorBadParameter);
        return false;
    }
    return PowerIsSymbol(2, JacobiSymbolOfTwo(n), n);
}

bool EulerTestBase3(const uint64_t* n) {
    if (numberContext.uintLimbs < 1) {
        SetCalcError(CalcErrorUndefined);
        return false;
    }
    if ((n[0] & 1) == 0) {
        return false;
    }
    CoreScratchScope scratch;
    uint64_t* three = scratch.Take(numberContext.uintLimbs);
    BigUintFromUnsigned(three, 3);
    return PowerIsSymbol(3, JacobiSymbol(three, n), n);
}

int32_t JacobiSymbol(const uint64_t* a, const uint64_t* b) {
    TALLYMERE_REQUIRE(BigUintBit(b, 0) != 0);
    CoreScratchScope scratch;
    uint64_t* upper = scratch.Take(numberContext.uintLimbs);
    uint64_t* lower = scratch.Take(numberContext.uintLimbs);
    BigUintCopy(upper, a);
    BigUintCopy(lower, b);
    int32_t symbol = 1;
    while (BigUintBitLength(upper) >= 2) {
        if (BigUintBit(upper, 0) != 0) {
            // Reciprocity: the sign changes where both are 3 modulo 4.
            if ((((upper[0] - 1) * (lower[0] - 1)) & 4) != 0) {
                symbol = -symbol;
            }
            BigUintDivide(nullptr, lower, lower, upper);
            std::swap(upper, lower);
        } else {
            const int zeros = std::min(std::countr_zero(upper[0]), 63);
            if (zeros % 2 != 0) {
                symbol *= JacobiSymbolOfTwo(lower);
            }
            BigUintShiftRight(upper, upper, zeros);
        }
    }
    return symbol;
}

}  // namespace tallymere
