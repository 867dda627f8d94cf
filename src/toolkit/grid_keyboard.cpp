#include "toolkit/grid_keyboard.h"

#include <algorithm>

#include "layout/grid_keys.h"
#include "toolkit/control_focus.h"
#include "toolkit/grid_editor.h"
#include "toolkit/wide_text.h"

namespace tallymere {

namespace {

// In the flags of a key: how often it came, and whether Alt was held.
constexpr LPARAM CountBits = 0xFFFF;
constexpr LPARAM AltBit = 1 << 29;

bool IsHeld(int key) {
    return GetKeyState(key) < 0;
}

GridKeyStroke StrokeOf(WPARAM key, LPARAM flags) {
    return {.key = static_cast<uint32_t>(key),
            .shift = IsHeld(VK_SHIFT),
            .control = IsHeld(VK_CONTROL),
            .alt = IsHeld(VK_MENU),
            .isAltBitSet = (flags & AltBit) != 0,
            .isFromKeyboard = (flags & CountBits) != 0};
}

// The characters of a key with the keys that are held, at most five.
struct TypedText {
    TypedText(WPARAM key, LPARAM flags) {
        BYTE keys[256] = {};
        GetKeyboardState(keys);
        const auto scanCode = static_cast<UINT>(flags >> 16 & 0xFF);
        const int count = ToUnicode(static_cast<UINT>(key), scanCode, keys, ToWide(text), 5, 0);
        char16_t* const end = text + std::max(count, 0);
        length = std::find_if_not(&text[0], end, IsGridText) - text;
    }

    std::u16string_view View() const { return {text, static_cast<size_t>(length)}; }

    char16_t text[6] = {};
    int64_t length;
};

}  // namespace

bool HandleGridKey(GridRecord& grid, WPARAM key, LPARAM flags) {
    NotifyGridParent(grid, GridKeyPressed, static_cast<uint32_t>(key));
    if (grid.isDestroyed) {
        return true;
    }
    const GridKeyEffect effect = EffectOfGridKey(grid.state, StrokeOf(key, flags));
    switch (effect.action) {
        case GridKeyAction::Nothing:
            break;
        case GridKeyAction::Pass:
            return false;
        case GridKeyAction::Move:
            if (effect.endsRowSelect) {
                grid.state.isRowSelectActive = false;
                RepaintGrid(grid);
            }
            MoveGridCursor(grid, MovedGridCursor(grid.state, effect.move));
            OpenGridEditorWithText(grid);
            break;
        case GridKeyAction::LeaveForward:
            ShowFocusRectangle(FocusNextControl(grid.window, true));
            break;
        case GridKeyAction::LeaveBackward:
            ShowFocusRectangle(FocusNextControl(grid.window, false));
            break;
        case GridKeyAction::Type:
            OpenGridEditor(grid, TypedText(key, flags).View());
            break;
        case GridKeyAction::EditText:
            OpenGridEditorWithText(grid);
            break;
    }
    return true;
}

void OpenGridEditorWithText(GridRecord& grid) {
    CommitGridEditor(grid);
    const GridState& state = grid.state;
    OpenGridEditor(grid,
                   GridCellText(FindGridCell(state.table, state.cursorColumn, state.cursorRow)));
}

void OpenGridEditorByKey(GridRecord& grid, bool withText) {
    SendMessageW(grid.window, WM_KEYDOWN, VK_SHIFT, withText ? AltBit : 0);
}

}  // namespace tallymere
