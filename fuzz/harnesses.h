// The harnesses: what is done with an input, and what must hold then.
//
// A harness makes something of any input and checks properties of what comes out with the
// EXPECT_... of GoogleTest. It leaves the number context as it found it; RunHarness looks after
// that. An input is worth the same at any time: nothing is left over from the one before.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "fuzz/fuzz_input.h"

namespace tallymere::fuzz {

struct Harness {
    const char* name;  ///< its source file, its folders of seeds/ and regressions/
    void (*run)(FuzzInput& input);
};

/// All of them.
std::span<const Harness> AllHarnesses();

/// The one of a name; null for none.
const Harness* FindHarness(std::string_view name);

/// Runs a harness on an input. The thread needs a ScratchStack.
void RunHarness(const Harness& harness, std::span<const uint8_t> bytes);

}  // namespace tallymere::fuzz
