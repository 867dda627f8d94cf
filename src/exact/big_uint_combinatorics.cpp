#include "exact/big_uint_combinatorics.h"

#include <utility>

#include "core/contract.h"
#include "core/number_context.h"
#include "core/scratch.h"
#include "exact/big_uint.h"
#include "exact/big_uint_division.h"
#include "exact/big_uint_multiply.h"

namespace tallymere {

namespace {

// dest = (m + 1) (m + 2) ... (m + count), and divided by count! unless `falling` is true. m is
// count larger afterwards. Ends early when a code is noted.
//
// The product of i consecutive integers is divisible by i!, so every division is exact.
void MultiplyUpwards(uint64_t* dest, uint64_t* m, uint64_t count, bool falling) {
    BigUintFromUnsigned(dest, 1);
    for (uint64_t i = 0; i < count && numberContext.calcError == CalcErrorNone; i++) {
        if (StopRequested()) {
            SetCalcError(CalcErrorCancelled);
            return;
        }
        BigUintAddSmall(m, m, 1);
        BigUintMul(dest, m, dest);
        if (!falling) {
            uint64_t remainder = 0;
            BigUintDivideSmall(dest, &remainder, dest, i + 1, 0);
            if (remainder != 0) {
                SetCalcError(CalcErrorCapacity);
            }
        }
    }
}

}  // namespace

void BigUintFactorial(uint64_t* dest, const uint64_t* n) {
    TALLYMERE_REQUIRE(BigUintsAreSameOrApart(dest, n));
    const CalcErrorScope codes;
    if (!BigUintFitsUnsigned(n)) {
        SetCalcError(CalcErrorOverflow);
    }
    const uint64_t last = n[0];
    BigUintFromUnsigned(dest, 1);
    for (uint64_t i = 2; i <= last && numberContext.calcError == CalcErrorNone; i++) {
        BigUintMulSmall(dest, dest, i);
    }
    if (numberContext.calcError != CalcErrorNone) {
        BigUintClear(dest);
    }
}

void BigUintBinomial(uint64_t* dest, const uint64_t* n, const uint64_t* k, bool falling) {
    TALLYMERE_REQUIRE(BigUintsAreSameOrApart(dest, n) && BigUintsAreSameOrApart(dest, k));
    if (BigUintCompare(k, n) > 0) {
        BigUintClear(dest);
        return;
    }
    const CalcErrorScope codes;
    CoreScratchScope scratch;
    uint64_t* count = scratch.Take(numberContext.uintLimbs);
    uint64_t* m = scratch.Take(numberContext.uintLimbs);
    BigUintCopy(count, k);
    BigUintSub(m, n, k);
    if (!falling && BigUintCompare(m, count) < 0) {
        std::swap(m, count);
    }
    if (BigUintFitsUnsigned(count)) {
        MultiplyUpwards(dest, m, count[0], falling);
    } else {
        SetCalcError(CalcErrorUndefined);
    }
    if (numberContext.calcError != CalcErrorNone) {
        BigUintClear(dest);
    }
}

}  // namespace tallymere
