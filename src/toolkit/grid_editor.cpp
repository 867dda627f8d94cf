#include "toolkit/grid_editor.h"

#include "layout/grid_cell_layout.h"
#include "layout/grid_geometry.h"
#include "layout/grid_keys.h"
#include "toolkit/environment.h"
#include "toolkit/field_state.h"
#include "toolkit/grid_accessibility.h"
#include "toolkit/standard_controls.h"
#include "toolkit/text_measure.h"
#include "toolkit/wide_text.h"

namespace tallymere {

namespace {

WNDPROC SavedProc(HWND editor) {
    return reinterpret_cast<WNDPROC>(GetPropW(editor, ToWide(GridEditorProcProperty)));
}

HeapText TextOf(HWND editor) {
    HeapText text(GetWindowTextLengthW(editor));
    if (text.IsThere()) {
        const int capacity = GetWindowTextLengthW(editor) + 1;
        text.length = GetWindowTextW(editor, ToWide(text.buffer.get()), capacity);
    }
    return text;
}

GridEditorFacts FactsOf(HWND editor) {
    DWORD start = 0;
    DWORD end = 0;
    SendMessageW(editor, EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                 reinterpret_cast<LPARAM>(&end));
    return {static_cast<int32_t>(start), static_cast<int32_t>(end), GetWindowTextLengthW(editor)};
}

// Gives a key to the grid, unless the page has moved the focus elsewhere when it heard of the
// text. The edit control may be gone then.
void PassKey(GridRecord& grid, WPARAM key, LPARAM flags) {
    CommitGridEditor(grid);
    if (GetFocus() == grid.window) {
        SendMessageW(grid.window, WM_KEYDOWN, key, flags);
    }
}

// True when the edit control itself handles the key.
bool HandleKey(GridRecord& grid, HWND editor, WPARAM key, LPARAM flags) {
    const bool control = GetKeyState(VK_CONTROL) < 0;
    switch (
        EffectOfGridEditorKey(grid.state, static_cast<uint32_t>(key), control, FactsOf(editor))) {
        case GridEditorAction::Stay:
            return true;
        case GridEditorAction::Pass:
            PassKey(grid, key, flags);
            break;
        case GridEditorAction::Cancel:
            CancelGridEditor(grid);
            break;
        case GridEditorAction::Swallow:
            break;
    }
    return false;
}

bool HandleCharacter(const GridRecord& grid, HWND editor, WPARAM character) {
    switch (EffectOfGridEditorCharacter(static_cast<char16_t>(character))) {
        case GridEditorAction::Stay:
            return true;
        case GridEditorAction::Pass:
            SendMessageW(grid.window, WM_COMMAND, MAKEWPARAM(GridEditorId, GridEditorDone),
                         reinterpret_cast<LPARAM>(editor));
            break;
        case GridEditorAction::Cancel:
        case GridEditorAction::Swallow:
            break;
    }
    return false;
}

LRESULT HandleEditorMessage(GridRecord& grid, HWND window, UINT message, WPARAM wParam,
                            LPARAM lParam) {
    const WNDPROC savedProc = SavedProc(window);
    switch (message) {
        case WM_KEYDOWN:
            if (!HandleKey(grid, window, wParam, lParam)) {
                return 0;
            }
            break;
        case WM_CHAR:
            if (!HandleCharacter(grid, window, wParam)) {
                return 0;
            }
            break;
        case WM_MOUSEWHEEL:
            CommitGridEditor(grid);
            return SendMessageW(grid.window, message, wParam, lParam);
        case WM_KILLFOCUS: {
            const LRESULT result = CallWindowProcW(savedProc, window, message, wParam, lParam);
            CommitGridEditor(grid);
            return result;
        }
        case WM_GETOBJECT:
            if (static_cast<LONG>(lParam) == static_cast<LONG>(OBJID_CLIENT)) {
                return AnswerGridEditorObject(window, wParam);
            }
            break;
        default:
            break;
    }
    return CallWindowProcW(savedProc, window, message, wParam, lParam);
}

LRESULT CALLBACK GridEditorProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    GridRecord* const grid = GridRecordOf(GetParent(window));
    if (grid != nullptr && message != WM_NCDESTROY) {
        const GridMessageScope scope(*grid);
        return HandleEditorMessage(*grid, window, message, wParam, lParam);
    }
    const WNDPROC savedProc = SavedProc(window);
    if (message == WM_NCDESTROY) {
        RemovePropW(window, ToWide(GridEditorProcProperty));
    }
    return CallWindowProcW(savedProc, window, message, wParam, lParam);
}

void CreateEditor(GridRecord& grid) {
    const HWND editor = CreateWindowExW(
        WS_EX_TRANSPARENT, L"Edit", nullptr,
        WS_CHILD | ES_MULTILINE | ES_AUTOHSCROLL | ES_WANTRETURN, 0, 0, 0, 0, grid.window,
        reinterpret_cast<HMENU>(static_cast<INT_PTR>(GridEditorId)), grid.instance, nullptr);
    if (editor == nullptr) {
        return;
    }
    const LONG_PTR procedure = GetWindowLongPtrW(editor, GWLP_WNDPROC);
    if (!SetPropW(editor, ToWide(GridEditorProcProperty), reinterpret_cast<HANDLE>(procedure))) {
        DestroyWindow(editor);
        return;
    }
    SetWindowLongPtrW(editor, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(GridEditorProc));
    SendMessageW(editor, WM_SETFONT, reinterpret_cast<WPARAM>(grid.cellFont), FALSE);
    SendMessageW(editor, EM_SETLIMITTEXT, EditTextLimit, 0);
    grid.editWindow = editor;
}

void CentreLine(GridRecord& grid) {
    const int32_t lineHeight = TextMeasure(grid.editWindow, grid.cellFont).LineHeight();
    const LayoutRect place = GridEditorTextPlace(ClientSize(grid.editWindow), lineHeight);
    const RECT rect = RectOf(place);
    SendMessageW(grid.editWindow, EM_SETRECT, 0, reinterpret_cast<LPARAM>(&rect));
}

// Stops treating the editor as open, so that no message on the way commits it once more.
bool CloseEditor(GridRecord& grid) {
    const bool wasOpen = grid.isEditorOpen;
    grid.isEditorOpen = false;
    return wasOpen;
}

// Gives the focus of the edit control to the grid. A page that hears of it may do anything: open
// the editor again, or destroy the grid, which leaves no window to look at.
void HideEditor(GridRecord& grid) {
    const HWND editor = grid.editWindow;
    if (editor != nullptr && GetFocus() == editor) {
        SetFocus(grid.window);
    }
    if (!grid.isEditorOpen) {
        ShowWindow(editor, SW_HIDE);
    }
}

}  // namespace

void OpenGridEditor(GridRecord& grid, std::u16string_view text) {
    CommitGridEditor(grid);
    if (!CanEditGridCursor(grid.state)) {
        return;
    }
    // The page may change the cell while the editor opens.
    HeapText copy(static_cast<int64_t>(text.size()));
    if (!copy.IsThere()) {
        return;
    }
    text.copy(copy.buffer.get(), text.size());
    if (grid.editWindow == nullptr) {
        CreateEditor(grid);
    }
    if (grid.editWindow == nullptr) {
        return;
    }
    grid.isEditorOpen = true;
    PlaceGridEditor(grid);
    SetWindowTextW(grid.editWindow, ToWide(copy.buffer.get()));
    ShowWindow(grid.editWindow, SW_SHOWNA);
    SetFocus(grid.editWindow);
    if (!grid.isEditorOpen) {
        return;  // The page has closed it when it heard of the focus.
    }
    CentreLine(grid);
    const int length = GetWindowTextLengthW(grid.editWindow);
    SendMessageW(grid.editWindow, EM_SETSEL, static_cast<WPARAM>(length), length);
    SendMessageW(grid.editWindow, EM_SCROLLCARET, 0, 0);
    NotifyGridParent(grid, GridEditorOpened);
}

void CommitGridEditor(GridRecord& grid) {
    if (!CloseEditor(grid)) {
        return;
    }
    const HeapText text = TextOf(grid.editWindow);
    StoreGridCell(grid, grid.state.cursorColumn, grid.state.cursorRow, text.View());
    HideEditor(grid);
    TellGridValue(grid);
    NotifyGridParent(grid, GridEditorClosed);
}

void CancelGridEditor(GridRecord& grid) {
    if (CloseEditor(grid)) {
        HideEditor(grid);
    }
}

void DestroyGridEditor(GridRecord& grid) {
    const HWND editor = grid.editWindow;
    CloseEditor(grid);
    grid.editWindow = nullptr;
    if (editor == nullptr) {
        return;
    }
    if (GetFocus() == editor && !grid.isDestroyed) {
        SetFocus(grid.window);
    }
    DestroyWindow(editor);
}

void PlaceGridEditor(GridRecord& grid) {
    if (!grid.isEditorOpen) {
        return;
    }
    const LayoutRect cell =
        GridCellPlace(grid.state, grid.state.cursorColumn, grid.state.cursorRow);
    const LayoutRect place = GridEditorPlace(cell, screenDpi);
    if (PlaceInParent(grid.editWindow) == place) {
        return;
    }
    SetWindowPos(grid.editWindow, nullptr, place.x, place.y, place.width, place.height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    CentreLine(grid);
}

}  // namespace tallymere
