#include "console/prime_word_kit.h"

#include "console/input_text.h"
#include "console/interrupt.h"
#include "console/operand_source.h"
#include "console/output.h"
#include "console/progress_watch.h"
#include "console/usage.h"
#include "console/utf8.h"
#include "core/stop_request.h"
#include "prime_pages/run_progress.h"
#include "shell/ui_error.h"

namespace tallymere {

namespace {

// The lists of bases on the pages offer no more than every list does.
constexpr uint32_t PrimePageBases = 0;

std::string DescribeProgress() {
    const RunProgress progress = CurrentRunProgress();
    if (progress.total > 1) {
        return std::to_string(progress.done) + " of " + std::to_string(progress.total) + " numbers";
    }
    return progress.done > 0 ? std::to_string(progress.done) + " numbers" : std::string();
}

// Answers one operand; returns whether it succeeded.
bool AnswerNumber(std::string_view bytes, ProgressWatch& watch,
                  const std::function<void(const char16_t* number)>& answer) {
    // A stop that Ctrl+C asked for stays: it may have come shortly before this number.
    ClearPendingErrors();
    const InputText input = ReadInputText(bytes);
    const bool isBlank = input.errorPosition == 0 && IsBlankText(input.text);
    if (input.errorPosition == 0 && !isBlank) {
        watch.Begin();
        answer(input.text.c_str());
        watch.End();
    }
    if (isBlank || !OutputIsAtLineStart()) {
        GatherOutput("\n");
    }
    const UiErrorCode error = PendingUiError();
    if (error != UiErrorNone && error != UiErrorStopped) {
        GatherOutput(TakeErrorLine() + "\n");
    }
    return error == UiErrorNone;
}

}  // namespace

OptionReading ReadPrimeWord(std::vector<Option> ownOptions, PrimeWordOptions& options,
                            const std::vector<std::string>& arguments) {
    std::vector<Option> list = std::move(ownOptions);
    list.push_back({.name = "--interval",
                    .allowed = "a number",
                    .set = [&options](std::string_view value, int32_t) {
                        options.interval = value;
                        return std::string();
                    }});
    list.push_back(BaseOption(PrimePageBases, options.base));
    for (Option& option : TextOptionList(options.text)) {
        list.push_back(std::move(option));
    }
    list.push_back(LastOption(FlagOption("-h", options.help, true)));
    list.push_back(LastOption(FlagOption("--help", options.help, true)));
    OptionReading reading = ReadOptions(list, arguments, {OptionPlaces::BeforeOperand, {}});
    if (reading.error.empty() && !options.help) {
        reading.error = CheckSeparators(options.text);
    }
    return reading;
}

std::string PrimeWordOptionUsage() {
    return BaseOptionUsage(PrimePageBases) + "base of all numbers, N too (" +
           std::to_string(InitialPrimeBase) + ")\n" + TextOptionUsage() +
           R"(  -h, --help                    print this text

Options end at the first NUMBER. What fails is answered by a line of its own,
"error CODE: MESSAGE", and the next NUMBER follows.

Exit status: 0 when all succeeded, 1 when one failed or input or output broke,
2 for bad options, 130 after Ctrl+C, which keeps what was printed.
)";
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

void SendToOutput(const char16_t* text) {
    // On this side lines end with LF alone.
    std::string bytes = EncodeUtf8(text);
    std::erase(bytes, '\r');
    if (!GatherOutput(bytes)) {
        RequestStop();
    }
}

int AnswerNumbers(const std::vector<std::string>& operands,
                  const std::function<void(const char16_t* number)>& answer) {
    OperandSource source(operands, "a number");
    ProgressWatch watch(DescribeProgress);
    ExitStatus status = AllSucceeded;
    std::string operand;
    while (source.Next(operand)) {
        if (!AnswerNumber(operand, watch, answer)) {
            status = SomethingFailed;
        }
        if (!FlushOutput()) {
            return ReportWriteFailure();
        }
        if (Interrupted()) {
            return InterruptedStatus;
        }
    }
    return source.Failed() ? ReportBrokenStream("the input cannot be read") : status;
}

}  // namespace tallymere
