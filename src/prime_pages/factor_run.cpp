#include "prime_pages/factor_run.h"

namespace tallymere {

NumberSetup FactorNumberSetup() {
    return {.type = NumberTypeUint, .width = UintWidthForLimbs(2)};
}

}  // namespace tallymere
