// The settings: the user's options, the state of the calculator and its variables between two runs.
//
// They are read once, at the start, and written once, at the end, if they changed.
// shell/settings_walk.h takes them from the text of the file and back; what the values look like
// there is in shell/settings_values.h.
#pragma once

#include <cstdint>
#include <type_traits>

#include "core/number_context.h"
#include "shell/separators.h"
#include "shell/ui_text.h"

namespace tallymere {

/// The unit of the calculator's keys for angles, as the settings file has it.
enum AngleType : int32_t {
    AngleDegrees = 1,
    AngleRadians = 2,
    AngleGon = 3,
};

/// A variable of the calculator as a pair of texts, which belong to somebody else.
struct SettingsVariable {
    const char16_t* name;   ///< of any length; may be empty or no valid name
    const char16_t* value;  ///< with "." as decimal point and no group separators
};

/// Variables beyond these are not kept.
inline constexpr int64_t MaxSettingsVariables = 100;

/// The initial values are those of a first start, and of a file without the key in question.
struct Settings {
    Language language = LanguageAutomatic;
    int32_t decimalSeparator = DecimalAutomatic;      ///< a DecimalSeparatorSetting
    int32_t thousandsSeparator = ThousandsAutomatic;  ///< a ThousandsSeparatorSetting
    bool groupCalculator = false;                     ///< thousands separators on the calculator,
    bool groupEquations = false;                      ///< in equations and polynomials,
    bool groupPrimes = false;                         ///< on the pages of primes

    AngleType angleType = AngleRadians;
    NumberType numberType = NumberTypeReal;
    int64_t decimalPrecision = 0;   ///< significant digits; below 1 until RepairPrecision
    int64_t outputNumberBase = 10;  ///< any number; InstalledOutputBase is the one that counts
    bool useLowerCaseHex = false;
    int64_t variableCount = 0;
    /// The first variableCount are there. After reading they point into the text of the file.
    SettingsVariable variables[MaxSettingsVariables] = {};

    bool showWelcomeHint = true;  ///< show About at the next start

    bool settingsDirty = false;  ///< the settings differ from the file and are to be written
};

/// The one record of the process.
extern Settings settings;

/// Gives a setting a new value. Returns whether it is another one, and then notes that the settings
/// are to be written.
template <typename Value>
bool ChangeSetting(Settings& record, Value Settings::*setting, std::type_identity_t<Value> value) {
    if (record.*setting == value) {
        return false;
    }
    record.*setting = value;
    record.settingsDirty = true;
    return true;
}

/// Two automatic separators or none: a single automatic one makes both automatic, and the settings
/// are to be written.
void RepairSeparators(Settings& record);

/// A precision below 1 becomes 10, and the settings are to be written.
void RepairPrecision(Settings& record);

/// The base in which the calculator shows integers: the setting if it is 2, 8, 10 or 16, else 10.
/// The setting stays, so that the file keeps what it had.
int64_t InstalledOutputBase(const Settings& record);

}  // namespace tallymere
