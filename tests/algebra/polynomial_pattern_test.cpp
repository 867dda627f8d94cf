#include "algebra/polynomial_pattern.h"

#include <gtest/gtest.h>

#include <string>

namespace tallymere {
namespace {

// The pattern behind a text that stands in the writer before it.
std::u16string Pattern(int64_t degree, char16_t letter, int64_t capacity = PolyPatternCharacters) {
    std::u16string buffer(static_cast<size_t>(capacity) + 3, u'#');
    TextWriter text = {0, capacity + 2, buffer.data()};
    WriteChars(text, u"P:", 2);
    AppendPolyPattern(text, degree, letter);
    EXPECT_TRUE(TextWriterIsConsistent(text));
    EXPECT_EQ(buffer.back(), u'#');
    if (WriterOverflowed(text)) {
        return u"overflow";
    }
    EXPECT_EQ(buffer.substr(0, 2), u"P:");
    return buffer.substr(2, static_cast<size_t>(text.position) - 2);
}

TEST(PolynomialPattern, AllTermsBelowDegree5) {
    EXPECT_EQ(Pattern(0, u'r'), u"r0");
    EXPECT_EQ(Pattern(1, u'a'), u"a1*x + a0");
    EXPECT_EQ(Pattern(2, u'a'), u"a2*x^2 + a1*x + a0");
    EXPECT_EQ(Pattern(3, u'b'), u"b3*x^3 + b2*x^2 + b1*x + b0");
    EXPECT_EQ(Pattern(4, u'a'), u"a4*x^4 + a3*x^3 + a2*x^2 + a1*x + a0");
}

TEST(PolynomialPattern, TheMiddleIsLeftOutFromDegree5On) {
    EXPECT_EQ(Pattern(5, u'a'), u"a5*x^5 + a4*x^4 + ... + a1*x + a0");
    EXPECT_EQ(Pattern(7, u'b'), u"b7*x^7 + b6*x^6 + ... + b1*x + b0");
    EXPECT_EQ(Pattern(10, u'a'), u"a10*x^10 + a9*x^9 + ... + a1*x + a0");
    EXPECT_EQ(Pattern(20, u'b'), u"b20*x^20 + b19*x^19 + ... + b1*x + b0");
}

TEST(PolynomialPattern, ADegreeOutOfRangeWritesNothing) {
    EXPECT_EQ(Pattern(MaxPolyPatternDegree, u'b'), u"b100*x^100 + b99*x^99 + ... + b1*x + b0");
    EXPECT_EQ(Pattern(MaxPolyPatternDegree + 1, u'b'), u"");
    EXPECT_EQ(Pattern(INT64_MAX, u'b'), u"");
    EXPECT_EQ(Pattern(-1, u'b'), u"");
    EXPECT_EQ(Pattern(INT64_MIN, u'b'), u"");
}

TEST(PolynomialPattern, TheLongestOneFits) {
    size_t longest = 0;
    for (int64_t degree = 0; degree <= MaxPolyPatternDegree; degree++) {
        longest = std::max(longest, Pattern(degree, u'b').size());
    }
    EXPECT_EQ(longest, size_t{PolyPatternCharacters});
    EXPECT_EQ(Pattern(MaxPolyPatternDegree, u'b', PolyPatternCharacters - 1), u"overflow");
}

}  // namespace
}  // namespace tallymere
