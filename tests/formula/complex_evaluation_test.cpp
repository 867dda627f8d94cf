#include "formula/complex_evaluation.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "formula/function_table.h"
#include "support/complex_testing.h"
#include "support/formula_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

class ComplexFunctions : public ::testing::Test {
protected:
    // The outcome of a function of one argument, which must stay as it is; the same in place.
    static Outcome Apply(FunctionId id, std::string_view z) {
        const ComplexBuffer argument(z);
        FormulaEvaluator evaluator{};
        const auto function = [&](ComplexNumber* dest, const ComplexNumber* x) {
            CallFunction(evaluator, Token(id, 4, 3), &dest->realHeader, {&x->realHeader});
        };
        const Outcome outcome = UnaryOutcome(function, argument);
        EXPECT_EQ(argument, ComplexBuffer(z));
        EXPECT_EQ(evaluator.error, uint32_t{FormulaErrorNone});
        return outcome;
    }

    // The outcome of a function of two or three arguments.
    static Outcome Apply(FunctionId id, std::initializer_list<std::string_view> texts) {
        std::vector<ComplexBuffer> values(texts.begin(), texts.end());
        std::vector<const uint64_t*> arguments;
        for (const ComplexBuffer& value : values) {
            arguments.push_back(value.Words());
        }
        FormulaEvaluator evaluator{};
        ComplexBuffer dest;
        CallFunction(evaluator, Token(id, 4, 3), dest.Words(), arguments);
        EXPECT_EQ(evaluator.error, uint32_t{FormulaErrorNone});
        return OutcomeOf(dest);
    }

    FormulaScope scope_{20, NumberTypeComplex};
    const Outcome notReal_ = {"nan 0", CalcErrorComplexNotAllowed};
    const Outcome undefined_ = {"nan 0", CalcErrorUndefined};
};

TEST_F(ComplexFunctions, OfRealAreThoseOfTheRealPart) {
    EXPECT_EQ(Apply(FunctionId::Sqrt, "4 0"), Silent("2e0 0"));
    EXPECT_EQ(Apply(FunctionId::Sqrt, "4 -0"), Silent("2e0 0"));
    EXPECT_EQ(Apply(FunctionId::SinDegrees, "180 -0"), Silent("0 0"));
    EXPECT_EQ(Apply(FunctionId::Sqrt, "-4 0"), undefined_);
    EXPECT_EQ(Apply(FunctionId::Exp, "1e30 0"), (Outcome{"inf 0", CalcErrorOverflow}));
    EXPECT_EQ(Apply(FunctionId::Root, {"3 0", "-8 -0"}), Silent("-2e0 0"));
}

TEST_F(ComplexFunctions, OfRealRefuseWhatIsNotReal) {
    for (const FunctionId id :
         {FunctionId::Sqrt, FunctionId::Cbrt, FunctionId::Ln, FunctionId::Log2, FunctionId::Log10,
          FunctionId::Exp, FunctionId::Sin, FunctionId::CosDegrees, FunctionId::Tan,
          FunctionId::AsinGon, FunctionId::Acos, FunctionId::AtanDegrees, FunctionId::Sinh,
          FunctionId::Acosh, FunctionId::Fact}) {
        EXPECT_EQ(Apply(id, "1 1e-300"), notReal_) << Printable(FunctionOf(id).name);
    }
    for (const FunctionId id : {FunctionId::Root, FunctionId::LogX, FunctionId::Ncr,
                                FunctionId::Npr, FunctionId::Gcd, FunctionId::Lcm}) {
        EXPECT_EQ(Apply(id, {"2 1", "3 0"}), notReal_) << Printable(FunctionOf(id).name);
        EXPECT_EQ(Apply(id, {"2 0", "3 1"}), notReal_) << Printable(FunctionOf(id).name);
    }
}

TEST_F(ComplexFunctions, OfPartsNeedNoRealValue) {
    EXPECT_EQ(Apply(FunctionId::Abs, "-3 4"), Silent("5e0 0"));
    EXPECT_EQ(Apply(FunctionId::Abs, "-3 0"), Silent("3e0 0"));
    EXPECT_EQ(Apply(FunctionId::RealPart, "-0 4"), Silent("-0 0"));
    EXPECT_EQ(Apply(FunctionId::ImaginaryPart, "7 -0"), Silent("-0 0"));
    EXPECT_EQ(Apply(FunctionId::Trunc, "-0.5 -1.75"), Silent("-0 -1e0"));
    EXPECT_EQ(Apply(FunctionId::Frac, "-0.5 -2"), Silent("-5e-1 -0"));
    EXPECT_EQ(Apply(FunctionId::Round, "2.5 -0.04"), Silent("3e0 -0"));
}

TEST_F(ComplexFunctions, TakeTheAngleWithBothSigns) {
    EXPECT_EQ(Apply(FunctionId::Arg, "0 0"), Silent("0 0"));
    EXPECT_EQ(Apply(FunctionId::Arg, "0 -2"), Silent("-1.5707963267948966192e0 0"));
    EXPECT_EQ(Apply(FunctionId::Arg, "-2 0"), Silent("3.1415926535897932385e0 0"));
    EXPECT_EQ(Apply(FunctionId::Arg, "-2 -0"), Silent("3.1415926535897932385e0 0"));
    EXPECT_EQ(Apply(FunctionId::Arg, "2 -0"), Silent("-0 0"));
    EXPECT_EQ(Apply(FunctionId::Arg, "-1 -1"), Silent("-2.3561944901923449288e0 0"));
}

TEST_F(ComplexFunctions, TakeBranchesOfRoots) {
    EXPECT_EQ(Apply(FunctionId::ComplexSqrt, {"0 2", "0 0"}), Silent("1e0 1e0"));
    EXPECT_EQ(Apply(FunctionId::ComplexSqrt, {"0 2", "1 -0"}), Silent("-1e0 -1e0"));
    EXPECT_EQ(Apply(FunctionId::ComplexCbrt, {"8 0", "0 0"}), Silent("2e0 0"));
    EXPECT_EQ(Apply(FunctionId::ComplexRoot, {"4 0", "16 0", "1 0"}), Silent("-0 2e0"))
        << "on an axis, so the zero is exact; its sign is that of a turned one";
    EXPECT_EQ(Apply(FunctionId::ComplexRoot, {"1 0", "2 3", "0 0"}), Silent("2e0 3e0"));
}

TEST_F(ComplexFunctions, RefuseBranchesAndDegreesOutOfBounds) {
    for (const char* branch : {"2 0", "-1 0", "0.5 0", "0 1", "1e30 0", "nan 0"}) {
        EXPECT_EQ(Apply(FunctionId::ComplexSqrt, {"-4 0", branch}), undefined_) << branch;
        EXPECT_EQ(Apply(FunctionId::ComplexRoot, {"2 0", "-4 0", branch}), undefined_) << branch;
    }
    for (const char* branch : {"3 0", "-1 0", "0.5 0", "0 1", "1 1", "1e30 0", "nan 0"}) {
        EXPECT_EQ(Apply(FunctionId::ComplexCbrt, {"8 0", branch}), undefined_) << branch;
    }
    for (const char* degree : {"0 0", "-2 0", "1.5 0", "2 1", "2305843009213693952 0"}) {
        EXPECT_EQ(Apply(FunctionId::ComplexRoot, {degree, "-4 0", "0 0"}), undefined_) << degree;
    }
}

}  // namespace
}  // namespace tallymere
