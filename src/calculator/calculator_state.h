// The state of the calculator: its number settings, the last result and the result's text.
//
// NumberContext is shared with the other pages, so the calculator keeps its own settings here and
// calculates within a NumberSetupScope of them.
#pragma once

#include <algorithm>
#include <cstdint>

#include "core/limits.h"
#include "core/number_bases.h"
#include "core/number_setup.h"

namespace tallymere {

/// How the result is shown.
enum ResultForm : uint32_t {
    ResultAutomatic = 0,
    ResultFixed = 1,
    ResultScientific = 2,
    ResultMixed = 3,  ///< a fraction with its whole part; other types show it as automatic
};

/// The words of the longest value of any type that the calculator can install.
inline constexpr int64_t CalcResultWords =
    std::max({2 * (LayoutForDigits(MaxPrecisionDigits).limbs + 1),
              UintLimbsForDigits(CalcUintDigits), 2 * UintLimbsForDigits(CalcRationalDigits) + 1});

/// Automatic notation writes no exponent for a real number whose exponent lies above this and below
/// the precision setting.
inline constexpr int64_t AutomaticFixedAbove = -4;

struct CalculatorState {
    int64_t calcPrecision = DefaultDigits;  ///< the precision setting; results are rounded to it
    /// calcPrecision + 2, the digits of the arithmetic.
    int64_t calcWorkingDigits = DefaultDigits + 2;
    int64_t calcIntegerDigits = 1;         ///< digits of integers; 1 for types that have none
    int64_t calcOutputBase = DecimalBase;  ///< of NumberBases; 10 unless the type is uint
    /// The number type of the calculator; calcResult has it too as long as resultValid holds.
    NumberType calcResultType = NumberTypeReal;
    ResultForm resultForm = ResultAutomatic;
    bool ansAvailable = false;    ///< there was a result
    bool resultValid = false;     ///< the result shown belongs to the formula and settings shown
    bool resultBracket = false;   ///< an exact type lost a remainder on the way to the result
    bool formulaTouched = false;  ///< the formula field holds something that the user wants to keep

    uint64_t calcResult[CalcResultWords] = {};
    /// The result as shown. `ans` is this text and not the number; empty before the first result
    /// and for one whose fixed notation is too long.
    char16_t calcResultText[ProductResultCharacters + 1] = {};
};

/// The one calculator of the process. It belongs to the UI thread; during a run the CalcThread has
/// it, and the UI thread touches resultValid and formulaTouched alone, which a run leaves alone.
extern CalculatorState calculator;

/// The result shown is no longer that of the formula and settings shown.
void MarkResultStale();

/// Takes over the precision setting, |precision| < 2^62, and puts it in force until the end of the
/// scope or run that it is called in. A precision that leads outside the layouts of the core notes
/// CalcErrorBadParameter and leaves the layout.
void ApplyPrecision(int64_t precision);

/// Takes over the number type and puts it in force likewise. The base, one of NumberBases, matters
/// for uint.
void InstallNumberType(NumberType type, int64_t base);

/// Likewise; the result shown is stale then.
void ApplyNumberType(NumberType type, int64_t base);

/// Type, digits and integer width of the calculator. The notation window comes with the text of a
/// result, see ShowResult.
NumberSetup CalcNumberSetup();

/// Puts them in force again, see InstallNumberSetup. What lasts no longer than a function uses a
/// NumberSetupScope instead.
void RestoreCalcContext();

/// What "=" begins with: the result shown is stale, and the next one has no form of its own yet.
void BeginEvaluation();

/// The calculator without a result: no `ans`, automatic form, and the formula, which is to be
/// emptied, not touched. The settings stay in force and a pending error stays pending.
void ResetCalculator();

}  // namespace tallymere
