#include "functions/root_seeds.h"

#include <gtest/gtest.h>

#include "core/limb.h"
#include "core/real_add.h"
#include "core/real_compare.h"
#include "core/real_integer.h"
#include "core/real_multiply.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

constexpr uint64_t One = 1'000'000'000'000'000'000;
constexpr uint64_t ThresholdUnit = 1'000'000'000'000;

TEST(RootSeedTable, HasSeedsFromOneToTwo) {
    for (const RootSeedTable& table : {SquareRootSeeds, CubeRootSeeds}) {
        for (size_t row = 0; row < table.size(); row++) {
            EXPECT_EQ(table[row].seed, 1'000'000 + 40'000 * row);
        }
    }
}

// With s = seed / 10^6 a threshold is (s - 0.02)^2 10^6 or (s - 0.02)^3 10^6, an integer.
TEST(RootSeedTable, ChangesTheSeedHalfWay) {
    EXPECT_EQ(SquareRootSeeds[0].threshold, 1'000'000u);
    EXPECT_EQ(CubeRootSeeds[0].threshold, 1'000'000u);
    for (size_t row = 1; row < SquareRootSeeds.size(); row++) {
        const uint64_t middle = SquareRootSeeds[row].seed - 20'000;
        EXPECT_EQ(SquareRootSeeds[row].threshold * uint64_t{1'000'000}, middle * middle);
        EXPECT_EQ(CubeRootSeeds[row].threshold * uint64_t{1'000'000'000'000},
                  middle * middle * middle);
    }
    EXPECT_EQ(SquareRootSeeds[1].threshold, 1'040'400u);
    EXPECT_EQ(SquareRootSeeds[2].threshold, 1'123'600u);
    EXPECT_EQ(SquareRootSeeds[25].threshold, 3'920'400u);
    EXPECT_EQ(CubeRootSeeds[1].threshold, 1'061'208u);
    EXPECT_EQ(CubeRootSeeds[2].threshold, 1'191'016u);
    EXPECT_EQ(CubeRootSeeds[25].threshold, 7'762'392u);
}

// Doubles are the same everywhere: no digit of a result may depend on the compiler.
TEST(RootSeed, IsTheSameOnEveryPlatform) {
    const auto expect = [](uint64_t m, uint64_t square, uint64_t cube) {
        EXPECT_EQ(SquareRootSeed(m), square) << m;
        EXPECT_EQ(CubeRootSeed(m), cube) << m;
    };
    {
        PrecisionScope scope(9);
        expect(One, One, One);
        expect(2 * One, 1'414'213'562'373'094'912, 1'259'921'049'894'878'464);
        expect(3 * One, 1'732'050'807'568'877'312, 1'442'249'570'307'408'384);
        expect(1'040'264'379'816'255'169, 1'019'933'517'351'133'952, 1'013'245'248'756'919'424);
        expect(4 * One - 1, 2 * One, 1'587'401'051'968'199'424);
        EXPECT_EQ(CubeRootSeed(8 * One - 1), 2 * One);
    }
    // Below 9 digits there is one step less.
    PrecisionScope scope(8);
    expect(One, One, One);
    expect(2 * One, 1'414'213'564'213'564'416, 1'259'921'132'034'613'248);
    expect(3 * One, 1'732'050'808'083'331'072, 1'442'249'570'315'980'544);
    expect(1'040'264'379'816'255'169, 1'019'933'536'697'050'368, 1'013'245'279'394'301'056);
    expect(4 * One - 1, 2 * One, 1'587'401'058'135'449'600);
    EXPECT_EQ(CubeRootSeed(8 * One - 1), 2 * One);
}

// Expects |seed^degree - m 10^(18 (degree - 1))| <= m * bound.
void ExpectSeedNear(uint64_t seed, uint64_t m, int degree, const RealBuffer& bound) {
    EXPECT_GE(seed, One);
    EXPECT_LT(seed, LimbBase);
    RealBuffer root;
    RealFromUint(root, seed);
    RealBuffer power = root;
    RealBuffer exact;
    RealFromUint(exact, m);
    RealBuffer allowed;
    RealMulRaw(allowed, exact, bound);
    for (int i = 1; i < degree; i++) {
        RealMulRaw(power, power, root);
        RealSetExponent(exact, RealExponent(exact) + 18);
    }
    RealAddRaw(power, power, exact, true);
    EXPECT_LE(RealCompare(power, allowed, true), 0) << m;
}

// The errors that the counts of digits stand for: 2 10^-15.7 = 4.0 10^-16 and 10^-13.5 =
// 3.2 10^-14, which twice and three times over are those of the powers.
TEST(RootSeed, HoldsTheDigitsThatArePromised) {
    EXPECT_EQ(SquareRootSeedTenths, 157);
    EXPECT_EQ(CubeRootSeedTenths, 135);
    PrecisionScope scope(76);
    const RealBuffer squareBound("798");
    const RealBuffer cubeBound("94.8e21");
    RandomSource random;
    // The largest errors lie half way between 1 and the next seed.
    for (const uint64_t spread : {3 * One, One / 10}) {
        for (int round = 0; round < TestRounds(40000); round++) {
            const uint64_t m = One + random.Below(spread);
            ExpectSeedNear(SquareRootSeed(m), m, 2, squareBound);
            ExpectSeedNear(CubeRootSeed(m), m, 3, cubeBound);
        }
    }
    // Both sides of each threshold.
    for (size_t row = 0; row < SquareRootSeeds.size(); row++) {
        for (const uint64_t below : {0, 1}) {
            const uint64_t square = SquareRootSeeds[row].threshold * ThresholdUnit;
            const uint64_t cube = CubeRootSeeds[row].threshold * ThresholdUnit;
            const uint64_t offset = row == 0 ? 0 : below;
            ExpectSeedNear(SquareRootSeed(square - offset), square - offset, 2, squareBound);
            ExpectSeedNear(CubeRootSeed(cube - offset), cube - offset, 3, cubeBound);
        }
    }
}

}  // namespace
}  // namespace tallymere
