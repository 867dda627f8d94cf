// The page as it is made, its layout, its grid and its keyboard.

#include "algebra_pages_windows/equation_page_testing.h"
#include "layout/control_kinds.h"
#include "layout/grid_geometry.h"
#include "toolkit/text_measure.h"

namespace tallymere::testing_support {
namespace {

constexpr int32_t Resolutions[] = {96, 120, 144, 192};

class EquationFormTest : public EquationPageTest {
protected:
    static const char16_t* ClassOf(FormControlKind kind) {
        switch (kind) {
            case FormStatic:
                return u"static";
            case FormUnbrokenField:
                return u"edit";
            case FormDropList:
                return u"combobox";
            case FormNumericUpDown:
                return NumericUpDownClass;
            case FormGrid:
                return GridClass;
            default:
                return u"button";
        }
    }

    static void ExpectControls(LayoutSize client) {
        for (int32_t i = 0; i < EquationControlCount; i++) {
            SCOPED_TRACE(i);
            const auto index = static_cast<EquationControl>(i);
            const FormControl& row = EquationForm[i];
            const HWND control = Control(index);
            EXPECT_TRUE(HasClass(control, ClassOf(row.kind)));
            EXPECT_EQ(GetParent(control), equationPage.window);
            EXPECT_TRUE(WindowStyle(control) & WS_VISIBLE);
            const LayoutRect shown = PlaceInParent(control);
            LayoutRect place = ToScreenPixels(PlaceEquationControl(index, client));
            if (row.kind == FormDropList) {
                // A closed list is as high as its font asks for.
                place.height = shown.height;
            }
            EXPECT_EQ(shown, place);
            if (row.text != nullptr) {
                EXPECT_EQ(WholeText(control), uiText.*row.text);
            }
        }
    }

    static std::vector<std::u16string> Items(EquationControl list) {
        std::vector<std::u16string> items;
        for (LRESULT i = 0; i < SendMessageW(Control(list), CB_GETCOUNT, 0, 0); i++) {
            char16_t text[64];
            SendMessageW(Control(list), CB_GETLBTEXT, static_cast<WPARAM>(i),
                         reinterpret_cast<LPARAM>(text));
            items.emplace_back(text);
        }
        return items;
    }
    static LRESULT SelectedItem(EquationControl list) {
        return SendMessageW(Control(list), CB_GETCURSEL, 0, 0);
    }
};

TEST_F(EquationFormTest, HasEveryControlInItsPlaceInBothLanguages) {
    for (const Language language : {LanguageEnglish, LanguageGerman}) {
        for (const int32_t dpi : Resolutions) {
            SCOPED_TRACE(dpi);
            MakeAgain(language, dpi);
            // A window is no larger than the screen lets it be.
            const LayoutSize pixels = ClientSize(equationPage.window);
            const LayoutSize client = {FromScreenPixels(pixels.width),
                                       FromScreenPixels(pixels.height)};
            if (dpi <= 120) {
                EXPECT_EQ(client, EquationPageSize);
            }
            ExpectControls(client);
        }
    }
    EXPECT_EQ(WholeText(equationPage.window), u"Algebraische Gleichungen l\u00F6sen");
    EXPECT_EQ(Items(EquationModeList), (std::vector<std::u16string>{u"reell", u"komplex"}));
    EXPECT_EQ(Items(EquationResultTypeList),
              (std::vector<std::u16string>{u"N\u00E4herungswert", u"Exakter Wert"}));
    MakeAgain(LanguageEnglish);
    EXPECT_EQ(WholeText(equationPage.window), u"Solve algebraic equations");
    EXPECT_EQ(Items(EquationModeList), (std::vector<std::u16string>{u"real", u"complex"}));
    EXPECT_EQ(Items(EquationResultTypeList),
              (std::vector<std::u16string>{u"Approximation", u"Exact value"}));
    EXPECT_EQ(pageWindows[PageAlgebraicEquations], equationPage.window);
}

TEST_F(EquationFormTest, BeginsWithItsChoices) {
    EXPECT_EQ(NumberOf(EquationDegreeField), u"2");
    EXPECT_EQ(RangeOf(EquationDegreeField), Range(1, 10));
    EXPECT_EQ(NumberOf(EquationPrecision), u"10");
    EXPECT_EQ(RangeOf(EquationPrecision), Range(5, 2000));
    EXPECT_EQ(SelectedItem(EquationModeList), 0);
    EXPECT_EQ(SelectedItem(EquationResultTypeList), 0);
    EXPECT_TRUE(IsChecked(Control(EquationMultiplicity)));
    EXPECT_EQ(Cells(), std::vector<std::u16string>(3));
    EXPECT_EQ(Output(), u"");
    EXPECT_FALSE(IsWindowVisible(equationPage.window));
    for (int32_t i = 0; i < EquationControlCount; i++) {
        EXPECT_TRUE(IsEnabled(static_cast<EquationControl>(i))) << i;
    }
}

TEST_F(EquationFormTest, CanBeResizedAndStandsInTheMiddle) {
    ExpectToBeResizableAndInTheMiddle();
}

TEST_F(EquationFormTest, IsGoneWithItsWindow) {
    ExpectToBeGoneWithItsWindow();
}

TEST_F(EquationFormTest, TheResultHasManyLinesWhichAreNotWrapped) {
    ExpectUnbrokenLines();
}

TEST_F(EquationFormTest, DropListsOpenWithAllTheirItems) {
    ShowWindow(equationPage.window, SW_SHOW);
    for (const int32_t dpi : Resolutions) {
        MakeAgain(LanguageEnglish, dpi);
        ShowWindow(equationPage.window, SW_SHOW);
        for (const EquationControl list : {EquationModeList, EquationResultTypeList}) {
            SendMessageW(Control(list), CB_SHOWDROPDOWN, TRUE, 0);
            COMBOBOXINFO info = {};
            info.cbSize = sizeof info;
            ASSERT_TRUE(GetComboBoxInfo(Control(list), &info));
            EXPECT_TRUE(IsWindowVisible(info.hwndList));
            RECT lastItem = {};
            SendMessageW(info.hwndList, LB_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&lastItem));
            EXPECT_GT(lastItem.bottom, lastItem.top);
            EXPECT_LE(lastItem.bottom, ClientSize(info.hwndList).height);
            SendMessageW(Control(list), CB_SHOWDROPDOWN, FALSE, 0);
        }
    }
}

TEST_F(EquationFormTest, FillsItsClientArea) {
    for (const int32_t dpi : {96, 120}) {
        MakeAgain(LanguageEnglish, dpi);
        for (const LayoutSize client :
             {LayoutSize{700, 480}, LayoutSize{500, 400}, LayoutSize{720, 452}}) {
            Resize(client);
            ExpectControls(client);
        }
    }
}

// In such an area some controls come to stand where the form says, though they stood elsewhere.
TEST_F(EquationFormTest, FillsAClientAreaInWhichItsLayoutIsThatOfTheForm) {
    const LayoutSize client = {400, EquationButtonsRoom};
    ASSERT_EQ(PlaceEquationControl(EquationSolve, client), EquationForm[EquationSolve].place);
    Resize({800, 500});
    Resize(client);
    ASSERT_EQ(ClientSize(equationPage.window), client);
    EXPECT_EQ(PlaceInParent(Control(EquationSolve)), EquationForm[EquationSolve].place);
}

TEST_F(EquationFormTest, AMinimisedPageIsNotLaidOut) {
    ExpectNotToBeLaidOutWhileMinimised();
}

TEST_F(EquationFormTest, TheGridHasARowForEachCoefficientFromTheHighestDown) {
    EXPECT_EQ(AskGrid(GridColumnCount), 1);
    EXPECT_EQ(AskGrid(GridGetColumnType, 0), GridColumnText);
    for (const int32_t degree : {2, 10, 1, 7, 8, 3}) {
        ChooseDegree(degree);
        EXPECT_EQ(equationPage.degree, degree);
        ASSERT_EQ(Rows(), degree + 1);
        for (int32_t row = 0; row <= degree; row++) {
            const std::string index = std::to_string(degree - row);
            EXPECT_EQ(RowName(row), u"a" + std::u16string(index.begin(), index.end()));
        }
    }
}

TEST_F(EquationFormTest, TheGridShowsItsLabelsAndLetsItsColumnsBeResized) {
    const GridRecord& grid = *GridRecordOf(Control(EquationGrid));
    char16_t text[16];
    EXPECT_EQ(ShownGridHeader(grid, 0, 1, text), u"a2");
    EXPECT_EQ(ShownGridHeader(grid, 1, 0, text), u"");
    EXPECT_EQ(AskGrid(GridGetColumnWidth, 0), 120);
    const int32_t inner = ClientSize(Control(EquationGrid)).width;
    ASSERT_GT(inner, 160);
    EXPECT_EQ(GridCellPlace(grid.state, 1, 1), (LayoutRect{40, 21, inner - 40, 21}))
        << "the column of coefficients reaches to the edge";
    SendMessageW(Control(EquationGrid), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(40, 10));
    SendMessageW(Control(EquationGrid), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(70, 10));
    SendMessageW(Control(EquationGrid), WM_LBUTTONUP, 0, MAKELPARAM(70, 10));
    EXPECT_EQ(FindGridColumn(grid.state.table, 0)->width, 70) << "the column of labels";
    MakeAgain(LanguageEnglish, 144);
    EXPECT_EQ(FindGridColumn(GridRecordOf(Control(EquationGrid))->state.table, 0)->width, 60);
    EXPECT_EQ(AskGrid(GridGetColumnWidth, 0), 180);
}

TEST_F(EquationFormTest, CoefficientsKeepTheirTextsWhenTheDegreeChanges) {
    WriteEquation({u"two", u"one", u"zero"});
    ChooseDegree(5);
    EXPECT_EQ(Cells(), (std::vector<std::u16string>{u"", u"", u"", u"two", u"one", u"zero"}));
    WriteCell(0, u"five");
    ChooseDegree(4);
    EXPECT_EQ(Cells(), (std::vector<std::u16string>{u"", u"", u"two", u"one", u"zero"}));
    ChooseDegree(1);
    EXPECT_EQ(Cells(), (std::vector<std::u16string>{u"one", u"zero"}));
    ChooseDegree(3);
    EXPECT_EQ(Cells(), (std::vector<std::u16string>{u"", u"", u"one", u"zero"}));
    // Far away at once.
    ChooseDegree(10);
    EXPECT_EQ(Rows(), 11);
    EXPECT_EQ(Cell(9), u"one");
    EXPECT_EQ(Cell(10), u"zero");
}

TEST_F(EquationFormTest, TheSpinButtonsChangeTheDegreeAtOnce) {
    WriteEquation({u"two", u"one", u"zero"});
    PressKey(NumericEdit(Control(EquationDegreeField)), VK_UP);
    EXPECT_EQ(equationPage.degree, 3);
    EXPECT_EQ(Cells(), (std::vector<std::u16string>{u"", u"two", u"one", u"zero"}));
    PressKey(NumericEdit(Control(EquationDegreeField)), VK_DOWN);
    PressKey(NumericEdit(Control(EquationDegreeField)), VK_DOWN);
    EXPECT_EQ(Cells(), (std::vector<std::u16string>{u"one", u"zero"}));
}

TEST_F(EquationFormTest, ADegreeOutsideItsRangeIsTheNearestInIt) {
    ChooseDegree(99);
    EXPECT_EQ(Rows(), 11);
    EXPECT_EQ(NumberOf(EquationDegreeField), u"10");
    ChooseDegree(0);
    EXPECT_EQ(Rows(), 2);
    EXPECT_EQ(NumberOf(EquationDegreeField), u"1");
}

// Also where they are wider than the field, which depends on the font.
TEST_F(EquationFormTest, TheLargestNumbersCanBeTyped) {
    for (const int32_t dpi : Resolutions) {
        MakeAgain(LanguageEnglish, dpi);
        for (const auto& [control, number] :
             {std::pair(EquationDegreeField, u"10"), std::pair(EquationPrecision, u"750")}) {
            const HWND edit = NumericEdit(Control(control));
            SetWindowTextW(edit, L"");
            for (const char16_t c : std::u16string(number)) {
                TypeCharacter(edit, c);
            }
            TypeCharacter(edit, u'\r');
            EXPECT_EQ(NumberOf(control), number) << dpi;
        }
        EXPECT_EQ(Rows(), 11);
        EXPECT_TRUE(WindowStyle(NumericEdit(Control(EquationDegreeField))) & ES_AUTOHSCROLL);
    }
}

TEST_F(EquationFormTest, TheTextSaysWhichEquationIsMeant) {
    EXPECT_EQ(Text(EquationText),
              u"Enter the coefficients of the equation a2*x^2 + a1*x + a0 =\u00A00.");
    ChooseDegree(1);
    EXPECT_EQ(Text(EquationText), u"Enter the coefficients of the equation a1*x + a0 =\u00A00.");
    ChooseDegree(10);
    EXPECT_EQ(Text(EquationText),
              u"Enter the coefficients of the equation a10*x^10 + a9*x^9 + ... + a1*x + a0 "
              u"=\u00A00.");
    MakeAgain(LanguageGerman);
    ChooseDegree(3);
    EXPECT_EQ(
        Text(EquationText),
        u"Geben Sie die Koeffizienten der Gleichung a3*x^3 + a2*x^2 + a1*x + a0 =\u00A00 ein.");
}

TEST_F(EquationFormTest, ThePrecisionGoesAsFarAsTheDegreeAllows) {
    for (int32_t degree = 1; degree <= 10; degree++) {
        ChooseDegree(degree);
        const int top = degree <= 4 ? 2000 : degree <= 7 ? 1000 : 750;
        EXPECT_EQ(RangeOf(EquationPrecision), Range(5, top)) << degree;
        EXPECT_EQ(NumberOf(EquationPrecision), u"10");
    }
    ChooseDegree(4);
    EnterNumber(EquationPrecision, 1500);
    EXPECT_EQ(NumberOf(EquationPrecision), u"1500");
    ChooseDegree(5);
    EXPECT_EQ(NumberOf(EquationPrecision), u"1000");
    EXPECT_EQ(NumericPosition(Control(EquationPrecision)), 1000);
    ChooseDegree(8);
    EXPECT_EQ(NumberOf(EquationPrecision), u"750");
    ChooseDegree(1);
    EXPECT_EQ(NumberOf(EquationPrecision), u"750") << "it does not come back";
    EnterNumber(EquationPrecision, 1);
    EXPECT_EQ(NumberOf(EquationPrecision), u"5");
}

TEST_F(EquationFormTest, TabGoesThroughThePageInTheOrderOfItsControls) {
    ExpectTabOrder({NumericEdit(Control(EquationDegreeField)), Control(EquationModeList),
                    Control(EquationResultTypeList), NumericEdit(Control(EquationPrecision)),
                    Control(EquationMultiplicity), Control(EquationGrid), Control(EquationOutput),
                    Control(EquationSolve), Control(EquationClear), Control(EquationClose)});
}

TEST_F(EquationFormTest, CloseHidesThePage) {
    ExpectCloseToHide(EquationClose);
}

TEST_F(EquationFormTest, ClearEmptiesCellsAndResult) {
    WriteEquation({u"1", u"0", u"-4"});
    Solve();
    ASSERT_NE(Output(), u"");
    ChooseDegree(4);
    WriteCell(0, u"first");
    SendMessageW(equationPage.window, WM_COMMAND, MAKEWPARAM(0, BN_SETFOCUS),
                 reinterpret_cast<LPARAM>(Control(EquationClear)));
    EXPECT_EQ(Cell(0), u"first") << "a click alone clears";
    Click(EquationClear);
    EXPECT_EQ(Cells(), std::vector<std::u16string>(5));
    EXPECT_EQ(Output(), u"");
    EXPECT_EQ(NumberOf(EquationDegreeField), u"4");
}

TEST_F(EquationFormTest, ClearEmptiesTheCellThatIsEdited) {
    WriteEquation({u"1", u"2", u"3"});
    for (const bool byKey : {false, true}) {
        TypeIntoCell(1, u"77");
        if (byKey) {
            SetFocus(Control(EquationClear));
            PressKey(Control(EquationClear), VK_RETURN);
        } else {
            Click(EquationClear);
        }
        EXPECT_EQ(OpenEditor(), nullptr);
        EXPECT_EQ(Cells(), std::vector<std::u16string>(3));
        TypeIntoCell(1, u"");
        EXPECT_EQ(WholeText(OpenEditor()), u"") << "nor does the text come back";
        SetFocus(Control(EquationClose));
        EXPECT_EQ(Cells(), std::vector<std::u16string>(3));
    }
}

}  // namespace
}  // namespace tallymere::testing_support
