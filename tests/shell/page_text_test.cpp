#include "shell/page_text.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace tallymere {
namespace {

std::u16string Letters(int64_t count) {
    return std::u16string(static_cast<size_t>(count), u'x');
}

std::u16string TextIn(const PageTextBuffer& buffer) {
    EXPECT_EQ(buffer.text[buffer.length], 0);
    return {buffer.text, static_cast<size_t>(buffer.length)};
}

class PageTextTest : public testing::Test {
protected:
    int64_t Gather(std::u16string_view text) { return GatherPageText(*gathered, text); }
    std::u16string Take() {
        TakePageText(*taken, *gathered);
        return TextIn(*taken);
    }

    const std::unique_ptr<PageTextBuffer> gathered = std::make_unique<PageTextBuffer>();
    const std::unique_ptr<PageTextBuffer> taken = std::make_unique<PageTextBuffer>();
};

TEST_F(PageTextTest, GathersOneBehindTheOther) {
    EXPECT_EQ(TextIn(*gathered), u"");
    EXPECT_EQ(Gather(u"{ 2"), 3);
    EXPECT_EQ(Gather(u""), 0);
    EXPECT_EQ(Gather(u", 3 }\r\n"), 7);
    EXPECT_EQ(TextIn(*gathered), u"{ 2, 3 }\r\n");
}

TEST_F(PageTextTest, WhatIsTakenMakesRoom) {
    Gather(u"first");
    EXPECT_EQ(Take(), u"first");
    EXPECT_EQ(TextIn(*gathered), u"");
    Gather(u"2nd");
    EXPECT_EQ(Take(), u"2nd") << "nothing of the first one is left";
    EXPECT_EQ(Take(), u"");
}

TEST_F(PageTextTest, TakesWhatThereIsRoomFor) {
    const std::u16string text = Letters(PageTextCapacity - 3);
    EXPECT_EQ(Gather(text), PageTextCapacity - 3);
    EXPECT_EQ(Gather(u"12345"), 3);
    EXPECT_EQ(Gather(u"45"), 0);
    EXPECT_EQ(Take(), text + u"123");
    EXPECT_EQ(Gather(u"45"), 2);
    EXPECT_EQ(Take(), u"45");
}

TEST_F(PageTextTest, ATextThatIsLongerThanAllTheRoomComesInParts) {
    const std::u16string text = Letters(PageTextCapacity) + u"end";
    EXPECT_EQ(Gather(text), PageTextCapacity);
    EXPECT_EQ(Take(), Letters(PageTextCapacity));
    EXPECT_EQ(Gather(text.substr(PageTextCapacity)), 3);
}

TEST_F(PageTextTest, PartsNeitherALineEndNorASurrogatePair) {
    for (const std::u16string& pair : {std::u16string(u"\r\n"), std::u16string(u"\U0001D7D8")}) {
        Gather(Letters(PageTextCapacity - 2));
        EXPECT_EQ(Gather(u"1" + pair), 1);
        EXPECT_EQ(Gather(pair), 0);
        Take();
        EXPECT_EQ(Gather(pair), 2);
        EXPECT_EQ(Take(), pair);
    }
    Gather(Letters(PageTextCapacity - 2));
    EXPECT_EQ(Gather(u"1\r"), 2) << "whose second character nobody knows yet";
    EXPECT_EQ(Take().back(), u'\r');
}

}  // namespace
}  // namespace tallymere
