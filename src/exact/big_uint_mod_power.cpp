#include "exact/big_uint_mod_power.h"

#include <algorithm>

#include "core/contract.h"
#include "core/number_context.h"
#include "core/scratch.h"
#include "exact/big_uint.h"
#include "exact/big_uint_multiply.h"
#include "exact/limb_division.h"

namespace tallymere {

namespace {

// The most bits of the exponent that one window takes, and the most limbs for the table of powers
// that a window needs.
constexpr int64_t MostWindowBits = 7;
constexpr int64_t MostOddPowerLimbs = 5'000;

// square = x^2 in 2 n limbs: the products of different limbs twice, and the squares of the limbs.
void SquareLimbs(uint64_t* square, const uint64_t* x, int64_t n) {
    std::fill_n(square, n, uint64_t{0});
    for (int64_t i = 0; i < n; i++) {
        square[n + i] = UintLimbsAddProduct(square + 2 * i + 1, x + i + 1, n - 1 - i, x[i]);
    }
    uint64_t doubled = 0;
    uint64_t carry = 0;
    for (int64_t i = 0; i < n; i++) {
        const Wide cross = {square[2 * i + 1], square[2 * i]};
        const Wide twice = {(cross.high << 1) | (cross.low >> 63), (cross.low << 1) | doubled};
        doubled = cross.high >> 63;
        const Wide single = wide::Multiply(x[i], x[i]);
        uint64_t above = 0;
        Wide sum = {0, carry};
        wide::Accumulate(above, sum, twice);
        wide::Accumulate(above, sum, single);
        square[2 * i] = sum.low;
        square[2 * i + 1] = sum.high;
        carry = above;
    }
}

// The modulus m of n limbs, and what the multiplication of residues modulo m needs.
//
// An odd m of two or more limbs uses Montgomery's reduction, which needs no quotients. There the
// residue of x is x 2^(64 n) mod m. For any other m the residue of x is a number that equals x
// modulo m and is below M. M is m shifted left until its highest bit is set: a multiple of m.
struct Modulus {
    const uint64_t* limbs;
    UintLimbDivisor divisor;
    uint64_t negativeInverse;  // -1 / m modulo 2^64 for Montgomery's reduction, else 0
    uint64_t* product;         // room for a product: 2 n limbs
};

// -1 / m modulo 2^64, for an odd m. The start has three correct low bits, and each step doubles
// their number.
uint64_t NegativeInverse(uint64_t m) {
    uint64_t inverse = m;
    for (int bits = 3; bits < 64; bits *= 2) {
        inverse *= 2 - m * inverse;
    }
    return 0 - inverse;
}

// dest = modulus.product / 2^(64 n) mod m, for a product below 2^(64 n) m. Multiples of m are added
// until its lower half is 0, limb by limb.
// Source: Menezes, van Oorschot and Vanstone, "Handbook of Applied Cryptography", algorithm 14.32.
void ReduceMontgomery(uint64_t* dest, const Modulus& modulus) {
    const int64_t n = modulus.divisor.count;
    uint64_t* low = modulus.product;
    for (int64_t i = 0; i < n; i++) {
        // This limb becomes 0, so it has room for the carry, which is added n limbs above later.
        low[i] = UintLimbsAddProduct(low + i, modulus.limbs, n, low[i] * modulus.negativeInverse);
    }
    uint64_t carry = 0;
    for (int64_t i = 0; i < n; i++) {
        const Wide sum = wide::Add(wide::Add({0, low[i]}, {0, low[n + i]}), {0, carry});
        dest[i] = sum.low;
        carry = sum.high;
    }
    if (carry != 0 || BigUintCompare(dest, modulus.limbs) >= 0) {
        UintLimbsSubtract(dest, modulus.limbs, n);
    }
}

// dest = the residue that modulus.product stands for.
void Reduce(uint64_t* dest, const Modulus& modulus) {
    if (modulus.negativeInverse != 0) {
        ReduceMontgomery(dest, modulus);
        return;
    }
    UintLimbsDivide(nullptr, modulus.product, modulus.divisor.count, modulus.divisor);
    std::copy_n(modulus.product, modulus.divisor.count, dest);
}

// dest = x y, for residues x and y.
void MultiplyModulo(uint64_t* dest, const uint64_t* x, const uint64_t* y, const Modulus& modulus) {
    if (modulus.divisor.count == 1) {
        const Wide product = wide::Multiply(x[0], y[0]);
        dest[0] =
            DivideByWord(product, modulus.divisor.limbs[0], modulus.divisor.reciprocal).remainder;
        return;
    }
    BigUintMulFull(modulus.product, x, y);
    Reduce(dest, modulus);
}

void SquareModulo(uint64_t* dest, const uint64_t* x, const Modulus& modulus) {
    if (modulus.divisor.count == 1) {
        MultiplyModulo(dest, x, x, modulus);
        return;
    }
    SquareLimbs(modulus.product, x, modulus.divisor.count);
    Reduce(dest, modulus);
}

// dest = a 2^(64 zeros) mod m, in the limbs of m, for an a of `length` limbs.
void ReduceFully(uint64_t* dest, const uint64_t* a, int64_t length, int64_t zeros,
                 const Modulus& modulus) {
    const int64_t n = modulus.divisor.count;
    const int64_t limbs = std::max(length + zeros + 1, n);
    CoreScratchScope scratch;
    uint64_t* rest = scratch.Take(limbs);
    std::fill_n(rest, limbs, uint64_t{0});
    if (length > 0) {
        rest[zeros + length] = UintLimbsShiftLeft(rest + zeros, a, length, modulus.divisor.shift);
    }
    UintLimbsDivide(nullptr, rest, limbs - n, modulus.divisor);
    UintLimbsShiftRight(dest, rest, n, modulus.divisor.shift);
}

// dest = the residue of an a of `length` limbs.
void MakeResidue(uint64_t* dest, const uint64_t* a, int64_t length, const Modulus& modulus) {
    const int64_t zeros = modulus.negativeInverse != 0 ? modulus.divisor.count : 0;
    ReduceFully(dest, a, length, zeros, modulus);
}

// x = the number below m that the residue x stands for.
void TakeFromResidue(uint64_t* x, const Modulus& modulus) {
    const int64_t n = modulus.divisor.count;
    if (modulus.negativeInverse == 0) {
        ReduceFully(x, x, n, 0, modulus);
        return;
    }
    std::copy_n(x, n, modulus.product);
    std::fill_n(modulus.product + n, n, uint64_t{0});
    ReduceMontgomery(x, modulus);
}

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
                      const Modulus& modulus) {
    const int64_t n = modulus.divisor.count;
    std::copy_n(base, n, dest);
    if (count > 1) {
        SquareModulo(square, base, modulus);
    }
    for (int64_t k = 1; k < count; k++) {
        MultiplyModulo(dest + k * n, dest + (k - 1) * n, square, modulus);
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
                 const Modulus& modulus) {
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
                SquareModulo(dest, dest, modulus);
            }
        }
        if (bits.value != 0) {
            const uint64_t* factor = oddPowers + static_cast<int64_t>(bits.value / 2) * n;
            if (started) {
                MultiplyModulo(dest, dest, factor, modulus);
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
    const bool usesMontgomery = n > 1 && BigUintBit(m, 0) != 0;
    const Modulus modulus = {m, PrepareDivisor(scratch.Take(n), m, n),
                             usesMontgomery ? NegativeInverse(m[0]) : 0, scratch.Take(2 * n)};
    uint64_t* power = scratch.Take(n);
    bool done = false;
    {
        UintWidthScope width(n);
        uint64_t* base = scratch.Take(n);
        MakeResidue(base, a, lengthOfA, modulus);
        done = PowerModulo(power, base, e, exponentBits, modulus);
        if (done) {
            TakeFromResidue(power, modulus);
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
