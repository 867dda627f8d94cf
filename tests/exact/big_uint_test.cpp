#include "exact/big_uint.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "support/exact_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// 2^(64 limbs) - 1 in the width in force.
UintBuffer Ones() {
    return UintBuffer(TwoTo(64 * numberContext.uintLimbs, "-1"));
}

Outcome Sum(std::string_view a, std::string_view b) {
    UintBuffer dest;
    BigUintAdd(dest, UintBuffer(a), UintBuffer(b));
    return TakeOutcome(dest);
}

Outcome SmallSum(std::string_view a, uint64_t k) {
    UintBuffer dest;
    BigUintAddSmall(dest, UintBuffer(a), k);
    return TakeOutcome(dest);
}

Outcome Difference(std::string_view a, std::string_view b) {
    UintBuffer dest;
    BigUintSub(dest, UintBuffer(a), UintBuffer(b));
    return TakeOutcome(dest);
}

Outcome Predecessor(std::string_view a) {
    UintBuffer dest;
    BigUintSubOne(dest, UintBuffer(a));
    return TakeOutcome(dest);
}

Outcome ShiftedRight(std::string_view a, int64_t n) {
    UintBuffer dest;
    BigUintShiftRight(dest, UintBuffer(a), n);
    return TakeOutcome(dest);
}

// The result of ShiftRightOut, and what fell out.
Outcome ShiftedOut(std::string_view a, uint64_t n, uint64_t* out) {
    UintBuffer dest;
    BigUintShiftRightOut(dest, out, UintBuffer(a), n);
    return TakeOutcome(dest);
}

Outcome ShiftedLeft(std::string_view a, int64_t n, bool check) {
    UintBuffer dest;
    BigUintShiftLeft(dest, UintBuffer(a), n, check);
    return TakeOutcome(dest);
}

TEST(BigUintBasics, ClearCopyAndFromWordWriteEveryLimb) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        UintBuffer a;
        BigUintClear(a);
        EXPECT_EQ(TakeOutcome(a), Silent("0"));
        UintBuffer b;
        BigUintFromUnsigned(b, ~uint64_t{0});
        EXPECT_EQ(TakeOutcome(b), Silent("18446744073709551615"));
        BigUintCopy(a, b);
        EXPECT_EQ(a, b);
        BigUintCopy(a, a);
        EXPECT_EQ(a, b);
        BigUintCopy(b, Ones());
        EXPECT_EQ(b, Ones());
    }
}

TEST(BigUintBasics, ValuesAreTheSameOrApart) {
    WidthScope scope(3);
    const uint64_t limbs[9] = {};
    EXPECT_TRUE(BigUintsAreSameOrApart(limbs, limbs));
    EXPECT_TRUE(BigUintsAreSameOrApart(limbs, limbs + 3));
    EXPECT_FALSE(BigUintsAreSameOrApart(limbs, limbs + 2));
    EXPECT_FALSE(BigUintsAreSameOrApart(limbs + 1, limbs));
}

TEST(BigUintBasics, LengthAndBitLengthFollowTheTopBit) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(BigUintLength(UintBuffer("0")), 0);
        EXPECT_EQ(BigUintBitLength(UintBuffer("0")), 0);
        for (int64_t k = 0; k < 64 * limbs; k += k < 200 ? 1 : 61) {
            const UintBuffer power(TwoTo(k));
            ASSERT_EQ(BigUintLength(power), k / 64 + 1);
            ASSERT_EQ(BigUintBitLength(power), k + 1);
            const UintBuffer below(TwoTo(k, "-1"));
            ASSERT_EQ(BigUintBitLength(below), k);
            ASSERT_EQ(BigUintLength(below), (k + 63) / 64);
        }
        EXPECT_EQ(BigUintBitLength(Ones()), 64 * limbs);
        EXPECT_EQ(BigUintLength(Ones()), limbs);
    }
}

TEST(BigUintBasics, BitsAreThoseOfThePowersOfTwo) {
    WidthScope scope(2);
    const UintBuffer a("0x80000000000000030000000000000005");
    for (int64_t i = 0; i < 128; i++) {
        const bool set = i == 0 || i == 2 || i == 64 || i == 65 || i == 127;
        EXPECT_EQ(BigUintBit(a, i), set ? 1u : 0u) << i;
    }
}

TEST(BigUintBasics, ZeroHasNoLimbSet) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_TRUE(BigUintIsZero(UintBuffer("0")));
        for (int64_t i = 0; i < limbs; i++) {
            EXPECT_FALSE(BigUintIsZero(UintBuffer(TwoTo(64 * i)))) << "limb " << i;
        }
    }
}

TEST(BigUintBasics, WordsAreToldFromWiderValues) {
    WidthScope scope(2);
    EXPECT_TRUE(BigUintEqualsSmall(UintBuffer("7"), 7));
    EXPECT_FALSE(BigUintEqualsSmall(UintBuffer("7"), 8));
    EXPECT_TRUE(BigUintEqualsSmall(UintBuffer("0"), 0));
    EXPECT_FALSE(BigUintEqualsSmall(UintBuffer("2^64+7"), 7));
    EXPECT_FALSE(BigUintEqualsSmall(UintBuffer("2^64"), 0));
    EXPECT_TRUE(BigUintFitsUnsigned(UintBuffer("0")));
    EXPECT_TRUE(BigUintFitsUnsigned(UintBuffer("2^64-1")));
    EXPECT_FALSE(BigUintFitsUnsigned(UintBuffer("2^64")));
    EXPECT_TRUE(BigUintFitsSigned(UintBuffer("0")));
    EXPECT_TRUE(BigUintFitsSigned(UintBuffer("2^63-1")));
    EXPECT_FALSE(BigUintFitsSigned(UintBuffer("2^63")));
    EXPECT_FALSE(BigUintFitsSigned(UintBuffer("2^64")));
}

TEST(BigUintCompare, LooksFromTheTopLimbDown) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(BigUintCompare(UintBuffer("0"), UintBuffer("0")), 0);
        EXPECT_EQ(BigUintCompare(Ones(), Ones()), 0);
        EXPECT_EQ(BigUintCompare(UintBuffer("0"), Ones()), -1);
        EXPECT_EQ(BigUintCompare(Ones(), UintBuffer("0")), 1);
        for (int64_t i = 0; i < limbs; i++) {
            // All lower limbs say the opposite.
            const UintBuffer power(TwoTo(64 * i));
            const UintBuffer below(TwoTo(64 * i, "-1"));
            ASSERT_EQ(BigUintCompare(power, below), 1);
            ASSERT_EQ(BigUintCompare(below, power), -1);
            ASSERT_EQ(BigUintCompare(power, power), 0);
        }
        EXPECT_EQ(BigUintCompare(UintBuffer("2^63"), UintBuffer("1")), 1);
    }
}

TEST(BigUintAdd, CarriesThroughEveryLimb) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Sum("0", "0"), Silent("0"));
        EXPECT_EQ(Sum("2", "3"), Silent("5"));
        for (int64_t i = 1; i < limbs; i += (limbs > 100 ? 97 : 1)) {
            ASSERT_EQ(Sum(TwoTo(64 * i, "-1"), "1"), UintValue(TwoTo(64 * i)));
            ASSERT_EQ(Sum("1", TwoTo(64 * i, "-1")), UintValue(TwoTo(64 * i)));
            ASSERT_EQ(Sum(TwoTo(64 * i, "-1"), TwoTo(64 * i, "-1")),
                      UintValue(TwoTo(64 * i + 1, "-2")));
        }
        // A limb of all ones with a carry on both sides.
        EXPECT_EQ(Sum(TwoTo(64 * limbs - 1), TwoTo(64 * limbs - 1, "-1")), Silent(Ones().Text()));
    }
}

TEST(BigUintAdd, OverflowsOnACarryOutOfTheTopLimb) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        const std::string most = TwoTo(64 * limbs, "-1");
        EXPECT_EQ(Sum(most, "0"), Silent(Ones().Text()));
        EXPECT_EQ(Sum(most, "1"), Refused(CalcErrorOverflow));
        EXPECT_EQ(Sum("1", most), Refused(CalcErrorOverflow));
        EXPECT_EQ(Sum(most, most), Refused(CalcErrorOverflow));
        EXPECT_EQ(Sum(TwoTo(64 * limbs - 1), TwoTo(64 * limbs - 1)), Refused(CalcErrorOverflow));
    }
}

TEST(BigUintAddSmall, CarriesThroughEveryLimb) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(SmallSum("0", ~uint64_t{0}), Silent("18446744073709551615"));
        EXPECT_EQ(SmallSum("5", 0), Silent("5"));
        EXPECT_EQ(SmallSum(TwoTo(64 * limbs, "-2"), 1), Silent(Ones().Text()));
        for (int64_t i = 1; i < limbs; i += (limbs > 100 ? 97 : 1)) {
            ASSERT_EQ(SmallSum(TwoTo(64 * i, "-1"), 1), UintValue(TwoTo(64 * i)));
            ASSERT_EQ(SmallSum(TwoTo(64 * i, "-9223372036854775807"), INT64_MAX),
                      UintValue(TwoTo(64 * i)));
        }
    }
}

TEST(BigUintAddSmall, OverflowsOnACarryOutOfTheTopLimb) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        const std::string most = TwoTo(64 * limbs, "-1");
        EXPECT_EQ(SmallSum(most, 0), Silent(Ones().Text()));
        EXPECT_EQ(SmallSum(most, 1), Refused(CalcErrorOverflow));
        EXPECT_EQ(SmallSum(most, ~uint64_t{0}), Refused(CalcErrorOverflow));
    }
}

TEST(BigUintSub, BorrowsThroughEveryLimb) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Difference("0", "0"), Silent("0"));
        EXPECT_EQ(Difference("5", "3"), Silent("2"));
        const std::string most = TwoTo(64 * limbs, "-1");
        EXPECT_EQ(Difference(most, most), Silent("0"));
        for (int64_t i = 1; i < limbs; i += (limbs > 100 ? 97 : 1)) {
            ASSERT_EQ(Difference(TwoTo(64 * i), "1"), UintValue(TwoTo(64 * i, "-1")));
            ASSERT_EQ(Difference(TwoTo(64 * i), TwoTo(64 * i, "-1")), Silent("1"));
        }
    }
}

TEST(BigUintSub, OverflowsOnABorrowOut) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Difference("0", "1"), Refused(CalcErrorOverflow));
        EXPECT_EQ(Difference("0", TwoTo(64 * limbs, "-1")), Refused(CalcErrorOverflow));
        EXPECT_EQ(Difference(TwoTo(64 * limbs, "-2"), TwoTo(64 * limbs, "-1")),
                  Refused(CalcErrorOverflow));
    }
    WidthScope scope(2);
    // The borrow meets a difference of 0 in the top limb.
    EXPECT_EQ(Difference("2^64", "2^64+1"), Refused(CalcErrorOverflow));
}

TEST(BigUintSubOne, OverflowsAtZeroAlone) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(Predecessor("0"), Refused(CalcErrorOverflow));
        EXPECT_EQ(Predecessor("1"), Silent("0"));
        EXPECT_EQ(Predecessor(TwoTo(64 * limbs, "-1")), UintValue(TwoTo(64 * limbs, "-2")));
        for (int64_t i = 1; i < limbs; i += (limbs > 100 ? 97 : 1)) {
            ASSERT_EQ(Predecessor(TwoTo(64 * i)), UintValue(TwoTo(64 * i, "-1")));
        }
    }
}

TEST(BigUintSums, WriteOverTheirOperands) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        const std::string large = TwoTo(64 * limbs - 2, "-1");
        const UintBuffer a(large);
        const UintBuffer b("77");
        UintBuffer dest = a;
        BigUintAdd(dest, dest, b);
        EXPECT_EQ(TakeOutcome(dest), Sum(large, "77"));
        dest = b;
        BigUintAdd(dest, a, dest);
        EXPECT_EQ(TakeOutcome(dest), Sum(large, "77"));
        dest = a;
        BigUintAdd(dest, dest, dest);
        EXPECT_EQ(TakeOutcome(dest), UintValue(TwoTo(64 * limbs - 1, "-2")));
        dest = a;
        BigUintAddSmall(dest, dest, 9);
        EXPECT_EQ(TakeOutcome(dest), SmallSum(large, 9));
        dest = a;
        BigUintSub(dest, dest, b);
        EXPECT_EQ(TakeOutcome(dest), Difference(large, "77"));
        dest = b;
        BigUintSub(dest, a, dest);
        EXPECT_EQ(TakeOutcome(dest), Difference(large, "77"));
        dest = a;
        BigUintSub(dest, dest, dest);
        EXPECT_EQ(TakeOutcome(dest), Silent("0"));
        dest = a;
        BigUintSubOne(dest, dest);
        EXPECT_EQ(TakeOutcome(dest), UintValue(TwoTo(64 * limbs - 2, "-2")));
        // A refusal clears the operand as well.
        dest = Ones();
        BigUintAdd(dest, dest, dest);
        EXPECT_EQ(TakeOutcome(dest), Refused(CalcErrorOverflow));
        dest = b;
        BigUintSub(dest, dest, a);
        EXPECT_EQ(TakeOutcome(dest), Refused(CalcErrorOverflow));
    }
}

TEST(BigUintSums, KeepTheFirstCode) {
    WidthScope scope(1);
    SetCalcError(CalcErrorUndefined);
    EXPECT_EQ(Sum("2^64-1", "1"), Refused(CalcErrorUndefined));
    SetCalcError(CalcErrorUndefined);
    EXPECT_EQ(Difference("0", "1"), Refused(CalcErrorUndefined));
    // And none of them takes a code away.
    SetCalcError(CalcErrorUndefined);
    EXPECT_EQ(Sum("1", "1"), (Outcome{"2", CalcErrorUndefined}));
}

TEST(BigUintSums, UndoEachOther) {
    RandomSource random;
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        for (int round = 0; round < TestRounds(limbs <= 65 ? 2000 : 200); round++) {
            UintBuffer a;
            UintBuffer b;
            FillUint(random, a);
            FillUint(random, b);
            UintBuffer sum;
            BigUintAdd(sum, a, b);
            if (TakeCode() == CalcErrorNone) {
                ASSERT_GE(BigUintCompare(sum, a), 0);
                BigUintSub(sum, sum, b);
                ASSERT_EQ(TakeCode(), CalcErrorNone);
                ASSERT_EQ(sum, a);
            } else {
                ASSERT_TRUE(BigUintIsZero(sum));
                // Then b exceeds what is left above a.
                UintBuffer room;
                BigUintSub(room, Ones(), a);
                ASSERT_GT(BigUintCompare(b, room), 0);
            }
        }
    }
}

// Resizes within an array of junk: the value of srcLimbs limbs lies at `from`, the result at `to`.
// Returns the result; everything outside of the two must be as it was.
std::vector<uint64_t> ResizeWithin(int64_t from, int64_t srcLimbs, int64_t to, int64_t destLimbs,
                                   const std::vector<uint64_t>& value) {
    constexpr uint64_t junk = 0xDEADBEEFDEADBEEFu;
    std::vector<uint64_t> area(40, junk);
    std::copy(value.begin(), value.end(), area.begin() + from);
    std::vector<uint64_t> expected = area;
    BigUintResize(area.data() + to, destLimbs, area.data() + from, srcLimbs);
    std::vector<uint64_t> result(area.begin() + to, area.begin() + to + destLimbs);
    std::copy(result.begin(), result.end(), expected.begin() + to);
    EXPECT_EQ(area, expected) << "from " << from << " to " << to;
    return result;
}

TEST(BigUintResize, CopiesBetweenOverlappingArraysInBothDirections) {
    WidthScope scope(1);
    for (int64_t srcLimbs = 1; srcLimbs <= 9; srcLimbs++) {
        for (int64_t destLimbs = 1; destLimbs <= 9; destLimbs++) {
            std::vector<uint64_t> value(static_cast<size_t>(srcLimbs), 0);
            for (int64_t i = 0; i < std::min(srcLimbs, destLimbs); i++) {
                value[static_cast<size_t>(i)] = 101 + static_cast<uint64_t>(i);
            }
            std::vector<uint64_t> expected = value;
            expected.resize(static_cast<size_t>(destLimbs), 0);
            for (int64_t to = 0; to <= 30; to++) {
                ASSERT_EQ(ResizeWithin(15, srcLimbs, to, destLimbs, value), expected)
                    << srcLimbs << " limbs to " << destLimbs << " at " << to - 15;
                ASSERT_EQ(TakeCode(), CalcErrorNone);
            }
        }
    }
}

TEST(BigUintResize, NarrowsToTheExactNumberOfLimbsAndNoFurther) {
    for (int64_t limbs : {int64_t{2}, int64_t{26}, int64_t{65}, int64_t{1039}}) {
        WidthScope scope(limbs);
        for (int64_t kept = 1; kept<limbs; kept += limbs> 100 ? 97 : 1) {
            const UintBuffer most(TwoTo(64 * kept, "-1"));
            UintBuffer narrow = UintBuffer::OfLimbs(kept);
            BigUintResize(narrow, kept, most, limbs);
            ASSERT_EQ(TakeOutcome(narrow), Silent(most.Text()));
            BigUintResize(narrow, kept, UintBuffer(TwoTo(64 * kept)), limbs);
            ASSERT_EQ(TakeOutcome(narrow), Refused(CalcErrorOverflow));
            // The limb that would be lost may be any above.
            BigUintResize(narrow, kept, UintBuffer(TwoTo(64 * limbs - 1)), limbs);
            ASSERT_EQ(TakeOutcome(narrow), Refused(CalcErrorOverflow));
        }
    }
}

TEST(BigUintResize, ClearsTheLimbsAboveWhenItWidens) {
    WidthScope scope(2);
    UintBuffer wide = UintBuffer::OfLimbs(5);
    BigUintResize(wide, 5, UintBuffer("2^128-1"), 2);
    EXPECT_EQ(TakeOutcome(wide), UintValue("2^128-1"));
}

TEST(BigUintResize, WorksWhateverTheWidthInForce) {
    UintBuffer src = UintBuffer::OfLimbs(3);
    {
        WidthScope scope(3);
        UintFromPlainText(src, "2^130+9");
    }
    WidthScope scope(1);
    UintBuffer dest = UintBuffer::OfLimbs(4);
    BigUintResize(dest, 4, src, 3);
    EXPECT_EQ(TakeOutcome(dest), Silent(src.Text()));
}

TEST(BigUintResize, RefusesACountOfZeroAndWritesNothing) {
    WidthScope scope(2);
    const UintBuffer before("2^100");
    UintBuffer dest = before;
    const UintBuffer src("7");
    BigUintResize(dest, 0, src, 2);
    EXPECT_EQ(TakeCode(), CalcErrorBadParameter);
    EXPECT_EQ(dest, before);
    BigUintResize(dest, 2, src, 0);
    EXPECT_EQ(TakeCode(), CalcErrorBadParameter);
    EXPECT_EQ(dest, before);
    BigUintResize(dest, 0, src, 0);
    EXPECT_EQ(TakeCode(), CalcErrorBadParameter);
    EXPECT_EQ(dest, before);
}

TEST(BigUintShiftRightOut, GivesTheBitsThatFellOut) {
    WidthScope scope(2);
    uint64_t out = 77;
    EXPECT_EQ(ShiftedOut("0x123456789abcdef0fedcba9876543210", 0, &out),
              UintValue("0x123456789abcdef0fedcba9876543210"));
    EXPECT_EQ(out, 0u);
    EXPECT_EQ(ShiftedOut("0x123456789abcdef0fedcba9876543210", 12, &out),
              UintValue("0x123456789abcdef0fedcba9876543"));
    EXPECT_EQ(out, 0x210u);
    EXPECT_EQ(ShiftedOut("0x123456789abcdef0fedcba9876543210", 63, &out),
              UintValue("0x2468acf13579bde1"));
    EXPECT_EQ(out, 0x7edcba9876543210u);
}

TEST(BigUintShiftRightOut, MovesLimbsBy64Bits) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        uint64_t out = 0;
        EXPECT_EQ(ShiftedOut(TwoTo(64 * limbs, "-1"), 64, &out),
                  UintValue(TwoTo(64 * limbs - 64, "-1")));
        EXPECT_EQ(out, ~uint64_t{0});
        EXPECT_EQ(ShiftedOut(TwoTo(64 * limbs - 1), 64, &out),
                  limbs == 1 ? Silent("0") : UintValue(TwoTo(64 * limbs - 65)));
        EXPECT_EQ(out, limbs == 1 ? uint64_t{1} << 63 : 0);
    }
}

TEST(BigUintShiftRightOut, RefusesMoreThan64Bits) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        for (uint64_t n : {uint64_t{65}, uint64_t{128}, ~uint64_t{0}}) {
            uint64_t out = 77;
            EXPECT_EQ(ShiftedOut("5", n, &out), Refused(CalcErrorUndefined));
            EXPECT_EQ(out, 0u);
            EXPECT_EQ(ShiftedOut("5", n, nullptr), Refused(CalcErrorUndefined));
        }
    }
}

TEST(BigUintShiftRightOut, NeedsNoPlaceForTheBits) {
    WidthScope scope(2);
    EXPECT_EQ(ShiftedOut("2^100+5", 1, nullptr), UintValue("2^99+2"));
    EXPECT_EQ(ShiftedOut("2^100+5", 64, nullptr), UintValue("2^36"));
}

TEST(BigUintShiftRight, ShiftsByAnyNumberOfBits) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        const int64_t bits = 64 * limbs;
        for (int64_t n = 0; n<bits; n += limbs> 100 ? 1571 : n < 200 ? 1 : 67) {
            ASSERT_EQ(ShiftedRight(TwoTo(bits, "-1"), n), UintValue(TwoTo(bits - n, "-1"))) << n;
            ASSERT_EQ(ShiftedRight(TwoTo(bits - 1), n), UintValue(TwoTo(bits - 1 - n))) << n;
        }
        for (int64_t n : {bits, bits + 1, bits + 64, (int64_t{1} << 31) - 1, int64_t{1} << 31,
                          (int64_t{1} << 31) + 1, INT64_MAX}) {
            ASSERT_EQ(ShiftedRight(TwoTo(bits, "-1"), n), Silent("0")) << n;
        }
    }
}

TEST(BigUintShiftRight, RefusesANegativeCount) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(ShiftedRight("5", -1), Refused(CalcErrorUndefined));
        EXPECT_EQ(ShiftedRight("5", INT64_MIN), Refused(CalcErrorUndefined));
    }
}

// Shifts a value of 5 limbs at `from` right to `to`, both within one array.
UintBuffer ShiftWithin(int64_t from, int64_t to, const UintBuffer& value, int64_t n, bool out) {
    std::vector<uint64_t> area(20, 0xDEADBEEFDEADBEEFu);
    std::copy_n(value.Get(), 5, area.begin() + from);
    if (out) {
        BigUintShiftRightOut(area.data() + to, nullptr, area.data() + from,
                             static_cast<uint64_t>(n));
    } else {
        BigUintShiftRight(area.data() + to, area.data() + from, n);
    }
    UintBuffer result;
    std::copy_n(area.begin() + to, 5, result.Get());
    return result;
}

TEST(BigUintShiftRight, GivesTheSameForOverlappingArrays) {
    WidthScope scope(5);
    RandomSource random;
    for (int round = 0; round < TestRounds(200); round++) {
        UintBuffer value;
        FillUint(random, value);
        const int64_t n = random.Between(0, 330);
        UintBuffer apart;
        BigUintShiftRight(apart, value, n);
        for (int64_t to = 0; to <= 14; to++) {
            ASSERT_EQ(ShiftWithin(7, to, value, n, false), apart) << n << " bits, " << to - 7;
            if (n <= 64) {
                ASSERT_EQ(ShiftWithin(7, to, value, n, true), apart) << n << " bits, " << to - 7;
            }
        }
    }
}

TEST(BigUintShiftLeft, ShiftsBy1To63Bits) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        const int64_t bits = 64 * limbs;
        for (int64_t n = 1; n <= 63; n += limbs > 100 ? 31 : 1) {
            for (bool check : {false, true}) {
                ASSERT_EQ(ShiftedLeft("1", n, check), UintValue(TwoTo(n)));
                ASSERT_EQ(ShiftedLeft(TwoTo(bits - 1 - n), n, check), UintValue(TwoTo(bits - 1)));
                UintBuffer expected(TwoTo(bits, "-" + std::to_string(uint64_t{1} << n)));
                ASSERT_EQ(ShiftedLeft(TwoTo(bits - n, "-1"), n, check), Silent(expected.Text()));
            }
        }
    }
}

TEST(BigUintShiftLeft, LosesBitsAtTheTopOrRefusesTo) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        const int64_t bits = 64 * limbs;
        for (int64_t n = 1; n <= 63; n += limbs > 100 ? 31 : 1) {
            ASSERT_EQ(ShiftedLeft(TwoTo(bits - n), n, true), Refused(CalcErrorOverflow));
            ASSERT_EQ(ShiftedLeft(TwoTo(bits - n), n, false), Silent("0"));
            ASSERT_EQ(ShiftedLeft(TwoTo(bits - 1, "+1"), n, true), Refused(CalcErrorOverflow));
            ASSERT_EQ(ShiftedLeft(TwoTo(bits - 1, "+1"), n, false),
                      limbs == 1 && n == 63 ? UintValue("2^63") : UintValue(TwoTo(n)));
        }
    }
}

TEST(BigUintShiftLeft, RefusesOtherCounts) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        for (int64_t n :
             {int64_t{0}, int64_t{64}, int64_t{65}, int64_t{-1}, INT64_MIN, INT64_MAX}) {
            EXPECT_EQ(ShiftedLeft("5", n, true), Refused(CalcErrorUndefined)) << n;
            EXPECT_EQ(ShiftedLeft("5", n, false), Refused(CalcErrorUndefined)) << n;
        }
    }
}

TEST(BigUintShifts, WriteOverTheirOperandAndUndoEachOther) {
    RandomSource random;
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        for (int round = 0; round < TestRounds(200); round++) {
            UintBuffer a;
            FillUint(random, a);
            const int64_t n = random.Between(1, 63);
            UintBuffer right;
            uint64_t out = 0;
            BigUintShiftRightOut(right, &out, a, static_cast<uint64_t>(n));
            UintBuffer inPlace = a;
            BigUintShiftRight(inPlace, inPlace, n);
            ASSERT_EQ(inPlace, right);
            UintBuffer back;
            BigUintShiftLeft(back, right, n, true);
            BigUintShiftLeft(inPlace, inPlace, n, true);
            ASSERT_EQ(inPlace, back);
            BigUintAddSmall(back, back, out);
            ASSERT_EQ(TakeCode(), CalcErrorNone);
            ASSERT_EQ(back, a);
        }
    }
}

}  // namespace
}  // namespace tallymere
