#include "algebra_pages/coefficient_cell.h"

#include <algorithm>
#include <string_view>

#include "core/limits.h"
#include "core/number_setup.h"
#include "core/real_add.h"
#include "core/real_compare.h"
#include "core/real_layout.h"
#include "core/scratch.h"
#include "core/text_flags.h"
#include "formula/formula_evaluation.h"
#include "values/value_operations.h"

namespace tallymere {

namespace {

// The digits that a cell with a part that may be 0 is read with, beyond those in force.
constexpr int64_t DoubtDigits = 38;

CellReading ReadWithDigits(uint64_t* value, const char16_t* text, int64_t digits) {
    NumberSetup setup = CurrentNumberSetup();
    setup.digits = digits;
    const NumberSetupScope numbers(setup);
    return ReadCoefficientCell(value, text);
}

// dest = a value of so many digits, in the layout in force; dest is another one.
void WidenValue(uint64_t* dest, const uint64_t* value, int64_t digits) {
    const RealLayout layout = LayoutForDigits(digits);
    for (int64_t part = 0; part < ValueRealParts(); part++) {
        RealConvertLayout(RealAt(dest + part * RealWords()),
                          RealAt(value + part * (layout.limbs + 1)), layout);
    }
}

// How far x may be off, of which a reading with other digits made `other`.
Magnitude ErrorOfReading(const RealNumber* x, const RealNumber* other) {
    if (RealCompare(x, other) == 0 || (RealIsSpecial(x) && !RealIsZero(x)) ||
        (RealIsSpecial(other) && !RealIsZero(other))) {
        return {};
    }
    ScratchStackScope scope;
    RealNumber* distance = RealAt(scope.Take(RealWords()));
    RealSub(distance, x, other);
    return MagnitudeOf(distance) * MakeMagnitude(2);
}

PartSizes ErrorsOfReading(const uint64_t* value, const uint64_t* other) {
    PartSizes errors = {ErrorOfReading(RealAt(value), RealAt(other)), {}};
    if (ValueRealParts() == 2) {
        errors.imaginary = ErrorOfReading(RealAt(value + RealWords()), RealAt(other + RealWords()));
    }
    return errors;
}

bool MayBeZero(const RealNumber* x, Magnitude error) {
    return !IsZero(error) && !(error < MagnitudeOf(x));
}

// Takes the error of another reading for a part that may be 0, and 0 where it may be that still.
void SettleZero(RealNumber* x, Magnitude& error, Magnitude other) {
    if (!MayBeZero(x, error)) {
        return;
    }
    error = other;
    if (MayBeZero(x, other)) {
        RealSetZero(x, 0);
        error = {};
    }
}

// Reads a cell once more where a part of its value may be 0, and settles whether it is.
void SettleZeros(uint64_t* value, PartSizes* error, const char16_t* text) {
    RealNumber* imaginary = RealAt(value + RealWords());
    const bool isComplex = ValueRealParts() == 2;
    if (!MayBeZero(RealAt(value), error->real) &&
        !(isComplex && MayBeZero(imaginary, error->imaginary))) {
        return;
    }
    NumberSetup setup = CurrentNumberSetup();
    const int64_t digits = setup.digits;
    setup.digits = std::min(digits + DoubtDigits, MaxPrecisionDigits);
    PartSizes other = *error;
    if (setup.digits > digits) {
        const NumberSetupScope numbers(setup);
        ScratchStackScope scope;
        const int64_t words = ValueRealParts() * RealWords();
        uint64_t* wide = scope.Take(words);
        uint64_t* known = scope.Take(words);
        if (ReadCoefficientCell(wide, text).outcome == CellOutcome::Read) {
            WidenValue(known, value, digits);
            other = ErrorsOfReading(known, wide);
        }
    }
    SettleZero(RealAt(value), error->real, other.real);
    if (isComplex) {
        SettleZero(imaginary, error->imaginary, other.imaginary);
    }
}

// Whether x is what rounding left of 0: `again`, the same with more digits, has a smaller exponent.
// By so much, since such a rest is of one or several units of the last place.
bool IsNoise(const RealNumber* x, const RealNumber* again) {
    constexpr int64_t LeastDistance = 3;
    if (RealIsSpecial(x) || (RealIsSpecial(again) && !RealIsZero(again))) {
        return false;
    }
    return RealIsZero(again) || RealExponent(again) < RealExponent(x) - LeastDistance;
}

}  // namespace

CellReading ReadCoefficientCell(uint64_t* value, const char16_t* text) {
    ValueZero(value);
    const std::u16string_view cell = text;
    if (static_cast<int64_t>(cell.size()) > CoefficientCharacters) {
        return {CellOutcome::TooLong, FormulaErrorNone, 0};
    }
    const size_t begin = cell.find_first_not_of(u" \t");
    if (begin == std::u16string_view::npos) {
        return {CellOutcome::Read, FormulaErrorNone, 0};
    }
    FormulaEvaluator evaluator{};
    evaluator.text = text + begin;
    evaluator.flags = TextGroup;
    evaluator.result = value;
    EvaluateFormula(evaluator);
    if (evaluator.error == FormulaErrorNone) {
        return {CellOutcome::Read, FormulaErrorNone, 0};
    }
    return {evaluator.error == FormulaErrorAborted ? CellOutcome::Stopped : CellOutcome::Failed,
            static_cast<FormulaError>(evaluator.error), begin + evaluator.errorPosition};
}

CellReading ReadCellWithoutNoise(uint64_t* value, const char16_t* text) {
    const CellReading reading = ReadCoefficientCell(value, text);
    if (reading.outcome != CellOutcome::Read || ValuesAreExact() || ValueIsZero(value)) {
        return reading;
    }
    const int64_t digits = std::min(CurrentNumberSetup().digits + NoiseDigits, MaxPrecisionDigits);
    const int64_t words = LayoutForDigits(digits).limbs + 1;
    ScratchStackScope scope;
    uint64_t* again = scope.Take(ValueRealParts() * words);
    const CellReading second = ReadWithDigits(again, text, digits);
    for (int64_t part = 0; part < ValueRealParts(); part++) {
        RealNumber* const x = RealAt(value + part * RealWords());
        if (second.outcome == CellOutcome::Read && IsNoise(x, RealAt(again + part * words))) {
            RealSetZero(x, 0);
        }
    }
    return reading;
}

CellReading ReadCellWithError(uint64_t* value, PartSizes* error, const char16_t* text,
                              const CellDigits& digits) {
    *error = {};
    if (ValuesAreExact()) {
        return ReadCoefficientCell(value, text);
    }
    ScratchStackScope scope;
    const int64_t words = ValueRealParts() * RealWords();
    uint64_t* narrow = scope.Take(words);
    uint64_t* before = scope.Take(words);
    const CellReading checked = ReadWithDigits(narrow, text, digits.checked);
    if (checked.outcome != CellOutcome::Read) {
        return checked;
    }
    const CellReading first = ReadWithDigits(narrow, text, digits.before);
    const CellReading second = ReadCoefficientCell(value, text);
    if (first.outcome == CellOutcome::Read && second.outcome == CellOutcome::Read) {
        WidenValue(before, narrow, digits.before);
        *error = ErrorsOfReading(value, before);
        SettleZeros(value, error, text);
        return second;
    }
    if (first.outcome == CellOutcome::Stopped || second.outcome == CellOutcome::Stopped) {
        return first.outcome == CellOutcome::Stopped ? first : second;
    }
    ReadWithDigits(narrow, text, digits.checked);
    WidenValue(value, narrow, digits.checked);
    return checked;
}

}  // namespace tallymere
