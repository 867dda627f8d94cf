#include "shell/separators.h"

#include <algorithm>
#include <iterator>

#include "core/digit_text.h"
#include "core/number_context.h"

namespace tallymere {

namespace {

constexpr char16_t DecimalCharacters[] = {u'.', u','};
constexpr char16_t ThousandsCharacters[] = {u'.', u',', u'\'', u'\u202F'};

template <size_t Count>
void ApplySetting(char16_t (&separators)[3], int32_t setting, const char16_t (&characters)[Count]) {
    if (setting >= 0 && setting < static_cast<int32_t>(Count)) {
        StoreSeparator(separators, characters[setting]);
    }
}

// Stores up to three characters. The last one is repeated in the remaining places.
void StoreLocaleText(char16_t (&separators)[3], const char16_t* text, char16_t otherwise) {
    char16_t last = otherwise;
    for (char16_t& separator : separators) {
        if (*text != 0) {
            last = *text++;
        }
        separator = last;
    }
}

}  // namespace

bool IsForbiddenSeparator(char16_t c) {
    return c <= u' ' || c == u'(' || c == u')' || c == u'+' || c == u'-' || IsDecimalDigit(c);
}

void StoreSeparator(char16_t (&separators)[3], char16_t c) {
    if (IsForbiddenSeparator(c)) {
        SetCalcError(CalcErrorBadParameter);
    } else {
        std::fill(std::begin(separators), std::end(separators), c);
    }
}

void ApplySeparators(int32_t decimalSetting, int32_t thousandsSetting) {
    ApplySetting(numberContext.decimalSeparators, decimalSetting, DecimalCharacters);
    ApplySetting(numberContext.groupSeparators, thousandsSetting, ThousandsCharacters);
}

void ApplyLocaleDecimal(const char16_t* localeText) {
    StoreLocaleText(numberContext.decimalSeparators, localeText, u'.');
}

void ApplyLocaleThousands(const char16_t* localeText) {
    StoreLocaleText(numberContext.groupSeparators, localeText, u'\'');
}

void ApplySeparators(int32_t decimalSetting, int32_t thousandsSetting,
                     const LocaleSeparators& locale) {
    if (decimalSetting == DecimalAutomatic) {
        ApplyLocaleDecimal(locale.decimal);
    }
    if (thousandsSetting == ThousandsAutomatic) {
        ApplyLocaleThousands(locale.thousands);
    }
    ApplySeparators(decimalSetting, thousandsSetting);
}

}  // namespace tallymere
