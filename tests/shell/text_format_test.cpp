#include "shell/text_format.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>

#include "shell/ui_error.h"

namespace tallymere {
namespace {

constexpr char16_t Untouched = u'#';

// What FormatIntoSink makes of a format, in a sink that is large enough.
std::u16string Formatted(const char16_t* format,
                         std::initializer_list<FormatArgument> arguments = {}) {
    char16_t text[200];
    TextSink sink{0, 200, text};
    FormatIntoSink(sink, format, arguments);
    EXPECT_FALSE(SinkOverflowed(sink));
    return {text, static_cast<size_t>(std::min<int64_t>(sink.count, 200))};
}

TEST(Format, PlainTextPassesUnchanged) {
    EXPECT_EQ(Formatted(u""), u"");
    EXPECT_EQ(Formatted(u"Zähler & Nenner → 1\r\n"), u"Zähler & Nenner → 1\r\n");
}

TEST(Format, InsertsTextsCharactersAndNumbersInOrder) {
    EXPECT_EQ(Formatted(u"%s%c%d", {u"ab", u'c', 12}), u"abc12");
    EXPECT_EQ(Formatted(u"<%d|%s|%c>", {-3, u"", u'\u03C0'}), u"<-3||\u03C0>");
    EXPECT_EQ(Formatted(u"%s %s", {u"%d", u"%s"}), u"%d %s") << "arguments are not formats";
}

TEST(Format, WritesAllSigned32BitNumbers) {
    EXPECT_EQ(Formatted(u"%d", {0}), u"0");
    EXPECT_EQ(Formatted(u"%d", {7}), u"7");
    EXPECT_EQ(Formatted(u"%d", {-1}), u"-1");
    EXPECT_EQ(Formatted(u"%d", {10}), u"10");
    EXPECT_EQ(Formatted(u"%d", {std::numeric_limits<int32_t>::max()}), u"2147483647");
    EXPECT_EQ(Formatted(u"%d", {std::numeric_limits<int32_t>::min()}), u"-2147483648");
}

TEST(Format, DoublePercentIsOnePercentAndTakesNoArgument) {
    EXPECT_EQ(Formatted(u"100%% of %s", {u"x"}), u"100% of x");
    EXPECT_EQ(Formatted(u"%%s", {u"x"}), u"%s");
}

TEST(Format, AnUnknownSpecifierIsAQuestionMarkAndLeavesTheArgument) {
    EXPECT_EQ(Formatted(u"%x%s", {u"kept"}), u"?kept");
    EXPECT_EQ(Formatted(u"%5d", {3}), u"?d") << "there are no widths";
    EXPECT_EQ(Formatted(u"%S%D%C", {u"x", 1, u'c'}), u"???");
}

TEST(Format, APercentAtTheEndIsAQuestionMark) {
    EXPECT_EQ(Formatted(u"50 %"), u"50 ?");
    EXPECT_EQ(Formatted(u"%"), u"?");
    EXPECT_EQ(Formatted(u"%s%", {u"x"}), u"x?");
}

TEST(Format, AMissingArgumentIsAQuestionMark) {
    EXPECT_EQ(Formatted(u"%s %c %d"), u"? ? ?");
    EXPECT_EQ(Formatted(u"%s %s %d", {u"a"}), u"a ? ?");
    EXPECT_EQ(Formatted(u"%s", {nullptr}), u"?");
}

TEST(Format, AnArgumentOfAnotherKindIsAQuestionMarkAndUsedUp) {
    EXPECT_EQ(Formatted(u"%s,%d", {5, 6}), u"?,6");
    EXPECT_EQ(Formatted(u"%d,%c,%s", {u"a", u"b", u"c"}), u"?,?,c");
}

TEST(Format, ArgumentsTooManyAreIgnored) {
    EXPECT_EQ(Formatted(u"%s.", {u"a", u"b"}), u"a.");
}

TEST(Sink, CountsWhatDoesNotFitAndDoesNotStoreIt) {
    char16_t text[6] = {Untouched, Untouched, Untouched, Untouched, Untouched, Untouched};
    TextSink sink{0, 4, text};
    FormatIntoSink(sink, u"%s%d", {u"abc", 1234});
    EXPECT_EQ(sink.count, 7);
    EXPECT_TRUE(SinkOverflowed(sink));
    EXPECT_EQ(std::u16string(text, 6), u"abc1##");
}

TEST(Sink, ATextOfExactlyTheCapacityFits) {
    char16_t text[5] = {};
    TextSink sink{0, 4, text};
    FormatIntoSink(sink, u"abcd");
    EXPECT_EQ(sink.count, 4);
    EXPECT_FALSE(SinkOverflowed(sink));
}

TEST(Sink, AppendsBehindWhatItHolds) {
    char16_t text[10] = {};
    TextSink sink{0, 9, text};
    FormatIntoSink(sink, u"a%d", {1});
    FormatIntoSink(sink, u"b%d", {2});
    EXPECT_EQ(std::u16string(text), u"a1b2");
}

TEST(Sink, TakesNothingMoreOnceItHasOverflowed) {
    char16_t text[3] = {};
    TextSink sink{0, 2, text};
    FormatIntoSink(sink, u"abc");
    EXPECT_EQ(sink.count, 3);
    FormatIntoSink(sink, u"def");
    EXPECT_EQ(sink.count, 3);
}

TEST(Sink, OfCapacityZeroMeasures) {
    TextSink sink{0, 0, nullptr};
    FormatIntoSink(sink, u"%s: %d", {u"abc", -10});
    EXPECT_EQ(sink.count, 8);
}

class Bounded : public ::testing::Test {
protected:
    void SetUp() override {
        ClearErrors();
        std::fill(std::begin(text_), std::end(text_), Untouched);
    }
    void TearDown() override { ClearErrors(); }

    char16_t text_[12];
};

TEST_F(Bounded, EndsTheTextAndRaisesNothingWhenItFits) {
    FormatBounded(text_, 5, u"%s%d", {u"ab", 345});
    EXPECT_EQ(std::u16string(text_), u"ab345");
    EXPECT_EQ(text_[6], Untouched);
    EXPECT_EQ(PendingUiError(), UiErrorNone);
    FormatBounded(text_, 5, u"");
    EXPECT_EQ(std::u16string(text_), u"");
    EXPECT_EQ(PendingUiError(), UiErrorNone);
}

TEST_F(Bounded, OverflowEndsInAnEllipsisAndRaises9002) {
    FormatBounded(text_, 5, u"%s%d", {u"ab", 3456});
    EXPECT_EQ(std::u16string(text_), u"ab34\u2026");
    EXPECT_EQ(text_[6], Untouched);
    EXPECT_EQ(uiError.code, 9002);
    EXPECT_EQ(std::u16string(uiError.arg1), u"?");
}

TEST_F(Bounded, OverflowLeavesAPendingErrorAlone) {
    SetUiError(UiErrorFileNotFound, u"name");
    FormatBounded(text_, 2, u"abc");
    EXPECT_EQ(uiError.code, 1005);
    EXPECT_EQ(std::u16string(uiError.arg1), u"name");
}

TEST_F(Bounded, CapacityOneHoldsOneCharacterOrTheEllipsis) {
    FormatBounded(text_, 1, u"a");
    EXPECT_EQ(std::u16string(text_), u"a");
    EXPECT_EQ(PendingUiError(), UiErrorNone);
    FormatBounded(text_, 1, u"ab");
    EXPECT_EQ(std::u16string(text_), u"\u2026");
    EXPECT_EQ(text_[2], Untouched);
    EXPECT_EQ(PendingUiError(), UiErrorTextOverflow);
}

TEST_F(Bounded, CapacityZeroHoldsTheEndOnly) {
    FormatBounded(text_, 0, u"");
    EXPECT_EQ(text_[0], 0);
    EXPECT_EQ(PendingUiError(), UiErrorNone);
    text_[0] = Untouched;
    FormatBounded(text_, 0, u"a");
    EXPECT_EQ(text_[0], 0);
    EXPECT_EQ(text_[1], Untouched);
    EXPECT_EQ(PendingUiError(), UiErrorTextOverflow);
}

}  // namespace
}  // namespace tallymere
