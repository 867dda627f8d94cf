#include "functions/angle_units.h"

#include "core/real_divide.h"
#include "core/real_multiply.h"
#include "core/scratch.h"
#include "functions/guard_digits.h"
#include "functions/stored_constants.h"

namespace tallymere {

namespace {

constexpr int64_t AngleGuardDigits = 2;

// Units in pi / 4.
constexpr uint64_t DegreesPerOctant = 45;
constexpr uint64_t GonPerOctant = 50;

template <uint64_t UnitsPerOctant>
Limb ToRadians(RealNumber* dest, const RealNumber* x) {
    CoreScratchScope scratch;
    RealNumber* quarterPi = RealAt(scratch.Take(RealWords()));
    LoadConstant(quarterPi, ConstPiQuarter);
    RealDivUint(dest, x, UnitsPerOctant);
    return RealMulRaw(dest, dest, quarterPi);
}

template <uint64_t UnitsPerOctant>
Limb FromRadians(RealNumber* dest, const RealNumber* x) {
    CoreScratchScope scratch;
    RealNumber* quarterPi = RealAt(scratch.Take(RealWords()));
    LoadConstant(quarterPi, ConstPiQuarter);
    RealMulUint(dest, x, UnitsPerOctant);
    return RealDivRaw(dest, dest, quarterPi);
}

}  // namespace

void RealDegToRad(RealNumber* dest, const RealNumber* x) {
    RoundedUnary(dest, x, AngleGuardDigits, ToRadians<DegreesPerOctant>);
}

void RealGonToRad(RealNumber* dest, const RealNumber* x) {
    RoundedUnary(dest, x, AngleGuardDigits, ToRadians<GonPerOctant>);
}

void RealRadToDeg(RealNumber* dest, const RealNumber* x) {
    RoundedUnary(dest, x, AngleGuardDigits, FromRadians<DegreesPerOctant>);
}

void RealRadToGon(RealNumber* dest, const RealNumber* x) {
    RoundedUnary(dest, x, AngleGuardDigits, FromRadians<GonPerOctant>);
}

}  // namespace tallymere
