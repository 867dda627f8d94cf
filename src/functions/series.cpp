#include "functions/series.h"

#include "core/real_add.h"
#include "core/real_divide.h"
#include "core/real_multiply.h"
#include "core/scratch.h"

namespace tallymere {

namespace {

// sum = term + the terms that follow it, each the one before times -square / (k (k + 1)), with k
// growing by 2.
Limb AlternatingFactorialSeries(RealNumber* sum, RealNumber* term, const RealNumber* square,
                                uint64_t k) {
    Limb guard = 0;
    RealCopy(sum, term);
    do {
        RealMulRaw(term, term, square);
        RealDivUint(term, term, k * (k + 1));
        RealNegate(term);
        guard = RealAddRaw(sum, sum, term, false);
        k += 2;
    } while (!SeriesEnds(sum, term));
    return guard;
}

// even = 1 + x^2/2! + x^4/4! + ... and odd = x (1 + x^2/3! + x^4/5! + ...), or with every second
// sign negative.
void PairedFactorialSeries(RealNumber* odd, RealNumber* even, const RealNumber* x,
                           bool alternating) {
    CoreScratchScope scratch;
    RealNumber* square = RealAt(scratch.Take(RealWords()));
    RealNumber* term = RealAt(scratch.Take(RealWords()));
    RealNumber* oddSum = RealAt(scratch.Take(RealWords()));
    RealNumber* evenSum = RealAt(scratch.Take(RealWords()));
    RealMulRaw(square, x, x);
    RealCopy(term, square);
    RealSetOne(oddSum);
    RealSetOne(evenSum);
    for (uint64_t k = 2;; k += 2) {
        if (alternating) {
            RealNegate(term);
        }
        RealDivUint(term, term, k);
        RealAddRaw(evenSum, evenSum, term, false);
        RealDivUint(term, term, k + 1);
        RealAddRaw(oddSum, oddSum, term, false);
        if (SeriesEnds(oddSum, term)) {
            break;
        }
        RealMulRaw(term, term, square);
    }
    RealMulRaw(odd, oddSum, x);
    RealCopy(even, evenSum);
}

}  // namespace

int64_t SeriesAtanh(RealNumber* dest, const RealNumber* x) {
    CoreScratchScope scratch;
    RealNumber* square = RealAt(scratch.Take(RealWords()));
    RealNumber* power = RealAt(scratch.Take(RealWords()));
    RealNumber* term = RealAt(scratch.Take(RealWords()));
    RealMulRaw(square, x, x);
    RealCopy(power, x);
    if (dest != x) {
        RealCopy(dest, x);
    }
    int64_t terms = 0;
    do {
        terms++;
        RealMulRaw(power, power, square);
        RealDivUint(term, power, static_cast<uint64_t>(2 * terms + 1));
        RealAddRaw(dest, dest, term, false);
    } while (!SeriesEnds(dest, term));
    return terms;
}

Limb SeriesSin(RealNumber* dest, const RealNumber* x) {
    CoreScratchScope scratch;
    RealNumber* square = RealAt(scratch.Take(RealWords()));
    RealNumber* term = RealAt(scratch.Take(RealWords()));
    RealMulRaw(square, x, x);
    RealCopy(term, x);
    return AlternatingFactorialSeries(dest, term, square, 2);
}

Limb SeriesCos(RealNumber* dest, const RealNumber* x) {
    CoreScratchScope scratch;
    RealNumber* square = RealAt(scratch.Take(RealWords()));
    RealNumber* term = RealAt(scratch.Take(RealWords()));
    RealMulRaw(square, x, x);
    RealSetOne(term);
    return AlternatingFactorialSeries(dest, term, square, 1);
}

void SeriesSinCos(RealNumber* sine, RealNumber* cosine, const RealNumber* x) {
    PairedFactorialSeries(sine, cosine, x, true);
}

void SeriesSinhCosh(RealNumber* sinh, RealNumber* cosh, const RealNumber* x) {
    PairedFactorialSeries(sinh, cosh, x, false);
}

}  // namespace tallymere
