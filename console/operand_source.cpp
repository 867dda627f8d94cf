#include "console/operand_source.h"

#include <cstdio>

#include "console/platform.h"

namespace tallymere {

namespace {

constexpr const char* Prompt = "> ";

}  // namespace

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

}  // namespace tallymere
