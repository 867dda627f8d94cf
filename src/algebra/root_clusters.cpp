#include "algebra/root_clusters.h"

#include <algorithm>

#include "algebra/newton_polygon.h"
#include "algebra/residue_structure.h"
#include "core/complex_arithmetic.h"

namespace tallymere {

namespace {

// With so many digits more than the coefficients are known to, their errors outweigh those of an
// expansion by far, and with so many less it is the other way round.
constexpr int64_t DigitsAroundErrors = 20;

// The expansion of the polynomial around a centre, in the layout of the centre.
struct Expansion {
    Polynomial polynomial;
    Magnitude sizes[MaxEquationDegree + 1];
    Magnitude errors[MaxEquationDegree + 1];   // of the expansion itself
    Magnitude rounded[MaxEquationDegree + 1];  // what the coefficients' errors make
};

bool TakeExpansion(ScratchScope& scope, Expansion& expansion, const RootCluster& cluster,
                   const Polynomial& polynomial) {
    const int64_t degree = polynomial.degree;
    expansion.polynomial = CopyPolynomial(scope, polynomial);
    TakeSizes(expansion.errors, expansion.polynomial);
    if (!ExpandAround(expansion.polynomial, cluster.center)) {
        return false;
    }
    TakeSizes(expansion.sizes, expansion.polynomial);
    ExpandSizes(expansion.errors, degree, MagnitudeOf(cluster.center));
    const Magnitude unit = MakeMagnitude(ExpansionError, 1 - numberContext.precisionDigits);
    for (int64_t i = 0; i <= degree; i++) {
        expansion.errors[i] = expansion.errors[i] * unit;
    }
    return true;
}

// True when the lower coefficients could all be 0.
bool IsOneRootWithin(const Expansion& expansion, int64_t multiplicity, bool withRounded) {
    for (int64_t j = 0; j < multiplicity; j++) {
        Magnitude error = expansion.errors[j];
        if (withRounded) {
            error = error + expansion.rounded[j];
        }
        if (error < expansion.sizes[j]) {
            return false;
        }
    }
    return true;
}

void TightenBy(RootCluster& cluster, const Expansion& expansion) {
    const int64_t m = cluster.multiplicity;
    Magnitude sizes[MaxEquationDegree + 1];
    for (int64_t i = 0; i <= expansion.polynomial.degree; i++) {
        sizes[i] = expansion.sizes[i] + expansion.errors[i];
    }
    Magnitude radius;
    const Magnitude outweighing = Excess(expansion.sizes[m], expansion.errors[m]);
    if (FindPelletRadius(&radius, sizes, outweighing, expansion.polynomial.degree, m) &&
        radius < cluster.radius) {
        cluster.radius = radius;
    }
}

// A frame for the smallest roots of a polynomial whose coefficients have these errors, in the
// layout in force.
RootFrame TakeFrame(ScratchScope& scope, const Polynomial& polynomial, const Magnitude* errors,
                    int64_t count) {
    RootFrame frame{CopyPolynomial(scope, polynomial), {}, count};
    TakeSizes(frame.errors, frame.polynomial);
    const Magnitude unit = MakeMagnitude(ExpansionError, 1 - numberContext.precisionDigits);
    for (int64_t i = 0; i <= polynomial.degree; i++) {
        frame.errors[i] = frame.errors[i] * unit + errors[i];
    }
    return frame;
}

// Groups of the roots of a frame; the result is that of GroupRoots.
int64_t SolveFrame(RootGroup* groups, const RootFrame& frame) {
    ScratchStackScope scope;
    ComplexNumber* roots[MaxEquationDegree];
    Magnitude sizes[MaxEquationDegree + 1];
    for (int64_t i = 0; i < frame.count; i++) {
        roots[i] = TakeComplex(scope);
    }
    TakeSizes(sizes, frame.polynomial);
    for (int64_t i = 0; i <= frame.count; i++) {
        // What could be 0 is as large as it could be.
        sizes[i] = sizes[i] < frame.errors[i] ? frame.errors[i] : sizes[i];
    }
    ChooseStarts(roots, sizes, frame.count);
    return IterateRoots(roots, frame) ? GroupRoots(groups, roots, frame) : -1;
}

void TakeGroups(ScratchScope& scope, RootGroup* groups, int64_t count) {
    for (int64_t i = 0; i < count; i++) {
        groups[i] = {TakeComplex(scope), {}, 0};
    }
}

// The first groups, from all coefficients.
RootOutcome FindFirstClusters(RootClusters& clusters, const Polynomial& polynomial,
                              const CoefficientErrors& errors) {
    const DigitsScope digits(SweepDigits);
    ScratchStackScope scope;
    Magnitude sizes[MaxEquationDegree + 1];
    TakeErrorSizes(sizes, errors, polynomial.degree);
    const RootFrame frame = TakeFrame(scope, polynomial, sizes, polynomial.degree);
    RootGroup groups[MaxEquationDegree];
    TakeGroups(scope, groups, polynomial.degree);
    clusters.count = SolveFrame(groups, frame);
    for (int64_t i = 0; i < clusters.count; i++) {
        RootCluster& cluster = clusters.clusters[i];
        ComplexCopy(cluster.center, groups[i].center);
        cluster.layout = CurrentRealLayout();
        cluster.radius = groups[i].radius;
        cluster.multiplicity = groups[i].count;
        cluster.isOneRoot = cluster.multiplicity == 1;
    }
    return clusters.count < 0 ? RootOutcome::Stopped : RootOutcome::Found;
}

// Puts the groups around the centre of cluster k in its place.
void ReplaceByGroups(RootClusters& clusters, int64_t k, const RootGroup* groups, int64_t count) {
    ScratchStackScope scope;
    ComplexNumber* center = TakeComplex(scope);
    ComplexNumber* offset = TakeComplex(scope);
    ComplexCopy(center, clusters.clusters[k].center);
    const RealLayout groupLayout = LayoutForDigits(SweepDigits);
    for (int64_t i = 0; i < count; i++) {
        RootCluster& cluster = clusters.clusters[i == 0 ? k : clusters.count++];
        ConvertComplex(offset, groups[i].center, groupLayout);
        ComplexAdd(cluster.center, center, offset);
        cluster.layout = CurrentRealLayout();
        cluster.radius = groups[i].radius +
                         MagnitudeOf(cluster.center) * MakeMagnitude(1, 1 - cluster.layout.digits);
        cluster.multiplicity = groups[i].count;
        cluster.isOneRoot = cluster.multiplicity == 1;
    }
}

// Parts the roots of cluster k by its expansion, where that is possible.
RootOutcome PartCluster(RootClusters& clusters, int64_t k, const Expansion& expansion,
                        bool withRounded) {
    ScratchStackScope scope;
    RootGroup groups[MaxEquationDegree];
    const int64_t multiplicity = clusters.clusters[k].multiplicity;
    int64_t count = 0;
    {
        const DigitsScope digits(SweepDigits);
        TakeGroups(scope, groups, multiplicity);
        Magnitude errors[MaxEquationDegree + 1];
        for (int64_t i = 0; i <= expansion.polynomial.degree; i++) {
            errors[i] = expansion.errors[i];
            if (withRounded) {
                errors[i] = errors[i] + expansion.rounded[i];
            }
        }
        const RootFrame frame = TakeFrame(scope, expansion.polynomial, errors, multiplicity);
        count = SolveFrame(groups, frame);
    }
    if (count > 1) {
        ReplaceByGroups(clusters, k, groups, count);
    }
    return count < 0 ? RootOutcome::Stopped : RootOutcome::Found;
}

int64_t DigitsToSeeErrors(const CoefficientErrors& errors) {
    return std::min(errors.knownDigits + DigitsAroundErrors, MostRootDigits);
}

// The digits of the next look after one with so many. In between, errors of coefficients would be
// taken for distances of roots.
int64_t NextDigits(int64_t digits, const CoefficientErrors& errors) {
    const int64_t next = std::min(2 * digits, MostRootDigits);
    const int64_t enough = DigitsToSeeErrors(errors);
    const bool isBetween = next < enough && next > errors.knownDigits - DigitsAroundErrors;
    return errors.any && isBetween ? enough : next;
}

// Looks at cluster k with so many digits.
RootOutcome LookCloser(RootClusters& clusters, int64_t k, const Polynomial& polynomial,
                       const CoefficientErrors& errors, int64_t digits) {
    RootCluster& cluster = clusters.clusters[k];
    if (!RefineCenter(cluster, polynomial, digits)) {
        return RootOutcome::Stopped;
    }
    const DigitsScope scopeOfDigits(digits);
    ScratchStackScope scope;
    Expansion expansion{};
    if (!TakeExpansion(scope, expansion, cluster, polynomial)) {
        return RootOutcome::Stopped;
    }
    TightenBy(cluster, expansion);
    const bool seesRounded = errors.any && digits >= DigitsToSeeErrors(errors);
    if (seesRounded) {
        TakeErrorSizes(expansion.rounded, errors, polynomial.degree);
        ExpandSizes(expansion.rounded, polynomial.degree, MagnitudeOf(cluster.center));
        if (IsOneRootWithin(expansion, cluster.multiplicity, true)) {
            cluster.isOneRoot = true;
            return RootOutcome::Found;
        }
    }
    if (cluster.isOneRoot || IsOneRootWithin(expansion, cluster.multiplicity, false)) {
        return RootOutcome::Found;
    }
    const int64_t count = clusters.count;
    RootOutcome outcome = PartCluster(clusters, k, expansion, seesRounded);
    if (outcome == RootOutcome::Found && seesRounded && clusters.count == count) {
        outcome = PartCluster(clusters, k, expansion, false);
    }
    return outcome;
}

bool MeetsAnother(const RootClusters& clusters, int64_t k) {
    const RootCluster& cluster = clusters.clusters[k];
    for (int64_t i = 0; i < clusters.count; i++) {
        const RootCluster& other = clusters.clusters[i];
        const DigitsScope digits(std::max(cluster.layout.digits, other.layout.digits));
        ScratchStackScope scope;
        ComplexNumber* a = TakeComplex(scope);
        ComplexNumber* b = TakeComplex(scope);
        ConvertComplex(a, cluster.center, cluster.layout);
        ConvertComplex(b, other.center, other.layout);
        ComplexSub(a, a, b);
        if (i != k && !IsSurelyBelow(cluster.radius + other.radius, MagnitudeOf(a))) {
            return true;
        }
    }
    return false;
}

bool IsSettled(const RootClusters& clusters, int64_t k, int64_t distinctRoots) {
    return (clusters.clusters[k].isOneRoot || clusters.count == distinctRoots) &&
           !MeetsAnother(clusters, k);
}

}  // namespace

void TakeClusters(ScratchScope& scope, RootClusters& clusters) {
    clusters.count = 0;
    for (RootCluster& cluster : clusters.clusters) {
        cluster.center = TakeComplex(scope, MostRootDigits);
    }
}

RootOutcome SeparateRoots(RootClusters& clusters, const Polynomial& polynomial,
                          const CoefficientErrors& errors) {
    const int64_t distinctRoots = CountDistinctRoots(polynomial);
    RootOutcome outcome = FindFirstClusters(clusters, polynomial, errors);
    for (int64_t digits = SweepDigits; outcome == RootOutcome::Found;) {
        bool settled[MaxEquationDegree];
        bool all = true;
        const int64_t count = clusters.count;
        for (int64_t k = 0; k < count; k++) {
            settled[k] = IsSettled(clusters, k, distinctRoots);
            all = all && settled[k];
        }
        if (all || digits == MostRootDigits) {
            break;
        }
        digits = NextDigits(digits, errors);
        for (int64_t k = 0; k < count && outcome == RootOutcome::Found; k++) {
            if (!settled[k]) {
                outcome = LookCloser(clusters, k, polynomial, errors, digits);
            }
        }
    }
    for (int64_t k = 0; k < clusters.count; k++) {
        clusters.clusters[k].isOneRoot = true;
    }
    return outcome;
}

bool TightenDisc(RootCluster& cluster, const Polynomial& polynomial) {
    const DigitsScope digits(cluster.layout.digits);
    ScratchStackScope scope;
    Expansion expansion{};
    if (!TakeExpansion(scope, expansion, cluster, polynomial)) {
        return false;
    }
    TightenBy(cluster, expansion);
    return true;
}

}  // namespace tallymere
