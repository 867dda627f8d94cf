#include "numtheory/elliptic_curves.h"

#include <bit>

#include "core/contract.h"
#include "numtheory/montgomery.h"
#include "numtheory/residue_inverse.h"
#include "numtheory/wide_integers.h"

namespace tallymere {

namespace {

// A point of a curve without its y: x = X / Z. The neutral element has Z = 0.
template <typename Residue>
struct Point {
    Residue x;
    Residue z;
};

// A curve, and the arithmetic of its points.
template <typename Modulus>
struct Curve {
    using Residue = typename Modulus::Residue;
    Modulus modulus;
    Residue quarter;  // (a + 2) / 4

    Residue Add(Residue a, Residue b) const { return ResidueAdd(modulus, a, b); }
    Residue Subtract(Residue a, Residue b) const { return ResidueSubtract(modulus, a, b); }
    Residue Multiply(Residue a, Residue b) const { return ResidueMultiply(modulus, a, b); }
    Residue Square(Residue a) const { return ResidueSquare(modulus, a); }

    // k a, for a small k above 0.
    Residue Times(Residue a, uint64_t k) const {
        Residue product = a;
        for (int i = HighestBit(k) - 1; i >= 0; i--) {
            product = Add(product, product);
            if (BitOf(k, i)) {
                product = Add(product, a);
            }
        }
        return product;
    }

    // 2 p.
    Point<Residue> Double(Point<Residue> p) const {
        const Residue sum = Square(Add(p.x, p.z));
        const Residue difference = Square(Subtract(p.x, p.z));
        const Residue product = Subtract(sum, difference);
        return {Multiply(sum, difference),
                Multiply(product, Add(difference, Multiply(quarter, product)))};
    }

    // p + q, as X / Z. X is still to be multiplied by Z of p - q, and Z by its X.
    Point<Residue> CrossSum(Point<Residue> p, Point<Residue> q) const {
        const Residue u = Multiply(Subtract(p.x, p.z), Add(q.x, q.z));
        const Residue v = Multiply(Add(p.x, p.z), Subtract(q.x, q.z));
        return {Square(Add(u, v)), Square(Subtract(u, v))};
    }

    // p + q, where `difference` is p - q.
    Point<Residue> Sum(Point<Residue> p, Point<Residue> q, Point<Residue> difference) const {
        const Point<Residue> sum = CrossSum(p, q);
        return {Multiply(sum.x, difference.z), Multiply(sum.z, difference.x)};
    }

    // k p, where p has this x and Z = 1. k has so many bits, 2 or more, lowest word first.
    // Method: Montgomery's ladder, with lower = j p and upper = (j + 1) p for the upper bits j of
    // k.
    Point<Residue> MultiplyPlain(Residue x, const uint64_t* k, int64_t bits) const {
        Point<Residue> lower = {x, modulus.one};
        Point<Residue> upper = Double(lower);
        for (int64_t i = bits - 2; i >= 0; i--) {
            Point<Residue> sum = CrossSum(upper, lower);
            sum.z = Multiply(sum.z, x);
            if (BitOf(k[i / 64], static_cast<int>(i % 64))) {
                upper = Double(upper);
                lower = sum;
            } else {
                lower = Double(lower);
                upper = sum;
            }
        }
        return lower;
    }

    // k p for k of at least 2. Method: the same.
    Point<Residue> MultiplySmall(Point<Residue> p, uint64_t k) const {
        Point<Residue> lower = p;
        Point<Residue> upper = Double(p);
        for (int i = HighestBit(k) - 1; i >= 0; i--) {
            const Point<Residue> sum = Sum(upper, lower, p);
            if (BitOf(k, i)) {
                upper = Double(upper);
                lower = sum;
            } else {
                lower = Double(lower);
                upper = sum;
            }
        }
        return lower;
    }
};

// The points of a second stage: the small multiples first, then the large ones.
template <typename Residue>
struct StageTwoPoints {
    static constexpr int64_t Capacity = MaxSmallMultiples + MaxLargeMultiples;
    Point<Residue> points[Capacity];
    Residue products[Capacity];
};

// Fills `points` with the small multiples of q that the plan asks for. All are 1 or 5 modulo 6: two
// rows of them, each with a distance of 6.
template <typename Modulus>
void MakeSmallMultiples(Point<typename Modulus::Residue>* points, const Curve<Modulus>& curve,
                        Point<typename Modulus::Residue> q, const CurvePlan& plan) {
    using P = Point<typename Modulus::Residue>;
    const P two = curve.Double(q);
    const P three = curve.Sum(two, q, q);
    const P five = curve.Sum(three, two, q);
    const P six = curve.Double(three);
    P ones[2] = {five, q};   // -5 and 1; the sign does not matter
    P fives[2] = {q, five};  // -1 and 5
    int64_t k = 0;
    for (uint64_t s = 1; k < plan.smallCount; s += 6) {
        if (plan.smallMultiples[k] == s) {
            points[k++] = ones[1];
        }
        if (k < plan.smallCount && plan.smallMultiples[k] == s + 4) {
            points[k++] = fives[1];
        }
        const P nextOne = curve.Sum(ones[1], six, ones[0]);
        const P nextFive = curve.Sum(fives[1], six, fives[0]);
        ones[0] = ones[1];
        ones[1] = nextOne;
        fives[0] = fives[1];
        fives[1] = nextFive;
    }
}

// Fills `points` with the large multiples: c step q, for each c of the plan.
template <typename Modulus>
void MakeLargeMultiples(Point<typename Modulus::Residue>* points, const Curve<Modulus>& curve,
                        Point<typename Modulus::Residue> q, const CurvePlan& plan) {
    using P = Point<typename Modulus::Residue>;
    const P step = curve.MultiplySmall(q, plan.step);
    P large = step;
    P next = curve.Double(step);
    int64_t k = 0;
    for (uint64_t c = 1; k < plan.largeCount; c++) {
        if (c >= plan.firstLarge) {
            points[k++] = large;
        }
        const P sum = curve.Sum(next, step, large);
        large = next;
        next = sum;
    }
}

// The product of the differences of x of a large and a small multiple, for all pairs that the plan
// asks for. The points have Z = 1.
template <typename Modulus>
typename Modulus::Residue MultiplyDifferences(const Curve<Modulus>& curve,
                                              const Point<typename Modulus::Residue>* points,
                                              const CurvePlan& plan) {
    using Residue = typename Modulus::Residue;
    // Two products that do not wait for each other.
    Residue first = curve.modulus.one;
    Residue second = curve.modulus.one;
    for (int64_t i = 0; i < plan.largeCount; i++) {
        const Residue x = points[plan.smallCount + i].x;
        for (int64_t word = 0; word < plan.coveredWords; word++) {
            const Point<Residue>* small = points + 64 * word;
            uint64_t bits = plan.covered[i * plan.coveredWords + word];
            while (bits != 0) {
                first = curve.Multiply(first, curve.Subtract(x, small[std::countr_zero(bits)].x));
                bits &= bits - 1;
                if (bits != 0) {
                    second =
                        curve.Multiply(second, curve.Subtract(x, small[std::countr_zero(bits)].x));
                    bits &= bits - 1;
                }
            }
        }
    }
    return curve.Multiply(first, second);
}

// The divisor, or 0 where it is 1 or n.
template <typename Number>
Number ProperDivisor(Number divisor, Number n) {
    return divisor == NumberOf<Number>(1) || divisor == n ? Number{} : divisor;
}

// Makes Z = 1 for `count` points, 1 or more: x becomes X / Z, and z has no meaning any more.
// Returns the common divisor of n and all Z; where that is not 1, the points have no meaning.
//
// One inverse does for all: products[i] is the product of the first i + 1 Z.
// Source: Montgomery, "Speeding the Pollard and elliptic curve methods of factorization", 10.3.1.
template <typename Modulus>
typename Modulus::Residue DivideByZ(const Curve<Modulus>& curve,
                                    StageTwoPoints<typename Modulus::Residue>& room,
                                    int64_t count) {
    using Residue = typename Modulus::Residue;
    room.products[0] = room.points[0].z;
    for (int64_t i = 1; i < count; i++) {
        room.products[i] = curve.Multiply(room.products[i - 1], room.points[i].z);
    }
    Residue inverse = room.products[count - 1];
    const Residue common = InvertResidue(curve.modulus, inverse);
    if (common != NumberOf<Residue>(1)) {
        return common;
    }
    // `inverse` is that of products[i].
    for (int64_t i = count - 1; i > 0; i--) {
        Point<Residue>& point = room.points[i];
        point.x = curve.Multiply(point.x, curve.Multiply(inverse, room.products[i - 1]));
        inverse = curve.Multiply(inverse, point.z);
    }
    room.points[0].x = curve.Multiply(room.points[0].x, inverse);
    return common;
}

// The second stage from q, the point that the first stage has come to: a divisor, or 0.
template <typename Modulus>
typename Modulus::Residue StageTwo(const Curve<Modulus>& curve, Point<typename Modulus::Residue> q,
                                   const CurvePlan& plan) {
    using Residue = typename Modulus::Residue;
    const Residue n = curve.modulus.n;
    StageTwoPoints<Residue> room;
    MakeSmallMultiples(room.points, curve, q, plan);
    MakeLargeMultiples(room.points + plan.smallCount, curve, q, plan);
    const Residue common = DivideByZ(curve, room, plan.smallCount + plan.largeCount);
    if (common != NumberOf<Residue>(1)) {
        // The first stage has found it, unless it has found all factors at once.
        return ProperDivisor(common == n ? CommonDivisor(q.z, n) : common, n);
    }
    return ProperDivisor(CommonDivisor(MultiplyDifferences(curve, room.points, plan), n), n);
}

// Makes the curve that belongs to the parameter, which is a residue, and the x of a point on it.
// Returns the common divisor of n and what that divides by; where it is not 1, there is no curve.
//
// u = s^2 - 5, v = 4 s, x = u^3 / v^3, a + 2 = (v - u)^3 (3 u + v) / (4 u^3 v) for the parameter s.
// Source: Zimmermann and Dodson, "20 years of ECM" (2006), on Suyama's parameter.
template <typename Modulus>
typename Modulus::Residue MakeSuyamaCurve(Curve<Modulus>& curve, typename Modulus::Residue& x,
                                          typename Modulus::Residue s) {
    using Residue = typename Modulus::Residue;
    const Residue u = curve.Subtract(curve.Square(s), curve.Times(curve.modulus.one, 5));
    const Residue v = curve.Times(s, 4);
    const Residue uCubed = curve.Multiply(curve.Square(u), u);
    const Residue vSquared = curve.Square(v);
    const Residue uCubed16 = curve.Times(uCubed, 16);
    // 1 / (16 u^3 v^3) serves both divisions.
    Residue inverse = curve.Multiply(uCubed16, curve.Multiply(vSquared, v));
    const Residue common = InvertResidue(curve.modulus, inverse);
    if (common != NumberOf<Residue>(1)) {
        return common;
    }
    const Residue difference = curve.Subtract(v, u);
    const Residue top = curve.Multiply(curve.Multiply(curve.Square(difference), difference),
                                       curve.Add(curve.Times(u, 3), v));
    curve.quarter = curve.Multiply(top, curve.Multiply(inverse, vSquared));
    x = curve.Multiply(curve.Multiply(uCubed, uCubed16), inverse);
    return common;
}

template <typename Modulus>
typename Modulus::Residue RunCurve(const Modulus& modulus, typename Modulus::Residue parameter,
                                   const CurvePlan& plan) {
    using Residue = typename Modulus::Residue;
    Curve<Modulus> curve = {modulus, {}};
    Residue x;
    const Residue common = MakeSuyamaCurve(curve, x, ToResidue(modulus, parameter));
    if (common != NumberOf<Residue>(1)) {
        return ProperDivisor(common, modulus.n);
    }
    return StageTwo(curve, curve.MultiplyPlain(x, plan.multiplier, plan.multiplierBits), plan);
}

}  // namespace

uint64_t FindDivisorByCurve(uint64_t n, uint64_t parameter, const CurvePlan& plan) {
    TALLYMERE_REQUIRE(n >= 3 && IsOdd(n) && parameter >= 6 && parameter >> 32 == 0);
    TALLYMERE_REQUIRE(CurvePlanIsWellFormed(plan));
    return RunCurve(PrepareModulus(n), parameter, plan);
}

Wide FindDivisorByCurve(Wide n, uint64_t parameter, const CurvePlan& plan) {
    TALLYMERE_REQUIRE(AtLeast(n, {0, 3}) && IsOdd(n));
    TALLYMERE_REQUIRE(parameter >= 6 && parameter >> 32 == 0 && CurvePlanIsWellFormed(plan));
    return RunCurve(PrepareModulus(n), {0, parameter}, plan);
}

}  // namespace tallymere
