// The digits of roots against PARI: polynomials of every degree and kind.
#include <gtest/gtest.h>

#include <algorithm>

#include "support/equation_oracle.h"
#include "support/equation_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;
using Texts = std::vector<std::string>;

class PolynomialRootsOracle : public ::testing::Test {
protected:
    RandomSource random_;

private:
    ScratchStackOwner stack_;
};

Texts Sorted(Texts texts) {
    std::sort(texts.begin(), texts.end());
    return texts;
}

// Our roots of the polynomial with its coefficients rounded to the digits that they are read with.
Texts OurRoots(const std::string& polynomial, int64_t degree, int64_t digits) {
    return Sorted(RootsOf(CoefficientsByPari(polynomial, RootInputDigits(degree, digits)), digits,
                          KeepEqualRoots));
}

// Both must have the same roots of the rounded polynomial. PARI works with so many digits more.
void Compare(const std::string& polynomial, int64_t degree, int64_t digits, int64_t more = 100) {
    const Texts coefficients = CoefficientsByPari(polynomial, RootInputDigits(degree, digits));
    EXPECT_EQ(Sorted(RootsOf(coefficients, digits, KeepEqualRoots)),
              RootsByPari(PolynomialText(coefficients), digits, digits + more))
        << polynomial.substr(0, 1'000) << " at " << digits << " digits";
}

// Roots of the exact polynomial, although its coefficients are rounded on the way.
void CompareFactors(const std::string& polynomial, int64_t degree, int64_t digits) {
    EXPECT_EQ(OurRoots(polynomial, degree, digits), RootsByPari(polynomial, digits, digits + 100))
        << polynomial << " at " << digits << " digits";
}

int64_t RandomDigits(RandomSource& random) {
    const int64_t digits[] = {5, 6, 7, 10, 15, 19, 20, 38, 57, 100};
    return digits[random.Below(std::size(digits))];
}

// An integer, a fraction, or a decimal number, as they are typed.
std::string RandomNumber(RandomSource& random) {
    const std::string number = std::to_string(random.Between(-99, 99));
    switch (random.Below(4)) {
        case 0:
            return std::to_string(random.Between(-9, 9));
        case 1:
            return number + "/" + std::to_string(random.Between(1, 9));
        case 2:
            return std::to_string(random.Between(-1'000'000, 1'000'000)) + "/100000";
        default:
            return number;
    }
}

std::string RandomCoefficient(RandomSource& random, bool isComplex) {
    const std::string real = RandomNumber(random);
    return isComplex ? "(" + real + "+I*(" + RandomNumber(random) + "))" : "(" + real + ")";
}

std::string RandomPolynomial(RandomSource& random, int64_t degree, bool isComplex) {
    std::string text = "x^" + std::to_string(degree) + "*" + std::to_string(random.Between(1, 9));
    for (int64_t i = 0; i < degree; i++) {
        text += "+" + RandomCoefficient(random, isComplex) + "*x^" + std::to_string(i);
    }
    return text;
}

TEST_F(PolynomialRootsOracle, OfRandomPolynomials) {
    const int rounds = TestRounds(20);
    for (int64_t degree = 1; degree <= MaxEquationDegree; degree++) {
        for (int i = 0; i < rounds; i++) {
            Compare(RandomPolynomial(random_, degree, i % 2 != 0), degree, RandomDigits(random_));
        }
    }
}

TEST_F(PolynomialRootsOracle, WithCoefficientsOfAllDigits) {
    const int rounds = TestRounds(8);
    for (int64_t degree = 1; degree <= MaxEquationDegree; degree++) {
        for (int i = 0; i < rounds; i++) {
            std::string text = "x^" + std::to_string(degree) + "/7";
            for (int64_t k = 0; k < degree; k++) {
                const std::string divisor = std::to_string(random_.Between(1'000, 9'999));
                text += "+" + RandomCoefficient(random_, i % 2 != 0) + "*x^" + std::to_string(k) +
                        "/" + divisor;
            }
            Compare(text, degree, RandomDigits(random_));
        }
    }
}

TEST_F(PolynomialRootsOracle, AtTheMostDigits) {
    for (int64_t degree = 1; degree <= MaxEquationDegree; degree += TestRounds(5) > 1 ? 1 : 3) {
        Compare(RandomPolynomial(random_, degree, degree % 3 == 0), degree, MaxRootDigits(degree));
    }
    CompareFactors("(x-1/3)^2", 2, 2'000);
    CompareFactors("(x-1/3)^2*(x+2/7)^2*(x-3)*(x-4)*(x+5)*(x+6)*(x^2+1)", 10, 750);
    CompareFactors("(x-1/3)^5*(x-3)*(x-4)*(x+5)*(x^2+1)", 10, 750);
}

// Each root is a multiple one as often as not, and most coefficients are rounded.
TEST_F(PolynomialRootsOracle, OfProductsKeepTheirMultiplicities) {
    const int rounds = TestRounds(200);
    for (int i = 0; i < rounds; i++) {
        std::string text = std::to_string(random_.Between(1, 9)) + "/7";
        int64_t degree = 0;
        const int64_t wanted = random_.Between(1, MaxEquationDegree);
        const bool isComplex = random_.Below(3) == 0;
        while (degree < wanted) {
            const int64_t power = std::min<int64_t>(
                random_.Below(2) == 0 ? 1 : random_.Between(2, 5), wanted - degree);
            const std::string number = RandomNumber(random_);
            if (!isComplex && 2 * power <= wanted - degree && random_.Below(3) == 0) {
                const std::string other = RandomNumber(random_);
                text += "*((x-(" + number + "))^2+(" + other + ")^2)^" + std::to_string(power);
                degree += 2 * power;
            } else {
                const std::string imaginary =
                    isComplex && random_.Below(4) != 0 ? RandomNumber(random_) : "0";
                text += "*(x-(" + number + ")-I*(" + imaginary + "))^" + std::to_string(power);
                degree += power;
            }
        }
        CompareFactors(text, degree, RandomDigits(random_));
    }
}

TEST_F(PolynomialRootsOracle, LieAsNearAsTenToMinusTwenty) {
    CompareFactors("(x-1)*(x-1-10^-20)", 2, 30);
    CompareFactors("(x-1)*(x-1-10^-20)*(x-1+10^-20)", 3, 30);
    CompareFactors("((x-1)^2+10^-40)*(x-2)", 3, 50);
    CompareFactors("((x-1/3)^2+10^-40)^2*(x-1/3)", 5, 50);
    CompareFactors("((x-1/3)^5-10^-100)*(x-1/3-10^-10)^5", 10, 100);
    Compare("(x-1)^2+10^-20", 2, 10);
    // Mignotte's polynomials: two roots that are much nearer than the coefficients look.
    Compare("x^10-2*(1000*x-1)^2", 10, 20);
    Compare("x^9-2*(10^15*x-1)^2", 9, 100, 500);
}

TEST_F(PolynomialRootsOracle, OfKnownFamilies) {
    for (int64_t degree = 1; degree <= MaxEquationDegree; degree++) {
        const std::string n = std::to_string(degree);
        for (const int64_t digits : {5, 20, 100}) {
            Compare("x^" + n + "-1", degree, digits);
            Compare("x^" + n + "+I", degree, digits);
            Compare("prod(k=1," + n + ",x-k)", degree, digits);
            Compare("prod(k=1," + n + ",x-2^-k)", degree, digits);
            Compare("polchebyshev(" + n + ")", degree, digits);
            Compare("pollegendre(" + n + ")", degree, digits);
            Compare("sum(k=0," + n + ",x^k/k!)", degree, digits);
            Compare("sum(k=0," + n + ",x^k)", degree, digits);
        }
    }
}

TEST_F(PolynomialRootsOracle, OfCoefficientsOfAllSizes) {
    const int rounds = TestRounds(15);
    for (int i = 0; i < rounds; i++) {
        const int64_t degree = random_.Between(1, MaxEquationDegree);
        const auto coefficient = [&] {
            return std::to_string(random_.Between(-99'999, 99'999)) + "*10^" +
                   std::to_string(random_.Between(-300, 295));
        };
        std::string text = "x^" + std::to_string(degree) + "*10^" +
                           std::to_string(random_.Between(-300, 295)) + "+1";
        for (int64_t k = 1; k < degree; k++) {
            if (random_.Below(4) != 0) {
                text += "+(" + coefficient() + (i % 3 == 0 ? "+I*" + coefficient() : "") + ")*x^" +
                        std::to_string(k);
            }
        }
        // Parts may be that much smaller than the other one.
        Compare(text, degree, random_.Below(2) == 0 ? 5 : 20, 4'000);
    }
}

}  // namespace
}  // namespace tallymere
