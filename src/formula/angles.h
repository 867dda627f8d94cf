// The trigonometric functions of formulas, with angles in radians, degrees and gon. Multiples of
// the quarter turn are recognised, so that sin(180 degrees) is 0 and no rounding residue.
//
// Precondition of all functions here: the unit is not AngleUnit::None. Every destination may be the
// argument. Results are rounded, and those that fail note the code of their routine in functions/.
#pragma once

#include "core/real_number.h"
#include "formula/angle_unit.h"

namespace tallymere {

/// Whether an angle is a multiple of the quarter turn, and which.
enum class QuarterTurns {
    NoMultiple = 0,
    Odd = 1,
    Even = 2,
};

/// The answer whether the angle x is a multiple of the quarter turn.
///
/// Zero is an even multiple, and other angles below 1 are none. In degrees and gon an angle is a
/// multiple exactly or not at all; one that is too large for the functions counts as none. In
/// radians, where the quarter turn is not exact, only |x| < 10^9 is looked at, and the angle may
/// differ from the multiple by less than 10^(e - p + 2), e being the exponent of x and p the
/// precision. Where that is more than 10^-3 no angle counts as a multiple: it would be as near to
/// one by chance.
QuarterTurns ReduceAngleArgument(const RealNumber* x, AngleUnit unit);

// dest = a function of the angle x. Zeros at multiples of the quarter turn are exact and positive.

void SineOfAngle(RealNumber* dest, const RealNumber* x, AngleUnit unit);
void CosineOfAngle(RealNumber* dest, const RealNumber* x, AngleUnit unit);

/// False at a pole, which is an odd multiple of the quarter turn. No code is noted then, and dest
/// stays as it is.
bool TangentOfAngle(RealNumber* dest, const RealNumber* x, AngleUnit unit);

// dest = the angle with the sine, cosine or tangent x.
void AngleOfSine(RealNumber* dest, const RealNumber* x, AngleUnit unit);
void AngleOfCosine(RealNumber* dest, const RealNumber* x, AngleUnit unit);
void AngleOfTangent(RealNumber* dest, const RealNumber* x, AngleUnit unit);

/// dest = the angle of the point (x, y).
void AngleOfPoint(RealNumber* dest, const RealNumber* y, const RealNumber* x, AngleUnit unit);

}  // namespace tallymere
