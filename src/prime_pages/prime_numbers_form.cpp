#include "prime_pages/prime_numbers_form.h"

#include "prime_pages/prime_run.h"
#include "shell/text_format.h"

namespace tallymere {

void WritePrimeMethodText(char16_t* text, PrimeNumbersControl control) {
    text[0] = 0;
    if (control == PrimeNumbersExact) {
        FormatBounded(text, PrimeMethodTextCapacity, uiText.TextPrimesExactMaxDecimalDigits,
                      {ExactSureDigits, ExactMaxDigits});
    } else if (control == PrimeNumbersProbabilistic) {
        FormatBounded(text, PrimeMethodTextCapacity, uiText.TextPrimesProbabilisticMaxDecimalDigits,
                      {ProbabilisticMaxDigits});
    }
}

}  // namespace tallymere
