#include "console/prime_word_kit.h"

#include "console/input_text.h"
#include "console/option_usage.h"
#include "console/utf8.h"
#include "prime_pages/prime_factors_form.h"
#include "prime_pages/prime_numbers_form.h"
#include "prime_pages/run_progress.h"
#include "shell/ui_error.h"

namespace tallymere {

namespace {

// The lists of both pages offer the same bases.
constexpr uint32_t BaseListStyle = PrimeFactorsForm[PrimeFactorsBase].style;
static_assert(BaseListStyle == PrimeNumbersForm[PrimeNumbersBase].style);

// What stands in braces is replaced by what the tables of the program say.
constexpr std::string_view SharedUsage =
    R"({--base}base of all numbers, N too ({base})
{options of every word}
Options end at the first NUMBER. What fails is answered by a line of its own,
"error CODE: MESSAGE", and the next NUMBER follows.

Exit status: 0 when all succeeded, 1 when one failed or input or output broke,
2 for bad options, 130 after Ctrl+C, which keeps what was printed.
)";

std::string DescribeProgress() {
    const RunProgress progress = CurrentRunProgress();
    if (progress.total > 1) {
        return std::to_string(progress.done) + " of " + std::to_string(progress.total) + " numbers";
    }
    return progress.done > 0 ? std::to_string(progress.done) + " numbers" : std::string();
}

}  // namespace

WordReading ReadPrimeWord(std::vector<Option> ownOptions, PrimeWordOptions& options,
                          const std::vector<std::string>& arguments, std::string_view usage) {
    std::vector<Option> list = std::move(ownOptions);
    list.push_back({.name = "--interval",
                    .allowed = "a number",
                    .set = [&options](std::string_view value, int32_t) {
                        options.interval = value;
                        return std::string();
                    }});
    list.push_back(ChoiceOption("--base", BaseChoices(BaseListStyle), options.base));
    const std::string sharedUsage = FillInUsage(
        SharedUsage, {{"{--base}", UsageOfChoices("--base", BaseChoices(BaseListStyle))},
                      {"{base}", std::to_string(InitialPrimeBase)},
                      {"{options of every word}", WordOptionUsage()}});
    return ReadWord(std::move(list), options.text, arguments, std::string(usage) + sharedUsage);
}

uint32_t ParseFlagsOf(const PrimeWordOptions& options) {
    return PrimeParseFlags(static_cast<int32_t>(options.base));
}

uint32_t PrintFlagsOf(const PrimeWordOptions& options) {
    return PrimePrintFlags(static_cast<int32_t>(options.base), options.text.groupDigits);
}

std::string ReadIntervalOption(int64_t* interval, const PrimeWordOptions& options,
                               int64_t highest) {
    if (!options.interval.has_value()) {
        return {};
    }
    const InputText input = ReadInputText(*options.interval);
    const bool isRead =
        input.errorPosition == 0 &&
        ReadIntervalField(interval, input.text.c_str(), ParseFlagsOf(options), highest);
    ClearPendingErrors();
    if (isRead) {
        return {};
    }
    ScratchStackScope texts;
    return ValueNotAllowed(
        "--interval", *options.interval, NotAllowedValue,
        "1 to " + EncodeUtf8(IntervalFieldText(texts, highest, PrintFlagsOf(options))));
}

ExitStatus AnswerNumbers(const std::vector<std::string>& operands,
                         const std::function<void(const char16_t* number)>& answer) {
    return AnswerByRuns(operands, "a number", DescribeProgress, answer);
}

}  // namespace tallymere
