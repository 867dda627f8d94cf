// What texts of integers and fractions denote, as values of GMP. Native only.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "support/rational_oracle.h"

namespace tallymere::testing_support {

/// A base that the oracle knows. It has a list of its own, so that it shares nothing with the
/// program.
struct OracleBase {
    uint32_t base;
    size_t groupSize;  ///< digits between two group separators
};
inline constexpr OracleBase OracleBases[] = {{2, 4}, {8, 4}, {10, 3}, {16, 4}};

/// The row of a base, null for one that the oracle does not know.
const OracleBase* FindOracleBase(uint32_t base);

/// What BigUintFromText has to make of a text, at the width in force.
void ReadUintText(ExpectedUint& expected, std::u16string_view text, uint32_t flags);

/// What RationalFromText has to make of a text, at the width in force.
void ReadRationalText(ExpectedRational& expected, std::u16string_view text, uint32_t flags);

}  // namespace tallymere::testing_support
