// The search for a divisor of a number that is known to be composite.
//
// Squares are taken first. Any other number takes the way that measures best for its length: the
// walk along the wheel of candidates up to 20 bits, Pollard's rho (pollard_rho.h) up to 36 bits,
// and elliptic curves (elliptic_curves.h) above, with bounds that grow. The walk is also the last
// resort, so that the search always ends.
//
// The same number always takes the same way: nothing depends on chance or on a clock.
#pragma once

#include "core/wide_arithmetic.h"

namespace tallymere {

/// A divisor of the odd composite number between 1 and it, not always a prime; {0, 0} after a stop
/// was requested, which is polled every millisecond. `composite` must not be a prime: the search
/// would last for ever.
Wide FindDivisor(Wide composite);

/// The least divisor above 1 of an odd n of at least 3, by the walk along the wheel up to the
/// square root: n itself if n is a prime. {0, 0} when a stop was requested before the end, which is
/// polled every millisecond.
Wide FindDivisorByWalk(Wide n);

}  // namespace tallymere
