#include "exact/big_uint_mod_power.h"

#include <algorithm>

#include "core/contract.h"
#include "core/number_context.h"
#include "core/scratch.h"
#include "exact/big_uint.h"
#include "exact/uint_modulus.h"

namespace tallymere {

namespace {

// The most bits of the exponent that one window takes, and the most limbs for the table of powers
// that a window needs.
constexpr int64_t MostWindowBits = 7;
constexpr int64_t MostOddPowerLimbs = 5'000;

// The bits of the exponent that one window takes. A longer window saves products: with w bits there
// is one product for w + 1 bits on average. But each bit more doubles the table of odd powers.
int64_t WindowBits(int64_t exponentBits, int64_t n) {
    int64_t window = 1;
    while (window < MostWindowBits && (n << window) <= MostOddPowerLimbs &&
           exponentBits > ((window + 1) * (window + 2)) << (window - 1)) {
        window++;
    }
    return window;
}

// dest = base, base^3, base^5 ..., `count` of them. `square` is room for a residue.
void ComputeOddPowers(uint64_t* dest, int64_t count, const uint64_t* base, uint64_t* square,
                      const UintModulus& modulus) {
    const int64_t n = modulus.divisor.count;
    std::copy_n(base, n, dest);
    if (count > 1) {
        UintResidueSquare(square, base, modulus);
    }
    for (int64_t k = 1; k < count; k++) {
        UintResidueMultiply(dest + k * n, dest + (k - 1) * n, square, modulus);
    }
}

// The value of some neighbouring bits of an exponent; `last` is the index of the lowest.
struct ExponentBits {
    uint64_t value;
    int64_t last;
};

// Takes at most `window` bits of e, from bit `first` down. The first and the last of them are set.
// A bit `first` that is not set is taken alone.
ExponentBits TakeWindow(const uint64_t* e, int64_t first, int64_t window) {
    ExponentBits bits = {BigUintBit(e, first), first};
    if (bits.value != 0) {
        bits.last = std::max<int64_t>(first - window + 1, 0);
        while (BigUintBit(e, bits.last) == 0) {
            bits.last++;
        }
        for (int64_t k = first - 1; k >= bits.last; k--) {
            bits.value = 2 * bits.value + BigUintBit(e, k);
        }
    }
    return bits;
}

// dest = base^e for residues and an e of exponentBits bits, 1 or more. False when a stop is
// requested.
// Method: windows that slide over the exponent (Menezes, van Oorschot and Vanstone, "Handbook of
// Applied Cryptography", algorithm 14.85).
bool PowerModulo(uint64_t* dest, const uint64_t* base, const uint64_t* e, int64_t exponentBits,
                 const UintModulus& modulus) {
    const int64_t n = modulus.divisor.count;
    const int64_t window = WindowBits(exponentBits, n);
    const int64_t powers = int64_t{1} << (window - 1);
    CoreScratchScope scratch;
    uint64_t* oddPowers = scratch.Take(powers * n);
    ComputeOddPowers(oddPowers, powers, base, dest, modulus);
    bool started = false;
    for (int64_t i = exponentBits - 1; i >= 0;) {
        const ExponentBits bits = TakeWindow(e, i, window);
        for (; i >= bits.last; i--) {
            if (StopRequested()) {
                return false;
            }
            if (started) {
                UintResidueSquare(dest, dest, modulus);
            }
        }
        if (bits.value != 0) {
            const uint64_t* factor = oddPowers + static_cast<int64_t>(bits.value / 2) * n;
            if (started) {
                UintResidueMultiply(dest, dest, factor, modulus);
            } else {
                std::copy_n(factor, n, dest);
                started = true;
            }
        }
    }
    return true;
}

}  // namespace

void BigUintModPower(uint64_t* dest, const uint64_t* a, const uint64_t* e, const uint64_t* m) {
    TALLYMERE_REQUIRE(BigUintsAreSameOrApart(dest, a) && BigUintsAreSameOrApart(dest, e) &&
                      BigUintsAreSameOrApart(dest, m));
    if (BigUintIsZero(m)) {
        BigUintSetFailed(dest, CalcErrorExactDivisionByZero);
        return;
    }
    if (BigUintIsZero(e)) {
        BigUintFromUnsigned(dest, BigUintEqualsSmall(m, 1) ? 0 : 1);
        return;
    }
    const int64_t n = BigUintLength(m);
    const int64_t lengthOfA = BigUintLength(a);
    const int64_t exponentBits = BigUintBitLength(e);
    CoreScratchScope scratch;
    const UintModulus modulus = PrepareUintModulus(scratch.Take(UintModulusRoom(n)), m, n);
    uint64_t* power = scratch.Take(n);
    bool done = false;
    {
        UintWidthScope width(n);
        uint64_t* base = scratch.Take(n);
        UintResidueFrom(base, a, lengthOfA, modulus);
        done = PowerModulo(power, base, e, exponentBits, modulus);
        if (done) {
            UintResidueTo(power, power, modulus);
        }
    }
    if (!done) {
        BigUintSetFailed(dest, CalcErrorCancelled);
        return;
    }
    BigUintClear(dest);
    std::copy_n(power, n, dest);
}

}  // namespace tallymere
