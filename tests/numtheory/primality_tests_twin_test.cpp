// The probabilistic test of primality against its plain twin.
#include <gtest/gtest.h>

#include "exact/big_uint.h"
#include "numtheory/primality_tests.h"
#include "numtheory/small_primes.h"
#include "reference/big_uint_division_twins.h"
#include "reference/primality_twins.h"
#include "support/exact_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// Odd, above 1008, of at most so many limbs.
void FillOdd(RandomSource& random, UintBuffer& n, int64_t limbs) {
    do {
        FillUint(random, n, random.Between(1, limbs));
        n.Get()[0] |= 1;
    } while (BigUintFitsUnsigned(n) && n.Get()[0] <= 1008);
}

TEST(PrimalityTestsTwin, AgreesOnAllOddNumbersBelow20000) {
    WidthScope scope(1);
    UintBuffer n;
    for (uint64_t k = 3; k < 20'000; k += 2) {
        BigUintFromUnsigned(n, k);
        ASSERT_EQ(EulerTestBase2(n), reference::TwinEulerTestBase2(n.Limbs())) << k;
        ASSERT_EQ(EulerTestBase3(n), reference::TwinEulerTestBase3(n.Limbs())) << k;
        ASSERT_EQ(IsCompositeNumber(n), reference::TwinIsCompositeNumber(n.Limbs())) << k;
    }
}

// The wider ones are mostly of a few limbs.
TEST(PrimalityTestsTwin, AgreesOnRandomNumbers) {
    RandomSource random;
    const std::pair<int64_t, int> widths[] = {{1, 2'000}, {2, 1'000}, {3, 500}, {8, 30}, {65, 2}};
    for (const auto& [limbs, rounds] : widths) {
        WidthScope scope(limbs);
        UintBuffer n;
        for (int round = 0; round < TestRounds(rounds); round++) {
            FillOdd(random, n, limbs);
            ASSERT_EQ(EulerTestBase2(n), reference::TwinEulerTestBase2(n.Limbs())) << n.Text();
            ASSERT_EQ(EulerTestBase3(n), reference::TwinEulerTestBase3(n.Limbs())) << n.Text();
            ASSERT_EQ(IsCompositeNumber(n), reference::TwinIsCompositeNumber(n.Limbs()))
                << n.Text();
        }
    }
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

TEST(PrimalityTestsTwin, AgreesOnSymbolsWithAndWithoutCommonFactors) {
    WidthScope scope(2);
    UintBuffer a;
    UintBuffer b;
    for (uint64_t k = 0; k < 150; k++) {
        for (uint64_t m = 1; m < 150; m += 2) {
            BigUintFromUnsigned(a, k);
            BigUintFromUnsigned(b, m);
            ASSERT_EQ(JacobiSymbol(a, b), reference::TwinJacobiSymbol(a.Limbs(), b.Limbs()))
                << k << " " << m;
        }
    }
    RandomSource random;
    for (int64_t limbs : {1, 2, 5}) {
        WidthScope wide(limbs);
        UintBuffer x;
        UintBuffer y;
        for (int round = 0; round < TestRounds(500); round++) {
            FillUint(random, x);
            FillUint(random, y);
            y.Get()[0] |= 1;
            ASSERT_EQ(JacobiSymbol(x, y), reference::TwinJacobiSymbol(x.Limbs(), y.Limbs()))
                << x.Text() << " " << y.Text();
        }
    }
}

// Multiples of each prime, of one prime alone, and their neighbours.
TEST(PrimalityTestsTwin, AgreesOnDivisorsBelow1000) {
    RandomSource random;
    for (int64_t limbs : {1, 2, 3, 65}) {
        WidthScope scope(limbs);
        UintBuffer n;
        for (int round = 0; round < TestRounds(2'000); round++) {
            FillUint(random, n, random.Between(1, limbs));
            const int64_t length = std::max<int64_t>(BigUintLength(n), 1);
            bool expected = false;
            for (uint64_t p = 3; p < 1000 && !expected; p += 2) {
                expected = reference::TwinIsPrimeByWalk(p) &&
                           reference::TwinDivideSmall(n.Limbs(), p).remainder == 0;
            }
            ASSERT_EQ(HasSmallOddPrime(n, length), expected) << n.Text();
            ASSERT_EQ(HasSmallOddPrime(n, limbs), expected) << n.Text();
        }
    }
    // The Mersenne prime 2^521 - 1 has no other divisor, so that each of these has only one.
    WidthScope scope(9);
    const UintBuffer prime("2^521-1");
    EXPECT_FALSE(HasSmallOddPrime(prime, 9));
    for (uint64_t p = 2; p < 1100; p++) {
        const reference::TwinLimbs multiple = reference::TwinMulFull(prime.Limbs(), {p});
        bool expected = false;
        for (uint64_t d = 3; d <= 997; d += 2) {
            expected = expected || (p % d == 0 && reference::TwinIsPrimeByWalk(d));
        }
        ASSERT_EQ(HasSmallOddPrime(multiple.data(), 10), expected) << p;
    }
}

}  // namespace
}  // namespace tallymere
