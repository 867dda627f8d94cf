// The number types that a user can choose.
#pragma once

#include "core/number_context.h"

namespace tallymere::testing_support {

/// In the order of the calculator's slider.
inline constexpr NumberType AllNumberTypes[] = {NumberTypeUint, NumberTypeRational, NumberTypeReal,
                                                NumberTypeComplex};

}  // namespace tallymere::testing_support
