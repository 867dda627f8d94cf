// Integers against GMP: powers, roots, logarithms and combinatorics.
#include "exact/big_uint_powers.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "exact/big_uint_combinatorics.h"
#include "exact/big_uint_logarithms.h"
#include "exact/big_uint_roots.h"
#include "support/exact_oracle.h"

namespace tallymere {
namespace {

using namespace testing_support;

bool IsSigned(uint64_t word) {
    return static_cast<int64_t>(word) >= 0;
}

void SetWord(uint64_t* dest, uint64_t k) {
    std::fill(dest, dest + numberContext.uintLimbs, 0);
    dest[0] = k;
}

// An exponent such that the power of a base of so many bits just fits or just does not, or any.
uint64_t RandomExponent(RandomSource& random, uint64_t bits) {
    const uint64_t most = UintBits() / std::max<uint64_t>(bits, 1);
    switch (random.Below(8)) {
        case 0:
            return RandomWord(random);
        case 1:
        case 2:
            return most + random.Below(4);
        default:
            return random.Below(most + 2);
    }
}

// A base of any length and an exponent to go with it.
void FillPower(RandomSource& random, UintBuffer& base, uint64_t* exponent) {
    FillUint(random, base, random.Between(0, std::min<int64_t>(numberContext.uintLimbs, 6)));
    if (random.Below(2) == 0) {
        SetWord(base, RandomWord(random) >> random.Below(64));
    }
    *exponent = RandomExponent(random, mpz_sizeinbase(LimbsView(base), 2));
}

TEST(BigUintPowersOracle, PowersWithAWordAsExponent) {
    CompareUint<1>([](RandomSource& random,
                      UintSet<1>& set) { FillPower(random, set.operands[0], &set.word); },
                   [](ExpectedUint& expected, const UintSet<1>& set) {
                       if (!IsSigned(set.word)) {
                           expected.Refuse(CalcErrorUndefined);
                       } else {
                           ExpectPower(expected, set.Value(0), Integer(set.word));
                       }
                   },
                   [](uint64_t* dest, const UintSet<1>& set) {
                       BigUintPowerSmall(dest, set[0], set.SignedWord());
                   });
}

TEST(BigUintPowersOracle, Powers) {
    CompareUint<2>(
        [](RandomSource& random, UintSet<2>& set) {
            uint64_t exponent = 0;
            FillPower(random, set.operands[0], &exponent);
            SetWord(set[1], exponent);
            if (random.Below(8) == 0) {
                FillUint(random, set[1]);
            }
        },
        [](ExpectedUint& expected, const UintSet<2>& set) {
            ExpectPower(expected, set.Value(0), set.Value(1));
        },
        [](uint64_t* dest, const UintSet<2>& set) { BigUintPower(dest, set[0], set[1]); });
}

// The powers of a base that has routines of its own, by exponents of either kind.
using PowerOfBase = void (*)(uint64_t*, const uint64_t*);
using SmallPowerOfBase = void (*)(uint64_t*, int64_t);

void ComparePowersOf(uint64_t base, PowerOfBase power, SmallPowerOfBase smallPower) {
    const Integer gmpBase(base);
    const uint64_t bits = base == 2 ? 1 : 3;
    CompareUint<1>(
        [&](RandomSource& random, UintSet<1>& set) {
            SetWord(set[0], RandomExponent(random, bits));
            if (random.Below(8) == 0) {
                FillUint(random, set[0]);
            }
        },
        [&](ExpectedUint& expected, const UintSet<1>& set) {
            ExpectPower(expected, gmpBase, set.Value(0));
        },
        [&](uint64_t* dest, const UintSet<1>& set) { power(dest, set[0]); });
    CompareUint<0>(
        [&](RandomSource& random, UintSet<0>& set) { set.word = RandomExponent(random, bits); },
        [&](ExpectedUint& expected, const UintSet<0>& set) {
            if (IsSigned(set.word)) {
                ExpectPower(expected, gmpBase, Integer(set.word));
            } else {
                expected.Refuse(CalcErrorUndefined);
            }
        },
        [&](uint64_t* dest, const UintSet<0>& set) { smallPower(dest, set.SignedWord()); });
}

TEST(BigUintPowersOracle, PowersOfTwo) {
    ComparePowersOf(2, BigUintPowerOfTwo, BigUintPowerOfTwoSmall);
}

TEST(BigUintPowersOracle, PowersOfTen) {
    ComparePowersOf(10, BigUintPowerOfTen, BigUintPowerOfTenSmall);
}

// A number of any length, every other time a power with this exponent or one beside it.
void FillRadicand(RandomSource& random, uint64_t* dest, uint64_t degree) {
    FillUint(random, dest, RandomLength(random, numberContext.uintLimbs));
    Integer power;
    if (degree == 0 || random.Below(2) == 0) {
        return;
    }
    RootOfGmp(power, degree, LimbsView(dest));
    if (!PowerOfGmp(power, power, degree) || !FitsUint(power)) {
        return;
    }
    const uint64_t beside = random.Below(3);
    if (beside == 1 && power.Sign() > 0) {
        mpz_sub_ui(power, power, 1);
    } else if (beside == 2) {
        mpz_add_ui(power, power, 1);
    }
    if (FitsUint(power)) {
        WriteUint(dest, power);
    }
}

TEST(BigUintPowersOracle, SquareRoots) {
    CompareUint<1>(
        [](RandomSource& random, UintSet<1>& set) { FillRadicand(random, set[0], 2); },
        [](ExpectedUint& expected, const UintSet<1>& set) {
            expected.exact = RootOfGmp(expected.value, 2, set.Value(0));
        },
        [](uint64_t* dest, const UintSet<1>& set) { return BigUintSquareRoot(dest, set[0]); });
}

uint64_t RandomDegree(RandomSource& random) {
    switch (random.Below(8)) {
        case 0:
            return RandomWord(random);
        case 1:
        case 2:
            return random.Below(UintBits() + 5);
        default:
            return random.Below(12);
    }
}

TEST(BigUintPowersOracle, RootsWithAWordAsDegree) {
    CompareUint<1>(
        [](RandomSource& random, UintSet<1>& set) {
            set.word = RandomDegree(random);
            FillRadicand(random, set[0], set.word);
        },
        [](ExpectedUint& expected, const UintSet<1>& set) {
            ExpectRoot(expected, Integer(set.word), set.Value(0));
        },
        [](uint64_t* dest, const UintSet<1>& set) {
            return BigUintRootSmall(dest, set.SignedWord(), set[0]);
        });
}

TEST(BigUintPowersOracle, Roots) {
    CompareUint<2>(
        [](RandomSource& random, UintSet<2>& set) {
            SetWord(set[0], RandomDegree(random));
            FillRadicand(random, set[1], set[0][0]);
            if (random.Below(8) == 0) {
                FillUint(random, set[0]);
            }
        },
        [](ExpectedUint& expected, const UintSet<2>& set) {
            ExpectRoot(expected, set.Value(0), set.Value(1));
        },
        [](uint64_t* dest, const UintSet<2>& set) { return BigUintRoot(dest, set[0], set[1]); });
}

// A number of any length, every other time a power of the base or one beside it.
void FillForLogarithm(RandomSource& random, uint64_t* dest, mpz_srcptr base) {
    FillUint(random, dest, RandomLength(random, numberContext.uintLimbs));
    if (mpz_cmp_ui(base, 1) <= 0 || random.Below(2) == 0) {
        return;
    }
    const uint64_t most = UintBits() / mpz_sizeinbase(base, 2);
    Integer power;
    mpz_pow_ui(power, base, random.Below(most + 1));
    const uint64_t beside = random.Below(4);
    if (beside == 1) {
        mpz_sub_ui(power, power, 1);
    } else if (beside == 2) {
        mpz_add_ui(power, power, 1);
    }
    if (FitsUint(power)) {
        WriteUint(dest, power);
    }
}

using LogarithmOfBase = bool (*)(uint64_t*, const uint64_t*);

void CompareLogarithmsTo(uint64_t base, LogarithmOfBase logarithm) {
    const Integer gmpBase(base);
    CompareUint<1>(
        [&](RandomSource& random, UintSet<1>& set) { FillForLogarithm(random, set[0], gmpBase); },
        [&](ExpectedUint& expected, const UintSet<1>& set) {
            ExpectLogarithm(expected, gmpBase, set.Value(0));
        },
        [&](uint64_t* dest, const UintSet<1>& set) { return logarithm(dest, set[0]); });
}

TEST(BigUintPowersOracle, LogarithmsToBaseTwo) {
    CompareLogarithmsTo(2, BigUintLogTwo);
}

TEST(BigUintPowersOracle, LogarithmsToBaseTen) {
    CompareLogarithmsTo(10, BigUintLogTen);
}

TEST(BigUintPowersOracle, Logarithms) {
    CompareUint<2>(
        [](RandomSource& random, UintSet<2>& set) {
            SetWord(set[0], random.Below(2) == 0 ? random.Below(40) : RandomWord(random));
            if (random.Below(4) == 0) {
                FillUint(random, set[0], RandomLength(random, numberContext.uintLimbs));
            }
            FillForLogarithm(random, set[1], set.Value(0));
        },
        [](ExpectedUint& expected, const UintSet<2>& set) {
            ExpectLogarithm(expected, set.Value(0), set.Value(1));
        },
        [](uint64_t* dest, const UintSet<2>& set) { return BigUintLog(dest, set[0], set[1]); });
}

TEST(BigUintPowersOracle, Factorials) {
    CompareUint<1>(
        [](RandomSource& random, UintSet<1>& set) {
            // The largest that fits is about 6 to 8 times the width;
            // at the large widths most are smaller, as their work is a millisecond.
            const auto around = static_cast<uint64_t>(
                8 * (random.Below(8) == 0 ? numberContext.uintLimbs
                                          : std::min<int64_t>(numberContext.uintLimbs, 65)));
            SetWord(set[0], random.Below(4) == 0 ? RandomWord(random) : random.Below(around + 20));
            if (random.Below(20) == 0) {
                FillUint(random, set[0]);
            }
        },
        [](ExpectedUint& expected, const UintSet<1>& set) {
            ExpectFactorial(expected, set.Value(0));
        },
        [](uint64_t* dest, const UintSet<1>& set) { BigUintFactorial(dest, set[0]); });
}

// n and k such that the coefficient fits or just does not, small values, and any.
void FillBinomial(RandomSource& random, UintSet<2>& set) {
    const auto bits = static_cast<uint64_t>(UintBits());
    switch (random.Below(8)) {
        case 0:
            FillUint(random, set[0], RandomLength(random, numberContext.uintLimbs));
            FillUintPartner(random, set[1], set[0]);
            break;
        case 1:  // Few factors of any length, from either end.
            FillUint(random, set[0], RandomLength(random, numberContext.uintLimbs));
            SetWord(set[1], random.Below(6));
            if (random.Below(2) == 0 && mpz_cmp(set.Value(0), set.Value(1)) >= 0) {
                Integer rest;
                mpz_sub(rest, set.Value(0), set.Value(1));
                WriteUint(set[1], rest);
            }
            break;
        case 2:  // Around the largest that fit.
            SetWord(set[0], random.Below(std::min<uint64_t>(bits, 700) + 10));
            SetWord(set[1], random.Below(set[0][0] + 3));
            break;
        default:
            SetWord(set[0], random.Below(60));
            SetWord(set[1], random.Below(60));
    }
}

void CompareBinomials(bool falling) {
    CompareUint<2>(
        FillBinomial,
        [&](ExpectedUint& expected, const UintSet<2>& set) {
            ExpectBinomial(expected, set.Value(0), set.Value(1), falling);
        },
        [&](uint64_t* dest, const UintSet<2>& set) {
            BigUintBinomial(dest, set[0], set[1], falling);
        });
}

TEST(BigUintPowersOracle, BinomialCoefficients) {
    CompareBinomials(false);
}

TEST(BigUintPowersOracle, FallingFactorials) {
    CompareBinomials(true);
}

}  // namespace
}  // namespace tallymere
