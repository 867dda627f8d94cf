// Roots of equations: ours beside PARI's. The size of a benchmark is the number of digits. The
// equations are also printed, for programs of their own.

#include <gmp.h>

#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "algebra/polynomial_roots.h"
#include "bench/benchmarks.h"
#include "bench/measuring.h"
#include "bench/pari_peer.h"
#include "bench/root_equations.h"
#include "core/number_context.h"
#include "core/scratch.h"

namespace tallymere::bench {

namespace {

constexpr int64_t RandomDegree = 10;

// Integers, the constant first.
using Integers = std::vector<int64_t>;

Integers Product(const Integers& a, const Integers& b) {
    Integers product(a.size() + b.size() - 1, 0);
    for (size_t i = 0; i < a.size(); i++) {
        for (size_t j = 0; j < b.size(); j++) {
            product[i + j] += a[i] * b[j];
        }
    }
    return product;
}

Integers Product(std::initializer_list<Integers> factors) {
    Integers product{1};
    for (const Integers& factor : factors) {
        product = Product(product, factor);
    }
    return product;
}

Integers RandomEquation() {
    std::mt19937_64 random(Seed);
    Integers coefficients;
    for (int64_t i = 0; i <= RandomDegree; i++) {
        coefficients.push_back(static_cast<int64_t>(random() % 2'000'000'000) - 1'000'000'000);
    }
    return coefficients;
}

// (3 x - 1)^2 (7 x + 2)^2 (x - 3) (x - 4) (x + 5) (x + 6) (x^2 + 1)
Integers TwoDoubleRoots() {
    return Product({{-1, 3}, {-1, 3}, {2, 7}, {2, 7}, {-3, 1}, {-4, 1}, {5, 1}, {6, 1}, {1, 0, 1}});
}

// (3 x - 1)^5 (x - 3) (x - 4) (x + 5) (x^2 + 1)
Integers FivefoldRoot() {
    const Integers root{-1, 3};
    return Product({root, root, root, root, root, {-3, 1}, {-4, 1}, {5, 1}, {1, 0, 1}});
}

Integers Quadratic() {
    return {-7, 5, 3};
}

struct EquationWork {
    const char* name;
    Integers (*make)();
    bool isMonic;  // its coefficients are divided by the highest one, and so rounded
    std::vector<int64_t> digits;
};

const EquationWork EquationWorks[] = {
    {"roots-random", RandomEquation, false, {10, 100, 750}},
    {"roots-two-double", TwoDoubleRoots, false, {750}},
    {"roots-two-double-rounded", TwoDoubleRoots, true, {750}},
    {"roots-fivefold", FivefoldRoot, false, {750}},
    {"roots-fivefold-rounded", FivefoldRoot, true, {750}},
    {"roots-quadratic", Quadratic, false, {2'000}},
};

// coefficient / highest with so many digits behind the point, or the coefficient as it is.
std::string CoefficientText(const EquationWork& work, const Integers& equation, size_t i,
                            int64_t digits) {
    const std::string plain = std::to_string(equation[i]);
    if (!work.isMonic || i + 1 == equation.size()) {
        return work.isMonic ? "1" : plain;
    }
    mpz_t quotient;
    mpz_init_set_str(quotient, plain.c_str(), 10);
    mpz_t scale;
    mpz_init(scale);
    mpz_ui_pow_ui(scale, 10, static_cast<unsigned long>(digits));
    mpz_mul(quotient, quotient, scale);
    mpz_set_si(scale, static_cast<long>(equation.back()));
    mpz_tdiv_q(quotient, quotient, scale);
    std::vector<char> text(mpz_sizeinbase(quotient, 10) + 2);
    mpz_get_str(text.data(), 10, quotient);
    mpz_clears(quotient, scale, nullptr);
    return std::string(text.data()) + "e-" + std::to_string(digits);
}

void RootsOurs(benchmark::State& state, const EquationWork& work, int64_t digits) {
    const Integers equation = work.make();
    const auto degree = static_cast<int64_t>(equation.size()) - 1;
    SetRealPrecision(RootInputDigits(degree, digits));
    const auto room = [] { return Words(static_cast<size_t>(ComplexWords())); };
    std::vector<Words> coefficients(equation.size(), room());
    std::vector<Words> values(MaxEquationDegree, room());
    std::vector<std::u16string> texts(MaxEquationDegree,
                                      std::u16string(ExactTextCapacity + 1, u'\0'));
    CoefficientList list{degree, {}};
    for (size_t i = 0; i < equation.size(); i++) {
        const Words real =
            MakeReal(CoefficientText(work, equation, i, numberContext.precisionDigits + 20));
        ComplexNumber* z = ComplexAt(coefficients[i].data());
        RealCopy(RealPart(z), RealAt(real.data()));
        ComplexClearImaginaryPart(z);
        list.coefficients[i] = z;
    }
    SolutionSet solutions{};
    for (size_t i = 0; i < values.size(); i++) {
        solutions.values[i] = ComplexAt(values[i].data());
        solutions.exactTexts[i] = texts[i].data();
    }
    CreateScratchStack();
    GoRound(state, 1, [&](size_t) {
        if (SolvePolynomial(solutions, list, digits, KeepEqualRoots) != RootOutcome::Found ||
            solutions.count != degree) {
            SetCalcError(CalcErrorUndefined);
        }
    });
    DestroyScratchStack();
}

void RootsPari(benchmark::State& state, const EquationWork& work, int64_t digits) {
    std::string text;
    const Integers equation = work.make();
    for (size_t i = 0; i < equation.size(); i++) {
        text += (i == 0 ? "(" : "+(") + std::to_string(equation[i]) + ")*x^" + std::to_string(i);
    }
    const PariPolynomial polynomial(text.c_str());
    GoRound(state, 1, [&](size_t) {
        if (polynomial.CountRoots(digits) != static_cast<int64_t>(equation.size()) - 1) {
            SetCalcError(CalcErrorUndefined);
        }
    });
}

}  // namespace

void AddRootBenchmarks() {
    for (const EquationWork& work : EquationWorks) {
        for (const int64_t digits : work.digits) {
            benchmark::RegisterBenchmark(
                BenchmarkName(work.name, "ours", digits).c_str(),
                [&work, digits](benchmark::State& state) { RootsOurs(state, work, digits); });
            // The same problem with rounded coefficients has no multiple roots for PARI.
            if (!work.isMonic) {
                benchmark::RegisterBenchmark(
                    BenchmarkName(work.name, "pari", digits).c_str(),
                    [&work, digits](benchmark::State& state) { RootsPari(state, work, digits); });
            }
        }
    }
}

int PrintEquation(const char* workName) {
    for (const EquationWork& work : EquationWorks) {
        if (std::string_view(work.name) == workName) {
            for (const int64_t coefficient : work.make()) {
                std::printf("%lld\n", static_cast<long long>(coefficient));
            }
            return 0;
        }
    }
    std::fprintf(stderr, "no such equation\n");
    return 2;
}

}  // namespace tallymere::bench
