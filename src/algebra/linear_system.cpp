#include "algebra/linear_system.h"

#include <utility>

#include "core/real_add.h"
#include "core/real_integer.h"
#include "values/value_operations.h"

namespace tallymere {

namespace {

// What the steps work with beside the system and the solution.
struct Elimination {
    LinearSystem& system;
    LinearSolution& solution;
    int64_t digits;
    RealNumber* epsilon;  // what is below is 0
    uint64_t* slack;      // a candidate is larger when it is so many times larger
    uint64_t* factor;
    uint64_t* product;
    uint64_t* magnitude;
    uint64_t* bound;
};

bool ToleratesNoise(int64_t digits) {
    return numberContext.precisionDigits >= digits + 2 * RoundingNoiseDigits;
}

// dest = 10^exponent
void SetPowerOfTen(RealNumber* dest, int64_t exponent) {
    RealSetOne(dest);
    RealSetExponent(dest, exponent);
}

// epsilon = 10^-digits, and slack = 1. With tolerance epsilon is a little below, so that a value
// that would be 10^-digits but for rounding errors is not; and slack is a little above.
void SetThresholds(const Elimination& work) {
    SetPowerOfTen(work.epsilon, -work.digits);
    ValueFromInteger(work.slack, 1);
    if (ValuesAreExact() || !ToleratesNoise(work.digits)) {
        return;
    }
    // The noise is the real part of a value; its first part, in cplx.
    RealNumber* noise = RealAt(work.product);
    SetPowerOfTen(noise, -work.digits - RoundingNoiseDigits);
    RealSub(work.epsilon, work.epsilon, noise);
    SetPowerOfTen(noise, RoundingNoiseDigits - numberContext.precisionDigits);
    RealAdd(RealAt(work.slack), RealAt(work.slack), noise);
}

// a += factor * b, and what is below epsilon becomes 0, also where nothing is added.
void AddProduct(const Elimination& work, uint64_t* a, const uint64_t* b) {
    if (!ValueIsZero(work.factor) && !ValueIsZero(b)) {
        ValueMultiply(work.product, work.factor, b);
        ValueAdd(a, a, work.product);
    }
    SnapToZero(a, work.epsilon);
}

// Puts the row with the largest magnitude in a column into the place of the pivot. The first of
// several equal ones stays in front.
void ChoosePivot(const Elimination& work, int64_t column) {
    LinearSystem& system = work.system;
    ValueAbs(work.magnitude, SystemValue(system, column, column));
    ValueMultiply(work.bound, work.magnitude, work.slack);
    for (int64_t row = column + 1; row < system.count; row++) {
        ValueAbs(work.magnitude, SystemValue(system, row, column));
        if (ValueCompare(work.magnitude, work.bound, false) > 0) {
            std::swap(system.rows[column], system.rows[row]);
            ValueMultiply(work.bound, work.magnitude, work.slack);
        }
    }
}

void EliminateRow(const Elimination& work, int64_t row, int64_t column) {
    const LinearSystem& system = work.system;
    uint64_t* first = SystemValue(system, row, column);
    ValueDivide(work.factor, first, SystemValue(system, column, column));
    ValueNegate(work.factor, work.factor);
    ValueZero(first);
    for (int64_t j = column + 1; j <= system.count; j++) {
        AddProduct(work, SystemValue(system, row, j), SystemValue(system, column, j));
    }
}

bool ShouldEnd() {
    return numberContext.calcError != CalcErrorNone || StopRequested();
}

// A column without a pivot is passed over. No other column is searched, and the next column goes on
// with the next row.
void EliminateForward(const Elimination& work) {
    const LinearSystem& system = work.system;
    for (int64_t column = 0; column < system.count - 1 && !ShouldEnd(); column++) {
        ChoosePivot(work, column);
        if (ValueIsZero(SystemValue(system, column, column))) {
            continue;
        }
        for (int64_t row = column + 1; row < system.count && !ShouldEnd(); row++) {
            EliminateRow(work, row, column);
        }
    }
}

int64_t CountZeroDiagonals(const LinearSystem& system) {
    int64_t count = 0;
    for (int64_t i = 0; i < system.count; i++) {
        count += ValueIsZero(SystemValue(system, i, i)) ? 1 : 0;
    }
    return count;
}

// unknown i = right side - the sum over the unknowns behind it, not yet divided.
void CollectUnknown(const Elimination& work, int64_t i) {
    const LinearSystem& system = work.system;
    const LinearSolution& solution = work.solution;
    ValueCopy(SolutionValue(solution, i, 0), SystemValue(system, i, system.count));
    for (int64_t k = 1; k <= solution.parameterCount; k++) {
        ValueZero(SolutionValue(solution, i, k));
    }
    for (int64_t j = i + 1; j < system.count; j++) {
        ValueNegate(work.factor, SystemValue(system, i, j));
        for (int64_t k = 0; k <= solution.parameterCount; k++) {
            AddProduct(work, SolutionValue(solution, i, k), SolutionValue(solution, j, k));
        }
    }
}

void DivideUnknown(const Elimination& work, int64_t i) {
    const uint64_t* divisor = SystemValue(work.system, i, i);
    for (int64_t k = 0; k <= work.solution.parameterCount; k++) {
        uint64_t* value = SolutionValue(work.solution, i, k);
        ValueDivide(value, value, divisor);
        SnapToZero(value, work.epsilon);
    }
}

// False when something is left of a row without a pivot: its constant or a parameter that is there.
// The row is judged by itself, although a choice of the parameters might satisfy it.
bool NothingIsLeft(const LinearSolution& solution, int64_t i, int64_t parameters) {
    for (int64_t k = 0; k <= parameters; k++) {
        if (!ValueIsZero(SolutionValue(solution, i, k))) {
            return false;
        }
    }
    return true;
}

LinearOutcome SubstituteBack(const Elimination& work) {
    int64_t parameters = 0;
    for (int64_t i = work.system.count - 1; i >= 0 && !ShouldEnd(); i--) {
        CollectUnknown(work, i);
        if (!ValueIsZero(SystemValue(work.system, i, i))) {
            DivideUnknown(work, i);
        } else if (!NothingIsLeft(work.solution, i, parameters)) {
            return LinearOutcome::Unsolvable;
        } else {
            parameters++;
            ValueFromInteger(SolutionValue(work.solution, i, parameters), 1);
        }
    }
    return LinearOutcome::Solved;
}

// With tolerance a value is first rounded to the digits without noise, so that one that would be a
// tie but for rounding errors is rounded as a tie.
void RoundUnknowns(const Elimination& work) {
    const int64_t clean = numberContext.precisionDigits - RoundingNoiseDigits;
    for (int64_t i = 0; i < work.solution.count; i++) {
        for (int64_t k = 0; k <= work.solution.parameterCount; k++) {
            uint64_t* value = SolutionValue(work.solution, i, k);
            if (ToleratesNoise(work.digits)) {
                NumberRoundDigits(value, value, clean);
            }
            NumberRoundDigits(value, value, work.digits);
        }
    }
}

int64_t ValueWords() {
    return static_cast<int64_t>(SizeOfNumber()) / BytesPerWord;
}

LinearOutcome Solve(const Elimination& work) {
    SetThresholds(work);
    EliminateForward(work);
    if (ShouldEnd()) {
        return LinearOutcome::Failed;
    }
    work.solution.parameterCount = CountZeroDiagonals(work.system);
    const LinearOutcome outcome = SubstituteBack(work);
    if (outcome == LinearOutcome::Solved && !ShouldEnd() && !ValuesAreExact()) {
        RoundUnknowns(work);
    }
    return outcome;
}

}  // namespace

LinearSystem TakeLinearSystem(ScratchArea& area, int64_t count) {
    TALLYMERE_REQUIRE(count >= MinUnknowns && count <= MaxUnknowns);
    LinearSystem system = {count, {}, ValueWords()};
    for (int64_t row = 0; row < count; row++) {
        system.rows[row] = ScratchTake(area, (count + 1) * system.valueWords);
        for (int64_t column = 0; column <= count; column++) {
            ValueZero(SystemValue(system, row, column));
        }
    }
    return system;
}

LinearSolution TakeLinearSolution(ScratchArea& area, int64_t count) {
    TALLYMERE_REQUIRE(count >= MinUnknowns && count <= MaxUnknowns);
    LinearSolution solution = {count, 0, {}, ValueWords()};
    for (int64_t i = 0; i < count; i++) {
        solution.unknowns[i] = ScratchTake(area, (count + 1) * solution.valueWords);
    }
    return solution;
}

LinearOutcome SolveLinearSystem(LinearSystem& system, LinearSolution& solution, int64_t digits) {
    TALLYMERE_REQUIRE(system.count == solution.count && digits >= 1);
    TALLYMERE_REQUIRE(system.valueWords == ValueWords());
    numberContext.calcError = CalcErrorNone;
    // Without a number type there is not even a place for a value.
    if (SizeOfNumber() == 0) {
        return LinearOutcome::Failed;
    }
    ScratchStackScope scope;
    const auto take = [&] { return scope.Take(system.valueWords); };
    const LinearOutcome outcome = Solve({system, solution, digits, RealAt(scope.Take(RealWords())),
                                         take(), take(), take(), take(), take()});
    if (StopRequested()) {
        return LinearOutcome::Stopped;
    }
    return numberContext.calcError != CalcErrorNone ? LinearOutcome::Failed : outcome;
}

}  // namespace tallymere
