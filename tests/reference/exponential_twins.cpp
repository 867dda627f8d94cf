#include "reference/exponential_twins.h"

#include <utility>

#include "core/real_add.h"
#include "core/real_divide.h"
#include "core/real_integer.h"
#include "core/real_multiply.h"
#include "core/real_rounding.h"
#include "functions/reduction_tables.h"
#include "functions/stored_constants.h"
#include "reference/series_twins.h"
#include "support/real_testing.h"

namespace tallymere::reference {

namespace {

using testing_support::RealBuffer;

uint64_t IntegerPower(uint64_t base, int64_t k) {
    uint64_t power = 1;
    for (; k > 0; k--) {
        power *= base;
    }
    return power;
}

// x = x + k * constant.
void AddMultiple(RealNumber* x, const StoredConstant& constant, int64_t k) {
    RealBuffer multiple;
    LoadConstant(multiple, constant);
    RealMulUint(multiple, multiple, IntegerMagnitude(k));
    RealSetSign(multiple, k < 0 ? 1 : 0);
    RealAddRaw(x, x, multiple, false);
}

void MultiplyByConstant(RealNumber* x, const StoredConstant& constant) {
    RealBuffer factor;
    LoadConstant(factor, constant);
    RealMulRaw(x, x, factor);
}

uint64_t NineDigits(const RealNumber* x) {
    return RealLeadingDigits(RealLimbs(x), 9);
}

// How many multiples of the constant lie next to v, with the sign of v.
int64_t NearestMultiple(const ExpReductionTable& table, const RealNumber* v) {
    if (RealIsZero(v)) {
        return 0;
    }
    const std::pair<int64_t, uint64_t> magnitude = {RealExponent(v), NineDigits(v)};
    int64_t k = 0;
    for (int64_t i = 0; i < table.thresholdCount; i++) {
        const LeadingMagnitude& threshold = table.thresholds[i];
        if (magnitude >= std::pair<int64_t, uint64_t>{threshold.exponent, threshold.digits}) {
            k++;
        }
    }
    return RealSign(v) != 0 ? -k : k;
}

void TakeTenthPower(RealNumber* x) {
    RealBuffer square;
    RealBuffer eighth;
    RealMulRaw(square, x, x);
    RealMulRaw(eighth, square, square);
    RealMulRaw(eighth, eighth, eighth);
    RealMulRaw(x, eighth, square);
}

// x = x * base^k, by a quotient for negative k.
void MultiplyByPower(RealNumber* x, uint64_t base, int64_t k) {
    if (k < 0) {
        RealDivUint(x, x, IntegerPower(base, -k));
    } else if (k > 0) {
        RealMulUint(x, x, IntegerPower(base, k));
    }
}

// Divides x by (base / 10^decimalStep)^k for the k of the last threshold that x has come to, up or
// down; k is negative for x < 1.
int64_t DivideByNearestPower(const LnReductionTable& table, uint64_t base, RealNumber* x) {
    const bool below = RealExponent(x) < 0;
    const uint64_t digits = NineDigits(x);
    int64_t k = 0;
    for (int64_t i = 1; i < table.entryCount; i++) {
        if (below ? digits <= table.lower[i] : digits >= table.upper[i]) {
            k = below ? -i : i;
        }
    }
    MultiplyByPower(x, base, -k);
    RealSetExponent(x, RealExponent(x) + k * table.decimalStep);
    return k;
}

}  // namespace

void TwinExp(RealNumber* dest, const RealNumber* x, ExpMode mode) {
    RealBuffer v;
    RealCopy(v, x);
    if (mode == ExpOfTwo) {
        MultiplyByConstant(v, ConstLn2);
    }
    if (mode != ExpOfTen) {
        MultiplyByConstant(v, ConstLog10E);
    }
    int64_t exponent = 0;
    RealToInt(&exponent, v, AllowFraction);
    RealFractionPart(v, v);
    MultiplyByConstant(v, ConstLn10);
    const int64_t twelves = NearestMultiple(ExpReductionTables[0], v);
    AddMultiple(v, ConstLn12, -twelves);
    const int64_t hundredOnes = NearestMultiple(ExpReductionTables[1], v);
    AddMultiple(v, ConstLn101, -hundredOnes);
    exponent -= twelves + 2 * hundredOnes;
    int64_t tenths = 0;
    while (!RealIsZero(v) && RealExponent(v) > -5) {
        RealSetExponent(v, RealExponent(v) - 1);
        tenths++;
    }
    SeriesExp(dest, v);
    for (; tenths > 0; tenths--) {
        TakeTenthPower(dest);
    }
    MultiplyByPower(dest, 12, twelves);
    MultiplyByPower(dest, 101, hundredOnes);
    RealSetExponent(dest, RealExponent(dest) + exponent);
}

void TwinLn(RealNumber* dest, const RealNumber* x) {
    RealBuffer reduced;
    RealCopy(reduced, x);
    int64_t exponent = RealExponent(x);
    RealSetExponent(reduced, 0);
    // Above the square root of ten.
    if (NineDigits(x) > 316'227'766) {
        RealSetExponent(reduced, -1);
        exponent++;
    }
    const int64_t twelves = DivideByNearestPower(LnReductionTables[0], 12, reduced);
    const int64_t hundredOnes = DivideByNearestPower(LnReductionTables[1], 101, reduced);
    const RealBuffer one("1");
    RealBuffer quotient;
    RealAddRaw(quotient, reduced, one, true);
    RealAddRaw(reduced, reduced, one, false);
    RealDivRaw(quotient, quotient, reduced);
    SeriesAtanh(dest, quotient);
    RealMulUint(dest, dest, 2);
    AddMultiple(dest, ConstLn10, exponent);
    AddMultiple(dest, ConstLn12, twelves);
    AddMultiple(dest, ConstLn101, hundredOnes);
}

}  // namespace tallymere::reference
