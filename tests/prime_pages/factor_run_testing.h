// What tests of the runs of the Prime Factors page share.
#pragma once

#include <string>
#include <vector>

#include "prime_pages/factor_run.h"
#include "prime_pages/prime_fields.h"
#include "prime_pages_testing.h"

namespace tallymere::testing_support {

enum Shown { Factors, Divisors, CountedDivisors };

class FactorRunTest : public PrimePagesTest {
protected:
    /// The number is a text of UintFromPlainText.
    static RunResult Run(Shown shown, const std::string& number, int32_t interval = 1,
                         uint32_t printFlags = 0, SendText send = KeepPiece) {
        const NumberSetupScope setup(FactorNumberSetup());
        const UintBuffer start(number);
        std::vector<uint64_t> divisors(FactorDivisorWords);
        const FactorRequest request = {
            .showDivisors = shown != Factors,
            .showCount = shown == CountedDivisors,
            .number = {start.Get()[0], start.Get()[1]},
            .interval = interval,
            .printFlags = printFlags,
            .parseFlags = 0,
            .divisors = shown != Factors ? divisors.data() : nullptr,
        };
        return ResultOf([&] { FactorWorker(request, send); });
    }

    /// The number that UiErrorTooManyPrimeFactors names.
    static std::u16string Argument(Shown shown, const std::string& number, uint32_t printFlags) {
        const RunResult result = Run(shown, number, 1, printFlags);
        EXPECT_EQ(result.error, UiErrorTooManyPrimeFactors);
        return result.argument;
    }
};

}  // namespace tallymere::testing_support
