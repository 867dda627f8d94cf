// The text of the result, in the form that the user asked for.
#pragma once

namespace tallymere {

/// The display settings that stand in the options.
struct ResultStyle {
    bool groupDigits;   ///< group separators in the result
    bool lowerCaseHex;  ///< small letters in base 16
};

/// Writes calcResult as calcResultText in the result form and returns what the result field shows:
/// that text, or, when it is too long for fixed notation, a text of UiText that says so, with an
/// empty calcResultText. With a UiError pending calcResultText becomes empty and the result null.
///
/// The numbers must be set up as they were when calcResult was kept. Notes CalcErrorUnknownType for
/// a type without a text form, and CalcErrorBadParameter for a precision above MaxFixedExponent,
/// which makes no notation window.
const char16_t* ShowResult(const ResultStyle& style);

/// What the end of the calculating thread leads to: with no UiError pending the result is shown, as
/// above, and valid, and the formula is free to be replaced by the next one; else the result shown
/// before stays and is marked stale, and null is returned.
const char16_t* FinishCalculation(const ResultStyle& style);

}  // namespace tallymere
