#include "functions/factorial.h"

#include <algorithm>

#include "core/real_integer.h"
#include "core/real_multiply.h"
#include "core/real_rounding.h"
#include "functions/guard_digits.h"

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
        RealSetInfinity(dest, 0);
        if (numberContext.reportOverflow != 0) {
            SetCalcError(CalcErrorOverflow);
        }
    } else {
        RealSetNaN(dest, CalcErrorUndefined);
    }
}

}  // namespace

int64_t FactorialCutoverAt(int64_t p) {
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
    RealSetOne(dest);
    Limb guard = 0;
    for (int64_t i = 2; i <= n; i++) {
        guard = RealMulUint(dest, dest, static_cast<uint64_t>(i));
        if (AbortRequested()) {
            RealSetNaN(dest, CalcErrorCancelled);
            return 0;
        }
    }
    return guard;
}

Limb RealFactorial(RealNumber* dest, const RealNumber* x) {
    int64_t n = 0;
    if (!RealToInt(&n, x, IntegerExact) || n < 0) {
        FactorialOutside(dest, x);
        return 0;
    }
    return RealProductFactorial(dest, n);
}

void RealFactorialRounded(RealNumber* dest, const RealNumber* x) {
    const int64_t exponent = RealExponent(x);
    const int64_t g = exponent < 0 ? 7 : std::min(exponent + 7, MaxGuardDigits);
    RoundedUnary(dest, x, g, RealFactorial);
}

}  // namespace tallymere
