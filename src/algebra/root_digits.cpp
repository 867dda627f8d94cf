#include "algebra/root_digits.h"

#include <algorithm>

#include "algebra/center_refinement.h"
#include "algebra/residue_structure.h"
#include "algebra/root_enclosure.h"
#include "core/complex_arithmetic.h"
#include "core/contract.h"
#include "core/real_add.h"
#include "core/real_compare.h"
#include "core/real_divide.h"
#include "core/real_layout.h"
#include "core/real_rounding.h"

namespace tallymere {

namespace {

// Digits beyond those that are asked for, so that one level nearly always suffices.
constexpr int64_t ExtraDigits = 40;

// The largest shift by errors of coefficients that counts for the middle between two results, in
// tenths of the unit of the last digit.
constexpr double LargestShift = 1e-2;

constexpr NumberPart BothParts[] = {NumberPart::Real, NumberPart::Imaginary};

// What is known of the parts of a root.
struct RootParts {
    PartSizes radii;
    PartSizes shifts;
    bool isZero[2];
    bool isWritten[2];
};

// All roots at one level of digits: their centres are in the layout in force.
struct RootsAtLevel {
    const RootClusters& clusters;
    const Polynomial& polynomial;
    RootParts* parts;
    bool isLast;  // no more digits are to come
};

int64_t IndexOf(NumberPart part) {
    return part == NumberPart::Real ? 0 : 1;
}
RealNumber* PartOf(ComplexNumber* z, NumberPart part) {
    return part == NumberPart::Real ? RealPart(z) : ImaginaryPart(z);
}
NumberPart OtherPart(NumberPart part) {
    return part == NumberPart::Real ? NumberPart::Imaginary : NumberPart::Real;
}
Magnitude SizeOf(const PartSizes& sizes, NumberPart part) {
    return part == NumberPart::Real ? sizes.real : sizes.imaginary;
}

// True when a - b could be 0: it is not surely more than `reach`.
bool CouldBeEqual(const RealNumber* a, const RealNumber* b, Magnitude reach) {
    ScratchStackScope scope;
    RealNumber* difference = RealAt(scope.Take(RealWords()));
    RealSub(difference, a, b);
    return !IsSurelyBelow(reach, MagnitudeOf(difference));
}

// True when the mirror image of root i at the line could be root j.
bool CouldBeMirrored(const RootsAtLevel& roots, int64_t i, int64_t j, NumberPart part,
                     const RealNumber* position) {
    ScratchStackScope scope;
    RealNumber* image = RealAt(scope.Take(RealWords()));
    ComplexNumber* a = roots.clusters.clusters[i].center;
    ComplexNumber* b = roots.clusters.clusters[j].center;
    const PartSizes& ofA = roots.parts[i].radii;
    const PartSizes& ofB = roots.parts[j].radii;
    const NumberPart other = OtherPart(part);
    if (!CouldBeEqual(PartOf(a, other), PartOf(b, other),
                      SizeOf(ofA, other) + SizeOf(ofB, other))) {
        return false;
    }
    // The image of part a is twice the position, less a.
    const Magnitude rounding = (MagnitudeOf(position) + MagnitudeOf(PartOf(a, part))) *
                               MakeMagnitude(4, 1 - numberContext.precisionDigits);
    RealAdd(image, position, position);
    RealSub(image, image, PartOf(a, part));
    return CouldBeEqual(image, PartOf(b, part), SizeOf(ofA, part) + SizeOf(ofB, part) + rounding);
}

// True when the parts of all roots that could be `position` surely are.
bool IsExactly(const RootsAtLevel& roots, NumberPart part, const RealNumber* position) {
    const RootClusters& clusters = roots.clusters;
    int64_t candidates = 0;
    for (int64_t i = 0; i < clusters.count; i++) {
        const RootCluster& cluster = clusters.clusters[i];
        if (CouldBeEqual(PartOf(cluster.center, part), position,
                         SizeOf(roots.parts[i].radii, part))) {
            candidates += cluster.multiplicity;
        }
        for (int64_t j = 0; j < i; j++) {
            if (CouldBeMirrored(roots, i, j, part, position)) {
                candidates += 2 * std::min(cluster.multiplicity, clusters.clusters[j].multiplicity);
            }
        }
    }
    return candidates <= CountMirroredRoots(roots.polynomial, part, position);
}

// True when the part of root k is 0, or would be for coefficients within their errors.
bool IsZeroPart(const RootsAtLevel& roots, int64_t k, NumberPart part) {
    ScratchStackScope scope;
    RealNumber* zero = RealAt(scope.Take(RealWords()));
    RealSetZero(zero, 0);
    const RealNumber* center = PartOf(roots.clusters.clusters[k].center, part);
    const RootParts& parts = roots.parts[k];
    const Magnitude shift = SizeOf(parts.shifts, part);
    if (!IsZero(shift) && !(shift + SizeOf(parts.radii, part) < MagnitudeOf(center))) {
        return true;
    }
    return CouldBeEqual(center, zero, SizeOf(parts.radii, part)) &&
           (roots.isLast || IsExactly(roots, part, zero));
}

// The middle between two neighbouring results of rounding, as far as the layout has digits.
void SetMiddle(RealNumber* middle, const RealNumber* a, const RealNumber* b) {
    RealAdd(middle, a, b);
    RealRound(middle, RealDivUint(middle, middle, 2));
}

// low and high = the ends of the numbers within `reach` of x, each rounded to so many digits; high
// is the one away from 0.
void RoundEnds(RealNumber* low, RealNumber* high, const RealNumber* x, Magnitude reach,
               int64_t digits) {
    ScratchStackScope scope;
    RealNumber* distance = RealAt(scope.Take(RealWords()));
    // The operations here are rounded, by less than the margins.
    const Magnitude unit = MakeMagnitude(2, RealExponent(x) + 2 - numberContext.precisionDigits);
    RealFromMagnitude(distance, reach * MakeMagnitude(1.1) + unit);
    RealSetSign(distance, RealSign(x));
    RealSub(low, x, distance);
    RealAdd(high, x, distance);
    RealRoundDigits(low, low, digits);
    RealRoundDigits(high, high, digits);
}

// Rounds the part of root k, which is not 0, to so many digits. False when that is not decided yet.
bool RoundPart(RealNumber* rounded, const RootsAtLevel& roots, int64_t k, NumberPart part,
               int64_t digits) {
    const RealNumber* center = PartOf(roots.clusters.clusters[k].center, part);
    if (roots.isLast) {
        RealRoundDigitsAny(rounded, center, digits);
        return true;
    }
    const Magnitude radius = SizeOf(roots.parts[k].radii, part);
    const Magnitude tenthOfUnit = MakeMagnitude(1, RealExponent(center) - digits);
    if (RealIsZero(center) || !(radius < tenthOfUnit)) {
        return false;
    }
    // What could be the middle between two results for coefficients within their errors, is.
    Magnitude shift = SizeOf(roots.parts[k].shifts, part);
    if (!(shift < tenthOfUnit * MakeMagnitude(LargestShift))) {
        shift = {};
    }
    ScratchStackScope scope;
    RealNumber* low = RealAt(scope.Take(RealWords()));
    RoundEnds(low, rounded, center, radius + shift, digits);
    if (RealCompare(low, rounded) == 0) {
        return true;
    }
    RealNumber* middle = RealAt(scope.Take(RealWords()));
    SetMiddle(middle, low, rounded);
    return CouldBeEqual(center, middle, radius + shift) &&
           (!IsZero(shift) || IsExactly(roots, part, middle));
}

bool IsFinished(const RootParts& parts) {
    return parts.isWritten[0] && parts.isWritten[1];
}

// Decides what can be decided of root k, and writes it.
void WriteParts(ComplexNumber* value, const RootsAtLevel& roots, int64_t k, int64_t digits) {
    RootParts& parts = roots.parts[k];
    const RealLayout layout = CurrentRealLayout();
    const RealLayout resultLayout = LayoutForDigits(digits);
    ScratchStackScope scope;
    RealNumber* rounded = RealAt(scope.Take(RealWords()));
    for (const NumberPart part : BothParts) {
        const int64_t index = IndexOf(part);
        if (parts.isWritten[index]) {
            continue;
        }
        parts.isZero[index] = parts.isZero[index] || IsZeroPart(roots, k, part);
        if (parts.isZero[index]) {
            RealSetZero(rounded, 0);
        } else if (!RoundPart(rounded, roots, k, part, digits)) {
            continue;
        }
        const RealLayoutScope saved;
        InstallRealLayout(resultLayout);
        RealNumber* dest = PartOf(value, part);
        RealRound(dest, RealConvertLayout(dest, rounded, layout));
        parts.isWritten[index] = true;
    }
}

// Brings the centre of a cluster into the layout in force, without a better value.
void WidenCenter(RootCluster& cluster) {
    ScratchStackScope scope;
    ComplexNumber* center = TakeComplex(scope);
    ConvertComplex(center, cluster.center, cluster.layout);
    ComplexCopy(cluster.center, center);
    cluster.layout = CurrentRealLayout();
}

// The parts that are 0 as far as the discs tell, before there are boxes: real roots then take real
// arithmetic.
void FindZeroParts(RootClusters& clusters, const Polynomial& polynomial, RootParts* parts,
                   int64_t digits) {
    const DigitsScope layout(digits);
    for (int64_t k = 0; k < clusters.count; k++) {
        WidenCenter(clusters.clusters[k]);
        const Magnitude radius = clusters.clusters[k].radius;
        parts[k] = {{radius, radius}, {}, {}, {}};
    }
    const RootsAtLevel roots{
        .clusters = clusters, .polynomial = polynomial, .parts = parts, .isLast = false};
    for (int64_t k = 0; k < clusters.count; k++) {
        for (const NumberPart part : BothParts) {
            parts[k].isZero[IndexOf(part)] = IsZeroPart(roots, k, part);
        }
    }
    for (int64_t k = 0; k < clusters.count; k++) {
        for (const NumberPart part : BothParts) {
            if (parts[k].isZero[IndexOf(part)]) {
                RootCluster& cluster = clusters.clusters[k];
                RealNumber* center = PartOf(cluster.center, part);
                cluster.radius = cluster.radius + MagnitudeOf(center);
                RealSetZero(center, 0);
            }
        }
    }
}

// Brings the centre nearer to its root, and encloses the root. False when a stop was requested.
bool RefineRoot(RootCluster& cluster, RootParts& parts, const Polynomial& polynomial,
                const CoefficientErrors& errors, int64_t digits) {
    RootEnclosure enclosure{};
    const ZeroParts zeros = {parts.isZero[0], parts.isZero[1]};
    if (!RefineCenter(cluster, polynomial, digits) ||
        !EncloseRoot(enclosure, cluster, polynomial, errors, zeros)) {
        return false;
    }
    if (!enclosure.proven && (!TightenDisc(cluster, polynomial) ||
                              !EncloseRoot(enclosure, cluster, polynomial, errors, zeros))) {
        return false;
    }
    parts.radii = enclosure.radii;
    parts.shifts = enclosure.shifts;
    return true;
}

bool AllAreSeparated(const RootClusters& clusters, const Polynomial& polynomial) {
    return std::all_of(clusters.clusters, clusters.clusters + clusters.count,
                       [&](const RootCluster& cluster) {
                           return cluster.isOneRoot && ClusterIsWellFormed(cluster, polynomial);
                       });
}

}  // namespace

RootOutcome RoundRoots(ComplexNumber* const* values, RootClusters& clusters,
                       const Polynomial& polynomial, const CoefficientErrors& errors,
                       int64_t digits) {
    TALLYMERE_REQUIRE(digits >= 1 && digits <= MostRootDigits);
    TALLYMERE_REQUIRE(clusters.count >= 1 && AllAreSeparated(clusters, polynomial));
    RootParts parts[MaxEquationDegree] = {};
    int64_t level = SweepDigits;
    for (int64_t k = 0; k < clusters.count; k++) {
        level = std::max(level, clusters.clusters[k].layout.digits);
    }
    FindZeroParts(clusters, polynomial, parts, level);
    level = std::min(std::max(level, digits + ExtraDigits), MostRootDigits);
    for (;; level = std::min(2 * level, MostRootDigits)) {
        const DigitsScope layout(level);
        for (int64_t k = 0; k < clusters.count; k++) {
            RootCluster& cluster = clusters.clusters[k];
            if (IsFinished(parts[k])) {
                WidenCenter(cluster);
            } else if (!RefineRoot(cluster, parts[k], polynomial, errors, level)) {
                return RootOutcome::Stopped;
            }
        }
        const RootsAtLevel roots{.clusters = clusters,
                                 .polynomial = polynomial,
                                 .parts = parts,
                                 .isLast = level == MostRootDigits};
        bool finished = true;
        for (int64_t k = 0; k < clusters.count; k++) {
            WriteParts(values[k], roots, k, digits);
            finished = finished && IsFinished(parts[k]);
        }
        if (finished) {
            return RootOutcome::Found;
        }
    }
}

}  // namespace tallymere
