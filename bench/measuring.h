// What all benchmarks of numbers share: operands in memory, and the loop round them.
#pragma once

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "bench/operands.h"
#include "core/real_number.h"
#include "core/real_rounding.h"
#include "core/real_text.h"

namespace tallymere::bench {

using Words = std::vector<uint64_t>;

inline std::u16string Widen(const std::string& text) {
    return std::u16string(text.begin(), text.end());
}

/// Room for one number of the layout in force.
inline Words RoomForReal() {
    return Words(static_cast<size_t>(RealWords()));
}

inline Words MakeReal(const std::string& text) {
    const std::u16string wide = Widen(text);
    Words words = RoomForReal();
    RealNumber* x = RealAt(words.data());
    RealRound(x,
              RealFromText(x, wide.data(), static_cast<int64_t>(wide.size()), TextPlainSeparators));
    return words;
}

inline std::string BenchmarkName(const std::string& work, const std::string& side, int64_t size) {
    return work + "/" + side + "/" + std::to_string(size);
}

/// Calls step(i) for i = 0 to count - 1 again and again. A batch goes round all of them, and the
/// time is that of one step.
template <typename Step>
void GoRound(benchmark::State& state, size_t count, const Step& step) {
    while (state.KeepRunningBatch(static_cast<int64_t>(count))) {
        for (size_t i = 0; i < count; i++) {
            step(i);
            benchmark::ClobberMemory();
        }
    }
    if (numberContext.calcError != CalcErrorNone) {
        state.SkipWithError("the operation has noted an error");
    }
}

}  // namespace tallymere::bench
