#include "shell/ui_text.h"

namespace tallymere {

namespace {

constexpr uint32_t PrimaryLanguageMask = 0x3FF;
constexpr uint32_t PrimaryLanguageGerman = 7;

}  // namespace

UiText uiText;
Language effectiveLanguage = LanguageEnglish;

void ClearUiText() {
    uiText = UiText{};
}

void FillUiTextEnglish() {
#define ENTRY(name, english, german) uiText.name = english;
#include "shell/ui_text_entries.inc"
}

void FillUiTextGerman() {
#define ENTRY(name, english, german) uiText.name = german;
#include "shell/ui_text_entries.inc"
}

Language ChooseLanguage(Language setting, uint32_t userLanguageId) {
    if (setting != LanguageAutomatic) {
        return setting;
    }
    return (userLanguageId & PrimaryLanguageMask) == PrimaryLanguageGerman ? LanguageGerman
                                                                           : LanguageEnglish;
}

void InstallLanguage(Language language) {
    ClearUiText();
    if (language == LanguageGerman) {
        FillUiTextGerman();
    } else {
        FillUiTextEnglish();
    }
    effectiveLanguage = language;
}

}  // namespace tallymere
