// The settings of the calculator: from the controls of the page into the settings and into force.
//
// Each function here that takes a choice over notes that the settings are to be written if they
// changed. The page calls them within a NumberSetupScope of CalcNumberSetup.
#pragma once

#include "calculator/calculator_state.h"
#include "calculator/result_text.h"
#include "shell/settings.h"

namespace tallymere {

/// How results are shown.
ResultStyle StyleOfResult(const Settings& record);

/// The calculator at the start of the program: repairs the precision setting, puts precision and
/// number type in force and sets the calculator back. The base is that of InstalledOutputBase,
/// which the list of bases selects. An error that is pending from the start of the program stays.
void StartCalculator(Settings& record);

/// The precision field has a new value. The result is stale.
void ChoosePrecision(Settings& record, int32_t precision);

/// The slider of number types stands on another type. Returns whether it is a new one, which is in
/// force then; the result is stale. `base` is that of the list of bases.
bool ChooseNumberType(Settings& record, NumberType type, int64_t base);

/// The slider of angle units stands on another unit. Returns whether it is a new one: keys with
/// HasAngleUnit have another caption.
bool ChooseAngle(Settings& record, AngleType angle);

/// A base was chosen from the list, maybe the one before. Returns whether there is a result to be
/// shown anew.
bool ChooseOutputBase(Settings& record, int64_t base);

/// The case key was pressed: the letter keys have another caption. Returns whether there is a
/// result to be shown anew.
bool SwitchLetterCase(Settings& record);

/// What the fall of a calculation from rat to real does to the settings.
void FollowFallToReal(Settings& record);

}  // namespace tallymere
