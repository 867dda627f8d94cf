#include "numtheory/pollard_rho.h"

#include <algorithm>

#include "core/contract.h"
#include "numtheory/montgomery.h"
#include "numtheory/residue_inverse.h"
#include "numtheory/wide_integers.h"

namespace tallymere {

namespace {

// So many differences are multiplied before their common divisor with n is taken.
constexpr uint64_t DifferencesPerDivisor = 64;

// The sequence x, x^2 + constant, ... modulo n. Its numbers are taken as they stand, as residues.
struct Sequence {
    WordModulus modulus;
    uint64_t constant;

    uint64_t Next(uint64_t x) const {
        return ResidueAdd(modulus, ResidueSquare(modulus, x), constant);
    }
};

// The common divisor of n and a difference of the anchor and a number behind x, for the first one
// that has such a divisor above 1; there is one. 0 where it is n itself.
uint64_t DivisorOfOneDifference(const Sequence& sequence, uint64_t anchor, uint64_t x) {
    const WordModulus& modulus = sequence.modulus;
    uint64_t divisor = 1;
    while (divisor == 1) {
        x = sequence.Next(x);
        divisor = CommonDivisor(ResidueSubtract(modulus, anchor, x), modulus.n);
    }
    return divisor == modulus.n ? 0 : divisor;
}

}  // namespace

uint64_t FindDivisorByRho(uint64_t n, uint64_t constant, uint64_t steps) {
    TALLYMERE_REQUIRE(n >= 3 && IsOdd(n) && constant >= 1 && constant < n);
    const Sequence sequence = {PrepareModulus(n), constant};
    const WordModulus& modulus = sequence.modulus;
    uint64_t x = ResidueDouble(modulus, modulus.one);
    uint64_t done = 0;
    // Stretches of 1, 2, 4, ... numbers. Each number of a stretch is compared with the anchor, the
    // last number before the stretch.
    for (uint64_t length = 1; done < steps; length *= 2) {
        const uint64_t anchor = x;
        // The differences of the first half of such a stretch are covered by the stretch before.
        for (uint64_t i = 0; i < length / 2; i++) {
            x = sequence.Next(x);
        }
        done += length / 2;
        for (uint64_t i = length / 2; i < length && done < steps; i += DifferencesPerDivisor) {
            const uint64_t count = std::min(DifferencesPerDivisor, length - i);
            const uint64_t start = x;
            uint64_t product = modulus.one;
            for (uint64_t k = 0; k < count; k++) {
                x = sequence.Next(x);
                product = ResidueMultiply(modulus, product, ResidueSubtract(modulus, anchor, x));
            }
            done += count;
            const uint64_t divisor = CommonDivisor(product, n);
            if (divisor == n) {
                // Several factors at once: they may come apart one difference after the other.
                return DivisorOfOneDifference(sequence, anchor, start);
            }
            if (divisor != 1) {
                return divisor;
            }
        }
    }
    return 0;
}

}  // namespace tallymere
