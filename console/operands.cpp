#include "console/operands.h"

#include <cstdio>

#include "console/ending.h"
#include "console/interrupt.h"
#include "console/line_reader.h"
#include "console/output.h"
#include "console/platform.h"

namespace tallymere {

namespace {

constexpr const char* Prompt = "> ";

// Where the operands come from.
class OperandSource {
public:
    OperandSource(const std::vector<std::string>& operands, const char* kind);

    // Takes the next one. False behind the last.
    bool Next(std::string& operand);

    // True when the input ended because it could not be read.
    bool Failed() const { return reader_.Failed(); }

private:
    const std::vector<std::string>& operands_;
    size_t next_ = 0;
    bool prompting_;
    LineReader reader_;
};

OperandSource::OperandSource(const std::vector<std::string>& operands, const char* kind)
    : operands_(operands), prompting_(operands.empty() && InputIsTerminal()) {
    if (prompting_) {
        std::fprintf(stderr, "Tallymere: type %s and press Enter; %s leaves.\n", kind,
                     EndOfInputKeys);
    }
}

bool OperandSource::Next(std::string& operand) {
    if (!operands_.empty()) {
        if (next_ == operands_.size()) {
            return false;
        }
        operand = operands_[next_++];
        return true;
    }
    if (prompting_) {
        std::fputs(Prompt, stderr);
    }
    const bool more = reader_.Read(operand);
    if (prompting_ && !more) {
        std::fputs("\n", stderr);
    }
    return more;
}

}  // namespace

ExitStatus AnswerOperands(const std::vector<std::string>& operands, const char* kind,
                          const std::function<bool(const std::string& operand)>& answer) {
    OperandSource source(operands, kind);
    ExitStatus status = AllSucceeded;
    std::string operand;
    while (source.Next(operand)) {
        if (!answer(operand)) {
            status = SomethingFailed;
        }
        if (!FlushOutput()) {
            return ReportWriteFailure();
        }
        if (Interrupted()) {
            return EndedByInterrupt;
        }
    }
    return source.Failed() ? ReportReadFailure() : status;
}

}  // namespace tallymere
