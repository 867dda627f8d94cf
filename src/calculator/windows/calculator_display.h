// Shows the state of the calculator on the controls of its page. All of it is for the UI thread.
#pragma once

#include "toolkit/win32.h"

namespace tallymere {

/// Before anything of a new page is shown: makes the fonts of its fields and keys and takes its
/// keys for windows that have no look yet.
void PrepareCalculatorDisplay();

/// Deletes the fonts.
void DeleteCalculatorFonts();

/// What formula and result are written in.
HFONT FieldFont();

/// Captions, fonts and enabled states of the keys. They stay as they are while a run may end before
/// Stop is shown.
void ShowKeys();

/// The number type that was chosen: which controls are there, the label of its position, the keys.
/// The slider is not moved.
void ShowNumberType();

/// Likewise the angle unit.
void ShowAngle();

/// Whether the result is valid: colour of the result, bracket mark and keys.
void ShowResultState();

/// Writes the result in its form, see ShowResult, and its count of digits. With an error pending
/// the field stays as it is.
void ShowResultText();

/// Likewise with a text from FinishCalculation.
void ShowResultText(const char16_t* text);

}  // namespace tallymere
