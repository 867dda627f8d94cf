#include "shell/windows/user_locale.h"

#include "shell/separators.h"
#include "shell/settings.h"
#include "toolkit/wide_text.h"
#include "toolkit/win32.h"

namespace tallymere {

namespace {

constexpr int LocaleTextRoom = 4;

// A text of the locale, empty for one that is longer than three characters.
struct LocaleText {
    explicit LocaleText(LCTYPE kind) {
        if (GetLocaleInfoW(LOCALE_USER_DEFAULT, kind, ToWide(text), LocaleTextRoom) == 0) {
            text[0] = 0;
        }
    }

    char16_t text[LocaleTextRoom] = u"";
};

}  // namespace

void ApplyUserSeparators() {
    ApplySeparators(settings.decimalSeparator, settings.thousandsSeparator,
                    {LocaleText(LOCALE_SDECIMAL).text, LocaleText(LOCALE_STHOUSAND).text});
}

uint32_t UserLanguageId() {
    return GetUserDefaultLangID();
}

}  // namespace tallymere
