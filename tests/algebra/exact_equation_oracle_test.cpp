// Exact roots against PARI, which factors the polynomial, and against the polynomial itself: the
// text of each root is put back into it, exactly.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iterator>

#include "algebra/exact_equation_testing.h"
#include "algebra/exact_formulas.h"
#include "algebra/exact_roots.h"
#include "algebra/rational_roots.h"
#include "core/complex_arithmetic.h"
#include "core/scratch.h"
#include "support/factor_oracle.h"
#include "support/mpfr_oracle.h"
#include "support/polynomial_oracle.h"
#include "support/wide_oracle.h"

namespace tallymere {
namespace {

using namespace testing_support;

// A rational number of GMP.
class Ratio {
public:
    Ratio() { mpq_init(value_); }
    Ratio(const Ratio& other) : Ratio() { mpq_set(value_, other.value_); }
    Ratio& operator=(const Ratio& other) {
        mpq_set(value_, other.value_);
        return *this;
    }
    ~Ratio() { mpq_clear(value_); }
    explicit Ratio(const Integer& numerator, const Integer& denominator = Integer(1)) : Ratio() {
        mpq_set_num(value_, numerator);
        mpq_set_den(value_, denominator);
        mpq_canonicalize(value_);
    }
    operator mpq_ptr() { return value_; }
    operator mpq_srcptr() const { return value_; }
    int Sign() const { return mpq_sgn(value_); }
    std::string Text() const {
        char* text = mpq_get_str(nullptr, 10, value_);
        const std::string result = text;
        std::free(text);
        return result;
    }

private:
    mpq_t value_;
};

// p + q sqrt(radicand), where the radicand may be negative.
struct Surd {
    Ratio p;
    Ratio q;
    Integer radicand{1};
};

// Reads the sum, product and square roots that an exact text is made of, as far as the text has the
// form that it must have: a fraction, or a fraction and a term with a square root or a unit.
bool ReadSurd(Surd& surd, std::string text) {
    const auto endsWith = [&](const std::string& end) {
        return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
    };
    const bool imaginary = endsWith("*i");
    if (imaginary) {
        text.resize(text.size() - 2);
    }
    const size_t root = text.find("sqrt(");
    const bool hasTerm = imaginary || root != std::string::npos;
    if (root != std::string::npos) {
        if (!endsWith(")") ||
            mpz_set_str(surd.radicand, text.substr(root + 5, text.size() - root - 6).c_str(), 10) !=
                0) {
            return false;
        }
        text.resize(root);
        if (endsWith("*")) {
            text.pop_back();
        } else {
            text += "1";
        }
    }
    if (imaginary) {
        mpz_neg(surd.radicand, surd.radicand);
    }
    // The second sign stands between p and q.
    const size_t between = hasTerm ? text.find_first_of("+-", 1) : std::string::npos;
    const auto read = [](Ratio& dest, std::string part) {
        if (!part.empty() && part[0] == '+') {
            part.erase(0, 1);
        }
        return mpq_set_str(dest, part.c_str(), 10) == 0;
    };
    if (!hasTerm) {
        return read(surd.p, text);
    }
    if (between == std::string::npos) {
        return read(surd.q, text);
    }
    return read(surd.p, text.substr(0, between)) && read(surd.q, text.substr(between));
}

// Whether the polynomial is 0 there, in the field of the square root.
bool IsRoot(const Surd& x, const IntegerPolynomial& polynomial) {
    const Ratio radicand(x.radicand);
    Ratio p;
    Ratio q;
    for (size_t i = polynomial.size(); i-- > 0;) {
        // (p + q s) (x.p + x.q s) + a(i), where s^2 is the radicand.
        Ratio cross;
        Ratio product;
        mpq_mul(product, q, x.q);
        mpq_mul(product, product, radicand);
        mpq_mul(cross, p, x.q);
        mpq_mul(q, q, x.p);
        mpq_add(q, q, cross);
        mpq_mul(p, p, x.p);
        mpq_add(p, p, product);
        mpq_add(p, p, Ratio(polynomial[i]));
    }
    return p.Sign() == 0 && q.Sign() == 0;
}

// Both texts of a quadratic factor, as the rules say: what the square factor of the discriminant
// is comes from PARI.
void AppendTexts(Lines& texts, const IntegerPolynomial& quadratic) {
    Integer discriminant;
    Integer product;
    mpz_mul(discriminant, quadratic[1], quadratic[1]);
    mpz_mul(product, quadratic[2], quadratic[0]);
    mpz_submul_ui(discriminant, product, 4);
    Integer outer(1);
    Integer inner(1);
    Integer magnitude;
    mpz_abs(magnitude, discriminant);
    for (const OracleFactor& factor : FactorsByPari(magnitude)) {
        Integer power;
        mpz_pow_ui(power, factor.prime, factor.multiplicity / 2);
        mpz_mul(outer, outer, power);
        if (factor.multiplicity % 2 != 0) {
            mpz_mul(inner, inner, factor.prime);
        }
    }
    Integer twice;
    mpz_mul_ui(twice, quadratic[2], 2);
    Integer opposite;
    mpz_neg(opposite, quadratic[1]);
    const Ratio p(opposite, twice);
    const std::string first = p.Sign() == 0 ? "" : p.Text();
    const std::string factor = Ratio(outer, twice).Text();
    const bool hasRoot = mpz_cmp_ui(mpz_srcptr(inner), 1) != 0;
    std::string term = factor;
    if (hasRoot) {
        term = (factor == "1" ? "" : factor + "*") + "sqrt(" + DecimalText(inner) + ")";
    }
    if (discriminant.Sign() < 0) {
        term += "*i";
    }
    texts.push_back(first + (first.empty() ? "" : "+") + term);
    texts.push_back(first + "-" + term);
}

// The texts that the roots must have, in no order; empty ones for roots without.
Lines ExpectedTexts(const IntegerPolynomial& polynomial) {
    Lines texts;
    uint64_t rest = 0;
    const IntegerPolynomial* quadratic = nullptr;
    const std::vector<PolynomialFactor> factors = FactorsOfPolynomial(polynomial);
    for (const PolynomialFactor& factor : factors) {
        const size_t degree = factor.polynomial.size() - 1;
        if (degree == 1) {
            Integer opposite;
            mpz_neg(opposite, factor.polynomial[0]);
            texts.insert(texts.end(), factor.multiplicity,
                         Ratio(opposite, factor.polynomial[1]).Text());
        } else {
            rest += degree * factor.multiplicity;
            quadratic = &factor.polynomial;
        }
    }
    if (rest == 2) {
        AppendTexts(texts, *quadratic);
    } else {
        texts.insert(texts.end(), rest, "");
    }
    return texts;
}

// The part of the surd that is real, or the other one, with a relative error below 10^-digits
// unless more than 400 digits cancel.
FunctionValue ValueOf(const Surd& x, bool imaginary, int64_t digits) {
    const int64_t inside = digits + 400;
    FunctionValue result{Float(inside)};
    mpfr_set_zero(result.value, 1);
    if ((x.radicand.Sign() < 0) == imaginary) {
        Integer magnitude;
        mpz_abs(magnitude, x.radicand);
        mpfr_set_z(result.value, magnitude, MPFR_RNDN);
        mpfr_sqrt(result.value, result.value, MPFR_RNDN);
        mpfr_mul_q(result.value, result.value, x.q, MPFR_RNDN);
    }
    if (!imaginary) {
        mpfr_add_q(result.value, result.value, x.p, MPFR_RNDN);
    }
    return result;
}

// The value rounded to `digits` digits is the one in the solutions.
void ExpectValue(const ComplexNumber* value, const Surd& x, int64_t digits) {
    const int64_t precision = numberContext.precisionDigits;
    PrecisionScope scope(digits);
    ComplexBuffer rounded;
    ComplexConvertPrecision(rounded, digits, value, precision);
    ASSERT_TRUE(CompareResult(RealPart(rounded.Get()),
                              [&](int64_t asked) { return ValueOf(x, false, asked); })
                    .correctlyRounded)
        << PlainText(rounded.Get());
    ASSERT_TRUE(CompareResult(ImaginaryPart(rounded.Get()),
                              [&](int64_t asked) { return ValueOf(x, true, asked); })
                    .correctlyRounded)
        << PlainText(rounded.Get());
}

std::string ShowPolynomial(const IntegerPolynomial& polynomial) {
    std::string text;
    for (size_t i = polynomial.size(); i-- > 0;) {
        text += Ratio(polynomial[i]).Text() + " ";
    }
    return text;
}

// Which of the texts that roots can have must be there. Others may be left out, because a number on
// the way does not fit.
struct RequiredTexts {
    bool fractions;
    bool surds;
};

constexpr RequiredTexts AllTexts = {true, true};

bool IsRequired(const std::string& text, RequiredTexts required) {
    const bool isSurd = text.find_first_of("qi") != std::string::npos;
    return !text.empty() && (isSurd ? required.surds : required.fractions);
}

void ExpectTextsAndValues(SolutionBuffer& solutions, const IntegerPolynomial& polynomial,
                          int64_t digits, RequiredTexts required) {
    ASSERT_EQ(TakeCode(), CalcErrorNone);
    ASSERT_TRUE(SolutionSetIsWellFormed(solutions));
    Lines found;
    for (int64_t i = 0; i < solutions.Count(); i++) {
        found.push_back(solutions.Text(i));
        if (!found.back().empty()) {
            Surd surd;
            ASSERT_TRUE(ReadSurd(surd, found.back())) << found.back();
            ASSERT_TRUE(IsRoot(surd, polynomial)) << found.back();
            ASSERT_NO_FATAL_FAILURE(ExpectValue(solutions.Value(i), surd, digits));
        }
    }
    Lines expected = ExpectedTexts(polynomial);
    std::sort(found.begin(), found.end());
    std::sort(expected.begin(), expected.end());
    ASSERT_EQ(found.size(), expected.size());
    found.erase(std::remove(found.begin(), found.end(), ""), found.end());
    ASSERT_TRUE(std::includes(expected.begin(), expected.end(), found.begin(), found.end()))
        << ::testing::PrintToString(found) << " of " << ::testing::PrintToString(expected);
    Lines wanted;
    std::copy_if(expected.begin(), expected.end(), std::back_inserter(wanted),
                 [&](const std::string& text) { return IsRequired(text, required); });
    ASSERT_TRUE(std::includes(found.begin(), found.end(), wanted.begin(), wanted.end()))
        << ::testing::PrintToString(found) << " without some of "
        << ::testing::PrintToString(wanted);
}

// Solves the polynomial divided by `divisor`: with the roots that PARI finds, and as a whole.
void ExpectExactRoots(const IntegerPolynomial& polynomial, const Integer& divisor, int64_t digits,
                      int64_t precision, RequiredTexts required) {
    SCOPED_TRACE(ShowPolynomial(polynomial) + "/ " + Ratio(divisor).Text());
    EquationScope scope(precision);
    Lines coefficients;
    for (size_t i = polynomial.size(); i-- > 0;) {
        coefficients.push_back(Ratio(polynomial[i], divisor).Text());
    }
    const PolynomialBuffer exact(coefficients);

    SolutionBuffer solutions(RootsOfPolynomial(polynomial, precision - 1));
    SolutionSet& set = solutions;
    for (int64_t i = 0; i < solutions.Count(); i++) {
        ComplexRoundDigits(set.values[i], set.values[i], digits);
    }
    const RootOutcome outcome =
        polynomial.size() == 2   ? SolveExactLinear(solutions, exact, 0, digits)
        : polynomial.size() == 3 ? SolveExactQuadratic(solutions, exact, 0, 1, digits)
                                 : FindExactRoots(solutions, exact, digits);
    ASSERT_EQ(outcome, RootOutcome::Found);
    ASSERT_NO_FATAL_FAILURE(ExpectTextsAndValues(solutions, polynomial, digits, required));

    SolutionBuffer whole;
    ASSERT_EQ(SolveExactEquation(whole, exact, digits, KeepEqualRoots), RootOutcome::Found);
    ASSERT_NO_FATAL_FAILURE(ExpectTextsAndValues(whole, polynomial, digits, required));
}

// A thread that calculates has a ScratchStack.
class ExactEquationOracle : public ::testing::Test {
protected:
    ExactEquationOracle() { CreateScratchStack(); }
    ~ExactEquationOracle() override { DestroyScratchStack(); }
};

// The polynomial of that number among all of degree `degree` with coefficients from -9 to 9.
IntegerPolynomial SmallPolynomial(int64_t number, int64_t degree) {
    IntegerPolynomial polynomial;
    for (int64_t i = 0; i <= degree; i++, number /= 19) {
        const int64_t value = number % 19 - 9;
        Integer coefficient;
        mpz_set_si(coefficient, value);
        polynomial.push_back(coefficient);
    }
    return polynomial;
}

// One in `share` of them, from a random one on; degree 3 has 130,321.
void ExpectSmallPolynomials(int64_t degree, int64_t share) {
    RandomSource random;
    int64_t count = 19;
    for (int64_t i = 0; i < degree; i++) {
        count *= 19;
    }
    for (int64_t number = random.Between(0, share - 1); number < count; number += share) {
        const IntegerPolynomial polynomial = SmallPolynomial(number, degree);
        if (polynomial.back().Sign() != 0) {
            ASSERT_NO_FATAL_FAILURE(ExpectExactRoots(polynomial, Integer(1), 10, 40, AllTexts));
        }
    }
}

TEST_F(ExactEquationOracle, SmallLinearPolynomials) {
    ExpectSmallPolynomials(1, 1);
}

TEST_F(ExactEquationOracle, SmallQuadraticPolynomials) {
    ExpectSmallPolynomials(2, 6'859 / TestRounds(2'000));
}

TEST_F(ExactEquationOracle, SmallCubicPolynomials) {
    ExpectSmallPolynomials(3, 130'321 / TestRounds(3'500));
}

// A random integer with so many bits at most, of either sign; with `nonZero` it is not 0.
Integer RandomInteger(RandomSource& random, int64_t bits, bool nonZero) {
    Integer value(random.Word() >> (64 - bits));
    if (nonZero && value.Sign() == 0) {
        mpz_set_ui(value, 1);
    }
    if (random.Below(2) == 0) {
        mpz_neg(value, value);
    }
    return value;
}

IntegerPolynomial RandomPolynomial(RandomSource& random, int64_t degree, int64_t bits) {
    IntegerPolynomial polynomial;
    for (int64_t i = 0; i <= degree; i++) {
        polynomial.push_back(RandomInteger(random, bits, i == degree));
    }
    return polynomial;
}

IntegerPolynomial Product(const IntegerPolynomial& a, const IntegerPolynomial& b) {
    IntegerPolynomial product(a.size() + b.size() - 1);
    for (size_t i = 0; i < a.size(); i++) {
        for (size_t k = 0; k < b.size(); k++) {
            mpz_addmul(product[i + k], a[i], b[k]);
        }
    }
    return product;
}

// Products of polynomials of degree 1 to 3, some of them more than once, up to degree 10. Two of
// degree 2 leave roots without a text.
TEST_F(ExactEquationOracle, ProductsOfSmallPolynomials) {
    RandomSource random;
    for (int round = 0; round < TestRounds(1'500); round++) {
        const int64_t degree = random.Between(1, MaxEquationDegree);
        const int64_t bits = random.Between(2, 7);
        IntegerPolynomial polynomial = {RandomInteger(random, 3, true)};
        while (static_cast<int64_t>(polynomial.size()) <= degree) {
            const int64_t left = degree + 1 - static_cast<int64_t>(polynomial.size());
            const int64_t kind = random.Below(4) != 0 ? 1 : random.Between(2, 3);
            const IntegerPolynomial factor = RandomPolynomial(random, std::min(kind, left), bits);
            do {
                polynomial = Product(polynomial, factor);
            } while (random.Below(4) == 0 &&
                     polynomial.size() + factor.size() - 2 <= static_cast<size_t>(degree));
        }
        ASSERT_NO_FATAL_FAILURE(
            ExpectExactRoots(polynomial, RandomInteger(random, 8, true), 60, 200, AllTexts));
    }
}

int64_t LongestBits(const IntegerPolynomial& polynomial) {
    size_t bits = 0;
    for (const Integer& coefficient : polynomial) {
        bits = std::max(bits, mpz_sizeinbase(coefficient, 2));
    }
    return static_cast<int64_t>(bits);
}

// The texts for which all numbers on the way surely fit in 128 bits.
RequiredTexts TextsThatFit(const IntegerPolynomial& polynomial, const Integer& divisor) {
    constexpr int64_t Width = 128;
    const auto degree = static_cast<int64_t>(polynomial.size()) - 1;
    if (degree <= 2) {
        // r is a part of the numerator of the discriminant times one of its denominator.
        const int64_t longest = 2 * LongestBits(polynomial) + 3;
        const auto ofDivisor = static_cast<int64_t>(mpz_sizeinbase(divisor, 2));
        return {degree == 1 || longest + ofDivisor <= Width, longest + ofDivisor <= Width};
    }
    // The coefficients of a factor are below 2^degree times the sum of those of the polynomial.
    const int64_t ofFactor = LongestBits(polynomial) + degree + 3;
    return {ofFactor <= Width, 2 * ofFactor + 3 <= Width};
}

// Coefficients up to the width and beyond what fits on the way.
TEST_F(ExactEquationOracle, LargeCoefficients) {
    RandomSource random;
    const int rounds = TestRounds(500);
    int withFractions = 0;
    int withSurds = 0;
    for (int round = 0; round < rounds; round++) {
        const IntegerPolynomial first =
            RandomPolynomial(random, random.Between(1, 2), random.Between(30, 62));
        const IntegerPolynomial second =
            RandomPolynomial(random, random.Between(0, 2), random.Between(1, 60));
        const IntegerPolynomial product = Product(first, second);
        const Integer divisor = RandomInteger(random, random.Between(1, 64), true);
        const RequiredTexts required = TextsThatFit(product, divisor);
        withFractions += required.fractions ? 1 : 0;
        withSurds += required.surds ? 1 : 0;
        ASSERT_NO_FATAL_FAILURE(ExpectExactRoots(product, divisor, 45, 150, required));
    }
    EXPECT_GT(withFractions, rounds / 2);
    EXPECT_LT(withFractions, rounds);
    EXPECT_GT(withSurds, rounds / 20);
}

}  // namespace
}  // namespace tallymere
