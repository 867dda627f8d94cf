#include <gtest/gtest.h>

#include <vector>

#include "numtheory/montgomery.h"
#include "support/exact_oracle.h"
#include "support/random_source.h"
#include "support/wide_oracle.h"

namespace tallymere {
namespace {

using namespace testing_support;

uint64_t RandomNumber(RandomSource& random, uint64_t /*kind*/) {
    return RandomWord(random);
}
Wide RandomNumber(RandomSource& random, Wide /*kind*/) {
    return {RandomWord(random), RandomWord(random)};
}

uint64_t Odd(uint64_t a) {
    return (a | 1) == 1 ? 3 : a | 1;
}
Wide Odd(Wide a) {
    return a.high == 0 ? Wide{0, Odd(a.low)} : Wide{a.high, a.low | 1};
}

// The moduli at the ends, then random ones.
std::vector<uint64_t> Moduli(RandomSource& random, uint64_t kind) {
    std::vector<uint64_t> moduli = {
        3, 5, ~uint64_t{0}, ~uint64_t{0} - 2, (uint64_t{1} << 63) - 1, (uint64_t{1} << 63) + 1};
    for (int i = 0; i < TestRounds(500); i++) {
        moduli.push_back(Odd(RandomNumber(random, kind)));
    }
    return moduli;
}
std::vector<Wide> Moduli(RandomSource& random, Wide kind) {
    const uint64_t most = ~uint64_t{0};
    const uint64_t half = uint64_t{1} << 63;
    std::vector<Wide> moduli = {{0, 3},    {0, 5},           {0, most},       {1, 1},
                                {1, most}, {half - 1, most}, {half, 1},       {half, most},
                                {most, 1}, {most, most},     {most, most - 2}};
    for (int i = 0; i < TestRounds(500); i++) {
        moduli.push_back(Odd(RandomNumber(random, kind)));
    }
    return moduli;
}

// 0, 1, 2, n - 1, n - 2 and random numbers below n, as integers of GMP and as residues.
template <typename Modulus>
struct Operands {
    std::vector<Integer> numbers;
    std::vector<typename Modulus::Residue> residues;
};

void Store(uint64_t& dest, const Integer& value) {
    dest = mpz_get_ui(value);
}
void Store(Wide& dest, const Integer& value) {
    dest = ToWide(value);
}

template <typename Modulus>
Operands<Modulus> MakeOperands(RandomSource& random, const Modulus& modulus) {
    using Residue = typename Modulus::Residue;
    const Integer n = ToInteger(modulus.n);
    Operands<Modulus> operands;
    for (int i = 0; i < 9; i++) {
        Integer number = ToInteger(RandomNumber(random, Residue{}));
        if (i < 3) {
            mpz_set_ui(number, static_cast<uint64_t>(i));
        } else if (i < 5) {
            mpz_sub_ui(number, n, static_cast<uint64_t>(i - 2));
        }
        mpz_mod(number, number, n);
        Residue residue;
        Store(residue, number);
        operands.numbers.push_back(number);
        operands.residues.push_back(ToResidue(modulus, residue));
    }
    return operands;
}

template <typename Modulus>
::testing::AssertionResult Means(const Modulus& modulus, typename Modulus::Residue residue,
                                 const Integer& number) {
    const Integer n = ToInteger(modulus.n);
    if (mpz_cmp(ToInteger(residue), n) >= 0) {
        return ::testing::AssertionFailure() << "the residue is not below n";
    }
    Integer expected;
    mpz_mod(expected, number, n);
    if (mpz_cmp(ToInteger(FromResidue(modulus, residue)), expected) != 0) {
        return ::testing::AssertionFailure() << "the residue is another one";
    }
    return ::testing::AssertionSuccess();
}

template <typename Residue>
void ExpectArithmeticOfGmp() {
    RandomSource random;
    for (const Residue n : Moduli(random, Residue{})) {
        const auto modulus = PrepareModulus(n);
        const Integer integer = ToInteger(n);
        SCOPED_TRACE(DecimalText(integer));
        ASSERT_TRUE(Means(modulus, modulus.one, Integer(1)));
        ASSERT_TRUE(Means(modulus, Residue{}, Integer(uint64_t{0})));
        const auto operands = MakeOperands(random, modulus);
        for (size_t i = 0; i < operands.numbers.size(); i++) {
            const Residue a = operands.residues[i];
            ASSERT_TRUE(Means(modulus, a, operands.numbers[i]));
            Integer expected;
            mpz_mul(expected, operands.numbers[i], operands.numbers[i]);
            ASSERT_TRUE(Means(modulus, ResidueSquare(modulus, a), expected));
            mpz_mul_2exp(expected, operands.numbers[i], 1);
            ASSERT_TRUE(Means(modulus, ResidueDouble(modulus, a), expected));
            for (size_t j = 0; j < operands.numbers.size(); j++) {
                const Residue b = operands.residues[j];
                mpz_add(expected, operands.numbers[i], operands.numbers[j]);
                ASSERT_TRUE(Means(modulus, ResidueAdd(modulus, a, b), expected));
                mpz_sub(expected, operands.numbers[i], operands.numbers[j]);
                ASSERT_TRUE(Means(modulus, ResidueSubtract(modulus, a, b), expected));
                mpz_mul(expected, operands.numbers[i], operands.numbers[j]);
                ASSERT_TRUE(Means(modulus, ResidueMultiply(modulus, a, b), expected));
            }
        }
    }
}

TEST(Montgomery, WordsHaveTheArithmeticOfGmp) {
    ExpectArithmeticOfGmp<uint64_t>();
}

TEST(Montgomery, WidesHaveTheArithmeticOfGmp) {
    ExpectArithmeticOfGmp<Wide>();
}

template <typename Residue>
void ExpectAnyNumberToBeTaken() {
    RandomSource random;
    for (const Residue n : Moduli(random, Residue{})) {
        const auto modulus = PrepareModulus(n);
        for (int i = 0; i < 5; i++) {
            const Residue number = RandomNumber(random, Residue{});
            ASSERT_TRUE(Means(modulus, ToResidue(modulus, number), ToInteger(number)));
        }
    }
}

TEST(Montgomery, TakesNumbersThatAreNotBelowTheModulus) {
    ExpectAnyNumberToBeTaken<uint64_t>();
    ExpectAnyNumberToBeTaken<Wide>();
}

template <typename Residue>
void ExpectPowersOfGmp() {
    RandomSource random;
    for (const Residue n : Moduli(random, Residue{})) {
        const auto modulus = PrepareModulus(n);
        const Integer integer = ToInteger(n);
        const auto operands = MakeOperands(random, modulus);
        for (size_t i = 0; i < operands.numbers.size(); i++) {
            const Wide exponents[] = {{0, 0},
                                      {0, 1},
                                      {0, 2},
                                      {1, 0},
                                      RandomNumber(random, Wide{}),
                                      {~uint64_t{0}, ~uint64_t{0}}};
            for (const Wide exponent : exponents) {
                Integer expected;
                mpz_powm(expected, operands.numbers[i], ToInteger(exponent), integer);
                ASSERT_TRUE(
                    Means(modulus, ResiduePower(modulus, operands.residues[i], exponent), expected))
                    << DecimalText(integer);
            }
        }
    }
}

TEST(Montgomery, PowersAreThoseOfGmp) {
    ExpectPowersOfGmp<uint64_t>();
    ExpectPowersOfGmp<Wide>();
}

TEST(Montgomery, EveryOddWordHasItsInverse) {
    RandomSource random;
    for (int i = 0; i < TestRounds(10000); i++) {
        const uint64_t n = RandomWord(random) | 1;
        ASSERT_EQ(n * InverseModuloWord(n), 1u) << n;
    }
}

}  // namespace
}  // namespace tallymere
