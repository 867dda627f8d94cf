#include "console/word_kit.h"

#include "console/ending.h"
#include "console/error_line.h"
#include "console/input_text.h"
#include "console/live_output.h"
#include "console/operands.h"
#include "console/output.h"
#include "console/utf8.h"
#include "core/number_context.h"
#include "core/stop_request.h"
#include "shell/ui_error.h"

namespace tallymere {

namespace {

// Ends a line that was left open, and writes the error that is pending. Returns whether there is
// none.
bool EndAnswer() {
    if (!OutputIsAtLineStart()) {
        GatherOutput("\n");
    }
    const UiErrorCode error = PendingUiError();
    if (error != UiErrorNone && error != UiErrorStopped) {
        GatherOutput(TakeErrorLine() + "\n");
    }
    return error == UiErrorNone;
}

// Answers one operand; returns whether it succeeded.
bool AnswerByRun(std::string_view operand, LiveOutput& output,
                 const std::function<void(const char16_t* operand)>& answer) {
    // A stop that Ctrl+C asked for stays: it may have come shortly before this operand.
    ClearPendingErrors();
    const InputText input = ReadInputText(operand);
    const bool isBlank = input.errorPosition == 0 && IsBlankText(input.text);
    if (input.errorPosition == 0 && !isBlank) {
        output.Begin();
        answer(input.text.c_str());
        output.End();
    }
    if (isBlank) {
        GatherOutput("\n");
    }
    return EndAnswer();
}

}  // namespace

WordReading ReadWord(std::vector<Option> ownOptions, TextOptions& textOptions,
                     const std::vector<std::string>& arguments, const std::string& usage) {
    std::vector<Option> options = std::move(ownOptions);
    for (Option& option : TextOptionList(textOptions)) {
        options.push_back(std::move(option));
    }
    bool wantsHelp = false;
    options.push_back(LastOption(FlagOption("-h", wantsHelp, true)));
    options.push_back(LastOption(FlagOption("--help", wantsHelp, true)));
    OptionReading reading = ReadOptions(options, arguments, {OptionPlaces::BeforeOperand, {}});
    if (reading.error.empty() && !wantsHelp) {
        reading.error = CheckSeparators(textOptions);
    }
    if (!reading.error.empty()) {
        return {{}, ReportBadOptions(reading.error)};
    }
    if (wantsHelp) {
        return {{}, PrintText(usage)};
    }
    return {std::move(reading.operands), {}};
}

std::vector<Choice> NumberTypeChoices() {
    return {{"real", NumberTypeReal}, {"cplx", NumberTypeComplex}, {"rat", NumberTypeRational}};
}

std::string WordOptionUsage() {
    return TextOptionUsage() + "  -h, --help                    print this text\n";
}

void SendToOutput(const char16_t* text) {
    // On this side lines end with LF alone.
    std::string bytes = EncodeUtf8(text);
    std::erase(bytes, '\r');
    if (!GatherOutput(bytes)) {
        RequestStop();
    }
}

ExitStatus AnswerByRuns(const std::vector<std::string>& operands, const char* kind,
                        std::string (*describeProgress)(),
                        const std::function<void(const char16_t* operand)>& answer) {
    LiveOutput output(describeProgress);
    return AnswerOperands(operands, kind, [&](const std::string& operand) {
        return AnswerByRun(operand, output, answer);
    });
}

ExitStatus AnswerByOneRun(std::string (*describeProgress)(), const std::function<void()>& answer) {
    LiveOutput output(describeProgress);
    return AnswerOperands({std::string()}, "", [&](const std::string&) {
        output.Begin();
        answer();
        output.End();
        return EndAnswer();
    });
}

}  // namespace tallymere
