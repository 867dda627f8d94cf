#include "formula/formula_variables.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "core/scratch.h"
#include "formula/formula_driver.h"
#include "formula/formula_evaluation.h"
#include "formula/used_variables.h"
#include "support/formula_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

class FormulaVariables : public ::testing::Test {
protected:
    FormulaScope scope_;
};

TEST_F(FormulaVariables, TakeTheValueOfTheirText) {
    EXPECT_EQ(Evaluate(u"x+x", {{u"x", u"2"}}), Value("4"));
    EXPECT_EQ(Evaluate(u"a-b*a", {{u"a", u"1+2"}, {u"b", u"-(4)"}}), Value("15"))
        << "a value, not a text put in its place";
    EXPECT_EQ(Evaluate(u"\u03B1_1/2", {{u"\u03B1_1", u" abs(-5) "}}), Value("2.5"));
    EXPECT_EQ(Evaluate(u"1+1", {{u"x", u"1/0"}}), Value("2")) << "not used, not evaluated";
}

TEST_F(FormulaVariables, AreFoundByTheirWholeName) {
    const Variables variables = {{u"x", u"1"}, {u"xy", u"2"}, {u"xyz", u"3"}, {u"X", u"4"}};
    EXPECT_EQ(Evaluate(u"x+10*xy+100*xyz+1000*X", variables), Value("4321"));
    EXPECT_EQ(Evaluate(u"x+xyzz", variables), Failure(10211, 3, 4));
    EXPECT_EQ(Evaluate(u"Xy", variables), Failure(10211, 1, 2));
}

TEST_F(FormulaVariables, OfTheSameNameAreTheFirst) {
    EXPECT_EQ(Evaluate(u"x", {{u"x", u"1"}, {u"x", u"2"}}), Value("1"));
}

TEST_F(FormulaVariables, CannotHideAKeyword) {
    EXPECT_EQ(Evaluate(u"sin", {{u"sin", u"1"}}), Failure(10202, 4, 0));
    EXPECT_EQ(Evaluate(u"i", {{u"i", u"1"}}), Failure(10207, 1, 0));
}

TEST_F(FormulaVariables, ThatAreUnknownComeBeforeEveryOtherError) {
    const Variables x = {{u"x", u"1/0"}};
    EXPECT_EQ(Evaluate(u")*+x y", x), Failure(10211, 6, 1));
    EXPECT_EQ(Evaluate(u"1/0+y", x), Failure(10211, 5, 1));
    EXPECT_EQ(Evaluate(u"x+yy+zzz", x), Failure(10211, 3, 2)) << "before x is evaluated";
    EXPECT_EQ(Evaluate(u")*+y"), Failure(10200, 1, 1)) << "there are no variables at all";
}

TEST_F(FormulaVariables, AreNotLookedForBehindAnInvalidCharacter) {
    EXPECT_EQ(Evaluate(u"x+\t y", {{u"x", u"1"}}), Failure(10200, 3, 0));
    EXPECT_EQ(Evaluate(u"x+\t y", {{u"x", u"1/0"}}), Failure(10212, 1, 1)) << "x comes first";
}

TEST_F(FormulaVariables, FailAtTheirFirstUse) {
    for (const char16_t* text : {u"", u" ", u"1/0", u"1.2.3", u"1+", u")", u"i", u"sin(1;2)", u"\t",
                                 u"powmod(1;2;3)", u"5 mod 0"}) {
        const Variables variables = {{u"a", u"1"}, {u"xy", text}};
        EXPECT_EQ(Evaluate(u"a+xy*xy", variables), Failure(10212, 3, 2)) << Printable(text);
        EXPECT_EQ(Evaluate(u"a)xy", variables), Failure(10212, 3, 2)) << "before any token acts";
    }
}

TEST_F(FormulaVariables, FailInTheOrderOfTheirFirstUse) {
    const Variables variables = {{u"a", u"1/0"}, {u"b", u"1/0"}};
    EXPECT_EQ(Evaluate(u"1+b+a", variables), Failure(10212, 3, 1));
    EXPECT_EQ(Evaluate(u"1+a+b", variables), Failure(10212, 3, 1));
}

TEST_F(FormulaVariables, MayNotUseVariables) {
    const Variables variables = {{u"ans", u"7"}, {u"x", u"y"}, {u"y", u"1"}, {u"z", u"z"}};
    EXPECT_EQ(Evaluate(u"ans+x", variables), Failure(10212, 5, 1)) << "also when y is defined";
    EXPECT_EQ(Evaluate(u"z", variables), Failure(10212, 1, 1)) << "nor themselves";
    EXPECT_EQ(Evaluate(u"y+ans", variables), Value("8"));
    EXPECT_EQ(Evaluate(u"a", {{u"a", u"ans"}, {u"ans", u"1"}}), Failure(10212, 1, 1));
}

TEST_F(FormulaVariables, AreReadByTheFlagsOfTheFormula) {
    EXPECT_EQ(Evaluate(u"x", {{u"x", u"1'000"}}), Value("1000"));
    EXPECT_EQ(Evaluate(u"x", {{u"x", u"1'000"}}, 0), Failure(10212, 1, 1));
}

TEST_F(FormulaVariables, ThatAreStoppedFailAsAnyOther) {
    uint8_t stop = 1;
    FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    EXPECT_EQ(Evaluate(u"1+x", {{u"x", u"1e9000 mod 3"}}), Failure(10212, 3, 1));
    EXPECT_EQ(Evaluate(u"1+x", {{u"x", u"1+1"}}), Failure(10212, 3, 1)) << "before a token";
}

TEST_F(FormulaVariables, AreLimitedLikeAnyFormula) {
    const std::u16string deep = std::u16string(49, u'(') + u"1" + std::u16string(49, u')');
    EXPECT_EQ(Evaluate(std::u16string(49, u'(') + u"x" + std::u16string(49, u')'), {{u"x", deep}}),
              Value("1"))
        << "they have a stack of their own";
    EXPECT_EQ(Evaluate(u"x", {{u"x", u"(" + deep + u")"}}), Failure(10212, 1, 1));
}

// Runs a formula as a page does that keeps the values for itself.
class FormulaVariableTable : public FormulaVariables {
protected:
    FormulaVariableTable() : x_{u"x", u"2", nullptr}, result_("77") {
        evaluator_.text = u"x*(x+3)";
        evaluator_.flags = TextGroup;
        evaluator_.variableCount = 1;
        evaluator_.variables = &x_;
        evaluator_.result = &result_.Get()->header;
    }

    VariableRow x_;
    RealBuffer result_;
    FormulaEvaluator evaluator_{};
};

TEST_F(FormulaVariableTable, HoldsEachNameOnceWithItsFirstUse) {
    ScratchStackScope scratch;
    const std::vector<VariableRow> rows = {
        {u"ans", u"7", nullptr}, {u"x", u"2", nullptr}, {u"y", u"3", nullptr}};
    evaluator_.text = u"1+y*x-(y+yy";
    evaluator_.variableCount = 3;
    evaluator_.variables = rows.data();
    ResolveUsedVariables(evaluator_);
    EXPECT_EQ(evaluator_.error, uint32_t{FormulaErrorUndefinedName});
    EXPECT_EQ(evaluator_.errorPosition, 10u);
    EXPECT_EQ(evaluator_.errorLength, 2u);
    ASSERT_EQ(evaluator_.usedCount, 2);
    EXPECT_EQ(evaluator_.usedVariables[0].name, rows[2].name);
    EXPECT_EQ(evaluator_.usedVariables[0].valueText, rows[2].valueText);
    EXPECT_EQ(evaluator_.usedVariables[0].position, 2u);
    EXPECT_EQ(evaluator_.usedVariables[0].length, 1u);
    EXPECT_EQ(evaluator_.usedVariables[0].value, nullptr) << "an unknown name stops it first";
    EXPECT_EQ(evaluator_.usedVariables[1].name, rows[1].name);
    EXPECT_EQ(evaluator_.usedVariables[1].position, 4u);
}

TEST_F(FormulaVariableTable, ReachesFromResolvingToRunning) {
    ScratchStackScope scratch;
    const uint64_t* before = *CurrentScratchStack().top;
    ResolveUsedVariables(evaluator_);
    ASSERT_EQ(evaluator_.error, uint32_t{FormulaErrorNone});
    ASSERT_EQ(evaluator_.usedCount, 1);
    const uint64_t* value = evaluator_.usedVariables[0].value;
    const uint64_t* after = *CurrentScratchStack().top;
    EXPECT_GT(after, before);
    RunFormula(evaluator_);
    EXPECT_EQ(evaluator_.error, uint32_t{FormulaErrorNone});
    EXPECT_EQ(result_, RealBuffer("10"));
    EXPECT_EQ(*CurrentScratchStack().top, after) << "the value outlives the run";
    EXPECT_EQ(PlainText(RealAt(value)), "2e0");
}

TEST_F(FormulaVariableTable, EvaluatesATextOnce) {
    ScratchStackScope scratch;
    ResolveUsedVariables(evaluator_);
    ASSERT_EQ(evaluator_.usedCount, 1);
    // Whatever stands in the one value is what both uses read.
    RealFromPlainText(RealAt(evaluator_.usedVariables[0].value), "5");
    RunFormula(evaluator_);
    EXPECT_EQ(result_, RealBuffer("40"));
}

TEST_F(FormulaVariableTable, TakesAValueThatIsThereAlready) {
    RealBuffer value("4");
    x_.value = &value.Get()->header;
    x_.valueText = u"1/0";
    EvaluateFormula(evaluator_);
    EXPECT_EQ(evaluator_.error, uint32_t{FormulaErrorNone});
    EXPECT_EQ(result_, RealBuffer("28"));
}

TEST_F(FormulaVariableTable, IsNotMadeWithoutVariables) {
    ScratchStackScope scratch;
    UsedVariable stale{};
    evaluator_.usedVariables = &stale;
    evaluator_.usedCount = 1;
    evaluator_.variableCount = 0;
    const uint64_t* before = *CurrentScratchStack().top;
    ResolveUsedVariables(evaluator_);
    EXPECT_EQ(evaluator_.usedVariables, nullptr);
    EXPECT_EQ(evaluator_.usedCount, 0);
    EXPECT_EQ(evaluator_.error, uint32_t{FormulaErrorNone}) << "x is not even looked for";
    EXPECT_EQ(*CurrentScratchStack().top, before);
}

TEST_F(FormulaVariableTable, NamesTheFailingVariableAndClearsTheResult) {
    x_.valueText = u"1e9999999999999999999999";
    EvaluateFormula(evaluator_);
    EXPECT_EQ(evaluator_.error, uint32_t{FormulaErrorVariableFailed});
    EXPECT_EQ(evaluator_.errorPosition, 1u);
    EXPECT_EQ(result_, RealBuffer("0"));
}

TEST_F(FormulaVariableTable, ThatIsTooSmallIsAnInternalError) {
    UsedVariable used[1] = {{u"y", u"1", nullptr, 9, 1}};
    evaluator_.usedVariables = used;
    evaluator_.usedCount = 1;
    FormulaToken token = Token(TokenIdentifier, 3, 1);
    NoteUsedVariable(evaluator_, token);
    EXPECT_EQ(evaluator_.error, uint32_t{FormulaErrorInternal});
    EXPECT_EQ(evaluator_.errorPosition, 4u);
    EXPECT_EQ(evaluator_.errorLength, 1u);
    EXPECT_EQ(evaluator_.usedCount, 1);
}

TEST_F(FormulaVariables, AllFitTheScratchStackAtTheLongestNumbers) {
    // The calculator's most: 100 variables and ans, all of them used, and a stack of 50 values.
    FormulaScope longest(10'002);
    Variables variables;
    std::u16string sum = std::u16string(46, u'(') + u"0";
    for (int i = 0; i < 101; i++) {
        const std::u16string name = u"v" + std::u16string{static_cast<char16_t>(u'0' + i / 10 % 10),
                                                          static_cast<char16_t>(u'0' + i % 10),
                                                          static_cast<char16_t>(u'a' + i / 100)};
        variables.emplace_back(name, std::u16string(49, u'(') + u"1" + std::u16string(49, u')'));
        sum += u"+" + name;
    }
    sum += std::u16string(46, u')');
    EXPECT_EQ(Evaluate(sum, variables), Value("101"));
    for (const auto& [type, digits] :
         {std::pair{NumberTypeUint, 20'000}, std::pair{NumberTypeRational, 10'000}}) {
        FormulaScope exact(type, UintLimbsForDigits(digits));
        EXPECT_EQ(Evaluate(sum, variables), Exactly("101"));
    }
}

}  // namespace
}  // namespace tallymere
