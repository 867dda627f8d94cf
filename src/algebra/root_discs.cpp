#include "algebra/root_discs.h"

#include <bit>
#include <utility>

#include "core/complex_arithmetic.h"
#include "core/contract.h"

namespace tallymere {

namespace {

// The lower terms together are below half of the outweighing one at three times the radius where
// each of them would equal it, since 1/3 + 1/9 + ... is one half.
constexpr double RadiusFactor = 3.01;

// Approximations that may be those of one disc.
struct Candidate {
    uint32_t members;  // bits
    bool tested;
    bool proven;
};

int64_t CountMembers(uint32_t members) {
    return std::popcount(members);
}

void SetMean(RootDisc& disc, ComplexNumber* const* roots, uint32_t members) {
    ComplexSetZero(disc.center, 0);
    for (int64_t i = 0; i < MaxEquationDegree; i++) {
        if ((members >> i & 1) != 0) {
            ComplexAdd(disc.center, disc.center, roots[i]);
        }
    }
    disc.count = CountMembers(members);
    ComplexDivUint(disc.center, disc.center, static_cast<uint64_t>(disc.count));
}

// Looks for a radius around the centre of a disc. False when a stop was requested.
bool ProveDisc(RootDisc& disc, bool* proven, const RootProblem& problem) {
    ScratchStackScope scope;
    const int64_t degree = problem.polynomial.degree;
    Polynomial expansion = CopyPolynomial(scope, problem.polynomial);
    if (!ExpandAround(expansion, disc.center)) {
        return false;
    }
    Magnitude errors[MaxEquationDegree + 1];
    Magnitude sizes[MaxEquationDegree + 1];
    for (int64_t i = 0; i <= degree; i++) {
        errors[i] = problem.errors[i];
    }
    ExpandSizes(errors, degree, MagnitudeOf(disc.center));
    FindSizes(sizes, expansion);
    const Magnitude outweighing = Excess(sizes[disc.count], errors[disc.count]);
    for (int64_t i = 0; i <= degree; i++) {
        sizes[i] = sizes[i] + errors[i];
    }
    *proven = FindPelletRadius(&disc.radius, sizes, outweighing, degree, disc.count);
    return true;
}

Magnitude DistanceOf(const RootDisc& a, const RootDisc& b) {
    ScratchStackScope scope;
    ComplexNumber* difference = TakeComplex(scope);
    ComplexSub(difference, a.center, b.center);
    return MagnitudeOf(difference);
}

int64_t FindNearest(const RootDisc* discs, int64_t count, int64_t k) {
    int64_t nearest = -1;
    Magnitude least;
    for (int64_t i = 0; i < count; i++) {
        if (i == k) {
            continue;
        }
        const Magnitude distance = DistanceOf(discs[i], discs[k]);
        if (nearest < 0 || distance < least) {
            nearest = i;
            least = distance;
        }
    }
    return nearest;
}

// The first disc that is not proven, or meets another one; or -1.
int64_t FindUnproven(const RootDisc* discs, const Candidate* candidates, int64_t count) {
    for (int64_t i = 0; i < count; i++) {
        if (!candidates[i].proven) {
            return i;
        }
        for (int64_t j = 0; j < i; j++) {
            if (!IsSurelyBelow(discs[i].radius + discs[j].radius, DistanceOf(discs[i], discs[j]))) {
                return i;
            }
        }
    }
    return -1;
}

}  // namespace

bool FindPelletRadius(Magnitude* radius, const Magnitude* sizes, Magnitude outweighing,
                      int64_t degree, int64_t count) {
    TALLYMERE_REQUIRE(count >= 0 && count <= degree && degree <= MaxEquationDegree);
    if (IsZero(outweighing)) {
        return false;
    }
    Magnitude least;
    for (int64_t j = 0; j < count; j++) {
        least = Larger(least, Root(sizes[j] / outweighing, count - j));
    }
    *radius = least * MakeMagnitude(RadiusFactor);
    Magnitude power = MakeMagnitude(1);
    Magnitude others;
    Magnitude term;
    for (int64_t j = 0; j <= degree; j++) {
        if (j == count) {
            term = outweighing * power;
        } else {
            others = others + sizes[j] * power;
        }
        power = power * *radius;
    }
    return IsSurelyBelow(others, term);
}

int64_t FindDiscs(RootDisc* discs, ComplexNumber* const* roots, const RootProblem& problem) {
    TALLYMERE_REQUIRE(ProblemIsWellFormed(problem));
    Candidate candidates[MaxEquationDegree];
    int64_t count = problem.count;
    for (int64_t i = 0; i < count; i++) {
        candidates[i] = {uint32_t{1} << i, false, false};
    }
    for (;;) {
        for (int64_t i = 0; i < count; i++) {
            if (candidates[i].tested) {
                continue;
            }
            SetMean(discs[i], roots, candidates[i].members);
            if (!ProveDisc(discs[i], &candidates[i].proven, problem)) {
                return -1;
            }
            candidates[i].tested = true;
        }
        const int64_t unproven = FindUnproven(discs, candidates, count);
        if (unproven < 0) {
            return count;
        }
        if (count == 1) {
            discs[0].radius = {};
            return 1;
        }
        const int64_t nearest = FindNearest(discs, count, unproven);
        candidates[nearest] = {candidates[nearest].members | candidates[unproven].members, false,
                               false};
        count--;
        std::swap(discs[unproven], discs[count]);
        candidates[unproven] = candidates[count];
        if (nearest == count) {
            // The united one was the last one and lies in the free place now.
            candidates[unproven].tested = false;
        }
    }
}

}  // namespace tallymere
