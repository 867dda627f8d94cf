#include "core/long_products.h"

#include <algorithm>
#include <utility>

#include "core/contract.h"
#include "core/limb_columns.h"
#include "core/limb_tools.h"
#include "core/scratch.h"
#include "core/word_products.h"

namespace tallymere {

namespace {

// Rows of so few words are added without a call.
constexpr int64_t ShortRow = 8;

// What a split product has to know of a kind of digits. Places are counted from the lowest digit.
// An array of operand digits has a word for each, an array of product digits ProductWords.
//
//     Part              where `length` digits from the place `from` on lie in an array of `count`
//     Compare           two operands: -1, 0 or 1
//     SubtractOperands  their difference over n digits; the borrow, 0 or 1
//     Add, Subtract     sum and difference of products over n digits; the carry or borrow, 0 or 1
//     AddCarry          adds a carry to a product of n digits; what leaves it, 0 or 1
//     Multiply, Square  the product digit by digit

struct WordDigits {
    static constexpr int64_t ProductWords = 1;

    template <typename Word>
    static Word* Part(Word* array, int64_t /*count*/, int64_t from, int64_t /*length*/) {
        return array + from;
    }

    static uint64_t Add(uint64_t* dest, const uint64_t* a, const uint64_t* b, int64_t n) {
        return AddWords(dest, a, b, n);
    }

    static uint64_t Subtract(uint64_t* dest, const uint64_t* a, const uint64_t* b, int64_t n) {
        return SubtractWords(dest, a, b, n);
    }

    static uint64_t AddCarry(uint64_t* array, int64_t n, uint64_t carry) {
        for (int64_t i = 0; i < n && carry != 0; i++) {
            array[i] += carry;
            carry = array[i] < carry ? 1 : 0;
        }
        return carry;
    }

    static uint64_t SubtractOperands(uint64_t* dest, const uint64_t* a, const uint64_t* b,
                                     int64_t n) {
        return SubtractWords(dest, a, b, n);
    }

    static int Compare(const uint64_t* a, const uint64_t* b, int64_t n) {
        for (int64_t i = n - 1; i >= 0; i--) {
            if (a[i] != b[i]) {
                return a[i] < b[i] ? -1 : 1;
            }
        }
        return 0;
    }

    // The passes go over a.
    static void Multiply(uint64_t* dest, const uint64_t* a, int64_t countA, const uint64_t* b,
                         int64_t countB) {
        dest[countA] = MultiplyWords(dest, a, countA, b[0]);
        for (int64_t i = 1; i < countB; i++) {
            dest[i + countA] = MultiplyAddWords(dest + i, a, countA, b[i]);
        }
    }

    // The products of different words twice, and the squares of the words.
    static void Square(uint64_t* dest, const uint64_t* a, int64_t n) {
        std::fill_n(dest, n, uint64_t{0});
        for (int64_t i = 0; i < n; i++) {
            const int64_t count = n - 1 - i;
            uint64_t* row = dest + 2 * i + 1;
            dest[n + i] = count < ShortRow
                              ? words_portable::MultiplyAdd(row, a + i + 1, count, a[i])
                              : MultiplyAddWords(row, a + i + 1, count, a[i]);
        }
        uint64_t doubled = 0;
        uint64_t carry = 0;
        for (int64_t i = 0; i < n; i++) {
            const Wide cross = {dest[2 * i + 1], dest[2 * i]};
            const Wide twice = {(cross.high << 1) | (cross.low >> 63), (cross.low << 1) | doubled};
            doubled = cross.high >> 63;
            const Wide single = wide::Multiply(a[i], a[i]);
            uint64_t above = 0;
            Wide sum = {0, carry};
            wide::Accumulate(above, sum, twice);
            wide::Accumulate(above, sum, single);
            dest[2 * i] = sum.low;
            dest[2 * i + 1] = sum.high;
            carry = above;
        }
    }
};

// A product of limbs stays an array of column sums until all its parts are added up, since to split
// a sum by 10^19 takes as long as ten products. A column may be negative then, modulo 2^192.
constexpr int64_t ColumnWords = 3;

ColumnSum LoadColumn(const uint64_t* place) {
    return {place[0], {place[1], place[2]}};
}

void StoreColumn(uint64_t* place, const ColumnSum& column) {
    place[0] = column.overflow;
    place[1] = column.sum.high;
    place[2] = column.sum.low;
}

// Adds a[i] * b[j] for all i + j = c, for 0 <= c <= countA + countB - 2.
void AddColumn(ColumnSum& column, const Limb* a, int64_t countA, const Limb* b, int64_t countB,
               int64_t c) {
    const int64_t first = std::max<int64_t>(0, c - countB + 1);
    const int64_t last = std::min(c, countA - 1);
    AddProducts(column, a + first, b + (c - first), last - first + 1);
}

struct DecimalDigits {
    static constexpr int64_t ProductWords = ColumnWords;

    template <typename Word>
    static Word* Part(Word* array, int64_t count, int64_t from, int64_t length) {
        return array + (count - from - length);
    }

    static uint64_t Add(uint64_t* dest, const uint64_t* a, const uint64_t* b, int64_t n) {
        for (int64_t i = 0; i < n * ColumnWords; i += ColumnWords) {
            ColumnSum column = LoadColumn(a + i);
            const ColumnSum addend = LoadColumn(b + i);
            wide::Accumulate(column.overflow, column.sum, addend.sum);
            column.overflow += addend.overflow;
            StoreColumn(dest + i, column);
        }
        return 0;
    }

    static uint64_t Subtract(uint64_t* dest, const uint64_t* a, const uint64_t* b, int64_t n) {
        for (int64_t i = 0; i < n * ColumnWords; i += ColumnWords) {
            const ColumnSum x = LoadColumn(a + i);
            const ColumnSum y = LoadColumn(b + i);
            const uint64_t borrow = AtLeast(x.sum, y.sum) ? 0 : 1;
            StoreColumn(dest + i, {x.overflow - y.overflow - borrow, wide::Subtract(x.sum, y.sum)});
        }
        return 0;
    }

    // Columns keep their carries.
    static uint64_t AddCarry(uint64_t* /*array*/, int64_t /*n*/, uint64_t carry) {
        TALLYMERE_REQUIRE(carry == 0);
        return 0;
    }

    static Limb SubtractOperands(Limb* dest, const Limb* a, const Limb* b, int64_t n) {
        Limb borrow = 0;
        for (int64_t i = n - 1; i >= 0; i--) {
            dest[i] = SubtractLimbs(a[i], b[i], borrow);
        }
        return borrow;
    }

    static int Compare(const Limb* a, const Limb* b, int64_t n) { return LimbsCompare(a, b, n); }

    static void Multiply(uint64_t* dest, const Limb* a, int64_t countA, const Limb* b,
                         int64_t countB) {
        for (int64_t c = countA + countB - 2; c >= 0; c--) {
            ColumnSum column;
            AddColumn(column, a, countA, b, countB, c);
            StoreColumn(dest + (c + 1) * ColumnWords, column);
        }
        StoreColumn(dest, {});
    }

    static void Square(uint64_t* dest, const Limb* a, int64_t n) { Multiply(dest, a, n, a, n); }
};

// Products of more limbs than that are put together from parts, as CoreScratch has no room for so
// many columns beside what its other users take.
constexpr int64_t MostColumns = 1'100;

// The place of `length` digits of a product.
template <typename Digits>
uint64_t* PartOfProduct(uint64_t* array, int64_t count, int64_t from, int64_t length) {
    const int64_t words = Digits::ProductWords;
    return Digits::Part(array, count * words, from * words, length * words);
}

// dest = |x - y| in n digits, for an x of n digits and a y of n or n - 1. True if x < y.
template <typename Digits>
bool SubtractAbsolutely(uint64_t* dest, const uint64_t* x, int64_t n, const uint64_t* y,
                        int64_t countY) {
    const uint64_t* lowX = Digits::Part(x, n, 0, countY);
    uint64_t* lowDest = Digits::Part(dest, n, 0, countY);
    const uint64_t topX = countY < n ? *Digits::Part(x, n, n - 1, 1) : 0;
    const bool isNegative = topX == 0 && Digits::Compare(lowX, y, countY) < 0;
    const uint64_t borrow = isNegative ? Digits::SubtractOperands(lowDest, y, lowX, countY)
                                       : Digits::SubtractOperands(lowDest, lowX, y, countY);
    if (countY < n) {
        *Digits::Part(dest, n, n - 1, 1) = topX - borrow;
    }
    return isNegative;
}

// dest = a * b in 2 n digits. From `cutover` >= 4 digits on, with a = a1 B + a0 and b = b1 B + b0,
//     a b = a1 b1 B^2 + (a1 b1 + a0 b0 - (a0 - a1)(b0 - b1)) B + a0 b0.
template <typename Digits>
void MultiplyEqual(uint64_t* dest, const uint64_t* a, const uint64_t* b, int64_t n,
                   int64_t cutover) {
    if (n < cutover) {
        if (a == b) {
            Digits::Square(dest, a, n);
        } else {
            Digits::Multiply(dest, a, n, b, n);
        }
        return;
    }
    const int64_t low = (n + 1) / 2;
    const int64_t high = n - low;
    const uint64_t* a0 = Digits::Part(a, n, 0, low);
    const uint64_t* a1 = Digits::Part(a, n, low, high);
    const uint64_t* b0 = Digits::Part(b, n, 0, low);
    const uint64_t* b1 = Digits::Part(b, n, low, high);
    uint64_t* lowest = PartOfProduct<Digits>(dest, 2 * n, 0, 2 * low);
    uint64_t* highest = PartOfProduct<Digits>(dest, 2 * n, 2 * low, 2 * high);
    CoreScratchScope scratch;
    uint64_t* middle = scratch.Take(2 * low * Digits::ProductWords);

    // The differences stand where the outer products will.
    uint64_t* differenceA = dest;
    uint64_t* differenceB = a == b ? differenceA : dest + low;
    const bool isNegativeA = SubtractAbsolutely<Digits>(differenceA, a0, low, a1, high);
    const bool isNegativeB =
        a == b ? isNegativeA : SubtractAbsolutely<Digits>(differenceB, b0, low, b1, high);
    MultiplyEqual<Digits>(middle, differenceA, differenceB, low, cutover);
    MultiplyEqual<Digits>(lowest, a0, b0, low, cutover);
    MultiplyEqual<Digits>(highest, a1, b1, high, cutover);

    // On its way the sum may be negative; the borrow is part of `above` then.
    uint64_t above = 0;
    if (isNegativeA != isNegativeB) {
        above += Digits::Add(middle, lowest, middle, 2 * low);
    } else {
        above -= Digits::Subtract(middle, lowest, middle, 2 * low);
    }
    uint64_t* under = PartOfProduct<Digits>(middle, 2 * low, 0, 2 * high);
    const uint64_t carry = Digits::Add(under, under, highest, 2 * high);
    const int64_t missing = 2 * (low - high);
    above +=
        Digits::AddCarry(PartOfProduct<Digits>(middle, 2 * low, 2 * high, missing), missing, carry);
    uint64_t* place = PartOfProduct<Digits>(dest, 2 * n, low, 2 * low);
    above += Digits::Add(place, place, middle, 2 * low);
    const int64_t left = 2 * high - low;
    Digits::AddCarry(PartOfProduct<Digits>(dest, 2 * n, 3 * low, left), left, above);
}

// dest = a * b for arrays of any lengths: the longer one is cut into pieces of the shorter one's
// length.
template <typename Digits>
void MultiplyArrays(uint64_t* dest, const uint64_t* a, int64_t countA, const uint64_t* b,
                    int64_t countB, int64_t cutover) {
    if (countA < countB) {
        std::swap(a, b);
        std::swap(countA, countB);
    }
    if (countA == countB) {
        MultiplyEqual<Digits>(dest, a, b, countA, cutover);
        return;
    }
    if (countB < cutover) {
        Digits::Multiply(dest, a, countA, b, countB);
        return;
    }
    const int64_t count = countA + countB;
    CoreScratchScope scratch;
    uint64_t* product = scratch.Take(2 * countB * Digits::ProductWords);
    MultiplyEqual<Digits>(PartOfProduct<Digits>(dest, count, 0, 2 * countB),
                          Digits::Part(a, countA, 0, countB), b, countB, cutover);
    for (int64_t from = countB; from < countA; from += countB) {
        const int64_t piece = std::min(countB, countA - from);
        MultiplyArrays<Digits>(product, Digits::Part(a, countA, from, piece), piece, b, countB,
                               cutover);
        uint64_t* place = PartOfProduct<Digits>(dest, count, from, countB);
        const uint64_t carry = Digits::Add(
            place, place, PartOfProduct<Digits>(product, piece + countB, 0, countB), countB);
        uint64_t* top = PartOfProduct<Digits>(dest, count, from + countB, piece);
        std::copy_n(PartOfProduct<Digits>(product, piece + countB, countB, piece),
                    piece * Digits::ProductWords, top);
        Digits::AddCarry(top, piece, carry);
    }
}

// dest = a * b without splitting: each column is complete, carry included, before it is split.
void MultiplyColumns(Limb* dest, const Limb* a, int64_t countA, const Limb* b, int64_t countB) {
    ColumnSum column;
    for (int64_t c = countA + countB - 2; c >= 0; c--) {
        AddColumn(column, a, countA, b, countB, c);
        dest[c + 1] = TakeLimb(column);
    }
    dest[0] = column.sum.low;
}

// The limbs of an operand that can make products: limb 0 and those from `start` to before `end`.
// Newton's iteration multiplies by numbers such as 1.000...0ddd and by seeds of one limb, where
// most of the work would be products with limbs that are 0.
struct NonZeroSpan {
    int64_t start;
    int64_t end;
};

NonZeroSpan FindNonZeroSpan(const Limb* limbs, int64_t n) {
    NonZeroSpan span = {1, n};
    while (span.end > 1 && limbs[span.end - 1] == 0) {
        span.end--;
    }
    while (span.start < span.end && limbs[span.start] == 0) {
        span.start++;
    }
    return {span.start == 1 ? 0 : span.start, span.end};
}

// True when so few of n limbs make no products that splitting the product pays.
bool IsDense(const Limb* limbs, int64_t n) {
    const NonZeroSpan span = FindNonZeroSpan(limbs, n);
    return span.end - span.start >= n - n / 8;
}

// dest[c + 1] sums a[i] * b[j] over i + j = c. From the last column up to the first each sum is
// complete, carry included, before it is split once.
void MultiplyUpperColumns(Limb* dest, const Limb* a, const Limb* b, int64_t n) {
    const NonZeroSpan spanA = FindNonZeroSpan(a, n);
    const NonZeroSpan spanB = FindNonZeroSpan(b, n);
    ColumnSum column;
    for (int64_t c = n; c >= 0; c--) {
        const int64_t first = std::max(spanB.start, c - spanA.end + 1);
        const int64_t last = std::min(c, spanB.end - 1);
        if (first <= last) {
            AddProducts(column, b + first, a + (c - first), last - first + 1);
        }
        if (spanB.start > 0 && c < spanA.end) {
            AddProducts(column, b, a + c, 1);
        }
        dest[c + 1] = TakeLimb(column);
    }
    dest[0] = column.sum.low;
}

// Adds a column sum to a column.
void AddToColumn(uint64_t* place, const ColumnSum& addend, bool isTwice) {
    ColumnSum column = LoadColumn(place);
    for (int i = 0; i < (isTwice ? 2 : 1); i++) {
        wide::Accumulate(column.overflow, column.sum, addend.sum);
        column.overflow += addend.overflow;
    }
    StoreColumn(place, column);
}

// Adds the columns of LimbsMultiplyUpper, n + 2 of them, once or twice. The products with i and j
// below about n / 2 are a full product of so many limbs. What is left are two upper products of
// n - n / 2 - 1 limbs, with one product more in the last column of each.
void AddUpperColumns(uint64_t* dest, const Limb* a, const Limb* b, int64_t n, bool isTwice,
                     const ProductCutovers& cutovers) {
    if (n < cutovers.upperLimbs) {
        for (int64_t c = 0; c <= n; c++) {
            const int64_t first = c < n ? 0 : 1;
            ColumnSum column;
            AddProducts(column, a + first, b + (c - first), c < n ? c + 1 : n - 1);
            AddToColumn(dest + (c + 1) * ColumnWords, column, isTwice);
        }
        return;
    }
    const int64_t half = n / 2 + 1;
    const int64_t rest = n - half;
    {
        CoreScratchScope scratch;
        uint64_t* product = scratch.Take(2 * half * ColumnWords);
        MultiplyEqual<DecimalDigits>(product, a, b, half, cutovers.limbs);
        for (int i = 0; i < (isTwice ? 2 : 1); i++) {
            DecimalDigits::Add(dest, dest, product, 2 * half);
        }
    }
    const bool isSquare = a == b;
    for (int side = 0; side < (isSquare ? 1 : 2); side++) {
        const Limb* late = side == 0 ? a : b;
        const Limb* early = side == 0 ? b : a;
        ColumnSum last;
        AddProducts(last, late + half, early + rest, 1);
        // The two sides of a square are the same.
        AddToColumn(dest + (n + 1) * ColumnWords, last, isTwice || isSquare);
        AddUpperColumns(dest + half * ColumnWords, late + half, early, rest, isTwice || isSquare,
                        cutovers);
    }
}

// Splits the column sums of a product into its `count` limbs. Single columns may be negative.
//
// Each column lends surplus 10^19 to the one below it, which hands back surplus more than its
// carry. With surplus = 2^110 that keeps everything positive: columns of a product of n limbs lie
// between -2 n^2 10^38 and 2 n^2 10^38, since splitting it once makes them at most four times as
// large as those of its halves.
void TakeLimbs(Limb* dest, const uint64_t* columns, int64_t count) {
    TALLYMERE_REQUIRE(count <= int64_t{1} << 20);
    constexpr int bits = 110;
    constexpr Wide surplus = {uint64_t{1} << (bits - 64), 0};
    constexpr Wide lent = wide::Subtract({LimbBase << (bits - 64), 0}, surplus);
    constexpr uint64_t lentOverflow =
        (LimbBase >> (128 - bits)) - (LimbBase << (bits - 64) < surplus.high ? 1 : 0);
    Wide carry = surplus;
    for (int64_t i = count - 1; i > 0; i--) {
        ColumnSum column = LoadColumn(columns + i * ColumnWords);
        wide::Accumulate(column.overflow, column.sum, carry);
        wide::Accumulate(column.overflow, column.sum, lent);
        column.overflow += lentOverflow;
        dest[i] = TakeLimb(column);
        carry = column.sum;
    }
    dest[0] = LoadColumn(columns).sum.low + wide::Subtract(carry, surplus).low;
}

}  // namespace

void MultiplyWordArrays(uint64_t* dest, const uint64_t* a, int64_t countA, const uint64_t* b,
                        int64_t countB, const ProductCutovers& cutovers) {
    TALLYMERE_REQUIRE(countA >= 1 && countB >= 1);
    TALLYMERE_REQUIRE(cutovers.words >= 4 && cutovers.wordSquares >= 4);
    const bool isSquare = a == b && countA == countB;
    MultiplyArrays<WordDigits>(dest, a, countA, b, countB,
                               isSquare ? cutovers.wordSquares : cutovers.words);
}

void LimbsMultiplyArrays(Limb* dest, const Limb* a, int64_t countA, const Limb* b, int64_t countB,
                         const ProductCutovers& cutovers) {
    TALLYMERE_REQUIRE(countA >= 1 && countB >= 1);
    TALLYMERE_REQUIRE(cutovers.limbs >= 4);
    if (std::min(countA, countB) < cutovers.limbs) {
        MultiplyColumns(dest, a, countA, b, countB);
        return;
    }
    CoreScratchScope scratch;
    if (countA + countB <= MostColumns) {
        uint64_t* columns = scratch.Take((countA + countB) * ColumnWords);
        MultiplyArrays<DecimalDigits>(columns, a, countA, b, countB, cutovers.limbs);
        TakeLimbs(dest, columns, countA + countB);
        return;
    }
    if (countA < countB) {
        std::swap(a, b);
        std::swap(countA, countB);
    }
    const int64_t high = countA / 2;
    const int64_t low = countA - high;
    Limb* product = scratch.Take(high + countB);
    LimbsMultiplyArrays(dest + high, a + high, low, b, countB, cutovers);
    LimbsMultiplyArrays(product, a, high, b, countB, cutovers);
    Limb* place = dest + high;
    Limb carry = LimbsAdd(place, place, product + high, countB);
    for (int64_t i = high - 1; i >= 0; i--) {
        dest[i] = AddLimbs(product[i], 0, carry);
    }
}

void LimbsMultiplyUpper(Limb* dest, const Limb* a, const Limb* b, int64_t n,
                        const ProductCutovers& cutovers) {
    TALLYMERE_REQUIRE(n >= 1);
    TALLYMERE_REQUIRE(cutovers.limbs >= 4 && cutovers.upperLimbs >= 4);
    if (n < cutovers.upperLimbs || !IsDense(a, n) || !IsDense(b, n)) {
        MultiplyUpperColumns(dest, a, b, n);
        return;
    }
    CoreScratchScope scratch;
    uint64_t* columns = scratch.Take((n + 2) * ColumnWords);
    std::fill_n(columns, (n + 2) * ColumnWords, uint64_t{0});
    AddUpperColumns(columns, a, b, n, false, cutovers);
    TakeLimbs(dest, columns, n + 2);
}

}  // namespace tallymere
