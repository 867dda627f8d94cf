// Whole evaluations: lexer, driver, variables and operators.

#include "bench/benchmarks.h"
#include "bench/measuring.h"
#include "core/number_setup.h"
#include "core/scratch.h"
#include "formula/formula_evaluation.h"

namespace tallymere::bench {

namespace {

struct BenchFormula {
    const char* work;
    const char16_t* text;
};

constexpr BenchFormula Formulas[] = {
    {"formula-fractions", u"(1/3+2.5)*(7-4/9)/1.1"},
    {"formula-polynomial", u"((x-6)*x+11)*x-6+x*y"},
};

constexpr VariableRow Variables[] = {
    {u"x", u"2.718281828459", nullptr},
    {u"y", u"1/7", nullptr},
};

void Evaluate(benchmark::State& state, const char16_t* text, int64_t digits) {
    const NumberSetupScope scope({.type = NumberTypeReal, .digits = digits});
    CreateScratchStack();
    Words room = RoomForReal();
    FormulaEvaluator evaluator = {};
    for (auto _ : state) {
        evaluator = {};
        evaluator.text = text;
        evaluator.variableCount = std::size(Variables);
        evaluator.variables = Variables;
        evaluator.result = room.data();
        EvaluateFormula(evaluator);
        benchmark::ClobberMemory();
    }
    if (evaluator.error != FormulaErrorNone) {
        state.SkipWithError("the formula has an error");
    }
    DestroyScratchStack();
}

}  // namespace

void AddFormulaBenchmarks() {
    for (const BenchFormula& formula : Formulas) {
        for (const int64_t digits : BenchDigits) {
            benchmark::RegisterBenchmark(BenchmarkName(formula.work, "ours", digits).c_str(),
                                         Evaluate, formula.text, digits);
        }
    }
}

}  // namespace tallymere::bench
