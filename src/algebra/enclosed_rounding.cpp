#include "algebra/enclosed_rounding.h"

#include "core/real_add.h"
#include "core/real_compare.h"
#include "core/real_integer.h"
#include "core/real_rounding.h"
#include "core/scratch.h"

namespace tallymere {

bool RoundsAlike(RealNumber* rounded, const RealNumber* x, int64_t error, int64_t digits) {
    // Both ends may have different signs, or one of them may be 0.
    if (RealExponent(x) <= error) {
        return false;
    }
    ScratchStackScope scope;
    RealNumber* distance = RealAt(scope.Take(RealWords()));
    RealNumber* other = RealAt(scope.Take(RealWords()));
    RealSetOne(distance);
    RealSetExponent(distance, error);
    RealSub(other, x, distance);
    RealRoundDigits(other, other, digits);
    RealAdd(rounded, x, distance);
    RealRoundDigits(rounded, rounded, digits);
    return RealCompare(rounded, other) == 0;
}

}  // namespace tallymere
