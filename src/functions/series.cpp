#include "functions/series.h"

#include "core/real_add.h"
#include "core/real_divide.h"
#include "core/real_multiply.h"
#include "core/scratch.h"
#include "functions/grid_series.h"

namespace tallymere {

namespace {

// Each series that is computed on the grid of its sum has its plain steps beside it, which also
// say what the digits are.

bool ExpOnGrid(RealNumber* sum, const RealNumber* x) {
    RealSetOne(sum);
    RealAddRaw(sum, sum, x, false);
    if (SeriesEnds(sum, x)) {
        return true;
    }
    if (!GridCanHold(sum, x, x)) {
        return false;
    }
    CoreScratchScope scratch;
    const GridFactor factor = MakeGridFactor(scratch, x);
    GridTerm term = MakeGridTerm(scratch, x, sum);
    const bool negative = RealSign(x) != 0;
    GridOutcome outcome = GridOutcome::Added;
    for (uint64_t j = 2; outcome == GridOutcome::Added; j++) {
        GridMultiply(term, factor);
        GridQuotient(term, term, j);
        outcome = GridAdd(sum, term, negative && j % 2 != 0);
    }
    return outcome == GridOutcome::Last;
}

void ExpBySteps(RealNumber* sum, const RealNumber* x) {
    CoreScratchScope scratch;
    RealNumber* term = RealAt(scratch.Take(RealWords()));
    RealSetOne(sum);
    RealCopy(term, x);
    RealAddRaw(sum, sum, term, false);
    for (uint64_t j = 2; !SeriesEnds(sum, term); j++) {
        RealMulRaw(term, term, x);
        RealDivUint(term, term, j);
        RealAddRaw(sum, sum, term, false);
    }
}

// The number of terms, or 0 if it has to be done by steps.
int64_t AtanhOnGrid(RealNumber* sum, const RealNumber* x, const RealNumber* square) {
    if (!GridCanHold(x, x, square)) {
        return 0;
    }
    CoreScratchScope scratch;
    const GridFactor factor = MakeGridFactor(scratch, square);
    GridTerm power = MakeGridTerm(scratch, x, x);
    GridTerm term = MakeGridTerm(scratch);
    RealCopy(sum, x);
    int64_t terms = 0;
    GridOutcome outcome = GridOutcome::Added;
    while (outcome == GridOutcome::Added) {
        terms++;
        GridMultiply(power, factor);
        GridQuotient(term, power, static_cast<uint64_t>(2 * terms + 1));
        outcome = GridAdd(sum, term, false);
    }
    return outcome == GridOutcome::Last ? terms : 0;
}

int64_t AtanhBySteps(RealNumber* sum, const RealNumber* x, const RealNumber* square) {
    CoreScratchScope scratch;
    RealNumber* power = RealAt(scratch.Take(RealWords()));
    RealNumber* term = RealAt(scratch.Take(RealWords()));
    RealCopy(power, x);
    RealCopy(sum, x);
    int64_t terms = 0;
    do {
        terms++;
        RealMulRaw(power, power, square);
        RealDivUint(term, power, static_cast<uint64_t>(2 * terms + 1));
        RealAddRaw(sum, sum, term, false);
    } while (!SeriesEnds(sum, term));
    return terms;
}

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

void SeriesExp(RealNumber* dest, const RealNumber* x) {
    if (!ExpOnGrid(dest, x)) {
        ExpBySteps(dest, x);
    }
}

int64_t SeriesAtanh(RealNumber* dest, const RealNumber* x) {
    CoreScratchScope scratch;
    RealNumber* square = RealAt(scratch.Take(RealWords()));
    RealNumber* sum = RealAt(scratch.Take(RealWords()));
    RealMulRaw(square, x, x);
    int64_t terms = AtanhOnGrid(sum, x, square);
    if (terms == 0) {
        terms = AtanhBySteps(sum, x, square);
    }
    RealCopy(dest, sum);
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
