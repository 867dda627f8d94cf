// The probabilistic test of primality, for integers of the width in force: trial division by the
// primes below 1000, then two Euler tests with Jacobi symbols, to the bases 2 and 3.
//
// A composite number can pass: one without a factor below 1000 that is a pseudoprime to both bases.
// That is accepted; numtheory/prime_proof.h never errs.
//
// The stop request is polled once for each bit of a power. A test that ends by it notes
// CalcErrorCancelled, and what it returns means nothing. A code that was noted before stays.
#pragma once

#include <cstdint>

#include "core/limits.h"

namespace tallymere {

/// The widest integers, in limbs, that EulerTestBase2 takes. The limit is kept on purpose: it is
/// half of the widest integers that there are, though the powers need no more than the width.
inline constexpr int64_t MaxEulerTestLimbs = MaxUintLimbs / 2;

/// 0 when n is taken for a prime; 1 when n is composite, 0 or 1. The width may be more than
/// MaxEulerTestLimbs limbs; an n that only the Euler tests can judge then gives 1 and notes
/// CalcErrorBadParameter.
int IsCompositeNumber(const uint64_t* n);

/// True when 2^((n - 1) / 2) is the Jacobi symbol (2 / n) modulo n. n is odd and above 1008. False
/// and CalcErrorBadParameter at more than MaxEulerTestLimbs limbs, for all n.
/// Source: Solovay and Strassen, "A fast Monte-Carlo test for primality".
bool EulerTestBase2(const uint64_t* n);

/// True when 3^((n - 1) / 2) is the Jacobi symbol (3 / n) modulo n, for any n above 3 at any width.
/// False for an even n, and false with CalcErrorUndefined when the width is below 1.
bool EulerTestBase3(const uint64_t* n);

/// The Jacobi symbol (a / b), 1 or -1, of two numbers without a common factor; b is odd. Where
/// there is a common factor the symbol would be 0, and the result is 1 or -1 all the same.
/// Method: quadratic reciprocity; Cohen, "A Course in Computational Algebraic Number Theory",
/// algorithm 1.4.10, without its test for common factors.
int32_t JacobiSymbol(const uint64_t* a, const uint64_t* b);

}  // namespace tallymere
