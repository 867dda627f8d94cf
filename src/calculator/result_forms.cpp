#include "calculator/result_forms.h"

#include <algorithm>
#include <string_view>

#include "core/complex_number.h"
#include "core/digit_text.h"
#include "core/number_bases.h"
#include "exact/rational_number.h"

namespace tallymere {

namespace {

// What a result in automatic form looks like.
enum AutomaticLook { LooksFixed, LooksScientific, LooksMixed };

AutomaticLook LookOfReal(const RealNumber* x) {
    const int64_t exponent = RealExponent(x);
    const bool hasExponent =
        exponent <= AutomaticFixedAbove || exponent >= calculator.calcPrecision;
    return !RealIsSpecial(x) && hasExponent ? LooksScientific : LooksFixed;
}

// A part that is zero is not written, so only the other part counts.
AutomaticLook LookOfComplex(const ComplexNumber* z) {
    if (ComplexIsReal(z)) {
        return LookOfReal(RealPart(z));
    }
    const AutomaticLook imaginary = LookOfReal(ImaginaryPart(z));
    if (RealIsZero(RealPart(z)) || LookOfReal(RealPart(z)) == imaginary) {
        return imaginary;
    }
    return LooksMixed;
}

// A fraction looks like neither of the two notations of decimal numbers.
AutomaticLook LookOfResult() {
    switch (calculator.calcResultType) {
        case NumberTypeReal:
            return LookOfReal(RealAt(calculator.calcResult));
        case NumberTypeComplex:
            return LookOfComplex(ComplexAt(calculator.calcResult));
        case NumberTypeRational:
            return RationalIsInteger(RationalAt(calculator.calcResult)) ? LooksFixed : LooksMixed;
        case NumberTypeUint:
        case NumberTypeNone:
            break;
    }
    return LooksFixed;
}

}  // namespace

ResultForm FormAfterNotationKey() {
    switch (calculator.resultForm) {
        case ResultFixed:
            return LookOfResult() == LooksScientific ? ResultAutomatic : ResultScientific;
        case ResultScientific:
            return ResultAutomatic;
        case ResultAutomatic:
        case ResultMixed:
            break;
    }
    return LookOfResult() == LooksFixed ? ResultScientific : ResultFixed;
}

ResultForm FormAfterMixedKey() {
    return calculator.resultForm != ResultMixed &&
                   !RationalIsInteger(RationalAt(calculator.calcResult))
               ? ResultMixed
               : ResultAutomatic;
}

bool SwitchNotation() {
    if (!calculator.resultValid) {
        return false;
    }
    calculator.resultForm = FormAfterNotationKey();
    return true;
}

bool SwitchMixed() {
    if (!calculator.resultValid || calculator.calcResultType != NumberTypeRational) {
        return false;
    }
    calculator.resultForm = FormAfterMixedKey();
    return true;
}

int32_t ResultDigitCount() {
    if (calculator.calcResultType != NumberTypeUint || calculator.resultForm == ResultScientific) {
        return -1;
    }
    std::u16string_view text = calculator.calcResultText;
    if (const NumberBase* base = FindNumberBase(calculator.calcOutputBase)) {
        text.remove_prefix(std::min(text.size(), static_cast<size_t>(PrefixLength(*base))));
    }
    return static_cast<int32_t>(
        std::count_if(text.begin(), text.end(), [](char16_t c) { return DigitValue(c) >= 0; }));
}

}  // namespace tallymere
