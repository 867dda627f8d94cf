// Prime factors of single numbers, whose times differ too much for a mean: what bench/compare makes
// its medians and worst cases of.

#include <gmp.h>
#include <pari/pari.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "bench/operands.h"
#include "bench/rooms.h"
#include "core/number_context.h"
#include "numtheory/factorize_number.h"

namespace tallymere::bench {

namespace {

// Two limbs, the lower first.
using Number = std::vector<uint64_t>;

// A random prime with the highest bit of its 64 set.
uint64_t RandomPrime(std::mt19937_64& random) {
    mpz_t prime;
    mpz_init(prime);
    do {
        mpz_set_ui(prime, random() | (uint64_t{1} << 63));
        mpz_nextprime(prime, prime);
    } while (mpz_sizeinbase(prime, 2) > 64);
    const uint64_t word = mpz_get_ui(prime);
    mpz_clear(prime);
    return word;
}

// Fills in the numbers of that kind. False if there is no such kind.
bool MakeNumbers(std::string_view kind, std::vector<Number>& numbers) {
    std::mt19937_64 random(Seed);
    if (kind == "random") {
        while (numbers.size() < 50) {
            const uint64_t low = random();
            numbers.push_back({low, random() | (uint64_t{1} << 63)});
        }
        return true;
    }
    if (kind == "two-primes") {
        while (numbers.size() < 20) {
            const Wide product = wide::Multiply(RandomPrime(random), RandomPrime(random));
            numbers.push_back({product.low, product.high});
        }
        return true;
    }
    return false;
}

std::string Decimal(const Number& number) {
    mpz_t value;
    mpz_init(value);
    mpz_import(value, number.size(), -1, sizeof(uint64_t), 0, 0, number.data());
    std::string text(mpz_sizeinbase(value, 10) + 2, '\0');
    mpz_get_str(text.data(), 10, value);
    text.resize(text.find('\0'));
    mpz_clear(value);
    return text;
}

// Processor time in nanoseconds.
template <typename Work>
double TimeOf(const Work& work) {
    const auto now = [] {
        timespec time;
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) * 1e9 + static_cast<double>(time.tv_nsec);
    };
    const double start = now();
    work();
    return now() - start;
}

}  // namespace

int PrintFactorNumbers(const char* kind) {
    std::vector<Number> numbers;
    if (!MakeNumbers(kind, numbers)) {
        return 2;
    }
    for (const Number& number : numbers) {
        std::printf("%s\n", Decimal(number).c_str());
    }
    return 0;
}

int PrintFactorTimes(const char* kind, const char* side) {
    std::vector<Number> numbers;
    const bool ours = std::string_view(side) == "ours";
    if (!MakeNumbers(kind, numbers) || (!ours && std::string_view(side) != "pari")) {
        return 2;
    }
    InstallUintWidth(UintWidthForLimbs(FactorLimbs));
    if (!ours) {
        pari_init_opts(64'000'000, 500'000, INIT_DFTm);
    }
    for (const Number& number : numbers) {
        double time;
        if (ours) {
            FactorList list;
            time = TimeOf([&] { FactorizeNumber(&list, number.data()); });
        } else {
            const pari_sp top = avma;
            GEN n = strtoi(Decimal(number).c_str());
            time = TimeOf([&] { Z_factor(n); });
            set_avma(top);
        }
        std::printf("%.0f\n", time);
    }
    return 0;
}

}  // namespace tallymere::bench
