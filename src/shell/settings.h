// The settings: what the program remembers from one run to the next. These are the user's options,
// the state of the calculator and its variables.
//
// The settings are read at the start, and written when they have changed, at the end at the latest.
// shell/settings_walk.h reads and writes the text of the file. shell/settings_values.h says how the
// values are written there.
#pragma once

#include <cstdint>
#include <type_traits>

#include "core/limits.h"
#include "core/number_bases.h"
#include "core/number_context.h"
#include "shell/separators.h"
#include "shell/ui_text.h"

namespace tallymere {

/// The angle unit of the calculator's keys. The settings file has these values.
enum AngleType : int32_t {
    AngleDegrees = 1,
    AngleRadians = 2,
    AngleGon = 3,
};

/// A variable of the calculator: two texts, which this record does not own.
struct SettingsVariable {
    const char16_t* name;   ///< of any length; may be empty or no valid name
    const char16_t* value;  ///< with "." as decimal point and no group separators
};

/// The initial values are for the first start, and for every key that the file does not have.
struct Settings {
    Language language = LanguageAutomatic;
    int32_t decimalSeparator = DecimalAutomatic;      ///< a DecimalSeparatorSetting
    int32_t thousandsSeparator = ThousandsAutomatic;  ///< a ThousandsSeparatorSetting
    bool groupCalculator = false;                     ///< thousands separators: calculator
    bool groupEquations = false;                      ///< the same: pages of linear systems and of
                                                      ///< polynomials; roots have none
    bool groupPrimes = false;                         ///< the same: prime pages

    AngleType angleType = AngleRadians;
    NumberType numberType = NumberTypeReal;
    int64_t decimalPrecision = 0;  ///< significant digits; below 1 until RepairPrecision
    int64_t outputNumberBase =
        DecimalBase;  ///< any number; InstalledOutputBase gives the base to use
    bool useLowerCaseHex = false;
    int64_t variableCount = 0;
    /// The first variableCount are in use, at most MaxVariables. After reading they point into the
    /// text of the file.
    SettingsVariable variables[ProductVariables] = {};

    bool showWelcomeHint = true;  ///< show About at the next start

    bool settingsDirty = false;  ///< the settings differ from the file and must be written
};

/// The one record of the process.
extern Settings settings;

/// Gives a setting a new value. Returns true when it differs from the old one; settingsDirty is set
/// then.
template <typename Value>
bool ChangeSetting(Settings& record, Value Settings::*setting, std::type_identity_t<Value> value) {
    if (record.*setting == value) {
        return false;
    }
    record.*setting = value;
    record.settingsDirty = true;
    return true;
}

/// Either both separators are automatic or none is, and then they differ. If only one is automatic,
/// or both are the same character, makes both automatic and sets settingsDirty.
void RepairSeparators(Settings& record);

/// A precision below 1 becomes DefaultDigits, and settingsDirty is set.
void RepairPrecision(Settings& record);

/// The base in which the calculator shows integers: the setting if it is one of NumberBases,
/// else DecimalBase. The setting itself does not change, so the file keeps its value.
int64_t InstalledOutputBase(const Settings& record);

}  // namespace tallymere
