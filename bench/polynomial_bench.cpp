// Calculations with polynomials: ours beside PARI's. The size of a benchmark is the number of
// digits.

#include <random>
#include <string>
#include <vector>

#include "algebra/polynomial_calculation.h"
#include "bench/benchmarks.h"
#include "bench/measuring.h"
#include "bench/pari_peer.h"
#include "core/complex_number.h"
#include "core/number_context.h"
#include "core/scratch.h"
#include "values/value_operations.h"

namespace tallymere::bench {

namespace {

// The digits of coefficients beyond those of the result.
constexpr int64_t GuardDigits = 3;

// Random coefficients, or such with equal real and imaginary parts: with 12 or 20 factors the
// imaginary parts of the result are then 0, which no fewer than the most digits prove.
enum class Coefficients { Random, EqualParts };

struct PolynomialWork {
    const char* name;
    PolyOperator operation;
    NumberType type;
    std::vector<int64_t> degrees;  // of the operands
    int64_t exponent;              // the second operand of a power
    Coefficients coefficients;
    bool hasPeer;
    std::vector<int64_t> digits;
};

const PolynomialWork PolynomialWorks[] = {
    {"poly-product",
     PolyOperator::Times,
     NumberTypeReal,
     {10, 10},
     0,
     Coefficients::Random,
     true,
     {10, 100, 1'000}},
    {"poly-quotient",
     PolyOperator::Divide,
     NumberTypeReal,
     {20, 10},
     0,
     Coefficients::Random,
     true,
     {10, 1'000}},
    {"poly-power",
     PolyOperator::Power,
     NumberTypeReal,
     {1},
     20,
     Coefficients::Random,
     true,
     {10, 1'000}},
    {"poly-product-complex",
     PolyOperator::Times,
     NumberTypeComplex,
     {10, 10},
     0,
     Coefficients::Random,
     true,
     {1'000}},
    {"poly-power-complex",
     PolyOperator::Power,
     NumberTypeComplex,
     {1},
     20,
     Coefficients::Random,
     true,
     {1'000}},
    {"poly-product-of-12",
     PolyOperator::Times,
     NumberTypeComplex,
     {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1},
     0,
     Coefficients::Random,
     false,
     {1'000}},
    {"poly-zeros",
     PolyOperator::Times,
     NumberTypeComplex,
     {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1},
     0,
     Coefficients::EqualParts,
     false,
     {1'000}},
    {"poly-zeros-power",
     PolyOperator::Power,
     NumberTypeComplex,
     {1},
     20,
     Coefficients::EqualParts,
     false,
     {1'000}},
};

// Decimals of both parts of one coefficient; the second is for cplx.
struct Parts {
    std::string re;
    std::string im;
};

using Texts = std::vector<Parts>;

// The coefficients of all operands, the constant first.
std::vector<Texts> MakeTexts(const PolynomialWork& work, int64_t digits) {
    std::mt19937_64 random(Seed);
    const auto number = [&] {
        return (random() % 2 == 0 ? "-0." : "0.") + RandomDigits(random, digits);
    };
    std::vector<Texts> operands;
    for (const int64_t degree : work.degrees) {
        Texts texts;
        for (int64_t i = 0; i <= degree; i++) {
            texts.push_back({number(), number()});
        }
        if (work.coefficients == Coefficients::EqualParts) {
            for (Parts& parts : texts) {
                parts.im = parts.re;
            }
        }
        operands.push_back(texts);
    }
    return operands;
}

void PutNumber(RealNumber* dest, const std::string& text) {
    const Words words = MakeReal(text);
    RealCopy(dest, RealAt(words.data()));
}

void PutOperand(PolyNumbers& dest, const Texts& texts) {
    for (size_t i = 0; i < texts.size(); i++) {
        if (numberContext.numberType == NumberTypeReal) {
            PutNumber(RealAt(dest.coefficients[i]), texts[i].re);
        } else {
            PutNumber(RealPart(ComplexAt(dest.coefficients[i])), texts[i].re);
            PutNumber(ImaginaryPart(ComplexAt(dest.coefficients[i])), texts[i].im);
        }
    }
}

void PolynomialsOurs(benchmark::State& state, const PolynomialWork& work, int64_t digits) {
    SetRealPrecision(digits + GuardDigits);
    numberContext.numberType = work.type;
    CreateScratchStack();
    {
        ScratchStackScope scope;
        const bool isPower = work.operation == PolyOperator::Power;
        const auto count = static_cast<int32_t>(isPower ? 2 : work.degrees.size());
        PolyCalculation calculation = TakePolyCalculation(scope, work.operation, count, digits);
        const std::vector<Texts> texts = MakeTexts(work, numberContext.precisionDigits);
        for (size_t k = 0; k < texts.size(); k++) {
            PutOperand(calculation.operands[k], texts[k]);
        }
        if (isPower) {
            ValueFromInteger(calculation.operands[1].coefficients[0], work.exponent);
        }
        GoRound(state, 1, [&](size_t) {
            PolyOutcome outcome = PolyOutcome::Done;
            calculation.count = 0;
            while (calculation.count < count && outcome == PolyOutcome::Done) {
                outcome = ApplyOperand(calculation);
            }
            if (outcome != PolyOutcome::Done ||
                RefinePolynomials(calculation) != PolyOutcome::Done) {
                SetCalcError(CalcErrorUndefined);
            }
        });
    }
    DestroyScratchStack();
}

std::string PariText(const Texts& texts, NumberType type) {
    std::string text = "0";
    for (size_t i = 0; i < texts.size(); i++) {
        text += "+(" + texts[i].re;
        if (type == NumberTypeComplex) {
            text += "+(" + texts[i].im + ")*I";
        }
        text += ")*x^" + std::to_string(i);
    }
    return text;
}

void PolynomialsPari(benchmark::State& state, const PolynomialWork& work, int64_t digits) {
    const std::vector<Texts> texts = MakeTexts(work, digits + GuardDigits);
    const PariPolynomial first(PariText(texts[0], work.type).c_str(), digits + GuardDigits);
    const PariPolynomial last(PariText(texts.back(), work.type).c_str(), digits + GuardDigits);
    const bool isQuotient = work.operation == PolyOperator::Divide;
    const int64_t degree = work.exponent > 0 ? work.exponent * work.degrees[0]
                           : isQuotient      ? work.degrees[0]
                                             : work.degrees[0] + work.degrees[1];
    GoRound(state, 1, [&](size_t) {
        const int64_t count = work.exponent > 0 ? first.CountPower(work.exponent)
                              : isQuotient      ? first.CountQuotientAndRemainder(last)
                                                : first.CountProduct(last);
        if (count != degree + 1) {
            SetCalcError(CalcErrorUndefined);
        }
    });
}

}  // namespace

void AddPolynomialBenchmarks() {
    for (const PolynomialWork& work : PolynomialWorks) {
        for (const int64_t digits : work.digits) {
            benchmark::RegisterBenchmark(
                BenchmarkName(work.name, "ours", digits).c_str(),
                [&work, digits](benchmark::State& state) { PolynomialsOurs(state, work, digits); });
            if (work.hasPeer) {
                benchmark::RegisterBenchmark(BenchmarkName(work.name, "pari", digits).c_str(),
                                             [&work, digits](benchmark::State& state) {
                                                 PolynomialsPari(state, work, digits);
                                             });
            }
        }
    }
}

}  // namespace tallymere::bench
