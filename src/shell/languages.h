// The languages of the program: one row for each.
//
// A new language needs its row here, its enumerator in shell/ui_text.h, its column in
// shell/ui_text_entries.inc and its help pages.
#pragma once

#include <cstdint>
#include <iterator>

#include "shell/ui_text.h"

namespace tallymere {

struct LanguageRow {
    Language language;
    const char* code;              ///< its word in the console
    const char16_t* settingsName;  ///< its value in the settings file
    const char16_t* helpSuffix;    ///< behind the name of a help page: "_" and the code
    uint32_t primaryId;            ///< the low ten bits of the system's language identifier
    UiTextEntry buttonText;        ///< of its button in Options
};

/// In the order of the buttons in Options. The first answers for languages that are not there.
inline constexpr LanguageRow Languages[] = {
    {LanguageEnglish, "en", u"English", u"_en", 0x09, &UiText::TextOptEnglish},
    {LanguageGerman, "de", u"German", u"_de", 0x07, &UiText::TextOptGerman},
};

inline constexpr int32_t LanguageCount = static_cast<int32_t>(std::size(Languages));

/// The row of a language; null for LanguageAutomatic.
constexpr const LanguageRow* FindLanguage(Language language) {
    for (const LanguageRow& row : Languages) {
        if (row.language == language) {
            return &row;
        }
    }
    return nullptr;
}

/// The column of a language in shell/ui_text_entries.inc, from 0.
constexpr int32_t ColumnOfLanguage(Language language) {
    return language - LanguageEnglish;
}

/// Whether the rows stand in the order of the columns and lack nothing.
constexpr bool AreLanguagesSound() {
    for (int32_t i = 0; i < LanguageCount; i++) {
        const LanguageRow& row = Languages[i];
        if (ColumnOfLanguage(row.language) != i || row.code == nullptr ||
            row.settingsName == nullptr || row.helpSuffix == nullptr || row.primaryId == 0 ||
            row.buttonText == nullptr) {
            return false;
        }
    }
    return true;
}
static_assert(AreLanguagesSound(), "a row of Languages is not complete or not in its place");

}  // namespace tallymere
