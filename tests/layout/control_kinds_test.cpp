#include "layout/control_kinds.h"

#include <gtest/gtest.h>

namespace tallymere {
namespace {

TEST(ClassNames, AreComparedWithoutCase) {
    EXPECT_TRUE(IsSameClassName(u"button", u"button"));
    EXPECT_TRUE(IsSameClassName(u"Button", u"bUTTON"));
    EXPECT_TRUE(IsSameClassName(u"cwl_DialogWindow", u"CWL_DIALOGWINDOW"));
    EXPECT_TRUE(IsSameClassName(u"azAZ09_", u"AZaz09_"));
    EXPECT_TRUE(IsSameClassName(u"", u""));
}

TEST(ClassNames, DifferWhereLettersOrLengthsDiffer) {
    EXPECT_FALSE(IsSameClassName(u"button", u"buttons"));
    EXPECT_FALSE(IsSameClassName(u"buttons", u"button"));
    EXPECT_FALSE(IsSameClassName(u"button", u"butten"));
    EXPECT_FALSE(IsSameClassName(u"", u"b"));
    EXPECT_FALSE(IsSameClassName(u"b", u""));
}

TEST(ClassNames, OnlyLettersAToZHaveTwoCases) {
    EXPECT_FALSE(IsSameClassName(u"\u00C4", u"\u00E4"));
    EXPECT_FALSE(IsSameClassName(u"\u0391", u"\u03B1"));
    EXPECT_FALSE(IsSameClassName(u"K", u"\u212A"));  // the sign of kelvin
    EXPECT_FALSE(IsSameClassName(u"a", u"\u0141"));  // A but for the high byte
    for (char16_t a = 1; a < 128; a++) {
        for (char16_t b = 1; b < 128; b++) {
            const bool isLetterPair = (a ^ b) == 0x20 && (a | 0x20) >= u'a' && (a | 0x20) <= u'z';
            const char16_t first[] = {a, 0};
            const char16_t second[] = {b, 0};
            EXPECT_EQ(IsSameClassName(first, second), a == b || isLetterPair)
                << static_cast<int>(a) << " and " << static_cast<int>(b);
        }
    }
}

TEST(PushButtons, AreButtonsOfTheTwoPlainTypes) {
    for (uint32_t type = 0; type <= ButtonTypeMask; type++) {
        EXPECT_EQ(IsPushButton(u"button", type), type == 0 || type == 1) << type;
        EXPECT_EQ(IsPushButton(u"BUTTON", 0x50012300 | type), type == 0 || type == 1) << type;
        EXPECT_FALSE(IsPushButton(u"edit", type)) << type;
    }
}

TEST(RadioButtons, AreButtonsOfEitherRadioType) {
    for (uint32_t type = 0; type <= ButtonTypeMask; type++) {
        EXPECT_EQ(IsRadioButton(u"Button", 0x50010000 | type), type == 4 || type == 9) << type;
        EXPECT_FALSE(IsRadioButton(u"static", type)) << type;
    }
}

TEST(Focus, IsForEnabledVisibleChildrenWithATabStop) {
    constexpr uint32_t stop = StyleChild | StyleTabStop;
    EXPECT_TRUE(CanTakeFocus(stop, true));
    EXPECT_TRUE(CanTakeFocus(stop | 0x10000000 | EditWantsReturn, true));
    EXPECT_FALSE(CanTakeFocus(stop, false));
    EXPECT_FALSE(CanTakeFocus(stop | StyleDisabled, true));
    EXPECT_FALSE(CanTakeFocus(StyleChild, true));
}

TEST(Focus, IsNotForAWindowWithAMaximiseBoxWhichHasTheBitOfATabStop) {
    EXPECT_FALSE(CanTakeFocus(StyleTabStop, true));
}

struct ReturnCase {
    const char16_t* className;
    uint32_t style;
    const char16_t* parentClassName;
    bool isListDropped;
    bool expected;
};

TEST(Return, IsWantedByFieldsThatStartALineAndByOpenLists) {
    const ReturnCase cases[] = {
        {u"edit", EditWantsReturn, u"cwl_DialogWindow", false, true},
        {u"Edit", EditWantsReturn | 0x50010004, u"", false, true},
        {u"RICHEDIT", EditWantsReturn, u"cwl_DialogWindow", false, true},
        {u"edit", 0, u"cwl_DialogWindow", false, false},
        {u"edit", ~uint32_t{EditWantsReturn}, u"cwl_DialogWindow", false, false},
        {u"richedit", 0, u"cwl_DialogWindow", false, false},

        {u"edit", 0, u"combobox", true, true},
        {u"edit", 0, u"ComboBox", false, false},
        {u"edit", EditWantsReturn, u"combobox", false, false},
        {u"richedit", EditWantsReturn, u"combobox", false, false},
        {u"richedit", 0, u"combobox", true, true},

        {u"combobox", 0, u"cwl_DialogWindow", true, true},
        {u"ComboBox", 0, u"cwl_DialogWindow", false, false},
        {u"combobox", EditWantsReturn, u"cwl_DialogWindow", false, false},

        {u"button", EditWantsReturn, u"cwl_DialogWindow", true, false},
        {u"listbox", EditWantsReturn, u"combobox", true, false},
        {u"edit2", EditWantsReturn, u"cwl_DialogWindow", false, false},
    };
    for (const ReturnCase& c : cases) {
        EXPECT_EQ(WantsReturn({c.className, c.style, c.parentClassName, c.isListDropped}),
                  c.expected)
            << "case " << &c - cases;
    }
}

TEST(Styles, APushButtonKeepsAllBitsButThoseOfItsType) {
    EXPECT_EQ(PushButtonStyle(0x2300), 0x2300u);
    EXPECT_EQ(PushButtonStyle(0x230B), 0x2300u);
    EXPECT_EQ(PushButtonStyle(0xFFFFFFFF), 0xFFFFFFF0u);
}

TEST(Styles, AStaticKeepsTypesThatShowTextAndDropsTheOthers) {
    for (uint32_t type = 0; type <= StaticTypeMask; type++) {
        const bool showsText = type == 0 || type == 1 || type == 2 || type == 12;
        EXPECT_EQ(StaticStyle(0x50001000 | type), 0x50001000 | (showsText ? type : 0)) << type;
    }
}

}  // namespace
}  // namespace tallymere
