// What the number theory takes of CoreScratch for its longest numbers: always within its bounds,
// and given back.
#include <gtest/gtest.h>

#include <functional>

#include "exact/big_uint.h"
#include "numtheory/primality_tests.h"
#include "numtheory/prime_proof.h"
#include "support/exact_testing.h"
#include "support/memory_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

void Measure(const char* name, int64_t expectedBytes, const std::function<void()>& run) {
    const CoreScratchCount count;
    run();
    ExpectMostOfCoreScratch(name, expectedBytes);
}

TEST(NumtheoryMemory, StaysWithinCoreScratchAtTheWidthOfThePage) {
    WidthScope scope(65);
    const UintBuffer prime("2^4160-1017");
    UintBuffer next;
    BigUintSubOne(next, prime);
    Measure("IsCompositeNumber, 65 limbs", 3'656, [&] { EXPECT_EQ(IsCompositeNumber(prime), 0); });
    Measure("JacobiSymbol, 65 limbs", 2'088, [&] { JacobiSymbol(next, prime); });
}

// Numbers of 64,000 bits take minutes; what they take of memory is known after the first bit.
TEST(NumtheoryMemory, StaysWithinCoreScratchForTheWidestIntegers) {
    uint8_t stop = 1;
    const FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    {
        WidthScope scope(MaxEulerTestLimbs);
        const UintBuffer longest("2^64000-1");
        Measure("EulerTestBase2, 1,000 limbs", 48'016, [&] { EulerTestBase2(longest); });
        Measure("EulerTestBase3, 1,000 limbs", 56'016, [&] { EulerTestBase3(longest); });
        EXPECT_EQ(TakeCode(), CalcErrorCancelled);
    }
    WidthScope scope(MaxUintLimbs);
    const UintBuffer longest("2^128000-1");
    UintBuffer next;
    BigUintSubOne(next, longest);
    BigUintSubOne(next, next);
    Measure("EulerTestBase3, 2,000 limbs", 112'016, [&] { EulerTestBase3(longest); });
    EXPECT_EQ(TakeCode(), CalcErrorCancelled);
    Measure("JacobiSymbol, 2,000 limbs", 64'008, [&] { JacobiSymbol(next, longest); });
}

TEST(NumtheoryMemory, ProofsTakeNothing) {
    Measure("ProvePrimality", 0, [] {
        // 2^127 + 29 and 2^128 - 159.
        EXPECT_EQ(ProvePrimality({uint64_t{1} << 63, 29}), Primality::Prime);
        EXPECT_EQ(ProvePrimality({~uint64_t{0}, 0 - uint64_t{159}}), Primality::Prime);
    });
}

}  // namespace
}  // namespace tallymere
