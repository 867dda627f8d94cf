// Circular functions, their inverses and angle units for the table of functions.
#include <algorithm>
#include <cstdlib>

#include "functions/angle_units.h"
#include "functions/inverse_trigonometric.h"
#include "functions/trigonometric.h"
#include "support/function_oracle.h"

namespace tallymere::testing_support {

namespace {

using FloatFunction = int (*)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t);

// Below this magnitude, or above its inverse, a value of a circular function lies near a zero or a
// pole.
constexpr int64_t NearZeroExponent = -2;

// A sine, cosine or tangent, which lose near their zeros and poles what the argument lacks; only
// such values or only others.
ExactFunction Circular(FloatFunction function, bool nearZeros) {
    return [function, nearZeros](const DecimalValue& x, int64_t digits) {
        FunctionValue result{FloatOf(x, digits + std::max<int64_t>(0, x.exponent) + 5)};
        // The number of quarters of pi must fit 64 bits.
        if (mpfr_cmpabs_ui(result.value, 14'480'000'000'000'000'000u) > 0) {
            return OutsideDomain();
        }
        function(result.value, result.value, MPFR_RNDN);
        const int64_t size = x.exponent < 0 ? 0 : std::llabs(ExponentOf(result.value));
        result.lost = size + 1;
        return (size > -NearZeroExponent) == nearZeros ? result : OutsideDomain();
    };
}

// An inverse function; arcsine and arccosine of a number near 1 lose digits.
ExactFunction InverseCircular(FloatFunction function) {
    return [function](const DecimalValue& x, int64_t digits) {
        FunctionValue result{FloatOf(x, digits)};
        function(result.value, result.value, MPFR_RNDN);
        result.lost = function == mpfr_atan ? 0 : DigitsNearOne(x) + 1;
        return result;
    };
}

FunctionValue AngleOf(const DecimalValue& y, const DecimalValue& x, int64_t digits) {
    FunctionValue result{FloatOf(y, digits)};
    mpfr_atan2(result.value, result.value, FloatOf(x, digits), MPFR_RNDN);
    return result;
}

// x * pi / half, or x * half / pi.
ExactFunction AngleUnit(unsigned long half, bool toRadians) {
    return [half, toRadians](const DecimalValue& x, int64_t digits) {
        FunctionValue result{SignificandOf(x, digits)};
        Float factor = result.value;
        mpfr_const_pi(factor, MPFR_RNDN);
        mpfr_div_ui(factor, factor, half, MPFR_RNDN);
        (toRadians ? mpfr_mul : mpfr_div)(result.value, result.value, factor, MPFR_RNDN);
        result.scale = x.exponent;
        return result;
    };
}

// Points of the plane, near the axes and the diagonals as well.
void DrawPoint(RandomSource& random, FunctionArguments& x) {
    const ArgumentDomain domain{-1'000'000, 1'000'000, true, {PointAt("1"), TangentSteps()}};
    DrawArgument(random, x.reals[0], domain);
    if (random.Below(3) == 0) {
        DrawArgument(random, x.reals[1], domain);
    } else {
        FillPartner(random, x.reals[1], x.reals[0], 30);
    }
}

}  // namespace

std::vector<TestedFunction> TrigonometricFunctions() {
    const ArgumentDomain angles{-1'000'000'000'000'000,
                                19,
                                true,
                                {QuartersOfPi(3), QuartersOfPi(18), PowersOfTen(-20, 19),
                                 Fractions(1, 1000, 1), PointAt("0.7853981634")}};
    const ArgumentDomain quarters{0, 19, true, {QuartersOfPi(3), QuartersOfPi(18)}, true};
    const ArgumentDomain unitInterval{
        -1'000'000'000'000'000,
        0,
        true,
        {PointAt("1"), PointAt("0.5"), PointAt("0.70710678118654752440"), Fractions(1, 999, 1000),
         PowersOfTen(-30, -1), TangentSteps()}};
    const ArgumentDomain tangents{-1'000'000'000'000'000,
                                  1'000'000'000'000'000,
                                  true,
                                  {PointAt("1"), TangentSteps(), PowersOfTen(-30, 30)}};
    const ArgumentDomain anything{-1'000'000'000'000'000,
                                  1'000'000'000'000'000,
                                  true,
                                  {Fractions(1, 400, 1), Fractions(1, 4000, 10), QuartersOfPi(3)}};
    return {
        UnaryFunction("sin", RealSinRounded, Circular(mpfr_sin, false), angles),
        UnaryFunction("cos", RealCosRounded, Circular(mpfr_cos, false), angles),
        UnaryFunction("tan", RealTanRounded, Circular(mpfr_tan, false), angles),
        UnaryFunction("sin, near its zeros", RealSinRounded, Circular(mpfr_sin, true), quarters),
        UnaryFunction("cos, near its zeros", RealCosRounded, Circular(mpfr_cos, true), quarters),
        UnaryFunction("tan, near zeros and poles", RealTanRounded, Circular(mpfr_tan, true),
                      quarters),
        UnaryFunction("asin", RealAsinRounded, InverseCircular(mpfr_asin), unitInterval),
        UnaryFunction("acos", RealAcosRounded, InverseCircular(mpfr_acos), unitInterval),
        UnaryFunction("atan", RealAtanRounded, InverseCircular(mpfr_atan), tangents),
        BinaryFunction("atan2", RealAtan2Rounded, AngleOf, DrawPoint),
        UnaryFunction("degrees to radians", RealDegToRad, AngleUnit(180, true), anything),
        UnaryFunction("gon to radians", RealGonToRad, AngleUnit(200, true), anything),
        UnaryFunction("radians to degrees", RealRadToDeg, AngleUnit(180, false), anything),
        UnaryFunction("radians to gon", RealRadToGon, AngleUnit(200, false), anything),
    };
}

}  // namespace tallymere::testing_support
