// A box that is proven to hold a root, with an error of its own for each part.
//
// Krawczyk's operator: for a root z of f within a box X around c, and any number y,
//     z - c  lies in  -y f(c) + (1 - y f'(X)) (X - c).
// Real and imaginary parts keep their own bounds all the way, so that a real part of 10^-300 beside
// an imaginary part of 1 gets as many digits as that. Source: R. Krawczyk, Computing 4 (1969).
#pragma once

#include "algebra/root_clusters.h"

namespace tallymere {

/// What EncloseRoot found.
struct RootEnclosure {
    bool proven;       ///< the radii are those of a box that holds the root; else those of the disc
    PartSizes radii;   ///< how far the parts of the root may lie from those of the centre
    PartSizes shifts;  ///< how far the errors of the coefficients may move the root
};

/// Which parts of a root are known to be 0.
struct ZeroParts {
    bool real;
    bool imaginary;
};

/// Encloses the root of a cluster, whose roots are equal or taken as such, from its disc, so
/// closely as the digits of the centre allow; the radius of a part that is known to be 0 need not
/// be small. False when a stop was requested.
bool EncloseRoot(RootEnclosure& enclosure, const RootCluster& cluster, const Polynomial& polynomial,
                 const CoefficientErrors& errors, ZeroParts zeros);

}  // namespace tallymere
