#include "shell/page_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <utility>

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
    std::u16string Take(int64_t shown = 0, PageTextCost last = {}) {
        TakePageText(*taken, *gathered, shown, last);
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
    const std::u16string text = Letters(PageTextFirstRoom - 3);
    EXPECT_EQ(Gather(text), PageTextFirstRoom - 3);
    EXPECT_EQ(Gather(u"12345"), 3);
    EXPECT_EQ(Gather(u"45"), 0);
    EXPECT_EQ(Take(), text + u"123");
    EXPECT_EQ(Gather(u"45"), 2);
    EXPECT_EQ(Take(), u"45");
}

TEST_F(PageTextTest, ATextThatIsLongerThanAllTheRoomComesInParts) {
    const std::u16string text = Letters(PageTextFirstRoom) + u"end";
    EXPECT_EQ(Gather(text), PageTextFirstRoom);
    EXPECT_EQ(Take(), Letters(PageTextFirstRoom));
    EXPECT_EQ(Gather(text.substr(PageTextFirstRoom)), 3);
}

TEST_F(PageTextTest, HasMoreRoomForTheNextTextOfALongOutput) {
    for (const int64_t room : {PageTextFirstRoom + 1, PageTextCapacity}) {
        Take(room * PageTextShare);
        EXPECT_EQ(Gather(Letters(room + 1)), room);
        EXPECT_EQ(Gather(u"x"), 0);
        EXPECT_EQ(Take(), Letters(room));
        EXPECT_EQ(Gather(Letters(room)), PageTextFirstRoom) << "the next output is empty";
        Take();
    }
}

// Of an output that took the last text at once.
int64_t RoomBehind(int64_t shown) {
    return PageTextRoom(shown, {1'000, 0});
}

TEST_F(PageTextTest, TheRoomIsAShareOfWhatIsShownWithinBounds) {
    EXPECT_EQ(RoomBehind(0), PageTextFirstRoom);
    EXPECT_EQ(RoomBehind(PageTextFirstRoom * PageTextShare), PageTextFirstRoom);
    EXPECT_EQ(RoomBehind(10'000'000), 10'000'000 / PageTextShare);
    EXPECT_EQ(RoomBehind(PageTextCapacity * PageTextShare), PageTextCapacity);
    EXPECT_EQ(RoomBehind(0x7FFFFFFF), PageTextCapacity);
    for (const int64_t shown : {0, 10'000'000, 0x7FFFFFFF}) {
        EXPECT_EQ(PageTextRoom(shown, {}), RoomBehind(shown)) << "no text so far";
    }
}

TEST_F(PageTextTest, ThereIsRoomForWhatAnOutputTakesInTime) {
    constexpr int64_t Shown = 4'000'000;
    constexpr int64_t Share = Shown / PageTextShare;
    EXPECT_EQ(PageTextRoom(Shown, {20'000, 2 * PageTextMilliseconds}), 10'000);
    EXPECT_EQ(PageTextRoom(Shown, {20'000, PageTextMilliseconds}), 20'000);
    EXPECT_EQ(PageTextRoom(Shown, {20'000, PageTextMilliseconds * 2 / 3}), 30'000)
        << "it grows again";
    EXPECT_EQ(PageTextRoom(Shown, {20'000, PageTextMilliseconds / 4}), Share);
    EXPECT_EQ(PageTextRoom(Shown, {PageTextCapacity, PageTextMilliseconds}), Share);
    EXPECT_EQ(PageTextRoom(0, {20'000, 2 * PageTextMilliseconds}), 10'000);
}

TEST_F(PageTextTest, ASlowOutputGetsTheLeastShareAllTheSame) {
    EXPECT_EQ(PageTextRoom(0, {1, 1e9}), PageTextLeastRoom);
    EXPECT_EQ(PageTextRoom(4'000'000, {20'000, 1e9}), PageTextLeastRoom);
    EXPECT_EQ(PageTextRoom(30'000'000, {20'000, 1e9}), 30'000'000 / PageTextLeastShare);
    EXPECT_EQ(PageTextRoom(0x7FFFFFFF, {20'000, 1e9}), PageTextCapacity);
}

TEST_F(PageTextTest, HasLessRoomForASlowOutput) {
    Take(0, {20'000, 2 * PageTextMilliseconds});
    EXPECT_EQ(Gather(Letters(20'000)), 10'000);
    EXPECT_EQ(Gather(u"x"), 0);
    EXPECT_EQ(Take(), Letters(10'000));
    EXPECT_EQ(Gather(Letters(PageTextFirstRoom + 1)), PageTextFirstRoom);
}

// An output like that of Wine, which shows 32 characters in a line: it takes 0.05 ms for each line
// that it gets, and 0.1 s for a walk through a million.
double TimeOf(int64_t shown, int64_t characters) {
    return 0.05 / 32 * static_cast<double>(characters) + 100.0 / 32e6 * static_cast<double>(shown);
}

TEST_F(PageTextTest, NoTextTakesAnOutputLongerThanAStopMayLast) {
    // The room is made while the output takes the text before, so what that one costs is not known.
    PageTextCost last;
    PageTextCost known;
    double whole = 0;
    for (int64_t shown = 0; shown < 32'000'000; shown += last.characters) {
        const int64_t room = PageTextRoom(shown, known);
        known = last;
        last = {room, TimeOf(shown, room)};
        ASSERT_LT(last.milliseconds, 2 * PageTextMilliseconds) << shown;
        whole += last.milliseconds;
    }
    EXPECT_LT(whole, 2.5 * TimeOf(0, 32'000'000));
}

// The walks through all that an output shows, which it makes for each text.
double Walked(int64_t length, double millisecondsPerText) {
    double sum = 0;
    PageTextCost last;
    for (int64_t shown = 0; shown < length; shown += last.characters) {
        sum += static_cast<double>(shown);
        last = {PageTextRoom(shown, last), millisecondsPerText};
    }
    return sum;
}

TEST_F(PageTextTest, TheWalksOfAnOutputGrowWithItsTextAndNotWithItsSquare) {
    const std::pair<double, int64_t> kinds[] = {{0, PageTextShare}, {1e9, PageTextLeastShare}};
    for (const auto& [milliseconds, share] : kinds) {
        for (int64_t length = 1'000'000; length < 50'000'000; length *= 2) {
            EXPECT_LE(Walked(length, milliseconds), static_cast<double>(share * length));
        }
        EXPECT_LT(Walked(100'000'000, milliseconds), 2.2 * Walked(50'000'000, milliseconds));
    }
}

TEST_F(PageTextTest, PartsNeitherALineEndNorASurrogatePair) {
    for (const std::u16string& pair : {std::u16string(u"\r\n"), std::u16string(u"\U0001D7D8")}) {
        Gather(Letters(PageTextFirstRoom - 2));
        EXPECT_EQ(Gather(u"1" + pair), 1);
        EXPECT_EQ(Gather(pair), 0);
        Take();
        EXPECT_EQ(Gather(pair), 2);
        EXPECT_EQ(Take(), pair);
        // One that just fits is taken whole.
        Gather(Letters(PageTextFirstRoom - 2));
        EXPECT_EQ(Gather(pair + u"3"), 2);
        EXPECT_TRUE(Take().ends_with(pair));
    }
    Gather(Letters(PageTextFirstRoom - 2));
    EXPECT_EQ(Gather(u"1\r"), 2) << "whose second character nobody knows yet";
    EXPECT_EQ(Take().back(), u'\r');
}

}  // namespace
}  // namespace tallymere
