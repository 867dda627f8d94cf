// The four operations of MPFR on the same operands, in binary at the same precision: for
// information.

#include "bench/benchmarks.h"
#include "bench/mpfr_measuring.h"

namespace tallymere::bench {

void AddMpfrBenchmarks() {
    constexpr struct {
        const char* work;
        MpfrOperation operation;
    } operations[] = {
        {"product", mpfr_mul},
        {"quotient", mpfr_div},
        {"sum", mpfr_add},
        {"difference", mpfr_sub},
    };
    for (const auto& entry : operations) {
        for (const int64_t digits : BenchDigits) {
            benchmark::RegisterBenchmark(
                BenchmarkName(entry.work, "mpfr", digits).c_str(), [=](benchmark::State& state) {
                    MeasureMpfr(state, OperandKind::Numbers, digits,
                                [=](mpfr_ptr dest, mpfr_srcptr a, mpfr_srcptr b) {
                                    entry.operation(dest, a, b, MPFR_RNDN);
                                });
                });
        }
    }
}

}  // namespace tallymere::bench
