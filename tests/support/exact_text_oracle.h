// What texts of integers and fractions denote, as values of GMP. Native only.
#pragma once

#include <string_view>

#include "support/rational_oracle.h"

namespace tallymere::testing_support {

/// What BigUintFromText has to make of a text, at the width in force.
void ReadUintText(ExpectedUint& expected, std::u16string_view text, uint32_t flags);

/// What RationalFromText has to make of a text, at the width in force.
void ReadRationalText(ExpectedRational& expected, std::u16string_view text, uint32_t flags);

}  // namespace tallymere::testing_support
