// UiText: every visible text of the program, in the language of this run.
//
// A page reads the field that it needs; nothing looks a text up by a key. The table is filled once
// at the start, and a change of language starts the program anew.
#pragma once

#include <cstdint>

namespace tallymere {

/// What an entry holds that no fill routine has assigned.
inline constexpr const char16_t* UiTextMissing = u"???";

/// Each field points to a constant text that lives as long as the process; none is ever null.
struct UiText {
#define ENTRY(name, ...) const char16_t* name = UiTextMissing;
#include "shell/ui_text_entries.inc"
};

/// Names an entry of the table, in whatever language it is filled.
using UiTextEntry = const char16_t* UiText::*;

/// The one table of the process.
extern UiText uiText;

/// Sets all entries to UiTextMissing.
void ClearUiText();

/// Assign all entries.
void FillUiTextEnglish();
void FillUiTextGerman();

/// The language setting. Its values are those of the settings file, and they choose the help files.
enum Language : int32_t {
    LanguageAutomatic = 1,
    LanguageEnglish = 2,
    LanguageGerman = 3,
};

/// The language that this run speaks: never LanguageAutomatic.
extern Language effectiveLanguage;

/// The language for a setting, LanguageEnglish or LanguageGerman. LanguageAutomatic follows
/// `userLanguageId`, the system's identifier of the user's language: its low ten bits name the
/// primary language, and all but German are answered by English.
Language ChooseLanguage(Language setting, uint32_t userLanguageId);

/// Makes `language`, which is not LanguageAutomatic, the one that this run speaks: clears the
/// table, fills it and notes the language in effectiveLanguage.
void InstallLanguage(Language language);

}  // namespace tallymere
