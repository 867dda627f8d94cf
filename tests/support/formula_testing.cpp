#include "support/formula_testing.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <ostream>

#include "core/complex_number.h"
#include "core/scratch.h"
#include "formula/formula_driver.h"
#include "formula/formula_evaluation.h"
#include "formula/formula_lexer.h"
#include "formula/formula_stack.h"
#include "formula/function_table.h"
#include "formula/operation_dispatch.h"
#include "formula/operator_table.h"
#include "support/exact_testing.h"
#include "values/value_operations.h"

namespace tallymere::testing_support {

namespace {

constexpr uint64_t Canary = 0xCA5CADEu;

}  // namespace

FormulaScope::FormulaScope(NumberType type, int64_t limbs) : FormulaScope(20, type) {
    InstallUintWidth(UintWidthForLimbs(limbs));
}

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

std::string ValueText(const uint64_t* words) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            return PlainText(RealAt(words));
        case NumberTypeComplex:
            return PlainText(RealPart(ComplexAt(words))) + ", " +
                   PlainText(ImaginaryPart(ComplexAt(words)));
        case NumberTypeUint:
            return UintText(words);
        case NumberTypeRational: {
            const std::string denominator = UintText(words + 1 + numberContext.uintLimbs);
            return (words[0] != 0 ? "-" : "") + UintText(words + 1) +
                   (denominator != "1" ? "/" + denominator : "");
        }
        default:
            return "(no number type)";
    }
}

std::vector<uint64_t> ExactWords(std::string_view text) {
    std::vector<uint64_t> words(SizeOfNumber() / 8);
    if (numberContext.numberType == NumberTypeUint) {
        UintFromPlainText(words.data(), text);
        return words;
    }
    if (text.starts_with('-')) {
        words[0] = 1;
        text.remove_prefix(1);
    }
    const size_t slash = text.find('/');
    UintFromPlainText(&words[1], text.substr(0, slash));
    UintFromPlainText(&words[static_cast<size_t>(1 + numberContext.uintLimbs)],
                      slash == std::string_view::npos ? "1" : text.substr(slash + 1));
    return words;
}

void PrintTo(const FormulaOutcome& outcome, std::ostream* out) {
    if (outcome.error != FormulaErrorNone) {
        *out << "error " << outcome.error << " at " << outcome.position << " length "
             << outcome.length;
    } else {
        *out << "value " << outcome.value;
    }
    *out << (outcome.inexact ? " inexact" : "");
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

FormulaOutcome Exactly(std::string_view value) {
    FormulaOutcome outcome;
    outcome.value = value;
    return outcome;
}

FormulaOutcome Rounded(std::string_view value) {
    FormulaOutcome outcome = Exactly(value);
    outcome.inexact = true;
    return outcome;
}

FormulaOutcome Failure(uint32_t error, uint64_t position, uint64_t length) {
    FormulaOutcome outcome;
    outcome.error = error;
    outcome.position = position;
    outcome.length = length;
    return outcome;
}

Symbol::Symbol(const FormulaToken& token) : kind(token.kind) {
    if (kind == TokenFunction) {
        function = token.function;
    } else if (kind == TokenOperator) {
        operation = token.operation;
    } else if (kind == TokenConstant) {
        constant = token.constant;
    }
}

void PrintTo(const Symbol& symbol, std::ostream* out) {
    if (symbol.kind == TokenFunction) {
        *out << Printable(FunctionOf(symbol.function).name);
    } else if (symbol.kind == TokenOperator) {
        *out << Printable(OperatorOf(symbol.operation).spelling);
    } else {
        *out << "kind " << int{symbol.kind};
    }
}

FormulaToken Token(const Symbol& symbol, uint64_t position, uint64_t length) {
    return {symbol.kind, symbol.function, symbol.operation, symbol.constant,
            position,    length,          nullptr};
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
        outcome.value = ValueText(result.data());
    }
    return outcome;
}

FormulaOutcome EvaluateTokenByToken(std::u16string_view text) {
    const ScratchStackScope scratch;
    const std::u16string formula(text);
    std::vector<uint64_t> result(SizeOfNumber() / 8);
    FormulaEvaluator evaluator{};
    evaluator.text = formula.c_str();
    evaluator.flags = TextGroup;
    evaluator.result = result.data();
    StartFormulaStack(evaluator);
    FormulaToken token{};
    uint64_t position = 0;
    do {
        NextFormulaToken(evaluator, token, position);
        AcceptFormulaToken(evaluator, token);
    } while (evaluator.error == FormulaErrorNone && token.kind != TokenEnd);
    FormulaOutcome outcome;
    outcome.error = evaluator.error;
    outcome.position = evaluator.errorPosition;
    outcome.length = evaluator.errorLength;
    outcome.inexact = evaluator.inexactResult;
    if (evaluator.error == FormulaErrorNone) {
        outcome.value = ValueText(result.data());
    }
    return outcome;
}

void CallFunction(FormulaEvaluator& evaluator, const FormulaToken& function, uint64_t* dest,
                  const std::vector<const uint64_t*>& arguments) {
    const FunctionRow& row = FunctionOf(function.function);
    ASSERT_EQ(static_cast<int64_t>(arguments.size()), ArgumentCount(row)) << Printable(row.name);
    switch (arguments.size()) {
        case 1:
            ApplyFunction1(evaluator, function, dest, arguments[0]);
            break;
        case 2:
            ApplyFunction2(evaluator, function, dest, arguments[0], arguments[1]);
            break;
        default:
            ApplyFunction3(evaluator, function, dest, arguments[0], arguments[1], arguments[2]);
    }
}

std::vector<std::u16string> FormulasOfRealFunctions() {
    std::vector<std::u16string> formulas;
    for (const char16_t* name :
         {u"ln",    u"exp",   u"sin",   u"cos",   u"tan",   u"asin",  u"acos",  u"atan", u"sind",
          u"cosd",  u"tand",  u"asind", u"acosd", u"atand", u"sing",  u"cosg",  u"tang", u"asing",
          u"acosg", u"atang", u"sinh",  u"cosh",  u"tanh",  u"asinh", u"acosh", u"atanh"}) {
        formulas.push_back(std::u16string(name) + u"(1)");
    }
    return formulas;
}

std::vector<std::u16string> FormulasOfComplexFunctions() {
    return {u"arg(1)",   u"argd(1)",    u"argg(1)",    u"realp(1)",
            u"imagp(1)", u"sqrtc(4;0)", u"cbrtc(8;0)", u"rootc(3;8;0)"};
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
