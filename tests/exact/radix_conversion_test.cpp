#include "exact/radix_conversion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "reference/conversion_twins.h"
#include "support/exact_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;
using reference::Limbs;

// Every length across the first halvings, and those of the program's integers.
std::vector<int64_t> WordCounts() {
    std::vector<int64_t> counts;
    for (int64_t m = 1; m <= 80; m++) {
        counts.push_back(m);
    }
    counts.insert(counts.end(), {97, 130, 191, 193, 260, 520, 521, 1039, 2000});
    return counts;
}

Limbs DecimalLimbs(const std::vector<uint64_t>& words) {
    constexpr Limb guard = 0x6AFE6AFE6AFE6AFEu;
    const auto m = static_cast<int64_t>(words.size());
    const int64_t room = MaxDecimalLimbs(m);
    Limbs limbs(static_cast<size_t>(room) + 2, guard);
    Limb* end = limbs.data() + 1 + room;
    const int64_t count = WordsToDecimalLimbs(end, words.data(), m);
    EXPECT_EQ(limbs.front(), guard);
    EXPECT_EQ(limbs.back(), guard);
    EXPECT_EQ(std::count(limbs.data() + 1, end - count, Limb{0}), room - count);
    return Limbs(end - count, end);
}

constexpr uint64_t DoesNotFit = ~uint64_t{0};

// The words of the integer that the limbs make, or DoesNotFit alone.
std::vector<uint64_t> WordsOf(const Limbs& limbs, int64_t capacity) {
    std::vector<uint64_t> words(static_cast<size_t>(capacity), 0);
    GrowingInteger x = {words.data(), capacity, 0};
    for (const Limb limb : limbs) {
        if (!MultiplyAdd(x, LimbBase, limb)) {
            return {DoesNotFit};
        }
    }
    words.resize(static_cast<size_t>(x.length));
    return words;
}

TEST(MaxDecimalLimbs, AreEnoughForTheLargestInteger) {
    for (int64_t m = 1; m <= 4000; m++) {
        // 2^(64 m) - 1 has as many digits as 2^(64 m), which is no power of ten.
        const auto digits = static_cast<int64_t>(64 * m * 0.30102999566398119521L) + 1;
        ASSERT_GE(MaxDecimalLimbs(m), (digits + 18) / 19) << m;
    }
}

TEST(WordsToDecimalLimbs, KnownValues) {
    EXPECT_EQ(DecimalLimbs({}), (Limbs{}));
    EXPECT_EQ(DecimalLimbs({0}), (Limbs{}));
    EXPECT_EQ(DecimalLimbs({1}), (Limbs{1}));
    EXPECT_EQ(DecimalLimbs({LimbBase - 1}), (Limbs{LimbBase - 1}));
    EXPECT_EQ(DecimalLimbs({LimbBase}), (Limbs{1, 0}));
    EXPECT_EQ(DecimalLimbs({~uint64_t{0}}), (Limbs{1, 8446744073709551615u}));
    EXPECT_EQ(DecimalLimbs({0, 1, 0}), (Limbs{1, 8446744073709551616u}));
}

TEST(WordsToDecimalLimbs, AreThoseOfRepeatedDivision) {
    RandomSource random;
    for (const int64_t m : WordCounts()) {
        WidthScope width(m);
        const int rounds = m <= 80 ? 40 : m <= 520 ? 8 : 2;
        for (int round = 0; round < TestRounds(rounds); round++) {
            UintBuffer a;
            FillUint(random, a);
            const std::vector<uint64_t> words(a.Get(), a.Get() + m);
            ASSERT_EQ(DecimalLimbs(words), reference::TwinDecimalLimbs(words));
        }
        const std::vector<uint64_t> ones(static_cast<size_t>(m), ~uint64_t{0});
        ASSERT_EQ(DecimalLimbs(ones), reference::TwinDecimalLimbs(ones));
        ASSERT_EQ(DecimalLimbs(std::vector<uint64_t>(static_cast<size_t>(m), 0)), Limbs{});
    }
}

TEST(WordsToDecimalLimbs, LeadBackToTheWords) {
    RandomSource random;
    for (const int64_t m : WordCounts()) {
        WidthScope width(m);
        for (int round = 0; round < TestRounds(m <= 80 ? 20 : 1); round++) {
            UintBuffer a;
            FillUint(random, a);
            std::vector<uint64_t> words(a.Get(), a.Get() + m);
            const Limbs limbs = DecimalLimbs(words);
            while (!words.empty() && words.back() == 0) {
                words.pop_back();
            }
            ASSERT_EQ(WordsOf(limbs, m), words);
            // As many words as are significant suffice, and one less does not.
            const auto length = static_cast<int64_t>(words.size());
            ASSERT_EQ(WordsOf(limbs, length), words);
            if (length > 0) {
                ASSERT_EQ(WordsOf(limbs, length - 1), std::vector<uint64_t>{DoesNotFit});
            }
        }
    }
}

TEST(GrowingInteger, IsWellFormedWithoutAZeroOnTop) {
    uint64_t words[2] = {0, 7};
    EXPECT_TRUE(GrowingIntegerIsWellFormed({words, 2, 0}));
    EXPECT_TRUE(GrowingIntegerIsWellFormed({words, 2, 2}));
    EXPECT_FALSE(GrowingIntegerIsWellFormed({words, 2, 1}));
    EXPECT_FALSE(GrowingIntegerIsWellFormed({words, 1, 2}));
    EXPECT_FALSE(GrowingIntegerIsWellFormed({words, 2, -1}));
}

TEST(MultiplyAdd, TakesAnyWords) {
    uint64_t words[2] = {~uint64_t{0}, 7};
    GrowingInteger x = {words, 2, 1};
    ASSERT_TRUE(MultiplyAdd(x, ~uint64_t{0}, ~uint64_t{0}));
    EXPECT_EQ(x.length, 2);
    EXPECT_EQ(words[0], 0u);
    EXPECT_EQ(words[1], ~uint64_t{0});
    EXPECT_FALSE(MultiplyAdd(x, 2, 0));

    GrowingInteger zero = {words, 2, 0};
    ASSERT_TRUE(MultiplyAdd(zero, 5, 0));
    EXPECT_EQ(zero.length, 0);
    ASSERT_TRUE(MultiplyAdd(zero, 5, 9));
    EXPECT_EQ(zero.length, 1);
    EXPECT_EQ(words[0], 9u);
}

// At every capacity around what is needed, also where zeros lead and where x is not 0 before.
TEST(AppendDecimalLimbs, MultipliesAndAddsLimbByLimb) {
    RandomSource random;
    for (int round = 0; round < TestRounds(5'000); round++) {
        Limbs limbs(1 + random.Below(30));
        FillLimbs(random, limbs.data(), static_cast<int64_t>(limbs.size()));
        std::fill_n(limbs.begin(), std::min<uint64_t>(random.Below(6), limbs.size()), Limb{0});
        const Limbs head(limbs.begin(), limbs.begin() + random.Below(limbs.size() + 1));
        for (int64_t capacity = 0; capacity <= static_cast<int64_t>(limbs.size()) + 1; capacity++) {
            std::vector<uint64_t> words(static_cast<size_t>(capacity), 0);
            GrowingInteger x = {words.data(), capacity, 0};
            const bool fits =
                AppendDecimalLimbs(x, head.data(), static_cast<int64_t>(head.size())) &&
                AppendDecimalLimbs(x, limbs.data() + head.size(),
                                   static_cast<int64_t>(limbs.size() - head.size()));
            ASSERT_TRUE(!fits || GrowingIntegerIsWellFormed(x));
            words.resize(fits ? static_cast<size_t>(x.length) : 0);
            ASSERT_EQ(fits ? words : std::vector<uint64_t>{DoesNotFit}, WordsOf(limbs, capacity));
        }
    }
}

TEST(MultiplyByPowerOfTen, TakesAnyNumberOfPlaces) {
    uint64_t words[2] = {0, 0};
    GrowingInteger zero = {words, 2, 0};
    ASSERT_TRUE(MultiplyByPowerOfTen(zero, ~uint64_t{0}));
    EXPECT_EQ(zero.length, 0);
    for (const uint64_t places : {0, 1, 18, 19, 20, 38}) {
        words[0] = 3;
        GrowingInteger x = {words, 2, 1};
        ASSERT_TRUE(MultiplyByPowerOfTen(x, places));
        ASSERT_EQ(UintText(words, x.length), "3" + std::string(places, '0'));
    }
    std::vector<uint64_t> wide(40);
    for (uint64_t places = 0; places <= 700; places++) {
        wide[0] = 7;
        GrowingInteger x = {wide.data(), 40, 1};
        ASSERT_TRUE(MultiplyByPowerOfTen(x, places));
        ASSERT_TRUE(GrowingIntegerIsWellFormed(x));
        ASSERT_EQ(UintText(wide.data(), x.length), "7" + std::string(places, '0'));
    }
    for (const uint64_t places : {uint64_t{39}, uint64_t{57}, uint64_t{1} << 40, ~uint64_t{0}}) {
        words[0] = 4;
        GrowingInteger x = {words, 2, 1};
        ASSERT_FALSE(MultiplyByPowerOfTen(x, places));
    }
}

}  // namespace
}  // namespace tallymere
