#include "bench/pari_peer.h"

#include <pari/pari.h>

#include <cstdio>

namespace tallymere::bench {

namespace {

long BitsForDigits(int64_t digits) {
    constexpr double BitsPerDigit = 3.3219281;
    return static_cast<long>(static_cast<double>(digits) * BitsPerDigit) + 1;
}

}  // namespace

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

PariPolynomial::PariPolynomial(const char* text, int64_t digits) {
    PreparePari();
    const pari_sp top = avma;
    char wanted[32];
    std::snprintf(wanted, sizeof(wanted), "%lld", static_cast<long long>(digits));
    sd_realprecision(wanted, d_SILENT);
    polynomial_ = gclone(gp_read_str(text));
    set_avma(top);
}

int64_t PariPolynomial::CountProduct(const PariPolynomial& other) const {
    const pari_sp top = avma;
    const int64_t count =
        lg(gmul(static_cast<GEN>(polynomial_), static_cast<GEN>(other.polynomial_))) - 2;
    set_avma(top);
    return count;
}

int64_t PariPolynomial::CountQuotientAndRemainder(const PariPolynomial& divisor) const {
    const pari_sp top = avma;
    GEN rest = nullptr;
    const GEN quotient =
        poldivrem(static_cast<GEN>(polynomial_), static_cast<GEN>(divisor.polynomial_), &rest);
    const int64_t count = lg(quotient) + lg(rest) - 4;
    set_avma(top);
    return count;
}

int64_t PariPolynomial::CountPower(int64_t exponent) const {
    const pari_sp top = avma;
    const int64_t count =
        lg(gpowgs(static_cast<GEN>(polynomial_), static_cast<long>(exponent))) - 2;
    set_avma(top);
    return count;
}

PariPolynomial::~PariPolynomial() {
    gunclone(static_cast<GEN>(polynomial_));
}

int64_t PariPolynomial::CountRoots(int64_t digits) const {
    const pari_sp top = avma;
    const long bits = BitsForDigits(digits);
    const int64_t count = lg(roots(static_cast<GEN>(polynomial_), nbits2prec(bits))) - 1;
    set_avma(top);
    return count;
}

PariSystem::PariSystem(const char* matrix, const char* rightSide, int64_t digits) {
    PreparePari();
    const pari_sp top = avma;
    const auto read = [digits](const char* text) {
        GEN value = gp_read_str(text);
        return gclone(digits == 0 ? value : gprec_w(value, nbits2prec(BitsForDigits(digits))));
    };
    matrix_ = read(matrix);
    rightSide_ = read(rightSide);
    set_avma(top);
}

PariSystem::~PariSystem() {
    gunclone(static_cast<GEN>(matrix_));
    gunclone(static_cast<GEN>(rightSide_));
}

int64_t PariSystem::CountUnknowns() const {
    const pari_sp top = avma;
    const int64_t count = nbrows(gauss(static_cast<GEN>(matrix_), static_cast<GEN>(rightSide_)));
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
