#include "layout/dialog_placement.h"

#include <gtest/gtest.h>

namespace tallymere {
namespace {

TEST(DialogPlacement, RequestsLieInTheTwoLowestBits) {
    EXPECT_EQ(DialogClientSize, 1u);
    EXPECT_EQ(DialogCentred, 2u);
}

TEST(DialogPlacement, FrameAndTitleAreAddedToTheClientSize) {
    EXPECT_EQ(WindowSizeForClient({370, 330}, {376, 359}, {370, 330}), (LayoutSize{376, 359}));
    EXPECT_EQ(WindowSizeForClient({370, 330}, {370, 330}, {364, 301}), (LayoutSize{376, 359}));
}

TEST(DialogPlacement, AClientAreaThatIsCutOffStillGrowsByTheDifferenceAlone) {
    EXPECT_EQ(WindowSizeForClient({370, 0}, {370, 60}, {354, 2}), (LayoutSize{386, 58}));
}

TEST(DialogPlacement, TheMiddleOfTheScreenIsFoundFromBothSizes) {
    EXPECT_EQ(CentredPosition({1024, 768}, {370, 330}), (LayoutPoint{327, 219}));
    EXPECT_EQ(CentredPosition({1024, 768}, {1024, 768}), (LayoutPoint{0, 0}));
}

TEST(DialogPlacement, AnOddPixelIsRightOfTheWindowAndBelow) {
    EXPECT_EQ(CentredPosition({100, 100}, {99, 97}), (LayoutPoint{0, 1}));
}

TEST(DialogPlacement, AWindowLargerThanTheScreenBeginsOutsideOfIt) {
    EXPECT_EQ(CentredPosition({100, 100}, {120, 201}), (LayoutPoint{-10, -50}));
    EXPECT_EQ(CentredPosition({100, 100}, {101, 103}), (LayoutPoint{0, -1}));
}

}  // namespace
}  // namespace tallymere
