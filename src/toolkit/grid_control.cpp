#include "toolkit/grid_control.h"

#include <new>
#include <string_view>

#include "toolkit/environment.h"
#include "toolkit/grid_accessibility.h"
#include "toolkit/grid_editor.h"
#include "toolkit/grid_keyboard.h"
#include "toolkit/grid_messages.h"
#include "toolkit/grid_mouse.h"
#include "toolkit/grid_painting.h"
#include "toolkit/grid_record.h"
#include "toolkit/grid_scroll_bars.h"
#include "toolkit/standard_controls.h"
#include "toolkit/text_measure.h"
#include "toolkit/wide_text.h"
#include "toolkit/window_class.h"

namespace tallymere {

namespace {

void StoreTitle(GridRecord& grid, LPARAM text) {
    const auto* const title = reinterpret_cast<const char16_t*>(text);
    StoreGridText(grid.title, title != nullptr ? title : std::u16string_view());
    RepaintGrid(grid);
}

bool CreateRecord(HWND window, const CREATESTRUCTW& creation) {
    auto* const grid = new (std::nothrow) GridRecord;
    if (grid == nullptr || !SetPropW(window, ToWide(GridRecordProperty), grid)) {
        delete grid;
        return false;
    }
    SetSlot(window, GridRecordSlot, grid);
    grid->instance = creation.hInstance;
    grid->parent = creation.hwndParent;
    grid->window = window;
    grid->id = static_cast<int32_t>(reinterpret_cast<intptr_t>(creation.hMenu));
    grid->state.rowHeight = ToScreenPixels(NewGridRowHeight);
    grid->state.headerHeight = ToScreenPixels(NewGridRowHeight);
    StoreTitle(*grid, reinterpret_cast<LPARAM>(creation.lpszName));
    if (ResetGridTable(grid->state.table, ToScreenPixels(NewGridColumnWidth)) !=
        GridTableOutcome::Done) {
        RemovePropW(window, ToWide(GridRecordProperty));
        SetSlot<GridRecord*>(window, GridRecordSlot, nullptr);
        StoreGridText(grid->title, {});
        delete grid;
        return false;
    }
    return true;
}

// Leaves a record of an empty grid for the messages that are still being handled.
void DestroyRecord(GridRecord& grid) {
    grid.isDestroyed = true;
    RemovePropW(grid.window, ToWide(GridRecordProperty));
    SetSlot<GridRecord*>(grid.window, GridRecordSlot, nullptr);
    DestroyGridEditor(grid);
    FreeGridTable(grid.state.table);
    ClampGridState(grid.state);
    StoreGridText(grid.title, {});
}

void SetFonts(GridRecord& grid, WPARAM wParam) {
    const auto font = reinterpret_cast<HFONT>(wParam);
    grid.cellFont = font;
    grid.headerFont = font;
    grid.titleFont = font;
    if (grid.editWindow != nullptr) {
        SendMessageW(grid.editWindow, WM_SETFONT, wParam, TRUE);
    }
    RepaintGrid(grid);
}

void HandleFocus(GridRecord& grid, UINT message, WPARAM other) {
    const auto otherWindow = reinterpret_cast<HWND>(other);
    grid.hasFocus = message == WM_SETFOCUS;
    RepaintGrid(grid);
    if (grid.hasFocus) {
        grid.textHeight = TextMeasure(grid.window, grid.cellFont).FontHeight();
        TellGridFocus(grid);
        NotifyGridParent(grid, GridFocusGained, 0, otherWindow);
    } else {
        NotifyGridParent(grid, GridFocusLost, 0, otherWindow);
    }
}

void HandleCommand(GridRecord& grid, WPARAM wParam, LPARAM lParam) {
    if (HIWORD(wParam) == GridEditorDone && reinterpret_cast<HWND>(lParam) == grid.editWindow) {
        CommitGridEditor(grid);
    }
}

// What the system asks for or tells in order to show the grid. True when it has been dealt with.
bool HandleLook(GridRecord& grid, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_PAINT:
            HandleGridPaint(grid);
            return true;
        case WM_PRINTCLIENT: {
            const RECT all = {0, 0, grid.state.clientWidth, grid.state.clientHeight};
            PaintGrid(grid, reinterpret_cast<HDC>(wParam), all);
            return true;
        }
        case WM_ERASEBKGND:
            // Painting fills the whole window.
            result = TRUE;
            return true;
        case WM_SIZE:
            if (!grid.skipsSize) {
                RefreshGridScrollBars(grid);
                RepaintGrid(grid);
            }
            return true;
        case WM_SETFONT:
            SetFonts(grid, wParam);
            return true;
        case WM_GETFONT:
            result = reinterpret_cast<LRESULT>(grid.cellFont);
            return true;
        case WM_SETTEXT:
            StoreTitle(grid, lParam);
            return false;
        case WM_SETCURSOR:
            result = LOWORD(lParam) == HTCLIENT && reinterpret_cast<HWND>(wParam) == grid.window &&
                     ShowGridResizeCursor(grid);
            return result != 0;
        default:
            return false;
    }
}

// What the user does with keys and mouse. True when it has been dealt with.
bool HandleInput(GridRecord& grid, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            HandleFocus(grid, message, wParam);
            return true;
        case WM_KEYDOWN:
            return HandleGridKey(grid, wParam, lParam);
        case WM_CHAR:
            HandleGridCharacter(grid, wParam, lParam);
            return true;
        case WM_LBUTTONDOWN:
        case WM_MOUSEMOVE:
        case WM_LBUTTONUP:
        case WM_CAPTURECHANGED:
            HandleGridMouse(grid, message, lParam);
            return true;
        case WM_MOUSEWHEEL:
            return HandleGridWheel(grid, wParam);
        case WM_VSCROLL:
        case WM_HSCROLL:
            HandleGridScroll(grid, message, wParam);
            return true;
        default:
            return false;
    }
}

LRESULT HandleMessage(GridRecord& grid, UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    UpdateGridSize(grid);
    if (HandleGridMessage(grid, message, wParam, lParam, result) ||
        HandleLook(grid, message, wParam, lParam, result) ||
        HandleInput(grid, message, wParam, lParam)) {
        return result;
    }
    switch (message) {
        case WM_DESTROY:
            DestroyRecord(grid);
            return 0;
        case WM_GETDLGCODE:
            return DLGC_WANTALLKEYS;
        case WM_COMMAND:
            HandleCommand(grid, wParam, lParam);
            return 0;
        case WM_GETOBJECT:
            if (static_cast<LONG>(lParam) == static_cast<LONG>(OBJID_CLIENT)) {
                return AnswerGridObject(grid.window, wParam);
            }
            break;
        default:
            break;
    }
    return DefWindowProcW(grid.window, message, wParam, lParam);
}

LRESULT CALLBACK GridProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CREATE) {
        return CreateRecord(window, *reinterpret_cast<const CREATESTRUCTW*>(lParam)) ? 0 : -1;
    }
    GridRecord* const grid = GridRecordOf(window);
    if (grid == nullptr) {
        return DefWindowProcW(window, message, wParam, lParam);
    }
    const GridMessageScope scope(*grid);
    return HandleMessage(*grid, message, wParam, lParam);
}

}  // namespace

void RegisterGridClass() {
    static bool isRegistered = false;
    if (isRegistered) {
        return;
    }
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof windowClass;
    windowClass.style = CS_BYTEALIGNCLIENT;
    windowClass.lpfnWndProc = GridProc;
    windowClass.cbWndExtra = sizeof(GridRecord*);
    windowClass.hInstance = programInstance;
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.lpszClassName = ToWide(GridClass);
    isRegistered = RegisterClassExW(&windowClass) != 0;
}

HWND CreateGrid(HWND parent, const LayoutRect& place, DWORD style, DWORD extendedStyle) {
    RegisterGridClass();
    return CreateControl(parent, GridClass, place, nullptr, style | WS_TABSTOP, extendedStyle);
}

}  // namespace tallymere
