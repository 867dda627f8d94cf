#include "support/formula_testing.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <ostream>

#include "core/complex_number.h"
#include "core/scratch.h"
#include "formula/formula_evaluation.h"
#include "formula/value_operations.h"

namespace tallymere::testing_support {

namespace {

constexpr uint64_t Canary = 0xCA5CADEu;

std::string ValueText(const std::vector<uint64_t>& words) {
    if (numberContext.numberType == NumberTypeReal) {
        return PlainText(RealAt(words.data()));
    }
    if (numberContext.numberType == NumberTypeComplex) {
        const ComplexNumber* z = ComplexAt(words.data());
        return PlainText(RealPart(z)) + ", " + PlainText(ImaginaryPart(z));
    }
    std::string text;
    for (const uint64_t word : words) {
        char digits[24];
        std::snprintf(digits, sizeof digits, "%llx ", static_cast<unsigned long long>(word));
        text += digits;
    }
    return text;
}

}  // namespace

FormulaScope::FormulaScope(int64_t precision, NumberType type)
    : type_(numberContext.numberType, type), ownsScratchStack_(false) {
    EXPECT_TRUE(SetRealPrecision(precision));
    if (CurrentScratchStack().base == nullptr) {
        CreateScratchStack();
        ownsScratchStack_ = true;
    }
}

FormulaScope::~FormulaScope() {
    if (ownsScratchStack_) {
        DestroyScratchStack();
    }
}

void PrintTo(const FormulaOutcome& outcome, std::ostream* out) {
    if (outcome.error != FormulaErrorNone) {
        *out << "error " << outcome.error << " at " << outcome.position << " length "
             << outcome.length;
    } else {
        *out << "value " << outcome.value << (outcome.inexact ? " inexact" : "");
    }
}

FormulaOutcome Value(std::string_view value) {
    FormulaOutcome outcome;
    outcome.value = PlainText(RealBuffer(value));
    return outcome;
}

FormulaOutcome Value(std::string_view realPart, std::string_view imaginaryPart) {
    FormulaOutcome outcome = Value(realPart);
    outcome.value += ", " + Value(imaginaryPart).value;
    return outcome;
}

FormulaOutcome Failure(uint32_t error, uint64_t position, uint64_t length) {
    FormulaOutcome outcome;
    outcome.error = error;
    outcome.position = position;
    outcome.length = length;
    return outcome;
}

FormulaOutcome Evaluate(std::u16string_view text, const Variables& variables, uint64_t flags) {
    // A copy of its own ends where the text ends, so that the sanitizer sees a read behind it.
    const std::u16string formula(text);
    std::vector<VariableRow> rows;
    for (const auto& [name, valueText] : variables) {
        rows.push_back({name.c_str(), valueText.c_str(), nullptr});
    }
    const size_t words = SizeOfNumber() / 8;
    std::vector<uint64_t> result(words + 1, Canary);

    FormulaEvaluator evaluator{};
    evaluator.text = formula.c_str();
    evaluator.flags = flags;
    evaluator.variableCount = static_cast<int64_t>(rows.size());
    evaluator.variables = rows.data();
    evaluator.result = result.data();
    const uint64_t* mark = *CurrentScratchStack().top;
    {
        const ContextCheck check;
        EvaluateFormula(evaluator);
    }

    EXPECT_EQ(*CurrentScratchStack().top, mark) << Printable(text);
    EXPECT_EQ(result.back(), Canary) << Printable(text);
    result.pop_back();

    FormulaOutcome outcome;
    outcome.error = evaluator.error;
    outcome.position = evaluator.errorPosition;
    outcome.length = evaluator.errorLength;
    outcome.inexact = evaluator.inexactResult;
    if (evaluator.error != FormulaErrorNone) {
        std::vector<uint64_t> zero(words);
        ValueZero(zero.data());
        EXPECT_EQ(result, zero) << Printable(text);
    } else {
        outcome.value = ValueText(result);
    }
    return outcome;
}

std::string Printable(std::u16string_view text) {
    std::string printable = "\"";
    for (const char16_t c : text) {
        if (c >= 0x20 && c < 0x7F) {
            printable += static_cast<char>(c);
        } else {
            char code[8];
            std::snprintf(code, sizeof code, "\\u%04X", static_cast<unsigned>(c));
            printable += code;
        }
    }
    return printable + "\"";
}

}  // namespace tallymere::testing_support
