// The page as it is made, its layout, its grid and its keyboard.

#include "algebra_pages_windows/polynomial_page_testing.h"
#include "layout/control_kinds.h"

namespace tallymere::testing_support {
namespace {

constexpr int32_t Resolutions[] = {96, 120, 144, 192};

class PolynomialFormTest : public PolynomialPageTest {
protected:
    static const char16_t* ClassOf(FormControlKind kind) {
        switch (kind) {
            case FormStatic:
                return u"static";
            case FormUnbrokenField:
                return u"edit";
            case FormNumericUpDown:
                return NumericUpDownClass;
            case FormNumberType:
                return NumberTypeClass;
            case FormGrid:
                return GridClass;
            default:
                return u"button";
        }
    }

    static void ExpectControls(LayoutSize client) {
        for (int32_t i = 0; i < PolynomialControlCount; i++) {
            SCOPED_TRACE(i);
            const auto index = static_cast<PolynomialControl>(i);
            const HWND control = Control(index);
            EXPECT_TRUE(HasClass(control, ClassOf(PolynomialForm[i].kind)));
            EXPECT_EQ(GetParent(control), polynomialPage.window);
            EXPECT_TRUE(WindowStyle(control) & WS_VISIBLE);
            EXPECT_EQ(PlaceInParent(control),
                      ToScreenPixels(PlacePolynomialControl(index, client)));
            if (index != PolynomialHint && index != PolynomialOutput) {
                EXPECT_EQ(WholeText(control), TextOfControl(index));
            }
        }
    }
    static std::u16string TextOfControl(PolynomialControl control) {
        if (control >= PolynomialResultTo0 && control <= PolynomialClear1) {
            char16_t caption[PolynomialCaptionCapacity + 1];
            WritePolynomialCaption(caption, control);
            return caption;
        }
        return FormText(PolynomialForm[control]);
    }

    static Row NamesDownFrom(int32_t power) {
        Row names;
        for (; power >= 0; power--) {
            const std::string name = "a" + std::to_string(power);
            names.emplace_back(name.begin(), name.end());
        }
        return names;
    }
    /// The first column in the view.
    static int32_t LeftColumn() {
        const GridRecord& grid = *GridRecordOf(Control(PolynomialGrid));
        return ShownGridColumnAt(grid.state.table, grid.state.leftColumn) - 1;
    }
};

TEST_F(PolynomialFormTest, HasEveryControlInItsPlaceInBothLanguages) {
    for (const Language language : {LanguageEnglish, LanguageGerman}) {
        for (const int32_t dpi : Resolutions) {
            SCOPED_TRACE(dpi);
            MakeAgain(language, dpi);
            // A window is no larger than the screen lets it be.
            const LayoutSize client = LogicalClientSize(polynomialPage.window);
            if (dpi <= 120) {
                EXPECT_EQ(client, PolynomialPageSize);
            }
            ExpectControls(client);
        }
    }
    EXPECT_EQ(WholeText(polynomialPage.window), u"Polynomberechnung");
    MakeAgain(LanguageEnglish);
    EXPECT_EQ(WholeText(polynomialPage.window), u"Polynomial calculation");
    EXPECT_EQ(pageWindows[PagePolynomialCalculation], polynomialPage.window);
}

TEST_F(PolynomialFormTest, BeginsWithItsChoices) {
    EXPECT_EQ(NumberOf(PolynomialCount), u"2");
    EXPECT_EQ(RangeOf(PolynomialCount), Range(2, 12));
    EXPECT_EQ(NumberOf(PolynomialDegree), u"2");
    EXPECT_EQ(RangeOf(PolynomialDegree), Range(1, 20));
    EXPECT_EQ(NumberOf(PolynomialPrecision), u"10");
    EXPECT_EQ(RangeOf(PolynomialPrecision), Range(5, 1000));
    EXPECT_EQ(SelectedNumberType(Control(PolynomialType)), NumberTypeReal);
    EXPECT_EQ(SendMessageW(NumberTypeList(Control(PolynomialType)), CB_GETCOUNT, 0, 0), 3);
    EXPECT_EQ(RowNames(), (Row{u"P0(x)", u"P1(x)"}));
    EXPECT_EQ(ShownColumns(), (Row{u"a2", u"a1", u"a0"}));
    EXPECT_EQ(Output(), u"");
    EXPECT_FALSE(IsWindowVisible(polynomialPage.window));
    for (int32_t i = 0; i < PolynomialControlCount; i++) {
        EXPECT_EQ(IsEnabled(static_cast<PolynomialControl>(i)),
                  i != PolynomialResultTo0 && i != PolynomialResultTo1)
            << i;
    }
}

TEST_F(PolynomialFormTest, CanBeResizedAndStandsInTheMiddle) {
    ExpectToBeResizableAndInTheMiddle();
}

TEST_F(PolynomialFormTest, IsGoneWithItsWindow) {
    ExpectToBeGoneWithItsWindow();
}

TEST_F(PolynomialFormTest, FillsItsClientArea) {
    for (const int32_t dpi : {96, 120}) {
        MakeAgain(LanguageEnglish, dpi);
        for (const LayoutSize client :
             {LayoutSize{700, 480}, LayoutSize{420, 330}, LayoutSize{720, 453}}) {
            Resize(client);
            ExpectControls(client);
        }
    }
}

TEST_F(PolynomialFormTest, AMinimisedPageIsNotLaidOut) {
    ExpectNotToBeLaidOutWhileMinimised();
}

TEST_F(PolynomialFormTest, TheResultHasManyLinesWhichAreNotWrapped) {
    ExpectUnbrokenLines();
}

TEST_F(PolynomialFormTest, OperatorsAreWrittenInVerdana) {
    for (const int32_t dpi : Resolutions) {
        MakeAgain(LanguageEnglish, dpi);
        const auto fontOf = [](PolynomialControl control) {
            return reinterpret_cast<HFONT>(SendMessageW(Control(control), WM_GETFONT, 0, 0));
        };
        LOGFONTW font = {};
        GetObjectW(fontOf(PolynomialPlus), sizeof font, &font);
        EXPECT_EQ(std::wstring(font.lfFaceName), L"Verdana");
        EXPECT_EQ(font.lfHeight, ToScreenPixels(13));
        for (const PolynomialControl button :
             {PolynomialMinus, PolynomialPower, PolynomialTimes, PolynomialDivide}) {
            EXPECT_EQ(fontOf(button), fontOf(PolynomialPlus)) << "one font for all";
        }
        EXPECT_NE(fontOf(PolynomialClose), fontOf(PolynomialPlus));
    }
}

TEST_F(PolynomialFormTest, TheGridHasAColumnForEachPowerAndAFiller) {
    EXPECT_EQ(AskGrid(GridColumnCount), 22);
    EnterNumber(PolynomialDegree, 20);
    EXPECT_EQ(ShownColumns(), NamesDownFrom(20)) << "the filler is hidden";
    for (int32_t column = 0; column <= 20; column++) {
        EXPECT_EQ(AskGrid(GridGetColumnType, column), GridColumnText);
        EXPECT_EQ(AskGrid(GridGetColumnWidth, column), 80);
    }
    const GridRecord& grid = *GridRecordOf(Control(PolynomialGrid));
    EXPECT_EQ(FindGridColumn(grid.state.table, 0)->width, 40);
    char16_t text[16];
    EXPECT_EQ(ShownGridHeader(grid, 0, 1, text), u"P0(x)");
    EXPECT_EQ(ShownGridHeader(grid, 1, 0, text), u"a20");
}

TEST_F(PolynomialFormTest, RowsComeAndGoAtTheEnd) {
    WriteCell(0, 2, u"first");
    WriteCell(1, 0, u"second");
    EnterNumber(PolynomialCount, 12);
    EXPECT_EQ(polynomialPage.count, 12);
    EXPECT_EQ(RowNames(), (Row{u"P0(x)", u"P1(x)", u"P2(x)", u"P3(x)", u"P4(x)", u"P5(x)", u"P6(x)",
                               u"P7(x)", u"P8(x)", u"P9(x)", u"P10(x)", u"P11(x)"}));
    WriteCell(2, 1, u"third");
    EnterNumber(PolynomialCount, 3);
    EXPECT_EQ(RowNames(), (Row{u"P0(x)", u"P1(x)", u"P2(x)"}));
    EXPECT_EQ(Cell(0, 2), u"first");
    EXPECT_EQ(Cell(1, 0), u"second");
    EXPECT_EQ(Cell(2, 1), u"third");
    EnterNumber(PolynomialCount, 2);
    EnterNumber(PolynomialCount, 3);
    EXPECT_EQ(Cell(2, 1), u"") << "a row that went is a new one";
    EnterNumber(PolynomialCount, 99);
    EXPECT_EQ(Rows(), 12);
    EnterNumber(PolynomialCount, 0);
    EXPECT_EQ(Rows(), 2);
}

TEST_F(PolynomialFormTest, TwoPolynomialsAloneAreDividedAndRaised) {
    for (const auto& [count, takesTwo] : {std::pair(3, false), {2, true}, {12, false}, {2, true}}) {
        EnterNumber(PolynomialCount, count);
        EXPECT_EQ(IsEnabled(PolynomialPower), takesTwo) << count;
        EXPECT_EQ(IsEnabled(PolynomialDivide), takesTwo) << count;
        EXPECT_TRUE(IsEnabled(PolynomialPlus));
        EXPECT_TRUE(IsEnabled(PolynomialMinus));
        EXPECT_TRUE(IsEnabled(PolynomialTimes));
    }
    PressKey(NumericEdit(Control(PolynomialCount)), VK_UP);
    EXPECT_EQ(Rows(), 3) << "the spin buttons change it at once";
    EXPECT_FALSE(IsEnabled(PolynomialPower));
}

TEST_F(PolynomialFormTest, ColumnsAboveTheDegreeAreHidden) {
    for (const int32_t degree : {20, 5, 1, 7, 2}) {
        EnterNumber(PolynomialDegree, degree);
        EXPECT_EQ(polynomialPage.maxDegree, degree);
        EXPECT_EQ(ShownColumns(), NamesDownFrom(degree));
        EXPECT_EQ(LeftColumn(), ColumnOfPower(degree));
    }
    EnterNumber(PolynomialDegree, 99);
    EXPECT_EQ(ShownColumns(), NamesDownFrom(20));
    EnterNumber(PolynomialDegree, 0);
    EXPECT_EQ(ShownColumns(), NamesDownFrom(1));
}

TEST_F(PolynomialFormTest, TheFirstColumnComesIntoViewWithItsDegree) {
    EnterNumber(PolynomialDegree, 20);
    AskGrid(GridSetCursor, ColumnOfPower(0), 0);
    ASSERT_GT(LeftColumn(), ColumnOfPower(20));
    EnterNumber(PolynomialDegree, 18);
    EXPECT_EQ(LeftColumn(), ColumnOfPower(18));
    AskGrid(GridSetCursor, ColumnOfPower(0), 0);
    ASSERT_GT(LeftColumn(), ColumnOfPower(18));
    EnterNumber(PolynomialDegree, 19);
    EXPECT_EQ(LeftColumn(), ColumnOfPower(19));
    EXPECT_EQ(AskGrid(GridCursorColumn), ColumnOfPower(0)) << "the cursor stays";
}

TEST_F(PolynomialFormTest, TheCursorLeavesAColumnThatIsHidden) {
    EnterNumber(PolynomialDegree, 9);
    AskGrid(GridSetCursor, ColumnOfPower(9), 1);
    EnterNumber(PolynomialDegree, 3);
    EXPECT_EQ(AskGrid(GridCursorColumn), ColumnOfPower(3));
    EXPECT_EQ(AskGrid(GridCursorRow), 1);
}

TEST_F(PolynomialFormTest, HiddenTextsComeBackWithTheirColumns) {
    EnterNumber(PolynomialDegree, 5);
    WriteCell(0, 5, u"five");
    EnterNumber(PolynomialDegree, 2);
    EnterNumber(PolynomialDegree, 5);
    EXPECT_EQ(Cell(0, 5), u"five");
}

TEST_F(PolynomialFormTest, TheTextSaysWhichCoefficientsAreMeant) {
    EXPECT_EQ(Text(PolynomialHint),
              u"Enter the coefficients of the polynomials Pi(x) = a2*x^2 + a1*x + a0 into the data "
              u"grid. Empty text cells are read as 0.");
    EnterNumber(PolynomialDegree, 1);
    EXPECT_EQ(Text(PolynomialHint),
              u"Enter the coefficients of the polynomials Pi(x) = a1*x + a0 into the data grid. "
              u"Empty text cells are read as 0.");
    MakeAgain(LanguageGerman);
    EnterNumber(PolynomialDegree, 20);
    EXPECT_EQ(
        Text(PolynomialHint),
        u"Geben Sie die Koeffizienten der Polynome Pi(x) = a20*x^20 + a19*x^19 + ... + a1*x + "
        u"a0 in das Datengitter ein. Leere Textzellen werden als 0 eingelesen.");
}

TEST_F(PolynomialFormTest, FractionsHaveNoPrecision) {
    for (const auto& [type, hasDigits] : {std::pair(NumberTypeRational, false),
                                          {NumberTypeComplex, true},
                                          {NumberTypeRational, false},
                                          {NumberTypeReal, true}}) {
        ChooseType(type);
        EXPECT_EQ(IsEnabled(PolynomialPrecision), hasDigits);
        EXPECT_EQ(IsWindowEnabled(NumericEdit(Control(PolynomialPrecision))) != FALSE, hasDigits);
        EXPECT_EQ(IsEnabled(PolynomialPrecisionLabel), hasDigits);
    }
}

TEST_F(PolynomialFormTest, TabGoesThroughThePageInTheOrderOfItsControls) {
    EnableWindow(Control(PolynomialResultTo0), TRUE);
    EnableWindow(Control(PolynomialResultTo1), TRUE);
    ExpectTabOrder({NumericEdit(Control(PolynomialCount)), NumericEdit(Control(PolynomialDegree)),
                    NumberTypeList(Control(PolynomialType)),
                    NumericEdit(Control(PolynomialPrecision)), Control(PolynomialGrid),
                    Control(PolynomialOutput), Control(PolynomialPlus), Control(PolynomialMinus),
                    Control(PolynomialPower), Control(PolynomialTimes), Control(PolynomialDivide),
                    Control(PolynomialResultTo0), Control(PolynomialResultTo1),
                    Control(PolynomialClear0), Control(PolynomialClear1),
                    Control(PolynomialClearAll), Control(PolynomialClose)});
}

TEST_F(PolynomialFormTest, CloseHidesThePage) {
    ExpectCloseToHide(PolynomialClose);
}

TEST_F(PolynomialFormTest, ClearEmptiesOneRowOrAll) {
    EnterNumber(PolynomialCount, 3);
    const Row full(MaxPolyDegree + 1, u"7");
    const Row empty(MaxPolyDegree + 1);
    const auto fill = [&full] {
        for (int32_t row = 0; row < 3; row++) {
            WritePolynomial(row, full);
        }
    };
    fill();
    SetWindowTextW(Control(PolynomialOutput), L"result");
    Click(PolynomialClear0);
    EXPECT_EQ(Cells(0), empty) << "hidden columns too";
    EXPECT_EQ(Cells(1), full);
    EXPECT_EQ(Cells(2), full);
    fill();
    Click(PolynomialClear1);
    EXPECT_EQ(Cells(0), full);
    EXPECT_EQ(Cells(1), empty);
    EXPECT_EQ(Cells(2), full);
    fill();
    Click(PolynomialClearAll);
    for (int32_t row = 0; row < 3; row++) {
        EXPECT_EQ(Cells(row), empty);
    }
    EXPECT_EQ(Output(), u"result");
    EXPECT_EQ(Rows(), 3);
}

TEST_F(PolynomialFormTest, ClearEmptiesTheCellThatIsEdited) {
    const struct {
        PolynomialControl button;
        int32_t row;
    } examples[] = {{PolynomialClear0, 0},
                    {PolynomialClear1, 1},
                    {PolynomialClearAll, 0},
                    {PolynomialClearAll, 1}};
    for (const auto& example : examples) {
        WritePolynomial(1 - example.row, {u"3", u"4"});
        TypeIntoCell(example.row, 1, u"77");
        Click(example.button);
        EXPECT_EQ(OpenEditor(), nullptr);
        EXPECT_EQ(Cells(example.row), Row(MaxPolyDegree + 1));
        const bool isAll = example.button == PolynomialClearAll;
        EXPECT_EQ(Cells(1 - example.row), Padded(isAll ? Row{} : Row{u"3", u"4"}));
    }
}

// The other polynomial gets the text of its editor.
TEST_F(PolynomialFormTest, ClearKeepsTheOtherCellThatIsEdited) {
    const struct {
        PolynomialControl button;
        int32_t edited;
    } examples[] = {{PolynomialClear0, 1}, {PolynomialClear1, 0}};
    for (const auto& example : examples) {
        WritePolynomial(0, {u"1", u"2"});
        WritePolynomial(1, {u"3", u"4"});
        const Row before = Cells(example.edited);
        SetWindowTextW(Control(PolynomialOutput), L"result");
        TypeIntoCell(example.edited, 2, u"77");
        Click(example.button);
        EXPECT_EQ(OpenEditor(), nullptr);
        Row after = before;
        after[static_cast<size_t>(ColumnOfPower(2))] = u"77";
        EXPECT_EQ(Cells(example.edited), after);
        EXPECT_EQ(Cells(1 - example.edited), Row(MaxPolyDegree + 1));
        EXPECT_EQ(Output(), u"result");
    }
}

}  // namespace
}  // namespace tallymere::testing_support
