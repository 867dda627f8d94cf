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

/// The language setting. The values count on without gaps: the languages are columns of
/// shell/ui_text_entries.inc, in this order, and rows of shell/languages.h.
enum Language : int32_t {
    LanguageAutomatic = 1,
    LanguageEnglish = 2,
    LanguageGerman = 3,
};

/// Assign all entries. Short forms for callers that want just these two; a further language needs
/// none, since InstallLanguage reads the table of languages.
void FillUiTextEnglish();
void FillUiTextGerman();

/// The language that this run speaks: never LanguageAutomatic.
extern Language effectiveLanguage;

/// The language for a setting. LanguageAutomatic follows `userLanguageId`, the system's identifier
/// of the user's language: its low ten bits name the primary language. A language that the program
/// does not speak is answered by the first one, English.
Language ChooseLanguage(Language setting, uint32_t userLanguageId);

/// Makes `language`, which is not LanguageAutomatic, the one that this run speaks: clears the
/// table, fills it and notes the language in effectiveLanguage.
void InstallLanguage(Language language);

}  // namespace tallymere
