#include "calculator/result_text.h"

#include "calculator/calculator_state.h"
#include "calculator/mixed_fraction.h"
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
        default:
            SetNotationWindow({AutomaticFixedAbove, calculator.calcPrecision});
            return 0;
    }
}

// The letter behind the "0" before a number in a base other than 10.
char16_t PrefixLetter(int64_t base) {
    return base == 2 ? u'y' : base == 8 ? u't' : u'x';
}

void WriteBasedResult(uint32_t flags, bool lowerCaseHex) {
    const int64_t base = calculator.calcOutputBase;
    char16_t* text = calculator.calcResultText;
    text[0] = u'0';
    text[1] = PrefixLetter(base);
    flags |= static_cast<uint32_t>(base);
    if (base == 16 && lowerCaseHex) {
        flags |= TextLowerHex;
    }
    NumberToText(text + 2, CalcResultCharacters - 2, calculator.calcResult, flags);
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
            break;
        case ResultMixed:
            if (!RationalIsInteger(q)) {
                MixedFractionToText(calculator.calcResultText, CalcResultCharacters, q, flags);
                break;
            }
            [[fallthrough]];
        default:
            NumberToText(calculator.calcResultText, CalcResultCharacters, calculator.calcResult,
                         flags);
    }
}

}  // namespace

const char16_t* ShowResult(const ResultStyle& style) {
    calculator.calcResultText[0] = 0;
    if (PendingUiError() != UiErrorNone) {
        return nullptr;
    }
    const NumberSetupScope scope;
    const uint32_t flags = style.groupDigits ? uint32_t{TextGroup} : 0;
    if (calculator.calcResultType == NumberTypeUint && calculator.calcOutputBase != 10) {
        WriteBasedResult(flags, style.lowerCaseHex);
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
