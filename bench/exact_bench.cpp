// Exact integers: the program's operations, GMP's for the same operands, and plain twins of ours.
// The size of a benchmark is its operands' length in limbs, for text its digits.

#include <gmp.h>

#include <memory>
#include <random>

#include "bench/benchmarks.h"
#include "bench/measuring.h"
#include "bench/operands.h"
#include "core/number_context.h"
#include "exact/big_uint.h"
#include "exact/big_uint_division.h"
#include "exact/big_uint_gcd.h"
#include "exact/big_uint_mod_power.h"
#include "exact/big_uint_multiply.h"
#include "exact/big_uint_text.h"
#include "reference/big_uint_division_twins.h"
#include "reference/big_uint_multiply_twins.h"
#include "reference/big_uint_text_twins.h"

namespace tallymere::bench {

namespace {

// So many operands that a processor cannot learn the branches of them by heart.
constexpr size_t OperandCount(int64_t limbs) {
    return limbs <= 130 ? 64 : 8;
}

// Random values of exactly so many limbs, with zeros up to the width.
std::vector<Words> RandomValues(uint64_t stream, int64_t limbs, int64_t width) {
    std::mt19937_64 random(Seed + stream);
    std::vector<Words> values(OperandCount(width), Words(static_cast<size_t>(width), 0));
    for (Words& value : values) {
        for (int64_t i = 0; i < limbs; i++) {
            value[static_cast<size_t>(i)] = random();
        }
        value[static_cast<size_t>(limbs - 1)] |= 1;
    }
    return values;
}

// Two values of each measurement, and the room for what is made of them, at a width that is put
// in force.
struct Operands {
    Operands(int64_t aLimbs, int64_t bLimbs, int64_t width)
        : a(RandomValues(1, aLimbs, width)),
          b(RandomValues(2, bLimbs, width)),
          room(static_cast<size_t>(2 * width)),
          more(static_cast<size_t>(2 * width)) {
        InstallUintWidth(UintWidthForLimbs(width));
    }
    size_t Count() const { return a.size(); }

    std::vector<Words> a;
    std::vector<Words> b;
    Words room;
    Words more;
};

class GmpInteger {
public:
    GmpInteger() { mpz_init(value_); }
    explicit GmpInteger(const Words& words) {
        mpz_init(value_);
        mpz_import(value_, words.size(), -1, sizeof(uint64_t), 0, 0, words.data());
    }
    ~GmpInteger() { mpz_clear(value_); }
    GmpInteger(const GmpInteger&) = delete;
    GmpInteger& operator=(const GmpInteger&) = delete;
    mpz_ptr Get() { return value_; }

private:
    mpz_t value_;
};

using GmpIntegers = std::vector<std::unique_ptr<GmpInteger>>;

GmpIntegers MakeGmp(const std::vector<Words>& values) {
    GmpIntegers integers;
    for (const Words& value : values) {
        integers.push_back(std::make_unique<GmpInteger>(value));
    }
    return integers;
}

// The product of two numbers of so many limbs, in twice as many.

void ProductOurs(benchmark::State& state, int64_t limbs) {
    Operands x(limbs, limbs, limbs);
    GoRound(state, x.Count(),
            [&](size_t i) { BigUintMulFull(x.room.data(), x.a[i].data(), x.b[i].data()); });
}

void ProductGmp(benchmark::State& state, int64_t limbs) {
    Operands x(limbs, limbs, limbs);
    GoRound(state, x.Count(),
            [&](size_t i) { mpn_mul(x.room.data(), x.a[i].data(), limbs, x.b[i].data(), limbs); });
}

void ProductTwin(benchmark::State& state, int64_t limbs) {
    Operands x(limbs, limbs, limbs);
    GoRound(state, x.Count(),
            [&](size_t i) { benchmark::DoNotOptimize(reference::TwinMulFull(x.a[i], x.b[i])); });
}

// The same product at a width that just holds it.

void FittingProductOurs(benchmark::State& state, int64_t limbs) {
    Operands x(limbs, limbs, 2 * limbs);
    GoRound(state, x.Count(),
            [&](size_t i) { BigUintMul(x.room.data(), x.a[i].data(), x.b[i].data()); });
}

// A number of one limb less than the width, by one limb.

void SmallProductOurs(benchmark::State& state, int64_t limbs) {
    Operands x(limbs - 1, 1, limbs);
    GoRound(state, x.Count(),
            [&](size_t i) { BigUintMulSmall(x.room.data(), x.a[i].data(), x.b[i][0]); });
}

void SmallProductGmp(benchmark::State& state, int64_t limbs) {
    Operands x(limbs - 1, 1, limbs);
    GoRound(state, x.Count(), [&](size_t i) {
        benchmark::DoNotOptimize(mpn_mul_1(x.room.data(), x.a[i].data(), limbs, x.b[i][0]));
    });
}

void SmallQuotientOurs(benchmark::State& state, int64_t limbs) {
    Operands x(limbs, 1, limbs);
    GoRound(state, x.Count(), [&](size_t i) {
        uint64_t remainder = 0;
        BigUintDivideSmall(x.room.data(), &remainder, x.a[i].data(), x.b[i][0], 0);
        benchmark::DoNotOptimize(remainder);
    });
}

void SmallQuotientGmp(benchmark::State& state, int64_t limbs) {
    Operands x(limbs, 1, limbs);
    GoRound(state, x.Count(), [&](size_t i) {
        benchmark::DoNotOptimize(mpn_divrem_1(x.room.data(), 0, x.a[i].data(), limbs, x.b[i][0]));
    });
}

void SmallQuotientTwin(benchmark::State& state, int64_t limbs) {
    Operands x(limbs, 1, limbs);
    GoRound(state, x.Count(), [&](size_t i) {
        benchmark::DoNotOptimize(reference::TwinDivideSmall(x.a[i], x.b[i][0]));
    });
}

// A number by one of half its length, or of half and half a limb: 1039 by 520.

void QuotientOurs(benchmark::State& state, int64_t limbs) {
    Operands x(limbs, (limbs + 1) / 2, limbs);
    GoRound(state, x.Count(), [&](size_t i) {
        BigUintDivide(x.room.data(), x.more.data(), x.a[i].data(), x.b[i].data());
    });
}

void QuotientGmp(benchmark::State& state, int64_t limbs) {
    Operands x(limbs, (limbs + 1) / 2, limbs);
    GoRound(state, x.Count(), [&](size_t i) {
        mpn_tdiv_qr(x.room.data(), x.more.data(), 0, x.a[i].data(), limbs, x.b[i].data(),
                    (limbs + 1) / 2);
    });
}

void QuotientTwin(benchmark::State& state, int64_t limbs) {
    Operands x(limbs, (limbs + 1) / 2, limbs);
    GoRound(state, x.Count(),
            [&](size_t i) { benchmark::DoNotOptimize(reference::TwinDivide(x.a[i], x.b[i])); });
}

// Base, exponent and odd modulus of full length. Each power has branches enough by itself, and its
// twin takes long.
struct PowerOperands : Operands {
    explicit PowerOperands(int64_t limbs)
        : Operands(limbs, limbs, limbs), modulus(RandomValues(3, limbs, limbs)) {
        a.resize(2);
        b.resize(2);
        modulus.resize(2);
        for (Words& value : modulus) {
            value[0] |= 1;
        }
    }

    std::vector<Words> modulus;
};

void ModPowerOurs(benchmark::State& state, int64_t limbs) {
    PowerOperands x(limbs);
    GoRound(state, x.Count(), [&](size_t i) {
        BigUintModPower(x.room.data(), x.a[i].data(), x.b[i].data(), x.modulus[i].data());
    });
}

void ModPowerGmp(benchmark::State& state, int64_t limbs) {
    PowerOperands x(limbs);
    const GmpIntegers a = MakeGmp(x.a);
    const GmpIntegers b = MakeGmp(x.b);
    const GmpIntegers m = MakeGmp(x.modulus);
    GmpInteger dest;
    GoRound(state, x.Count(),
            [&](size_t i) { mpz_powm(dest.Get(), a[i]->Get(), b[i]->Get(), m[i]->Get()); });
}

void ModPowerTwin(benchmark::State& state, int64_t limbs) {
    PowerOperands x(limbs);
    GoRound(state, x.Count(), [&](size_t i) {
        benchmark::DoNotOptimize(reference::TwinModPower(x.a[i], x.b[i], x.modulus[i]));
    });
}

// Two numbers of full length; the twin takes long here, too.
struct DivisorOperands : Operands {
    explicit DivisorOperands(int64_t limbs) : Operands(limbs, limbs, limbs) {
        a.resize(2);
        b.resize(2);
    }
};

void GcdOurs(benchmark::State& state, int64_t limbs) {
    DivisorOperands x(limbs);
    GoRound(state, x.Count(),
            [&](size_t i) { BigUintGcd(x.room.data(), x.a[i].data(), x.b[i].data()); });
}

void GcdGmp(benchmark::State& state, int64_t limbs) {
    DivisorOperands x(limbs);
    const GmpIntegers a = MakeGmp(x.a);
    const GmpIntegers b = MakeGmp(x.b);
    GmpInteger dest;
    GoRound(state, x.Count(), [&](size_t i) { mpz_gcd(dest.Get(), a[i]->Get(), b[i]->Get()); });
}

void GcdTwin(benchmark::State& state, int64_t limbs) {
    DivisorOperands x(limbs);
    GoRound(state, x.Count(),
            [&](size_t i) { benchmark::DoNotOptimize(reference::TwinGcd(x.a[i], x.b[i])); });
}

// Decimal texts of so many digits.

std::vector<std::string> RandomTexts(int64_t digits) {
    std::mt19937_64 random(Seed);
    std::vector<std::string> texts(OperandCount(digits));
    for (std::string& text : texts) {
        text = RandomDigits(random, digits);
    }
    return texts;
}

// Calls read(dest, text) for each of them.
template <typename Reader>
void MeasureReading(benchmark::State& state, int64_t digits, const Reader& read) {
    SetUintDigits(digits);
    std::vector<std::u16string> texts;
    for (const std::string& text : RandomTexts(digits)) {
        texts.push_back(Widen(text));
    }
    Words room(static_cast<size_t>(numberContext.uintLimbs));
    GoRound(state, texts.size(), [&](size_t i) { read(room.data(), texts[i]); });
}

void ReadOurs(benchmark::State& state, int64_t digits) {
    MeasureReading(state, digits, [](uint64_t* dest, const std::u16string& text) {
        BigUintFromText(dest, text.data(), static_cast<int64_t>(text.size()), TextPlainSeparators);
    });
}

void ReadTwin(benchmark::State& state, int64_t digits) {
    MeasureReading(state, digits, [](uint64_t* dest, const std::u16string& text) {
        reference::TwinUintFromText(dest, text, TextPlainSeparators);
    });
}

void ReadGmp(benchmark::State& state, int64_t digits) {
    const std::vector<std::string> texts = RandomTexts(digits);
    GmpInteger dest;
    GoRound(state, texts.size(), [&](size_t i) { mpz_set_str(dest.Get(), texts[i].c_str(), 10); });
}

// Calls write(value) for the value of each of them.
template <typename Writer>
void MeasureWriting(benchmark::State& state, int64_t digits, const Writer& write) {
    std::vector<Words> values;
    for (const std::string& text : RandomTexts(digits)) {
        const std::u16string wide = Widen(text);
        values.emplace_back(static_cast<size_t>(numberContext.uintLimbs));
        BigUintFromText(values.back().data(), wide.data(), static_cast<int64_t>(wide.size()),
                        TextPlainSeparators);
    }
    GoRound(state, values.size(), [&](size_t i) { write(values[i].data()); });
}

void WriteOurs(benchmark::State& state, int64_t digits) {
    SetUintDigits(digits);
    const int64_t capacity = BigUintTextLength(TextPlainSeparators);
    std::u16string buffer(static_cast<size_t>(capacity) + 1, u' ');
    MeasureWriting(state, digits, [&](const uint64_t* a) {
        BigUintToText(buffer.data(), capacity, a, TextPlainSeparators);
    });
}

void WriteTwin(benchmark::State& state, int64_t digits) {
    SetUintDigits(digits);
    MeasureWriting(state, digits, [](const uint64_t* a) {
        benchmark::DoNotOptimize(reference::TwinUintText(a, TextPlainSeparators));
    });
}

void WriteGmp(benchmark::State& state, int64_t digits) {
    std::vector<std::unique_ptr<GmpInteger>> values;
    for (const std::string& text : RandomTexts(digits)) {
        values.push_back(std::make_unique<GmpInteger>());
        mpz_set_str(values.back()->Get(), text.c_str(), 10);
    }
    std::string buffer(static_cast<size_t>(digits) + 2, ' ');
    GoRound(state, values.size(),
            [&](size_t i) { mpz_get_str(buffer.data(), 10, values[i]->Get()); });
}

using Measurement = void (*)(benchmark::State& state, int64_t size);

struct ExactWork {
    const char* name;
    std::vector<int64_t> sizes;
    Measurement ours;
    Measurement gmp;
    Measurement twin;
};

void Add(const ExactWork& work, const char* side, Measurement measurement) {
    if (measurement != nullptr) {
        for (const int64_t size : work.sizes) {
            benchmark::RegisterBenchmark(BenchmarkName(work.name, side, size).c_str(), measurement,
                                         size);
        }
    }
}

}  // namespace

void AddExactBenchmarks() {
    const ExactWork works[] = {
        {"uint-product", {26, 65, 1039}, ProductOurs, ProductGmp, ProductTwin},
        {"uint-fitting-product", {26, 65, 1039}, FittingProductOurs, ProductGmp, nullptr},
        {"uint-small-product", {26, 65, 1039}, SmallProductOurs, SmallProductGmp, nullptr},
        {"uint-small-quotient",
         {26, 65, 1039},
         SmallQuotientOurs,
         SmallQuotientGmp,
         SmallQuotientTwin},
        {"uint-quotient", {130, 1039}, QuotientOurs, QuotientGmp, QuotientTwin},
        {"uint-mod-power", {65}, ModPowerOurs, ModPowerGmp, ModPowerTwin},
        {"uint-gcd", {520}, GcdOurs, GcdGmp, GcdTwin},
        {"uint-read", {20'000}, ReadOurs, ReadGmp, ReadTwin},
        {"uint-write", {20'000}, WriteOurs, WriteGmp, WriteTwin},
    };
    for (const ExactWork& work : works) {
        Add(work, "ours", work.ours);
        Add(work, "gmp", work.gmp);
        Add(work, "twin", work.twin);
    }
}

}  // namespace tallymere::bench
