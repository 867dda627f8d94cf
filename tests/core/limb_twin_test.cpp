// The limb operations against their plain twins: the same limbs, guard limb and count for every
// operand, over every limb count from 1 to 40 and samples up to the longest layout.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "core/limb_tools.h"
#include "core/real_multiply.h"
#include "reference/limb_twins.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;
using reference::LimbResult;
using reference::Limbs;

std::vector<int64_t> LimbCounts() {
    std::vector<int64_t> counts;
    for (int64_t n = 1; n <= 40; n++) {
        counts.push_back(n);
    }
    counts.insert(counts.end(), {53, 64, 100, 127, 128, 129, 263, 526, 527, 529, 530});
    return counts;
}

// Puts n limbs with t digits in the first in force, also beyond what a program may ask for.
class LayoutScope {
public:
    LayoutScope(int64_t n, int64_t t)
        : trace_(__FILE__, __LINE__,
                 std::to_string(n) + " limbs, " + std::to_string(t) + " on top") {
        InstallRealLayout({19 * n - 19 + t, n, t});
    }

private:
    RealLayoutScope saved_;
    ::testing::ScopedTrace trace_;
};

using Operation = std::function<Limb(Limb* dest, const Limb* src, int64_t m)>;

// Runs the operation into another array and in place, and compares both with the twin.
void ExpectTwin(const Limbs& src, const Operation& operation, const LimbResult& expected) {
    const int64_t m = static_cast<int64_t>(src.size());
    const Limbs before = src;
    Limbs apart(src.size(), 77);
    EXPECT_EQ(operation(apart.data(), src.data(), m), expected.guard);
    EXPECT_EQ(apart, expected.limbs);
    ASSERT_EQ(src, before);
    Limbs inPlace = src;
    EXPECT_EQ(operation(inPlace.data(), inPlace.data(), m), expected.guard);
    ASSERT_EQ(inPlace, expected.limbs);
}

Limbs RandomLimbs(RandomSource& random, int64_t m) {
    Limbs limbs(static_cast<size_t>(m));
    FillLimbs(random, limbs.data(), m);
    return limbs;
}

Limb RandomGuard(RandomSource& random) {
    return RandomLimbs(random, 1)[0];
}

TEST(LimbTwin, ShiftsByDigitsAgreeAtEveryDigit) {
    ContextCheck check;
    RandomSource random;
    for (int64_t m : LimbCounts()) {
        SCOPED_TRACE(m);
        const int rounds = m <= 40 ? TestRounds(30) : 2;
        for (int round = 0; round < rounds; round++) {
            for (int64_t k = 0; k <= 19; k++) {
                SCOPED_TRACE(k);
                const Limb guard = RandomGuard(random);
                Limbs src = RandomLimbs(random, m);
                ExpectTwin(
                    src,
                    [&](Limb* dest, const Limb* from, int64_t count) {
                        return LimbsShiftLeftDigits(dest, from, count, k, guard);
                    },
                    reference::ShiftLeftDigits(src, k, guard));
                if (round % 2 == 0) {  // The first limb of a right shift may be any word.
                    src[0] = random.Word() | (uint64_t{1} << 63);
                }
                ExpectTwin(
                    src,
                    [&](Limb* dest, const Limb* from, int64_t count) {
                        return LimbsShiftRightDigits(dest, from, count, k, guard);
                    },
                    reference::ShiftRightDigits(src, k, guard));
            }
        }
    }
}

TEST(LimbTwin, FarShiftsAgreeAtEveryDistance) {
    ContextCheck check;
    RandomSource random;
    for (int64_t m : LimbCounts()) {
        SCOPED_TRACE(m);
        std::vector<int64_t> distances = {0, 1, 18, 19, 20, 37, 38, 39};
        const int64_t digits = 19 * m;
        for (int64_t around : {digits - 19, digits, digits + 19, digits + 38}) {
            for (int64_t k = std::max<int64_t>(0, around - 2); k <= around + 2; k++) {
                distances.push_back(k);
            }
        }
        for (int round = 0; round < TestRounds(10); round++) {
            distances.push_back(random.Between(0, digits));
        }
        for (int64_t far :
             {(int64_t{1} << 31) - 1, int64_t{1} << 31, int64_t{1} << 40, INT64_MAX}) {
            distances.push_back(far);
        }
        for (int64_t k : distances) {
            SCOPED_TRACE(k);
            const Limb guard = RandomGuard(random);
            const Limbs src = RandomLimbs(random, m);
            ExpectTwin(
                src,
                [&](Limb* dest, const Limb* from, int64_t count) {
                    return LimbsShiftRightFar(dest, from, count, k);
                },
                reference::ShiftRightFar(src, k));
            ExpectTwin(
                src,
                [&](Limb* dest, const Limb* from, int64_t count) {
                    return LimbsShiftLeftFar(dest, from, count, k, guard);
                },
                reference::ShiftLeftFar(src, k, guard));
        }
    }
}

uint64_t RandomSmallDivisor(RandomSource& random) {
    switch (random.Below(5)) {
        case 0:
            return random.Between(1, 20);
        case 1:
            return UintDivisorLimit - random.Between(1, 20);
        case 2:
            return uint64_t{1} << random.Below(30);
        case 3:
            return reference::TenTo(random.Between(0, 9)) + random.Below(3) - 1;
        default:
            return random.Below(UintDivisorLimit) >> random.Below(30);
    }
}

TEST(LimbTwin, QuotientsBySmallDivisorsAgree) {
    ContextCheck check;
    RandomSource random;
    for (int64_t m : LimbCounts()) {
        SCOPED_TRACE(m);
        for (int round = 0; round < TestRounds(300); round++) {
            const uint64_t d = std::max<uint64_t>(1, RandomSmallDivisor(random));
            const uint64_t remainder = round % 3 == 0 ? d - 1 : random.Below(d);
            SCOPED_TRACE(std::to_string(remainder) + " and limbs by " + std::to_string(d));
            const int64_t zeros = static_cast<int64_t>(random.Below(3));
            Limbs src = RandomLimbs(random, m);
            Limbs apart(src.size() + static_cast<size_t>(zeros), 77);
            const uint64_t left = LimbsDivideUint(apart.data(), src.data(), m, zeros, d, remainder);
            src.resize(apart.size(), 0);
            uint64_t expectedLeft = remainder;
            const Limbs expected = reference::Divide(src, d, expectedLeft);
            ASSERT_EQ(apart, expected);
            ASSERT_EQ(left, expectedLeft);
            LimbsDivideUint(src.data(), src.data(), m, zeros, d, remainder);
            ASSERT_EQ(src, expected);
        }
    }
}

// Limbs of multiples of d and their neighbours: there the estimate of each limb is at its worst.
TEST(LimbTwin, QuotientsNextToMultiplesAgree) {
    RandomSource random;
    for (int round = 0; round < TestRounds(20'000); round++) {
        const uint64_t d = std::max<uint64_t>(1, RandomSmallDivisor(random));
        SCOPED_TRACE(d);
        Limbs src;
        for (int i = 0; i < 6; i++) {
            const uint64_t multiple = (random.Word() % LimbBase) / d * d;
            src.push_back((multiple + random.Below(3) + LimbBase - 1) % LimbBase);
        }
        Limbs quotient(src.size());
        LimbsDivideUint(quotient.data(), src.data(), 6, 0, d, 0);
        uint64_t remainder = 0;
        ASSERT_EQ(quotient, reference::Divide(src, d, remainder));
    }
}

TEST(LimbTwin, NormaliseAgreesForEveryTopDigitCount) {
    ContextCheck check;
    RandomSource random;
    for (int64_t m : LimbCounts()) {
        for (int64_t t = 1; t <= 19; t++) {
            LayoutScope layout(m, t);
            for (int round = 0; round < (m <= 40 ? TestRounds(30) : 2); round++) {
                Limbs src = RandomLimbs(random, m);
                const int64_t zeros = random.Below(2) == 0 ? 0 : random.Between(0, m);
                std::fill(src.begin(), src.begin() + zeros, 0);
                if (zeros == 0 && random.Below(3) == 0) {
                    src[0] = random.Word();
                }
                const Limb guard = RandomGuard(random);
                const LimbResult expected = reference::Normalise(src, guard);
                ExpectTwin(
                    src,
                    [&](Limb* dest, const Limb* from, int64_t length) {
                        int64_t count = 999;
                        const Limb result = LimbsNormalise(dest, from, length, &count, guard);
                        EXPECT_EQ(count, expected.count);
                        return result;
                    },
                    expected);
            }
        }
    }
}

// LimbsMultiply into another array and into each operand, against the twin.
void ExpectProductTwin(const Limbs& a, const Limbs& b) {
    const int64_t n = static_cast<int64_t>(a.size());
    const LimbResult expected = reference::Multiply(a, b);
    const Limbs aBefore = a;
    const Limbs bBefore = b;
    for (int where = 0; where < 3; where++) {
        SCOPED_TRACE(where);
        Limbs left = a;
        Limbs right = b;
        Limbs apart(a.size(), 77);
        Limbs& product = where == 0 ? apart : where == 1 ? left : right;
        Limb guard = 77;
        EXPECT_EQ(LimbsMultiply(n, product.data(), &guard, left.data(), right.data()),
                  expected.count);
        EXPECT_EQ(guard, expected.guard);
        ASSERT_EQ(product, expected.limbs);
        if (where != 1) {
            ASSERT_EQ(left, aBefore);
        }
        if (where != 2) {
            ASSERT_EQ(right, bBefore);
        }
    }
    Limbs square = a;
    Limb guard = 77;
    const LimbResult expectedSquare = reference::Multiply(a, a);
    EXPECT_EQ(LimbsMultiply(n, square.data(), &guard, square.data(), square.data()),
              expectedSquare.count);
    EXPECT_EQ(guard, expectedSquare.guard);
    ASSERT_EQ(square, expectedSquare.limbs);
}

TEST(LimbTwin, ProductsAgreeForEveryTopDigitCount) {
    ContextCheck check;
    RandomSource random;
    for (int64_t n : LimbCounts()) {
        for (int64_t t = 1; t <= 19; t++) {
            if (n > 40 && t % 6 != 1) {
                continue;
            }
            LayoutScope layout(n, t);
            const int rounds = n <= 4 ? 500 : n <= 40 ? 60 : n <= 129 ? 8 : 2;
            for (int round = 0; round < TestRounds(rounds); round++) {
                Limbs a(static_cast<size_t>(n));
                Limbs b(static_cast<size_t>(n));
                FillMantissa(random, a.data());
                FillMantissa(random, b.data());
                ExpectProductTwin(a, b);
            }
        }
    }
}

TEST(LimbTwin, ProductsOfExtremeOperandsAgree) {
    ContextCheck check;
    for (int64_t n : LimbCounts()) {
        if (n > 129) {
            continue;
        }
        for (int64_t t : {1, 2, 10, 18, 19}) {
            LayoutScope layout(n, t);
            std::vector<Limbs> operands;
            operands.emplace_back(static_cast<size_t>(n), 0);
            operands.back()[0] = reference::TenTo(t - 1);  // 1
            operands.push_back(operands[0]);
            operands.back().back() += 1;  // 1 and a unit in the last place
            operands.emplace_back(static_cast<size_t>(n), LimbBase - 1);
            operands.back()[0] = reference::TenTo(t) - 1;  // all nines
            if (n > 1) {
                operands.push_back(operands[2]);
                operands.back().back() = 0;
            }
            operands.emplace_back(static_cast<size_t>(n), 0);
            operands.back()[0] = reference::TenTo(t) - 1;
            operands.emplace_back(static_cast<size_t>(n), LimbBase - 1);
            operands.back()[0] = reference::TenTo(t - 1);
            for (const Limbs& a : operands) {
                for (const Limbs& b : operands) {
                    ExpectProductTwin(a, b);
                }
            }
        }
    }
}

}  // namespace
}  // namespace tallymere
