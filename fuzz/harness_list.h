// The function of each harness; harnesses.cpp gives them names.
#pragma once

#include "fuzz/fuzz_input.h"

namespace tallymere::fuzz {

void FuzzFormulas(FuzzInput& input);
void FuzzNumberTexts(FuzzInput& input);
void FuzzSettings(FuzzInput& input);
void FuzzVariables(FuzzInput& input);
void FuzzTextFormats(FuzzInput& input);
void FuzzKeyPresses(FuzzInput& input);
void FuzzCsv(FuzzInput& input);
void FuzzGrid(FuzzInput& input);
void FuzzFactors(FuzzInput& input);
void FuzzPrimes(FuzzInput& input);
void FuzzEquations(FuzzInput& input);
void FuzzSystems(FuzzInput& input);
void FuzzPolynomials(FuzzInput& input);

}  // namespace tallymere::fuzz
