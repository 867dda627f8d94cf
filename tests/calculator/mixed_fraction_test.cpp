#include "calculator/mixed_fraction.h"

#include "calculator/calculator_testing.h"
#include "core/number_scanner.h"
#include "core/text_flags.h"
#include "exact/rational_text.h"
#include "support/exact_testing.h"

namespace tallymere::testing_support {
namespace {

class MixedFractionTest : public CalculatorTest {
protected:
    void SetUp() override {
        CalculatorTest::SetUp();
        ApplyNumberType(NumberTypeRational, 10);
    }

    // The text of a fraction in a buffer of so many characters.
    static std::u16string Mixed(const char16_t* fraction, uint32_t flags = 0,
                                int64_t capacity = 40) {
        UintBuffer words = UintBuffer::OfLimbs(RationalWords());
        RationalFromText(RationalAt(words.Get()), fraction, TextUntilZero, 0);
        std::u16string buffer(static_cast<size_t>(capacity) + 2, u'#');
        MixedFractionToText(buffer.data(), capacity, RationalAt(words.Get()), flags);
        EXPECT_EQ(buffer.back(), u'#');
        EXPECT_EQ(TakeCode(), CalcErrorNone);
        return buffer.c_str();
    }
};

TEST_F(MixedFractionTest, IsTheWholePartAndTheRest) {
    EXPECT_EQ(Mixed(u"7/3"), u"2+1/3");
    EXPECT_EQ(Mixed(u"1/3"), u"0+1/3");
    EXPECT_EQ(Mixed(u"1000/7"), u"142+6/7");
    EXPECT_EQ(Mixed(u"100000000000000000000001/100000000000000000000000"),
              u"1+1/100000000000000000000000");
}

TEST_F(MixedFractionTest, ANegativeWholePartHasASignOfItsOwn) {
    EXPECT_EQ(Mixed(u"-7/3"), u"-2-1/3");
    EXPECT_EQ(Mixed(u"-1/3"), u"0-1/3");
}

TEST_F(MixedFractionTest, OfAnIntegerNothingIsLeft) {
    EXPECT_EQ(Mixed(u"5"), u"5+0/1");
    EXPECT_EQ(Mixed(u"-5"), u"-5-0/1");
    EXPECT_EQ(Mixed(u"0"), u"0+0/1");
}

TEST_F(MixedFractionTest, AZeroWithASignIsNotNegative) {
    UintBuffer words = UintBuffer::OfLimbs(RationalWords());
    RationalSetZero(RationalAt(words.Get()));
    RationalNegate(RationalAt(words.Get()));
    char16_t buffer[11];
    MixedFractionToText(buffer, 10, RationalAt(words.Get()), 0);
    EXPECT_EQ(std::u16string(buffer), u"0+0/1");
}

TEST_F(MixedFractionTest, AllPartsAreGrouped) {
    EXPECT_EQ(Mixed(u"12345678901/10000000", TextGroup), u"1'234+5'678'901/10'000'000");
}

TEST_F(MixedFractionTest, ATextThatDoesNotFitEndsInAnEllipsis) {
    EXPECT_EQ(Mixed(u"-7/3", 0, 6), u"-2-1/3");
    EXPECT_EQ(PendingUiError(), UiErrorNone);
    EXPECT_EQ(Mixed(u"-7/3", 0, 5), u"-2-1\u2026");
    EXPECT_EQ(PendingUiError(), UiErrorTextOverflow);
    ClearErrors();
    EXPECT_EQ(Mixed(u"-7/3", 0, 1), u"\u2026");
    EXPECT_EQ(PendingUiError(), UiErrorTextOverflow);
}

TEST_F(MixedFractionTest, ReadsBackAsTheSameFraction) {
    for (const char16_t* text : {u"7/3", u"1/3", u"22/7", u"1000001/1000"}) {
        EXPECT_EQ(Show(Mixed(text)), text);
        EXPECT_EQ(Show(Mixed((u"-" + std::u16string(text)).c_str())), u"-" + std::u16string(text));
    }
}

}  // namespace
}  // namespace tallymere::testing_support
