#include "reference/rational_twins.h"

#include <vector>

#include "exact/big_uint.h"
#include "exact/big_uint_division.h"
#include "exact/big_uint_multiply.h"
#include "exact/rational_arithmetic.h"

namespace tallymere::reference {

namespace {

using Words = std::vector<uint64_t>;

Words Integer(uint64_t k) {
    Words words(static_cast<size_t>(numberContext.uintLimbs));
    words[0] = k;
    return words;
}

Words Copy(const uint64_t* a) {
    return Words(a, a + numberContext.uintLimbs);
}

Words Record() {
    return Words(static_cast<size_t>(RationalWords()));
}

Words Product(const uint64_t* a, const uint64_t* b) {
    Words product(2 * static_cast<size_t>(numberContext.uintLimbs));
    BigUintMulFull(product.data(), a, b);
    return product;
}

}  // namespace

void TwinReduceFraction(uint64_t* numerator, uint64_t* denominator) {
    if (BigUintEqualsSmall(denominator, 1)) {
        return;
    }
    if (BigUintIsZero(numerator)) {
        BigUintFromUnsigned(denominator, 1);
        return;
    }
    Words larger = Copy(numerator);
    Words smaller = Copy(denominator);
    do {
        BigUintDivide(nullptr, larger.data(), larger.data(), smaller.data());
        larger.swap(smaller);
    } while (!BigUintIsZero(smaller.data()));
    if (!BigUintEqualsSmall(larger.data(), 1)) {
        BigUintDivideExact(numerator, numerator, larger.data());
        BigUintDivideExact(denominator, denominator, larger.data());
    }
}

void TwinRationalMulSmall(RationalNumber* dest, const RationalNumber* a, uint64_t k) {
    CalcErrorScope codes;
    Words factor = Integer(k);
    RationalCopy(dest, a);
    if (!RationalIsInteger(dest)) {
        TwinReduceFraction(factor.data(), RationalDenominator(dest));
    }
    BigUintMulSmall(RationalNumerator(dest), RationalNumerator(dest), factor[0]);
    RationalFailOnCode(dest);
}

void TwinRationalDivSmall(RationalNumber* dest, const RationalNumber* a, uint64_t k) {
    CalcErrorScope codes;
    Words divisor = Integer(k);
    RationalCopy(dest, a);
    TwinReduceFraction(RationalNumerator(dest), divisor.data());
    BigUintMulSmall(RationalDenominator(dest), RationalDenominator(dest), divisor[0]);
    RationalFailOnCode(dest);
}

int TwinRationalCompare(const RationalNumber* a, const RationalNumber* b, bool ignoreSign) {
    const bool minusA = !ignoreSign && RationalSign(a) != 0;
    const bool minusB = !ignoreSign && RationalSign(b) != 0;
    if (minusA != minusB) {
        if (RationalIsZero(a) && RationalIsZero(b)) {
            return 0;
        }
        return minusA ? -1 : 1;
    }
    const Words left = Product(RationalNumerator(a), RationalDenominator(b));
    const Words right = Product(RationalNumerator(b), RationalDenominator(a));
    UintWidthScope width(2 * numberContext.uintLimbs);
    const int order = BigUintCompare(left.data(), right.data());
    return minusA ? -order : order;
}

void TwinRationalBinomial(RationalNumber* dest, const RationalNumber* n, uint64_t k, bool falling) {
    CalcErrorScope codes;
    Words words[] = {Record(), Record(), Record(), Record()};
    RationalNumber* position = RationalAt(words[0].data());
    RationalNumber* factor = RationalAt(words[1].data());
    RationalNumber* one = RationalAt(words[2].data());
    RationalNumber* step = RationalAt(words[3].data());
    RationalFromUnsigned(one, 1, 0);
    RationalFromUnsigned(step, k, 0);
    RationalAddSub(position, n, step, true);
    RationalFromUnsigned(dest, 1, 0);
    for (uint64_t i = 1; i <= k && numberContext.calcError == CalcErrorNone; i++) {
        RationalAddSub(position, position, one, false);
        RationalFromUnsigned(step, falling ? 1 : i, 0);
        RationalMulDiv(factor, position, step, true);
        RationalMulDiv(dest, dest, factor, false);
    }
    RationalFailOnCode(dest);
}

}  // namespace tallymere::reference
