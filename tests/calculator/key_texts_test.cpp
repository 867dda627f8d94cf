#include "calculator/key_texts.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "core/number_context.h"
#include "formula/function_table.h"

namespace tallymere::testing_support {
namespace {

class KeyTextsTest : public ::testing::Test {
protected:
    void SetUp() override { context_ = numberContext; }
    void TearDown() override { numberContext = context_; }

    static std::u16string Text(int32_t action, const KeypadStyle& style) {
        return TextForAction(static_cast<KeyAction>(action), style).text;
    }
    static KeypadStyle Style(AngleType angle = AngleRadians, bool lowerCase = false) {
        return {NumberTypeReal, angle, lowerCase, 0x0600};
    }

private:
    NumberContext context_;
};

// What each action inserts with radians and capital letters, and with the context as at the start.
const std::map<int32_t, std::u16string>& Expected() {
    static const std::map<int32_t, std::u16string> texts = {
        {1000, u"+"},      {1001, u"-"},      {1002, u"*"},       {1003, u"/"},
        {1004, u"^"},      {1008, u" mod "},  {1018, u"1/"},      {1100, u"sqrt("},
        {1101, u"cbrt("},  {1104, u"log2("},  {1105, u"ln("},     {1106, u"log10("},
        {1107, u"logx("},  {1108, u"exp("},   {1110, u"sin("},    {1111, u"cos("},
        {1112, u"tan("},   {1113, u"asin("},  {1114, u"acos("},   {1115, u"atan("},
        {1116, u"sinh("},  {1117, u"cosh("},  {1118, u"tanh("},   {1119, u"asinh("},
        {1120, u"acosh("}, {1121, u"atanh("}, {1122, u"fact("},   {1125, u"trunc("},
        {1126, u"frac("},  {1127, u"abs("},   {1128, u"arg("},    {1129, u"round("},
        {1133, u"realp("}, {1134, u"imagp("}, {1135, u"ncr("},    {1136, u"npr("},
        {1137, u"root("},  {1138, u"sqrtc("}, {1139, u"cbrtc("},  {1140, u"rootc("},
        {1141, u"gcd("},   {1142, u"lcm("},   {1144, u"powmod("}, {1300, u"0"},
        {1301, u"1"},      {1302, u"2"},      {1303, u"3"},       {1304, u"4"},
        {1305, u"5"},      {1306, u"6"},      {1307, u"7"},       {1308, u"8"},
        {1309, u"9"},      {1310, u"A"},      {1311, u"B"},       {1312, u"C"},
        {1313, u"D"},      {1314, u"E"},      {1315, u"F"},       {1318, u"."},
        {1319, u"e"},      {1320, u"\u03C0"}, {1323, u"i"},       {1326, u"("},
        {1327, u")"},      {1328, u"; "},     {1329, u"ans"},     {1333, u"0y"},
        {1334, u"0t"},     {1335, u"0x"},
    };
    return texts;
}

TEST_F(KeyTextsTest, EveryActionInsertsItsText) {
    for (int32_t action = 0; action < 2000; action++) {
        const auto found = Expected().find(action);
        const std::u16string expected = found == Expected().end() ? u"" : found->second;
        ASSERT_EQ(Text(action, Style()), expected) << action;
    }
}

TEST_F(KeyTextsTest, TheUnitIsPartOfTheNameOfAngleFunctions) {
    for (const auto& [action, text] : Expected()) {
        const bool isAngle = (action >= 1110 && action <= 1115) || action == 1128;
        const std::u16string name = text.substr(0, text.size() - 1);
        EXPECT_EQ(Text(action, Style(AngleDegrees)), isAngle ? name + u"d(" : text) << action;
        EXPECT_EQ(Text(action, Style(AngleGon)), isAngle ? name + u"g(" : text) << action;
    }
}

TEST_F(KeyTextsTest, LettersAreSmallWithTheSetting) {
    for (const auto& [action, text] : Expected()) {
        std::u16string expected = text;
        if (action >= 1310 && action <= 1315) {
            expected[0] = static_cast<char16_t>(u'a' + (action - 1310));
        }
        EXPECT_EQ(Text(action, Style(AngleRadians, true)), expected) << action;
    }
}

TEST_F(KeyTextsTest, SeparatorExponentAndUnitAreThoseInForce) {
    numberContext.decimalSeparators[0] = u',';
    numberContext.exponentChars[0] = u'E';
    numberContext.imaginaryChars[0] = u'j';
    EXPECT_EQ(Text(1318, Style()), u",");
    EXPECT_EQ(Text(1319, Style()), u"E");
    EXPECT_EQ(Text(1323, Style()), u"j");
}

TEST_F(KeyTextsTest, TheArgumentSeparatorHasABlankAndModHasTwo) {
    EXPECT_EQ(Text(ActionArgumentSeparator, Style()), u"; ");
    EXPECT_EQ(Text(ActionMod, Style()), u" mod ");
}

TEST_F(KeyTextsTest, NamesHaveNoParenthesis) {
    for (const auto& [action, text] : Expected()) {
        const bool isFunction = action >= 1100 && action <= 1299;
        EXPECT_EQ(std::u16string(NameForAction(static_cast<KeyAction>(action), Style()).text),
                  isFunction ? text.substr(0, text.size() - 1) : text);
    }
}

TEST_F(KeyTextsTest, FormulasKnowEveryFunctionInEveryUnit) {
    for (const auto& [action, text] : Expected()) {
        for (const AngleType angle : {AngleDegrees, AngleRadians, AngleGon}) {
            const std::u16string name =
                NameForAction(static_cast<KeyAction>(action), Style(angle)).text;
            if (action >= 1100 && action <= 1299) {
                EXPECT_NE(FindFunction(name.c_str(), name.size()), nullptr) << action;
            }
        }
    }
}

}  // namespace
}  // namespace tallymere::testing_support
