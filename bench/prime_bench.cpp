// Tests of primality: ours, powers of GMP and PARI's. The size of a benchmark is the length of its
// numbers, in limbs for the probabilistic test and in bits for words.

#include <gmp.h>

#include <random>
#include <vector>

#include "bench/benchmarks.h"
#include "bench/measuring.h"
#include "bench/pari_peer.h"
#include "bench/random_wide.h"
#include "core/number_context.h"
#include "core/number_setup.h"
#include "exact/big_uint.h"
#include "numtheory/baillie_psw.h"
#include "numtheory/primality_tests.h"
#include "numtheory/prime_proof.h"

namespace tallymere::bench {

namespace {

constexpr int64_t TestLimbs = 65;
constexpr int64_t TestDigits = 1'252;

// A prime of 1,252 digits: 3 10^1251 + 3473.
void MakeTestPrime(mpz_t prime) {
    mpz_init(prime);
    mpz_ui_pow_ui(prime, 10, TestDigits - 1);
    mpz_mul_ui(prime, prime, 3);
    mpz_add_ui(prime, prime, 3'473);
}

void TestOurs(benchmark::State& state) {
    mpz_t prime;
    MakeTestPrime(prime);
    Words words(TestLimbs, 0);
    mpz_export(words.data(), nullptr, -1, sizeof(uint64_t), 0, 0, prime);
    mpz_clear(prime);
    InstallUintWidth(UintWidthForLimbs(TestLimbs));
    GoRound(state, 1, [&](size_t) {
        if (IsCompositeNumber(words.data()) != 0) {
            SetCalcError(CalcErrorUndefined);
        }
    });
}

// The two powers that the Euler tests need.
void TestGmp(benchmark::State& state) {
    mpz_t prime;
    MakeTestPrime(prime);
    mpz_t exponent;
    mpz_t power;
    mpz_inits(exponent, power, nullptr);
    mpz_tdiv_q_2exp(exponent, prime, 1);
    GoRound(state, 1, [&](size_t) {
        for (const unsigned long base : {2ul, 3ul}) {
            mpz_set_ui(power, base);
            mpz_powm(power, power, exponent, prime);
        }
    });
    mpz_clears(prime, exponent, power, nullptr);
}

std::vector<uint64_t> RandomWordPrimes() {
    std::mt19937_64 random(Seed);
    std::vector<uint64_t> primes;
    while (primes.size() < 1'000) {
        primes.push_back(RandomWidePrime(random, 64).low);
    }
    return primes;
}

void WordsOurs(benchmark::State& state) {
    const std::vector<uint64_t> primes = RandomWordPrimes();
    GoRound(state, primes.size(),
            [&](size_t i) { benchmark::DoNotOptimize(IsPrimeWord(primes[i])); });
}

void WordsPari(benchmark::State& state) {
    const std::vector<uint64_t> primes = RandomWordPrimes();
    GoRound(state, primes.size(),
            [&](size_t i) { benchmark::DoNotOptimize(PariIsPrimeWord(primes[i])); });
}

}  // namespace

void AddPrimeBenchmarks() {
    benchmark::RegisterBenchmark(BenchmarkName("prime-test", "ours", TestLimbs).c_str(), TestOurs);
    benchmark::RegisterBenchmark(BenchmarkName("prime-test", "gmp", TestLimbs).c_str(), TestGmp);
    benchmark::RegisterBenchmark(BenchmarkName("word-prime", "ours", 64).c_str(), WordsOurs);
    benchmark::RegisterBenchmark(BenchmarkName("word-prime", "pari", 64).c_str(), WordsPari);
}

}  // namespace tallymere::bench
