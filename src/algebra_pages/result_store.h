// The texts of the last result of the polynomials' page. They outlive the calculation, so that the
// result can be taken into the grid as an operand.
#pragma once

#include <cstdint>
#include <string_view>

#include "algebra/polynomial_arithmetic.h"

namespace tallymere {

/// A text that grows: `text` has room for `capacity` characters and a 0, and is null without any.
struct ResultText {
    int64_t length = 0;
    int64_t capacity = 0;
    char16_t* text = nullptr;
};

/// Index i holds the text of the coefficient that belongs to x^i. The page or the command that
/// calculates owns it; its end frees the texts.
struct ResultStore {
    ResultText texts[PolyCoefficients];

    ResultStore() = default;
    ~ResultStore();
    ResultStore(const ResultStore&) = delete;
    ResultStore& operator=(const ResultStore&) = delete;
};

/// Beside a text that did not fit, its new memory has room for so many more characters.
inline constexpr int64_t ResultTextSpare = 20;

/// All texts become empty; their memory stays.
void EmptyResultStore(ResultStore& store);

/// Keeps a text under an index from 0 to MaxPolyDegree.
void KeepResultText(ResultStore& store, int32_t index, std::u16string_view text);

/// The text of an index, which ends with a 0; empty where there is none. It is there until the next
/// text is kept.
const char16_t* KeptResultText(const ResultStore& store, int32_t index);

/// What "Max. degree" becomes when the result goes into the grid: the highest index with a text
/// where that is above `maxDegree`, else `maxDegree`.
int32_t MaxDegreeForResult(const ResultStore& store, int32_t maxDegree);

}  // namespace tallymere
