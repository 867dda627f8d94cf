// The functions of formulas in the number type uint that need more than a routine of exact/.
//
// function_table.cpp says which function has which routine. No destination is an argument.
#pragma once

#include <cstdint>

namespace tallymere {

/// dest = the cube root of x, rounded down. True when it is exact.
bool UintCubeRoot(uint64_t* dest, const uint64_t* x);

/// dest = 0, always with CalcErrorExactDivisionByZero: x with zeros behind it is read as if it were
/// a fraction, whose denominator then is 0.
void UintFraction(uint64_t* dest, const uint64_t* x);

/// Does nothing, so that dest keeps the number that it held before: round of an integer.
void UintLeaveUnwritten(uint64_t* dest, const uint64_t* x);

// dest = the number of ways to choose k of n things, without and with their order. Codes:
// CalcErrorOverflow when it does not fit, CalcErrorUndefined for too many factors, and
// CalcErrorCancelled.
void UintCombinations(uint64_t* dest, const uint64_t* n, const uint64_t* k);
void UintPermutations(uint64_t* dest, const uint64_t* n, const uint64_t* k);

}  // namespace tallymere
