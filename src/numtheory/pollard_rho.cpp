#include "numtheory/pollard_rho.h"

#include <algorithm>

#include "core/contract.h"
#include "numtheory/montgomery.h"
#include "numtheory/residue_inverse.h"

namespace tallymere {

namespace {

// So many differences are multiplied before their common divisor with n is taken.
constexpr uint64_t DifferencesPerDivisor = 64;

}  // namespace

uint64_t FindDivisorByRho(uint64_t n, uint64_t constant, uint64_t steps) {
    TALLYMERE_REQUIRE(n >= 3 && (n & 1) != 0 && constant >= 1 && constant < n);
    const WordModulus modulus = PrepareModulus(n);
    const auto next = [&](uint64_t x) {
        return ResidueAdd(modulus, ResidueSquare(modulus, x), constant);
    };
    uint64_t x = ResidueDouble(modulus, modulus.one);
    uint64_t done = 0;
    for (uint64_t length = 1; done < steps; length *= 2) {
        const uint64_t anchor = x;
        // The differences of the first half of such a stretch are covered by the stretch before.
        for (uint64_t i = 0; i < length / 2; i++) {
            x = next(x);
        }
        done += length / 2;
        for (uint64_t i = length / 2; i < length && done < steps; i += DifferencesPerDivisor) {
            const uint64_t count = std::min(DifferencesPerDivisor, length - i);
            const uint64_t start = x;
            uint64_t product = modulus.one;
            for (uint64_t k = 0; k < count; k++) {
                x = next(x);
                product = ResidueMultiply(modulus, product, ResidueSubtract(modulus, anchor, x));
            }
            done += count;
            uint64_t divisor = CommonDivisor(product, n);
            if (divisor == n) {
                // Several factors in one stretch: take them one by one.
                x = start;
                do {
                    x = next(x);
                    divisor = CommonDivisor(ResidueSubtract(modulus, anchor, x), n);
                } while (divisor == 1);
                return divisor == n ? 0 : divisor;
            }
            if (divisor != 1) {
                return divisor;
            }
        }
    }
    return 0;
}

}  // namespace tallymere
