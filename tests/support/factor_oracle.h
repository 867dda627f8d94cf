// PARI as the judge of prime factors. Native only.
#pragma once

#include <cstdint>
#include <vector>

#include "support/gmp_oracle.h"

namespace tallymere::testing_support {

/// A prime and its exponent.
struct OracleFactor {
    Integer prime;
    uint64_t multiplicity;
};

/// The prime factors of n, 1 or more, in ascending order, each proven to be prime by PARI.
std::vector<OracleFactor> FactorsByPari(const Integer& n);

}  // namespace tallymere::testing_support
