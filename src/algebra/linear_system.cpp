#include "algebra/linear_system.h"

#include <memory>
#include <utility>

#include "algebra/bounded_steps.h"
#include "core/real_add.h"
#include "core/real_integer.h"
#include "values/value_operations.h"

namespace tallymere {

namespace {

// What the steps work with beside the system and the solution.
struct Elimination {
    LinearSystem& system;
    LinearSolution& solution;
    BoundedSteps steps;
    BoundedValue factor;
    uint64_t* slack;  // a candidate is larger when it is so many times larger
    uint64_t* magnitude;
    uint64_t* bound;
};

BoundedValue SystemEntry(const Elimination& work, int64_t row, int64_t column) {
    return {SystemValue(work.system, row, column), &work.system.errors[row][column]};
}

BoundedValue UnknownEntry(const Elimination& work, int64_t unknown, int64_t index) {
    return {SolutionValue(work.solution, unknown, index), &work.solution.errors[unknown][index]};
}

// dest = 10^exponent
void SetPowerOfTen(RealNumber* dest, int64_t exponent) {
    RealSetOne(dest);
    RealSetExponent(dest, exponent);
}

// epsilon = 10^-digits, and slack = 1. With tolerance epsilon is a little below, so that a value
// that would be 10^-digits but for rounding errors is not; and slack is a little above.
void SetThresholds(const Elimination& work) {
    SetPowerOfTen(work.steps.epsilon, -work.steps.digits);
    ValueFromInteger(work.slack, 1);
    if (ValuesAreExact() || !ToleratesNoise(work.steps.digits)) {
        return;
    }
    // The noise is the real part of a value; its first part, in cplx.
    RealNumber* noise = RealAt(work.steps.product);
    SetPowerOfTen(noise, -(work.steps.digits + numberContext.precisionDigits) / 2);
    RealSub(work.steps.epsilon, work.steps.epsilon, noise);
    SetPowerOfTen(noise, RoundingNoiseDigits - numberContext.precisionDigits);
    RealAdd(RealAt(work.slack), RealAt(work.slack), noise);
}

// Puts the row with the largest magnitude in a column into the place of the pivot. The first of
// several equal ones stays in front.
void ChoosePivot(const Elimination& work, int64_t column) {
    LinearSystem& system = work.system;
    ValueAbs(work.magnitude, SystemValue(system, column, column));
    ValueMultiply(work.bound, work.magnitude, work.slack);
    for (int64_t row = column + 1; row < system.count; row++) {
        NoteOrder(work.steps, SystemEntry(work, column, column), SystemEntry(work, row, column));
        ValueAbs(work.magnitude, SystemValue(system, row, column));
        if (ValueCompare(work.magnitude, work.bound, false) > 0) {
            std::swap(system.rows[column], system.rows[row]);
            std::swap(system.errors[column], system.errors[row]);
            ValueMultiply(work.bound, work.magnitude, work.slack);
        }
    }
}

void EliminateRow(const Elimination& work, int64_t row, int64_t column) {
    const BoundedValue first = SystemEntry(work, row, column);
    Divide(work.steps, work.factor, first, SystemEntry(work, column, column));
    ValueNegate(work.factor.value, work.factor.value);
    ZeroBounded(first);
    for (int64_t j = column + 1; j <= work.system.count; j++) {
        AddProduct(work.steps, SystemEntry(work, row, j), work.factor,
                   SystemEntry(work, column, j));
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
        if (IsZero(work.steps, SystemEntry(work, column, column))) {
            continue;
        }
        for (int64_t row = column + 1; row < system.count && !ShouldEnd(); row++) {
            EliminateRow(work, row, column);
        }
    }
}

int64_t CountZeroDiagonals(const Elimination& work) {
    int64_t count = 0;
    for (int64_t i = 0; i < work.system.count; i++) {
        count += IsZero(work.steps, SystemEntry(work, i, i)) ? 1 : 0;
    }
    return count;
}

// unknown i = right side - the sum over the unknowns behind it, not yet divided.
void CollectUnknown(const Elimination& work, int64_t i) {
    const int64_t count = work.system.count;
    CopyBounded(UnknownEntry(work, i, 0), SystemEntry(work, i, count));
    for (int64_t k = 1; k <= work.solution.parameterCount; k++) {
        ZeroBounded(UnknownEntry(work, i, k));
    }
    for (int64_t j = i + 1; j < count; j++) {
        const BoundedValue coefficient = SystemEntry(work, i, j);
        ValueNegate(work.factor.value, coefficient.value);
        *work.factor.error = *coefficient.error;
        for (int64_t k = 0; k <= work.solution.parameterCount; k++) {
            AddProduct(work.steps, UnknownEntry(work, i, k), work.factor, UnknownEntry(work, j, k));
        }
    }
}

void DivideUnknown(const Elimination& work, int64_t i) {
    for (int64_t k = 0; k <= work.solution.parameterCount; k++) {
        const BoundedValue entry = UnknownEntry(work, i, k);
        Divide(work.steps, entry, entry, SystemEntry(work, i, i));
        SnapToZero(work.steps, entry);
    }
}

// False when something is left of a row without a pivot: its constant or a parameter that is there.
// The row is judged by itself, although a choice of the parameters might satisfy it.
bool NothingIsLeft(const Elimination& work, int64_t i, int64_t parameters) {
    for (int64_t k = 0; k <= parameters; k++) {
        if (!IsZero(work.steps, UnknownEntry(work, i, k))) {
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
        } else if (!NothingIsLeft(work, i, parameters)) {
            return LinearOutcome::Unsolvable;
        } else {
            parameters++;
            ValueFromInteger(SolutionValue(work.solution, i, parameters), 1);
        }
    }
    return LinearOutcome::Solved;
}

void RoundUnknowns(const Elimination& work) {
    for (int64_t i = 0; i < work.solution.count; i++) {
        for (int64_t k = 0; k <= work.solution.parameterCount; k++) {
            RoundBounded(work.steps, UnknownEntry(work, i, k));
        }
    }
}

int64_t ValueWords() {
    return static_cast<int64_t>(SizeOfNumber()) / BytesPerWord;
}

Magnitude* TakeErrors(ScratchArea& area, int64_t count) {
    constexpr int64_t Words = sizeof(Magnitude) / BytesPerWord;
    auto* const errors = reinterpret_cast<Magnitude*>(ScratchTake(area, count * Words));
    std::uninitialized_default_construct_n(errors, count);
    return errors;
}

bool ZerosHaveNoError(const LinearSystem& system) {
    for (int64_t row = 0; row < system.count; row++) {
        for (int64_t column = 0; column <= system.count; column++) {
            if (ValueIsZero(SystemValue(system, row, column)) &&
                !IsZero(system.errors[row][column])) {
                return false;
            }
        }
    }
    return true;
}

LinearOutcome Solve(const Elimination& work) {
    SetThresholds(work);
    work.solution.isCertain = ValuesAreExact() || ToleratesNoise(work.steps.digits);
    EliminateForward(work);
    if (ShouldEnd()) {
        return LinearOutcome::Failed;
    }
    work.solution.parameterCount = CountZeroDiagonals(work);
    const LinearOutcome outcome = SubstituteBack(work);
    if (outcome == LinearOutcome::Solved && !ShouldEnd() && !ValuesAreExact()) {
        RoundUnknowns(work);
    }
    return outcome;
}

}  // namespace

LinearSystem TakeLinearSystem(ScratchArea& area, int64_t count) {
    TALLYMERE_REQUIRE(count >= MinUnknowns && count <= MaxUnknowns);
    LinearSystem system = {count, {}, ValueWords(), {}};
    for (int64_t row = 0; row < count; row++) {
        system.rows[row] = ScratchTake(area, (count + 1) * system.valueWords);
        system.errors[row] = TakeErrors(area, count + 1);
        for (int64_t column = 0; column <= count; column++) {
            ValueZero(SystemValue(system, row, column));
        }
    }
    return system;
}

LinearSolution TakeLinearSolution(ScratchArea& area, int64_t count) {
    TALLYMERE_REQUIRE(count >= MinUnknowns && count <= MaxUnknowns);
    LinearSolution solution = {count, 0, {}, ValueWords(), {}, false};
    for (int64_t i = 0; i < count; i++) {
        solution.unknowns[i] = ScratchTake(area, (count + 1) * solution.valueWords);
        solution.errors[i] = TakeErrors(area, count + 1);
    }
    return solution;
}

void ConvertLinearSystem(const LinearSystem& dest, const LinearSystem& source,
                         int64_t sourceDigits) {
    TALLYMERE_REQUIRE(dest.count == source.count && dest.valueWords == ValueWords());
    for (int64_t row = 0; row < dest.count; row++) {
        for (int64_t column = 0; column <= dest.count; column++) {
            ConvertBounded({SystemValue(dest, row, column), &dest.errors[row][column]},
                           {SystemValue(source, row, column), &source.errors[row][column]},
                           sourceDigits);
        }
    }
}

LinearOutcome SolveLinearSystem(LinearSystem& system, LinearSolution& solution, int64_t digits) {
    TALLYMERE_REQUIRE(system.count == solution.count && digits >= 1);
    TALLYMERE_REQUIRE(system.valueWords == ValueWords());
    numberContext.calcError = CalcErrorNone;
    // Without a number type there is not even a place for a value.
    if (SizeOfNumber() == 0) {
        return LinearOutcome::Failed;
    }
    TALLYMERE_REQUIRE(ZerosHaveNoError(system));
    ScratchStackScope scope;
    const auto take = [&] { return scope.Take(system.valueWords); };
    Magnitude errorOfFactor = {};
    const BoundedSteps steps = {digits, RealAt(scope.Take(RealWords())), take(),
                                &solution.isCertain};
    const LinearOutcome outcome =
        Solve({system, solution, steps, {take(), &errorOfFactor}, take(), take(), take()});
    if (StopRequested()) {
        return LinearOutcome::Stopped;
    }
    return numberContext.calcError != CalcErrorNone ? LinearOutcome::Failed : outcome;
}

}  // namespace tallymere
