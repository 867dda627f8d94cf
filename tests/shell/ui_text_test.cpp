#include "shell/ui_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <span>
#include <string>
#include <utility>

#include "shell/languages.h"

namespace tallymere {
namespace {

struct Entry {
    const char* name;
    const char16_t* UiText::*field;
};

const Entry Entries[] = {
#define ENTRY(name, ...) {#name, &UiText::name},
#include "shell/ui_text_entries.inc"
};

// The letters behind each "%" of a format, in order.
std::u16string Specifiers(const char16_t* format) {
    std::u16string specifiers;
    for (; *format != 0; ++format) {
        if (*format == u'%' && format[1] != 0) {
            ++format;
            specifiers += *format;
        }
    }
    return specifiers;
}

bool NamesALanguage(UiTextEntry field) {
    return std::any_of(std::begin(Languages), std::end(Languages),
                       [field](const LanguageRow& row) { return row.buttonText == field; });
}

// The 64-bit FNV-1a hash of the texts of the table in their order, each with its end. The names of
// languages are left out: each new language adds one.
uint64_t HashOfTable() {
    uint64_t hash = 0xCBF29CE484222325u;
    for (const Entry& entry : Entries) {
        if (NamesALanguage(entry.field)) {
            continue;
        }
        const char16_t* text = uiText.*entry.field;
        do {
            hash = (hash ^ *text) * 0x100000001B3u;
        } while (*text++ != 0);
    }
    return hash;
}

// Every test starts from an empty table and leaves the process with the English one.
class UiTextTable : public ::testing::Test {
protected:
    void SetUp() override { ClearUiText(); }
    void TearDown() override { InstallLanguage(LanguageEnglish); }
};

// Each language has an entry for its button.
constexpr size_t EntryCount = 167 + size_t{LanguageCount};

TEST_F(UiTextTable, HoldsDifferentEntriesAndNothingElse) {
    EXPECT_EQ(std::size(Entries), EntryCount);
    EXPECT_EQ(sizeof(UiText), EntryCount * sizeof(const char16_t*));
    std::set<std::string> names;
    for (const Entry& entry : Entries) {
        names.insert(entry.name);
    }
    EXPECT_EQ(names.size(), EntryCount);
}

TEST_F(UiTextTable, AnUnassignedEntryShowsAsAMark) {
    FillUiTextGerman();
    ClearUiText();
    for (const Entry& entry : Entries) {
        EXPECT_EQ(uiText.*entry.field, std::u16string(u"???")) << entry.name;
    }
}

TEST_F(UiTextTable, EachLanguageAssignsEveryEntry) {
    for (const LanguageRow& row : Languages) {
        InstallLanguage(row.language);
        for (const Entry& entry : Entries) {
            const std::u16string text = uiText.*entry.field;
            EXPECT_NE(text, u"???") << entry.name << " in the column " << row.code;
            EXPECT_NE(text, u"") << entry.name << " in the column " << row.code;
        }
    }
}

TEST_F(UiTextTable, AllLanguagesTakeTheSameArgumentsInTheSameOrder) {
    FillUiTextEnglish();
    const UiText english = uiText;
    for (const LanguageRow& row : Languages) {
        InstallLanguage(row.language);
        for (const Entry& entry : Entries) {
            const std::u16string specifiers = Specifiers(english.*entry.field);
            EXPECT_EQ(specifiers, Specifiers(uiText.*entry.field))
                << entry.name << " in the column " << row.code;
            EXPECT_EQ(specifiers.find_first_not_of(u"scd"), std::u16string::npos) << entry.name;
        }
    }
}

// A text that stands in two columns by mistake, copied and not translated, is named here. Each pair
// of languages lists the words that it truly shares.
TEST_F(UiTextTable, LanguagesShareNoTextsButTheseWords) {
    const std::map<std::pair<Language, Language>, std::set<std::string>> shared = {
        {{LanguageEnglish, LanguageGerman},
         {"TextBtnOK", "TextMenuInfo", "TextMenuAlgebra", "TextCalcRat", "TextFactorsStart",
          "TextAbout", "TextAboutHomepage", "TextCtlRational", "TextVarName"}},
    };
    for (const LanguageRow& one : Languages) {
        InstallLanguage(one.language);
        const UiText texts = uiText;
        for (const LanguageRow& other : std::span(&one + 1, std::end(Languages))) {
            InstallLanguage(other.language);
            const auto pair = shared.find({one.language, other.language});
            for (const Entry& entry : Entries) {
                const std::u16string text = texts.*entry.field;
                const bool mayBeShared = pair != shared.end() && pair->second.contains(entry.name);
                EXPECT_EQ(text == uiText.*entry.field, mayBeShared)
                    << entry.name << " in the columns " << one.code << " and " << other.code;
            }
        }
    }
}

TEST_F(UiTextTable, LinesEndInCarriageReturnAndLineFeed) {
    for (const LanguageRow& row : Languages) {
        InstallLanguage(row.language);
        for (const Entry& entry : Entries) {
            SCOPED_TRACE(std::string(entry.name) + " in the column " + row.code);
            const std::u16string text = uiText.*entry.field;
            for (size_t i = 0; i < text.size(); ++i) {
                if (text[i] == u'\r') {
                    EXPECT_EQ(text[i + 1], u'\n');
                } else if (text[i] == u'\n') {
                    EXPECT_TRUE(i > 0 && text[i - 1] == u'\r');
                }
            }
        }
    }
}

TEST_F(UiTextTable, EnglishWordingIsKeptWithItsSlips) {
    FillUiTextEnglish();
    EXPECT_EQ(uiText.TextErrInvalidInput, std::u16string(u"Invalid input \"%s\" !"));
    EXPECT_EQ(uiText.TextErrCoefficientManyCharacters,
              std::u16string(u"Coefficient \"%s\" has to many characters!"));
    EXPECT_EQ(uiText.TextErrNumberManyPrimeFactors,
              std::u16string(u"The number \"%s\" has to many prime factors or divisors!"));
    EXPECT_EQ(uiText.TextErrNumberEquationVariablesBetween,
              std::u16string(u"The number of equation variables has to be between 2 und %s!"));
    EXPECT_EQ(uiText.TextFormulaFormulaComplicatedBecauseMany,
              std::u16string(u"Formula is to complicated because to many parentheses are nested!"));
    EXPECT_EQ(uiText.TextFormulaVariableCouldEvaluated,
              std::u16string(u"The variable at character position %d could not evaluated!"));
    EXPECT_EQ(uiText.TextFactorsD, std::u16string(u"D "));
    EXPECT_EQ(uiText.TextVarStringValue, std::u16string(u"StringValue"));
    EXPECT_EQ(uiText.TextCalcOutputBase, std::u16string(u"Output\r\nBase"));
    EXPECT_EQ(uiText.TextPolyResult, std::u16string(u"Result \u2192 %s"));
    EXPECT_EQ(uiText.TextOptEnglish, std::u16string(u"English"));
    EXPECT_EQ(uiText.TextOptGerman, std::u16string(u"German"));
}

TEST_F(UiTextTable, GermanWordingIsKept) {
    FillUiTextGerman();
    EXPECT_EQ(uiText.TextBtnClose, std::u16string(u"Schlie\u00DFen"));
    EXPECT_EQ(uiText.TextErrInvalidInput, std::u16string(u"Ung\u00FCltige Eingabe \"%s\" !"));
    EXPECT_EQ(uiText.TextAboutAbout, std::u16string(u"\u00DCber %s"));
    EXPECT_EQ(uiText.TextAbout, std::u16string(u"\u00A9 %s %s"));
    EXPECT_EQ(uiText.TextPolyClear, std::u16string(u"%s leeren"));
    EXPECT_EQ(uiText.TextCalcCplx, std::u16string(u"kplx"));
    EXPECT_EQ(uiText.TextErrStringBufferOverflow, std::u16string(u"Stringpuffer\u00FCberlauf!"));
    EXPECT_EQ(uiText.TextOptEnglish, std::u16string(u"Englisch"));
    EXPECT_EQ(uiText.TextOptGerman, std::u16string(u"Deutsch"));
}

// A change of any text but a language's name shows here. One that is wanted gets its new figures.
TEST_F(UiTextTable, EveryTextIsKeptToTheLetter) {
    FillUiTextEnglish();
    EXPECT_EQ(HashOfTable(), 0x4EF7472FDF36D226u);
    FillUiTextGerman();
    EXPECT_EQ(HashOfTable(), 0xDD0FD05DC5ECB6BDu);
}

TEST_F(UiTextTable, PagesMayWordTheSameThingDifferently) {
    FillUiTextEnglish();
    EXPECT_EQ(std::u16string(uiText.TextBtnStart), uiText.TextFactorsStart);
    FillUiTextGerman();
    EXPECT_EQ(uiText.TextBtnStart, std::u16string(u"Starten"));
    EXPECT_EQ(uiText.TextFactorsStart, std::u16string(u"Start"));
}

TEST_F(UiTextTable, TheLongestMessageListsTheRulesForNames) {
    FillUiTextEnglish();
    EXPECT_EQ(uiText.TextErrVariableNameInvalidOnly,
              std::u16string(u"The variable name \"%s\" is invalid. Only the following characters "
                             u"are allowed:\r\n\r\n"
                             u"\u2022Latin uppercase and lowercase letters\r\n"
                             u"\u2022Greek uppercase and lowercase letters\r\n"
                             u"\u2022Underscore \"_\"\r\n"
                             u"\u2022Decimal digits from the second character\r\n\r\n"
                             u"Furthermore the following names are reserved and may not be used as "
                             u"variable names: \"e\", \"i\", \"\u03C0\", \"pi\", \"ans\""));
}

TEST_F(UiTextTable, InstallLanguageFillsTheTableAndNotesTheLanguage) {
    InstallLanguage(LanguageGerman);
    EXPECT_EQ(effectiveLanguage, LanguageGerman);
    EXPECT_EQ(uiText.TextMenuExit, std::u16string(u"Beenden"));
    InstallLanguage(LanguageEnglish);
    EXPECT_EQ(effectiveLanguage, LanguageEnglish);
    EXPECT_EQ(uiText.TextMenuExit, std::u16string(u"Exit"));
}

TEST(LanguageChoice, ASettingOtherThanAutomaticIsObeyedWhateverTheSystemSpeaks) {
    for (uint32_t id : {0x0407u, 0x0409u, 0u}) {
        EXPECT_EQ(ChooseLanguage(LanguageEnglish, id), LanguageEnglish);
        EXPECT_EQ(ChooseLanguage(LanguageGerman, id), LanguageGerman);
    }
}

TEST(LanguageChoice, AutomaticFollowsThePrimaryLanguageOfTheSystem) {
    for (uint32_t id : {0x0007u, 0x0407u, 0x0807u, 0x0C07u, 0x1007u, 0x1407u}) {
        EXPECT_EQ(ChooseLanguage(LanguageAutomatic, id), LanguageGerman) << std::hex << id;
    }
    for (uint32_t id : {0x0009u, 0x0409u, 0x0809u, 0x1409u}) {
        EXPECT_EQ(ChooseLanguage(LanguageAutomatic, id), LanguageEnglish) << std::hex << id;
    }
}

// Among them 0x0107, which ends as German does.
TEST(LanguageChoice, AutomaticIsEnglishWhereTheProgramDoesNotSpeakTheLanguage) {
    std::set<uint32_t> unknown;
    for (uint32_t primary = 0; primary < 0x0400; primary++) {
        unknown.insert(primary);
    }
    for (const LanguageRow& row : Languages) {
        EXPECT_EQ(unknown.erase(row.primaryId), 1u) << row.code;
    }
    for (const uint32_t primary : unknown) {
        for (const uint32_t id : {primary, primary | 0x0400, primary | 0x0C00}) {
            EXPECT_EQ(ChooseLanguage(LanguageAutomatic, id), LanguageEnglish) << std::hex << id;
        }
    }
}

}  // namespace
}  // namespace tallymere
