#include "formula/complex_evaluation.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "support/complex_testing.h"
#include "support/formula_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

class ComplexFunctions : public ::testing::Test {
protected:
    // The outcome of a function of one argument, which must stay as it is; the same in place.
    static Outcome Apply(uint32_t id, std::string_view z) {
        const ComplexBuffer argument(z);
        FormulaEvaluator evaluator{};
        const auto function = [&](ComplexNumber* dest, const ComplexNumber* x) {
            ComplexApplyFunction1(evaluator, {id, 4, 3, nullptr}, dest, x);
        };
        const Outcome outcome = UnaryOutcome(function, argument);
        EXPECT_EQ(argument, ComplexBuffer(z));
        EXPECT_EQ(evaluator.error, uint32_t{FormulaErrorNone});
        return outcome;
    }

    static Outcome Apply(uint32_t id, std::string_view a, std::string_view b) {
        ComplexBuffer dest;
        ComplexApplyFunction2(id, dest, ComplexBuffer(a), ComplexBuffer(b));
        return OutcomeOf(dest);
    }

    static Outcome Apply(uint32_t id, std::string_view a, std::string_view b, std::string_view c) {
        ComplexBuffer dest;
        ComplexApplyFunction3(id, dest, ComplexBuffer(a), ComplexBuffer(b), ComplexBuffer(c));
        return OutcomeOf(dest);
    }

    FormulaScope scope_{20, NumberTypeComplex};
    const Outcome notReal_ = {"nan 0", CalcErrorComplexNotAllowed};
    const Outcome undefined_ = {"nan 0", CalcErrorUndefined};
    const Outcome unavailable_ = {"nan 0", CalcErrorUnknownType};
};

TEST_F(ComplexFunctions, OfRealAreThoseOfTheRealPart) {
    EXPECT_EQ(Apply(FunctionSqrt, "4 0"), Silent("2e0 0"));
    EXPECT_EQ(Apply(FunctionSqrt, "4 -0"), Silent("2e0 0"));
    EXPECT_EQ(Apply(FunctionSinDegrees, "180 -0"), Silent("0 0"));
    EXPECT_EQ(Apply(FunctionSqrt, "-4 0"), undefined_);
    EXPECT_EQ(Apply(FunctionExp, "1e30 0"), (Outcome{"inf 0", CalcErrorOverflow}));
    EXPECT_EQ(Apply(FunctionRoot, "3 0", "-8 -0"), Silent("-2e0 0"));
}

TEST_F(ComplexFunctions, OfRealRefuseWhatIsNotReal) {
    for (uint32_t id = FunctionSqrt; id <= FunctionFact; id++) {
        if (id != FunctionAbs) {
            EXPECT_EQ(Apply(id, "1 1e-300"), notReal_) << id;
        }
    }
    for (const uint32_t id :
         {FunctionRoot, FunctionLogX, FunctionNcr, FunctionNpr, FunctionGcd, FunctionLcm}) {
        EXPECT_EQ(Apply(id, "2 1", "3 0"), notReal_) << id;
        EXPECT_EQ(Apply(id, "2 0", "3 1"), notReal_) << id;
    }
}

TEST_F(ComplexFunctions, OfPartsNeedNoRealValue) {
    EXPECT_EQ(Apply(FunctionAbs, "-3 4"), Silent("5e0 0"));
    EXPECT_EQ(Apply(FunctionAbs, "-3 0"), Silent("3e0 0"));
    EXPECT_EQ(Apply(FunctionRealPart, "-0 4"), Silent("-0 0"));
    EXPECT_EQ(Apply(FunctionImaginaryPart, "7 -0"), Silent("-0 0"));
    EXPECT_EQ(Apply(FunctionTrunc, "-0.5 -1.75"), Silent("-0 -1e0"));
    EXPECT_EQ(Apply(FunctionFrac, "-0.5 -2"), Silent("-5e-1 -0"));
    EXPECT_EQ(Apply(FunctionRound, "2.5 -0.04"), Silent("3e0 -0"));
}

TEST_F(ComplexFunctions, TakeTheAngleWithBothSigns) {
    EXPECT_EQ(Apply(FunctionArg, "0 0"), Silent("0 0"));
    EXPECT_EQ(Apply(FunctionArg, "0 -2"), Silent("-1.5707963267948966192e0 0"));
    EXPECT_EQ(Apply(FunctionArg, "-2 0"), Silent("3.1415926535897932385e0 0"));
    EXPECT_EQ(Apply(FunctionArg, "-2 -0"), Silent("3.1415926535897932385e0 0"));
    EXPECT_EQ(Apply(FunctionArg, "2 -0"), Silent("-0 0"));
    EXPECT_EQ(Apply(FunctionArg, "-1 -1"), Silent("-2.3561944901923449288e0 0"));
}

TEST_F(ComplexFunctions, TakeBranchesOfRoots) {
    EXPECT_EQ(Apply(FunctionComplexSqrt, "0 2", "0 0"), Silent("1e0 1e0"));
    EXPECT_EQ(Apply(FunctionComplexSqrt, "0 2", "1 -0"), Silent("-1e0 -1e0"));
    EXPECT_EQ(Apply(FunctionComplexCbrt, "8 0", "0 0"), Silent("2e0 0"));
    EXPECT_EQ(Apply(FunctionComplexRoot, "4 0", "16 0", "1 0"), Silent("-0 2e0"))
        << "on an axis, so the zero is exact; its sign is that of a turned one";
    EXPECT_EQ(Apply(FunctionComplexRoot, "1 0", "2 3", "0 0"), Silent("2e0 3e0"));
}

TEST_F(ComplexFunctions, RefuseBranchesAndDegreesOutOfBounds) {
    for (const char* branch : {"2 0", "-1 0", "0.5 0", "0 1", "1e30 0", "nan 0"}) {
        EXPECT_EQ(Apply(FunctionComplexSqrt, "-4 0", branch), undefined_) << branch;
        EXPECT_EQ(Apply(FunctionComplexRoot, "2 0", "-4 0", branch), undefined_) << branch;
    }
    EXPECT_EQ(Apply(FunctionComplexCbrt, "8 0", "3 0"), undefined_);
    for (const char* degree : {"0 0", "-2 0", "1.5 0", "2 1", "2305843009213693952 0"}) {
        EXPECT_EQ(Apply(FunctionComplexRoot, degree, "-4 0", "0 0"), undefined_) << degree;
    }
}

TEST_F(ComplexFunctions, ThatCplxDoesNotHaveGiveNaNAndNoteACode) {
    EXPECT_EQ(Apply(FunctionRoot, "1 0"), unavailable_);
    EXPECT_EQ(Apply(FunctionSqrt, "1 0", "1 0"), unavailable_);
    EXPECT_EQ(Apply(FunctionPowMod, "1 0", "1 0", "1 0"), unavailable_);
}

}  // namespace
}  // namespace tallymere
