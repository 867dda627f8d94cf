// What the values of the settings look like in the settings file.
//
// For each key of the file there is a setter, which takes the text of a value into the settings,
// and a getter, which appends the text of the value that they have. Texts are compared whole and
// with their case. The empty text stands for a key that was not found. A setting that has none of
// the values that its key knows is written as "???".
#pragma once

#include "shell/settings.h"
#include "shell/text_sink.h"

namespace tallymere {

/// "(automatic)", which is also what any other text means, and the names of shell/languages.h.
void SetLanguageValue(Settings& record, const char16_t* value);
void GetLanguageValue(const Settings& record, TextSink& sink);

/// "point", "comma", "(automatic)"; any other text means automatic.
void SetDecimalSeparatorValue(Settings& record, const char16_t* value);
void GetDecimalSeparatorValue(const Settings& record, TextSink& sink);

/// "point", "comma", "apostrophe", "space_U202F", "(automatic)"; any other text means automatic.
void SetThousandsSeparatorValue(Settings& record, const char16_t* value);
void GetThousandsSeparatorValue(const Settings& record, TextSink& sink);

/// "1" and "0"; any other text means "0".
void SetGroupCalculatorValue(Settings& record, const char16_t* value);
void GetGroupCalculatorValue(const Settings& record, TextSink& sink);
void SetGroupEquationsValue(Settings& record, const char16_t* value);
void GetGroupEquationsValue(const Settings& record, TextSink& sink);
void SetGroupPrimesValue(Settings& record, const char16_t* value);
void GetGroupPrimesValue(const Settings& record, TextSink& sink);

/// "deg", "rad", "gon"; any other text means "rad".
void SetAngleTypeValue(Settings& record, const char16_t* value);
void GetAngleTypeValue(const Settings& record, TextSink& sink);

/// "rat", "real", "cplx", "uint"; any other text means "real".
void SetNumberTypeValue(Settings& record, const char16_t* value);
void GetNumberTypeValue(const Settings& record, TextSink& sink);

/// A decimal number. White space may stand before it and a sign; it ends at the first character
/// that is no digit, and is 0 without one. Beyond 32 bits it is the nearest number that has them.
void SetDecimalPrecisionValue(Settings& record, const char16_t* value);
void GetDecimalPrecisionValue(const Settings& record, TextSink& sink);

/// A decimal number as above; 0 means DecimalBase.
void SetOutputNumberBaseValue(Settings& record, const char16_t* value);
void GetOutputNumberBaseValue(const Settings& record, TextSink& sink);

/// "1" and "0". Only here the first character alone counts, and any other than "1" means "0".
void SetUseLowerCaseHexValue(Settings& record, const char16_t* value);
void GetUseLowerCaseHexValue(const Settings& record, TextSink& sink);

/// "1" and "0"; any other text means "1", so that a first start shows the hint.
void SetShowWelcomeHintValue(Settings& record, const char16_t* value);
void GetShowWelcomeHintValue(const Settings& record, TextSink& sink);

}  // namespace tallymere
