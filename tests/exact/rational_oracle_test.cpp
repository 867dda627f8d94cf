// Fractions against GMP: sums, products, quotients, comparisons and parts.
#include <gtest/gtest.h>

#include <algorithm>

#include "exact/rational_arithmetic.h"
#include "support/rational_oracle.h"

namespace tallymere {
namespace {

using namespace testing_support;

void FillOne(RandomSource& random, RationalSet<1>& set) {
    FillFraction(random, set[0]);
    set.word =
        random.Below(4) == 0 ? LimbsView(RationalDenominator(set[0])).Low() : RandomWord(random);
}

void FillPair(RandomSource& random, RationalSet<2>& set) {
    FillFraction(random, set[0]);
    FillFractionPartner(random, set[1], set[0]);
}

TEST(RationalOracle, Sums) {
    CompareRational<2>(
        FillPair,
        [](ExpectedRational& expected, const RationalSet<2>& set) {
            ExpectSum(expected, set.Value(0), set.Value(1), false);
        },
        [](RationalNumber* dest, const RationalSet<2>& set) {
            RationalAddSub(dest, set[0], set[1], false);
        });
}

TEST(RationalOracle, Differences) {
    CompareRational<2>(
        FillPair,
        [](ExpectedRational& expected, const RationalSet<2>& set) {
            ExpectSum(expected, set.Value(0), set.Value(1), true);
        },
        [](RationalNumber* dest, const RationalSet<2>& set) {
            RationalAddSub(dest, set[0], set[1], true);
        });
}

TEST(RationalOracle, Products) {
    CompareRational<2>(
        FillPair,
        [](ExpectedRational& expected, const RationalSet<2>& set) {
            ExpectProduct(expected, set.Value(0), set.Value(1));
        },
        [](RationalNumber* dest, const RationalSet<2>& set) {
            RationalMulDiv(dest, set[0], set[1], false);
        });
}

TEST(RationalOracle, Quotients) {
    CompareRational<2>(
        FillPair,
        [](ExpectedRational& expected, const RationalSet<2>& set) {
            ExpectQuotient(expected, set.Value(0), set.Value(1));
        },
        [](RationalNumber* dest, const RationalSet<2>& set) {
            RationalMulDiv(dest, set[0], set[1], true);
        });
}

TEST(RationalOracle, ProductsWithAWord) {
    CompareRational<1>(
        FillOne,
        [](ExpectedRational& expected, const RationalSet<1>& set) {
            ExpectProduct(expected, set.Value(0), {0, Integer(set.word), Integer(1)});
        },
        [](RationalNumber* dest, const RationalSet<1>& set) {
            RationalMulSmall(dest, set[0], set.word);
        });
}

TEST(RationalOracle, QuotientsByAWord) {
    CompareRational<1>(
        [](RandomSource& random, RationalSet<1>& set) {
            FillOne(random, set);
            if (random.Below(3) == 0) {
                set.word = LimbsView(RationalNumerator(set[0])).Low() >> random.Below(8);
            }
        },
        [](ExpectedRational& expected, const RationalSet<1>& set) {
            // 0 / 0 is 0 here.
            const uint64_t divisor = RationalIsZero(set[0]) ? 1 : set.word;
            ExpectQuotient(expected, set.Value(0), {0, Integer(divisor), Integer(1)});
        },
        [](RationalNumber* dest, const RationalSet<1>& set) {
            RationalDivSmall(dest, set[0], set.word);
        });
}

// Quotient and remainder of magnitudes; a result that nobody asks for does not have to fit.
void JudgeDivMod(const RationalSet<2>& set, size_t quotientPlace, size_t remainderPlace) {
    constexpr size_t None = 4;
    ExpectedRational quotient;
    ExpectedRational remainder;
    ExpectDivMod(quotient, remainder, set.Value(0), set.Value(1));
    if ((quotientPlace != None && quotient.code == CalcErrorOverflow) ||
        (remainderPlace != None && remainder.code == CalcErrorOverflow)) {
        quotient.Refuse(CalcErrorOverflow);
        remainder.Refuse(CalcErrorOverflow);
    }
    RationalSet<4> given;
    given.operands = {set.operands[0], set.operands[1], RationalBuffer(), RationalBuffer()};
    RationalNumber* foundQuotient = quotientPlace == None ? nullptr : given[quotientPlace];
    RationalNumber* foundRemainder = remainderPlace == None ? nullptr : given[remainderPlace];
    RationalDivMod(foundQuotient, foundRemainder, given[0], given[1]);
    const CalcError code = TakeCode();
    ASSERT_TRUE(foundQuotient == nullptr || (quotient == foundQuotient && code == quotient.code))
        << set.Text() << "\ngave " << RationalPlainText(foundQuotient) << " with code " << code
        << "\nfor " << quotient.Text();
    ASSERT_TRUE(foundRemainder == nullptr ||
                (remainder == foundRemainder && code == remainder.code))
        << set.Text() << "\ngave " << RationalPlainText(foundRemainder) << " with code " << code
        << "\nfor " << remainder.Text();
    for (const size_t i : {0, 1}) {
        ASSERT_TRUE(quotientPlace == i || remainderPlace == i ||
                    given.operands[i] == set.operands[i])
            << set.Text() << "\noperand " << i << " was changed";
    }
}

TEST(RationalOracle, IntegerQuotientsAndRemainders) {
    // Each of the operands, 2 and 3 for a place of its own, 4 for none.
    constexpr size_t places[][2] = {{2, 3}, {0, 3}, {1, 3}, {2, 0}, {2, 1}, {0, 1},
                                    {1, 0}, {2, 4}, {0, 4}, {4, 3}, {4, 0}, {4, 1}};
    RandomSource random;
    for (const int64_t limbs : AllUintWidths) {
        const WidthScope scope(limbs);
        RationalSet<2> set;
        for (int round = OperandSets(); round > 0; round--) {
            FillPair(random, set);
            const size_t(&place)[2] = places[static_cast<size_t>(round) % std::size(places)];
            ASSERT_NO_FATAL_FAILURE(JudgeDivMod(set, place[0], place[1]));
        }
    }
}

TEST(RationalOracle, Reciprocals) {
    CompareRational<1>(
        FillOne,
        [](ExpectedRational& expected, const RationalSet<1>& set) {
            static_cast<Fraction&>(expected) = set.Value(0);
            expected.Invert();
        },
        [](RationalNumber* dest, const RationalSet<1>& set) { RationalReciprocal(dest, set[0]); });
}

TEST(RationalOracle, IntegerParts) {
    CompareRational<1>(
        FillOne,
        [](ExpectedRational& expected, const RationalSet<1>& set) {
            const Fraction x = set.Value(0);
            expected.sign = x.sign;
            mpz_fdiv_q(expected.numerator, x.numerator, x.denominator);
        },
        [](RationalNumber* dest, const RationalSet<1>& set) { RationalTrunc(dest, set[0]); });
}

TEST(RationalOracle, FractionalParts) {
    CompareRational<1>(
        FillOne,
        [](ExpectedRational& expected, const RationalSet<1>& set) {
            static_cast<Fraction&>(expected) = set.Value(0);
            mpz_fdiv_r(expected.numerator, expected.numerator, expected.denominator);
        },
        [](RationalNumber* dest, const RationalSet<1>& set) { RationalFraction(dest, set[0]); });
}

TEST(RationalOracle, CommonDivisorsOfAnyParts) {
    CompareUint<2>(
        [](RandomSource& random, UintSet<2>& set) {
            const int64_t limbs = RandomLength(random, numberContext.uintLimbs);
            FillUint(random, set[0], limbs);
            FillUint(random, set[1], random.Between(0, limbs));
        },
        [](ExpectedUint& expected, const UintSet<2>& set) {
            Integer common;
            mpz_gcd(common, set.Value(0), set.Value(1));
            mpz_set(expected.value, set.Value(0));
            if (set.Value(1).IsZero()) {
                expected.code =
                    set.Value(0).IsZero() ? CalcErrorNone : CalcErrorExactDivisionByZero;
            } else {
                mpz_divexact(expected.value, set.Value(0), common);
            }
        },
        [](uint64_t* dest, const UintSet<2>& set) {
            // Both parts are replaced.
            UintSet<2> parts = set;
            Integer expected;
            Integer common;
            mpz_gcd(common, set.Value(0), set.Value(1));
            if (set.Value(0).IsZero()) {
                mpz_set_ui(expected, 1);
            } else {
                mpz_divexact(expected, set.Value(1), common);
            }
            ReduceFraction(parts[0], parts[1]);
            std::copy_n(parts[0], numberContext.uintLimbs, dest);
            EXPECT_EQ(mpz_cmp(parts.Value(1), expected), 0) << set.Text();
        });
}

int Order(int compared) {
    return (compared > 0) - (compared < 0);
}

int ExpectedOrder(const RationalSet<2>& set, bool ignoreSign) {
    const Fraction x = set.Value(0);
    const Fraction y = set.Value(1);
    Integer a;
    Integer b;
    mpz_mul(a, x.numerator, y.denominator);
    mpz_mul(b, y.numerator, x.denominator);
    if (!ignoreSign && x.sign != 0) {
        mpz_neg(a, a);
    }
    if (!ignoreSign && y.sign != 0) {
        mpz_neg(b, b);
    }
    return Order(mpz_cmp(a, b));
}

TEST(RationalOracle, Comparisons) {
    RandomSource random;
    for (const int64_t limbs : AllUintWidths) {
        const WidthScope scope(limbs);
        RationalSet<2> set;
        for (int round = OperandSets(); round > 0; round--) {
            FillPair(random, set);
            for (const bool ignoreSign : {false, true}) {
                ASSERT_EQ(RationalCompare(set[0], set[1], ignoreSign),
                          ExpectedOrder(set, ignoreSign))
                    << set.Text();
            }
        }
    }
}

TEST(RationalOracle, ComparisonsWithAWord) {
    RandomSource random;
    for (const int64_t limbs : AllUintWidths) {
        const WidthScope scope(limbs);
        RationalSet<2> set;
        for (int round = OperandSets(); round > 0; round--) {
            FillFraction(random, set[0]);
            uint64_t k = RandomWord(random);
            if (random.Below(2) == 0) {
                const Fraction x = set.Value(0);
                Integer whole;
                mpz_fdiv_q(whole, x.numerator, x.denominator);
                k = mpz_get_ui(whole) + random.Below(2);
            }
            const uint64_t negative = random.Below(2);
            WriteRational(set[1], negative, Integer(k), Integer(1));
            ASSERT_EQ(RationalCompareSmall(set[0], k, negative != 0), ExpectedOrder(set, false))
                << set.Text();
        }
    }
}

TEST(RationalOracle, WordsOfFractions) {
    RandomSource random;
    for (const int64_t limbs : AllUintWidths) {
        const WidthScope scope(limbs);
        RationalSet<1> set;
        for (int round = OperandSets(); round > 0; round--) {
            FillFraction(random, set[0]);
            const auto flags =
                static_cast<uint32_t>((random.Below(2) == 0 ? IntegerExact : AllowFraction) |
                                      (random.Below(2) == 0 ? IntegerExact : AllowNegative));
            const Fraction x = set.Value(0);
            Integer whole;
            Integer rest;
            mpz_fdiv_qr(whole, rest, x.numerator, x.denominator);
            const bool negative = x.sign != 0 && whole.Sign() != 0;
            const bool is = mpz_fits_ulong_p(whole) != 0 &&
                            (rest.Sign() == 0 || (flags & AllowFraction) != 0) &&
                            (!negative || (flags & AllowNegative) != 0);
            uint64_t out = ~uint64_t{0};
            ASSERT_EQ(RationalToUnsigned(&out, set[0], flags), is) << set.Text();
            ASSERT_EQ(out, is ? mpz_get_ui(whole) : 0) << set.Text();
        }
    }
}

}  // namespace
}  // namespace tallymere
