#include "functions/logarithm.h"

#include "core/contract.h"
#include "core/real_add.h"
#include "core/real_compare.h"
#include "core/real_divide.h"
#include "core/real_integer.h"
#include "core/real_multiply.h"
#include "core/scratch.h"
#include "functions/guard_digits.h"
#include "functions/reduction_tables.h"
#include "functions/series.h"
#include "functions/stored_constants.h"

namespace tallymere {

namespace {

constexpr int64_t LogarithmGuardDigits = 3;
constexpr int64_t LogarithmToBaseGuardDigits = 4;

// The nine leading digits of the square root of ten.
constexpr uint64_t RootOfTen = 316'227'766;

uint64_t NineDigits(const RealNumber* x) {
    return RealLeadingDigits(RealLimbs(x), 9);
}

// The logarithm where x is NaN, infinite, zero or negative: true if dest has been written.
bool LogarithmOfSpecial(RealNumber* dest, const RealNumber* x) {
    if (RealIsNaN(x)) {
        RealSetNaN(dest);
    } else if (RealIsZero(x)) {
        RealSetOverflow(dest, 1);
    } else if (RealSign(x) != 0) {
        RealSetNaN(dest, CalcErrorUndefined);
    } else if (RealIsInfinite(x)) {
        RealSetInfinity(dest, 0);
    } else {
        return false;
    }
    return true;
}

// dest = 2 artanh(w).
Limb TwiceArtanh(RealNumber* dest, const RealNumber* w) {
    SeriesAtanh(dest, w);
    return RealMulUint(dest, dest, 2);
}

// Brings x nearer to 1 and returns how many steps it was divided by, negative for a product.
int64_t ReduceNumber(const LnReductionTable& table, RealNumber* x) {
    const uint64_t digits = NineDigits(x);
    const bool divide = RealExponent(x) == 0;
    int64_t k = table.entryCount - 1;
    while (k > 0 && !(divide ? digits >= table.upper[k] : digits <= table.lower[k])) {
        k--;
    }
    if (k == 0) {
        return 0;
    }
    const StepPower& power = table.powers[k];
    const int64_t steps = divide ? k : -k;
    if (divide) {
        RealDivUint(x, x, power.power, power.reciprocal);
    } else {
        RealMulUint(x, x, power.power);
    }
    x->header = MakeHeader(RealExponent(x) + steps * table.decimalStep, 0);
    return steps;
}

Limb RealLog2(RealNumber* dest, const RealNumber* x) {
    CoreScratchScope scratch;
    RealNumber* ln2 = RealAt(scratch.Take(RealWords()));
    RealLn(dest, x);
    LoadConstant(ln2, ConstLn2);
    return RealDivRaw(dest, dest, ln2);
}

Limb RealLog10(RealNumber* dest, const RealNumber* x) {
    CoreScratchScope scratch;
    RealNumber* log10E = RealAt(scratch.Take(RealWords()));
    RealLn(dest, x);
    LoadConstant(log10E, ConstLog10E);
    return RealMulRaw(dest, dest, log10E);
}

}  // namespace

Limb RealLn(RealNumber* dest, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    if (LogarithmOfSpecial(dest, x)) {
        return 0;
    }
    CoreScratchScope scratch;
    RealNumber* reduced = RealAt(scratch.Take(RealWords()));
    RealNumber* one = RealAt(scratch.Take(RealWords()));
    RealNumber* quotient = RealAt(scratch.Take(RealWords()));
    RealCopy(reduced, x);
    const int64_t shift = NineDigits(reduced) > RootOfTen ? 1 : 0;
    const int64_t decimalExponent = RealExponent(x) + shift;
    reduced->header = MakeHeader(-shift, 0);
    const int64_t firstSteps = ReduceNumber(LnReductionTables[0], reduced);
    const int64_t secondSteps = ReduceNumber(LnReductionTables[1], reduced);

    RealSetOne(one);
    RealAddRaw(quotient, reduced, one, true);
    RealAddRaw(reduced, reduced, one, false);
    RealDivRaw(quotient, quotient, reduced);
    Limb guard = TwiceArtanh(dest, quotient);
    if (decimalExponent != 0) {
        guard = AddConstantMultiple(dest, ConstLn10, decimalExponent);
    }
    if (firstSteps != 0) {
        guard = AddConstantMultiple(dest, *LnReductionTables[0].constant, firstSteps);
    }
    if (secondSteps != 0) {
        guard = AddConstantMultiple(dest, *LnReductionTables[1].constant, secondSteps);
    }
    return guard;
}

Limb RealLnSmall(RealNumber* dest, const RealNumber* y) {
    TALLYMERE_REQUIRE(RealIsWellFormed(y));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, y));
    if (RealIsNaN(y)) {
        RealSetNaN(dest);
        return 0;
    }
    if (RealIsZero(y)) {
        RealSetZero(dest, RealSign(y));
        return 0;
    }
    if (RealCompareScaled(y, 5, -1, true) >= 0) {
        RealSetNaN(dest, CalcErrorUndefined);
        return 0;
    }
    CoreScratchScope scratch;
    RealNumber* quotient = RealAt(scratch.Take(RealWords()));
    RealFromUint(quotient, 2);
    RealAddRaw(quotient, quotient, y, false);
    RealDivRaw(quotient, y, quotient);
    return TwiceArtanh(dest, quotient);
}

Limb RealLog(RealNumber* dest, const RealNumber* base, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(base) && RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, base) && RealSameOrApart(dest, x));
    if (RealIsNaN(base) || RealIsNaN(x)) {
        RealSetNaN(dest);
        return 0;
    }
    if (RealIsSpecial(base) || RealSign(base) != 0 || RealCompareUint(base, 1) == 0) {
        RealSetNaN(dest, CalcErrorUndefined);
        return 0;
    }
    if (LogarithmOfSpecial(dest, x)) {
        return 0;
    }
    CoreScratchScope scratch;
    RealNumber* divisor = RealAt(scratch.Take(RealWords()));
    RealLn(divisor, base);
    RealLn(dest, x);
    return RealDivRaw(dest, dest, divisor);
}

void RealLnRounded(RealNumber* dest, const RealNumber* x) {
    RoundedUnary(dest, x, LogarithmGuardDigits, RealLn);
}

void RealLog2Rounded(RealNumber* dest, const RealNumber* x) {
    RoundedUnary(dest, x, LogarithmGuardDigits, RealLog2);
}

void RealLog10Rounded(RealNumber* dest, const RealNumber* x) {
    RoundedUnary(dest, x, LogarithmGuardDigits, RealLog10);
}

void RealLogRounded(RealNumber* dest, const RealNumber* base, const RealNumber* x) {
    RoundedBinary(dest, base, x, LogarithmToBaseGuardDigits, RealLog);
}

}  // namespace tallymere
