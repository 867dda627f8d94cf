// Roots and the hypotenuse for the table of functions.
#include <algorithm>
#include <cstdlib>

#include "functions/hypotenuse.h"
#include "functions/roots.h"
#include "support/function_oracle.h"

namespace tallymere::testing_support {

namespace {

// The root of that degree by a function of MPFR, of a magnitude of [1, 10^degree) and a scale.
FunctionValue RootOf(const DecimalValue& x, int64_t digits, int64_t degree,
                     int (*root)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t)) {
    const int64_t rest = (x.exponent % degree + degree) % degree;
    FunctionValue result{FloatOf({x.mantissa, rest, x.digits}, digits)};
    root(result.value, result.value, MPFR_RNDN);
    result.scale = (x.exponent - rest) / degree;
    return result;
}

FunctionValue HypotenuseOf(const DecimalValue& a, const DecimalValue& b, int64_t digits) {
    const DecimalValue& large = a.exponent >= b.exponent ? a : b;
    const DecimalValue& small = a.exponent >= b.exponent ? b : a;
    FunctionValue result{SignificandOf(large, digits)};
    result.scale = large.exponent;
    const int64_t distance = large.exponent - small.exponent;
    if (distance > 2 * digits) {
        mpfr_abs(result.value, result.value, MPFR_RNDN);
    } else {
        const Float other = FloatOf({small.mantissa, -distance, small.digits}, digits);
        mpfr_hypot(result.value, result.value, other, MPFR_RNDN);
    }
    return result;
}

// Sides of like and of unlike size, and such as differ by about as many digits as a number has.
void DrawSides(RandomSource& random, FunctionArguments& x) {
    DrawArgument(random, x.reals[0], {-1'000'000'000'000, 1'000'000'000'000, true, {}});
    if (random.Below(4) == 0) {
        DrawArgument(random, x.reals[1], {-1'000'000'000'000, 1'000'000'000'000, true, {}});
    } else {
        FillPartner(random, x.reals[1], x.reals[0], 30);
    }
    if (random.Below(10) == 0) {  // Whole sides, the hypotenuse being whole at times.
        DrawIntegerArgument(random, x.reals[0], 1, 100);
        DrawIntegerArgument(random, x.reals[1], 1, 100);
    }
}

}  // namespace

std::vector<TestedFunction> RootFunctions() {
    const auto domain = [](unsigned long degree, bool negative) {
        return ArgumentDomain{-1'000'000'000'000'000,
                              1'000'000'000'000'000,
                              negative,
                              {PerfectPowers(degree, 9), PerfectPowers(degree, 1000),
                               PowersOfTen(-60, 60), PointAt("1.6"), PointAt("2.5"), PointAt("4"),
                               PointAt("6.4"), PointAt("8"), PointAt("5.12e2")}};
    };
    return {
        UnaryFunction(
            "sqrt", RealSqrtRounded,
            [](const DecimalValue& x, int64_t digits) { return RootOf(x, digits, 2, mpfr_sqrt); },
            domain(2, false)),
        UnaryFunction(
            "cbrt", RealCbrtRounded,
            [](const DecimalValue& x, int64_t digits) { return RootOf(x, digits, 3, mpfr_cbrt); },
            domain(3, true)),
        BinaryFunction("hypot", RealHypotRounded, HypotenuseOf, DrawSides),
    };
}

}  // namespace tallymere::testing_support
