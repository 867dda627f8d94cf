// The text of an exact root, such as "1/2*sqrt(2)*i".
#pragma once

#include "algebra/exact_root.h"

namespace tallymere {

/// Writes the root and a terminating 0 into an array of ExactTextCapacity + 1 characters. Returns
/// false when the text is longer than ExactTextCapacity: it is cut, and its last character is the
/// ellipsis. With integers of 2 limbs it is not: the longest text has MaxExactRootCharacters.
///
/// - A fraction stands alone: "-3/4".
/// - p is left out when it is 0: "1+sqrt(2)", "-sqrt(2)".
/// - Before sqrt a factor 1 is left out too, but not before the imaginary unit alone: "2-1*i". The
///   unit is that of NumberContext.
bool WriteExactRoot(char16_t* text, const ExactRoot& root);

/// p and q with a sign and two integers of 39 digits each, and r.
inline constexpr int64_t MaxExactRootCharacters = 2 * (1 + 39 + 1 + 39) + 6 + 39 + 1 + 2;
static_assert(MaxExactRootCharacters <= ExactTextCapacity);

}  // namespace tallymere
