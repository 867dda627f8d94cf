// The steps on the way to roots: what each promises by itself.
#include <gtest/gtest.h>

#include <cmath>

#include "algebra/center_refinement.h"
#include "algebra/exponent_scaling.h"
#include "algebra/newton_polygon.h"
#include "algebra/root_enclosure.h"
#include "core/stop_request.h"
#include "support/equation_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

class RootSteps : public ::testing::Test {
protected:
    RootSteps() { InstallRealLayout(LayoutForDigits(SweepDigits)); }

    // A polynomial of coefficients as RootsOf takes them, in the layout in force.
    Polynomial Make(const std::vector<std::string>& coefficients) {
        Polynomial polynomial{
            static_cast<int64_t>(coefficients.size()) - 1, CurrentRealLayout(), {}};
        values_.clear();
        for (const std::string& text : coefficients) {
            values_.emplace_back(text.find(' ') == std::string::npos ? text + " 0" : text);
        }
        for (size_t i = 0; i < values_.size(); i++) {
            polynomial.coefficients[i] = values_[i];
        }
        return polynomial;
    }

private:
    ScratchStackOwner stack_;
    RealLayoutScope layout_;
    std::vector<ComplexBuffer> values_;
};

double ValueOf(Magnitude a) {
    return a.mantissa * std::pow(10.0, static_cast<double>(a.exponent));
}

TEST_F(RootSteps, MagnitudesAreNumbersWithoutAnEnd) {
    const Magnitude large = MakeMagnitude(2, 3'000'000'000'000);
    EXPECT_EQ((large * large).exponent, 6'000'000'000'000);
    EXPECT_EQ((large / large).mantissa, 1);
    EXPECT_DOUBLE_EQ(Root(large * large, 2).mantissa, 2);
    EXPECT_DOUBLE_EQ(ValueOf(MakeMagnitude(0.0625)), 0.0625);
    EXPECT_DOUBLE_EQ(ValueOf(MakeMagnitude(12.5) + MakeMagnitude(0.5)), 13);
    EXPECT_DOUBLE_EQ(ValueOf(Excess(MakeMagnitude(12.5), MakeMagnitude(0.5))), 12);
    EXPECT_TRUE(IsZero(Excess(MakeMagnitude(1), MakeMagnitude(2))));
    EXPECT_TRUE(IsZero(Excess(MakeMagnitude(1), MakeMagnitude(1))));
    EXPECT_DOUBLE_EQ(ValueOf(Root(MakeMagnitude(1e-6), 3)), 0.01);
    EXPECT_TRUE(Magnitude{} < MakeMagnitude(1, -1'000'000));
    EXPECT_FALSE(IsSurelyBelow(MakeMagnitude(1), MakeMagnitude(1 + 1e-12)));
    EXPECT_TRUE(IsSurelyBelow(MakeMagnitude(1), MakeMagnitude(1 + 1e-6)));
    EXPECT_DOUBLE_EQ(ValueOf(MagnitudeOf(ComplexBuffer("3 -4"))), 5);
    EXPECT_DOUBLE_EQ(MagnitudeOf(RealBuffer("-2.5e-100000")).mantissa, 2.5);
    RealBuffer x;
    RealFromMagnitude(x, MakeMagnitude(2.5, -77), 1);
    EXPECT_EQ(PlainText(x), "-2.5e-77");
    RealFromDouble(x, -0.25, 300);
    EXPECT_EQ(PlainText(x), "-2.5e299");
}

TEST_F(RootSteps, ExponentsComeNearToZero) {
    Polynomial polynomial = Make({"-1e1000000000000000000", "7e-4000000000000000000", "2e10"});
    int64_t order = 0;
    ASSERT_TRUE(ScaleExponents(polynomial, &order));
    EXPECT_EQ(order, 499'999'999'999'999'995);
    EXPECT_EQ(PlainText(polynomial.coefficients[0]), "-1e0 0");
    EXPECT_EQ(PlainText(polynomial.coefficients[1]), "0 0");
    EXPECT_EQ(PlainText(polynomial.coefficients[2]), "2e0 0");
    Polynomial steep = Make({"1", "1e1000000000000000000", "1"});
    EXPECT_FALSE(ScaleExponents(steep, &order));
}

TEST_F(RootSteps, StartsHaveTheSizesOfTheRoots) {
    // (x - 10^-300)(x - 1)^2 (x - 10^300), about.
    const Magnitude sizes[] = {MakeMagnitude(1), MakeMagnitude(1, 300), MakeMagnitude(1, 300),
                               MakeMagnitude(1, 300), MakeMagnitude(1)};
    std::vector<ComplexBuffer> starts(4);
    ComplexNumber* pointers[] = {starts[0], starts[1], starts[2], starts[3]};
    ChooseStarts(pointers, sizes, 4);
    const int64_t orders[] = {-300, 0, 0, 300};
    for (size_t i = 0; i < 4; i++) {
        const Magnitude scaled = MagnitudeOf(starts[i]) * MakeMagnitude(1, -orders[i]);
        EXPECT_NEAR(ValueOf(scaled), 1, 1e-9) << i;
    }
}

TEST_F(RootSteps, DiscsHoldTheRootsThatTheyAreSaidTo) {
    // x^2 (x - 1), with small errors: two roots near 0.
    const Magnitude sizes[] = {MakeMagnitude(1e-8), MakeMagnitude(1e-8), MakeMagnitude(1),
                               MakeMagnitude(1)};
    Magnitude radius;
    ASSERT_TRUE(FindPelletRadius(&radius, sizes, MakeMagnitude(1), 3, 2));
    EXPECT_GT(ValueOf(radius), 1e-4);
    EXPECT_LT(ValueOf(radius), 1e-3);
    EXPECT_FALSE(FindPelletRadius(&radius, sizes, MakeMagnitude(1e-8), 3, 1));
    EXPECT_FALSE(FindPelletRadius(&radius, sizes, {}, 3, 2));
}

TEST_F(RootSteps, EnclosuresKeepSmallPartsApart) {
    // x^2 - 2 10^-90 x + 1 at 10^-90 + i.
    const Polynomial polynomial = Make({"1", "-2e-90", "1"});
    ComplexBuffer center("1e-90 1");
    RootCluster cluster{center, CurrentRealLayout(), MakeMagnitude(1e-20), 1, true};
    RootEnclosure enclosure{};
    ASSERT_TRUE(EncloseRoot(enclosure, cluster, polynomial,
                            FindCoefficientErrors(polynomial, {SweepDigits, SweepDigits}),
                            {false, false}));
    EXPECT_TRUE(enclosure.proven);
    EXPECT_LT(enclosure.radii.real.exponent, -90 - 30);
    EXPECT_LT(enclosure.radii.imaginary.exponent, -30);
    EXPECT_GT(enclosure.radii.imaginary.exponent, -45);
    // A disc without a root proves nothing.
    ComplexBuffer elsewhere("0.5 1");
    RootCluster empty{elsewhere, CurrentRealLayout(), MakeMagnitude(1e-3), 1, true};
    ASSERT_TRUE(EncloseRoot(enclosure, empty, polynomial,
                            FindCoefficientErrors(polynomial, {SweepDigits, SweepDigits}),
                            {false, false}));
    EXPECT_FALSE(enclosure.proven);
}

TEST_F(RootSteps, CoefficientsThatGoOnHaveErrors) {
    const std::string third(38, '3');
    const Polynomial polynomial =
        Make({"0." + third, "0.5 -0." + third, "1.0000000000000000000000000000000000001",
              "12345678901234567890", "123456789012345678901"});
    const CoefficientErrors errors = FindCoefficientErrors(polynomial, {20, 20});
    EXPECT_TRUE(errors.any);
    EXPECT_EQ(errors.knownDigits, 20);
    EXPECT_EQ(errors.real[0].exponent, -20);
    EXPECT_EQ(errors.real[0].mantissa, 1);
    EXPECT_TRUE(IsZero(errors.imaginary[0]));
    EXPECT_TRUE(IsZero(errors.real[1]));
    EXPECT_EQ(errors.imaginary[1].exponent, -20);
    EXPECT_EQ(errors.real[2].exponent, -19);
    EXPECT_TRUE(IsZero(errors.real[3]));
    EXPECT_EQ(errors.real[4].exponent, 1);
    // Fewer digits may be known than make a part exact.
    const CoefficientErrors rough = FindCoefficientErrors(polynomial, {20, 5});
    EXPECT_EQ(rough.knownDigits, 5);
    EXPECT_EQ(rough.real[0].exponent, -5);
    EXPECT_TRUE(IsZero(rough.real[3]));
    EXPECT_EQ(rough.real[4].exponent, 16);
    // The digit that tells lies at either side of the end of a limb.
    for (int64_t known = 1; known < 40; known++) {
        const CoefficientErrors last = FindCoefficientErrors(polynomial, {known, known});
        EXPECT_EQ(IsZero(last.real[2]), known >= 38) << known;
        EXPECT_EQ(IsZero(last.real[3]), known >= 19) << known;
        EXPECT_EQ(IsZero(last.real[4]), known >= 21) << known;
    }
    EXPECT_FALSE(FindCoefficientErrors(Make({"1", "2.5", "3"}), {2, 2}).any);
    EXPECT_TRUE(FindCoefficientErrors(Make({"1", "2.5", "3"}), {1, 1}).any);
}

TEST_F(RootSteps, HearAStopEach) {
    const Polynomial polynomial = Make({"1", "-2", "3"});
    const CoefficientErrors errors = FindCoefficientErrors(polynomial, {SweepDigits, SweepDigits});
    RootProblem problem{polynomial, {}, 2};
    ComplexBuffer first("1 1");
    ComplexBuffer second("1 -1");
    ComplexNumber* roots[] = {first, second};
    ComplexBuffer centers[2];
    RootDisc discs[] = {{centers[0], {}, 0}, {centers[1], {}, 0}};
    std::vector<uint64_t> room(2'000);
    ComplexCopy(ComplexAt(room.data()), first);
    RootCluster cluster{ComplexAt(room.data()), CurrentRealLayout(), MakeMagnitude(1), 1, true};
    RootEnclosure enclosure{};
    ComplexBuffer value;
    for (const bool stops : {false, true}) {
        if (stops) {
            RequestStop();
        }
        EXPECT_EQ(EvaluatePolynomial(value, nullptr, polynomial, first), !stops);
        EXPECT_EQ(IterateRoots(roots, problem), !stops);
        EXPECT_EQ(FindDiscs(discs, roots, problem) < 0, stops);
        EXPECT_EQ(RefineCenter(cluster, polynomial, SweepDigits), !stops);
        EXPECT_EQ(EncloseRoot(enclosure, cluster, polynomial, errors, {false, false}), !stops);
        EXPECT_EQ(TightenDisc(cluster, polynomial), !stops);
    }
    ClearStopRequest();
}

}  // namespace
}  // namespace tallymere
