#include "core/real_multiply.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/real_rounding.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

Outcome Product(std::string_view a, std::string_view b) {
    RealBuffer product;
    RealMul(product, RealBuffer(a), RealBuffer(b));
    const CalcError code = TakeCode();
    RealBuffer inPlace(a);
    RealMul(inPlace, inPlace, RealBuffer(b));
    EXPECT_EQ(inPlace, product);
    inPlace = RealBuffer(b);
    RealMul(inPlace, RealBuffer(a), inPlace);
    EXPECT_EQ(inPlace, product);
    TakeCode();
    return {PlainText(product), code};
}

Outcome ProductWithUint(std::string_view text, uint64_t k) {
    RealBuffer x(text);
    RealBuffer product;
    RealRound(product, RealMulUint(product, x, k));
    const CalcError code = TakeCode();
    RealRound(x, RealMulUint(x, x, k));
    EXPECT_EQ(x, product);
    TakeCode();
    return {PlainText(product), code};
}

TEST(RealMul, FollowsTheRulesOfSpecialValues) {
    const Outcome undefined = {"nan", CalcErrorUndefined};
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (const char* other : {"0", "-0", "1", "-1", "inf", "-inf", "nan"}) {
            EXPECT_EQ(Product("nan", other), Silent("nan"));
            EXPECT_EQ(Product(other, "nan"), Silent("nan"));
        }
        for (const char* zero : {"0", "-0"}) {
            for (const char* infinity : {"inf", "-inf"}) {
                EXPECT_EQ(Product(zero, infinity), undefined);
                EXPECT_EQ(Product(infinity, zero), undefined);
            }
        }
        EXPECT_EQ(Product("0", "0"), Silent("0"));
        EXPECT_EQ(Product("-0", "0"), Silent("-0"));
        EXPECT_EQ(Product("-0", "-0"), Silent("0"));
        EXPECT_EQ(Product("0", "-5"), Silent("-0"));
        EXPECT_EQ(Product("-5", "-0"), Silent("0"));
        EXPECT_EQ(Product("inf", "inf"), Silent("inf"));
        EXPECT_EQ(Product("inf", "-inf"), Silent("-inf"));
        EXPECT_EQ(Product("-inf", "5"), Silent("-inf"));
        EXPECT_EQ(Product("-5", "-inf"), Silent("inf"));
    }
}

TEST(RealMul, TakesTheSignFromBoth) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(Product("2", "3"), Silent("6e0"));
        EXPECT_EQ(Product("-2", "3e4"), Silent("-6e4"));
        EXPECT_EQ(Product("-2e-9", "-3"), Silent("6e-9"));
        EXPECT_EQ(Product("1", "1"), Silent("1e0"));
    }
}

TEST(RealMulRaw, TruncatesAndReturnsTheGuardLimb) {
    {
        PrecisionScope scope(1);
        RealBuffer x("9");
        EXPECT_EQ(RealMulRaw(x, x, x), 1'000'000'000'000'000'000u);
        EXPECT_EQ(PlainText(x), "8e1");
        RealBuffer y("9");
        EXPECT_EQ(RealMulRaw(y, y, RealBuffer("7")), 3'000'000'000'000'000'000u);
        EXPECT_EQ(PlainText(y), "6e1");
        EXPECT_EQ(Product("9", "9"), Silent("8e1"));
        EXPECT_EQ(Product("9", "7"), Silent("6e1"));
        EXPECT_EQ(Product("5", "9"), Silent("5e1"));
    }
    PrecisionScope scope(2);
    const RealBuffer a("2.5");
    const RealBuffer b("4.0");
    RealBuffer product;
    Limb guard = 77;
    EXPECT_EQ(LimbsMultiply(1, product.Limbs(), &guard, a.Limbs(), b.Limbs()), 0);
    EXPECT_EQ(guard, 0u);
    EXPECT_EQ(RealMulRaw(product, a, b), 0u);
    EXPECT_EQ(PlainText(product), "1e1");
    EXPECT_EQ(LimbsMultiply(1, product.Limbs(), &guard, a.Limbs(), a.Limbs()), 1);
    EXPECT_EQ(guard, 5'000'000'000'000'000'000u);
    EXPECT_EQ(product.Limbs()[0], 62u);
}

TEST(RealMul, OverflowsAndUnderflowsBeyondTheRange) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        const std::string top = "4e4611686018427387903";
        const std::string least = "1e-4611686018427387903";
        EXPECT_EQ(Product(top, "2"), Silent("8e4611686018427387903"));
        EXPECT_EQ(Product(top, "-5"), (Outcome{"-inf", CalcErrorOverflow}));
        EXPECT_EQ(Product("-" + top, "-" + top), (Outcome{"inf", CalcErrorOverflow}));
        EXPECT_EQ(Product("-" + least, "0.1"), Silent("-0"));
        EXPECT_EQ(Product(least, least), Silent("0"));
        EXPECT_EQ(Product(top, least), Silent("4e0"));
        {
            FieldScope<uint8_t> quiet(numberContext.reportOverflow, 0);
            EXPECT_EQ(Product(top, "5"), Silent("inf"));
        }
        FieldScope<uint8_t> report(numberContext.reportUnderflow, 1);
        EXPECT_EQ(Product(least, "-0.1"), (Outcome{"-0", CalcErrorUnderflow}));
    }
}

TEST(RealMulUint, FollowsTheRulesOfSpecialValues) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(ProductWithUint("nan", 0), Silent("nan"));
        EXPECT_EQ(ProductWithUint("nan", 3), Silent("nan"));
        EXPECT_EQ(ProductWithUint("0", 3), Silent("0"));
        EXPECT_EQ(ProductWithUint("-0", 3), Silent("-0"));
        EXPECT_EQ(ProductWithUint("-0", 0), Silent("-0"));
        EXPECT_EQ(ProductWithUint("5", 0), Silent("0"));
        EXPECT_EQ(ProductWithUint("-5", 0), Silent("-0"));
        EXPECT_EQ(ProductWithUint("inf", 0), (Outcome{"nan", CalcErrorUndefined}));
        EXPECT_EQ(ProductWithUint("-inf", 0), (Outcome{"nan", CalcErrorUndefined}));
        EXPECT_EQ(ProductWithUint("inf", 3), Silent("inf"));
        EXPECT_EQ(ProductWithUint("-inf", 3), Silent("-inf"));
    }
}

TEST(RealMulUint, MultipliesByEveryWord) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(ProductWithUint("-7", 1), Silent("-7e0"));
        EXPECT_EQ(ProductWithUint("-7", 10'000'000'000'000'000'000u), Silent("-7e19"));
        EXPECT_EQ(ProductWithUint("5e-3", 2), Silent("1e-2"));
    }
    PrecisionScope scope(40);
    EXPECT_EQ(ProductWithUint("18446744073709551615", ~uint64_t{0}),
              Silent("3.40282366920938463426481119284349108225e38"));
    EXPECT_EQ(ProductWithUint("9e4611686018427387903", 9), (Outcome{"inf", CalcErrorOverflow}));
}

TEST(RealMul, KeepsTheFirstCode) {
    PrecisionScope scope(20);
    SetCalcError(CalcErrorSyntax);
    RealBuffer x("0");
    RealMul(x, x, RealBuffer("inf"));
    EXPECT_EQ(TakeCode(), CalcErrorSyntax);
}

}  // namespace
}  // namespace tallymere
