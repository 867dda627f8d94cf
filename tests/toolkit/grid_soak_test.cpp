// Long use of a grid: nothing comes apart, and nothing is left behind.
#include <algorithm>

#include "support/random_source.h"
#include "toolkit/gdi_objects.h"
#include "toolkit/grid_page.h"

namespace tallymere {
namespace {

using testing_support::CountGdiObjects;
using testing_support::heardOfGrid;
using testing_support::RandomSource;

// The bytes that are in use in all heaps of the process: the system's and those of the program.
int64_t HeapBytes() {
    HANDLE heaps[64];
    const DWORD count = std::min<DWORD>(GetProcessHeaps(64, heaps), 64);
    int64_t bytes = 0;
    for (DWORD i = 0; i < count; i++) {
        PROCESS_HEAP_ENTRY entry = {};
        HeapLock(heaps[i]);
        while (HeapWalk(heaps[i], &entry)) {
            bytes += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0 ? entry.cbData : 0;
        }
        HeapUnlock(heaps[i]);
    }
    return bytes;
}

class GridSoak : public testing_support::GridTest {
protected:
    // Everything is as it must be, whatever was done to the grid.
    void Check() {
        const GridRecord& record = Record();
        ASSERT_TRUE(GridStateIsConsistent(record.state));
        ASSERT_EQ(record.messageDepth, 0);
        ASSERT_FALSE(record.isDestroyed);
        ASSERT_FALSE(record.skipsSize);
        if (record.isEditorOpen) {
            ASSERT_TRUE(IsWindow(record.editWindow));
            ASSERT_NE(WindowStyle(record.editWindow) & WS_VISIBLE, 0u);
            ASSERT_TRUE(CanEditGridCursor(record.state));
        } else if (record.editWindow != nullptr) {
            ASSERT_EQ(WindowStyle(record.editWindow) & WS_VISIBLE, 0u);
            ASSERT_NE(GetFocus(), record.editWindow);
        }
        // The editor is the only child.
        ASSERT_EQ(GetWindow(grid, GW_CHILD), record.editWindow);
        ASSERT_EQ(
            record.editWindow != nullptr ? GetWindow(record.editWindow, GW_HWNDNEXT) : nullptr,
            nullptr);
    }

    void ActAtRandom(RandomSource& random) {
        const auto number = [&random](int64_t low, int64_t high) {
            return static_cast<int32_t>(random.Between(low, high));
        };
        const std::u16string text(random.Below(12), static_cast<char16_t>(u'0' + random.Below(10)));
        static constexpr int Keys[] = {VK_UP,  VK_DOWN,   VK_LEFT,   VK_RIGHT, VK_PRIOR,  VK_NEXT,
                                       VK_TAB, VK_RETURN, VK_ESCAPE, VK_HOME,  VK_DELETE, VK_SHIFT,
                                       VK_F2,  'A',       '7',       VK_BACK,  VK_END};
        switch (random.Below(22)) {
            case 0:
                AddColumn(text.c_str(), number(0, 5) == 0 ? 0 : 1);
                break;
            case 1:
                AskText(GridAddRow, 0, text.c_str());
                break;
            case 2:
                AskText(GridInsertRow, number(-2, 30), text.c_str());
                break;
            case 3:
                Ask(GridDeleteRow, number(-1, 30));
                break;
            case 4:
                Ask(GridHideColumn, number(-1, 12), number(0, 1));
                break;
            case 5:
                Ask(GridSetColumnWidth, number(-1, 12), number(-20, 150));
                break;
            case 6:
                Ask(GridSetCursor, number(-1, 12), number(-1, 30));
                break;
            case 7:
                AskCell(GridSetCursorEdit, number(0, 1), number(-1, 12), number(-1, 30));
                break;
            case 8:
                Write(number(-1, 12), number(-1, 30), text);
                break;
            case 9:
                AskCell(GridSetCellProtected, number(0, 3) == 0, number(0, 8), number(0, 20));
                break;
            case 10:
                Ask(number(GridSetAllowResize, GridSetShowColumnLetters), number(0, 1));
                break;
            case 11:
                Ask(GridSetRowSelect, number(0, 3));
                break;
            case 12:
                Ask(GridSetRowHeight, number(-3, 60));
                break;
            case 13:
                SetControlSize(grid, number(0, 480), number(0, 360));
                break;
            case 14:
                Ask(WM_VSCROLL, MAKEWPARAM(number(0, 8), number(0, 30)));
                break;
            case 15:
                Ask(WM_HSCROLL, MAKEWPARAM(number(0, 8), number(0, 12)));
                break;
            case 16:
                Ask(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(number(-400, 400))));
                break;
            case 17:
            case 18:
                Click(number(-5, 480), number(-5, 360));
                break;
            case 19:
                UpdateWindow(grid);
                break;
            default: {
                const HWND focused = GetFocus();
                if (focused != grid && focused != Editor()) {
                    SetFocus(grid);
                }
                Press(Keys[random.Below(std::size(Keys))], number(0, 5) == 0 ? VK_SHIFT : 0);
                break;
            }
        }
        // Few enough that the walks stay short.
        if (Ask(GridColumnCount) > 12 || number(0, 400) == 0) {
            Ask(GridClear);
        }
    }

    void Edit(int32_t column, int32_t row, const wchar_t* text) {
        AskCell(GridSetCursorEdit, 1, column, row);
        SetWindowTextW(Editor(), text);
        SendMessageW(Editor(), WM_CHAR, VK_RETURN, 1);
    }
};

TEST_F(GridSoak, TwoThousandRandomActionsLeaveTheGridInOrder) {
    RandomSource random;
    // How much is left to draw with when a new grid has been painted. At first Windows keeps more
    // and more for itself, such as the brushes of scroll bars.
    const auto countWithNewGrid = [this] {
        DestroyWindow(grid);
        MakeGrid(3, 4);
        UpdateWindow(grid);
        return CountGdiObjects(GetCurrentProcess());
    };
    const auto act = [this, &random](int actions) {
        for (int i = 0; i < actions && !HasFatalFailure(); i++) {
            SCOPED_TRACE(i);
            ActAtRandom(random);
            Check();
            heardOfGrid.all.clear();
            heardOfGrid.codes.clear();
        }
    };
    act(1000);
    const int64_t before = countWithNewGrid();
    act(2000);
    EXPECT_NEAR(countWithNewGrid(), before, 5);
}

TEST_F(GridSoak, DestroyedGridsLeaveNothingBehind) {
    const auto makeAndDestroy = [this](int count) {
        for (int i = 0; i < count; i++) {
            DestroyWindow(grid);
            MakeGrid(3, 4);
            SetWindowTextW(grid, L"title");
            Edit(1, 1, L"text");
            heardOfGrid.all.clear();
            heardOfGrid.codes.clear();
        }
    };
    makeAndDestroy(20);
    const int64_t bytes = HeapBytes();
    makeAndDestroy(100);
    // A record that was lost with each grid would be more than 200 bytes.
    EXPECT_LT(HeapBytes() - bytes, 5000);
}

// Few enough for a busy machine: 100,000 edits took four minutes under Wine.
TEST_F(GridSoak, AThousandEditsLeaveNothingBehind) {
    constexpr int Edits = 1000;
    const auto edit = [this](int from, int to) {
        for (int i = from; i < to; i++) {
            const std::wstring text = std::to_wstring(1'000'000 + i);
            Edit(i % 3, i / 3 % 4, text.c_str());
            heardOfGrid.all.clear();
            heardOfGrid.codes.clear();
        }
        UpdateWindow(grid);
    };
    edit(0, 200);
    const int64_t objects = CountGdiObjects(GetCurrentProcess());
    const int64_t bytes = HeapBytes();
    ASSERT_GT(bytes, 0);
    edit(200, Edits);
    EXPECT_EQ(Read((Edits - 1) % 3, (Edits - 1) / 3 % 4), u"1000999");
    EXPECT_NEAR(CountGdiObjects(GetCurrentProcess()), objects, 5);
    // A text that was lost with each edit would be 16 bytes times 800.
    printf("%lld bytes more after %d edits\n", HeapBytes() - bytes, Edits - 200);
    EXPECT_LT(HeapBytes() - bytes, 6000);
    EXPECT_EQ(GetWindow(Editor(), GW_HWNDNEXT), nullptr);
}

}  // namespace
}  // namespace tallymere
