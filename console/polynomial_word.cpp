#include "console/polynomial_word.h"

#include <algorithm>
#include <iterator>

#include "algebra_pages/polynomial_run.h"
#include "console/console_setup_scope.h"
#include "console/ending.h"
#include "console/input_text.h"
#include "console/option_usage.h"
#include "console/utf8.h"
#include "console/word_kit.h"
#include "core/text_flags.h"
#include "shell/text_sink.h"
#include "shell/ui_error.h"

namespace tallymere {

namespace {

// What stands in braces is replaced by what the tables of the program say.
constexpr std::string_view UsageForm =
    R"(usage: tallymere-console polynomial [options] OPERATOR P0 P1 ...

Calculates with polynomials of a degree up to {degree}.
OPERATOR is one of {operators}. Sums, differences and products take {fewest} to {most}
polynomials, from left to right. A quotient, which comes with its remainder, and
a power, whose exponent is an integer from 0 to {exponent}, take {two}.
A polynomial is its coefficients from the highest down, parted by ";" outside
parentheses: 1;0;root(3; 8). Each is a formula; an empty one is 0.

{--type}number type ({type})
  --digits N                    digits of real and complex results, {least digits} to {most digits}
                                ({digits})
{options of every word}
Options end at the operator. What fails is answered by a line of its own,
"error CODE: MESSAGE".

Exit status: 0 when there is a result, 1 when it failed or output broke, 2 for
bad options, 130 after Ctrl+C.
)";

// The options of the word.
struct PolynomialWord {
    TextOptions text;
    NumberType type = NumberTypeReal;
    int64_t digits = DefaultDigits;
};

std::string TextOfOperator(PolyOperator operation) {
    return {static_cast<char>(SignOfOperator(operation))};
}

std::string OperatorList() {
    return JoinByCommas(PolyOperators, TextOfOperator);
}

std::string Usage() {
    return FillInUsage(
        UsageForm,
        {{"{degree}", std::to_string(MaxPolyDegree)},
         {"{operators}", OperatorList()},
         {"{fewest}", std::to_string(MinPolynomials)},
         {"{most}", std::to_string(MaxPolynomials)},
         {"{two}", std::to_string(MinPolynomials)},
         {"{exponent}", std::to_string(MaxPolyExponent)},
         {"{--type}", UsageOfChoices("--type", NumberTypeChoices())},
         {"{type}", SpellingOf(NumberTypeChoices(), static_cast<int32_t>(PolynomialWord().type))},
         {"{least digits}", std::to_string(MinPolyDigits)},
         {"{most digits}", std::to_string(MaxPolyDigits)},
         {"{digits}", std::to_string(DefaultDigits)},
         {"{options of every word}", WordOptionUsage()}});
}

// What the operands of the word mean. The texts of a polynomial are there from the highest power
// down.
struct PolynomialTexts {
    PolyOperator operation = PolyOperator::Plus;
    std::vector<std::vector<std::string>> polynomials;
};

// Parts a polynomial at each ";" that no parenthesis encloses.
std::vector<std::string> SplitCoefficients(std::string_view text) {
    std::vector<std::string> coefficients(1);
    int64_t depth = 0;
    for (const char c : text) {
        if (c == ';' && depth <= 0) {
            coefficients.emplace_back();
            continue;
        }
        depth += c == '(' ? 1 : c == ')' ? -1 : 0;
        coefficients.back() += c;
    }
    return coefficients;
}

// What is wrong with the operator or with the number of polynomials.
std::string ReadOperator(PolyOperator& operation, const std::vector<std::string>& operands) {
    if (operands.empty()) {
        return "there is no operator; allowed: " + OperatorList();
    }
    const auto* found = std::ranges::find(PolyOperators, operands[0], TextOfOperator);
    if (found == std::end(PolyOperators)) {
        return ValueNotAllowed("OPERATOR", operands[0], NotAllowedValue, OperatorList());
    }
    operation = *found;
    const auto count = static_cast<int32_t>(std::min<size_t>(operands.size() - 1, 1000));
    if (!TakesPolynomials(operation, count)) {
        const bool takesMore = TakesPolynomials(operation, MaxPolynomials);
        return std::string(count < MinPolynomials ? "too few" : "too many") + " polynomials for " +
               operands[0] + "; allowed: " + std::to_string(MinPolynomials) +
               (takesMore ? " to " + std::to_string(MaxPolynomials) : std::string());
    }
    return {};
}

// Likewise, and with the polynomials.
std::string ReadPolynomialTexts(PolynomialTexts& texts, const std::vector<std::string>& operands) {
    const std::string problem = ReadOperator(texts.operation, operands);
    for (size_t k = 1; k < operands.size() && problem.empty(); k++) {
        texts.polynomials.push_back(SplitCoefficients(operands[k]));
        if (texts.polynomials.back().size() > PolyCoefficients) {
            return "too many coefficients in P" + std::to_string(k - 1) + "(x); allowed: 1 to " +
                   std::to_string(PolyCoefficients) + ", for the degrees 0 to " +
                   std::to_string(MaxPolyDegree);
        }
    }
    return problem;
}

// The same texts as the program has them.
using CellTexts = std::vector<std::vector<std::u16string>>;

// A text that cannot be read leaves its error pending.
CellTexts ReadCellTexts(const PolynomialTexts& texts) {
    CellTexts cells;
    for (const std::vector<std::string>& polynomial : texts.polynomials) {
        cells.emplace_back();
        for (const std::string& coefficient : polynomial) {
            cells.back().push_back(ReadInputText(coefficient).text);
        }
    }
    return cells;
}

void ReadCell(void* context, int32_t polynomial, int32_t power, char16_t* text) {
    const auto& cells = (*static_cast<const CellTexts*>(context))[static_cast<size_t>(polynomial)];
    const auto degree = static_cast<int32_t>(cells.size()) - 1;
    CopyBounded(text, CoefficientCharacters + 1,
                power <= degree ? cells[static_cast<size_t>(degree - power)].c_str() : u"");
}

void AnswerPolynomials(const PolynomialWord& word, const PolynomialTexts& texts) {
    CellTexts cells = ReadCellTexts(texts);
    if (PendingUiError() != UiErrorNone) {
        return;
    }
    size_t coefficients = 1;
    for (const auto& polynomial : cells) {
        coefficients = std::max(coefficients, polynomial.size());
    }
    const PolynomialRequest request = {.operation = texts.operation,
                                       .count = static_cast<int32_t>(cells.size()),
                                       .maxDegree = static_cast<int32_t>(coefficients) - 1,
                                       .type = word.type,
                                       .digits = word.digits,
                                       .printFlags = word.text.groupDigits ? TextGroup : 0u,
                                       .readCell = ReadCell,
                                       .context = &cells};
    ResultStore store;
    RunPolynomials(
        request, store, [](void*, const char16_t* text) { SendToOutput(text); }, nullptr);
}

std::string DescribeProgress() {
    return "calculating";
}

}  // namespace

ExitStatus RunPolynomialWord(const std::vector<std::string>& arguments) {
    PolynomialWord word;
    const WordReading reading =
        ReadWord({ChoiceOption("--type", NumberTypeChoices(), word.type),
                  NumberOption("--digits", MinPolyDigits, MaxPolyDigits, word.digits)},
                 word.text, arguments, Usage());
    if (reading.ending.has_value()) {
        return *reading.ending;
    }
    PolynomialTexts texts;
    const std::string problem = ReadPolynomialTexts(texts, reading.operands);
    if (!problem.empty()) {
        return ReportBadOptions(problem);
    }
    const ConsoleSetupScope console(word.text);
    return AnswerByOneRun(DescribeProgress, [&] { AnswerPolynomials(word, texts); });
}

}  // namespace tallymere
