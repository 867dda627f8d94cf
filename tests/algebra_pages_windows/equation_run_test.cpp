// What Solve makes of the grid, how a run is stopped, and what is told when it fails.

#include "algebra_pages_windows/equation_page_testing.h"
#include "core/limits.h"
#include "layout/grid_memory_testing.h"
#include "shell/windows/calc_thread.h"

namespace tallymere::testing_support {
namespace {

// As a coefficient it keeps a run busy for longer than any test.
constexpr const char16_t* EndlessFormula = u"npr(1e12;1e11)";

class EquationRunTest : public EquationPageTest {
protected:
    static void StartEndlessRun() {
        WriteEquation({u"1", EndlessFormula, u"0"});
        Click(EquationSolve);
        ASSERT_EQ(Phase(), StopShown);
    }

    // Solve shows one message and no result, and the grid keeps every text.
    static void ExpectMessage(const std::vector<std::u16string>& coefficients,
                              const std::string& text, const std::string& caption = "Error") {
        const MessageBoxAnswer answer;
        EXPECT_EQ(Solve(coefficients), u"");
        EXPECT_EQ(answer.boxes, 1);
        EXPECT_EQ(answer.caption, caption);
        EXPECT_EQ(answer.text, text);
        EXPECT_TRUE(Cells() == coefficients);
        EXPECT_EQ(Text(EquationSolve), uiText.TextAlgSolve);
        EXPECT_TRUE(IsEnabled(EquationClear));
    }
};

TEST_F(EquationRunTest, RealAndComplexRoots) {
    EXPECT_EQ(Solve({u"1", u"0", u"-2"}), u"x1 = -1.414213562   [1]\r\nx2 = 1.414213562   [1]\r\n");
    EXPECT_EQ(Solve({u"1", u"0", u"1"}), u"The equation has no real solutions.");
    Select(EquationModeList, 1);
    EXPECT_EQ(Solve(), u"x1 = -i   [1]\r\nx2 = i   [1]\r\n");
    EXPECT_EQ(Solve({u"i", u"2"}), u"x1 = 2i   [1]\r\n");
    Select(EquationModeList, 0);
    EXPECT_EQ(Solve({u"1", u"-6", u"12", u"-8"}), u"x1 = 2   [3]\r\n");
}

TEST_F(EquationRunTest, ExactRoots) {
    Select(EquationResultTypeList, 1);
    EXPECT_EQ(Solve({u"4", u"0", u"-1"}),
              u"x1 = -1/2 \u2248 -0.5   [1]\r\nx2 = 1/2 \u2248 0.5   [1]\r\n");
    EXPECT_EQ(Solve({u"1", u"0", u"-4"}), u"x1 = -2   [1]\r\nx2 = 2   [1]\r\n");
    EXPECT_EQ(Solve({u"1", u"0", u"0", u"-2"}), u"x1 \u2248 1.25992105   [1]\r\n");
    EXPECT_EQ(Solve({u"1", u"0", u"1"}), u"The equation has no real solutions.");
    Select(EquationModeList, 1);
    EXPECT_EQ(Solve(), u"x1 = -1*i   [1]\r\nx2 = 1*i   [1]\r\n");
}

TEST_F(EquationRunTest, SpeaksTheLanguageOfTheProgram) {
    MakeAgain(LanguageGerman);
    EXPECT_EQ(Solve({u"1", u"0", u"1"}), u"Die Gleichung hat keine reellen L\u00F6sungen.");
}

TEST_F(EquationRunTest, ThePrecisionIsThatOfTheControl) {
    EnterNumber(EquationPrecision, 5);
    EXPECT_EQ(Solve({u"3", u"-1"}), u"x1 = 0.33333   [1]\r\n");
    EnterNumber(EquationPrecision, 30);
    EXPECT_EQ(Solve({u"3", u"-1"}), u"x1 = 0.333333333333333333333333333333   [1]\r\n");
}

TEST_F(EquationRunTest, EachCellHasItsCoefficient) {
    std::vector<std::u16string> coefficients(11, u"0");
    coefficients[0] = u"1";
    coefficients[9] = u"-1/10000";
    // x^10 - x/10000 has the root 10^(-4/9).
    EXPECT_EQ(Solve(coefficients), u"x1 = 0   [1]\r\nx2 = 0.3593813664   [1]\r\n");
}

TEST_F(EquationRunTest, BlankCellsAreZero) {
    EXPECT_EQ(Solve({u"1", u"", u" \t"}), u"x1 = 0   [2]\r\n");
}

TEST_F(EquationRunTest, TheDecimalSeparatorIsThatOfTheSettings) {
    ApplySeparators(DecimalComma, ThousandsPoint);
    EXPECT_EQ(Solve({u"2", u"-1,5"}), u"x1 = 0,75   [1]\r\n");
}

TEST_F(EquationRunTest, TheMultiplicityIsAskedForAtTheEnd) {
    Click(EquationMultiplicity);
    EXPECT_EQ(Solve({u"1", u"-2", u"1"}), u"x1 = 1\r\n");
    Click(EquationMultiplicity);
    Click(EquationSolve);
    ASSERT_NE(Phase(), PageIdle);
    Click(EquationMultiplicity);
    Finish();
    EXPECT_EQ(Output(), u"x1 = 1\r\n") << "it was unchecked while the run was busy";
    // The lists are read when a run begins.
    WriteEquation({u"1", u"0", u"1"});
    Click(EquationSolve);
    Select(EquationModeList, 1);
    Finish();
    EXPECT_EQ(Output(), u"The equation has no real solutions.");
}

TEST_F(EquationRunTest, EachRunBeginsWithAnEmptyResult) {
    Solve({u"1", u"1"});
    Click(EquationSolve);
    EXPECT_EQ(Output(), u"");
    Finish();
    EXPECT_EQ(Output(), u"x1 = -1   [1]\r\n");
    ExpectMessage({u"0", u"1"}, "The highest coefficient \"a1\" must not be 0!");
}

TEST_F(EquationRunTest, ResultsComeBehindWhatIsWrittenMeanwhile) {
    WriteEquation({u"1", u"-5"});
    Click(EquationSolve);
    const HWND output = Control(EquationOutput);
    SetWindowTextW(output, L"note: ");
    SendMessageW(output, EM_SETSEL, 0, 4);
    Finish();
    EXPECT_EQ(Output(), u"note: x1 = 5   [1]\r\n");
}

TEST_F(EquationRunTest, TheCellThatIsEditedIsSolvedAsItStandsInItsEditor) {
    WriteEquation({u"1", u"0"});
    for (const bool byKey : {false, true}) {
        WriteCell(1, u"");
        TypeIntoCell(1, u"-7");
        ASSERT_EQ(Cell(1), u"");
        if (byKey) {
            PressKey(OpenEditor(), VK_TAB);
            PressKey(GetFocus(), VK_TAB);
            ASSERT_EQ(GetFocus(), Control(EquationSolve));
            PressKey(GetFocus(), VK_RETURN);
        } else {
            Click(EquationSolve);
        }
        EXPECT_EQ(OpenEditor(), nullptr);
        EXPECT_EQ(Cell(1), u"-7");
        Finish();
        EXPECT_EQ(Output(), u"x1 = 7   [1]\r\n");
    }
}

TEST_F(EquationRunTest, TheDegreeThatIsTypedIsThatOfTheEquation) {
    WriteEquation({u"1", u"1"});
    ShowWindow(equationPage.window, SW_SHOW);
    const HWND edit = NumericEdit(Control(EquationDegreeField));
    SetFocus(edit);
    SendMessageW(edit, EM_SETSEL, 0, -1);
    TypeCharacter(edit, u'2');
    EXPECT_EQ(Rows(), 2);
    // The click takes the focus from the field.
    const MessageBoxAnswer answer;
    EXPECT_EQ(Solve(), u"");
    EXPECT_EQ(Rows(), 3);
    EXPECT_EQ(answer.text, "The highest coefficient \"a2\" must not be 0!");
}

TEST_F(EquationRunTest, ARunShutsOthersOut) {
    StartEndlessRun();
    EXPECT_EQ(Text(EquationSolve), u"Stop");
    EXPECT_FALSE(IsWindowEnabled(dialog));
    EXPECT_TRUE(IsWindowEnabled(equationPage.window));
    for (int32_t i = 0; i < EquationControlCount; i++) {
        EXPECT_EQ(IsEnabled(static_cast<EquationControl>(i)), i != EquationClear) << i;
    }
    Click(EquationSolve);
    LoopUntil([] { return Phase() == StopLingers; });
    EXPECT_EQ(Text(EquationSolve), u"Stop");
    EXPECT_FALSE(IsEnabled(EquationClear));
    EXPECT_FALSE(IsWindowEnabled(dialog));
    Click(EquationSolve);
    EXPECT_EQ(Phase(), StopLingers) << "a second click on Stop that comes late starts nothing";
    Finish();
    EXPECT_EQ(Text(EquationSolve), u"Solve");
    EXPECT_TRUE(IsEnabled(EquationClear));
    EXPECT_TRUE(IsWindowEnabled(dialog));
}

TEST_F(EquationRunTest, StopShowsNothingAndTellsNothing) {
    const MessageBoxAnswer answer;
    Solve({u"1", u"1"});
    for (int32_t i = 0; i < 2; i++) {
        StartEndlessRun();
        Click(EquationSolve);
        Finish();
        EXPECT_EQ(Output(), u"");
    }
    EXPECT_EQ(answer.boxes, 0);
    EXPECT_EQ(Solve({u"1", u"1"}), u"x1 = -1   [1]\r\n");
}

TEST_F(EquationRunTest, StopIsCalledInTheLanguageOfTheProgram) {
    MakeAgain(LanguageGerman);
    StartEndlessRun();
    EXPECT_EQ(Text(EquationSolve), u"Stoppen");
    Click(EquationSolve);
    Finish();
    EXPECT_EQ(Text(EquationSolve), u"L\u00F6sen");
}

TEST_F(EquationRunTest, ClosingThePageStopsItsRun) {
    const MessageBoxAnswer answer;
    for (const bool byButton : {true, false}) {
        ShowWindow(equationPage.window, SW_SHOW);
        SetActiveWindow(equationPage.window);
        StartEndlessRun();
        if (byButton) {
            Click(EquationClose);
        } else {
            SendMessageW(equationPage.window, WM_CLOSE, 0, 0);
        }
        EXPECT_FALSE(IsWindowVisible(equationPage.window));
        EXPECT_EQ(PendingUiError(), UiErrorStopped);
        EXPECT_TRUE(StopRequested());
        EXPECT_EQ(GetActiveWindow(), mainWindow) << "also while it is shut out";
        EXPECT_FALSE(IsWindowEnabled(mainWindow));
        Finish();
        EXPECT_EQ(Output(), u"");
        EXPECT_TRUE(IsWindowEnabled(mainWindow));
    }
    EXPECT_EQ(answer.boxes, 0);
}

TEST_F(EquationRunTest, ARunKeepsItsEquationWhenTheGridChangesMeanwhile) {
    WriteEquation({u"1", u"-5"});
    Click(EquationSolve);
    WriteCell(0, u"0");
    WriteCell(1, u"no formula");
    ChooseDegree(4);
    Finish();
    EXPECT_EQ(Output(), u"x1 = 5   [1]\r\n");
}

TEST_F(EquationRunTest, TheRoomOfARunIsGivenBack) {
    const uint64_t* before = *CurrentScratchStack().top;
    StartEndlessRun();
    EXPECT_GT(*CurrentScratchStack().top, before);
    Click(EquationSolve);
    Finish();
    EXPECT_EQ(*CurrentScratchStack().top, before);
    ExpectMessage({u"0", u"1"}, "The highest coefficient \"a1\" must not be 0!");
    EXPECT_EQ(*CurrentScratchStack().top, before);
    Solve({u"1", u"1"});
    EXPECT_EQ(*CurrentScratchStack().top, before);
}

TEST_F(EquationRunTest, ARunLeavesTheNumbersOfOthersAlone) {
    const NumberSetup before = CurrentNumberSetup();
    Select(EquationResultTypeList, 1);
    EnterNumber(EquationPrecision, 300);
    Solve({u"1", u"0", u"-2"});
    EXPECT_EQ(CurrentNumberSetup().type, before.type);
    EXPECT_EQ(CurrentNumberSetup().digits, before.digits);
    EXPECT_EQ(CurrentNumberSetup().width.limbs, before.width.limbs);
}

const struct {
    Language language;
    const char* caption;
    const char* highestZero;
    const char* formula;
    const char* notReal;
    const char* notRational;
    const char* tooLong;
    const char* notConverged;
} MessagesOfLanguages[] = {
    {LanguageEnglish, "Error", "The highest coefficient \"a2\" must not be 0!",
     "Error evaluating coefficient \"a1\": The variable or function at character position 4 is "
     "not defined!",
     "The coefficient \"a0\" has to be real!",
     "The coefficient \"a1\" is not a rational number in numerator denominator representation or "
     "overflow in numerator or denominator!",
     "Coefficient \"a0\" has to many characters!", "Iteration method has not converged!"},
    {LanguageGerman, "Fehler",
     "Der h\xF6"
     "chste Koeffizient \"a2\" darf nicht 0 sein!",
     "Fehler bei der Auswertung von Koeffizient \"a1\": Die Variable oder Funktion bei "
     "Zeichenposition 4 ist nicht definiert!",
     "Der Koeffizient \"a0\" muss reell sein!",
     "Der Koeffizient \"a1\" ist keine rationale Zahl in Z\xE4hler-Nenner-Darstellung oder "
     "\xDC"
     "berlauf bei Z\xE4hler oder Nenner!",
     "Koeffizient \"a0\" hat zu viele Zeichen!", "Iterationsverfahren hat nicht konvergiert!"},
};

TEST_F(EquationRunTest, TellsWhatIsWrongWithACoefficientInBothLanguages) {
    for (const auto& expected : MessagesOfLanguages) {
        MakeAgain(expected.language);
        const auto expectMessage = [&](const std::vector<std::u16string>& coefficients,
                                       const char* text) {
            ExpectMessage(coefficients, text, expected.caption);
        };
        expectMessage({u"", u"2", u"3"}, expected.highestZero);
        expectMessage({u"1-1", u"2", u"3"}, expected.highestZero);
        expectMessage({u"1", u" 2*y", u"3"}, expected.formula);
        expectMessage({u"1", u"2", u"3+i"}, expected.notReal);
        expectMessage({u"1", u"2", std::u16string(1031, u'1')}, expected.tooLong);
        expectMessage({u"1", u"2", std::u16string(100'000, u'1')}, expected.tooLong);
        Select(EquationResultTypeList, 1);
        expectMessage({u"1", u"sqrt(2)", u"3"}, expected.notRational);
        expectMessage({u"", u"2", u"3"}, expected.highestZero);
        expectMessage({u"1", u"2", std::u16string(1031, u'1')}, expected.tooLong);
    }
}

TEST_F(EquationRunTest, TellsTheFirstErrorFromTheTopDown) {
    ExpectMessage({u"1", u"i", u"sin("}, "The coefficient \"a1\" has to be real!");
    ExpectMessage({u"0", u"i", u"sin("}, "The highest coefficient \"a2\" must not be 0!");
    std::vector<std::u16string> coefficients(11, u"1");
    coefficients[0] = u"i";
    ExpectMessage(coefficients, "The coefficient \"a10\" has to be real!");
}

TEST_F(EquationRunTest, TheLongestCellThatIsReadIsReadWhole) {
    std::u16string longest(CoefficientCharacters, u'0');
    longest.back() = u'7';
    const MessageBoxAnswer answer;
    EXPECT_EQ(Solve({u"1", longest}), u"x1 = -7   [1]\r\n");
    EXPECT_EQ(answer.boxes, 0);
}

// Only the labels of the new rows are missing then.
TEST_F(EquationRunTest, RowsNeedNoMemoryOfTheirOwn) {
    WriteEquation({u"1", u"-3"});
    {
        const GridMemory none(0);
        ChooseDegree(10);
    }
    EXPECT_EQ(Rows(), 11);
    EXPECT_EQ(RowName(0), u"");
    EXPECT_EQ(RowName(10), u"a0");
    EXPECT_EQ(Cell(10), u"-3");
    WriteCell(0, u"2");
    WriteCell(9, u"0");
    WriteCell(10, u"-2048");
    EXPECT_EQ(Solve(), u"x1 = -2   [1]\r\nx2 = 2   [1]\r\n");
}

// All of them together have more characters than a run has room for.
TEST_F(EquationRunTest, ACellThatIsTooLongTakesNoRoom) {
    const std::vector<std::u16string> coefficients(11, std::u16string(1'000'000, u'1'));
    ExpectMessage(coefficients, "Coefficient \"a10\" has to many characters!");
}

TEST_F(EquationRunTest, TellsThatTheIterationHasNotConverged) {
    for (const auto& expected : MessagesOfLanguages) {
        MakeAgain(expected.language);
        ExpectMessage({u"1", u"1e1000000000000000000", u"1"}, expected.notConverged,
                      expected.caption);
    }
}

TEST_F(EquationRunTest, WithoutAThreadItTellsAnInternalError) {
    const ThreadMaker system = makeThread;
    makeThread = [](unsigned(__stdcall*)(void*)) { return false; };
    ExpectMessage({u"1", u"2"}, "Internal error!");
    makeThread = system;
    EXPECT_EQ(Solve(), u"x1 = -2   [1]\r\n");
}

TEST_F(EquationRunTest, ARootBeyondTheRangeIsShownBeforeItsErrorIsTold) {
    const MessageBoxAnswer answer;
    EXPECT_EQ(Solve({u"1e-4000000000000000000", u"-1e4000000000000000000"}),
              u"x1 = \u221e   [1]\r\n");
    EXPECT_EQ(answer.boxes, 1);
    EXPECT_EQ(answer.text, "Error in mathematical calculation!");
}

// 1/7 and sqrt(2) to 2000 digits: whole periods, and a square that is 2 to all of them.
TEST_F(EquationRunTest, LongResultsArriveWhole) {
    EnterNumber(EquationPrecision, 2000);
    std::u16string seventh = u"x1 = 0.";
    for (int32_t i = 0; i < 333; i++) {
        seventh += u"142857";
    }
    EXPECT_EQ(Solve({u"7", u"-1"}), seventh + u"14   [1]\r\n");
    const std::u16string roots = Solve({u"1", u"0", u"-2"});
    const std::u16string start = u"x1 = -1.41421356237309504880168872420969807856967187537694";
    EXPECT_EQ(roots.substr(0, start.size()), start);
    const size_t second = roots.find(u"\r\n") + 2;
    EXPECT_EQ(second, std::u16string_view(u"x1 = -1.").size() + 1999 +
                          std::u16string_view(u"   [1]\r\n").size());
    EXPECT_EQ(roots.size(), 2 * second - 1) << "the second one has no sign";
    EXPECT_EQ(roots.substr(second + 5), roots.substr(6, second - 6));
}

// By scrolling to its end, as a user does with the End key and the scroll bar.
TEST_F(EquationRunTest, TheEndOfALongLineCanBeScrolledTo) {
    ShowWindow(equationPage.window, SW_SHOW);
    EnterNumber(EquationPrecision, 2000);
    Select(EquationModeList, 1);
    const std::u16string roots = Solve({u"1", u"sqrt(2)", u"sqrt(3)"});
    const HWND output = Control(EquationOutput);
    const size_t end = roots.find(u"\r\n");
    ASSERT_GT(end, 4000U);
    SendMessageW(output, EM_SETSEL, 0, 0);
    SendMessageW(output, EM_SCROLLCARET, 0, 0);
    EXPECT_EQ(SendMessageW(output, EM_GETLINECOUNT, 0, 0), 3);
    EXPECT_EQ(SendMessageW(output, EM_LINELENGTH, 0, 0), static_cast<LRESULT>(end));
    const auto shown = [&](size_t position) {
        const auto place = static_cast<DWORD>(SendMessageW(output, EM_POSFROMCHAR, position, 0));
        return static_cast<int16_t>(LOWORD(place));
    };
    const int32_t width = ClientSize(output).width;
    EXPECT_GT(shown(end), width);
    SetFocus(output);
    PressKey(output, VK_END);
    EXPECT_GE(shown(end), 0);
    EXPECT_LE(shown(end), width);
    PressKey(output, VK_HOME);
    EXPECT_GE(shown(0), 0);
}

TEST_F(EquationRunTest, TheResultOfTheHighestDegreeHasALineForEachRoot) {
    // (x-1)(x-2)...(x-10)
    EXPECT_EQ(Solve({u"1", u"-55", u"1320", u"-18150", u"157773", u"-902055", u"3416930",
                     u"-8409500", u"12753576", u"-10628640", u"3628800"}),
              u"x1 = 1   [1]\r\nx2 = 2   [1]\r\nx3 = 3   [1]\r\nx4 = 4   [1]\r\nx5 = 5   [1]\r\n"
              u"x6 = 6   [1]\r\nx7 = 7   [1]\r\nx8 = 8   [1]\r\nx9 = 9   [1]\r\nx10 = 10   "
              u"[1]\r\n");
}

}  // namespace
}  // namespace tallymere::testing_support
