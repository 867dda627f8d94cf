// The Prime Factors page.
#pragma once

#include "prime_pages/prime_factors_form.h"
#include "prime_pages/windows/prime_page.h"

namespace tallymere {

/// Its controls are named by PrimeFactorsControl.
extern PrimePage primeFactorsPage;

/// Makes the page, hidden, as pageWindows[PagePrimeFactors].
void CreatePrimeFactorsPage();

}  // namespace tallymere
