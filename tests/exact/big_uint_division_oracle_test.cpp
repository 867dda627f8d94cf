// Integers against GMP: quotients, divisors, multiples and powers modulo a number.
#include "exact/big_uint_division.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "exact/big_uint_gcd.h"
#include "exact/big_uint_mod_power.h"
#include "support/exact_oracle.h"

namespace tallymere {
namespace {

using namespace testing_support;

// A dividend that is often near a multiple of the divisor, and a divisor of any length.
void FillDivision(RandomSource& random, UintSet<2>& set) {
    const int64_t limbs = numberContext.uintLimbs;
    FillUint(random, set[0]);
    FillUint(random, set[1], random.Between(0, limbs));
    switch (random.Below(4)) {
        case 0:
            FillUintPartner(random, set[1], set[0]);
            break;
        case 1: {
            const auto length = static_cast<int64_t>(mpz_size(set.Value(1)));
            UintBuffer factor;
            FillUint(random, factor, limbs - length);
            Integer dividend;
            mpz_mul(dividend, set.Value(1), LimbsView(factor));
            const uint64_t beside = random.Below(3);
            if (random.Below(2) == 0 && mpz_cmp_ui(mpz_srcptr(dividend), beside) >= 0) {
                mpz_sub_ui(dividend, dividend, beside);
            } else {
                mpz_add_ui(dividend, dividend, beside);
            }
            WriteUint(set[0], dividend);
            break;
        }
        default:
            break;
    }
}

// The places of quotient and remainder: of their own, one or both operands, or none.
struct DivisionPlaces {
    const char* name;
    int quotient;   // the operand, or Own or None
    int remainder;  // the same
};
constexpr int Own = 2;
constexpr int None = 3;
constexpr DivisionPlaces PlacesOfDivision[] = {
    {"both apart", Own, Own},
    {"quotient in the dividend", 0, Own},
    {"quotient in the divisor", 1, Own},
    {"remainder in the dividend", Own, 0},
    {"remainder in the divisor", Own, 1},
    {"quotient in the dividend, remainder in the divisor", 0, 1},
    {"quotient in the divisor, remainder in the dividend", 1, 0},
    {"no remainder", Own, None},
    {"no quotient", None, Own},
    {"no quotient, remainder in the dividend", None, 0},
    {"no quotient, remainder in the divisor", None, 1},
    {"no remainder, quotient in the dividend", 0, None},
    {"nothing", None, None},
};

void JudgeDivision(const UintSet<2>& set, const DivisionPlaces& places) {
    Integer quotient;
    Integer remainder;
    const bool byZero = set.Value(1).IsZero();
    if (!byZero) {
        mpz_fdiv_qr(quotient, remainder, set.Value(0), set.Value(1));
    }
    UintSet<4> given;
    given.operands = {set.operands[0], set.operands[1], UintBuffer(), UintBuffer()};
    const auto placeOf = [&](int place, size_t own) -> uint64_t* {
        return place == None ? nullptr : given[place == Own ? own : static_cast<size_t>(place)];
    };
    uint64_t* foundQuotient = placeOf(places.quotient, 2);
    uint64_t* foundRemainder = placeOf(places.remainder, 3);
    BigUintDivide(foundQuotient, foundRemainder, given[0], given[1]);
    ASSERT_EQ(TakeCode(), byZero ? CalcErrorExactDivisionByZero : CalcErrorNone) << set.Text();
    const auto isRight = [](const uint64_t* found, const Integer& expected) {
        return found == nullptr || mpz_cmp(LimbsView(found), expected) == 0;
    };
    ASSERT_TRUE(isRight(foundQuotient, quotient)) << set.Text() << "\n" << places.name;
    ASSERT_TRUE(isRight(foundRemainder, remainder)) << set.Text() << "\n" << places.name;
    for (const int operand : {0, 1}) {
        const auto i = static_cast<size_t>(operand);
        ASSERT_TRUE(places.quotient == operand || places.remainder == operand ||
                    given.operands[i] == set.operands[i])
            << set.Text() << "\noperand " << operand << " was changed";
    }
}

TEST(BigUintDivisionOracle, QuotientsAndRemainders) {
    RandomSource random;
    for (const int64_t limbs : AllUintWidths) {
        const WidthScope scope(limbs);
        UintSet<2> set;
        for (int round = OperandSets(); round > 0; round--) {
            FillDivision(random, set);
            ASSERT_NO_FATAL_FAILURE(JudgeDivision(
                set, PlacesOfDivision[static_cast<size_t>(round) % std::size(PlacesOfDivision)]));
        }
    }
}

TEST(BigUintDivisionOracle, QuotientsThatSayWhetherTheyAreExact) {
    CompareUint<2>(
        FillDivision,
        [](ExpectedUint& expected, const UintSet<2>& set) {
            if (set.Value(1).IsZero()) {
                expected.Refuse(CalcErrorExactDivisionByZero);
                expected.exact = true;
                return;
            }
            Integer remainder;
            mpz_fdiv_qr(expected.value, remainder, set.Value(0), set.Value(1));
            expected.exact = remainder.Sign() == 0;
        },
        [](uint64_t* dest, const UintSet<2>& set) {
            return BigUintDivideExact(dest, set[0], set[1]);
        });
}

TEST(BigUintDivisionOracle, QuotientsByAWord) {
    uint64_t expectedRemainder = 0;
    CompareUint<1>(
        [](RandomSource& random, UintSet<1>& set) {
            FillUint(random, set[0]);
            set.word = random.Below(3) == 0 ? random.Below(2'050) : RandomWord(random);
        },
        [&](ExpectedUint& expected, const UintSet<1>& set) {
            expectedRemainder = 0;
            if (set.word == 0) {
                expected.Refuse(CalcErrorExactDivisionByZero);
                return;
            }
            expectedRemainder = mpz_fdiv_q_ui(expected.value, set.Value(0), set.word);
        },
        [&](uint64_t* dest, const UintSet<1>& set) {
            const uint64_t kind = set[0][0] % 4;
            const uint64_t reciprocal =
                kind % 2 == 0 && set.word != 0 ? DivisorReciprocal(set.word) : 0;
            uint64_t remainder = ~expectedRemainder;
            const UintSet<1> same = set;
            if (kind >= 2) {
                BigUintDivideSmall(nullptr, &remainder, set[0], set.word, reciprocal);
                EXPECT_EQ(remainder, expectedRemainder);
                EXPECT_EQ(set.operands[0], same.operands[0]);
                numberContext.calcError = CalcErrorNone;
                BigUintDivideSmall(dest, nullptr, set[0], set.word, reciprocal);
                return;
            }
            BigUintDivideSmall(dest, &remainder, set[0], set.word, reciprocal);
            EXPECT_EQ(remainder, expectedRemainder);
        });
}

TEST(BigUintDivisionOracle, ReciprocalsOfWords) {
    RandomSource random;
    const auto check = [](uint64_t d) {
        Integer reciprocal;
        const size_t bits = mpz_sizeinbase(Integer(d), 2);
        mpz_ui_pow_ui(reciprocal, 2, 63 + bits);
        mpz_fdiv_q_ui(reciprocal, reciprocal, d);
        const bool isPower = (d & (d - 1)) == 0;
        ASSERT_EQ(DivisorReciprocal(d), isPower ? uint64_t{1} << 63 : mpz_get_ui(reciprocal)) << d;
    };
    for (uint64_t d = 1; d <= 5'000; d++) {
        ASSERT_NO_FATAL_FAILURE(check(d));
    }
    for (int round = TestRounds(SetsAtSmallWidths); round > 0; round--) {
        ASSERT_NO_FATAL_FAILURE(check(std::max<uint64_t>(RandomWord(random), 1)));
    }
}

// Pairs with a common factor of any length, and now and then a multiple or a zero. The work grows
// with the square of the length, so most are short.
void FillWithDivisor(RandomSource& random, UintSet<2>& set) {
    const int64_t limbs = RandomLength(random, numberContext.uintLimbs);
    const int64_t common = random.Between(0, limbs);
    UintBuffer divisor;
    FillUint(random, divisor, common);
    for (const size_t i : {0, 1}) {
        UintBuffer factor;
        FillUint(random, factor, random.Below(4) == 0 ? 0 : limbs - common);
        Integer value;
        mpz_mul(value, LimbsView(divisor), LimbsView(factor));
        WriteUint(set[i], value);
        if (LimbsView(factor).IsZero()) {
            FillUint(random, set[i], limbs);
        }
    }
    if (random.Below(100) == 0) {
        FillUintPartner(random, set[1], set[0]);
    }
}

TEST(BigUintDivisionOracle, GreatestCommonDivisors) {
    CompareUint<2>(
        FillWithDivisor,
        [](ExpectedUint& expected, const UintSet<2>& set) {
            if (set.Value(0).IsZero() || set.Value(1).IsZero()) {
                expected.Refuse(CalcErrorUndefined);
            } else {
                mpz_gcd(expected.value, set.Value(0), set.Value(1));
            }
        },
        [](uint64_t* dest, const UintSet<2>& set) { BigUintGcd(dest, set[0], set[1]); });
}

TEST(BigUintDivisionOracle, GreatestDivisorsOfAnything) {
    CompareUint<2>(
        FillWithDivisor,
        [](ExpectedUint& expected, const UintSet<2>& set) {
            mpz_gcd(expected.value, set.Value(0), set.Value(1));
        },
        [](uint64_t* dest, const UintSet<2>& set) {
            BigUintGcdAllowingZero(dest, set[0], set[1]);
        });
}

TEST(BigUintDivisionOracle, LeastCommonMultiples) {
    CompareUint<2>(
        [](RandomSource& random, UintSet<2>& set) {
            FillWithDivisor(random, set);
            if (random.Below(numberContext.uintLimbs <= 2 ? 2 : 20) == 0) {
                FillFactors(random, set[0], set[1]);
            }
        },
        [](ExpectedUint& expected, const UintSet<2>& set) {
            if (set.Value(0).IsZero() || set.Value(1).IsZero()) {
                expected.Refuse(CalcErrorUndefined);
                return;
            }
            mpz_lcm(expected.value, set.Value(0), set.Value(1));
            expected.Limit();
        },
        [](uint64_t* dest, const UintSet<2>& set) { BigUintLcm(dest, set[0], set[1]); });
}

// A power takes two divisions for each bit of the exponent, at 65 limbs some 10 microseconds each
// and at 1039 limbs some milliseconds. So long moduli go with exponents of few bits, and long
// exponents with short moduli.
void FillModPower(RandomSource& random, UintSet<3>& set) {
    const int64_t limbs = numberContext.uintLimbs;
    FillUint(random, set[0], RandomLength(random, limbs));
    if (limbs <= 2 || random.Below(2) == 0) {
        FillUint(random, set[1], std::min<int64_t>(limbs, random.Between(0, 2)));
        FillUint(random, set[2], std::min<int64_t>(limbs, random.Between(0, 3)));
    } else {
        const bool tiny = random.Below(3) == 0;
        FillUint(random, set[1], 0);
        set[1][0] = random.Below(tiny ? 4 : 64);
        FillUint(random, set[2], tiny ? limbs : RandomLength(random, limbs));
    }
    if (random.Below(10) == 0) {
        FillUint(random, set[2], 0);
        set[2][0] = random.Below(4);
    }
}

TEST(BigUintDivisionOracle, PowersModuloANumber) {
    CompareUint<3>(
        FillModPower,
        [](ExpectedUint& expected, const UintSet<3>& set) {
            if (set.Value(2).IsZero()) {
                expected.Refuse(CalcErrorExactDivisionByZero);
            } else {
                mpz_powm(expected.value, set.Value(0), set.Value(1), set.Value(2));
            }
        },
        [](uint64_t* dest, const UintSet<3>& set) {
            BigUintModPower(dest, set[0], set[1], set[2]);
        });
}

}  // namespace
}  // namespace tallymere
