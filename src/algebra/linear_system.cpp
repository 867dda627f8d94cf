#include "algebra/linear_system.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "algebra/enclosed_rounding.h"
#include "core/real_add.h"
#include "core/real_integer.h"
#include "core/real_layout.h"
#include "values/value_operations.h"

namespace tallymere {

namespace {

// The errors of a step are bounded by a hundred units in the last digit of its result, or of the
// larger operand of a sum. An operation on values errs by ten at most, a quotient in cplx by
// thirty.
constexpr int64_t RoundingDigits = 2;

// A value, and how far it may be off.
struct Entry {
    uint64_t* value;
    Magnitude* error;
};

// What the steps work with beside the system and the solution.
struct Elimination {
    LinearSystem& system;
    LinearSolution& solution;
    int64_t digits;
    RealNumber* epsilon;  // what is below is 0
    uint64_t* slack;      // a candidate is larger when it is so many times larger
    Entry factor;
    uint64_t* product;
    uint64_t* magnitude;
    uint64_t* bound;
    Magnitude rounding;  // what the result of a step may be off, relatively
};

Entry SystemEntry(const Elimination& work, int64_t row, int64_t column) {
    return {SystemValue(work.system, row, column), &work.system.errors[row][column]};
}

Entry UnknownEntry(const Elimination& work, int64_t unknown, int64_t index) {
    return {SolutionValue(work.solution, unknown, index), &work.solution.errors[unknown][index]};
}

void CopyEntry(const Entry& dest, const Entry& source) {
    ValueCopy(dest.value, source.value);
    *dest.error = *source.error;
}

void ZeroEntry(const Entry& entry) {
    ValueZero(entry.value);
    *entry.error = {};
}

// Behind a decision that is not certain no bound is of use, and behind a code there may be no
// finite number.
bool BoundsErrors(const Elimination& work) {
    return work.solution.isCertain && !ValuesAreExact() && numberContext.calcError == CalcErrorNone;
}

// So many powers of ten of the last digit of a number, beside its first one.
Magnitude RoundingOf(int64_t exponent) {
    return MakeMagnitude(1, exponent + 1 - numberContext.precisionDigits);
}

Magnitude SizeOf(const uint64_t* value) {
    return ValueRealParts() == 2 ? MagnitudeOf(ComplexAt(value)) : MagnitudeOf(RealAt(value));
}

void NoteDecision(const Elimination& work, bool isSure) {
    work.solution.isCertain = work.solution.isCertain && isSure;
}

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

// Each part of a value that is surely below epsilon is 0; what is surely not stays.
void SnapEntry(const Elimination& work, const Entry& a) {
    if (BoundsErrors(work)) {
        const Magnitude least = MakeMagnitude(1, -work.digits);
        for (int64_t part = 0; part < ValueRealParts(); part++) {
            const Magnitude size = MagnitudeOf(RealAt(a.value + part * RealWords()));
            NoteDecision(work, IsSurelyBelow(size + *a.error, least) ||
                                   IsSurelyBelow(least, Excess(size, *a.error)));
        }
    }
    SnapToZero(a.value, work.epsilon);
    if (ValueIsZero(a.value)) {
        *a.error = {};
    }
}

bool EntryIsZero(const Elimination& work, const Entry& a) {
    if (ValueIsZero(a.value)) {
        return true;
    }
    if (BoundsErrors(work)) {
        NoteDecision(work, IsSurelyBelow(*a.error, SizeOf(a.value)));
    }
    return false;
}

// The error of a value that is found as a sum of the values a and factor * b.
Magnitude ErrorOfSum(const Elimination& work, const Entry& a, const Entry& b) {
    const Magnitude factor = SizeOf(work.factor.value);
    const Magnitude size = SizeOf(b.value) + *b.error;
    return *a.error + factor * *b.error + *work.factor.error * size +
           work.rounding * (SizeOf(a.value) + factor * size);
}

// a += factor * b, and what is below epsilon becomes 0, also where nothing is added.
void AddProduct(const Elimination& work, const Entry& a, const Entry& b) {
    if (!ValueIsZero(work.factor.value) && !ValueIsZero(b.value)) {
        if (BoundsErrors(work)) {
            *a.error = ErrorOfSum(work, a, b);
        }
        ValueMultiply(work.product, work.factor.value, b.value);
        ValueAdd(a.value, a.value, work.product);
    }
    SnapEntry(work, a);
}

// quotient = a / divisor, for which EntryIsZero is false; quotient may be a.
void DivideEntry(const Elimination& work, const Entry& quotient, const Entry& a,
                 const Entry& divisor) {
    const Magnitude errorOfA = *a.error;
    const Magnitude errorOfDivisor = *divisor.error;
    const Magnitude least =
        BoundsErrors(work) ? Excess(SizeOf(divisor.value), errorOfDivisor) : Magnitude();
    ValueDivide(quotient.value, a.value, divisor.value);
    if (BoundsErrors(work)) {
        const Magnitude size = SizeOf(quotient.value);
        *quotient.error = (errorOfA + size * errorOfDivisor) / least + work.rounding * size;
    }
}

// Whether the first of two candidates for a pivot is surely the larger one or not. Two equal ones
// are known to be that when both are known exactly; equal moduli may be those of different numbers.
bool OrderIsSure(const Elimination& work, const Entry& a, const Entry& b) {
    const Magnitude sizeOfA = SizeOf(a.value);
    const Magnitude sizeOfB = SizeOf(b.value);
    if (IsSurelyBelow(sizeOfA + *a.error, Excess(sizeOfB, *b.error)) ||
        IsSurelyBelow(sizeOfB + *b.error, Excess(sizeOfA, *a.error))) {
        return true;
    }
    if (!IsZero(*a.error) || !IsZero(*b.error)) {
        return false;
    }
    if (ValueRealParts() == 2) {
        return ValueIsZero(a.value) && ValueIsZero(b.value);
    }
    ValueAbs(work.product, a.value);
    ValueAbs(work.magnitude, b.value);
    return ValueCompare(work.product, work.magnitude, false) == 0;
}

// Puts the row with the largest magnitude in a column into the place of the pivot. The first of
// several equal ones stays in front.
void ChoosePivot(const Elimination& work, int64_t column) {
    LinearSystem& system = work.system;
    ValueAbs(work.magnitude, SystemValue(system, column, column));
    ValueMultiply(work.bound, work.magnitude, work.slack);
    for (int64_t row = column + 1; row < system.count; row++) {
        if (BoundsErrors(work)) {
            NoteDecision(work, OrderIsSure(work, SystemEntry(work, column, column),
                                           SystemEntry(work, row, column)));
        }
        ValueAbs(work.magnitude, SystemValue(system, row, column));
        if (ValueCompare(work.magnitude, work.bound, false) > 0) {
            std::swap(system.rows[column], system.rows[row]);
            std::swap(system.errors[column], system.errors[row]);
            ValueMultiply(work.bound, work.magnitude, work.slack);
        }
    }
}

void EliminateRow(const Elimination& work, int64_t row, int64_t column) {
    const Entry first = SystemEntry(work, row, column);
    DivideEntry(work, work.factor, first, SystemEntry(work, column, column));
    ValueNegate(work.factor.value, work.factor.value);
    ZeroEntry(first);
    for (int64_t j = column + 1; j <= work.system.count; j++) {
        AddProduct(work, SystemEntry(work, row, j), SystemEntry(work, column, j));
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
        if (EntryIsZero(work, SystemEntry(work, column, column))) {
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
        count += EntryIsZero(work, SystemEntry(work, i, i)) ? 1 : 0;
    }
    return count;
}

// unknown i = right side - the sum over the unknowns behind it, not yet divided.
void CollectUnknown(const Elimination& work, int64_t i) {
    const int64_t count = work.system.count;
    CopyEntry(UnknownEntry(work, i, 0), SystemEntry(work, i, count));
    for (int64_t k = 1; k <= work.solution.parameterCount; k++) {
        ZeroEntry(UnknownEntry(work, i, k));
    }
    for (int64_t j = i + 1; j < count; j++) {
        const Entry coefficient = SystemEntry(work, i, j);
        ValueNegate(work.factor.value, coefficient.value);
        *work.factor.error = *coefficient.error;
        for (int64_t k = 0; k <= work.solution.parameterCount; k++) {
            AddProduct(work, UnknownEntry(work, i, k), UnknownEntry(work, j, k));
        }
    }
}

void DivideUnknown(const Elimination& work, int64_t i) {
    for (int64_t k = 0; k <= work.solution.parameterCount; k++) {
        const Entry entry = UnknownEntry(work, i, k);
        DivideEntry(work, entry, entry, SystemEntry(work, i, i));
        SnapEntry(work, entry);
    }
}

// False when something is left of a row without a pivot: its constant or a parameter that is there.
// The row is judged by itself, although a choice of the parameters might satisfy it.
bool NothingIsLeft(const Elimination& work, int64_t i, int64_t parameters) {
    for (int64_t k = 0; k <= parameters; k++) {
        if (!EntryIsZero(work, UnknownEntry(work, i, k))) {
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

// Whether all that a value may be rounds alike, and also what lies within the noise beside it.
bool RoundingIsSure(const Elimination& work, const Entry& entry) {
    ScratchStackScope scope;
    RealNumber* rounded = RealAt(scope.Take(RealWords()));
    for (int64_t part = 0; part < ValueRealParts(); part++) {
        const RealNumber* x = RealAt(entry.value + part * RealWords());
        if (RealIsZero(x)) {
            continue;
        }
        const int64_t noise =
            RealExponent(x) + RoundingNoiseDigits + 1 - numberContext.precisionDigits;
        const int64_t error = IsZero(*entry.error) ? noise : entry.error->exponent + 1;
        if (!RoundsAlike(rounded, x, std::max(noise, error), work.digits)) {
            return false;
        }
    }
    return true;
}

// With tolerance a value is first rounded to the digits without noise, so that one that would be a
// tie but for rounding errors is rounded as a tie.
void RoundUnknown(const Elimination& work, const Entry& entry) {
    if (BoundsErrors(work)) {
        NoteDecision(work, RoundingIsSure(work, entry));
    }
    if (ToleratesNoise(work.digits)) {
        NumberRoundDigits(entry.value, entry.value,
                          numberContext.precisionDigits - RoundingNoiseDigits);
    }
    NumberRoundDigits(entry.value, entry.value, work.digits);
}

void RoundUnknowns(const Elimination& work) {
    for (int64_t i = 0; i < work.solution.count; i++) {
        for (int64_t k = 0; k <= work.solution.parameterCount; k++) {
            RoundUnknown(work, UnknownEntry(work, i, k));
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

// dest = a value of so many digits, rounded to the layout in force. Returns what that takes away at
// most.
Magnitude ConvertValue(uint64_t* dest, const uint64_t* source, int64_t sourceDigits) {
    const int64_t sourceWords = LayoutForDigits(sourceDigits).limbs + 1;
    ScratchStackScope scope;
    uint64_t* back = scope.Take(sourceWords);
    Magnitude error = {};
    for (int64_t part = 0; part < ValueRealParts(); part++) {
        RealNumber* narrow = RealAt(dest + part * RealWords());
        const uint64_t* wide = source + part * sourceWords;
        RealConvertPrecision(narrow, numberContext.precisionDigits, RealAt(wide), sourceDigits);
        RealConvertPrecision(RealAt(back), sourceDigits, narrow, numberContext.precisionDigits);
        if (!std::equal(back, back + sourceWords, wide)) {
            error = error + MagnitudeOf(narrow) * RoundingOf(0);
        }
    }
    return error;
}

LinearOutcome Solve(const Elimination& work) {
    SetThresholds(work);
    work.solution.isCertain = ValuesAreExact() || ToleratesNoise(work.digits);
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
            dest.errors[row][column] = source.errors[row][column] +
                                       ConvertValue(SystemValue(dest, row, column),
                                                    SystemValue(source, row, column), sourceDigits);
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
    ScratchStackScope scope;
    const auto take = [&] { return scope.Take(system.valueWords); };
    Magnitude errorOfFactor = {};
    const LinearOutcome outcome = Solve({system,
                                         solution,
                                         digits,
                                         RealAt(scope.Take(RealWords())),
                                         take(),
                                         {take(), &errorOfFactor},
                                         take(),
                                         take(),
                                         take(),
                                         RoundingOf(RoundingDigits)});
    if (StopRequested()) {
        return LinearOutcome::Stopped;
    }
    return numberContext.calcError != CalcErrorNone ? LinearOutcome::Failed : outcome;
}

}  // namespace tallymere
