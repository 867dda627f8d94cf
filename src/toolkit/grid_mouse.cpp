#include "toolkit/grid_mouse.h"

#include "layout/grid_keys.h"
#include "layout/grid_mouse.h"
#include "toolkit/environment.h"
#include "toolkit/grid_editor.h"
#include "toolkit/grid_keyboard.h"

namespace tallymere {

namespace {

LayoutPoint PointOf(LPARAM position) {
    return {static_cast<int16_t>(LOWORD(position)), static_cast<int16_t>(HIWORD(position))};
}

void StartResizing(GridRecord& grid, int32_t column, int32_t x) {
    CommitGridEditor(grid);
    const GridColumn* const found = FindGridColumn(grid.state.table, column);
    if (found == nullptr) {
        return;  // The page has cleared the grid when it heard of the text.
    }
    grid.resizing = {
        .isActive = true, .column = column, .widthAtStart = found->width, .xAtStart = x};
    SetCapture(grid.window);
}

void Resize(GridRecord& grid, int32_t x) {
    const GridResizing& resizing = grid.resizing;
    GridColumn* const column = FindGridColumn(grid.state.table, resizing.column);
    if (column != nullptr) {
        column->width = DraggedGridWidth(resizing.widthAtStart, resizing.xAtStart, x);
        RepaintGrid(grid);
    }
}

void Click(GridRecord& grid, LayoutPoint mouse) {
    // The cell that the user saw, even if the text of the editor widens its column.
    const GridClick click = ClickInGrid(grid.state, mouse);
    SetFocus(grid.window);
    if (grid.isEditorOpen) {
        SendMessageW(grid.editWindow, WM_CHAR, GridKeyReturn, 1);
    }
    // A page that hears of the text may move the focus, such as to a message, or take the cell out.
    if (GetFocus() != grid.window || !click.movesCursor ||
        FindGridCell(grid.state.table, click.place.column, click.place.row) == nullptr) {
        return;
    }
    if (click.selectsRow) {
        grid.state.isRowSelectActive = true;
        RepaintGrid(grid);
    }
    MoveGridCursor(grid, click.place);
    OpenGridEditorWithText(grid);
}

}  // namespace

void HandleGridMouse(GridRecord& grid, UINT message, LPARAM position) {
    const LayoutPoint mouse = PointOf(position);
    switch (message) {
        case WM_LBUTTONDOWN: {
            const int32_t column = ResizedGridColumn(grid.state, mouse);
            if (column >= 0) {
                StartResizing(grid, column, mouse.x);
            } else {
                Click(grid, mouse);
            }
            break;
        }
        case WM_MOUSEMOVE:
            if (grid.resizing.isActive) {
                Resize(grid, mouse.x);
            }
            break;
        case WM_LBUTTONUP:
            if (grid.resizing.isActive) {
                ReleaseCapture();
            }
            break;
        case WM_CAPTURECHANGED:
            grid.resizing.isActive = false;
            break;
        default:
            break;
    }
}

bool ShowGridResizeCursor(const GridRecord& grid) {
    POINT mouse = {};
    GetCursorPos(&mouse);
    ScreenToClient(grid.window, &mouse);
    if (!grid.resizing.isActive && ResizedGridColumn(grid.state, {mouse.x, mouse.y}) < 0) {
        return false;
    }
    SetCursor(LoadCursorW(nullptr, IDC_SIZEWE));
    return true;
}

}  // namespace tallymere
