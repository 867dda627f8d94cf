#include "support/polynomial_oracle.h"

#include <gtest/gtest.h>
#include <pari/pari.h>

#include "support/pari_start_oracle.h"

namespace tallymere::testing_support {

namespace {

GEN ToPari(const Integer& n) {
    Integer magnitude;
    mpz_abs(magnitude, n);
    std::vector<char> text(mpz_sizeinbase(magnitude, 10) + 2);
    mpz_get_str(text.data(), 10, magnitude);
    GEN value = strtoi(text.data());
    return n.Sign() < 0 ? negi(value) : value;
}

GEN ToPari(const IntegerPolynomial& polynomial) {
    const long length = static_cast<long>(polynomial.size());
    GEN result = cgetg(length + 2, t_POL);
    result[1] = evalvarn(0) | evalsigne(1);
    for (long i = 0; i < length; i++) {
        gel(result, i + 2) = ToPari(polynomial[static_cast<size_t>(i)]);
    }
    return result;
}

std::string Text(GEN n) {
    char* text = GENtostr(n);
    const std::string result = text;
    pari_free(text);
    return result;
}

// x to so many digits, or "0".
std::string PlainText(GEN x, int64_t digits) {
    if (gequal0(x)) {
        return "0";
    }
    const long exponent = static_cast<long>(static_cast<double>(gexpo(x)) * 0.30103);
    const long shift = static_cast<long>(digits) - 1 - exponent;
    return Text(ground(gmul(x, gpowgs(utoipos(10), shift)))) + "e" + std::to_string(-shift);
}

}  // namespace

std::vector<PolynomialFactor> FactorsOfPolynomial(const IntegerPolynomial& polynomial) {
    StartPari();
    const pari_sp top = avma;
    GEN matrix = ZX_factor(Q_primpart(ToPari(polynomial)));
    std::vector<PolynomialFactor> factors;
    for (long i = 1; i < lg(gel(matrix, 1)); i++) {
        GEN factor = gcoeff(matrix, i, 1);
        if (signe(leading_coeff(factor)) < 0) {
            factor = gneg(factor);
        }
        factors.push_back({{}, itou(gcoeff(matrix, i, 2))});
        for (long k = 0; k <= degpol(factor); k++) {
            Integer coefficient;
            mpz_set_str(coefficient, Text(gel(factor, k + 2)).c_str(), 10);
            factors.back().polynomial.push_back(coefficient);
        }
    }
    set_avma(top);
    return factors;
}

std::vector<std::string> RootsOfPolynomial(const IntegerPolynomial& polynomial, int64_t digits) {
    StartPari();
    const pari_sp top = avma;
    const long bits = static_cast<long>(digits) * 7 / 2 + 64;
    GEN values = roots(ToPari(polynomial), nbits2prec(bits));
    std::vector<std::string> texts;
    for (long i = 1; i < lg(values); i++) {
        texts.push_back(PlainText(greal(gel(values, i)), digits) + " " +
                        PlainText(gimag(gel(values, i)), digits));
    }
    set_avma(top);
    return texts;
}

}  // namespace tallymere::testing_support
