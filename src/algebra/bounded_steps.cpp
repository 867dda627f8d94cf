#include "algebra/bounded_steps.h"

#include <algorithm>
#include <limits>

#include "algebra/enclosed_rounding.h"
#include "algebra/polynomial.h"
#include "core/limits.h"
#include "core/real_add.h"
#include "core/real_integer.h"
#include "core/real_multiply.h"
#include "core/scratch.h"
#include "values/value_operations.h"

namespace tallymere {

namespace {

// An operation rounds six times at most, in a quotient in cplx, by half a unit in the last digit of
// its result, or of the larger operand of a sum. A hundred units are far more than that adds up to.
constexpr int64_t RoundingDigits = 2;

bool BoundsErrors(const BoundedSteps& steps) {
    return *steps.isCertain && !ValuesAreExact() && numberContext.calcError == CalcErrorNone;
}

void NoteDecision(const BoundedSteps& steps, bool isSure) {
    *steps.isCertain = *steps.isCertain && isSure;
}

// 10^exponent units of the last digit of a number that begins at the unit.
Magnitude RoundingOf(int64_t exponent) {
    return MakeMagnitude(1, exponent + 1 - numberContext.precisionDigits);
}

Magnitude SizeOf(const uint64_t* value) {
    return ValueRealParts() == 2 ? MagnitudeOf(ComplexAt(value)) : MagnitudeOf(RealAt(value));
}

Magnitude ErrorOfSum(const BoundedValue& a, const BoundedValue& factor, const BoundedValue& b) {
    const Magnitude times = SizeOf(factor.value);
    const Magnitude size = SizeOf(b.value) + *b.error;
    return *a.error + times * *b.error + *factor.error * size +
           RoundingOf(RoundingDigits) * (SizeOf(a.value) + times * size);
}

// dest = |a|^2 - |b|^2
void SubtractSquares(RealNumber* dest, const uint64_t* a, const uint64_t* b) {
    ScratchStackScope scope;
    RealNumber* sum = RealAt(scope.Take(RealWords()));
    RealNumber* difference = RealAt(scope.Take(RealWords()));
    RealSetZero(dest, 0);
    for (int64_t part = 0; part < ValueRealParts(); part++) {
        const RealNumber* x = RealAt(a + part * RealWords());
        const RealNumber* y = RealAt(b + part * RealWords());
        RealAdd(sum, x, y);
        RealSub(difference, x, y);
        RealMul(difference, difference, sum);
        RealAdd(dest, dest, difference);
    }
}

// Whether the exponents of all parts lie so close together that no sum or difference of two of them
// has more than twice the digits in force.
bool PartsAreNear(const BoundedValue& a, const BoundedValue& b) {
    int64_t least = std::numeric_limits<int64_t>::max();
    int64_t most = std::numeric_limits<int64_t>::min();
    for (const uint64_t* value : {a.value, b.value}) {
        for (int64_t part = 0; part < ValueRealParts(); part++) {
            const RealNumber* x = RealAt(value + part * RealWords());
            if (!RealIsZero(x)) {
                least = std::min(least, RealExponent(x));
                most = std::max(most, RealExponent(x));
            }
        }
    }
    return least > most || most - least < numberContext.precisionDigits;
}

// True when two values are proven to have the same modulus, as the exact numbers that they are.
// Products of sums of parts that are near have no more than four times their digits.
bool HaveEqualModuli(const BoundedValue& a, const BoundedValue& b) {
    const int64_t digits = numberContext.precisionDigits;
    const int64_t wideDigits = 4 * digits + 4;
    if (wideDigits > MaxPrecisionDigits || !PartsAreNear(a, b)) {
        return false;
    }
    const int64_t words = RealWords();
    const DigitsScope wide(wideDigits);
    ScratchStackScope scope;
    const auto widen = [&](const uint64_t* value) {
        uint64_t* widened = scope.Take(ValueRealParts() * RealWords());
        for (int64_t part = 0; part < ValueRealParts(); part++) {
            RealConvertPrecision(RealAt(widened + part * RealWords()), wideDigits,
                                 RealAt(value + part * words), digits);
        }
        return widened;
    };
    const uint64_t* ofA = widen(a.value);
    const uint64_t* ofB = widen(b.value);
    RealNumber* difference = RealAt(scope.Take(RealWords()));
    SubtractSquares(difference, ofA, ofB);
    return RealIsZero(difference);
}

// True when the squares of two moduli differ by more than the errors and the noise can do.
bool HaveUnequalModuli(const BoundedValue& a, const BoundedValue& b) {
    ScratchStackScope scope;
    RealNumber* difference = RealAt(scope.Take(RealWords()));
    SubtractSquares(difference, a.value, b.value);
    const Magnitude sum = SizeOf(a.value) + SizeOf(b.value);
    const Magnitude error = *a.error + *b.error;
    const Magnitude bound = (sum + error) * error + sum * sum * RoundingOf(RoundingNoiseDigits + 1);
    return IsSurelyBelow(bound, MagnitudeOf(difference));
}

// Two equal values are known to be that when both are known exactly.
bool OrderIsSure(const BoundedValue& a, const BoundedValue& b) {
    if (HaveUnequalModuli(a, b)) {
        return true;
    }
    return IsZero(*a.error) && IsZero(*b.error) && HaveEqualModuli(a, b);
}

// Whether all that a value may be rounds alike, and also what lies within the noise beside it.
bool RoundingIsSure(const BoundedSteps& steps, const BoundedValue& a) {
    // The bound itself is a rounded one.
    const Magnitude bound = *a.error * MakeMagnitude(2);
    ScratchStackScope scope;
    RealNumber* rounded = RealAt(scope.Take(RealWords()));
    for (int64_t part = 0; part < ValueRealParts(); part++) {
        const RealNumber* x = RealAt(a.value + part * RealWords());
        if (RealIsZero(x)) {
            continue;
        }
        const int64_t noise =
            RealExponent(x) + RoundingNoiseDigits + 1 - numberContext.precisionDigits;
        const int64_t error = IsZero(bound) ? noise : std::max(noise, bound.exponent + 1);
        if (!RoundsAlike(rounded, x, error, steps.digits)) {
            return false;
        }
    }
    return true;
}

}  // namespace

bool ToleratesNoise(int64_t digits) {
    return numberContext.precisionDigits >= digits + 2 * RoundingNoiseDigits;
}

void CopyBounded(const BoundedValue& dest, const BoundedValue& source) {
    ValueCopy(dest.value, source.value);
    *dest.error = *source.error;
}

void ZeroBounded(const BoundedValue& dest) {
    ValueZero(dest.value);
    *dest.error = {};
}

void AddProduct(const BoundedSteps& steps, const BoundedValue& a, const BoundedValue& factor,
                const BoundedValue& b) {
    if (!ValueIsZero(factor.value) && !ValueIsZero(b.value)) {
        if (BoundsErrors(steps)) {
            *a.error = ErrorOfSum(a, factor, b);
        }
        ValueMultiply(steps.product, factor.value, b.value);
        ValueAdd(a.value, a.value, steps.product);
    }
    SnapToZero(steps, a);
}

void Divide(const BoundedSteps& steps, const BoundedValue& quotient, const BoundedValue& a,
            const BoundedValue& divisor) {
    if (!BoundsErrors(steps)) {
        ValueDivide(quotient.value, a.value, divisor.value);
        return;
    }
    const Magnitude errorOfA = *a.error;
    const Magnitude errorOfDivisor = *divisor.error;
    const Magnitude sizeOfDivisor = SizeOf(divisor.value);
    // Otherwise their difference would have no digits to rely on.
    NoteDecision(steps, IsSurelyBelow(errorOfDivisor * MakeMagnitude(2), sizeOfDivisor));
    ValueDivide(quotient.value, a.value, divisor.value);
    if (BoundsErrors(steps)) {
        const Magnitude size = SizeOf(quotient.value);
        *quotient.error =
            (errorOfA + size * errorOfDivisor) / Excess(sizeOfDivisor, errorOfDivisor) +
            RoundingOf(RoundingDigits) * size;
    }
}

// What is surely below epsilon is 0; what is surely not stays.
void SnapToZero(const BoundedSteps& steps, const BoundedValue& a) {
    if (BoundsErrors(steps)) {
        const Magnitude least = MakeMagnitude(1, -steps.digits);
        for (int64_t part = 0; part < ValueRealParts(); part++) {
            const Magnitude size = MagnitudeOf(RealAt(a.value + part * RealWords()));
            NoteDecision(steps, IsSurelyBelow(size + *a.error, least) ||
                                    IsSurelyBelow(least + *a.error, size));
        }
    }
    SnapToZero(a.value, steps.epsilon);
    if (ValueIsZero(a.value)) {
        *a.error = {};
    }
}

bool IsZero(const BoundedSteps& steps, const BoundedValue& a) {
    if (ValueIsZero(a.value)) {
        return true;
    }
    if (BoundsErrors(steps)) {
        NoteDecision(steps, IsSurelyBelow(*a.error, SizeOf(a.value)));
    }
    return false;
}

void NoteOrder(const BoundedSteps& steps, const BoundedValue& a, const BoundedValue& b) {
    if (BoundsErrors(steps)) {
        NoteDecision(steps, OrderIsSure(a, b));
    }
}

void RoundBounded(const BoundedSteps& steps, const BoundedValue& a) {
    if (BoundsErrors(steps)) {
        NoteDecision(steps, RoundingIsSure(steps, a));
    }
    if (ToleratesNoise(steps.digits)) {
        NumberRoundDigits(a.value, a.value, numberContext.precisionDigits - RoundingNoiseDigits);
    }
    NumberRoundDigits(a.value, a.value, steps.digits);
}

void ConvertBounded(const BoundedValue& dest, const BoundedValue& source, int64_t sourceDigits) {
    const int64_t sourceWords = LayoutForDigits(sourceDigits).limbs + 1;
    ScratchStackScope scope;
    uint64_t* back = scope.Take(sourceWords);
    *dest.error = *source.error;
    for (int64_t part = 0; part < ValueRealParts(); part++) {
        RealNumber* narrow = RealAt(dest.value + part * RealWords());
        const uint64_t* wide = source.value + part * sourceWords;
        RealConvertPrecision(narrow, numberContext.precisionDigits, RealAt(wide), sourceDigits);
        RealConvertPrecision(RealAt(back), sourceDigits, narrow, numberContext.precisionDigits);
        if (!std::equal(back, back + sourceWords, wide)) {
            *dest.error = *dest.error + MagnitudeOf(narrow) * RoundingOf(0);
        }
    }
}

}  // namespace tallymere
