#include "console/primes_word.h"

#include "console/output.h"
#include "console/prime_word_kit.h"
#include "prime_pages/prime_run.h"

namespace tallymere {

namespace {

constexpr std::string_view Usage =
    R"(usage: tallymere-console primes [options] [NUMBER ...]

Writes the prime numbers of the interval that begins with each NUMBER, or with
each line of standard input when there is none.

  --interval N                  the primes among N numbers from NUMBER on, 1 to
                                2147483647 (100)
  --next                        the first prime from NUMBER on
  --test                        whether NUMBER is prime
  --method exact|probabilistic  exact: proven, for numbers below 2^128;
                                probabilistic: by tests that few composite
                                numbers pass, for numbers of up to 1252 digits
                                and some of 1253 (exact)
)";

constexpr Choice Methods[] = {{"exact", ExactMethod}, {"probabilistic", ProbabilisticMethod}};

// The options of the word and what follows from them.
struct PrimesWord {
    PrimeWordOptions options;
    PrimeMethod method = ExactMethod;
    bool next = false;
    bool test = false;
    int64_t count = 0;
};

std::string CheckMode(const PrimesWord& word) {
    const int modes =
        (word.next ? 1 : 0) + (word.test ? 1 : 0) + (word.options.interval.has_value() ? 1 : 0);
    return modes > 1 ? "only one thing can be asked for; allowed: --interval N, --next, --test"
                     : std::string();
}

PrimeMode ModeOf(const PrimesWord& word) {
    if (word.next) {
        return NextPrimeMode;
    }
    return word.test ? TestMode : IntervalMode;
}

void AnswerPrimes(const PrimesWord& word, const char16_t* text) {
    const uint32_t parseFlags = ParseFlagsOf(word.options);
    ScratchStackScope scratch;
    uint64_t* number = scratch.Take(numberContext.uintLimbs);
    if (ReadPrimeNumberField(number, text, parseFlags)) {
        PrimeWorker({.method = word.method,
                     .mode = ModeOf(word),
                     .number = number,
                     .count = static_cast<uint64_t>(word.count),
                     .printFlags = PrintFlagsOf(word.options),
                     .parseFlags = parseFlags},
                    SendToOutput);
    }
}

}  // namespace

int RunPrimesWord(const std::vector<std::string>& arguments) {
    PrimesWord word;
    OptionReading reading = ReadPrimeWord(
        {FlagOption("--next", word.next, true), FlagOption("--test", word.test, true),
         ChoiceOption("--method", {std::begin(Methods), std::end(Methods)}, word.method)},
        word.options, arguments);
    if (!reading.error.empty()) {
        return ReportBadOptions(reading.error);
    }
    if (word.options.help) {
        return PrintText(std::string(Usage) + PrimeWordOptionUsage());
    }
    std::string problem = CheckMode(word);
    if (!problem.empty()) {
        return ReportBadOptions(problem);
    }
    const ConsoleGround ground(word.options.text);
    const NumberSetupScope scope(PrimeNumberSetup(word.method));
    word.count = MaxPrimeInterval;
    if (ModeOf(word) == IntervalMode) {
        ReadIntervalField(&word.count, InitialPrimeInterval, PrimeParseFlags(InitialPrimeBase),
                          MaxPrimeInterval);
    }
    problem = ReadIntervalOption(&word.count, word.options, MaxPrimeInterval);
    if (!problem.empty()) {
        return ReportBadOptions(problem);
    }
    return AnswerNumbers(reading.operands,
                         [&word](const char16_t* number) { AnswerPrimes(word, number); });
}

}  // namespace tallymere
