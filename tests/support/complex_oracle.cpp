// Complex arithmetic, powers and roots for the table of functions.
#include <mpc.h>

#include <algorithm>
#include <cstdlib>

#include "core/complex_arithmetic.h"
#include "functions/complex_modulus.h"
#include "functions/complex_powers.h"
#include "functions/complex_roots.h"
#include "support/function_oracle.h"

namespace tallymere::testing_support {

namespace {

// A complex number of MPC with so many digits in each part.
class ComplexFloat {
public:
    explicit ComplexFloat(int64_t digits) {
        const Float sample(digits);
        mpc_init2(value_, mpfr_get_prec(static_cast<mpfr_srcptr>(sample)));
    }
    ComplexFloat(const ComplexFloat&) = delete;
    ComplexFloat& operator=(const ComplexFloat&) = delete;
    ~ComplexFloat() { mpc_clear(value_); }
    operator mpc_ptr() { return value_; }

private:
    mpc_t value_;
};

// A complex number of the program.
class ComplexBuffer {
public:
    ComplexBuffer() : words_(static_cast<size_t>(ComplexWords())) {}
    ComplexBuffer(const RealNumber* real, const RealNumber* imaginary) : ComplexBuffer() {
        RealCopy(RealPart(Get()), real);
        RealCopy(ImaginaryPart(Get()), imaginary);
    }
    ComplexNumber* Get() { return ComplexAt(words_.data()); }

    void CopyTo(std::vector<RealBuffer>& parts) {
        RealCopy(parts[0], RealPart(Get()));
        if (parts.size() > 1) {
            RealCopy(parts[1], ImaginaryPart(Get()));
        }
    }

private:
    std::vector<uint64_t> words_;
};

// Both parts as whole numbers, which MPFR holds exactly; returns the exponent of their unit.
int64_t SetExactly(ComplexFloat& z, const DecimalValue& x, const DecimalValue& y) {
    const int64_t unitX = x.exponent - x.digits + 1;
    const int64_t unitY = y.exponent - y.digits + 1;
    const int64_t unit = x.IsZero() ? unitY : y.IsZero() ? unitX : std::min(unitX, unitY);
    Integer real = x.mantissa;
    Integer imaginary = y.mantissa;
    if (!x.IsZero()) {
        mpz_mul(real, real, PowerOfTenInteger(unitX - unit));
    }
    if (!y.IsZero()) {
        mpz_mul(imaginary, imaginary, PowerOfTenInteger(unitY - unit));
    }
    mpc_set_z_z(z, real, imaginary, MPC_RNDNN);
    return unit;
}

// The digits that hold both parts exactly.
int64_t ExactDigits(const DecimalValue& x, const DecimalValue& y) {
    return x.digits + (x.IsZero() || y.IsZero() ? 0 : std::llabs(x.exponent - y.exponent)) + 1;
}

std::vector<FunctionValue> PartsOf(ComplexFloat& z, int64_t digits, int64_t scale) {
    std::vector<FunctionValue> parts(2, FunctionValue{Float(digits), scale, 0});
    mpfr_set(parts[0].value, mpc_realref(static_cast<mpc_ptr>(z)), MPFR_RNDN);
    mpfr_set(parts[1].value, mpc_imagref(static_cast<mpc_ptr>(z)), MPFR_RNDN);
    return parts;
}

// MPC rounds each part of a product and of a quotient correctly.
std::vector<FunctionValue> Combined(const ExactArguments& x, int64_t digits, bool divide) {
    ComplexFloat a(ExactDigits(x.reals[0], x.reals[1]));
    ComplexFloat b(ExactDigits(x.reals[2], x.reals[3]));
    ComplexFloat result(digits);
    const int64_t unitA = SetExactly(a, x.reals[0], x.reals[1]);
    const int64_t unitB = SetExactly(b, x.reals[2], x.reals[3]);
    (divide ? mpc_div : mpc_mul)(result, a, b, MPC_RNDNN);
    return PartsOf(result, digits, divide ? unitA - unitB : unitA + unitB);
}

std::vector<FunctionValue> Reciprocal(const ExactArguments& x, int64_t digits) {
    ComplexFloat z(ExactDigits(x.reals[0], x.reals[1]));
    ComplexFloat result(digits);
    const int64_t unit = SetExactly(z, x.reals[0], x.reals[1]);
    mpc_ui_div(result, 1, z, MPC_RNDNN);
    return PartsOf(result, digits, -unit);
}

std::vector<FunctionValue> Modulus(const ExactArguments& x, int64_t digits) {
    ComplexFloat z(ExactDigits(x.reals[0], x.reals[1]));
    FunctionValue result{Float(digits)};
    result.scale = SetExactly(z, x.reals[0], x.reals[1]);
    mpc_abs(result.value, z, MPFR_RNDN);
    return {result};
}

std::vector<FunctionValue> IntegerPower(const ExactArguments& x, int64_t digits) {
    ComplexFloat z(ExactDigits(x.reals[0], x.reals[1]));
    ComplexFloat result(digits + 5);
    const int64_t unit = SetExactly(z, x.reals[0], x.reals[1]);
    mpc_pow_ui(result, z, static_cast<unsigned long>(std::llabs(x.n)), MPC_RNDNN);
    if (x.n < 0) {
        mpc_ui_div(result, 1, result, MPC_RNDNN);
    }
    return PartsOf(result, digits, unit * x.n);
}

// Branch k of the root of degree n: the modulus' root at the angle (arg z + 2 pi k) / n. A part
// that is 0 because the angle is a multiple of a quarter turn comes out as exactly that.
std::vector<FunctionValue> RootBranch(const DecimalValue& real, const DecimalValue& imaginary,
                                      int64_t n, int64_t k, int64_t digits) {
    const int64_t spare = 20;
    ComplexFloat z(std::max(ExactDigits(real, imaginary), digits + spare));
    const int64_t unit = SetExactly(z, real, imaginary);
    Float angle(digits + spare);
    mpc_arg(angle, z, MPFR_RNDN);
    Float turn = angle;
    mpfr_const_pi(turn, MPFR_RNDN);
    mpfr_mul_si(turn, turn, static_cast<long>(2 * k), MPFR_RNDN);
    mpfr_add(angle, angle, turn, MPFR_RNDN);
    mpfr_div_si(angle, angle, static_cast<long>(n), MPFR_RNDN);

    // The modulus is m * 10^unit; the scale takes a multiple of n out of its exponent.
    Float modulus = angle;
    mpc_abs(modulus, z, MPFR_RNDN);
    const int64_t rest = (unit % n + n) % n;
    Float logarithm = modulus;
    mpfr_log(logarithm, modulus, MPFR_RNDN);
    Float power = modulus;
    mpfr_log_ui(power, 10, MPFR_RNDN);
    mpfr_mul_si(power, power, static_cast<long>(rest), MPFR_RNDN);
    mpfr_add(logarithm, logarithm, power, MPFR_RNDN);
    mpfr_div_si(logarithm, logarithm, static_cast<long>(n), MPFR_RNDN);
    mpfr_exp(modulus, logarithm, MPFR_RNDN);

    std::vector<FunctionValue> parts(2, FunctionValue{angle, (unit - rest) / n, 0});
    mpfr_sin_cos(parts[1].value, parts[0].value, angle, MPFR_RNDN);
    // Where z lies on an axis and its quarter turns are divisible by n, a part is 0.
    const bool onAxis = real.IsZero() || imaginary.IsZero();
    const int64_t axis = real.IsZero() ? imaginary.Sign() : 1 - real.Sign();
    const bool exact = onAxis && (axis + 4 * k) % n == 0;
    for (size_t i = 0; i < 2; i++) {
        FunctionValue& part = parts[i];
        const bool quarterIsOdd = exact && (axis + 4 * k) / n % 2 != 0;
        if (exact && quarterIsOdd == (i == 0)) {
            mpfr_set_zero(part.value, 1);
            continue;
        }
        part.lost = std::max<int64_t>(0, -ExponentOf(part.value) - spare / 2);
        mpfr_mul(part.value, part.value, modulus, MPFR_RNDN);
    }
    return parts;
}

TestedFunction ComplexFunction(std::string name, size_t reals, size_t results, bool hasInteger) {
    TestedFunction function;
    function.name = std::move(name);
    function.reals = reals;
    function.results = results;
    function.hasInteger = hasInteger;
    return function;
}

// Parts of like and of unlike size.
void DrawComplex(RandomSource& random, RealNumber* real, RealNumber* imaginary) {
    FillReal(random, real, 3);
    FillPartner(random, imaginary, real, 20);
    if (random.Below(8) == 0) {
        DrawArgument(random, real, {-3, 3, true, {Fractions(1, 20, 1)}});
        DrawArgument(random, imaginary, {-3, 3, true, {Fractions(1, 20, 1)}});
    }
    if (random.Below(16) == 0) {
        RealSetZero(random.Below(2) == 0 ? real : imaginary, 0);
    }
}

// Two factors; at times the second is such that a part of the product cancels.
void DrawFactors(RandomSource& random, FunctionArguments& x) {
    DrawComplex(random, x.reals[0], x.reals[1]);
    if (random.Below(4) != 0) {
        DrawComplex(random, x.reals[2], x.reals[3]);
        return;
    }
    const bool conjugate = random.Below(2) == 0;
    RealCopy(x.reals[conjugate ? 2 : 3], x.reals[0]);
    RealCopy(x.reals[conjugate ? 3 : 2], x.reals[1]);
    for (size_t i = 2; i < 4; i++) {
        DecimalValue part = DecimalOf(x.reals[i]);
        if (!part.IsZero()) {
            part = Neighbour(part, random.Between(-9, 9));
            if (!part.IsZero()) {
                RealFromDecimal(x.reals[i], part);
            }
        }
    }
    if (conjugate) {
        RealNegate(x.reals[3]);
    }
}

bool BothZero(const FunctionArguments& x, size_t i) {
    return RealIsZero(x.reals[i]) && RealIsZero(x.reals[i + 1]);
}

TestedFunction Operation(std::string name,
                         void (*run)(ComplexNumber* dest, const ComplexNumber* a,
                                     const ComplexNumber* b),
                         bool divide) {
    TestedFunction function = ComplexFunction(std::move(name), 4, 2, false);
    function.run = [run](std::vector<RealBuffer>& results, const FunctionArguments& x) {
        ComplexBuffer a(x.reals[0], x.reals[1]);
        ComplexBuffer b(x.reals[2], x.reals[3]);
        run(a.Get(), a.Get(), b.Get());
        a.CopyTo(results);
    };
    function.exact = [divide](const ExactArguments& x, int64_t digits) {
        return Combined(x, digits, divide);
    };
    function.draw = [](RandomSource& random, FunctionArguments& x) {
        do {
            DrawFactors(random, x);
        } while (BothZero(x, 2));
    };
    return function;
}

TestedFunction OfOne(std::string name, void (*run)(ComplexNumber* dest, const ComplexNumber* z),
                     std::vector<FunctionValue> (*exact)(const ExactArguments& x, int64_t digits),
                     size_t results) {
    TestedFunction function = ComplexFunction(std::move(name), 2, results, false);
    function.run = [run](std::vector<RealBuffer>& parts, const FunctionArguments& x) {
        ComplexBuffer z(x.reals[0], x.reals[1]);
        run(z.Get(), z.Get());
        z.CopyTo(parts);
    };
    function.exact = exact;
    function.draw = [](RandomSource& random, FunctionArguments& x) {
        do {
            DrawComplex(random, x.reals[0], x.reals[1]);
        } while (BothZero(x, 0));
    };
    return function;
}

TestedFunction Power() {
    TestedFunction function = ComplexFunction("z^n", 2, 2, true);
    function.run = [](std::vector<RealBuffer>& results, const FunctionArguments& x) {
        ComplexBuffer z(x.reals[0], x.reals[1]);
        ComplexPowerInt(z.Get(), z.Get(), x.n);
        z.CopyTo(results);
    };
    function.exact = IntegerPower;
    function.draw = [](RandomSource& random, FunctionArguments& x) {
        do {
            DrawComplex(random, x.reals[0], x.reals[1]);
        } while (BothZero(x, 0));
        x.n = random.Between(-12, 12);
    };
    return function;
}

// A root of degree n, which is drawn from 1 to `most` where it is not fixed. The integer argument
// is 1000 n + k.
TestedFunction Root(std::string name, int64_t fixed,
                    std::function<void(ComplexNumber* z, int64_t n, int64_t k)> run) {
    TestedFunction function = ComplexFunction(std::move(name), 2, 2, true);
    function.run = [run = std::move(run)](std::vector<RealBuffer>& results,
                                          const FunctionArguments& x) {
        ComplexBuffer z(x.reals[0], x.reals[1]);
        run(z.Get(), x.n / 1000, x.n % 1000);
        z.CopyTo(results);
    };
    function.exact = [](const ExactArguments& x, int64_t digits) {
        return RootBranch(x.reals[0], x.reals[1], x.n / 1000, x.n % 1000, digits);
    };
    function.draw = [fixed](RandomSource& random, FunctionArguments& x) {
        do {
            DrawComplex(random, x.reals[0], x.reals[1]);
        } while (BothZero(x, 0));
        // Few degrees have so few digits that every precision can hold them.
        const int64_t n = fixed != 0 ? fixed : random.Between(1, 9);
        x.n = 1000 * n + random.Between(0, n - 1);
    };
    return function;
}

}  // namespace

std::vector<TestedFunction> ComplexFunctions() {
    return {
        Operation("z * w", ComplexMul, false),
        Operation("z / w", ComplexDiv, true),
        OfOne("1 / z", ComplexReciprocal, Reciprocal, 2),
        OfOne("abs z", ComplexAbs, Modulus, 1),
        Power(),
        Root("sqrtc", 2,
             [](ComplexNumber* z, int64_t, int64_t k) {
                 const RealBuffer branch(std::to_string(k));
                 ComplexSqrtBranch(z, z, branch);
             }),
        Root("cbrtc", 3,
             [](ComplexNumber* z, int64_t, int64_t k) {
                 const RealBuffer branch(std::to_string(k));
                 ComplexCbrtBranch(z, z, branch);
             }),
        Root("rootc", 0,
             [](ComplexNumber* z, int64_t n, int64_t k) {
                 const RealBuffer degree(std::to_string(n));
                 const RealBuffer branch(std::to_string(k));
                 ComplexRootBranch(z, degree, z, branch);
             }),
    };
}

}  // namespace tallymere::testing_support
