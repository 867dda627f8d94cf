#include "values/value_operations.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "core/complex_number.h"
#include "core/text_flags.h"
#include "support/complex_testing.h"
#include "support/formula_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

constexpr int64_t MinInt64 = INT64_MIN;

uint64_t* Slot(RealBuffer& x) {
    return &x.Get()->header;
}
const uint64_t* Slot(const RealBuffer& x) {
    return &x.Get()->header;
}

class RealValues : public ::testing::Test {
protected:
    FormulaScope scope_;
};

TEST(SizeOfNumber, DependsOnTheNumberType) {
    PrecisionScope scope(25);
    FieldScope<int64_t> width(numberContext.uintLimbs, 5);
    const auto sizeAs = [](NumberType type) {
        FieldScope<NumberType> chosen(numberContext.numberType, type);
        return SizeOfNumber();
    };
    EXPECT_EQ(sizeAs(NumberTypeReal), 24u);
    EXPECT_EQ(sizeAs(NumberTypeComplex), 48u);
    EXPECT_EQ(sizeAs(NumberTypeUint), 40u);
    EXPECT_EQ(sizeAs(NumberTypeRational), 88u);
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    EXPECT_EQ(sizeAs(NumberTypeNone), 0u);
    EXPECT_EQ(TakeCode(), CalcErrorUnknownType);
    EXPECT_EQ(sizeAs(static_cast<NumberType>(3)), 0u);
    EXPECT_EQ(TakeCode(), CalcErrorUnknownType);
}

TEST(RealParts, AreCountedByType) {
    const auto partsAs = [](NumberType type) {
        FieldScope<NumberType> chosen(numberContext.numberType, type);
        return ValueRealParts();
    };
    EXPECT_EQ(partsAs(NumberTypeReal), 1);
    EXPECT_EQ(partsAs(NumberTypeComplex), 2);
    EXPECT_EQ(partsAs(NumberTypeUint), 0);
    EXPECT_EQ(partsAs(NumberTypeRational), 0);
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    EXPECT_EQ(partsAs(NumberTypeNone), 0);
    EXPECT_EQ(TakeCode(), CalcErrorUnknownType);
}

TEST_F(RealValues, AreCopiedWhole) {
    const RealBuffer x("-1.2345678901234567891e-77");
    RealBuffer dest;
    ValueCopy(Slot(dest), Slot(x));
    EXPECT_EQ(dest, x);
    ValueCopy(Slot(dest), Slot(dest));
    EXPECT_EQ(dest, x);
}

TEST_F(RealValues, AreComparedInOrder) {
    const auto compare = [](const char* a, const char* b, bool ignoreSign) {
        return ValueCompare(Slot(RealBuffer(a)), Slot(RealBuffer(b)), ignoreSign);
    };
    EXPECT_EQ(compare("1", "2", false), -1);
    EXPECT_EQ(compare("2", "1", false), 1);
    EXPECT_EQ(compare("-2", "1", false), -1);
    EXPECT_EQ(compare("-2", "1", true), 1);
    EXPECT_EQ(compare("-2", "2", true), 0);
    EXPECT_EQ(compare("0", "-0", false), 0);
}

TEST_F(RealValues, AreComparedWithMachineIntegers) {
    EXPECT_EQ(ValueCompareSmall(Slot(RealBuffer("-3")), -3), 0);
    EXPECT_EQ(ValueCompareSmall(Slot(RealBuffer("-3.1")), -3), -1);
    EXPECT_EQ(ValueCompareSmall(Slot(RealBuffer("0.5")), 0), 1);
    FormulaScope full(38);
    EXPECT_EQ(ValueCompareSmall(Slot(RealBuffer("-9223372036854775808")), MinInt64), 0);
    EXPECT_EQ(ValueCompareSmall(Slot(RealBuffer("-9223372036854775807")), MinInt64), 1);
}

TEST_F(RealValues, AreTestedForZero) {
    EXPECT_TRUE(ValueIsZero(Slot(RealBuffer("0"))));
    EXPECT_TRUE(ValueIsZero(Slot(RealBuffer("-0"))));
    EXPECT_FALSE(ValueIsZero(Slot(RealBuffer("1e-99"))));
    EXPECT_FALSE(ValueIsZero(Slot(RealBuffer("nan"))));
}

TEST_F(RealValues, HaveMagnitudeAndOpposite) {
    RealBuffer dest;
    ValueAbs(Slot(dest), Slot(RealBuffer("-1.5")));
    EXPECT_EQ(dest, RealBuffer("1.5"));
    ValueNegate(Slot(dest), Slot(dest));
    EXPECT_EQ(dest, RealBuffer("-1.5"));
    ValueNegate(Slot(dest), Slot(RealBuffer("0")));
    EXPECT_EQ(dest, RealBuffer("-0"));
    ValueAbs(Slot(dest), Slot(dest));
    EXPECT_EQ(dest, RealBuffer("0"));
}

TEST_F(RealValues, AreDividedByMachineIntegers) {
    RealBuffer dest;
    ValueDivideSmall(Slot(dest), Slot(RealBuffer("-2")), 3);
    EXPECT_EQ(dest, RealBuffer("-0.66666666666666666667")) << "rounded";
    ValueDivideSmall(Slot(dest), Slot(RealBuffer("1")), 0);
    EXPECT_EQ(dest, RealBuffer("inf"));
    EXPECT_EQ(TakeCode(), CalcErrorOverflow);
}

TEST_F(RealValues, AreMadeFromMachineIntegers) {
    RealBuffer dest;
    ValueFromInteger(Slot(dest), MinInt64);
    EXPECT_EQ(dest, RealBuffer("-9223372036854775808"));
    ValueFromUnsigned(Slot(dest), UINT64_MAX);
    EXPECT_EQ(dest, RealBuffer("18446744073709551615"));
    ValueZero(Slot(dest));
    EXPECT_EQ(dest, RealBuffer("0"));
    FormulaScope three(3);
    RealBuffer rounded;
    ValueFromInteger(Slot(rounded), -12350);
    EXPECT_EQ(rounded, RealBuffer("-12400"));
    ValueFromUnsigned(Slot(rounded), 12350);
    EXPECT_EQ(rounded, RealBuffer("12400"));
}

TEST_F(RealValues, AreReadAsSmallMagnitudes) {
    uint64_t out = 7;
    EXPECT_TRUE(ValueToSmall(&out, Slot(RealBuffer("-18446744073709551615"))));
    EXPECT_EQ(out, UINT64_MAX);
    EXPECT_FALSE(ValueToSmall(&out, Slot(RealBuffer("18446744073709551616"))));
    EXPECT_EQ(out, 0u) << "a failure writes 0";
    EXPECT_TRUE(ValueToSmall(&out, Slot(RealBuffer("-0"))));
    for (const char* text : {"0.5", "1e20", "inf", "nan"}) {
        out = 7;
        EXPECT_FALSE(ValueToSmall(&out, Slot(RealBuffer(text)))) << text;
        EXPECT_EQ(out, 0u);
    }
}

TEST_F(RealValues, AreReadAsSignedIntegers) {
    int64_t out = 7;
    EXPECT_TRUE(ValueToSigned(&out, Slot(RealBuffer("-9223372036854775808"))));
    EXPECT_EQ(out, MinInt64);
    EXPECT_TRUE(ValueToSigned(&out, Slot(RealBuffer("9223372036854775807"))));
    EXPECT_EQ(out, INT64_MAX);
    for (const char* text : {"9223372036854775808", "-9223372036854775809", "-0.5", "inf", "nan"}) {
        out = 7;
        EXPECT_FALSE(ValueToSigned(&out, Slot(RealBuffer(text)))) << text;
        EXPECT_EQ(out, 0);
    }
}

TEST_F(RealValues, AreWrittenAsText) {
    const RealBuffer x("-1234567.25");
    char16_t text[64];
    EXPECT_EQ(ValueToText(text, 64, Slot(x), 0), 11);
    EXPECT_EQ(std::u16string(text), u"-1234567.25");
    EXPECT_EQ(ValueToText(text, 64, Slot(x), TextGroup), 13);
    EXPECT_EQ(std::u16string(text), u"-1'234'567.25");
    std::fill_n(text, 64, u'#');
    EXPECT_EQ(ValueToText(text, 64, Slot(RealBuffer("-1.2345678901234567891")), TextNoTerminator),
              22);
    EXPECT_EQ(std::u16string(text, 23), u"-1.2345678901234567891#");
}

TEST_F(RealValues, ThatDoNotFitAreWrittenAsAMark) {
    const RealBuffer x("-1.2345678901234567891");
    char16_t text[32];
    EXPECT_EQ(ValueToText(text, 22, Slot(x), 0), 22);
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    EXPECT_EQ(ValueToText(text, 21, Slot(x), 0), 3);
    EXPECT_EQ(std::u16string(text), u"[$]");
    EXPECT_EQ(TakeCode(), CalcErrorTextTooLong);
}

TEST_F(RealValues, TellHowMuchRoomTheyNeed) {
    const int64_t capacity = ValueToText(nullptr, 0, nullptr, TextGroup);
    std::vector<char16_t> text(static_cast<size_t>(capacity) + 1);
    const RealBuffer x("-1.2345678901234567891e-4611686018427387903");
    EXPECT_LE(ValueToText(text.data(), capacity, Slot(x), TextGroup | TextScientific), capacity);
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

TEST_F(RealValues, HavePi) {
    RealBuffer dest;
    ValuePi(Slot(dest));
    EXPECT_EQ(dest, RealBuffer("3.1415926535897932385"));
}

class ComplexValues : public ::testing::Test {
protected:
    static ComplexBuffer Make(std::string_view realPart, std::string_view imaginaryPart) {
        return {RealBuffer(realPart), RealBuffer(imaginaryPart)};
    }

    FormulaScope scope_{20, NumberTypeComplex};
    ComplexBuffer dest_;
};

TEST_F(ComplexValues, AreComparedWhereTheyAreReal) {
    const auto compare = [](const ComplexBuffer& a, const ComplexBuffer& b, bool ignoreSign) {
        return ValueCompare(a.Words(), b.Words(), ignoreSign);
    };
    EXPECT_EQ(compare(Make("1", "0"), Make("2", "-0"), false), -1);
    EXPECT_EQ(compare(Make("-2", "0"), Make("1", "0"), true), 1);
    EXPECT_EQ(compare(Make("1", "2"), Make("1", "2"), false), 0) << "equality needs no order";
    EXPECT_EQ(compare(Make("1", "2"), Make("1", "3"), false), 1);
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    EXPECT_EQ(compare(Make("1", "1"), Make("1", "1"), true), 1);
    EXPECT_EQ(TakeCode(), CalcErrorComplexNotAllowed);
}

TEST_F(ComplexValues, AreComparedWithMachineIntegers) {
    EXPECT_EQ(ValueCompareSmall(Make("-3", "0").Words(), -3), 0);
    EXPECT_EQ(ValueCompareSmall(Make("-3.5", "-0").Words(), -3), -1);
    EXPECT_EQ(ValueCompareSmall(Make("-7", "1").Words(), 5), 1) << "not real";
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

TEST_F(ComplexValues, AreTestedForZeroInBothParts) {
    EXPECT_TRUE(ValueIsZero(Make("0", "-0").Words()));
    EXPECT_FALSE(ValueIsZero(Make("0", "1e-99").Words()));
    EXPECT_FALSE(ValueIsZero(Make("1", "0").Words()));
}

TEST_F(ComplexValues, HaveModulusAndOpposite) {
    ValueAbs(dest_.Words(), Make("3", "-4").Words());
    EXPECT_EQ(dest_, Make("5", "0"));
    ValueAbs(dest_.Words(), Make("-3", "0").Words());
    EXPECT_EQ(dest_, Make("3", "0"));
    ValueNegate(dest_.Words(), Make("3", "-4").Words());
    EXPECT_EQ(dest_, Make("-3", "4"));
    ValueNegate(dest_.Words(), dest_.Words());
    EXPECT_EQ(dest_, Make("3", "-4"));
    ValueNegate(dest_.Words(), Make("0", "0").Words());
    EXPECT_EQ(dest_, Make("-0", "-0"));
}

TEST_F(ComplexValues, AreDividedByMachineIntegersPartByPart) {
    ValueDivideSmall(dest_.Words(), Make("-2", "1").Words(), 3);
    EXPECT_EQ(dest_, Make("-0.66666666666666666667", "0.33333333333333333333"));
    ValueDivideSmall(dest_.Words(), Make("-2", "-0").Words(), 3);
    EXPECT_EQ(dest_, Make("-0.66666666666666666667", "0"));
    ValueDivideSmall(dest_.Words(), Make("1", "0").Words(), 0);
    EXPECT_EQ(dest_, Make("inf", "0"));
    EXPECT_EQ(TakeCode(), CalcErrorOverflow);
    ValueDivideSmall(dest_.Words(), Make("0", "-1").Words(), 0);
    EXPECT_EQ(dest_, Make("nan", "-inf"));
    EXPECT_EQ(TakeCode(), CalcErrorUndefined);
}

// Each in a slot that holds another value.
TEST_F(ComplexValues, AreMadeFromMachineIntegers) {
    const ComplexBuffer stale = Make("7", "-1");
    dest_ = stale;
    ValueFromInteger(dest_.Words(), MinInt64);
    EXPECT_EQ(dest_, Make("-9223372036854775808", "0"));
    dest_ = stale;
    ValueFromUnsigned(dest_.Words(), UINT64_MAX);
    EXPECT_EQ(dest_, Make("18446744073709551615", "0"));
    dest_ = stale;
    ValueZero(dest_.Words());
    EXPECT_EQ(dest_, Make("0", "0"));
    dest_ = stale;
    ValuePi(dest_.Words());
    EXPECT_EQ(dest_, Make("3.1415926535897932385", "0"));
    dest_ = stale;
    ValueSetInvalid(dest_.Words());
    EXPECT_EQ(dest_, Make("nan", "0"));
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    FormulaScope three(3, NumberTypeComplex);
    ComplexBuffer rounded;
    ValueFromInteger(rounded.Words(), -12350);
    EXPECT_EQ(rounded, Make("-12400", "0"));
    ValueFromUnsigned(rounded.Words(), 12350);
    EXPECT_EQ(rounded, Make("12400", "0"));
}

TEST_F(ComplexValues, AreReadAsMachineIntegersWhereTheyAreReal) {
    uint64_t small = 7;
    EXPECT_TRUE(ValueToSmall(&small, Make("-18446744073709551615", "-0").Words()));
    EXPECT_EQ(small, UINT64_MAX);
    EXPECT_FALSE(ValueToSmall(&small, Make("5", "1").Words()));
    EXPECT_EQ(small, 0u);
    int64_t integer = 7;
    EXPECT_TRUE(ValueToSigned(&integer, Make("-9223372036854775808", "0").Words()));
    EXPECT_EQ(integer, MinInt64);
    EXPECT_FALSE(ValueToSigned(&integer, Make("5", "1").Words()));
    EXPECT_EQ(integer, 0);
    integer = 7;
    EXPECT_FALSE(ValueToSigned(&integer, Make("0.5", "0").Words()));
    EXPECT_EQ(integer, 0);
}

TEST_F(ComplexValues, AreWrittenAsText) {
    char16_t text[64];
    EXPECT_EQ(ValueToText(text, 64, Make("1.5", "-2e20").Words(), 0), 12);
    EXPECT_EQ(std::u16string(text), u"1.5-(2e+20)i");
    EXPECT_EQ(ValueToText(text, 5, Make("1.5", "-2e20").Words(), 0), 3);
    EXPECT_EQ(std::u16string(text), u"[$]");
    EXPECT_EQ(TakeCode(), CalcErrorTextTooLong);
}

TEST(ValuesOfAnyType, AreCopiedAndCleared) {
    FieldScope<int64_t> limbs(numberContext.uintLimbs, 3);
    for (const NumberType type : {NumberTypeComplex, NumberTypeUint, NumberTypeRational}) {
        FormulaScope scope(20, type);
        const size_t words = SizeOfNumber() / 8;
        std::vector<uint64_t> source(words + 1);
        for (size_t i = 0; i <= words; i++) {
            source[i] = i + 1;
        }
        std::vector<uint64_t> dest(words + 1, 99);
        ValueCopy(dest.data(), source.data());
        source[words] = 99;
        EXPECT_EQ(dest, source);
        ValueZero(dest.data());
        EXPECT_EQ(dest[words], 99u);
        dest.pop_back();
        if (type == NumberTypeUint) {
            EXPECT_EQ(dest, (std::vector<uint64_t>{0, 0, 0}));
        } else if (type == NumberTypeRational) {
            EXPECT_EQ(dest, (std::vector<uint64_t>{0, 0, 0, 0, 1, 0, 0})) << "0/1";
        } else {
            EXPECT_EQ(PlainText(RealAt(dest.data())), "0");
            EXPECT_EQ(PlainText(RealAt(dest.data() + RealWords())), "0");
        }
    }
}

TEST(ValuesOfNoType, HaveNoOperations) {
    FormulaScope scope(20, NumberTypeNone);
    uint64_t word = 9;
    const auto expectUnavailable = [&] {
        EXPECT_EQ(TakeCode(), CalcErrorUnknownType);
        EXPECT_EQ(word, 9u) << "a value has no words";
    };
    ValueZero(&word);
    expectUnavailable();
    ValueAbs(&word, &word);
    expectUnavailable();
    ValueNegate(&word, &word);
    expectUnavailable();
    ValueDivideSmall(&word, &word, 2);
    expectUnavailable();
    ValueFromInteger(&word, 2);
    expectUnavailable();
    ValueFromUnsigned(&word, 2);
    expectUnavailable();
    ValuePi(&word);
    expectUnavailable();
    EXPECT_EQ(ValueCompare(&word, &word, false), 1);
    expectUnavailable();
    EXPECT_EQ(ValueCompareSmall(&word, 0), 1);
    expectUnavailable();
    EXPECT_FALSE(ValueIsZero(&word));
    expectUnavailable();
    uint64_t small = 7;
    EXPECT_FALSE(ValueToSmall(&small, &word));
    EXPECT_EQ(small, 0u);
    expectUnavailable();
    int64_t integer = 7;
    EXPECT_FALSE(ValueToSigned(&integer, &word));
    EXPECT_EQ(integer, 0);
    expectUnavailable();
    char16_t text[8] = {u'#'};
    EXPECT_EQ(ValueToText(text, 8, &word, 0), 0);
    EXPECT_EQ(text[0], u'\0');
    expectUnavailable();
}

}  // namespace
}  // namespace tallymere
