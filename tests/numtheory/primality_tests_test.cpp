#include "numtheory/primality_tests.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <thread>
#include <vector>

#include "exact/big_uint.h"
#include "exact/big_uint_multiply.h"
#include "prime_testing.h"
#include "support/exact_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

int IsComposite(std::string_view n) {
    return IsCompositeNumber(UintBuffer(n));
}

TEST(IsCompositeNumber, SettlesNumbersUpTo1008ByTheTable) {
    const std::vector<bool> isPrime = SieveNumbers(1009);
    // Where an Euler test would run, the request would be noted.
    uint8_t stop = 1;
    const FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        UintBuffer n;
        for (uint64_t k = 0; k < 1009; k++) {
            BigUintFromUnsigned(n, k);
            ASSERT_EQ(IsCompositeNumber(n), isPrime[k] ? 0 : 1) << k;
        }
        EXPECT_EQ(IsComposite("0"), 1);
        EXPECT_EQ(IsComposite("1"), 1);
        EXPECT_EQ(IsComposite("2"), 0);
        EXPECT_EQ(IsComposite("997"), 0);
        EXPECT_EQ(TakeCode(), CalcErrorNone);
    }
}

TEST(IsCompositeNumber, TestsNumbersFrom1009On) {
    for (int64_t limbs : SmallUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(IsComposite("1009"), 0);
        EXPECT_EQ(IsComposite("1000000007"), 0);
        EXPECT_EQ(IsComposite("2^64-59"), 0);
        EXPECT_EQ(IsComposite("2^64-57"), 1);
    }
    WidthScope scope(2);
    uint8_t stop = 1;
    const FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    EXPECT_EQ(IsComposite("1009"), 1);
    EXPECT_EQ(TakeCode(), CalcErrorCancelled);
}

// The table settles only what fits one limb.
TEST(IsCompositeNumber, LooksAtAllLimbs) {
    WidthScope scope(3);
    EXPECT_EQ(IsComposite("2^64+13"), 0);
    EXPECT_EQ(IsComposite("2^128+51"), 0);
    EXPECT_EQ(IsComposite("2^64+7"), 1);
    EXPECT_EQ(IsComposite("2^128+7"), 1);
}

TEST(IsCompositeNumber, DividesByTheSmallPrimesBeforeAnyPower) {
    uint8_t stop = 1;
    const FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    for (int64_t limbs : SmallUintWidths) {
        WidthScope scope(limbs);
        // The largest number that fits, and that number less one.
        UintBuffer ones(TwoTo(64 * limbs, "-1"));
        EXPECT_EQ(IsCompositeNumber(ones), 1);
        BigUintSubOne(ones, ones);
        EXPECT_EQ(IsCompositeNumber(ones), 1);
        EXPECT_EQ(IsComposite("1000000006"), 1);
        EXPECT_EQ(IsComposite("1729"), 1);
        EXPECT_EQ(IsComposite("561"), 1);
        UintBuffer n;
        for (uint64_t p = 3; p < 1000; p += 2) {
            BigUintFromUnsigned(n, 2'147'483'647 * p);
            ASSERT_EQ(IsCompositeNumber(n), 1) << p;
        }
        EXPECT_EQ(TakeCode(), CalcErrorNone);
    }
}

// 1729 = 7 * 13 * 19 passes both.
TEST(IsCompositeNumber, FindsByDivisionWhatTheEulerTestsDoNot) {
    WidthScope scope(2);
    EXPECT_TRUE(EulerTestBase2(UintBuffer("1729")));
    EXPECT_TRUE(EulerTestBase3(UintBuffer("1729")));
    EXPECT_EQ(IsComposite("1729"), 1);
    EXPECT_EQ(IsComposite("561"), 1);
}

// All composite numbers below 4,000,000 that pass: they have no factor below 1000.
TEST(IsCompositeNumber, TakesPseudoprimesToBothBasesForPrimes) {
    constexpr uint64_t End = 4'000'000;
    WidthScope scope(2);
    const std::vector<bool> isPrime = SieveNumbers(End);
    std::vector<uint64_t> passing;
    UintBuffer n;
    for (uint64_t k = 0; k < End; k++) {
        BigUintFromUnsigned(n, k);
        if (IsCompositeNumber(n) == 0) {
            if (!isPrime[k]) {
                passing.push_back(k);
            }
        } else {
            ASSERT_FALSE(isPrime[k]) << k;
        }
    }
    EXPECT_EQ(passing, (std::vector<uint64_t>{2'284'453, 3'363'121}));
}

// Mersenne primes, and the largest primes of some widths, among them that of 65 limbs.
TEST(IsCompositeNumber, KnowsLongPrimes) {
    WidthScope scope(65);
    for (const char* prime : {"2^61-1", "2^89-1", "2^127-1", "2^521-1", "2^607-1", "2^1279-1",
                              "2^64-59", "2^128-159", "2^192-237", "2^512-569", "2^1664-1233"}) {
        EXPECT_EQ(IsComposite(prime), 0) << prime;
    }
    UintBuffer largest("2^4160-1017");
    EXPECT_EQ(largest.Limbs().back(), ~uint64_t{0});
    EXPECT_EQ(IsCompositeNumber(largest), 0);
    // The product of two primes of half the length.
    UintBuffer product;
    BigUintMul(product, UintBuffer("2^1664-1233"), UintBuffer("2^521-1"));
    EXPECT_EQ(IsCompositeNumber(product), 1);
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

TEST(IsCompositeNumber, LeavesItsOperandAndAnEarlierCodeAlone) {
    WidthScope scope(26);
    const UintBuffer prime("2^607-1");
    UintBuffer n = prime;
    SetCalcError(CalcErrorOverflow);
    EXPECT_EQ(IsCompositeNumber(n), 0);
    EXPECT_EQ(n, prime);
    EXPECT_EQ(TakeCode(), CalcErrorOverflow);
}

// The powers are meant for twice the width, which is 2,000 limbs at the most.
TEST(EulerTestBase2, IsRefusedAboveHalfTheWidestIntegers) {
    {
        WidthScope scope(1000);
        EXPECT_EQ(IsComposite("1009"), 0);
        EXPECT_EQ(IsComposite("2^521-1"), 0);
        EXPECT_EQ(TakeCode(), CalcErrorNone);
    }
    for (int64_t limbs : {1001, 2000}) {
        WidthScope scope(limbs);
        EXPECT_FALSE(EulerTestBase2(UintBuffer("1009")));
        EXPECT_EQ(TakeCode(), CalcErrorBadParameter);
        EXPECT_EQ(IsComposite("1009"), 1);
        EXPECT_EQ(TakeCode(), CalcErrorBadParameter);
        EXPECT_EQ(CurrentUintWidth().limbs, limbs);
        // What needs no power is not refused.
        EXPECT_EQ(IsComposite("997"), 0);
        EXPECT_EQ(IsComposite("1001"), 1);
        EXPECT_EQ(IsComposite("2^521-2"), 1);
        EXPECT_EQ(TakeCode(), CalcErrorNone);
        EXPECT_TRUE(EulerTestBase3(UintBuffer("1009")));
        EXPECT_EQ(TakeCode(), CalcErrorNone);
    }
}

// (2 / n) is 1 for n = 1 and 7 modulo 8. 1387 = 19 * 73 is a pseudoprime to base 2 only in Fermat's
// sense; 1905 = 3 * 5 * 127 is one in Euler's.
TEST(EulerTestBase2, ComparesThePowerWithTheSymbol) {
    WidthScope scope(2);
    for (const char* passing : {"1009", "1013", "1019", "1021", "1031", "1729", "1905", "2047"}) {
        EXPECT_TRUE(EulerTestBase2(UintBuffer(passing))) << passing;
    }
    for (const char* failing : {"1011", "1015", "1017", "1387", "1541"}) {
        EXPECT_FALSE(EulerTestBase2(UintBuffer(failing))) << failing;
    }
}

// 121 and 703 are pseudoprimes to base 3 in Euler's sense, 91 is one only in Fermat's.
TEST(EulerTestBase3, ComparesThePowerWithTheSymbol) {
    for (int64_t limbs : SmallUintWidths) {
        WidthScope scope(limbs);
        for (const char* passing : {"5", "7", "11", "13", "121", "703", "997", "1729"}) {
            EXPECT_TRUE(EulerTestBase3(UintBuffer(passing))) << passing;
        }
        for (const char* failing : {"1", "3", "9", "15", "91", "561", "1001"}) {
            EXPECT_FALSE(EulerTestBase3(UintBuffer(failing))) << failing;
        }
        EXPECT_EQ(TakeCode(), CalcErrorNone);
    }
}

TEST(EulerTestBase3, FailsForEvenNumbersAndWithoutAWidth) {
    WidthScope scope(2);
    const UintBuffer prime("1009");
    EXPECT_FALSE(EulerTestBase3(UintBuffer("0")));
    EXPECT_FALSE(EulerTestBase3(UintBuffer("2")));
    EXPECT_FALSE(EulerTestBase3(UintBuffer("2^127")));
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    const UintWidth width = CurrentUintWidth();
    numberContext.uintLimbs = 0;
    const bool passes = EulerTestBase3(prime);
    numberContext.uintLimbs = width.limbs;
    EXPECT_FALSE(passes);
    EXPECT_EQ(TakeCode(), CalcErrorUndefined);
}

TEST(EulerTests, PutBackAWidthWhoseDigitsAreNotThoseOfItsLimbs) {
    ContextCheck check;
    UintWidthScope width;
    InstallUintWidth({501, 27});
    const UintBuffer prime("2^607-1");
    uint8_t stop = 0;
    const FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    for (uint8_t asked : {0, 1}) {
        SetStopByte(&stop, asked);
        EXPECT_EQ(EulerTestBase2(prime), asked == 0);
        EXPECT_EQ(EulerTestBase3(prime), asked == 0);
        EXPECT_EQ(TakeCode(), asked == 0 ? CalcErrorNone : CalcErrorCancelled);
        EXPECT_EQ(CurrentUintWidth().digits, 501);
        EXPECT_EQ(CurrentUintWidth().limbs, 27);
    }
}

// The request is read before each bit, so that even the shortest power ends by it.
TEST(EulerTests, EndWhenAskedToStop) {
    uint8_t stop = 1;
    const FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    for (int64_t limbs : SmallUintWidths) {
        WidthScope scope(limbs);
        EXPECT_FALSE(EulerTestBase2(UintBuffer("1009")));
        EXPECT_EQ(TakeCode(), CalcErrorCancelled);
        EXPECT_FALSE(EulerTestBase3(UintBuffer("5")));
        EXPECT_EQ(TakeCode(), CalcErrorCancelled);
    }
}

// A number of 1,000 limbs without small factors takes minutes.
TEST(EulerTests, StopInTheMiddleOfTheLongestPower) {
    WidthScope scope(1000);
    for (const auto& test : {EulerTestBase2, EulerTestBase3}) {
        uint8_t stop = 0;
        const FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
        const UintBuffer n("2^64000-1");
        std::thread asking([&] { SetStopByte(&stop, 1); });
        EXPECT_FALSE(test(n));
        asking.join();
        EXPECT_EQ(TakeCode(), CalcErrorCancelled);
    }
}

TEST(JacobiSymbol, IsThatOfTheTextbooks) {
    WidthScope scope(2);
    // (a / 7) for a = 1 to 6, (a / 15) where there is no common factor, and (a / 1).
    const std::array<int32_t, 6> modulo7 = {1, 1, -1, 1, -1, -1};
    for (uint64_t a = 1; a <= 6; a++) {
        EXPECT_EQ(JacobiSymbol(UintBuffer(std::to_string(a)), UintBuffer("7")), modulo7[a - 1]);
    }
    for (const char* a : {"1", "2", "4", "8", "16", "17"}) {
        EXPECT_EQ(JacobiSymbol(UintBuffer(a), UintBuffer("15")), 1) << a;
    }
    for (const char* a : {"7", "11", "13", "14", "22"}) {
        EXPECT_EQ(JacobiSymbol(UintBuffer(a), UintBuffer("15")), -1) << a;
    }
    EXPECT_EQ(JacobiSymbol(UintBuffer("1001"), UintBuffer("9907")), -1);
    EXPECT_EQ(JacobiSymbol(UintBuffer("19"), UintBuffer("45")), 1);
    EXPECT_EQ(JacobiSymbol(UintBuffer("8"), UintBuffer("21")), -1);
    EXPECT_EQ(JacobiSymbol(UintBuffer("5"), UintBuffer("21")), 1);
    EXPECT_EQ(JacobiSymbol(UintBuffer("12345"), UintBuffer("1")), 1);
}

// The loop ends at an upper number of 0 or 1 and gives what it has by then.
TEST(JacobiSymbol, IsNeverZero) {
    WidthScope scope(2);
    EXPECT_EQ(JacobiSymbol(UintBuffer("0"), UintBuffer("1")), 1);
    EXPECT_EQ(JacobiSymbol(UintBuffer("0"), UintBuffer("9")), 1);
    EXPECT_EQ(JacobiSymbol(UintBuffer("3"), UintBuffer("3")), -1);
    EXPECT_EQ(JacobiSymbol(UintBuffer("3"), UintBuffer("9")), 1);
    EXPECT_EQ(JacobiSymbol(UintBuffer("3"), UintBuffer("15")), -1);
    EXPECT_EQ(JacobiSymbol(UintBuffer("6"), UintBuffer("15")), -1);
}

TEST(JacobiSymbol, TakesNumbersOfAnyLength) {
    for (int64_t limbs : {2, 26, 2000}) {
        WidthScope scope(limbs);
        // 2^n - 1 = -1 modulo 4 and modulo 8, and 1 modulo 3 for an even n.
        const std::string ones = TwoTo(64 * limbs, "-1");
        EXPECT_EQ(JacobiSymbol(UintBuffer("2"), UintBuffer(ones)), 1);
        EXPECT_EQ(JacobiSymbol(UintBuffer(TwoTo(64 * limbs - 1)), UintBuffer(ones)), 1);
        EXPECT_EQ(JacobiSymbol(UintBuffer(ones), UintBuffer("2147483647")),
                  JacobiSymbol(UintBuffer(std::to_string((1u << (64 * limbs % 31)) - 1)),
                               UintBuffer("2147483647")));
        EXPECT_EQ(JacobiSymbol(UintBuffer(TwoTo(100)), UintBuffer("2147483645")), 1);
        EXPECT_EQ(JacobiSymbol(UintBuffer(TwoTo(101)), UintBuffer("2147483645")), -1);
        EXPECT_EQ(TakeCode(), CalcErrorNone);
    }
}

}  // namespace
}  // namespace tallymere
