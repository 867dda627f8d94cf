// Conversions between decimal and exact numbers against GMP, at every width and precisions from one
// digit to longer than the integers are.
#include "values/exact_conversions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "core/real_rounding.h"
#include "support/rational_oracle.h"

namespace tallymere {
namespace {

using namespace testing_support;

constexpr int64_t Precisions[] = {1, 2, 5, 18, 19, 20, 38, 39, 57, 100, 1000};

// Runs body(limbs, digits, sets) for every width and precision; the sets of a width are spread over
// the precisions.
template <typename Body>
void ForEachLayout(Body body) {
    for (const int64_t limbs : AllUintWidths) {
        const WidthScope width(limbs);
        for (const int64_t digits : Precisions) {
            const PrecisionScope precision(digits);
            body(limbs, digits, OperandSets() / static_cast<int>(std::size(Precisions)) + 1);
            if (::testing::Test::HasFatalFailure()) {
                return;
            }
        }
    }
}

// value = |x| rounded down, and whether that is all of it. x is finite.
void ReadMagnitude(Integer& value, bool* whole, const RealNumber* x) {
    *whole = true;
    mpz_set_ui(value, 0);
    if (RealIsZero(x)) {
        return;
    }
    ReadMantissa(value, x);
    const int64_t power = RealExponent(x) - numberContext.precisionDigits + 1;
    if (power >= 0) {
        mpz_mul(value, value, PowerOfTenInteger(power));
        return;
    }
    Integer rest;
    mpz_fdiv_qr(value, rest, value, PowerOfTenInteger(-power));
    *whole = rest.Sign() == 0;
}

TEST(ExactConversionsOracle, IntegersBecomeTheirLeadingDigits) {
    RandomSource random;
    ForEachLayout([&](int64_t limbs, int64_t digits, int sets) {
        UintBuffer a;
        RealBuffer x;
        for (; sets > 0; sets--) {
            FillUint(random, a, RandomLength(random, limbs));
            ExactValue exact;
            mpz_set(exact.numerator, LimbsView(a));
            const Limb guard = RealFromBigUint(x, a, limbs);
            ASSERT_EQ(TakeCode(), CalcErrorNone);
            if (LimbsView(a).IsZero()) {
                ASSERT_EQ(PlainText(x), "0");
                continue;
            }
            // Digits behind the guard limb's are cut off; as many of its own as the move into place
            // filled with zeros.
            const auto length = static_cast<int64_t>(IntegerText(exact.numerator).size());
            const int64_t first = (length - 1) % DigitsPerLimb + 1;
            const int64_t left = numberContext.topLimbDigits - first;
            const int64_t lost = length <= digits ? 0 : left >= 0 ? left : DigitsPerLimb + left;
            ASSERT_TRUE(IsRawWithin(x, guard, exact, PowerOfTen(lost), 0))
                << a.Text() << "\n"
                << PlainText(x) << " guard " << guard;
            RealRound(x, guard);
            ASSERT_TRUE(IsAllowed(x, 0, RoundExact(exact, {}))) << a.Text() << "\n" << PlainText(x);
        }
    });
}

// Numbers with as many digits in front of the point as the width holds, or about none, or any;
// often integers.
void FillNear(RandomSource& random, RealNumber* x) {
    FillReal(random, x, 30);
    const int64_t width = numberContext.uintDigits;
    switch (random.Below(6)) {
        case 0:
            x->header = MakeHeader(random.Between(-2, 2), RealSign(x));
            break;
        case 1:
            x->header = MakeHeader(width + random.Between(-3, 3), RealSign(x));
            break;
        case 2:
            x->header = MakeHeader(random.Between(0, width), RealSign(x));
            break;
        case 3:
            x->header =
                MakeHeader(numberContext.precisionDigits + random.Between(-2, 2), RealSign(x));
            break;
        case 4:
            RealSetZero(x, random.Below(2));
            break;
        default:
            break;
    }
    if (random.Below(2) == 0) {
        RealIntegerPart(x, x);
    }
}

TEST(ExactConversionsOracle, NumbersBecomeTheirIntegerPart) {
    RandomSource random;
    ForEachLayout([&](int64_t limbs, int64_t digits, int sets) {
        RealBuffer x;
        UintBuffer found;
        UintBuffer converted;
        RationalBuffer fraction;
        for (; sets > 0; sets--) {
            FillNear(random, x);
            ExpectedUint expected;
            ReadMagnitude(expected.value, &expected.exact, x);
            const bool whole = expected.exact;
            expected.Limit();
            BigUintFromReal(found, limbs, x);
            ASSERT_TRUE(TakeCode() == expected.code &&
                        mpz_cmp(LimbsView(found), expected.value) == 0)
                << PlainText(x) << "\n"
                << found.Text();

            ExpectedRational asFraction;
            if (whole) {
                asFraction.sign = RealSign(x);
                mpz_set(asFraction.numerator, expected.value);
                if (expected.code != CalcErrorNone) {
                    asFraction.Refuse(expected.code);
                }
            } else {
                asFraction.Refuse(CalcErrorUndefined);
            }
            ConvertRealToRational(fraction, limbs, x, digits);
            ASSERT_TRUE(TakeCode() == asFraction.code && asFraction == fraction.Get())
                << PlainText(x) << "\n"
                << RationalPlainText(fraction);

            if (!whole || (RealSign(x) != 0 && !RealIsZero(x))) {
                expected.Refuse(CalcErrorUndefined);
            }
            ConvertRealToUint(converted, limbs, x, digits);
            ASSERT_TRUE(TakeCode() == expected.code &&
                        mpz_cmp(LimbsView(converted), expected.value) == 0)
                << PlainText(x) << "\n"
                << converted.Text();
        }
    });
}

// exact (1 + error v), rounded, where v is the unit of RationalQuotientErrorBelow.
AllowedResults RoundMoved(ExactValue exact, int64_t error) {
    const Integer& scale =
        PowerOfTenInteger(numberContext.precisionDigits + RationalQuotientGuardDigits);
    Integer moved = scale;
    (error < 0 ? mpz_sub_ui : mpz_add_ui)(moved, moved, static_cast<uint64_t>(std::abs(error)));
    mpz_mul(exact.numerator, exact.numerator, moved);
    mpz_mul(exact.denominator, exact.denominator, scale);
    return RoundExact(exact, {});
}

void JudgeRatio(const RealNumber* found, const RationalNumber* q) {
    ExactValue exact;
    mpz_set(exact.numerator, LimbsView(RationalNumerator(q)));
    mpz_set(exact.denominator, LimbsView(RationalDenominator(q)));
    if (exact.numerator.Sign() == 0) {
        ASSERT_TRUE(RealIsZero(found) && RealSign(found) == RationalSign(q)) << PlainText(found);
        return;
    }
    const bool whole = mpz_cmp_ui(mpz_srcptr(exact.denominator), 1) == 0;
    const AllowedResults allowed = {
        RoundMoved(exact, whole ? 0 : -RationalQuotientErrorBelow).least,
        RoundMoved(exact, whole ? 0 : RationalQuotientErrorAbove).most,
    };
    ASSERT_TRUE(IsAllowed(found, RationalSign(q), allowed)) << PlainText(found);
}

TEST(ExactConversionsOracle, FractionsBecomeTheirQuotient) {
    RandomSource random;
    ForEachLayout([&](int64_t limbs, int64_t digits, int sets) {
        RationalBuffer q;
        RealBuffer x;
        std::vector<uint64_t> z(static_cast<size_t>(2 * RealWords()));
        for (; sets > 0; sets--) {
            FillFraction(random, q);
            RealFromRational(x, q);
            ASSERT_EQ(TakeCode(), CalcErrorNone);
            ASSERT_NO_FATAL_FAILURE(JudgeRatio(x, q)) << RationalPlainText(q);
            RealBuffer converted;
            ConvertRationalToReal(converted, digits, q, limbs);
            ASSERT_EQ(converted, x) << RationalPlainText(q);
            ConvertRationalToComplex(ComplexAt(z.data()), digits, q, limbs);
            ASSERT_TRUE(std::equal(z.begin(), z.begin() + RealWords(), &x.Get()->header))
                << RationalPlainText(q);
            ASSERT_EQ(PlainText(ImaginaryPart(ComplexAt(z.data()))), "0");
        }
    });
}

}  // namespace
}  // namespace tallymere
