#include "algebra/root_clusters.h"

#include <algorithm>

#include "algebra/center_refinement.h"
#include "algebra/newton_polygon.h"
#include "algebra/residue_structure.h"
#include "core/complex_arithmetic.h"
#include "core/contract.h"

namespace tallymere {

namespace {

// With so many digits more than the coefficients are known to, their errors outweigh those of an
// expansion by far, and with so many less it is the other way round.
constexpr int64_t DigitsAroundErrors = 20;

// The expansion of the polynomial around a centre, in the layout of the centre.
struct Expansion {
    Polynomial polynomial;
    Magnitude sizes[MaxEquationDegree + 1];
    Magnitude roundingErrors[MaxEquationDegree + 1];     // of the expansion itself
    Magnitude coefficientErrors[MaxEquationDegree + 1];  // those of the polynomial, expanded
};

// Which errors of an expansion count.
enum class CountedErrors { OfRounding, All };

Magnitude ErrorOf(const Expansion& expansion, int64_t i, CountedErrors counted) {
    const Magnitude rounding = expansion.roundingErrors[i];
    return counted == CountedErrors::All ? rounding + expansion.coefficientErrors[i] : rounding;
}

// Everything but the errors of the coefficients. False when a stop was requested.
bool ExpandAtCenter(ScratchScope& scope, Expansion& expansion, const RootCluster& cluster,
                    const Polynomial& polynomial) {
    const int64_t degree = polynomial.degree;
    expansion.polynomial = CopyPolynomial(scope, polynomial);
    FindSizes(expansion.roundingErrors, expansion.polynomial);
    if (!ExpandAround(expansion.polynomial, cluster.center)) {
        return false;
    }
    FindSizes(expansion.sizes, expansion.polynomial);
    ExpandSizes(expansion.roundingErrors, degree, MagnitudeOf(cluster.center));
    const Magnitude unit = MakeMagnitude(ExpansionError, 1 - numberContext.precisionDigits);
    for (int64_t i = 0; i <= degree; i++) {
        expansion.roundingErrors[i] = expansion.roundingErrors[i] * unit;
    }
    return true;
}

// True when the lower coefficients could all be 0.
bool IsOneRootWithin(const Expansion& expansion, int64_t multiplicity, CountedErrors counted) {
    for (int64_t j = 0; j < multiplicity; j++) {
        if (ErrorOf(expansion, j, counted) < expansion.sizes[j]) {
            return false;
        }
    }
    return true;
}

void TightenBy(RootCluster& cluster, const Expansion& expansion) {
    const int64_t m = cluster.multiplicity;
    Magnitude sizes[MaxEquationDegree + 1];
    for (int64_t i = 0; i <= expansion.polynomial.degree; i++) {
        sizes[i] = expansion.sizes[i] + expansion.roundingErrors[i];
    }
    Magnitude radius;
    const Magnitude outweighing = Excess(expansion.sizes[m], expansion.roundingErrors[m]);
    if (FindPelletRadius(&radius, sizes, outweighing, expansion.polynomial.degree, m) &&
        radius < cluster.radius) {
        cluster.radius = radius;
    }
}

// The search for the smallest roots of a polynomial whose coefficients have these errors, in the
// layout in force.
RootProblem MakeProblem(ScratchScope& scope, const Polynomial& polynomial, const Magnitude* errors,
                        int64_t count) {
    RootProblem problem{CopyPolynomial(scope, polynomial), {}, count};
    FindSizes(problem.errors, problem.polynomial);
    const Magnitude unit = MakeMagnitude(ExpansionError, 1 - numberContext.precisionDigits);
    for (int64_t i = 0; i <= polynomial.degree; i++) {
        problem.errors[i] = problem.errors[i] * unit + errors[i];
    }
    return problem;
}

// Discs of the roots of a problem; the result is that of FindDiscs.
int64_t SolveProblem(RootDisc* discs, const RootProblem& problem) {
    ScratchStackScope scope;
    ComplexNumber* roots[MaxEquationDegree];
    Magnitude sizes[MaxEquationDegree + 1];
    for (int64_t i = 0; i < problem.count; i++) {
        roots[i] = TakeComplex(scope);
    }
    FindSizes(sizes, problem.polynomial);
    for (int64_t i = 0; i <= problem.count; i++) {
        // What could be 0 is as large as it could be.
        sizes[i] = sizes[i] < problem.errors[i] ? problem.errors[i] : sizes[i];
    }
    ChooseStarts(roots, sizes, problem.count);
    return IterateRoots(roots, problem) ? FindDiscs(discs, roots, problem) : -1;
}

void TakeDiscs(ScratchScope& scope, RootDisc* discs, int64_t count) {
    for (int64_t i = 0; i < count; i++) {
        discs[i] = {TakeComplex(scope), {}, 0};
    }
}

// The first clusters, from the polynomial as it is.
RootOutcome FindFirstClusters(RootClusters& clusters, const Polynomial& polynomial,
                              const CoefficientErrors& errors) {
    const DigitsScope digits(SweepDigits);
    ScratchStackScope scope;
    Magnitude sizes[MaxEquationDegree + 1];
    FindErrorSizes(sizes, errors, polynomial.degree);
    const RootProblem problem = MakeProblem(scope, polynomial, sizes, polynomial.degree);
    RootDisc discs[MaxEquationDegree];
    TakeDiscs(scope, discs, polynomial.degree);
    clusters.count = SolveProblem(discs, problem);
    for (int64_t i = 0; i < clusters.count; i++) {
        RootCluster& cluster = clusters.clusters[i];
        ComplexCopy(cluster.center, discs[i].center);
        cluster.layout = CurrentRealLayout();
        cluster.radius = discs[i].radius;
        cluster.multiplicity = discs[i].count;
        cluster.isOneRoot = cluster.multiplicity == 1;
    }
    return clusters.count < 0 ? RootOutcome::Stopped : RootOutcome::Found;
}

// Puts the discs around the centre of cluster k in its place.
void ReplaceByDiscs(RootClusters& clusters, int64_t k, const RootDisc* discs, int64_t count) {
    ScratchStackScope scope;
    ComplexNumber* center = TakeComplex(scope);
    ComplexNumber* offset = TakeComplex(scope);
    ComplexCopy(center, clusters.clusters[k].center);
    const RealLayout sweepLayout = LayoutForDigits(SweepDigits);
    for (int64_t i = 0; i < count; i++) {
        RootCluster& cluster = clusters.clusters[i == 0 ? k : clusters.count++];
        ConvertComplex(offset, discs[i].center, sweepLayout);
        ComplexAdd(cluster.center, center, offset);
        cluster.layout = CurrentRealLayout();
        cluster.radius = discs[i].radius +
                         MagnitudeOf(cluster.center) * MakeMagnitude(1, 1 - cluster.layout.digits);
        cluster.multiplicity = discs[i].count;
        cluster.isOneRoot = cluster.multiplicity == 1;
    }
}

// Parts the roots of cluster k by its expansion, where that is possible.
RootOutcome PartCluster(RootClusters& clusters, int64_t k, const Expansion& expansion,
                        CountedErrors counted) {
    ScratchStackScope scope;
    RootDisc discs[MaxEquationDegree];
    const int64_t multiplicity = clusters.clusters[k].multiplicity;
    int64_t count = 0;
    {
        const DigitsScope digits(SweepDigits);
        TakeDiscs(scope, discs, multiplicity);
        Magnitude errors[MaxEquationDegree + 1];
        for (int64_t i = 0; i <= expansion.polynomial.degree; i++) {
            errors[i] = ErrorOf(expansion, i, counted);
        }
        const RootProblem problem = MakeProblem(scope, expansion.polynomial, errors, multiplicity);
        count = SolveProblem(discs, problem);
    }
    if (count > 1) {
        ReplaceByDiscs(clusters, k, discs, count);
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

// Looks at cluster k with so many digits: it becomes known as one root, or is parted, or neither.
RootOutcome ExamineCluster(RootClusters& clusters, int64_t k, const Polynomial& polynomial,
                           const CoefficientErrors& errors, int64_t digits) {
    RootCluster& cluster = clusters.clusters[k];
    if (!RefineCenter(cluster, polynomial, digits)) {
        return RootOutcome::Stopped;
    }
    const DigitsScope scopeOfDigits(digits);
    ScratchStackScope scope;
    Expansion expansion{};
    if (!ExpandAtCenter(scope, expansion, cluster, polynomial)) {
        return RootOutcome::Stopped;
    }
    TightenBy(cluster, expansion);
    const bool seesErrors = errors.any && digits >= DigitsToSeeErrors(errors);
    if (seesErrors) {
        FindErrorSizes(expansion.coefficientErrors, errors, polynomial.degree);
        ExpandSizes(expansion.coefficientErrors, polynomial.degree, MagnitudeOf(cluster.center));
        if (IsOneRootWithin(expansion, cluster.multiplicity, CountedErrors::All)) {
            cluster.isOneRoot = true;
            return RootOutcome::Found;
        }
    }
    if (cluster.isOneRoot ||
        IsOneRootWithin(expansion, cluster.multiplicity, CountedErrors::OfRounding)) {
        return RootOutcome::Found;
    }
    if (seesErrors) {
        const int64_t count = clusters.count;
        const RootOutcome outcome = PartCluster(clusters, k, expansion, CountedErrors::All);
        if (outcome != RootOutcome::Found || clusters.count != count) {
            return outcome;
        }
    }
    return PartCluster(clusters, k, expansion, CountedErrors::OfRounding);
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

bool ClusterIsWellFormed(const RootCluster& cluster, const Polynomial& polynomial) {
    const DigitsScope digits(cluster.layout.digits);
    return cluster.multiplicity >= 1 && cluster.multiplicity <= polynomial.degree &&
           ComplexIsWellFormed(cluster.center);
}

void TakeClusters(ScratchScope& scope, RootClusters& clusters) {
    clusters.count = 0;
    for (RootCluster& cluster : clusters.clusters) {
        cluster.center = TakeComplex(scope, MostRootDigits);
    }
}

RootOutcome SeparateRoots(RootClusters& clusters, const Polynomial& polynomial,
                          const CoefficientErrors& errors) {
    TALLYMERE_REQUIRE(PolynomialIsWellFormed(polynomial) && polynomial.degree >= 1);
    TALLYMERE_REQUIRE(!ComplexIsZero(polynomial.coefficients[0]));
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
                outcome = ExamineCluster(clusters, k, polynomial, errors, digits);
            }
        }
    }
    for (int64_t k = 0; k < clusters.count; k++) {
        clusters.clusters[k].isOneRoot = true;
    }
    return outcome;
}

bool TightenDisc(RootCluster& cluster, const Polynomial& polynomial) {
    TALLYMERE_REQUIRE(ClusterIsWellFormed(cluster, polynomial));
    const DigitsScope digits(cluster.layout.digits);
    ScratchStackScope scope;
    Expansion expansion{};
    if (!ExpandAtCenter(scope, expansion, cluster, polynomial)) {
        return false;
    }
    TightenBy(cluster, expansion);
    return true;
}

}  // namespace tallymere
