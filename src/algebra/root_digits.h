// The digits of roots: each part rounded once, half away from zero, whatever its neighbours are.
//
// A root is brought nearer until all numbers of its box round to the same digits. Where a box does
// not shrink away from 0 or from the middle between two results, it is decided exactly whether the
// part has that value: by the number of roots that lie mirror-wise to the line where it has
// (residue_structure.h). When no more roots could than must lie so, they do.
#pragma once

#include "algebra/root_clusters.h"

namespace tallymere {

/// Writes the root of each cluster of SeparateRoots to `values`, one for each cluster, numbers of
/// `digits` digits, 1 to MostRootDigits, in the layout of so many. Found or Stopped.
RootOutcome RoundRoots(ComplexNumber* const* values, RootClusters& clusters,
                       const Polynomial& polynomial, const CoefficientErrors& errors,
                       int64_t digits);

}  // namespace tallymere
