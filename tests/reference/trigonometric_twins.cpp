#include "reference/trigonometric_twins.h"

#include "core/real_add.h"
#include "core/real_compare.h"
#include "core/real_div_mod.h"
#include "core/real_divide.h"
#include "core/real_integer.h"
#include "core/real_multiply.h"
#include "functions/inverse_trigonometric.h"
#include "functions/stored_constants.h"
#include "reference/series_twins.h"
#include "support/real_testing.h"

namespace tallymere::reference {

namespace {

using testing_support::RealBuffer;

// 'c' and 's' for the series of the cosine and the sine, capitals for their negatives.
struct OctantRow {
    char sine;
    char cosine;
};
constexpr OctantRow OctantTable[] = {
    {'s', 'c'}, {'c', 'S'}, {'c', 'S'}, {'S', 'C'}, {'S', 'C'}, {'C', 's'}, {'C', 's'}, {'s', 'c'},
};

bool IsNegative(char entry) {
    return entry == 'S' || entry == 'C';
}

void OneSeries(RealNumber* dest, char entry, const RealBuffer& r) {
    if (entry == 's' || entry == 'S') {
        reference::SeriesSin(dest, r);
    } else {
        reference::SeriesCos(dest, r);
    }
}

// x = (x d - n) / (x n + d).
void Shift(RealNumber* x, AtanStep step) {
    const auto [n, d] = step;
    RealBuffer integer;
    RealBuffer divisor;
    RealMulUint(divisor, x, n);
    RealFromUint(integer, d);
    RealAddRaw(divisor, divisor, integer, false);
    RealMulUint(x, x, d);
    RealFromUint(integer, n);
    RealAddRaw(x, x, integer, true);
    RealDivRaw(x, x, divisor);
}

uint64_t NineDigits(const RealNumber* y) {
    return RealIsZero(y) ? 0 : RealLeadingDigits(RealLimbs(y), 9);
}

uint64_t CoarseStep(const RealNumber* y) {
    const uint64_t c = NineDigits(y);
    switch (RealExponent(y)) {
        case -2:
            return c >= 714961047 ? 2 : c >= 237960416 ? 1 : 0;
        case -1: {
            const uint64_t limits[] = {119522074, 168097856, 217457577, 267850247, 319545019,
                                       372837319, 428056143, 485572928, 545812537, 609267090,
                                       676513637, 748237095, 825260451, 908585185, 976216557};
            uint64_t k = 2;
            for (uint64_t limit : limits) {
                if (c < limit) {
                    return k;
                }
                k++;
            }
            return 17;
        }
        case 0:
            return 17;
        default:
            return 0;
    }
}

uint64_t FineStep(const RealNumber* y) {
    const uint64_t c = NineDigits(y);
    switch (RealExponent(y)) {
        case -3:
            return c < 142449853   ? 0
                   : c < 427351873 ? 1
                   : c < 712260830 ? 2
                   : c < 997181350 ? 3
                                   : 4;
        case -2:
            return c < 128211806   ? 4
                   : c < 156707559 ? 5
                   : c < 185205856 ? 6
                   : c < 213707161 ? 7
                                   : 8;
        default:
            return 0;
    }
}

Limb AddMultiple(RealNumber* sum, const StoredConstant& constant, uint64_t k) {
    RealBuffer multiple;
    LoadConstant(multiple, constant);
    RealMulUint(multiple, multiple, k);
    return RealAddRaw(sum, sum, multiple, false);
}

}  // namespace

void TwinSinCos(RealNumber* sine, RealNumber* cosine, const RealNumber* x) {
    RealBuffer quarter;
    LoadConstant(quarter, ConstPiQuarter);
    RealBuffer r;
    RealBuffer q;
    RealCopy(r, x);
    RealSetSign(r, 0);
    RealDivMod(q, r, r, quarter);
    uint64_t octant = 0;
    RealToUint(&octant, q, AllowFraction);
    if (octant % 2 == 1) {
        RealAddRaw(r, r, quarter, true);
    }
    const OctantRow row = OctantTable[octant % 8];
    const bool negative = RealSign(x) != 0;
    if (sine != nullptr && cosine != nullptr) {
        const bool straight = row.sine == 's' || row.sine == 'S';
        reference::SeriesSinCos(straight ? sine : cosine, straight ? cosine : sine, r);
    } else if (sine != nullptr) {
        OneSeries(sine, row.sine, r);
    } else {
        OneSeries(cosine, row.cosine, r);
    }
    if (sine != nullptr && IsNegative(row.sine)) {
        RealNegate(sine);
    }
    if (sine != nullptr && negative) {
        RealNegate(sine);
    }
    if (cosine != nullptr && IsNegative(row.cosine)) {
        RealNegate(cosine);
    }
}

Limb TwinAtan(RealNumber* dest, const RealNumber* x) {
    const int64_t p = numberContext.precisionDigits;
    const uint64_t sign = RealSign(x);
    RealBuffer y;
    RealCopy(y, x);
    RealSetSign(y, 0);
    const bool inverted = RealCompareUint(y, 1) > 0;
    if (inverted) {
        RealReciprocalAny(y, y);
    }
    const uint64_t k = CoarseStep(y);
    Shift(y, AtanStepTable.coarse[k]);
    const uint64_t ySign = RealSign(y);
    uint64_t fine = 0;
    if (p >= 70) {
        RealSetSign(y, 0);
        fine = FineStep(y);
        Shift(y, AtanStepTable.fine[fine]);
    }
    RealBuffer s;
    reference::SeriesAtan(s, y);
    if (p >= 70) {
        AddMultiple(s, ConstAtan351, fine);
        RealSetSign(s, ySign);
    }
    Limb guard = k == 17 ? AddMultiple(s, ConstPiQuarter, 1) : AddMultiple(s, ConstAtan21, k);
    if (inverted) {
        RealBuffer right;
        LoadConstant(right, ConstPiQuarter);
        RealMulUint(right, right, 2);
        guard = RealAddRaw(s, right, s, true);
    }
    RealCopy(dest, s);
    RealSetSign(dest, sign);
    return guard;
}

}  // namespace tallymere::reference
