#include "algebra/root_digits.h"

#include <algorithm>

#include "algebra/residue_structure.h"
#include "algebra/root_enclosure.h"
#include "core/complex_arithmetic.h"
#include "core/real_add.h"
#include "core/real_compare.h"
#include "core/real_divide.h"
#include "core/real_layout.h"
#include "core/real_rounding.h"

namespace tallymere {

namespace {

// Digits beyond those that are asked for, so that one round nearly always suffices.
constexpr int64_t ExtraDigits = 40;

// The largest shift by errors of coefficients that counts for the middle between two results, in
// tenths of the unit of the last digit.
constexpr double LargestShift = 1e-2;

constexpr NumberPart BothParts[] = {NumberPart::Real, NumberPart::Imaginary};

// What is known of the parts of a root.
struct RootParts {
    PartRadii radii;
    PartRadii shifts;
    bool isZero[2];
    bool isWritten[2];
};

// All roots, whose centres are in the layout in force.
struct RootRound {
    const RootClusters& clusters;
    const Polynomial& polynomial;
    RootParts* parts;
    bool isLast;
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
Magnitude RadiusOf(const PartRadii& radii, NumberPart part) {
    return part == NumberPart::Real ? radii.real : radii.imaginary;
}

// True when a - b could be 0: it is not surely more than `reach`.
bool CouldBeEqual(const RealNumber* a, const RealNumber* b, Magnitude reach) {
    ScratchStackScope scope;
    RealNumber* difference = RealAt(scope.Take(RealWords()));
    RealSub(difference, a, b);
    return !IsSurelyBelow(reach, MagnitudeOf(difference));
}

// True when the mirror image of root i at the line could be root j.
bool CouldBeMirrored(const RootRound& round, int64_t i, int64_t j, NumberPart part,
                     const RealNumber* position) {
    ScratchStackScope scope;
    RealNumber* image = RealAt(scope.Take(RealWords()));
    ComplexNumber* a = round.clusters.clusters[i].center;
    ComplexNumber* b = round.clusters.clusters[j].center;
    const PartRadii& ofA = round.parts[i].radii;
    const PartRadii& ofB = round.parts[j].radii;
    const NumberPart other = OtherPart(part);
    if (!CouldBeEqual(PartOf(a, other), PartOf(b, other),
                      RadiusOf(ofA, other) + RadiusOf(ofB, other))) {
        return false;
    }
    // The image of part a is twice the position, less a.
    const Magnitude rounding = (MagnitudeOf(position) + MagnitudeOf(PartOf(a, part))) *
                               MakeMagnitude(4, 1 - numberContext.precisionDigits);
    RealAdd(image, position, position);
    RealSub(image, image, PartOf(a, part));
    return CouldBeEqual(image, PartOf(b, part),
                        RadiusOf(ofA, part) + RadiusOf(ofB, part) + rounding);
}

// True when the parts of all roots that could be `position` surely are.
bool IsExactly(const RootRound& round, NumberPart part, const RealNumber* position) {
    const RootClusters& clusters = round.clusters;
    int64_t candidates = 0;
    for (int64_t i = 0; i < clusters.count; i++) {
        const RootCluster& cluster = clusters.clusters[i];
        if (CouldBeEqual(PartOf(cluster.center, part), position,
                         RadiusOf(round.parts[i].radii, part))) {
            candidates += cluster.multiplicity;
        }
        for (int64_t j = 0; j < i; j++) {
            if (CouldBeMirrored(round, i, j, part, position)) {
                candidates += 2 * std::min(cluster.multiplicity, clusters.clusters[j].multiplicity);
            }
        }
    }
    return candidates <= CountMirroredRoots(round.polynomial, part, position);
}

// True when the part of root k is 0, or would be for coefficients within their errors.
bool IsZeroPart(const RootRound& round, int64_t k, NumberPart part) {
    ScratchStackScope scope;
    RealNumber* zero = RealAt(scope.Take(RealWords()));
    RealSetZero(zero, 0);
    const RealNumber* center = PartOf(round.clusters.clusters[k].center, part);
    const RootParts& parts = round.parts[k];
    const Magnitude shift = RadiusOf(parts.shifts, part);
    if (!IsZero(shift) && !(shift + RadiusOf(parts.radii, part) < MagnitudeOf(center))) {
        return true;
    }
    return CouldBeEqual(center, zero, RadiusOf(parts.radii, part)) &&
           (round.isLast || IsExactly(round, part, zero));
}

// The middle between two neighbouring results of rounding, as far as the layout has digits.
void SetMiddle(RealNumber* middle, const RealNumber* a, const RealNumber* b) {
    RealAdd(middle, a, b);
    RealRound(middle, RealDivUint(middle, middle, 2));
}

// Rounds the part of root k, which is not 0, to so many digits. False when that is not decided yet.
bool RoundPart(RealNumber* rounded, const RootRound& round, int64_t k, NumberPart part,
               int64_t digits) {
    const RealNumber* center = PartOf(round.clusters.clusters[k].center, part);
    if (round.isLast) {
        RealRoundDigitsAny(rounded, center, digits);
        return true;
    }
    const Magnitude radius = RadiusOf(round.parts[k].radii, part);
    const Magnitude tenthOfUnit = MakeMagnitude(1, RealExponent(center) - digits);
    if (RealIsZero(center) || !(radius < tenthOfUnit)) {
        return false;
    }
    // What could be the middle between two results for coefficients within their errors, is.
    Magnitude shift = RadiusOf(round.parts[k].shifts, part);
    if (!(shift < tenthOfUnit * MakeMagnitude(LargestShift))) {
        shift = {};
    }
    ScratchStackScope scope;
    RealNumber* reach = RealAt(scope.Take(RealWords()));
    RealNumber* low = RealAt(scope.Take(RealWords()));
    RealNumber* high = RealAt(scope.Take(RealWords()));
    // The operations here are rounded, by less than the margins.
    const Magnitude unit =
        MakeMagnitude(2, RealExponent(center) + 2 - numberContext.precisionDigits);
    RealFromMagnitude(reach, (radius + shift) * MakeMagnitude(1.1) + unit);
    RealSetSign(reach, RealSign(center));
    RealSub(low, center, reach);
    RealAdd(high, center, reach);
    RealRoundDigits(low, low, digits);
    RealRoundDigits(rounded, high, digits);
    if (RealCompare(low, rounded) == 0) {
        return true;
    }
    RealNumber* middle = reach;
    SetMiddle(middle, low, rounded);
    return CouldBeEqual(center, middle, radius + shift) &&
           (!IsZero(shift) || IsExactly(round, part, middle));
}

bool IsFinished(const RootParts& parts) {
    return parts.isWritten[0] && parts.isWritten[1];
}

// Decides what can be decided of root k, and writes it.
void WriteParts(ComplexNumber* value, const RootRound& round, int64_t k, int64_t digits) {
    RootParts& parts = round.parts[k];
    const RealLayout layout = CurrentRealLayout();
    const RealLayout resultLayout = LayoutForDigits(digits);
    ScratchStackScope scope;
    RealNumber* rounded = RealAt(scope.Take(RealWords()));
    for (const NumberPart part : BothParts) {
        const int64_t index = IndexOf(part);
        if (parts.isWritten[index]) {
            continue;
        }
        parts.isZero[index] = parts.isZero[index] || IsZeroPart(round, k, part);
        if (parts.isZero[index]) {
            RealSetZero(rounded, 0);
        } else if (!RoundPart(rounded, round, k, part, digits)) {
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
    const RootRound round{clusters, polynomial, parts, false};
    for (int64_t k = 0; k < clusters.count; k++) {
        for (const NumberPart part : BothParts) {
            parts[k].isZero[IndexOf(part)] = IsZeroPart(round, k, part);
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

// Brings root k nearer. False when a stop was requested.
bool Approach(RootCluster& cluster, RootParts& parts, const Polynomial& polynomial,
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

}  // namespace

RootOutcome RoundRoots(ComplexNumber* const* values, RootClusters& clusters,
                       const Polynomial& polynomial, const CoefficientErrors& errors,
                       int64_t digits) {
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
            } else if (!Approach(cluster, parts[k], polynomial, errors, level)) {
                return RootOutcome::Stopped;
            }
        }
        const RootRound round{clusters, polynomial, parts, level == MostRootDigits};
        bool finished = true;
        for (int64_t k = 0; k < clusters.count; k++) {
            WriteParts(values[k], round, k, digits);
            finished = finished && IsFinished(parts[k]);
        }
        if (finished) {
            return RootOutcome::Found;
        }
    }
}

}  // namespace tallymere
