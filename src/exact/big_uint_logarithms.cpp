#include "exact/big_uint_logarithms.h"

#include <algorithm>
#include <bit>

#include "core/contract.h"
#include "core/number_context.h"
#include "core/scratch.h"
#include "core/wide_arithmetic.h"
#include "exact/big_uint.h"
#include "exact/big_uint_powers.h"

namespace tallymere {

namespace {

bool RefuseLogarithm(uint64_t* dest) {
    BigUintSetFailed(dest, CalcErrorOverflow);
    return false;
}

// log2(mantissa / 2^63 * 2^exponent) in units of 2^-BinaryLogPlaces, for a mantissa with its
// highest bit set.
//
// Error: each squaring cuts off less than 2^-63 of the mantissa, and its effect on the logarithm is
// half that of the squaring before. The mantissa itself was cut by less than 2^-63. All this
// together changes the logarithm by less than 2^-61. Then the places behind the last are cut off.
// So the error is less than 2 units.
uint64_t BinaryLogOf(uint64_t mantissa, int64_t exponent) {
    uint64_t log = static_cast<uint64_t>(exponent);
    for (int place = 0; place < BinaryLogPlaces; place++) {
        const Wide square = wide::Multiply(mantissa, mantissa);
        const uint64_t bit = square.high >> 63;
        mantissa = bit != 0 ? square.high : square.high << 1 | square.low >> 63;
        log = log << 1 | bit;
    }
    return log;
}

}  // namespace

uint64_t BinaryLogSmall(uint64_t x) {
    TALLYMERE_REQUIRE(x >= 1);
    const int exponent = HighestBit(x);
    return BinaryLogOf(x << (63 - exponent), exponent);
}

uint64_t BinaryLog(const uint64_t* x) {
    TALLYMERE_REQUIRE(!BigUintIsZero(x));
    const int64_t length = BigUintLength(x);
    const int shift = 63 - HighestBit(x[length - 1]);
    const uint64_t below = length > 1 ? x[length - 2] : 0;
    const uint64_t mantissa = x[length - 1] << shift | below >> 1 >> (63 - shift);
    return BinaryLogOf(mantissa, BitsPerUintLimb * length - 1 - shift);
}

bool BigUintLogTwo(uint64_t* dest, const uint64_t* x) {
    TALLYMERE_REQUIRE(BigUintsAreSameOrApart(dest, x));
    const int64_t length = BigUintLength(x);
    if (length == 0) {
        return RefuseLogarithm(dest);
    }
    const uint64_t* top = x + length - 1;
    const bool exact =
        std::has_single_bit(*top) && std::all_of(x, top, [](uint64_t limb) { return limb == 0; });
    BigUintFromUnsigned(dest,
                        static_cast<uint64_t>(BitsPerUintLimb * (length - 1) + HighestBit(*top)));
    return exact;
}

bool BigUintLogTen(uint64_t* dest, const uint64_t* x) {
    CoreScratchScope scratch;
    uint64_t* ten = scratch.Take(numberContext.uintLimbs);
    BigUintFromUnsigned(ten, 10);
    return BigUintLog(dest, ten, x);
}

bool BigUintLog(uint64_t* dest, const uint64_t* base, const uint64_t* x) {
    TALLYMERE_REQUIRE(BigUintsAreSameOrApart(dest, base) && BigUintsAreSameOrApart(dest, x));
    if (BigUintIsZero(x) || BigUintIsZero(base) || BigUintEqualsSmall(base, 1)) {
        return RefuseLogarithm(dest);
    }
    if (BigUintEqualsSmall(base, 2)) {
        return BigUintLogTwo(dest, x);
    }
    if (BigUintCompare(x, base) < 0) {
        const bool one = BigUintEqualsSmall(x, 1);
        BigUintClear(dest);
        return one;
    }
    // The quotient of the true logarithms lies strictly between these two bounds. When the bounds
    // have the same floor, the quotient is no whole number and has this floor too. Else the bounds
    // differ so little that only one whole number, the candidate, lies between them.
    const uint64_t logX = BinaryLog(x);
    const uint64_t logBase = BinaryLog(base);
    uint64_t floor = logX / (logBase + BinaryLogErrorUnits);
    bool exact = false;
    if (const uint64_t candidate = (logX + BinaryLogErrorUnits) / logBase; candidate != floor) {
        CoreScratchScope scratch;
        uint64_t* power = scratch.Take(numberContext.uintLimbs);
        if (BigUintPowerIfFits(power, base, static_cast<int64_t>(candidate))) {
            const int order = BigUintCompare(power, x);
            exact = order == 0;
            floor = order <= 0 ? candidate : floor;
        }
    }
    BigUintFromUnsigned(dest, floor);
    return exact;
}

}  // namespace tallymere
