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

/// dest = the angle x in radians, and the answer whether x is a multiple of the quarter turn.
///
/// Zero is an even multiple. Beyond that only 1 <= |x| < 10^9 is looked at; smaller and larger
/// angles are no multiples. A multiple in degrees or gon is one exactly. In radians, where the
/// quarter turn is not exact, it may differ by less than 10^(e - p + 2), e being the exponent of x
/// and p the precision; for p <= e + 2 every angle counts as a multiple.
QuarterTurns ReduceAngleArgument(RealNumber* dest, const RealNumber* x, AngleUnit unit);

/// dest = the angle x, in radians, in the unit.
void AngleFromRadians(RealNumber* dest, const RealNumber* x, AngleUnit unit);

// dest = a function of the angle x. Angles in degrees and gon are rounded in radians on the way, so
// the digits that a large one has before its point are missing from its sine. Zeros at multiples of
// the quarter turn are exact and positive.

void SineOfAngle(RealNumber* dest, const RealNumber* x, AngleUnit unit);
void CosineOfAngle(RealNumber* dest, const RealNumber* x, AngleUnit unit);

/// False at a pole, which is an odd multiple of the quarter turn. No code is noted then, and dest
/// is the angle in radians.
bool TangentOfAngle(RealNumber* dest, const RealNumber* x, AngleUnit unit);

// dest = the angle with the sine, cosine or tangent x.
void AngleOfSine(RealNumber* dest, const RealNumber* x, AngleUnit unit);
void AngleOfCosine(RealNumber* dest, const RealNumber* x, AngleUnit unit);
void AngleOfTangent(RealNumber* dest, const RealNumber* x, AngleUnit unit);

}  // namespace tallymere
