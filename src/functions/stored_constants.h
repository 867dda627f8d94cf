// The constants that all transcendental functions rest on, kept as data to 10,051 digits.
//
// Nothing is computed when the precision changes: a constant is read at the current layout each
// time that it is needed. tools/make_constants.py makes the digits.
#pragma once

#include "core/real_number.h"

namespace tallymere {

/// The head of a constant; its limbs follow it in memory, most significant first, base 10^19. The
/// first of them holds 19 digits whatever the layout in force.
struct StoredConstant {
    uint16_t limbCount;  ///< 0 means zero
    uint8_t reserved;
    uint8_t sign;      ///< non-zero means negative
    int32_t exponent;  ///< decimal exponent of the leading digit, as in RealNumber
};
static_assert(sizeof(StoredConstant) == sizeof(Limb));

/// A constant of N limbs in its memory.
template <size_t N>
struct StoredConstantOf {
    StoredConstant head;
    Limb limbs[N];
};

/// The limbs of a long constant: 10,051 digits, enough for every precision with its guard digits.
inline constexpr size_t LongConstantLimbs = 529;

namespace stored_constants {

using LongConstant = StoredConstantOf<LongConstantLimbs>;
static_assert(sizeof(LongConstant) == 4240);

inline constexpr size_t LongConstantCount = 9;

extern const LongConstant LongConstants[LongConstantCount];
extern const StoredConstantOf<2> TwoPow64;
extern const StoredConstantOf<3> TwoPow128;
extern const StoredConstantOf<3> TwoPowMinus64;
extern const StoredConstantOf<5> TwoPowMinus128;

}  // namespace stored_constants

inline constexpr const StoredConstant& ConstPiQuarter = stored_constants::LongConstants[0].head;
inline constexpr const StoredConstant& ConstLn12 = stored_constants::LongConstants[1].head;
inline constexpr const StoredConstant& ConstLn101 = stored_constants::LongConstants[2].head;
inline constexpr const StoredConstant& ConstLn2 = stored_constants::LongConstants[3].head;
inline constexpr const StoredConstant& ConstAtan351 = stored_constants::LongConstants[4].head;
inline constexpr const StoredConstant& ConstLn10 = stored_constants::LongConstants[5].head;
inline constexpr const StoredConstant& ConstLog10E = stored_constants::LongConstants[6].head;
inline constexpr const StoredConstant& ConstAtan21 = stored_constants::LongConstants[7].head;

/// The digits of pi / 4 behind those of ConstPiQuarter, as many again. Their sum is LongPiDigits
/// long.
inline constexpr const StoredConstant& ConstPiQuarterTail = stored_constants::LongConstants[8].head;
inline constexpr int64_t LongPiDigits = 2 * int64_t{LongConstantLimbs} * DigitsPerLimb;

// Powers of two, exact.
inline constexpr const StoredConstant& ConstTwoPow64 = stored_constants::TwoPow64.head;
inline constexpr const StoredConstant& ConstTwoPow128 = stored_constants::TwoPow128.head;
inline constexpr const StoredConstant& ConstTwoPowMinus64 = stored_constants::TwoPowMinus64.head;
inline constexpr const StoredConstant& ConstTwoPowMinus128 = stored_constants::TwoPowMinus128.head;

/// dest = the constant at the current layout; raw. Where the layout is longer than the constant,
/// zeros follow. The guard limb holds the digits that the last stored limb read has left, or the
/// next stored limb where all digits of that one are used.
Limb LoadConstant(RealNumber* dest, const StoredConstant& constant);

/// dest = pi / 4 at the current layout, which may be longer than ConstPiQuarter: truncated, to
/// LongPiDigits at most.
void LoadLongPiQuarter(RealNumber* dest);

/// dest = k * constant; raw.
Limb LoadConstantMultiple(RealNumber* dest, const StoredConstant& constant, uint64_t k);

/// sum = sum + k * constant for k other than 0; raw.
Limb AddConstantMultiple(RealNumber* sum, const StoredConstant& constant, int64_t k);

/// dest = pi, with 2 guard digits, rounded.
void RealPi(RealNumber* dest);

}  // namespace tallymere
