// The keys of the calculator page and its runs on the CalcThread.
#include "calculator/windows/calculator_run.h"

#include "calculator_windows/calculator_windows.h"
#include "shell_windows/message_boxes.h"
#include "toolkit/number_base_control.h"
#include "toolkit/numeric_up_down.h"

namespace tallymere::testing_support {
namespace {

// Takes longer than anybody waits, and looks for a stop all the time.
constexpr const char16_t* EndlessFormula = u"npr(1e12;1e11)";

constexpr int32_t NotationKey = 56;
constexpr int32_t AnsKey = 31;

class CalculatorRunTest : public CalculatorWindowsTest {
protected:
    ~CalculatorRunTest() override {
        EXPECT_EQ(Phase(), PageIdle);
        EXPECT_TRUE(IsWindowEnabled(mainWindow));
        EXPECT_EQ(*CurrentScratchStack().top, CurrentScratchStack().base);
        DestroyWindow(other);
    }

    // Dispatches messages until the condition holds. Timers are in the hands of the tests unless
    // they are let through.
    template <typename Condition>
    static void RunUntil(Condition condition, bool withTimers = false) {
        MSG message;
        while (!condition() && GetMessageW(&message, nullptr, 0, 0) > 0) {
            if (message.message != WM_TIMER || message.hwnd != calculatorWindows.page ||
                withTimers) {
                TranslateMessage(&message);
                DispatchMessageW(&message);
            }
        }
    }
    static PagePhase Phase() { return calculatorRun.states.phase; }
    static bool IsRunning() { return Phase() == PageBusy || Phase() == StopShown; }
    static void FinishRun() {
        RunUntil([] { return !IsRunning(); });
    }
    static void EndTimer(WPARAM timer) { SendMessageW(calculatorWindows.page, WM_TIMER, timer, 0); }
    // "=" without a run that lasts.
    static void Evaluate(const std::u16string& formula) {
        SetFormula(formula);
        Press(ActionEvaluate);
        FinishRun();
    }
    static std::u16string Result() { return WholeText(ControlOf(CalculatorResult)); }
    static std::u16string Caption(int32_t key) { return WholeText(KeyWindow(key)); }
    static bool IsEnabled(HWND window) { return IsWindowEnabled(window) != FALSE; }
    static std::vector<bool> EnabledKeys() {
        std::vector<bool> enabled;
        for (int32_t i = 0; i < KeyCount; i++) {
            enabled.push_back(IsEnabled(KeyWindow(i)));
        }
        return enabled;
    }
    static bool IsMarkThere() {
        return (WindowStyle(ControlOf(ContainerBracketMark)) & WS_VISIBLE) != 0;
    }

    HWND other = CreateDialogWindow(nullptr, {100, 100}, u"Other", nullptr, 0, 0);
};

TEST_F(CalculatorRunTest, AKeyClickTakesTheFocusToTheSink) {
    SetFocus(ControlOf(CalculatorFormula));
    Press(ActionDigit9);
    EXPECT_EQ(GetFocus(), ControlOf(CalculatorFocusSink));
    EXPECT_EQ(Formula(), u"9");
}

TEST_F(CalculatorRunTest, TheResultOfAFormulaIsShown) {
    EXPECT_FALSE(IsEnabled(KeyWindow(AnsKey)));
    SetFormula(u"(1+2");
    calculator.resultForm = ResultScientific;
    Press(ActionEvaluate);
    EXPECT_EQ(Phase(), PageBusy);
    EXPECT_EQ(Formula(), u"(1+2)");
    EXPECT_EQ(Result(), u"");
    FinishRun();
    EXPECT_EQ(Result(), u"3");
    EXPECT_EQ(Phase(), PageIdle);
    EXPECT_TRUE(calculator.resultValid);
    EXPECT_FALSE(calculator.formulaTouched);
    EXPECT_TRUE(IsEnabled(KeyWindow(AnsKey)));
    EXPECT_TRUE(IsEnabled(KeyWindow(NotationKey)));
    EXPECT_FALSE(IsMarkThere());
    EXPECT_EQ(GetFocus(), ControlOf(CalculatorFocusSink));
}

TEST_F(CalculatorRunTest, ALostRemainderShowsTheMarkUntilEverythingIsCleared) {
    ChooseType(NumberTypeUint);
    Evaluate(u"7/2");
    EXPECT_EQ(Result(), u"3");
    EXPECT_TRUE(IsMarkThere());
    EXPECT_TRUE(IsEnabled(ControlOf(ContainerBracketMark)));
    Press(ActionClearFormula);
    EXPECT_TRUE(IsMarkThere());
    EXPECT_FALSE(IsEnabled(ControlOf(ContainerBracketMark)));
    Press(ActionClearAll);
    EXPECT_FALSE(IsMarkThere());
    EXPECT_EQ(Result(), u"");
    EXPECT_EQ(Formula(), u"");
    EXPECT_FALSE(calculator.formulaTouched);
    Evaluate(u"7/2");
    EXPECT_TRUE(IsMarkThere());
    Evaluate(u"6/2");
    EXPECT_FALSE(IsMarkThere());
}

TEST_F(CalculatorRunTest, TheSettingsAreInForceForEachPressAndWhatWasThereComesBack) {
    const NumberSetup before = {NumberTypeUint, 1'000, UintWidthForLimbs(3), {-9, 9}};
    SetFormula(u"1/3");
    InstallNumberSetup(before);
    Press(ActionEvaluate);
    FinishRun();
    EXPECT_EQ(Result(), u"0.3333333333");
    Press(ActionSwitchNotation);
    EXPECT_EQ(Result(), u"3.333333333e-1");
    const NumberSetup after = CurrentNumberSetup();
    EXPECT_EQ(after.type, before.type);
    EXPECT_EQ(after.digits, before.digits);
    EXPECT_EQ(after.width.digits, before.width.digits);
    EXPECT_EQ(after.width.limbs, before.width.limbs);
    EXPECT_EQ(after.window.low, before.window.low);
    EXPECT_EQ(after.window.high, before.window.high);
    EXPECT_EQ(NumberSetupScopeCount(), 0);
}

TEST_F(CalculatorRunTest, AShortRunChangesNoKey) {
    Evaluate(u"5");
    const std::vector<bool> before = EnabledKeys();
    SetFormula(u"5+1");
    Press(ActionEvaluate);
    EXPECT_EQ(EnabledKeys(), before);
    EXPECT_EQ(Caption(0), u"CA");
    FinishRun();
    EXPECT_EQ(EnabledKeys(), before);
}

TEST_F(CalculatorRunTest, ARunDisablesOtherWindowsAndWhatChangesTheNumbers) {
    ShowWindow(other, SW_SHOW);
    SetFormula(EndlessFormula);
    Press(ActionEvaluate);
    for (const bool isOver : {false, true}) {
        for (const HWND window : {other, mainWindow, hiddenOwnerWindow, variablesWindow}) {
            EXPECT_EQ(IsEnabled(window), isOver);
        }
        for (int32_t i = 0; i < ContainerControlCount; i++) {
            const auto control = static_cast<ContainerControl>(i);
            if (IsDisabledDuringRun(control)) {
                EXPECT_EQ(IsEnabled(ControlOf(control)), isOver) << i;
            }
        }
        EXPECT_EQ(IsEnabled(NumericEdit(ControlOf(ContainerPrecision))), isOver);
        EXPECT_EQ(IsEnabled(NumberBaseList(ControlOf(ContainerNumberBase))), isOver);
        EXPECT_TRUE(IsEnabled(calculatorWindows.page));
        EXPECT_TRUE(IsEnabled(ControlOf(CalculatorFormula)));
        if (!isOver) {
            RequestStop();
            FinishRun();
        }
    }
}

TEST_F(CalculatorRunTest, NothingSetsUpNumbersUnderARun) {
    ChooseType(NumberTypeReal);
    const bool lowerCase = settings.useLowerCaseHex;
    const int64_t base = calculator.calcOutputBase;
    const int32_t precision = static_cast<int32_t>(calculator.calcPrecision);
    SetFormula(EndlessFormula);
    Press(ActionEvaluate);
    settings.settingsDirty = false;
    // Another program can do all that.
    ChooseType(NumberTypeUint);
    ChooseAngleUnit(AngleDegrees);
    SetNumericPosition(ControlOf(ContainerPrecision), precision + 7);
    SyncNumericUpDown(ControlOf(ContainerPrecision), true, true);
    const HWND bases = NumberBaseList(ControlOf(ContainerNumberBase));
    SendMessageW(bases, CB_SETCURSEL, 0, 0);
    SendMessageW(GetParent(bases), WM_COMMAND, MAKEWPARAM(0, CBN_CLOSEUP),
                 reinterpret_cast<LPARAM>(bases));
    SendMessageW(calculatorWindows.container, WM_COMMAND, MAKEWPARAM(0, BN_CLICKED),
                 reinterpret_cast<LPARAM>(ControlOf(ContainerCaseKey)));
    EXPECT_EQ(CurrentNumberSetup().type, NumberTypeReal);
    EXPECT_EQ(Phase(), PageBusy);
    RequestStop();
    FinishRun();
    EXPECT_FALSE(settings.settingsDirty);
    EXPECT_EQ(settings.numberType, NumberTypeReal);
    EXPECT_EQ(settings.angleType, AngleRadians);
    EXPECT_EQ(calculator.calcPrecision, precision);
    EXPECT_EQ(calculator.calcOutputBase, base);
    EXPECT_EQ(settings.useLowerCaseHex, lowerCase);
    EXPECT_EQ(SendMessageW(ControlOf(ContainerTypeSlider), TBM_GETPOS, 0, 0),
              PositionOfType(NumberTypeReal));
    EXPECT_EQ(SendMessageW(ControlOf(ContainerAngleSlider), TBM_GETPOS, 0, 0),
              PositionOfAngle(AngleRadians));
    EXPECT_EQ(NumericPosition(ControlOf(ContainerPrecision)), precision);
    EXPECT_EQ(SelectedNumberBase(ControlOf(ContainerNumberBase)), base);
}

TEST_F(CalculatorRunTest, WhatIsTypedAfterEqualsIsNotEvaluated) {
    SetFormula(u"2*(3");
    Press(ActionEvaluate);
    const HWND field = ControlOf(CalculatorFormula);
    SendMessageW(field, EM_SETSEL, 0, -1);
    SendMessageW(field, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"7+"));
    FinishRun();
    EXPECT_EQ(Result(), u"6");
    EXPECT_EQ(Formula(), u"7+");
}

TEST_F(CalculatorRunTest, ALongRunIsStoppedByItsKeyInSilence) {
    Evaluate(u"6");
    const std::vector<bool> before = EnabledKeys();
    SetFormula(EndlessFormula);
    Press(ActionEvaluate);
    // The page's own timer brings Stop.
    RunUntil([] { return Phase() == StopShown; }, true);
    EXPECT_EQ(Caption(0), u"Stop");
    std::vector<bool> onlyStop(KeyCount, false);
    onlyStop[0] = true;
    EXPECT_EQ(EnabledKeys(), onlyStop);
    Press(ActionEvaluate);
    SetFocus(ControlOf(CalculatorFormula));
    SendMessageW(ControlOf(CalculatorFormula), WM_CHAR, u'\r', 1);
    EXPECT_EQ(Phase(), StopShown);
    EXPECT_EQ(cancelFlag, 0);

    const MessageBoxAnswer answer;
    Click(KeyWindow(0));
    EXPECT_EQ(cancelFlag, 1);
    FinishRun();
    EXPECT_EQ(answer.boxes, 0);
    EXPECT_EQ(cancelFlag, 0);
    EXPECT_EQ(Phase(), StopLingers);
    EXPECT_EQ(Caption(0), u"CA");
    EXPECT_FALSE(calculator.resultValid);
    EXPECT_EQ(Result(), u"6");
    EXPECT_EQ(std::u16string(calculator.calcResultText), u"6");
    std::vector<bool> after = before;
    after[NotationKey] = false;
    EXPECT_EQ(EnabledKeys(), after);
    EXPECT_TRUE(IsEnabled(other));

    Click(KeyWindow(0));
    EXPECT_EQ(Formula(), EndlessFormula) << "a click that comes late";
    RunUntil([] { return Phase() == PageIdle; }, true);
    Click(KeyWindow(0));
    EXPECT_EQ(Formula(), u"");
}

TEST_F(CalculatorRunTest, TheStopTimerEndsWithTheRunAndAtItsFirstMessage) {
    Evaluate(u"6");
    EXPECT_FALSE(KillTimer(calculatorWindows.page, StopTimer));
    SetFormula(EndlessFormula);
    Press(ActionEvaluate);
    EndTimer(StopTimer);
    EXPECT_EQ(Phase(), StopShown);
    EXPECT_FALSE(KillTimer(calculatorWindows.page, StopTimer));
    Click(KeyWindow(0));
    FinishRun();
    EndTimer(LateClickTimer);
    EXPECT_EQ(Phase(), PageIdle);
    EXPECT_FALSE(KillTimer(calculatorWindows.page, LateClickTimer));
}

TEST_F(CalculatorRunTest, AnErrorIsReportedAndTheOldResultStaysGrey) {
    Evaluate(u"6");
    const MessageBoxAnswer answer;
    Evaluate(u"6*)");
    EXPECT_EQ(answer.boxes, 1);
    EXPECT_EQ(answer.caption, "Error");
    EXPECT_EQ(answer.owner, calculatorWindows.page);
    EXPECT_EQ(Formula(), u"6*)");
    EXPECT_EQ(Result(), u"6");
    EXPECT_FALSE(calculator.resultValid);
    EXPECT_TRUE(IsEnabled(KeyWindow(AnsKey)));
    EXPECT_FALSE(IsEnabled(KeyWindow(NotationKey)));
    EXPECT_EQ(PendingUiError(), UiErrorNone);
    Evaluate(u"ans+1");
    EXPECT_EQ(answer.boxes, 1);
    EXPECT_EQ(Result(), u"7");
}

TEST_F(CalculatorRunTest, AFormulaThatLacksNothingKeepsItsCaret) {
    SetFormula(u"1+2");
    SendMessageW(ControlOf(CalculatorFormula), EM_SETSEL, 1, 2);
    Press(ActionEvaluate);
    FinishRun();
    EXPECT_EQ(SelectionIn(ControlOf(CalculatorFormula)), std::pair(DWORD{1}, DWORD{2}));
    EXPECT_EQ(Formula(), u"1+2");
}

TEST_F(CalculatorRunTest, WhatIsNoFractionMovesTheSliderToReal) {
    ChooseType(NumberTypeRational);
    settings.settingsDirty = false;
    Evaluate(u"sqrt(2)");
    EXPECT_EQ(Result(), u"1.414213562");
    EXPECT_EQ(settings.numberType, NumberTypeReal);
    EXPECT_TRUE(settings.settingsDirty);
    EXPECT_EQ(SendMessageW(ControlOf(ContainerTypeSlider), TBM_GETPOS, 0, 0), 300'002);
    EXPECT_EQ(Caption(32), u"sin");
    EXPECT_NE(WindowStyle(ControlOf(ContainerAngleSlider)) & WS_VISIBLE, 0u);
    EXPECT_TRUE(calculator.resultValid);
    EXPECT_TRUE(IsEnabled(KeyWindow(NotationKey)));

    // What stays a fraction leaves the type, also after one that fell.
    ChooseType(NumberTypeRational);
    Evaluate(u"1/3");
    EXPECT_EQ(Result(), u"1/3");
    EXPECT_EQ(settings.numberType, NumberTypeRational);
    const MessageBoxAnswer answer;
    Evaluate(u"sqrt(2)+");
    EXPECT_EQ(answer.boxes, 1);
    EXPECT_EQ(settings.numberType, NumberTypeRational);
    EXPECT_EQ(CalcNumberSetup().type, NumberTypeRational);
}

TEST_F(CalculatorRunTest, ReturnInTheFormulaEvaluatesAndKeepsTheFocus) {
    SetFocus(ControlOf(CalculatorFormula));
    SetFormula(u"2*(3");
    PressKey(ControlOf(CalculatorFormula), VK_RETURN);
    EXPECT_EQ(Phase(), PageIdle) << "the character does it, and not the key as well";
    SendMessageW(ControlOf(CalculatorFormula), WM_CHAR, u'\r', 1);
    EXPECT_EQ(GetFocus(), ControlOf(CalculatorFormula));
    FinishRun();
    EXPECT_EQ(Formula(), u"2*(3)");
    EXPECT_EQ(Result(), u"6");
    EXPECT_EQ(GetFocus(), ControlOf(CalculatorFormula));
}

TEST_F(CalculatorRunTest, ReturnEvaluatesOnceWhileItIsHeld) {
    constexpr LPARAM Repeated = LPARAM{KF_REPEAT} << 16 | 1;
    SetFormula(u"7");
    Press(ActionEvaluate);
    FinishRun();
    SetFormula(u"ans+ans");
    for (const CalculatorControl control : {CalculatorFormula, CalculatorFocusSink}) {
        SendMessageW(ControlOf(control), WM_CHAR, u'\r', Repeated);
        EXPECT_EQ(Phase(), PageIdle);
    }
    SendMessageW(ControlOf(CalculatorFormula), WM_CHAR, u'\r', 1);
    FinishRun();
    EXPECT_EQ(Result(), u"14");
}

TEST_F(CalculatorRunTest, WhatIsTypedAfterAKeyGoesToTheFormula) {
    const HWND sink = ControlOf(CalculatorFocusSink);
    Press(static_cast<KeyAction>(ActionDigit0 + 4));
    SendMessageW(sink, WM_CHAR, u'2', 1);
    EXPECT_EQ(Formula(), u"42");
    EXPECT_EQ(GetFocus(), ControlOf(CalculatorFormula));
    SetFocus(sink);
    SendMessageW(sink, WM_CHAR, u'\r', 1);
    FinishRun();
    EXPECT_EQ(Result(), u"42");
    EXPECT_EQ(GetFocus(), sink);
    for (const WPARAM key : {VK_SPACE, VK_RETURN}) {
        SendMessageW(sink, WM_KEYDOWN, key, 1);
        EXPECT_EQ(SendMessageW(sink, BM_GETSTATE, 0, 0) & BST_PUSHED, 0) << "the sink is no key";
        SendMessageW(sink, WM_KEYUP, key, 1);
    }
    EXPECT_TRUE(calculator.resultValid);
    SendMessageW(sink, WM_CHAR, u'7', 1);
    EXPECT_EQ(Formula(), u"7");
    EXPECT_FALSE(calculator.resultValid);
}

TEST_F(CalculatorRunTest, TheFirstKeyAfterAResultStartsANewFormula) {
    Evaluate(u"12");
    Press(ActionAns);
    EXPECT_EQ(Formula(), u"ans");
    EXPECT_FALSE(calculator.resultValid);
    Press(ActionAdd);
    EXPECT_EQ(Formula(), u"ans+");
    Evaluate(u"12");
    SetFocus(ControlOf(CalculatorFormula));
    Press(ActionAdd);
    EXPECT_EQ(Formula(), u"+12") << "a click into the formula keeps it";
}

TEST_F(CalculatorRunTest, AFormulaThatIsTooLongIsReportedAndKept) {
    Evaluate(u"6");
    // In short lines, since an edit control of Wine takes a minute to break long ones.
    std::u16string longest;
    while (longest.size() < 88'660) {
        longest += std::u16string(38, u'1') + u"\r\n";
    }
    longest.resize(88'661);
    const std::string tooLong = "String buffer overflow!";
    const MessageBoxAnswer answer;
    Evaluate(longest + u"1");
    EXPECT_EQ(answer.boxes, 1);
    EXPECT_EQ(answer.text, tooLong);
    EXPECT_EQ(Phase(), PageIdle);
    EXPECT_FALSE(calculator.resultValid);
    EXPECT_EQ(Formula().size(), 88'662u);
    // A parenthesis that is added makes it too long.
    Evaluate(u"(" + longest.substr(1));
    EXPECT_EQ(answer.boxes, 2);
    EXPECT_EQ(answer.text, tooLong);
    EXPECT_EQ(Formula().size(), 88'662u);
    EXPECT_EQ(Result(), u"6");
    // This one is read, and has another error.
    Evaluate(longest);
    EXPECT_EQ(answer.boxes, 3);
    EXPECT_NE(answer.text, tooLong);
}

TEST_F(CalculatorRunTest, ATextTooLongForFixedNotationSaysSo) {
    Evaluate(u"1e99999");
    EXPECT_EQ(Result(), u"1e+99999");
    Press(ActionSwitchNotation);
    EXPECT_EQ(Result(), u"<Number is too long for fixed-point notation>");
    EXPECT_TRUE(calculator.resultValid);
    Press(ActionSwitchNotation);
    EXPECT_EQ(Result(), u"1e+99999");
}

TEST_F(CalculatorRunTest, ClosingThePageStopsItsRunInSilence) {
    Evaluate(u"6");
    SetFormula(EndlessFormula);
    Press(ActionEvaluate);
    const MessageBoxAnswer answer;
    SendMessageW(calculatorWindows.page, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindowVisible(calculatorWindows.page));
    EXPECT_TRUE(StopRequested());
    FinishRun();
    EXPECT_EQ(answer.boxes, 0);
    EXPECT_FALSE(StopRequested());
    EXPECT_TRUE(IsEnabled(mainWindow));
    EXPECT_FALSE(IsWindowVisible(calculatorWindows.page));
    EXPECT_EQ(Result(), u"6");
    EXPECT_FALSE(calculator.resultValid);
    Evaluate(u"ans+1");
    EXPECT_EQ(Result(), u"7");
}

TEST_F(CalculatorRunTest, WithoutAThreadTheRunEndsWithAnErrorAndThePageGoesOn) {
    Evaluate(u"6");
    const MessageBoxAnswer answer;
    SetFormula(u"1+1");
    const ThreadMaker system = makeThread;
    makeThread = [](unsigned(__stdcall*)(void*)) { return false; };
    Press(ActionEvaluate);
    makeThread = system;
    EXPECT_EQ(answer.boxes, 1);
    EXPECT_EQ(answer.text, "Internal error!");
    EXPECT_EQ(Phase(), PageIdle);
    EXPECT_EQ(Result(), u"6");
    EXPECT_FALSE(calculator.resultValid);
    EXPECT_TRUE(IsEnabled(mainWindow));
    Evaluate(u"ans+1");
    EXPECT_EQ(Result(), u"7");
    EXPECT_EQ(answer.boxes, 1);
}

TEST_F(CalculatorRunTest, TheFallOfAnEarlierRunIsNotThatOfOneWithoutAThread) {
    ChooseType(NumberTypeRational);
    Evaluate(u"sqrt(2)");
    ChooseType(NumberTypeRational);
    const MessageBoxAnswer answer;
    SetFormula(u"1+1");
    const ThreadMaker system = makeThread;
    makeThread = [](unsigned(__stdcall*)(void*)) { return false; };
    Press(ActionEvaluate);
    makeThread = system;
    EXPECT_EQ(settings.numberType, NumberTypeRational);
}

TEST_F(CalculatorRunTest, OtherNewsOfAThreadEndNoRun) {
    SetFormula(EndlessFormula);
    Press(ActionEvaluate);
    SendMessageW(calculatorWindows.page, PageWorkerMessage, PageWorkerText, 0);
    EXPECT_EQ(Phase(), PageBusy);
    RequestStop();
    FinishRun();
}

}  // namespace
}  // namespace tallymere::testing_support
