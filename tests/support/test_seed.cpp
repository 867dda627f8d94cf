#include "support/test_seed.h"

#include <cstdlib>

namespace tallymere::testing_support {

uint64_t TestSeed() {
    const char* text = std::getenv("TALLYMERE_SEED");
    return text != nullptr ? std::strtoull(text, nullptr, 10) : 20260401u;
}

}  // namespace tallymere::testing_support
