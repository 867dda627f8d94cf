// What the grid decides: its table beside a plain one, its cursor beside a plain walk, and places
// on the screen that lead back to their cells.
//
// Input: steps, each a letter with what it needs.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "fuzz/harness_list.h"
#include "layout/grid_cell_layout.h"
#include "layout/grid_cursor.h"
#include "layout/grid_geometry.h"
#include "layout/grid_keys.h"
#include "layout/grid_mouse.h"
#include "layout/grid_scrolling.h"

namespace tallymere::fuzz {

namespace {

constexpr int MostSteps = 200;
constexpr size_t MostColumns = 12;
constexpr size_t MostRows = 30;

constexpr GridMove Moves[] = {GridMove::RowUp,       GridMove::RowDown,    GridMove::PageUp,
                              GridMove::PageDown,    GridMove::ColumnLeft, GridMove::ColumnRight,
                              GridMove::FirstColumn, GridMove::LastColumn};
constexpr GridScrollStep ScrollSteps[] = {GridScrollStep::LineBack, GridScrollStep::LineOn,
                                          GridScrollStep::PageBack, GridScrollStep::PageOn,
                                          GridScrollStep::Start,    GridScrollStep::End,
                                          GridScrollStep::Position};

struct PlainColumn {
    int32_t width;
    bool isHidden;
    std::vector<std::u16string> cells;

    int32_t ShownWidth() const { return isHidden ? 0 : width; }
};

// A grid and what must be in it.
class CheckedGrid {
public:
    CheckedGrid() { Reset(50); }
    ~CheckedGrid() { FreeGridTable(state_.table); }
    CheckedGrid(const CheckedGrid&) = delete;
    CheckedGrid& operator=(const CheckedGrid&) = delete;

    void TakeStep(FuzzInput& input) {
        switch (input.Choice(14)) {
            case 0:
                AddColumn(BeforeZero(input.Line(20)), AnyWidth(input));
                break;
            case 1:
                InsertRow(input);
                break;
            case 2:
                DeleteRow(input);
                break;
            case 3:
                Write(input);
                break;
            case 4:
                ShapeColumn(input);
                break;
            case 5:
                ShapeWindow(input);
                break;
            case 6:
                Move(input.OneOf(Moves));
                break;
            case 7:
                ScrollRows(input);
                break;
            case 8:
                ScrollColumns(input);
                break;
            case 9:
                KeepCursorInView();
                break;
            case 10:
                Click(input);
                break;
            case 11:
                PressKey(input);
                break;
            case 12:
                Fit(input);
                break;
            default:
                Reset(AnyWidth(input));
        }
        ExpectSound();
    }

private:
    static int32_t AnyWidth(FuzzInput& input) { return static_cast<int32_t>(input.Number(0, 200)); }
    int32_t Columns() const { return static_cast<int32_t>(plain_.size()) - 1; }
    int32_t Rows() const { return static_cast<int32_t>(plain_[0].cells.size()) - 1; }

    void Reset(int32_t width) {
        EXPECT_EQ(ResetGridTable(state_.table, width), GridTableOutcome::Done);
        plain_ = {{width, false, {u""}}};
        ClampGridState(state_);
    }

    void AddColumn(const std::u16string& header, int32_t width) {
        if (plain_.size() > MostColumns) {
            return;
        }
        EXPECT_EQ(AddGridTableColumn(state_.table, GridColumnText, header, width),
                  GridTableOutcome::Done);
        std::vector<std::u16string> cells(plain_[0].cells.size());
        cells[0] = header;
        plain_.push_back({width, false, cells});
    }

    void InsertRow(FuzzInput& input) {
        if (plain_[0].cells.size() > MostRows) {
            return;
        }
        const auto position = static_cast<int32_t>(input.Number(1, Rows() + 1));
        const std::u16string header = BeforeZero(input.Line(20));
        EXPECT_EQ(InsertGridTableRow(state_.table, position, header), GridTableOutcome::Done);
        for (PlainColumn& column : plain_) {
            column.cells.insert(column.cells.begin() + position,
                                &column == plain_.data() ? header : u"");
        }
    }

    void DeleteRow(FuzzInput& input) {
        if (Rows() == 0) {
            return;
        }
        const auto row = static_cast<int32_t>(input.Number(1, Rows()));
        DeleteGridTableRow(state_.table, row);
        for (PlainColumn& column : plain_) {
            column.cells.erase(column.cells.begin() + row);
        }
        ClampGridState(state_);
    }

    void Write(FuzzInput& input) {
        const auto column = static_cast<int32_t>(input.Number(0, Columns()));
        const auto row = static_cast<int32_t>(input.Number(0, Rows()));
        const std::u16string text = BeforeZero(input.Line(50));
        StoreGridText(FindGridCell(state_.table, column, row)->text, text);
        plain_[static_cast<size_t>(column)].cells[static_cast<size_t>(row)] = text;
    }

    void ShapeColumn(FuzzInput& input) {
        const auto index = static_cast<int32_t>(input.Number(0, Columns()));
        PlainColumn& plain = plain_[static_cast<size_t>(index)];
        GridColumn* const column = FindGridColumn(state_.table, index);
        plain.width = column->width = AnyWidth(input);
        plain.isHidden = input.Flag();
        column->isHidden = plain.isHidden ? 1 : 0;
    }

    void ShapeWindow(FuzzInput& input) {
        state_.clientWidth = static_cast<int32_t>(input.Number(0, 1'000));
        state_.clientHeight = static_cast<int32_t>(input.Number(0, 1'000));
        state_.rowHeight = static_cast<int32_t>(input.Number(1, 100));
        state_.headerHeight = static_cast<int32_t>(input.Number(0, 100));
        state_.titleHeight = static_cast<int32_t>(input.Number(0, 100));
        state_.extendsLastColumn = input.Flag();
        state_.allowsResize = input.Flag();
        state_.isEditable = input.Flag();
        state_.rowSelectMode = input.Flag() ? GridRowSelectOnClick : GridRowSelectOff;
        state_.isRowSelectActive = state_.rowSelectMode != GridRowSelectOff && input.Flag();
        ClampGridView(state_);
    }

    // Shown columns in a direction, the nearest first.
    std::vector<int32_t> ShownColumns(int32_t from, int32_t step) const {
        std::vector<int32_t> shown;
        for (int32_t i = from + step; i >= 1 && i <= Columns(); i += step) {
            if (plain_[static_cast<size_t>(i)].ShownWidth() > 0) {
                shown.push_back(i);
            }
        }
        return shown;
    }

    GridPlace PlaceAfter(GridMove move) const {
        GridPlace place = {state_.cursorColumn, state_.cursorRow};
        const int32_t room = state_.clientHeight - state_.headerHeight - state_.titleHeight;
        const int32_t page = std::max(std::max(room, 0) / state_.rowHeight, 1);
        const auto goTo = [&place](const std::vector<int32_t>& columns) {
            place.column = columns.empty() ? place.column : columns.front();
        };
        switch (move) {
            case GridMove::RowUp:
                place.row -= 1;
                break;
            case GridMove::RowDown:
                place.row += 1;
                break;
            case GridMove::PageUp:
                place.row -= page;
                break;
            case GridMove::PageDown:
                place.row += page;
                break;
            case GridMove::ColumnLeft:
                goTo(ShownColumns(place.column, -1));
                break;
            case GridMove::ColumnRight:
                goTo(ShownColumns(place.column, 1));
                break;
            case GridMove::FirstColumn:
                goTo(ShownColumns(0, 1));
                break;
            case GridMove::LastColumn:
                goTo(ShownColumns(Columns() + 1, -1));
                break;
        }
        place.row = std::max(std::min(place.row, Rows()), 1);
        return place;
    }

    void Move(GridMove move) {
        const GridPlace place = MovedGridCursor(state_, move);
        EXPECT_TRUE(place == PlaceAfter(move)) << place.column << " " << place.row;
        state_.cursorColumn = place.column;
        state_.cursorRow = place.row;
    }

    void ScrollRows(FuzzInput& input) {
        const GridScrollStep step = input.OneOf(ScrollSteps);
        const int32_t before = state_.topRow;
        const bool moved = ScrollGridRows(state_, step, static_cast<int32_t>(input.Number(-5, 60)));
        EXPECT_EQ(moved, state_.topRow != before);
        EXPECT_LE(state_.topRow, VerticalGridScroll(state_).last);
    }

    void ScrollColumns(FuzzInput& input) {
        const GridScrollStep step = input.OneOf(ScrollSteps);
        const int32_t before = state_.leftColumn;
        const bool moved =
            ScrollGridColumns(state_, step, static_cast<int32_t>(input.Number(-5, 60)));
        EXPECT_EQ(moved, state_.leftColumn != before);
        const GridScroll scroll = HorizontalGridScroll(state_);
        EXPECT_GE(scroll.position, 1);
        EXPECT_LE(scroll.position, scroll.last);
    }

    void KeepCursorInView() {
        KeepGridCursorInView(state_);
        const int64_t bottom = GridRowTop(state_, state_.cursorRow) + state_.rowHeight;
        const bool hasRoom =
            state_.clientHeight - state_.headerHeight - state_.titleHeight >= state_.rowHeight;
        EXPECT_LE(state_.topRow, state_.cursorRow);
        EXPECT_TRUE(!hasRoom || bottom <= state_.clientHeight) << bottom;
        const int64_t right = GridColumnLeft(state_, state_.cursorColumn) +
                              GridColumnWidth(state_.table, state_.cursorColumn);
        EXPECT_LE(state_.leftColumn, state_.cursorColumn);
        EXPECT_TRUE(right <= state_.clientWidth || state_.leftColumn == state_.cursorColumn);
    }

    void Click(FuzzInput& input) {
        const LayoutPoint mouse = {static_cast<int32_t>(input.Number(-20, 1'100)),
                                   static_cast<int32_t>(input.Number(-20, 1'100))};
        const GridClick click = ClickInGrid(state_, mouse);
        const int32_t resized = ResizedGridColumn(state_, mouse);
        EXPECT_GE(resized, -1);
        EXPECT_LE(resized, Columns());
        EXPECT_TRUE(resized == -1 || state_.allowsResize);
        EXPECT_TRUE(!click.selectsRow || state_.rowSelectMode != GridRowSelectOff);
        if (!click.movesCursor) {
            return;
        }
        const LayoutRect cell = GridCellPlace(state_, click.place.column, click.place.row);
        EXPECT_GE(mouse.y, cell.y);
        EXPECT_LT(mouse.y, cell.y + cell.height);
        if (!click.selectsRow) {
            EXPECT_GE(mouse.x, cell.x);
            EXPECT_TRUE(mouse.x < cell.x + cell.width || mouse.x >= state_.clientWidth);
        }
        state_.isRowSelectActive = click.selectsRow;
        state_.cursorColumn = click.place.column;
        state_.cursorRow = click.place.row;
    }

    void PressKey(FuzzInput& input) {
        const uint32_t key = input.Byte();
        const uint8_t held = input.Byte();
        const GridKeyStroke stroke = {.key = key,
                                      .shift = (held & 1) != 0,
                                      .control = (held & 2) != 0,
                                      .alt = (held & 4) != 0,
                                      .isAltBitSet = (held & 8) != 0,
                                      .isFromKeyboard = (held & 16) != 0};
        const GridKeyEffect effect = EffectOfGridKey(state_, stroke);
        if (effect.action == GridKeyAction::Type || effect.action == GridKeyAction::EditText) {
            EXPECT_TRUE(CanEditGridCursor(state_)) << "no editor opens on a cell without one";
        }
        if (effect.endsRowSelect) {
            EXPECT_TRUE(state_.isRowSelectActive);
            state_.isRowSelectActive = false;
        }
        if (effect.action == GridKeyAction::Move) {
            Move(effect.move);
        }
    }

    void Fit(FuzzInput& input) {
        const auto column = static_cast<int32_t>(input.Number(0, Columns()));
        const auto row = static_cast<int32_t>(input.Number(0, Rows()));
        const GridTextExtent extent = {static_cast<int32_t>(input.Number(0, 300)),
                                       static_cast<int32_t>(input.Number(0, 40)),
                                       static_cast<int32_t>(input.Number(1, 3))};
        PlainColumn& plain = plain_[static_cast<size_t>(column)];
        const int32_t height = row == 0 ? state_.headerHeight : state_.rowHeight;
        const bool grows = FitGridCell(state_, column, row, extent);
        const int32_t width = FindGridColumn(state_.table, column)->width;
        const int32_t heightAfter = row == 0 ? state_.headerHeight : state_.rowHeight;
        EXPECT_GE(width, std::max(plain.width, extent.width));
        EXPECT_GE(heightAfter, std::max(height, extent.lineHeight * extent.lines));
        EXPECT_EQ(grows, width != plain.width || heightAfter != height);
        EXPECT_FALSE(FitGridCell(state_, column, row, extent)) << "it fits by now";
        plain.width = width;
    }

    void ExpectSound() const {
        EXPECT_TRUE(GridStateIsConsistent(state_));
        ASSERT_EQ(GridDataColumns(state_.table), Columns());
        ASSERT_EQ(GridDataRows(state_.table), Rows());
        for (int32_t column = 0; column <= Columns(); column++) {
            const PlainColumn& plain = plain_[static_cast<size_t>(column)];
            EXPECT_EQ(GridColumnWidth(state_.table, column), plain.ShownWidth());
            for (int32_t row = 0; row <= Rows(); row++) {
                EXPECT_TRUE(GridCellText(FindGridCell(state_.table, column, row)) ==
                            plain.cells[static_cast<size_t>(row)]);
            }
        }
        ExpectPlacesLeadBack();
    }

    void ExpectPlacesLeadBack() const {
        const GridRange rows = VisibleGridRows(state_);
        for (int32_t row = rows.first; row <= rows.last; row++) {
            const int64_t top = GridRowTop(state_, row);
            EXPECT_LT(top, state_.clientHeight);
            EXPECT_EQ(RowAtY(state_, static_cast<int32_t>(top)), row);
            EXPECT_EQ(RowAtY(state_, static_cast<int32_t>(top) + state_.rowHeight - 1), row);
        }
        const GridRange columns = VisibleGridColumns(state_);
        for (int32_t column = columns.first; column <= columns.last; column++) {
            const int64_t left = GridColumnLeft(state_, column);
            EXPECT_LT(left, state_.clientWidth);
            if (GridColumnWidth(state_.table, column) > 0) {
                EXPECT_EQ(ColumnAtX(state_, static_cast<int32_t>(left)), column);
            }
        }
    }

    GridState state_;
    std::vector<PlainColumn> plain_;
};

}  // namespace

void FuzzGrid(FuzzInput& input) {
    CheckedGrid grid;
    for (int left = MostSteps; left > 0 && !input.IsAtEnd(); left--) {
        grid.TakeStep(input);
    }
}

}  // namespace tallymere::fuzz
