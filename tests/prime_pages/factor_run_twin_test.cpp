// The runs of the Prime Factors page against their plain twin: the same text.
#include "factor_run_testing.h"
#include "reference/factor_run_twins.h"
#include "support/random_source.h"

namespace tallymere {
namespace {

using namespace testing_support;

class FactorRunTwins : public FactorRunTest {
protected:
    static void Compare(uint64_t first, int32_t interval, int32_t base, bool grouped) {
        const std::string number = std::to_string(first);
        const uint32_t flags = PrimePrintFlags(base, grouped);
        EXPECT_EQ(Run(Factors, number, interval, flags),
                  Sends(reference::TwinFactorLines(first, interval, base, grouped)));
        EXPECT_EQ(Run(Divisors, number, interval, flags),
                  Sends(reference::TwinDivisorLines(first, interval, base, grouped, false)));
        EXPECT_EQ(Run(CountedDivisors, number, interval, flags),
                  Sends(reference::TwinDivisorLines(first, interval, base, grouped, true)));
    }
};

TEST_F(FactorRunTwins, AgreeOnSmallNumbers) {
    Compare(1, 10'000, 10, false);
    Compare(1, 2'000, 10, true);
    Compare(1, 2'000, 16, false);
    Compare(65'000, 1'000, 16, true);
}

TEST_F(FactorRunTwins, AgreeOnRandomNumbers) {
    RandomSource random;
    for (int i = TestRounds(200); i > 0; i--) {
        const uint64_t first = 1 + random.Below((uint64_t{1} << random.Between(3, 32)) - 5);
        Compare(first, static_cast<int32_t>(random.Between(1, 4)), random.Below(2) == 0 ? 10 : 16,
                random.Below(2) == 0);
        if (HasFailure()) {
            return;
        }
    }
}

}  // namespace
}  // namespace tallymere
