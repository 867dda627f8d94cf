// Hyperbolic functions and their inverses for the table of functions.
#include <algorithm>

#include "functions/hyperbolic.h"
#include "support/function_oracle.h"

namespace tallymere::testing_support {

namespace {

using FloatFunction = int (*)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t);

// A hyperbolic sine or cosine; half of e^|x| where the other half of the formula is far below the
// digits.
ExactFunction Hyperbolic(FloatFunction function, bool odd) {
    return [function, odd](const DecimalValue& x, int64_t digits) {
        if (x.exponent > 19) {
            return OutsideDomain();
        }
        FunctionValue result{FloatOf(x, digits + std::max<int64_t>(0, x.exponent) + 5)};
        if (mpfr_cmpabs_ui(result.value, static_cast<unsigned long>(3 * digits)) < 0) {
            function(result.value, result.value, MPFR_RNDN);
            return result;
        }
        mpfr_abs(result.value, result.value, MPFR_RNDN);
        result = ExponentialOf(result.value);
        mpfr_div_ui(result.value, result.value, 2, MPFR_RNDN);
        if (odd && x.Sign() < 0) {
            mpfr_neg(result.value, result.value, MPFR_RNDN);
        }
        return result;
    };
}

// An inverse one; ln |2 x| where the rest lies far below the digits.
ExactFunction InverseHyperbolic(FloatFunction function) {
    return [function](const DecimalValue& x, int64_t digits) {
        if (x.exponent > digits) {
            FunctionValue result = LogarithmOf(x, digits);
            Float lnTwo = result.value;
            mpfr_const_log2(lnTwo, MPFR_RNDN);
            mpfr_add(result.value, result.value, lnTwo, MPFR_RNDN);
            if (x.Sign() < 0) {
                mpfr_neg(result.value, result.value, MPFR_RNDN);
            }
            return result;
        }
        FunctionValue result{FloatOf(x, digits)};
        function(result.value, result.value, MPFR_RNDN);
        result.lost = function == mpfr_asinh ? 0 : DigitsNearOne(x) + 1;
        return result;
    };
}

// The inverse cosine has no value from 13/12 up to 1.1. No decimal number lies so near to 13/12
// that rounding could decide. Below 1.01 x^2 - 1 cancels, which has a row of its own.
FunctionValue InverseCosine(const DecimalValue& x, bool nearOne, int64_t digits) {
    if ((x.exponent == 0 && DigitsNearOne(x) > 2) != nearOne) {
        return OutsideDomain();
    }
    Float twelvefold = FloatOf(x, digits);
    Float tenfold = twelvefold;
    mpfr_mul_ui(twelvefold, twelvefold, 12, MPFR_RNDN);
    mpfr_mul_ui(tenfold, tenfold, 10, MPFR_RNDN);
    const bool inGap = mpfr_cmp_ui(static_cast<mpfr_srcptr>(twelvefold), 13) > 0 &&
                       mpfr_cmp_ui(static_cast<mpfr_srcptr>(tenfold), 11) < 0;
    return inGap ? OutsideDomain() : InverseHyperbolic(mpfr_acosh)(x, digits);
}

FunctionValue Tangent(const DecimalValue& x, int64_t digits) {
    FunctionValue result{Float(digits)};
    if (x.exponent > 9) {
        mpfr_set_si(result.value, x.Sign(), MPFR_RNDN);
    } else {
        result.value = FloatOf(x, digits);
        mpfr_tanh(result.value, result.value, MPFR_RNDN);
    }
    return result;
}

// Where the hyperbolic tangent becomes 1 at the precision in force.
Float EndOfTangent(RandomSource&, int64_t digits) {
    Float point(digits);
    mpfr_set_si(point, static_cast<long>(295 * numberContext.precisionDigits / 256 + 1), MPFR_RNDN);
    return point;
}

// Where an inverse function begins to ignore the 1 below the root.
Float HalfOfTheDigits(RandomSource&, int64_t digits) {
    Float point(digits);
    mpfr_set_ui(point, 10, MPFR_RNDN);
    mpfr_pow_ui(point, point, static_cast<unsigned long>((numberContext.precisionDigits + 4) / 2),
                MPFR_RNDN);
    return point;
}

// 1 + 10^-k.
Float JustAboveOne(RandomSource& random, int64_t digits) {
    Float point =
        PowersOfTen(-std::max<int64_t>(2, numberContext.precisionDigits), -2)(random, digits);
    mpfr_add_ui(point, point, 1, MPFR_RNDN);
    return point;
}

}  // namespace

std::vector<TestedFunction> HyperbolicFunctions() {
    const ArgumentDomain exponents{
        -1'000'000'000'000'000,
        18,
        true,
        {PointAt("0.5"), PointAt("0.1"), PointAt("0.01"), EndOfTangent, ExponentialSteps(0, -9, 9),
         ExponentialSteps(0, -1000, 1000), PowersOfTen(-30, 18), Fractions(1, 1000, 10)}};
    const ArgumentDomain sines{-1'000'000'000'000'000,
                               1'000'000'000'000'000,
                               true,
                               {PointAt("0.1"), PointAt("1"), HalfOfTheDigits, PowersOfTen(-30, 60),
                                LogarithmicSteps(-3, 9)}};
    const ArgumentDomain cosines{
        0,
        1'000'000'000'000'000,
        false,
        {PointAt("1"), PointAt("1.1"), PointAt("1.08333333333333333333"), PointAt("1.00005"),
         Fractions(100, 200, 100), HalfOfTheDigits, PowersOfTen(0, 60), LogarithmicSteps(0, 9)}};
    const ArgumentDomain nearOne{
        0, 0, false, {PointAt("1"), PointAt("1.00005"), PointAt("1.005"), JustAboveOne}, true};
    const auto inverseCosine = [](bool near) {
        return [near](const DecimalValue& x, int64_t digits) {
            return InverseCosine(x, near, digits);
        };
    };
    const ArgumentDomain tangents{-1'000'000'000'000'000,
                                  -1,
                                  true,
                                  {PointAt("1"), PointAt("0.1"), PointAt("0.01"),
                                   PowersOfTen(-30, -1), Fractions(1, 999, 1000)}};
    return {
        UnaryFunction("sinh", RealSinhRounded, Hyperbolic(mpfr_sinh, true), exponents),
        UnaryFunction("cosh", RealCoshRounded, Hyperbolic(mpfr_cosh, false), exponents),
        UnaryFunction("tanh", RealTanhRounded, Tangent, exponents),
        UnaryFunction("asinh", RealAsinhRounded, InverseHyperbolic(mpfr_asinh), sines),
        UnaryFunction("acosh", RealAcoshRounded, inverseCosine(false), cosines),
        UnaryFunction("acosh, near 1", RealAcoshRounded, inverseCosine(true), nearOne),
        UnaryFunction("atanh", RealAtanhRounded, InverseHyperbolic(mpfr_atanh), tangents),
    };
}

}  // namespace tallymere::testing_support
