#include "core/word_products.h"

#include <gtest/gtest.h>

#include <vector>

#include "core/wide_arithmetic.h"
#include "reference/big_uint_multiply_twins.h"
#include "support/random_source.h"

namespace tallymere {
namespace {

using namespace testing_support;

using Words = std::vector<uint64_t>;
using Loop = uint64_t (*)(uint64_t* dest, const uint64_t* src, int64_t n, uint64_t k);

// Words at which carries happen or just do not.
uint64_t RandomWord(RandomSource& random) {
    switch (random.Below(6)) {
        case 0:
            return 0;
        case 1:
        case 2:
            return ~uint64_t{0};
        case 3:
            return uint64_t{1} << random.Below(64);
        default:
            return random.Word();
    }
}

Words RandomWords(RandomSource& random, size_t n) {
    const bool random64 = random.Below(3) == 0;
    Words words(n);
    for (uint64_t& word : words) {
        word = random64 ? random.Word() : RandomWord(random);
    }
    return words;
}

// What a loop writes, with the word that it returns behind; it must leave alone what lies beyond.
Words RunLoop(Loop loop, Words dest, const Words& src, uint64_t k) {
    constexpr uint64_t guard = 0x6AFE6AFE6AFE6AFEu;
    const int64_t n = static_cast<int64_t>(src.size());
    dest.push_back(guard);
    const uint64_t above = loop(dest.data(), src.data(), n, k);
    EXPECT_EQ(dest.back(), guard);
    dest.back() = above;
    return dest;
}

Words RunInPlace(Loop loop, const Words& src, uint64_t k) {
    Words words = src;
    words.push_back(loop(words.data(), words.data(), static_cast<int64_t>(src.size()), k));
    return words;
}

// a + b over the words of a; the carry out of the top is lost.
Words Sum(Words a, const Words& b) {
    uint64_t carry = 0;
    for (size_t i = 0; i < a.size(); i++) {
        const Wide sum = wide_portable::Add(wide_portable::Add({0, a[i]}, {0, b[i]}), {0, carry});
        a[i] = sum.low;
        carry = sum.high;
    }
    return a;
}

struct Loops {
    const char* name;
    Loop multiply;
    Loop add;
};

std::vector<Loops> AllLoops() {
    std::vector<Loops> all = {{"chosen", MultiplyWords, MultiplyAddWords},
                              {"portable", words_portable::Multiply, words_portable::MultiplyAdd}};
#ifdef TALLYMERE_CARRY_CHAINS
    if (words_carry_chains::Supported()) {
        all.push_back(
            {"carry chains", words_carry_chains::Multiply, words_carry_chains::MultiplyAdd});
    }
#endif
    return all;
}

TEST(WordProducts, OfOneWordAreKnown) {
    const uint64_t most = ~uint64_t{0};
    for (const Loops& loops : AllLoops()) {
        SCOPED_TRACE(loops.name);
        EXPECT_EQ(RunLoop(loops.multiply, {7}, {most}, most), (Words{1, most - 1}));
        EXPECT_EQ(RunLoop(loops.add, {most}, {most}, most), (Words{0, most}));
    }
}

TEST(WordProducts, OfNoWordsAreNothing) {
    for (const Loops& loops : AllLoops()) {
        SCOPED_TRACE(loops.name);
        EXPECT_EQ(RunLoop(loops.multiply, {}, {}, 5), Words{0});
        EXPECT_EQ(RunLoop(loops.add, {}, {}, 5), Words{0});
    }
}

TEST(WordProducts, CarryThroughAllWords) {
    const uint64_t most = ~uint64_t{0};
    for (const Loops& loops : AllLoops()) {
        SCOPED_TRACE(loops.name);
        for (size_t n = 1; n <= 40; n++) {
            SCOPED_TRACE(n);
            // (B^n - 1) (B - 1) = B^(n + 1) - B^n - B + 1.
            Words product(n + 1, most);
            product[0] = 1;
            product[n] = most - 1;
            EXPECT_EQ(RunLoop(loops.multiply, Words(n, 3), Words(n, most), most), product);
            // One added to the lowest word of B^n - 1.
            Words one(n, 0);
            one[0] = 1;
            Words overflow(n + 1, 0);
            overflow[n] = 1;
            EXPECT_EQ(RunLoop(loops.add, Words(n, most), one, 1), overflow);
        }
    }
}

TEST(WordProducts, AreTheSameByEveryLoop) {
    RandomSource random;
    const std::vector<Loops> all = AllLoops();
    for (size_t n : {1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12,  13,  14,
                     15, 16, 17, 23, 24, 25, 31, 32, 33, 40, 65, 130, 1039}) {
        SCOPED_TRACE(n);
        for (int round = 0; round < TestRounds(200); round++) {
            const Words src = RandomWords(random, n);
            const Words dest = RandomWords(random, n);
            const uint64_t k = RandomWord(random);
            Words extended = dest;
            extended.push_back(0);
            const Words product = reference::TwinMulFull(src, {k});
            for (const Loops& loops : all) {
                SCOPED_TRACE(loops.name);
                ASSERT_EQ(RunLoop(loops.multiply, dest, src, k), product);
                ASSERT_EQ(RunInPlace(loops.multiply, src, k), product);
                const Words sum = RunLoop(loops.add, dest, src, k);
                ASSERT_EQ(sum, Sum(extended, product));
                ASSERT_EQ(RunInPlace(loops.add, src, k), RunLoop(loops.add, src, src, k));
            }
        }
    }
}

using ArrayLoop = uint64_t (*)(uint64_t* dest, const uint64_t* a, const uint64_t* b, int64_t n);

struct ArrayLoops {
    const char* name;
    ArrayLoop add;
    ArrayLoop subtract;
};

constexpr ArrayLoops AllArrayLoops[] = {
    {"chosen", AddWords, SubtractWords},
    {"portable", words_portable::Add, words_portable::Subtract},
#ifdef TALLYMERE_CARRY_CHAINS
    {"carry chains", words_carry_chains::Add, words_carry_chains::Subtract},
#endif
};

// What a loop writes, with the carry that it returns behind.
Words RunArrayLoop(ArrayLoop loop, const Words& a, const Words& b) {
    Words dest(a.size(), 3);
    dest.push_back(loop(dest.data(), a.data(), b.data(), static_cast<int64_t>(a.size())));
    return dest;
}

TEST(WordSums, CarryAndBorrowThroughAllWords) {
    const uint64_t most = ~uint64_t{0};
    for (const ArrayLoops& loops : AllArrayLoops) {
        SCOPED_TRACE(loops.name);
        EXPECT_EQ(RunArrayLoop(loops.add, {}, {}), Words{0});
        EXPECT_EQ(RunArrayLoop(loops.subtract, {}, {}), Words{0});
        for (size_t n = 1; n <= 40; n++) {
            SCOPED_TRACE(n);
            Words one(n, 0);
            one[0] = 1;
            Words power(n + 1, 0);
            power[n] = 1;
            EXPECT_EQ(RunArrayLoop(loops.add, Words(n, most), one), power);
            Words minusOne(n, most);
            minusOne.push_back(1);
            EXPECT_EQ(RunArrayLoop(loops.subtract, Words(n, 0), one), minusOne);
        }
    }
}

TEST(WordSums, AreTheSameByEveryLoopAndInPlace) {
    RandomSource random;
    for (size_t n : {1, 2, 3, 4, 5, 6, 7, 8, 9, 11, 12, 13, 31, 32, 33, 1039}) {
        SCOPED_TRACE(n);
        for (int round = 0; round < TestRounds(200); round++) {
            const Words a = RandomWords(random, n);
            const Words b = RandomWords(random, n);
            Words extended = a;
            extended.push_back(0);
            Words addend = b;
            addend.push_back(0);
            const Words sum = Sum(extended, addend);
            for (const ArrayLoops& loops : AllArrayLoops) {
                SCOPED_TRACE(loops.name);
                ASSERT_EQ(RunArrayLoop(loops.add, a, b), sum);
                // The difference of the sum and b is a, and borrows if the sum carried.
                const Words low(sum.begin(), sum.end() - 1);
                Words difference = a;
                difference.push_back(sum.back());
                ASSERT_EQ(RunArrayLoop(loops.subtract, low, b), difference);
                Words inPlace = a;
                const int64_t count = static_cast<int64_t>(n);
                inPlace.push_back(loops.add(inPlace.data(), inPlace.data(), b.data(), count));
                ASSERT_EQ(inPlace, sum);
                inPlace = b;
                inPlace.push_back(loops.add(inPlace.data(), a.data(), inPlace.data(), count));
                ASSERT_EQ(inPlace, sum);
                inPlace = low;
                inPlace.push_back(loops.subtract(inPlace.data(), inPlace.data(), b.data(), count));
                ASSERT_EQ(inPlace, difference);
                inPlace = b;
                inPlace.push_back(
                    loops.subtract(inPlace.data(), low.data(), inPlace.data(), count));
                ASSERT_EQ(inPlace, difference);
            }
        }
    }
}

}  // namespace
}  // namespace tallymere
