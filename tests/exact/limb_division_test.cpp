#include "exact/limb_division.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "reference/big_uint_multiply_twins.h"
#include "support/random_source.h"

namespace tallymere {
namespace {

using namespace testing_support;

using Limbs = std::vector<uint64_t>;

// Words that carries and estimates stumble over.
uint64_t HostileWord(RandomSource& random) {
    switch (random.Below(6)) {
        case 0:
            return random.Below(2);
        case 1:
            return ~random.Below(2);
        case 2:
            return (uint64_t{1} << 63) + random.Below(2);
        case 3:
            return (uint64_t{1} << 63) - 1;
        default:
            return random.Word();
    }
}

Limbs HostileLimbs(RandomSource& random, size_t count) {
    Limbs limbs(count);
    for (uint64_t& limb : limbs) {
        limb = HostileWord(random);
    }
    return limbs;
}

// a + b, of which b is the shorter, in the limbs of a.
Limbs Sum(Limbs a, const Limbs& b) {
    uint64_t carry = 0;
    for (size_t i = 0; i < a.size(); i++) {
        const uint64_t addend = i < b.size() ? b[i] : 0;
        const Wide sum = wide_portable::Add({0, a[i]}, {0, addend});
        const Wide total = wide_portable::Add(sum, {0, carry});
        a[i] = total.low;
        carry = total.high;
    }
    EXPECT_EQ(carry, 0u);
    return a;
}

bool IsBelow(const Limbs& a, const Limbs& b) {
    return std::lexicographical_compare(a.rbegin(), a.rend(), b.rbegin(), b.rend());
}

// (2^64 + reciprocal) d <= 2^192 - 1 < (2^64 + reciprocal + 1) d.
void ExpectReciprocalByRule(Wide d) {
    Limbs product = reference::TwinMulFull({WideReciprocal(d), 1}, {d.low, d.high});
    ASSERT_EQ(product[3], 0u) << d.high << " " << d.low;
    product.resize(3);
    Limbs space(3);
    for (size_t i = 0; i < 3; i++) {
        space[i] = ~product[i];
    }
    ASSERT_TRUE(IsBelow(space, {d.low, d.high, 0})) << d.high << " " << d.low;
}

TEST(WideReciprocal, FollowsItsRule) {
    RandomSource random;
    for (int round = 0; round < TestRounds(200'000); round++) {
        ASSERT_NO_FATAL_FAILURE(
            ExpectReciprocalByRule({HostileWord(random) | uint64_t{1} << 63, HostileWord(random)}));
    }
}

// From this low limb on, the reciprocal of the high limb alone is two too large at the first look.
TEST(WideReciprocal, FollowsItsRuleWhereTheCorrectionsChange) {
    RandomSource random;
    for (int round = 0; round < TestRounds(20'000); round++) {
        const uint64_t high = HostileWord(random) | uint64_t{1} << 63;
        const uint64_t change = high - high * WordReciprocal(high);
        for (const uint64_t low : {change - 1, change, change + 1}) {
            ASSERT_NO_FATAL_FAILURE(ExpectReciprocalByRule({high, low}));
        }
    }
}

TEST(DivideByWide, IsExactAroundEveryMultiple) {
    RandomSource random;
    for (int round = 0; round < TestRounds(200'000); round++) {
        const Wide d = {HostileWord(random) | uint64_t{1} << 63, HostileWord(random)};
        // quotient d + rest, for a rest next to 0 or to d, or in between.
        const uint64_t quotient = HostileWord(random);
        Wide rest = {0, random.Below(2)};
        if (random.Below(2) == 0) {
            rest = wide_portable::Subtract(d, {0, 1 + random.Below(2)});
        } else if (random.Below(2) == 0) {
            rest = {random.Below(d.high), random.Word()};
        }
        Limbs value = reference::TwinMulFull({quotient}, {d.low, d.high});
        value = Sum(value, {rest.low, rest.high});
        const WideQuotient found =
            DivideByWide({value[2], value[1]}, value[0], d, WideReciprocal(d));
        ASSERT_EQ(found.quotient, quotient) << d.high << " " << d.low;
        ASSERT_EQ(found.remainder.high, rest.high);
        ASSERT_EQ(found.remainder.low, rest.low);
    }
}

TEST(LimbsMove, MovesBitsAcrossLimbsAndReturnsThoseThatLeave) {
    RandomSource random;
    for (int shift = 0; shift < 64; shift++) {
        for (int64_t n : {1, 2, 5}) {
            const Limbs src = HostileLimbs(random, static_cast<size_t>(n));
            const Limbs expected = reference::TwinMulFull(src, {uint64_t{1} << shift});
            Limbs moved(src.size());
            EXPECT_EQ(UintLimbsShiftLeft(moved.data(), src.data(), n, shift), expected.back());
            EXPECT_TRUE(std::equal(moved.begin(), moved.end(), expected.begin()));
            Limbs back = src;
            UintLimbsShiftRight(back.data(), moved.data(), n, shift);
            Limbs withoutTop = src;
            withoutTop.back() = withoutTop.back() << shift >> shift;
            EXPECT_EQ(back, withoutTop);
        }
    }
}

TEST(LimbsMove, WritesOverItsSourceAndNextToIt) {
    RandomSource random;
    for (int shift : {0, 1, 63}) {
        const Limbs src = HostileLimbs(random, 4);
        Limbs left(4);
        UintLimbsShiftLeft(left.data(), src.data(), 4, shift);
        Limbs right(4);
        UintLimbsShiftRight(right.data(), src.data(), 4, shift);
        Limbs place = src;
        UintLimbsShiftLeft(place.data(), place.data(), 4, shift);
        EXPECT_EQ(place, left);
        place = src;
        UintLimbsShiftRight(place.data(), place.data(), 4, shift);
        EXPECT_EQ(place, right);
        place = {src[0], src[1], src[2], src[3], 0};
        UintLimbsShiftLeft(place.data() + 1, place.data(), 4, shift);
        EXPECT_EQ(Limbs(place.begin() + 1, place.end()), left);
        place = {0, src[0], src[1], src[2], src[3]};
        UintLimbsShiftRight(place.data(), place.data() + 1, 4, shift);
        EXPECT_EQ(Limbs(place.begin(), place.end() - 1), right);
    }
}

TEST(PrepareDivisor, MovesTheHighestBitToTheTop) {
    for (int bit = 0; bit < 64; bit++) {
        Limbs b = {5, 7, uint64_t{1} << bit};
        const UintLimbDivisor divisor = PrepareDivisor(b.data(), b.data(), 3);
        EXPECT_EQ(divisor.limbs, b.data());
        EXPECT_EQ(divisor.count, 3);
        EXPECT_EQ(divisor.shift, 63 - bit);
        EXPECT_EQ(b[2] >> 63, 1u);
        EXPECT_EQ(divisor.reciprocal, WideReciprocal({b[2], b[1]}));
    }
    Limbs one = {3};
    const UintLimbDivisor ofOne = PrepareDivisor(one.data(), one.data(), 1);
    EXPECT_EQ(ofOne.reciprocal, WordReciprocal(one[0]));
}

TEST(UintLimbDivisor, IsWellFormedWithItsReciprocalAndItsHighestBit) {
    Limbs b = {5, 7, 9};
    const UintLimbDivisor good = PrepareDivisor(b.data(), b.data(), 3);
    EXPECT_TRUE(UintLimbDivisorIsWellFormed(good));
    for (const int shift : {-1, 64}) {
        UintLimbDivisor bad = good;
        bad.shift = shift;
        EXPECT_FALSE(UintLimbDivisorIsWellFormed(bad));
    }
    UintLimbDivisor bad = good;
    bad.reciprocal++;
    EXPECT_FALSE(UintLimbDivisorIsWellFormed(bad));
    bad = good;
    bad.count = 0;
    EXPECT_FALSE(UintLimbDivisorIsWellFormed(bad));
    b[2] >>= 1;
    EXPECT_FALSE(UintLimbDivisorIsWellFormed(good));
}

TEST(UintLimbs, AreApartUnlessTheyShareALimb) {
    const uint64_t limbs[8] = {};
    EXPECT_TRUE(UintLimbsAreApart(limbs, 4, limbs + 4, 4));
    EXPECT_TRUE(UintLimbsAreApart(limbs + 4, 4, limbs, 4));
    EXPECT_FALSE(UintLimbsAreApart(limbs, 5, limbs + 4, 4));
    EXPECT_FALSE(UintLimbsAreApart(limbs + 4, 4, limbs, 5));
    EXPECT_FALSE(UintLimbsAreApart(limbs, 8, limbs + 3, 1));
    EXPECT_FALSE(UintLimbsAreApart(limbs + 3, 1, limbs, 8));
}

// Dividends are made from quotient and remainder, which therefore are known.
TEST(UintLimbsDivide, FindsQuotientAndRemainderOfHostileLimbs) {
    RandomSource random;
    for (size_t n = 1; n <= 24; n++) {
        for (int round = 0; round < TestRounds(2'000); round++) {
            const size_t m = random.Below(12);
            Limbs b = HostileLimbs(random, n);
            b.back() |= uint64_t{1} << 63;
            const Limbs quotient = HostileLimbs(random, m);
            Limbs rest = HostileLimbs(random, n);
            if (!IsBelow(rest, b)) {
                // One less than b: no dividend is harder on an estimate.
                rest = b;
                for (size_t i = 0; rest[i]-- == 0; i++) {
                }
            }
            const Limbs value = Sum(reference::TwinMulFull(quotient, b), rest);
            Limbs store(n);
            const UintLimbDivisor divisor =
                PrepareDivisor(store.data(), b.data(), static_cast<int64_t>(n));
            ASSERT_TRUE(UintLimbDivisorIsWellFormed(divisor)) << n << " limbs";
            Limbs r = value;
            Limbs found(m);
            UintLimbsDivide(found.data(), r.data(), static_cast<int64_t>(m), divisor);
            ASSERT_EQ(found, quotient) << n << " limbs";
            ASSERT_TRUE(std::equal(rest.begin(), rest.end(), r.begin())) << n << " limbs";
            r = value;
            UintLimbsDivide(nullptr, r.data(), static_cast<int64_t>(m), divisor);
            ASSERT_TRUE(std::equal(rest.begin(), rest.end(), r.begin())) << n << " limbs";
        }
    }
}

}  // namespace
}  // namespace tallymere
