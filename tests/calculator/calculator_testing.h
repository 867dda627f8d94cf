// What tests of the calculator share: a calculator as at the start of the program.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "calculator/calc_evaluation.h"
#include "calculator/calculator_state.h"
#include "calculator/result_text.h"
#include "calculator/variable_table.h"
#include "core/scratch.h"
#include "shell/ui_error.h"
#include "shell/ui_text.h"

namespace tallymere::testing_support {

/// Each test has a fresh calculator, context and variable table, English texts and a ScratchStack.
class CalculatorTest : public ::testing::Test {
protected:
    void SetUp() override {
        context_ = numberContext;
        calculator = CalculatorState();
        variableTable.count = 0;
        variableTable.variablesChanged = false;
        ClearErrors();
        InstallLanguage(LanguageEnglish);
        CreateScratchStack();
        ApplyPrecision(10);
        ApplyNumberType(NumberTypeReal, 10);
    }
    void TearDown() override {
        EXPECT_EQ(numberContext.scratchTop, context_.scratchTop);
        EXPECT_EQ(*CurrentScratchStack().top, CurrentScratchStack().base);
        DestroyScratchStack();
        ClearErrors();
        variableTable.count = 0;
        numberContext = context_;
    }

    /// What "=" and the end of its thread do; the text of the result field, or "(none)".
    std::u16string Show(const std::u16string& formula, ResultForm form = ResultAutomatic,
                        ResultStyle style = {}) {
        calculator.resultForm = form;
        evaluation = CalculateResult(formula.c_str());
        const char16_t* shown = FinishCalculation(style);
        return shown != nullptr ? shown : u"(none)";
    }

    void AddNamed(const char16_t* name, const std::u16string& text) {
        const int64_t index = variableTable.count;
        ASSERT_TRUE(AddVariable(index));
        SetVariableName(index, name);
        SetVariableValue(index, text.c_str());
    }

    CalcEvaluation evaluation{};

private:
    NumberContext context_;
};

/// `count` times `part`.
inline std::u16string Repeat(const std::u16string& part, int64_t count) {
    std::u16string text;
    for (int64_t i = 0; i < count; i++) {
        text += part;
    }
    return text;
}

}  // namespace tallymere::testing_support
