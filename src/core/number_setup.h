// What a page, a button or a console command calculates with: one record, and one scope that puts
// it in force and puts back at its end what was in force before.
//
// NumberContext is one for all pages, so nobody may count on what it holds: whoever calculates
// installs a setup of its own first, and nobody sets these fields of the context one by one.
#pragma once

#include <cstdint>

#include "core/number_context.h"

namespace tallymere {

/// The width for integers of so many decimal digits, 0 to MaxUintDigits.
constexpr UintWidth UintWidthForDigits(int64_t digits) {
    return {digits, UintLimbsForDigits(digits)};
}

struct NumberSetup {
    NumberType type = NumberTypeReal;
    int64_t digits = 16;                     ///< of real numbers: 1 to MaxPrecisionDigits
    UintWidth width = UintWidthForLimbs(1);  ///< of integers: 1 to MaxUintLimbs limbs
    NotationWindow window = DefaultNotationWindow;
};

/// What is in force.
NumberSetup CurrentNumberSetup();

/// Puts a window in force and returns true. One with an end beyond MaxFixedExponent notes
/// CalcErrorBadParameter, leaves the window as it is and returns false.
bool SetNotationWindow(NotationWindow window);

/// Puts a setup in force and returns true. Each part that is out of range notes
/// CalcErrorBadParameter and stays as it was; the other parts are in force, and the result is
/// false. An unknown number type is not noticed here, but by the operations that meet it.
///
/// For setups that outlive a function. All others use NumberSetupScope.
bool InstallNumberSetup(const NumberSetup& setup);

/// Puts back at the end of its life what was in force at its beginning.
class NumberSetupScope {
public:
    NumberSetupScope();
    /// And calculates with this setup until then; see InstallNumberSetup.
    explicit NumberSetupScope(const NumberSetup& setup);
    ~NumberSetupScope();
    NumberSetupScope(const NumberSetupScope&) = delete;
    NumberSetupScope& operator=(const NumberSetupScope&) = delete;

private:
    NumberSetup saved_;
};

/// Puts a result of CurrentNumberSetup back in force, unchecked.
void PutNumberSetupBack(const NumberSetup& saved);

/// How many scopes live. A run that outlives its function must not begin within one: the end of the
/// scope would take the setup away from under the run.
int32_t NumberSetupScopeCount();

}  // namespace tallymere
