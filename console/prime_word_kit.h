// What the words factor and primes have in common.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "console/word_kit.h"
#include "prime_pages/prime_fields.h"

namespace tallymere {

struct PrimeWordOptions {
    TextOptions text;
    int64_t base = InitialPrimeBase;
    std::optional<std::string> interval;  ///< as given
};

/// Reads the arguments behind a word as ReadWord does: its own options, --interval, --base and
/// those of every word. `usage` is the help as far as it concerns this word alone.
WordReading ReadPrimeWord(std::vector<Option> ownOptions, PrimeWordOptions& options,
                          const std::vector<std::string>& arguments, std::string_view usage);

/// The flags that numbers are read and written with.
uint32_t ParseFlagsOf(const PrimeWordOptions& options);
uint32_t PrintFlagsOf(const PrimeWordOptions& options);

/// Reads --interval, if it is given, as the page reads its field: *interval becomes 1 to `highest`.
/// Returns what is wrong with it, or nothing. The run's number setup is in force, and a
/// ConsoleSetupScope lives.
std::string ReadIntervalOption(int64_t* interval, const PrimeWordOptions& options, int64_t highest);

/// AnswerByRuns with a run of a prime page for each number.
ExitStatus AnswerNumbers(const std::vector<std::string>& operands,
                         const std::function<void(const char16_t* number)>& answer);

}  // namespace tallymere
