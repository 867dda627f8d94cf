// tallymere-console: the program on a command line.
#include <string>

#include "console/interrupt.h"
#include "console/operand_source.h"
#include "console/operation_list.h"
#include "console/options.h"
#include "console/output.h"
#include "console/platform.h"
#include "console/session.h"
#include "console/usage.h"
#include "console/words.h"

namespace tallymere {

namespace {

int AnswerAll(const ConsoleOptions& options) {
    Session session(options);
    OperandSource source(options.formulas, "a formula");
    ExitStatus status = AllSucceeded;
    std::string formula;
    while (source.Next(formula)) {
        const ConsoleAnswer answer = session.Answer(formula);
        if (!WriteOutput(answer.line + "\n")) {
            return ReportWriteFailure();
        }
        if (answer.failed) {
            status = SomethingFailed;
        }
        if (Interrupted()) {
            return InterruptedStatus;
        }
    }
    return source.Failed() ? ReportBrokenStream("the input cannot be read") : status;
}

int RunConsole(const std::vector<std::string>& arguments) {
    if (const Word* word = arguments.empty() ? nullptr : FindWord(arguments[0])) {
        return word->run({arguments.begin() + 1, arguments.end()});
    }
    const ParsedArguments parsed = ParseArguments(arguments);
    if (!parsed.error.empty()) {
        return ReportBadOptions(parsed.error);
    }
    switch (parsed.options.action) {
        case PrintHelp:
            return PrintText(UsageText() + OperationList());
        case PrintVersion:
            return PrintText(VersionText());
        case EvaluateFormulas:
            break;
    }
    return AnswerAll(parsed.options);
}

}  // namespace

}  // namespace tallymere

int main(int argc, char** argv) {
    tallymere::PrepareStreams();
    tallymere::CatchInterrupts();
    return tallymere::RunConsole(tallymere::ProgramArguments(argc, argv));
}
