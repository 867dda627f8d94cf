#include "formula/real_evaluation.h"

#include "core/real_rounding.h"
#include "functions/combinatorics.h"

namespace tallymere {

void RealGcdRounded(RealNumber* dest, const RealNumber* a, const RealNumber* b) {
    RealRound(dest, RealGcd(dest, a, b));
}

void RealLcmRounded(RealNumber* dest, const RealNumber* a, const RealNumber* b) {
    RealRound(dest, RealLcm(dest, a, b));
}

}  // namespace tallymere
