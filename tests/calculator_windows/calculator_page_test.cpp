// The page of the calculator as a window: how it is made from the settings, how it shares its room
// and what its fields and sliders do.
#include "calculator/windows/calculator_page.h"

#include "calculator/calc_evaluation.h"
#include "calculator/calculator_sliders.h"
#include "calculator/windows/calculator_display.h"
#include "calculator_windows/calculator_windows.h"
#include "shell/windows/window_making.h"
#include "shell_windows/message_boxes.h"
#include "support/number_types.h"
#include "toolkit/digit_count_control.h"
#include "toolkit/number_base_control.h"
#include "toolkit/numeric_up_down.h"

namespace tallymere::testing_support {
namespace {

class CalculatorPageTest : public CalculatorWindowsTest {
protected:
    ~CalculatorPageTest() override {
        if (isMadeAnew) {
            Start({});
        }
    }

    // Makes the windows anew, as a start with such settings does.
    void Start(const Settings& record, int32_t dpi = LogicalDpi) {
        DestroyWindow(calculatorWindows.page);
        screenDpi = dpi;
        settings = record;
        CreateCalculatorPage();
        CreateVariablesWindow();
        ShowProgramWindow(calculatorWindows.page);
        isMadeAnew = true;
    }

    // The screen bounds the size.
    static void Resize(int32_t width, int32_t height) {
        const LayoutRect place = PlaceInParent(calculatorWindows.page);
        const LayoutSize client = ClientSize(calculatorWindows.page);
        SetWindowPos(calculatorWindows.page, nullptr, 0, 0,
                     place.width - client.width + ToScreenPixels(width),
                     place.height - client.height + ToScreenPixels(height),
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }

    static LayoutRect Place(CalculatorControl control) { return PlaceInParent(ControlOf(control)); }

    static void Scroll(ContainerControl slider, int32_t position, WORD news,
                       UINT message = WM_HSCROLL) {
        SendMessageW(ControlOf(slider), TBM_SETPOS, TRUE, position);
        SendMessageW(calculatorWindows.container, message, news,
                     reinterpret_cast<LPARAM>(ControlOf(slider)));
    }
    static int32_t Position(ContainerControl slider) {
        return static_cast<int32_t>(SendMessageW(ControlOf(slider), TBM_GETPOS, 0, 0));
    }
    static bool IsThere(ContainerControl control) {
        return (WindowStyle(ControlOf(control)) & WS_VISIBLE) != 0;
    }

    // A result under the settings, without the thread.
    static void GiveResult(const char16_t* formula = u"5") {
        {
            const NumberSetupScope scope(CalcNumberSetup());
            CalculateResult(formula);
            ShowResultText(FinishCalculation(StyleOfResult(settings)));
        }
        ShowResultState();
        ASSERT_TRUE(calculator.resultValid);
    }
    static std::u16string Result() { return WholeText(ControlOf(CalculatorResult)); }

    static std::string FontName(HWND window, LONG& height) {
        LOGFONTA font = {};
        GetObjectA(reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)), sizeof font,
                   &font);
        height = font.lfHeight;
        return font.lfFaceName;
    }

    bool isMadeAnew = false;
};

TEST_F(CalculatorPageTest, CanBeResizedAndStandsInTheMiddle) {
    const HWND page = calculatorWindows.page;
    EXPECT_EQ(pageWindows[PageCalculator], page);
    EXPECT_EQ(GetWindow(page, GW_OWNER), hiddenOwnerWindow);
    EXPECT_EQ(WholeText(page), u"Scientific Calculator");
    const uint32_t wanted =
        WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX;
    EXPECT_EQ(WindowStyle(page) & wanted, wanted);
    Start({});
    EXPECT_EQ(ClientSize(calculatorWindows.page), CalculatorSize);
    const LayoutRect place = PlaceInParent(calculatorWindows.page);
    EXPECT_EQ(place.x, (GetSystemMetrics(SM_CXSCREEN) - place.width) / 2);
    EXPECT_EQ(place.y, (GetSystemMetrics(SM_CYSCREEN) - place.height) / 2);
}

TEST_F(CalculatorPageTest, IsMadeHidden) {
    DestroyWindow(calculatorWindows.page);
    settings = Settings{};
    CreateCalculatorPage();
    EXPECT_FALSE(IsWindowVisible(calculatorWindows.page));
    CreateVariablesWindow();
}

TEST_F(CalculatorPageTest, KnowsTheVariablesBeforeTheirWindowIsMade) {
    DestroyWindow(calculatorWindows.page);
    variablesWindow = nullptr;
    settings = Settings{};
    settings.variableCount = 1;
    settings.variables[0] = {u"rate", u"1.5"};
    CreateCalculatorPage();
    ASSERT_EQ(variableTable.count, 1);
    EXPECT_EQ(std::u16string(variableTable.variables[0].name), u"rate");
    DestroyWindow(calculatorWindows.page);
    CreateCalculatorPage();
    EXPECT_EQ(variableTable.count, 1) << "they were there already";
    ShowProgramWindow(calculatorWindows.page);
    SendMessageW(calculatorWindows.page, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindowVisible(calculatorWindows.page)) << "without the variables, too";

    ShowProgramWindow(calculatorWindows.page);
    static constexpr ProgramWindow Windows[] = {{&variablesWindow, CreateVariablesWindow}};
    BeginMakingWindows(Windows);
    Press(ActionShowVariables);
    EXPECT_NE(variablesWindow, nullptr) << "made for the key";
    EXPECT_TRUE(IsWindowVisible(EnsureWindow(&variablesWindow)));
    BeginMakingWindows({});
    EXPECT_EQ(VariableNames(), u"rate ");
}

TEST_F(CalculatorPageTest, BothFieldsBreakLongLinesAtAnyCharacter) {
    for (const CalculatorControl control : {CalculatorFormula, CalculatorResult}) {
        const HWND field = ControlOf(control);
        EXPECT_EQ(WindowStyle(field) & (ES_MULTILINE | ES_AUTOVSCROLL | ES_AUTOHSCROLL |
                                        ES_READONLY | WS_VSCROLL | WS_HSCROLL),
                  uint32_t{ES_MULTILINE | ES_AUTOVSCROLL | WS_VSCROLL});
        LONG height;
        EXPECT_EQ(FontName(field, height), "Verdana");
        EXPECT_EQ(height, 19);
        const auto breaks =
            reinterpret_cast<EDITWORDBREAKPROCW>(SendMessageW(field, EM_GETWORDBREAKPROC, 0, 0));
        ASSERT_NE(breaks, nullptr);
        wchar_t text[] = L"1 + 2";
        for (const int code : {WB_LEFT, WB_RIGHT, WB_ISDELIMITER}) {
            EXPECT_EQ(breaks(text, 1, 5, code), 0);
        }
    }
}

TEST_F(CalculatorPageTest, TheSinkHasNoSizeAndIsNoTabStop) {
    const HWND sink = ControlOf(CalculatorFocusSink);
    EXPECT_EQ(ClientSize(sink), (LayoutSize{0, 0}));
    EXPECT_TRUE(IsPushButton(sink));
    EXPECT_EQ(WindowStyle(sink) & WS_TABSTOP, 0u);
    EXPECT_EQ(NextTabStop(calculatorWindows.page, true), ControlOf(CalculatorFormula));
}

TEST_F(CalculatorPageTest, TheContainerHasItsOwnClass) {
    EXPECT_EQ(std::u16string(WindowClassName(calculatorWindows.container).text),
              u"SciCalcContainerControl");
    EXPECT_EQ(GetParent(calculatorWindows.container), calculatorWindows.page);
    EXPECT_EQ(ClientSize(calculatorWindows.container), (LayoutSize{370, 250}));
}

TEST_F(CalculatorPageTest, SlidersKeysAndLabelsHaveTheirNumbers) {
    const struct {
        ContainerControl slider;
        ContainerControl label;
        int32_t first, last;
    } sliders[] = {{ContainerTypeSlider, ContainerTypeUint, 300'000, 300'003},
                   {ContainerAngleSlider, ContainerAngleDeg, 200'000, 200'002}};
    for (const auto& expected : sliders) {
        EXPECT_EQ(SendMessageW(ControlOf(expected.slider), TBM_GETRANGEMIN, 0, 0), expected.first);
        EXPECT_EQ(SendMessageW(ControlOf(expected.slider), TBM_GETRANGEMAX, 0, 0), expected.last);
        for (int32_t i = 0; i <= expected.last - expected.first; i++) {
            EXPECT_EQ(GetDlgCtrlID(calculatorWindows.containerControls[expected.label + i]),
                      expected.first + i);
        }
    }
    for (int32_t i = 0; i < 72; i++) {
        EXPECT_EQ(GetDlgCtrlID(KeyWindow(i)), 100'000 + i);
    }
    EXPECT_EQ(GetDlgCtrlID(ControlOf(ContainerCaseKey)), 400'000);
}

TEST_F(CalculatorPageTest, ShowsTheSettings) {
    Settings record;
    record.decimalPrecision = 57;
    record.numberType = NumberTypeUint;
    record.angleType = AngleGon;
    record.outputNumberBase = 8;
    Start(record);
    EXPECT_EQ(Position(ContainerTypeSlider), 300'000);
    EXPECT_EQ(Position(ContainerAngleSlider), 200'002);
    EXPECT_EQ(WholeText(NumericEdit(ControlOf(ContainerPrecision))), u"57");
    EXPECT_EQ(SelectedNumberBase(ControlOf(ContainerNumberBase)), 8);
    EXPECT_EQ(calculator.calcOutputBase, 8);
    EXPECT_FALSE(settings.settingsDirty);
    EXPECT_EQ(WholeText(NumberBaseLabel(ControlOf(ContainerNumberBase))), u"Output\r\nBase");
    EXPECT_EQ(WholeText(DigitCountLabel(ControlOf(ContainerDigitCount))), u"Digits");
}

TEST_F(CalculatorPageTest, StartsWithTenWhereTheBaseIsNone) {
    Settings record;
    record.numberType = NumberTypeUint;
    record.outputNumberBase = 7;
    Start(record);
    EXPECT_EQ(SelectedNumberBase(ControlOf(ContainerNumberBase)), 10);
    EXPECT_EQ(settings.outputNumberBase, 7);
}

TEST_F(CalculatorPageTest, APrecisionOutOfRangeMovesIntoItAndIsInForce) {
    const struct {
        int64_t read, shown;
    } cases[] = {{-5, 10},         {0, 10},          {1, 1},           {10'000, 10'000},
                 {10'001, 10'000}, {10'004, 10'000}, {20'000, 10'000}, {2'147'483'647, 10'000}};
    for (const auto& expected : cases) {
        SCOPED_TRACE(expected.read);
        Settings record;
        record.decimalPrecision = expected.read;
        Start(record);
        EXPECT_EQ(NumericPosition(ControlOf(ContainerPrecision)), expected.shown);
        EXPECT_EQ(settings.decimalPrecision, expected.shown);
        EXPECT_EQ(settings.settingsDirty, expected.read != expected.shown);
        EXPECT_EQ(calculator.calcPrecision, expected.shown);
        EXPECT_EQ(CalcNumberSetup().digits, expected.shown + 2);
        EXPECT_EQ(numberContext.calcError, CalcErrorNone);
    }
}

TEST_F(CalculatorPageTest, ControlsComeAndGoWithTheType) {
    for (const NumberType type : AllNumberTypes) {
        Settings record;
        record.numberType = type;
        Start(record);
        for (int32_t i = 0; i < ContainerControlCount; i++) {
            const auto control = static_cast<ContainerControl>(i);
            EXPECT_EQ(IsThere(control),
                      control != ContainerBracketMark && IsShownForType(control, type))
                << i;
        }
        for (const NumberType next : AllNumberTypes) {
            ChooseType(next);
            for (int32_t i = 0; i < ContainerBracketMark; i++) {
                const auto control = static_cast<ContainerControl>(i);
                EXPECT_EQ(IsThere(control), IsShownForType(control, next)) << i;
            }
            ChooseType(type);
        }
    }
}

TEST_F(CalculatorPageTest, TheStartReportsWhatIsPendingFromBefore) {
    DestroyWindow(calculatorWindows.page);
    settings = Settings{};
    SetUiError(UiErrorTextOverflow);
    const MessageBoxAnswer answer;
    CreateCalculatorPage();
    EXPECT_EQ(answer.boxes, 1);
    EXPECT_EQ(PendingUiError(), UiErrorNone);
    EXPECT_EQ(pageWindows[PageCalculator], calculatorWindows.page);
    CreateVariablesWindow();
}

TEST_F(CalculatorPageTest, FieldsShareTheRoomAndKeepTheirRatio) {
    for (const int32_t dpi : {96, 120, 144, 168, 192}) {
        SCOPED_TRACE(dpi);
        Start({}, dpi);
        EXPECT_EQ(Place(CalculatorFormula), ToScreenPixels(LayoutRect{10, 10, 350, 43}));
        EXPECT_EQ(Place(CalculatorSplitter), ToScreenPixels(LayoutRect{10, 53, 350, 4}));
        EXPECT_EQ(Place(CalculatorResult), ToScreenPixels(LayoutRect{10, 57, 350, 43}));
        EXPECT_EQ(PlaceInParent(calculatorWindows.container),
                  ToScreenPixels(LayoutRect{0, 105, 370, 250}));
        Resize(400, 360);
        EXPECT_EQ(Place(CalculatorFormula), ToScreenPixels(LayoutRect{10, 10, 380, 45}));
        EXPECT_EQ(Place(CalculatorResult), ToScreenPixels(LayoutRect{10, 59, 380, 45}));
        EXPECT_EQ(PlaceInParent(calculatorWindows.container),
                  ToScreenPixels(LayoutRect{0, 110, 370, 250}));
    }
}

TEST_F(CalculatorPageTest, FieldsDoNotDriftHoweverOftenTheSizeIsTold) {
    for (const int32_t dpi : {96, 120, 144, 168, 192}) {
        SCOPED_TRACE(dpi);
        Start({}, dpi);
        Resize(400, 361);
        const HWND splitter = ControlOf(CalculatorSplitter);
        const auto moving =
            reinterpret_cast<bool (*)(HWND, int32_t)>(GetPropW(splitter, L"SplitterMovingEvent"));
        EXPECT_TRUE(moving(splitter, ToScreenPixels(-17)));
        SendMessageW(calculatorWindows.page, WM_SIZE, SIZE_RESTORED, 0);
        SendMessageW(calculatorWindows.page, WM_SIZE, SIZE_RESTORED, 0);
        const LayoutRect formula = Place(CalculatorFormula);
        const LayoutRect result = Place(CalculatorResult);
        for (int32_t i = 0; i < 50; i++) {
            SendMessageW(calculatorWindows.page, WM_SIZE, SIZE_RESTORED, 0);
        }
        EXPECT_EQ(Place(CalculatorFormula), formula);
        EXPECT_EQ(Place(CalculatorResult), result);
        EXPECT_NEAR(result.y + result.height + ToScreenPixels(6), ToScreenPixels(111), 2);
    }
}

TEST_F(CalculatorPageTest, AMinimisedPageIsNotLaidOut) {
    Start({});
    const LayoutRect formula = Place(CalculatorFormula);
    ShowWindow(calculatorWindows.page, SW_SHOWMINIMIZED);
    EXPECT_EQ(Place(CalculatorFormula), formula);
    ShowWindow(calculatorWindows.page, SW_SHOWNORMAL);
    EXPECT_EQ(Place(CalculatorFormula), formula);
    // A message without a change of size, as its sender could be anybody.
    const HWND result = ControlOf(CalculatorResult);
    MoveWindow(result, 1, 2, 3, 4, FALSE);
    SendMessageW(calculatorWindows.page, WM_SIZE, SIZE_MINIMIZED, 0);
    EXPECT_EQ(PlaceInParent(result), (LayoutRect{1, 2, 3, 4}));
    SendMessageW(calculatorWindows.page, WM_SIZE, SIZE_RESTORED, 0);
    EXPECT_EQ(PlaceInParent(result).width, 350);
}

TEST_F(CalculatorPageTest, TheSplitterMovesTheFieldsUpToTheirLowestHeight) {
    for (const int32_t dpi : {96, 144}) {
        SCOPED_TRACE(dpi);
        Start({}, dpi);
        const HWND splitter = ControlOf(CalculatorSplitter);
        const int32_t height = ToScreenPixels(43);
        const int32_t most = height - ToScreenPixels(20);
        const LayoutRect below = Place(CalculatorResult);
        const auto drag = [splitter](int32_t from, int32_t to) {
            SendMessageW(splitter, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, from));
            SendMessageW(splitter, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(5, to));
            SendMessageW(splitter, WM_LBUTTONUP, 0, 0);
        };
        drag(1, 1 + most + 1);
        EXPECT_EQ(Place(CalculatorResult), below);
        drag(1, 1 + most);
        EXPECT_EQ(Place(CalculatorFormula).height, height + most);
        EXPECT_EQ(Place(CalculatorResult).height, height - most);
        EXPECT_EQ(Place(CalculatorResult).y, below.y + most);
        EXPECT_EQ(Place(CalculatorResult).x, below.x);
        EXPECT_EQ(Place(CalculatorResult).width, below.width);
        EXPECT_EQ(Place(CalculatorSplitter).y, ToScreenPixels(53) + most);
    }
}

TEST_F(CalculatorPageTest, OnlyTrackingAndRestingOfASliderCount) {
    GiveResult();
    for (WORD news = 0; news < 12; news++) {
        if (!MovesSlider(news)) {
            numberContext.numberType = NumberTypeUint;
            Scroll(ContainerTypeSlider, 300'003, news);
            EXPECT_EQ(settings.numberType, NumberTypeReal) << news;
            EXPECT_EQ(numberContext.numberType, NumberTypeUint) << "left as it was " << news;
            EXPECT_TRUE(calculator.resultValid) << news;
        }
    }
    Scroll(ContainerTypeSlider, 300'003, SB_THUMBTRACK);
    EXPECT_EQ(settings.numberType, NumberTypeComplex);
    EXPECT_TRUE(settings.settingsDirty);
    EXPECT_FALSE(calculator.resultValid);
    EXPECT_EQ(WholeText(KeyWindow(8)), u"i");
    Scroll(ContainerTypeSlider, 300'001, SB_ENDSCROLL, WM_VSCROLL);
    EXPECT_EQ(settings.numberType, NumberTypeRational);
    EXPECT_EQ(CalcNumberSetup().width.digits, 10'000);
    EXPECT_EQ(WholeText(KeyWindow(8)), u"R↔M");
}

TEST_F(CalculatorPageTest, ASliderThatRestsWhereItWasLeavesTheResult) {
    GiveResult();
    Scroll(ContainerTypeSlider, 300'002, SB_ENDSCROLL);
    EXPECT_TRUE(calculator.resultValid);
    EXPECT_FALSE(settings.settingsDirty);
}

TEST_F(CalculatorPageTest, AnotherAngleHasOtherKeysAndLeavesTheResult) {
    GiveResult();
    Scroll(ContainerAngleSlider, 200'000, SB_THUMBTRACK);
    EXPECT_EQ(settings.angleType, AngleDegrees);
    EXPECT_TRUE(settings.settingsDirty);
    EXPECT_EQ(WholeText(KeyWindow(32)), u"sind");
    EXPECT_TRUE(calculator.resultValid);
    Scroll(ContainerAngleSlider, 200'002, SB_ENDSCROLL);
    EXPECT_EQ(WholeText(KeyWindow(32)), u"sing");
}

TEST_F(CalculatorPageTest, TheLabelOfTheCurrentPositionStandsOut) {
    const HDC dc = CreateCompatibleDC(nullptr);
    const auto colourOf = [dc](ContainerControl label) {
        SetTextColor(dc, RGB(1, 2, 3));
        SetBkMode(dc, OPAQUE);
        const LRESULT brush =
            SendMessageW(calculatorWindows.container, WM_CTLCOLORSTATIC,
                         reinterpret_cast<WPARAM>(dc), reinterpret_cast<LPARAM>(ControlOf(label)));
        EXPECT_NE(brush, 0);
        const bool standsOut = GetTextColor(dc) == RGB(139, 0, 0);
        EXPECT_EQ(GetBkMode(dc) == TRANSPARENT, standsOut);
        return standsOut;
    };
    for (int32_t i = 0; i < 4; i++) {
        ChooseType(AllNumberTypes[i]);
        for (int32_t k = 0; k < 4; k++) {
            EXPECT_EQ(colourOf(static_cast<ContainerControl>(ContainerTypeUint + k)), i == k);
        }
        EXPECT_FALSE(colourOf(ContainerPrecisionLabel));
        EXPECT_FALSE(colourOf(ContainerBracketMark));
    }
    for (int32_t i = 0; i < 3; i++) {
        Scroll(ContainerAngleSlider, 200'000 + i, SB_ENDSCROLL);
        for (int32_t k = 0; k < 3; k++) {
            EXPECT_EQ(colourOf(static_cast<ContainerControl>(ContainerAngleDeg + k)), i == k);
        }
    }
    DeleteDC(dc);
}

TEST_F(CalculatorPageTest, AResultIsGreyUnlessItIsValid) {
    const HDC dc = CreateCompatibleDC(nullptr);
    const auto colourOf = [dc](CalculatorControl field) {
        SetTextColor(dc, RGB(1, 2, 3));
        SetBkMode(dc, TRANSPARENT);
        SetBkColor(dc, RGB(1, 2, 3));
        const LRESULT brush =
            SendMessageW(calculatorWindows.page, WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(dc),
                         reinterpret_cast<LPARAM>(ControlOf(field)));
        EXPECT_EQ(reinterpret_cast<HBRUSH>(brush), GetSysColorBrush(COLOR_WINDOW));
        EXPECT_EQ(GetBkColor(dc), GetSysColor(COLOR_WINDOW));
        return GetTextColor(dc);
    };
    EXPECT_EQ(colourOf(CalculatorResult), RGB(128, 128, 128));
    EXPECT_EQ(GetBkMode(dc), OPAQUE);
    GiveResult();
    EXPECT_EQ(colourOf(CalculatorResult), GetSysColor(COLOR_WINDOWTEXT));
    EXPECT_EQ(GetBkMode(dc), OPAQUE);
    SetFormula(u"1");
    SendMessageW(ControlOf(CalculatorFormula), WM_CHAR, u'2', 1);
    EXPECT_EQ(colourOf(CalculatorResult), RGB(128, 128, 128));
    EXPECT_EQ(colourOf(CalculatorFormula), GetSysColor(COLOR_WINDOWTEXT));
    DeleteDC(dc);
}

TEST_F(CalculatorPageTest, TheResultFieldTakesNoChanges) {
    GiveResult(u"1234");
    const HWND field = ControlOf(CalculatorResult);
    SetFocus(field);
    for (const WPARAM character : {u'7', u' ', u'\b', u'\n', u'\r', u'\t', char16_t{127}}) {
        SendMessageW(field, EM_SETSEL, 1, 3);
        SendMessageW(field, WM_CHAR, character, 1);
        EXPECT_EQ(Result(), u"1234") << character;
    }
    for (const UINT message :
         std::initializer_list<UINT>{WM_CUT, WM_PASTE, WM_CLEAR, WM_UNDO, EM_UNDO}) {
        SendMessageW(field, EM_SETSEL, 1, 3);
        SendMessageW(field, message, 0, 0);
        EXPECT_EQ(Result(), u"1234") << message;
    }
    SendMessageW(field, WM_KEYDOWN, VK_DELETE, 1);
    EXPECT_EQ(Result(), u"1234");
    EXPECT_EQ(SelectionIn(field), std::pair(DWORD{1}, DWORD{3}));
    EXPECT_TRUE(calculator.resultValid);
}

TEST_F(CalculatorPageTest, EditingTheFormulaMakesTheResultStale) {
    const HWND field = ControlOf(CalculatorFormula);
    const struct {
        UINT message;
        WPARAM parameter;
        bool changes;
    } cases[] = {{WM_CHAR, u'7', true},       {WM_CHAR, u'\b', true}, {WM_CHAR, u'\n', true},
                 {WM_CHAR, u'\t', false},     {WM_CLEAR, 0, true},    {WM_CUT, 0, true},
                 {WM_UNDO, 0, true},          {WM_COPY, 0, false},    {WM_KEYDOWN, VK_DELETE, true},
                 {WM_KEYDOWN, VK_LEFT, false}};
    for (const auto& expected : cases) {
        SCOPED_TRACE(expected.message * 1000 + expected.parameter);
        SetFormula(u"12");
        GiveResult();
        EXPECT_TRUE(IsWindowEnabled(KeyWindow(56)));
        EXPECT_TRUE(IsWindowEnabled(ControlOf(ContainerBracketMark)));
        SetFocus(field);
        SendMessageW(field, EM_SETSEL, 0, 1);
        SendMessageW(field, expected.message, expected.parameter, 1);
        EXPECT_EQ(calculator.resultValid, !expected.changes);
        EXPECT_EQ(IsWindowEnabled(KeyWindow(56)) != FALSE, !expected.changes);
        EXPECT_EQ(IsWindowEnabled(ControlOf(ContainerBracketMark)) != FALSE, !expected.changes);
    }
}

TEST_F(CalculatorPageTest, WhatChangesItsColourIsPaintedAnew) {
    const auto paintAll = [] {
        RedrawWindow(calculatorWindows.page, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    };
    const auto isToBePainted = [](HWND control) {
        return GetUpdateRect(control, nullptr, FALSE) != FALSE;
    };
    const HWND result = ControlOf(CalculatorResult);
    GiveResult();
    paintAll();
    EXPECT_FALSE(isToBePainted(result));
    SendMessageW(ControlOf(CalculatorFormula), WM_CHAR, u'2', 1);
    EXPECT_TRUE(isToBePainted(result));

    const HWND real = ControlOf(ContainerTypeReal);
    const HWND degrees = ControlOf(ContainerAngleDeg);
    paintAll();
    Scroll(ContainerTypeSlider, 300'003, SB_THUMBTRACK);
    EXPECT_TRUE(isToBePainted(real));
    EXPECT_FALSE(isToBePainted(degrees));
    paintAll();
    Scroll(ContainerAngleSlider, 200'000, SB_THUMBTRACK);
    EXPECT_TRUE(isToBePainted(degrees));
    EXPECT_FALSE(isToBePainted(real));
}

TEST_F(CalculatorPageTest, AFormulaWithTheFocusIsOneToKeep) {
    SetFocus(ControlOf(CalculatorResult));
    calculator.formulaTouched = false;
    SetFocus(ControlOf(CalculatorFormula));
    EXPECT_TRUE(calculator.formulaTouched);
    calculator.formulaTouched = false;
    SetFocus(ControlOf(CalculatorResult));
    EXPECT_FALSE(calculator.formulaTouched);
}

TEST_F(CalculatorPageTest, ATypedPrecisionIsInForceWhenItsFieldIsLeft) {
    GiveResult();
    const HWND edit = NumericEdit(ControlOf(ContainerPrecision));
    SetFocus(edit);
    SetFocus(ControlOf(CalculatorResult));
    EXPECT_TRUE(calculator.resultValid) << "nothing was changed";
    SetFocus(edit);
    SetWindowTextW(edit, L"25");
    numberContext.numberType = NumberTypeUint;
    SetFocus(ControlOf(CalculatorResult));
    EXPECT_FALSE(calculator.resultValid);
    EXPECT_FALSE(IsWindowEnabled(KeyWindow(56)));
    EXPECT_EQ(settings.decimalPrecision, 25);
    EXPECT_TRUE(settings.settingsDirty);
    EXPECT_EQ(CalcNumberSetup().digits, 27);
    EXPECT_EQ(CalcNumberSetup().type, NumberTypeReal);
    EXPECT_EQ(numberContext.numberType, NumberTypeUint) << "left as it was";
    EXPECT_EQ(SendMessageW(NumericSpin(ControlOf(ContainerPrecision)), UDM_GETRANGE, 0, 0),
              MAKELONG(10'000, 1));
}

TEST_F(CalculatorPageTest, TheBaseControlAndTheCaseKeyShowTheResultAnew) {
    Settings record;
    record.numberType = NumberTypeUint;
    record.decimalPrecision = 10;
    Start(record);
    GiveResult(u"1000");
    EXPECT_EQ(Result(), u"1000");
    const HWND count = DigitCountField(ControlOf(ContainerDigitCount));
    EXPECT_EQ(WholeText(count), u"4 ");
    const HWND base = ControlOf(ContainerNumberBase);
    const auto choose = [base](int32_t value) {
        SelectNumberBase(base, value);
        numberContext.numberType = NumberTypeReal;
        SendMessageW(base, WM_COMMAND, MAKEWPARAM(0, CBN_CLOSEUP),
                     reinterpret_cast<LPARAM>(NumberBaseList(base)));
    };
    choose(16);
    EXPECT_EQ(Result(), u"0x3E8");
    EXPECT_EQ(WholeText(count), u"3 ");
    EXPECT_EQ(settings.outputNumberBase, 16);
    EXPECT_TRUE(settings.settingsDirty);
    EXPECT_TRUE(calculator.resultValid);
    EXPECT_FALSE(IsWindowEnabled(KeyWindow(56)));
    EXPECT_EQ(WholeText(KeyWindow(42)), u"E");
    numberContext.numberType = NumberTypeReal;
    Click(ControlOf(ContainerCaseKey));
    EXPECT_EQ(Result(), u"0x3e8");
    EXPECT_EQ(WholeText(KeyWindow(42)), u"e");
    EXPECT_TRUE(settings.useLowerCaseHex);
    choose(2);
    EXPECT_EQ(Result(), u"0y1111101000");
    EXPECT_EQ(WholeText(count), u"10 ");
    choose(10);
    EXPECT_TRUE(IsWindowEnabled(KeyWindow(56)));
    MarkResultStale();
    choose(8);
    EXPECT_EQ(Result(), u"1000") << "a stale result stays as it is";
    EXPECT_FALSE(IsWindowEnabled(KeyWindow(56)));
}

TEST_F(CalculatorPageTest, ClosingHidesThePageAndTheVariables) {
    Press(ActionShowVariables);
    EXPECT_TRUE(IsWindowVisible(variablesWindow));
    SendMessageW(calculatorWindows.page, WM_CLOSE, 0, 0);
    EXPECT_TRUE(IsWindow(calculatorWindows.page));
    EXPECT_FALSE(IsWindowVisible(calculatorWindows.page));
    EXPECT_FALSE(IsWindowVisible(variablesWindow));
}

TEST_F(CalculatorPageTest, VariablesAreShownBesideThePage) {
    Press(ActionShowVariables);
    const LayoutRect page = PlaceInParent(calculatorWindows.page);
    const LayoutRect variables = PlaceInParent(variablesWindow);
    EXPECT_EQ(variables.x, page.x + page.width - 5);
    EXPECT_EQ(variables.y, page.y + 50);
}

}  // namespace
}  // namespace tallymere::testing_support
