// The separators of numbers: how those of the settings get into NumberContext.
#pragma once

#include <cstdint>

namespace tallymere {

/// The values of the two separator settings, in the settings file and in the lists of the options.
enum DecimalSeparatorSetting : int32_t {
    DecimalAutomatic = -1,  ///< that of the user's locale
    DecimalPoint = 0,
    DecimalComma = 1,
};
enum ThousandsSeparatorSetting : int32_t {
    ThousandsAutomatic = -1,  ///< that of the user's locale
    ThousandsPoint = 0,
    ThousandsComma = 1,
    ThousandsApostrophe = 2,
    ThousandsNarrowSpace = 3,  ///< U+202F, a narrow space at which no line breaks
};

/// True for characters that have another meaning in a number or a formula: control characters, the
/// blank, "(", ")", "+", "-" and the digits.
bool IsForbiddenSeparator(char16_t c);

/// Makes c the only entry of a group of separators of NumberContext. A forbidden character notes
/// CalcErrorBadParameter and leaves the group as it was.
void StoreSeparator(char16_t (&separators)[3], char16_t c);

/// Puts the separators of the settings into NumberContext. A setting without a fixed character,
/// such as the automatic one, leaves its separator as it is.
void ApplySeparators(int32_t decimalSetting, int32_t thousandsSetting);

/// Put the separator of the user's locale into NumberContext, unchecked. The three entries are the
/// first three characters of the text. In a shorter text the last character is repeated. The empty
/// text means "." for decimals and "'" for thousands.
void ApplyLocaleDecimal(const char16_t* localeText);
void ApplyLocaleThousands(const char16_t* localeText);

/// The separators of the user's locale: texts that end with a 0 character.
struct LocaleSeparators {
    const char16_t* decimal;
    const char16_t* thousands;
};

/// Puts the separators of the settings into NumberContext. Automatic ones come from the locale.
void ApplySeparators(int32_t decimalSetting, int32_t thousandsSetting,
                     const LocaleSeparators& locale);

}  // namespace tallymere
