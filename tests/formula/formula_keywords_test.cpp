#include "formula/formula_keywords.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace tallymere {
namespace {

struct Row {
    uint32_t id;
    int arguments;
};

// All words, written down a second time.
const std::map<std::u16string, Row> Words = {
    {u"sqrt", {200, 1}},  {u"cbrt", {201, 1}},   {u"ln", {202, 1}},    {u"log2", {203, 1}},
    {u"log10", {204, 1}}, {u"exp", {205, 1}},    {u"abs", {206, 1}},   {u"sin", {207, 1}},
    {u"cos", {208, 1}},   {u"tan", {209, 1}},    {u"asin", {210, 1}},  {u"acos", {211, 1}},
    {u"atan", {212, 1}},  {u"sind", {213, 1}},   {u"cosd", {214, 1}},  {u"tand", {215, 1}},
    {u"asind", {216, 1}}, {u"acosd", {217, 1}},  {u"atand", {218, 1}}, {u"sing", {219, 1}},
    {u"cosg", {220, 1}},  {u"tang", {221, 1}},   {u"asing", {222, 1}}, {u"acosg", {223, 1}},
    {u"atang", {224, 1}}, {u"sinh", {225, 1}},   {u"cosh", {226, 1}},  {u"tanh", {227, 1}},
    {u"asinh", {228, 1}}, {u"acosh", {229, 1}},  {u"atanh", {230, 1}}, {u"fact", {231, 1}},
    {u"root", {232, 2}},  {u"sqrtc", {300, 2}},  {u"cbrtc", {301, 2}}, {u"rootc", {302, 3}},
    {u"arg", {303, 1}},   {u"argd", {304, 1}},   {u"argg", {305, 1}},  {u"realp", {306, 1}},
    {u"imagp", {307, 1}}, {u"\u03C0", {700, 0}}, {u"pi", {700, 0}},    {u"trunc", {308, 1}},
    {u"frac", {309, 1}},  {u"ncr", {310, 2}},    {u"npr", {311, 2}},   {u"mod", {605, -1}},
    {u"logx", {312, 2}},  {u"gcd", {313, 2}},    {u"lcm", {314, 2}},   {u"powmod", {316, 3}},
    {u"round", {317, 1}},
};

TEST(FormulaKeywords, HoldEachWordOnceWithItsIdAndArguments) {
    ASSERT_EQ(Words.size(), static_cast<size_t>(FormulaKeywordCount));
    for (const auto& [word, row] : Words) {
        const FormulaKeyword* keyword = FindKeyword(word.c_str(), word.size());
        ASSERT_NE(keyword, nullptr) << row.id;
        EXPECT_EQ(keyword->text, word);
        EXPECT_EQ(keyword->id, row.id);
        EXPECT_EQ(keyword->argumentCount, row.arguments) << row.id;
    }
}

TEST(FormulaKeywords, StandInTheOrderOfTheTable) {
    EXPECT_EQ(FormulaKeywordTable[0].id, 200u);
    EXPECT_EQ(FormulaKeywordTable[17].id, 217u);
    EXPECT_EQ(FormulaKeywordTable[18].id, 218u);
    EXPECT_EQ(FormulaKeywordTable[35].id, 302u);
    EXPECT_EQ(FormulaKeywordTable[36].id, 303u);
    EXPECT_EQ(FormulaKeywordTable[52].id, 317u);
}

TEST(FormulaKeywords, AreFoundByTheGivenLengthOnly) {
    const char16_t* text = u"sindx";
    EXPECT_EQ(FindKeyword(text, 2), nullptr);
    EXPECT_EQ(FindKeyword(text, 3)->id, 207u);
    EXPECT_EQ(FindKeyword(text, 4)->id, 213u);
    EXPECT_EQ(FindKeyword(text, 5), nullptr);
}

TEST(FormulaKeywords, AreFoundById) {
    for (const auto& [word, row] : Words) {
        const FormulaKeyword* keyword = FindKeywordById(row.id);
        ASSERT_NE(keyword, nullptr);
        EXPECT_EQ(keyword->id, row.id);
        EXPECT_EQ(keyword->argumentCount, row.arguments);
    }
    EXPECT_EQ(FindKeywordById(315), nullptr);
    EXPECT_EQ(FindKeywordById(0), nullptr);
}

TEST(NameEquals, ComparesLengthAndCharacters) {
    EXPECT_TRUE(NameEquals(u"ab", u"abc", 2));
    EXPECT_FALSE(NameEquals(u"ab", u"abc", 3));
    EXPECT_FALSE(NameEquals(u"abc", u"abc", 2));
    EXPECT_FALSE(NameEquals(u"aB", u"ab", 2));
    EXPECT_TRUE(NameEquals(u"", u"ab", 0));
    EXPECT_FALSE(NameEquals(u"", u"ab", 1));
}

}  // namespace
}  // namespace tallymere
