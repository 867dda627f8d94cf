#include "algebra/polynomial_bounds.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "algebra/polynomial_testing.h"
#include "support/formula_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

using enum PolyOperator;

// A calculation with these operands, all of them taken.
struct Calculation {
    Calculation(PolyOperator operation, const std::vector<std::string>& operands)
        : record(TakePolyCalculation(scope, operation, static_cast<int32_t>(operands.size()), 10)) {
        for (const std::string& operand : operands) {
            SetPolynomial(NextOperand(record), operand);
            EXPECT_EQ(ApplyOperand(record), PolyOutcome::Done);
        }
    }
    PolynomialBounds Bounds() const { return FindPolynomialBounds(record); }

    ScratchStackScope scope;
    PolyCalculation record;
};

bool AreBounded(const std::vector<std::string>& operands) {
    const Calculation calculation(Plus, operands);
    TakeCode();
    return OperandsAreBounded(calculation.record);
}

double ValueOf(Magnitude a) {
    return a.mantissa * std::pow(10.0, static_cast<double>(a.exponent));
}

// The sizes from the highest that is not 0 down.
std::vector<double> Sizes(const CoefficientBounds* bounds) {
    std::vector<double> sizes;
    for (int32_t i = MaxPolyDegree; i >= 0; i--) {
        if (!sizes.empty() || !IsZero(bounds[i].size)) {
            sizes.push_back(ValueOf(bounds[i].size));
        }
    }
    return sizes;
}

void ExpectSizes(const CoefficientBounds* bounds, const std::vector<double>& expected) {
    const std::vector<double> sizes = Sizes(bounds);
    ASSERT_EQ(sizes.size(), expected.size());
    for (size_t i = 0; i < sizes.size(); i++) {
        EXPECT_NEAR(sizes[i], expected[i], 1e-9 * expected[i]);
    }
}

struct Grids {
    int64_t numerator;
    int64_t denominator;
    int64_t denominatorExponent;
    bool operator==(const Grids&) const = default;
};

Grids GridsOf(const CoefficientBounds& bounds) {
    return {bounds.numeratorGrid, bounds.denominatorGrid, bounds.denominatorExponent};
}

class RealBounds : public ::testing::Test {
protected:
    FormulaScope scope_{20, NumberTypeReal};
};

TEST_F(RealBounds, OfSumsAreThoseOfAllTerms) {
    for (const PolyOperator operation : {Plus, Minus}) {
        const PolynomialBounds bounds = Calculation(operation, {"1;-2;3", "4", "0.5;-25"}).Bounds();
        ExpectSizes(bounds.result, {1, 2.5, 32});
        EXPECT_EQ(GridsOf(bounds.result[2]), (Grids{-1, 0, 0}));
        ExpectSizes(bounds.remainder, {});
    }
}

TEST_F(RealBounds, OfProductsAreThoseOfAllTerms) {
    const PolynomialBounds bounds = Calculation(Times, {"2;-3", "-5;7", "1;1"}).Bounds();
    ExpectSizes(bounds.result, {10, 39, 50, 21});
    EXPECT_EQ(GridsOf(bounds.result[0]), (Grids{0, 0, 0}));
    ExpectSizes(Calculation(Times, {"0", "1;2"}).Bounds().result, {});
    ExpectSizes(Calculation(Power, {"2;-1", "3"}).Bounds().result, {8, 12, 6, 1});
    ExpectSizes(Calculation(Power, {"2;-1", "1"}).Bounds().result, {2, 1});
}

// The last digit of an operand that is not 0, wherever it stands in its limbs.
TEST_F(RealBounds, KnowTheLastDigits) {
    const auto gridOf = [](PolyOperator operation, const std::vector<std::string>& operands) {
        return Calculation(operation, operands).Bounds().result[0].numeratorGrid;
    };
    EXPECT_EQ(gridOf(Plus, {"1200", "5000"}), 2);
    EXPECT_EQ(gridOf(Times, {"1200", "50"}), 3);
    EXPECT_EQ(gridOf(Times, {"1200;3.5", "0.0025;100"}), -5);
    EXPECT_EQ(gridOf(Power, {"0.25", "3"}), -6);
    EXPECT_EQ(gridOf(Plus, {"1.2345678901234567891", "1"}), -19);
    EXPECT_EQ(gridOf(Plus, {"1e30", "0"}), 30);
    EXPECT_EQ(gridOf(Plus, {"1e-30", "1e30"}), -30);
    EXPECT_EQ(gridOf(Plus, {"0", "0"}), MaxBoundedExponent);
}

// (6 x + 4) / (20 x + 1) takes a step, of which the remainder keeps 4 and 1 * 0.3.
TEST_F(RealBounds, OfQuotientsGrowWithEachStep) {
    const PolynomialBounds one = Calculation(Divide, {"6;4", "20;1"}).Bounds();
    ExpectSizes(one.result, {0.3});
    EXPECT_EQ(GridsOf(one.result[0]), (Grids{0, 0, 2}));
    ExpectSizes(one.remainder, {4.3});
    EXPECT_EQ(GridsOf(one.remainder[0]), (Grids{0, 0, 2}));
    const PolynomialBounds two = Calculation(Divide, {"8;-4;1", "-2;0.5"}).Bounds();
    ExpectSizes(two.result, {4, 3});
    EXPECT_EQ(GridsOf(two.result[1]), (Grids{0, -1, 1}));
    EXPECT_EQ(GridsOf(two.result[0]), (Grids{-1, -2, 2}));
    ExpectSizes(two.remainder, {2.5});
    EXPECT_EQ(GridsOf(two.remainder[0]), (Grids{-2, -2, 2}));
}

TEST_F(RealBounds, OfADividendOfALowerDegreeAreItsOwn) {
    const PolynomialBounds bounds = Calculation(Divide, {"5;-6", "1;2;3"}).Bounds();
    ExpectSizes(bounds.result, {});
    ExpectSizes(bounds.remainder, {5, 6});
    EXPECT_EQ(GridsOf(bounds.remainder[0]), (Grids{0, 0, 0}));
    const PolynomialBounds zero = Calculation(Divide, {"0", "3;1"}).Bounds();
    ExpectSizes(zero.result, {});
    ExpectSizes(zero.remainder, {});
}

TEST_F(RealBounds, CarryErrors) {
    const auto carried = [](PolyOperator operation, const std::vector<std::string>& operands,
                            double ofFirst, double ofLast) {
        Calculation calculation(operation, operands);
        calculation.record.errors[0][0].real = MakeMagnitude(ofFirst);
        calculation.record.errors[1][0].real = MakeMagnitude(ofLast);
        return ValueOf(calculation.Bounds().result[0].carried.real);
    };
    EXPECT_EQ(carried(Plus, {"2", "-3"}, 0, 0), 0);
    EXPECT_NEAR(carried(Plus, {"2", "-3"}, 0.1, 0.2), 0.3, 1e-9);
    EXPECT_NEAR(carried(Minus, {"2", "-3"}, 0.1, 0), 0.1, 1e-9);
    // 0.1 * 3.2 + 2 * 0.2
    EXPECT_NEAR(carried(Times, {"2", "-3"}, 0.1, 0.2), 0.72, 1e-9);
    EXPECT_NEAR(carried(Power, {"2", "2"}, 0.1, 0.2), 0.41, 1e-9);
    // (0.1 + 2 * inverse * 0.2) * inverse, with no less than 1 / 3.8 as what divides.
    const double inverse = 4.2 / (3.8 * 3.8);
    EXPECT_NEAR(carried(Divide, {"2", "-4"}, 0.1, 0.2), (0.1 + 0.4 * inverse) * inverse, 1e-9);
}

TEST_F(RealBounds, AreThereForFiniteOperandsThatAreNotTooLarge) {
    EXPECT_TRUE(AreBounded({"0", "1;2"}));
    EXPECT_TRUE(AreBounded({"1", "1e10000000000000000"}));
    EXPECT_TRUE(AreBounded({"1", "-9.9e10000000000000000;1"}));
    EXPECT_FALSE(AreBounded({"1", "1e10000000000000001"}));
    EXPECT_TRUE(AreBounded({"1e-10000000000000000", "1"}));
    EXPECT_FALSE(AreBounded({"1;1e-10000000000000001;0", "1"}));
    for (const char* special : {"inf", "-inf", "nan"}) {
        EXPECT_FALSE(AreBounded({"1;2", std::string("1;") + special + ";1"})) << special;
    }
}

// What is behind the last operand that was taken does not count.
TEST_F(RealBounds, AreThoseOfTheOperandsThatWereTaken) {
    Calculation calculation(Plus, {"1;2", "3", "inf"});
    EXPECT_FALSE(OperandsAreBounded(calculation.record));
    calculation.record.count = 2;
    EXPECT_TRUE(OperandsAreBounded(calculation.record));
    ExpectSizes(calculation.Bounds().result, {1, 5});
    TakeCode();
}

class ComplexBounds : public ::testing::Test {
protected:
    FormulaScope scope_{20, NumberTypeComplex};
};

TEST_F(ComplexBounds, AddTheSizesOfBothParts) {
    ExpectSizes(Calculation(Plus, {"3,-4;1", "0,2"}).Bounds().result, {7, 3});
    ExpectSizes(Calculation(Times, {"3,-4", "0,2;1"}).Bounds().result, {14, 7});
    EXPECT_EQ(Calculation(Plus, {"3,0.25", "1"}).Bounds().result[0].numeratorGrid, -2);
    EXPECT_FALSE(AreBounded({"1", "1,1e10000000000000001"}));
    EXPECT_FALSE(AreBounded({"1", "1,inf"}));
}

// A step divides by (3 + 4i) (3 - 4i).
TEST_F(ComplexBounds, OfQuotientsMakeTheDivisorReal) {
    const PolynomialBounds bounds = Calculation(Divide, {"50,0;1", "3,4;0.1"}).Bounds();
    ExpectSizes(bounds.result, {14});
    EXPECT_EQ(GridsOf(bounds.result[0]), (Grids{-1, -2, 2}));
    ExpectSizes(bounds.remainder, {2.4});
    EXPECT_EQ(GridsOf(bounds.remainder[0]), (Grids{-2, -2, 2}));
}

TEST_F(ComplexBounds, CarryTheErrorOfEachPart) {
    Calculation calculation(Times, {"3,4", "0,2"});
    calculation.record.errors[0][0].real = MakeMagnitude(0.1);
    const PartSizes carried = calculation.Bounds().result[0].carried;
    EXPECT_EQ(ValueOf(carried.real), 0);
    EXPECT_NEAR(ValueOf(carried.imaginary), 0.2, 1e-9);
}

}  // namespace
}  // namespace tallymere
