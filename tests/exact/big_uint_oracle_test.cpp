// Integers against GMP: sums, products, shifts, comparisons and changes of width.
#include "exact/big_uint.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "exact/big_uint_multiply.h"
#include "support/exact_oracle.h"

namespace tallymere {
namespace {

using namespace testing_support;

// One operand and any word; an operand and a partner.
void FillWithWord(RandomSource& random, UintSet<1>& set) {
    FillUint(random, set[0]);
    set.word = RandomWord(random);
}

void FillPair(RandomSource& random, UintSet<2>& set) {
    FillUint(random, set[0]);
    FillUintPartner(random, set[1], set[0]);
}

TEST(BigUintOracle, Sums) {
    CompareUint<2>(
        FillPair,
        [](ExpectedUint& expected, const UintSet<2>& set) {
            mpz_add(expected.value, set.Value(0), set.Value(1));
            expected.Limit();
        },
        [](uint64_t* dest, const UintSet<2>& set) { BigUintAdd(dest, set[0], set[1]); });
}

TEST(BigUintOracle, SumsWithAWord) {
    CompareUint<1>(
        FillWithWord,
        [](ExpectedUint& expected, const UintSet<1>& set) {
            mpz_add_ui(expected.value, set.Value(0), set.word);
            expected.Limit();
        },
        [](uint64_t* dest, const UintSet<1>& set) { BigUintAddSmall(dest, set[0], set.word); });
}

TEST(BigUintOracle, Differences) {
    CompareUint<2>(
        FillPair,
        [](ExpectedUint& expected, const UintSet<2>& set) {
            mpz_sub(expected.value, set.Value(0), set.Value(1));
            expected.Limit();
        },
        [](uint64_t* dest, const UintSet<2>& set) { BigUintSub(dest, set[0], set[1]); });
}

TEST(BigUintOracle, DifferencesWithOne) {
    CompareUint<1>(
        FillWithWord,
        [](ExpectedUint& expected, const UintSet<1>& set) {
            mpz_sub_ui(expected.value, set.Value(0), 1);
            expected.Limit();
        },
        [](uint64_t* dest, const UintSet<1>& set) { BigUintSubOne(dest, set[0]); });
}

TEST(BigUintOracle, ProductsWithAWord) {
    CompareUint<1>(
        [](RandomSource& random, UintSet<1>& set) {
            FillWithWord(random, set);
            set[0][numberContext.uintLimbs - 1] >>= random.Below(64);
        },
        [](ExpectedUint& expected, const UintSet<1>& set) {
            mpz_mul_ui(expected.value, set.Value(0), set.word);
            expected.Limit();
        },
        [](uint64_t* dest, const UintSet<1>& set) { BigUintMulSmall(dest, set[0], set.word); });
}

TEST(BigUintOracle, Products) {
    CompareUint<2>(
        [](RandomSource& random, UintSet<2>& set) { FillFactors(random, set[0], set[1]); },
        [](ExpectedUint& expected, const UintSet<2>& set) {
            mpz_mul(expected.value, set.Value(0), set.Value(1));
            expected.Limit();
        },
        [](uint64_t* dest, const UintSet<2>& set) { BigUintMul(dest, set[0], set[1]); });
}

TEST(BigUintOracle, Squares) {
    CompareUint<1>(
        [](RandomSource& random, UintSet<1>& set) {
            const int64_t limbs = numberContext.uintLimbs;
            const int64_t half = (limbs + 1) / 2;
            FillUint(random, set[0], random.Below(4) == 0 ? std::min(half + 1, limbs) : half);
        },
        [](ExpectedUint& expected, const UintSet<1>& set) {
            mpz_mul(expected.value, set.Value(0), set.Value(0));
            expected.Limit();
        },
        [](uint64_t* dest, const UintSet<1>& set) { BigUintMul(dest, set[0], set[0]); });
}

TEST(BigUintOracle, FullProducts) {
    RandomSource random;
    for (const int64_t limbs : AllUintWidths) {
        const WidthScope scope(limbs);
        UintBuffer a;
        UintBuffer b;
        UintBuffer product = UintBuffer::OfLimbs(2 * limbs);
        Integer expected;
        for (int round = OperandSets(); round > 0; round--) {
            FillUint(random, a);
            FillUintPartner(random, b, a);
            mpz_mul(expected, LimbsView(a), LimbsView(b));
            BigUintMulFull(product, a, b);
            ASSERT_EQ(mpz_cmp(LimbsView(product, 2 * limbs), expected), 0)
                << a.Text() << "\n* " << b.Text();
        }
    }
}

TEST(BigUintOracle, ShiftsToTheRightThatKeepWhatFallsOut) {
    uint64_t out = 0;
    uint64_t expectedOut = 0;
    CompareUint<1>(
        [](RandomSource& random, UintSet<1>& set) {
            FillUint(random, set[0]);
            set.word = random.Below(50) == 0 ? RandomWord(random) : random.Below(66);
        },
        [&](ExpectedUint& expected, const UintSet<1>& set) {
            expectedOut = 0;
            if (set.word > 64) {
                expected.Refuse(CalcErrorUndefined);
                return;
            }
            Integer fallen;
            mpz_fdiv_r_2exp(fallen, set.Value(0), set.word);
            expectedOut = mpz_get_ui(fallen);
            mpz_fdiv_q_2exp(expected.value, set.Value(0), set.word);
        },
        [&](uint64_t* dest, const UintSet<1>& set) {
            const bool wanted = set[0][0] % 4 != 0;
            out = wanted ? ~expectedOut : expectedOut;
            BigUintShiftRightOut(dest, wanted ? &out : nullptr, set[0], set.word);
            EXPECT_EQ(out, expectedOut);
        });
}

TEST(BigUintOracle, ShiftsToTheRight) {
    CompareUint<1>(
        [](RandomSource& random, UintSet<1>& set) {
            FillUint(random, set[0]);
            set.word = random.Below(8) == 0 ? RandomWord(random) : random.Below(UintBits() + 70);
        },
        [](ExpectedUint& expected, const UintSet<1>& set) {
            if (set.SignedWord() < 0) {
                expected.Refuse(CalcErrorUndefined);
            } else {
                mpz_fdiv_q_2exp(expected.value, set.Value(0), set.word);
            }
        },
        [](uint64_t* dest, const UintSet<1>& set) {
            BigUintShiftRight(dest, set[0], set.SignedWord());
        });
}

void FillForLeftShift(RandomSource& random, UintSet<1>& set) {
    FillUint(random, set[0]);
    set[0][numberContext.uintLimbs - 1] >>= random.Below(64);
    set.word = random.Below(20) == 0 ? RandomWord(random) : random.Below(65);
}

TEST(BigUintOracle, ShiftsToTheLeftThatMayLoseNothing) {
    CompareUint<1>(
        FillForLeftShift,
        [](ExpectedUint& expected, const UintSet<1>& set) {
            if (set.word < 1 || set.word > 63) {
                expected.Refuse(CalcErrorUndefined);
                return;
            }
            mpz_mul_2exp(expected.value, set.Value(0), set.word);
            expected.Limit();
        },
        [](uint64_t* dest, const UintSet<1>& set) {
            BigUintShiftLeft(dest, set[0], set.SignedWord(), true);
        });
}

TEST(BigUintOracle, ShiftsToTheLeftThatMayLoseBits) {
    CompareUint<1>(
        FillForLeftShift,
        [](ExpectedUint& expected, const UintSet<1>& set) {
            if (set.word < 1 || set.word > 63) {
                expected.Refuse(CalcErrorUndefined);
                return;
            }
            mpz_mul_2exp(expected.value, set.Value(0), set.word);
            mpz_fdiv_r_2exp(expected.value, expected.value, UintBits());
        },
        [](uint64_t* dest, const UintSet<1>& set) {
            BigUintShiftLeft(dest, set[0], set.SignedWord(), false);
        });
}

TEST(BigUintOracle, ComparisonsAndLengths) {
    RandomSource random;
    for (const int64_t limbs : AllUintWidths) {
        const WidthScope scope(limbs);
        UintSet<2> set;
        for (int round = OperandSets(); round > 0; round--) {
            FillPair(random, set);
            set.word = random.Below(UintBits());
            const LimbsView view = set.Value(0);
            const mpz_srcptr a = view;
            const int order = mpz_cmp(a, set.Value(1));
            const bool sound =
                BigUintCompare(set[0], set[1]) == (order > 0) - (order < 0) &&
                BigUintIsZero(set[0]) == (mpz_sgn(a) == 0) &&
                BigUintLength(set[0]) == static_cast<int64_t>(mpz_size(a)) &&
                BigUintBitLength(set[0]) ==
                    ((mpz_sgn(a) == 0) ? 0 : static_cast<int64_t>(mpz_sizeinbase(a, 2))) &&
                BigUintFitsUnsigned(set[0]) == (mpz_fits_ulong_p(a) != 0) &&
                BigUintFitsSigned(set[0]) == (mpz_fits_slong_p(a) != 0) &&
                BigUintEqualsSmall(set[0], set[1][0]) == (mpz_cmp_ui(a, set[1][0]) == 0) &&
                BigUintBit(set[0], set.SignedWord()) ==
                    static_cast<uint64_t>(mpz_tstbit(a, set.word));
            ASSERT_TRUE(sound) << set.Text();
        }
    }
}

// Any two places in one array of three widths, so that they overlap in every way.
TEST(BigUintOracle, ChangesOfWidth) {
    RandomSource random;
    for (const int64_t limbs : AllUintWidths) {
        const WidthScope scope(limbs);
        const UintBuffer junk = UintBuffer::OfLimbs(3 * limbs);
        UintBuffer memory = junk;
        UintBuffer a;
        for (int round = OperandSets(); round > 0; round--) {
            const int64_t from = random.Between(0, limbs);
            const int64_t fromAt = random.Between(0, 2 * limbs);
            const int64_t to = random.Between(0, limbs);
            const int64_t toAt = random.Between(0, 2 * limbs);
            FillUint(random, a, from);
            memory = junk;
            std::copy(a.Get(), a.Get() + from, memory.Get() + fromAt);
            std::vector<uint64_t> expected(memory.Get(), memory.Get() + 3 * limbs);
            CalcError code = CalcErrorNone;
            if (from == 0 || to == 0) {
                code = CalcErrorBadParameter;
            } else if (static_cast<int64_t>(mpz_size(LimbsView(a, from))) > to) {
                code = CalcErrorOverflow;
                std::fill_n(expected.begin() + toAt, to, 0);
            } else {
                const int64_t common = std::min(from, to);
                std::fill_n(expected.begin() + toAt, to, 0);
                std::copy(a.Get(), a.Get() + common, expected.begin() + toAt);
            }
            BigUintResize(memory.Get() + toAt, to, memory.Get() + fromAt, from);
            ASSERT_EQ(TakeCode(), code) << from << " to " << to << "\n" << a.Text();
            ASSERT_TRUE(std::equal(expected.begin(), expected.end(), memory.Get()))
                << from << " limbs at " << fromAt << " to " << to << " at " << toAt << "\n"
                << a.Text();
        }
    }
}

}  // namespace
}  // namespace tallymere
