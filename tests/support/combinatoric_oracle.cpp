// Factorial, combinations and permutations for the table of functions.
#include <algorithm>
#include <cstdlib>

#include "core/real_integer.h"
#include "functions/combinatorics.h"
#include "functions/factorial.h"
#include "support/function_oracle.h"

namespace tallymere::testing_support {

namespace {

// Factorials up to this one are multiplied out for a short result, and for a long one all.
constexpr uint64_t LargestProduct = 2000;

int64_t WholeNumber(const DecimalValue& x) {
    Integer value = x.mantissa;
    const int64_t unit = x.exponent - x.digits + 1;
    if (unit >= 0) {
        mpz_mul(value, value, PowerOfTenInteger(unit));
    } else {
        mpz_tdiv_q(value, value, PowerOfTenInteger(-unit));
    }
    return mpz_get_si(value);
}

FunctionValue FactorialOf(const DecimalValue& x, int64_t digits) {
    const auto n = static_cast<uint64_t>(WholeNumber(x));
    if (n <= LargestProduct || x.digits > 200) {
        FunctionValue result{Float(digits + 10)};
        mpfr_fac_ui(result.value, n, MPFR_RNDN);
        return result;
    }
    Float logarithm(digits + 30);
    mpfr_set_ui(logarithm, n, MPFR_RNDN);
    mpfr_add_ui(logarithm, logarithm, 1, MPFR_RNDN);
    mpfr_lngamma(logarithm, logarithm, MPFR_RNDN);
    return ExponentialOf(logarithm);
}

// Whole numbers: small ones, those around the change of method, and large ones where that takes no
// time.
void DrawFactorial(RandomSource& random, FunctionArguments& x) {
    const int64_t p = numberContext.precisionDigits;
    const int64_t cutover = FactorialCutoverAt(p);
    int64_t n = 0;
    switch (random.Below(3)) {
        case 0:
            n = random.Between(0, std::min<int64_t>(150, cutover));
            break;
        case 1:
            n = std::max<int64_t>(0, cutover + random.Between(-5, 5));
            break;
        default:
            n = p <= 200 ? DrawInteger(random, 0, 100'000'000'000'000'000)
                         : DrawInteger(random, 0, 2 * cutover);
    }
    RealFromUint(x.reals[0], static_cast<uint64_t>(n));
}

bool IsWhole(const DecimalValue& x) {
    const int64_t unit = x.exponent - x.digits + 1;
    return unit >= 0 ||
           (x.exponent >= 0 && mpz_divisible_p(x.mantissa, PowerOfTenInteger(-unit)) != 0);
}

// n (n - 1) ... (n - k + 1), divided by k! if `divide`. A fractional n next to an integer makes a
// factor of differences that cancels, so such n have a row of their own.
FunctionValue FallingFactorial(const DecimalValue& n, const DecimalValue& k, int64_t digits,
                               bool divide, bool whole) {
    if (IsWhole(n) != whole) {
        return OutsideDomain();
    }
    // n is held exactly.
    FunctionValue result{Float(digits)};
    mpfr_set_ui(result.value, 1, MPFR_RNDN);
    const int64_t exact = 2 * n.digits + std::llabs(n.exponent) + 40;
    const int64_t count = WholeNumber(k);
    for (int64_t i = 0; i < count; i++) {
        Float factor = FloatOf(n, exact);
        mpfr_sub_si(factor, factor, static_cast<long>(i), MPFR_RNDN);
        mpfr_mul(result.value, result.value, factor, MPFR_RNDN);
        if (divide) {
            mpfr_div_si(result.value, result.value, static_cast<long>(i + 1), MPFR_RNDN);
        }
    }
    return result;
}

// k is at most 40, so that a run has time for many; n an integer or not, mostly above k.
void DrawSelection(RandomSource& random, FunctionArguments& x) {
    const int64_t most = numberContext.precisionDigits <= 100 ? 40 : 10;
    DrawIntegerArgument(random, x.reals[1], 0, most);
    switch (random.Below(4)) {
        case 0:
            DrawIntegerArgument(random, x.reals[0], 0, 60);
            break;
        case 1:
            DrawIntegerArgument(random, x.reals[0], 0, 1'000'000'000'000'000'000);
            break;
        case 2:
            DrawArgument(random, x.reals[0], {-40, 60, true, {Fractions(1, 40, 1)}});
            break;
        default:
            DrawArgument(random, x.reals[0],
                         {-2, 2, true, {Fractions(1, 40, 1), Fractions(1, 80, 2)}});
    }
}

}  // namespace

std::vector<TestedFunction> CombinatoricFunctions() {
    TestedFunction factorial = UnaryFunction("fact", RealFactorialRounded, FactorialOf, {});
    factorial.draw = DrawFactorial;
    const auto falling = [](bool divide, bool whole) {
        return [=](const DecimalValue& n, const DecimalValue& k, int64_t digits) {
            return FallingFactorial(n, k, digits, divide, whole);
        };
    };
    return {
        factorial,
        BinaryFunction("ncr", RealCombinations, falling(true, true), DrawSelection),
        BinaryFunction("ncr, fractional n", RealCombinations, falling(true, false), DrawSelection),
        BinaryFunction("npr", RealPermutations, falling(false, true), DrawSelection),
        BinaryFunction("npr, fractional n", RealPermutations, falling(false, false), DrawSelection),
    };
}

}  // namespace tallymere::testing_support
