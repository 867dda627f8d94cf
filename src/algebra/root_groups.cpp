#include "algebra/root_groups.h"

#include <bit>
#include <utility>

#include "core/complex_arithmetic.h"

namespace tallymere {

namespace {

// The lower terms together are below half of the outweighing one at three times the radius where
// each of them would equal it, since 1/3 + 1/9 + ... is one half.
constexpr double RadiusFactor = 3.01;

// Approximations that are looked at together.
struct Draft {
    uint32_t members;  // bits
    bool tested;
    bool proven;
};

int64_t CountMembers(uint32_t members) {
    return std::popcount(members);
}

void SetMean(RootGroup& group, ComplexNumber* const* roots, uint32_t members) {
    ComplexSetZero(group.center, 0);
    for (int64_t i = 0; i < MaxEquationDegree; i++) {
        if ((members >> i & 1) != 0) {
            ComplexAdd(group.center, group.center, roots[i]);
        }
    }
    group.count = CountMembers(members);
    ComplexDivUint(group.center, group.center, static_cast<uint64_t>(group.count));
}

// Looks for a disc around the group's centre. False when a stop was requested.
bool TestGroup(RootGroup& group, bool* proven, const RootFrame& frame) {
    ScratchStackScope scope;
    const int64_t degree = frame.polynomial.degree;
    Polynomial expansion = CopyPolynomial(scope, frame.polynomial);
    if (!ExpandAround(expansion, group.center)) {
        return false;
    }
    Magnitude errors[MaxEquationDegree + 1];
    Magnitude sizes[MaxEquationDegree + 1];
    for (int64_t i = 0; i <= degree; i++) {
        errors[i] = frame.errors[i];
    }
    ExpandSizes(errors, degree, MagnitudeOf(group.center));
    TakeSizes(sizes, expansion);
    const Magnitude outweighing = Excess(sizes[group.count], errors[group.count]);
    for (int64_t i = 0; i <= degree; i++) {
        sizes[i] = sizes[i] + errors[i];
    }
    *proven = FindPelletRadius(&group.radius, sizes, outweighing, degree, group.count);
    return true;
}

Magnitude DistanceOf(const RootGroup& a, const RootGroup& b) {
    ScratchStackScope scope;
    ComplexNumber* difference = TakeComplex(scope);
    ComplexSub(difference, a.center, b.center);
    return MagnitudeOf(difference);
}

int64_t NearestGroup(const RootGroup* groups, int64_t count, int64_t k) {
    int64_t nearest = -1;
    Magnitude least;
    for (int64_t i = 0; i < count; i++) {
        if (i == k) {
            continue;
        }
        const Magnitude distance = DistanceOf(groups[i], groups[k]);
        if (nearest < 0 || distance < least) {
            nearest = i;
            least = distance;
        }
    }
    return nearest;
}

// The first group that has no disc of its own, or -1.
int64_t FindUnproven(const RootGroup* groups, const Draft* drafts, int64_t count) {
    for (int64_t i = 0; i < count; i++) {
        if (!drafts[i].proven) {
            return i;
        }
        for (int64_t j = 0; j < i; j++) {
            if (!IsSurelyBelow(groups[i].radius + groups[j].radius,
                               DistanceOf(groups[i], groups[j]))) {
                return i;
            }
        }
    }
    return -1;
}

}  // namespace

bool FindPelletRadius(Magnitude* radius, const Magnitude* sizes, Magnitude outweighing,
                      int64_t degree, int64_t count) {
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

int64_t GroupRoots(RootGroup* groups, ComplexNumber* const* roots, const RootFrame& frame) {
    Draft drafts[MaxEquationDegree];
    int64_t count = frame.count;
    for (int64_t i = 0; i < count; i++) {
        drafts[i] = {uint32_t{1} << i, false, false};
    }
    for (;;) {
        for (int64_t i = 0; i < count; i++) {
            if (drafts[i].tested) {
                continue;
            }
            SetMean(groups[i], roots, drafts[i].members);
            if (!TestGroup(groups[i], &drafts[i].proven, frame)) {
                return -1;
            }
            drafts[i].tested = true;
        }
        const int64_t unproven = FindUnproven(groups, drafts, count);
        if (unproven < 0) {
            return count;
        }
        if (count == 1) {
            groups[0].radius = {};
            return 1;
        }
        const int64_t nearest = NearestGroup(groups, count, unproven);
        drafts[nearest] = {drafts[nearest].members | drafts[unproven].members, false, false};
        count--;
        std::swap(groups[unproven], groups[count]);
        drafts[unproven] = drafts[count];
        if (nearest == count) {
            // The united group was the last one and lies in the free place now.
            drafts[unproven].tested = false;
        }
    }
}

}  // namespace tallymere
