#include "functions/root_seeds.h"

#include <algorithm>

#include "core/contract.h"
#include "core/limb.h"
#include "core/number_context.h"

// The doubles here come out alike everywhere, whether or not a compiler joins a product and a sum
// into one operation: no sum has a product as its term but 2 * g, which is exact.

namespace tallymere {

namespace {

// Below this precision the table's guess needs one step less.
constexpr int64_t ThreeStepPrecision = 9;

constexpr uint64_t SeedUnit = 1'000'000'000'000;

double GuessFromTable(const RootSeedTable& table, uint64_t m) {
    const uint32_t leading = static_cast<uint32_t>(m / SeedUnit);
    const auto next =
        std::upper_bound(table.begin(), table.end(), leading,
                         [](uint32_t value, const RootSeed& row) { return value < row.threshold; });
    return static_cast<double>(std::prev(next)->seed) * static_cast<double>(SeedUnit);
}

int StepCount() {
    return numberContext.precisionDigits >= ThreeStepPrecision ? 3 : 2;
}

// Rounding may leave a guess just below the root of 1.
uint64_t NineteenDigits(double guess) {
    return std::max(static_cast<uint64_t>(guess), PowerOfTen(DigitsPerLimb - 1));
}

}  // namespace

uint64_t SquareRootSeed(uint64_t m) {
    TALLYMERE_REQUIRE(m >= PowerOfTen(18) && m < 4 * PowerOfTen(18));
    const double square = static_cast<double>(m) * 1e18;
    double g = GuessFromTable(SquareRootSeeds, m);
    for (int step = StepCount(); step > 0; step--) {
        g = (square / g + g) / 2;
    }
    return NineteenDigits(g);
}

uint64_t CubeRootSeed(uint64_t m) {
    TALLYMERE_REQUIRE(m >= PowerOfTen(18) && m < 8 * PowerOfTen(18));
    const double cube = static_cast<double>(m) * 1e36;
    double g = GuessFromTable(CubeRootSeeds, m);
    for (int step = StepCount(); step > 0; step--) {
        g = (cube / (g * g) + 2 * g) / 3;
    }
    return NineteenDigits(g);
}

}  // namespace tallymere
