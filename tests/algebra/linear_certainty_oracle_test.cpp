// Systems of linear equations whose coefficients are known within errors alone: what is called
// certain is what the same steps find in exact fractions.
#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "algebra/linear_system.h"
#include "algebra/polynomial_exact_oracle.h"
#include "reference/linear_system_oracle.h"
#include "support/equation_testing.h"
#include "support/formula_testing.h"
#include "support/number_types.h"
#include "support/random_source.h"
#include "values/value_operations.h"

namespace tallymere {
namespace {

using namespace testing_support;
using namespace reference;

class LinearCertaintyOracle : public ::testing::Test {
protected:
    mpq_class Fraction() {
        mpq_class value(random_.Between(-9, 9), random_.Between(1, 9));
        value.canonicalize();
        return value;
    }

    ExactNumber Number(bool isComplex) { return {Fraction(), isComplex ? Fraction() : 0}; }

    ExactSystem Filled(size_t count, bool isComplex) {
        ExactSystem rows(count);
        for (std::vector<ExactNumber>& row : rows) {
            for (size_t j = 0; j <= count; j++) {
                row.push_back(Number(isComplex));
            }
        }
        return rows;
    }

    // One row is another one, or nearly.
    void RepeatRow(ExactSystem& rows) {
        rows[1] = rows[0];
        rows[1][random_.Below(rows.size() + 1)].re += Small();
    }

    // Two candidates in a column are equally large, or nearly.
    void RepeatCandidate(ExactSystem& rows) {
        const size_t column = random_.Below(2);
        rows[1][column] = {-rows[0][column].re + Small(), rows[0][column].im};
    }

    mpq_class Small() {
        return random_.Below(3) == 0 ? mpq_class(0) : TenTo(-random_.Between(1, 60));
    }

    ExactSystem MakeSystem(bool isComplex) {
        ExactSystem rows = Filled(static_cast<size_t>(random_.Between(2, 5)), isComplex);
        switch (random_.Below(4)) {
            case 0:
                RepeatRow(rows);
                break;
            case 1:
                RepeatCandidate(rows);
                break;
            case 2:
                rows[0][0].re += Small();
                break;
            default:
                break;
        }
        return rows;
    }

    // Writes a value to so many digits, and what it is off.
    void WriteRounded(const LinearSystem& system, int64_t row, int64_t column,
                      const ExactNumber& exact, int64_t known) {
        uint64_t* value = SystemValue(system, row, column);
        mpq_class off = 0;
        const auto write = [&](int64_t part, const mpq_class& number) {
            RealNumber* const real = RealAt(value + part * RealWords());
            RealFromPlainText(real, TwinNumberText(number, known));
            off += abs(number - ExactReal(real));
        };
        write(0, exact.re);
        if (ValueRealParts() == 2) {
            write(1, exact.im);
        }
        if (ValueIsZero(value)) {
            ASSERT_TRUE(off == 0);
        }
        // Doubles end long before these.
        int64_t exponent = 0;
        for (; off != 0 && off < 1; exponent--) {
            off *= 10;
        }
        system.errors[row][column] = MakeMagnitude(off.get_d() * 1.000001, exponent);
    }

    // Solves a system whose coefficients are known to so many digits, and says whether the result
    // is certain.
    bool Solve(const ExactSystem& rows, int64_t digits, int64_t known) {
        ScratchStackScope scope;
        const auto count = static_cast<int64_t>(rows.size());
        LinearSystem system = TakeLinearSystem(CurrentScratchStack(), count);
        LinearSolution solution = TakeLinearSolution(CurrentScratchStack(), count);
        for (int64_t i = 0; i < count; i++) {
            for (int64_t j = 0; j <= count; j++) {
                WriteRounded(system, i, j, rows[static_cast<size_t>(i)][static_cast<size_t>(j)],
                             known);
            }
        }
        const LinearOutcome outcome = SolveLinearSystem(system, solution, digits);
        if (solution.isCertain) {
            Check(outcome, solution, TwinSolveLinearSystem(rows, digits), digits);
        }
        return solution.isCertain;
    }

    static void Check(LinearOutcome outcome, const LinearSolution& solution,
                      const ExactSolution& exact, int64_t digits) {
        ASSERT_EQ(outcome == LinearOutcome::Solved, exact.isSolvable);
        if (!exact.isSolvable) {
            return;
        }
        ASSERT_EQ(solution.parameterCount, static_cast<int64_t>(exact.parameters));
        for (int64_t i = 0; i < solution.count; i++) {
            for (int64_t k = 0; k <= solution.parameterCount; k++) {
                const uint64_t* value = SolutionValue(solution, i, k);
                const ExactNumber& number =
                    exact.unknowns[static_cast<size_t>(i)][static_cast<size_t>(k)];
                EXPECT_EQ(ExactReal(RealAt(value)).get_str(),
                          RoundedTo(number.re, digits).get_str());
                if (ValueRealParts() == 2) {
                    EXPECT_EQ(ExactReal(RealAt(value + RealWords())).get_str(),
                              RoundedTo(number.im, digits).get_str());
                }
            }
        }
    }

    ScratchStackOwner stack_;
    RandomSource random_;
};

TEST_F(LinearCertaintyOracle, IsNeverWrong) {
    const int rounds = TestRounds(5'000);
    int certain = 0;
    for (int round = 0; round < rounds; round++) {
        const bool isComplex = random_.Below(2) != 0;
        const int64_t digits = random_.Between(3, 20);
        const int64_t precision = digits + 2 * RoundingNoiseDigits + random_.Between(0, 20);
        FormulaScope scope(precision, isComplex ? NumberTypeComplex : NumberTypeReal);
        const ExactSystem rows = MakeSystem(isComplex);
        certain += Solve(rows, digits, random_.Between(digits, precision)) ? 1 : 0;
        if (HasFailure()) {
            return;
        }
    }
    EXPECT_GT(certain, rounds / 4);
    EXPECT_LT(certain, rounds * 9 / 10);
}

}  // namespace
}  // namespace tallymere
