// The benchmark program: Google Benchmark's own options, and those that bench/compare needs.

#include <gmp.h>
#include <mpfr.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "bench/benchmarks.h"
#include "bench/measuring.h"
#include "bench/number_times.h"
#include "bench/pari_peer.h"
#include "bench/product_cutovers.h"
#include "bench/root_equations.h"

namespace tallymere::bench {

namespace {

// One pair a line, a space between them.
int PrintOperands(const char* kindName, const char* digitsText) {
    OperandKind kind = OperandKind::Numbers;
    const int64_t digits = std::atoll(digitsText);
    if (!FindOperandKind(kindName, &kind) || digits < 2) {
        std::fprintf(stderr, "--operands KIND DIGITS\n");
        return 2;
    }
    for (const OperandPair& pair : MakeOperands(kind, digits)) {
        std::printf("%s %s\n", pair.a.c_str(), pair.b.c_str());
    }
    return 0;
}

int PrintVersions() {
#ifdef __clang__
    std::printf("Clang %s\n", __clang_version__);
#else
    std::printf("GCC %s\n", __VERSION__);
#endif
    std::printf("MPFR %s\n", mpfr_get_version());
    std::printf("GMP %s\n", gmp_version);
    std::printf("PARI %s\n", PariVersion());
    return 0;
}

}  // namespace

}  // namespace tallymere::bench

int main(int argc, char** argv) {
    using namespace tallymere::bench;
    const std::string_view option = argc > 1 ? argv[1] : "";
    if (option == "--operands" && argc == 4) {
        return PrintOperands(argv[2], argv[3]);
    }
    if (option == "--numbers" && argc == 4) {
        return PrintNumbers(argv[2], argv[3]);
    }
    if (option == "--number-times" && argc == 5) {
        return PrintNumberTimes(argv[2], argv[3], argv[4]);
    }
    if (option == "--equation" && argc == 3) {
        return PrintEquation(argv[2]);
    }
    if (option == "--cutovers") {
        return PrintProductCutovers();
    }
    if (option == "--versions") {
        return PrintVersions();
    }
    AddArithmeticBenchmarks();
    AddTextBenchmarks();
    AddFormulaBenchmarks();
    AddLimbProductBenchmarks();
    AddMpfrBenchmarks();
    AddFunctionBenchmarks();
    AddFactorialBenchmarks();
    AddExactBenchmarks();
    AddPrimeBenchmarks();
    AddRootBenchmarks();
    AddSystemBenchmarks();
    AddPolynomialBenchmarks();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
