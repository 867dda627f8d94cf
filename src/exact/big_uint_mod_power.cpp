#include "exact/big_uint_mod_power.h"

#include <algorithm>

#include "core/number_context.h"
#include "core/scratch.h"
#include "core/word_products.h"
#include "exact/big_uint.h"
#include "exact/big_uint_multiply.h"
#include "exact/limb_division.h"

namespace tallymere {

namespace {

// The most bits of the exponent that are taken at once, and the most words for the powers that this
// needs.
constexpr int64_t MostWindowBits = 7;
constexpr int64_t MostOddPowerWords = 5'000;

// square = x^2 in 2 n limbs: twice the products of different limbs and the squares of single ones.
void SquareLimbs(uint64_t* square, const uint64_t* x, int64_t n) {
    square[0] = 0;
    square[n] = MultiplyWords(square + 1, x + 1, n - 1, x[0]);
    for (int64_t i = 1; i < n; i++) {
        square[n + i] = MultiplyAddWords(square + 2 * i + 1, x + i + 1, n - 1 - i, x[i]);
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

// What a residue modulo m is: of as many limbs as m has, and modulo m moved left to a full highest
// limb, which is a multiple of m. So only the result needs to be reduced once more.
struct Modulus {
    LimbDivisor divisor;
    uint64_t* product;  // twice the limbs of m
};

void Reduce(uint64_t* dest, const Modulus& modulus) {
    LimbsDivide(nullptr, modulus.product, modulus.divisor.count, modulus.divisor);
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

// dest = the residue of a number of any length.
void MakeResidue(uint64_t* dest, const uint64_t* a, int64_t length, const Modulus& modulus) {
    const int64_t n = modulus.divisor.count;
    CoreScratchScope scratch;
    uint64_t* rest = scratch.Take(std::max(length, n) + 1);
    std::copy_n(a, length, rest);
    std::fill(rest + length, rest + std::max(length, n) + 1, uint64_t{0});
    LimbsDivide(nullptr, rest, std::max(length, n) + 1 - n, modulus.divisor);
    std::copy_n(rest, n, dest);
}

// dest = x modulo m itself.
void ReduceFully(uint64_t* dest, const uint64_t* x, const Modulus& modulus) {
    const int64_t n = modulus.divisor.count;
    uint64_t* rest = modulus.product;
    rest[n] = LimbsMoveLeft(rest, x, n, modulus.divisor.shift);
    LimbsDivide(nullptr, rest, 1, modulus.divisor);
    LimbsMoveRight(dest, rest, n, modulus.divisor.shift);
}

// The bits of the exponent that are taken at once. One bit more makes twice as many odd powers
// first, and with w bits there is a product in every w + 1 bits.
int64_t WindowBits(int64_t exponentBits, int64_t n) {
    int64_t window = 1;
    while (window < MostWindowBits && (n << window) <= MostOddPowerWords &&
           exponentBits > ((window + 1) * (window + 2)) << (window - 1)) {
        window++;
    }
    return window;
}

// dest = base^e, for residues and an e of 1 or more bits; false when asked to stop.
// Method: windows that slide over the exponent (Menezes, van Oorschot and Vanstone, "Handbook of
// Applied Cryptography", algorithm 14.85).
bool PowerModulo(uint64_t* dest, const uint64_t* base, const uint64_t* e, int64_t exponentBits,
                 const Modulus& modulus) {
    const int64_t n = modulus.divisor.count;
    const int64_t window = WindowBits(exponentBits, n);
    const int64_t powers = int64_t{1} << (window - 1);
    CoreScratchScope scratch;
    // base, base^3, base^5 ...
    uint64_t* oddPowers = scratch.Take(powers * n);
    std::copy_n(base, n, oddPowers);
    if (powers > 1) {
        SquareModulo(dest, base, modulus);
        for (int64_t k = 1; k < powers; k++) {
            MultiplyModulo(oddPowers + k * n, oddPowers + (k - 1) * n, dest, modulus);
        }
    }
    bool started = false;
    for (int64_t i = exponentBits - 1; i >= 0;) {
        // A window begins and ends with a bit that is set; one that is not is passed alone.
        int64_t last = i;
        uint64_t bits = BigUintBit(e, i);
        if (bits != 0) {
            last = std::max<int64_t>(i - window + 1, 0);
            while (BigUintBit(e, last) == 0) {
                last++;
            }
            for (int64_t k = i - 1; k >= last; k--) {
                bits = 2 * bits + BigUintBit(e, k);
            }
        }
        for (; i >= last; i--) {
            if (AbortRequested()) {
                return false;
            }
            if (started) {
                SquareModulo(dest, dest, modulus);
            }
        }
        if (bits != 0) {
            const uint64_t* factor = oddPowers + static_cast<int64_t>(bits / 2) * n;
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
    if (BigUintIsZero(m)) {
        BigUintClear(dest);
        SetCalcError(CalcErrorExactDivisionByZero);
        return;
    }
    if (BigUintIsZero(e)) {
        BigUintFromWord(dest, BigUintIsWord(m, 1) ? 0 : 1);
        return;
    }
    const int64_t n = BigUintLength(m);
    CoreScratchScope scratch;
    const Modulus modulus = {PrepareDivisor(scratch.Take(n), m, n), scratch.Take(2 * n)};
    uint64_t* power = scratch.Take(n);
    uint64_t* base = scratch.Take(n);
    MakeResidue(base, a, BigUintLength(a), modulus);
    const int64_t exponentBits = BigUintBitLength(e);
    bool done = false;
    {
        UintWidthScope width(n);
        done = PowerModulo(power, base, e, exponentBits, modulus);
    }
    BigUintClear(dest);
    if (done) {
        ReduceFully(dest, power, modulus);
    } else {
        SetCalcError(CalcErrorCancelled);
    }
}

}  // namespace tallymere
