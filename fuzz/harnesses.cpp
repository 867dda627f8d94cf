#include "fuzz/harnesses.h"

#include "fuzz/harness_list.h"
#include "support/real_testing.h"

namespace tallymere::fuzz {

namespace {

constexpr Harness Table[] = {
    {"formulas", FuzzFormulas},
    {"number_texts", FuzzNumberTexts},
    {"settings", FuzzSettings},
    {"variables", FuzzVariables},
    {"text_formats", FuzzTextFormats},
    {"key_presses", FuzzKeyPresses},
    {"csv", FuzzCsv},
    {"grid", FuzzGrid},
    {"factors", FuzzFactors},
    {"primes", FuzzPrimes},
    {"equations", FuzzEquations},
    {"systems", FuzzSystems},
    {"polynomials", FuzzPolynomials},
};

}  // namespace

std::span<const Harness> AllHarnesses() {
    return Table;
}

const Harness* FindHarness(std::string_view name) {
    for (const Harness& harness : Table) {
        if (harness.name == name) {
            return &harness;
        }
    }
    return nullptr;
}

void RunHarness(const Harness& harness, std::span<const uint8_t> bytes) {
    const testing_support::ContextCheck check;
    FuzzInput input(bytes);
    harness.run(input);
}

}  // namespace tallymere::fuzz
