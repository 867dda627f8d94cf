// The functions, rounded as a formula uses them, and MPFR's on the same arguments.

#include "bench/benchmarks.h"
#include "bench/mpfr_measuring.h"
#include "functions/exponential.h"
#include "functions/hyperbolic.h"
#include "functions/hypotenuse.h"
#include "functions/inverse_trigonometric.h"
#include "functions/logarithm.h"
#include "functions/powers.h"
#include "functions/roots.h"
#include "functions/trigonometric.h"

namespace tallymere::bench {

namespace {

// One function on both sides; of one argument, or of two.
struct FunctionWork {
    const char* name;
    OperandKind operands;
    RealRoundedUnary unary;
    RealRoundedBinary binary;
    int (*mpfrUnary)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t);
    MpfrOperation mpfrBinary;
};

using enum OperandKind;
constexpr FunctionWork Works[] = {
    {"exp", Moderate, RealExpRounded, nullptr, mpfr_exp, nullptr},
    {"ln", Logarithmands, RealLnRounded, nullptr, mpfr_log, nullptr},
    {"log10", Logarithmands, RealLog10Rounded, nullptr, mpfr_log10, nullptr},
    {"power", BaseAndExponent, nullptr, RealPowerRounded, nullptr, mpfr_pow},
    {"square-root", Logarithmands, RealSqrtRounded, nullptr, mpfr_sqrt, nullptr},
    {"cube-root", Logarithmands, RealCbrtRounded, nullptr, mpfr_cbrt, nullptr},
    {"hypotenuse", Moderate, nullptr, RealHypotRounded, nullptr, mpfr_hypot},
    {"sin", Moderate, RealSinRounded, nullptr, mpfr_sin, nullptr},
    {"cos", Moderate, RealCosRounded, nullptr, mpfr_cos, nullptr},
    {"tan", Moderate, RealTanRounded, nullptr, mpfr_tan, nullptr},
    {"asin", Fractions, RealAsinRounded, nullptr, mpfr_asin, nullptr},
    {"acos", Fractions, RealAcosRounded, nullptr, mpfr_acos, nullptr},
    {"atan", Moderate, RealAtanRounded, nullptr, mpfr_atan, nullptr},
    {"sinh", Moderate, RealSinhRounded, nullptr, mpfr_sinh, nullptr},
    {"cosh", Moderate, RealCoshRounded, nullptr, mpfr_cosh, nullptr},
    {"tanh", Moderate, RealTanhRounded, nullptr, mpfr_tanh, nullptr},
    {"asinh", Moderate, RealAsinhRounded, nullptr, mpfr_asinh, nullptr},
    {"acosh", AboveTwo, RealAcoshRounded, nullptr, mpfr_acosh, nullptr},
    {"atanh", Fractions, RealAtanhRounded, nullptr, mpfr_atanh, nullptr},
};

void MeasureOurs(benchmark::State& state, const FunctionWork& work, int64_t digits) {
    SetRealPrecision(digits);
    std::vector<Words> a;
    std::vector<Words> b;
    for (const OperandPair& pair : MakeOperands(work.operands, digits)) {
        a.push_back(MakeReal(pair.a));
        b.push_back(MakeReal(pair.b));
    }
    Words room = RoomForReal();
    RealNumber* dest = RealAt(room.data());
    GoRound(state, a.size(), [&](size_t i) {
        if (work.unary != nullptr) {
            work.unary(dest, RealAt(a[i].data()));
        } else {
            work.binary(dest, RealAt(a[i].data()), RealAt(b[i].data()));
        }
    });
}

void MeasureTheirs(benchmark::State& state, const FunctionWork& work, int64_t digits) {
    MeasureMpfr(state, work.operands, digits, [&](mpfr_ptr dest, mpfr_srcptr a, mpfr_srcptr b) {
        if (work.mpfrUnary != nullptr) {
            work.mpfrUnary(dest, a, MPFR_RNDN);
        } else {
            work.mpfrBinary(dest, a, b, MPFR_RNDN);
        }
    });
}

}  // namespace

void AddFunctionBenchmarks() {
    for (const FunctionWork& work : Works) {
        for (const int64_t digits : BenchDigits) {
            const auto add = [&](const char* side, auto measure) {
                benchmark::RegisterBenchmark(BenchmarkName(work.name, side, digits).c_str(),
                                             [&work, digits, measure](benchmark::State& state) {
                                                 measure(state, work, digits);
                                             });
            };
            add("ours", MeasureOurs);
            add("mpfr", MeasureTheirs);
        }
    }
}

}  // namespace tallymere::bench
