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

}  // namespace
}  // namespace tallymere
