#include "layout/logical_units.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tallymere {
namespace {

constexpr int32_t UsualDpis[] = {96, 120, 144, 168, 192, 240, 288, 384, 480};

// The nearest whole number to a / b, halves away from zero; exact for what is tested here.
int32_t NearestQuotient(int64_t a, int64_t b) {
    return static_cast<int32_t>(std::round(static_cast<long double>(a) / b));
}

TEST(LogicalUnits, AreThePixelsOfNinetySixDotsPerInch) {
    for (const int32_t value : {-32768, -1, 0, 1, 2, 47, 48, 370, 32767}) {
        EXPECT_EQ(ToPixels(value, 96), value);
        EXPECT_EQ(ToLogicalUnits(value, 96), value);
    }
}

TEST(LogicalUnits, BecomePixelsRoundedHalfAwayFromZero) {
    EXPECT_EQ(ToPixels(1, 144), 2);  // 1.5
    EXPECT_EQ(ToPixels(-1, 144), -2);
    EXPECT_EQ(ToPixels(3, 144), 5);  // 4.5
    EXPECT_EQ(ToPixels(-3, 144), -5);
    EXPECT_EQ(ToPixels(1, 120), 1);  // 1.25
    EXPECT_EQ(ToPixels(2, 120), 3);  // 2.5
    EXPECT_EQ(ToPixels(-2, 120), -3);
    EXPECT_EQ(ToPixels(3, 120), 4);  // 3.75
    EXPECT_EQ(ToPixels(16, 120), 20);
    EXPECT_EQ(ToPixels(370, 144), 555);
    EXPECT_EQ(ToPixels(0, 144), 0);
}

TEST(LogicalUnits, AreReadBackFromPixelsRoundedHalfAwayFromZero) {
    EXPECT_EQ(ToLogicalUnits(1, 192), 1);  // 0.5
    EXPECT_EQ(ToLogicalUnits(-1, 192), -1);
    EXPECT_EQ(ToLogicalUnits(3, 192), 2);  // 1.5
    EXPECT_EQ(ToLogicalUnits(-3, 192), -2);
    EXPECT_EQ(ToLogicalUnits(1, 144), 1);  // 0.67
    EXPECT_EQ(ToLogicalUnits(1, 288), 0);  // 0.33
    EXPECT_EQ(ToLogicalUnits(-1, 288), 0);
    EXPECT_EQ(ToLogicalUnits(0, 144), 0);
}

TEST(LogicalUnits, RoundToTheNearestAtEveryDpi) {
    for (int32_t dpi = 1; dpi <= 600; dpi += dpi < 200 ? 1 : 7) {
        for (int32_t value = -500; value <= 500; value++) {
            ASSERT_EQ(ToPixels(value, dpi), NearestQuotient(int64_t{value} * dpi, 96))
                << value << " at " << dpi;
            ASSERT_EQ(ToLogicalUnits(value, dpi), NearestQuotient(int64_t{value} * 96, dpi))
                << value << " at " << dpi;
        }
    }
}

TEST(LogicalUnits, RoundSymmetricallyAboutZero) {
    for (const int32_t dpi : {72, 96, 97, 120, 143, 144, 192, 300}) {
        for (int32_t value = 0; value <= 4000; value++) {
            ASSERT_EQ(ToPixels(-value, dpi), -ToPixels(value, dpi)) << value << " at " << dpi;
            ASSERT_EQ(ToLogicalUnits(-value, dpi), -ToLogicalUnits(value, dpi))
                << value << " at " << dpi;
        }
    }
}

TEST(LogicalUnits, ComeBackFromPixelsUnchangedAtNinetySixDotsPerInchOrMore) {
    for (int32_t dpi = 96; dpi <= 600; dpi++) {
        for (int32_t value = -700; value <= 700; value++) {
            ASSERT_EQ(ToLogicalUnits(ToPixels(value, dpi), dpi), value) << value << " at " << dpi;
        }
    }
}

TEST(LogicalUnits, DoNotComeBackFromACoarserScreen) {
    EXPECT_EQ(ToLogicalUnits(ToPixels(1, 24), 24), 0);
}

TEST(LogicalUnits, ProductsBeyondThirtyTwoBitsAreFine) {
    EXPECT_EQ(ToPixels(1'000'000'000, 192), 2'000'000'000);
    EXPECT_EQ(ToPixels(-1'000'000'000, 192), -2'000'000'000);
    EXPECT_EQ(ToLogicalUnits(2'000'000'000, 192), 1'000'000'000);
    EXPECT_EQ(ToLogicalUnits(INT32_MIN, 192), -1'073'741'824);
}

TEST(LogicalUnits, ARectangleIsScaledNumberByNumber) {
    const LayoutRect units = {5, -3, 75, 25};
    for (const int32_t dpi : UsualDpis) {
        EXPECT_EQ(ToPixels(units, dpi), (LayoutRect{ToPixels(5, dpi), ToPixels(-3, dpi),
                                                    ToPixels(75, dpi), ToPixels(25, dpi)}));
    }
    EXPECT_EQ(ToPixels(units, 144), (LayoutRect{8, -5, 113, 38}));
    // The right edge is 80 units, 120 pixels, from the left by one and 121 by the other way.
    EXPECT_EQ(ToPixels(80, 144), 120);
}

}  // namespace
}  // namespace tallymere
