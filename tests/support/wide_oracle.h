// Numbers of 128 bits as integers of GMP and back, for tests of the number theory. Native only.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>

#include "core/wide_arithmetic.h"
#include "support/gmp_oracle.h"
#include "support/random_source.h"

namespace tallymere::testing_support {

Integer ToInteger(Wide a);
Integer ToInteger(uint64_t a);

/// The low 128 bits of a value of at least 0.
Wide ToWide(const Integer& value);

/// The product of the factors.
Integer Product(std::initializer_list<uint64_t> factors);

/// In decimal.
std::string DecimalText(const Integer& value);

/// A random prime of exactly so many bits, 2 to 64.
uint64_t RandomPrime(RandomSource& random, int bits);

}  // namespace tallymere::testing_support
