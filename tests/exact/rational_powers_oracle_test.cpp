// Fractions against GMP: powers, roots, logarithms and combinatorics.
#include "exact/rational_powers.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "exact/rational_combinatorics.h"
#include "support/rational_oracle.h"

namespace tallymere {
namespace {

using namespace testing_support;

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
            const Integer magnitude(negative ? 0 - set.word : set.word);
            ExpectPower(expected, set.Value(0), {negative ? 1u : 0u, magnitude, Integer(1)});
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
            ExpectPower(expected, set.Value(0), set.Value(1));
            roots += !RationalIsInteger(set[1]) && expected.code == CalcErrorNone ? 1 : 0;
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
            if (RationalIsInteger(set[0])) {
                ExpectPower(expected, {0, Integer(base), Integer(1)}, set.Value(0));
            } else {
                expected.Refuse(CalcErrorUndefined);
            }
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

TEST(RationalPowersOracle, SquareRoots) {
    CompareRational<1>(
        [](RandomSource& random, RationalSet<1>& set) { FillRadicand(random, set[0], 2); },
        [](ExpectedRational& expected, const RationalSet<1>& set) {
            ExpectRoot(expected, {0, Integer(2), Integer(1)}, set.Value(0));
        },
        [](RationalNumber* dest, const RationalSet<1>& set) { RationalSquareRoot(dest, set[0]); });
}

TEST(RationalPowersOracle, CubeRoots) {
    CompareRational<1>(
        [](RandomSource& random, RationalSet<1>& set) { FillRadicand(random, set[0], 3); },
        [](ExpectedRational& expected, const RationalSet<1>& set) {
            ExpectRoot(expected, {0, Integer(3), Integer(1)}, set.Value(0));
        },
        [](RationalNumber* dest, const RationalSet<1>& set) { RationalCubeRoot(dest, set[0]); });
}

TEST(RationalPowersOracle, Roots) {
    CompareRational<2>(
        [](RandomSource& random, RationalSet<2>& set) {
            FillExponent(random, set[0],
                         random.Below(8) == 0 ? RandomWord(random) : random.Below(9));
            FillRadicand(random, set[1], WordOf(LimbsView(RationalNumerator(set[0]))));
        },
        [](ExpectedRational& expected, const RationalSet<2>& set) {
            ExpectRoot(expected, set.Value(0), set.Value(1));
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
            ExpectLogarithm(expected, set.Value(0), set.Value(1));
            found += expected.code == CalcErrorNone ? 1 : 0;
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
            ExpectFactorial(expected, set.Value(0));
        },
        [](RationalNumber* dest, const RationalSet<1>& set) { RationalFactorial(dest, set[0]); });
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
            ExpectBinomial(expected, set.Value(0), set.Value(1), falling);
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
            mpz_mul_ui(value, set.Value(i).numerator, random.Between(1, 30));
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
            ExpectOfIntegers(expected, set.Value(0), set.Value(1), gmp);
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
