// The container of the calculator page: sliders, precision, lists and keys.
#pragma once

namespace tallymere {

/// Makes the container and all in it in calculatorWindows.page and lets the controls show the
/// settings. Keys and visibility come with ShowNumberType and ShowAngle, which need the fonts.
void CreateCalculatorContainer();

}  // namespace tallymere
