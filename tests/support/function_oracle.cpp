#include "support/function_oracle.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace tallymere::testing_support {

namespace {

// Largest decimal exponent of a result that is compared: a little less than that of a RealNumber.
constexpr double LargestScale = 4.6e18;

}  // namespace

const std::vector<TestedFunction>& TestedFunctions() {
    static const std::vector<TestedFunction> functions = [] {
        std::vector<TestedFunction> all;
        for (auto group :
             {ExponentialFunctions, RootFunctions, PowerFunctions, TrigonometricFunctions,
              HyperbolicFunctions, CombinatoricFunctions, ComplexFunctions}) {
            for (TestedFunction& function : group()) {
                all.push_back(std::move(function));
            }
        }
        return all;
    }();
    return functions;
}

FunctionArguments DrawArguments(const TestedFunction& function, RandomSource& random) {
    FunctionArguments x;
    x.reals.resize(function.reals);
    function.draw(random, x);
    return x;
}

FunctionDeviation CompareFunction(const TestedFunction& function, const FunctionArguments& x) {
    std::vector<RealBuffer> results(function.results);
    function.run(results, x);
    const bool failed = TakeCode() != CalcErrorNone;
    ExactArguments exactArguments;
    exactArguments.n = x.n;
    for (const RealBuffer& real : x.reals) {
        exactArguments.reals.push_back(DecimalOf(real));
    }
    FunctionDeviation deviation;
    std::vector<Deviation> parts;
    int64_t largest = std::numeric_limits<int64_t>::min();
    for (size_t i = 0; i < results.size(); i++) {
        parts.push_back(CompareResult(
            results[i], [&](int64_t digits) { return function.exact(exactArguments, digits)[i]; }));
        if (!parts.back().inDomain) {
            deviation.inDomain = false;
            return deviation;
        }
        if (!parts.back().isZero) {
            largest = std::max(largest, parts.back().exponent);
        }
    }
    deviation.exponent = largest == std::numeric_limits<int64_t>::min() ? 0 : largest;
    for (const Deviation& part : parts) {
        const double ulps = failed ? std::numeric_limits<double>::infinity() : part.ulps;
        deviation.partUlps = std::max(deviation.partUlps, ulps);
        if (ulps > 0) {
            const double down = static_cast<double>(part.exponent) - static_cast<double>(largest);
            const double logUlps = failed ? ulps : part.logUlps;
            const double ofLarger = std::pow(10.0, logUlps + down);
            if (ofLarger > deviation.ulps) {
                deviation.ulps = ofLarger;
                deviation.logUlps = logUlps + down;
            } else if (ofLarger == deviation.ulps) {
                deviation.logUlps = std::max(deviation.logUlps, logUlps + down);
            }
        }
        deviation.wrongRoundings += part.correctlyRounded && !failed ? 0 : 1;
    }
    return deviation;
}

std::string ArgumentsText(const TestedFunction& function, const FunctionArguments& x) {
    std::string text;
    for (const RealBuffer& real : x.reals) {
        text += (text.empty() ? "" : "; ") + PlainText(real);
    }
    if (function.hasInteger) {
        text += (text.empty() ? "" : "; ") + std::to_string(x.n);
    }
    return text;
}

TestedFunction UnaryFunction(std::string name, RealRoundedUnary run, ExactFunction exact,
                             ArgumentDomain domain) {
    TestedFunction function;
    function.name = std::move(name);
    function.run = [run](std::vector<RealBuffer>& results, const FunctionArguments& x) {
        run(results[0], x.reals[0]);
    };
    function.exact = [exact = std::move(exact)](const ExactArguments& x, int64_t digits) {
        return std::vector{exact(x.reals[0], digits)};
    };
    function.draw = [domain = std::move(domain)](RandomSource& random, FunctionArguments& x) {
        DrawArgument(random, x.reals[0], domain);
    };
    return function;
}

TestedFunction BinaryFunction(std::string name, RealRoundedBinary run, ExactFunction2 exact,
                              std::function<void(RandomSource&, FunctionArguments&)> draw) {
    TestedFunction function;
    function.name = std::move(name);
    function.reals = 2;
    function.run = [run](std::vector<RealBuffer>& results, const FunctionArguments& x) {
        run(results[0], x.reals[0], x.reals[1]);
    };
    function.exact = [exact = std::move(exact)](const ExactArguments& x, int64_t digits) {
        return std::vector{exact(x.reals[0], x.reals[1], digits)};
    };
    function.draw = std::move(draw);
    return function;
}

FunctionValue OutsideDomain() {
    FunctionValue value{Float(0)};
    mpfr_set_nan(value.value);
    return value;
}

int64_t DigitsNearOne(const DecimalValue& x) {
    if (x.exponent < -1 || x.exponent > 0) {
        return 0;
    }
    Integer distance;
    mpz_abs(distance, x.mantissa);
    mpz_sub(distance, distance, PowerOfTenInteger(x.digits - 1 - x.exponent));
    if (distance.Sign() == 0) {
        return 0;
    }
    const auto digits = static_cast<int64_t>(mpz_sizeinbase(distance, 10));
    return std::max<int64_t>(0, x.digits - x.exponent - digits + 1);
}

FunctionValue LogarithmOf(const DecimalValue& x, int64_t digits) {
    FunctionValue result{FloatOf({x.mantissa, 0, x.digits}, digits)};
    Float& value = result.value;
    const bool nearOne = x.exponent == 0 || x.exponent == -1;
    if (nearOne) {
        value = FloatOf(x, digits);
    }
    mpfr_abs(value, value, MPFR_RNDN);
    mpfr_log(value, value, MPFR_RNDN);
    if (!nearOne) {
        Float power = value;
        mpfr_log_ui(power, 10, MPFR_RNDN);
        mpfr_mul_si(power, power, static_cast<long>(x.exponent), MPFR_RNDN);
        mpfr_add(value, value, power, MPFR_RNDN);
    }
    result.lost = DigitsNearOne(x);
    return result;
}

FunctionValue ExponentialOf(const Float& x) {
    FunctionValue result{x};
    Float& rest = result.value;
    Float lnTen = x;
    mpfr_log_ui(lnTen, 10, MPFR_RNDN);
    Float count = x;
    mpfr_div(count, x, lnTen, MPFR_RNDN);
    mpfr_trunc(count, count);
    if (!(std::fabs(mpfr_get_d(count, MPFR_RNDN)) < LargestScale)) {
        return OutsideDomain();
    }
    result.scale = mpfr_get_si(count, MPFR_RNDN);
    mpfr_mul(lnTen, lnTen, count, MPFR_RNDN);
    mpfr_sub(rest, x, lnTen, MPFR_RNDN);
    mpfr_exp(rest, rest, MPFR_RNDN);
    return result;
}

}  // namespace tallymere::testing_support
