#include "reference/polynomial_root_twins.h"

#include <vector>

#include "core/complex_arithmetic.h"
#include "core/real_add.h"
#include "core/real_compare.h"
#include "core/real_divide.h"
#include "core/real_rounding.h"

namespace tallymere::reference {

namespace {

constexpr int64_t RingSlots = 6;

// A number of the layout in force at its making.
class Number {
public:
    Number() : words_(static_cast<size_t>(ComplexWords())) { ComplexSetZero(*this, 0); }
    operator ComplexNumber*() { return ComplexAt(words_.data()); }
    operator const ComplexNumber*() const { return ComplexAt(words_.data()); }

private:
    std::vector<uint64_t> words_;
};

using Numbers = std::vector<Number>;

// The last values of one part of a root; the ring runs downwards.
using Ring = std::vector<Number>;

Number One() {
    Number one;
    RealSetOne(RealPart(one));
    return one;
}

// By ascending powers.
Number Evaluate(const Numbers& coefficients, const Number& z) {
    const size_t degree = coefficients.size() - 1;
    Number sum = coefficients[0];
    Number power = z;
    Number term;
    for (size_t i = 1; i < degree; i++) {
        ComplexMul(term, coefficients[i], power);
        ComplexAdd(sum, sum, term);
        ComplexMul(power, power, z);
    }
    ComplexMul(term, coefficients[degree], power);
    ComplexAdd(sum, sum, term);
    return sum;
}

void Sweep(Numbers& roots, const Numbers& coefficients) {
    for (size_t k = 0; k < roots.size(); k++) {
        Number value = Evaluate(coefficients, roots[k]);
        Number product = One();
        Number difference;
        for (size_t j = 0; j < roots.size(); j++) {
            if (j != k) {
                ComplexSub(difference, roots[k], roots[j]);
                ComplexMul(product, product, difference);
            }
        }
        ComplexDiv(value, value, product);
        ComplexSub(roots[k], roots[k], value);
    }
}

const RealNumber* Slot(const Ring& ring, int64_t index) {
    return RealPart(static_cast<const ComplexNumber*>(ring[static_cast<size_t>(index)]));
}

bool IsStable(const Ring& ring) {
    for (int64_t i = 1; i < RingSlots; i++) {
        if (RealCompare(Slot(ring, i), Slot(ring, 0)) != 0) {
            return false;
        }
    }
    return true;
}

// True when the newer value of a pair is within a ten-thousandth of the older one.
bool PairIsSteady(const RealNumber* newer, const RealNumber* older) {
    if (RealIsZero(newer) || RealIsZero(older)) {
        return RealIsZero(newer) && RealIsZero(older);
    }
    if (RealSign(newer) != RealSign(older)) {
        return false;
    }
    Number quotient;
    RealNumber* distance = RealPart(quotient);
    RealDiv(distance, newer, older);
    const Number one = One();
    RealSub(distance, distance, RealPart(static_cast<const ComplexNumber*>(one)));
    return RealCompareScaled(distance, 1, -4, true) < 0;
}

// 0 for noise around zero, 1 for a part that is steady, 2 for one that still moves.
int ClassifyUnstablePart(const Ring& ring, int64_t newest) {
    bool isSteady = true;
    for (int64_t i = 0; i + 1 < RingSlots; i++) {
        isSteady = isSteady && PairIsSteady(Slot(ring, (newest + i) % RingSlots),
                                            Slot(ring, (newest + i + 1) % RingSlots));
    }
    if (isSteady) {
        return 1;
    }
    return RealCompareScaled(Slot(ring, newest), 1, -1, true) < 0 ? 0 : 2;
}

void Remember(Ring& ring, int64_t newest, const RealNumber* part, int64_t digits) {
    RealRoundDigitsAny(RealPart(ring[static_cast<size_t>(newest)]), part, digits);
}

// The roots of a polynomial whose highest coefficient is 1, rounded.
RootOutcome Iterate(Numbers& roots, const Numbers& coefficients, int64_t digits) {
    const size_t degree = coefficients.size() - 1;
    Number start;
    RealSetOne(RealPart(start));
    RealSetOne(ImaginaryPart(start));
    roots.assign(degree, One());
    for (size_t k = 1; k < degree; k++) {
        ComplexMul(roots[k], roots[k - 1], start);
    }
    std::vector<Ring> real(degree, Ring(RingSlots));
    std::vector<Ring> imaginary(degree, Ring(RingSlots));
    const int64_t limit = static_cast<int64_t>(degree) * digits * 3;
    int64_t newest = 5;
    for (int64_t sweep = 1;; sweep++) {
        Sweep(roots, coefficients);
        newest = newest == 5 ? 0 : newest + 1;
        bool converged = sweep >= RingSlots;
        for (size_t k = 0; k < degree; k++) {
            Remember(real[k], newest, RealPart(roots[k]), digits);
            Remember(imaginary[k], newest, ImaginaryPart(roots[k]), digits);
            converged = converged && (IsStable(real[k]) || IsStable(imaginary[k]));
        }
        if (converged) {
            break;
        }
        if (sweep == limit) {
            return RootOutcome::NotConverged;
        }
    }
    // The slots are written upwards, so that the pairs go downwards from the newest one.
    const auto take = [&](RealNumber* dest, const Ring& ring) {
        Ring downward;
        for (int64_t i = 0; i < RingSlots; i++) {
            downward.push_back(ring[static_cast<size_t>((newest - i + RingSlots) % RingSlots)]);
        }
        if (!IsStable(ring) && ClassifyUnstablePart(downward, 0) == 0) {
            RealSetZero(dest, 0);
        } else {
            RealCopy(dest, Slot(ring, newest));
        }
    };
    for (size_t k = 0; k < degree; k++) {
        take(RealPart(roots[k]), real[k]);
        take(ImaginaryPart(roots[k]), imaginary[k]);
    }
    return RootOutcome::Found;
}

}  // namespace

RootOutcome TwinSolvePolynomial(SolutionSet& solutions, const CoefficientList& list, int64_t digits,
                                uint32_t flags) {
    solutions.count = -1;
    const int64_t entry = numberContext.precisionDigits;
    const int64_t working = RootWorkingDigits(list.degree, digits);
    const RealLayoutScope saved;
    InstallRealLayout(LayoutForDigits(working));
    Numbers coefficients;
    int64_t zeros = 0;
    for (int64_t i = 0; i <= list.degree; i++) {
        Number coefficient;
        ComplexConvertPrecision(coefficient, working, list.coefficients[i], entry);
        if (coefficients.empty() && ComplexIsZero(coefficient)) {
            zeros++;
        } else {
            coefficients.push_back(coefficient);
        }
    }
    const Number highest = coefficients.back();
    for (Number& coefficient : coefficients) {
        ComplexDiv(coefficient, coefficient, highest);
    }
    coefficients.back() = One();
    Numbers roots;
    if (coefficients.size() == 2) {
        roots.push_back(coefficients[0]);
        ComplexNegate(roots[0]);
        ComplexRoundDigits(roots[0], roots[0], digits);
    } else if (coefficients.size() > 2) {
        const RootOutcome outcome = Iterate(roots, coefficients, digits);
        if (outcome != RootOutcome::Found) {
            return outcome;
        }
    }
    roots.resize(roots.size() + static_cast<size_t>(zeros));
    solutions.count = 0;
    for (const Number& root : roots) {
        ComplexConvertPrecision(solutions.values[solutions.count], entry, root, working);
        solutions.multiplicities[solutions.count] = 1;
        solutions.exactTexts[solutions.count][0] = 0;
        solutions.count++;
    }
    InstallRealLayout(LayoutForDigits(entry));
    SortRoots(solutions);
    if ((flags & KeepEqualRoots) == 0) {
        MergeEqualRoots(solutions);
    }
    if ((flags & KeepRealRootsOnly) != 0) {
        DropNonRealRoots(solutions);
    }
    return RootOutcome::Found;
}

}  // namespace tallymere::reference
