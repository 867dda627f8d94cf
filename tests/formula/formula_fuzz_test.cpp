// A million mangled formulas: whatever the text, an evaluation ends with a value or an error in its
// text, and leaves everything as it was. What the sanitizers find is the point of it.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/complex_number.h"
#include "core/scratch.h"
#include "exact/big_uint.h"
#include "exact/rational_number.h"
#include "formula/formula_evaluation.h"
#include "support/formula_generator.h"
#include "support/formula_testing.h"
#include "values/value_operations.h"

namespace tallymere {
namespace {

using namespace testing_support;

constexpr int FormulaCount = 1'000'000;
constexpr int FormulasPerSetting = 10'000;
constexpr size_t SeedFormulas = 1'000;
constexpr uint64_t Canary = 0xCA5CADEu;

// What can be said of any value of a type.
bool IsWellFormed(const uint64_t* value) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            return RealIsWellFormed(RealAt(value));
        case NumberTypeComplex:
            return RealIsWellFormed(RealPart(ComplexAt(value))) &&
                   RealIsWellFormed(ImaginaryPart(ComplexAt(value)));
        case NumberTypeRational: {
            const RationalNumber* q = RationalAt(value);
            return q->sign <= 1 && !BigUintIsZero(RationalDenominator(q)) &&
                   (!RationalIsZero(q) || RationalIsInteger(q));
        }
        default:
            return true;
    }
}

// Formulas to mangle; one in eight is a deep nest.
std::vector<std::u16string> MakeSeeds(RandomSource& random) {
    std::vector<std::u16string> seeds;
    while (seeds.size() < SeedFormulas) {
        seeds.push_back(random.Below(8) == 0
                            ? RandomNest(random)
                            : RandomFormula(random, static_cast<int>(random.Below(3))));
    }
    return seeds;
}

void SetSeparators(RandomSource& random) {
    constexpr char16_t decimal[] = u".,.,\u00B7e";
    constexpr char16_t group[] = u"'.,\u2019 \u202F";
    const uint64_t choice = random.Below(6);
    for (size_t i = 0; i < 3; i++) {
        numberContext.decimalSeparators[i] = i == 0 ? decimal[choice] : decimal[random.Below(6)];
        numberContext.groupSeparators[i] = i == 0 ? group[choice] : group[random.Below(6)];
    }
}

class FormulaFuzz : public ::testing::Test {
protected:
    FormulaFuzz() : saved_(numberContext) {
        for (const auto& [name, valueText] : RandomFormulaVariables()) {
            rows_.push_back({name.c_str(), valueText.c_str(), nullptr});
        }
    }

    ~FormulaFuzz() override {
        for (size_t i = 0; i < 3; i++) {
            numberContext.decimalSeparators[i] = saved_.decimalSeparators[i];
            numberContext.groupSeparators[i] = saved_.groupSeparators[i];
        }
    }

    // Evaluates and returns the error; anything wrong about the outcome fails the test.
    uint32_t Evaluate(const std::u16string& text, uint64_t flags, bool withVariables) {
        const size_t words = SizeOfNumber() / 8;
        result_.assign(words + 1, Canary);
        const uint64_t* mark = *CurrentScratchStack().top;
        FormulaEvaluator evaluator{};
        evaluator.text = text.c_str();
        evaluator.flags = flags;
        evaluator.variableCount = withVariables ? static_cast<int64_t>(rows_.size()) : 0;
        evaluator.variables = rows_.data();
        evaluator.result = result_.data();
        {
            const ContextCheck check;
            EvaluateFormula(evaluator);
        }

        bool sound = *CurrentScratchStack().top == mark && result_[words] == Canary;
        if (evaluator.error == FormulaErrorNone) {
            sound = sound && IsWellFormed(result_.data());
        } else {
            zero_.assign(words + 1, Canary);
            ValueZero(zero_.data());
            sound = sound && result_ == zero_ && evaluator.error >= FormulaErrorSyntax &&
                    evaluator.error <= FormulaErrorVariableFailed &&
                    evaluator.error != FormulaErrorInternal && evaluator.errorPosition >= 1 &&
                    evaluator.errorPosition <= text.size() + 1 &&
                    evaluator.errorLength <= text.size();
        }
        EXPECT_TRUE(sound) << Printable(text) << " error " << evaluator.error << " at "
                           << evaluator.errorPosition << " length " << evaluator.errorLength;
        return evaluator.error;
    }

    NumberContext saved_;
    std::vector<VariableRow> rows_;
    std::vector<uint64_t> result_;
    std::vector<uint64_t> zero_;
};

TEST_F(FormulaFuzz, AMillionMangledFormulasEndWithAValueOrAnError) {
    RandomSource random;
    constexpr NumberType types[] = {NumberTypeReal,    NumberTypeReal, NumberTypeComplex,
                                    NumberTypeComplex, NumberTypeUint, NumberTypeRational};
    constexpr uint64_t flags[] = {TextGroup, TextGroup, 0, TextPlainSeparators,
                                  TextGroup | TextPlainSeparators};
    int values = 0;
    for (int block = 0; block < FormulaCount / FormulasPerSetting; block++) {
        const int64_t precision = random.Between(1, 40);
        SetSeparators(random);
        FormulaScope scope(precision, types[block % 6]);
        InstallUintWidth(UintWidthForLimbs(random.Between(1, 4)));
        const std::vector<std::u16string> seeds = MakeSeeds(random);
        for (int i = 0; i < FormulasPerSetting; i++) {
            std::u16string text = seeds[random.Below(seeds.size())];
            Mangle(random, text);
            KeepShort(text);
            if (Evaluate(text, flags[random.Below(5)], random.Below(4) != 0) == FormulaErrorNone) {
                values++;
            }
            ASSERT_FALSE(HasFailure());
        }
    }
    EXPECT_GT(values, FormulaCount / 20) << "hardly a formula is good enough to compute";
}

TEST_F(FormulaFuzz, AnyRunOfCharactersEndsWithAValueOrAnError) {
    RandomSource random;
    FormulaScope scope(9);
    for (int i = TestRounds(200'000); i > 0; i--) {
        std::u16string text;
        for (uint64_t length = random.Below(12); length > 0; length--) {
            text += static_cast<char16_t>(random.Below(2) == 0 ? random.Below(0x80)
                                                               : random.Below(0x10000));
        }
        KeepShort(text);
        Evaluate(text.substr(0, text.find(u'\0')), TextGroup, true);
        ASSERT_FALSE(HasFailure());
    }
}

}  // namespace
}  // namespace tallymere
