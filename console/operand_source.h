// What a run of the console works on: its operands, or without any the lines of standard input.
#pragma once

#include <string>
#include <vector>

#include "console/line_reader.h"

namespace tallymere {

class OperandSource {
public:
    /// `kind` is what a person is asked for, such as "a formula". The operands outlive the source.
    OperandSource(const std::vector<std::string>& operands, const char* kind);

    /// Takes the next one. False behind the last.
    bool Next(std::string& operand);

    /// True when the input ended because it could not be read.
    bool Failed() const { return reader_.Failed(); }

private:
    const std::vector<std::string>& operands_;
    size_t next_ = 0;
    bool prompting_;
    LineReader reader_;
};

}  // namespace tallymere
