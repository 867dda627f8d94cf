#include "exact/big_uint_multiply.h"

#include <algorithm>

#include "core/contract.h"
#include "core/long_products.h"
#include "core/scratch.h"
#include "core/word_products.h"
#include "exact/big_uint.h"
#include "exact/limb_division.h"

namespace tallymere {

void BigUintMulSmall(uint64_t* dest, const uint64_t* a, uint64_t k) {
    TALLYMERE_REQUIRE(BigUintWidthIsWellFormed());
    TALLYMERE_REQUIRE(BigUintsAreSameOrApart(dest, a));
    if (MultiplyWords(dest, a, numberContext.uintLimbs, k) != 0) {
        BigUintSetFailed(dest, CalcErrorOverflow);
    }
}

void BigUintMul(uint64_t* dest, const uint64_t* a, const uint64_t* b) {
    TALLYMERE_REQUIRE(BigUintsAreSameOrApart(dest, a) && BigUintsAreSameOrApart(dest, b));
    const int64_t width = numberContext.uintLimbs;
    const int64_t la = BigUintLength(a);
    const int64_t lb = BigUintLength(b);
    if (la == 0 || lb == 0) {
        BigUintClear(dest);
        return;
    }
    if (la + lb > width + 1) {
        BigUintSetFailed(dest, CalcErrorOverflow);
        return;
    }
    CoreScratchScope scratch;
    uint64_t* product = scratch.Take(la + lb);
    MultiplyWordArrays(product, a, la, b, lb);
    const int64_t kept = std::min(la + lb, width);
    if (la + lb > width && product[width] != 0) {
        BigUintSetFailed(dest, CalcErrorOverflow);
        return;
    }
    std::copy_n(product, kept, dest);
    std::fill_n(dest + kept, width - kept, uint64_t{0});
}

void BigUintMulFull(uint64_t* dest, const uint64_t* a, const uint64_t* b) {
    TALLYMERE_REQUIRE(dest == a || UintLimbsAreApart(dest, 2 * numberContext.uintLimbs, a,
                                                     numberContext.uintLimbs));
    TALLYMERE_REQUIRE(dest == b || UintLimbsAreApart(dest, 2 * numberContext.uintLimbs, b,
                                                     numberContext.uintLimbs));
    const int64_t width = numberContext.uintLimbs;
    const int64_t la = BigUintLength(a);
    const int64_t lb = BigUintLength(b);
    if (la == 0 || lb == 0) {
        std::fill_n(dest, 2 * width, uint64_t{0});
        return;
    }
    CoreScratchScope scratch;
    const bool inPlace = dest == a || dest == b;
    uint64_t* product = inPlace ? scratch.Take(la + lb) : dest;
    MultiplyWordArrays(product, a, la, b, lb);
    if (inPlace) {
        std::copy_n(product, la + lb, dest);
    }
    std::fill_n(dest + la + lb, 2 * width - la - lb, uint64_t{0});
}

}  // namespace tallymere
