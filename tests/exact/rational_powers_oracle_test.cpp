// Fractions against GMP: powers, roots, logarithms and combinatorics.
#include "exact/rational_powers.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "exact/rational_combinatorics.h"
#include "support/rational_oracle.h"

namespace tallymere {
namespace {

using namespace testing_support;

// An integer as a word; 2^64 - 1, which overflows every power but those of 0 and 1, for larger
// ones.
uint64_t WordOf(mpz_srcptr value) {
    return mpz_fits_ulong_p(value) != 0 ? mpz_get_ui(value) : ~uint64_t{0};
}

// Both parts raised to the power p, with code 200 where one does not fit.
void RaiseParts(ExpectedRational& expected, mpz_srcptr numerator, mpz_srcptr denominator,
                uint64_t p) {
    if (!PowerOfGmp(expected.numerator, numerator, p) ||
        !PowerOfGmp(expected.denominator, denominator, p)) {
        expected.Refuse(CalcErrorOverflow);
    } else {
        expected.Limit();
    }
}

void InvertFor(ExpectedRational& expected, bool negative) {
    if (negative) {
        expected.Invert();
    }
}

// A fraction of few limbs, and an exponent with which its power just fits or just does not.
uint64_t FillBase(RandomSource& random, RationalNumber* base) {
    FillFraction(random, base);
    const int64_t limbs = std::min<int64_t>(numberContext.uintLimbs, 3);
    UintBuffer part;
    Integer numerator;
    Integer denominator;
    FillUint(random, part, random.Between(0, limbs));
    mpz_set(numerator, LimbsView(part));
    FillUint(random, part, random.Between(0, limbs));
    mpz_set(denominator, LimbsView(part));
    if (random.Below(3) == 0) {
        mpz_set_ui(numerator, random.Below(30));
        mpz_set_ui(denominator, random.Below(30));
    }
    WriteRational(base, random.Below(2), numerator, denominator);
    const uint64_t bits = std::max(mpz_sizeinbase(numerator, 2), mpz_sizeinbase(denominator, 2));
    switch (random.Below(8)) {
        case 0:
            return RandomWord(random);
        case 1:
            return UintBits() / bits + random.Below(4);
        default:
            return random.Below(UintBits() / bits + 2);
    }
}

TEST(RationalPowersOracle, PowersWithAWordAsExponent) {
    CompareRational<1>(
        [](RandomSource& random, RationalSet<1>& set) {
            set.word = FillBase(random, set[0]);
            set.word = random.Below(2) == 0 ? 0 - set.word : set.word;
        },
        [](ExpectedRational& expected, const RationalSet<1>& set) {
            const bool negative = set.SignedWord() < 0;
            expected.sign = set.Sign(0) & set.word;
            RaiseParts(expected, set.Numerator(0), set.Denominator(0),
                       negative ? 0 - set.word : set.word);
            InvertFor(expected, negative);
        },
        [](RationalNumber* dest, const RationalSet<1>& set) {
            RationalPowerSmall(dest, set[0], set.SignedWord());
        });
}

// dest = the fraction p / q, q = 1 in half of the cases.
void FillExponent(RandomSource& random, RationalNumber* dest, uint64_t p) {
    constexpr uint64_t denominators[] = {1, 1, 1, 2, 4, 8, 9, 27, 16, 5};
    Integer numerator(p);
    if (random.Below(16) == 0) {
        mpz_ui_pow_ui(numerator, 2, random.Below(UintBits()));
    }
    WriteRational(dest, random.Below(2), numerator, Integer(denominators[random.Below(10)]));
}

// The root of an integer with an integer as degree; false for one that is not exact, and degree 0.
bool ExactRoot(Integer& root, mpz_srcptr degree, mpz_srcptr x) {
    return mpz_sgn(degree) != 0 && RootOfGmp(root, WordOf(degree), x);
}

TEST(RationalPowersOracle, Powers) {
    int roots = 0;
    CompareRational<2>(
        [](RandomSource& random, RationalSet<2>& set) {
            const uint64_t exponent = FillBase(random, set[0]);
            FillExponent(random, set[1], exponent);
            if (random.Below(4) == 0) {
                WriteRational(set[0], 0, Integer(random.Below(4)), Integer(random.Below(4)));
            }
        },
        [&](ExpectedRational& expected, const RationalSet<2>& set) {
            const uint64_t p = WordOf(set.Numerator(1));
            const uint64_t odd = set.Numerator(1).Low() & 1;
            expected.sign = set.Sign(0) & odd;
            if (set.IsWhole(1)) {
                RaiseParts(expected, set.Numerator(0), set.Denominator(0), p);
            } else {
                // Roots of the exponent's denominator, with the parts of the base as degrees.
                Integer above;
                Integer below;
                if (set.IsNegative(0) || !ExactRoot(above, set.Numerator(0), set.Denominator(1)) ||
                    !ExactRoot(below, set.Denominator(0), set.Denominator(1))) {
                    expected.Refuse(CalcErrorUndefined);
                    return;
                }
                RaiseParts(expected, above, below, p);
                roots++;
            }
            InvertFor(expected, set.Sign(1) != 0);
        },
        [](RationalNumber* dest, const RationalSet<2>& set) {
            RationalPower(dest, set[0], set[1]);
        });
    EXPECT_GT(roots, TestRounds(1'000));
}

void ComparePowersOf(uint64_t base, void (*power)(RationalNumber*, const RationalNumber*)) {
    CompareRational<1>(
        [&](RandomSource& random, RationalSet<1>& set) {
            FillExponent(random, set[0], random.Below(UintBits() / (base == 2 ? 1 : 3) + 4));
            if (random.Below(8) == 0) {
                FillFraction(random, set[0]);
            }
        },
        [&](ExpectedRational& expected, const RationalSet<1>& set) {
            if (!set.IsWhole(0)) {
                expected.Refuse(CalcErrorUndefined);
                return;
            }
            RaiseParts(expected, Integer(base), Integer(1), WordOf(set.Numerator(0)));
            InvertFor(expected, set.Sign(0) != 0);
        },
        [&](RationalNumber* dest, const RationalSet<1>& set) { power(dest, set[0]); });
}

TEST(RationalPowersOracle, PowersOfTwo) {
    ComparePowersOf(2, RationalPowerOfTwo);
}

TEST(RationalPowersOracle, PowersOfTen) {
    ComparePowersOf(10, RationalPowerOfTen);
}

// A fraction both parts of which are powers with this exponent, every other time; else any.
void FillRadicand(RandomSource& random, RationalNumber* dest, uint64_t degree) {
    FillFraction(random, dest);
    if (degree == 0 || random.Below(2) == 0) {
        return;
    }
    Integer parts[2];
    const uint64_t* const given[2] = {RationalNumerator(dest), RationalDenominator(dest)};
    for (const size_t i : {0, 1}) {
        RootOfGmp(parts[i], degree, LimbsView(given[i]));
        if (!PowerOfGmp(parts[i], parts[i], degree)) {
            return;
        }
    }
    WriteRational(dest, RationalSign(dest), parts[0], parts[1]);
}

// The root of both parts, with the sign of x, which an even root does not take of less than 0.
void ExpectRoot(ExpectedRational& expected, mpz_srcptr degree, bool odd, const RationalSet<1>& x) {
    if ((x.IsNegative(0) && !odd) || !ExactRoot(expected.numerator, degree, x.Numerator(0)) ||
        !ExactRoot(expected.denominator, degree, x.Denominator(0))) {
        expected.Refuse(CalcErrorUndefined);
    } else {
        expected.sign = x.Sign(0);
    }
}

TEST(RationalPowersOracle, SquareRoots) {
    CompareRational<1>(
        [](RandomSource& random, RationalSet<1>& set) { FillRadicand(random, set[0], 2); },
        [](ExpectedRational& expected, const RationalSet<1>& set) {
            ExpectRoot(expected, Integer(2), false, set);
        },
        [](RationalNumber* dest, const RationalSet<1>& set) { RationalSquareRoot(dest, set[0]); });
}

TEST(RationalPowersOracle, CubeRoots) {
    CompareRational<1>(
        [](RandomSource& random, RationalSet<1>& set) { FillRadicand(random, set[0], 3); },
        [](ExpectedRational& expected, const RationalSet<1>& set) {
            ExpectRoot(expected, Integer(3), true, set);
        },
        [](RationalNumber* dest, const RationalSet<1>& set) { RationalCubeRoot(dest, set[0]); });
}

TEST(RationalPowersOracle, Roots) {
    CompareRational<2>(
        [](RandomSource& random, RationalSet<2>& set) {
            FillExponent(random, set[0],
                         random.Below(8) == 0 ? RandomWord(random) : random.Below(9));
            FillRadicand(random, set[1], WordOf(set.Numerator(0)));
        },
        [](ExpectedRational& expected, const RationalSet<2>& set) {
            const bool odd = set.IsWhole(0) && set.Numerator(0).Low() % 2 != 0;
            RationalSet<1> x;
            x.operands[0] = set.operands[1];
            ExpectRoot(expected, set.Numerator(0), odd, x);
            if (expected.code == CalcErrorNone) {
                const Integer above = expected.numerator;
                const Integer below = expected.denominator;
                RaiseParts(expected, above, below, WordOf(set.Denominator(0)));
                InvertFor(expected, set.Sign(0) != 0);
            }
        },
        [](RationalNumber* dest, const RationalSet<2>& set) {
            RationalRoot(dest, set[0], set[1]);
        });
}

TEST(RationalPowersOracle, Logarithms) {
    int found = 0;
    CompareRational<2>(
        [](RandomSource& random, RationalSet<2>& set) {
            FillFraction(random, set[1]);
            const Integer base(random.Below(8) == 0 ? RandomWord(random) : random.Below(12));
            WriteRational(set[0], random.Below(16) == 0 ? 1 : 0, base,
                          Integer(random.Below(16) == 0 ? 3 : 1));
            Integer power;
            if (random.Below(3) == 0 ||
                !PowerOfGmp(power, base, random.Below(UintBits() / mpz_sizeinbase(base, 2) + 1))) {
                return;
            }
            if (random.Below(8) == 0) {
                mpz_add_ui(power, power, 1);
            }
            const bool above = random.Below(2) == 0;
            WriteRational(set[1], random.Below(16) == 0 ? 1 : 0, above ? power : Integer(1),
                          above ? Integer(1) : power);
        },
        [&](ExpectedRational& expected, const RationalSet<2>& set) {
            const bool unit = !set.IsWhole(1) && mpz_cmp_ui(mpz_srcptr(set.Numerator(1)), 1) == 0;
            bool exact = false;
            if (set.IsWhole(0) && set.Sign(0) == 0 &&
                mpz_cmp_ui(mpz_srcptr(set.Numerator(0)), 1) > 0 && set.Sign(1) == 0 &&
                !set.Numerator(1).IsZero() && (set.IsWhole(1) || unit)) {
                mpz_set_ui(expected.numerator,
                           LogarithmOfGmp(set.Numerator(0),
                                          unit ? set.Denominator(1) : set.Numerator(1), &exact));
                expected.sign = unit ? 1 : 0;
            }
            if (!exact) {
                expected.Refuse(CalcErrorUndefined);
            }
            found += exact ? 1 : 0;
        },
        [](RationalNumber* dest, const RationalSet<2>& set) { RationalLog(dest, set[0], set[1]); });
    EXPECT_GT(found, TestRounds(50'000));
}

TEST(RationalPowersOracle, Factorials) {
    CompareRational<1>(
        [](RandomSource& random, RationalSet<1>& set) {
            const auto around =
                static_cast<uint64_t>(8 * std::min<int64_t>(numberContext.uintLimbs, 65) + 20);
            WriteRational(set[0], random.Below(8) == 0 ? 1 : 0, Integer(random.Below(around)),
                          Integer(random.Below(8) == 0 ? 3 : 1));
            if (random.Below(8) == 0) {
                FillFraction(random, set[0]);
            }
        },
        [](ExpectedRational& expected, const RationalSet<1>& set) {
            if (!set.IsWhole(0) || set.Sign(0) != 0) {
                expected.Refuse(CalcErrorUndefined);
            } else if (const uint64_t n = WordOf(set.Numerator(0)); n > UintBits() + 3) {
                expected.Refuse(CalcErrorOverflow);
            } else {
                mpz_fac_ui(expected.numerator, n);
                expected.Limit();
            }
        },
        [](RationalNumber* dest, const RationalSet<1>& set) { RationalFactorial(dest, set[0]); });
}

// The product of so many factors n - k + i, each divided by i unless `falling`, in lowest terms
// after each. Of two integers the product is the one of integers, which is made without reducing.
void ExpectProduct(ExpectedRational& expected, const RationalSet<2>& set, bool falling) {
    const uint64_t count = mpz_get_ui(set.Numerator(1));
    Integer position;
    mpz_set(position, set.Numerator(0));
    if (set.IsNegative(0)) {
        mpz_neg(position, position);
    }
    mpz_submul_ui(position, set.Denominator(0), count);
    mpz_set_ui(expected.numerator, 1);
    Integer magnitude;
    mpz_abs(magnitude, position);
    if (!FitsUint(magnitude)) {
        expected.Refuse(CalcErrorOverflow);
    }
    for (uint64_t i = 1; i <= count && expected.code == CalcErrorNone; i++) {
        mpz_add(position, position, set.Denominator(0));
        mpz_abs(magnitude, position);
        mpz_mul(expected.numerator, expected.numerator, magnitude);
        mpz_mul(expected.denominator, expected.denominator, set.Denominator(0));
        if (!falling) {
            mpz_mul_ui(expected.denominator, expected.denominator, i);
        }
        expected.sign ^= position.Sign() < 0 ? 1 : 0;
        expected.Reduce();
        expected.Limit();
    }
}

// n with parts of up to half the width, so that what it is divided by does not run over alone.
void FillBinomial(RandomSource& random, RationalSet<2>& set) {
    UintBuffer part;
    Integer above;
    Integer below(random.Between(1, 12));
    FillUint(random, part, random.Between(0, std::min<int64_t>(3, numberContext.uintLimbs / 2)));
    mpz_set(above, LimbsView(part));
    if (random.Below(2) == 0) {
        mpz_set_ui(above, random.Below(100));
    }
    WriteRational(set[0], random.Below(2), above, below);
    WriteRational(set[1], random.Below(16) == 0 ? 1 : 0, Integer(random.Below(12)),
                  Integer(random.Below(16) == 0 ? 2 : 1));
    if (random.Below(32) == 0) {
        FillFraction(random, set[1]);
    }
}

void CompareBinomials(bool falling) {
    CompareRational<2>(
        FillBinomial,
        [&](ExpectedRational& expected, const RationalSet<2>& set) {
            const bool integers = set.IsWhole(0) && !set.IsNegative(0);
            if (!set.IsWhole(1) || set.IsNegative(1) ||
                (!integers && mpz_fits_ulong_p(set.Numerator(1)) == 0)) {
                expected.Refuse(CalcErrorUndefined);
                return;
            }
            if (!integers) {
                ExpectProduct(expected, set, falling);
                return;
            }
            if (mpz_cmp(set.Numerator(1), set.Numerator(0)) > 0) {
                return;
            }
            RationalSet<2> from = set;
            Integer rest;
            mpz_sub(rest, set.Numerator(0), set.Numerator(1));
            if (!falling && mpz_cmp(rest, set.Numerator(1)) < 0) {
                WriteRational(from[1], 0, rest, Integer(1));
            }
            if (mpz_fits_ulong_p(from.Numerator(1)) == 0) {
                expected.Refuse(CalcErrorUndefined);
                return;
            }
            from[0]->sign = 0;
            mpz_set_ui(expected.numerator, 1);
            const uint64_t count = mpz_get_ui(from.Numerator(1));
            Integer factor;
            mpz_sub_ui(factor, from.Numerator(0), count);
            for (uint64_t i = 1; i <= count && expected.code == CalcErrorNone; i++) {
                mpz_add_ui(factor, factor, 1);
                mpz_mul(expected.numerator, expected.numerator, factor);
                expected.Limit();
                if (!falling && expected.code == CalcErrorNone) {
                    mpz_divexact_ui(expected.numerator, expected.numerator, i);
                }
            }
        },
        [&](RationalNumber* dest, const RationalSet<2>& set) {
            RationalBinomial(dest, set[0], set[1], falling);
        });
}

TEST(RationalPowersOracle, BinomialCoefficients) {
    CompareBinomials(false);
}

TEST(RationalPowersOracle, FallingFactorials) {
    CompareBinomials(true);
}

void FillIntegers(RandomSource& random, RationalSet<2>& set) {
    FillFraction(random, set[0]);
    FillFractionPartner(random, set[1], set[0]);
    for (const size_t i : {0, 1}) {
        if (random.Below(8) != 0) {
            Integer value;
            mpz_mul_ui(value, set.Numerator(i), random.Between(1, 30));
            WriteRational(set[i], random.Below(16) == 0 ? 1 : 0, value, Integer(1));
        }
    }
}

void CompareOfIntegers(void (*gmp)(mpz_ptr, mpz_srcptr, mpz_srcptr),
                       void (*operation)(RationalNumber*, const RationalNumber*,
                                         const RationalNumber*)) {
    CompareRational<2>(
        FillIntegers,
        [&](ExpectedRational& expected, const RationalSet<2>& set) {
            for (const size_t i : {0, 1}) {
                if (!set.IsWhole(i) || set.Sign(i) != 0 || set.Numerator(i).IsZero()) {
                    expected.Refuse(CalcErrorUndefined);
                    return;
                }
            }
            gmp(expected.numerator, set.Numerator(0), set.Numerator(1));
            expected.Limit();
        },
        [&](RationalNumber* dest, const RationalSet<2>& set) { operation(dest, set[0], set[1]); });
}

TEST(RationalPowersOracle, GreatestCommonDivisors) {
    CompareOfIntegers(mpz_gcd, RationalGcd);
}

TEST(RationalPowersOracle, LeastCommonMultiples) {
    CompareOfIntegers(mpz_lcm, RationalLcm);
}

}  // namespace
}  // namespace tallymere
