// The words that formulas know: functions, "mod" and pi.
#pragma once

#include <cstdint>

#include "formula/formula_token.h"

namespace tallymere {

struct FormulaKeyword {
    const char16_t* text;   ///< NUL-terminated; matching is exact and case-sensitive
    uint32_t id;            ///< a FormulaTokenId
    int16_t argumentCount;  ///< of a function; 0 for a constant, -1 for an operator
};

inline constexpr int64_t FormulaKeywordCount = 53;

/// No text occurs twice; pi has two rows.
extern const FormulaKeyword FormulaKeywordTable[FormulaKeywordCount];

/// The row of exactly these `length` characters, or null.
const FormulaKeyword* FindKeyword(const char16_t* text, uint64_t length);

/// The first row of an id, or null.
const FormulaKeyword* FindKeywordById(uint32_t id);

/// True when the NUL-terminated `name` is exactly these `length` characters.
bool NameEquals(const char16_t* name, const char16_t* text, uint64_t length);

}  // namespace tallymere
