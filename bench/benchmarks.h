// The benchmarks: each function adds those of the file that defines it. A benchmark is named
// WORK/SIDE/SIZE, as in "product/ours/1000", and its time is that of one operation.
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
void AddRootBenchmarks();
void AddSystemBenchmarks();
void AddPolynomialBenchmarks();

}  // namespace tallymere::bench
