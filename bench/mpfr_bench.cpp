// MPFR on the same operands, in binary at the same precision: for information.

#include <mpfr.h>

#include <cmath>
#include <memory>

#include "bench/measuring.h"
#include "bench/rooms.h"

namespace tallymere::bench {

namespace {

class BinaryNumber {
public:
    BinaryNumber(mpfr_prec_t bits, const std::string& text) {
        mpfr_init2(value_, bits);
        mpfr_set_str(value_, text.c_str(), 10, MPFR_RNDN);
    }
    ~BinaryNumber() { mpfr_clear(value_); }
    BinaryNumber(const BinaryNumber&) = delete;
    BinaryNumber& operator=(const BinaryNumber&) = delete;

    mpfr_ptr Get() { return value_; }

private:
    mpfr_t value_;
};

using BinaryOperation = int (*)(mpfr_ptr, mpfr_srcptr, mpfr_srcptr, mpfr_rnd_t);

void Measure(benchmark::State& state, BinaryOperation operation, int64_t digits) {
    const auto bits =
        static_cast<mpfr_prec_t>(std::ceil(static_cast<double>(digits) * std::log2(10.0)));
    std::vector<std::unique_ptr<BinaryNumber>> a;
    std::vector<std::unique_ptr<BinaryNumber>> b;
    for (const OperandPair& pair : MakeOperands(OperandKind::Numbers, digits)) {
        a.push_back(std::make_unique<BinaryNumber>(bits, pair.a));
        b.push_back(std::make_unique<BinaryNumber>(bits, pair.b));
    }
    BinaryNumber dest(bits, "0");
    GoRound(state, a.size(),
            [&](size_t i) { operation(dest.Get(), a[i]->Get(), b[i]->Get(), MPFR_RNDN); });
}

}  // namespace

void AddMpfrBenchmarks() {
    constexpr struct {
        const char* work;
        BinaryOperation operation;
    } operations[] = {
        {"product", mpfr_mul},
        {"quotient", mpfr_div},
        {"sum", mpfr_add},
        {"difference", mpfr_sub},
    };
    for (const auto& entry : operations) {
        for (const int64_t digits : BenchDigits) {
            benchmark::RegisterBenchmark(BenchmarkName(entry.work, "mpfr", digits).c_str(), Measure,
                                         entry.operation, digits);
        }
    }
}

}  // namespace tallymere::bench
