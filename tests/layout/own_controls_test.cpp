// The plain decisions of the toolkit's own small controls.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "layout/digit_count_layout.h"
#include "layout/number_base_layout.h"
#include "layout/numeric_sync.h"
#include "layout/splitter_drag.h"

namespace tallymere {
namespace {

std::vector<int32_t> Bases(uint32_t style) {
    const NumberBaseRows rows = RowsOfNumberBases(style);
    return {rows.bases, rows.bases + rows.count};
}

TEST(NumberBase, OffersTenAndSixteenBehindWhatTheStyleAdds) {
    EXPECT_EQ(Bases(0), (std::vector<int32_t>{10, 16}));
    EXPECT_EQ(Bases(NumberBaseOffers2), (std::vector<int32_t>{2, 10, 16}));
    EXPECT_EQ(Bases(NumberBaseOffers8), (std::vector<int32_t>{8, 10, 16}));
    EXPECT_EQ(Bases(NumberBaseOffers2 | NumberBaseOffers8), (std::vector<int32_t>{2, 8, 10, 16}));
}

TEST(NumberBase, TheStyleBitsOfPlaceDoNotChangeTheRows) {
    for (uint32_t style = 0; style < 16; style++) {
        EXPECT_EQ(Bases(style), Bases(style & (NumberBaseOffers2 | NumberBaseOffers8))) << style;
    }
}

TEST(NumberBase, SelectsTheRowOfABase) {
    const NumberBaseRows rows = RowsOfNumberBases(7);
    const int32_t bases[] = {2, 8, 10, 16};
    for (int32_t i = 0; i < 4; i++) {
        int32_t row = -5;
        EXPECT_TRUE(FindNumberBaseRow(rows, bases[i], row));
        EXPECT_EQ(row, i);
        EXPECT_EQ(NumberBaseOfRow(rows, i), bases[i]);
    }
}

TEST(NumberBase, ABaseThatIsNotOfferedChangesNothing) {
    for (const uint32_t style : {0u, 7u, 15u}) {
        const NumberBaseRows rows = RowsOfNumberBases(style);
        for (const int32_t base : {0, 1, 3, 9, 11, 17, 100}) {
            int32_t row = -5;
            EXPECT_FALSE(FindNumberBaseRow(rows, base, row)) << base;
            EXPECT_EQ(row, -5);
        }
    }
    int32_t row = 1;
    EXPECT_FALSE(FindNumberBaseRow(RowsOfNumberBases(0), 2, row));
    EXPECT_FALSE(FindNumberBaseRow(RowsOfNumberBases(0), 8, row));
    EXPECT_EQ(row, 1);
}

TEST(NumberBase, ANegativeBaseClearsTheSelection) {
    for (const int32_t base : {-1, -10, INT32_MIN}) {
        int32_t row = 2;
        EXPECT_TRUE(FindNumberBaseRow(RowsOfNumberBases(0), base, row));
        EXPECT_EQ(row, -1);
    }
}

TEST(NumberBase, NoRowHasNoBase) {
    const NumberBaseRows rows = RowsOfNumberBases(0);
    EXPECT_EQ(NumberBaseOfRow(rows, -1), 0);
    EXPECT_EQ(NumberBaseOfRow(rows, 2), 0);
}

TEST(NumberBase, LabelAndListStandWhereTheStyleSays) {
    for (uint32_t style = 0; style < 16; style++) {
        const NumberBaseLayout layout = LayOutNumberBase(style);
        const bool bit0 = (style & 1) != 0;
        const bool bit3 = (style & 8) != 0;
        EXPECT_EQ(layout.label.x, bit3 ? 0 : 44) << style;
        EXPECT_EQ(layout.label.y, bit0 ? 2 : bit3 ? 0 : 10) << style;
        EXPECT_EQ(layout.label.width, 40) << style;
        EXPECT_EQ(layout.label.height, bit0 ? 30 : 15) << style;
        EXPECT_EQ(layout.list, (LayoutRect{0, bit3 ? 18 : 6, 40, 100})) << style;
    }
    EXPECT_EQ(NumberBaseSize, (LayoutSize{98, 42}));
}

TEST(NumberBase, TheCalculatorsStyleHasATwoLineLabelBesideAllFourBases) {
    const NumberBaseLayout layout = LayOutNumberBase(7);
    EXPECT_EQ(layout.label, (LayoutRect{44, 2, 40, 30}));
    EXPECT_EQ(layout.list, (LayoutRect{0, 6, 40, 100}));
    EXPECT_EQ(Bases(7).size(), 4u);
}

TEST(DigitCount, StandsBesideItsLabelOrBelowIt) {
    const DigitCountLayout beside = LayOutDigitCount(0);
    EXPECT_EQ(beside.control, (LayoutSize{98, 24}));
    EXPECT_EQ(beside.label, (LayoutRect{45, 1, 40, 20}));
    EXPECT_EQ(beside.count, (LayoutRect{0, 0, 40, 17}));
    const DigitCountLayout below = LayOutDigitCount(1);
    EXPECT_EQ(below.control, (LayoutSize{98, 35}));
    EXPECT_EQ(below.label, (LayoutRect{0, 0, 40, 20}));
    EXPECT_EQ(below.count, (LayoutRect{0, 17, 40, 17}));
}

TEST(DigitCount, OtherStyleBitsDoNotMatter) {
    EXPECT_EQ(LayOutDigitCount(2).control, LayOutDigitCount(0).control);
    EXPECT_EQ(LayOutDigitCount(0xFFFFFFFF).count, LayOutDigitCount(1).count);
}

TEST(DigitCount, TheNumberIsFollowedByABlank) {
    EXPECT_EQ(std::u16string(DigitCountText(0).text), u"0 ");
    EXPECT_EQ(std::u16string(DigitCountText(20'000).text), u"20000 ");
    EXPECT_EQ(std::u16string(DigitCountText(INT32_MIN).text), u"-2147483648 ");
}

// A field as its page sees it: the position, the text, and what the page was told.
struct NumericField {
    int32_t position = 0;
    int32_t lastReported = 0;
    int32_t text = 0;
    std::vector<int32_t> told;

    void Happens(NumericEvent event, int32_t newPosition) {
        position = newPosition;
        const NumericSyncRequest request = SyncAfter(event);
        if (request.write) {
            text = position;
        }
        if (ReportsPosition(request.notify, position, lastReported)) {
            told.push_back(position);
            lastReported = position;
        }
    }
};

TEST(NumericUpDown, TellsOfATypedNumberWhenItIsDone) {
    NumericField field;
    field.Happens(NumericTextDone, 7);
    EXPECT_EQ(field.told, std::vector<int32_t>{7});
    EXPECT_EQ(field.text, 7);
}

TEST(NumericUpDown, TellsOfEveryStepOfTheSpinButtons) {
    NumericField field;
    field.Happens(NumericSpun, 1);
    field.Happens(NumericSpun, 2);
    EXPECT_EQ(field.told, (std::vector<int32_t>{1, 2}));
}

TEST(NumericUpDown, LeavesTheTextOfASpinToTheSpinControl) {
    EXPECT_FALSE(SyncAfter(NumericSpun).write);
    EXPECT_TRUE(SyncAfter(NumericTextDone).write);
    EXPECT_TRUE(SyncAfter(NumericRangeSet).write);
    EXPECT_TRUE(SyncAfter(NumericPositionSet).write);
}

TEST(NumericUpDown, TellsNothingTwice) {
    NumericField field;
    field.Happens(NumericTextDone, 7);
    field.Happens(NumericTextDone, 7);
    field.Happens(NumericSpun, 7);
    EXPECT_EQ(field.told, std::vector<int32_t>{7});
    field.Happens(NumericTextDone, 0);
    EXPECT_EQ(field.told, (std::vector<int32_t>{7, 0}));
}

TEST(NumericUpDown, APositionOrRangeOfThePageIsShownAndNotTold) {
    NumericField field;
    field.Happens(NumericPositionSet, 10);
    field.Happens(NumericRangeSet, 5);
    EXPECT_EQ(field.text, 5);
    EXPECT_TRUE(field.told.empty());
    EXPECT_EQ(field.lastReported, 0);
}

TEST(NumericUpDown, APositionOfThePageIsToldWhenTheFieldIsLeft) {
    NumericField field;
    field.Happens(NumericPositionSet, 10);
    field.Happens(NumericTextDone, 10);
    EXPECT_EQ(field.told, std::vector<int32_t>{10});
}

TEST(NumericUpDown, ANumberInTheTextIsThePosition) {
    EXPECT_EQ(PositionOfText(u"42", 7, 1, 100), 42);
    EXPECT_EQ(PositionOfText(u"+42", 7, 1, 100), 42);
    EXPECT_EQ(PositionOfText(u"-42", 7, -100, 100), -42);
    EXPECT_EQ(PositionOfText(u"0000000000000000000042", 7, 1, 100), 42);
    EXPECT_EQ(PositionOfText(u"2147483647", 7, INT32_MIN, INT32_MAX), INT32_MAX);
    EXPECT_EQ(PositionOfText(u"-2147483648", 7, INT32_MIN, INT32_MAX), INT32_MIN);
}

TEST(NumericUpDown, ANumberOutsideOfTheRangeGoesToItsNearerEnd) {
    EXPECT_EQ(PositionOfText(u"0", 7, 1, 100), 1);
    EXPECT_EQ(PositionOfText(u"-99", 7, 1, 100), 1);
    EXPECT_EQ(PositionOfText(u"101", 7, 1, 100), 100);
    EXPECT_EQ(PositionOfText(u"2147483648", 7, INT32_MIN, INT32_MAX), INT32_MAX);
    EXPECT_EQ(PositionOfText(u"-2147483649", 7, INT32_MIN, INT32_MAX), INT32_MIN);
    EXPECT_EQ(PositionOfText(u"99999999999999999999999999", 7, 1, 100), 100);
    EXPECT_EQ(PositionOfText(u"-99999999999999999999999999", 7, 1, 100), 1);
}

TEST(NumericUpDown, ATextThatIsNoNumberLeavesThePositionInItsRange) {
    for (const char16_t* text : {u"", u"+", u"-", u"abc", u"1x", u"x1", u"1 2", u"--1", u"1.5"}) {
        EXPECT_EQ(PositionOfText(text, 7, 1, 100), 7);
        EXPECT_EQ(PositionOfText(text, 0, 1, 100), 1);
    }
}

// Drags a bar past its limit and back, as a page does that keeps it between two positions.
struct DraggedBar {
    SplitterDrag drag;
    LayoutPoint bar;
    int32_t low;
    int32_t high;

    void MouseTo(LayoutPoint mouse) {
        const int32_t difference = TrackSplitter(drag, mouse);
        const LayoutPoint moved = MovedSplitter(drag.orientation, bar, difference);
        const int32_t along = drag.orientation == SplitterUpAndDown ? moved.y : moved.x;
        if (difference != 0 && along >= low && along <= high) {
            bar = moved;
        }
    }
};

TEST(Splitter, FollowsTheMouseAlongItsAxis) {
    SplitterDrag up = {SplitterUpAndDown, {10, 20}};
    EXPECT_EQ(TrackSplitter(up, {13, 27}), 7);
    EXPECT_EQ(TrackSplitter(up, {99, 27}), 0);
    EXPECT_EQ(TrackSplitter(up, {99, -3}), -30);
    SplitterDrag left = {SplitterLeftAndRight, {10, 20}};
    EXPECT_EQ(TrackSplitter(left, {13, 27}), 3);
    EXPECT_EQ(TrackSplitter(left, {13, 99}), 0);
    EXPECT_EQ(TrackSplitter(left, {-1, 99}), -14);
}

TEST(Splitter, RemembersTheMouseOnBothAxes) {
    SplitterDrag drag = {SplitterUpAndDown, {10, 20}};
    TrackSplitter(drag, {-4, 20});
    EXPECT_EQ(drag.mouse, (LayoutPoint{-4, 20}));
}

TEST(Splitter, MovesAlongItsAxisOnly) {
    EXPECT_EQ(MovedSplitter(SplitterUpAndDown, {3, 4}, -9), (LayoutPoint{3, -5}));
    EXPECT_EQ(MovedSplitter(SplitterLeftAndRight, {3, 4}, 5), (LayoutPoint{8, 4}));
}

TEST(Splitter, ARefusedMoveIsNotCaughtUp) {
    for (const SplitterOrientation orientation : {SplitterUpAndDown, SplitterLeftAndRight}) {
        const auto at = [orientation](int32_t along) {
            return orientation == SplitterUpAndDown ? LayoutPoint{0, along} : LayoutPoint{along, 0};
        };
        DraggedBar bar = {{orientation, at(52)}, at(50), 20, 80};
        bar.MouseTo(at(72));
        EXPECT_EQ(bar.bar, at(70));
        bar.MouseTo(at(92));  // 90 is too far
        EXPECT_EQ(bar.bar, at(70));
        bar.MouseTo(at(95));  // and 73 is not, from where the bar is
        EXPECT_EQ(bar.bar, at(73));
        bar.MouseTo(at(75));
        EXPECT_EQ(bar.bar, at(53));  // 22 apart now instead of 2
    }
}

}  // namespace
}  // namespace tallymere
