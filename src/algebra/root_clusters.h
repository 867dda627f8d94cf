// From a polynomial to its different roots with their multiplicities: discs, each of which holds
// one root and no other.
//
// Approximations at few digits are parted into discs (root_discs.h). Where a disc holds several
// roots, the polynomial is expanded around its centre at more and more digits, and in that variable
// the same is done again, at few digits. The number of different roots, which is known beforehand
// (residue_structure.h), says when there is nothing left to part. A cluster that is one root within
// the errors of the coefficients (coefficient_errors.h) is taken as one.
#pragma once

#include "algebra/coefficient_errors.h"
#include "algebra/root_discs.h"
#include "core/limits.h"

namespace tallymere {

/// The digits of sweeps, of discs and of everything that needs no more.
inline constexpr int64_t SweepDigits = 38;

/// The most digits that anything is calculated with. What they do not part is taken as one root,
/// and what they do not tell from 0 as 0.
inline constexpr int64_t MostRootDigits = MaxPrecisionDigits;

/// Roots that lie close together, or a single one.
struct RootCluster {
    ComplexNumber* center;  ///< has room for MostRootDigits
    RealLayout layout;      ///< of the centre
    Magnitude radius;       ///< of a disc around it that holds these roots and no other
    int64_t multiplicity;   ///< the number of these roots
    bool isOneRoot;         ///< they are known to be equal, or taken as such
};

/// True when the multiplicity is 1 to the degree and the centre is well-formed in its layout.
bool ClusterIsWellFormed(const RootCluster& cluster, const Polynomial& polynomial);

struct RootClusters {
    int64_t count;
    RootCluster clusters[MaxEquationDegree];
};

/// Gives every cluster a centre of the scope, and none of them a value.
void TakeClusters(ScratchScope& scope, RootClusters& clusters);

/// Finds the different roots of a polynomial of degree 1 or more without a root 0, in the layout in
/// force. Found or Stopped.
RootOutcome SeparateRoots(RootClusters& clusters, const Polynomial& polynomial,
                          const CoefficientErrors& errors);

/// Makes the disc of a cluster smaller where the polynomial, at the digits of the centre, allows
/// it. False when a stop was requested.
bool TightenDisc(RootCluster& cluster, const Polynomial& polynomial);

}  // namespace tallymere
