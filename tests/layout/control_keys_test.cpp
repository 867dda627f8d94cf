#include "layout/control_keys.h"

#include <gtest/gtest.h>

namespace tallymere {
namespace {

constexpr KeyReceiver PlainField = {};
constexpr KeyReceiver LineField = {.wantsReturn = true, .hasDefaultButton = true};
constexpr KeyReceiver Radio = {.isRadioButton = true, .hasDefaultButton = true};
constexpr KeyReceiver Push = {.isPushButton = true, .hasDefaultButton = true};
constexpr KeyReceiver Receivers[] = {PlainField, LineField, Radio, Push};

KeyStroke Down(uint32_t key) {
    return {.key = key, .isDown = true};
}
KeyStroke Up(uint32_t key) {
    return {.key = key};
}
KeyStroke Again(uint32_t key) {
    return {.key = key, .isDown = true, .isRepeated = true};
}
KeyStroke WithShift(KeyStroke stroke) {
    stroke.shift = true;
    return stroke;
}
KeyStroke WithControl(KeyStroke stroke) {
    stroke.control = true;
    return stroke;
}

TEST(TabKey, MovesTheFocusWhenItGoesDown) {
    for (const KeyReceiver& receiver : Receivers) {
        EXPECT_EQ(ActionOfKey(Down(KeyTab), receiver), KeyTabForward);
        EXPECT_EQ(ActionOfKey(WithShift(Down(KeyTab)), receiver), KeyTabBackward);
        EXPECT_EQ(ActionOfKey(Up(KeyTab), receiver), KeySwallow);
        EXPECT_EQ(ActionOfKey(WithShift(Up(KeyTab)), receiver), KeySwallow);
    }
}

TEST(TabKey, WithControlBelongsToTheControl) {
    for (const KeyReceiver& receiver : Receivers) {
        for (const KeyStroke& stroke :
             {Down(KeyTab), Up(KeyTab), WithShift(Down(KeyTab)), WithShift(Up(KeyTab))}) {
            EXPECT_EQ(ActionOfKey(WithControl(stroke), receiver), KeyForward);
        }
    }
}

TEST(ReturnKey, GoesToAControlThatWantsIt) {
    EXPECT_EQ(ActionOfKey(Down(KeyReturn), LineField), KeyForward);
    EXPECT_EQ(ActionOfKey(Up(KeyReturn), LineField), KeyForward);
}

TEST(ReturnKey, WithControlBelongsToTheControl) {
    for (const KeyReceiver& receiver : Receivers) {
        EXPECT_EQ(ActionOfKey(WithControl(Down(KeyReturn)), receiver), KeyForward);
        EXPECT_EQ(ActionOfKey(WithControl(Up(KeyReturn)), receiver), KeyForward);
    }
}

TEST(ReturnKey, ClicksThePushButtonThatHasTheFocus) {
    EXPECT_EQ(ActionOfKey(Down(KeyReturn), Push), KeyClickItself);
    EXPECT_EQ(ActionOfKey(Down(KeyReturn), {.isPushButton = true}), KeyClickItself);
    EXPECT_EQ(ActionOfKey(Up(KeyReturn), Push), KeySwallow);
}

TEST(ReturnKey, ClicksTheDefaultButtonFromAnyOtherControl) {
    EXPECT_EQ(ActionOfKey(Down(KeyReturn), {.hasDefaultButton = true}), KeyClickDefault);
    EXPECT_EQ(ActionOfKey(Down(KeyReturn), Radio), KeyClickDefault);
    EXPECT_EQ(ActionOfKey(Up(KeyReturn), Radio), KeySwallow);
}

TEST(ReturnKey, DoesNothingWithoutADefaultButton) {
    EXPECT_EQ(ActionOfKey(Down(KeyReturn), PlainField), KeySwallow);
    EXPECT_EQ(ActionOfKey(Up(KeyReturn), PlainField), KeySwallow);
}

TEST(ReturnKey, ClicksOnceHoweverLongItIsHeld) {
    EXPECT_EQ(ActionOfKey(Again(KeyReturn), Push), KeySwallow);
    EXPECT_EQ(ActionOfKey(Again(KeyReturn), Radio), KeySwallow);
    EXPECT_EQ(ActionOfKey(Again(KeyReturn), PlainField), KeySwallow);
    EXPECT_EQ(ActionOfKey(Again(KeyReturn), LineField), KeyForward);
    EXPECT_EQ(ActionOfKey(WithControl(Again(KeyReturn)), Push), KeyForward);
}

TEST(SpaceKey, DoesNotPressAPushButtonWhileItIsHeld) {
    for (const KeyReceiver& receiver : Receivers) {
        EXPECT_EQ(ActionOfKey(Down(KeySpace), receiver), KeyForward);
        EXPECT_EQ(ActionOfKey(Up(KeySpace), receiver), KeyForward);
        EXPECT_EQ(ActionOfKey(Again(KeySpace), receiver),
                  receiver.isPushButton ? KeySwallow : KeyForward);
    }
}

TEST(TabAndArrowKeys, GoOnWhileTheyAreHeld) {
    for (const uint32_t key : {KeyTab, KeyLeft, KeyUp, KeyRight, KeyDown}) {
        for (const KeyReceiver& receiver : Receivers) {
            EXPECT_EQ(ActionOfKey(Again(key), receiver), ActionOfKey(Down(key), receiver)) << key;
        }
    }
}

TEST(ReturnKey, ShiftMakesNoDifference) {
    for (const KeyReceiver& receiver : Receivers) {
        EXPECT_EQ(ActionOfKey(WithShift(Down(KeyReturn)), receiver),
                  ActionOfKey(Down(KeyReturn), receiver));
    }
}

TEST(ArrowKeys, MoveWithinARadioGroup) {
    EXPECT_EQ(ActionOfKey(Down(KeyLeft), Radio), KeyRadioBackward);
    EXPECT_EQ(ActionOfKey(Down(KeyUp), Radio), KeyRadioBackward);
    EXPECT_EQ(ActionOfKey(Down(KeyRight), Radio), KeyRadioForward);
    EXPECT_EQ(ActionOfKey(Down(KeyDown), Radio), KeyRadioForward);
    for (const uint32_t key : {KeyLeft, KeyUp, KeyRight, KeyDown}) {
        EXPECT_EQ(ActionOfKey(Up(key), Radio), KeySwallow) << key;
    }
}

TEST(ArrowKeys, HeedNeitherShiftNorControl) {
    for (const uint32_t key : {KeyLeft, KeyUp, KeyRight, KeyDown}) {
        EXPECT_EQ(ActionOfKey(WithShift(Down(key)), Radio), ActionOfKey(Down(key), Radio)) << key;
        EXPECT_EQ(ActionOfKey(WithControl(Down(key)), Radio), ActionOfKey(Down(key), Radio)) << key;
    }
}

TEST(ArrowKeys, BelongToAnyOtherControl) {
    for (const KeyReceiver& receiver : {PlainField, LineField, Push}) {
        for (const uint32_t key : {KeyLeft, KeyUp, KeyRight, KeyDown}) {
            EXPECT_EQ(ActionOfKey(Down(key), receiver), KeyForward) << key;
            EXPECT_EQ(ActionOfKey(Up(key), receiver), KeyForward) << key;
        }
    }
}

TEST(OtherKeys, BelongToTheControl) {
    for (uint32_t key = 0; key <= 0x100; key++) {
        if (key == KeyTab || key == KeyReturn || (key >= KeyLeft && key <= KeyDown)) {
            continue;
        }
        for (const KeyReceiver& receiver : Receivers) {
            EXPECT_EQ(ActionOfKey(Down(key), receiver), KeyForward) << key;
            EXPECT_EQ(ActionOfKey(Up(key), receiver), KeyForward) << key;
        }
    }
}

TEST(Characters, ReturnReachesOnlyAControlThatWantsIt) {
    EXPECT_TRUE(ForwardsCharacter(13, true));
    EXPECT_FALSE(ForwardsCharacter(13, false));
}

TEST(Characters, TabNeverReachesAControl) {
    EXPECT_FALSE(ForwardsCharacter(9, true));
    EXPECT_FALSE(ForwardsCharacter(9, false));
}

TEST(Characters, AllOthersReachTheControl) {
    for (uint32_t character = 0; character <= 0xFFFF; character++) {
        if (character != 9 && character != 13) {
            ASSERT_TRUE(ForwardsCharacter(character, false)) << character;
            ASSERT_TRUE(ForwardsCharacter(character, true)) << character;
        }
    }
}

}  // namespace
}  // namespace tallymere
