#include "bench/random_wide.h"

#include <gmp.h>

namespace tallymere::bench {

namespace {

void Import(mpz_t number, Wide n) {
    const uint64_t words[] = {n.low, n.high};
    mpz_import(number, 2, -1, sizeof(uint64_t), 0, 0, words);
}

}  // namespace

Wide RandomWide(std::mt19937_64& random, int64_t bits) {
    Wide n = {};
    n.low = random();
    n.high = random();
    const uint64_t topBit = uint64_t{1} << ((bits - 1) % 64);
    if (bits > 64) {
        n.high = (n.high & (topBit - 1)) | topBit;
    } else {
        n = {0, (n.low & (topBit - 1)) | topBit};
    }
    return n;
}

Wide RandomWidePrime(std::mt19937_64& random, int64_t bits) {
    mpz_t prime;
    mpz_init(prime);
    do {
        Import(prime, RandomWide(random, bits));
        mpz_nextprime(prime, prime);
    } while (mpz_sizeinbase(prime, 2) > static_cast<size_t>(bits));
    uint64_t words[2] = {};
    mpz_export(words, nullptr, -1, sizeof(uint64_t), 0, 0, prime);
    mpz_clear(prime);
    return {words[1], words[0]};
}

std::string WideText(Wide n) {
    mpz_t value;
    mpz_init(value);
    Import(value, n);
    std::string text(mpz_sizeinbase(value, 10) + 2, '\0');
    mpz_get_str(text.data(), 10, value);
    text.resize(text.find('\0'));
    mpz_clear(value);
    return text;
}

}  // namespace tallymere::bench
