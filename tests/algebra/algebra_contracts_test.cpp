// What solvers and their steps require of their caller stops a checking build.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "algebra/center_refinement.h"
#include "algebra/exact_equation_testing.h"
#include "algebra/exact_formulas.h"
#include "algebra/exact_root.h"
#include "algebra/exact_root_text.h"
#include "algebra/exact_roots.h"
#include "algebra/exponent_scaling.h"
#include "algebra/linear_system.h"
#include "algebra/newton_polygon.h"
#include "algebra/polynomial_roots.h"
#include "algebra/rational_roots.h"
#include "algebra/residue_structure.h"
#include "algebra/root_digits.h"
#include "algebra/root_enclosure.h"
#include "algebra/square_factor.h"
#include "core/contract.h"
#include "support/contract_testing.h"
#include "support/equation_testing.h"
#include "support/formula_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

#ifdef TALLYMERE_CHECK_CONTRACTS

// What a program that breaks `condition` in a file of src/algebra says.
std::string Broken(const std::string& file, const std::string& condition) {
    return BrokenContract("algebra", file, condition);
}

// Numbers of the sweeps: x^2 - 2, with room for its roots.
class RootContracts : public ::testing::Test {
protected:
    RootContracts() {
        cluster_.layout = CurrentRealLayout();
        clusters_.count = 1;
        clusters_.clusters[0] = cluster_;
    }

    Polynomial With(const ComplexNumber* constant, const ComplexNumber* highest) {
        Polynomial polynomial = polynomial_;
        polynomial.coefficients[0] = const_cast<ComplexNumber*>(constant);
        polynomial.coefficients[2] = const_cast<ComplexNumber*>(highest);
        return polynomial;
    }

    ScratchStackOwner stack_;
    PrecisionScope scope_{SweepDigits};
    ComplexBuffer zero_{"0 0"};
    ComplexBuffer one_{"1 0"};
    ComplexBuffer minusTwo_{"-2 0"};
    ComplexBuffer infinite_{"1 inf"};
    ComplexBuffer center_{"1.4 0"};
    Polynomial polynomial_{2, CurrentRealLayout(), {minusTwo_, zero_, one_}};
    Polynomial constant_{0, CurrentRealLayout(), {one_}};
    CoefficientErrors errors_{};
    RootCluster cluster_{center_, {}, MakeMagnitude(0.1), 1, true};
    RootClusters clusters_{};
    RootEnclosure enclosure_{};
};

TEST_F(RootContracts, OfAllStepsIsThatThePolynomialIsWellFormed) {
    const Polynomial wrong[] = {With(minusTwo_, zero_), With(infinite_, one_)};
    for (Polynomial polynomial : wrong) {
        int64_t order = 0;
        EXPECT_DEATH(ScaleExponents(polynomial, &order),
                     Broken("exponent_scaling", "PolynomialIsWellFormed"));
        EXPECT_DEATH(CountDistinctRoots(polynomial),
                     Broken("residue_structure", "PolynomialIsWellFormed"));
        EXPECT_DEATH(CountMirroredRoots(polynomial, NumberPart::Real, RealPart(one_.Get())),
                     Broken("residue_structure", "PolynomialIsWellFormed"));
        EXPECT_DEATH(SeparateRoots(clusters_, polynomial, errors_),
                     Broken("root_clusters", "PolynomialIsWellFormed"));
        ComplexNumber* roots[] = {center_, center_};
        const RootProblem problem{polynomial, {}, 2};
        EXPECT_DEATH(IterateRoots(roots, problem),
                     Broken("simultaneous_iteration", "ProblemIsWellFormed"));
    }
}

TEST_F(RootContracts, OfMostStepsIsThatThereIsARootOtherThanZero) {
    Polynomial withZero = With(zero_, one_);
    int64_t order = 0;
    EXPECT_DEATH(ScaleExponents(withZero, &order), Broken("exponent_scaling", "ComplexIsZero"));
    EXPECT_DEATH(SeparateRoots(clusters_, withZero, errors_),
                 Broken("root_clusters", "ComplexIsZero"));
    EXPECT_DEATH(ScaleExponents(constant_, &order), Broken("exponent_scaling", "degree >= 1"));
    EXPECT_DEATH(CountDistinctRoots(constant_), Broken("residue_structure", "degree >= 1"));
    EXPECT_DEATH(SeparateRoots(clusters_, constant_, errors_),
                 Broken("root_clusters", "degree >= 1"));
    EXPECT_DEATH(
        CountMirroredRoots(polynomial_, NumberPart::Imaginary, ImaginaryPart(infinite_.Get())),
        Broken("residue_structure", "RealIsFinite"));
}

TEST_F(RootContracts, OfDiscsIsThatCountsAreNoLargerThanTheDegree) {
    const Magnitude sizes[MaxEquationDegree + 1] = {};
    Magnitude radius;
    EXPECT_DEATH(FindPelletRadius(&radius, sizes, MakeMagnitude(1), 2, 3),
                 Broken("root_discs", "count <= degree"));
    EXPECT_DEATH(FindPelletRadius(&radius, sizes, MakeMagnitude(1), 2, -1),
                 Broken("root_discs", "count >= 0"));
    EXPECT_DEATH(FindPelletRadius(&radius, sizes, MakeMagnitude(1), MaxEquationDegree + 1, 1),
                 Broken("root_discs", "degree <= MaxEquationDegree"));
    ComplexNumber* roots[] = {center_, center_, center_};
    RootDisc discs[3] = {};
    for (const int64_t count : {0, 3}) {
        EXPECT_DEATH(FindDiscs(discs, roots, {polynomial_, {}, count}),
                     Broken("root_discs", "ProblemIsWellFormed"));
        EXPECT_DEATH(IterateRoots(roots, {polynomial_, {}, count}),
                     Broken("simultaneous_iteration", "ProblemIsWellFormed"));
    }
    const PrecisionScope other(50);
    EXPECT_DEATH(FindDiscs(discs, roots, {polynomial_, {}, 2}),
                 Broken("root_discs", "ProblemIsWellFormed"));
    ComplexNumber* starts[] = {center_, center_};
    EXPECT_DEATH(ChooseStarts(starts, sizes, 2), Broken("newton_polygon", "IsZero"));
}

TEST_F(RootContracts, OfClustersIsThatTheirMultiplicityIsOneToTheDegree) {
    for (const int64_t multiplicity : {0, 3}) {
        cluster_.multiplicity = multiplicity;
        EXPECT_DEATH(RefineCenter(cluster_, polynomial_, SweepDigits),
                     Broken("center_refinement", "ClusterIsWellFormed"));
        EXPECT_DEATH(TightenDisc(cluster_, polynomial_),
                     Broken("root_clusters", "ClusterIsWellFormed"));
        EXPECT_DEATH(EncloseRoot(enclosure_, cluster_, polynomial_, errors_, {false, false}),
                     Broken("root_enclosure", "ClusterIsWellFormed"));
    }
    cluster_.multiplicity = 1;
    EXPECT_DEATH(RefineCenter(cluster_, polynomial_, 0),
                 Broken("center_refinement", "digits >= 1"));
    EXPECT_DEATH(RefineCenter(cluster_, polynomial_, MostRootDigits + 1),
                 Broken("center_refinement", "digits <= MostRootDigits"));
    cluster_.isOneRoot = false;
    EXPECT_DEATH(EncloseRoot(enclosure_, cluster_, polynomial_, errors_, {false, false}),
                 Broken("root_enclosure", "isOneRoot"));
}

TEST_F(RootContracts, OfDigitsIsThatTheRootsAreSeparated) {
    ComplexNumber* values[] = {center_};
    EXPECT_DEATH(RoundRoots(values, clusters_, polynomial_, errors_, 0),
                 Broken("root_digits", "digits >= 1"));
    EXPECT_DEATH(RoundRoots(values, clusters_, polynomial_, errors_, MostRootDigits + 1),
                 Broken("root_digits", "digits <= MostRootDigits"));
    clusters_.clusters[0].isOneRoot = false;
    EXPECT_DEATH(RoundRoots(values, clusters_, polynomial_, errors_, 10),
                 Broken("root_digits", "AllAreSeparated"));
    clusters_.count = 0;
    EXPECT_DEATH(RoundRoots(values, clusters_, polynomial_, errors_, 10),
                 Broken("root_digits", "count >= 1"));
}

TEST_F(RootContracts, OfErrorsIsThatNoMoreDigitsAreKnownThanMakeAPartExact) {
    EXPECT_DEATH(FindCoefficientErrors(polynomial_, {20, 21}),
                 Broken("coefficient_errors", "known <= counts.exact"));
    EXPECT_DEATH(FindCoefficientErrors(polynomial_, {20, 0}),
                 Broken("coefficient_errors", "known >= 1"));
    EXPECT_DEATH(FindPartShifts(errors_, 2, 3, center_, center_),
                 Broken("coefficient_errors", "order <= degree"));
    EXPECT_DEATH(FindPartShifts(errors_, 2, -1, center_, center_),
                 Broken("coefficient_errors", "order >= 0"));
}

TEST_F(RootContracts, OfMagnitudesIsThatTheyAreNumbers) {
    EXPECT_DEATH(MakeMagnitude(-1), Broken("magnitude", "value >= 0"));
    EXPECT_DEATH(MagnitudeOf(ImaginaryPart(infinite_.Get())), Broken("magnitude", "RealIsZero"));
    EXPECT_DEATH(MakeMagnitude(1) / Magnitude{}, Broken("magnitude", "IsZero"));
    EXPECT_DEATH(Root(MakeMagnitude(1), 0), Broken("magnitude", "n >= 1"));
    ScratchStackScope scope;
    EXPECT_DEATH(MakeDerivative(scope, polynomial_, 3),
                 Broken("polynomial", "order <= polynomial.degree"));
}

TEST_F(RootContracts, OfTheSolverIsThatNumbersAreWellFormed) {
    EXPECT_DEATH(RootWorkingDigits(-1, 10), Broken("polynomial_roots", "degree >= 0"));
    EXPECT_DEATH(RootWorkingDigits(2, 0), Broken("polynomial_roots", "digits >= 1"));
    EXPECT_DEATH(MaxRootDigits(-1), Broken("polynomial_roots", "degree >= 0"));
    SolutionBuffer solutions;
    RealSetOne(ImaginaryPart(infinite_.Get()));
    RealLimbs(ImaginaryPart(infinite_.Get()))[1] = LimbBase;
    EXPECT_DEATH(SolvePolynomial(solutions, {1, {one_, infinite_}}, 10, 0),
                 Broken("polynomial_roots", "CoefficientsAreWellFormed"));
}

TEST_F(RootContracts, OfSolutionsIsThatTheyAreWellFormedAndInOrder) {
    SolutionBuffer solutions({"2 0", "1 0"});
    EXPECT_DEATH(MergeEqualRoots(solutions), Broken("solution_set", "RootsAreInOrder"));
    EXPECT_DEATH(DropNonRealRoots(solutions), Broken("solution_set", "RootsAreInOrder"));
    solutions.Set().multiplicities[1] = 0;
    EXPECT_DEATH(SortRoots(solutions), Broken("solution_set", "SolutionSetIsWellFormed"));
    EXPECT_DEATH(MergeEqualRoots(solutions), Broken("solution_set", "SolutionSetIsWellFormed"));
    EXPECT_DEATH(DropNonRealRoots(solutions), Broken("solution_set", "SolutionSetIsWellFormed"));
}

// Of the exact steps.
class ExactContracts : public ::testing::Test {
protected:
    ScratchStackOwner stack_;
    EquationScope scope_{40};
    SolutionBuffer solutions_{std::vector<std::string>{"1 0", "2 0"}};
    PolynomialBuffer linear_{{"1", "-2"}};
    PolynomialBuffer quadratic_{{"1", "0", "-2"}};
    RationalBuffer half_{"1/2"};
    RationalBuffer zero_{"0"};
    std::vector<uint64_t> radicand_ = std::vector<uint64_t>(FactorLimbs);
};

TEST_F(ExactContracts, AreThatTheWidthIsThatOfFactors) {
    const WidthScope wide(FactorLimbs + 1);
    EXPECT_DEATH(SolveExactEquation(solutions_, quadratic_, 10, 0),
                 Broken("exact_roots", "uintLimbs == FactorLimbs"));
    EXPECT_DEATH(FindExactRoots(solutions_, quadratic_, 10),
                 Broken("rational_roots", "uintLimbs == FactorLimbs"));
    EXPECT_DEATH(SolveExactLinear(solutions_, linear_, 0, 10),
                 Broken("exact_formulas", "uintLimbs == FactorLimbs"));
    EXPECT_DEATH(SolveExactQuadratic(solutions_, quadratic_, 0, 1, 10),
                 Broken("exact_formulas", "uintLimbs == FactorLimbs"));
    EXPECT_DEATH(SplitSquareFactor(radicand_.data(), radicand_.data(), radicand_.data()),
                 Broken("square_factor", "uintLimbs == FactorLimbs"));
}

TEST_F(ExactContracts, AreThatTheDegreeFits) {
    const PolynomialBuffer constant({"1"});
    const PolynomialBuffer without({"0", "1"});
    EXPECT_DEATH(SolveExactLinear(solutions_, quadratic_, 0, 10),
                 Broken("exact_formulas", "degree == 1"));
    EXPECT_DEATH(SolveExactQuadratic(solutions_, linear_, 0, 1, 10),
                 Broken("exact_formulas", "degree == 2"));
    EXPECT_DEATH(SolveExactEquation(solutions_, constant, 10, 0),
                 Broken("exact_roots", "degree >= 1"));
    EXPECT_DEATH(SolveExactEquation(solutions_, without, 10, 0),
                 Broken("exact_roots", "ExactPolynomialIsWellFormed"));
    EXPECT_DEATH(FindExactRoots(solutions_, without, 10),
                 Broken("rational_roots", "ExactPolynomialIsWellFormed"));
    EXPECT_DEATH(FindExactRoots(solutions_, linear_, 10),
                 Broken("rational_roots", "count <= list.degree"));
    PolynomialBuffer quotient(int64_t{1});
    EXPECT_DEATH(DeflateByRoot(quotient, constant, half_),
                 Broken("exact_polynomial", "degree >= 1"));
    EXPECT_DEATH(ClearDenominators(quotient, without),
                 Broken("exact_polynomial", "ExactPolynomialIsWellFormed"));
}

TEST_F(ExactContracts, AreThatDigitsAreInForce) {
    EXPECT_DEATH(SolveExactEquation(solutions_, quadratic_, MinExactDigits - 1, 0),
                 Broken("exact_roots", "digits >= MinExactDigits"));
    for (const int64_t digits : {MinExactDigits - 1, int64_t{41}}) {
        EXPECT_DEATH(FindExactRoots(solutions_, quadratic_, digits),
                     Broken("rational_roots", "digits"));
    }
    ComplexBuffer value;
    for (const int64_t digits : {0, 41}) {
        EXPECT_DEATH(SolveExactLinear(solutions_, linear_, 0, digits),
                     Broken("exact_formulas", "digits"));
        EXPECT_DEATH(SolveExactQuadratic(solutions_, quadratic_, 0, 1, digits),
                     Broken("exact_formulas", "digits"));
        EXPECT_DEATH(ExactRootToComplex(value, FractionRoot(half_), digits),
                     Broken("exact_root", "digits"));
    }
}

TEST_F(ExactContracts, AreThatSlotsAreInUseAndDifferentAndWithoutTexts) {
    for (const int64_t slot : {-1, 2}) {
        EXPECT_DEATH(SolveExactLinear(solutions_, linear_, slot, 10),
                     Broken("exact_formulas", "slot"));
        EXPECT_DEATH(SolveExactQuadratic(solutions_, quadratic_, slot, 1, 10),
                     Broken("exact_formulas", "slot1"));
        EXPECT_DEATH(SolveExactQuadratic(solutions_, quadratic_, 1, slot, 10),
                     Broken("exact_formulas", "slot2"));
        EXPECT_DEATH(PutExactRoot(solutions_, slot, FractionRoot(half_), 10),
                     Broken("exact_root", "slot"));
    }
    EXPECT_DEATH(SolveExactQuadratic(solutions_, quadratic_, 1, 1, 10),
                 Broken("exact_formulas", "slot2 != slot1"));
    solutions_.Set().exactTexts[1][0] = u'1';
    solutions_.Set().exactTexts[1][1] = u'\0';
    EXPECT_DEATH(FindExactRoots(solutions_, quadratic_, 10),
                 Broken("rational_roots", "AllTextsAreEmpty"));
}

TEST_F(ExactContracts, AreThatARootHasNoTermThatIsNone) {
    char16_t text[ExactTextCapacity + 1];
    ComplexBuffer value;
    const auto expectBroken = [&](const ExactRoot& root) {
        EXPECT_DEATH(WriteExactRoot(text, root),
                     Broken("exact_root_text", "ExactRootIsWellFormed"));
        EXPECT_DEATH(ExactRootToComplex(value, root, 10),
                     Broken("exact_root", "ExactRootIsWellFormed"));
    };
    radicand_[0] = 2;
    expectBroken({half_, zero_, radicand_.data(), false});
    radicand_[0] = 1;
    EXPECT_TRUE(ExactRootIsWellFormed({half_, half_, radicand_.data(), true}));
    expectBroken({half_, half_, radicand_.data(), false});
    radicand_[0] = 0;
    expectBroken({half_, half_, radicand_.data(), true});
}

TEST(LinearContracts, AreThatAValueOfZeroHasNoError) {
    const ScratchStackOwner stack;
    const FormulaScope scope(50, NumberTypeReal);
    const ScratchStackScope scratch;
    LinearSystem system = TakeLinearSystem(CurrentScratchStack(), 2);
    LinearSolution solution = TakeLinearSolution(CurrentScratchStack(), 2);
    system.errors[1][2] = MakeMagnitude(1, -40);
    EXPECT_DEATH(SolveLinearSystem(system, solution, 10),
                 Broken("linear_system", "ZerosHaveNoError"));
}

#endif

}  // namespace
}  // namespace tallymere
