#include "functions/exponential.h"

#include "core/contract.h"
#include "core/real_add.h"
#include "core/real_divide.h"
#include "core/real_integer.h"
#include "core/real_multiply.h"
#include "core/real_rounding.h"
#include "core/scratch.h"
#include "functions/guard_digits.h"
#include "functions/reduction_tables.h"
#include "functions/series.h"
#include "functions/stored_constants.h"

namespace tallymere {

namespace {

// The exponent at which the Taylor series gains at least four digits a term.
constexpr int64_t SeriesExponent = -5;

void ExpOfSpecial(RealNumber* dest, const RealNumber* x) {
    if (RealIsNaN(x)) {
        RealSetNaN(dest);
    } else if (RealIsZero(x)) {
        RealSetOne(dest);
    } else if (RealSign(x) == 0) {
        RealSetInfinity(dest, 0);
    } else {
        RealSetZero(dest, 0);
    }
}

// x log10(base).
void DecimalLogarithmOfPower(RealNumber* dest, RealNumber* constant, const RealNumber* x,
                             ExpMode mode) {
    if (mode == ExpOfTen) {
        RealCopy(dest, x);
        return;
    }
    if (mode == ExpOfTwo) {
        LoadConstant(constant, ConstLn2);
        RealMulRaw(dest, x, constant);
        x = dest;
    }
    LoadConstant(constant, ConstLog10E);
    RealMulRaw(dest, x, constant);
}

// How many thresholds |v| reaches.
int64_t NearestStep(const ExpReductionTable& table, const RealNumber* v) {
    if (RealIsSpecial(v)) {
        return 0;
    }
    const int64_t exponent = RealExponent(v);
    const uint64_t digits = RealLeadingDigits(RealLimbs(v), 9);
    int64_t k = table.thresholdCount;
    while (k > 0) {
        const LeadingMagnitude& threshold = table.thresholds[k - 1];
        if (exponent > threshold.exponent ||
            (exponent == threshold.exponent && digits >= threshold.digits)) {
            break;
        }
        k--;
    }
    return k;
}

// The factor by which a result has to be multiplied, or divided, for a reduction of its exponent.
struct PendingFactor {
    const StepPower* power;
    bool divide;
};

// Brings v nearer to 0 by a multiple of the table's constant; the powers of ten in it go into
// *decimalExponent.
PendingFactor ReduceExponent(const ExpReductionTable& table, RealNumber* v,
                             int64_t* decimalExponent) {
    const int64_t k = NearestStep(table, v);
    const bool negative = RealSign(v) != 0;
    if (k > 0) {
        const int64_t steps = negative ? k : -k;
        AddConstantMultiple(v, *table.constant, steps);
        *decimalExponent += steps * table.decimalStep;
    }
    return {&table.powers[k], negative};
}

Limb ApplyFactor(RealNumber* dest, PendingFactor factor) {
    return factor.divide ? RealDivUint(dest, dest, factor.power->power, factor.power->reciprocal)
                         : RealMulUint(dest, dest, factor.power->power);
}

// x = x^10.
Limb TenthPower(RealNumber* x, RealNumber* square, RealNumber* power) {
    RealMulRaw(square, x, x);
    RealMulRaw(power, square, square);
    RealMulRaw(power, power, power);
    return RealMulRaw(x, power, square);
}

Limb RealExp(RealNumber* dest, const RealNumber* x) {
    return RealExpBase(dest, x, ExpOfE);
}

Limb RealExp2(RealNumber* dest, const RealNumber* x) {
    return RealExpBase(dest, x, ExpOfTwo);
}

Limb RealExp10(RealNumber* dest, const RealNumber* x) {
    return RealExpBase(dest, x, ExpOfTen);
}

}  // namespace

Limb RealExpBase(RealNumber* dest, const RealNumber* x, ExpMode mode) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    TALLYMERE_REQUIRE(mode <= ExpOfTwo);
    if (RealIsSpecial(x)) {
        ExpOfSpecial(dest, x);
        return 0;
    }
    CoreScratchScope scratch;
    RealNumber* v = RealAt(scratch.Take(RealWords()));
    RealNumber* constant = RealAt(scratch.Take(RealWords()));
    const bool negative = RealSign(x) != 0;
    DecimalLogarithmOfPower(v, constant, x, mode);
    uint64_t magnitude = 0;
    if (!RealToUint(&magnitude, v, AllowFraction | AllowNegative) ||
        magnitude > uint64_t{MaxExponent}) {
        if (negative) {
            RealSetUnderflow(dest, 0);
        } else {
            RealSetOverflow(dest, 0);
        }
        return 0;
    }
    int64_t decimalExponent = static_cast<int64_t>(magnitude);
    if (negative) {
        decimalExponent = -decimalExponent;
    }
    RealFractionPart(v, v);
    LoadConstant(constant, ConstLn10);
    RealMulRaw(v, v, constant);

    const PendingFactor first = ReduceExponent(ExpReductionTables[0], v, &decimalExponent);
    const PendingFactor second = ReduceExponent(ExpReductionTables[1], v, &decimalExponent);
    int64_t tenthPowers = 0;
    if (!RealIsSpecial(v) && RealExponent(v) > SeriesExponent) {
        tenthPowers = RealExponent(v) - SeriesExponent;
        v->header = MakeHeader(SeriesExponent, RealSign(v));
    }
    Limb guard = SeriesExp(dest, v);
    for (; tenthPowers > 0; tenthPowers--) {
        guard = TenthPower(dest, v, constant);
    }
    for (const PendingFactor& factor : {first, second}) {
        if (factor.power->power != 1) {
            guard = ApplyFactor(dest, factor);
        }
    }
    RealSetExponent(dest, RealExponent(dest) + decimalExponent);
    return guard;
}

void RealExpRounded(RealNumber* dest, const RealNumber* x) {
    RoundedUnary(dest, x, ArgumentGuardDigits(x), RealExp);
}

void RealExp2Rounded(RealNumber* dest, const RealNumber* x) {
    RoundedUnary(dest, x, ArgumentGuardDigits(x), RealExp2);
}

void RealExp10Rounded(RealNumber* dest, const RealNumber* x) {
    RoundedUnary(dest, x, ArgumentGuardDigits(x), RealExp10);
}

}  // namespace tallymere
