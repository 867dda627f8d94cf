// What all words have in common, whatever their page calculates.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "console/exit_status.h"
#include "console/option_reader.h"
#include "console/text_options.h"

namespace tallymere {

struct WordReading {
    std::vector<std::string> operands;
    /// Of a word that has ended already, with a message about its options or with its help.
    std::optional<ExitStatus> ending;
};

/// Reads the arguments behind a word: its own options, those of TextOptionList, -h and --help,
/// which all stand before the first operand. `usage` is the whole help.
WordReading ReadWord(std::vector<Option> ownOptions, TextOptions& textOptions,
                     const std::vector<std::string>& arguments, const std::string& usage);

/// The choices of --type for systems and polynomials.
std::vector<Choice> NumberTypeChoices();

/// How the help explains the options that every word has.
std::string WordOptionUsage();

/// Takes the text of a run to standard output.
void SendToOutput(const char16_t* text);

/// Runs `answer` on each operand, or without any on each line of standard input, see
/// AnswerOperands. It sends its text to SendToOutput, and an error that it leaves pending becomes a
/// line of its own; a line that it leaves open is ended. A blank operand answers an empty line.
/// `describeProgress` says how far a run is, see LiveOutput.
ExitStatus AnswerByRuns(const std::vector<std::string>& operands, const char* kind,
                        std::string (*describeProgress)(),
                        const std::function<void(const char16_t* operand)>& answer);

/// Runs `answer` once, likewise.
ExitStatus AnswerByOneRun(std::string (*describeProgress)(), const std::function<void()>& answer);

}  // namespace tallymere
