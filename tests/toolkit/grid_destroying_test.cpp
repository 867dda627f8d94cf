// A page that destroys the grid when the grid tells it something.
#include <functional>
#include <memory>

#include "toolkit/grid_page.h"

namespace tallymere {
namespace {

using testing_support::heardOfGrid;

class GridDestroying : public testing_support::GridTest {
protected:
    // What takes a block of memory that the grid has freed, and fills it.
    static bool GivesMemoryOf(uintptr_t record) {
        constexpr int Blocks = 200;
        std::unique_ptr<unsigned char[]> blocks[Blocks];
        bool given = false;
        for (auto& block : blocks) {
            block = std::make_unique<unsigned char[]>(sizeof(GridRecord));
            std::fill_n(block.get(), sizeof(GridRecord), 0xDD);
            given = given || reinterpret_cast<uintptr_t>(block.get()) == record;
        }
        return given;
    }

    // Destroys a new grid when it tells a code, while the editor is open in the second column.
    // The record must last until the action has ended.
    void DestroyOn(
        UINT code, const std::function<void()>& act, const std::function<void()>& prepare = [] {}) {
        SCOPED_TRACE(code);
        DestroyWindow(grid);
        MakeGrid(3, 20);
        prepare();
        UpdateWindow(grid);
        AskCell(GridSetCursorEdit, 0, 1, editedRow);
        ASSERT_TRUE(IsEditing());
        const HWND editor = Editor();
        bool freedTooEarly = false;
        heardOfGrid.react = [&](UINT heard) {
            if (heard == code && IsWindow(grid)) {
                const auto record = reinterpret_cast<uintptr_t>(&Record());
                DestroyWindow(grid);
                freedTooEarly = GivesMemoryOf(record);
                Forget();
            }
        };
        act();
        heardOfGrid.react = nullptr;
        EXPECT_FALSE(freedTooEarly);
        EXPECT_FALSE(IsWindow(grid));
        EXPECT_FALSE(IsWindow(editor));
        // A grid that is gone tells nothing.
        EXPECT_EQ(heardOfGrid.codes, testing_support::Codes{});
        SetFocus(before);
    }

    int32_t editedRow = 1;

    void DestroyOnFocusAndText(
        const std::function<void()>& act, const std::function<void()>& prepare = [] {}) {
        for (const UINT code : {UINT{GridFocusGained}, UINT{GridEditorClosed}}) {
            DestroyOn(code, act, prepare);
        }
    }
};

TEST_F(GridDestroying, ByReturn) {
    DestroyOnFocusAndText([this] { SendMessageW(Editor(), WM_CHAR, VK_RETURN, 1); });
}

TEST_F(GridDestroying, ByTab) {
    DestroyOnFocusAndText([this] { SendMessageW(Editor(), WM_KEYDOWN, VK_TAB, 1); });
}

TEST_F(GridDestroying, ByAKeyThatMovesTheCursor) {
    DestroyOnFocusAndText([this] { SendMessageW(Editor(), WM_KEYDOWN, VK_DOWN, 1); });
}

TEST_F(GridDestroying, ByEscape) {
    DestroyOn(GridFocusGained, [this] { SendMessageW(Editor(), WM_KEYDOWN, VK_ESCAPE, 1); });
}

TEST_F(GridDestroying, ByTheWheel) {
    DestroyOnFocusAndText([this] {
        SendMessageW(Editor(), WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-120)), 0);
    });
}

TEST_F(GridDestroying, ByLosingTheFocus) {
    DestroyOn(GridEditorClosed, [this] { SetFocus(behind); });
}

TEST_F(GridDestroying, ByAClick) {
    DestroyOnFocusAndText([this] { ClickCell(2, 3); });
}

TEST_F(GridDestroying, ByTheStartOfResizing) {
    DestroyOnFocusAndText(
        [this] { SendMessageW(grid, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(100, 10)); },
        [this] { Ask(GridSetAllowResize, 1); });
}

TEST_F(GridDestroying, ByMessagesAboutRows) {
    DestroyOnFocusAndText([this] { EXPECT_EQ(Ask(GridDeleteRow, 3), -1); });
    DestroyOnFocusAndText([this] { EXPECT_EQ(Ask(GridInsertRow, 3), -1); });
    DestroyOnFocusAndText([this] { EXPECT_EQ(Ask(GridAddRow), -1); });
}

TEST_F(GridDestroying, ByGridClear) {
    DestroyOn(GridFocusGained, [this] { Ask(GridClear); });
}

TEST_F(GridDestroying, ByAScrollBarThatGoes) {
    for (const UINT code : {18u, 5u, 3u, 6u, 19u, 4u}) {
        editedRow = 19;
        DestroyOn(code, [this] { SetControlSize(grid, 400, 600); });
    }
}

TEST_F(GridDestroying, WithTheFocusInTheEditorTellsNothing) {
    AskCell(GridSetCursorEdit, 0, 1, 1);
    Forget();
    DestroyWindow(grid);
    EXPECT_EQ(heardOfGrid.codes, testing_support::Codes{});
}

TEST_F(GridDestroying, AKeyEndsThereWhenThePageTakesTheFocus) {
    for (const int key : {VK_DOWN, VK_TAB}) {
        AskCell(GridSetCursorEdit, 0, 1, 1);
        heardOfGrid.react = [this](UINT code) {
            if (code == GridEditorClosed) {
                SetFocus(behind);
            }
        };
        Forget();
        SendMessageW(Editor(), WM_KEYDOWN, static_cast<WPARAM>(key), 1);
        heardOfGrid.react = nullptr;
        EXPECT_EQ(GetFocus(), behind);
        EXPECT_EQ(Cursor(), (GridPlace{1, 1}));
        EXPECT_EQ(heardOfGrid.codes, (testing_support::Codes{18, 5, 19}));
    }
}

TEST_F(GridDestroying, ReturnEndsThereWhenThePageTakesTheFocus) {
    AskCell(GridSetCursorEdit, 0, 1, 1);
    heardOfGrid.react = [this](UINT code) {
        if (code == GridEditorClosed) {
            SetFocus(behind);
        }
    };
    SendMessageW(Editor(), WM_CHAR, VK_RETURN, 1);
    EXPECT_EQ(GetFocus(), behind);
}

TEST_F(GridDestroying, AnEditorThatThePageOpensAgainStaysOpen) {
    AskCell(GridSetCursorEdit, 0, 1, 1);
    heardOfGrid.react = [this](UINT code) {
        if (code == GridFocusGained) {
            heardOfGrid.react = nullptr;
            AskCell(GridSetCursorEdit, 0, 1, 1);
        }
    };
    SendMessageW(Editor(), WM_KEYDOWN, VK_ESCAPE, 1);
    EXPECT_TRUE(IsEditing());
}

TEST_F(GridDestroying, AnEditorThatOpensOnItselfShowsWhatWasTyped) {
    AskCell(GridSetCursorEdit, 0, 1, 1);
    SetWindowTextW(Editor(), L"new");
    SendMessageW(grid, WM_KEYDOWN, VK_SHIFT, 1 << 29);
    EXPECT_EQ(Edited(), "new");
    EXPECT_EQ(Read(1, 1), u"new");
}

TEST_F(GridDestroying, AnEditorDoesNotOpenOnACellThatItsTextProtects) {
    AskCell(GridSetCursorEdit, 0, 1, 1);
    heardOfGrid.react = [this](UINT code) {
        if (code == GridEditorClosed) {
            AskCell(GridSetCellProtected, 1, 1, 1);
        }
    };
    SendMessageW(grid, WM_KEYDOWN, VK_SHIFT, 0);
    EXPECT_FALSE(IsEditing());
}

}  // namespace
}  // namespace tallymere
