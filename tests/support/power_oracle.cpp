// Powers and general roots for the table of functions.
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "functions/powers.h"
#include "functions/roots.h"
#include "support/function_oracle.h"

namespace tallymere::testing_support {

namespace {

bool IsNegative(const DecimalValue& x) {
    return x.Sign() < 0;
}

// |x|^y for y given by an operation on ln |x|, with a minus sign if `negative`.
template <typename Operation>
FunctionValue ByLogarithm(const DecimalValue& x, int64_t digits, int64_t exponentOfY, bool negative,
                          Operation operation) {
    // The product's integer part has up to 19 digits, and the logarithm loses digits near 1.
    const int64_t size = std::max<int64_t>(0, exponentOfY) + 25;
    FunctionValue logarithm = LogarithmOf(x, digits + size + DigitsNearOne(x));
    operation(logarithm.value);
    FunctionValue result = ExponentialOf(logarithm.value);
    if (negative) {
        mpfr_neg(result.value, result.value, MPFR_RNDN);
    }
    return result;
}

// Bases below 10^-FarExponent and above 10^FarExponent have rows of their own: their logarithms
// take more digits before the point than the guard digits allow for.
constexpr int64_t FarExponent = 9;

bool IsFar(const DecimalValue& x) {
    return std::llabs(x.exponent) > FarExponent;
}

FunctionValue PowerOf(const DecimalValue& x, const DecimalValue& y, int64_t digits) {
    return ByLogarithm(x, digits, y.exponent, false, [&](Float& logarithm) {
        mpfr_mul(logarithm, logarithm, FloatOf(y, digits + 30 + std::max<int64_t>(0, y.exponent)),
                 MPFR_RNDN);
    });
}

FunctionValue IntegerPowerOf(const DecimalValue& x, int64_t n, int64_t digits) {
    return ByLogarithm(x, digits, 19, IsNegative(x) && n % 2 != 0, [&](Float& logarithm) {
        mpfr_mul_si(logarithm, logarithm, static_cast<long>(n), MPFR_RNDN);
    });
}

FunctionValue IntegerRootOf(const DecimalValue& x, int64_t n, int64_t digits) {
    if (x.Sign() < 0 && n % 2 == 0) {
        return OutsideDomain();
    }
    return ByLogarithm(x, digits, 0, IsNegative(x), [&](Float& logarithm) {
        mpfr_div_si(logarithm, logarithm, static_cast<long>(n), MPFR_RNDN);
    });
}

// The degree is a whole number here, mostly one of 19 digits at most.
FunctionValue RootOf(const DecimalValue& n, const DecimalValue& x, int64_t digits) {
    const Float degree = FloatOf(n, digits + std::max<int64_t>(0, n.exponent));
    Float half = degree;
    mpfr_div_2ui(half, half, 1, MPFR_RNDN);
    if (x.Sign() < 0 && mpfr_integer_p(static_cast<mpfr_srcptr>(half)) != 0) {
        return OutsideDomain();
    }
    return ByLogarithm(x, digits, 0, IsNegative(x), [&](Float& logarithm) {
        mpfr_div(logarithm, logarithm, degree, MPFR_RNDN);
    });
}

const ArgumentDomain& Bases() {
    static const ArgumentDomain bases{
        -1'000'000'000'000,
        1'000'000'000'000,
        false,
        {PointAt("1"), PointAt("2"), PointAt("10"), LogarithmicSteps(-3, 3), PowersOfTen(-9, 9),
         Fractions(1, 1000, 1), Fractions(1, 1000, 16)}};
    return bases;
}

// Base and exponent such that the power mostly stays in the range of exponents and is not 1.
void DrawPower(RandomSource& random, FunctionArguments& x) {
    DrawArgument(random, x.reals[0], Bases());
    DrawArgument(random, x.reals[1],
                 {-1'000'000, 18, true, {Fractions(1, 1000, 1), Fractions(1, 1000, 2)}});
    const DecimalValue base = DecimalOf(x.reals[0]);
    if (const int64_t nearOne = DigitsNearOne(base); nearOne > 0) {
        // Near 1 only a large exponent shows.
        x.reals[1].Get()->header =
            MakeHeader(nearOne + random.Between(-3, 3), RealSign(x.reals[1]));
    } else {
        const double size = std::log10(1 + std::fabs(static_cast<double>(base.exponent)));
        if (static_cast<double>(RealExponent(x.reals[1])) + size > 17) {
            x.reals[1].Get()->header = MakeHeader(random.Between(-3, 5), RealSign(x.reals[1]));
        }
    }
}

// An integer whose power stays in the range of exponents.
int64_t DrawPowerInteger(RandomSource& random, const RealNumber* x) {
    const double exponent = 1 + std::fabs(static_cast<double>(RealExponent(x)));
    const auto largest = static_cast<int64_t>(std::min(9.0e18, 4.0e18 / exponent));
    const int64_t n = random.Below(2) == 0 ? random.Between(0, std::min<int64_t>(120, largest))
                                           : DrawInteger(random, 0, largest);
    return random.Below(3) == 0 ? -n : n;
}

TestedFunction WithInteger(std::string name,
                           void (*run)(RealNumber* dest, const RealNumber* x, int64_t n),
                           FunctionValue (*exact)(const DecimalValue& x, int64_t n, int64_t digits),
                           std::function<void(RandomSource&, FunctionArguments&)> draw) {
    TestedFunction function;
    function.name = std::move(name);
    function.hasInteger = true;
    function.run = [run](std::vector<RealBuffer>& results, const FunctionArguments& x) {
        run(results[0], x.reals[0], x.n);
    };
    function.exact = [exact](const ExactArguments& x, int64_t digits) {
        return std::vector{exact(x.reals[0], x.n, digits)};
    };
    function.draw = std::move(draw);
    return function;
}

void DrawIntegerPower(RandomSource& random, FunctionArguments& x) {
    ArgumentDomain bases = Bases();
    bases.negative = true;
    DrawArgument(random, x.reals[0], bases);
    x.n = DrawPowerInteger(random, x.reals[0]);
}

TestedFunction PowerOfTwo() {
    TestedFunction function;
    function.name = "2^n";
    function.reals = 0;
    function.hasInteger = true;
    function.run = [](std::vector<RealBuffer>& results, const FunctionArguments& x) {
        RealPowerOfTwoRounded(results[0], x.n);
    };
    function.exact = [](const ExactArguments& x, int64_t digits) {
        const DecimalValue base{Integer(2), 0, 1};
        return std::vector{IntegerPowerOf(base, x.n, digits)};
    };
    function.draw = [](RandomSource& random, FunctionArguments& x) {
        x.n = random.Below(3) == 0 ? random.Between(0, 1000)
                                   : DrawInteger(random, 0, 9'000'000'000'000'000'000);
        x.n = random.Below(2) == 0 ? -x.n : x.n;
    };
    return function;
}

void DrawRoot(RandomSource& random, FunctionArguments& x) {
    ArgumentDomain radicands = Bases();
    radicands.negative = true;
    DrawIntegerArgument(random, x.reals[0], 1,
                        random.Below(2) == 0 ? 120 : 9'000'000'000'000'000'000);
    DrawArgument(random, x.reals[1], radicands);
}

}  // namespace

std::vector<TestedFunction> PowerFunctions() {
    const auto power = [](bool far) {
        return [far](const DecimalValue& x, const DecimalValue& y, int64_t digits) {
            return IsFar(x) == far ? PowerOf(x, y, digits) : OutsideDomain();
        };
    };
    const auto root = [](bool far) {
        return [far](const DecimalValue& n, const DecimalValue& x, int64_t digits) {
            return IsFar(x) == far ? RootOf(n, x, digits) : OutsideDomain();
        };
    };
    return {
        BinaryFunction("x^y", RealPowerRounded, power(false), DrawPower),
        BinaryFunction("x^y, very large or small x", RealPowerRounded, power(true), DrawPower),
        WithInteger("x^n", RealPowerIntRounded, IntegerPowerOf, DrawIntegerPower),
        PowerOfTwo(),
        BinaryFunction("root", RealRootRounded, root(false), DrawRoot),
        BinaryFunction("root, very large or small x", RealRootRounded, root(true), DrawRoot),
    };
}

}  // namespace tallymere::testing_support
