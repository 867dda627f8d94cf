// The operations of the decimal core, rounded as a formula uses them.

#include "bench/benchmarks.h"
#include "bench/measuring.h"
#include "core/real_add.h"
#include "core/real_div_mod.h"
#include "core/real_divide.h"
#include "core/real_multiply.h"

namespace tallymere::bench {

namespace {

struct RealPair {
    Words a;
    Words b;
    uint64_t divisor;  // b as a machine integer, where it is one
};

std::vector<RealPair> MakeRealPairs(OperandKind kind, int64_t digits) {
    const bool divisors = kind == OperandKind::SmallDivisors || kind == OperandKind::LargeDivisors;
    std::vector<RealPair> pairs;
    for (const OperandPair& pair : MakeOperands(kind, digits)) {
        const uint64_t divisor = divisors ? std::stoull(pair.b) : 0;
        pairs.push_back({MakeReal(pair.a), MakeReal(pair.b), divisor});
    }
    return pairs;
}

// operation(dest, a, b, divisor) is measured at every number of digits.
template <typename Operation>
void Add(const char* work, OperandKind kind, Operation operation) {
    for (const int64_t digits : BenchDigits) {
        benchmark::RegisterBenchmark(
            BenchmarkName(work, "ours", digits).c_str(), [=](benchmark::State& state) {
                SetRealPrecision(digits);
                const std::vector<RealPair> pairs = MakeRealPairs(kind, digits);
                Words room = RoomForReal();
                RealNumber* dest = RealAt(room.data());
                GoRound(state, pairs.size(), [&](size_t i) {
                    operation(dest, RealAt(pairs[i].a.data()), RealAt(pairs[i].b.data()),
                              pairs[i].divisor);
                });
            });
    }
}

}  // namespace

void AddArithmeticBenchmarks() {
    using Number = const RealNumber*;
    Add("product", OperandKind::Numbers,
        [](RealNumber* dest, Number a, Number b, uint64_t) { RealMul(dest, a, b); });
    Add("quotient", OperandKind::Numbers,
        [](RealNumber* dest, Number a, Number b, uint64_t) { RealDiv(dest, a, b); });
    Add("sum", OperandKind::Numbers,
        [](RealNumber* dest, Number a, Number b, uint64_t) { RealAdd(dest, a, b); });
    Add("difference", OperandKind::Numbers,
        [](RealNumber* dest, Number a, Number b, uint64_t) { RealSub(dest, a, b); });
    Add("reciprocal", OperandKind::Numbers,
        [](RealNumber* dest, Number a, Number, uint64_t) { RealReciprocal(dest, a); });
    Add("remainder", OperandKind::WholeNumbers,
        [](RealNumber* dest, Number a, Number b, uint64_t) { RealDivMod(nullptr, dest, a, b); });
    const auto divideByInteger = [](RealNumber* dest, Number a, Number, uint64_t divisor) {
        RealRound(dest, RealDivUint(dest, a, divisor));
    };
    Add("small-divisor", OperandKind::SmallDivisors, divideByInteger);
    Add("large-divisor", OperandKind::LargeDivisors, divideByInteger);
}

}  // namespace tallymere::bench
