#include "values/number_text.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "core/real_text.h"
#include "exact/big_uint_text.h"
#include "support/decimal_text.h"
#include "support/exact_testing.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

constexpr NumberType UnknownTypes[] = {NumberTypeNone, static_cast<NumberType>(3),
                                       static_cast<NumberType>(99)};

// What NumberToText leaves in a buffer of capacity + 1 characters that was full of "#".
std::string WriteNumber(std::string_view plain, int64_t capacity, uint32_t flags) {
    const RealBuffer x(plain);
    std::u16string buffer(static_cast<size_t>(capacity) + 2, u'#');
    const int64_t length = NumberToText(buffer.data(), capacity, &x.Get()->header, flags);
    EXPECT_EQ(buffer.back(), u'#');
    EXPECT_EQ(buffer[static_cast<size_t>(length)] == u'\0', (flags & TextNoTerminator) == 0);
    const CalcError code = TakeCode();
    return NarrowText({buffer.data(), static_cast<size_t>(length)}) +
           (code == CalcErrorNone ? "" : " code " + std::to_string(code));
}

TEST(NumberToText, WritesARealNumberAndReturnsTheLength) {
    PrecisionScope scope(16);
    FieldScope type(numberContext.numberType, NumberTypeReal);
    EXPECT_EQ(WriteNumber("-1.5", 100, 0), "-1.5");
    EXPECT_EQ(WriteNumber("-1.5", 100, TextNoTerminator), "-1.5");
    EXPECT_EQ(WriteNumber("1.5e3", 100, TextGroup | TextPlainSeparators), "1'500");
    EXPECT_EQ(WriteNumber("nan", 100, 0), "NaN");
    EXPECT_EQ(WriteNumber("5", 100, 2), "[P] code 100");
}

TEST(NumberToText, EndsATextThatDoesNotFitWithTheMarkForIt) {
    PrecisionScope scope(5);
    FieldScope type(numberContext.numberType, NumberTypeReal);
    for (uint32_t flags : {uint32_t{TextFixed}, TextFixed | TextNoTerminator}) {
        EXPECT_EQ(WriteNumber("123.45", 6, flags), "123.45");
        EXPECT_EQ(WriteNumber("123.45", 5, flags), "[$] code 300");
        EXPECT_EQ(WriteNumber("123.45", 3, flags), "[$] code 300");
        EXPECT_EQ(WriteNumber("123.45", 2, flags), " code 300");
        EXPECT_EQ(WriteNumber("123.45", 1, flags), " code 300");
        EXPECT_EQ(WriteNumber("123.45", 0, flags), " code 300");
        EXPECT_EQ(WriteNumber("1e4611686018427387903", 88'661, flags), "[$] code 300");
    }
}

TEST(NumberToText, TellsTheCapacityWhenThereIsNoBuffer) {
    PrecisionScope scope(100);
    FieldScope type(numberContext.numberType, NumberTypeReal);
    const RealBuffer x("1");
    EXPECT_EQ(NumberToText(nullptr, 0, &x.Get()->header, 0), RealTextCapacity(0));
    EXPECT_EQ(NumberToText(nullptr, 5, &x.Get()->header, TextGroup), RealTextCapacity(TextGroup));
}

TEST(NumberToText, HasNoTextForAnUnknownType) {
    PrecisionScope scope(16);
    for (NumberType unknown : UnknownTypes) {
        FieldScope type(numberContext.numberType, unknown);
        EXPECT_EQ(WriteNumber("1", 10, 0), " code 102");
        EXPECT_EQ(WriteNumber("1", 0, 0), " code 102");
        EXPECT_EQ(NumberToText(nullptr, 0, nullptr, 0), 0);
        EXPECT_EQ(TakeCode(), CalcErrorUnknownType);
    }
}

// What NumberToText leaves of the words of an exact number, as WriteNumber.
std::string WriteExact(const std::vector<uint64_t>& words, int64_t capacity, uint32_t flags) {
    std::u16string buffer(static_cast<size_t>(capacity) + 2, u'#');
    const int64_t length = NumberToText(buffer.data(), capacity, words.data(), flags);
    EXPECT_EQ(buffer.back(), u'#');
    EXPECT_EQ(buffer[static_cast<size_t>(length)] == u'\0', (flags & TextNoTerminator) == 0);
    const CalcError code = TakeCode();
    return NarrowText({buffer.data(), static_cast<size_t>(length)}) +
           (code == CalcErrorNone ? "" : " code " + std::to_string(code));
}

TEST(NumberToText, WritesAnIntegerInFourBases) {
    WidthScope scope(2);
    FieldScope type(numberContext.numberType, NumberTypeUint);
    EXPECT_EQ(WriteExact({0, 0}, 100, 0), "0");
    EXPECT_EQ(WriteExact({0, 1}, 100, 0), "18446744073709551616");
    EXPECT_EQ(WriteExact({1'234'567, 0}, 100, TextGroup | TextPlainSeparators), "1'234'567");
    EXPECT_EQ(WriteExact({0xABCDE, 0}, 100, 16), "ABCDE");
    EXPECT_EQ(WriteExact({0xABCDE, 0}, 100, 16 | TextLowerHex | TextGroup | TextNoTerminator),
              "a'bcde");
    EXPECT_EQ(WriteExact({8, 0}, 100, 8), "10");
    EXPECT_EQ(WriteExact({5, 0}, 100, 2), "101");
    EXPECT_EQ(WriteExact({5, 0}, 100, 3), "[P] code 100");
    EXPECT_EQ(WriteExact({1'500, 0}, 100, TextScientific | TextStripZeros), "1.5e+3");
}

TEST(NumberToText, WritesAFraction) {
    WidthScope scope(2);
    FieldScope type(numberContext.numberType, NumberTypeRational);
    EXPECT_EQ(WriteExact({1, 3, 0, 4, 0}, 100, 0), "-3/4");
    EXPECT_EQ(WriteExact({0, 1'234, 0, 56'789, 0}, 100, TextGroup | TextNoTerminator),
              "1'234/56'789");
    EXPECT_EQ(WriteExact({0, 5, 0, 1, 0}, 100, TextAlwaysSign), "+5");
    EXPECT_EQ(WriteExact({1, 0, 0, 1, 0}, 100, 0), "0");
    EXPECT_EQ(WriteExact({0, 5, 0, 0, 0}, 100, 0), "[?] code 204") << "damaged";
}

TEST(NumberToText, EndsAnExactTextThatDoesNotFitWithTheMarkForIt) {
    WidthScope scope(1);
    for (const auto& [type, words] :
         {std::pair{NumberTypeUint, std::vector<uint64_t>{12'345}},
          std::pair{NumberTypeRational, std::vector<uint64_t>{1, 12, 5}}}) {
        FieldScope typeScope(numberContext.numberType, type);
        const std::string whole = type == NumberTypeUint ? "12345" : "-12/5";
        EXPECT_EQ(WriteExact(words, 5, 0), whole);
        EXPECT_EQ(WriteExact(words, 5, TextNoTerminator), whole);
        EXPECT_EQ(WriteExact(words, 4, 0), "[$] code 300");
        EXPECT_EQ(WriteExact(words, 3, 0), "[$] code 300");
        EXPECT_EQ(WriteExact(words, 2, 0), " code 300");
        EXPECT_EQ(WriteExact(words, 0, 0), " code 300");
    }
}

TEST(NumberToText, TellsTheCapacityOfExactTexts) {
    WidthScope scope(2);
    FieldScope type(numberContext.numberType, NumberTypeUint);
    for (const uint32_t flags : {0u, 2u, 8u, 16u, uint32_t{TextGroup}, 2u | TextGroup}) {
        const int64_t capacity = NumberToText(nullptr, 0, nullptr, flags);
        EXPECT_EQ(capacity, BigUintTextLength(flags));
        const std::string longest = WriteExact({UINT64_MAX, UINT64_MAX}, capacity, flags);
        EXPECT_EQ(longest.find('['), std::string::npos) << longest;
        numberContext.numberType = NumberTypeRational;
        EXPECT_EQ(NumberToText(nullptr, 0, nullptr, flags), 2 * capacity + 2);
        numberContext.numberType = NumberTypeUint;
    }
}

TEST(NumberRoundDigits, RoundsARealNumberAndCopiesSpecialValues) {
    PrecisionScope scope(19);
    FieldScope type(numberContext.numberType, NumberTypeReal);
    auto round = [](std::string_view plain, int64_t digits) {
        const RealBuffer x(plain);
        RealBuffer rounded;
        NumberRoundDigits(&rounded.Get()->header, &x.Get()->header, digits);
        const CalcError code = TakeCode();
        return PlainText(rounded) + (code == CalcErrorNone ? "" : " code " + std::to_string(code));
    };
    EXPECT_EQ(round("1.2345", 4), "1.235e0");
    EXPECT_EQ(round("-9.96e5", 2), "-1e6");
    EXPECT_EQ(round("1.2345", 20), "1.2345e0");
    EXPECT_EQ(round("1.2345", 1'000), "1.2345e0");
    for (std::string special : {"0", "-0", "inf", "-inf", "nan"}) {
        EXPECT_EQ(round(special, 1), special);
    }
    EXPECT_EQ(round("1.2345", 0), "nan code 203");
    EXPECT_EQ(round("1.2345", -5), "nan code 203");
    EXPECT_EQ(round("inf", 0), "nan code 203");
}

TEST(NumberRoundDigits, LeavesTheDestinationAloneForATypeWithoutDigits) {
    PrecisionScope scope(20);
    for (NumberType type : {NumberTypeUint, NumberTypeRational, NumberTypeNone,
                            static_cast<NumberType>(3), static_cast<NumberType>(99)}) {
        FieldScope typeScope(numberContext.numberType, type);
        const RealBuffer x("1");
        RealBuffer dest("7");
        NumberRoundDigits(&dest.Get()->header, &x.Get()->header, 1);
        EXPECT_EQ(TakeCode(), CalcErrorUnknownType);
        EXPECT_EQ(dest, RealBuffer("7"));
    }
}

}  // namespace
}  // namespace tallymere
