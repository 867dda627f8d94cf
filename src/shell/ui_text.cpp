#include "shell/ui_text.h"

#include "shell/languages.h"

namespace tallymere {

UiText uiText;
Language effectiveLanguage = LanguageEnglish;

namespace {

constexpr uint32_t PrimaryLanguageMask = 0x3FF;

// The text of an entry in one of its columns.
template <size_t Count>
constexpr const char16_t* TextOf(Language language, const char16_t* const (&columns)[Count]) {
    static_assert(Count == LanguageCount,
                  "columns of ui_text_entries.inc and rows of languages.h differ in number");
    return columns[ColumnOfLanguage(language)];
}

// Assigns all entries.
void FillUiText(Language language) {
#define ENTRY(name, ...) uiText.name = TextOf(language, {__VA_ARGS__});
#include "shell/ui_text_entries.inc"
}

}  // namespace

void ClearUiText() {
    uiText = UiText{};
}

void FillUiTextEnglish() {
    FillUiText(LanguageEnglish);
}

void FillUiTextGerman() {
    FillUiText(LanguageGerman);
}

Language ChooseLanguage(Language setting, uint32_t userLanguageId) {
    if (setting != LanguageAutomatic) {
        return setting;
    }
    for (const LanguageRow& row : Languages) {
        if (row.primaryId == (userLanguageId & PrimaryLanguageMask)) {
            return row.language;
        }
    }
    return Languages[0].language;
}

void InstallLanguage(Language language) {
    ClearUiText();
    if (FindLanguage(language) != nullptr) {
        FillUiText(language);
    }
    effectiveLanguage = language;
}

}  // namespace tallymere
