#include "prime_pages/prime_numbers_form.h"

#include "shell/text_format.h"

namespace tallymere {

namespace {

// All numbers of so many digits fit two limbs, and some of one digit more.
constexpr int32_t ExactDigits = 38;
// Some numbers of so many digits fit 65 limbs, none of more.
constexpr int32_t ProbabilisticDigits = 1253;

}  // namespace

void WritePrimeMethodText(char16_t* text, PrimeNumbersControl control) {
    text[0] = 0;
    if (control == PrimeNumbersExact) {
        FormatBounded(text, PrimeMethodTextCapacity, uiText.TextPrimesExactMaxDecimalDigits,
                      {ExactDigits, ExactDigits + 1});
    } else if (control == PrimeNumbersProbabilistic) {
        FormatBounded(text, PrimeMethodTextCapacity, uiText.TextPrimesProbabilisticMaxDecimalDigits,
                      {ProbabilisticDigits});
    }
}

}  // namespace tallymere
