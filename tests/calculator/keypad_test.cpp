#include "calculator/keypad.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string>
#include <vector>

#include "core/number_context.h"
#include "support/number_types.h"

namespace tallymere::testing_support {
namespace {

// A key in one number type: its action and class by number. In the caption "?" stands for the angle
// letter and "~" behind a letter for its case.
struct ExpectedKey {
    const char16_t* caption = u"";
    int32_t action = 0;
    int32_t colourClass = 0;
};

struct ExpectedKeys {
    int32_t index;
    ExpectedKey uint;
    ExpectedKey rat;
    ExpectedKey real;
    ExpectedKey cplx;
};

ExpectedKeys Same(int32_t index, const char16_t* caption, int32_t action, int32_t colourClass) {
    const ExpectedKey key = {caption, action, colourClass};
    return {index, key, key, key, key};
}

// The keys 67 to 71 are always empty.
const ExpectedKeys Expected[] = {
    Same(0, u"CA", 1325, 3),
    Same(1, u"←", 1324, 3),
    Same(2, u"7", 1307, 1),
    Same(3, u"8", 1308, 1),
    Same(4, u"9", 1309, 1),
    {5, {u"[lg₁₀]", 1106, 4}, {u"log₁₀", 1106, 4}, {u"log₁₀", 1106, 4}, {u"log₁₀", 1106, 4}},
    {6, {u"[log₂]", 1104, 4}, {u"log₂", 1104, 4}, {u"log₂", 1104, 4}, {u"log₂", 1104, 4}},
    {7, {u"[logx]", 1107, 4}, {u"logx", 1107, 4}, {u"logx", 1107, 4}, {u"logx", 1107, 4}},
    {8, {}, {u"R↔M", 1403, 5}, {}, {u"i", 1323, 6}},
    Same(9, u"CF", 1332, 3),
    Same(10, u"var", 1404, 5),
    Same(11, u"4", 1304, 1),
    Same(12, u"5", 1305, 1),
    Same(13, u"6", 1306, 1),
    Same(14, u"x^y", 1004, 4),
    {15, {}, {}, {u"e^x", 1108, 4}, {u"e^x", 1108, 4}},
    {16, {}, {}, {u"ln", 1105, 4}, {u"ln", 1105, 4}},
    {17, {}, {}, {}, {u"arg?", 1128, 6}},
    Same(18, u"(", 1326, 5),
    Same(19, u")", 1327, 5),
    Same(20, u"1", 1301, 1),
    Same(21, u"2", 1302, 1),
    Same(22, u"3", 1303, 1),
    {23, {u"[²√x]", 1100, 4}, {u"²√x", 1100, 4}, {u"²√x", 1100, 4}, {u"²√x", 1100, 4}},
    {24, {u"[³√x]", 1101, 4}, {u"³√x", 1101, 4}, {u"³√x", 1101, 4}, {u"³√x", 1101, 4}},
    {25, {u"[x√y]", 1137, 4}, {u"x√y", 1137, 4}, {u"x√y", 1137, 4}, {u"x√y", 1137, 4}},
    {26, {}, {}, {}, {u"²√z", 1138, 6}},
    Same(27, u"(..)", 1331, 5),
    Same(28, u";", 1328, 5),
    Same(29, u"0", 1300, 1),
    Same(30, u"=", 1400, 2),
    Same(31, u"ans", 1329, 2),
    {32, {u"a~", 1310, 2}, {}, {u"sin?", 1110, 4}, {u"sin?", 1110, 4}},
    {33, {u"b~", 1311, 2}, {}, {u"cos?", 1111, 4}, {u"cos?", 1111, 4}},
    {34, {u"c~", 1312, 2}, {}, {u"tan?", 1112, 4}, {u"tan?", 1112, 4}},
    {35, {}, {}, {}, {u"³√z", 1139, 6}},
    Same(36, u"x!", 1122, 4),
    Same(37, u".", 1318, 2),
    Same(38, u"+", 1000, 2),
    Same(39, u"–", 1001, 2),
    Same(40, u"*", 1002, 2),
    {41, {u"d~", 1313, 2}, {}, {u"asin?", 1113, 4}, {u"asin?", 1113, 4}},
    {42, {u"e~", 1314, 2}, {}, {u"acos?", 1114, 4}, {u"acos?", 1114, 4}},
    {43, {u"f~", 1315, 2}, {}, {u"atan?", 1115, 4}, {u"atan?", 1115, 4}},
    {44, {}, {}, {}, {u"x√z", 1140, 6}},
    Same(45, u"ncr", 1135, 4),
    Same(46, u"npr", 1136, 4),
    {47, {u"[/]", 1003, 2}, {u"/", 1003, 2}, {u"/", 1003, 2}, {u"/", 1003, 2}},
    Same(48, u"mod", 1008, 2),
    {49, {u"^mod", 1144, 4}, {u"1/x", 1018, 2}, {u"1/x", 1018, 2}, {u"1/x", 1018, 2}},
    {50, {u"bin", 1333, 5}, {}, {u"sinh", 1116, 4}, {u"sinh", 1116, 4}},
    {51, {u"oct", 1334, 5}, {}, {u"cosh", 1117, 4}, {u"cosh", 1117, 4}},
    {52, {u"hex", 1335, 5}, {}, {u"tanh", 1118, 4}, {u"tanh", 1118, 4}},
    {53, {}, {}, {}, {u"realp", 1133, 6}},
    Same(54, u"gcd", 1141, 4),
    Same(55, u"lcm", 1142, 4),
    Same(56, u"F↔S", 1402, 5),
    Same(57, u"e±", 1319, 5),
    {58, {}, {u"|x|", 1127, 2}, {u"|x|", 1127, 2}, {u"|x|", 1127, 2}},
    {59, {}, {}, {u"asinh", 1119, 4}, {u"asinh", 1119, 4}},
    {60, {}, {}, {u"acosh", 1120, 4}, {u"acosh", 1120, 4}},
    {61, {}, {}, {u"atanh", 1121, 4}, {u"atanh", 1121, 4}},
    {62, {}, {}, {}, {u"imagp", 1134, 6}},
    {63, {}, {u"trunc", 1125, 4}, {u"trunc", 1125, 4}, {u"trunc", 1125, 4}},
    {64, {}, {u"frac", 1126, 4}, {u"frac", 1126, 4}, {u"frac", 1126, 4}},
    {65, {}, {u"round", 1129, 4}, {u"round", 1129, 4}, {u"round", 1129, 4}},
    {66, {}, {}, {u"π", 1320, 4}, {u"π", 1320, 4}},
};

constexpr AngleType Angles[] = {AngleDegrees, AngleRadians, AngleGon};
constexpr uint32_t Versions[] = {0, 0x0501, 0x05FF, 0x0600, 0x0601, 0x0A00};

ExpectedKey ExpectedAt(int32_t index, NumberType type) {
    for (const ExpectedKeys& keys : Expected) {
        if (keys.index == index) {
            return type == NumberTypeUint       ? keys.uint
                   : type == NumberTypeRational ? keys.rat
                   : type == NumberTypeReal     ? keys.real
                                                : keys.cplx;
        }
    }
    return {};
}

std::u16string CaptionOf(const ExpectedKey& key, const KeypadStyle& style) {
    std::u16string caption;
    for (const char16_t c : std::u16string(key.caption)) {
        if (c == u'?') {
            caption += style.angleType == AngleDegrees ? u"d"
                       : style.angleType == AngleGon   ? u"g"
                                                       : u"";
        } else if (c == u'~') {
            caption.back() =
                static_cast<char16_t>(style.lowerCaseHex ? caption.back() : caption.back() - 0x20);
        } else if (c >= u'\u2080' && c <= u'\u2089' && style.osVersionCode < 0x0600) {
            caption += static_cast<char16_t>(u'0' + (c - u'\u2080'));
        } else {
            caption += c;
        }
    }
    return caption;
}

// Every number type, angle unit, case and system version.
std::vector<KeypadStyle> AllStyles() {
    std::vector<KeypadStyle> styles;
    for (const NumberType type : AllNumberTypes) {
        for (const AngleType angle : Angles) {
            for (const bool lowerCase : {false, true}) {
                for (const uint32_t version : Versions) {
                    styles.push_back({type, angle, lowerCase, version});
                }
            }
        }
    }
    return styles;
}

std::string Describe(int32_t index, const KeypadStyle& style) {
    return "key " + std::to_string(index) + ", type " + std::to_string(style.numberType) +
           ", angle " + std::to_string(style.angleType) + ", lower " +
           std::to_string(style.lowerCaseHex) + ", version " + std::to_string(style.osVersionCode);
}

TEST(KeypadTest, EveryKeyIsThatOfItsTypeUnitCaseAndSystem) {
    for (const KeypadStyle& style : AllStyles()) {
        for (int32_t index = 0; index < 72; index++) {
            const ExpectedKey expected = ExpectedAt(index, style.numberType);
            const KeyInfo key = KeypadEntry(index, style);
            ASSERT_EQ(std::u16string(key.caption), CaptionOf(expected, style))
                << Describe(index, style);
            ASSERT_EQ(key.action, expected.action) << Describe(index, style);
            ASSERT_EQ(key.colourClass, expected.colourClass) << Describe(index, style);
        }
    }
}

TEST(KeypadTest, ThreeKeysHaveFontsOfTheirOwn) {
    for (const KeypadStyle& style : AllStyles()) {
        for (int32_t index = 0; index < 72; index++) {
            const FontForm& font = KeyFonts[KeypadEntry(index, style).font];
            const bool consolas = index == 1 || index == 66;
            ASSERT_EQ(std::u16string(font.name), consolas ? u"Consolas" : u"Verdana") << index;
            ASSERT_EQ(font.height, index == 1 ? 22 : index == 62 ? 12 : 13) << index;
        }
    }
}

TEST(KeypadTest, EveryClassHasItsColour) {
    EXPECT_EQ(KeyColours[1], (RgbColour{0, 100, 0}));
    EXPECT_EQ(KeyColours[2], (RgbColour{0, 100, 0}));
    EXPECT_EQ(KeyColours[3], (RgbColour{255, 0, 0}));
    EXPECT_EQ(KeyColours[4], (RgbColour{0, 0, 255}));
    EXPECT_EQ(KeyColours[5], (RgbColour{0, 0, 0}));
    EXPECT_EQ(KeyColours[6], (RgbColour{128, 0, 0}));
}

TEST(KeypadTest, OutsideOfThePadThereAreNoKeys) {
    for (const int32_t index : {-1, 72, 73, 1000}) {
        const KeyInfo key = KeypadEntry(index, {NumberTypeReal, AngleRadians, false, 0x0600});
        EXPECT_EQ(std::u16string(key.caption), u"");
        EXPECT_EQ(key.action, ActionNone);
    }
}

TEST(KeypadTest, WithoutANumberTypeAllKeysAreEmpty) {
    for (int32_t index = 0; index < 72; index++) {
        const KeyInfo key = KeypadEntry(index, {NumberTypeNone, AngleRadians, false, 0x0600});
        EXPECT_EQ(std::u16string(key.caption), u"");
        EXPECT_EQ(key.action, ActionNone);
        EXPECT_EQ(key.colourClass, KeyClassNone);
    }
}

TEST(KeypadTest, FindsTheKeyOfAnActionInEachType) {
    for (const NumberType type : AllNumberTypes) {
        for (int32_t action = 1; action < 1500; action++) {
            int32_t index = -1;
            for (const ExpectedKeys& keys : Expected) {
                if (ExpectedAt(keys.index, type).action == action) {
                    index = keys.index;
                }
            }
            ASSERT_EQ(KeyOfAction(static_cast<KeyAction>(action), type), index)
                << action << ", type " << type;
        }
    }
}

TEST(KeypadTest, ASineKeyBecomesALetterInUint) {
    EXPECT_EQ(KeyOfAction(ActionSin, NumberTypeReal), 32);
    EXPECT_EQ(KeyOfAction(ActionSin, NumberTypeUint), -1);
    EXPECT_EQ(KeyOfAction(ActionLetterA, NumberTypeUint), 32);
    EXPECT_EQ(KeyOfAction(ActionLetterA, NumberTypeReal), -1);
}

TEST(KeypadTest, OnlyKeysThatSaySoChangeWithUnitAndCase) {
    for (const NumberType type : AllNumberTypes) {
        for (int32_t index = 0; index < 72; index++) {
            const KeypadStyle style = {type, AngleRadians, false, 0x0600};
            KeypadStyle degrees = style;
            degrees.angleType = AngleDegrees;
            KeypadStyle lowerCase = style;
            lowerCase.lowerCaseHex = true;
            const KeyInfo key = KeypadEntry(index, style);
            const std::u16string caption = key.caption;
            EXPECT_EQ(HasAngleUnit(key.action), caption != KeypadEntry(index, degrees).caption);
            EXPECT_EQ(IsLetterAction(key.action), caption != KeypadEntry(index, lowerCase).caption);
        }
    }
}

TEST(KeypadTest, TheStyleIsThatOfTheSettings) {
    Settings record;
    record.numberType = NumberTypeComplex;
    record.angleType = AngleGon;
    record.useLowerCaseHex = true;
    const KeypadStyle style = StyleOfKeypad(record, 0x0603);
    EXPECT_EQ(style.numberType, NumberTypeComplex);
    EXPECT_EQ(style.angleType, AngleGon);
    EXPECT_TRUE(style.lowerCaseHex);
    EXPECT_EQ(style.osVersionCode, 0x0603u);
}

}  // namespace
}  // namespace tallymere::testing_support
