// A page with a grid for tests, which notes what the grid tells it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "toolkit/grid_control.h"
#include "toolkit/grid_editor.h"
#include "toolkit/grid_record.h"
#include "toolkit/test_dialog.h"

namespace tallymere::testing_support {

/// What the page of a test heard, and what it does meanwhile.
struct HeardOfGrid {
    std::vector<GridNotification> all;
    std::vector<UINT> codes;
    std::function<void(UINT)> react;  ///< gets each code
};

inline HeardOfGrid heardOfGrid;

inline LRESULT HearGrid(HWND, UINT message, WPARAM wParam, LPARAM lParam, bool&) {
    if (message == WM_NOTIFY) {
        const auto& notification = *reinterpret_cast<const GridNotification*>(lParam);
        EXPECT_EQ(notification.header.idFrom, wParam);
        heardOfGrid.all.push_back(notification);
        heardOfGrid.codes.push_back(notification.header.code);
        if (heardOfGrid.react) {
            heardOfGrid.react(notification.header.code);
        }
    }
    return 0;
}

using Codes = std::vector<UINT>;

/// A grid of three columns and four rows on a shown page, with a button before and behind it.
class GridTest : public ToolkitTest {
protected:
    GridTest() {
        heardOfGrid = {};
        page = CreateDialogWindow(nullptr, {500, 400}, u"Page", HearGrid, WS_SYSMENU, 0);
        before = CreateButton(page, {0, 0, 60, 20}, u"before");
        // Shown at once: a hidden window cannot have the focus.
        ShowWindow(page, SW_SHOWNORMAL);
        MakeGrid(3, 4);
        behind = CreateButton(page, {70, 0, 60, 20}, u"behind");
        SetFocus(before);
        Forget();
    }

    ~GridTest() override {
        heardOfGrid.react = nullptr;
        DestroyWindow(page);
    }

    /// A grid of 400 by 300 pixels, whose columns are 50 pixels wide and whose rows 21 high.
    void MakeGrid(int32_t columns, int32_t rows) {
        grid = CreateGrid(page, {10, 30, 400, 300});
        for (int32_t i = 0; i < columns; i++) {
            AddColumn(u"head");
        }
        for (int32_t i = 0; i < rows; i++) {
            AskText(GridAddRow, 0, u"row");
        }
    }

    static void Forget() {
        heardOfGrid.all.clear();
        heardOfGrid.codes.clear();
    }

    LRESULT Ask(UINT message, int64_t wParam = 0, int64_t lParam = 0) {
        return SendMessageW(grid, message, static_cast<WPARAM>(wParam), lParam);
    }
    LRESULT AskText(UINT message, int64_t wParam, const char16_t* text) {
        return Ask(message, wParam, reinterpret_cast<LPARAM>(text));
    }

    LRESULT AddColumn(const char16_t* header, int32_t type = GridColumnText) {
        const GridColumnSpec spec = {type, header, nullptr};
        return Ask(GridAddColumn, 0, reinterpret_cast<LPARAM>(&spec));
    }

    LRESULT AskCell(UINT message, int64_t wParam, int32_t column, int32_t row) {
        const GridCellSpec spec = {column, row, nullptr};
        return Ask(message, wParam, reinterpret_cast<LPARAM>(&spec));
    }

    LRESULT Write(int32_t column, int32_t row, std::u16string text) {
        const GridCellSpec spec = {column, row, text.data()};
        return Ask(GridSetCellText, 0, reinterpret_cast<LPARAM>(&spec));
    }

    std::u16string Read(int32_t column, int32_t row) {
        std::u16string text(2000, u'?');
        const GridCellSpec spec = {column, row, text.data()};
        const LRESULT length = Ask(GridGetCellText, 0, reinterpret_cast<LPARAM>(&spec));
        if (length < 0) {
            return u"no cell";
        }
        EXPECT_EQ(text[static_cast<size_t>(length)], u'\0');
        return text.substr(0, static_cast<size_t>(length));
    }

    GridPlace Cursor() {
        return {static_cast<int32_t>(Ask(GridCursorColumn)),
                static_cast<int32_t>(Ask(GridCursorRow))};
    }

    GridRecord& Record() { return *GridRecordOf(grid); }
    GridState& State() { return Record().state; }
    HWND Editor() { return Record().editWindow; }
    bool IsEditing() {
        return Editor() != nullptr && IsWindowVisible(Editor()) && GetFocus() == Editor();
    }
    std::string Edited() { return IsEditing() ? TextOf(Editor()) : "not edited"; }

    /// Sends a key to whatever has the focus, as the message loop would, while another is held.
    void Press(int key, int heldKey = 0) { PressKey(GetFocus(), key, heldKey); }

    /// The same with what TranslateMessage makes of the key, which waits behind it for the window
    /// that had the focus. `flags` are those of the key.
    void PressTranslated(int key, const std::u16string& characters, UINT message = WM_CHAR,
                         LPARAM flags = 1) {
        const HWND focused = GetFocus();
        for (const char16_t character : characters) {
            PostMessageW(focused, message, character, 1);
        }
        SendMessageW(focused, WM_KEYDOWN, static_cast<WPARAM>(key), flags);
        MSG left;
        while (PeekMessageW(&left, nullptr, WM_CHAR, WM_DEADCHAR, PM_REMOVE)) {
            DispatchMessageW(&left);
        }
    }
    void PressCharacter(int key, char16_t character) { PressTranslated(key, {character}); }

    void Click(int32_t x, int32_t y) {
        SendMessageW(grid, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
        SendMessageW(grid, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
    }
    /// Clicks into a cell that is in view, the headers being 0.
    void ClickCell(int32_t column, int32_t row) { Click(column * 50 + 25, row * 21 + 10); }

    HWND page;
    HWND before;
    HWND behind;
    HWND grid;
};

}  // namespace tallymere::testing_support
