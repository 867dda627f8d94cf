// MPFR's side of a comparison: the same operands in binary, at the precision that holds as many
// digits.
#pragma once

#include <mpfr.h>

#include <cmath>
#include <memory>

#include "bench/measuring.h"

namespace tallymere::bench {

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

using MpfrOperation = int (*)(mpfr_ptr, mpfr_srcptr, mpfr_srcptr, mpfr_rnd_t);

/// Measures operation(dest, a, b) on the operands of a kind.
template <typename Operation>
void MeasureMpfr(benchmark::State& state, OperandKind kind, int64_t digits,
                 const Operation& operation) {
    const auto bits =
        static_cast<mpfr_prec_t>(std::ceil(static_cast<double>(digits) * std::log2(10.0)));
    std::vector<std::unique_ptr<BinaryNumber>> a;
    std::vector<std::unique_ptr<BinaryNumber>> b;
    for (const OperandPair& pair : MakeOperands(kind, digits)) {
        a.push_back(std::make_unique<BinaryNumber>(bits, pair.a));
        b.push_back(std::make_unique<BinaryNumber>(bits, pair.b));
    }
    BinaryNumber dest(bits, "0");
    GoRound(state, a.size(), [&](size_t i) { operation(dest.Get(), a[i]->Get(), b[i]->Get()); });
}

}  // namespace tallymere::bench
