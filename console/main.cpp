// tallymere-console: the calculator on a command line.
#include <cstdio>
#include <string>

#include "console/interrupt.h"
#include "console/line_reader.h"
#include "console/operation_list.h"
#include "console/options.h"
#include "console/platform.h"
#include "console/session.h"
#include "console/usage.h"

namespace tallymere {

namespace {

enum ExitStatus { AllSucceeded = 0, SomethingFailed = 1, BadOptions = 2 };

constexpr const char* Prompt = "> ";

bool WriteOutput(const std::string& text) {
    return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() &&
           std::fflush(stdout) == 0;
}

int ReportBrokenStream(const char* problem) {
    std::fprintf(stderr, "tallymere-console: %s\n", problem);
    return SomethingFailed;
}

// Ctrl+C also breaks off the writing when nobody reads what was written before.
int ReportWriteFailure() {
    if (Interrupted()) {
        return InterruptedStatus;
    }
    return ReportBrokenStream("the output cannot be written");
}

int PrintText(const std::string& text) {
    return WriteOutput(text) ? AllSucceeded : ReportWriteFailure();
}

// Where the formulas come from: the arguments, else standard input.
class FormulaSource {
public:
    explicit FormulaSource(const std::vector<std::string>& formulas)
        : formulas_(formulas), prompting_(formulas.empty() && InputIsTerminal()) {
        if (prompting_) {
            std::fprintf(stderr, "Tallymere: type a formula and press Enter; %s leaves.\n",
                         EndOfInputKeys);
        }
    }

    bool Next(std::string& formula) {
        if (formulas_.empty()) {
            if (prompting_) {
                std::fputs(Prompt, stderr);
            }
            const bool more = reader_.Read(formula);
            if (prompting_ && !more) {
                std::fputs("\n", stderr);
            }
            return more;
        }
        if (next_ == formulas_.size()) {
            return false;
        }
        formula = formulas_[next_++];
        return true;
    }

    bool Failed() const { return reader_.Failed(); }

private:
    const std::vector<std::string>& formulas_;
    size_t next_ = 0;
    bool prompting_;
    LineReader reader_;
};

int AnswerAll(const ConsoleOptions& options) {
    Session session(options);
    FormulaSource source(options.formulas);
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
    const ParsedArguments parsed = ParseArguments(arguments);
    if (!parsed.error.empty()) {
        std::fprintf(stderr, "tallymere-console: %s\n", parsed.error.c_str());
        return BadOptions;
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
