// From a text to its outcome, for all number types: the value in plain text and the code.
//
// Each function reads the text twice, once by its length and once up to its terminator where it
// holds no 0, and fails the test if the two differ or the value is not well-formed. No code is
// noted afterwards; one that was noted before is kept through both readings. `flags` are bits of
// TextFlags.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/number_context.h"
#include "support/real_testing.h"

namespace tallymere::testing_support {

/// What RealFromText makes of the text, rounded: the value as PlainText.
Outcome ReadReal(std::u16string_view text, uint32_t flags);

/// What ComplexFromText makes of the text: both parts as PlainText, with a space between them.
Outcome ReadComplex(std::u16string_view text, uint32_t flags);

/// What BigUintFromText makes of the text at the width in force: the value as UintText.
Outcome ReadUint(std::u16string_view text, uint32_t flags);

/// What RationalFromText makes of the text at the width in force: the value as RationalPlainText.
Outcome ReadRational(std::u16string_view text, uint32_t flags);

/// One of the four, by the number type.
Outcome ReadNumber(NumberType type, std::u16string_view text, uint32_t flags);

}  // namespace tallymere::testing_support
