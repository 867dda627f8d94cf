// Plain twins of the runs of the prime pages: each candidate is divided by each number of the
// wheel, and the text of the run is made as it goes.
//
// They write in English and know no stop. The test of a number by the probabilistic method, the
// wheel and the integers are those of the program, which have twins and tests of their own.
#pragma once

#include <string>

#include "prime_pages/prime_run.h"
#include "shell/ui_error.h"

namespace tallymere::reference {

struct TwinRun {
    std::u16string text;
    UiErrorCode error;
};

/// The run of the request, at the width in force. No CalcError may be noted before, and none is
/// noted afterwards.
TwinRun TwinPrimeRun(const PrimeRequest& request);

}  // namespace tallymere::reference
