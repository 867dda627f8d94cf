// Every function of formulas that rounds is compared with MPFR and MPC: docs/accuracy.md and the
// test FunctionAccuracy look at the functions of TestedFunctions and at no other.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "formula/function_table.h"
#include "support/formula_testing.h"
#include "support/function_oracle.h"

namespace tallymere {
namespace {

using namespace testing_support;

// Functions that are not compared under a name of their own, and why.
const std::map<std::u16string, const char*> NotCompared = {
    {u"abs", "the value of real is exact; that of cplx is compared as \"abs z\""},
    {u"trunc", "exact"},
    {u"frac", "exact"},
    {u"round", "exact"},
    {u"gcd", "exact; see combinatorics_oracle_test.cpp of functions"},
    {u"lcm", "one product; see combinatorics_oracle_test.cpp of functions"},
    {u"realp", "exact"},
    {u"imagp", "exact"},
    {u"arg", "compared as \"atan2\""},
};

bool IsCompared(const std::string& name) {
    return std::ranges::any_of(TestedFunctions(), [&](const TestedFunction& function) {
        return function.name == name || function.name.starts_with(name + ", ");
    });
}

class FormulaFunctionAccuracy : public ::testing::TestWithParam<FunctionId> {};

TEST_P(FormulaFunctionAccuracy, IsCompared) {
    const std::u16string name = FunctionOf(GetParam()).name;
    const bool isCompared = IsCompared({name.begin(), name.end()});
    if (NotCompared.contains(name)) {
        EXPECT_FALSE(isCompared) << "listed in NotCompared of this file in vain";
    } else {
        EXPECT_TRUE(isCompared)
            << "a record of " << Printable(name)
            << " belongs into the list of its kind in tests/support/*_oracle.cpp, such as "
               "trigonometric_oracle.cpp; one that never rounds into NotCompared of this file";
    }
}

std::vector<FunctionId> FunctionsThatMayRound() {
    std::vector<FunctionId> ids;
    for (const FunctionRow& row : FunctionTable) {
        if (row.routines.real != nullptr || row.routines.cplx != nullptr) {
            ids.push_back(row.id);
        }
    }
    return ids;
}

std::string NameOfTest(const ::testing::TestParamInfo<FunctionId>& info) {
    const std::u16string name = FunctionOf(info.param).name;
    return {name.begin(), name.end()};
}

INSTANTIATE_TEST_SUITE_P(Table, FormulaFunctionAccuracy,
                         ::testing::ValuesIn(FunctionsThatMayRound()), NameOfTest);

TEST(FormulaFunctionsNotCompared, AreFunctions) {
    for (const auto& [name, reason] : NotCompared) {
        EXPECT_NE(FindFunction(name.c_str(), name.size()), nullptr) << Printable(name);
    }
}

}  // namespace
}  // namespace tallymere
