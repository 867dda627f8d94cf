#include "console/factor_word.h"

#include "console/console_setup_scope.h"
#include "console/ending.h"
#include "console/option_usage.h"
#include "console/prime_word_kit.h"
#include "exact/big_uint.h"
#include "prime_pages/factor_run.h"

namespace tallymere {

namespace {

// What stands in braces is replaced by the limits of the page.
constexpr std::string_view UsageForm =
    R"(usage: tallymere-console factor [options] [NUMBER ...]

Writes the prime factors of each NUMBER, or of each line of standard input when
there is none, or else its divisors. A number is below 2^{bits}.

  --divisors                    divisors instead of prime factors
  --count                       with --divisors: their number as well
  --interval N                  so many numbers from NUMBER on, 1 to {highest} ({interval})
)";

// The options of the word and what follows from them.
struct FactorWord {
    PrimeWordOptions options;
    bool divisors = false;
    bool count = false;
    int64_t interval = BlankFactorInterval;
    std::vector<uint64_t> divisorRoom;
};

std::string Usage() {
    return FillInUsage(UsageForm, {{"{bits}", std::to_string(FactorLimbs * BitsPerUintLimb)},
                                   {"{highest}", std::to_string(MaxFactorInterval)},
                                   {"{interval}", std::to_string(BlankFactorInterval)}});
}

void AnswerFactors(FactorWord& word, const char16_t* number) {
    FactorRequest request = {.showDivisors = word.divisors,
                             .showCount = word.count,
                             .number = {},
                             .interval = static_cast<int32_t>(word.interval),
                             .printFlags = PrintFlagsOf(word.options),
                             .parseFlags = ParseFlagsOf(word.options),
                             .divisors = word.divisors ? word.divisorRoom.data() : nullptr};
    if (ReadPrimeNumberField(request.number, number, request.parseFlags)) {
        FactorWorker(request, SendToOutput);
    }
}

}  // namespace

ExitStatus RunFactorWord(const std::vector<std::string>& arguments) {
    FactorWord word;
    const WordReading reading = ReadPrimeWord(
        {FlagOption("--divisors", word.divisors, true), FlagOption("--count", word.count, true)},
        word.options, arguments, Usage());
    if (reading.ending.has_value()) {
        return *reading.ending;
    }
    if (word.count && !word.divisors) {
        return ReportBadOptions("--count counts divisors; allowed: --divisors --count");
    }
    const ConsoleSetupScope console(word.options.text);
    const NumberSetupScope numbers(FactorNumberSetup());
    const std::string problem = ReadIntervalOption(&word.interval, word.options, MaxFactorInterval);
    if (!problem.empty()) {
        return ReportBadOptions(problem);
    }
    word.divisorRoom.resize(word.divisors ? static_cast<size_t>(FactorDivisorWords) : 0);
    return AnswerNumbers(reading.operands,
                         [&word](const char16_t* number) { AnswerFactors(word, number); });
}

}  // namespace tallymere
