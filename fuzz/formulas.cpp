// Formulas of all four types: whatever the text, an evaluation ends with a value or with an error
// that has a place in it. In real and cplx both are those of a second evaluator.
//
// Input: type, flags, separators, digits, limbs, whether there are variables; then the formula.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "fuzz/harness_list.h"
#include "fuzz/separator_scope.h"
#include "support/formula_generator.h"
#include "support/formula_model.h"
#include "support/formula_testing.h"
#include "support/number_types.h"

namespace tallymere::fuzz {

using namespace testing_support;

namespace {

constexpr int64_t MostDigits = 60;
constexpr int64_t MostLimbs = 4;
// Longer formulas only repeat what shorter ones do.
constexpr size_t MostCharacters = 300;

constexpr uint64_t FlagChoices[] = {TextGroup, 0, TextPlainSeparators,
                                    TextGroup | TextPlainSeparators};

constexpr Separators SeparatorChoices[] = {{u'.', u'\''}, {u',', u'.'},      {u'.', u','},
                                           {u',', u' '},  {u',', u'\u202F'}, {u'e', u'e'}};

void ExpectPlaceInText(const FormulaOutcome& outcome, const std::u16string& text) {
    EXPECT_GE(outcome.error, uint32_t{FormulaErrorSyntax});
    EXPECT_LE(outcome.error, uint32_t{FormulaErrorVariableFailed});
    EXPECT_NE(outcome.error, uint32_t{FormulaErrorInternal});
    EXPECT_NE(outcome.error, uint32_t{FormulaErrorAborted});
    EXPECT_GE(outcome.position, 1u);
    EXPECT_LE(outcome.position, text.size() + 1);
    EXPECT_LE(outcome.length, text.size());
}

// What has a value has the same one where numbers may be wider.
void ExpectSameValueInMoreLimbs(const FormulaOutcome& outcome, const std::u16string& text,
                                const Variables& variables, uint64_t flags) {
    const UintWidthScope width(CurrentUintWidth().limbs + 1);
    EXPECT_EQ(Evaluate(text, variables, flags), outcome) << Printable(text);
}

}  // namespace

void FuzzFormulas(FuzzInput& input) {
    const NumberType type = input.OneOf(AllNumberTypes);
    const uint64_t flags = input.OneOf(FlagChoices);
    const size_t separators = input.Choice(std::size(SeparatorChoices));
    const FormulaScope scope(input.Number(1, MostDigits), type);
    InstallUintWidth(UintWidthForLimbs(input.Number(1, MostLimbs)));
    const Variables variables = input.Flag() ? RandomFormulaVariables() : Variables();
    std::u16string text = BeforeZero(input.Text());
    text.resize(std::min(text.size(), MostCharacters));
    KeepShort(text);

    const SeparatorScope separatorScope(SeparatorChoices[separators]);
    const FormulaOutcome outcome = Evaluate(text, variables, flags);
    if (outcome.error != FormulaErrorNone) {
        ExpectPlaceInText(outcome, text);
    }
    if (type == NumberTypeReal || type == NumberTypeComplex) {
        if (flags == TextGroup && separators == 0) {
            EXPECT_EQ(outcome, PredictFormula(text, variables)) << Printable(text);
        }
    } else if (outcome.error == FormulaErrorNone && text.find(u"round") == text.npos) {
        // round shows in uint what its place in the calculation held before.
        ExpectSameValueInMoreLimbs(outcome, text, variables, flags);
    }
}

}  // namespace tallymere::fuzz
