#include "algebra/linear_system.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/complex_number.h"
#include "core/real_number.h"
#include "core/stop_request.h"
#include "support/complex_testing.h"
#include "support/equation_testing.h"
#include "support/exact_testing.h"
#include "support/formula_testing.h"
#include "support/number_types.h"
#include "values/value_operations.h"

namespace tallymere {
namespace {

using namespace testing_support;

// The words of a value of the number type in force, as ValueText writes it; of cplx with a space
// between the parts, or one part alone.
std::vector<uint64_t> WordsOf(const std::string& text) {
    std::vector<uint64_t> words(SizeOfNumber() / 8);
    switch (numberContext.numberType) {
        case NumberTypeReal:
            RealFromPlainText(RealAt(words.data()), text);
            break;
        case NumberTypeComplex: {
            const size_t space = text.find(' ');
            RealFromPlainText(RealPart(ComplexAt(words.data())), text.substr(0, space));
            RealFromPlainText(ImaginaryPart(ComplexAt(words.data())),
                              space == text.npos ? "0" : text.substr(space + 1));
            break;
        }
        case NumberTypeUint:
        case NumberTypeRational:
            return ExactWords(text);
        case NumberTypeNone:
            break;
    }
    return words;
}

const char* NameOf(LinearOutcome outcome) {
    switch (outcome) {
        case LinearOutcome::Solved:
            return "Solved";
        case LinearOutcome::Unsolvable:
            return "Unsolvable";
        case LinearOutcome::Failed:
            return "Failed";
        case LinearOutcome::Stopped:
            return "Stopped";
    }
    return "?";
}

using Rows = std::vector<std::vector<std::string>>;
using Texts = std::vector<std::vector<std::string>>;

class LinearSystems : public ::testing::Test {
protected:
    // The values of each unknown, the constant and the coefficients of all parameters. A single
    // text names an outcome that is not Solved, with the code that was noted.
    static Texts Solve(const Rows& rows, int64_t digits = 10) {
        ScratchStackScope scope;
        const auto count = static_cast<int64_t>(rows.size());
        LinearSystem system = TakeLinearSystem(CurrentScratchStack(), count);
        LinearSolution solution = TakeLinearSolution(CurrentScratchStack(), count);
        for (int64_t i = 0; i < count; i++) {
            for (int64_t j = 0; j <= count; j++) {
                const auto words = WordsOf(rows[static_cast<size_t>(i)][static_cast<size_t>(j)]);
                ValueCopy(SystemValue(system, i, j), words.data());
            }
        }
        const LinearOutcome outcome = SolveLinearSystem(system, solution, digits);
        if (outcome != LinearOutcome::Solved) {
            const CalcError code = TakeCode();
            return {
                {NameOf(outcome) + (code == CalcErrorNone ? std::string() : " " + CodeName(code))}};
        }
        EXPECT_EQ(TakeCode(), CalcErrorNone);
        Texts texts;
        for (int64_t i = 0; i < count; i++) {
            std::vector<std::string>& unknown = texts.emplace_back();
            for (int64_t k = 0; k <= solution.parameterCount; k++) {
                unknown.push_back(ValueText(SolutionValue(solution, i, k)));
            }
        }
        return texts;
    }
    static Texts Fails(const std::string& what) { return {{what}}; }

    ScratchStackOwner stack_;
};

TEST_F(LinearSystems, AreSolvedInAllTypesThatDivide) {
    const Rows rows = {{"1", "1", "2"}, {"1", "-1", "0"}};
    {
        FormulaScope scope(12, NumberTypeReal);
        EXPECT_EQ(Solve(rows), (Texts{{"1e0"}, {"1e0"}}));
    }
    {
        FormulaScope scope(12, NumberTypeComplex);
        EXPECT_EQ(Solve(rows), (Texts{{"1e0, 0"}, {"1e0, 0"}}));
        EXPECT_EQ(Solve({{"0 1", "1", "0 3"}, {"1", "0 1", "1"}}), (Texts{{"2e0, 0"}, {"0, 1e0"}}));
    }
    FormulaScope scope(NumberTypeRational, 2);
    EXPECT_EQ(Solve(rows), (Texts{{"1"}, {"1"}}));
    EXPECT_EQ(Solve({{"1/2", "1/3", "1"}, {"1", "-1", "1/7"}}), (Texts{{"44/35"}, {"39/35"}}));
}

TEST_F(LinearSystems, HaveNoQuotientsInUint) {
    FormulaScope scope(NumberTypeUint, 2);
    EXPECT_EQ(Solve({{"1", "1", "2"}, {"1", "0", "1"}}), Fails("Failed CalcErrorUnknownType"));
    EXPECT_EQ(Solve({{"0", "0", "0"}, {"0", "1", "1"}}), Fails("Failed CalcErrorUnknownType"))
        << "the first quotient stands in the substitution";
}

TEST_F(LinearSystems, HaveNoUnknownsWithoutANumberType) {
    FormulaScope scope(60, NumberTypeNone);
    LinearSystem system = {2, {}, 0};
    LinearSolution solution = {2, 0, {}, 0};
    EXPECT_EQ(SolveLinearSystem(system, solution, 10), LinearOutcome::Failed);
    EXPECT_EQ(TakeCode(), CalcErrorUnknownType);
}

TEST_F(LinearSystems, ForgetCodesThatWereNotedBefore) {
    FormulaScope scope(12, NumberTypeReal);
    SetCalcError(CalcErrorSyntax);
    EXPECT_EQ(Solve({{"1", "0", "3"}, {"0", "1", "4"}}), (Texts{{"3e0"}, {"4e0"}}));
}

TEST_F(LinearSystems, StopWhenTheyAreAskedTo) {
    FormulaScope scope(12, NumberTypeReal);
    RequestStop();
    EXPECT_EQ(Solve({{"1", "0", "3"}, {"0", "1", "4"}}), Fails("Stopped"));
    ClearStopRequest();
}

TEST_F(LinearSystems, WithFewerEquationsHaveParameters) {
    FormulaScope scope(12, NumberTypeReal);
    EXPECT_EQ(Solve({{"1", "1", "2"}, {"1", "1", "2"}}), (Texts{{"2e0", "-1e0"}, {"0", "1e0"}}));
    EXPECT_EQ(Solve({{"0", "0", "0"}, {"0", "0", "0"}}),
              (Texts{{"0", "0", "1e0"}, {"0", "1e0", "0"}}))
        << "the unknown of the highest index has the first parameter";
    EXPECT_EQ(Solve({{"1", "1", "2"}, {"1", "1", "3"}}), Fails("Unsolvable"));
}

// x2 = 1 would satisfy it. No other column is searched for a pivot, and the row that keeps its
// entry is judged by itself.
TEST_F(LinearSystems, WithAZeroColumnInFrontMayBeUnsolvable) {
    const Rows rows = {{"0", "1", "0", "1"}, {"0", "0", "0", "0"}, {"0", "0", "0", "0"}};
    {
        FormulaScope scope(12, NumberTypeReal);
        EXPECT_EQ(Solve(rows), Fails("Unsolvable"));
    }
    FormulaScope scope(NumberTypeRational, 2);
    EXPECT_EQ(Solve(rows), Fails("Unsolvable"));
    EXPECT_EQ(Solve({{"0", "0", "0", "0"}, {"0", "1", "0", "1"}, {"0", "0", "0", "0"}}),
              (Texts{{"0", "0", "1"}, {"1", "0", "0"}, {"0", "1", "0"}}))
        << "the same row in another place";
}

// The bound is absolute, so it is the same for coefficients of any size.
TEST_F(LinearSystems, TakeWhatIsBelowTheBoundForZero) {
    FormulaScope scope(12, NumberTypeReal);
    EXPECT_EQ(Solve({{"1", "0", "1"}, {"0", "1", "9.9e-11"}}), (Texts{{"1e0"}, {"0"}}));
    EXPECT_EQ(Solve({{"1", "0", "1"}, {"0", "1", "1e-10"}}), (Texts{{"1e0"}, {"1e-10"}}));
    EXPECT_EQ(Solve({{"1", "0", "1"}, {"0", "9.9e-11", "1"}}), Fails("Unsolvable"))
        << "also where nothing is added to a coefficient";
    EXPECT_EQ(Solve({{"1", "0", "1"}, {"0", "1e-10", "1"}}), (Texts{{"1e0"}, {"1e10"}}));
    EXPECT_EQ(Solve({{"9.9e-11", "0", "1"}, {"0", "1", "1"}}), (Texts{{"1.01010101e10"}, {"1e0"}}))
        << "but the first row is taken as it is";
    EXPECT_EQ(Solve({{"1e20", "0", "1"}, {"0", "1", "1"}}), (Texts{{"0"}, {"1e0"}}))
        << "a quotient";
    FormulaScope rational(NumberTypeRational, 2);
    EXPECT_EQ(Solve({{"1", "0", "1"}, {"0", "1", "1/1000000000000"}}),
              (Texts{{"1"}, {"1/1000000000000"}}));
}

TEST_F(LinearSystems, TakeTheLargestCandidateForThePivot) {
    FormulaScope scope(12, NumberTypeReal);
    ScratchStackScope stack;
    LinearSystem system = TakeLinearSystem(CurrentScratchStack(), 4);
    LinearSolution solution = TakeLinearSolution(CurrentScratchStack(), 4);
    constexpr int64_t Columns[] = {1, -3, 3, 2};
    for (int64_t i = 0; i < 4; i++) {
        ValueFromInteger(SystemValue(system, i, 0), Columns[i]);
        ValueFromInteger(SystemValue(system, i, i), i == 0 ? 1 : 100 + i);
    }
    uint64_t* const second = system.rows[1];
    EXPECT_EQ(SolveLinearSystem(system, solution, 10), LinearOutcome::Solved);
    EXPECT_EQ(system.rows[0], second) << "the first of two with the same magnitude";
}

TEST_F(LinearSystems, CompareComplexCandidatesByTheirModulus) {
    FormulaScope scope(12, NumberTypeComplex);
    ScratchStackScope stack;
    LinearSystem system = TakeLinearSystem(CurrentScratchStack(), 2);
    LinearSolution solution = TakeLinearSolution(CurrentScratchStack(), 2);
    uint64_t* const second = system.rows[1];
    ValueFromInteger(SystemValue(system, 0, 0), -4);
    ValueCopy(SystemValue(system, 1, 0), WordsOf("-3 3").data());
    ValueFromInteger(SystemValue(system, 0, 1), 1);
    EXPECT_EQ(SolveLinearSystem(system, solution, 10), LinearOutcome::Solved);
    EXPECT_EQ(system.rows[0], second);
}

TEST_F(LinearSystems, RoundTheirUnknownsOnce) {
    FormulaScope scope(12, NumberTypeReal);
    EXPECT_EQ(Solve({{"3", "0", "2"}, {"0", "7", "1"}}),
              (Texts{{"6.666666667e-1"}, {"1.428571429e-1"}}));
    FormulaScope rational(NumberTypeRational, 2);
    EXPECT_EQ(Solve({{"3", "0", "2"}, {"0", "7", "1"}}), (Texts{{"2/3"}, {"1/7"}}));
}

TEST_F(LinearSystems, HoldFractionsToTheLastLimb) {
    FormulaScope scope(NumberTypeRational, 2);
    const std::string most = "340282366920938463463374607431768211455";
    EXPECT_EQ(Solve({{"1", "0", most}, {"0", most, "1"}}), (Texts{{most}, {"1/" + most}}));
    EXPECT_EQ(Solve({{"1/2", "0", most}, {"0", "1", "1"}}), Fails("Failed CalcErrorOverflow"));
    EXPECT_EQ(Solve({{"1", "1", most}, {"-1", "1", "1"}}), Fails("Failed CalcErrorOverflow"))
        << "a sum on the way";
}

TEST_F(LinearSystems, FailBeyondTheRangeOfNumbers) {
    FormulaScope scope(12, NumberTypeReal);
    EXPECT_EQ(Solve({{"1e-3000000000000000000", "0", "1e3000000000000000000"}, {"0", "1", "1"}}),
              Fails("Failed CalcErrorOverflow"));
}

}  // namespace
}  // namespace tallymere
