// Inverse sine, cosine and tangent and the angle of a point, in radians, degrees and gon.
//
// Inner forms are raw and work at the layout in force. On their own they have no error bound: the
// guard digits of the public forms are made for what they lose. The bounds of the public forms
// stand in functions/error_bounds.h. dest may be an operand.
#pragma once

#include <array>
#include <cstdint>
#include <numeric>

#include "core/real_number.h"

namespace tallymere {

/// The tangent of an angle as a fraction in lowest terms.
struct AtanStep {
    uint64_t numerator;
    uint64_t denominator;

    bool operator==(const AtanStep&) const = default;
};

/// tan(k arctan(1 / inverse)) for k from 0 to Count - 1. Entry k comes by the tangent addition rule
/// from those of its two halves, whose products fit 64 bits as long as the entries do.
template <size_t Count>
constexpr std::array<AtanStep, Count> MakeAtanSteps(uint64_t inverse) {
    std::array<AtanStep, Count> steps{};
    steps[0] = {0, 1};
    steps[1] = {1, inverse};
    for (size_t k = 2; k < Count; k++) {
        const AtanStep a = steps[k / 2];
        const AtanStep b = steps[k - k / 2];
        const uint64_t numerator = a.numerator * b.denominator + b.numerator * a.denominator;
        const uint64_t denominator = a.denominator * b.denominator - a.numerator * b.numerator;
        const uint64_t divisor = std::gcd(numerator, denominator);
        steps[k] = {numerator / divisor, denominator / divisor};
    }
    return steps;
}

/// The angles that RealAtan takes off: coarse steps of arctan(1/21), the multiples 0 to 16 and then
/// pi / 4, and fine steps of arctan(1/351), the multiples 0 to 8.
struct AtanSteps {
    std::array<AtanStep, 18> coarse;
    std::array<AtanStep, 9> fine;
};
inline constexpr AtanSteps AtanStepTable = [] {
    AtanSteps table = {MakeAtanSteps<18>(21), MakeAtanSteps<9>(351)};
    table.coarse.back() = {1, 1};
    return table;
}();

/// The entries of the table whose angles are nearest to that of the tangent y, by nine digits of y:
/// a coarse one for 0 <= y <= 1, a fine one for what a coarse step can leave, 0 <= y < 0.0241.
uint64_t NearestCoarseStep(const RealNumber* y);
uint64_t NearestFineStep(const RealNumber* y);

/// Turns the tangent x of an angle into that of the angle less the arc tangent of the fraction:
/// x = (x d - n) / (x n + d); raw.
Limb AtanShift(RealNumber* x, uint64_t numerator, uint64_t denominator);

/// The arc tangent, within -pi / 2 and pi / 2; raw. Zero gives itself, infinity +-pi / 2. Method:
/// the inverse argument above 1, one or two steps of the tangent addition rule to the nearest
/// multiple of an angle with a short rational tangent, and the series of what is left.
Limb RealAtan(RealNumber* dest, const RealNumber* x);

/// The arc sine, within -pi / 2 and pi / 2, as the arc tangent of x / sqrt((1 - x) (1 + x)); raw.
/// |x| > 1 gives NaN and CalcErrorUndefined.
Limb RealAsin(RealNumber* dest, const RealNumber* x);

/// The arc cosine, from 0 to pi, as twice the arc tangent of sqrt((1 - x) / (1 + x)); raw. |x| > 1
/// gives NaN and CalcErrorUndefined.
Limb RealAcos(RealNumber* dest, const RealNumber* x);

/// The angle of the point (x, y), above -pi and up to pi; raw. The sign of a zero x never counts,
/// that of a zero y only for positive x; (0, 0) has the angle +0. Two infinities give NaN and
/// CalcErrorUndefined. The quotient y / x is worked out on the way: one above the range is an
/// infinity, with the angle +-pi / 2 and CalcErrorOverflow if reportOverflow.
Limb RealAtan2(RealNumber* dest, const RealNumber* y, const RealNumber* x);

/// The same with 4 guard digits, rounded; within UsualErrorBound.
void RealAtanRounded(RealNumber* dest, const RealNumber* x);
void RealAsinRounded(RealNumber* dest, const RealNumber* x);
void RealAcosRounded(RealNumber* dest, const RealNumber* x);
void RealAtan2Rounded(RealNumber* dest, const RealNumber* y, const RealNumber* x);

/// The same in degrees and in gon, with 6 guard digits and rounded once; within
/// ArcInUnitsErrorBound.
void RealAtanDegreesRounded(RealNumber* dest, const RealNumber* x);
void RealAsinDegreesRounded(RealNumber* dest, const RealNumber* x);
void RealAcosDegreesRounded(RealNumber* dest, const RealNumber* x);
void RealAtan2DegreesRounded(RealNumber* dest, const RealNumber* y, const RealNumber* x);
void RealAtanGonRounded(RealNumber* dest, const RealNumber* x);
void RealAsinGonRounded(RealNumber* dest, const RealNumber* x);
void RealAcosGonRounded(RealNumber* dest, const RealNumber* x);
void RealAtan2GonRounded(RealNumber* dest, const RealNumber* y, const RealNumber* x);

}  // namespace tallymere
