// What libFuzzer calls. TALLYMERE_HARNESS in the environment names the harness.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

#include "core/scratch.h"
#include "fuzz/harnesses.h"

namespace {

const tallymere::fuzz::Harness* harness;

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    const char* name = std::getenv("TALLYMERE_HARNESS");
    harness = tallymere::fuzz::FindHarness(name != nullptr ? name : "");
    if (harness == nullptr) {
        std::fputs("TALLYMERE_HARNESS must be one of:", stderr);
        for (const tallymere::fuzz::Harness& row : tallymere::fuzz::AllHarnesses()) {
            std::fprintf(stderr, " %s", row.name);
        }
        std::fputs("\n", stderr);
        std::exit(2);
    }
    tallymere::CreateScratchStack();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t count) {
    tallymere::fuzz::RunHarness(*harness, {bytes, count});
    if (testing::Test::HasFailure()) {
        std::abort();
    }
    return 0;
}
