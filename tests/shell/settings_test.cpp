#include "shell/settings.h"

#include <gtest/gtest.h>

#include "core/number_bases.h"

namespace tallymere {
namespace {

TEST(SettingsRecord, AFirstStartHasTheDefaults) {
    const Settings fresh;
    EXPECT_EQ(fresh.language, LanguageAutomatic);
    EXPECT_EQ(fresh.decimalSeparator, DecimalAutomatic);
    EXPECT_EQ(fresh.thousandsSeparator, ThousandsAutomatic);
    EXPECT_FALSE(fresh.groupCalculator);
    EXPECT_FALSE(fresh.groupEquations);
    EXPECT_FALSE(fresh.groupPrimes);
    EXPECT_EQ(fresh.angleType, AngleRadians);
    EXPECT_EQ(fresh.numberType, NumberTypeReal);
    EXPECT_EQ(fresh.decimalPrecision, 0);
    EXPECT_EQ(fresh.outputNumberBase, 10);
    EXPECT_FALSE(fresh.useLowerCaseHex);
    EXPECT_EQ(fresh.variableCount, 0);
    EXPECT_TRUE(fresh.showWelcomeHint);
    EXPECT_FALSE(fresh.settingsDirty);
}

TEST(SettingsRecord, OnlyAnotherValueIsAChange) {
    Settings record;
    EXPECT_FALSE(ChangeSetting(record, &Settings::numberType, NumberTypeReal));
    EXPECT_FALSE(record.settingsDirty);
    EXPECT_TRUE(ChangeSetting(record, &Settings::numberType, NumberTypeRational));
    EXPECT_EQ(record.numberType, NumberTypeRational);
    EXPECT_TRUE(record.settingsDirty);
    EXPECT_FALSE(ChangeSetting(record, &Settings::numberType, NumberTypeRational));
    EXPECT_TRUE(record.settingsDirty);
}

TEST(SettingsRepair, ASingleAutomaticSeparatorMakesBothAutomatic) {
    for (const bool decimalIsAutomatic : {true, false}) {
        Settings record;
        (decimalIsAutomatic ? record.thousandsSeparator : record.decimalSeparator) = 1;
        RepairSeparators(record);
        EXPECT_EQ(record.decimalSeparator, DecimalAutomatic);
        EXPECT_EQ(record.thousandsSeparator, ThousandsAutomatic);
        EXPECT_TRUE(record.settingsDirty);
    }
}

TEST(SettingsRepair, TwoAutomaticSeparatorsOrNoneStayUnlessTheyAreTheSame) {
    Settings record;
    RepairSeparators(record);
    EXPECT_EQ(record.decimalSeparator, DecimalAutomatic);
    EXPECT_EQ(record.thousandsSeparator, ThousandsAutomatic);
    EXPECT_FALSE(record.settingsDirty);
    for (int32_t decimal = 0; decimal < 2; decimal++) {
        for (int32_t thousands = 0; thousands < 4; thousands++) {
            record.decimalSeparator = decimal;
            record.thousandsSeparator = thousands;
            record.settingsDirty = false;
            RepairSeparators(record);
            const bool same = decimal == thousands;
            EXPECT_EQ(record.decimalSeparator, same ? -1 : decimal);
            EXPECT_EQ(record.thousandsSeparator, same ? -1 : thousands);
            EXPECT_EQ(record.settingsDirty, same);
        }
    }
}

TEST(SettingsRepair, ARepairKeepsWhatWasToBeWritten) {
    Settings record;
    record.settingsDirty = true;
    record.decimalPrecision = 10;
    RepairSeparators(record);
    RepairPrecision(record);
    EXPECT_TRUE(record.settingsDirty);
}

TEST(SettingsRepair, APrecisionBelowOneBecomesTen) {
    for (const int64_t precision : {INT64_C(0), INT64_C(-1), INT64_C(-2147483648)}) {
        Settings record;
        record.decimalPrecision = precision;
        RepairPrecision(record);
        EXPECT_EQ(record.decimalPrecision, 10);
        EXPECT_TRUE(record.settingsDirty);
    }
    for (const int64_t precision : {1, 10, 10'000, 2'147'483'647}) {
        Settings record;
        record.decimalPrecision = precision;
        RepairPrecision(record);
        EXPECT_EQ(record.decimalPrecision, precision);
        EXPECT_FALSE(record.settingsDirty);
    }
}

TEST(SettingsRepair, TheCalculatorTakesBasesOfTheTableAndTheSettingKeepsAny) {
    for (int64_t base = -20; base <= 40; base++) {
        Settings record;
        record.outputNumberBase = base;
        const bool known = FindNumberBase(base) != nullptr;
        EXPECT_EQ(InstalledOutputBase(record), known ? base : 10);
        EXPECT_EQ(record.outputNumberBase, base);
        EXPECT_FALSE(record.settingsDirty);
    }
}

}  // namespace
}  // namespace tallymere
