// Times of single numbers, where they differ too much for a mean: what bench/compare makes its
// medians and worst cases of.
#pragma once

namespace tallymere::bench {

/// Print the numbers of a work, one a line, and the time in nanoseconds that a side, "ours" or
/// "pari", takes for each of them. The works are "factor-random", "factor-two-primes" and
/// "prime-proof"; bitsText is the length of the numbers, an even number from 66 to 128. Return the
/// exit status: 2 for anything else, 1 for a wrong answer.
int PrintNumbers(const char* workName, const char* bitsText);
int PrintNumberTimes(const char* workName, const char* side, const char* bitsText);

}  // namespace tallymere::bench
