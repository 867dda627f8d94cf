// One root at any number of digits.
#pragma once

#include "algebra/root_clusters.h"

namespace tallymere {

/// Brings the centre nearer to the mean of the cluster's roots, which for an m-fold root is the
/// root itself, and into the layout of so many digits, 1 to MostRootDigits; the radius follows.
/// Both parts are brought near in their own size, so far as a few steps can. A part that is 0 is
/// left at 0 where the polynomial leaves it there. False when a stop was requested. Method:
/// Newton's iteration on the derivative of order m - 1, at rising digits.
bool RefineCenter(RootCluster& cluster, const Polynomial& polynomial, int64_t digits);

}  // namespace tallymere
