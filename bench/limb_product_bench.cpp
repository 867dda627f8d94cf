// The limb product alone: by column sums, and by its plain twin, row by row with one reduction for
// each limb product.

#include "bench/benchmarks.h"
#include "bench/measuring.h"
#include "core/real_multiply.h"
#include "reference/limb_twins.h"

namespace tallymere::bench {

namespace {

// The working digits of quotients at 1,000, 5,000 and 10,000: 53, 264 and 527 limbs.
constexpr int64_t WorkingDigits[] = {1'003, 5'003, 10'003};

struct MantissaPair {
    reference::Limbs a;
    reference::Limbs b;
};

std::vector<MantissaPair> MakeMantissas(int64_t digits) {
    SetRealPrecision(digits);
    std::vector<MantissaPair> pairs;
    for (const OperandPair& pair : MakeOperands(OperandKind::Numbers, digits)) {
        const Words a = MakeReal(pair.a);
        const Words b = MakeReal(pair.b);
        pairs.push_back({{a.begin() + 1, a.end()}, {b.begin() + 1, b.end()}});
    }
    return pairs;
}

void Columns(benchmark::State& state, int64_t digits) {
    const std::vector<MantissaPair> pairs = MakeMantissas(digits);
    reference::Limbs product(pairs[0].a.size());
    GoRound(state, pairs.size(), [&](size_t i) {
        Limb guard = 0;
        LimbsMultiply(numberContext.realLimbs, product.data(), &guard, pairs[i].a.data(),
                      pairs[i].b.data());
        benchmark::DoNotOptimize(guard);
    });
}

void Twin(benchmark::State& state, int64_t digits) {
    const std::vector<MantissaPair> pairs = MakeMantissas(digits);
    GoRound(state, pairs.size(), [&](size_t i) {
        benchmark::DoNotOptimize(reference::Multiply(pairs[i].a, pairs[i].b));
    });
}

}  // namespace

void AddLimbProductBenchmarks() {
    for (const int64_t digits : WorkingDigits) {
        const int64_t limbs = LayoutForDigits(digits).limbs;
        benchmark::RegisterBenchmark(BenchmarkName("limb-product", "ours", limbs).c_str(), Columns,
                                     digits);
        benchmark::RegisterBenchmark(BenchmarkName("limb-product", "twin", limbs).c_str(), Twin,
                                     digits);
    }
}

}  // namespace tallymere::bench
