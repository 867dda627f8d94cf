#include "calculator/result_text.h"

#include "calculator/calculator_state.h"
#include "calculator/mixed_fraction.h"
#include "core/limits.h"
#include "core/number_bases.h"
#include "core/real_rounding.h"
#include "core/real_text.h"
#include "core/scratch.h"
#include "core/text_flags.h"
#include "shell/ui_error.h"
#include "shell/ui_text.h"
#include "values/exact_conversions.h"
#include "values/number_text.h"

namespace tallymere {

namespace {

// The flags for the notation of a result in base 10; for automatic notation its window as well,
// within the scope of the caller.
uint32_t PrepareNotation() {
    switch (calculator.resultForm) {
        case ResultFixed:
            return TextFixed | TextStripZeros;
        case ResultScientific:
            return TextScientific | TextStripZeros;
        case ResultAutomatic:
        case ResultMixed:
            break;
    }
    SetNotationWindow({AutomaticFixedAbove, calculator.calcPrecision});
    return 0;
}

// An integer in a base that has a prefix.
void WriteBasedResult(const NumberBase& base, uint32_t flags, bool lowerCaseHex) {
    char16_t* text = calculator.calcResultText;
    text[0] = u'0';
    text[1] = base.prefixLetter;
    flags |= static_cast<uint32_t>(base.base);
    if (HasLetterDigits(base) && lowerCaseHex) {
        flags |= TextLowerHex;
    }
    NumberToText(text + NumberPrefixCharacters, CalcResultCharacters - NumberPrefixCharacters,
                 calculator.calcResult, flags);
}

// A fraction as a real number of the precision setting.
void WriteFractionAsReal(const RationalNumber* q, uint32_t flags) {
    ScratchStackScope scope;
    RealNumber* x = RealAt(scope.Take(RealWords()));
    RealFromRational(x, q);
    RealRoundDigitsAny(x, x, calculator.calcPrecision);
    TextWriter writer = {0, CalcResultCharacters, calculator.calcResultText};
    RealToText(writer, x, flags);
    FinishNumberText(writer, flags);
}

void WriteFraction(uint32_t flags) {
    const RationalNumber* q = RationalAt(calculator.calcResult);
    switch (calculator.resultForm) {
        case ResultFixed:
        case ResultScientific:
            WriteFractionAsReal(q, flags);
            return;
        case ResultMixed:
            if (!RationalIsInteger(q)) {
                MixedFractionToText(calculator.calcResultText, CalcResultCharacters, q, flags);
                return;
            }
            break;
        case ResultAutomatic:
            break;
    }
    NumberToText(calculator.calcResultText, CalcResultCharacters, calculator.calcResult, flags);
}

}  // namespace

const char16_t* ShowResult(const ResultStyle& style) {
    calculator.calcResultText[0] = 0;
    if (PendingUiError() != UiErrorNone) {
        return nullptr;
    }
    const NumberSetupScope scope;
    const uint32_t flags = style.groupDigits ? uint32_t{TextGroup} : 0;
    const NumberBase* base = FindNumberBase(calculator.calcOutputBase);
    if (calculator.calcResultType == NumberTypeUint && base != nullptr && PrefixLength(*base) > 0) {
        WriteBasedResult(*base, flags, style.lowerCaseHex);
    } else if (calculator.calcResultType == NumberTypeRational) {
        WriteFraction(flags | PrepareNotation());
    } else {
        NumberToText(calculator.calcResultText, CalcResultCharacters, calculator.calcResult,
                     flags | PrepareNotation());
    }
    if (numberContext.calcError != CalcErrorTextTooLong) {
        return calculator.calcResultText;
    }
    calculator.calcResultText[0] = 0;
    numberContext.calcError = CalcErrorNone;
    return uiText.TextCalcNumberTooLongFixed;
}

const char16_t* FinishCalculation(const ResultStyle& style) {
    if (PendingUiError() != UiErrorNone) {
        MarkResultStale();
        return nullptr;
    }
    const char16_t* shown = ShowResult(style);
    calculator.ansAvailable = true;
    calculator.resultValid = true;
    calculator.formulaTouched = false;
    return shown;
}

}  // namespace tallymere
