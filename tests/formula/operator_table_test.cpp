// What holds for every row of the table of operators.
#include "formula/operator_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>

#include "formula/formula_lexer.h"
#include "formula/formula_names.h"
#include "support/formula_testing.h"
#include "support/formula_values.h"

namespace tallymere {
namespace {

using namespace testing_support;

constexpr NumberType AllTypes[] = {NumberTypeReal, NumberTypeComplex, NumberTypeUint,
                                   NumberTypeRational};

TEST(OperatorTable, HasSpellingsOfItsOwnThatTheLexerReads) {
    for (const OperatorRow& row : OperatorTable) {
        const std::u16string spelling = row.spelling;
        for (const OperatorRow& other : OperatorTable) {
            EXPECT_EQ(spelling == other.spelling, row.id == other.id) << Printable(spelling);
        }
        ASSERT_FALSE(spelling.empty());
        EXPECT_EQ(spelling.find_first_of(u"(); \n\r0123456789"), std::u16string::npos)
            << Printable(spelling) << " cannot be told from other tokens";
        const std::u16string text = spelling + u" 1";
        FormulaEvaluator evaluator{};
        evaluator.text = text.c_str();
        FormulaToken token{};
        uint64_t position = 0;
        NextFormulaToken(evaluator, token, position);
        EXPECT_EQ(Symbol(token), Symbol(row.id)) << Printable(spelling);
        EXPECT_EQ(token.length, spelling.size());
        EXPECT_EQ(IsWordOperator(row), IsNameLetter(spelling[0]));
        EXPECT_EQ(FindWordOperator(row.spelling, spelling.size()), &row);
    }
}

TEST(OperatorTable, HasTheLevelsOfTheModel) {
    std::map<ModelLevel, int32_t> levels;
    for (const OperatorRow& row : OperatorTable) {
        ASSERT_TRUE(ModelOperators.contains(row.spelling))
            << Printable(row.spelling) << " is missing in tests/support/formula_values.cpp";
        const ModelLevel level = ModelOperators.at(row.spelling);
        EXPECT_EQ(levels.try_emplace(level, row.level).first->second, row.level)
            << Printable(row.spelling);
        EXPECT_EQ(row.associativity == Associativity::RightToLeft, level == ModelLevel::Power)
            << Printable(row.spelling);
    }
    EXPECT_EQ(levels.size(), 3u);
    EXPECT_LT(levels[ModelLevel::Sum], levels[ModelLevel::Product]);
    EXPECT_LT(levels[ModelLevel::Product], levels[ModelLevel::Power]);
}

TEST(OperatorTable, HasSignsOnTheLowestLevelAlone) {
    for (const OperatorRow& row : OperatorTable) {
        const std::u16string spelling = row.spelling;
        EXPECT_EQ(row.sign != nullptr, spelling == u"+" || spelling == u"-") << Printable(spelling);
        for (const OperatorRow& other : OperatorTable) {
            EXPECT_TRUE(row.sign == nullptr || row.level <= other.level) << Printable(spelling);
        }
    }
}

TEST(OperatorTable, HasOperatorsThatSomeTypeHas) {
    for (const OperatorRow& row : OperatorTable) {
        EXPECT_TRUE(std::ranges::any_of(AllTypes, [&](NumberType type) {
            return RoutineOf(row.routines, type) != nullptr;
        })) << Printable(row.spelling);
        for (const NumberType type : AllTypes) {
            FormulaScope scope(20, type);
            UintWidthScope width(3);
            const std::u16string formula = u"1 " + std::u16string(row.spelling) + u" 1";
            const FormulaOutcome outcome = Evaluate(formula);
            const bool has = RoutineOf(row.routines, type) != nullptr;
            EXPECT_EQ(outcome.error, uint32_t{has ? FormulaErrorNone : FormulaErrorOperationFailed})
                << Printable(formula);
        }
    }
}

TEST(FindSymbolOperator, TakesTheOneThatTheTextBeginsWith) {
    uint64_t length = 0;
    EXPECT_EQ(FindSymbolOperator(u"+-", &length)->id, OperatorId::Add);
    EXPECT_EQ(length, 1u);
    EXPECT_EQ(FindSymbolOperator(u"^2", &length)->id, OperatorId::Power);
    for (const char16_t* text : {u"2+", u"", u"mo", u"k"}) {
        length = 7;
        EXPECT_EQ(FindSymbolOperator(text, &length), nullptr) << Printable(text);
        EXPECT_EQ(length, 0u);
    }
}

TEST(FindWordOperator, TakesTheWholeWord) {
    EXPECT_EQ(FindWordOperator(u"mod", 3)->id, OperatorId::Mod);
    EXPECT_EQ(FindWordOperator(u"mod", 2), nullptr);
    EXPECT_EQ(FindWordOperator(u"mode", 4), nullptr);
}

}  // namespace
}  // namespace tallymere
