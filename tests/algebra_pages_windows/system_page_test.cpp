// The page of linear systems as it is made, its layout, its grid, and what Solve and Clear do.

#include "algebra_pages_windows/system_page_testing.h"

namespace tallymere::testing_support {
namespace {

class SystemFormTest : public SystemPageTest {
protected:
    static void ExpectControls(LayoutSize client) {
        for (int32_t i = 0; i < SystemControlCount; i++) {
            SCOPED_TRACE(i);
            const auto index = static_cast<SystemControl>(i);
            const HWND control = Control(index);
            EXPECT_EQ(GetParent(control), systemPage.window);
            EXPECT_TRUE(WindowStyle(control) & WS_VISIBLE);
            EXPECT_EQ(PlaceInParent(control), ToScreenPixels(PlaceSystemControl(index, client)));
            if (SystemForm[i].text != nullptr) {
                EXPECT_EQ(WholeText(control), uiText.*SystemForm[i].text);
            }
        }
    }
};

TEST_F(SystemFormTest, HasEveryControlInItsPlaceInBothLanguages) {
    for (const Language language : {LanguageEnglish, LanguageGerman}) {
        for (const int32_t dpi : {96, 120, 144, 192}) {
            SCOPED_TRACE(dpi);
            MakeAgain(language, dpi);
            ExpectControls(LogicalClientSize(systemPage.window));
        }
    }
    EXPECT_EQ(WholeText(systemPage.window), u"Lineare Gleichungssysteme");
    MakeAgain(LanguageEnglish);
    EXPECT_EQ(LogicalClientSize(systemPage.window), SystemPageSize);
    EXPECT_EQ(WholeText(systemPage.window), u"Systems of linear equations");
    EXPECT_EQ(pageWindows[PageLinearSystems], systemPage.window);
}

TEST_F(SystemFormTest, BeginsWithItsChoices) {
    EXPECT_EQ(NumberOf(SystemCount), u"2");
    EXPECT_EQ(RangeOf(SystemCount), Range(2, 25));
    EXPECT_EQ(NumberOf(SystemPrecision), u"10");
    EXPECT_EQ(RangeOf(SystemPrecision), Range(5, 1000));
    EXPECT_EQ(SelectedNumberType(Control(SystemType)), NumberTypeReal);
    EXPECT_EQ(Output(), u"");
    EXPECT_EQ(Cells(), std::vector<Row>(2, Row(3)));
    EXPECT_FALSE(IsWindowVisible(systemPage.window));
    for (int32_t i = 0; i < SystemControlCount; i++) {
        EXPECT_TRUE(IsEnabled(static_cast<SystemControl>(i))) << i;
    }
}

TEST_F(SystemFormTest, FillsItsClientArea) {
    for (const LayoutSize client : {LayoutSize{900, 700}, LayoutSize{420, 330}}) {
        Resize(client);
        ExpectControls(client);
    }
}

TEST_F(SystemFormTest, AMinimisedPageIsNotLaidOut) {
    ExpectNotToBeLaidOutWhileMinimised();
}

TEST_F(SystemFormTest, CanBeResizedAndStandsInTheMiddle) {
    ExpectToBeResizableAndInTheMiddle();
}

TEST_F(SystemFormTest, IsGoneWithItsWindow) {
    ExpectToBeGoneWithItsWindow();
}

TEST_F(SystemFormTest, TheResultHasManyLinesWhichAreNotWrapped) {
    ExpectUnbrokenLines();
}

TEST_F(SystemFormTest, TheGridHasTheColumnsOfTheCount) {
    EXPECT_EQ(AskGrid(GridColumnCount), 27);
    EXPECT_EQ(ShownColumns(), (Row{u"a1", u"a2", u"b"}));
    EXPECT_EQ(RowNames(), (Row{u"1", u"2"}));
    EXPECT_EQ(AskGrid(GridGetColumnWidth, 0), 80);
    EnterNumber(SystemCount, 25);
    Row names;
    for (int32_t column = 0; column < SystemColumnCount; column++) {
        names.push_back(NameOfSystemColumn(column).text);
    }
    EXPECT_EQ(ShownColumns(), names);
    EXPECT_EQ(RowNames().size(), 25u);
    EXPECT_EQ(RowNames().back(), u"25");
    EnterNumber(SystemCount, 3);
    EXPECT_EQ(ShownColumns(), (Row{u"a1", u"a2", u"a3", u"b"}));
    EXPECT_EQ(RowNames(), (Row{u"1", u"2", u"3"}));
    EnterNumber(SystemCount, 99);
    EXPECT_EQ(RowNames().size(), 25u);
}

// Columns are hidden, and keep their texts; rows go.
TEST_F(SystemFormTest, AnotherCountKeepsTheTexts) {
    WriteSystem({{u"1", u"2", u"3", u"4"}, {u"5", u"6", u"7", u"8"}, {u"9", u"10", u"11", u"12"}});
    EnterNumber(SystemCount, 2);
    EXPECT_EQ(Cells(), (std::vector<Row>{{u"1", u"2", u"4"}, {u"5", u"6", u"8"}}));
    EnterNumber(SystemCount, 3);
    EXPECT_EQ(Cells(),
              (std::vector<Row>{
                  {u"1", u"2", u"3", u"4"}, {u"5", u"6", u"7", u"8"}, {u"", u"", u"", u""}}));
}

TEST_F(SystemFormTest, TheCursorStaysWhereItIsSeen) {
    EnterNumber(SystemCount, 6);
    AskGrid(GridSetCursor, 4, 5);
    EnterNumber(SystemCount, 2);
    EXPECT_GT(AskGrid(GridGetColumnWidth, AskGrid(GridCursorColumn)), 0);
    EXPECT_LT(AskGrid(GridCursorRow), 2);
    AskGrid(GridSetCursor, RightSideColumn, 1);
    EnterNumber(SystemCount, 25);
    EXPECT_EQ(AskGrid(GridCursorColumn), RightSideColumn);
}

TEST_F(SystemFormTest, FractionsHaveNoPrecision) {
    ChooseType(NumberTypeRational);
    EXPECT_FALSE(IsEnabled(SystemPrecision));
    EXPECT_FALSE(IsEnabled(SystemPrecisionLabel));
    for (const NumberType type : {NumberTypeComplex, NumberTypeReal}) {
        ChooseType(NumberTypeRational);
        ChooseType(type);
        EXPECT_TRUE(IsEnabled(SystemPrecision));
        EXPECT_TRUE(IsEnabled(SystemPrecisionLabel));
    }
    EnterNumber(SystemPrecision, 1);
    EXPECT_EQ(NumberOf(SystemPrecision), u"5");
}

TEST_F(SystemFormTest, TabGoesThroughThePageInTheOrderOfItsControls) {
    ExpectTabOrder({NumericEdit(Control(SystemCount)), NumberTypeList(Control(SystemType)),
                    NumericEdit(Control(SystemPrecision)), Control(SystemGrid),
                    Control(SystemOutput), Control(SystemSolve), Control(SystemClear),
                    Control(SystemLoad), Control(SystemSaveAs), Control(SystemClose)});
}

TEST_F(SystemFormTest, CloseHidesThePage) {
    ExpectCloseToHide(SystemClose);
}

TEST_F(SystemFormTest, ClearEmptiesCellsAndResult) {
    Solve({{u"1", u"1", u"1", u"1"}, {u"", u"1", u"1", u"1"}, {u"", u"", u"1", u"1"}});
    ASSERT_NE(Output(), u"");
    EnterNumber(SystemCount, 2);
    SendMessageW(systemPage.window, WM_COMMAND, MAKEWPARAM(0, BN_SETFOCUS),
                 reinterpret_cast<LPARAM>(Control(SystemClear)));
    EXPECT_EQ(GridCell(0, 0), u"1") << "a click alone clears";
    Click(SystemClear);
    EXPECT_EQ(Output(), u"");
    EXPECT_EQ(NumberOf(SystemCount), u"2");
    EXPECT_EQ(Cells(), std::vector<Row>(2, Row(3)));
    EnterNumber(SystemCount, 3);
    EXPECT_EQ(Cells(), std::vector<Row>(3, Row(4))) << "hidden columns are empty as well";
}

TEST_F(SystemFormTest, ClearEmptiesTheCellThatIsEdited) {
    WriteSystem({{u"1", u"2", u"3"}, {u"4", u"5", u"6"}});
    ShowWindow(systemPage.window, SW_SHOW);
    SetFocus(Control(SystemGrid));
    const GridCellSpec cell = {1, 0, nullptr};
    ASSERT_EQ(AskGrid(GridSetCursorEdit, 0, reinterpret_cast<LPARAM>(&cell)), 0);
    TypeCharacter(OpenEditor(), u'7');
    SetFocus(Control(SystemClear));
    Click(SystemClear);
    EXPECT_EQ(OpenEditor(), nullptr);
    EXPECT_EQ(Cells(), std::vector<Row>(2, Row(3)));
}

using SystemRunTest = SystemPageTest;

TEST_F(SystemRunTest, SolvesWithEachNumberType) {
    EXPECT_EQ(Solve({{u"3", u"1", u"1"}, {u"", u"3", u"\t "}}), u"x1 = 0.3333333333\r\nx2 = 0\r\n");
    ChooseType(NumberTypeRational);
    Click(SystemSolve);
    EXPECT_EQ(Output(), u"x1 = 1/3\r\nx2 = 0\r\n");
    ChooseType(NumberTypeComplex);
    EnterNumber(SystemPrecision, 5);
    EXPECT_EQ(Solve({{u"i", u"", u"1"}, {u"", u"3", u"1+i"}}),
              u"x1 = -i\r\nx2 = 0.33333+0.33333i\r\n");
}

TEST_F(SystemRunTest, ShowsParametersAndContradictions) {
    EXPECT_EQ(Solve({{u"1", u"1", u"2"}, {u"1", u"1", u"2"}}),
              u"x1 = 2-r\r\nx2 = r\r\n\r\nThe parameter variable r is freely selectable.\r\n");
    EXPECT_EQ(Solve({{u"1", u"1", u"2"}, {u"1", u"1", u"3"}}),
              u"Equation system is unsolvable!\r\n");
    Click(SystemSolve);
    EXPECT_EQ(Output(), u"Equation system is unsolvable!\r\n") << "it stands there once";
}

TEST_F(SystemRunTest, GroupsDigitsAsTheSettingsSay) {
    const std::vector<Row> rows = {{u"1", u"", u"12,345"}, {u"", u"1", u"1"}};
    EXPECT_EQ(Solve(rows), u"x1 = 12345\r\nx2 = 1\r\n");
    settings.groupEquations = true;
    EXPECT_EQ(Solve(rows), u"x1 = 12,345\r\nx2 = 1\r\n");
}

TEST_F(SystemRunTest, AnErrorNamesRowAndColumn) {
    Solve({{u"1", u"1", u"1"}, {u"1", u"-1", u"1"}});
    ASSERT_NE(Output(), u"");
    const MessageBoxAnswer answer;
    EXPECT_EQ(Solve({{u"1", u"1", u"1"}, {u"1", u"\"2\"", u"1"}}), u"");
    EXPECT_EQ(answer.boxes, 1);
    EXPECT_EQ(answer.text,
              "Error evaluating coefficient in equation 2, column \"a2\": "
              "Syntax error at character position 1!");
    EXPECT_EQ(GridCell(1, 1), u"\"2\"");
    EXPECT_EQ(Solve({{u"1", u"1", u"1"}, {u"1", u"1", std::u16string(1031, u'1')}}), u"");
    EXPECT_EQ(answer.text, "The coefficient in equation 2, column \"b\" is too long!");
    EXPECT_EQ(answer.boxes, 2);
}

TEST_F(SystemRunTest, WhileItSolvesTheCursorSaysSo) {
    static HCURSOR shown;
    static HWND output;
    output = Control(SystemOutput);
    // The cursor is looked at when the result comes.
    const WindowHandler look = [](HWND, UINT message, WPARAM, LPARAM, bool&) -> LRESULT {
        shown = message == EM_REPLACESEL ? GetCursor() : shown;
        return 0;
    };
    SetControlHandler(output, look);
    const HCURSOR arrow = LoadCursorW(nullptr, IDC_ARROW);
    SetCursor(arrow);
    Solve({{u"1", u"1", u"2"}, {u"1", u"-1", u"0"}});
    EXPECT_EQ(shown, LoadCursorW(nullptr, IDC_WAIT));
    EXPECT_EQ(GetCursor(), arrow);
    EXPECT_EQ(Output(), u"x1 = 1\r\nx2 = 1\r\n");
}

}  // namespace
}  // namespace tallymere::testing_support
