// Angles in radians, degrees and gon: what the circular functions of formulas do about units, and
// that sin(180 degrees) is 0 and no rounding residue.
#pragma once

#include "core/real_number.h"
#include "formula/formula_evaluator.h"

namespace tallymere {

enum class AngleUnit { Radians, Degrees, Gon };

/// Whether an angle is a multiple of the quarter turn, and which.
enum class QuarterTurns {
    NoMultiple = 0,
    Odd = 1,
    Even = 2,
};

/// dest = the angle x in radians, rounded, and the answer whether x is a multiple of the quarter
/// turn. dest may be x.
///
/// Zero is an even multiple. Beyond that only 1 <= |x| < 10^9 is looked at; smaller and larger
/// angles are no multiples. A multiple in degrees or gon is one exactly. In radians, where the
/// quarter turn is not exact, it may differ by less than 10^(e - p + 2), e being the exponent of x
/// and p the precision; for p <= e + 2 that lets every angle pass.
QuarterTurns ReduceAngleArgument(RealNumber* dest, const RealNumber* x, AngleUnit unit);

/// dest = the angle x, in radians, in the unit; rounded. dest may be x.
void AngleFromRadians(RealNumber* dest, const RealNumber* x, AngleUnit unit);

/// True for the ids of sine, cosine, tangent and their inverses in any unit.
bool IsCircularFunction(uint32_t functionId);

/// dest = one of those functions of x. Angles in degrees and gon are rounded in radians on the way,
/// so the digits that a large one has before its point are missing from its sine. The zeros of the
/// forward functions are +0; a tangent at an odd multiple of the quarter turn is error 10203 at the
/// function, and dest then an angle in radians. dest may be x.
void ApplyCircularFunction(FormulaEvaluator& evaluator, const FormulaToken& function,
                           RealNumber* dest, const RealNumber* x);

}  // namespace tallymere
