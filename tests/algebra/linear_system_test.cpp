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

    // A coefficient, and what it may be off.
    struct Coefficient {
        const char* text;
        Magnitude error = {};
    };

    // What is known behind a run: whether it is certain, and what values may be off.
    struct Knowledge {
        bool isCertain;
        std::vector<std::vector<Magnitude>> system;
        std::vector<std::vector<Magnitude>> unknowns;
    };

    static Knowledge KnowledgeOf(const std::vector<std::vector<Coefficient>>& rows,
                                 int64_t digits = 10) {
        ScratchStackScope scope;
        const auto count = static_cast<int64_t>(rows.size());
        LinearSystem system = TakeLinearSystem(CurrentScratchStack(), count);
        LinearSolution solution = TakeLinearSolution(CurrentScratchStack(), count);
        for (int64_t i = 0; i < count; i++) {
            for (int64_t j = 0; j <= count; j++) {
                const Coefficient& from = rows[static_cast<size_t>(i)][static_cast<size_t>(j)];
                ValueCopy(SystemValue(system, i, j), WordsOf(from.text).data());
                system.errors[i][j] = from.error;
            }
        }
        SolveLinearSystem(system, solution, digits);
        Knowledge knowledge = {solution.isCertain, {}, {}};
        for (int64_t i = 0; i < count; i++) {
            knowledge.system.emplace_back(system.errors[i], system.errors[i] + count + 1);
            knowledge.unknowns.emplace_back(solution.errors[i], solution.errors[i] + count + 1);
        }
        return knowledge;
    }

    static bool IsCertain(const std::vector<std::vector<Coefficient>>& rows, int64_t digits = 10) {
        return KnowledgeOf(rows, digits).isCertain;
    }

    static void ExpectError(Magnitude error, double least, double most, int64_t exponent) {
        EXPECT_FALSE(error < MakeMagnitude(least, exponent));
        EXPECT_TRUE(error < MakeMagnitude(most, exponent));
    }

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
    ScratchStackScope stack;
    LinearSystem system = TakeLinearSystem(CurrentScratchStack(), 2);
    LinearSolution solution = TakeLinearSolution(CurrentScratchStack(), 2);
    for (int64_t row = 0; row < 2; row++) {
        ValueFromInteger(SystemValue(system, row, 0), 1);
        ValueFromInteger(SystemValue(system, row, 1), row);
    }
    RequestStop();
    EXPECT_EQ(SolveLinearSystem(system, solution, 10), LinearOutcome::Stopped);
    EXPECT_EQ(ValueText(SystemValue(system, 1, 0)), "1e0") << "no row is eliminated any more";
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

constexpr int64_t CertainPrecision = 48;  // of 10 digits

TEST_F(LinearSystems, AreCertainWhereNothingIsClose) {
    {
        FormulaScope scope(CertainPrecision, NumberTypeReal);
        EXPECT_TRUE(IsCertain({{{"3"}, {"1"}, {"2"}}, {{"1"}, {"-7"}, {"1"}}}));
        EXPECT_TRUE(IsCertain({{{"3"}, {"1"}, {"2"}}, {{"3"}, {"1"}, {"2"}}})) << "a parameter";
        EXPECT_TRUE(IsCertain({{{"3"}, {"1"}, {"2"}}, {{"3"}, {"1"}, {"1"}}})) << "unsolvable";
        EXPECT_FALSE(IsCertain({{{"3"}, {"1"}, {"2"}}, {{"1"}, {"-7"}, {"1"}}}, 11))
            << "the precision leaves no room for noise";
    }
    {
        FormulaScope scope(CertainPrecision, NumberTypeComplex);
        EXPECT_TRUE(IsCertain({{{"3 1"}, {"1"}, {"2"}}, {{"1"}, {"-7 2"}, {"1"}}}));
        EXPECT_TRUE(IsCertain({{{"0"}, {"1"}, {"2"}}, {{"0"}, {"0"}, {"0"}}}));
        EXPECT_TRUE(IsCertain({{{"3 4"}, {"1"}, {"2"}}, {{"4 -3"}, {"-7"}, {"1"}}}))
            << "the same modulus";
        EXPECT_FALSE(IsCertain({{{"3 4"}, {"1"}, {"2"}},
                                {{"4 3.0000000000000000000000000000000000000001"}, {"7"}, {"1"}}}));
        EXPECT_TRUE(IsCertain({{{"3 4"}, {"1"}, {"2"}}, {{"4 3.00000000000001"}, {"7"}, {"1"}}}));
        EXPECT_FALSE(IsCertain({{{"1e30"}, {"1"}, {"2"}}, {{"1e30 1e-30"}, {"7"}, {"1"}}}))
            << "parts that are too far from each other to tell";
    }
    FormulaScope scope(NumberTypeRational, 2);
    EXPECT_TRUE(IsCertain({{{"3"}, {"1"}, {"2"}}, {{"1"}, {"-7"}, {"1"}}}));
}

TEST_F(LinearSystems, AreNotCertainOfDecisionsWithinTheErrors) {
    FormulaScope scope(CertainPrecision, NumberTypeReal);
    const Magnitude error = MakeMagnitude(1, -30);
    EXPECT_TRUE(IsCertain({{{"3"}, {"1"}, {"2"}}, {{"-3"}, {"2"}, {"1"}}}));
    EXPECT_FALSE(IsCertain({{{"3", error}, {"1"}, {"2"}}, {{"-3"}, {"2"}, {"1"}}}));
    EXPECT_FALSE(IsCertain({{{"3"}, {"1"}, {"2"}}, {{"-3", error}, {"2"}, {"1"}}}));
    EXPECT_TRUE(IsCertain({{{"1"}, {"0"}, {"1"}}, {{"0"}, {"1"}, {"1.1e-10"}}}));
    EXPECT_FALSE(IsCertain({{{"1"}, {"0"}, {"1"}}, {{"0"}, {"1"}, {"1e-10", error}}}))
        << "what is below 10^-10 is 0";
    EXPECT_FALSE(
        IsCertain({{{"1"}, {"0"}, {"1"}}, {{"0"}, {"1"}, {"9e-11", MakeMagnitude(2, -11)}}}));
    EXPECT_TRUE(IsCertain({{{"0"}, {"1"}, {"1"}}, {{"0"}, {"0"}, {"1e-5", MakeMagnitude(1, -6)}}}));
    EXPECT_FALSE(IsCertain({{{"0"}, {"1"}, {"1"}}, {{"0"}, {"0"}, {"1e-5", MakeMagnitude(1, -4)}}}))
        << "something is left of the second row, or nothing";
}

TEST_F(LinearSystems, AreNotCertainOfDigitsWithinTheErrors) {
    FormulaScope scope(CertainPrecision, NumberTypeReal);
    const auto isCertain = [](const Coefficient& side) {
        return IsCertain({{{"1"}, {"0"}, {"1"}}, {{"0"}, {"1"}, side}});
    };
    EXPECT_TRUE(isCertain({"1.2345678914", MakeMagnitude(1, -12)}));
    EXPECT_FALSE(isCertain({"1.2345678914", MakeMagnitude(2, -10)}));
    EXPECT_FALSE(isCertain({"1.2345678915"})) << "a tie";
    EXPECT_TRUE(isCertain({"1.23456789149999999999999999"}));
    EXPECT_FALSE(isCertain({"1.23456789149999999999999999999999999"}))
        << "which the noise makes a tie";
}

// Errors of what is exactly known come from the steps alone: some units in the last of 48 digits.
TEST_F(LinearSystems, BoundTheErrorsOfTheirSteps) {
    FormulaScope scope(CertainPrecision, NumberTypeReal);
    ExpectError(KnowledgeOf({{{"3"}, {"0"}, {"1"}}, {{"0"}, {"1"}, {"1"}}}).unknowns[0][0], 1, 1e4,
                -48);
    ExpectError(KnowledgeOf({{{"1"}, {"1"}, {"1"}}, {{"1"}, {"1e30"}, {"0"}}}).system[1][1], 1, 1e4,
                30 - 48);
    EXPECT_TRUE(IsZero(KnowledgeOf({{{"3"}, {"1"}, {"2"}}, {{"3"}, {"1"}, {"2"}}}).system[1][1]))
        << "a 0 is certain";
}

TEST_F(LinearSystems, CarryTheErrorsOfTheirCoefficients) {
    FormulaScope scope(CertainPrecision, NumberTypeReal);
    const Magnitude error = MakeMagnitude(1, -20);
    const auto unknowns = [](const std::vector<std::vector<Coefficient>>& rows) {
        return KnowledgeOf(rows).unknowns;
    };
    ExpectError(unknowns({{{"4"}, {"0"}, {"1", error}}, {{"0"}, {"1"}, {"1"}}})[0][0], 0.24, 0.26,
                -20);
    ExpectError(unknowns({{{"4", error}, {"0"}, {"8"}}, {{"0"}, {"1"}, {"1"}}})[0][0], 0.49, 0.51,
                -20);
    ExpectError(unknowns({{{"1"}, {"2", error}, {"2"}}, {{"0"}, {"1"}, {"3"}}})[0][0], 2.9, 3.1,
                -20);
    ExpectError(unknowns({{{"1"}, {"2"}, {"2"}}, {{"0"}, {"1"}, {"3", error}}})[0][0], 1.9, 2.1,
                -20);
    const auto swapped = unknowns({{{"0"}, {"1"}, {"1", error}}, {{"1"}, {"0"}, {"1"}}});
    ExpectError(swapped[1][0], 0.9, 1.1, -20);
    ExpectError(swapped[0][0], 0, 1, -40);
}

TEST_F(LinearSystems, AreConvertedWithWhatRoundingTakesAway) {
    ScratchStackScope stack;
    for (const NumberType type : {NumberTypeReal, NumberTypeComplex}) {
        FormulaScope wideScope(40, type);
        const LinearSystem wide = TakeLinearSystem(CurrentScratchStack(), 2);
        const bool isComplex = type == NumberTypeComplex;
        ValueCopy(SystemValue(wide, 0, 0),
                  WordsOf(isComplex ? "0.5 1.2345678901234" : "1.2345678901234").data());
        ValueCopy(SystemValue(wide, 1, 2), WordsOf("7").data());
        wide.errors[1][2] = MakeMagnitude(3, -5);
        FormulaScope scope(10, type);
        const LinearSystem narrow = TakeLinearSystem(CurrentScratchStack(), 2);
        ConvertLinearSystem(narrow, wide, 40);
        EXPECT_EQ(ValueText(SystemValue(narrow, 0, 0)),
                  isComplex ? "5e-1, 1.23456789e0" : "1.23456789e0");
        ExpectError(narrow.errors[0][0], 1.234, 100, -10);
        EXPECT_EQ(ValueText(SystemValue(narrow, 1, 2)), isComplex ? "7e0, 0" : "7e0");
        ExpectError(narrow.errors[1][2], 2.99, 3.01, -5);
        EXPECT_TRUE(IsZero(narrow.errors[0][1]));
    }
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
