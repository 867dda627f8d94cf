// The two methods of the factorial at the n from which the series is taken.

#include "bench/benchmarks.h"
#include "bench/measuring.h"
#include "functions/factorial.h"

namespace tallymere::bench {

namespace {

constexpr int64_t Precisions[] = {20, 100, 1'000};

using Method = Limb (*)(RealNumber* dest, int64_t n);

void Factorial(benchmark::State& state, Method method, int64_t digits) {
    SetRealPrecision(digits);
    Words room = RoomForReal();
    const int64_t n = FactorialCutoverAt(digits);
    GoRound(state, 1, [&](size_t) { method(RealAt(room.data()), n); });
}

}  // namespace

void AddFactorialBenchmarks() {
    for (const int64_t digits : Precisions) {
        benchmark::RegisterBenchmark(BenchmarkName("factorial", "product", digits).c_str(),
                                     Factorial, RealProductFactorial, digits);
        benchmark::RegisterBenchmark(BenchmarkName("factorial", "series", digits).c_str(),
                                     Factorial, RealStirlingFactorial, digits);
    }
}

}  // namespace tallymere::bench
