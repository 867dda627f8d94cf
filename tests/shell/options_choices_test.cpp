#include "shell/options_choices.h"

#include <gtest/gtest.h>

#include "shell/settings_testing.h"
#include "shell/ui_error.h"

namespace tallymere::testing_support {
namespace {

class OptionsDialog : public ::testing::Test {
protected:
    void SetUp() override { ClearErrors(); }
    void TearDown() override { ClearErrors(); }

    static OptionsChoices Shown(const Settings& record, OptionsChoices before = {}) {
        ShowOptions(before, record);
        return before;
    }
    static Settings FixedSeparators(int32_t decimal, int32_t thousands) {
        Settings record;
        record.decimalSeparator = decimal;
        record.thousandsSeparator = thousands;
        return record;
    }
};

TEST_F(OptionsDialog, FixedSeparatorsAreShownByTheirRows) {
    for (int32_t decimal = 0; decimal < 2; decimal++) {
        for (int32_t thousands = 0; thousands < 4; thousands++) {
            OptionsChoices before;
            before.automaticSeparators = true;
            const OptionsChoices shown = Shown(FixedSeparators(decimal, thousands), before);
            EXPECT_FALSE(shown.automaticSeparators);
            EXPECT_EQ(shown.decimalRow, decimal);
            EXPECT_EQ(shown.thousandsRow, thousands);
        }
    }
}

TEST_F(OptionsDialog, AnyAutomaticSeparatorChecksTheBoxAndLeavesTheRows) {
    OptionsChoices before;
    before.decimalRow = 1;
    before.thousandsRow = 3;
    for (const Settings& record :
         {FixedSeparators(-1, -1), FixedSeparators(-1, 2), FixedSeparators(0, -1)}) {
        const OptionsChoices shown = Shown(record, before);
        EXPECT_TRUE(shown.automaticSeparators);
        EXPECT_EQ(shown.decimalRow, 1);
        EXPECT_EQ(shown.thousandsRow, 3);
        EXPECT_EQ(Shown(record).decimalRow, NoRow);
        EXPECT_EQ(Shown(record).thousandsRow, NoRow);
    }
}

TEST_F(OptionsDialog, BoxesAndLanguageAreShownAnew) {
    for (const bool flag : {false, true}) {
        Settings record;
        record.groupCalculator = flag;
        record.groupEquations = !flag;
        record.groupPrimes = flag;
        OptionsChoices before;
        before.groupCalculator = before.groupEquations = before.groupPrimes = true;
        before.language = LanguageGerman;
        const OptionsChoices shown = Shown(record, before);
        EXPECT_EQ(shown.groupCalculator, flag);
        EXPECT_EQ(shown.groupEquations, !flag);
        EXPECT_EQ(shown.groupPrimes, flag);
        EXPECT_EQ(shown.language, LanguageAutomatic);
    }
    for (const Language language : {LanguageAutomatic, LanguageEnglish, LanguageGerman}) {
        Settings record;
        record.language = language;
        EXPECT_EQ(Shown(record).language, language);
    }
}

TEST_F(OptionsDialog, OkWithoutAChangeChangesNothing) {
    for (Settings record : {FixedSeparators(-1, -1), FixedSeparators(1, 0)}) {
        record.groupEquations = true;
        record.language = LanguageGerman;
        const Settings before = record;
        const OptionsOutcome outcome = AcceptOptions(record, Shown(record));
        EXPECT_TRUE(outcome.accepted);
        EXPECT_FALSE(outcome.separatorsChanged);
        EXPECT_FALSE(outcome.languageChanged);
        EXPECT_TRUE(SameSettings(record, before));
        EXPECT_EQ(PendingUiError(), UiErrorNone);
    }
}

TEST_F(OptionsDialog, EveryPairOfRowsIsCheckedAndNothingIsStoredWithAnError) {
    for (int32_t decimal = -1; decimal < 2; decimal++) {
        for (int32_t thousands = -1; thousands < 4; thousands++) {
            ClearErrors();
            Settings record = FixedSeparators(-1, -1);
            const Settings before = record;
            OptionsChoices choices;
            choices.decimalRow = decimal;
            choices.thousandsRow = thousands;
            choices.groupPrimes = true;
            choices.language = LanguageGerman;
            const OptionsOutcome outcome = AcceptOptions(record, choices);
            if (decimal == -1 || thousands == -1 || decimal == thousands) {
                EXPECT_EQ(PendingUiError(), 1100);
                EXPECT_FALSE(outcome.accepted);
                EXPECT_FALSE(outcome.separatorsChanged);
                EXPECT_FALSE(outcome.languageChanged);
                EXPECT_TRUE(SameSettings(record, before));
            } else {
                EXPECT_EQ(PendingUiError(), UiErrorNone);
                EXPECT_TRUE(outcome.accepted);
                EXPECT_TRUE(outcome.separatorsChanged);
                EXPECT_TRUE(outcome.languageChanged);
                EXPECT_EQ(record.decimalSeparator, decimal);
                EXPECT_EQ(record.thousandsSeparator, thousands);
                EXPECT_TRUE(record.groupPrimes);
                EXPECT_EQ(record.language, LanguageGerman);
                EXPECT_TRUE(record.settingsDirty);
            }
        }
    }
}

TEST_F(OptionsDialog, AutomaticSeparatorsAreNotChecked) {
    for (const int32_t row : {NoRow, 0, 1}) {
        Settings record = FixedSeparators(1, 0);
        OptionsChoices choices = Shown(record);
        choices.automaticSeparators = true;
        choices.decimalRow = row;
        choices.thousandsRow = row;
        const OptionsOutcome outcome = AcceptOptions(record, choices);
        EXPECT_TRUE(outcome.accepted);
        EXPECT_TRUE(outcome.separatorsChanged);
        EXPECT_EQ(record.decimalSeparator, DecimalAutomatic);
        EXPECT_EQ(record.thousandsSeparator, ThousandsAutomatic);
        EXPECT_TRUE(record.settingsDirty);
        EXPECT_EQ(PendingUiError(), UiErrorNone);
    }
}

TEST_F(OptionsDialog, OneSeparatorIsEnoughOfAChange) {
    for (const bool decimal : {false, true}) {
        Settings record = FixedSeparators(0, 2);
        OptionsChoices choices = Shown(record);
        (decimal ? choices.decimalRow : choices.thousandsRow) = 1;
        const OptionsOutcome outcome = AcceptOptions(record, choices);
        EXPECT_TRUE(outcome.separatorsChanged);
        EXPECT_FALSE(outcome.languageChanged);
        EXPECT_EQ(record.decimalSeparator, decimal ? 1 : 0);
        EXPECT_EQ(record.thousandsSeparator, decimal ? 2 : 1);
        EXPECT_TRUE(record.settingsDirty);
    }
}

TEST_F(OptionsDialog, EachFlagIsStoredAndOnlyAChangeIsWritten) {
    for (const auto& [choice, setting] :
         {std::pair{&OptionsChoices::groupCalculator, &Settings::groupCalculator},
          std::pair{&OptionsChoices::groupEquations, &Settings::groupEquations},
          std::pair{&OptionsChoices::groupPrimes, &Settings::groupPrimes}}) {
        Settings record;
        OptionsChoices choices = Shown(record);
        for (const bool flag : {true, false}) {
            choices.*choice = flag;
            const OptionsOutcome outcome = AcceptOptions(record, choices);
            EXPECT_TRUE(outcome.accepted);
            EXPECT_FALSE(outcome.separatorsChanged);
            EXPECT_FALSE(outcome.languageChanged);
            Settings expected;
            expected.*setting = flag;
            expected.settingsDirty = true;
            EXPECT_TRUE(SameSettings(record, expected));
            record.settingsDirty = false;
            AcceptOptions(record, choices);
            EXPECT_FALSE(record.settingsDirty);
        }
    }
}

TEST_F(OptionsDialog, AnotherLanguageIsStoredAndTold) {
    const Language running = effectiveLanguage;
    for (const Language from : {LanguageAutomatic, LanguageEnglish, LanguageGerman}) {
        for (const Language to : {LanguageAutomatic, LanguageEnglish, LanguageGerman}) {
            Settings record;
            record.language = from;
            OptionsChoices choices = Shown(record);
            choices.language = to;
            const OptionsOutcome outcome = AcceptOptions(record, choices);
            EXPECT_TRUE(outcome.accepted);
            EXPECT_FALSE(outcome.separatorsChanged);
            EXPECT_EQ(outcome.languageChanged, from != to);
            EXPECT_EQ(record.language, to);
            EXPECT_EQ(record.settingsDirty, from != to);
            EXPECT_EQ(effectiveLanguage, running) << "the program goes on as it is";
        }
    }
}

}  // namespace
}  // namespace tallymere::testing_support
