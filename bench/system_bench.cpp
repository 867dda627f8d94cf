// Systems of 25 linear equations: ours, from the texts of the cells to the text of the result,
// beside PARI, which has the numbers already. The size of a benchmark is the digits of the
// unknowns, of fractions those of the coefficients.

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "algebra_pages/system_run.h"
#include "bench/benchmarks.h"
#include "bench/measuring.h"
#include "bench/pari_peer.h"
#include "core/scratch.h"
#include "shell/ui_error.h"

namespace tallymere::bench {

namespace {

constexpr int32_t Count = MaxEquationCount;

// The texts of the cells, row by row.
using Cells = std::vector<std::string>;

// A sign, what stands before the digits, and so many digits; in PARI's notation as well.
std::string RandomNumber(std::mt19937_64& random, const char* beginning, int64_t digits) {
    std::string text = random() % 2 == 0 ? "-" : "";
    text += beginning;
    for (int64_t i = 0; i < digits; i++) {
        text += static_cast<char>('0' + (i == 0 ? 1 + random() % 9 : random() % 10));
    }
    return text;
}

std::string RandomInteger(std::mt19937_64& random, int64_t digits) {
    return RandomNumber(random, "", digits);
}

std::string RandomDecimal(std::mt19937_64& random, int64_t digits) {
    return RandomNumber(random, "0.", digits);
}

// Both parts of 1,000 digits would not fit a cell.
std::string RandomComplex(std::mt19937_64& random, int64_t digits) {
    std::string text = RandomNumber(random, "0.", digits / 2);
    text += "+(" + RandomNumber(random, "0.", digits / 2) + ")*i";
    return text;
}

struct SystemWork {
    const char* name;
    NumberType type;
    std::string (*make)(std::mt19937_64& random, int64_t digits);
    bool hasCloseModuli;  // so that only many digits decide
    std::vector<int64_t> sizes;
};

const SystemWork SystemWorks[] = {
    {"system-real", NumberTypeReal, RandomDecimal, false, {10, 100, 1'000}},
    {"system-complex", NumberTypeComplex, RandomComplex, false, {10, 100, 1'000}},
    {"system-moduli", NumberTypeComplex, RandomComplex, true, {10, 100}},
    {"system-rational", NumberTypeRational, RandomInteger, false, {1, 9}},
};

Cells MakeCells(const SystemWork& work, int64_t size) {
    std::mt19937_64 random(Seed);
    Cells cells;
    for (int32_t i = 0; i < Count * (Count + 1); i++) {
        cells.push_back(work.make(random, size));
    }
    if (work.hasCloseModuli) {
        cells[0] = std::string("1");
        cells[Count + 1] = "1+0.0000000000000000000000000001*i";
    }
    return cells;
}

void SystemOurs(benchmark::State& state, const SystemWork& work, int64_t size) {
    Cells cells = MakeCells(work, size);
    const SystemRequest request = {
        .count = Count,
        .type = work.type,
        .digits = work.type == NumberTypeRational ? MinSystemDigits : size,
        .grouped = false,
        .readCell =
            [](void* context, int32_t row, int32_t column, char16_t* text) {
                const Cells& all = *static_cast<const Cells*>(context);
                const std::string& cell = all[static_cast<size_t>(row * (Count + 1) + column)];
                text = std::copy(cell.begin(), cell.end(), text);
                *text = 0;
            },
        .context = &cells};
    CreateScratchStack();
    GoRound(state, 1, [&](size_t) {
        bool isShown = false;
        RunSystem(
            request, [](void* context, const char16_t*) { *static_cast<bool*>(context) = true; },
            &isShown);
        if (!isShown || PendingUiError() != UiErrorNone) {
            SetCalcError(CalcErrorUndefined);
        }
    });
    DestroyScratchStack();
}

// "[a, b; c, d]" of all columns from `first` to before `end`.
std::string PariMatrix(const Cells& cells, int32_t first, int32_t end) {
    std::string text = "[";
    for (int32_t row = 0; row < Count; row++) {
        text += row == 0 ? "" : ";";
        for (int32_t column = first; column < end; column++) {
            text += (column == first ? "" : ",") +
                    cells[static_cast<size_t>(row * (Count + 1) + column)];
        }
    }
    for (char& c : text) {
        c = c == 'i' ? 'I' : c;
    }
    return text + "]";
}

void SystemPari(benchmark::State& state, const SystemWork& work, int64_t size) {
    const Cells cells = MakeCells(work, size);
    const PariSystem system(PariMatrix(cells, 0, Count).c_str(),
                            PariMatrix(cells, Count, Count + 1).c_str(),
                            work.type == NumberTypeRational ? 0 : size);
    GoRound(state, 1, [&](size_t) {
        if (system.CountUnknowns() != Count) {
            SetCalcError(CalcErrorUndefined);
        }
    });
}

}  // namespace

void AddSystemBenchmarks() {
    for (const SystemWork& work : SystemWorks) {
        for (const int64_t size : work.sizes) {
            benchmark::RegisterBenchmark(
                BenchmarkName(work.name, "ours", size).c_str(),
                [&work, size](benchmark::State& state) { SystemOurs(state, work, size); });
            benchmark::RegisterBenchmark(
                BenchmarkName(work.name, "pari", size).c_str(),
                [&work, size](benchmark::State& state) { SystemPari(state, work, size); });
        }
    }
}

}  // namespace tallymere::bench
