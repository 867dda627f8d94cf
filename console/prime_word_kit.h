// What the words factor and primes have in common.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "console/option_reader.h"
#include "console/text_options.h"
#include "prime_pages/prime_fields.h"

namespace tallymere {

struct PrimeWordOptions {
    TextOptions text;
    int64_t base = InitialPrimeBase;
    std::optional<std::string> interval;  ///< as given
    bool help = false;
};

/// Reads the arguments behind a word: its own options, --interval, --base, those of TextOptionList,
/// -h and --help, which all stand before the first number.
OptionReading ReadPrimeWord(std::vector<Option> ownOptions, PrimeWordOptions& options,
                            const std::vector<std::string>& arguments);

/// How the help of a word explains the options that both words have.
std::string PrimeWordOptionUsage();

/// The flags that numbers are read and written with.
uint32_t ParseFlagsOf(const PrimeWordOptions& options);
uint32_t PrintFlagsOf(const PrimeWordOptions& options);

/// Reads --interval, if it is given, as the page reads its field: *interval becomes 1 to `highest`.
/// Returns what is wrong with it, or nothing. The run's number setup is in force, and a
/// ConsoleGround lives.
std::string ReadIntervalOption(int64_t* interval, const PrimeWordOptions& options, int64_t highest);

/// Takes the text of a run to standard output.
void SendToOutput(const char16_t* text);

/// Runs `answer` on each operand, or without any on each line of standard input. It sends its text
/// to SendToOutput, and an error that it leaves pending becomes a line of its own; a line that it
/// leaves open is ended. A blank operand answers an empty line. Returns the exit status.
int AnswerNumbers(const std::vector<std::string>& operands,
                  const std::function<void(const char16_t* number)>& answer);

}  // namespace tallymere
