#include "toolkit/grid_painting.h"

#include <algorithm>

#include "layout/grid_cell_layout.h"
#include "layout/grid_geometry.h"
#include "toolkit/environment.h"
#include "toolkit/field_state.h"
#include "toolkit/grid_scroll_bars.h"
#include "toolkit/wide_text.h"

namespace tallymere {

namespace {

bool IsHighContrast() {
    HIGHCONTRASTW contrast = {};
    contrast.cbSize = sizeof contrast;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

// One painting of a grid.
struct GridPainter {
    const GridRecord& grid;
    HDC dc;
    RECT dirty;
    GridPalette palette;
};

bool IsDirty(const GridPainter& painter, const LayoutRect& place) {
    const RECT rect = RectOf(place);
    RECT common;
    return IntersectRect(&common, &rect, &painter.dirty) != FALSE;
}

void UseFont(const GridPainter& painter, HFONT font) {
    SelectObject(painter.dc, font != nullptr ? font : GetStockObject(SYSTEM_FONT));
}

// The height of a text with line feeds in the font that is selected.
LONG HeightOf(const GridPainter& painter, std::u16string_view text) {
    TEXTMETRICW metrics = {};
    GetTextMetricsW(painter.dc, &metrics);
    return metrics.tmHeight * CountGridLines(text);
}

void WriteText(const GridPainter& painter, std::u16string_view text, const LayoutRect& place,
               UINT format) {
    if (text.empty()) {
        return;
    }
    RECT rect = RectOf(place);
    // The text is not changed without DT_MODIFYSTRING.
    DrawTextExW(painter.dc, const_cast<wchar_t*>(ToWide(text.data())),
                static_cast<int>(text.size()), &rect, format | DT_NOPREFIX, nullptr);
}

// A raised face with text in its middle; one of several lines, without DT_SINGLELINE, shows its
// first lines where there is no room for all.
void PaintFace(const GridPainter& painter, const LayoutRect& place, std::u16string_view text,
               HFONT font, UINT format) {
    if (place.width == 0 || place.height == 0 || !IsDirty(painter, place)) {
        return;
    }
    RECT rect = RectOf(place);
    DrawEdge(painter.dc, &rect, EDGE_ETCHED, BF_RECT | BF_MIDDLE | BF_ADJUST);
    UseFont(painter, font);
    SetTextColor(painter.dc, painter.palette.headerText);
    if ((format & DT_SINGLELINE) == 0) {
        rect.top += std::max<LONG>((rect.bottom - rect.top - HeightOf(painter, text)) / 2, 0);
    }
    WriteText(painter, text, {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top},
              DT_CENTER | format);
}

void PaintTitle(const GridPainter& painter) {
    const GridRecord& grid = painter.grid;
    if (grid.title != nullptr || grid.state.titleHeight > 0) {
        PaintFace(painter, {0, 0, grid.state.clientWidth, grid.state.titleHeight},
                  grid.title != nullptr ? grid.title : std::u16string_view(), grid.titleFont,
                  DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS);
    }
}

void PaintHeader(const GridPainter& painter, int32_t column, int32_t row, const LayoutRect& place) {
    char16_t buffer[16];
    const std::u16string_view text = ShownGridHeader(painter.grid, column, row, buffer);
    const bool hasLines = CountGridLines(text) > 1;
    PaintFace(painter, place, text, painter.grid.headerFont,
              hasLines ? 0 : DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS);
}

bool IsHighlighted(const GridRecord& grid, int32_t column, int32_t row) {
    const GridState& state = grid.state;
    if (row != state.cursorRow) {
        return false;
    }
    return state.isRowSelectActive || (grid.hasFocus && column == state.cursorColumn);
}

void PaintCell(const GridPainter& painter, int32_t column, int32_t row, const LayoutRect& place) {
    const GridRecord& grid = painter.grid;
    const GridPalette& palette = painter.palette;
    const GridCell* const cell = FindGridCell(grid.state.table, column, row);
    const bool isHighlighted = IsHighlighted(grid, column, row);
    COLORREF background = palette.normalBackground;
    if (isHighlighted) {
        background = palette.highlightBackground;
    } else if (cell->isProtected != 0) {
        background = palette.protectedBackground;
    }
    SetDCPenColor(painter.dc, palette.gridLine);
    SetDCBrushColor(painter.dc, background);
    Rectangle(painter.dc, place.x, place.y, place.x + place.width, place.y + place.height);
    SetTextColor(painter.dc, isHighlighted ? palette.highlightText : palette.text);
    const UINT lines =
        grid.hasSingleLines ? DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS : DT_WORDBREAK;
    const UINT side = cell->alignment == GridAlignRight ? DT_RIGHT : DT_LEFT;
    WriteText(painter, GridCellText(cell), GridTextPlace(place, screenDpi), lines | side);
}

// Paints a column and returns where it ends.
int32_t PaintColumn(const GridPainter& painter, int32_t column, int32_t left, GridRange rows) {
    const GridState& state = painter.grid.state;
    const auto width = static_cast<int32_t>(ShownGridColumnWidth(state, column, left));
    if (width == 0 || !IsDirty(painter, {left, 0, width, state.clientHeight})) {
        return left + width;
    }
    PaintHeader(painter, column, 0, {left, state.titleHeight, width, state.headerHeight});
    UseFont(painter, painter.grid.cellFont);
    for (int32_t row = rows.first; row <= rows.last; row++) {
        const LayoutRect place = {left, static_cast<int32_t>(GridRowTop(state, row)), width,
                                  state.rowHeight};
        if (column == 0) {
            PaintHeader(painter, column, row, place);
        } else if (IsDirty(painter, place)) {
            PaintCell(painter, column, row, place);
        }
    }
    return left + width;
}

// Paints beside the last column and below the last row.
void PaintRest(const GridPainter& painter, int32_t right, int32_t bottom) {
    const GridState& state = painter.grid.state;
    SetDCBrushColor(painter.dc, painter.palette.rest);
    SelectObject(painter.dc, GetStockObject(NULL_PEN));
    // Without a pen a rectangle is a pixel smaller.
    Rectangle(painter.dc, right, state.titleHeight, state.clientWidth + 1, state.clientHeight + 1);
    Rectangle(painter.dc, 0, bottom, state.clientWidth + 1, state.clientHeight + 1);
}

void PaintInMemory(GridRecord& grid, HDC window, const RECT& dirty) {
    const int32_t width = dirty.right - dirty.left;
    const int32_t height = dirty.bottom - dirty.top;
    const HDC memory = CreateCompatibleDC(window);
    const HBITMAP bitmap = CreateCompatibleBitmap(window, width, height);
    if (memory != nullptr && bitmap != nullptr) {
        const HGDIOBJ before = SelectObject(memory, bitmap);
        SetWindowOrgEx(memory, dirty.left, dirty.top, nullptr);
        PaintGrid(grid, memory, dirty);
        BitBlt(window, dirty.left, dirty.top, width, height, memory, dirty.left, dirty.top,
               SRCCOPY);
        SelectObject(memory, before);
    }
    DeleteObject(bitmap);
    DeleteDC(memory);
}

}  // namespace

GridPalette GridPaletteOf(const GridColours& colours, bool isHighContrast) {
    const auto choose = [isHighContrast](COLORREF chosen, int system) {
        return isHighContrast || chosen == CLR_INVALID ? GetSysColor(system) : chosen;
    };
    // The colour of the stock object GRAY_BRUSH.
    constexpr COLORREF Grey = RGB(128, 128, 128);
    return {.normalBackground = choose(colours.normalBackground, COLOR_WINDOW),
            .protectedBackground = choose(colours.protectedBackground, COLOR_WINDOW),
            .highlightBackground = choose(colours.highlightBackground, COLOR_HIGHLIGHT),
            .text = GetSysColor(COLOR_WINDOWTEXT),
            .highlightText = choose(colours.highlightText, COLOR_HIGHLIGHTTEXT),
            .gridLine = choose(colours.gridLine, COLOR_BTNFACE),
            .headerText = GetSysColor(COLOR_BTNTEXT),
            .rest = choose(Grey, COLOR_APPWORKSPACE)};
}

void PaintGrid(const GridRecord& grid, HDC dc, const RECT& dirty) {
    const GridPainter painter = {grid, dc, dirty, GridPaletteOf(grid.colours, IsHighContrast())};
    const int state = SaveDC(dc);
    SelectObject(dc, GetStockObject(DC_PEN));
    SelectObject(dc, GetStockObject(DC_BRUSH));
    SetBkMode(dc, TRANSPARENT);
    PaintTitle(painter);
    const GridRange rows = VisibleGridRows(grid.state);
    const GridRange columns = VisibleGridColumns(grid.state);
    int32_t right = PaintColumn(painter, 0, 0, rows);
    for (int32_t column = columns.first; column <= columns.last; column++) {
        right = PaintColumn(painter, column, right, rows);
    }
    PaintRest(painter, right, static_cast<int32_t>(GridRowTop(grid.state, rows.last + 1)));
    RestoreDC(dc, state);
}

void HandleGridPaint(GridRecord& grid) {
    RefreshGridScrollBars(grid);
    PAINTSTRUCT paint = {};
    const HDC dc = BeginPaint(grid.window, &paint);
    UpdateGridSize(grid);
    if (grid.isEditorOpen) {
        // The style WS_CLIPCHILDREN would not keep a transparent window from being painted over.
        const LayoutRect editor = PlaceInParent(grid.editWindow);
        ExcludeClipRect(dc, editor.x, editor.y, editor.x + editor.width, editor.y + editor.height);
    }
    if (!grid.isDoubleBuffered) {
        PaintGrid(grid, dc, paint.rcPaint);
    } else if (!IsRectEmpty(&paint.rcPaint)) {
        PaintInMemory(grid, dc, paint.rcPaint);
    }
    EndPaint(grid.window, &paint);
}

}  // namespace tallymere
