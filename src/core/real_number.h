// RealNumber: the decimal floating-point number of a length set at run time.
//
// A record is a header word and, behind it, n = realLimbs limbs, most significant first. Bit 0 of
// the header is the sign, the bits above it are the signed exponent: the decimal exponent of the
// leading digit, as in scientific notation. With p digits and the mantissa integer M in the limbs
// the value is +-M * 10^(exponent - p + 1).
//
// Normal form: in a finite non-zero number the first limb has exactly t = topLimbDigits digits, so
// 10^(t-1) <= first limb < 10^t, and every other limb is below 10^19. Precision is thus exact to
// the digit, not to the limb.
//
// Special values have the exponent field SpecialExponent; the first limb says which, all other
// limbs are 0. Zero and infinity keep a sign, the sign of NaN is always cleared.
//
// A record has no length of its own and is only meaningful under the layout it was written in. Its
// memory is the caller's: RealWords() words anywhere. In all operations the destination comes first
// and may be an operand, but may not overlap one otherwise.
//
// A *raw* operation truncates and returns the guard limb: the base-10^19 digit directly below the
// last limb of the result, so that HalfGuard is one half of a unit in the last place. The caller
// rounds by handing it to RealRound on the same destination.
#pragma once

#include <cstdint>

#include "core/limb.h"
#include "core/limb_tools.h"
#include "core/number_context.h"

namespace tallymere {

/// The header word of a record; its limbs follow it in memory.
struct RealNumber {
    uint64_t header;
};

inline constexpr int64_t MaxExponent = (int64_t{1} << 62) - 1;
inline constexpr int64_t MinExponent = -MaxExponent;
inline constexpr int64_t SpecialExponent = -(int64_t{1} << 62);

/// First limb of a special value.
enum SpecialMark : Limb { MarkZero = 0, MarkInfinity = 1, MarkNaN = 2 };

/// Words of one record in the current layout.
inline int64_t RealWords() {
    return numberContext.realLimbs + 1;
}

/// True when two records of the current layout are one and the same, or have no word in common.
inline bool RealSameOrApart(const RealNumber* a, const RealNumber* b) {
    return SameOrApart(&a->header, &b->header, RealWords());
}

/// True for two outputs of an operation on x, each of which may be null: they have no word in
/// common, and each of them is x or has none in common with it.
inline bool RealOutputsAreApart(const RealNumber* first, const RealNumber* second,
                                const RealNumber* x) {
    return (first == nullptr || RealSameOrApart(first, x)) &&
           (second == nullptr || RealSameOrApart(second, x)) &&
           (first == nullptr || second == nullptr ||
            (first != second && RealSameOrApart(first, second)));
}

inline Limb* RealLimbs(RealNumber* x) {
    return &x->header + 1;
}
inline const Limb* RealLimbs(const RealNumber* x) {
    return &x->header + 1;
}

/// The record that lies in `words`.
inline RealNumber* RealAt(uint64_t* words) {
    return reinterpret_cast<RealNumber*>(words);
}
inline const RealNumber* RealAt(const uint64_t* words) {
    return reinterpret_cast<const RealNumber*>(words);
}

constexpr uint64_t MakeHeader(int64_t exponent, uint64_t sign) {
    return (static_cast<uint64_t>(exponent) << 1) | sign;
}

inline int64_t RealExponent(const RealNumber* x) {
    return static_cast<int64_t>(x->header) >> 1;
}

/// 0 for positive, 1 for negative.
inline uint64_t RealSign(const RealNumber* x) {
    return x->header & 1;
}

inline bool RealIsSpecial(const RealNumber* x) {
    return RealExponent(x) == SpecialExponent;
}
inline bool RealIsZero(const RealNumber* x) {
    return RealIsSpecial(x) && RealLimbs(x)[0] == MarkZero;
}
inline bool RealIsInfinite(const RealNumber* x) {
    return RealIsSpecial(x) && RealLimbs(x)[0] == MarkInfinity;
}
inline bool RealIsNaN(const RealNumber* x) {
    return RealIsSpecial(x) && RealLimbs(x)[0] == MarkNaN;
}

/// True when the record is in normal form in a layout, or in the current one. A sign on a NaN
/// passes: nothing makes one, and one that came about all the same is shown like any other sign.
bool RealIsWellFormed(const RealNumber* x, RealLayout layout);
inline bool RealIsWellFormed(const RealNumber* x) {
    return RealIsWellFormed(x, CurrentRealLayout());
}

/// True when the first limb has the digits that it has in a finite non-zero number in normal form
/// in the current layout.
inline bool FirstLimbIsNormal(const Limb* limbs) {
    const int64_t t = numberContext.topLimbDigits;
    return limbs[0] >= PowerOfTen(t - 1) && limbs[0] < PowerOfTen(t);
}

void RealSetZero(RealNumber* dest, uint64_t sign);
void RealSetInfinity(RealNumber* dest, uint64_t sign);
void RealSetNaN(RealNumber* dest);

/// A result above the range, or at a pole: an infinity of that sign, and CalcErrorOverflow if
/// reportOverflow.
void RealSetOverflow(RealNumber* dest, uint64_t sign);

/// A result below the range: a zero of that sign, and CalcErrorUnderflow if reportUnderflow.
void RealSetUnderflow(RealNumber* dest, uint64_t sign);

/// NaN, and notes `code`.
void RealSetNaN(RealNumber* dest, CalcError code);

/// +1.
void RealSetOne(RealNumber* dest);

void RealSetSign(RealNumber* x, uint64_t sign);

/// Flips the sign, also of a zero; NaN keeps its cleared sign.
void RealNegate(RealNumber* x);

/// Copies the n + 1 words of a record.
void RealCopy(RealNumber* dest, const RealNumber* src);

/// dest = |x|.
void RealAbs(RealNumber* dest, const RealNumber* x);

/// Gives x an exponent and keeps its sign and its limbs, which it does not look at. True if the
/// exponent is in range; above it x becomes RealSetOverflow and below it RealSetUnderflow of its
/// sign, and the result is false.
bool RealSetExponent(RealNumber* x, int64_t exponent);

/// The same, with the sign 0 or 1 from the argument.
bool RealSetExponentAndSign(RealNumber* x, int64_t exponent, uint64_t sign);

}  // namespace tallymere
