// The separators of numbers, from the settings to NumberContext.
#pragma once

#include <cstdint>

namespace tallymere {

/// The values of the two separator settings, as the settings file and the rows of their lists have
/// them.
enum DecimalSeparatorSetting : int32_t {
    DecimalAutomatic = -1,  ///< what the user's locale says
    DecimalPoint = 0,
    DecimalComma = 1,
};
enum ThousandsSeparatorSetting : int32_t {
    ThousandsAutomatic = -1,  ///< what the user's locale says
    ThousandsPoint = 0,
    ThousandsComma = 1,
    ThousandsApostrophe = 2,
    ThousandsNarrowSpace = 3,  ///< U+202F, which does not break
};

/// True for the characters that could not be told from those of a number or a formula: control
/// characters, blank, "(", ")", "+", "-" and the digits.
bool IsForbiddenSeparator(char16_t c);

/// Makes c the only entry of a group of separators of NumberContext. A forbidden character sets
/// code 100 and leaves the group as it was.
void StoreSeparator(char16_t (&separators)[3], char16_t c);

/// Puts the separators of the settings into NumberContext. A setting that names no fixed character,
/// such as the automatic one, leaves its separator as it is.
void ApplySeparators(int32_t decimalSetting, int32_t thousandsSetting);

/// Put the separator that the user's locale has into NumberContext, unchecked. At most three
/// characters of the text are taken; of fewer the last is repeated, and the empty text means "."
/// for decimals and "'" for thousands.
void ApplyLocaleDecimal(const char16_t* localeText);
void ApplyLocaleThousands(const char16_t* localeText);

/// The separators of the user's locale, texts that end at a 0 character.
struct LocaleSeparators {
    const char16_t* decimal;
    const char16_t* thousands;
};

/// Puts the separators of the settings into NumberContext, the automatic ones from the locale.
void ApplySeparators(int32_t decimalSetting, int32_t thousandsSetting,
                     const LocaleSeparators& locale);

}  // namespace tallymere
