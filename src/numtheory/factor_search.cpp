#include "numtheory/factor_search.h"

#include "core/contract.h"
#include "core/stop_request.h"
#include "numtheory/elliptic_curves.h"
#include "numtheory/pollard_rho.h"
#include "numtheory/residue_inverse.h"
#include "numtheory/small_primes.h"
#include "numtheory/wide_integers.h"

namespace tallymere {

namespace {

// Numbers of at most so many bits are left to the walk and to Pollard's rho.
constexpr int WalkBits = 20;
constexpr int RhoBits = 36;

// Steps of one sequence of Pollard's rho: far more than a factor of 18 bits should need.
constexpr uint64_t RhoSteps = 10'000;
constexpr uint64_t RhoSequences = 4;

// So many curves of plan number `plan`, one after the other.
struct CurveStage {
    int64_t plan;
    uint64_t curves;
};

// No composite number is known that comes to the end of these.
constexpr uint64_t ManyCurves = 5'000;
constexpr CurveStage StagesTo44Bits[] = {{0, 100}, {2, ManyCurves}};
constexpr CurveStage StagesTo54Bits[] = {{1, 100}, {3, ManyCurves}};
constexpr CurveStage StagesTo64Bits[] = {{2, 100}, {4, ManyCurves}};
constexpr CurveStage StagesTo128Bits[] = {{2, 5}, {3, 10}, {4, 15}, {5, ManyCurves}};

constexpr uint64_t FirstParameter = 6;

// The candidates of the walk between two polls of the stop request.
constexpr uint64_t CandidatesPerPoll = 1 << 16;

int BitLength(Wide n) {
    return n.high != 0 ? 65 + HighestBit(n.high) : 1 + HighestBit(n.low);
}

Wide Widen(uint64_t a) {
    return {0, a};
}
Wide Widen(Wide a) {
    return a;
}

// The least prime below 1000 that divides n; 0 if there is none.
uint64_t SmallDivisor(Wide n) {
    for (const uint16_t prime : SmallPrimeTable) {
        if (RemainderByWord(n, prime) == 0) {
            return prime;
        }
    }
    return 0;
}

// A divisor by elliptic curves, or by the walk; {0, 0} after a stop.
template <typename Number, int64_t Count>
Wide FindDivisorByCurves(Number n, const CurveStage (&stages)[Count]) {
    uint64_t parameter = FirstParameter;
    for (const CurveStage& stage : stages) {
        for (uint64_t i = 0; i < stage.curves; i++) {
            if (StopRequested()) {
                return {0, 0};
            }
            const Number divisor = FindDivisorByCurve(n, parameter++, CurvePlans()[stage.plan]);
            if (!IsZero(divisor)) {
                return Widen(divisor);
            }
        }
        // Curves may always find all factors at once where there are nothing but very small ones.
        const uint64_t divisor =
            parameter - FirstParameter == stages[0].curves ? SmallDivisor(Widen(n)) : 0;
        if (divisor != 0) {
            return {0, divisor};
        }
    }
    return FindDivisorByWalk(Widen(n));
}

}  // namespace

Wide FindDivisorByWalk(Wide n) {
    TALLYMERE_REQUIRE(AtLeast(n, {0, 3}) && (n.low & 1) != 0);
    const uint64_t root = SquareRootOf(n);
    WheelWalk walk = WheelStartForOddNumbers;
    for (uint64_t candidates = 1; AdvanceWheel(walk) && walk.divisor <= root; candidates++) {
        if (RemainderByWord(n, walk.divisor) == 0) {
            return {0, walk.divisor};
        }
        if (candidates % CandidatesPerPoll == 0 && StopRequested()) {
            return {0, 0};
        }
    }
    return n;
}

Wide FindDivisor(Wide composite) {
    TALLYMERE_REQUIRE(AtLeast(composite, {0, 9}) && (composite.low & 1) != 0);
    const uint64_t root = SquareRootOf(composite);
    if (wide::Multiply(root, root) == composite) {
        return {0, root};
    }
    const int bits = BitLength(composite);
    if (bits <= WalkBits) {
        return FindDivisorByWalk(composite);
    }
    if (bits <= RhoBits) {
        for (uint64_t constant = 1; constant <= RhoSequences; constant++) {
            const uint64_t divisor = FindDivisorByRho(composite.low, constant, RhoSteps);
            if (divisor != 0) {
                return {0, divisor};
            }
        }
    }
    if (bits <= 44) {
        return FindDivisorByCurves(composite.low, StagesTo44Bits);
    }
    if (bits <= 54) {
        return FindDivisorByCurves(composite.low, StagesTo54Bits);
    }
    if (bits <= 64) {
        return FindDivisorByCurves(composite.low, StagesTo64Bits);
    }
    return FindDivisorByCurves(composite, StagesTo128Bits);
}

}  // namespace tallymere
