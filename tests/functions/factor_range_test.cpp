#include "functions/factor_range.h"

#include <gtest/gtest.h>

#include "core/real_divide.h"
#include "core/real_multiply.h"
#include "core/scratch.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// Word for word and guard limb for guard limb what single factors give.
void CheckRange(const RealBuffer& x, uint64_t from, uint64_t to) {
    RealBuffer expected = x;
    Limb expectedGuard = 0;
    for (uint64_t k = from; k <= to; k++) {
        expectedGuard = RealMulUint(expected, expected, k);
    }
    RealBuffer result = x;
    EXPECT_EQ(RealMulRange(result, from, to), expectedGuard) << from << " to " << to;
    EXPECT_EQ(result, expected) << from << " to " << to;
}

TEST(MulRange, IsWordForWordTheProductOfSingleFactors) {
    RandomSource random;
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        for (int round = TestRounds(p <= 100 ? 1000 : p <= 1000 ? 200 : 10); round > 0; round--) {
            RealBuffer x;
            FillReal(random, x, 100);
            const int64_t digits = random.Between(1, 18);
            uint64_t from = 1 + random.Below(PowerOfTen(digits));
            if (random.Below(4) == 0) {
                from = PowerOfTen(digits) - random.Below(9);  // factors grow by a digit
            }
            CheckRange(x, from, from + random.Below(40));
        }
    }
}

TEST(MulRange, TakesFactorialsOfEveryLength) {
    for (int64_t p : {57, 58, 75, 76, 77, 95, 96, 100, 1000}) {
        PrecisionScope scope(p);
        CheckRange(RealBuffer("1"), 2, 3000);
    }
}

// Mantissas at which the leading digits leave open how many digits the product has.
TEST(MulRange, TakesProductsNextToAPowerOfTen) {
    for (int64_t p : {57, 76, 77, 95, 100}) {
        PrecisionScope scope(p);
        for (uint64_t k : {2, 4, 5, 8, 16, 25, 125, 1250, 3125}) {
            // 10^30 / k is exact; and one unit more and less in the last place.
            RealBuffer x("1e30");
            RealDivUint(x, x, k);
            RealBuffer below = x;
            CheckRange(x, k, k + 9);
            CheckRange(x, k - 1, k + 9);
            x.Limbs()[x.LimbCount() - 1]++;
            CheckRange(x, k, k + 9);
            Limb borrow = 1;
            for (int64_t i = below.LimbCount() - 1; i >= 0; i--) {
                below.Limbs()[i] = SubtractLimbs(below.Limbs()[i], 0, borrow);
            }
            CheckRange(below, k, k + 9);
        }
    }
}

// The product of the first factors lies on a power of ten or just misses it, in digits far behind
// the leading ones.
TEST(MulRange, TakesGroupsNextToAPowerOfTen) {
    for (int64_t p : {39, 57, 77, 100}) {
        PrecisionScope scope(p);
        for (uint64_t k = 2; k < 400; k++) {
            for (uint64_t factors : {2, 3, 4}) {
                RealBuffer below("1e30");
                for (uint64_t i = 0; i < factors; i++) {
                    RealDivUint(below, below, k + i);
                }
                RealBuffer above = below;
                above.Limbs()[above.LimbCount() - 1] += factors;
                if (above.Limbs()[above.LimbCount() - 1] < LimbBase) {
                    CheckRange(above, k, k + factors + 3);
                }
                CheckRange(below, k, k + factors + 3);
            }
        }
    }
}

TEST(MulRange, LeavesTheNumberAloneWithoutAFactor) {
    for (int64_t p : {1, 20, 100}) {
        PrecisionScope scope(p);
        CheckRange(RealBuffer("7"), 3, 2);
        CheckRange(RealBuffer("7"), 3, 3);
    }
}

TEST(MulRange, KeepsSpecialValuesAndTheEndOfTheRange) {
    for (int64_t p : {1, 20, 100}) {
        PrecisionScope scope(p);
        for (const char* x : {"nan", "inf", "-inf", "0", "-0"}) {
            CheckRange(RealBuffer(x), 2, 9);
        }
        CheckRange(RealBuffer("1e4611686018427387902"), 2, 9);
        EXPECT_EQ(TakeCode(), CalcErrorOverflow);
    }
}

TEST(MulRange, StopsAtTheByteThatAsksForIt) {
    for (int64_t p : {1, 20, 100, 1000}) {
        PrecisionScope scope(p);
        uint8_t stop = 1;
        FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
        for (uint64_t to : {2, 3, 100}) {
            RealBuffer x("1");
            EXPECT_EQ(RealMulRange(x, 2, to), 0u);
            EXPECT_EQ(PlainText(x), "nan");
            EXPECT_EQ(TakeCode(), CalcErrorCancelled);
        }
    }
}

}  // namespace
}  // namespace tallymere
