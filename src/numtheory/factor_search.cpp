#include "numtheory/factor_search.h"

#include <span>

#include "core/contract.h"
#include "core/stop_request.h"
#include "numtheory/elliptic_curves.h"
#include "numtheory/pollard_rho.h"
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

// The stages that measure best for numbers of so many bits.
constexpr CurveStage StagesTo44Bits[] = {{0, 100}, {2, ManyCurves}};
constexpr CurveStage StagesTo54Bits[] = {{1, 100}, {3, ManyCurves}};
constexpr CurveStage StagesTo64Bits[] = {{2, 100}, {4, ManyCurves}};
constexpr CurveStage StagesTo128Bits[] = {{2, 5}, {3, 10}, {4, 15}, {5, ManyCurves}};

std::span<const CurveStage> CurveStagesFor(int bits) {
    return bits <= 44   ? std::span<const CurveStage>(StagesTo44Bits)
           : bits <= 54 ? std::span<const CurveStage>(StagesTo54Bits)
           : bits <= 64 ? std::span<const CurveStage>(StagesTo64Bits)
                        : std::span<const CurveStage>(StagesTo128Bits);
}

constexpr uint64_t FirstParameter = 6;

// The candidates of the walk between two polls of the stop request.
constexpr uint64_t CandidatesPerPoll = 1 << 16;

// The least prime below 1000 that divides n; 0 if there is none.
uint64_t SmallDivisor(Wide n) {
    for (const uint16_t prime : SmallPrimeTable) {
        if (RemainderByWord(n, prime) == 0) {
            return prime;
        }
    }
    return 0;
}

// A divisor of n, which has at most RhoBits bits; 0 if no sequence finds one.
uint64_t FindDivisorBySequences(uint64_t n) {
    for (uint64_t constant = 1; constant <= RhoSequences; constant++) {
        const uint64_t divisor = FindDivisorByRho(n, constant, RhoSteps);
        if (divisor != 0) {
            return divisor;
        }
    }
    return 0;
}

// A divisor by elliptic curves, or by the walk; {0, 0} after a stop. Each curve has a parameter of
// its own.
template <typename Number>
Wide FindDivisorByCurves(Number n, std::span<const CurveStage> stages) {
    uint64_t parameter = FirstParameter;
    bool isFirstStage = true;
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
        const uint64_t smallDivisor = isFirstStage ? SmallDivisor(Widen(n)) : 0;
        if (smallDivisor != 0) {
            return Widen(smallDivisor);
        }
        isFirstStage = false;
    }
    return FindDivisorByWalk(Widen(n));
}

}  // namespace

Wide FindDivisorByWalk(Wide n) {
    TALLYMERE_REQUIRE(AtLeast(n, {0, 3}) && IsOdd(n));
    const uint64_t root = SquareRootOf(n);
    WheelWalk walk = WheelStartForOddNumbers;
    for (uint64_t candidates = 1; AdvanceWheel(walk) && walk.divisor <= root; candidates++) {
        if (RemainderByWord(n, walk.divisor) == 0) {
            return Widen(walk.divisor);
        }
        if (candidates % CandidatesPerPoll == 0 && StopRequested()) {
            return {0, 0};
        }
    }
    return n;
}

Wide FindDivisor(Wide composite) {
    TALLYMERE_REQUIRE(AtLeast(composite, {0, 9}) && IsOdd(composite));
    const uint64_t root = SquareRootOf(composite);
    if (wide::Multiply(root, root) == composite) {
        return Widen(root);
    }
    const int bits = BitLength(composite);
    if (bits <= WalkBits) {
        return FindDivisorByWalk(composite);
    }
    if (bits <= RhoBits) {
        const uint64_t divisor = FindDivisorBySequences(composite.low);
        if (divisor != 0) {
            return Widen(divisor);
        }
    }
    const std::span<const CurveStage> stages = CurveStagesFor(bits);
    return bits <= 64 ? FindDivisorByCurves(composite.low, stages)
                      : FindDivisorByCurves(composite, stages);
}

}  // namespace tallymere
