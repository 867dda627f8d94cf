// The seed of all random tests.
#pragma once

#include <cstdint>

namespace tallymere::testing_support {

/// The value of the environment variable TALLYMERE_SEED, or a fixed one. Tests put it into their
/// failure messages (SCOPED_TRACE), so that a run can be repeated.
uint64_t TestSeed();

}  // namespace tallymere::testing_support
