#include "core/text_writer.h"

#include <gtest/gtest.h>

#include <string>

#include "core/text_flags.h"
#include "support/decimal_text.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// A writer into a buffer that has room for its capacity, the 0 and a guard character.
struct TestWriter {
    explicit TestWriter(int64_t capacity)
        : buffer(static_cast<size_t>(capacity) + 2, u'#'), writer{0, capacity, buffer.data()} {}

    std::string Text() const {
        return WriterOverflowed(writer) ? "overflow"
                                        : NarrowText({buffer.data(), size_t(writer.position)});
    }

    std::u16string buffer;
    TextWriter writer;
};

TEST(TextWriter, HoldsAsManyCharactersAsItsCapacity) {
    TestWriter t(5);
    WriteChar(t.writer, u'a');
    WriteChars(t.writer, u"bcXX", 2);
    WriteRepeated(t.writer, u'd', 2);
    EXPECT_EQ(t.Text(), "abcdd");
    EXPECT_EQ(t.writer.position, 5);
    EXPECT_FALSE(WriterOverflowed(t.writer));
    EXPECT_EQ(NarrowText(t.buffer), "abcdd##");
}

TEST(TextWriter, MarksAnOverflowOneBehindTheCapacityAndStops) {
    for (int64_t capacity : {0, 1, 2, 3}) {
        TestWriter t(capacity);
        WriteRepeated(t.writer, u'a', capacity);
        EXPECT_FALSE(WriterOverflowed(t.writer));
        for (int round = 0; round < 3; round++) {
            WriteChar(t.writer, u'b');
            EXPECT_EQ(t.writer.position, capacity + 1);
            EXPECT_TRUE(WriterOverflowed(t.writer));
        }
        WriteChars(t.writer, u"", 0);
        WriteRepeated(t.writer, u'c', 0);
        EXPECT_EQ(t.writer.position, capacity + 1);
        EXPECT_EQ(WriteReserve(t.writer, 0), nullptr);
        EXPECT_EQ(NarrowText(t.buffer), std::string(size_t(capacity), 'a') + "##");
    }
}

TEST(TextWriter, WritesARunWholeOrNotAtAll) {
    TestWriter t(3);
    WriteChar(t.writer, u'a');
    WriteChars(t.writer, u"bcd", 3);
    EXPECT_EQ(t.writer.position, 4);
    EXPECT_EQ(NarrowText(t.buffer), "a####");
}

TEST(TextWriter, RefusesARunOfAnyLengthAtOnce) {
    TestWriter t(3);
    WriteChar(t.writer, u'a');
    WriteRepeated(t.writer, u'b', INT64_MAX);
    EXPECT_TRUE(WriterOverflowed(t.writer));
    EXPECT_EQ(NarrowText(t.buffer), "a####");
}

TEST(FinishNumberText, EndsTheTextWithAZeroUnlessAskedNotTo) {
    for (uint32_t flags : {0u, uint32_t{TextNoTerminator}}) {
        ContextCheck check;
        TestWriter t(4);
        WriteChars(t.writer, u"1234", 4);
        EXPECT_EQ(FinishNumberText(t.writer, flags), 4);
        EXPECT_EQ(t.buffer.substr(0, 4), u"1234");
        EXPECT_EQ(t.buffer[4], flags == 0 ? u'\0' : u'#');
        EXPECT_EQ(t.buffer[5], u'#');
    }
}

TEST(FinishNumberText, ReplacesWhatDoesNotFitByItsMarkIfThereIsRoomForThat) {
    for (int64_t capacity : {0, 1, 2, 3, 4, 10}) {
        for (uint32_t flags : {0u, uint32_t{TextNoTerminator}}) {
            ContextCheck check;
            TestWriter t(capacity);
            WriteRepeated(t.writer, u'7', capacity);
            WriteChar(t.writer, u'7');
            const int64_t length = FinishNumberText(t.writer, flags);
            EXPECT_EQ(TakeCode(), CalcErrorTextTooLong);
            EXPECT_EQ(length, capacity >= 3 ? 3 : 0);
            EXPECT_EQ(NarrowText({t.buffer.data(), size_t(length)}), capacity >= 3 ? "[$]" : "");
            const char16_t untouched = length < capacity ? u'7' : u'#';
            EXPECT_EQ(t.buffer[size_t(length)], flags == 0 ? u'\0' : untouched);
            EXPECT_EQ(t.buffer[size_t(capacity) + 1], u'#');
        }
    }
}

TEST(FinishNumberText, KeepsAnEarlierCode) {
    ContextCheck check;
    TestWriter t(0);
    SetCalcError(CalcErrorUndefined);
    WriteChar(t.writer, u'7');
    FinishNumberText(t.writer, 0);
    EXPECT_EQ(TakeCode(), CalcErrorUndefined);
}

}  // namespace
}  // namespace tallymere
