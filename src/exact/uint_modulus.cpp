#include "exact/uint_modulus.h"

#include <algorithm>

#include "core/long_products.h"
#include "core/scratch.h"
#include "core/word_division.h"
#include "exact/big_uint.h"
#include "exact/big_uint_multiply.h"

namespace tallymere {

namespace {

// dest = modulus.product / 2^(64 n) mod m, for a product below 2^(64 n) m. Multiples of m are added
// until its lower half is 0, limb by limb.
// Source: Menezes, van Oorschot and Vanstone, "Handbook of Applied Cryptography", algorithm 14.32.
void ReduceMontgomery(uint64_t* dest, const UintModulus& modulus) {
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
void Reduce(uint64_t* dest, const UintModulus& modulus) {
    if (modulus.negativeInverse != 0) {
        ReduceMontgomery(dest, modulus);
        return;
    }
    UintLimbsDivide(nullptr, modulus.product, modulus.divisor.count, modulus.divisor);
    std::copy_n(modulus.product, modulus.divisor.count, dest);
}

// dest = a 2^(64 zeros) mod m, in the limbs of m, for an a of `length` limbs.
void ReduceFully(uint64_t* dest, const uint64_t* a, int64_t length, int64_t zeros,
                 const UintModulus& modulus) {
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

}  // namespace

UintModulus PrepareUintModulus(uint64_t* room, const uint64_t* m, int64_t n) {
    const bool usesMontgomery = n > 1 && BigUintBit(m, 0) != 0;
    return {m, PrepareDivisor(room, m, n), usesMontgomery ? 0 - InverseModuloWord(m[0]) : 0,
            room + n};
}

void UintResidueAdd(uint64_t* dest, const uint64_t* x, const uint64_t* y,
                    const UintModulus& modulus) {
    const int64_t n = modulus.divisor.count;
    const uint64_t* bound = modulus.negativeInverse != 0 ? modulus.limbs : modulus.divisor.limbs;
    uint64_t carry = 0;
    for (int64_t i = 0; i < n; i++) {
        const Wide sum = wide::Add(wide::Add({0, x[i]}, {0, y[i]}), {0, carry});
        dest[i] = sum.low;
        carry = sum.high;
    }
    if (carry != 0 || BigUintCompare(dest, bound) >= 0) {
        UintLimbsSubtract(dest, bound, n);
    }
}

void UintResidueMultiply(uint64_t* dest, const uint64_t* x, const uint64_t* y,
                         const UintModulus& modulus) {
    if (modulus.divisor.count == 1) {
        const Wide product = wide::Multiply(x[0], y[0]);
        dest[0] =
            DivideByWord(product, modulus.divisor.limbs[0], modulus.divisor.reciprocal).remainder;
        return;
    }
    BigUintMulFull(modulus.product, x, y);
    Reduce(dest, modulus);
}

void UintResidueSquare(uint64_t* dest, const uint64_t* x, const UintModulus& modulus) {
    if (modulus.divisor.count == 1) {
        UintResidueMultiply(dest, x, x, modulus);
        return;
    }
    const int64_t n = modulus.divisor.count;
    MultiplyWordArrays(modulus.product, x, n, x, n);
    Reduce(dest, modulus);
}

void UintResidueFrom(uint64_t* dest, const uint64_t* a, int64_t length,
                     const UintModulus& modulus) {
    const int64_t zeros = modulus.negativeInverse != 0 ? modulus.divisor.count : 0;
    ReduceFully(dest, a, length, zeros, modulus);
}

void UintResidueTo(uint64_t* dest, const uint64_t* x, const UintModulus& modulus) {
    const int64_t n = modulus.divisor.count;
    if (modulus.negativeInverse == 0) {
        ReduceFully(dest, x, n, 0, modulus);
        return;
    }
    std::copy_n(x, n, modulus.product);
    std::fill_n(modulus.product + n, n, uint64_t{0});
    ReduceMontgomery(dest, modulus);
}

}  // namespace tallymere
