// Prime factors and divisors of numbers of up to 128 bits: the product of the factors is the
// number, each of them is prime by a plain test, and of small numbers the walk finds the same.
//
// Input: how the number is made, then its bytes.
#include <gtest/gtest.h>

#include <vector>

#include "fuzz/harness_list.h"
#include "fuzz/plain_primes.h"
#include "numtheory/divisor_list.h"
#include "numtheory/prime_proof.h"
#include "reference/factor_twins.h"
#include "support/real_testing.h"

namespace tallymere::fuzz {

namespace {

// The walk and the layers of the plain twins take long beyond these.
constexpr Integer128 WalkLimit = 1 << 24;
constexpr int64_t LayerLimit = 400;

// Up to 104 bits, so that no search takes long: a few bytes, a product of words, or a power.
Integer128 MakeNumber(FuzzInput& input) {
    constexpr uint64_t FortyBits = (uint64_t{1} << 40) - 1;
    switch (input.Choice(4)) {
        case 0:
            return input.Word();
        case 1:
            return Integer128{input.Word()} * (input.Word() & FortyBits);
        case 2: {
            Integer128 product = 1;
            while (!input.IsAtEnd() && product >> 88 == 0) {
                product *= static_cast<uint64_t>(input.Number(0, 0xFFFF)) + 1;
            }
            return product;
        }
        default: {
            const auto base = static_cast<uint64_t>(input.Number(2, 0xFFFF));
            Integer128 power = base;
            for (int64_t i = input.Number(0, 60); i > 0 && power >> 88 == 0; i--) {
                power *= base;
            }
            return power;
        }
    }
}

void ExpectSameLists(const FactorList& a, const FactorList& b) {
    ASSERT_EQ(a.count, b.count);
    for (int64_t i = 0; i < a.count; i++) {
        EXPECT_EQ(a.primes[i][0], b.primes[i][0]);
        EXPECT_EQ(a.primes[i][1], b.primes[i][1]);
        EXPECT_EQ(a.multiplicities[i], b.multiplicities[i]);
    }
}

// The number of divisors that the exponents give; 0 for too many.
int64_t DivisorCount(const FactorList& factors) {
    uint64_t count = 1;
    for (int64_t i = 0; i < factors.count && count <= MaxDivisors; i++) {
        count *= factors.multiplicities[i] + 1;
    }
    return count <= MaxDivisors ? static_cast<int64_t>(count) : 0;
}

void CheckDivisors(const FactorList& factors, Integer128 number) {
    const int64_t count = DivisorCount(factors);
    std::vector<uint64_t> numbers(MaxDivisors * FactorLimbs);
    DivisorList list = {0, numbers.data()};
    BuildDivisorList(&list, &factors);
    EXPECT_EQ(list.count, count == 0 ? -1 : count);
    if (list.count < 0) {
        return;
    }
    EXPECT_TRUE(DivisorListIsWellFormed(list));
    const auto divisor = [&list](int64_t i) {
        return ToInteger({list.divisors[2 * i + 1], list.divisors[2 * i]});
    };
    // In pairs from both ends they make the number.
    for (int64_t i = 0; i < count; i++) {
        EXPECT_TRUE(divisor(i) * divisor(count - 1 - i) == number) << i;
        EXPECT_TRUE(i == 0 || divisor(i - 1) < divisor(i)) << i;
    }
    if (count <= LayerLimit) {
        std::vector<uint64_t> twinNumbers(MaxDivisors * FactorLimbs);
        DivisorList twin = {0, twinNumbers.data()};
        reference::TwinBuildDivisorList(&twin, &factors);
        EXPECT_EQ(list.count, twin.count);
        EXPECT_EQ(numbers, twinNumbers);
    }
}

}  // namespace

void FuzzFactors(FuzzInput& input) {
    const UintWidthScope width(FactorLimbs);
    const Integer128 number = MakeNumber(input);
    const Wide wide = ToWide(number);
    const uint64_t limbs[FactorLimbs] = {wide.low, wide.high};

    FactorList factors = {};
    EXPECT_EQ(FactorizeNumber(&factors, limbs), FactorOutcome::Complete);
    EXPECT_TRUE(FactorListIsWellFormed(factors));
    EXPECT_EQ(ProvePrimality(wide) == Primality::Prime, IsPlainlyPrime(number));
    if (number < 2) {
        EXPECT_EQ(factors.count, 0);
        return;
    }
    Integer128 product = 1;
    for (int64_t i = 0; i < factors.count; i++) {
        const Integer128 prime = ToInteger({factors.primes[i][1], factors.primes[i][0]});
        EXPECT_TRUE(IsPlainlyPrime(prime)) << i;
        for (uint64_t k = factors.multiplicities[i]; k > 0; k--) {
            product *= prime;
        }
    }
    EXPECT_TRUE(product == number);
    if (number < WalkLimit) {
        FactorList twin = {};
        reference::TwinFactorizeNumber(&twin, limbs);
        ExpectSameLists(factors, twin);
    }
    CheckDivisors(factors, number);
    EXPECT_EQ(testing_support::TakeCode(), CalcErrorNone);
}

}  // namespace tallymere::fuzz
