// A plain twin of the root finder: the simultaneous iteration of Weierstrass (Durand and Kerner),
// all of it at the working digits, from starts that do not depend on the coefficients.
//
// Roots are rounded after each sweep, and the iteration has converged when each root has a part
// that stayed the same over six sweeps. It ends as NotConverged where it takes too many sweeps, and
// it may leave noise in a part that is 0; where it does neither, its roots are those of the
// product.
#pragma once

#include "algebra/polynomial_roots.h"

namespace tallymere::reference {

/// As SolvePolynomial, for lists of finite numbers that nobody stops.
RootOutcome TwinSolvePolynomial(SolutionSet& solutions, const CoefficientList& list, int64_t digits,
                                uint32_t flags);

}  // namespace tallymere::reference
