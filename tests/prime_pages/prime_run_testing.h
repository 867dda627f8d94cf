// What tests of the runs of the Prime Numbers page share.
#pragma once

#include <string>

#include "prime_pages/prime_fields.h"
#include "prime_pages/prime_run.h"
#include "prime_pages_testing.h"

namespace tallymere::testing_support {

class PrimeRunTest : public PrimePagesTest {
protected:
    static constexpr uint64_t OtherModes = MaxPrimeInterval;

    /// The number is a text of UintFromPlainText.
    static RunResult Run(PrimeMethod method, PrimeMode mode, const std::string& number,
                         uint64_t count = OtherModes, uint32_t printFlags = 0,
                         SendText send = KeepPiece) {
        const NumberSetupScope setup(PrimeNumberSetup(method));
        const UintBuffer start(number);
        const PrimeRequest request = {method, mode, start, count, printFlags, 0};
        return ResultOf([&] { PrimeWorker(request, send); });
    }

    static RunResult Interval(const std::string& number, uint64_t count,
                              PrimeMethod method = ExactMethod, uint32_t printFlags = 0) {
        return Run(method, IntervalMode, number, count, printFlags);
    }
};

}  // namespace tallymere::testing_support
