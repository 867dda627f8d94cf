#include "core/number_text.h"

#include <gtest/gtest.h>

#include <string>

#include "core/real_text.h"
#include "support/decimal_text.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

constexpr NumberType TypesWithoutText[] = {NumberTypeNone, static_cast<NumberType>(3),
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
    EXPECT_EQ(WriteNumber("1.5e3", 100, TextGroup | TextNeutral), "1'500");
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
    for (NumberType unknown : TypesWithoutText) {
        FieldScope type(numberContext.numberType, unknown);
        EXPECT_EQ(WriteNumber("1", 10, 0), " code 102");
        EXPECT_EQ(WriteNumber("1", 0, 0), " code 102");
        EXPECT_EQ(NumberToText(nullptr, 0, nullptr, 0), 0);
        EXPECT_EQ(TakeCode(), CalcErrorUnknownType);
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

TEST(NumberRoundDigits, LeavesTheDestinationAloneForAnUnknownType) {
    PrecisionScope scope(20);
    for (NumberType unknown : TypesWithoutText) {
        FieldScope type(numberContext.numberType, unknown);
        const RealBuffer x("1");
        RealBuffer dest("7");
        NumberRoundDigits(&dest.Get()->header, &x.Get()->header, 1);
        EXPECT_EQ(TakeCode(), CalcErrorUnknownType);
        EXPECT_EQ(dest, RealBuffer("7"));
    }
}

}  // namespace
}  // namespace tallymere
