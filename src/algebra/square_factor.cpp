#include "algebra/square_factor.h"

#include "core/contract.h"
#include "exact/big_uint.h"
#include "exact/big_uint_multiply.h"
#include "numtheory/factorize_number.h"

namespace tallymere {

bool SplitSquareFactor(uint64_t* outer, uint64_t* inner, const uint64_t* n) {
    TALLYMERE_REQUIRE(numberContext.uintLimbs == FactorLimbs);
    TALLYMERE_REQUIRE(outer != inner && BigUintsAreSameOrApart(outer, inner));
    TALLYMERE_REQUIRE(outer != n && BigUintsAreSameOrApart(outer, n));
    TALLYMERE_REQUIRE(inner != n && BigUintsAreSameOrApart(inner, n));
    BigUintFromUnsigned(outer, BigUintIsZero(n) ? 0 : 1);
    BigUintFromUnsigned(inner, 1);
    FactorList factors;
    if (FactorizeNumber(&factors, n) == FactorOutcome::Stopped) {
        BigUintCopy(inner, n);
        return false;
    }
    for (int64_t i = 0; i < factors.count; i++) {
        const uint64_t* prime = factors.primes[i];
        for (uint64_t pairs = factors.multiplicities[i] / 2; pairs > 0; pairs--) {
            BigUintMul(outer, outer, prime);
        }
        if (factors.multiplicities[i] % 2 != 0) {
            BigUintMul(inner, inner, prime);
        }
    }
    return true;
}

}  // namespace tallymere
