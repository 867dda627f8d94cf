#include "algebra_pages/system_run.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "algebra/linear_solution_text.h"
#include "algebra/linear_system.h"
#include "algebra/silent_codes.h"
#include "algebra_pages/coefficient_cell.h"
#include "core/text_flags.h"
#include "layout/decimal_text.h"
#include "shell/scratch_text.h"
#include "shell/text_format.h"
#include "shell/ui_error.h"
#include "shell/ui_message.h"
#include "shell/ui_text.h"
#include "values/value_operations.h"

namespace tallymere {

namespace {

// The digits that the runs behind the first one have beyond those of SystemNumberSetup. No run has
// more than the last ones.
constexpr int64_t ExtraDigits[] = {38, 114, 266, 570, 1178, 2394, 4826, 8826};
static_assert(ExtraDigits[0] == 2 * RoundingNoiseDigits);

// The digits that cells are read with beyond those of SystemNumberSetup and beyond the places
// between the sizes of coefficients and the unit. They hold every number that a cell has room for
// with all its digits. Where a cell needs more, as that of 1/3 does, those of a run come on top.
constexpr int64_t ReadExtraDigits = 1'254;
static_assert(ReadExtraDigits > CoefficientCharacters);
constexpr int64_t MostReadPlaces = 7'600;

constexpr int64_t MostExtraDigits = ExtraDigits[std::size(ExtraDigits) - 1];

// The run whose text the one with LeastExtraDigits may agree with has so many, or as few as these
// where that is less.
constexpr int64_t ComparedExtraDigits = 570;

// What a cell may be read with, so that 38 more are left for one that may be 0.
constexpr int64_t MostReadDigits = MaxPrecisionDigits - 2 * RoundingNoiseDigits;

// Characters of the sentence about parameters, in every language.
constexpr int64_t SentenceCharacters = 200;

enum class RunEnding {
    Shown,
    CellNotRead,    // see RunText
    NotCalculated,  // a CalcError is noted
    NotProven,      // no digits that can be had decide it
    Stopped,
};

// The decimal places that the coefficients take up together, none counted beyond a run's digits.
struct CoefficientPlaces {
    int64_t characters;  // of the longest cell, which is as many digits as one can have
    int64_t above;       // from the unit to the first digit of the largest coefficient
    int64_t below;       // from the unit to the first digit of the smallest one that is not 0
};

// What one run leaves behind: all of its lines, or the cell that it could not read.
struct RunText {
    TextSink text;
    bool lineWasCut;
    bool isCertain;  // all digits of the lines are proven
    CoefficientPlaces places;
    CellReading reading;
    int32_t row;
    int32_t column;
};

RunText TakeRunText(ScratchScope& scope, int32_t count) {
    const int64_t capacity = count * SystemLineCharacters + SentenceCharacters;
    return {{0, capacity, TakeText(scope, capacity)}, false, false, {}, {}, 0, 0};
}

std::u16string_view TextOf(const RunText& run) {
    return {run.text.text, static_cast<size_t>(run.text.count)};
}

void RaiseUnreadCell(const RunText& run, int32_t count) {
    const SystemColumnName name = NameOfSystemColumn(GridColumnOfSystem(run.column, count));
    const DecimalText equation = DecimalTextOf(run.row + 1);
    if (run.reading.outcome == CellOutcome::TooLong) {
        SetUiError(UiErrorEquationCoefficientTooLong, equation.text, name.text);
        return;
    }
    char16_t text[UiErrorArgumentCapacity + 1];
    FormatFormulaError(text, UiErrorArgumentCapacity, run.reading.error, run.reading.errorPosition);
    SetUiError(UiErrorEquationCoefficient, equation.text, name.text, text);
}

void RaiseEnding(const RunText& run, RunEnding ending, int32_t count) {
    switch (ending) {
        case RunEnding::Shown:
            return;
        case RunEnding::CellNotRead:
            RaiseUnreadCell(run, count);
            return;
        case RunEnding::NotCalculated:
            TakeCalcError(UiErrorCalculation);
            return;
        case RunEnding::NotProven:
            SetUiError(UiErrorCalculation);
            return;
        case RunEnding::Stopped:
            SetUiError(UiErrorStopped);
            return;
    }
}

void TakePlacesOf(CoefficientPlaces& places, const char16_t* text, uint64_t* value) {
    places.characters = std::max(places.characters, std::ssize(std::u16string_view(text)));
    for (int64_t part = 0; part < ValueRealParts(); part++) {
        const RealNumber* real = RealAt(value + part * RealWords());
        if (!RealIsZero(real)) {
            const int64_t exponent =
                std::clamp(RealExponent(real), -MaxPrecisionDigits, MaxPrecisionDigits);
            places.above = std::max(places.above, exponent);
            places.below = std::max(places.below, -exponent);
        }
    }
}

// Reads a cell with the digits in force, and beyond `checked` digits with what it may be off.
CellReading ReadCell(const LinearSystem& system, const RunText& run, const char16_t* text,
                     int64_t checked) {
    uint64_t* value = SystemValue(system, run.row, run.column);
    const int64_t digits = numberContext.precisionDigits;
    if (ValuesAreExact() || digits == checked) {
        return ReadCoefficientCell(value, text);
    }
    PartSizes error;
    const CellReading reading = ReadCellWithError(
        value, &error, text, {.checked = checked, .before = digits - RoundingNoiseDigits});
    system.errors[run.row][run.column] = error.real + error.imaginary;
    return reading;
}

RunEnding ReadSystem(RunText& run, const LinearSystem& system, const SystemRequest& request) {
    const int64_t checked = SystemNumberSetup(request).digits;
    ScratchStackScope scope;
    char16_t* text = TakeText(scope, CoefficientCharacters + 1);
    run.places = {};
    for (run.row = 0; run.row < request.count; run.row++) {
        for (run.column = 0; run.column <= request.count; run.column++) {
            request.readCell(request.context, run.row, run.column, text);
            run.reading = ReadCell(system, run, text, checked);
            if (run.reading.outcome == CellOutcome::Stopped || StopRequested()) {
                return RunEnding::Stopped;
            }
            if (run.reading.outcome != CellOutcome::Read) {
                return RunEnding::CellNotRead;
            }
            TakePlacesOf(run.places, text, SystemValue(system, run.row, run.column));
        }
    }
    return RunEnding::Shown;
}

// The line of an unknown, from index 0.
void WriteUnknown(RunText& run, const LinearSolution& solution, int64_t index, uint32_t flags) {
    ScratchStackScope scope;
    const int64_t capacity = UnknownTextCapacity(solution, flags);
    TextWriter unknown = {0, capacity, TakeText(scope, capacity)};
    PrintUnknown(unknown, solution, index, flags);
    WriteChar(unknown, u'\0');
    TextSink line = {0, SystemLineCharacters, TakeText(scope, SystemLineCharacters)};
    FormatIntoSink(line, u"x%d = ", {static_cast<int32_t>(index + 1)});
    SinkText(line, unknown.buffer);
    SinkText(line, u"\r\n");
    EndSinkText(line);
    run.lineWasCut = run.lineWasCut || SinkOverflowed(line);
    SinkText(run.text, line.text);
}

void WriteParameters(RunText& run, const LinearSolution& solution) {
    if (solution.parameterCount == 0) {
        return;
    }
    char16_t names[ParameterListCharacters + 1];
    TextWriter list = {0, ParameterListCharacters, names};
    ListParameters(list, solution);
    names[list.position] = 0;
    FormatIntoSink(run.text,
                   solution.parameterCount == 1 ? uiText.TextLinParameterVariableFreelySelectable
                                                : uiText.TextLinParameterVariablesAreFreely,
                   {names});
}

void WriteSolution(RunText& run, const LinearSolution& solution, uint32_t flags) {
    for (int64_t i = 0; i < solution.count; i++) {
        WriteUnknown(run, solution, i, flags);
    }
    WriteParameters(run, solution);
}

// Solves a system with the number setup in force; overwrites it.
RunEnding SolveSystem(RunText& run, LinearSystem& system, const SystemRequest& request) {
    run.text.count = 0;
    run.lineWasCut = false;
    ScratchStackScope scope;
    LinearSolution solution = TakeLinearSolution(CurrentScratchStack(), request.count);
    switch (SolveLinearSystem(system, solution, request.digits)) {
        case LinearOutcome::Failed:
            return RunEnding::NotCalculated;
        case LinearOutcome::Stopped:
            return RunEnding::Stopped;
        case LinearOutcome::Unsolvable:
            SinkText(run.text, uiText.TextLinEquationSystemUnsolvable);
            break;
        case LinearOutcome::Solved:
            WriteSolution(run, solution, request.grouped ? uint32_t{TextGroup} : 0);
            break;
    }
    EndSinkText(run.text);
    run.isCertain = solution.isCertain;
    return RunEnding::Shown;
}

// The first run, with the digits of SystemNumberSetup. What fails here is what fails.
RunEnding SolveFirst(RunText& run, const SystemRequest& request) {
    ScratchStackScope scope;
    LinearSystem system = TakeLinearSystem(CurrentScratchStack(), request.count);
    const RunEnding reading = ReadSystem(run, system, request);
    return reading == RunEnding::Shown ? SolveSystem(run, system, request) : reading;
}

// The least digits beyond those of SystemNumberSetup that a run has whose text may agree with
// another one. Seen as integers over a common power of ten, typed coefficients have as many digits
// as their places; what the elimination finds is a quotient of determinants, of `count` times as
// many. So much is carried that a value which is not 0 does not come out as one, that what is left
// of a 0 is below 10^-digits, and that different candidates for a pivot differ in front of the
// noise. Moduli are compared by their squares, which have twice the digits.
//
// Where that is more than any run has, or than a formula such as 1/3 can be worth, fewer do; but
// never fewer than bring the rounding errors of the largest coefficient below 10^-digits.
int64_t LeastExtraDigits(const CoefficientPlaces& places, bool isExact,
                         const SystemRequest& request) {
    const int64_t scale = places.above + places.below;
    const int64_t digits =
        (request.type == NumberTypeComplex ? 2 : 1) * request.count * (places.characters + scale);
    const int64_t enough =
        std::min(isExact ? MostExtraDigits : ReadExtraDigits + scale, MostExtraDigits);
    return std::max(std::min(2 * RoundingNoiseDigits + digits, enough),
                    2 * RoundingNoiseDigits + scale);
}

bool IsKnownExactly(const LinearSystem& system) {
    for (int64_t row = 0; row < system.count; row++) {
        const Magnitude* errors = system.errors[row];
        if (!std::all_of(errors, errors + system.count + 1,
                         [](Magnitude e) { return IsZero(e); })) {
            return false;
        }
    }
    return true;
}

RunEnding SolveWithDigits(RunText& run, const SystemRequest& request, const LinearSystem& read,
                          const NumberSetup& readSetup, int64_t digits) {
    NumberSetup setup = readSetup;
    setup.digits = digits;
    const NumberSetupScope numbers(setup);
    const SilentCodesScope silence;
    ScratchStackScope scope;
    LinearSystem system = TakeLinearSystem(CurrentScratchStack(), request.count);
    ConvertLinearSystem(system, read, readSetup.digits);
    return SolveSystem(run, system, request);
}

// What the cells are read with for a run with so many extra digits.
NumberSetup ReadingSetup(const CoefficientPlaces& places, int64_t extra,
                         const SystemRequest& request) {
    NumberSetup setup = SystemNumberSetup(request);
    const int64_t beyond = extra == ExtraDigits[0] ? 0 : extra;
    setup.digits +=
        ReadExtraDigits + beyond + std::min(places.above + places.below, MostReadPlaces);
    setup.digits = std::min(setup.digits, MostReadDigits);
    return setup;
}

// The next one of ExtraDigits behind index k that is worth a run.
size_t NextRun(size_t k, int64_t least) {
    do {
        k++;
    } while (k < std::size(ExtraDigits) && ExtraDigits[k] < std::min(least, ComparedExtraDigits));
    return k;
}

// Solves the system with more and more digits until a run is certain, or the text of two runs is
// the same. `shown` has the text of the first run, and then that of the last one that succeeded.
// Coefficients that no reading gives exactly are read anew for each run whose text may agree with
// another one, with more digits, so that two do not agree on what one reading is off.
RunEnding SolveUntilCertain(RunText& shown, RunText& next, const SystemRequest& request) {
    const int64_t digits = SystemNumberSetup(request).digits;
    CoefficientPlaces places = shown.places;
    for (size_t k = 0; k < std::size(ExtraDigits);) {
        const NumberSetup setup = ReadingSetup(places, ExtraDigits[k], request);
        const NumberSetupScope numbers(setup);
        ScratchStackScope scope;
        const LinearSystem read = TakeLinearSystem(CurrentScratchStack(), request.count);
        {
            const SilentCodesScope silence;
            if (ReadSystem(next, read, request) == RunEnding::Stopped) {
                return RunEnding::Stopped;
            }
        }
        places = next.places;
        const bool isExact = IsKnownExactly(read);
        const int64_t least = LeastExtraDigits(places, isExact, request);
        do {
            const int64_t extra = ExtraDigits[k];
            const RunEnding ending = SolveWithDigits(next, request, read, setup, digits + extra);
            if (ending != RunEnding::Shown) {
                return ending == RunEnding::Stopped ? ending : RunEnding::Shown;
            }
            std::swap(shown, next);
            if (shown.isCertain || (extra >= least && TextOf(shown) == TextOf(next))) {
                return RunEnding::Shown;
            }
            k = NextRun(k, least);
        } while (k < std::size(ExtraDigits) && (isExact || ExtraDigits[k] < least));
    }
    return RunEnding::NotProven;
}

}  // namespace

NumberSetup SystemNumberSetup(const SystemRequest& request) {
    return {.type = request.type,
            .digits = request.count / 4 + 2 + request.digits,
            .width = FractionWidth};
}

void RunSystem(const SystemRequest& request, TakeSystemText take, void* takeContext) {
    if (request.count < MinEquationCount || request.count > MaxEquationCount) {
        SetUiError(UiErrorInternal);
        return;
    }
    const NumberSetupScope numbers(SystemNumberSetup(request));
    ScratchStackScope scope;
    RunText shown = TakeRunText(scope, request.count);
    RunText next = TakeRunText(scope, request.count);
    RunEnding ending = SolveFirst(shown, request);
    if (ending == RunEnding::Shown && !ValuesAreExact()) {
        ending = SolveUntilCertain(shown, next, request);
    }
    if (ending != RunEnding::Shown) {
        RaiseEnding(shown, ending, request.count);
        return;
    }
    take(takeContext, shown.text.text);
    if (shown.lineWasCut) {
        SetUiError(UiErrorTextOverflow);
    }
}

}  // namespace tallymere
