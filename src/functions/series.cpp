#include "functions/series.h"

#include "core/contract.h"
#include "core/real_add.h"
#include "core/real_divide.h"
#include "core/real_multiply.h"
#include "core/scratch.h"
#include "functions/grid_series.h"

namespace tallymere {

namespace {

// The arithmetic of a series in numbers of p digits. `power` is what each term is made of and is
// multiplied by `factor` from term to term; `quotient` is needed where the term is a quotient of it
// by itself, `otherSum` where two series share their terms. The result of an addition says how the
// series goes on, by its first sum.
struct PlainSteps {
    RealNumber* sum;
    RealNumber* power;
    const RealNumber* factor;
    RealNumber* quotient = nullptr;
    RealNumber* otherSum = nullptr;
    Limb guard = 0;  // of the first sum

    void Multiply() { RealMulRaw(power, power, factor); }
    void Divide(uint64_t d) { RealDivUint(power, power, d); }
    void Negate() { RealNegate(power); }
    SeriesOutcome AddPower() { return Add(power); }
    SeriesOutcome AddQuotient(uint64_t d) {
        RealDivUint(quotient, power, d);
        return Add(quotient);
    }
    SeriesOutcome AddPowerToOther() {
        RealAddRaw(otherSum, otherSum, power, false);
        return SeriesOutcome::Added;
    }

private:
    SeriesOutcome Add(const RealNumber* term) {
        guard = RealAddRaw(sum, sum, term, false);
        return SeriesEnds(sum, term) ? SeriesOutcome::Last : SeriesOutcome::Added;
    }
};

// The same on the grid of the sums, which are copies.
struct GridSteps {
    RealNumber* sum;
    GridTerm power;
    GridFactor factor;
    GridTerm quotient;
    RealNumber* otherSum;
    Limb guard = 0;
    Limb otherGuard = 0;

    void Multiply() { GridMultiply(power, factor); }
    void Divide(uint64_t d) { GridQuotient(power, power, d); }
    void Negate() { power.negative = !power.negative; }
    SeriesOutcome AddPower() { return GridAdd(sum, &guard, power); }
    SeriesOutcome AddQuotient(uint64_t d) {
        GridQuotient(quotient, power, d);
        return GridAdd(sum, &guard, quotient);
    }
    SeriesOutcome AddPowerToOther() { return GridAdd(otherSum, &otherGuard, power); }
};

RealNumber* CopyOf(ScratchScope& scratch, const RealNumber* x) {
    if (x == nullptr) {
        return nullptr;
    }
    RealNumber* copy = RealAt(scratch.Take(RealWords()));
    RealCopy(copy, x);
    return copy;
}

// Goes on with a series on the grid, after `turns` turns. False if it comes into doubt; nothing has
// changed then.
template <typename Turn>
bool FinishOnGrid(PlainSteps& plain, Turn turn, uint64_t* turns) {
    CoreScratchScope scratch;
    GridSteps grid = {CopyOf(scratch, plain.sum), MakeGridTerm(scratch, plain.power, plain.sum),
                      MakeGridFactor(scratch, plain.factor), MakeGridTerm(scratch),
                      CopyOf(scratch, plain.otherSum)};
    uint64_t count = *turns;
    SeriesOutcome outcome = SeriesOutcome::Added;
    while (outcome == SeriesOutcome::Added) {
        outcome = turn(grid, ++count);
    }
    if (outcome == SeriesOutcome::Doubtful) {
        return false;
    }
    RealCopy(plain.sum, grid.sum);
    plain.guard = grid.guard;
    if (plain.otherSum != nullptr) {
        RealCopy(plain.otherSum, grid.otherSum);
    }
    *turns = count;
    return true;
}

bool CanGoOnGrid(const PlainSteps& plain) {
    return GridCanHold(plain.sum, plain.power, plain.factor) &&
           (plain.otherSum == nullptr || RealExponent(plain.otherSum) == RealExponent(plain.sum));
}

// Runs turns 1, 2, 3, ... of a series until it ends and returns their number: in numbers as long as
// the terms are near to the sum, then on the grid, and in numbers again where that is in doubt.
template <typename Turn>
uint64_t RunSeries(PlainSteps& plain, Turn turn) {
    uint64_t turns = 0;
    SeriesOutcome outcome = SeriesOutcome::Added;
    while (outcome == SeriesOutcome::Added && !CanGoOnGrid(plain)) {
        outcome = turn(plain, ++turns);
    }
    if (outcome == SeriesOutcome::Added && FinishOnGrid(plain, turn, &turns)) {
        return turns;
    }
    while (outcome == SeriesOutcome::Added) {
        outcome = turn(plain, ++turns);
    }
    return turns;
}

// The sum of power / (2 k + 1), the first power being x and each one the one before times x^2, or
// -x^2 when alternating.
Limb OddQuotientSeries(RealNumber* dest, const RealNumber* x, bool alternating, uint64_t* terms) {
    CoreScratchScope scratch;
    RealNumber* square = RealAt(scratch.Take(RealWords()));
    RealNumber* quotient = RealAt(scratch.Take(RealWords()));
    RealMulRaw(square, x, x);
    PlainSteps steps = {CopyOf(scratch, x), CopyOf(scratch, x), square, quotient};
    *terms = RunSeries(steps, [alternating](auto& series, uint64_t turn) {
        if (alternating) {
            series.Negate();
        }
        series.Multiply();
        return series.AddQuotient(2 * turn + 1);
    });
    RealCopy(dest, steps.sum);
    return steps.guard;
}

// sum = power + the terms that follow it, each the one before times x^2 / ((2 k + first) (2 k +
// first + 1)), or -x^2 when alternating. Uses up power.
Limb FactorialSeries(RealNumber* dest, const RealNumber* x, RealNumber* power, uint64_t first,
                     bool alternating) {
    CoreScratchScope scratch;
    RealNumber* square = RealAt(scratch.Take(RealWords()));
    RealMulRaw(square, x, x);
    PlainSteps steps = {CopyOf(scratch, power), power, square};
    RunSeries(steps, [first, alternating](auto& series, uint64_t turn) {
        const uint64_t k = 2 * turn + first - 2;
        series.Multiply();
        series.Divide(k * (k + 1));
        if (alternating) {
            series.Negate();
        }
        return series.AddPower();
    });
    RealCopy(dest, steps.sum);
    return steps.guard;
}

// even = 1 + x^2/2! + x^4/4! + ... and odd = x (1 + x^2/3! + x^4/5! + ...), or with every second
// sign negative.
void PairedFactorialSeries(RealNumber* odd, RealNumber* even, const RealNumber* x,
                           bool alternating) {
    CoreScratchScope scratch;
    RealNumber* square = RealAt(scratch.Take(RealWords()));
    RealNumber* one = RealAt(scratch.Take(RealWords()));
    RealMulRaw(square, x, x);
    RealSetOne(one);
    PlainSteps steps = {CopyOf(scratch, one), CopyOf(scratch, one), square, nullptr, one};
    RunSeries(steps, [alternating](auto& series, uint64_t turn) {
        if (alternating) {
            series.Negate();
        }
        series.Multiply();
        series.Divide(2 * turn);
        const SeriesOutcome outcome = series.AddPowerToOther();
        series.Divide(2 * turn + 1);
        return outcome == SeriesOutcome::Doubtful ? outcome : series.AddPower();
    });
    RealMulRaw(odd, steps.sum, x);
    RealCopy(even, steps.otherSum);
}

}  // namespace

Limb SeriesExp(RealNumber* dest, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    CoreScratchScope scratch;
    RealNumber* sum = RealAt(scratch.Take(RealWords()));
    PlainSteps steps = {sum, CopyOf(scratch, x), x};
    RealSetOne(sum);
    if (steps.AddPower() == SeriesOutcome::Added) {
        RunSeries(steps, [](auto& series, uint64_t turn) {
            series.Multiply();
            series.Divide(turn + 1);
            return series.AddPower();
        });
    }
    RealCopy(dest, sum);
    return steps.guard;
}

int64_t SeriesAtanh(RealNumber* dest, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    uint64_t terms = 0;
    OddQuotientSeries(dest, x, false, &terms);
    return static_cast<int64_t>(terms);
}

Limb SeriesAtan(RealNumber* dest, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    uint64_t terms = 0;
    return OddQuotientSeries(dest, x, true, &terms);
}

Limb SeriesSin(RealNumber* dest, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    CoreScratchScope scratch;
    return FactorialSeries(dest, x, CopyOf(scratch, x), 2, true);
}

Limb SeriesSinh(RealNumber* dest, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    CoreScratchScope scratch;
    return FactorialSeries(dest, x, CopyOf(scratch, x), 2, false);
}

Limb SeriesCos(RealNumber* dest, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealSameOrApart(dest, x));
    CoreScratchScope scratch;
    RealNumber* power = RealAt(scratch.Take(RealWords()));
    RealSetOne(power);
    return FactorialSeries(dest, x, power, 1, true);
}

void SeriesSinCos(RealNumber* sine, RealNumber* cosine, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealOutputsAreApart(sine, cosine, x));
    PairedFactorialSeries(sine, cosine, x, true);
}

void SeriesSinhCosh(RealNumber* sinh, RealNumber* cosh, const RealNumber* x) {
    TALLYMERE_REQUIRE(RealIsWellFormed(x));
    TALLYMERE_REQUIRE(RealOutputsAreApart(sinh, cosh, x));
    PairedFactorialSeries(sinh, cosh, x, false);
}

}  // namespace tallymere
