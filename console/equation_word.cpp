#include "console/equation_word.h"

#include "algebra/polynomial_roots.h"
#include "algebra_pages/equation_lines.h"
#include "algebra_pages/equation_run.h"
#include "console/console_setup_scope.h"
#include "console/ending.h"
#include "console/input_text.h"
#include "console/option_usage.h"
#include "console/word_kit.h"
#include "core/scratch.h"
#include "shell/ui_error.h"

namespace tallymere {

namespace {

// What stands in braces is replaced by what the tables of the program say.
constexpr std::string_view UsageForm =
    R"(usage: tallymere-console equation [options] A_N ... A_1 A_0

Finds the roots of A_N*x^N + ... + A_1*x + A_0 = 0, of a degree N from 1 to {degree}.
Each coefficient is a formula; an empty one is 0.

{--mode}real roots of real coefficients, or all roots
                                ({mode})
  --exact                       exact values, from fractions as coefficients
  --digits N                    digits of the roots, {fewest} to {most} ({digits}){fewer}
  --no-multiplicity             without the multiplicities of the roots
{options of every word}
Roots have no groups, whatever --group says.
Options end at the first coefficient; one such as -x2 that looks like an option
stands behind "--". What fails is answered by a line of its own, "error CODE:
MESSAGE".

Exit status: 0 when the equation was solved, 1 when it failed or output broke,
2 for bad options, 130 after Ctrl+C.
)";

std::vector<Choice> ModeChoices() {
    return {{"real", static_cast<int32_t>(EquationMode::Real)},
            {"complex", static_cast<int32_t>(EquationMode::Complex)}};
}

// The options of the word.
struct EquationWord {
    TextOptions text;
    EquationMode mode = EquationMode::Real;
    bool exact = false;
    bool multiplicity = true;
    int64_t digits = DefaultDigits;
};

// A line for each degree above which --digits goes less far.
std::string UsageOfFewerDigits() {
    const std::string line = ",\n" + std::string(UsageColumn, ' ');
    std::string lines;
    for (int64_t degree = 2; degree <= MaxEquationDegree; degree++) {
        if (MaxRootDigits(degree) != MaxRootDigits(degree - 1)) {
            lines += line + "to " + std::to_string(MaxRootDigits(degree)) + " above degree " +
                     std::to_string(degree - 1);
        }
    }
    return lines;
}

std::string Usage() {
    return FillInUsage(
        UsageForm,
        {{"{degree}", std::to_string(MaxEquationDegree)},
         {"{--mode}", UsageOfChoices("--mode", ModeChoices())},
         {"{mode}", SpellingOf(ModeChoices(), static_cast<int32_t>(EquationWord().mode))},
         {"{fewest}", std::to_string(MinEquationDigits)},
         {"{most}", std::to_string(MaxRootDigits(1))},
         {"{fewer}", UsageOfFewerDigits()},
         {"{digits}", std::to_string(DefaultDigits)},
         {"{options of every word}", WordOptionUsage()}});
}

// What is wrong with so many coefficients, and with so many digits for them.
std::string CheckEquation(const EquationWord& word, int64_t coefficients) {
    const int64_t degree = coefficients - 1;
    if (degree < 1 || degree > MaxEquationDegree) {
        return std::string(degree < 1 ? "too few" : "too many") + " coefficients; allowed: 2 to " +
               std::to_string(MaxEquationDegree + 1) + ", for the degrees 1 to " +
               std::to_string(MaxEquationDegree);
    }
    if (word.digits > MaxRootDigits(degree)) {
        return ValueNotAllowed(
            "--digits", std::to_string(word.digits),
            "is too much for degree " + std::to_string(degree),
            std::to_string(MinEquationDigits) + " to " + std::to_string(MaxRootDigits(degree)));
    }
    return {};
}

// The coefficients are there from the highest one on. A text that cannot be read leaves its error
// pending.
std::vector<std::u16string> ReadCoefficientTexts(const std::vector<std::string>& operands) {
    std::vector<std::u16string> texts;
    for (const std::string& operand : operands) {
        texts.push_back(ReadInputText(operand).text);
    }
    return texts;
}

void AnswerEquation(const EquationWord& word, const std::vector<std::string>& operands) {
    const std::vector<std::u16string> texts = ReadCoefficientTexts(operands);
    if (PendingUiError() != UiErrorNone) {
        return;
    }
    const auto degree = static_cast<int64_t>(texts.size()) - 1;
    EquationRequest request = {.degree = degree,
                               .mode = word.mode,
                               .exact = word.exact,
                               .digits = word.digits,
                               .coefficients = {}};
    for (int64_t i = 0; i <= degree; i++) {
        request.coefficients[i] = texts[static_cast<size_t>(degree - i)].c_str();
    }
    const NumberSetupScope numbers(EquationNumberSetup(request));
    ScratchStackScope scope;
    SolutionSet solutions = TakeSolutionSet(CurrentScratchStack());
    EquationWorker(solutions, request);
    if (!RunShouldEnd()) {
        ShowEquationRoots(solutions, word.exact, word.multiplicity, SendToOutput);
        TakeCalcError(UiErrorCalculation);
    }
}

std::string DescribeProgress() {
    return "finding the roots";
}

}  // namespace

ExitStatus RunEquationWord(const std::vector<std::string>& arguments) {
    EquationWord word;
    const WordReading reading = ReadWord(
        {ChoiceOption("--mode", ModeChoices(), word.mode), FlagOption("--exact", word.exact, true),
         NumberOption("--digits", MinEquationDigits, MaxRootDigits(1), word.digits),
         FlagOption("--no-multiplicity", word.multiplicity, false)},
        word.text, arguments, Usage());
    if (reading.ending.has_value()) {
        return *reading.ending;
    }
    const std::string problem = CheckEquation(word, static_cast<int64_t>(reading.operands.size()));
    if (!problem.empty()) {
        return ReportBadOptions(problem);
    }
    const ConsoleSetupScope console(word.text);
    return AnswerByOneRun(DescribeProgress, [&] { AnswerEquation(word, reading.operands); });
}

}  // namespace tallymere
