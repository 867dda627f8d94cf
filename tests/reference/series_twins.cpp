#include "reference/series_twins.h"

#include "core/real_add.h"
#include "core/real_divide.h"
#include "core/real_multiply.h"
#include "support/real_testing.h"

namespace tallymere::reference {

namespace {

using testing_support::RealBuffer;

int64_t OddQuotients(RealNumber* dest, const RealNumber* x, bool alternating) {
    RealBuffer sum;
    RealBuffer square;
    RealBuffer power;
    RealBuffer term;
    RealCopy(sum, x);
    RealCopy(power, x);
    RealMulRaw(square, x, x);
    int64_t terms = 0;
    uint64_t k = 1;
    do {
        if (alternating) {
            RealNegate(power);
        }
        RealMulRaw(power, power, square);
        k += 2;
        RealDivUint(term, power, k);
        RealAddRaw(sum, sum, term, false);
        terms++;
    } while (!SeriesIsOver(sum, term));
    RealCopy(dest, sum);
    return terms;
}

void Factorials(RealNumber* dest, RealNumber* term, const RealNumber* x, uint64_t k,
                bool alternating) {
    RealBuffer sum;
    RealBuffer square;
    RealCopy(sum, term);
    RealMulRaw(square, x, x);
    do {
        RealMulRaw(term, term, square);
        RealDivUint(term, term, k * (k + 1));
        if (alternating) {
            RealNegate(term);
        }
        RealAddRaw(sum, sum, term, false);
        k += 2;
    } while (!SeriesIsOver(sum, term));
    RealCopy(dest, sum);
}

}  // namespace

bool SeriesIsOver(const RealNumber* sum, const RealNumber* term) {
    return RealIsSpecial(sum) || RealIsSpecial(term) ||
           RealExponent(sum) - RealExponent(term) >= numberContext.precisionDigits - 1;
}

void SeriesExp(RealNumber* dest, const RealNumber* x) {
    RealBuffer sum;
    RealBuffer term;
    RealSetOne(sum);
    RealSetOne(term);
    uint64_t j = 0;
    do {
        RealMulRaw(term, term, x);
        j++;
        RealDivUint(term, term, j);
        RealAddRaw(sum, sum, term, false);
    } while (!SeriesIsOver(sum, term));
    RealCopy(dest, sum);
}

int64_t SeriesAtanh(RealNumber* dest, const RealNumber* x) {
    return OddQuotients(dest, x, false);
}

void SeriesAtan(RealNumber* dest, const RealNumber* x) {
    OddQuotients(dest, x, true);
}

void SeriesSin(RealNumber* dest, const RealNumber* x) {
    RealBuffer first;
    RealCopy(first, x);
    Factorials(dest, first, x, 2, true);
}

void SeriesSinh(RealNumber* dest, const RealNumber* x) {
    RealBuffer first;
    RealCopy(first, x);
    Factorials(dest, first, x, 2, false);
}

void SeriesCos(RealNumber* dest, const RealNumber* x) {
    RealBuffer first;
    RealSetOne(first);
    Factorials(dest, first, x, 1, true);
}

void SeriesSinCos(RealNumber* sine, RealNumber* cosine, const RealNumber* x) {
    RealBuffer square;
    RealBuffer term;
    RealBuffer even;
    RealBuffer odd;
    RealMulRaw(square, x, x);
    RealSetOne(term);
    RealSetOne(even);
    RealSetOne(odd);
    uint64_t k = 2;
    do {
        RealNegate(term);
        RealMulRaw(term, term, square);
        RealDivUint(term, term, k);
        RealAddRaw(even, even, term, false);
        RealDivUint(term, term, k + 1);
        RealAddRaw(odd, odd, term, false);
        k += 2;
    } while (!SeriesIsOver(odd, term));
    RealMulRaw(sine, odd, x);
    RealCopy(cosine, even);
}

void SeriesSinhCosh(RealNumber* sinh, RealNumber* cosh, const RealNumber* x) {
    RealBuffer square;
    RealBuffer term;
    RealBuffer even;
    RealBuffer odd;
    RealMulRaw(square, x, x);
    RealCopy(term, square);
    RealSetOne(even);
    RealSetOne(odd);
    for (uint64_t k = 2;; k += 2) {
        RealDivUint(term, term, k);
        RealAddRaw(even, even, term, false);
        RealDivUint(term, term, k + 1);
        RealAddRaw(odd, odd, term, false);
        if (SeriesIsOver(odd, term)) {
            break;
        }
        RealMulRaw(term, term, square);
    }
    RealMulRaw(sinh, odd, x);
    RealCopy(cosh, even);
}

}  // namespace tallymere::reference
