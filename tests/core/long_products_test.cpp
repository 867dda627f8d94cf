#include "core/long_products.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "core/scratch.h"
#include "core/wide_arithmetic.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

using Digits = std::vector<uint64_t>;

// Products are split down to the shortest that can be, and as the program splits them.
constexpr ProductCutovers LeastCutovers = {4, 4, 4, 4};

constexpr uint64_t Untouched = 0x6AFE6AFE6AFE6AFEu;

// a * b digit by digit, with a carry handed on at once: base 2^64 for a `base` of 0.
Digits PlainProduct(const Digits& a, const Digits& b, uint64_t base) {
    Digits product(a.size() + b.size(), 0);
    for (size_t i = 0; i < a.size(); i++) {
        uint64_t carry = 0;
        for (size_t j = 0; j < b.size(); j++) {
            const Wide sum = wide_portable::MultiplyAdd(a[i], b[j], product[i + j], carry);
            if (base == 0) {
                product[i + j] = sum.low;
                carry = sum.high;
            } else {
                carry = wide::Divide(sum, base);
                product[i + j] = sum.low - carry * base;
            }
        }
        product[i + b.size()] = carry;
    }
    return product;
}

// Digits below `most` + 1, least significant first, with runs of the least and the largest one.
Digits RandomDigits(RandomSource& random, int64_t n, uint64_t most) {
    Digits digits(static_cast<size_t>(n));
    const uint64_t kind = random.Below(6);
    uint64_t digit = 0;
    for (size_t i = 0; i < digits.size(); i++) {
        if (kind < 2) {
            digit = kind == 0 ? most : random.Word() % most;
        } else if (i == 0 || random.Below(kind == 5 ? 40 : 4) == 0) {
            const uint64_t near = random.Below(8);
            digit = near < 3 ? 0 : near < 6 ? most : near == 6 ? 1 : random.Word() % most;
        }
        digits[i] = digit;
    }
    if (kind == 0 && random.Below(2) == 0) {
        digits[random.Below(digits.size())] -= random.Below(2);
    }
    return digits;
}

Digits Reversed(Digits digits) {
    std::reverse(digits.begin(), digits.end());
    return digits;
}

Digits WordProduct(const Digits& a, const Digits& b, const ProductCutovers& cutovers) {
    Digits product(a.size() + b.size() + 1, Untouched);
    MultiplyWordArrays(product.data(), a.data(), static_cast<int64_t>(a.size()), b.data(),
                       static_cast<int64_t>(b.size()), cutovers);
    EXPECT_EQ(product.back(), Untouched);
    product.pop_back();
    return product;
}

Digits LimbProduct(const Digits& a, const Digits& b, const ProductCutovers& cutovers) {
    Digits product(a.size() + b.size() + 1, Untouched);
    LimbsMultiplyArrays(product.data(), a.data(), static_cast<int64_t>(a.size()), b.data(),
                        static_cast<int64_t>(b.size()), cutovers);
    EXPECT_EQ(product.back(), Untouched);
    product.pop_back();
    return product;
}

Digits UpperProduct(const Digits& a, const Digits& b, const ProductCutovers& cutovers) {
    Digits product(a.size() + 3, Untouched);
    LimbsMultiplyUpper(product.data(), a.data(), b.data(), static_cast<int64_t>(a.size()),
                       cutovers);
    EXPECT_EQ(product.back(), Untouched);
    product.pop_back();
    return product;
}

// The sum of all products of limbs i + j <= n, row by row.
Digits PlainUpperProduct(const Digits& a, const Digits& b) {
    const size_t n = a.size();
    Digits sum(n + 2, 0);
    for (size_t i = 0; i < n; i++) {
        uint64_t carry = 0;
        for (size_t j = std::min(n - 1, n - i) + 1; j-- > 0;) {
            const Wide step = wide_portable::MultiplyAdd(a[i], b[j], sum[i + j + 1], carry);
            carry = wide::Divide(step, LimbBase);
            sum[i + j + 1] = step.low - carry * LimbBase;
        }
        uint64_t above = 0;
        sum[i] = AddLimbs(sum[i], carry, above);
        for (size_t k = i; above != 0; k--) {
            sum[k - 1] = AddLimbs(sum[k - 1], 0, above);
        }
    }
    return sum;
}

const ProductCutovers* const AllCutovers[] = {&LeastCutovers, &MeasuredCutovers};

void ExpectWordProduct(const Digits& a, const Digits& b) {
    const Digits expected = PlainProduct(a, b, 0);
    for (const ProductCutovers* cutovers : AllCutovers) {
        SCOPED_TRACE(cutovers->words);
        ASSERT_EQ(WordProduct(a, b, *cutovers), expected);
        ASSERT_EQ(WordProduct(b, a, *cutovers), expected);
    }
}

void ExpectLimbProduct(const Digits& a, const Digits& b) {
    const Digits expected = Reversed(PlainProduct(a, b, LimbBase));
    for (const ProductCutovers* cutovers : AllCutovers) {
        SCOPED_TRACE(cutovers->limbs);
        ASSERT_EQ(LimbProduct(Reversed(a), Reversed(b), *cutovers), expected);
        ASSERT_EQ(LimbProduct(Reversed(b), Reversed(a), *cutovers), expected);
    }
}

void ExpectUpperProduct(const Digits& a, const Digits& b) {
    const Digits expected = PlainUpperProduct(a, b);
    for (const ProductCutovers* cutovers : AllCutovers) {
        SCOPED_TRACE(cutovers->upperLimbs);
        ASSERT_EQ(UpperProduct(a, b, *cutovers), expected);
        ASSERT_EQ(UpperProduct(b, a, *cutovers), expected);
    }
}

void ExpectSquares(const Digits& words, const Digits& limbs) {
    const Digits square = PlainProduct(words, words, 0);
    const Digits limbSquare = PlainProduct(limbs, limbs, LimbBase);
    for (const ProductCutovers* cutovers : AllCutovers) {
        SCOPED_TRACE(cutovers->wordSquares);
        ASSERT_EQ(WordProduct(words, words, *cutovers), square);
        const Digits from = Reversed(limbs);
        ASSERT_EQ(LimbProduct(from, from, *cutovers), Reversed(limbSquare));
        ASSERT_EQ(UpperProduct(from, from, *cutovers), PlainUpperProduct(from, from));
    }
}

constexpr uint64_t MostWord = ~uint64_t{0};
constexpr uint64_t MostLimb = LimbBase - 1;

TEST(LongProducts, OfLimbsAreExactAtAllPairsOfLengths) {
    ContextCheck check;
    RandomSource random;
    for (int64_t n = 1; n <= 120; n++) {
        SCOPED_TRACE(n);
        for (int64_t m = 1; m <= n; m++) {
            SCOPED_TRACE(m);
            ExpectLimbProduct(RandomDigits(random, n, MostLimb), RandomDigits(random, m, MostLimb));
            if (::testing::Test::HasFatalFailure()) {
                return;
            }
        }
    }
}

TEST(LongProducts, OfEqualLengthAndUpperPartsAndSquaresAreExact) {
    ContextCheck check;
    RandomSource random;
    for (int64_t n = 1; n <= 300; n++) {
        SCOPED_TRACE(n);
        for (int round = 0; round < TestRounds(n <= 60 ? 10 : 3); round++) {
            const Digits a = RandomDigits(random, n, MostLimb);
            const Digits b = RandomDigits(random, n, MostLimb);
            ExpectUpperProduct(a, b);
            ExpectLimbProduct(a, b);
            ExpectSquares(RandomDigits(random, n, MostWord), a);
            if (::testing::Test::HasFatalFailure()) {
                return;
            }
        }
    }
}

TEST(LongProducts, AreExactAtRandomLengths) {
    ContextCheck check;
    RandomSource random;
    for (int round = 0; round < TestRounds(10); round++) {
        const int64_t n = random.Between(300, 2'100);
        const int64_t m = random.Between(1, n);
        SCOPED_TRACE(::testing::Message() << n << " by " << m);
        ExpectWordProduct(RandomDigits(random, n, MostWord), RandomDigits(random, m, MostWord));
        ExpectLimbProduct(RandomDigits(random, n / 2, MostLimb),
                          RandomDigits(random, m / 2 + 1, MostLimb));
        const int64_t upper = random.Between(250, 1'060);
        ExpectUpperProduct(RandomDigits(random, upper, MostLimb),
                           RandomDigits(random, upper, MostLimb));
        ExpectSquares(RandomDigits(random, n / 2, MostWord), RandomDigits(random, upper, MostLimb));
        if (::testing::Test::HasFatalFailure()) {
            return;
        }
    }
}

// (B^n - 1)^2 = B^2n - 2 B^n + 1 carries through every digit; 0 does nowhere.
TEST(LongProducts, OfTheLargestDigitsAndOfNothingAreKnown) {
    for (const ProductCutovers* cutovers : AllCutovers) {
        for (size_t n = 1; n <= 200; n++) {
            SCOPED_TRACE(n);
            Digits words(2 * n, 0);
            words[0] = 1;
            std::fill(words.begin() + static_cast<int64_t>(n), words.end(), MostWord);
            words[n] = MostWord - 1;
            const Digits most(n, MostWord);
            const Digits copy = most;
            EXPECT_EQ(WordProduct(most, most, *cutovers), words);
            EXPECT_EQ(WordProduct(most, copy, *cutovers), words);
            Digits limbs(2 * n, 0);
            limbs[0] = 1;
            std::fill(limbs.begin() + static_cast<int64_t>(n), limbs.end(), MostLimb);
            limbs[n] = MostLimb - 1;
            const Digits mostLimbs(n, MostLimb);
            const Digits copyLimbs = mostLimbs;
            EXPECT_EQ(LimbProduct(mostLimbs, mostLimbs, *cutovers), Reversed(limbs));
            EXPECT_EQ(LimbProduct(mostLimbs, copyLimbs, *cutovers), Reversed(limbs));
            const Digits none(n, 0);
            EXPECT_EQ(WordProduct(none, most, *cutovers), Digits(2 * n, 0));
            EXPECT_EQ(LimbProduct(none, mostLimbs, *cutovers), Digits(2 * n, 0));
            EXPECT_EQ(UpperProduct(none, mostLimbs, *cutovers), Digits(n + 2, 0));
        }
    }
}

TEST(LongProducts, GiveTheirScratchBack) {
    const Digits a(1'054, MostLimb);
    const Digits b(800, MostLimb);
    uint64_t* const top = numberContext.scratchTop;
    LimbProduct(a, b, MeasuredCutovers);
    EXPECT_EQ(numberContext.scratchTop, top);
    UpperProduct(a, a, MeasuredCutovers);
    EXPECT_EQ(numberContext.scratchTop, top);
    WordProduct(a, b, MeasuredCutovers);
    EXPECT_EQ(numberContext.scratchTop, top);
}

}  // namespace
}  // namespace tallymere
