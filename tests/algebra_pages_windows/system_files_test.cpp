// What Load and Save as do between the dialogs of the system and a file.

#include <optional>
#include <string>

#include "algebra_pages_windows/system_page_testing.h"
#include "shell_windows/file_folder.h"
#include "toolkit/grid_record.h"

#include <commdlg.h>

namespace tallymere::testing_support {
namespace {

/// The functions that the page finds where it looks for the dialogs of the system.
extern "C" {
extern void* __imp_GetOpenFileNameW;
extern void* __imp_GetSaveFileNameW;
}

// Stands in for both dialogs of the system: notes what it was asked, and answers like a user.
class DialogAnswer {
public:
    /// Without a name the user cancels.
    explicit DialogAnswer(const std::optional<fs::path>& name, DWORD filterIndex = 1) {
        answer_ = name.has_value() ? name->wstring() : std::optional<std::wstring>();
        filterIndex_ = filterIndex;
        asked = {};
        askedName.clear();
        opens = saves = 0;
        Put(__imp_GetOpenFileNameW, [](OPENFILENAMEW* dialog) -> BOOL {
            opens++;
            return Answer(*dialog);
        });
        Put(__imp_GetSaveFileNameW, [](OPENFILENAMEW* dialog) -> BOOL {
            saves++;
            return Answer(*dialog);
        });
    }
    ~DialogAnswer() {
        Put(__imp_GetOpenFileNameW, System("GetOpenFileNameW"));
        Put(__imp_GetSaveFileNameW, System("GetSaveFileNameW"));
    }
    DialogAnswer(const DialogAnswer&) = delete;
    DialogAnswer& operator=(const DialogAnswer&) = delete;

    static inline OPENFILENAMEW asked;
    static inline std::wstring askedName;
    static inline std::wstring askedFilter;
    static inline int opens;
    static inline int saves;

private:
    using Dialog = BOOL (*)(OPENFILENAMEW*);

    static Dialog System(const char* name) {
        return reinterpret_cast<Dialog>(GetProcAddress(GetModuleHandleW(L"comdlg32.dll"), name));
    }
    static void Put(void*& place, Dialog dialog) {
        DWORD access = 0;
        VirtualProtect(&place, sizeof place, PAGE_READWRITE, &access);
        place = reinterpret_cast<void*>(dialog);
        VirtualProtect(&place, sizeof place, access, &access);
    }
    // Like that of the system it writes into the name even if it was cancelled.
    static BOOL Answer(OPENFILENAMEW& dialog) {
        asked = dialog;
        askedName = dialog.lpstrFile;
        const wchar_t* end = dialog.lpstrFilter;
        while (end[0] != 0 || end[1] != 0) {
            end++;
        }
        askedFilter.assign(dialog.lpstrFilter, end);
        const std::wstring name = answer_.value_or(L"?");
        dialog.lpstrFile[name.copy(dialog.lpstrFile, dialog.nMaxFile - 1)] = 0;
        dialog.nFilterIndex = filterIndex_;
        return answer_.has_value();
    }

    static inline std::optional<std::wstring> answer_;
    static inline DWORD filterIndex_;
};

// Cancels every dialog of the system that the page shows, as soon as that is there.
class DialogCancel {
public:
    DialogCancel() {
        dialogs = 0;
        pageWasEnabled = false;
        hook_ = SetWindowsHookExW(WH_CBT, Cancel, nullptr, GetCurrentThreadId());
    }
    ~DialogCancel() { UnhookWindowsHookEx(hook_); }
    DialogCancel(const DialogCancel&) = delete;
    DialogCancel& operator=(const DialogCancel&) = delete;

    static inline int dialogs;
    static inline bool pageWasEnabled;  ///< while one was there

private:
    static LRESULT CALLBACK Cancel(int code, WPARAM wParam, LPARAM lParam) {
        const auto window = reinterpret_cast<HWND>(wParam);
        if (code == HCBT_ACTIVATE && HasClass(window, u"#32770")) {
            dialogs++;
            pageWasEnabled = IsWindowEnabled(systemPage.window) != FALSE;
            PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
        }
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }

    HHOOK hook_;
};

class SystemFilesTest : public SystemPageTest {
protected:
    static void Load(const fs::path& name) {
        const DialogAnswer dialog(name);
        Click(SystemLoad);
    }
    static void SaveAs(const fs::path& name) {
        const DialogAnswer dialog(name);
        Click(SystemSaveAs);
    }
    void LoadBytes(const std::string& bytes) {
        PutBytes(folder / "bytes", bytes);
        Load(folder / "bytes");
    }

    static bool IsEditorOpen() { return GridRecordOf(Control(SystemGrid))->isEditorOpen; }
    static void TypeIntoFirstCell(char16_t c) {
        ShowWindow(systemPage.window, SW_SHOW);
        SetFocus(Control(SystemGrid));
        const GridCellSpec cell = {0, 0, nullptr};
        ASSERT_EQ(AskGrid(GridSetCursorEdit, 0, reinterpret_cast<LPARAM>(&cell)), 0);
        TypeCharacter(GridRecordOf(Control(SystemGrid))->editWindow, c);
    }

private:
    const FolderOfTest folder_;

protected:
    const fs::path& folder = folder_.path;
    const fs::path file = folder / "system.csv";
};

const std::vector<std::vector<std::u16string>> ThreeRows = {
    {u"1", u"1/2", u"sqrt(2)", u"4"}, {u"", u"-6", u"7", u" 8"}, {u"9", u"1e1", u"11", u"b?"}};
const std::string ThreeRowsFile = "a1;a2;a3;b\r\n1;1/2;sqrt(2);4\r\n;-6;7; 8\r\n9;1e1;11;b?\r\n";

TEST_F(SystemFilesTest, SavesWhatLoadReads) {
    WriteSystem(ThreeRows);
    SaveAs(file);
    EXPECT_EQ(ContentOf(file), ThreeRowsFile);
    Click(SystemClear);
    EnterNumber(SystemCount, 5);
    Load(file);
    EXPECT_EQ(NumberOf(SystemCount), u"3");
    EXPECT_EQ(Cells(), ThreeRows);
    EXPECT_EQ(ShownColumns(), (Row{u"a1", u"a2", u"a3", u"b"}));
    EXPECT_EQ(RowNames().size(), 3u);
}

TEST_F(SystemFilesTest, ThePageSolvesWhatItHasLoaded) {
    LoadBytes("a1;a2;b\n1;1;2\n1;-1;0\n");
    Click(SystemSolve);
    EXPECT_EQ(Output(), u"x1 = 1\r\nx2 = 1\r\n");
}

// A click sent to a button leaves the focus where it is, so nothing but the page closes the editor.
TEST_F(SystemFilesTest, SavesTheCellThatIsEditedAsItStandsInItsEditor) {
    WriteSystem({{u"", u"2", u"3"}, {u"4", u"5", u"6"}});
    TypeIntoFirstCell(u'7');
    ASSERT_EQ(GridCell(0, 0), u"");
    SaveAs(file);
    EXPECT_EQ(ContentOf(file), "a1;a2;b\r\n7;2;3\r\n4;5;6\r\n");
    EXPECT_FALSE(IsEditorOpen());
}

TEST_F(SystemFilesTest, LoadDropsWhatIsTyped) {
    TypeIntoFirstCell(u'7');
    LoadBytes("a1;a2;b\r\n1;2;3\r\n4;5;6\r\n");
    EXPECT_FALSE(IsEditorOpen());
    EXPECT_EQ(Cells()[0], (Row{u"1", u"2", u"3"}));
    SetFocus(Control(SystemLoad));
    EXPECT_EQ(Cells()[0], (Row{u"1", u"2", u"3"}));
}

TEST_F(SystemFilesTest, LoadEmptiesCellsAndResultFirst) {
    WriteSystem(ThreeRows);
    WriteGridCell(0, 10, u"hidden");
    Solve({{u"1", u"", u"1"}, {u"", u"1", u"1"}});
    LoadBytes("a1;a2;b\r\n1\r\n");
    EXPECT_EQ(Cells(), (std::vector<Row>{{u"1", u"", u""}, {u"", u"", u""}}));
    EXPECT_EQ(Output(), u"");
    EnterNumber(SystemCount, 11);
    EXPECT_EQ(GridCell(0, 10), u"");
}

// Also where the control was moved, and then the same count is loaded again.
TEST_F(SystemFilesTest, TheCountFollowsEachFile) {
    for (const int32_t typed : {2, 7, 4}) {
        EnterNumber(SystemCount, typed);
        LoadBytes("a1;a2;a3;a4;b\r\n1;2;3;4;5\r\n");
        EXPECT_EQ(NumberOf(SystemCount), u"4");
        EXPECT_EQ(Rows(), 4);
        EXPECT_EQ(Cells()[0], (Row{u"1", u"2", u"3", u"4", u"5"}));
    }
}

TEST_F(SystemFilesTest, ExtraCellsShowUpWithTheirColumns) {
    LoadBytes("a1;a2;b\r\n1;2;3;4;5\r\n6;7;8\r\n9;10;11\r\n");
    EXPECT_EQ(Cells(), (std::vector<Row>{{u"1", u"2", u"3"}, {u"6", u"7", u"8"}}));
    EnterNumber(SystemCount, 5);
    EXPECT_EQ(Cells()[0], (Row{u"1", u"2", u"", u"4", u"5", u"3"}));
    EXPECT_EQ(Cells()[2], Row(6));
}

TEST_F(SystemFilesTest, ARefusedFileChangesNothing) {
    Solve({{u"1", u"1", u"2"}, {u"1", u"-1", u"0"}});
    const std::vector<Row> cells = Cells();
    const std::u16string output = Output();
    const MessageBoxAnswer answer;
    LoadBytes("a1;b\r\n1;2\r\n");
    EXPECT_EQ(answer.boxes, 1);
    EXPECT_EQ(answer.text, "The number of equation variables has to be between 2 und 25!");
    EXPECT_EQ(answer.owner, systemPage.window);
    Load(folder / "none.csv");
    EXPECT_EQ(answer.boxes, 2);
    EXPECT_EQ(answer.text, "The file \"" + (folder / "none.csv").string() + "\" was not found!");
    Load(folder);
    EXPECT_EQ(answer.boxes, 3);
    EXPECT_TRUE(answer.text.starts_with("Error when accessing file \"" + folder.string() + "\" !"));
    // It ends within its first line.
    LoadBytes("a1;a2;b");
    EXPECT_EQ(answer.boxes, 4);
    EXPECT_EQ(answer.text, "The number of equation variables has to be between 2 und 25!");
    EXPECT_EQ(Cells(), cells);
    EXPECT_EQ(Output(), output);
    EXPECT_EQ(NumberOf(SystemCount), u"2");
}

TEST_F(SystemFilesTest, AFileThatCannotBeWrittenIsTold) {
    PutBytes(file, "old");
    const HeldFile held(file, GENERIC_READ, FILE_SHARE_READ);
    const MessageBoxAnswer answer;
    SaveAs(file);
    EXPECT_EQ(answer.boxes, 1);
    EXPECT_EQ(answer.text,
              "Error when accessing file \"" + file.string() +
                  "\" ! Possibly the file is already opened in another program or you do not have "
                  "sufficient access rights for the file.");
    EXPECT_EQ(ContentOf(file), "old");
}

TEST_F(SystemFilesTest, CancelChangesNothing) {
    WriteSystem(ThreeRows);
    const DialogAnswer dialog(std::nullopt);
    Click(SystemLoad);
    Click(SystemSaveAs);
    EXPECT_EQ(dialog.opens, 1);
    EXPECT_EQ(dialog.saves, 1);
    EXPECT_EQ(Cells(), ThreeRows);
    EXPECT_TRUE(fs::is_empty(folder));
}

TEST_F(SystemFilesTest, LoadAsksForAFileThatIsThere) {
    {
        const DialogAnswer dialog(std::nullopt, 2);
        Click(SystemLoad);
        EXPECT_EQ(dialog.asked.hwndOwner, systemPage.window);
        EXPECT_EQ(dialog.asked.Flags, DWORD{OFN_FILEMUSTEXIST | OFN_HIDEREADONLY});
        EXPECT_EQ(dialog.asked.nMaxFile, 260u);
        EXPECT_EQ(dialog.asked.nFilterIndex, 1u);
        EXPECT_EQ(dialog.askedName, L"");
    }
    const DialogAnswer dialog(std::nullopt);
    Click(SystemLoad);
    EXPECT_EQ(dialog.asked.nFilterIndex, 2u) << "the kind of files is kept";
    EXPECT_EQ(dialog.askedName, L"");
    Click(SystemSaveAs);
    EXPECT_EQ(dialog.asked.nFilterIndex, 1u) << "each dialog has its own";
}

TEST_F(SystemFilesTest, SaveAsAsksBeforeItReplaces) {
    {
        const DialogAnswer dialog(folder / "first", 2);
        Click(SystemSaveAs);
        EXPECT_EQ(dialog.asked.hwndOwner, systemPage.window);
        EXPECT_EQ(dialog.asked.Flags, DWORD{OFN_OVERWRITEPROMPT | OFN_HIDEREADONLY});
        EXPECT_EQ(dialog.asked.nMaxFile, 260u);
        EXPECT_EQ(dialog.asked.nFilterIndex, 1u);
        EXPECT_EQ(dialog.askedName, L"");
    }
    EXPECT_TRUE(fs::exists(folder / "first.csv"));
    {
        const DialogAnswer dialog(std::nullopt, 2);
        Click(SystemSaveAs);
        EXPECT_EQ(dialog.askedName, folder / "first.csv");
        EXPECT_EQ(dialog.asked.nFilterIndex, 2u);
    }
    const DialogAnswer dialog(folder / "second.txt");
    Click(SystemSaveAs);
    EXPECT_EQ(dialog.askedName, folder / "first.csv") << "a name that was not taken is not kept";
    EXPECT_TRUE(fs::exists(folder / "second.txt"));
}

// With the dialogs of the system themselves.
TEST_F(SystemFilesTest, BehindADialogTheKeysGoOnAtItsButton) {
    ShowWindow(systemPage.window, SW_SHOW);
    for (const SystemControl button : {SystemLoad, SystemSaveAs}) {
        SetFocus(Control(button));
        const DialogCancel cancel;
        PressKey(GetFocus(), VK_RETURN);
        EXPECT_EQ(cancel.dialogs, 1);
        EXPECT_FALSE(cancel.pageWasEnabled);
        EXPECT_TRUE(IsWindowEnabled(systemPage.window));
        EXPECT_EQ(GetActiveWindow(), systemPage.window);
        EXPECT_EQ(GetFocus(), Control(button));
        PressKey(GetFocus(), VK_TAB);
        EXPECT_EQ(GetFocus(), Control(static_cast<SystemControl>(button + 1)));
    }
}

TEST_F(SystemFilesTest, TheKindsOfFilesAreNamedInTheLanguageOfTheProgram) {
    MakeAgain(LanguageGerman);
    const DialogAnswer dialog(std::nullopt);
    Click(SystemLoad);
    using namespace std::string_literals;
    EXPECT_EQ(dialog.askedFilter, L"CSV-Dateien\0*.csv\0Alle Dateien\0*.*"s);
    Click(SystemSaveAs);
    EXPECT_EQ(dialog.askedFilter, L"CSV-Dateien\0*.csv\0Alle Dateien\0*.*"s);
}

}  // namespace
}  // namespace tallymere::testing_support
