#include "functions/stored_constants.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "functions/function_testing.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

using ConstantLimbs = std::vector<Limb>;

ConstantLimbs LimbsOf(const StoredConstant& constant) {
    const Limb* limbs = reinterpret_cast<const Limb*>(&constant + 1);
    return {limbs, limbs + constant.limbCount};
}

std::string PaddedDigits(Limb limb, int64_t digits) {
    const std::string text = std::to_string(limb);
    return std::string(static_cast<size_t>(digits) - text.size(), '0') + text;
}

std::string DigitsOf(const StoredConstant& constant) {
    std::string digits;
    for (Limb limb : LimbsOf(constant)) {
        digits += PaddedDigits(limb, DigitsPerLimb);
    }
    return digits;
}

// The digits of a record, first limb without leading zeros.
std::string DigitsOf(const RealBuffer& x) {
    std::string digits = PaddedDigits(x.Limbs()[0], numberContext.topLimbDigits);
    for (int64_t i = 1; i < x.LimbCount(); i++) {
        digits += PaddedDigits(x.Limbs()[i], DigitsPerLimb);
    }
    return digits;
}

struct LongConstantHead {
    const StoredConstant& constant;
    Limb firstLimb;
    int32_t exponent;
};

const LongConstantHead LongHeads[] = {
    {ConstPiQuarter, 7853981633974483096u, -1},
    {ConstLn12, 1823215567939546262u, -1},
    {ConstLn101, 9950330853168082848u, -3},
    {ConstLn2, 6931471805599453094u, -1},
    {ConstAtan351, 2848995140761914318u, -3},
    {ConstLn10, 2302585092994045684u, 0},
    {ConstLog10E, 4342944819032518276u, -1},
    {ConstAtan21, 4758310327698339580u, -2},
    {ConstPiQuarterTail, 6087009916051394957u, -10052},
};

TEST(StoredConstants, LieInOneTableInTheirOrder) {
    const char* start = reinterpret_cast<const char*>(&ConstPiQuarter);
    for (size_t i = 0; i < std::size(LongHeads); i++) {
        SCOPED_TRACE(i);
        const StoredConstant& constant = LongHeads[i].constant;
        EXPECT_EQ(reinterpret_cast<const char*>(&constant) - start, 4240 * static_cast<int>(i));
        EXPECT_EQ(constant.limbCount, 529);
        EXPECT_EQ(constant.reserved, 0);
        EXPECT_EQ(constant.sign, 0);
        EXPECT_EQ(constant.exponent, LongHeads[i].exponent);
        EXPECT_EQ(LimbsOf(constant)[0], LongHeads[i].firstLimb);
    }
}

TEST(StoredConstants, HoldWholeLimbs) {
    for (const LongConstantHead& head : LongHeads) {
        for (Limb limb : LimbsOf(head.constant)) {
            ASSERT_LT(limb, LimbBase);
        }
    }
}

// The decimal digits of base^power, by school multiplication.
std::string PowerDigits(int base, int power) {
    std::string reversed = "1";
    for (int i = 0; i < power; i++) {
        int carry = 0;
        for (char& digit : reversed) {
            carry += (digit - '0') * base;
            digit = static_cast<char>('0' + carry % 10);
            carry /= 10;
        }
        if (carry > 0) {
            reversed += static_cast<char>('0' + carry);
        }
    }
    return {reversed.rbegin(), reversed.rend()};
}

TEST(StoredConstants, PowersOfTwoAreExact) {
    const auto check = [](const StoredConstant& constant, const std::string& digits,
                          uint16_t limbCount, int32_t exponent) {
        EXPECT_EQ(constant.limbCount, limbCount);
        EXPECT_EQ(constant.sign, 0);
        EXPECT_EQ(constant.exponent, exponent);
        const std::string stored = DigitsOf(constant);
        ASSERT_GE(stored.size(), digits.size());
        EXPECT_EQ(stored, digits + std::string(stored.size() - digits.size(), '0'));
    };
    check(ConstTwoPow64, PowerDigits(2, 64), 2, 19);
    check(ConstTwoPow128, PowerDigits(2, 128), 3, 38);
    // 2^-k = 5^k / 10^k.
    check(ConstTwoPowMinus64, PowerDigits(5, 64), 3, -20);
    check(ConstTwoPowMinus128, PowerDigits(5, 128), 5, -39);
}

TEST(LoadConstant, ReadsAsManyDigitsAsThePrecisionHas) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        for (const LongConstantHead& head : LongHeads) {
            RealBuffer dest;
            LoadConstant(dest, head.constant);
            EXPECT_EQ(DigitsOf(dest), DigitsOf(head.constant).substr(0, static_cast<size_t>(p)));
            EXPECT_EQ(dest.Get()->header, MakeHeader(head.exponent, 0));
        }
    }
}

TEST(LoadConstant, ReadsOneDigitAndTheOthersOfTheLimbAsGuard) {
    PrecisionScope scope(1);
    RealBuffer dest;
    EXPECT_EQ(LoadConstant(dest, ConstLn10), 3025850929940456840u);
    EXPECT_EQ(PlainText(dest), "2e0");
}

TEST(LoadConstant, ReadsWholeLimbsAndTheNextAsGuard) {
    PrecisionScope scope(19);
    RealBuffer dest;
    EXPECT_EQ(LoadConstant(dest, ConstLn10), 179914546843642076u);
    EXPECT_EQ(dest.Limbs()[0], 2302585092994045684u);
}

TEST(LoadConstant, IsStillCompleteAtTheLongestLayoutWithItsGuardDigits) {
    RealLayoutScope layout;
    InstallRealLayout(LayoutForDigits(MaxPrecisionDigits + 38));
    ASSERT_EQ(numberContext.realLimbs, 529);
    RealBuffer dest;
    const Limb guard = LoadConstant(dest, ConstPiQuarter);
    const std::string digits = DigitsOf(ConstPiQuarter);
    EXPECT_EQ(DigitsOf(dest) + PaddedDigits(guard, DigitsPerLimb).substr(0, 8), digits);
}

TEST(LoadLongPiQuarter, AddsTheTailToThePrecisionsThatReachIt) {
    const std::string digits = DigitsOf(ConstPiQuarter) + DigitsOf(ConstPiQuarterTail);
    ASSERT_EQ(static_cast<int64_t>(digits.size()), LongPiDigits);
    for (const int64_t p :
         {int64_t{1}, int64_t{20}, int64_t{10'050}, int64_t{10'051}, int64_t{10'052},
          int64_t{10'060}, int64_t{15'000}, LongPiDigits - 1, LongPiDigits}) {
        RealLayoutScope layout;
        InstallRealLayout(LayoutForDigits(p));
        RealBuffer dest;
        LoadLongPiQuarter(dest);
        EXPECT_EQ(DigitsOf(dest), digits.substr(0, static_cast<size_t>(p))) << p;
        EXPECT_EQ(dest.Get()->header, MakeHeader(-1, 0));
    }
}

// 1.234...: 38 digits in 2 limbs.
constexpr StoredConstantOf<2> Short = {{2, 0, 1, 5}, {1234567890123456789u, 9876543210987654321u}};

std::string LoadedShort(int64_t p, Limb expectedGuard) {
    PrecisionScope scope(p);
    RealBuffer dest;
    EXPECT_EQ(LoadConstant(dest, Short.head), expectedGuard);
    EXPECT_EQ(dest.Get()->header, MakeHeader(5, 1));
    return DigitsOf(dest);
}

TEST(LoadConstant, PadsAShortConstantWithZeros) {
    const std::string digits = "12345678901234567899876543210987654321";
    EXPECT_EQ(LoadedShort(18, 9000000000000000000u), "123456789012345678");
    EXPECT_EQ(LoadedShort(19, 9876543210987654321u), "1234567890123456789");
    EXPECT_EQ(LoadedShort(20, 8765432109876543210u), "12345678901234567899");
    EXPECT_EQ(LoadedShort(37, 1000000000000000000u), digits.substr(0, 37));
    EXPECT_EQ(LoadedShort(38, 0), digits);
    EXPECT_EQ(LoadedShort(39, 0), digits + "0");
    EXPECT_EQ(LoadedShort(56, 0), digits + std::string(18, '0'));
    EXPECT_EQ(LoadedShort(57, 0), digits + std::string(19, '0'));
    EXPECT_EQ(LoadedShort(100, 0), digits + std::string(62, '0'));
}

TEST(LoadConstant, ReadsNoLimbsAsSignedZero) {
    constexpr StoredConstant zero = {0, 0, 0, 7};
    constexpr StoredConstant minusZero = {0, 0, 1, 7};
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        RealBuffer dest;
        EXPECT_EQ(LoadConstant(dest, zero), 0u);
        EXPECT_EQ(PlainText(dest), "0");
        EXPECT_EQ(LoadConstant(dest, minusZero), 0u);
        EXPECT_EQ(PlainText(dest), "-0");
    }
}

TEST(LoadConstantMultiple, TruncatesTheProduct) {
    PrecisionScope scope(20);
    RealBuffer dest;
    LoadConstantMultiple(dest, ConstLn10, 3);  // 3 * 2.3025850929940456840
    EXPECT_EQ(PlainText(dest), "6.907755278982137052e0");
}

TEST(AddConstantMultiple, AddsOrSubtracts) {
    PrecisionScope scope(20);
    RealBuffer sum("1");
    AddConstantMultiple(sum, ConstLn10, 3);
    EXPECT_EQ(PlainText(sum), "7.907755278982137052e0");
    AddConstantMultiple(sum, ConstLn10, -3);
    EXPECT_EQ(PlainText(sum), "1e0");
}

TEST(RealPi, IsRoundedAtEveryPrecision) {
    const char* const pi =
        "3.141592653589793238462643383279502884197169399375105820974944592307816406286208"
        "9986280348253421170679821480865132823";
    // One guard digit would not do at 31, 48 and 109 digits.
    for (int64_t p = 1; p <= 110; p++) {
        PrecisionScope scope(p);
        RealBuffer dest;
        RealPi(dest);
        EXPECT_EQ(PlainText(dest), RoundedText(pi, p));
    }
}

TEST(RealPi, ReachesTheLongestPrecision) {
    PrecisionScope scope(MaxPrecisionDigits);
    RealBuffer dest;
    RealPi(dest);
    EXPECT_EQ(PlainText(dest).substr(0, 12), "3.1415926535");
    EXPECT_TRUE(RealIsWellFormed(dest));
}

}  // namespace
}  // namespace tallymere
