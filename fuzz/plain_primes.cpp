#include "fuzz/plain_primes.h"

namespace tallymere::fuzz {

namespace {

// a + b modulo n, for a and b below n.
Integer128 AddModulo(Integer128 a, Integer128 b, Integer128 n) {
    return a >= n - b ? a - (n - b) : a + b;
}

Integer128 MultiplyModulo(Integer128 a, Integer128 b, Integer128 n) {
    if (n >> 64 == 0) {
        return a * b % n;
    }
    Integer128 product = 0;
    for (; b > 0; b >>= 1) {
        product = (b & 1) != 0 ? AddModulo(product, a, n) : product;
        a = AddModulo(a, a, n);
    }
    return product;
}

Integer128 RaiseModulo(Integer128 a, Integer128 exponent, Integer128 n) {
    Integer128 power = 1 % n;
    for (; exponent > 0; exponent >>= 1) {
        power = (exponent & 1) != 0 ? MultiplyModulo(power, a, n) : power;
        a = MultiplyModulo(a, a, n);
    }
    return power;
}

bool PassesStrongTest(Integer128 n, uint64_t base) {
    Integer128 odd = n - 1;
    int twos = 0;
    for (; (odd & 1) == 0; odd >>= 1) {
        twos++;
    }
    Integer128 power = RaiseModulo(base, odd, n);
    bool passes = power == 1;
    for (; twos > 0; twos--) {
        passes = passes || power == n - 1;
        power = MultiplyModulo(power, power, n);
    }
    return passes;
}

}  // namespace

bool IsPlainlyPrime(Integer128 n) {
    constexpr uint64_t Bases[] = {2, 3, 5, 7, 11, 13, 17, 19, 23, 29, 31, 37, 41};
    for (const uint64_t base : Bases) {
        if (n % base == 0) {
            return n == base;
        }
    }
    if (n < 43 * 43) {
        return n > 1;
    }
    for (const uint64_t base : Bases) {
        if (!PassesStrongTest(n, base)) {
            return false;
        }
    }
    return true;
}

}  // namespace tallymere::fuzz
