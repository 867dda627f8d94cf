#include "toolkit/grid_keyboard.h"

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

// The characters of a key, at most five.
struct TypedText {
    void Add(char16_t character) {
        if (length < MaxCharacters && IsGridText(character)) {
            text[length++] = character;
        }
    }
    std::u16string_view View() const { return {text, static_cast<size_t>(length)}; }

    static constexpr int32_t MaxCharacters = 5;
    char16_t text[MaxCharacters + 1] = {};
    int32_t length = 0;
};

// Takes what the message loop has made of a key and what waits behind it. That alone knows of dead
// keys and of characters that no key has. False when there is nothing.
bool TakeTranslation(TypedText& typed, HWND window) {
    bool isThere = false;
    MSG message;
    while (PeekMessageW(&message, window, WM_CHAR, WM_DEADCHAR, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        isThere = true;
        if (message.message == WM_CHAR) {
            typed.Add(static_cast<char16_t>(message.wParam));
        }
    }
    return isThere;
}

// Asks the system what the key types with the keys that are held.
void Translate(TypedText& typed, WPARAM key, LPARAM flags) {
    // Leaves a dead key that was pressed before as it is.
    constexpr UINT KeepKeyboard = 1 << 2;
    BYTE keys[256] = {};
    GetKeyboardState(keys);
    const auto scanCode = static_cast<UINT>(flags >> 16 & 0xFF);
    char16_t text[TypedText::MaxCharacters + 1] = {};
    const int count = ToUnicode(static_cast<UINT>(key), scanCode, keys, ToWide(text),
                                TypedText::MaxCharacters, KeepKeyboard);
    for (int i = 0; i < count; i++) {
        typed.Add(text[i]);
    }
}

void Type(GridRecord& grid, const GridKeyStroke& stroke, LPARAM flags) {
    TypedText typed;
    // Without a message loop the key comes alone.
    if (!stroke.isFromKeyboard || !TakeTranslation(typed, grid.window)) {
        Translate(typed, stroke.key, flags);
    }
    if (OpensGridEditor(stroke, typed.length > 0)) {
        OpenGridEditor(grid, typed.View());
    }
}

}  // namespace

bool HandleGridKey(GridRecord& grid, WPARAM key, LPARAM flags) {
    NotifyGridParent(grid, GridKeyPressed, static_cast<uint32_t>(key));
    if (grid.isDestroyed) {
        return true;
    }
    const GridKeyStroke stroke = StrokeOf(key, flags);
    const GridKeyEffect effect = EffectOfGridKey(grid.state, stroke);
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
            Type(grid, stroke, flags);
            break;
        case GridKeyAction::EditText:
            OpenGridEditorWithText(grid);
            break;
    }
    return true;
}

void HandleGridCharacter(GridRecord& grid, WPARAM character, LPARAM flags) {
    if (grid.isEditorOpen) {
        SendMessageW(grid.editWindow, WM_CHAR, character, flags);
        return;
    }
    const auto text = static_cast<char16_t>(character);
    if (OpensGridEditor(text, IsHeld(VK_CONTROL), IsHeld(VK_MENU))) {
        OpenGridEditor(grid, {&text, 1});
    }
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
