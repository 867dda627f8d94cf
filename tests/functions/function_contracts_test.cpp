// What functions require of their caller stops a checking build.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/contract.h"
#include "functions/combinatorics.h"
#include "functions/complex_modulus.h"
#include "functions/complex_powers.h"
#include "functions/complex_roots.h"
#include "functions/exponential.h"
#include "functions/factor_range.h"
#include "functions/factorial.h"
#include "functions/grid_series.h"
#include "functions/hyperbolic.h"
#include "functions/hypotenuse.h"
#include "functions/inverse_trigonometric.h"
#include "functions/logarithm.h"
#include "functions/powers.h"
#include "functions/root_seeds.h"
#include "functions/roots.h"
#include "functions/series.h"
#include "functions/stored_constants.h"
#include "functions/tangent_table.h"
#include "functions/trigonometric.h"
#include "support/contract_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

#ifdef TALLYMERE_CHECK_CONTRACTS

class FunctionContracts : public ContractTest {};

// What a program that breaks `condition` in a file of src/functions says.
std::string Broken(const std::string& file, const std::string& condition) {
    return BrokenContract("functions", file, condition);
}

TEST_F(FunctionContracts, WantAWellFormedOperandAndTheResultTheSameOrApart) {
    struct Case {
        const char* file;
        void (*run)(RealNumber* dest, const RealNumber* x);
    };
    const Case cases[] = {
        {"exponential",
         [](RealNumber* dest, const RealNumber* x) { RealExpBase(dest, x, ExpOfE); }},
        {"logarithm", [](RealNumber* dest, const RealNumber* x) { RealLn(dest, x); }},
        {"logarithm", [](RealNumber* dest, const RealNumber* x) { RealLnSmall(dest, x); }},
        {"roots", [](RealNumber* dest, const RealNumber* x) { RealSqrt(dest, x); }},
        {"roots", [](RealNumber* dest, const RealNumber* x) { RealCbrt(dest, x); }},
        {"roots", [](RealNumber* dest, const RealNumber* x) { RealRootInt(dest, 5, x); }},
        {"powers", [](RealNumber* dest, const RealNumber* x) { RealPowerInt(dest, x, 5); }},
        {"powers", [](RealNumber* dest, const RealNumber* x) { RealPowerIntRounded(dest, x, 5); }},
        {"hyperbolic", [](RealNumber* dest, const RealNumber* x) { RealSinh(dest, x); }},
        {"hyperbolic", [](RealNumber* dest, const RealNumber* x) { RealCosh(dest, x); }},
        {"hyperbolic", [](RealNumber* dest, const RealNumber* x) { RealTanh(dest, x); }},
        {"hyperbolic", [](RealNumber* dest, const RealNumber* x) { RealAsinh(dest, x); }},
        {"hyperbolic", [](RealNumber* dest, const RealNumber* x) { RealAcosh(dest, x); }},
        {"hyperbolic", [](RealNumber* dest, const RealNumber* x) { RealAtanh(dest, x); }},
        {"inverse_trigonometric", [](RealNumber* dest, const RealNumber* x) { RealAtan(dest, x); }},
        {"inverse_trigonometric", [](RealNumber* dest, const RealNumber* x) { RealAsin(dest, x); }},
        {"inverse_trigonometric", [](RealNumber* dest, const RealNumber* x) { RealAcos(dest, x); }},
        {"trigonometric", [](RealNumber* dest, const RealNumber* x) { RealTan(dest, x); }},
        {"trigonometric", [](RealNumber* dest, const RealNumber* x) { RealSin(dest, x); }},
        {"trigonometric", [](RealNumber* dest, const RealNumber* x) { RealCos(dest, x); }},
        {"series", [](RealNumber* dest, const RealNumber* x) { SeriesExp(dest, x); }},
        {"series", [](RealNumber* dest, const RealNumber* x) { SeriesAtanh(dest, x); }},
        {"series", [](RealNumber* dest, const RealNumber* x) { SeriesAtan(dest, x); }},
        {"series", [](RealNumber* dest, const RealNumber* x) { SeriesSin(dest, x); }},
        {"series", [](RealNumber* dest, const RealNumber* x) { SeriesCos(dest, x); }},
        {"series", [](RealNumber* dest, const RealNumber* x) { SeriesSinh(dest, x); }},
        {"factorial", [](RealNumber* dest, const RealNumber* x) { RealFactorial(dest, x); }},
    };
    for (const Case& unary : cases) {
        SCOPED_TRACE(&unary - cases);
        EXPECT_DEATH(unary.run(y_, malformedX_), Broken(unary.file, "RealIsWellFormed"));
        EXPECT_DEATH(unary.run(shiftedX_, x_), Broken(unary.file, "Apart"));
    }
    EXPECT_DEATH(AtanShift(malformedX_, 1, 21),
                 Broken("inverse_trigonometric", "RealIsWellFormed"));
}

TEST_F(FunctionContracts, WantTwoWellFormedOperandsAndTheResultTheSameOrApart) {
    struct Case {
        const char* file;
        void (*run)(RealNumber* dest, const RealNumber* a, const RealNumber* b);
    };
    const Case cases[] = {
        {"logarithm",
         [](RealNumber* dest, const RealNumber* a, const RealNumber* b) { RealLog(dest, a, b); }},
        {"powers",
         [](RealNumber* dest, const RealNumber* a, const RealNumber* b) { RealPower(dest, a, b); }},
        {"roots",
         [](RealNumber* dest, const RealNumber* a, const RealNumber* b) { RealRoot(dest, a, b); }},
        {"hypotenuse",
         [](RealNumber* dest, const RealNumber* a, const RealNumber* b) { RealHypot(dest, a, b); }},
        {"inverse_trigonometric",
         [](RealNumber* dest, const RealNumber* a, const RealNumber* b) { RealAtan2(dest, a, b); }},
        {"combinatorics",
         [](RealNumber* dest, const RealNumber* a, const RealNumber* b) { RealGcd(dest, a, b); }},
        {"combinatorics",
         [](RealNumber* dest, const RealNumber* a, const RealNumber* b) { RealLcm(dest, a, b); }},
    };
    for (const Case& binary : cases) {
        SCOPED_TRACE(&binary - cases);
        EXPECT_DEATH(binary.run(y_, malformedX_, x_), Broken(binary.file, "RealIsWellFormed"));
        EXPECT_DEATH(binary.run(y_, x_, malformedX_), Broken(binary.file, "RealIsWellFormed"));
        EXPECT_DEATH(binary.run(shiftedX_, x_, y_), Broken(binary.file, "RealSameOrApart"));
        EXPECT_DEATH(binary.run(shiftedX_, y_, x_), Broken(binary.file, "RealSameOrApart"));
    }
}

TEST_F(FunctionContracts, WantTwoResultsApart) {
    RealNumber* const other = ImaginaryPart(w_);
    RealNumber* const shiftedY = RealAt(&y_->header + 1);
    RealSinCos(y_, other, x_);
    for (auto* run : {SeriesSinCos, SeriesSinhCosh}) {
        run(y_, other, x_);
        const std::string apart = Broken("series", "RealOutputsAreApart");
        EXPECT_DEATH(run(y_, other, malformedX_), Broken("series", "RealIsWellFormed"));
        EXPECT_DEATH(run(y_, y_, x_), apart);
        EXPECT_DEATH(run(y_, shiftedY, x_), apart);
        EXPECT_DEATH(run(shiftedX_, y_, x_), apart);
        EXPECT_DEATH(run(y_, shiftedX_, x_), apart);
    }
    const std::string apart = Broken("trigonometric", "RealOutputsAreApart");
    EXPECT_DEATH(RealSinCos(y_, y_, x_), apart);
    EXPECT_DEATH(RealSinCos(y_, shiftedY, x_), apart);
    EXPECT_DEATH(RealSinCos(y_, shiftedX_, x_), apart);
}

TEST_F(FunctionContracts, OfComplexNumbersLookAtBothParts) {
    const auto dies = [this](const char* file, auto run) {
        EXPECT_DEATH(run(w_, malformed_), Broken(file, "ComplexIsWellFormed"));
        EXPECT_DEATH(run(shifted_, z_), Broken(file, "ComplexSameOrApart"));
    };
    dies("complex_modulus", ComplexAbs);
    dies("complex_powers",
         [](ComplexNumber* dest, const ComplexNumber* z) { ComplexPowerInt(dest, z, 0); });
    dies("complex_powers", [this](ComplexNumber* dest, const ComplexNumber* z) {
        ComplexPower(dest, z, z == z_ ? w_ : z_);
    });
    dies("complex_powers", [this](ComplexNumber* dest, const ComplexNumber* y) {
        ComplexPower(dest, y == z_ ? w_ : z_, y);
    });
    const RealBuffer one("1");
    dies("complex_roots", [&](ComplexNumber* dest, const ComplexNumber* z) {
        ComplexRootBranch(dest, one, z, one);
    });
    dies("complex_roots",
         [&](ComplexNumber* dest, const ComplexNumber* z) { ComplexSqrtBranch(dest, z, one); });
    dies("complex_roots",
         [&](ComplexNumber* dest, const ComplexNumber* z) { ComplexCbrtBranch(dest, z, one); });
    const std::string wellFormed = Broken("complex_roots", "RealIsWellFormed");
    EXPECT_DEATH(ComplexRootBranch(w_, malformedX_, z_, one), wellFormed);
    EXPECT_DEATH(ComplexRootBranch(w_, one, z_, malformedX_), wellFormed);
    EXPECT_DEATH(ComplexSqrtBranch(w_, z_, malformedX_), wellFormed);
}

TEST_F(FunctionContracts, WantArgumentsInRange) {
    EXPECT_DEATH(RealExpBase(x_, x_, static_cast<ExpMode>(3)), Broken("exponential", "ExpOfTwo"));
    EXPECT_DEATH(FactorialCutoverAt(0), Broken("factorial", "p >= 1"));
    EXPECT_DEATH(RealProductFactorial(x_, -1), Broken("factorial", "n >= 0"));
    EXPECT_DEATH(RealStirlingFactorial(x_, 0), Broken("factorial", "n >= 1"));
    // Without the contract the product would go on for ever.
    uint8_t stop = 1;
    FieldScope<uint8_t*> stopped(numberContext.abortFlag, &stop);
    EXPECT_DEATH(RealMulRange(x_, 0, 1), Broken("factor_range", "from >= 1"));
    EXPECT_DEATH(RealMulRange(x_, 2, UINT64_MAX), Broken("factor_range", "to < UINT64_MAX"));
    EXPECT_DEATH(RealMulRange(malformedX_, 2, 1), Broken("factor_range", "RealIsWellFormed"));
    EXPECT_DEATH(AddConstantMultiple(x_, ConstLn2, 0), Broken("stored_constants", "k != 0"));
    EXPECT_DEATH(AddConstantMultiple(malformedX_, ConstLn2, 1),
                 Broken("stored_constants", "RealIsWellFormed"));
    const uint64_t unit = PowerOfTen(18);
    EXPECT_DEATH(SquareRootSeed(unit - 1), Broken("root_seeds", "m >= PowerOfTen"));
    EXPECT_DEATH(SquareRootSeed(4 * unit), Broken("root_seeds", "m < 4"));
    EXPECT_DEATH(CubeRootSeed(unit - 1), Broken("root_seeds", "m >= PowerOfTen"));
    EXPECT_DEATH(CubeRootSeed(8 * unit), Broken("root_seeds", "m < 8"));
}

TEST_F(FunctionContracts, OfTheGridWantNumbersAndDivisorsInRange) {
    CoreScratchScope scratch;
    const std::string wellFormed = Broken("grid_series", "RealIsWellFormed");
    EXPECT_DEATH(GridCanHold(malformedX_, x_, x_), wellFormed);
    EXPECT_DEATH(GridCanHold(x_, malformedX_, x_), wellFormed);
    EXPECT_DEATH(GridCanHold(x_, x_, malformedX_), wellFormed);
    EXPECT_DEATH(MakeGridTerm(scratch, malformedX_, x_), wellFormed);
    EXPECT_DEATH(MakeGridTerm(scratch, x_, malformedX_), wellFormed);
    EXPECT_DEATH(MakeGridFactor(scratch, malformedX_), wellFormed);
    GridTerm term = MakeGridTerm(scratch, x_, x_);
    EXPECT_DEATH(GridQuotient(term, term, 0), Broken("grid_series", "d >= 1"));
    EXPECT_DEATH(GridQuotient(term, term, UintDivisorLimit),
                 Broken("grid_series", "d < UintDivisorLimit"));
}

TEST_F(FunctionContracts, OfTheTangentTableWantItsLayout) {
    TangentTableScope scope;
    TangentTable none = scope.Table();
    none.rows = nullptr;
    EXPECT_DEATH(TangentStep(none), Broken("tangent_table", "table.rows != nullptr"));
    for (const int64_t digits : {16, 76}) {
        RealLayoutScope layout;
        InstallRealLayout(LayoutForDigits(digits));
        EXPECT_DEATH(TangentStep(scope.Table()), Broken("tangent_table", "table.rowWords"));
    }
    RealLayoutScope layout;
    InstallRealLayout(LayoutForDigits(57));
    EXPECT_DEATH(TangentStep(scope.Table()), Broken("tangent_table", "RealIsWellFormed"));
}

#else

TEST(FunctionContracts, AreGoneFromOtherBuilds) {
    EXPECT_EQ(FactorialCutoverAt(0), FactorialCutoverAt(1));
}

#endif

}  // namespace
}  // namespace tallymere
