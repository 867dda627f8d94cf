// tallymere-console: the program on a command line.
#include <string>

#include "console/ending.h"
#include "console/operands.h"
#include "console/options.h"
#include "console/output.h"
#include "console/platform.h"
#include "console/session.h"
#include "console/usage.h"
#include "console/words.h"

namespace tallymere {

namespace {

ExitStatus AnswerFormulas(const ConsoleOptions& options) {
    Session session(options);
    return AnswerOperands(options.formulas, "a formula", [&session](const std::string& formula) {
        const ConsoleAnswer answer = session.Answer(formula);
        GatherOutput(answer.line + "\n");
        return !answer.failed;
    });
}

ExitStatus RunConsole(const std::vector<std::string>& arguments) {
    if (const Word* word = arguments.empty() ? nullptr : FindWord(arguments[0])) {
        return word->run({arguments.begin() + 1, arguments.end()});
    }
    const ParsedArguments parsed = ParseArguments(arguments);
    if (!parsed.error.empty()) {
        return ReportBadOptions(parsed.error);
    }
    switch (parsed.options.action) {
        case PrintHelp:
            return PrintText(UsageText());
        case PrintVersion:
            return PrintText(VersionText());
        case EvaluateFormulas:
            break;
    }
    return AnswerFormulas(parsed.options);
}

}  // namespace

}  // namespace tallymere

int main(int argc, char** argv) {
    tallymere::PrepareStreams();
    tallymere::CatchInterrupts();
    return tallymere::RunConsole(tallymere::ProgramArguments(argc, argv));
}
