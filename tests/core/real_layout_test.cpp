#include "core/real_layout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

constexpr const char* SpecialTexts[] = {"0", "-0", "inf", "-inf", "nan"};

std::string Digits(RandomSource& random, int64_t count) {
    std::string digits;
    for (int64_t i = 0; i < count; i++) {
        digits += static_cast<char>('0' + random.Below(10));
    }
    digits.front() = static_cast<char>('1' + random.Below(9));
    return digits;
}

// The guard limb with these digits on top.
Limb GuardOf(std::string digits) {
    digits.resize(19, '0');
    return std::stoull(digits);
}

TEST(WidenedLayout, IsTheLayoutOfTheMoreDigits) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        for (int64_t g = 0; g <= MaxGuardDigits; g++) {
            const RealLayout wide = WidenedLayout(g);
            EXPECT_EQ(wide.digits, p + g);
            EXPECT_EQ(wide.limbs, (p + g + 18) / 19);
            EXPECT_EQ(wide.topDigits, p + g - 19 * wide.limbs + 19);
        }
    }
}

TEST(RealWidenAndNarrow, KeepTheValueAtEveryGuardDigitCount) {
    RandomSource random;
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        const int64_t n = numberContext.realLimbs;
        for (int64_t g = 0; g <= MaxGuardDigits; g++) {
            SCOPED_TRACE(g);
            const RealLayout wide = WidenedLayout(g);
            for (int round = 0; round < TestRounds(50); round++) {
                RealBuffer x;
                FillReal(random, x, 99);
                const std::string text = PlainText(x);
                {
                    RealLayoutScope layout;
                    InstallRealLayout(wide);
                    RealBuffer widened;
                    RealWiden(widened, x, g, n, wide.limbs - n);
                    ASSERT_EQ(PlainText(widened), text);
                    RealBuffer narrowed = x;
                    ASSERT_EQ(RealNarrow(narrowed, widened, g, n, wide.limbs - n), 0u);
                    ASSERT_EQ(narrowed, x);
                    RealBuffer inPlace;
                    std::copy_n(&x.Get()->header, n + 1, &inPlace.Get()->header);
                    RealWiden(inPlace, inPlace, g, n, wide.limbs - n);
                    ASSERT_EQ(inPlace, widened);
                    RealNarrow(inPlace, inPlace, g, n, wide.limbs - n);
                    ASSERT_TRUE(
                        std::equal(&x.Get()->header, x.Limbs() + n, &inPlace.Get()->header));
                }
            }
            for (const char* special : SpecialTexts) {
                const RealBuffer x(special);
                RealLayoutScope layout;
                InstallRealLayout(wide);
                RealBuffer widened;
                RealWiden(widened, x, g, n, wide.limbs - n);
                EXPECT_EQ(PlainText(widened), special);
                RealBuffer narrowed = x;
                RealSetNaN(widened.Get());
                RealWiden(widened, x, g, n, wide.limbs - n);
                RealNarrow(narrowed, widened, g, n, wide.limbs - n);
                EXPECT_EQ(narrowed, x);
            }
        }
    }
}

// What is narrowed away comes out as the guard limb: its first 19 digits, or as many of them as the
// limb that is dropped first still holds.
TEST(RealNarrow, ReturnsTheDroppedDigitsAsTheGuardLimb) {
    RandomSource random;
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        const int64_t n = numberContext.realLimbs;
        for (int64_t g = 1; g <= MaxGuardDigits; g++) {
            SCOPED_TRACE(g);
            const RealLayout wide = WidenedLayout(g);
            const int64_t increase = wide.limbs - n;
            const std::string digits = Digits(random, p + g);
            RealBuffer narrowed;
            Limb guard;
            {
                RealLayoutScope layout;
                InstallRealLayout(wide);
                const RealBuffer x("-" + digits.substr(0, 1) + "." + digits.substr(1) + "e7");
                guard = RealNarrow(narrowed, x, g, n, increase);
            }
            const std::string kept = digits.substr(0, static_cast<size_t>(p));
            EXPECT_EQ(PlainText(narrowed),
                      PlainText(RealBuffer("-" + kept.substr(0, 1) + "." + kept.substr(1) + "e7")));
            const std::string dropped = digits.substr(static_cast<size_t>(p));
            const bool twoLimbsFewer = increase == 2 && g != 38;
            const size_t held =
                static_cast<size_t>(twoLimbsFewer ? g - 19 : std::min<int64_t>(g, 19));
            EXPECT_EQ(guard, GuardOf(dropped.substr(0, held)));
        }
    }
}

// Operations at guard digits.

struct Seen {
    RealLayout layout;
    std::string a;
    std::string b;
    bool inPlace;
};
Seen seen;

Limb Observe(RealNumber* dest, const RealNumber* a, const RealNumber* b) {
    seen = {CurrentRealLayout(), PlainText(a), PlainText(b), dest == a};
    // A result that uses every digit.
    RealFromPlainText(
        dest, "-1." + std::string(static_cast<size_t>(numberContext.precisionDigits - 1), '7'));
    return 123;
}
Limb ObserveUnary(RealNumber* dest, const RealNumber* x) {
    return Observe(dest, x, x);
}

TEST(WithGuardDigits, RunsTheFunctionInPlaceAtTheWiderLayout) {
    for (int64_t p : {2, 3, 16, 18, 19, 20, 37, 38, 39, 57, 100}) {
        PrecisionScope scope(p);
        for (int64_t g : {1, 2, 3, 17, 18, 19, 20, 21, 37, 38}) {
            SCOPED_TRACE(g);
            const RealLayout wide = LayoutForDigits(p + g);
            const RealBuffer a("1.5e3");
            const RealBuffer b("-2.5e-9");
            for (bool binary : {true, false}) {
                RealBuffer dest;
                const Limb guard = binary ? WithGuardDigitsBinary(dest, a, b, g, Observe)
                                          : WithGuardDigitsUnary(dest, a, g, ObserveUnary);
                EXPECT_EQ(seen.layout.digits, wide.digits);
                EXPECT_EQ(seen.layout.limbs, wide.limbs);
                EXPECT_EQ(seen.layout.topDigits, wide.topDigits);
                EXPECT_EQ(seen.a, "1.5e3");
                EXPECT_EQ(seen.b, binary ? "-2.5e-9" : "1.5e3");
                EXPECT_TRUE(seen.inPlace);
                EXPECT_EQ(PlainText(dest),
                          "-1." + std::string(static_cast<size_t>(p - 1), '7') + "e0");
                EXPECT_EQ(guard / 1'000'000'000'000'000'000u, 7u);
                EXPECT_EQ(numberContext.precisionDigits, p);
                RealBuffer inPlace = b;
                WithGuardDigitsBinary(inPlace, a, inPlace, g, Observe);
                EXPECT_EQ(inPlace, dest);
                EXPECT_EQ(seen.b, "-2.5e-9");
            }
        }
    }
}

// Conversions between layouts.

TEST(RealConvertLayout, KeepsTheDigitsThatFitAndReturnsTheNextAsTheGuardLimb) {
    RandomSource random;
    const int64_t precisions[] = {1, 2, 18, 19, 20, 21, 30, 37, 38, 39, 40, 57, 58, 100};
    for (int64_t from : precisions) {
        for (int64_t to : precisions) {
            SCOPED_TRACE(from);
            const std::string digits = Digits(random, from);
            const auto scientific = [](const std::string& mantissa) {
                return "-" + mantissa.substr(0, 1) + "." + mantissa.substr(1) + "e-33";
            };
            RealBuffer source = [&] {
                PrecisionScope scope(from);
                return RealBuffer(scientific(digits));
            }();
            PrecisionScope scope(to);
            RealBuffer result;
            const Limb guard = RealConvertLayout(result, source, LayoutForDigits(from));
            EXPECT_EQ(PlainText(result),
                      PlainText(RealBuffer(scientific(digits.substr(0, static_cast<size_t>(to))))));
            const std::string dropped = to < from ? digits.substr(static_cast<size_t>(to)) : "0";
            EXPECT_EQ(guard, GuardOf(dropped));
            const int64_t sourceWords = LayoutForDigits(from).limbs + 1;
            std::vector<uint64_t> inPlace(static_cast<size_t>(std::max(sourceWords, RealWords())));
            std::copy_n(&source.Get()->header, sourceWords, inPlace.data());
            RealNumber* const place = RealAt(inPlace.data());
            EXPECT_EQ(RealConvertLayout(place, place, LayoutForDigits(from)), guard);
            EXPECT_TRUE(
                std::equal(inPlace.data(), inPlace.data() + RealWords(), &result.Get()->header));
        }
    }
}

TEST(RealConvertLayout, CopiesSpecialValues) {
    for (const char* text : SpecialTexts) {
        RealBuffer source = [&] {
            PrecisionScope scope(39);
            return RealBuffer(text);
        }();
        for (int64_t to : {1, 20, 39, 57, 100}) {
            PrecisionScope scope(to);
            RealBuffer result;
            RealConvertLayout(result, source, LayoutForDigits(39));
            EXPECT_EQ(PlainText(result), text);
        }
    }
}

TEST(RealConvertPrecision, RoundsToTheDigits) {
    PrecisionScope scope(57);
    RealBuffer source = [] {
        PrecisionScope wide(20);
        return RealBuffer("-9.9999999999999999995e8");
    }();
    const auto converted = [&](int64_t digits) {
        RealBuffer result = [&] {
            RealLayoutScope layout;
            InstallRealLayout(LayoutForDigits(digits));
            return RealBuffer();
        }();
        EXPECT_TRUE(RealConvertPrecision(result, digits, source, 20));
        RealLayoutScope layout;
        InstallRealLayout(LayoutForDigits(digits));
        return PlainText(result);
    };
    EXPECT_EQ(converted(19), "-1e9");
    EXPECT_EQ(converted(1), "-1e9");
    EXPECT_EQ(converted(20), "-9.9999999999999999995e8");
    EXPECT_EQ(converted(57), "-9.9999999999999999995e8");
    EXPECT_EQ(converted(100), "-9.9999999999999999995e8");
    EXPECT_EQ(numberContext.precisionDigits, 57);
}

TEST(RealConvertPrecision, RefusesAPrecisionOutOfRange) {
    PrecisionScope scope(20);
    const RealBuffer source("1.5");
    for (int64_t digits : {int64_t{0}, int64_t{-3}, MaxPrecisionDigits + 1}) {
        RealBuffer result("7");
        EXPECT_FALSE(RealConvertPrecision(result, digits, source, 20));
        EXPECT_EQ(TakeCode(), CalcErrorBadParameter);
        EXPECT_EQ(PlainText(result), "7e0");
        EXPECT_FALSE(RealConvertPrecision(result, 20, source, digits));
        EXPECT_EQ(TakeCode(), CalcErrorBadParameter);
        EXPECT_EQ(PlainText(result), "7e0");
    }
}

}  // namespace
}  // namespace tallymere
