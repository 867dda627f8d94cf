// Small systems of linear equations with integers as coefficients: the solution, put back,
// satisfies all equations, it has as many parameters as the rank leaves, and real numbers give the
// digits of the fractions.
//
// Input: count of equations, digits, then the coefficients row by row.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "algebra/linear_system.h"
#include "core/real_rounding.h"
#include "exact/rational_arithmetic.h"
#include "fuzz/harness_list.h"
#include "support/formula_testing.h"
#include "values/exact_conversions.h"
#include "values/value_operations.h"

namespace tallymere::fuzz {

using namespace testing_support;

namespace {

constexpr int64_t MostEquations = 5;
// Determinants are too small for an unknown that counts as 0 beside so many digits.
constexpr int64_t FewestDigits = 10;
constexpr int64_t MostDigits = 30;
// Beyond what is shown: for what the elimination loses of numbers this small.
constexpr int64_t SpareDigits = 60;
constexpr int64_t Limbs = 8;

using Rows = std::vector<std::vector<int64_t>>;
using Value = std::vector<uint64_t>;

Value NewValue() {
    Value value(SizeOfNumber() / 8);
    ValueZero(value.data());
    return value;
}

Value ValueOf(int64_t k) {
    Value value = NewValue();
    ValueFromInteger(value.data(), k);
    return value;
}

std::string TextOf(const Rows& rows) {
    std::string text;
    for (const std::vector<int64_t>& row : rows) {
        for (const int64_t value : row) {
            text += std::to_string(value) + " ";
        }
        text += "\n";
    }
    return text;
}

// The rank of the first `columns` columns, modulo a prime above all minors.
int64_t RankOf(const Rows& rows, size_t columns) {
    __extension__ typedef __int128 Integer;
    constexpr int64_t Prime = (int64_t{1} << 61) - 1;
    const auto modulo = [](Integer a) { return static_cast<int64_t>((a % Prime + Prime) % Prime); };
    const auto inverse = [&](int64_t a) {
        int64_t power = 1;
        for (int64_t exponent = Prime - 2; exponent > 0; exponent >>= 1) {
            power = (exponent & 1) != 0 ? modulo(Integer{power} * a) : power;
            a = modulo(Integer{a} * a);
        }
        return power;
    };
    Rows left = rows;
    size_t rank = 0;
    for (size_t column = 0; column < columns && rank < left.size(); column++) {
        size_t pivot = rank;
        while (pivot < left.size() && modulo(left[pivot][column]) == 0) {
            pivot++;
        }
        if (pivot == left.size()) {
            continue;
        }
        std::swap(left[rank], left[pivot]);
        const int64_t scale = inverse(modulo(left[rank][column]));
        for (size_t row = rank + 1; row < left.size(); row++) {
            const int64_t factor = modulo(Integer{left[row][column]} * scale);
            for (size_t i = column; i < columns; i++) {
                left[row][i] = modulo(left[row][i] - Integer{factor} * left[rank][i]);
            }
        }
        rank++;
    }
    return static_cast<int64_t>(rank);
}

// A zero is shown without a sign.
std::string ShownText(const RealNumber* x) {
    return RealIsZero(x) ? "0" : PlainText(x);
}

// A system and its solution in the number type in force.
class SolvedSystem {
public:
    SolvedSystem(const Rows& rows, int64_t digits) : rows_(rows) {
        const auto count = static_cast<int64_t>(rows.size());
        LinearSystem system = TakeLinearSystem(CurrentScratchStack(), count);
        solution_ = TakeLinearSolution(CurrentScratchStack(), count);
        for (int64_t i = 0; i < count; i++) {
            for (int64_t j = 0; j <= count; j++) {
                const int64_t k = rows[static_cast<size_t>(i)][static_cast<size_t>(j)];
                ValueCopy(SystemValue(system, i, j), ValueOf(k).data());
            }
        }
        outcome_ = SolveLinearSystem(system, solution_, digits);
        EXPECT_EQ(TakeCode(), CalcErrorNone);
    }

    LinearOutcome Outcome() const { return outcome_; }
    int64_t Parameters() const { return solution_.parameterCount; }
    const uint64_t* Unknown(int64_t i) const { return SolutionValue(solution_, i, 0); }

    // The constants give the right sides, and the coefficients of each parameter give 0.
    void ExpectSatisfied() const {
        for (const std::vector<int64_t>& row : rows_) {
            for (int64_t k = 0; k <= Parameters(); k++) {
                Value sum = NewValue();
                for (size_t j = 0; j + 1 < row.size(); j++) {
                    Value term = ValueOf(row[j]);
                    ValueMultiply(term.data(), term.data(),
                                  SolutionValue(solution_, static_cast<int64_t>(j), k));
                    ValueAdd(sum.data(), sum.data(), term.data());
                }
                EXPECT_EQ(ValueCompareSmall(sum.data(), k == 0 ? row.back() : 0), 0)
                    << "value " << k << " of\n"
                    << TextOf(rows_);
            }
        }
        EXPECT_EQ(TakeCode(), CalcErrorNone);
    }

private:
    const ScratchStackScope scope_;
    const Rows rows_;
    LinearSolution solution_;
    LinearOutcome outcome_;
};

// The unknowns as fractions, rounded to digits at a precision that holds them.
std::vector<std::string> RoundedUnknowns(const Rows& rows, int64_t digits) {
    const auto count = static_cast<int64_t>(rows.size());
    const SolvedSystem fractions(rows, 1);
    const int64_t rank = RankOf(rows, rows.size());
    if (fractions.Outcome() == LinearOutcome::Unsolvable) {
        // One row that has a choice left counts as a contradiction by itself.
        EXPECT_LT(rank, count) << TextOf(rows);
        return {};
    }
    EXPECT_EQ(fractions.Outcome(), LinearOutcome::Solved) << TextOf(rows);
    EXPECT_EQ(fractions.Parameters(), count - rank) << TextOf(rows);
    EXPECT_EQ(RankOf(rows, rows.size() + 1), rank) << TextOf(rows);
    fractions.ExpectSatisfied();
    std::vector<std::string> unknowns;
    for (int64_t i = 0; i < count && fractions.Parameters() == 0; i++) {
        RealBuffer x;
        RealFromRational(x, RationalAt(fractions.Unknown(i)));
        RealRoundDigitsAny(x, x, digits);
        unknowns.push_back(ShownText(x));
    }
    return unknowns;
}

}  // namespace

void FuzzSystems(FuzzInput& input) {
    const auto count = static_cast<size_t>(input.Number(MinUnknowns, MostEquations));
    const int64_t digits = input.Number(FewestDigits, MostDigits);
    Rows rows(count, std::vector<int64_t>(count + 1));
    for (std::vector<int64_t>& row : rows) {
        for (int64_t& value : row) {
            value = input.Number(-12, 12);
        }
    }
    const FormulaScope scope(digits + SpareDigits, NumberTypeRational);
    InstallUintWidth(UintWidthForLimbs(Limbs));
    const std::vector<std::string> expected = RoundedUnknowns(rows, digits);
    if (expected.empty()) {
        return;
    }
    const FieldScope<NumberType> type(numberContext.numberType, NumberTypeReal);
    const SolvedSystem reals(rows, digits);
    EXPECT_EQ(reals.Outcome(), LinearOutcome::Solved) << TextOf(rows);
    EXPECT_EQ(reals.Parameters(), 0) << TextOf(rows);
    for (size_t i = 0; i < count; i++) {
        EXPECT_EQ(ShownText(RealAt(reals.Unknown(static_cast<int64_t>(i)))), expected[i])
            << TextOf(rows);
    }
}

}  // namespace tallymere::fuzz
