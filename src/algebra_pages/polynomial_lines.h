// The lines that show the result of a calculation with polynomials.
#pragma once

#include <cstdint>

#include "algebra/polynomial_calculation.h"
#include "algebra_pages/result_store.h"

namespace tallymere {

/// Takes the next characters of a result, which end with a 0 and are there during the call alone.
using TakePolyText = void (*)(void* context, const char16_t* text);

/// How an operator is written. A difference has the plain minus sign, unlike the button that asks
/// for it.
char16_t SignOfOperator(PolyOperator operation);

/// Characters of a line beside the number that it shows.
inline constexpr int64_t PolyLineCharacters = 200;

/// Characters of the longest line for the numbers in force.
int64_t PolyLineCapacity(uint32_t printFlags);

/// Hands over the head line "P0(x) + P1(x) = b2*x^2 + b1*x + b0", an empty one, and a line for each
/// coefficient from the highest power of the result down to the constant, which is there also where
/// the result is 0; for a quotient those of the remainder follow. Texts of the result are kept in
/// the store. Lines end with "\r\n".
///
/// `printFlags` are bits of TextFlags. `capacity` is PolyLineCapacity or less; a longer line ends
/// with an ellipsis and raises UiErrorTextOverflow; its number is kept whole. A CalcError becomes
/// UiErrorCalculation. True when no error is pending: then the result may be taken into the grid.
bool PrintPolyResult(const PolyCalculation& calculation, ResultStore& store, uint32_t printFlags,
                     int64_t capacity, TakePolyText take, void* takeContext);

}  // namespace tallymere
