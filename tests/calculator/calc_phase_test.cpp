#include "calculator/calc_phase.h"

#include <vector>

#include "calculator/calculator_testing.h"

namespace tallymere::testing_support {
namespace {

constexpr KeypadStyle Style = {NumberTypeReal, AngleRadians, false, 0x0600};

class CalcPhaseTest : public CalculatorTest {
protected:
    void SetUp() override {
        CalculatorTest::SetUp();
        calcPhase = CalcIdle;
    }
    void TearDown() override {
        calcPhase = CalcIdle;
        CalculatorTest::TearDown();
    }
    // Captions and states of all keys in a line.
    static std::u16string Looks(const KeypadStyle& style = Style) {
        std::u16string looks;
        for (int32_t i = 0; i < KeyCount; i++) {
            const KeyView view = ViewOfKey(i, style);
            looks += view.info.caption;
            looks += view.enabled ? u"+ " : u"- ";
        }
        return looks;
    }
    static bool IsEnabled(KeyAction action, NumberType type) {
        KeypadStyle style = Style;
        style.numberType = type;
        return ViewOfKey(KeyOfAction(action, type), style).enabled;
    }
    static std::vector<KeyClick> Clicks() {
        std::vector<KeyClick> clicks;
        for (int32_t i = 0; i < KeyCount; i++) {
            clicks.push_back(ClickOfKey(i));
        }
        return clicks;
    }
};

TEST_F(CalcPhaseTest, AShortRunChangesNoKey) {
    const std::u16string before = Looks();
    EXPECT_EQ(SetCalcBusy(true), StopTimer);
    EXPECT_EQ(calcPhase, CalcBusy);
    EXPECT_EQ(Looks(), before);
    EXPECT_EQ(SetCalcBusy(false), NoTimer);
    EXPECT_EQ(calcPhase, CalcIdle);
    EXPECT_EQ(Looks(), before);
}

TEST_F(CalcPhaseTest, ALongRunShowsStopAndNothingElse) {
    const std::u16string before = Looks();
    SetCalcBusy(true);
    EXPECT_TRUE(CalcTimerEnded(StopTimer));
    EXPECT_EQ(calcPhase, StopShown);
    for (int32_t i = 0; i < KeyCount; i++) {
        const KeyView view = ViewOfKey(i, Style);
        EXPECT_EQ(view.enabled, i == 0) << i;
        EXPECT_EQ(std::u16string(view.info.caption),
                  i == 0 ? u"Stop" : std::u16string(KeypadEntry(i, Style).caption));
        EXPECT_EQ(view.info.colourClass, KeypadEntry(i, Style).colourClass);
    }
    EXPECT_EQ(SetCalcBusy(false), LateClickTimer);
    EXPECT_EQ(calcPhase, StopLingers);
    EXPECT_EQ(Looks(), before);
    EXPECT_FALSE(CalcTimerEnded(LateClickTimer));
    EXPECT_EQ(calcPhase, CalcIdle);
    EXPECT_EQ(Looks(), before);
}

TEST_F(CalcPhaseTest, StopIsStopInGermanToo) {
    InstallLanguage(LanguageGerman);
    SetCalcBusy(true);
    CalcTimerEnded(StopTimer);
    EXPECT_EQ(std::u16string(ViewOfKey(0, Style).info.caption), u"Stop");
}

TEST_F(CalcPhaseTest, ClicksCountWhenIdleAndStopsWhereStopIsShown) {
    const std::vector<KeyClick> ignored(72, ClickIgnored);
    EXPECT_EQ(Clicks(), std::vector<KeyClick>(72, ClickPresses));
    SetCalcBusy(true);
    EXPECT_EQ(Clicks(), ignored);
    CalcTimerEnded(StopTimer);
    std::vector<KeyClick> stops = ignored;
    stops[0] = ClickStops;
    EXPECT_EQ(Clicks(), stops);
    SetCalcBusy(false);
    // A late second click on Stop must not clear the formula.
    EXPECT_EQ(Clicks(), ignored);
    CalcTimerEnded(LateClickTimer);
    EXPECT_EQ(Clicks(), std::vector<KeyClick>(72, ClickPresses));
}

TEST_F(CalcPhaseTest, TimersThatComeLateDoNothing) {
    EXPECT_FALSE(CalcTimerEnded(StopTimer));
    EXPECT_FALSE(CalcTimerEnded(LateClickTimer));
    EXPECT_EQ(calcPhase, CalcIdle);
    SetCalcBusy(true);
    EXPECT_FALSE(CalcTimerEnded(LateClickTimer));
    EXPECT_EQ(calcPhase, CalcBusy);
    CalcTimerEnded(StopTimer);
    EXPECT_FALSE(CalcTimerEnded(StopTimer));
    EXPECT_FALSE(CalcTimerEnded(LateClickTimer));
    EXPECT_EQ(calcPhase, StopShown);
    SetCalcBusy(false);
    EXPECT_FALSE(CalcTimerEnded(StopTimer));
    EXPECT_EQ(calcPhase, StopLingers);
    CalcTimerEnded(LateClickTimer);
    SetCalcBusy(true);
    SetCalcBusy(false);
    EXPECT_FALSE(CalcTimerEnded(StopTimer));
    EXPECT_EQ(calcPhase, CalcIdle);
}

TEST_F(CalcPhaseTest, TheTimersRunATenthAndAFifthOfASecond) {
    EXPECT_EQ(int32_t{StopTimer}, 100);
    EXPECT_EQ(TimerMilliseconds(StopTimer), 100);
    EXPECT_EQ(int32_t{LateClickTimer}, 101);
    EXPECT_EQ(TimerMilliseconds(LateClickTimer), 200);
}

TEST_F(CalcPhaseTest, AFallToRealDuringStopLeavesTheKeysOfReal) {
    const KeypadStyle rat = {NumberTypeRational, AngleRadians, false, 0x0600};
    calculator.resultValid = true;
    SetCalcBusy(true);
    CalcTimerEnded(StopTimer);
    const std::u16string stopped = Looks(rat);
    EXPECT_EQ(stopped.substr(0, 6), u"Stop+ ");
    SetCalcBusy(false);
    // R↔M is gone, so that its key is not enabled again without a caption.
    EXPECT_FALSE(ViewOfKey(8, Style).enabled);
    EXPECT_TRUE(ViewOfKey(8, rat).enabled);
}

TEST_F(CalcPhaseTest, EveryKeyWithAnActionIsEnabledUnlessItWaitsForAResult) {
    for (const NumberType type :
         {NumberTypeUint, NumberTypeRational, NumberTypeReal, NumberTypeComplex}) {
        KeypadStyle style = Style;
        style.numberType = type;
        for (int32_t i = 0; i < KeyCount; i++) {
            const KeyAction action = KeypadEntry(i, style).action;
            const bool waits = action == ActionAns || action == ActionSwitchNotation ||
                               action == ActionSwitchMixed;
            EXPECT_EQ(ViewOfKey(i, style).enabled, action != ActionNone && !waits) << i;
        }
    }
}

TEST_F(CalcPhaseTest, AnsWaitsForAResultAndKeepsIt) {
    EXPECT_FALSE(IsEnabled(ActionAns, NumberTypeReal));
    Show(u"5");
    EXPECT_TRUE(IsEnabled(ActionAns, NumberTypeReal));
    MarkResultStale();
    EXPECT_TRUE(IsEnabled(ActionAns, NumberTypeReal));
    ResetCalculator();
    EXPECT_FALSE(IsEnabled(ActionAns, NumberTypeReal));
}

TEST_F(CalcPhaseTest, TheKeysOfTheFormWaitForAValidResult) {
    ApplyNumberType(NumberTypeRational, 10);
    Show(u"1/3");
    EXPECT_TRUE(IsEnabled(ActionSwitchNotation, NumberTypeRational));
    EXPECT_TRUE(IsEnabled(ActionSwitchMixed, NumberTypeRational));
    MarkResultStale();
    EXPECT_FALSE(IsEnabled(ActionSwitchNotation, NumberTypeRational));
    EXPECT_FALSE(IsEnabled(ActionSwitchMixed, NumberTypeRational));
}

TEST_F(CalcPhaseTest, NotationsAreForBaseTenOnly) {
    for (const int64_t base : {2, 8, 10, 16}) {
        ApplyNumberType(NumberTypeUint, base);
        Show(u"77");
        EXPECT_EQ(IsEnabled(ActionSwitchNotation, NumberTypeUint), base == 10) << base;
    }
}

}  // namespace
}  // namespace tallymere::testing_support
