#include "core/digit_walk.h"

#include <gtest/gtest.h>

#include <string>

#include "core/text_flags.h"
#include "support/decimal_text.h"

namespace tallymere {
namespace {

using namespace testing_support;

NumberScanner Scanner(std::u16string_view text) {
    return MakeNumberScanner(text.data(), static_cast<int64_t>(text.size()),
                             TextGroup | TextPlainSeparators, 10);
}

DigitWalk Walk(std::u16string_view text) {
    return MakeDigitWalk(Scanner(text), 0, static_cast<int64_t>(text.size()));
}

TEST(DigitWalk, TakesDigitsAcrossSeparators) {
    DigitWalk walk = Walk(u"1'2.3'45");
    DigitRun run = TakeDigits(walk, 4);
    EXPECT_EQ(run.value, 1234u);
    EXPECT_EQ(run.count, 4);
    EXPECT_TRUE(walk.separatorSeen);
    EXPECT_EQ(walk.exponent, 1);
    run = TakeDigits(walk, 19);
    EXPECT_EQ(run.value, 5u);
    EXPECT_EQ(run.count, 1);
    EXPECT_EQ(TakeDigits(walk, 19).count, 0);
    EXPECT_EQ(walk.seen, 5);
}

TEST(DigitWalk, CountsFromTheFirstDigitThatIsNotZero) {
    DigitWalk walk = Walk(u"0'0.0'07");
    SkipLeadingZeros(walk);
    EXPECT_EQ(walk.seen, 0);
    EXPECT_EQ(walk.exponent, -3);
    EXPECT_EQ(TakeDigits(walk, 19).value, 7u);
    EXPECT_EQ(walk.seen, 1);
}

TEST(DigitWalk, TakesNineteenNines) {
    DigitWalk walk = Walk(u"99999999999999999999");
    const DigitRun run = TakeDigits(walk, 19);
    EXPECT_EQ(run.value, 9'999'999'999'999'999'999u);
    EXPECT_EQ(run.count, 19);
    EXPECT_EQ(PassRun(walk, 19), 1);
    EXPECT_FALSE(MoveToDigit(walk));
}

// "sign magnitude" of what stands behind an exponent mark, or "none".
std::string Exponent(std::u16string_view text) {
    NumberScanner scanner = Scanner(text);
    WrittenExponent exponent;
    if (!ReadWrittenExponent(scanner, &exponent)) {
        return "none";
    }
    return (exponent.negative ? "- " : "+ ") + std::to_string(exponent.magnitude);
}

TEST(WrittenExponent, HasAnOptionalSignAndDigits) {
    EXPECT_EQ(Exponent(u"12"), "+ 12");
    EXPECT_EQ(Exponent(u"+12"), "+ 12");
    EXPECT_EQ(Exponent(u"-12"), "- 12");
    EXPECT_EQ(Exponent(u"-0"), "- 0");
    EXPECT_EQ(Exponent(u"1'2"), "+ 12");
    EXPECT_EQ(Exponent(u"12x"), "+ 12");
    for (std::u16string_view text : {u"", u"+", u"--1", u"1.5", u"x", u"+ 1"}) {
        EXPECT_EQ(Exponent(text), "none") << NarrowText(text);
    }
}

TEST(WrittenExponent, StopsAt2ToThe64) {
    EXPECT_EQ(Exponent(u"9999999999999999999"), "+ 9999999999999999999");
    EXPECT_EQ(Exponent(u"00000000000000000000000001"), "+ 1");
    EXPECT_EQ(Exponent(u"10000000000000000000"), "+ 18446744073709551615");
    EXPECT_EQ(Exponent(u"-100000000000000000000000000000000000"), "- 18446744073709551615");
}

}  // namespace
}  // namespace tallymere
