// What each file of benchmarks adds to the program. A benchmark is named WORK/SIDE/SIZE, as in
// "product/ours/1000", and its time is that of one operation.
#pragma once

namespace tallymere::bench {

void AddArithmeticBenchmarks();
void AddTextBenchmarks();
void AddFormulaBenchmarks();
void AddLimbProductBenchmarks();
void AddMpfrBenchmarks();
void AddFunctionBenchmarks();
void AddFactorialBenchmarks();
void AddExactBenchmarks();
void AddPrimeBenchmarks();

/// Print the numbers of a work whose times depend much on the number, one a line, and the time in
/// nanoseconds that a side, "ours" or "pari", takes for each of them. The works are
/// "factor-random", "factor-two-primes" and "prime-proof"; bitsText is the length of the numbers,
/// an even number from 66 to 128. Return the exit status: 2 for anything else, 1 for a wrong
/// answer.
int PrintNumbers(const char* workName, const char* bitsText);
int PrintNumberTimes(const char* workName, const char* side, const char* bitsText);

}  // namespace tallymere::bench
