#include "algebra/exact_root_text.h"

#include <gtest/gtest.h>

#include <string>

#include "algebra/exact_equation_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// What WriteExactRoot writes into an array of the least length; `cut` is whether it says so.
std::u16string Written(const ExactRoot& root, bool cut = false) {
    std::u16string text(size_t{ExactTextCapacity} + 2, u'#');
    EXPECT_EQ(WriteExactRoot(text.data(), root), !cut);
    EXPECT_EQ(text.back(), u'#');
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    text.resize(text.find(u'\0'));
    return text;
}

std::string Fraction(std::string_view p) {
    WidthScope scope(2);
    const RationalBuffer value(p);
    const std::u16string text = Written(FractionRoot(value));
    return std::string(text.begin(), text.end());
}

std::string Surd(std::string_view p, std::string_view q, std::string_view r, bool imaginary) {
    WidthScope scope(2);
    const RationalBuffer pValue(p);
    const RationalBuffer qValue(q);
    const UintBuffer rValue(r);
    const std::u16string text = Written({pValue, qValue, rValue, imaginary});
    return std::string(text.begin(), text.end());
}

std::string RealSurd(std::string_view p, std::string_view q, std::string_view r) {
    return Surd(p, q, r, false);
}
std::string ComplexSurd(std::string_view p, std::string_view q, std::string_view r) {
    return Surd(p, q, r, true);
}

TEST(ExactRootText, Fractions) {
    EXPECT_EQ(Fraction("0"), "0");
    EXPECT_EQ(Fraction("-0"), "0");
    EXPECT_EQ(Fraction("7"), "7");
    EXPECT_EQ(Fraction("-3/4"), "-3/4");
}

TEST(ExactRootText, SquareRoots) {
    EXPECT_EQ(RealSurd("0", "1", "2"), "sqrt(2)");
    EXPECT_EQ(RealSurd("-0", "-1", "2"), "-sqrt(2)");
    EXPECT_EQ(RealSurd("1", "1", "2"), "1+sqrt(2)");
    EXPECT_EQ(RealSurd("1", "-1", "2"), "1-sqrt(2)");
    EXPECT_EQ(RealSurd("-1/2", "1/2", "5"), "-1/2+1/2*sqrt(5)");
    EXPECT_EQ(RealSurd("-1/2", "-1/2", "5"), "-1/2-1/2*sqrt(5)");
    EXPECT_EQ(RealSurd("0", "3", "7"), "3*sqrt(7)");
    EXPECT_EQ(RealSurd("0", "-11", "10"), "-11*sqrt(10)");
    EXPECT_EQ(RealSurd("0", "1/11", "10"), "1/11*sqrt(10)");
}

TEST(ExactRootText, SquareRootsOfNegativeNumbers) {
    EXPECT_EQ(ComplexSurd("0", "1/2", "2"), "1/2*sqrt(2)*i");
    EXPECT_EQ(ComplexSurd("0", "-1/2", "2"), "-1/2*sqrt(2)*i");
    EXPECT_EQ(ComplexSurd("0", "1", "3"), "sqrt(3)*i");
    EXPECT_EQ(ComplexSurd("-2", "-1", "3"), "-2-sqrt(3)*i");
    EXPECT_EQ(ComplexSurd("-2", "5", "3"), "-2+5*sqrt(3)*i");
}

// The factor 1 stays before the unit alone.
TEST(ExactRootText, MultiplesOfTheImaginaryUnit) {
    EXPECT_EQ(ComplexSurd("0", "1", "1"), "1*i");
    EXPECT_EQ(ComplexSurd("0", "-1", "1"), "-1*i");
    EXPECT_EQ(ComplexSurd("2", "1", "1"), "2+1*i");
    EXPECT_EQ(ComplexSurd("1/2", "-3/2", "1"), "1/2-3/2*i");
}

TEST(ExactRootText, TheUnitIsThatOfTheContext) {
    const FieldScope<char16_t> unit(numberContext.imaginaryChars[0], u'j');
    EXPECT_EQ(ComplexSurd("0", "1", "1"), "1*j");
    EXPECT_EQ(ComplexSurd("0", "1", "2"), "sqrt(2)*j");
}

TEST(ExactRootText, TheLongestOneOfTwoLimbs) {
    const std::string largest = LongText("2^128-1");
    const std::string other = LongText("2^128-3");
    const std::string fraction = "-" + largest + "/" + other;
    const std::string text = ComplexSurd(fraction, fraction, largest);
    EXPECT_EQ(text, fraction + fraction + "*sqrt(" + largest + ")*i");
    EXPECT_EQ(text.size(), size_t{MaxExactRootCharacters});
}

// Only wider integers are so long.
TEST(ExactRootText, ALongerTextIsCut) {
    WidthScope scope(65);
    const RationalBuffer tooLong("1" + std::string(ExactTextCapacity, '0'));
    const RationalBuffer one("1");
    const UintBuffer radicand("2");
    const RationalBuffer exact("1" + std::string(ExactTextCapacity - 1, '3'));
    EXPECT_EQ(Written(FractionRoot(exact)), u"1" + std::u16string(ExactTextCapacity - 1, u'3'));
    const std::u16string cut = u"1" + std::u16string(ExactTextCapacity - 2, u'0') + u"\u2026";
    EXPECT_EQ(Written(FractionRoot(tooLong), true), cut);
    EXPECT_EQ(Written({tooLong, one, radicand, false}, true), cut);
    EXPECT_EQ(Written({one, exact, radicand, true}, true),
              u"1+1" + std::u16string(ExactTextCapacity - 4, u'3') + u"\u2026");
}

}  // namespace
}  // namespace tallymere
