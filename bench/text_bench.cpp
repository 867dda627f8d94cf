// Reading and writing numbers of as many digits as the precision has.

#include "bench/benchmarks.h"
#include "bench/measuring.h"

namespace tallymere::bench {

namespace {

void Read(benchmark::State& state, int64_t digits) {
    SetRealPrecision(digits);
    std::vector<std::u16string> texts;
    for (const OperandPair& pair : MakeOperands(OperandKind::Numbers, digits)) {
        texts.push_back(Widen(pair.a));
    }
    Words room = RoomForReal();
    RealNumber* dest = RealAt(room.data());
    GoRound(state, texts.size(), [&](size_t i) {
        RealRound(dest, RealFromText(dest, texts[i].data(), static_cast<int64_t>(texts[i].size()),
                                     TextPlainSeparators));
    });
}

void Write(benchmark::State& state, int64_t digits) {
    constexpr uint32_t flags = TextScientific | TextPlainSeparators;
    SetRealPrecision(digits);
    std::vector<Words> numbers;
    for (const OperandPair& pair : MakeOperands(OperandKind::Numbers, digits)) {
        numbers.push_back(MakeReal(pair.a));
    }
    const int64_t capacity = RealTextCapacity(flags);
    std::u16string buffer(static_cast<size_t>(capacity) + 1, u' ');
    GoRound(state, numbers.size(), [&](size_t i) {
        TextWriter writer = {0, capacity, buffer.data()};
        RealToText(writer, RealAt(numbers[i].data()), flags);
        FinishNumberText(writer, flags);
    });
}

}  // namespace

void AddTextBenchmarks() {
    for (const int64_t digits : BenchDigits) {
        benchmark::RegisterBenchmark(BenchmarkName("read", "ours", digits).c_str(), Read, digits);
        benchmark::RegisterBenchmark(BenchmarkName("write", "ours", digits).c_str(), Write, digits);
    }
}

}  // namespace tallymere::bench
