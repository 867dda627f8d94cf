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

// The number of eighths of a turn must fit 64 bits.
Integer TwoToThe63() {
    Integer number(1);
    mpz_mul_2exp(number, number, 63);
    return number;
}

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

// The same of an angle in units, which is reduced by exact integers.
ExactFunction CircularOfUnits(FloatFunction function, unsigned long unitsPerQuarter) {
    return [function, unitsPerQuarter](const DecimalValue& x, int64_t digits) {
        DecimalValue rest = x;
        Integer quarters;
        if (x.exponent >= 0) {
            const int64_t places = std::max<int64_t>(0, x.digits - 1 - x.exponent);
            mpz_mul(rest.mantissa, rest.mantissa,
                    PowerOfTenInteger(places - (x.digits - 1 - x.exponent)));
            Integer quarter = PowerOfTenInteger(places);
            mpz_mul_ui(quarter, quarter, unitsPerQuarter);
            // From half a quarter below a multiple up to half a quarter above it.
            Integer moved;
            mpz_mul_ui(moved, rest.mantissa, 2);
            mpz_add(moved, moved, quarter);
            mpz_fdiv_q(quarters, moved, quarter);
            mpz_fdiv_q_2exp(quarters, quarters, 1);
            if (mpz_cmpabs(quarters, TwoToThe63()) > 0) {
                return OutsideDomain();
            }
            mpz_submul(rest.mantissa, quarters, quarter);
            rest.digits = 1;
            rest.exponent = -places;
        }
        FunctionValue result{FloatOf(rest, digits)};
        Float& value = result.value;
        Float factor = value;
        mpfr_const_pi(factor, MPFR_RNDN);
        mpfr_div_ui(factor, factor, 2 * unitsPerQuarter, MPFR_RNDN);
        mpfr_mul(value, value, factor, MPFR_RNDN);
        const unsigned long turned = mpz_fdiv_ui(quarters, 4);
        bool negative = false;
        if (function == mpfr_tan) {
            if (turned % 2 == 0) {
                mpfr_tan(value, value, MPFR_RNDN);
            } else if (mpfr_zero_p(static_cast<mpfr_srcptr>(value)) != 0) {
                return OutsideDomain();
            } else {
                mpfr_cot(value, value, MPFR_RNDN);
                negative = true;
            }
        } else {
            const bool ofSine = (function == mpfr_sin) == (turned % 2 == 0);
            (ofSine ? mpfr_sin : mpfr_cos)(value, value, MPFR_RNDN);
            negative = function == mpfr_sin ? turned >= 2 : turned == 1 || turned == 2;
        }
        if (negative) {
            mpfr_neg(value, value, MPFR_RNDN);
        }
        result.lost = 2;
        return result;
    };
}

FunctionValue AngleOf(const DecimalValue& y, const DecimalValue& x, int64_t digits) {
    FunctionValue result{FloatOf(y, digits)};
    mpfr_atan2(result.value, result.value, FloatOf(x, digits), MPFR_RNDN);
    return result;
}

// angle * half / pi.
void ToUnits(Float& angle, unsigned long half) {
    Float factor = angle;
    mpfr_const_pi(factor, MPFR_RNDN);
    mpfr_div_ui(factor, factor, half, MPFR_RNDN);
    mpfr_div(angle, angle, factor, MPFR_RNDN);
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

// An inverse function in degrees or gon. Only that of a tangent of 1 lies half way between two
// numbers of few digits, so it is made exactly.
ExactFunction InverseInUnits(FloatFunction function, unsigned long half) {
    return [function, half](const DecimalValue& x, int64_t digits) {
        FunctionValue result = InverseCircular(function)(x, digits);
        if (function == mpfr_atan && mpz_cmpabs(x.mantissa, PowerOfTenInteger(x.digits - 1)) == 0 &&
            x.exponent == 0) {
            mpfr_set_ui(result.value, half, MPFR_RNDN);
            mpfr_div_ui(result.value, result.value, 4, MPFR_RNDN);
            mpfr_setsign(result.value, result.value, x.Sign() < 0 ? 1 : 0, MPFR_RNDN);
            return result;
        }
        ToUnits(result.value, half);
        return result;
    };
}

ExactFunction2 AngleOfInUnits(unsigned long half) {
    return [half](const DecimalValue& y, const DecimalValue& x, int64_t digits) {
        FunctionValue result = AngleOf(y, x, digits);
        ToUnits(result.value, half);
        if (y.exponent == x.exponent && mpz_cmpabs(y.mantissa, x.mantissa) == 0) {
            // An odd multiple of an eighth of a turn; the quotient is very near to it.
            mpfr_mul_ui(result.value, result.value, 4, MPFR_RNDN);
            mpfr_div_ui(result.value, result.value, half, MPFR_RNDN);
            mpfr_rint(result.value, result.value, MPFR_RNDN);
            mpfr_mul_ui(result.value, result.value, half, MPFR_RNDN);
            mpfr_div_ui(result.value, result.value, 4, MPFR_RNDN);
        }
        return result;
    };
}

// Multiples of an eighth of a turn, of which `units` are one, mostly few.
SpecialPoint Multiples(uint64_t units) {
    return [units](RandomSource& random, int64_t digits) {
        Float point(digits + 20);
        const uint64_t most = random.Below(2) == 0 ? 20 : 10'000'000'000'000'000'000u;
        mpfr_set_ui(point, random.Below(most), MPFR_RNDN);
        mpfr_mul_ui(point, point, units, MPFR_RNDN);
        return point;
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
    const auto unitAngles = [](uint64_t unitsPerOctant) {
        return ArgumentDomain{-1'000'000'000'000'000,
                              20,
                              true,
                              {Multiples(unitsPerOctant), Multiples(2 * unitsPerOctant),
                               PowersOfTen(-20, 20), Fractions(1, 4000, 10)}};
    };
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
        UnaryFunction("sind", RealSinDegreesRounded, CircularOfUnits(mpfr_sin, 90), unitAngles(45)),
        UnaryFunction("cosd", RealCosDegreesRounded, CircularOfUnits(mpfr_cos, 90), unitAngles(45)),
        UnaryFunction("tand", RealTanDegreesRounded, CircularOfUnits(mpfr_tan, 90), unitAngles(45)),
        UnaryFunction("sing", RealSinGonRounded, CircularOfUnits(mpfr_sin, 100), unitAngles(50)),
        UnaryFunction("cosg", RealCosGonRounded, CircularOfUnits(mpfr_cos, 100), unitAngles(50)),
        UnaryFunction("tang", RealTanGonRounded, CircularOfUnits(mpfr_tan, 100), unitAngles(50)),
        UnaryFunction("asind", RealAsinDegreesRounded, InverseInUnits(mpfr_asin, 180),
                      unitInterval),
        UnaryFunction("acosd", RealAcosDegreesRounded, InverseInUnits(mpfr_acos, 180),
                      unitInterval),
        UnaryFunction("atand", RealAtanDegreesRounded, InverseInUnits(mpfr_atan, 180), tangents),
        UnaryFunction("asing", RealAsinGonRounded, InverseInUnits(mpfr_asin, 200), unitInterval),
        UnaryFunction("acosg", RealAcosGonRounded, InverseInUnits(mpfr_acos, 200), unitInterval),
        UnaryFunction("atang", RealAtanGonRounded, InverseInUnits(mpfr_atan, 200), tangents),
        BinaryFunction("argd", RealAtan2DegreesRounded, AngleOfInUnits(180), DrawPoint),
        BinaryFunction("argg", RealAtan2GonRounded, AngleOfInUnits(200), DrawPoint),
    };
}

}  // namespace tallymere::testing_support
