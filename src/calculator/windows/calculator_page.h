// The calculator page.
#pragma once

namespace tallymere {

/// Makes the page, hidden, as pageWindows[PageCalculator], puts the settings of the calculator in
/// force, takes the variables of the settings over, and reports an error that is pending from the
/// start of the program.
void CreateCalculatorPage();

}  // namespace tallymere
