// The operations on numbers against GMP, with random and hostile operands at every precision: the
// correctly rounded result where the method gives it, else the bound that the method guarantees.
//
// A guard unit below is one unit in the last place of the guard limb, 10^-19 of a unit in the last
// place of the result (ulp).
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "core/real_add.h"
#include "core/real_div_mod.h"
#include "core/real_divide.h"
#include "core/real_multiply.h"
#include "core/real_rounding.h"
#include "support/gmp_oracle.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// A guard unit and a thousandth ulp in units of ErrorBounds, 10^-20 ulp.
constexpr uint64_t ErrorOfGuardUnit = 10;
constexpr uint64_t ErrorOfMilliUlp = 100'000'000'000'000'000;

int PairsAt(int64_t p) {
    return TestRounds(p <= 100 ? 10'000 : p <= 1000 ? 2'000 : 100);
}

ExactValue Exact(const RealNumber* x) {
    ExactValue value;
    ReadMantissa(value.numerator, x);
    value.exponent = RealExponent(x) - numberContext.precisionDigits + 1;
    return value;
}

// a * b.
ExactValue ExactProduct(const RealNumber* a, const RealNumber* b) {
    ExactValue product = Exact(a);
    const ExactValue factor = Exact(b);
    mpz_mul(product.numerator, product.numerator, factor.numerator);
    product.exponent += factor.exponent;
    return product;
}

// a / b.
ExactValue ExactQuotient(const RealNumber* a, const RealNumber* b) {
    ExactValue quotient = Exact(a);
    const ExactValue divisor = Exact(b);
    quotient.denominator = divisor.numerator;
    quotient.exponent -= divisor.exponent;
    return quotient;
}

// a with its sign plus b with a sign of its own: the magnitude, and the sign in `sign`.
ExactValue ExactSum(const RealNumber* a, const RealNumber* b, uint64_t signB, uint64_t& sign) {
    ExactValue sum = Exact(a);
    ExactValue other = Exact(b);
    const int64_t unit = std::min(sum.exponent, other.exponent);
    mpz_mul(sum.numerator, sum.numerator, PowerOfTenInteger(sum.exponent - unit));
    mpz_mul(other.numerator, other.numerator, PowerOfTenInteger(other.exponent - unit));
    if (RealSign(a) == signB) {
        mpz_add(sum.numerator, sum.numerator, other.numerator);
        sign = signB;
    } else {
        mpz_sub(sum.numerator, sum.numerator, other.numerator);
        sign = sum.numerator.Sign() >= 0 ? RealSign(a) : signB;
        mpz_abs(sum.numerator, sum.numerator);
    }
    sum.exponent = unit;
    return sum;
}

// A difference of operands whose exponents lie 20 or more apart. The smaller one loses what lies
// below its guard limb, less than one guard unit, so the computed difference is too large by less
// than that. At most one digit cancels, as the smaller operand is below a tenth of the larger, and
// moving the result up by that digit makes it ten guard units. Closer operands lose nothing: of the
// 19 digits of the guard limb no more than 19 are in use. Sums lose the same digits but stay
// truncations of the exact sum, so that rounding by the guard limb is correct.
constexpr uint64_t DifferenceGuardError = 10;
constexpr int64_t FirstLossyDistance = 20;

void CheckSum(const RealNumber* a, const RealNumber* b, bool subtract) {
    uint64_t sign = 0;
    const uint64_t signB = RealSign(b) ^ (subtract ? 1 : 0);
    const ExactValue exact = ExactSum(a, b, signB, sign);
    RealBuffer result;
    const Limb guard = RealAddRaw(result, a, b, subtract);
    if (exact.numerator.Sign() == 0) {
        ASSERT_TRUE(RealIsZero(result));
        ASSERT_EQ(RealSign(result), RealSign(a));
        return;
    }
    const bool lossy =
        RealSign(a) != signB && std::abs(RealExponent(a) - RealExponent(b)) >= FirstLossyDistance;
    const uint64_t above = lossy ? DifferenceGuardError : 0;
    ASSERT_TRUE(IsRawWithin(result, guard, exact, 1, above));
    RealRound(result, guard);
    ASSERT_TRUE(IsAllowed(result, sign, RoundExact(exact, {0, above * ErrorOfGuardUnit})));
    RealBuffer rounded;
    (subtract ? RealSub : RealAdd)(rounded, a, b);
    ASSERT_EQ(rounded, result);
}

TEST(RealOracle, SumsAndDifferences) {
    RandomSource random;
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        RealBuffer a;
        RealBuffer b;
        for (int round = 0; round < PairsAt(p); round++) {
            FillReal(random, a, 40);
            FillPartner(random, b, a, 40);
            for (bool subtract : {false, true}) {
                ASSERT_NO_FATAL_FAILURE(CheckSum(a, b, subtract))
                    << PlainText(a) << (subtract ? "\n- " : "\n+ ") << PlainText(b);
            }
        }
    }
}

// What a difference may lose is not only a bound: just below a tie the dropped digits decide, and
// such a difference rounds up.
TEST(RealOracle, DifferenceRoundsUpWhereOnlyDroppedDigitsTellItFromATie) {
    PrecisionScope scope(38);
    const RealBuffer a("1" + std::string(37, '0'));
    const RealBuffer b("0.5" + std::string(36, '0') + "1");
    RealBuffer difference;
    RealSub(difference, a, b);
    EXPECT_EQ(PlainText(difference), "9." + std::string(36, '9') + "5e36");
    RealBuffer larger("2" + std::string(37, '0'));
    RealSub(difference, larger, b);
    EXPECT_EQ(PlainText(difference), "2e37");
}

// A product of n >= 3 limbs leaves out limb products a[i] * b[j] with i + j > n. Those with
// i + j = n + 1 are n - 2 in number and each below 10^38 units of column n + 2, which is one unit
// of column n, the guard limb's; the further ones are 10^19 times smaller for each column and find
// room in (10^19 - 1)^2 < 10^38. Column n + 1 is cut off, less than one unit more. A result moved
// up by a digit has its guard units ten times finer. Shorter products are exact, but for the digit
// that moving up leaves at 0.
uint64_t ProductGuardError(bool movedUp) {
    const int64_t n = numberContext.realLimbs;
    const uint64_t units = n >= 3 ? static_cast<uint64_t>(n - 1) : 1;
    return movedUp ? 10 * units : units;
}

void CheckProduct(const RealNumber* a, const RealNumber* b) {
    const ExactValue exact = ExactProduct(a, b);
    const uint64_t sign = RealSign(a) ^ RealSign(b);
    RealBuffer result;
    const Limb guard = RealMulRaw(result, a, b);
    const bool movedUp = RealExponent(result) == RealExponent(a) + RealExponent(b);
    const uint64_t below = ProductGuardError(movedUp);
    ASSERT_TRUE(IsRawWithin(result, guard, exact, below, 0));
    RealRound(result, guard);
    // Up to two limbs every digit is there to decide.
    const uint64_t lost = numberContext.realLimbs <= 2 ? 0 : below * ErrorOfGuardUnit;
    ASSERT_TRUE(IsAllowed(result, sign, RoundExact(exact, {lost, 0})));
    RealBuffer rounded;
    RealMul(rounded, a, b);
    ASSERT_EQ(rounded, result);
}

TEST(RealOracle, Products) {
    RandomSource random;
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        RealBuffer a;
        RealBuffer b;
        for (int round = 0; round < PairsAt(p); round++) {
            FillReal(random, a, 1000);
            FillReal(random, b, 1000);
            if (round % 10 == 0) {
                b = a;
            }
            ASSERT_NO_FATAL_FAILURE(CheckProduct(a, b)) << PlainText(a) << "\n* " << PlainText(b);
        }
    }
}

// The guard limb of a product or quotient with a machine integer is the exact truncated one, up to
// the digits that moving the limbs up by k digits leaves at 0; as its leading digit is always
// there, rounding is correct.
TEST(RealOracle, ProductsAndQuotientsWithMachineIntegersAreCorrectlyRounded) {
    RandomSource random;
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        RealBuffer x;
        RealBuffer result;
        for (int round = 0; round < PairsAt(p); round++) {
            FillReal(random, x, 1000);
            uint64_t k = random.Word() >> random.Below(64);
            k = round % 5 == 0 ? ~(k & 7) : std::max<uint64_t>(k, 1);
            ExactValue exact = Exact(x);
            mpz_mul_ui(exact.numerator, exact.numerator, k);
            Limb guard = RealMulUint(result, x, k);
            RealRound(result, guard);
            ASSERT_TRUE(IsAllowed(result, RealSign(x), RoundExact(exact, {})))
                << PlainText(x) << "\n* " << k;
            exact = Exact(x);
            mpz_set_ui(exact.denominator, k);
            guard = RealDivUint(result, x, k);
            RealRound(result, guard);
            ASSERT_TRUE(IsAllowed(result, RealSign(x), RoundExact(exact, {})))
                << PlainText(x) << "\n/ " << k;
        }
    }
}

// Newton's iteration for y = 1/T, T in [1, 10), at q digits; write v for 10^-q, and leave aside
// what the short products lose, below 10^-14 v. With e = 1 - T y before the last pass:
//   w = T y      is cut off by less than v (w < 1) or 10 v (w >= 1);
//   2 - w        is cut off by less than 10 v where w < 1, and exact where w >= 1;
//   so 2 - w is off by less than 10 v either way, and y (2 - w) = (1 - e^2) / T off by 10 v y;
//   y (2 - w)    is itself cut off by less than v, the unit of y < 1.
// Hence 1/T - y' < e^2/T + 10 v y + v and y' - 1/T < 10 v y. The seed's relative error is three
// roundings to a double, 3.4e-16, and cutting it to q digits, 10 v; each pass squares it and there
// is one for every doubling of 15 digits up to q, so e^2 < 0.12 v for q >= 3. As y <= 1 that
// makes 11.2 v and 10 v; with 2 guard digits an ulp of 1/T is 100 v. T = 1 is exact.
constexpr ErrorBounds ReciprocalError = {ReciprocalErrorBelow * ErrorOfMilliUlp,
                                         ReciprocalErrorAbove* ErrorOfMilliUlp};

// The relative errors of that reciprocal, T times the above, are 20.2 v and 10.2 v. Times a/b, with
// a mantissa below 10, they are 20.2 and 10.2 units of the last of q digits; cutting off the
// product is one more below. With 3 guard digits an ulp is 1000 of those units.
constexpr ErrorBounds QuotientError = {QuotientErrorBelow * ErrorOfMilliUlp,
                                       QuotientErrorAbove* ErrorOfMilliUlp};

// Fails unless the magnitude of a raw result is at most `bound` units in the last place away from
// the exact one, the guard limb left aside.
void ExpectRawWithin(int64_t bound, const RealBuffer& raw, const ExactValue& exact) {
    const RoundedValue nearest = RoundExact(exact, {}).least;
    const int64_t exponentGap = RealExponent(raw) - nearest.exponent;
    ASSERT_LE(std::abs(exponentGap), 1) << PlainText(raw);
    Integer difference;
    ReadMantissa(difference, raw);
    Integer expected = nearest.mantissa;
    if (exponentGap > 0) {
        mpz_mul_ui(difference, difference, 10);
    } else if (exponentGap < 0) {
        mpz_mul_ui(expected, expected, 10);
        bound *= 10;
    }
    mpz_sub(difference, difference, expected);
    EXPECT_LE(mpz_cmpabs_ui(difference, static_cast<unsigned long>(bound)), 0) << PlainText(raw);
}

TEST(RealOracle, RawReciprocalsAndQuotients) {
    RandomSource random;
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        RealBuffer a;
        RealBuffer b;
        RealBuffer raw;
        const RealBuffer dividend("1");
        for (int round = 0; round < PairsAt(p); round++) {
            FillReal(random, a, 1000);
            FillPartner(random, b, a, 1000);
            RealReciprocalRaw(raw, b);
            ExpectRawWithin(RawReciprocalErrorBound, raw, ExactQuotient(dividend, b));
            RealDivRaw(raw, a, b);
            ExpectRawWithin(RawQuotientErrorBound, raw, ExactQuotient(a, b));
        }
    }
}

TEST(RealOracle, Reciprocals) {
    RandomSource random;
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        RealBuffer x;
        RealBuffer result;
        const RealBuffer dividend("1");
        for (int round = 0; round < PairsAt(p); round++) {
            FillReal(random, x, 1000);
            RealReciprocal(result, x);
            ASSERT_TRUE(IsAllowed(result, RealSign(x),
                                  RoundExact(ExactQuotient(dividend, x), ReciprocalError)))
                << PlainText(x);
        }
    }
}

TEST(RealOracle, Quotients) {
    RandomSource random;
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        RealBuffer a;
        RealBuffer b;
        RealBuffer result;
        for (int round = 0; round < PairsAt(p); round++) {
            FillReal(random, a, 1000);
            FillPartner(random, b, a, 1000);
            RealDiv(result, a, b);
            ASSERT_TRUE(IsAllowed(result, RealSign(a) ^ RealSign(b),
                                  RoundExact(ExactQuotient(a, b), QuotientError)))
                << PlainText(a) << "\n/ " << PlainText(b);
        }
    }
}

// a and b as integers in units of 10^unit.
struct CommonIntegers {
    Integer a;
    Integer b;
    int64_t unit;
};

CommonIntegers InCommonUnits(const RealNumber* a, const RealNumber* b) {
    const ExactValue x = Exact(a);
    const ExactValue y = Exact(b);
    CommonIntegers common{x.numerator, y.numerator, std::min(x.exponent, y.exponent)};
    mpz_mul(common.a, common.a, PowerOfTenInteger(x.exponent - common.unit));
    mpz_mul(common.b, common.b, PowerOfTenInteger(y.exponent - common.unit));
    return common;
}

void CheckDivMod(const RealNumber* a, const RealNumber* b) {
    const int64_t p = numberContext.precisionDigits;
    const CommonIntegers exact = InCommonUnits(a, b);
    Integer quotient;
    Integer remainder;
    mpz_tdiv_qr(quotient, remainder, exact.a, exact.b);
    const uint64_t sign = RealSign(a) ^ RealSign(b);
    const bool below = quotient.Sign() == 0;
    // Only the first p digits of the quotient are kept.
    int64_t dropped = 0;
    if (!below) {
        dropped = static_cast<int64_t>(mpz_sizeinbase(quotient, 10)) - p;
        if (dropped > 0 && mpz_cmp(quotient, PowerOfTenInteger(p + dropped - 1)) < 0) {
            dropped--;
        }
        dropped = std::max<int64_t>(dropped, 0);
        mpz_fdiv_q(quotient, quotient, PowerOfTenInteger(dropped));
    }
    RealBuffer foundQuotient;
    RealBuffer foundRemainder;
    RealDivMod(foundQuotient, foundRemainder, a, b);
    ASSERT_TRUE(IsExactly(foundQuotient, sign, quotient, dropped)) << PlainText(foundQuotient);
    ASSERT_TRUE(IsExactly(foundRemainder, below ? RealSign(a) : sign, remainder, exact.unit))
        << PlainText(foundRemainder);
}

TEST(RealOracle, IntegerQuotientsAndRemaindersAreExact) {
    RandomSource random;
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        RealBuffer a;
        RealBuffer b;
        const int rounds = PairsAt(p);
        for (int round = 0; round < rounds; round++) {
            FillReal(random, b, 1000);
            FillPartner(random, a, b, 1000);
            // Quotients of all lengths, past the precision too; at many digits mostly short ones.
            const int64_t longest = p <= 100 || round % 50 == 0 ? p + 25 : 60;
            a.Get()->header =
                MakeHeader(RealExponent(b) + random.Between(-2, longest), random.Below(2));
            ASSERT_NO_FATAL_FAILURE(CheckDivMod(a, b))
                << PlainText(a) << "\ndivmod " << PlainText(b);
        }
    }
}

// Quotients up to the end of the range, of which nobody could write all digits.
TEST(RealOracle, RemaindersOfAnyQuotientAreExact) {
    RandomSource random;
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        const int64_t n = numberContext.realLimbs;
        RealBuffer a;
        RealBuffer b;
        const int rounds = TestRounds(p <= 100 ? 200 : p <= 1000 ? 20 : 2);
        for (int round = 0; round < rounds; round++) {
            FillReal(random, a, 0);
            FillReal(random, b, 0);
            // Divisors of all lengths.
            const int64_t limbs = 1 + static_cast<int64_t>(random.Below(static_cast<uint64_t>(n)));
            std::fill_n(b.Limbs() + limbs, n - limbs, 0);
            const int64_t exponent =
                static_cast<int64_t>(random.Word() >> (2 + random.Below(62))) + p;
            a.Get()->header = MakeHeader(std::min(exponent, MaxExponent), random.Below(2));
            b.Get()->header = MakeHeader(p - 1, random.Below(2));
            Integer expected;
            Integer divisor;
            ReadMantissa(expected, a);
            ReadMantissa(divisor, b);
            Integer power(10);
            const Integer passed(static_cast<uint64_t>(RealExponent(a) - p + 1));
            mpz_powm(power, power, passed, divisor);
            mpz_mul(expected, expected, power);
            mpz_tdiv_r(expected, expected, divisor);
            RealBuffer quotient;
            RealBuffer remainder;
            RealDivMod(quotient, remainder, a, b);
            ASSERT_TRUE(IsExactly(remainder, RealSign(a) ^ RealSign(b), expected, 0))
                << PlainText(a) << "\nmod " << PlainText(b);
            RealDivMod(nullptr, a, a, b);
            ASSERT_EQ(a, remainder);
        }
    }
}

}  // namespace
}  // namespace tallymere
