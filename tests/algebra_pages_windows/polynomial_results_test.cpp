// What the operators make of the grid, how a result becomes an operand, and what is told when a
// calculation fails.

#include <algorithm>
#include <tuple>

#include "algebra_pages_windows/polynomial_page_testing.h"
#include "core/limits.h"
#include "core/number_setup.h"
#include "toolkit/control_data.h"

namespace tallymere::testing_support {
namespace {

class PolynomialResultsTest : public PolynomialPageTest {
protected:
    // The operator shows one message and no result, and the grid keeps every text.
    static void ExpectMessage(const Row& first, PolynomialControl button, const Row& second,
                              const std::string& text, const std::string& caption = "Error") {
        const MessageBoxAnswer answer;
        EXPECT_EQ(Calculate(first, button, second), u"");
        EXPECT_EQ(answer.boxes, 1);
        EXPECT_EQ(answer.caption, caption);
        EXPECT_EQ(answer.text, text);
        EXPECT_FALSE(CanTakeResult());
        EXPECT_EQ(Cells(0), Padded(first));
        EXPECT_EQ(Cells(1), Padded(second));
    }
};

TEST_F(PolynomialResultsTest, SumsDifferencesProductsQuotientsAndPowers) {
    const Row first = {u"1", u"3", u"2"};
    EXPECT_EQ(Calculate(first, PolynomialPlus, {u"-1", u"1/2"}),
              u"P0(x) + P1(x) = b2*x^2 + b1*x + b0\r\n\r\nb2 = 1\r\nb1 = 2\r\nb0 = 2.5\r\n");
    EXPECT_EQ(Calculate(PolynomialMinus),
              u"P0(x) - P1(x) = b2*x^2 + b1*x + b0\r\n\r\nb2 = 1\r\nb1 = 4\r\nb0 = 1.5\r\n");
    EXPECT_EQ(Calculate(PolynomialTimes),
              u"P0(x) * P1(x) = b3*x^3 + b2*x^2 + b1*x + b0\r\n\r\n"
              u"b3 = -1\r\nb2 = -2.5\r\nb1 = -0.5\r\nb0 = 1\r\n");
    EXPECT_EQ(Calculate(first, PolynomialDivide, {u"1", u"-1"}),
              u"P0(x) / P1(x) = b1*x + b0    Remainder    r0\r\n\r\n"
              u"b1 = 1\r\nb0 = 4\r\n\r\nr0 = 6\r\n");
    EXPECT_EQ(Calculate({u"1", u"1"}, PolynomialPower, {u"3"}),
              u"P0(x) ^ 3 = b3*x^3 + b2*x^2 + b1*x + b0\r\n\r\n"
              u"b3 = 1\r\nb2 = 3\r\nb1 = 3\r\nb0 = 1\r\n");
    EXPECT_EQ(Calculate(first, PolynomialPower, {}), u"P0(x) ^ 0 = b0\r\n\r\nb0 = 1\r\n");
    EXPECT_EQ(Calculate(first, PolynomialMinus, first), u"P0(x) - P1(x) = b0\r\n\r\nb0 = 0\r\n");
}

TEST_F(PolynomialResultsTest, TakeAllPolynomialsOfTheGrid) {
    EnterNumber(PolynomialCount, 3);
    WritePolynomial(0, {u"5"});
    WritePolynomial(1, {u"1", u"0"});
    WritePolynomial(2, {u"1", u"1"});
    EXPECT_EQ(Calculate(PolynomialMinus),
              u"P0(x) - P1(x) - P2(x) = b1*x + b0\r\n\r\nb1 = -2\r\nb0 = 4\r\n");
    EXPECT_EQ(Calculate(PolynomialTimes),
              u"P0(x) * P1(x) * P2(x) = b2*x^2 + b1*x + b0\r\n\r\nb2 = 5\r\nb1 = 5\r\nb0 = 0\r\n");
    EnterNumber(PolynomialCount, 12);
    for (int32_t row = 3; row < 12; row++) {
        WritePolynomial(row, {u"1", u"0"});
    }
    EXPECT_NE(Calculate(PolynomialPlus).find(u" + P11(x) = b1*x + b0\r\n\r\nb1 = 11\r\nb0 = 6\r\n"),
              std::u16string::npos);
    EnterNumber(PolynomialCount, 2);
    EXPECT_EQ(Calculate(PolynomialPlus), u"P0(x) + P1(x) = b1*x + b0\r\n\r\nb1 = 1\r\nb0 = 5\r\n");
}

TEST_F(PolynomialResultsTest, SpeakTheLanguageOfTheProgram) {
    MakeAgain(LanguageGerman);
    EXPECT_EQ(Calculate({u"1", u"0"}, PolynomialDivide, {u"1", u"1"}),
              u"P0(x) / P1(x) = b0    Rest    r0\r\n\r\nb0 = 1\r\n\r\nr0 = -1\r\n");
}

TEST_F(PolynomialResultsTest, AreOfTheNumberTypeThatIsChosen) {
    ChooseType(NumberTypeRational);
    EXPECT_EQ(Calculate({u"1/3", u"2"}, PolynomialPlus, {u"1/6", u"-1/2"}),
              u"P0(x) + P1(x) = b1*x + b0\r\n\r\nb1 = 1/2\r\nb0 = 3/2\r\n");
    ChooseType(NumberTypeComplex);
    EXPECT_EQ(Calculate({u"1", u"i"}, PolynomialTimes, {u"1", u"-i"}),
              u"P0(x) * P1(x) = b2*x^2 + b1*x + b0\r\n\r\nb2 = 1\r\nb1 = 0\r\nb0 = 1\r\n");
    ChooseType(NumberTypeReal);
    EXPECT_EQ(Calculate({u"1/3", u"2"}, PolynomialPlus, {u"1/6", u"-1/2"}),
              u"P0(x) + P1(x) = b1*x + b0\r\n\r\nb1 = 0.5\r\nb0 = 1.5\r\n");
}

TEST_F(PolynomialResultsTest, HaveThePrecisionOfTheControl) {
    EnterNumber(PolynomialPrecision, 5);
    EXPECT_EQ(Calculate({u"1/3"}, PolynomialPlus, {}),
              u"P0(x) + P1(x) = b0\r\n\r\nb0 = 0.33333\r\n");
    EnterNumber(PolynomialPrecision, 1000);
    EXPECT_EQ(Calculate(PolynomialPlus),
              u"P0(x) + P1(x) = b0\r\n\r\nb0 = 0." + std::u16string(1000, u'3') + u"\r\n");
}

TEST_F(PolynomialResultsTest, HiddenCoefficientsDoNotCount) {
    EnterNumber(PolynomialDegree, 5);
    WritePolynomial(0, {u"9", u"8", u"7", u"3", u"2", u"1"});
    EnterNumber(PolynomialDegree, 2);
    EXPECT_EQ(Calculate(PolynomialPlus),
              u"P0(x) + P1(x) = b2*x^2 + b1*x + b0\r\n\r\nb2 = 3\r\nb1 = 2\r\nb0 = 1\r\n");
    WriteCell(1, 5, u"no formula");
    EXPECT_NE(Calculate(PolynomialPlus), u"");
    EnterNumber(PolynomialDegree, 4);
    EXPECT_EQ(Calculate(PolynomialPlus),
              u"P0(x) + P1(x) = b4*x^4 + b3*x^3 + b2*x^2 + b1*x + b0\r\n\r\n"
              u"b4 = 8\r\nb3 = 7\r\nb2 = 3\r\nb1 = 2\r\nb0 = 1\r\n");
}

TEST_F(PolynomialResultsTest, GroupTheirDigitsWhereTheSettingsWantIt) {
    const std::u16string plain = u"P0(x) + P1(x) = b0\r\n\r\nb0 = 1234567.25\r\n";
    EXPECT_EQ(Calculate({u"1234567"}, PolynomialPlus, {u"0.25"}), plain);
    settings.groupEquations = true;
    EXPECT_EQ(Calculate(PolynomialPlus), u"P0(x) + P1(x) = b0\r\n\r\nb0 = 1,234,567.25\r\n");
    Click(PolynomialResultTo0);
    EXPECT_EQ(Cell(0, 0), u"1,234,567.25");
    settings.groupEquations = false;
    WritePolynomial(1, {});
    EXPECT_EQ(Calculate(PolynomialPlus), plain) << "groups are read in any case";
}

TEST_F(PolynomialResultsTest, SeparateWithWhatTheSettingsSay) {
    ApplySeparators(DecimalComma, ThousandsPoint);
    EXPECT_EQ(Calculate({u"1,5"}, PolynomialPlus, {u"1"}),
              u"P0(x) + P1(x) = b0\r\n\r\nb0 = 2,5\r\n");
}

TEST_F(PolynomialResultsTest, TheCellThatIsEditedIsReadAsItStandsInItsEditor) {
    for (const bool byKey : {false, true}) {
        WritePolynomial(0, {});
        TypeIntoCell(0, 0, u"7");
        ASSERT_EQ(Cell(0, 0), u"");
        if (byKey) {
            PressKey(OpenEditor(), VK_TAB);
            PressKey(GetFocus(), VK_TAB);
            ASSERT_EQ(GetFocus(), Control(PolynomialPlus));
            PressKey(GetFocus(), VK_RETURN);
        } else {
            Click(PolynomialPlus);
        }
        EXPECT_EQ(OpenEditor(), nullptr);
        EXPECT_EQ(Output(), u"P0(x) + P1(x) = b0\r\n\r\nb0 = 7\r\n");
    }
}

TEST_F(PolynomialResultsTest, NumbersThatAreTypedCountAtTheClick) {
    WritePolynomial(0, {u"5", u"0", u"0", u"1"});
    ShowWindow(polynomialPage.window, SW_SHOW);
    const HWND edit = NumericEdit(Control(PolynomialDegree));
    SetFocus(edit);
    SendMessageW(edit, EM_SETSEL, 0, -1);
    TypeCharacter(edit, u'3');
    // The click takes the focus from the field.
    EXPECT_EQ(Calculate(PolynomialPlus),
              u"P0(x) + P1(x) = b3*x^3 + b2*x^2 + b1*x + b0\r\n\r\n"
              u"b3 = 5\r\nb2 = 0\r\nb1 = 0\r\nb0 = 1\r\n");
}

TEST_F(PolynomialResultsTest, BecomeOperandsAndRaiseTheDegree) {
    EXPECT_FALSE(CanTakeResult());
    Calculate({u"1", u"0", u"2"}, PolynomialTimes, {u"1", u"0", u"0"});
    EXPECT_TRUE(CanTakeResult());
    WriteCell(0, 20, u"hidden");
    Click(PolynomialResultTo0);
    EXPECT_EQ(NumberOf(PolynomialDegree), u"4");
    EXPECT_EQ(polynomialPage.maxDegree, 4);
    EXPECT_EQ(AskGrid(GridGetColumnWidth, ColumnOfPower(4)), 80);
    EXPECT_EQ(AskGrid(GridGetColumnWidth, ColumnOfPower(5)), 0);
    EXPECT_NE(Text(PolynomialHint).find(u"a4*x^4"), std::u16string::npos);
    EXPECT_EQ(Cells(0), Padded({u"1", u"0", u"2", u"0", u"0"}));
    EXPECT_EQ(Cells(1), Padded({u"1", u"0", u"0"})) << "the other row stays";
    EXPECT_TRUE(CanTakeResult());
    Click(PolynomialResultTo1);
    EXPECT_EQ(Cells(1), Cells(0));
    EXPECT_EQ(Calculate(PolynomialMinus), u"P0(x) - P1(x) = b0\r\n\r\nb0 = 0\r\n");
    // Powers without a text are emptied, and the degree stays.
    Click(PolynomialResultTo1);
    EXPECT_EQ(Cells(1), Padded({u"0"}));
    EXPECT_EQ(NumberOf(PolynomialDegree), u"4");
}

TEST_F(PolynomialResultsTest, TheDegreeOfAResultIsTakenBackByItsUser) {
    for (int32_t i = 0; i < 2; i++) {
        EnterNumber(PolynomialDegree, 2);
        EXPECT_EQ(AskGrid(GridGetColumnWidth, ColumnOfPower(3)), 0) << i;
        Calculate({u"1", u"0", u"0"}, PolynomialTimes, {u"1", u"0"});
        Click(PolynomialResultTo0);
        EXPECT_EQ(AskGrid(GridGetColumnWidth, ColumnOfPower(3)), 80);
    }
}

TEST_F(PolynomialResultsTest, TheRemainderIsNoOperand) {
    Calculate({u"1", u"0", u"5"}, PolynomialDivide, {u"1", u"0"});
    Click(PolynomialResultTo0);
    EXPECT_EQ(Cells(0), Padded({u"1", u"0"}));
}

TEST_F(PolynomialResultsTest, OfEveryNumberTypeAreReadAgain) {
    settings.groupEquations = true;
    const struct {
        NumberType type;
        const char16_t* coefficient;
    } examples[] = {
        {NumberTypeRational, u"-123456789/1000"},
        {NumberTypeReal, u"-123456789e30"},
        {NumberTypeReal, u"1/7e20"},
        {NumberTypeComplex, u"-12345.5-1e-9*i"},
        {NumberTypeComplex, u"0-i"},
        {NumberTypeComplex, u"12345678*i"},
    };
    for (const auto& example : examples) {
        ChooseType(example.type);
        const std::u16string result = Calculate({example.coefficient}, PolynomialPlus, {});
        Click(PolynomialResultTo0);
        EXPECT_NE(Cell(0, 0), example.coefficient);
        EXPECT_EQ(Calculate(PolynomialPlus), result);
    }
}

TEST_F(PolynomialResultsTest, AResultReplacesTheCellThatIsEdited) {
    Calculate({u"3"}, PolynomialPlus, {u"4"});
    TypeIntoCell(0, 0, u"99");
    Click(PolynomialResultTo0);
    EXPECT_EQ(OpenEditor(), nullptr);
    EXPECT_EQ(Cell(0, 0), u"7");
}

TEST_F(PolynomialResultsTest, AnErrorTakesTheLastResultAway) {
    Calculate({u"3"}, PolynomialPlus, {u"4"});
    EXPECT_TRUE(CanTakeResult());
    ExpectMessage({u"3"}, PolynomialDivide, {}, "Division by 0!");
    EXPECT_FALSE(CanTakeResult());
    Calculate({u"3"}, PolynomialPlus, {u"4"});
    EXPECT_TRUE(CanTakeResult());
}

TEST_F(PolynomialResultsTest, DivisionByZeroIsRefusedInEachType) {
    for (const auto& [language, text, caption] :
         {std::tuple(LanguageEnglish, "Division by 0!", "Error"),
          {LanguageGerman, "Division durch 0!", "Fehler"}}) {
        MakeAgain(language);
        for (const NumberType type : {NumberTypeComplex, NumberTypeRational}) {
            ChooseType(type);
            EXPECT_NE(Calculate({u"6", u"4"}, PolynomialDivide, {u"2"}), u"");
            EXPECT_TRUE(CanTakeResult());
            ExpectMessage({u"1", u"2/3"}, PolynomialDivide, {u"1/2-2/4"}, text, caption);
        }
    }
}

const struct {
    Language language;
    const char* caption;
    const char* formula;
    const char* tooLong;
    const char* degree;
    const char* exponent;
    const char* division;
    const char* calculation;
} MessagesOfLanguages[] = {
    {LanguageEnglish, "Error",
     "Error evaluating coefficient \"a1\" in polynomial \"P0(x)\": The variable or function at "
     "character position 4 is not defined!",
     "The coefficient \"a0\" in polynomial \"P1(x)\" is too long!",
     "The maximum polynomial degree of the result may not exceed 20!",
     "The polynomial \"P1(x)\" must be an integer number from 0 to 20!", "Division by 0!",
     "Error in mathematical calculation!"},
    {LanguageGerman, "Fehler",
     "Fehler bei der Auswertung des Koeffizienten \"a1\" im Polynom \"P0(x)\": Die Variable oder "
     "Funktion bei Zeichenposition 4 ist nicht definiert!",
     "Der Koeffizient \"a0\" im Polynom \"P1(x)\" ist zu lang!",
     "Der maximale Polynomgrad des Ergebnisses darf 20 nicht \xFC"
     "berschreiten!",
     "Das Polynom \"P1(x)\" muss eine ganze Zahl von 0 bis 20 sein!", "Division durch 0!",
     "Fehler bei mathematischer Berechnung!"},
};

TEST_F(PolynomialResultsTest, TellWhatIsWrongInBothLanguages) {
    for (const auto& expected : MessagesOfLanguages) {
        MakeAgain(expected.language);
        const auto expectMessage = [&expected](const Row& first, PolynomialControl button,
                                               const Row& second, const char* text) {
            ExpectMessage(first, button, second, text, expected.caption);
        };
        expectMessage({u"1", u" 2*y", u"3"}, PolynomialPlus, {u"1"}, expected.formula);
        expectMessage({u"1"}, PolynomialPlus, {std::u16string(1031, u'1')}, expected.tooLong);
        expectMessage({u"1"}, PolynomialTimes, {std::u16string(100'000, u'1')}, expected.tooLong);
        expectMessage({u"1", u"0"}, PolynomialDivide, {u"0"}, expected.division);
        expectMessage({u"1"}, PolynomialPower, {u"1/2"}, expected.exponent);
        expectMessage({u"1"}, PolynomialPower, {u"1", u"0"}, expected.exponent);
        expectMessage({u"1"}, PolynomialPower, {u"-1"}, expected.exponent);
        expectMessage({u"1"}, PolynomialPower, {u"21"}, expected.exponent);
        expectMessage({u"1", u"0", u"0"}, PolynomialPower, {u"11"}, expected.degree);
        expectMessage({u"1e4000000000000000000"}, PolynomialTimes, {u"1e4000000000000000000"},
                      expected.calculation);
    }
}

TEST_F(PolynomialResultsTest, ADegreeAbove20IsRefused) {
    EnterNumber(PolynomialDegree, 20);
    Row highest(21);
    highest.front() = u"2";
    EXPECT_NE(Calculate(highest, PolynomialTimes, {u"3"}).find(u"b20 = 6\r\n"),
              std::u16string::npos);
    EXPECT_TRUE(CanTakeResult());
    ExpectMessage(highest, PolynomialTimes, {u"3", u"0"},
                  "The maximum polynomial degree of the result may not exceed 20!");
}

TEST_F(PolynomialResultsTest, TheLongestCellThatIsReadIsReadWhole) {
    std::u16string longest(CoefficientCharacters, u'0');
    longest.back() = u'7';
    EXPECT_EQ(Calculate({longest}, PolynomialPlus, {}), u"P0(x) + P1(x) = b0\r\n\r\nb0 = 7\r\n");
}

TEST_F(PolynomialResultsTest, LeaveNumbersAndRoomOfOthersAlone) {
    const NumberSetup before = CurrentNumberSetup();
    const uint64_t* top = *CurrentScratchStack().top;
    EnterNumber(PolynomialPrecision, 300);
    ChooseType(NumberTypeComplex);
    Calculate({u"1", u"2"}, PolynomialDivide, {u"3", u"4"});
    {
        const MessageBoxAnswer answer;
        Calculate({u"1", u"2"}, PolynomialDivide, {});
    }
    EXPECT_EQ(CurrentNumberSetup().type, before.type);
    EXPECT_EQ(CurrentNumberSetup().digits, before.digits);
    EXPECT_EQ(CurrentNumberSetup().width.limbs, before.width.limbs);
    EXPECT_EQ(*CurrentScratchStack().top, top);
}

// What the page looks like while its cells are read.
std::vector<HCURSOR> cursors;
std::vector<BOOL> resultButtons;

TEST_F(PolynomialResultsTest, ThePageSaysToWaitAndHasNoResultMeanwhile) {
    cursors.clear();
    resultButtons.clear();
    Click(PolynomialPlus);
    ASSERT_TRUE(CanTakeResult());
    SetControlHandler(Control(PolynomialGrid), [](HWND, UINT message, WPARAM, LPARAM, bool&) {
        if (message == GridGetCellText) {
            cursors.push_back(GetCursor());
            resultButtons.push_back(IsWindowEnabled(Control(PolynomialResultTo0)));
        }
        return LRESULT{0};
    });
    SetCursor(LoadCursorW(nullptr, IDC_ARROW));
    Click(PolynomialPlus);
    ASSERT_GE(cursors.size(), 6u) << "each of the cells";
    EXPECT_EQ(cursors, std::vector<HCURSOR>(cursors.size(), LoadCursorW(nullptr, IDC_WAIT)));
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_ARROW));
    EXPECT_EQ(resultButtons, std::vector<BOOL>(cursors.size(), FALSE));
    EXPECT_TRUE(CanTakeResult());
}

// Every line of 21 complex coefficients with 1,000 digits, in groups.
TEST_F(PolynomialResultsTest, TheLongestResultArrivesWhole) {
    settings.groupEquations = true;
    ChooseType(NumberTypeComplex);
    EnterNumber(PolynomialDegree, 20);
    EnterNumber(PolynomialPrecision, 1000);
    const Row first(21, u"1e9/7-1e9/7*i");
    Calculate(first, PolynomialPlus, {});
    const std::u16string output = Output();
    EXPECT_EQ(std::count(output.begin(), output.end(), u'\n'), 23);
    std::u16string seventh = u"142,857,142.";
    for (int32_t i = 0; i < 166; i++) {
        seventh += u"857142";
    }
    seventh.resize(seventh.find(u'.') + 1 + 991);
    seventh.back() = u'9';  // of 85714|2857, rounded
    EXPECT_EQ(output.substr(output.find(u"b0 = ")), u"b0 = " + seventh + u"-" + seventh + u"i\r\n");
}

}  // namespace
}  // namespace tallymere::testing_support
