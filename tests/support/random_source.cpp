#include "support/random_source.h"

#include <string>

#include "support/test_seed.h"

#if defined(__SANITIZE_ADDRESS__)
#define TALLYMERE_SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TALLYMERE_SANITIZED 1
#endif
#endif

namespace tallymere::testing_support {

RandomSource::RandomSource()
    : seed_(TestSeed()),
      engine_(seed_),
      trace_(__FILE__, __LINE__, "repeat with TALLYMERE_SEED=" + std::to_string(seed_)) {}

int TestRounds(int optimised) {
#ifdef TALLYMERE_SANITIZED
    return optimised >= 5 ? optimised / 5 : 1;
#else
    return optimised;
#endif
}

}  // namespace tallymere::testing_support
