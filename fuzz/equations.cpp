// Equations of a low degree: those that are made of given roots have just these, and any other root
// makes its equation small when it is put back.
//
// Input: "a" and roots, or "b" and coefficients; digits, highest coefficient.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <string>
#include <vector>

#include "fuzz/harness_list.h"
#include "support/equation_testing.h"

namespace tallymere::fuzz {

using namespace testing_support;

namespace {

constexpr int64_t MostRoots = 6;
constexpr int64_t MostDegree = 7;
constexpr int64_t MostDigits = 40;

// Exact for all coefficients here: at most 6 roots below 13 in size.
struct Gauss {
    int64_t re;
    int64_t im;

    bool operator==(const Gauss&) const = default;
};

Gauss Multiply(Gauss a, Gauss b) {
    return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}

std::string TextOf(Gauss z) {
    return std::to_string(z.re) + " " + std::to_string(z.im);
}

// The constant first.
std::vector<Gauss> PolynomialOf(const std::vector<Gauss>& roots, Gauss highest) {
    std::vector<Gauss> polynomial = {highest};
    for (const Gauss& root : roots) {
        polynomial.insert(polynomial.begin(), {0, 0});
        for (size_t i = 0; i + 1 < polynomial.size(); i++) {
            const Gauss term = Multiply(polynomial[i + 1], root);
            polynomial[i].re -= term.re;
            polynomial[i].im -= term.im;
        }
    }
    return polynomial;
}

// Real roots first, ascending; the others by real part, by size of the imaginary part, the negative
// one first.
bool IsBefore(Gauss a, Gauss b) {
    if ((a.im == 0) != (b.im == 0)) {
        return a.im == 0;
    }
    if (a.re != b.re) {
        return a.re < b.re;
    }
    return std::abs(a.im) != std::abs(b.im) ? std::abs(a.im) < std::abs(b.im) : a.im < b.im;
}

// What RootsOf shows of them.
std::vector<std::string> ShownRoots(std::vector<Gauss> roots) {
    std::ranges::sort(roots, IsBefore);
    std::vector<std::string> shown;
    for (size_t i = 0; i < roots.size();) {
        size_t end = i;
        while (end < roots.size() && roots[end] == roots[i]) {
            end++;
        }
        std::string text = PlainText(RealBuffer(std::to_string(roots[i].re))) + " " +
                           PlainText(RealBuffer(std::to_string(roots[i].im)));
        shown.push_back(end - i > 1 ? text + " [" + std::to_string(end - i) + "]" : text);
        i = end;
    }
    return shown;
}

std::string Joined(const std::vector<std::string>& texts) {
    std::string all;
    for (const std::string& text : texts) {
        all += text + "; ";
    }
    return all;
}

Gauss AnyNumber(FuzzInput& input, int64_t most, bool isReal) {
    const int64_t re = input.Number(-most, most);
    return {re, isReal ? 0 : input.Number(-most, most)};
}

Gauss Highest(FuzzInput& input, bool isReal) {
    const Gauss highest = AnyNumber(input, 9, isReal);
    return highest == Gauss{0, 0} ? Gauss{1, 0} : highest;
}

void SolveGivenRoots(FuzzInput& input, int64_t digits, bool isReal) {
    std::vector<Gauss> roots;
    for (int64_t left = input.Number(1, MostRoots); left > 0; left--) {
        roots.push_back(AnyNumber(input, 9, isReal));
    }
    std::vector<std::string> coefficients;
    for (const Gauss& coefficient : PolynomialOf(roots, Highest(input, isReal))) {
        coefficients.push_back(TextOf(coefficient));
    }
    EXPECT_EQ(RootsOf(coefficients, digits), ShownRoots(roots)) << Joined(coefficients);
}

// Double numbers tell whether a root is one.
void ExpectRootsFit(const std::vector<std::string>& roots,
                    const std::vector<std::complex<double>>& polynomial,
                    const std::string& equation) {
    constexpr double Tolerance = 1e-7;
    size_t count = 0;
    for (const std::string& text : roots) {
        size_t end = 0;
        const double re = std::stod(text, &end);
        const double im = std::stod(text.substr(end), nullptr);
        const std::complex<double> root(re, im);
        const size_t bracket = text.find('[');
        count += bracket == text.npos ? 1 : std::stoul(text.substr(bracket + 1));
        std::complex<double> value = 0;
        double size = 0;
        for (size_t i = polynomial.size(); i-- > 0;) {
            value = value * root + polynomial[i];
            size = size * std::abs(root) + std::abs(polynomial[i]);
        }
        EXPECT_LE(std::abs(value), Tolerance * size) << text << " of " << equation;
    }
    EXPECT_EQ(count + 1, polynomial.size()) << Joined(roots) << " of " << equation;
}

void SolveCoefficients(FuzzInput& input, int64_t digits, bool isReal) {
    std::vector<std::string> coefficients;
    std::vector<std::complex<double>> polynomial;
    const int64_t degree = input.Number(1, MostDegree);
    for (int64_t i = 0; i <= degree; i++) {
        const Gauss number = i == degree ? Highest(input, isReal) : AnyNumber(input, 99, isReal);
        coefficients.push_back(TextOf(number));
        polynomial.emplace_back(static_cast<double>(number.re), static_cast<double>(number.im));
    }
    ExpectRootsFit(RootsOf(coefficients, digits), polynomial, Joined(coefficients));
}

}  // namespace

void FuzzEquations(FuzzInput& input) {
    const bool hasGivenRoots = input.Choice(2) == 0;
    const bool isReal = input.Choice(2) == 0;
    const int64_t digits = input.Number(10, MostDigits);
    if (hasGivenRoots) {
        SolveGivenRoots(input, digits, isReal);
    } else {
        SolveCoefficients(input, digits, isReal);
    }
}

}  // namespace tallymere::fuzz
