// What holds for every row of the table of functions. A new function that lacks something fails
// here by its name.
#include "formula/function_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "formula/constant_table.h"
#include "formula/formula_lexer.h"
#include "formula/formula_names.h"
#include "formula/operator_table.h"
#include "support/formula_model.h"
#include "support/formula_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

constexpr NumberType AllTypes[] = {NumberTypeReal, NumberTypeComplex, NumberTypeUint,
                                   NumberTypeRational};

// The functions that exact types have, written down a second time; only uint has the last one.
const std::set<std::u16string> ExactFunctions = {
    u"sqrt", u"cbrt",  u"root", u"log2", u"log10", u"logx", u"abs", u"trunc",
    u"frac", u"round", u"fact", u"ncr",  u"npr",   u"gcd",  u"lcm", u"powmod"};

// A call that has a value in every number type that has the function: all arguments are 1, but
// where 1 is no base, no branch or a pole.
std::u16string CallOf(const FunctionRow& row) {
    const std::u16string name = row.name;
    if (name == u"atanh") {
        return u"atanh(0)";
    }
    if (name == u"logx") {
        return u"logx(2;2)";
    }
    std::u16string call = name + u"(1";
    for (int64_t i = 1; i < ArgumentCount(row); i++) {
        // The last argument of the roots of cplx is a branch.
        call += i + 1 == ArgumentCount(row) && name.back() == u'c' ? u";0" : u";1";
    }
    return call + u")";
}

class EveryFunction : public ::testing::TestWithParam<FunctionId> {
protected:
    const FunctionRow& row_ = FunctionOf(GetParam());
    const std::u16string name_ = row_.name;
};

TEST_P(EveryFunction, IsReadByItsName) {
    FormulaEvaluator evaluator{};
    evaluator.text = row_.name;
    FormulaToken token{};
    uint64_t position = 0;
    NextFormulaToken(evaluator, token, position);
    EXPECT_EQ(Symbol(token), Symbol(row_.id));
    EXPECT_EQ(position, name_.size());
    EXPECT_EQ(FindFunction(row_.name, name_.size()), &row_);
    EXPECT_EQ(FindFunction(row_.name, name_.size() - 1) == &row_, false);
}

TEST_P(EveryFunction, HasANameOfItsOwn) {
    for (const FunctionRow& other : FunctionTable) {
        EXPECT_EQ(name_ == other.name, other.id == row_.id);
    }
    EXPECT_EQ(FindConstant(row_.name, name_.size()), nullptr);
    EXPECT_EQ(FindWordOperator(row_.name, name_.size()), nullptr);
}

TEST_P(EveryFunction, HasANumberTypeAndARefusalForTheOthers) {
    const auto has = [this](NumberType type) { return RoutineOf(row_.routines, type) != nullptr; };
    EXPECT_TRUE(std::ranges::any_of(AllTypes, has));
    EXPECT_TRUE(row_.refusal == FormulaErrorNone || row_.refusal == FormulaErrorNeedsComplex ||
                row_.refusal == FormulaErrorNotAvailable);
    const bool onlyComplex = has(NumberTypeComplex) && !has(NumberTypeReal) &&
                             !has(NumberTypeUint) && !has(NumberTypeRational);
    EXPECT_EQ(row_.refusal == FormulaErrorNeedsComplex, onlyComplex);
}

// A function of angles has a form for each unit: "d" and "g" behind the name are degrees and gon.
TEST_P(EveryFunction, OfAnglesIsThereInEveryUnit) {
    if (row_.unit != AngleUnit::Radians) {
        EXPECT_TRUE(row_.unit == AngleUnit::None ||
                    name_.back() == (row_.unit == AngleUnit::Degrees ? u'd' : u'g'));
        return;
    }
    for (const auto& [letter, unit] :
         {std::pair{u'd', AngleUnit::Degrees}, std::pair{u'g', AngleUnit::Gon}}) {
        const std::u16string other = name_ + letter;
        const FunctionRow* row = FindFunction(other.c_str(), other.size());
        ASSERT_NE(row, nullptr) << Printable(other) << " is missing";
        EXPECT_EQ(row->unit, unit);
        EXPECT_EQ(row->refusal, row_.refusal);
        EXPECT_EQ(std::u16string(row->parameters), row_.parameters);
        for (const NumberType type : AllTypes) {
            EXPECT_EQ(RoutineOf(row->routines, type), RoutineOf(row_.routines, type));
        }
    }
}

TEST_P(EveryFunction, IsKnownToTheModel) {
    ASSERT_TRUE(ModelFunctions.contains(name_)) << "missing in tests/support/formula_values.cpp";
    EXPECT_EQ(ModelFunctions.at(name_), ArgumentCount(row_));
}

TEST_P(EveryFunction, HasTheValueOfTheModelOrItsRefusal) {
    for (const NumberType type : {NumberTypeReal, NumberTypeComplex}) {
        FormulaScope scope(20, type);
        for (const char16_t* argument : {u"1", u"0.375", u"-0.25", u"7", u"90", u"100", u"0"}) {
            std::u16string call = name_ + u"(" + argument;
            for (int64_t i = 1; i < ArgumentCount(row_); i++) {
                call += std::u16string(u";") + argument;
            }
            EXPECT_EQ(Evaluate(u"2*" + call + u")"), PredictFormula(u"2*" + call + u")"))
                << Printable(call);
        }
        EXPECT_EQ(Evaluate(CallOf(row_)), PredictFormula(CallOf(row_)));
    }
}

TEST_P(EveryFunction, IsEvaluatedOrRefusedInExactTypes) {
    EXPECT_EQ(ExactFunctions.contains(name_), row_.routines.uint != nullptr)
        << "the list ExactFunctions of this file lacks it, or has it in vain";
    const std::u16string call = CallOf(row_);
    for (const NumberType type : {NumberTypeUint, NumberTypeRational}) {
        FormulaScope scope(type, 3);
        const FormulaOutcome outcome = Evaluate(call);
        const bool only = name_ == u"powmod" && type == NumberTypeRational;
        if (ExactFunctions.contains(name_) && !only) {
            // A fraction of an integer always fails; see uint_evaluation.h.
            const bool fails = name_ == u"frac" && type == NumberTypeUint;
            EXPECT_EQ(outcome.error,
                      uint32_t{fails ? FormulaErrorOperationFailed : FormulaErrorNone});
        } else {
            FormulaScope real;
            const FormulaOutcome inReal = Evaluate(call);
            const bool refused = inReal.error == FormulaErrorNeedsComplex ||
                                 inReal.error == FormulaErrorNotAvailable;
            EXPECT_EQ(outcome,
                      refused ? inReal : Failure(FormulaErrorOperationFailed, call.size(), 1));
        }
    }
}

TEST_P(EveryFunction, HasParametersThatTheHelpCanShow) {
    EXPECT_GE(ArgumentCount(row_), 1);
    EXPECT_LE(ArgumentCount(row_), MaxFunctionArguments);
    const std::u16string parameters = row_.parameters;
    for (size_t i = 0; i < parameters.size(); i++) {
        const bool between = i % 3 == 1;
        EXPECT_EQ(parameters[i] == u';', between) << "one letter each, parted by `; `";
        EXPECT_EQ(parameters[i] == u' ', i % 3 == 2);
    }
}

std::vector<FunctionId> AllFunctions() {
    std::vector<FunctionId> ids;
    for (const FunctionRow& row : FunctionTable) {
        ids.push_back(row.id);
    }
    return ids;
}

std::string NameOfTest(const ::testing::TestParamInfo<FunctionId>& info) {
    const std::u16string name = FunctionOf(info.param).name;
    return {name.begin(), name.end()};
}

INSTANTIATE_TEST_SUITE_P(Table, EveryFunction, ::testing::ValuesIn(AllFunctions()), NameOfTest);

TEST(FindFunction, TakesTheGivenLengthOnly) {
    const char16_t* text = u"sindx";
    EXPECT_EQ(FindFunction(text, 2), nullptr);
    EXPECT_EQ(FindFunction(text, 3)->id, FunctionId::Sin);
    EXPECT_EQ(FindFunction(text, 4)->id, FunctionId::SinDegrees);
    EXPECT_EQ(FindFunction(text, 5), nullptr);
    EXPECT_EQ(FindFunction(u"SIN", 3), nullptr);
}

TEST(ConstantTable, HasNamesOfItsOwn) {
    for (const ConstantRow& row : ConstantTable) {
        for (const char16_t* name : {row.name, row.alternateName}) {
            const size_t length = std::u16string(name).size();
            EXPECT_TRUE(IsNameLetter(name[0]));
            EXPECT_EQ(FindConstant(name, length), &row);
            EXPECT_EQ(FindFunction(name, length), nullptr);
            EXPECT_EQ(FindWordOperator(name, length), nullptr);
        }
    }
    EXPECT_EQ(FindConstant(u"p", 1), nullptr);
}

}  // namespace
}  // namespace tallymere
