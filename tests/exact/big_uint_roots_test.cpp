#include "exact/big_uint_roots.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "exact/big_uint.h"
#include "exact/big_uint_powers.h"
#include "support/exact_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// The floor of a root and whether it is exact; no code.
struct Root {
    std::string text;
    bool exact;
    bool operator==(const Root&) const = default;
};

void PrintTo(const Root& root, std::ostream* out) {
    *out << root.text << (root.exact ? " exact" : " inexact");
}

Root Exact(const std::string& text) {
    return {text, true};
}
Root Inexact(const std::string& text) {
    return {text, false};
}

template <typename Operation>
Root Take(Operation operation) {
    UintBuffer dest;
    const bool exact = operation(dest.Get());
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    return {dest.Text(), exact};
}

Root SquareRoot(std::string_view x) {
    return Take([&](uint64_t* dest) { return BigUintSquareRoot(dest, UintBuffer(x)); });
}

Root RootOf(int64_t n, std::string_view x) {
    return Take([&](uint64_t* dest) { return BigUintRootSmall(dest, n, UintBuffer(x)); });
}

Root RootOf(std::string_view n, std::string_view x) {
    return Take([&](uint64_t* dest) { return BigUintRoot(dest, UintBuffer(n), UintBuffer(x)); });
}

// By counting.
Root CountedRoot(int64_t n, uint64_t x) {
    const auto power = [n](uint64_t base) {
        uint64_t product = 1;
        for (int64_t i = 0; i < n && product <= 1000; i++) {
            product *= base;
        }
        return product;
    };
    uint64_t root = 0;
    while (power(root + 1) <= x) {
        root++;
    }
    return {std::to_string(root), power(root) == x};
}

TEST(BigUintRoot, OfSmallNumbers) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        for (uint64_t x = 0; x <= 130; x += limbs <= 2 ? 1 : 9) {
            const std::string text = std::to_string(x);
            EXPECT_EQ(SquareRoot(text), CountedRoot(2, x)) << x;
            for (int64_t n = 1; n <= 12; n++) {
                EXPECT_EQ(RootOf(n, text), CountedRoot(n, x)) << n << " " << x;
                EXPECT_EQ(RootOf(std::to_string(n), text), CountedRoot(n, x)) << n << " " << x;
            }
        }
    }
}

TEST(BigUintRoot, OfZeroIsExact) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(SquareRoot("0"), Exact("0"));
        for (const int64_t n : {int64_t{1}, int64_t{2}, int64_t{3}, int64_t{1} << 31, INT64_MAX,
                                int64_t{-1}, INT64_MIN}) {
            EXPECT_EQ(RootOf(n, "0"), Exact("0")) << n;
        }
        for (const std::string& n : {TwoTo(0), TwoTo(1), TwoTo(63), TwoTo(UintBits(), "-1")}) {
            EXPECT_EQ(RootOf(n, "0"), Exact("0")) << n;
        }
    }
}

TEST(BigUintRoot, OfDegreeZeroIsRefused) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        for (const char* x : {"0", "1", "2", "18446744073709551615"}) {
            UintBuffer dest;
            EXPECT_FALSE(BigUintRootSmall(dest, 0, UintBuffer(x)));
            EXPECT_EQ(TakeOutcome(dest), Refused(CalcErrorUndefined));
            EXPECT_FALSE(BigUintRoot(dest, UintBuffer("0"), UintBuffer(x)));
            EXPECT_EQ(TakeOutcome(dest), Refused(CalcErrorUndefined));
        }
    }
}

TEST(BigUintRoot, OfDegreeOneIsTheNumber) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        for (const std::string& x :
             {TwoTo(0), TwoTo(1), TwoTo(63, "+5"), TwoTo(UintBits(), "-1")}) {
            EXPECT_EQ(RootOf(1, x), Exact(UintTextOf(x)));
            EXPECT_EQ(RootOf("1", x), Exact(UintTextOf(x)));
        }
    }
}

TEST(BigUintRoot, OfGreatDegreeIsOne) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        const std::string largest = TwoTo(UintBits(), "-1");
        for (const int64_t n :
             {UintBits(), UintBits() + 1, (int64_t{1} << 31) - 1, int64_t{1} << 31,
              int64_t{1} << 32, INT64_MAX, int64_t{-1}, INT64_MIN}) {
            EXPECT_EQ(RootOf(n, largest), Inexact("1")) << n;
            EXPECT_EQ(RootOf(n, "2"), Inexact("1")) << n;
            EXPECT_EQ(RootOf(n, "1"), Exact("1")) << n;
        }
        for (const std::string& n : {TwoTo(31), TwoTo(63, "-1"), TwoTo(63), largest}) {
            EXPECT_EQ(RootOf(n, largest), Inexact("1")) << n;
            EXPECT_EQ(RootOf(n, "2"), Inexact("1")) << n;
            EXPECT_EQ(RootOf(n, "1"), Exact("1")) << n;
        }
        EXPECT_EQ(RootOf(UintBits() - 1, largest), Inexact("2"));
        EXPECT_EQ(RootOf(UintBits() - 1, TwoTo(UintBits() - 1)), Exact("2"));
        EXPECT_EQ(RootOf(UintBits() - 1, TwoTo(UintBits() - 1, "-1")), Inexact("1"));
    }
    // Of these degrees the lowest limb alone would say something else.
    WidthScope scope(2);
    for (const std::string& n : {TwoTo(64), TwoTo(64, "+1"), TwoTo(64, "+2")}) {
        EXPECT_EQ(RootOf(n, "1000"), Inexact("1"));
        EXPECT_EQ(RootOf(n, "1"), Exact("1"));
    }
}

TEST(BigUintRoot, OfAllOnes) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        const std::string largest = TwoTo(UintBits(), "-1");
        EXPECT_EQ(SquareRoot(largest), Inexact(UintTextOf(TwoTo(UintBits() / 2, "-1"))));
        EXPECT_EQ(RootOf(4, largest), Inexact(UintTextOf(TwoTo(UintBits() / 4, "-1"))));
        EXPECT_EQ(RootOf(16, largest), Inexact(UintTextOf(TwoTo(UintBits() / 16, "-1"))));
    }
    WidthScope scope(1);
    EXPECT_EQ(RootOf(3, TwoTo(64, "-1")), Inexact("2642245"));
    EXPECT_EQ(RootOf(5, TwoTo(64, "-1")), Inexact("7131"));
    EXPECT_EQ(RootOf(40, TwoTo(64, "-1")), Inexact("3"));
    EXPECT_EQ(RootOf(41, TwoTo(64, "-1")), Inexact("2"));
}

TEST(BigUintRoot, OfPowersOfTwo) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        for (const int64_t n : {2, 3, 5, 7, 13, 40, 63}) {
            for (int64_t e : {int64_t{1}, (UintBits() - 1) / n / 2, (UintBits() - 1) / n}) {
                e = std::max<int64_t>(e, 1);
                EXPECT_EQ(RootOf(n, TwoTo(e * n)), Exact(UintTextOf(TwoTo(e)))) << n << " " << e;
                EXPECT_EQ(RootOf(n, TwoTo(e * n, "-1")), Inexact(UintTextOf(TwoTo(e, "-1"))));
                EXPECT_EQ(RootOf(n, TwoTo(e * n, "+1")), Inexact(UintTextOf(TwoTo(e))));
            }
        }
    }
}

TEST(BigUintRoot, OfPowersOfTen) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        const auto digits = static_cast<size_t>(UintWidthForLimbs(limbs).digits);
        for (const size_t n : {size_t{2}, size_t{3}, size_t{7}, size_t{19}, size_t{1000}}) {
            const size_t places = digits / n;
            if (places == 0) {
                continue;
            }
            const std::string power = "1" + std::string(places * n, '0');
            EXPECT_EQ(RootOf(int64_t(n), power), Exact("1" + std::string(places, '0')));
            EXPECT_EQ(RootOf(int64_t(n), std::string(places * n, '9')),
                      Inexact(std::string(places, '9')));
            EXPECT_EQ(RootOf(int64_t(n), power.substr(0, places * n) + "1"),
                      Inexact("1" + std::string(places, '0')));
        }
    }
}

// root^n <= x < (root + 1)^n, where a power that does not fit is above x.
void ExpectFloor(int64_t n, const UintBuffer& x) {
    UintBuffer root;
    UintBuffer power;
    const bool exact = BigUintRootSmall(root, n, x);
    ASSERT_TRUE(BigUintPowerIfFits(power, root, n)) << n << " " << x.Text();
    const int order = BigUintCompare(power, x);
    EXPECT_LE(order, 0) << n << " " << x.Text();
    EXPECT_EQ(exact, order == 0) << n << " " << x.Text();
    BigUintAddSmall(root, root, 1);
    EXPECT_TRUE(!BigUintPowerIfFits(power, root, n) || BigUintCompare(power, x) > 0)
        << n << " " << x.Text();
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

TEST(BigUintRoot, IsTheFloorAtLargeWidths) {
    RandomSource random;
    for (const int64_t limbs : {520, 1039, 2000}) {
        WidthScope scope(limbs);
        for (int round = 0; round < TestRounds(8); round++) {
            for (const int64_t n : {int64_t{2}, int64_t{3}, random.Between(4, 30),
                                    random.Between(31, 300), random.Between(301, 3000)}) {
                UintBuffer x;
                FillUint(random, x);
                ExpectFloor(n, x);
                // The power of a random root, and what lies next to it.
                UintBuffer root;
                FillUint(random, root, UintBits() / n / 64 + 1);
                BigUintShiftRight(root, root,
                                  std::max<int64_t>(0, BigUintBitLength(root) - UintBits() / n));
                ASSERT_TRUE(BigUintPowerIfFits(x, root, n));
                ExpectFloor(n, x);
                BigUintAddSmall(x, x, 1);
                ExpectFloor(n, x);
                if (BigUintBitLength(x) > 1) {
                    BigUintSubOne(x, x);
                    BigUintSubOne(x, x);
                    ExpectFloor(n, x);
                }
            }
        }
    }
}

TEST(BigUintRoot, MayBeWrittenOverItsOperands) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        UintBuffer x(TwoTo(UintBits(), "-1"));
        EXPECT_FALSE(BigUintSquareRoot(x, x));
        EXPECT_EQ(TakeOutcome(x), UintValue(TwoTo(UintBits() / 2, "-1")));
        x = UintBuffer("343");
        EXPECT_TRUE(BigUintRootSmall(x, 3, x));
        EXPECT_EQ(TakeOutcome(x), Silent("7"));
        x = UintBuffer("344");
        EXPECT_FALSE(BigUintRoot(x, UintBuffer("3"), x));
        EXPECT_EQ(TakeOutcome(x), Silent("7"));
        UintBuffer n("3");
        EXPECT_FALSE(BigUintRoot(n, n, UintBuffer("342")));
        EXPECT_EQ(TakeOutcome(n), Silent("6"));
        n = UintBuffer(TwoTo(63));
        EXPECT_TRUE(BigUintRoot(n, n, UintBuffer("1")));
        EXPECT_EQ(TakeOutcome(n), Silent("1"));
        UintBuffer both("4");
        EXPECT_FALSE(BigUintRoot(both, both, both));
        EXPECT_EQ(TakeOutcome(both), Silent("1"));
        both = UintBuffer("1");
        EXPECT_TRUE(BigUintRoot(both, both, both));
        EXPECT_EQ(TakeOutcome(both), Silent("1"));
        both = UintBuffer("0");
        EXPECT_FALSE(BigUintRoot(both, both, both));
        EXPECT_EQ(TakeOutcome(both), Refused(CalcErrorUndefined));
    }
}

TEST(BigUintRoot, LeavesItsOperands) {
    WidthScope scope(2);
    const UintBuffer x(TwoTo(100, "+7"));
    const UintBuffer n("3");
    UintBuffer dest;
    EXPECT_FALSE(BigUintRoot(dest, n, x));
    EXPECT_EQ(TakeOutcome(dest), Silent("10822639409"));
    EXPECT_EQ(x, UintBuffer(TwoTo(100, "+7")));
    EXPECT_EQ(n.Text(), "3");
}

TEST(BigUintRoot, KeepsACodeThatWasNoted) {
    for (const int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        const Outcome kept = {UintTextOf(TwoTo(UintBits() / 2, "-1")), CalcErrorSyntax};
        const UintBuffer x(TwoTo(UintBits(), "-1"));
        UintBuffer dest;
        SetCalcError(CalcErrorSyntax);
        EXPECT_FALSE(BigUintSquareRoot(dest, x));
        EXPECT_EQ(TakeOutcome(dest), kept);
        SetCalcError(CalcErrorSyntax);
        EXPECT_FALSE(BigUintRootSmall(dest, 2, x));
        EXPECT_EQ(TakeOutcome(dest), kept);
        SetCalcError(CalcErrorSyntax);
        EXPECT_FALSE(BigUintRoot(dest, UintBuffer("2"), x));
        EXPECT_EQ(TakeOutcome(dest), kept);
        SetCalcError(CalcErrorSyntax);
        EXPECT_FALSE(BigUintRootSmall(dest, 0, x));
        EXPECT_EQ(TakeOutcome(dest), Refused(CalcErrorSyntax));
    }
}

}  // namespace
}  // namespace tallymere
