#include "layout/soft_breaks.h"

#include <gtest/gtest.h>

#include <string>

#include "support/random_source.h"

namespace tallymere {
namespace {

// A ruler by which so many characters fit.
int64_t CountFitting(void* ruler, std::u16string_view) {
    return *static_cast<int64_t*>(ruler);
}

std::u16string Broken(const std::u16string& text, int64_t fitting, bool goesOn = false) {
    std::u16string broken(text.size() * BrokenPerPlain + 1, u'?');
    broken.resize(
        static_cast<size_t>(InsertSoftBreaks(broken.data(), text, goesOn, CountFitting, &fitting)));
    return broken;
}

std::u16string Plain(std::u16string broken) {
    broken.resize(
        static_cast<size_t>(RemoveSoftBreaks(broken.data(), static_cast<int64_t>(broken.size()))));
    return broken;
}

std::u16string Line(int64_t length, char16_t c = u'7') {
    return std::u16string(static_cast<size_t>(length), c);
}

const std::u16string Break(SoftBreak);

TEST(SoftBreaks, StandInLongLinesOnly) {
    EXPECT_EQ(Broken(u"", 100), u"");
    EXPECT_EQ(Broken(Line(300), 100), Line(300));
    EXPECT_EQ(Broken(Line(301), 100),
              Line(100) + Break + Line(100) + Break + Line(100) + Break + Line(1));
    EXPECT_EQ(Broken(Line(400), 200), Line(200) + Break + Line(200));
    EXPECT_EQ(Broken(Line(400), 1000), Line(400));
}

TEST(SoftBreaks, LeaveTheLinesOfATextAlone) {
    const std::u16string text = Line(300) + u"\r\n" + Line(300) + u"\r\n\r\n";
    EXPECT_EQ(Broken(text, 10), text);
    EXPECT_EQ(Broken(u"1\r\n" + Line(301) + u"\r\n2", 300),
              u"1\r\n" + Line(300) + Break + Line(1) + u"\r\n2");
}

TEST(SoftBreaks, PiecesHaveACharacterAtLeast) {
    const std::u16string broken = Broken(Line(301), 0);
    EXPECT_EQ(broken.size(), 301u + 300u * Break.size());
    EXPECT_EQ(broken.substr(0, 8), u"7\r\r\n7\r\r\n");
}

TEST(SoftBreaks, StandInTheRestOfALongLineHoweverShortItIs) {
    EXPECT_EQ(Broken(Line(150), 100, true), Line(100) + Break + Line(50));
    EXPECT_EQ(Broken(Line(150) + u"\r\n" + Line(150), 100, true),
              Line(100) + Break + Line(50) + u"\r\n" + Line(150))
        << "the next line is one of its own";
    EXPECT_EQ(Broken(u"\r\n" + Line(150), 100, true), u"\r\n" + Line(150));
}

TEST(SoftBreaks, TheLastPieceBeginsBehindTheLastBreakOfEitherKind) {
    const auto expectPiece = [](const std::u16string& text, size_t start, bool goesOn) {
        const LastPiece piece = FindLastPiece(text);
        EXPECT_EQ(piece.start, static_cast<int64_t>(start));
        EXPECT_EQ(piece.goesOn, goesOn);
    };
    expectPiece(u"", 0, false);
    expectPiece(Line(20), 0, false);
    expectPiece(u"1\r\n234", 3, false);
    expectPiece(u"1\r\n", 3, false);
    expectPiece(u"1" + Break + u"234", 4, true);
    expectPiece(u"1" + Break, 4, true);
    expectPiece(u"1" + Break + u"2\r\n3", 7, false);
}

// A text that comes in parts has the soft breaks of the whole one.
TEST(SoftBreaks, StandWhereverTheTextWasParted) {
    testing_support::RandomSource random;
    for (int round = 0; round < 300; round++) {
        const auto fitting = static_cast<int64_t>(random.Below(400)) + 1;
        std::u16string whole;
        std::u16string broken;
        for (int part = 0; part < 12; part++) {
            std::u16string text = Line(static_cast<int64_t>(random.Below(350)));
            if (random.Below(4) == 0) {
                text += u"\r\n";
            }
            whole += text;
            const LastPiece piece = FindLastPiece(broken);
            const auto start = static_cast<size_t>(piece.start);
            broken = broken.substr(0, start) +
                     Broken(broken.substr(start) + text, fitting, piece.goesOn);
            ASSERT_EQ(broken, Broken(whole, fitting)) << fitting;
        }
    }
}

TEST(SoftBreaks, SplitNoPairs) {
    std::u16string text;
    for (int i = 0; i < 200; i++) {
        text += u"\U0001D70B";
    }
    EXPECT_EQ(Broken(text, 201).substr(0, 203), text.substr(0, 200) + Break);
    EXPECT_EQ(Broken(text, 1).substr(0, 10), text.substr(0, 2) + Break + text.substr(2, 2) + Break);
    // A half without its other one is a character like any other.
    EXPECT_EQ(Broken(Line(301, 0xD835), 300), Line(300, 0xD835) + Break + Line(1, 0xD835));
}

TEST(SoftBreaks, GoAgain) {
    EXPECT_EQ(Plain(u"1" + Break + u"2\r\n" + Break + Break), u"12\r\n");
    EXPECT_EQ(Plain(Break), u"");
    EXPECT_EQ(Plain(u"\r\n\r\r1"), u"\r\n\r\r1");
}

TEST(SoftBreaks, DoNotCountInPositions) {
    const std::u16string broken = u"12" + Break + u"34" + Break + u"5";
    const int64_t plain[] = {0, 1, 2, 2, 2, 2, 3, 4, 4, 4, 4, 5};
    for (int64_t i = 0; i < 12; i++) {
        EXPECT_EQ(PlainPosition(broken, i), plain[i]) << i;
    }
    const int64_t positions[] = {0, 1, 5, 6, 10, 11, 11};
    for (int64_t i = 0; i < 7; i++) {
        EXPECT_EQ(BrokenPosition(broken, i), positions[i]) << i;
    }
}

TEST(SoftBreaks, ComeAndGoWithoutATrace) {
    testing_support::RandomSource random;
    for (int round = 0; round < 200; round++) {
        std::u16string text;
        while (random.Below(8) != 0) {
            text += Line(random.Between(0, 899), u'1');
            text += random.Below(2) == 0 ? u"\r\n" : u"\U0001D70B";
        }
        const std::u16string broken = Broken(text, random.Between(0, 399));
        ASSERT_EQ(Plain(broken), text);
        const int64_t position = random.Between(0, static_cast<int64_t>(text.size()));
        ASSERT_EQ(PlainPosition(broken, BrokenPosition(broken, position)), position);
    }
}

}  // namespace
}  // namespace tallymere
