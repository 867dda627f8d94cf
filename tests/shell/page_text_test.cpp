#include "shell/page_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
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
    std::u16string Take(int64_t shown = 0) {
        TakePageText(*taken, *gathered, shown);
        return TextIn(*taken);
    }

    const std::unique_ptr<PageTextBuffer> gathered = std::make_unique<PageTextBuffer>();
    const std::unique_ptr<PageTextBuffer> taken = std::make_unique<PageTextBuffer>();
};

TEST_F(PageTextTest, AtFirstItIsAllZeros) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(gathered.get());
    EXPECT_EQ(std::count(bytes, bytes + sizeof(PageTextBuffer), 0),
              static_cast<std::ptrdiff_t>(sizeof(PageTextBuffer)));
}

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
    const std::u16string text = Letters(PageTextLeastRoom - 3);
    EXPECT_EQ(Gather(text), PageTextLeastRoom - 3);
    EXPECT_EQ(Gather(u"12345"), 3);
    EXPECT_EQ(Gather(u"45"), 0);
    EXPECT_EQ(Take(), text + u"123");
    EXPECT_EQ(Gather(u"45"), 2);
    EXPECT_EQ(Take(), u"45");
}

TEST_F(PageTextTest, ATextThatIsLongerThanAllTheRoomComesInParts) {
    const std::u16string text = Letters(PageTextLeastRoom) + u"end";
    EXPECT_EQ(Gather(text), PageTextLeastRoom);
    EXPECT_EQ(Take(), Letters(PageTextLeastRoom));
    EXPECT_EQ(Gather(text.substr(PageTextLeastRoom)), 3);
}

TEST_F(PageTextTest, HasMoreRoomForTheNextTextOfALongOutput) {
    for (const int64_t room : {PageTextLeastRoom + 1, PageTextCapacity}) {
        Take(room * PageTextShare);
        EXPECT_EQ(Gather(Letters(room + 1)), room);
        EXPECT_EQ(Gather(u"x"), 0);
        EXPECT_EQ(Take(), Letters(room));
        EXPECT_EQ(Gather(Letters(room)), PageTextLeastRoom) << "the next output is empty";
        Take();
    }
}

TEST_F(PageTextTest, TheRoomIsAShareOfWhatIsShownWithinBounds) {
    EXPECT_EQ(PageTextRoom(0), PageTextLeastRoom);
    EXPECT_EQ(PageTextRoom(PageTextLeastRoom * PageTextShare), PageTextLeastRoom);
    EXPECT_EQ(PageTextRoom(10'000'000), 10'000'000 / PageTextShare);
    EXPECT_EQ(PageTextRoom(PageTextCapacity * PageTextShare), PageTextCapacity);
    EXPECT_EQ(PageTextRoom(0x7FFFFFFF), PageTextCapacity);
}

// An output that walks through all that it shows for each text that it gets.
TEST_F(PageTextTest, TheWalksOfAnOutputGrowWithItsTextAndNotWithItsSquare) {
    const auto walked = [](int64_t length) {
        int64_t sum = 0;
        for (int64_t shown = 0; shown < length; shown += PageTextRoom(shown)) {
            sum += shown;
        }
        return static_cast<double>(sum);
    };
    for (int64_t length = 1'000'000; length < 50'000'000; length *= 2) {
        EXPECT_LE(walked(length), static_cast<double>(PageTextShare * length));
    }
    EXPECT_LT(walked(100'000'000), 2.2 * walked(50'000'000));
}

TEST_F(PageTextTest, PartsNeitherALineEndNorASurrogatePair) {
    for (const std::u16string& pair : {std::u16string(u"\r\n"), std::u16string(u"\U0001D7D8")}) {
        Gather(Letters(PageTextLeastRoom - 2));
        EXPECT_EQ(Gather(u"1" + pair), 1);
        EXPECT_EQ(Gather(pair), 0);
        Take();
        EXPECT_EQ(Gather(pair), 2);
        EXPECT_EQ(Take(), pair);
        // One that just fits is taken whole.
        Gather(Letters(PageTextLeastRoom - 2));
        EXPECT_EQ(Gather(pair + u"3"), 2);
        EXPECT_TRUE(Take().ends_with(pair));
    }
    Gather(Letters(PageTextLeastRoom - 2));
    EXPECT_EQ(Gather(u"1\r"), 2) << "whose second character nobody knows yet";
    EXPECT_EQ(Take().back(), u'\r');
}

}  // namespace
}  // namespace tallymere
