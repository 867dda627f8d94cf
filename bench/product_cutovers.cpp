#include "bench/product_cutovers.h"

#include <algorithm>
#include <cstdio>
#include <limits>
#include <random>
#include <vector>

#include "bench/measuring.h"
#include "bench/operands.h"
#include "bench/processor_clock.h"
#include "core/long_products.h"

namespace tallymere::bench {

namespace {

constexpr int64_t ShortestMeasured = 16;
constexpr int64_t LongestMeasured = 320;

// From one measured length to the next.
constexpr int64_t LengthStep(int64_t n) {
    return std::max<int64_t>(4, n / 64 * 4);
}

// The lengths of integers, and of quotients at 5,000, 10,000 and 20,000 digits.
constexpr int64_t LengthsOfUse[] = {26, 65, 264, 527, 1'054};

constexpr int Rounds = 25;
constexpr int64_t NanosecondsPerRound = 200'000;

// The operands of one length, and room for their product.
struct Digits {
    Words a;
    Words b;
    Words product;
};

// One kind of product, and the cut-over that it has.
struct ProductKind {
    const char* name;
    int64_t ProductCutovers::*cutover;
    void (*multiply)(Digits& digits, int64_t n, const ProductCutovers& cutovers);
};

constexpr ProductKind ProductKinds[] = {
    {"words", &ProductCutovers::words,
     [](Digits& x, int64_t n, const ProductCutovers& cutovers) {
         MultiplyWordArrays(x.product.data(), x.a.data(), n, x.b.data(), n, cutovers);
     }},
    {"wordSquares", &ProductCutovers::wordSquares,
     [](Digits& x, int64_t n, const ProductCutovers& cutovers) {
         MultiplyWordArrays(x.product.data(), x.a.data(), n, x.a.data(), n, cutovers);
     }},
    {"limbs", &ProductCutovers::limbs,
     [](Digits& x, int64_t n, const ProductCutovers& cutovers) {
         LimbsMultiplyArrays(x.product.data(), x.a.data(), n, x.b.data(), n, cutovers);
     }},
    {"upperLimbs", &ProductCutovers::upperLimbs,
     [](Digits& x, int64_t n, const ProductCutovers& cutovers) {
         LimbsMultiplyUpper(x.product.data(), x.a.data(), x.b.data(), n, cutovers);
     }},
};

// Limbs of base 10^19, which words may be as well.
Words RandomDigits(std::mt19937_64& random, int64_t n) {
    Words digits(static_cast<size_t>(n));
    for (uint64_t& digit : digits) {
        digit = 1 + random() % (LimbBase - 1);
    }
    return digits;
}

// The least time of one product in a few rounds, with the ways of multiplying in turn.
struct Times {
    double direct = std::numeric_limits<double>::infinity();
    double split = std::numeric_limits<double>::infinity();
};

double TimeOnce(const ProductKind& kind, Digits& digits, int64_t n,
                const ProductCutovers& cutovers) {
    int64_t count = 0;
    const int64_t start = ThreadNanoseconds();
    int64_t now = start;
    while (now - start < NanosecondsPerRound) {
        for (int i = 0; i < 8; i++) {
            kind.multiply(digits, n, cutovers);
            benchmark::ClobberMemory();
        }
        count += 8;
        now = ThreadNanoseconds();
    }
    return static_cast<double>(now - start) / static_cast<double>(count);
}

Times Measure(const ProductKind& kind, int64_t n, int64_t cutover) {
    std::mt19937_64 random(Seed);
    Digits digits = {RandomDigits(random, n), RandomDigits(random, n),
                     Words(static_cast<size_t>(2 * n + 2))};
    ProductCutovers direct = MeasuredCutovers;
    direct.*kind.cutover = n + 1;
    ProductCutovers split = MeasuredCutovers;
    split.*kind.cutover = cutover;
    Times times;
    for (int round = 0; round < Rounds; round++) {
        times.direct = std::min(times.direct, TimeOnce(kind, digits, n, direct));
        times.split = std::min(times.split, TimeOnce(kind, digits, n, split));
    }
    return times;
}

void PrintTimes(int64_t n, const Times& times) {
    std::printf("%-12s %6lld %10.0f %10.0f %7.3f\n", "", static_cast<long long>(n), times.direct,
                times.split, times.split / times.direct);
}

}  // namespace

int PrintProductCutovers() {
    for (const ProductKind& kind : ProductKinds) {
        std::printf("%-12s %6s %10s %10s %7s\n", kind.name, "length", "direct, ns", "split, ns",
                    "ratio");
        int64_t cutover = ShortestMeasured;
        for (int64_t n = ShortestMeasured; n <= LongestMeasured; n += LengthStep(n)) {
            const Times times = Measure(kind, n, n);
            if (times.split >= times.direct) {
                cutover = n + LengthStep(n);
            }
            PrintTimes(n, times);
        }
        std::printf("%-12s split once from %lld on; as often as MeasuredCutovers says:\n", "",
                    static_cast<long long>(cutover));
        for (const int64_t n : LengthsOfUse) {
            PrintTimes(n, Measure(kind, n, MeasuredCutovers.*kind.cutover));
        }
    }
    return 0;
}

}  // namespace tallymere::bench
