#include "bench/pari_peer.h"

#include <pari/pari.h>

#include <cstdio>

namespace tallymere::bench {

void PreparePari() {
    static const bool started = [] {
        pari_init_opts(size_t{64} << 20, 500'000, INIT_DFTm);
        return true;
    }();
    static_cast<void>(started);
}

bool PariIsPrimeWord(uint64_t n) {
    PreparePari();
    return uisprime(n) != 0;
}

bool PariIsPrime(Wide n) {
    PreparePari();
    const pari_sp top = avma;
    const bool isPrime = isprime(uutoi(n.high, n.low)) != 0;
    set_avma(top);
    return isPrime;
}

int64_t PariFactor(Wide n) {
    PreparePari();
    const pari_sp top = avma;
    const int64_t primes = nbrows(Z_factor(uutoi(n.high, n.low)));
    set_avma(top);
    return primes;
}

PariPolynomial::PariPolynomial(const char* text) {
    PreparePari();
    const pari_sp top = avma;
    polynomial_ = gclone(gp_read_str(text));
    set_avma(top);
}

PariPolynomial::~PariPolynomial() {
    gunclone(static_cast<GEN>(polynomial_));
}

int64_t PariPolynomial::CountRoots(int64_t digits) const {
    constexpr double BitsPerDigit = 3.3219281;
    const pari_sp top = avma;
    const long bits = static_cast<long>(static_cast<double>(digits) * BitsPerDigit) + 1;
    const int64_t count = lg(roots(static_cast<GEN>(polynomial_), nbits2prec(bits))) - 1;
    set_avma(top);
    return count;
}

const char* PariVersion() {
    static char text[32];
    const uint64_t code = paricfg_version_code;
    std::snprintf(text, sizeof(text), "%d.%d.%d", static_cast<int>(code >> 16),
                  static_cast<int>(code >> 8 & 255), static_cast<int>(code & 255));
    return text;
}

}  // namespace tallymere::bench
