#include "functions/factorial.h"

#include <algorithm>

#include "core/contract.h"
#include "core/real_add.h"
#include "core/real_divide.h"
#include "core/real_integer.h"
#include "core/real_multiply.h"
#include "core/real_rounding.h"
#include "core/scratch.h"
#include "functions/exponential.h"
#include "functions/factor_range.h"
#include "functions/guard_digits.h"
#include "functions/powers.h"
#include "functions/roots.h"
#include "functions/series.h"
#include "functions/stored_constants.h"
#include "functions/tangent_table.h"

namespace tallymere {

const FactorialCutoverPair FactorialCutover[FactorialCutoverCount] = {
    {10, 70},
    {20, 130},
    {30, 200},
    {40, 320},
    {50, 400},
    {60, 510},
    {70, 680},
    {80, 760},
    {90, 880},
    {100, 1200},
    {120, 1600},
    {140, 2280},
    {160, 2460},
    {180, 3120},
    {200, 3420},
    {250, 5670},
    {300, 6970},
    {350, 9320},
    {400, 10070},
    {450, 13370},
    {500, 14420},
    {600, 19620},
    {700, 25220},
    {800, 31520},
    {900, 35420},
    {1000, 48320},
    {1200, 62520},
    {1400, 62720},
    {1600, 124520},
    {1800, 148920},
    {2000, 210520},
    {2500, 325277},
    {3000, 484496},
    {3500, 617028},
    {4000, 838484},
    {4500, 1038036},
    {5000, 1264746},
    {6000, 1822122},
    {7000, 2407437},
    {8000, 3280519},
    {9000, 4076780},
    {10000, 4918983},
    {100000000, 912870929},
};

namespace {

// The pairs that a precision is looked up in.
constexpr int64_t SearchedPairs = FactorialCutoverCount - 1;

// x has no factorial by either method.
void FactorialOutside(RealNumber* dest, const RealNumber* x) {
    if (RealIsNaN(x)) {
        RealSetNaN(dest);
    } else if (RealSign(x) == 0 && RealIsInfinite(x)) {
        RealSetInfinity(dest, 0);
    } else if (RealSign(x) == 0 && RealIsInteger(x)) {
        RealSetOverflow(dest, 0);
    } else {
        RealSetNaN(dest, CalcErrorUndefined);
    }
}

// dest = sqrt(2 pi n) (n / e)^n.
void StirlingLeadingTerm(RealNumber* dest, int64_t n) {
    CoreScratchScope scratch;
    RealNumber* power = RealAt(scratch.Take(RealWords()));
    LoadConstantMultiple(dest, ConstPiQuarter, 4);
    RealMulUint(dest, dest, 2 * static_cast<uint64_t>(n));
    RealSqrt(dest, dest);
    RealSetOne(power);
    RealNegate(power);
    RealExpBase(power, power, ExpOfE);
    RealMulUint(power, power, static_cast<uint64_t>(n));
    RealPowerInt(power, power, n);
    RealMulRaw(dest, dest, power);
}

// sum = 1 / 12n - 1 / 360n^3 + ..., the term of k being T_k / ((16^k - 4^k) (2k - 1) n^(2k-1)).
// NaN and CalcErrorCancelled when asked to stop.
void StirlingSeries(RealNumber* sum, int64_t n, TangentTable& tangents) {
    CoreScratchScope scratch;
    RealNumber* power = RealAt(scratch.Take(RealWords()));  // n^(2k-1)
    RealNumber* square = RealAt(scratch.Take(RealWords()));
    RealNumber* four = RealAt(scratch.Take(RealWords()));  // 4^k
    RealNumber* sixteen = RealAt(scratch.Take(RealWords()));
    RealNumber* term = RealAt(scratch.Take(RealWords()));
    RealFromUint(power, static_cast<uint64_t>(n));
    RealMulUint(square, power, static_cast<uint64_t>(n));
    RealFromUint(four, 4);
    RealFromUint(sixteen, 16);
    RealSetZero(sum, 0);
    for (uint64_t k = 1;; k++) {
        if (k >= 2) {
            RealMulRaw(power, power, square);
            TangentStep(tangents);
            TangentStep(tangents);
            RealMulUint(four, four, 4);
            RealMulUint(sixteen, sixteen, 16);
        }
        RealAddRaw(term, four, sixteen, true);
        RealMulUint(term, term, 2 * k - 1);
        RealMulRaw(term, term, power);
        RealDivRaw(term, TangentRow(tangents, 0), term);
        if (k % 2 != 0) {
            RealNegate(term);
        }
        RealAddRaw(sum, sum, term, false);
        if (StopRequested()) {
            RealSetNaN(sum, CalcErrorCancelled);
            return;
        }
        if (SeriesEnds(sum, term)) {
            return;
        }
    }
}

}  // namespace

int64_t FactorialCutoverAt(int64_t p) {
    TALLYMERE_REQUIRE(p >= 1);
    const FactorialCutoverPair* end = FactorialCutover + SearchedPairs;
    const FactorialCutoverPair* above = std::upper_bound(
        FactorialCutover, end, p, [](int64_t digits, const FactorialCutoverPair& pair) {
            return digits < int64_t{pair.digits};
        });
    if (above == FactorialCutover) {
        return above->n;
    }
    const FactorialCutoverPair& low = above[-1];
    if (above == end) {
        return low.n;
    }
    const double part = static_cast<double>(p - low.digits) / (above->digits - low.digits);
    return static_cast<int64_t>(low.n + part * (above->n - low.n) + 0.5);
}

Limb RealProductFactorial(RealNumber* dest, int64_t n) {
    TALLYMERE_REQUIRE(n >= 0);
    RealSetOne(dest);
    return n < 2 ? 0 : RealMulRange(dest, 2, static_cast<uint64_t>(n));
}

Limb RealStirlingFactorial(RealNumber* dest, int64_t n) {
    TALLYMERE_REQUIRE(n >= 1);
    TangentTableScope tangents;
    if (!tangents.HasMemory()) {
        RealSetNaN(dest, CalcErrorCapacity);
        return 0;
    }
    CoreScratchScope scratch;
    RealNumber* leading = RealAt(scratch.Take(RealWords()));
    RealNumber* correction = RealAt(scratch.Take(RealWords()));
    StirlingLeadingTerm(leading, n);
    StirlingSeries(correction, n, tangents.Table());
    RealExpBase(correction, correction, ExpOfE);
    return RealMulRaw(dest, leading, correction);
}

Limb RealFactorial(RealNumber* dest, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    int64_t n = 0;
    if (!RealToInt(&n, x, IntegerExact) || n < 0) {
        FactorialOutside(dest, x);
        return 0;
    }
    return n < FactorialCutoverAt(numberContext.precisionDigits) ? RealProductFactorial(dest, n)
                                                                 : RealStirlingFactorial(dest, n);
}

void RealFactorialRounded(RealNumber* dest, const RealNumber* x) {
    RoundedUnary(dest, x, FactorialGuardDigits(x), RealFactorial);
}

}  // namespace tallymere
