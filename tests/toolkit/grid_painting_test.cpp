// How a grid looks, pixel by pixel.
#include "toolkit/grid_painting.h"

#include <algorithm>
#include <chrono>
#include <set>

#include "shell_windows/picture.h"
#include "toolkit/grid_page.h"

namespace tallymere {
namespace {

using testing_support::Picture;

class GridPainting : public testing_support::GridTest {
protected:
    // Colours that no system has.
    static constexpr COLORREF Line = RGB(10, 20, 30);
    static constexpr COLORREF Marked = RGB(40, 50, 60);
    static constexpr COLORREF MarkedText = RGB(250, 10, 10);
    static constexpr COLORREF Protected = RGB(90, 100, 110);
    static constexpr COLORREF Grey = RGB(128, 128, 128);

    GridPainting() {
        Ask(GridSetGridLineColour, Line);
        Ask(GridSetHighlightBackground, Marked);
        Ask(GridSetHighlightText, MarkedText);
        Ask(GridSetProtectedBackground, Protected);
        Ask(GridSetExtendLastColumn, 0);
    }

    void Paint(Picture& picture) {
        Ask(WM_PRINTCLIENT, reinterpret_cast<intptr_t>(picture.dc), PRF_CLIENT);
    }
    COLORREF At(int32_t x, int32_t y) {
        Picture picture(400, 300);
        Paint(picture);
        return GetPixel(picture.dc, x, y);
    }
    // The empty right part of a cell.
    COLORREF Background(int32_t column, int32_t row) { return At(column * 50 + 45, row * 21 + 10); }
    // Columns of pixels inside a rectangle that have another colour than its first one.
    std::set<int32_t> Ink(const RECT& rect) {
        Picture picture(400, 300);
        Paint(picture);
        const COLORREF paper = GetPixel(picture.dc, rect.left, rect.top);
        std::set<int32_t> ink;
        for (int32_t x = rect.left; x < rect.right; x++) {
            for (int32_t y = rect.top; y < rect.bottom; y++) {
                if (GetPixel(picture.dc, x, y) != paper) {
                    ink.insert(x);
                }
            }
        }
        return ink;
    }
    std::set<int32_t> InkOfCell(int32_t column, int32_t row) {
        return Ink({column * 50 + 2, row * 21 + 2, column * 50 + 48, row * 21 + 19});
    }
};

TEST_F(GridPainting, CellsHaveALineAndABackground) {
    EXPECT_EQ(At(50, 30), Line);
    EXPECT_EQ(At(99, 30), Line);
    EXPECT_EQ(At(70, 21), Line);
    EXPECT_EQ(At(70, 41), Line);
    EXPECT_EQ(At(51, 22), GetSysColor(COLOR_WINDOW));
    EXPECT_EQ(Background(1, 1), GetSysColor(COLOR_WINDOW));
    AskCell(GridSetCellProtected, 1, 1, 1);
    EXPECT_EQ(Background(2, 2), Protected);
    EXPECT_EQ(Background(2, 1), GetSysColor(COLOR_WINDOW));
}

TEST_F(GridPainting, TheCursorIsMarkedWhileTheGridHasTheFocus) {
    Ask(GridSetCursor, 1, 1);
    EXPECT_EQ(Background(2, 2), GetSysColor(COLOR_WINDOW));
    SetFocus(grid);
    EXPECT_EQ(Background(2, 2), Marked);
    EXPECT_EQ(Background(1, 2), GetSysColor(COLOR_WINDOW));
    EXPECT_EQ(Background(2, 1), GetSysColor(COLOR_WINDOW));
    AskCell(GridSetCellProtected, 1, 1, 1);
    EXPECT_EQ(Background(2, 2), Marked);
    SetFocus(before);
    EXPECT_EQ(Background(2, 2), Protected);
}

TEST_F(GridPainting, ASelectedRowIsMarkedWhole) {
    Ask(GridSetCursor, 1, 1);
    Ask(GridSetRowSelect, 3);
    for (int32_t column = 1; column <= 3; column++) {
        EXPECT_EQ(Background(column, 2), Marked);
        EXPECT_EQ(Background(column, 1), GetSysColor(COLOR_WINDOW));
    }
}

TEST_F(GridPainting, TextsStandLeftOrRight) {
    Write(0, 0, u"1");
    const std::set<int32_t> left = InkOfCell(1, 1);
    ASSERT_FALSE(left.empty());
    EXPECT_GE(*left.begin(), 55);
    EXPECT_LT(*left.rbegin(), 70);
    AskCell(GridSetCellAlignment, 3, 0, 0);
    const std::set<int32_t> right = InkOfCell(1, 1);
    EXPECT_GT(*right.begin(), 80);
    EXPECT_LT(*right.rbegin(), 98);
    AskCell(GridSetCellAlignment, 2, 0, 0);
    EXPECT_EQ(InkOfCell(1, 1), left);
}

TEST_F(GridPainting, AMarkedTextHasItsColour) {
    Write(1, 1, u"MMM");
    Ask(GridSetCursor, 1, 1);
    SetFocus(grid);
    Picture picture(400, 300);
    Paint(picture);
    std::set<COLORREF> colours;
    for (int32_t x = 102; x < 148; x++) {
        for (int32_t y = 44; y < 61; y++) {
            colours.insert(GetPixel(picture.dc, x, y));
        }
    }
    EXPECT_TRUE(colours.contains(MarkedText));
}

TEST_F(GridPainting, ALongTextEndsInAnEllipsisOrIsWrapped) {
    Ask(GridSetRowHeight, 60);
    Write(0, 0, u"888 888 888 888");
    const RECT lower = {52, 55, 98, 79};
    const RECT upper = {52, 23, 98, 35};
    EXPECT_TRUE(Ink(upper).empty());
    Ask(GridSetSingleLine, 0);
    EXPECT_FALSE(Ink(upper).empty());
    EXPECT_FALSE(Ink(lower).empty());
    // An ampersand is a character like any other.
    Ask(GridSetSingleLine, 1);
    Ask(GridSetRowHeight, 21);
    Write(0, 0, u"8&8");
    const auto plain = InkOfCell(1, 1);
    Write(0, 0, u"88");
    EXPECT_NE(InkOfCell(1, 1), plain);
}

TEST_F(GridPainting, HeadersShowLettersAndNumbersOrTheirTexts) {
    const auto column = Ink({104, 3, 146, 18});
    const auto row = Ink({4, 45, 46, 60});
    EXPECT_FALSE(column.empty());
    EXPECT_FALSE(row.empty());
    EXPECT_TRUE(Ink({4, 3, 46, 18}).empty());
    Ask(GridSetShowColumnLetters, 0);
    EXPECT_NE(Ink({104, 3, 146, 18}), column);
    EXPECT_EQ(Ink({4, 45, 46, 60}), row);
    Ask(GridSetShowRowNumbers, 0);
    EXPECT_NE(Ink({4, 45, 46, 60}), row);
    AskText(GridSetColumnHeader, 1, u"B");
    AskText(GridSetRowHeader, 1, u"2");
    EXPECT_EQ(Ink({104, 3, 146, 18}), column);
    EXPECT_EQ(Ink({4, 45, 46, 60}), row);
}

TEST_F(GridPainting, TheRestIsGrey) {
    EXPECT_EQ(At(200, 30), Grey);
    EXPECT_EQ(At(399, 0), Grey);
    EXPECT_EQ(At(399, 299), Grey);
    EXPECT_EQ(At(70, 105), Grey);
    EXPECT_EQ(At(0, 105), Grey);
    EXPECT_NE(At(199, 30), Grey);
    EXPECT_NE(At(70, 104), Grey);
    Ask(GridSetExtendLastColumn, 1);
    EXPECT_EQ(At(390, 30), GetSysColor(COLOR_WINDOW));
    EXPECT_EQ(At(399, 30), Line);
    EXPECT_EQ(At(390, 105), Grey);
}

TEST_F(GridPainting, HiddenColumnsAreNotDrawn) {
    Ask(GridHideColumn, 1, 1);
    EXPECT_EQ(At(149, 30), Line);
    EXPECT_EQ(At(150, 30), Grey);
    Ask(GridSetColumnWidth, 0, 0);
    EXPECT_EQ(At(100, 30), Grey);
}

TEST_F(GridPainting, TheTitleStandsAboveTheGrid) {
    SetWindowTextW(grid, L"Title");
    EXPECT_EQ(At(70, 21), Line);
    Ask(GridSetTitleHeight, 30);
    EXPECT_EQ(At(70, 51), Line);
    const auto ink = Ink({20, 4, 380, 26});
    ASSERT_FALSE(ink.empty());
    EXPECT_NEAR((*ink.begin() + *ink.rbegin()) / 2, 200, 2);
}

TEST_F(GridPainting, AScrolledGridBeginsWithItsFirstRowAndColumn) {
    Write(2, 3, u"MM");
    const auto unscrolled = InkOfCell(3, 4);
    State().topRow = 3;
    State().leftColumn = 2;
    const auto scrolled = InkOfCell(2, 2);
    ASSERT_FALSE(scrolled.empty());
    EXPECT_EQ(*scrolled.begin() + 50, *unscrolled.begin());
}

TEST_F(GridPainting, HighContrastHasTheColoursOfTheSystemAlone) {
    const GridColours colours = {1, 2, 3, 4, 5};
    const GridPalette own = GridPaletteOf(colours, false);
    EXPECT_EQ(own.protectedBackground, 1u);
    EXPECT_EQ(own.highlightBackground, 2u);
    EXPECT_EQ(own.gridLine, 3u);
    EXPECT_EQ(own.highlightText, 4u);
    EXPECT_EQ(own.normalBackground, 5u);
    EXPECT_EQ(own.rest, Grey);
    EXPECT_EQ(own.text, GetSysColor(COLOR_WINDOWTEXT));
    EXPECT_EQ(own.headerText, GetSysColor(COLOR_BTNTEXT));
    for (const GridPalette& palette :
         {GridPaletteOf(colours, true), GridPaletteOf(GridColours{}, false)}) {
        EXPECT_EQ(palette.protectedBackground, GetSysColor(COLOR_WINDOW));
        EXPECT_EQ(palette.highlightBackground, GetSysColor(COLOR_HIGHLIGHT));
        EXPECT_EQ(palette.gridLine, GetSysColor(COLOR_BTNFACE));
        EXPECT_EQ(palette.highlightText, GetSysColor(COLOR_HIGHLIGHTTEXT));
        EXPECT_EQ(palette.normalBackground, GetSysColor(COLOR_WINDOW));
    }
    EXPECT_EQ(GridPaletteOf(colours, true).rest, GetSysColor(COLOR_APPWORKSPACE));
}

TEST_F(GridPainting, NothingIsErasedBeforeThePainting) {
    Picture picture(400, 300);
    EXPECT_EQ(Ask(WM_ERASEBKGND, reinterpret_cast<intptr_t>(picture.dc)), TRUE);
    EXPECT_FALSE(picture.HasInk());
}

// Takes all handles for drawing that a process can have.
struct NoHandlesLeft {
    NoHandlesLeft() {
        while (const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3))) {
            brushes.push_back(brush);
            if (brushes.size() > 70'000) {
                break;
            }
        }
        // One is left, for the device context in memory. So the bitmap is what cannot be made.
        if (!brushes.empty()) {
            DeleteObject(brushes.back());
            brushes.pop_back();
        }
    }
    ~NoHandlesLeft() {
        for (const HBRUSH brush : brushes) {
            DeleteObject(brush);
        }
    }
    std::vector<HBRUSH> brushes;
};

// A pixel of the window itself.
COLORREF PixelOf(HWND window, int32_t x, int32_t y) {
    const HDC dc = GetDC(window);
    const COLORREF colour = GetPixel(dc, x, y);
    ReleaseDC(window, dc);
    return colour;
}

TEST_F(GridPainting, APaintWithoutBitmapIsDropped) {
    constexpr COLORREF Mark = RGB(255, 0, 0);
    UpdateWindow(grid);
    EXPECT_EQ(PixelOf(grid, 390, 200), Grey);
    const HDC dc = GetDC(grid);
    SetPixel(dc, 390, 200, Mark);
    ReleaseDC(grid, dc);
    Write(0, 0, u"1");
    {
        const NoHandlesLeft handles;
        EXPECT_GT(handles.brushes.size(), 1000u);
        EXPECT_TRUE(GetUpdateRect(grid, nullptr, FALSE));
        UpdateWindow(grid);
        // Not asked for again: a grid that cannot be painted does not keep the program busy.
        EXPECT_FALSE(GetUpdateRect(grid, nullptr, FALSE));
    }
    EXPECT_EQ(PixelOf(grid, 390, 200), Mark);
    Ask(GridRefresh);
    EXPECT_EQ(PixelOf(grid, 390, 200), Grey);
    EXPECT_EQ(Read(0, 0), u"1");
}

TEST_F(GridPainting, AHeaderShowsAllItsLinesInTheMiddle) {
    Ask(GridSetShowColumnLetters, 0);
    const auto inkRows = [this] {
        const auto height = static_cast<int32_t>(Ask(GridHeaderHeight));
        std::set<int32_t> rows;
        for (int32_t y = 2; y < height - 2; y++) {
            if (!Ink({102, y, 148, y + 1}).empty()) {
                rows.insert(y);
            }
        }
        return rows;
    };
    AskText(GridSetColumnHeader, 1, u"8\n8\r\n8");
    const auto height = static_cast<int32_t>(Ask(GridHeaderHeight));
    ASSERT_GT(height, 45);
    const std::set<int32_t> three = inkRows();
    ASSERT_FALSE(three.empty());
    EXPECT_NEAR(*three.begin() + *three.rbegin(), height, 8);
    AskText(GridSetColumnHeader, 1, u"8");
    const std::set<int32_t> one = inkRows();
    EXPECT_EQ(three.size(), 3 * one.size());
    Ask(GridSetHeaderHeight, 10);
    AskText(GridSetHeaderFont, 0, nullptr);
    EXPECT_FALSE(inkRows().empty());
}

TEST_F(GridPainting, AnOpenEditorIsNotPaintedOverNorAgain) {
    AskCell(GridSetCursorEdit, 1, 1, 1);
    for (const int32_t isBuffered : {1, 0}) {
        Ask(GridSetDoubleBuffer, isBuffered);
        UpdateWindow(grid);
        UpdateWindow(Editor());
        const HDC dc = GetDC(Editor());
        SetPixel(dc, 30, 10, MarkedText);
        ReleaseDC(Editor(), dc);
        Write(0, 0, u"1");
        EXPECT_FALSE(GetUpdateRect(Editor(), nullptr, FALSE));
        EXPECT_TRUE(GetUpdateRect(grid, nullptr, FALSE));
        UpdateWindow(grid);
        EXPECT_EQ(PixelOf(Editor(), 30, 10), MarkedText);
        EXPECT_EQ(PixelOf(grid, 100, 50), Line);
    }
}

TEST_F(GridPainting, WithAndWithoutDoubleBufferItLooksTheSame) {
    Write(0, 0, u"1");
    SetFocus(grid);
    constexpr COLORREF Unpainted = RGB(200, 0, 200);
    const auto look = [this] {
        const HDC dc = GetDC(grid);
        const RECT all = {0, 0, 400, 300};
        SetDCBrushColor(dc, Unpainted);
        FillRect(dc, &all, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
        ReleaseDC(grid, dc);
        Ask(GridRefresh);
        std::vector<COLORREF> pixels;
        for (int32_t y = 0; y < 60; y++) {
            for (int32_t x = 0; x < 120; x++) {
                pixels.push_back(PixelOf(grid, x, y));
            }
        }
        return pixels;
    };
    const std::vector<COLORREF> buffered = look();
    EXPECT_GT(std::count(buffered.begin(), buffered.end(), Marked), 500);
    EXPECT_EQ(std::count(buffered.begin(), buffered.end(), Unpainted), 0);
    Ask(GridSetDoubleBuffer, 0);
    EXPECT_EQ(look(), buffered);
}

// Prints how long it takes, for whoever changes the painting.
TEST_F(GridPainting, PaintsTheLargestGridOfThePages) {
    MakeGrid(26, 25);
    SetControlSize(grid, 1400, 560);
    for (int32_t column = 0; column < 26; column++) {
        for (int32_t row = 0; row < 25; row++) {
            Write(column, row, u"-12345.678");
        }
    }
    SetFocus(grid);
    Picture picture(1400, 560);
    constexpr int Paints = 50;
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < Paints; i++) {
        Paint(picture);
    }
    const std::chrono::duration<double, std::milli> taken =
        std::chrono::steady_clock::now() - start;
    printf("25 x 26 cells are painted in %.2f ms\n", taken.count() / Paints);
    EXPECT_EQ(GetPixel(picture.dc, 1399, 559), Grey);
    EXPECT_TRUE(picture.HasInk());
}

}  // namespace
}  // namespace tallymere
