// Contracts: what a function requires of its caller, checked while the program runs.
//
// A header states what its functions require. Builds with TALLYMERE_CHECK_CONTRACTS check it:
// the CMake presets `debug` and `linux-sanitize` do. In all other builds no check is left.
#pragma once

namespace tallymere {

#ifdef TALLYMERE_CHECK_CONTRACTS

inline constexpr bool ContractsAreChecked = true;

/// Writes file, line and condition to the standard error output and aborts the program.
[[noreturn]] void ReportBrokenContract(const char* file, int line, const char* condition);

/// Requires that `condition` is true. The condition must not change anything, since product builds
/// do not evaluate it. May stand in constexpr functions.
#define TALLYMERE_REQUIRE(condition) \
    ((condition) ? void(0) : ::tallymere::ReportBrokenContract(__FILE__, __LINE__, #condition))

#else

inline constexpr bool ContractsAreChecked = false;

/// Compiles the condition, so that it stays correct, and evaluates nothing.
#define TALLYMERE_REQUIRE(condition) static_cast<void>(false && (condition))

#endif

}  // namespace tallymere
