// Exponentials and logarithms for the table of functions.
#include <algorithm>

#include "functions/exponential.h"
#include "functions/logarithm.h"
#include "support/function_oracle.h"

namespace tallymere::testing_support {

namespace {

// base^x, e^x for a base of 0.
ExactFunction PowerOf(unsigned long base) {
    return [base](const DecimalValue& x, int64_t digits) {
        if (x.exponent > 19) {
            return OutsideDomain();
        }
        Float exponent = FloatOf(x, digits + std::max<int64_t>(0, x.exponent) + 5);
        if (base != 0) {
            Float logarithm = exponent;
            mpfr_log_ui(logarithm, base, MPFR_RNDN);
            mpfr_mul(exponent, exponent, logarithm, MPFR_RNDN);
        }
        return ExponentialOf(exponent);
    };
}

// The logarithm to a base, the natural one for 0.
ExactFunction LogarithmTo(unsigned long base) {
    return [base](const DecimalValue& x, int64_t digits) {
        FunctionValue result = LogarithmOf(x, digits);
        if (base != 0) {
            Float logarithm = result.value;
            mpfr_log_ui(logarithm, base, MPFR_RNDN);
            mpfr_div(result.value, result.value, logarithm, MPFR_RNDN);
        }
        return result;
    };
}

// ln x / ln b. A logarithm may be 0 or nearly so, each by itself.
FunctionValue LogarithmToBase(const DecimalValue& base, const DecimalValue& x, int64_t digits) {
    FunctionValue result = LogarithmOf(x, digits);
    const FunctionValue divisor = LogarithmOf(base, digits);
    if (mpfr_zero_p(static_cast<mpfr_srcptr>(divisor.value))) {
        return OutsideDomain();
    }
    mpfr_div(result.value, result.value, divisor.value, MPFR_RNDN);
    result.lost = std::max(result.lost, divisor.lost);
    return result;
}

}  // namespace

std::vector<TestedFunction> ExponentialFunctions() {
    // Arguments at which the guard digits change are powers of ten.
    const auto exponents = [](unsigned long base) {
        return ArgumentDomain{-1'000'000'000'000'000,
                              18,
                              true,
                              {ExponentialSteps(base, -10, 10), ExponentialSteps(base, -1000, 1000),
                               PowersOfTen(-6, 18), Fractions(1, 1000, 1), PointAt("1e-4")}};
    };
    const ArgumentDomain positive{
        -1'000'000'000'000'000,
        1'000'000'000'000'000,
        false,
        {PointAt("1"), LogarithmicSteps(0, 0), LogarithmicSteps(-9, 9),
         LogarithmicSteps(-1000, 1000), PowersOfTen(-40, 40), Fractions(1, 1024, 1)}};
    return {
        UnaryFunction("exp", RealExpRounded, PowerOf(0), exponents(0)),
        UnaryFunction("10^x", RealExp10Rounded, PowerOf(10), exponents(10)),
        UnaryFunction("2^x", RealExp2Rounded, PowerOf(2), exponents(2)),
        UnaryFunction("ln", RealLnRounded, LogarithmTo(0), positive),
        UnaryFunction("log2", RealLog2Rounded, LogarithmTo(2), positive),
        UnaryFunction("log10", RealLog10Rounded, LogarithmTo(10), positive),
        BinaryFunction("logx", RealLogRounded, LogarithmToBase,
                       [positive](RandomSource& random, FunctionArguments& x) {
                           DrawArgument(random, x.reals[0], positive);
                           DrawArgument(random, x.reals[1], positive);
                       }),
    };
}

}  // namespace tallymere::testing_support
