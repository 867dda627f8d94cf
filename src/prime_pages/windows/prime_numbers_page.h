// The Prime Numbers page.
#pragma once

#include "prime_pages/prime_numbers_form.h"
#include "prime_pages/windows/prime_page.h"

namespace tallymere {

/// Its controls are named by PrimeNumbersControl.
extern PrimePage primeNumbersPage;

/// Makes the page, hidden, as pageWindows[PagePrimeNumbers].
void CreatePrimeNumbersPage();

}  // namespace tallymere
