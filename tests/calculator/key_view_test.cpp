#include "calculator/key_view.h"

#include <vector>

#include "calculator/calculator_testing.h"

namespace tallymere::testing_support {
namespace {

constexpr KeypadStyle Style = {NumberTypeReal, AngleRadians, false, 0x0600};

class KeyViewTest : public CalculatorTest {
protected:
    // Captions and states of all keys in a line.
    static std::u16string Looks(PagePhase phase, const KeypadStyle& style = Style) {
        std::u16string looks;
        for (int32_t i = 0; i < KeyCount; i++) {
            const KeyView view = ViewOfKey(phase, i, style);
            looks += view.info.caption;
            looks += view.enabled ? u"+ " : u"- ";
        }
        return looks;
    }
    static bool IsEnabled(KeyAction action, NumberType type) {
        KeypadStyle style = Style;
        style.numberType = type;
        return ViewOfKey(PageIdle, KeyOfAction(action, type), style).enabled;
    }
    static std::vector<KeyClick> Clicks(PagePhase phase) {
        std::vector<KeyClick> clicks;
        for (int32_t i = 0; i < KeyCount; i++) {
            clicks.push_back(ClickOfKey(phase, i));
        }
        return clicks;
    }
};

TEST_F(KeyViewTest, NoPhaseButThatOfStopChangesAKey) {
    for (const PagePhase phase : {PageStarts, PageBusy, PageEnds, StopLingers}) {
        EXPECT_EQ(Looks(phase), Looks(PageIdle)) << phase;
    }
}

TEST_F(KeyViewTest, StopIsShownAndNothingElse) {
    for (int32_t i = 0; i < KeyCount; i++) {
        const KeyView view = ViewOfKey(StopShown, i, Style);
        EXPECT_EQ(view.enabled, i == 0) << i;
        EXPECT_EQ(std::u16string(view.info.caption),
                  i == 0 ? u"Stop" : std::u16string(KeypadEntry(i, Style).caption));
        EXPECT_EQ(view.info.colourClass, KeypadEntry(i, Style).colourClass);
    }
}

TEST_F(KeyViewTest, StopIsStopInGermanToo) {
    InstallLanguage(LanguageGerman);
    EXPECT_EQ(std::u16string(ViewOfKey(StopShown, 0, Style).info.caption), u"Stop");
}

TEST_F(KeyViewTest, KeysStayUntilStopIsShownAndWhileARunEnds) {
    for (const PagePhase phase : {PageIdle, PageStarts, StopShown, StopLingers}) {
        EXPECT_FALSE(KeysStay(phase)) << phase;
    }
    EXPECT_TRUE(KeysStay(PageBusy));
    EXPECT_TRUE(KeysStay(PageEnds));
}

TEST_F(KeyViewTest, ClicksCountWhenIdleAndStopWhereStopIsShown) {
    const std::vector<KeyClick> ignored(72, ClickIgnored);
    EXPECT_EQ(Clicks(PageIdle), std::vector<KeyClick>(72, ClickPresses));
    // In the last of them a late second click on Stop must not clear the formula.
    for (const PagePhase phase : {PageStarts, PageBusy, PageEnds, StopLingers}) {
        EXPECT_EQ(Clicks(phase), ignored) << phase;
    }
    std::vector<KeyClick> stops = ignored;
    stops[0] = ClickStops;
    EXPECT_EQ(Clicks(StopShown), stops);
}

TEST_F(KeyViewTest, AFallToRealDuringStopLeavesTheKeysOfReal) {
    const KeypadStyle rat = {NumberTypeRational, AngleRadians, false, 0x0600};
    calculator.resultValid = true;
    EXPECT_EQ(Looks(StopShown, rat).substr(0, 6), u"Stop+ ");
    // R↔M is gone, so that its key is not enabled again without a caption.
    EXPECT_FALSE(ViewOfKey(StopLingers, 8, Style).enabled);
    EXPECT_TRUE(ViewOfKey(StopLingers, 8, rat).enabled);
}

TEST_F(KeyViewTest, EveryKeyWithAnActionIsEnabledUnlessItWaitsForAResult) {
    for (const NumberType type :
         {NumberTypeUint, NumberTypeRational, NumberTypeReal, NumberTypeComplex}) {
        KeypadStyle style = Style;
        style.numberType = type;
        for (int32_t i = 0; i < KeyCount; i++) {
            const KeyAction action = KeypadEntry(i, style).action;
            const bool waits = action == ActionAns || action == ActionSwitchNotation ||
                               action == ActionSwitchMixed;
            EXPECT_EQ(ViewOfKey(PageIdle, i, style).enabled, action != ActionNone && !waits) << i;
        }
    }
}

TEST_F(KeyViewTest, AnsWaitsForAResultAndKeepsIt) {
    EXPECT_FALSE(IsEnabled(ActionAns, NumberTypeReal));
    Show(u"5");
    EXPECT_TRUE(IsEnabled(ActionAns, NumberTypeReal));
    MarkResultStale();
    EXPECT_TRUE(IsEnabled(ActionAns, NumberTypeReal));
    ResetCalculator();
    EXPECT_FALSE(IsEnabled(ActionAns, NumberTypeReal));
}

TEST_F(KeyViewTest, TheKeysOfTheFormWaitForAValidResult) {
    ApplyNumberType(NumberTypeRational, 10);
    Show(u"1/3");
    EXPECT_TRUE(IsEnabled(ActionSwitchNotation, NumberTypeRational));
    EXPECT_TRUE(IsEnabled(ActionSwitchMixed, NumberTypeRational));
    MarkResultStale();
    EXPECT_FALSE(IsEnabled(ActionSwitchNotation, NumberTypeRational));
    EXPECT_FALSE(IsEnabled(ActionSwitchMixed, NumberTypeRational));
}

TEST_F(KeyViewTest, NotationsAreForBaseTenOnly) {
    for (const int64_t base : {2, 8, 10, 16}) {
        ApplyNumberType(NumberTypeUint, base);
        Show(u"77");
        EXPECT_EQ(IsEnabled(ActionSwitchNotation, NumberTypeUint), base == 10) << base;
    }
}

}  // namespace
}  // namespace tallymere::testing_support
