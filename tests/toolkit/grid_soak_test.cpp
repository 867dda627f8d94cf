// Long use of a grid: nothing comes apart, and nothing is left behind.
#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

#include "support/random_source.h"
#include "toolkit/gdi_objects.h"
#include "toolkit/grid_page.h"

namespace tallymere {
namespace {

using testing_support::CountGdiObjects;
using testing_support::heardOfGrid;
using testing_support::LoopDeadline;
using testing_support::RandomSource;
using testing_support::WholeText;

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

// The texts that a grid should have, headers included: columns of cells.
class TextModel {
public:
    TextModel(int32_t columns, int32_t rows) {
        Clear();
        for (int32_t i = 0; i < columns; i++) {
            AddColumn(u"head");
        }
        for (int32_t i = 0; i < rows; i++) {
            InsertRow(Rows() + 1, u"row");
        }
    }

    int32_t Columns() const { return static_cast<int32_t>(texts_.size()) - 1; }
    int32_t Rows() const { return static_cast<int32_t>(texts_[0].size()) - 1; }
    std::u16string& At(int32_t column, int32_t row) {
        return texts_.at(static_cast<size_t>(column)).at(static_cast<size_t>(row));
    }

    void Clear() { texts_ = {{u""}}; }
    void AddColumn(const std::u16string& header) {
        texts_.emplace_back(texts_[0].size());
        texts_.back()[0] = header;
    }
    void InsertRow(int32_t row, const std::u16string& header) {
        for (auto& column : texts_) {
            column.insert(column.begin() + row, u"");
        }
        At(0, row) = header;
    }
    void DeleteRow(int32_t row) {
        for (auto& column : texts_) {
            column.erase(column.begin() + row);
        }
    }

private:
    std::vector<std::vector<std::u16string>> texts_;
};

class GridSoak : public testing_support::GridTest {
protected:
    // What an editor holds goes into the cell when the page hears of its end, and only then.
    GridSoak() : model(3, 4) {
        heardOfGrid.react = [this](UINT code) {
            if (code == GridEditorClosed) {
                const GridNotification& told = heardOfGrid.all.back();
                model.At(told.column + 1, told.row + 1) = WholeText(Editor());
            }
        };
    }

    // Every text that the grid tells is that of the model.
    void CheckTexts() {
        ASSERT_EQ(Ask(GridColumnCount), model.Columns());
        ASSERT_EQ(Ask(GridRowCount), model.Rows());
        char16_t text[64];
        for (int32_t column = 0; column < model.Columns(); column++) {
            ASSERT_EQ(AskText(GridGetColumnHeader, column, text), 0);
            ASSERT_EQ(std::u16string(text), model.At(column + 1, 0)) << column;
            for (int32_t row = 0; row < model.Rows(); row++) {
                const GridCellSpec spec = {column, row, text};
                ASSERT_EQ(Ask(GridGetCellText, 0, reinterpret_cast<LPARAM>(&spec)),
                          static_cast<LRESULT>(model.At(column + 1, row + 1).size()));
                ASSERT_EQ(std::u16string(text), model.At(column + 1, row + 1))
                    << column << " " << row;
            }
        }
        for (int32_t row = 0; row < model.Rows(); row++) {
            ASSERT_EQ(AskText(GridGetRowHeader, row, text), 0);
            ASSERT_EQ(std::u16string(text), model.At(0, row + 1)) << row;
        }
    }

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

    // One of the things that a page or a user may do, with arguments that may be nonsense.
    void ActAtRandom() {
        switch (random.Below(22)) {
            case 0:
                ActOnColumns();
                break;
            case 1:
            case 2:
            case 3:
                ActOnRows();
                break;
            case 4:
                Ask(GridHideColumn, Column(), Number(0, 1));
                break;
            case 5:
                Ask(GridSetColumnWidth, Column(), Number(-20, 150));
                break;
            case 6:
                Ask(GridSetCursor, Column(), Row());
                break;
            case 7:
                AskCell(GridSetCursorEdit, Number(0, 1), Column(), Row());
                break;
            case 8:
                WriteCell();
                break;
            case 9:
                AskCell(GridSetCellProtected, Number(0, 3) == 0, Number(0, 8), Number(0, 20));
                break;
            case 10:
            case 11:
            case 12:
            case 13:
                ChangeLooks();
                break;
            case 14:
            case 15:
            case 16:
                Scroll();
                break;
            case 17:
            case 18:
                Click(Number(-5, 480), Number(-5, 360));
                break;
            case 19:
                UpdateWindow(grid);
                break;
            default:
                UseTheKeyboard();
                break;
        }
        KeepItSmall();
    }

    void Edit(int32_t column, int32_t row, const wchar_t* text) {
        AskCell(GridSetCursorEdit, 1, column, row);
        SetWindowTextW(Editor(), text);
        SendMessageW(Editor(), WM_CHAR, VK_RETURN, 1);
    }

    TextModel model;

private:
    int32_t Number(int64_t low, int64_t high) {
        return static_cast<int32_t>(random.Between(low, high));
    }
    // There may be no such column or row.
    int32_t Column() { return Number(-1, 12); }
    int32_t Row() { return Number(-1, 30); }
    std::u16string Text() {
        const size_t length = random.Below(12);
        return std::u16string(length, static_cast<char16_t>(u'0' + random.Below(10)));
    }

    void ActOnColumns() {
        const std::u16string header = Text();
        if (AddColumn(header.c_str(), Number(0, 5) == 0 ? 0 : 1) >= 0) {
            model.AddColumn(header);
        }
    }

    void ActOnRows() {
        const std::u16string header = Text();
        const int32_t row = Number(-2, 30);
        const bool isThere = row >= 0 && row < model.Rows();
        switch (random.Below(3)) {
            case 0:
                ASSERT_EQ(AskText(GridAddRow, 0, header.c_str()), model.Rows());
                model.InsertRow(model.Rows() + 1, header);
                break;
            case 1:
                ASSERT_EQ(AskText(GridInsertRow, row, header.c_str()),
                          isThere || row == -1 ? row + 1 : -1);
                if (isThere || row == -1) {
                    model.InsertRow(row + 2, header);
                }
                break;
            default:
                ASSERT_EQ(Ask(GridDeleteRow, row), isThere ? model.Rows() - 1 : -1);
                if (isThere) {
                    model.DeleteRow(row + 1);
                }
                break;
        }
    }

    void WriteCell() {
        const int32_t column = Column();
        const int32_t row = Row();
        const std::u16string text = Text();
        if (Write(column, row, text) == 0) {
            model.At(column + 1, row + 1) = text;
        }
    }

    void ChangeLooks() {
        switch (random.Below(4)) {
            case 0:
                Ask(Number(GridSetAllowResize, GridSetShowColumnLetters), Number(0, 1));
                break;
            case 1:
                Ask(GridSetRowSelect, Number(0, 3));
                break;
            case 2:
                Ask(GridSetRowHeight, Number(-3, 60));
                break;
            default:
                SetControlSize(grid, Number(0, 480), Number(0, 360));
                break;
        }
    }

    void Scroll() {
        switch (random.Below(3)) {
            case 0:
                Ask(WM_VSCROLL, MAKEWPARAM(Number(0, 8), Number(0, 30)));
                break;
            case 1:
                Ask(WM_HSCROLL, MAKEWPARAM(Number(0, 8), Number(0, 12)));
                break;
            default:
                Ask(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(Number(-400, 400))));
                break;
        }
    }

    void UseTheKeyboard() {
        static constexpr int Keys[] = {VK_UP,  VK_DOWN,   VK_LEFT,   VK_RIGHT, VK_PRIOR,  VK_NEXT,
                                       VK_TAB, VK_RETURN, VK_ESCAPE, VK_HOME,  VK_DELETE, VK_SHIFT,
                                       VK_F2,  'A',       '7',       VK_BACK,  VK_END};
        const HWND focused = GetFocus();
        if (focused != grid && focused != Editor()) {
            SetFocus(grid);
        }
        if (Number(0, 2) == 0) {
            // Into the editor, or such as to open it.
            PressTranslated(VK_PACKET, Text().substr(0, 1));
        } else {
            Press(Keys[random.Below(std::size(Keys))], Number(0, 5) == 0 ? VK_SHIFT : 0);
        }
    }

    // Few enough columns and rows that the walks stay short.
    void KeepItSmall() {
        if (Ask(GridColumnCount) > 12 || Ask(GridRowCount) > 40 || Number(0, 400) == 0) {
            Ask(GridClear);
            model.Clear();
        }
    }

    RandomSource random;
};

TEST_F(GridSoak, TwoThousandRandomActionsLeaveTheGridInOrder) {
    // How much is left to draw with when a new grid has been painted. At first Windows keeps more
    // and more for itself, such as the brushes of scroll bars.
    const auto countWithNewGrid = [this] {
        DestroyWindow(grid);
        MakeGrid(3, 4);
        model = TextModel(3, 4);
        UpdateWindow(grid);
        return CountGdiObjects(GetCurrentProcess());
    };
    const auto act = [this](int actions) {
        for (int i = 0; i < actions && !HasFatalFailure(); i++) {
            SCOPED_TRACE(i);
            ActAtRandom();
            Check();
            CheckTexts();
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

// TALLYMERE_GRID_EDITS in the environment asks for more than are few enough for a busy machine.
constexpr int FewestEdits = 1000;
constexpr int MostEdits = 100'000'000;
constexpr uint32_t MillisecondsPerEdit = 20;

int EditsToMake() {
    wchar_t text[16] = L"";
    GetEnvironmentVariableW(L"TALLYMERE_GRID_EDITS", text, 16);
    return std::clamp(static_cast<int>(wcstol(text, nullptr, 10)), FewestEdits, MostEdits);
}

TEST_F(GridSoak, EditsLeaveNothingBehind) {
    const int edits = EditsToMake();
    deadline.Change(std::max(LoopDeadline::UsualMilliseconds,
                             MillisecondsPerEdit * static_cast<uint32_t>(edits)));
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
    edit(200, edits);
    CheckTexts();
    const std::string last = std::to_string(1'000'000 + edits - 1);
    EXPECT_EQ(Read((edits - 1) % 3, (edits - 1) / 3 % 4), std::u16string(last.begin(), last.end()));
    EXPECT_NEAR(CountGdiObjects(GetCurrentProcess()), objects, 5);
    // A text that was lost with each edit would be 16 bytes times 800.
    printf("%lld bytes more after %d edits\n", HeapBytes() - bytes, edits - 200);
    EXPECT_LT(HeapBytes() - bytes, 6000);
    EXPECT_EQ(GetWindow(Editor(), GW_HWNDNEXT), nullptr);
}

}  // namespace
}  // namespace tallymere
