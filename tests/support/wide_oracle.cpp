#include "support/wide_oracle.h"

namespace tallymere::testing_support {

Integer ToInteger(Wide a) {
    Integer value(a.high);
    mpz_mul_2exp(value, value, 64);
    mpz_add_ui(value, value, a.low);
    return value;
}

Integer ToInteger(uint64_t a) {
    return Integer(a);
}

Wide ToWide(const Integer& value) {
    Integer high;
    mpz_tdiv_q_2exp(high, value, 64);
    return {mpz_get_ui(high), mpz_get_ui(value)};
}

Integer Product(std::initializer_list<uint64_t> factors) {
    Integer product(1);
    for (const uint64_t factor : factors) {
        mpz_mul_ui(product, product, factor);
    }
    return product;
}

std::string DecimalText(const Integer& value) {
    std::string text(mpz_sizeinbase(value, 10) + 2, '\0');
    mpz_get_str(text.data(), 10, value);
    text.resize(text.find('\0'));
    return text;
}

uint64_t RandomPrime(RandomSource& random, int bits) {
    for (;;) {
        Integer prime((random.Word() | (uint64_t{1} << 63)) >> (64 - bits));
        if (mpz_probab_prime_p(prime, 30) == 0) {
            mpz_nextprime(prime, prime);
        }
        if (mpz_sizeinbase(prime, 2) == static_cast<size_t>(bits)) {
            return mpz_get_ui(prime);
        }
    }
}

}  // namespace tallymere::testing_support
