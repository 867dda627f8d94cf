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

// The largest number of so many digits, for 1 to 18.
int64_t LargestOfDigits(int64_t digits) {
    int64_t number = 9;
    for (int64_t i = 1; i < digits; i++) {
        number = 10 * number + 9;
    }
    return number;
}

// A fraction with a numerator and a denominator of up to 9 digits, or a number as above.
std::string RandomFraction(RandomSource& random) {
    if (random.Below(2) == 0) {
        return RandomNumber(random);
    }
    const int64_t numerator = LargestOfDigits(random.Between(1, 9));
    const int64_t denominator = LargestOfDigits(random.Between(1, 9));
    return std::to_string(random.Between(-numerator, numerator)) + "/" +
           std::to_string(random.Between(1, denominator));
}

// A positive integer of so many digits, 1 or more.
std::string RandomDigitsText(RandomSource& random, int64_t digits) {
    std::string text = std::to_string(random.Between(1, 9));
    while (static_cast<int64_t>(text.size()) < digits) {
        text += std::to_string(random.Between(0, 9));
    }
    return text;
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
            const std::string number = RandomFraction(random_);
            if (!isComplex && 2 * power <= wanted - degree && random_.Below(3) == 0) {
                const std::string other = RandomFraction(random_);
                text += "*((x-(" + number + "))^2+(" + other + ")^2)^" + std::to_string(power);
                degree += 2 * power;
            } else {
                const std::string imaginary =
                    isComplex && random_.Below(4) != 0 ? RandomFraction(random_) : "0";
                text += "*(x-(" + number + ")-I*(" + imaginary + "))^" + std::to_string(power);
                degree += power;
            }
        }
        CompareFactors(text, degree, RandomDigits(random_));
    }
}

// Exact coefficients, some of which have all working digits or a few more, with two roots that
// nearly are one, or a part that nearly is 0 or the middle between two results.
TEST_F(PolynomialRootsOracle, OfExactCoefficientsWithAllDigits) {
    const int rounds = TestRounds(60);
    for (int i = 0; i < rounds; i++) {
        const int64_t degree = random_.Between(2, MaxEquationDegree);
        const int64_t digits = RandomDigits(random_);
        const int64_t working = RootWorkingDigits(degree, digits);
        const std::string center = RandomDigitsText(random_, working / 2 - random_.Between(0, 2));
        const std::string scale = "*10^" + std::to_string(random_.Between(-working, 10));
        const std::string sign = random_.Below(2) == 0 ? "+" : "-";
        const std::string apart = std::to_string(random_.Between(1, 9));
        std::string text = "((x-" + center + scale + ")^2" + sign + apart + "*(1" + scale + ")^2)";
        for (int64_t k = 2; k < degree; k++) {
            text += "*(x-(" + std::to_string(random_.Between(-9, 9)) + scale + "))";
        }
        Compare(text, degree, digits, working + 100);
    }
    for (int i = 0; i < rounds; i++) {
        const int64_t digits = RandomDigits(random_);
        const int64_t working = RootWorkingDigits(1, digits);
        const std::string number = RandomDigitsText(random_, working + random_.Between(0, 3));
        Compare("(1+I)*x-(" + number + "+I*(" + number + "+" +
                    std::to_string(random_.Between(-1, 1)) + "))",
                1, digits);
        const std::string middle =
            RandomDigitsText(random_, digits) +
            (random_.Below(2) == 0 ? "4" + std::string(30, '9') : "5" + std::string(29, '0') + "1");
        const std::string near = middle.substr(0, static_cast<size_t>(working + 3));
        Compare("(x-" + near + ")*(x-1)", 2, digits);
        Compare("(x-" + near + ")^2+1", 2, digits);
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
