#include "formula/uint_evaluation.h"

#include <algorithm>

#include "core/scratch.h"
#include "exact/big_uint.h"
#include "exact/big_uint_combinatorics.h"
#include "exact/big_uint_roots.h"
#include "exact/rational_arithmetic.h"

namespace tallymere {

bool UintCubeRoot(uint64_t* dest, const uint64_t* x) {
    return BigUintRootSmall(dest, 3, x);
}

// The denominator is always 0, so the function fails for every operand. It stays so, as no formula
// can have a use for the fraction of an integer.
void UintFraction(uint64_t* dest, const uint64_t* x) {
    ScratchStackScope scope;
    uint64_t* words = scope.Take(RationalWords());
    std::fill_n(std::copy_n(x, numberContext.uintLimbs, words), numberContext.uintLimbs + 1, 0);
    RationalFraction(RationalAt(words), RationalAt(words));
    BigUintCopy(dest, words);
}

// It stays so: an integer needs no rounding, and the result shows that the call means nothing.
void UintLeaveUnwritten(uint64_t*, const uint64_t*) {}

void UintCombinations(uint64_t* dest, const uint64_t* n, const uint64_t* k) {
    BigUintBinomial(dest, n, k, false);
}

void UintPermutations(uint64_t* dest, const uint64_t* n, const uint64_t* k) {
    BigUintBinomial(dest, n, k, true);
}

}  // namespace tallymere
