// Powers, roots and logarithms against the plain forms of their methods.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "exact/big_uint.h"
#include "exact/big_uint_logarithms.h"
#include "exact/big_uint_powers.h"
#include "exact/big_uint_roots.h"
#include "reference/big_uint_power_twins.h"
#include "support/exact_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// What an operation left: the value, the code, and whether it called it exact.
struct Found {
    UintBuffer value;
    CalcError code = CalcErrorNone;
    bool exact = false;
    bool operator==(const Found&) const = default;
};

void PrintTo(const Found& found, std::ostream* out) {
    *out << found.value.Text() << " code " << found.code << (found.exact ? " exact" : "");
}

template <typename Operation>
Found Find(Operation operation) {
    Found found;
    found.exact = operation(found.value.Get());
    found.code = TakeCode();
    return found;
}

template <typename Operation>
Found FindPower(Operation operation) {
    return Find([&](uint64_t* dest) {
        operation(dest);
        return false;
    });
}

// base^e, for one that fits.
UintBuffer PowerOf(const UintBuffer& base, int64_t e) {
    UintBuffer power;
    reference::TwinPower(power, base, e);
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    return power;
}

// x and its neighbours.
std::vector<UintBuffer> WithNeighbours(const UintBuffer& x) {
    std::vector<UintBuffer> values = {x};
    UintBuffer other;
    BigUintAddSmall(other, x, 1);
    if (TakeCode() == CalcErrorNone) {
        values.push_back(other);
    }
    BigUintSubOne(other, x);
    if (TakeCode() == CalcErrorNone) {
        values.push_back(other);
    }
    return values;
}

// 1 to `most`, small ones as likely as large ones.
int64_t RandomDegree(RandomSource& random, int64_t most) {
    const int64_t magnitude = int64_t{1} << random.Between(0, HighestBit(uint64_t(most)));
    return random.Between(1, std::min(most, 2 * magnitude));
}

int Rounds(int atSmallWidths, int atLargeWidths) {
    return TestRounds(numberContext.uintLimbs <= 65 ? atSmallWidths : atLargeWidths);
}

void ComparePower(const UintBuffer& base, int64_t e) {
    EXPECT_EQ(FindPower([&](uint64_t* dest) { BigUintPowerSmall(dest, base, e); }),
              FindPower([&](uint64_t* dest) { reference::TwinPower(dest, base, e); }))
        << base.Text() << " ^ " << e;
}

TEST(BigUintPowerTwins, AgreeOnPowers) {
    RandomSource random;
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        for (int round = 0; round < Rounds(2000, 20); round++) {
            const int64_t e = RandomDegree(random, 2 * UintBits());
            UintBuffer base;
            // So long that the power sometimes just fits.
            FillUint(random, base, std::min(limbs, UintBits() / e / 64 + 1));
            BigUintShiftRight(base, base, random.Between(0, 63));
            ComparePower(base, e);
        }
    }
}

TEST(BigUintPowerTwins, AgreeOnThePowersOfTen) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        const int64_t last = UintWidthForLimbs(limbs).digits + 2;
        for (int64_t n = -2; n <= last;
             n = n < 200 || n + 5 >= last ? n + 1 : std::min(n + 1 + last / 50, last - 5)) {
            EXPECT_EQ(FindPower([&](uint64_t* dest) { BigUintPowerOfTenSmall(dest, n); }),
                      FindPower([&](uint64_t* dest) { reference::TwinPowerOfTen(dest, n); }))
                << n;
        }
    }
}

void CompareRoot(int64_t n, const UintBuffer& x) {
    const auto found = Find([&](uint64_t* dest) { return BigUintRootSmall(dest, n, x); });
    EXPECT_EQ(found, Find([&](uint64_t* dest) { return reference::TwinRoot(dest, n, x); }))
        << "degree " << n << " of " << x.Text();
    if (n == 2) {
        EXPECT_EQ(found, Find([&](uint64_t* dest) { return BigUintSquareRoot(dest, x); }));
        EXPECT_EQ(found, Find([&](uint64_t* dest) { return reference::TwinSquareRoot(dest, x); }));
    }
}

TEST(BigUintPowerTwins, AgreeOnRootsOfAnything) {
    RandomSource random;
    for (const int64_t limbs : SmallUintWidths) {
        WidthScope scope(limbs);
        for (int round = 0; round < TestRounds(limbs <= 2 ? 20000 : 400); round++) {
            UintBuffer x;
            FillUint(random, x);
            CompareRoot(RandomDegree(random, UintBits() + 2), x);
        }
    }
}

TEST(BigUintPowerTwins, AgreeOnRootsAtPowers) {
    RandomSource random;
    for (const int64_t limbs : SmallUintWidths) {
        WidthScope scope(limbs);
        for (int round = 0; round < TestRounds(limbs <= 2 ? 10000 : 200); round++) {
            const int64_t n = RandomDegree(random, UintBits());
            UintBuffer root;
            FillUint(random, root, std::min(limbs, UintBits() / n / 64 + 1));
            BigUintShiftRight(root, root,
                              std::max<int64_t>(0, BigUintBitLength(root) - UintBits() / n));
            for (const UintBuffer& x : WithNeighbours(PowerOf(root, n))) {
                CompareRoot(n, x);
            }
        }
    }
}

TEST(BigUintPowerTwins, AgreeOnRootsOfEveryDegree) {
    RandomSource random;
    for (const int64_t limbs : {1, 2, 26}) {
        WidthScope scope(limbs);
        UintBuffer x;
        for (int64_t n = -1; n <= UintBits() + 1; n++) {
            UintFromPlainText(x, TwoTo(UintBits(), "-1"));
            CompareRoot(n, x);
            UintFromPlainText(x, TwoTo(UintBits() - 1));
            CompareRoot(n, x);
            FillUint(random, x);
            CompareRoot(n, x);
        }
    }
}

// The twin takes too long for small degrees here.
TEST(BigUintPowerTwins, AgreeOnRootsOfHighDegreeAtLargeWidths) {
    RandomSource random;
    for (const int64_t limbs : {520, 1039}) {
        WidthScope scope(limbs);
        for (int round = 0; round < TestRounds(5); round++) {
            UintBuffer x;
            FillUint(random, x);
            CompareRoot(random.Between(2000, 20000), x);
            const int64_t n = random.Between(1500, 5000);
            UintBuffer root;
            FillUint(random, root, 1);
            BigUintShiftRight(root, root,
                              std::max<int64_t>(0, BigUintBitLength(root) - UintBits() / n));
            for (const UintBuffer& power : WithNeighbours(PowerOf(root, n))) {
                CompareRoot(n, power);
            }
        }
    }
}

void CompareLog(const UintBuffer& base, const UintBuffer& x) {
    EXPECT_EQ(Find([&](uint64_t* dest) { return BigUintLog(dest, base, x); }),
              Find([&](uint64_t* dest) { return reference::TwinLog(dest, base, x); }))
        << "base " << base.Text() << " of " << x.Text();
}

TEST(BigUintPowerTwins, AgreeOnLogarithms) {
    RandomSource random;
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        for (int round = 0; round < Rounds(2000, 10); round++) {
            UintBuffer base;
            UintBuffer x;
            FillUint(random, base, random.Below(2) == 0 ? 1 : random.Between(1, limbs));
            BigUintShiftRight(base, base, random.Between(0, 63));
            FillUint(random, x);
            CompareLog(base, x);
            if (BigUintBitLength(base) < 2) {
                continue;
            }
            const int64_t e = random.Between(0, UintBits() / BigUintBitLength(base));
            for (const UintBuffer& power : WithNeighbours(PowerOf(base, e))) {
                CompareLog(base, power);
            }
        }
    }
}

TEST(BigUintPowerTwins, AgreeOnDecimalLogarithms) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        const UintBuffer ten("10");
        const int64_t last = UintWidthForLimbs(limbs).digits;
        for (int64_t n = 0; n <= last;
             n = n < 100 || n + 2 >= last ? n + 1 : std::min(n + 1 + last / 3, last - 2)) {
            for (const UintBuffer& x : WithNeighbours(PowerOf(ten, n))) {
                EXPECT_EQ(Find([&](uint64_t* dest) { return BigUintLogTen(dest, x); }),
                          Find([&](uint64_t* dest) { return reference::TwinLog(dest, ten, x); }))
                    << x.Text();
            }
        }
    }
}

}  // namespace
}  // namespace tallymere
