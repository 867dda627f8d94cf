// The limb, a digit of base 10^19, and the tables by which limbs are cut and moved digit by digit
// without a hardware division.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "core/contract.h"
#include "core/wide_arithmetic.h"

namespace tallymere {

/// One base-10^19 digit; 0 <= limb < LimbBase in every well-formed number.
using Limb = uint64_t;

inline constexpr int64_t DigitsPerLimb = 19;
inline constexpr Limb LimbBase = 10'000'000'000'000'000'000u;

/// A guard limb of one half of a unit in the last place.
inline constexpr Limb HalfGuard = LimbBase / 2;

namespace limb_tables {

/// 10^-1 (a filler that is never used as a number), then 10^0 to 10^19.
inline constexpr auto PowersOfTen = [] {
    std::array<Limb, DigitsPerLimb + 2> table{};
    Limb power = 1;
    for (size_t k = 1; k < table.size(); k++) {
        table[k] = power;
        power *= 10;
    }
    return table;
}();

/// Decimal digits of 2^b, for b = 0 to 63.
inline constexpr auto BitDigits = [] {
    std::array<uint8_t, 64> table{};
    for (size_t b = 0; b < table.size(); b++) {
        uint8_t digits = 0;
        for (uint64_t v = uint64_t{1} << b; v != 0; v /= 10) {
            digits++;
        }
        table[b] = digits;
    }
    return table;
}();

/// v / 10^k is MultiplyHigh(v >> k, reciprocal) >> shift for every 64-bit v.
struct DivisionReciprocal {
    uint64_t reciprocal;
    int shift;
};

/// Entry k is for 10^k = 2^k 5^k, k = 1 to 19; entry 0 is unused. Behind the shift by k the
/// dividend has N = 64 - k bits, and with 5^k < 2^L the reciprocal floor(2^(N + L) / 5^k) + 1 is
/// exact for all of them (Granlund and Montgomery, "Division by invariant integers using
/// multiplication", theorem 4.2).
inline constexpr auto DivisionReciprocals = [] {
    std::array<DivisionReciprocal, DigitsPerLimb + 1> table{};
    uint64_t fives = 1;
    for (size_t k = 1; k < table.size(); k++) {
        fives *= 5;
        const int shift = HighestBit(fives) + 1 - static_cast<int>(k);
        table[k] = {wide::Divide({uint64_t{1} << shift, 0}, fives) + 1, shift};
    }
    return table;
}();

}  // namespace limb_tables

/// 10^k for 0 <= k <= 19; k = -1 may be read and is no number.
constexpr Limb PowerOfTen(int64_t k) {
    TALLYMERE_REQUIRE(k >= -1 && k <= DigitsPerLimb);
    return limb_tables::PowersOfTen[static_cast<size_t>(k + 1)];
}

/// |k|, also for the smallest k.
constexpr uint64_t IntegerMagnitude(int64_t k) {
    return k < 0 ? 0 - static_cast<uint64_t>(k) : static_cast<uint64_t>(k);
}

/// The number of decimal digits of v; 0 for v = 0.
constexpr int64_t DigitCount(uint64_t v) {
    if (v == 0) {
        return 0;
    }
    const int64_t digits = limb_tables::BitDigits[static_cast<size_t>(HighestBit(v))];
    return digits + (v >= PowerOfTen(digits) ? 1 : 0);
}

struct LimbQuotient {
    uint64_t quotient;
    uint64_t remainder;
};

/// Divides by 10^k, 1 <= k <= 19; for loops that do it again and again.
class PowerOfTenDivider {
public:
    explicit constexpr PowerOfTenDivider(int64_t k)
        : divisor_(PowerOfTen(k)),
          reciprocal_(limb_tables::DivisionReciprocals[static_cast<size_t>(k)].reciprocal),
          digits_(static_cast<int>(k)),
          shift_(limb_tables::DivisionReciprocals[static_cast<size_t>(k)].shift) {
        TALLYMERE_REQUIRE(k >= 1 && k <= DigitsPerLimb);
    }

    /// Any 64-bit v.
    constexpr LimbQuotient Divide(uint64_t v) const {
        const uint64_t quotient = MultiplyHigh(reciprocal_, v >> digits_) >> shift_;
        return {quotient, v - quotient * divisor_};
    }

private:
    uint64_t divisor_;
    uint64_t reciprocal_;
    int digits_;
    int shift_;
};

/// Any 64-bit v divided by 10^k, 0 <= k <= 19.
constexpr LimbQuotient DivideByPowerOfTen(uint64_t v, int64_t k) {
    TALLYMERE_REQUIRE(k >= 0 && k <= DigitsPerLimb);
    return k == 0 ? LimbQuotient{v, 0} : PowerOfTenDivider(k).Divide(v);
}

/// floor((2^128 - 1) / d) - 2^64 for a d with its highest bit set.
constexpr uint64_t WordReciprocal(uint64_t d) {
    TALLYMERE_REQUIRE(d >> 63 != 0);
    return wide::Divide({~d, ~uint64_t{0}}, d);
}

/// A 128-bit value divided by a d with its highest bit set, for value.high < d, so that the
/// quotient fits; `reciprocal` is WordReciprocal(d). Method: division by invariant integers (Moller
/// and Granlund, "Improved division by invariant integers", algorithm 4), exact with one wide and
/// one narrow product.
constexpr LimbQuotient DivideByWord(Wide value, uint64_t d, uint64_t reciprocal) {
    TALLYMERE_REQUIRE(d >> 63 != 0 && value.high < d);
    const Wide estimate = wide::Add(wide::Multiply(reciprocal, value.high), value);
    uint64_t quotient = estimate.high + 1;
    uint64_t remainder = value.low - quotient * d;
    // Needed in a good part of all cases, and unpredictable: better without a branch.
    const uint64_t tooLarge = remainder > estimate.low ? ~uint64_t{0} : 0;
    quotient += tooLarge;
    remainder += tooLarge & d;
    if (remainder >= d) [[unlikely]] {
        quotient++;
        remainder -= d;
    }
    return {quotient, remainder};
}

/// A 128-bit value divided by LimbBase, for value.high < LimbBase.
constexpr LimbQuotient DivideByLimbBase(Wide value) {
    constexpr uint64_t reciprocal = WordReciprocal(LimbBase);
    return DivideByWord(value, LimbBase, reciprocal);
}

/// x * y + c + w split by LimbBase: the remainder is the new limb, the quotient the next carry.
/// x, y, c and w may be any 64-bit values whose quotient fits 64 bits; with limbs it always does.
constexpr LimbQuotient LimbStep(uint64_t x, uint64_t y, uint64_t c, uint64_t w) {
    const Wide product = wide::Multiply(x, y);
    return DivideByLimbBase(wide::Add(wide::Add(product, {0, c}), {0, w}));
}

/// Adds two limbs and a carry of 0 or 1, and replaces the carry. Free of branches, as carries of
/// random digits cannot be predicted, and with two steps from carry to carry.
constexpr Limb AddLimbs(Limb a, Limb b, Limb& carry) {
    TALLYMERE_REQUIRE(a < LimbBase && b < LimbBase && carry <= 1);
    // a + b - LimbBase modulo 2^64; negative, that is at the top of the 64-bit range, unless the
    // sum reaches LimbBase by itself. The carry tips it over only from -1.
    const Limb excess = a - (LimbBase - b);
    const Limb generates = a >= LimbBase - b ? 1 : 0;
    const Limb propagates = excess == ~Limb{0} ? 1 : 0;
    const Limb sum = excess + carry;
    carry = generates | (propagates & carry);
    return sum + ((carry - 1) & LimbBase);
}

/// Subtracts a limb and a borrow of 0 or 1 from a limb, and replaces the borrow; in the same way.
constexpr Limb SubtractLimbs(Limb a, Limb b, Limb& borrow) {
    TALLYMERE_REQUIRE(a < LimbBase && b < LimbBase && borrow <= 1);
    const Limb generates = a < b ? 1 : 0;
    const Limb propagates = a == b ? 1 : 0;
    const Limb difference = a - b - borrow;
    borrow = generates | (propagates & borrow);
    return difference + ((0 - borrow) & LimbBase);
}

}  // namespace tallymere
