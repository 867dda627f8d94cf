#include "console/primes_word.h"

#include "console/console_setup_scope.h"
#include "console/ending.h"
#include "console/option_usage.h"
#include "console/prime_word_kit.h"
#include "console/utf8.h"
#include "exact/big_uint.h"
#include "prime_pages/prime_run.h"

namespace tallymere {

namespace {

// What stands in braces is replaced by the limits of the page.
constexpr std::string_view UsageForm =
    R"(usage: tallymere-console primes [options] [NUMBER ...]

Writes the prime numbers of the interval that begins with each NUMBER, or with
each line of standard input when there is none.

  --interval N                  the primes among N numbers from NUMBER on, 1 to
                                {highest} ({interval})
  --next                        the first prime from NUMBER on
  --test                        whether NUMBER is prime
{--method}exact: proven, for numbers below 2^{exact bits};
                                probabilistic: by tests that few composite
                                numbers pass, for numbers of up to {sure digits} digits
                                and some of {digits} ({method})
)";

std::vector<Choice> MethodChoices() {
    return {{"exact", ExactMethod}, {"probabilistic", ProbabilisticMethod}};
}

// The options of the word and what follows from them.
struct PrimesWord {
    PrimeWordOptions options;
    PrimeMethod method = ExactMethod;
    bool next = false;
    bool test = false;
    int64_t count = 0;
};

std::string Usage() {
    const UintWidth exact = PrimeNumberSetup(ExactMethod).width;
    const UintWidth probabilistic = PrimeNumberSetup(ProbabilisticMethod).width;
    return FillInUsage(UsageForm, {{"{highest}", std::to_string(MaxPrimeInterval)},
                                   {"{interval}", EncodeUtf8(InitialPrimeInterval)},
                                   {"{--method}", UsageOfChoices("--method", MethodChoices())},
                                   {"{exact bits}", std::to_string(exact.limbs * BitsPerUintLimb)},
                                   {"{sure digits}", std::to_string(probabilistic.digits)},
                                   {"{digits}", std::to_string(ProbabilisticMaxDigits)},
                                   {"{method}", SpellingOf(MethodChoices(), PrimesWord().method)}});
}

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

ExitStatus RunPrimesWord(const std::vector<std::string>& arguments) {
    PrimesWord word;
    const WordReading reading =
        ReadPrimeWord({FlagOption("--next", word.next, true), FlagOption("--test", word.test, true),
                       ChoiceOption("--method", MethodChoices(), word.method)},
                      word.options, arguments, Usage());
    if (reading.ending.has_value()) {
        return *reading.ending;
    }
    std::string problem = CheckMode(word);
    if (!problem.empty()) {
        return ReportBadOptions(problem);
    }
    const ConsoleSetupScope console(word.options.text);
    const NumberSetupScope numbers(PrimeNumberSetup(word.method));
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
