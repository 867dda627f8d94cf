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

/// Print the numbers of a kind, "random" or "two-primes", one a line, and the time in nanoseconds
/// that a side, "ours" or "pari", takes to factor each of them. 2 for another kind or side.
int PrintFactorNumbers(const char* kind);
int PrintFactorTimes(const char* kind, const char* side);

}  // namespace tallymere::bench
