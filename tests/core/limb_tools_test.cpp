#include "core/limb_tools.h"

#include <gtest/gtest.h>

#include <vector>

#include "reference/limb_twins.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;
using reference::Limbs;

constexpr Limb AllNines = LimbBase - 1;

TEST(LimbsShiftRightDigits, ReturnsFallenDigitsWithTheGuardBehindThem) {
    Limbs limbs = {123, 4'567'000'000'000'000'089u};
    EXPECT_EQ(LimbsShiftRightDigits(limbs.data(), limbs.data(), 2, 2, 7'700'000'000'000'000'000u),
              8'977'000'000'000'000'000u);
    EXPECT_EQ(limbs, (Limbs{1, 2'345'670'000'000'000'000u}));
}

TEST(LimbsShiftRightDigits, TakesAnyWordAsFirstLimb) {
    Limbs limbs = {~uint64_t{0}, 0};
    EXPECT_EQ(LimbsShiftRightDigits(limbs.data(), limbs.data(), 2, 19, 5), 0u);
    EXPECT_EQ(limbs, (Limbs{1, 8'446'744'073'709'551'615u}));
}

TEST(LimbsShiftLeftDigits, FillsFromTheGuardAndReturnsWhatIsLeftOfIt) {
    Limbs limbs = {12, 3'400'000'000'000'000'000u};
    EXPECT_EQ(LimbsShiftLeftDigits(limbs.data(), limbs.data(), 2, 3, 5'678'900'000'000'000'000u),
              8'900'000'000'000'000'000u);
    EXPECT_EQ(limbs, (Limbs{12'340, 567}));
}

TEST(LimbsShiftRightFar, ClearsFromTwoToTheThirtyOneDigits) {
    for (int64_t k : {int64_t{1} << 31, (int64_t{1} << 31) + 7, int64_t{1} << 62, INT64_MAX}) {
        Limbs limbs = {1, 2, 3};
        EXPECT_EQ(LimbsShiftRightFar(limbs.data(), limbs.data(), 3, k), 0u);
        EXPECT_EQ(limbs, (Limbs{0, 0, 0}));
    }
}

TEST(LimbsShiftRightFar, ReturnsTheLimbDirectlyBelow) {
    Limbs limbs = {11, 22};
    EXPECT_EQ(LimbsShiftRightFar(limbs.data(), limbs.data(), 2, 0), 0u);
    EXPECT_EQ(LimbsShiftRightFar(limbs.data(), limbs.data(), 2, 19), 22u);
    EXPECT_EQ(limbs, (Limbs{0, 11}));
    EXPECT_EQ(LimbsShiftRightFar(limbs.data(), limbs.data(), 2, 38), 0u);
    limbs = {11, 22};
    EXPECT_EQ(LimbsShiftRightFar(limbs.data(), limbs.data(), 2, 38), 11u);
    limbs = {11, 22};
    EXPECT_EQ(LimbsShiftRightFar(limbs.data(), limbs.data(), 2, 39), 1u);
}

TEST(LimbsNormalise, GivesCountZeroForZero) {
    PrecisionScope scope(30);
    Limbs limbs = {7, 7};
    const Limbs zero = {0, 0};
    int64_t count = 99;
    EXPECT_EQ(LimbsNormalise(limbs.data(), zero.data(), 2, &count, 0), 0u);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(limbs, zero);
}

TEST(LimbsNormalise, FindsANumberThatStandsInTheGuardAlone) {
    PrecisionScope scope(30);  // 11 digits in the first limb
    Limbs limbs = {0, 0};
    int64_t count = 99;
    EXPECT_EQ(LimbsNormalise(limbs.data(), limbs.data(), 2, &count, 1'234'567'890'123'456'789u),
              0u);
    EXPECT_EQ(count, 30);
    EXPECT_EQ(limbs, (Limbs{12'345'678'901, 2'345'678'900'000'000'000u}));
}

TEST(LimbsNormalise, CountsNegativeWhereTheFirstLimbHoldsMore) {
    PrecisionScope scope(20);  // 1 digit in the first limb
    Limbs limbs = {12'345'678'901'234'567'890u, 0};
    int64_t count = 99;
    EXPECT_EQ(LimbsNormalise(limbs.data(), limbs.data(), 2, &count, 9), 0u);
    EXPECT_EQ(count, -19);
    EXPECT_EQ(limbs, (Limbs{1, 2'345'678'901'234'567'890u}));
}

TEST(LimbsAdd, CarriesFromTheLastLimbOut) {
    const Limbs one = {0, 0, 1};
    Limbs nines = {AllNines, AllNines, AllNines};
    EXPECT_EQ(LimbsAdd(nines.data(), nines.data(), one.data(), 3), 1u);
    EXPECT_EQ(nines, (Limbs{0, 0, 0}));
    Limbs doubled = {AllNines, AllNines, AllNines};
    EXPECT_EQ(LimbsAdd(doubled.data(), doubled.data(), doubled.data(), 3), 1u);
    EXPECT_EQ(doubled, (Limbs{AllNines, AllNines, AllNines - 1}));
    EXPECT_EQ(LimbsAdd(doubled.data(), one.data(), one.data(), 3), 0u);
    EXPECT_EQ(doubled, (Limbs{0, 0, 2}));
}

TEST(LimbsSubtract, BorrowsForTheGuardAndReturnsItsComplement) {
    const Limbs zero = {0, 0, 0};
    Limbs power = {1, 0, 0};
    EXPECT_EQ(LimbsSubtract(power.data(), power.data(), zero.data(), 3, 1), AllNines);
    EXPECT_EQ(power, (Limbs{0, AllNines, AllNines}));
    EXPECT_EQ(LimbsSubtract(power.data(), power.data(), power.data(), 3, 0), 0u);
    EXPECT_EQ(power, zero);
    const Limbs a = {5, 0, 3};
    const Limbs b = {4, AllNines, 3};
    Limbs difference = zero;
    EXPECT_EQ(LimbsSubtract(difference.data(), a.data(), b.data(), 3, 0), 0u);
    EXPECT_EQ(difference, (Limbs{0, 1, 0}));
    EXPECT_EQ(LimbsSubtract(difference.data(), a.data(), b.data(), 3, AllNines), 1u);
    EXPECT_EQ(difference, (Limbs{0, 0, AllNines}));
}

TEST(LimbsAddAndSubtract, UndoEachOther) {
    RandomSource random;
    for (int64_t n = 1; n <= 40; n++) {
        for (int round = 0; round < TestRounds(200); round++) {
            Limbs a(static_cast<size_t>(n));
            Limbs b(a.size());
            FillLimbs(random, a.data(), n);
            FillLimbs(random, b.data(), n);
            Limbs sum(a.size());
            a[0] /= 2;
            b[0] /= 2;
            ASSERT_EQ(LimbsAdd(sum.data(), a.data(), b.data(), n), 0u);
            Limbs back = sum;
            ASSERT_EQ(LimbsSubtract(back.data(), back.data(), b.data(), n, 0), 0u);
            ASSERT_EQ(back, a);
            back = b;
            LimbsSubtract(back.data(), sum.data(), back.data(), n, 0);
            ASSERT_EQ(back, a);
        }
    }
}

TEST(LimbsCompare, DecidesByTheFirstDifference) {
    const Limbs a = {1, 2, 3};
    const Limbs b = {1, 3, 0};
    EXPECT_EQ(LimbsCompare(a.data(), b.data(), 3), -1);
    EXPECT_EQ(LimbsCompare(b.data(), a.data(), 3), 1);
    EXPECT_EQ(LimbsCompare(a.data(), b.data(), 1), 0);
    EXPECT_EQ(LimbsCompare(a.data(), a.data(), 3), 0);
}

TEST(LimbsClearCopyAndTest, TouchNothingElse) {
    Limbs limbs = {1, 2, 3, 4};
    LimbsClear(limbs.data() + 1, 2);
    EXPECT_EQ(limbs, (Limbs{1, 0, 0, 4}));
    EXPECT_TRUE(LimbsAreZero(limbs.data() + 1, 2));
    EXPECT_FALSE(LimbsAreZero(limbs.data() + 1, 3));
    EXPECT_TRUE(LimbsAreZero(limbs.data(), 0));
    LimbsCopy(limbs.data() + 1, limbs.data(), 3);
    EXPECT_EQ(limbs, (Limbs{1, 1, 0, 0}));
}

}  // namespace
}  // namespace tallymere
