// How a grid looks.
#pragma once

#include "toolkit/grid_record.h"

namespace tallymere {

/// The colours that a grid is painted in.
struct GridPalette {
    COLORREF normalBackground;
    COLORREF protectedBackground;
    COLORREF highlightBackground;
    COLORREF text;
    COLORREF highlightText;
    COLORREF gridLine;
    COLORREF headerText;
    COLORREF rest;  ///< beside and below the cells
};

/// The colours of a page for what it has chosen, else the system's. With high contrast all are the
/// system's.
GridPalette GridPaletteOf(const GridColours& colours, bool isHighContrast);

/// Paints the part of a grid that lies in a rectangle of its client area.
void PaintGrid(const GridRecord& grid, HDC dc, const RECT& dirty);

/// Handles WM_PAINT. With double buffering, nothing is painted when there is no bitmap to be had.
void HandleGridPaint(GridRecord& grid);

}  // namespace tallymere
