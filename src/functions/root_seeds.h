// Where Newton's iterations of the square and the cube root begin: a table of first guesses, and a
// few steps in double arithmetic.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace tallymere {

/// From `threshold` on, `seed` is the guess; both in units of 10^-6.
struct RootSeed {
    uint32_t threshold;
    uint32_t seed;
};

/// Guesses for the roots of arguments from 1 on, the last threshold included.
using RootSeedTable = std::array<RootSeed, 26>;

/// The seeds 1.00, 1.04, ... 2.00. A seed s begins at the power (2 or 3) of s - 0.02, the middle
/// between it and the one before; the first begins at 1.
constexpr RootSeedTable MakeRootSeedTable(int power) {
    RootSeedTable table{};
    for (size_t row = 0; row < table.size(); row++) {
        const uint32_t hundredths = 100 + 4 * static_cast<uint32_t>(row);
        const uint32_t middle = row == 0 ? hundredths : hundredths - 2;
        table[row] = {middle * middle * (power == 2 ? 100 : middle), hundredths * 10'000};
    }
    return table;
}

inline constexpr RootSeedTable SquareRootSeeds = MakeRootSeedTable(2);
inline constexpr RootSeedTable CubeRootSeeds = MakeRootSeedTable(3);

/// The decimal digits that a seed is sure to hold, in tenths. The table's guess is off by up to
/// 0.02; a step squares the error, and in the square root halves it as well. Three steps leave less
/// than 3.7 10^-16, roundings included, and 2.5 10^-14. Each pass of Newton's iteration doubles the
/// digits (in the square root those of half the error), so that a tenth too many here would be
/// fifty digits too many at 10,000.
inline constexpr int64_t SquareRootSeedTenths = 157;
inline constexpr int64_t CubeRootSeedTenths = 135;

/// The 19 leading digits of the root of m / 10^18, for 10^18 <= m < 4 10^18 in the square root and
/// m < 8 10^18 in the cube root. Below 9 digits of precision there is one step less and the seed
/// holds 7 or 6 digits. The same on every platform.
uint64_t SquareRootSeed(uint64_t m);
uint64_t CubeRootSeed(uint64_t m);

}  // namespace tallymere
