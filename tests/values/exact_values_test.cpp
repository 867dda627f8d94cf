// The operations of value_operations.h in the number types uint and rat.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "core/text_flags.h"
#include "exact/big_uint_text.h"
#include "support/exact_testing.h"
#include "support/formula_testing.h"
#include "values/value_operations.h"

namespace tallymere {
namespace {

using namespace testing_support;

constexpr int64_t MinInt64 = INT64_MIN;

class ExactValues : public ::testing::Test {
protected:
    static int Compare(const char* a, const char* b, bool ignoreSign = false) {
        return ValueCompare(ExactWords(a).data(), ExactWords(b).data(), ignoreSign);
    }
    static int CompareSmall(const char* a, int64_t k) {
        return ValueCompareSmall(ExactWords(a).data(), k);
    }
    static bool IsZero(const char* a) { return ValueIsZero(ExactWords(a).data()); }

    // What an operation makes of a value, with the code behind it if there is one; the same in
    // place.
    template <typename Operation>
    static std::string Result(Operation operation, const char* a) {
        std::vector<uint64_t> inPlace = ExactWords(a);
        const std::vector<uint64_t> source = inPlace;
        std::vector<uint64_t> dest(source.size(), 99);
        operation(dest.data(), source.data());
        const CalcError code = TakeCode();
        operation(inPlace.data(), inPlace.data());
        EXPECT_EQ(TakeCode(), code);
        EXPECT_EQ(dest, inPlace);
        return ValueText(dest.data()) +
               (code == CalcErrorNone ? "" : " code " + std::to_string(code));
    }

    template <typename Operation, typename... Arguments>
    static std::string Made(Operation operation, Arguments... arguments) {
        std::vector<uint64_t> dest(SizeOfNumber() / 8, 99);
        operation(dest.data(), arguments...);
        const CalcError code = TakeCode();
        return ValueText(dest.data()) +
               (code == CalcErrorNone ? "" : " code " + std::to_string(code));
    }

    static std::string Small(const char* a) {
        uint64_t out = 7;
        const bool fits = ValueToSmall(&out, ExactWords(a).data());
        EXPECT_TRUE(fits || out == 0) << "a failure writes 0";
        return fits ? std::to_string(out) : "none";
    }
    static std::string Signed(const char* a) {
        int64_t out = 7;
        const bool fits = ValueToSigned(&out, ExactWords(a).data());
        EXPECT_TRUE(fits || out == 0) << "a failure writes 0";
        return fits ? std::to_string(out) : "none";
    }

    static std::string Text(const char* a, uint32_t flags, int64_t capacity = 99) {
        std::vector<char16_t> text(static_cast<size_t>(capacity) + 1, u'#');
        const int64_t length = ValueToText(text.data(), capacity, ExactWords(a).data(), flags);
        const CalcError code = TakeCode();
        return std::string(text.begin(), text.begin() + length) +
               (code == CalcErrorNone ? "" : " code " + std::to_string(code));
    }
};

class UintValues : public ExactValues {
protected:
    FormulaScope scope_{NumberTypeUint, 3};
};

TEST_F(UintValues, AreComparedFromTheTop) {
    EXPECT_EQ(Compare("1", "2"), -1);
    EXPECT_EQ(Compare("2", "2"), 0);
    EXPECT_EQ(Compare("2^128", "2^64-1"), 1);
    EXPECT_EQ(Compare("2^128", "2^128+1", true), -1);
}

TEST_F(UintValues, AreComparedWithMachineIntegers) {
    EXPECT_EQ(CompareSmall("5", 4), 1);
    EXPECT_EQ(CompareSmall("5", 5), 0);
    EXPECT_EQ(CompareSmall("5", 6), -1);
    EXPECT_EQ(CompareSmall("0", 0), 0);
    EXPECT_EQ(CompareSmall("2^63-1", INT64_MAX), 0);
    EXPECT_EQ(CompareSmall("2^63", INT64_MAX), 1);
    EXPECT_EQ(CompareSmall("2^64+5", 5), 1);
    for (const int64_t k : {int64_t{-1}, int64_t{-5}, MinInt64}) {
        EXPECT_EQ(CompareSmall("0", k), 1) << k;
        EXPECT_EQ(CompareSmall("5", k), 1) << k;
        EXPECT_EQ(CompareSmall("2^64-1", k), 1) << k;
        EXPECT_EQ(CompareSmall("2^63", k), 1) << k;
    }
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

TEST_F(UintValues, AreTestedForZero) {
    EXPECT_TRUE(IsZero("0"));
    EXPECT_FALSE(IsZero("1"));
    EXPECT_FALSE(IsZero("2^128"));
}

TEST_F(UintValues, AreTheirOwnMagnitudeAndHaveNoOpposite) {
    EXPECT_EQ(Result(ValueAbs, "2^128"), UintBuffer("2^128").Text());
    EXPECT_EQ(Result(ValueNegate, "5"), "0 code 102");
    EXPECT_EQ(Result(ValueNegate, "0"), "0 code 102");
    EXPECT_EQ(Result([](uint64_t* dest, const uint64_t* a) { ValueDivideSmall(dest, a, 2); }, "6"),
              "0 code 102");
}

TEST_F(UintValues, AreMadeFromMachineIntegers) {
    EXPECT_EQ(Made(ValueFromInteger, INT64_MAX), "9223372036854775807");
    EXPECT_EQ(Made(ValueFromInteger, int64_t{0}), "0");
    EXPECT_EQ(Made(ValueFromInteger, int64_t{-1}), "0 code 203");
    EXPECT_EQ(Made(ValueFromInteger, MinInt64), "0 code 203");
    EXPECT_EQ(Made(ValueFromUnsigned, UINT64_MAX), "18446744073709551615");
    EXPECT_EQ(Made(ValueZero), "0");
    EXPECT_EQ(Made(ValueSetInvalid), "0");
    EXPECT_EQ(Made(ValueSetUnavailable), "0 code 102");
    EXPECT_EQ(Made(ValuePi), "0 code 102");
}

TEST_F(UintValues, AreReadAsMachineIntegers) {
    EXPECT_EQ(Small("0"), "0");
    EXPECT_EQ(Small("2^64-1"), "18446744073709551615");
    EXPECT_EQ(Small("2^64"), "none");
    EXPECT_EQ(Small("2^128+1"), "none");
    EXPECT_EQ(Signed("0"), "0");
    EXPECT_EQ(Signed("2^63-1"), "9223372036854775807");
    EXPECT_EQ(Signed("2^63"), "none");
    EXPECT_EQ(Signed("2^128+1"), "none");
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

TEST_F(UintValues, AreWrittenAsTextInFourBases) {
    EXPECT_EQ(Text("1234567", 0), "1234567");
    EXPECT_EQ(Text("1234567", TextGroup), "1'234'567");
    EXPECT_EQ(Text("255", 16), "FF");
    EXPECT_EQ(Text("255", 16 | TextLowerHex), "ff");
    EXPECT_EQ(Text("255", 2 | TextGroup), "1111'1111");
    EXPECT_EQ(Text("255", 8), "377");
    EXPECT_EQ(Text("255", 0, 3), "255");
    EXPECT_EQ(Text("1234", 0, 3), "[$] code 300");
    EXPECT_EQ(ValueToText(nullptr, 0, nullptr, TextGroup), BigUintTextLength(TextGroup));
}

class RationalValues : public ExactValues {
protected:
    FormulaScope scope_{NumberTypeRational, 3};
};

TEST_F(RationalValues, AreComparedInOrder) {
    EXPECT_EQ(Compare("1/3", "1/2"), -1);
    EXPECT_EQ(Compare("-1/3", "-1/2"), 1);
    EXPECT_EQ(Compare("-5", "1/2"), -1);
    EXPECT_EQ(Compare("-5", "1/2", true), 1);
    EXPECT_EQ(Compare("-1/2", "1/2", true), 0);
    EXPECT_EQ(Compare("0", "-0"), 0);
}

TEST_F(RationalValues, AreComparedWithMachineIntegers) {
    EXPECT_EQ(CompareSmall("7/2", 3), 1);
    EXPECT_EQ(CompareSmall("7/2", 4), -1);
    EXPECT_EQ(CompareSmall("-7/2", -3), -1);
    EXPECT_EQ(CompareSmall("-7/2", -4), 1);
    EXPECT_EQ(CompareSmall("-7/2", 3), -1);
    EXPECT_EQ(CompareSmall("7/2", -4), 1);
    EXPECT_EQ(CompareSmall("-3", -3), 0);
    EXPECT_EQ(CompareSmall("-0", 0), 0);
    EXPECT_EQ(CompareSmall("-9223372036854775808", MinInt64), 0);
    EXPECT_EQ(CompareSmall("-9223372036854775809", MinInt64), -1);
}

TEST_F(RationalValues, AreTestedForZero) {
    EXPECT_TRUE(IsZero("0"));
    EXPECT_TRUE(IsZero("-0"));
    EXPECT_FALSE(IsZero("1/2"));
}

TEST_F(RationalValues, HaveMagnitudeAndOpposite) {
    EXPECT_EQ(Result(ValueAbs, "-7/2"), "7/2");
    EXPECT_EQ(Result(ValueAbs, "7/2"), "7/2");
    EXPECT_EQ(Result(ValueNegate, "-7/2"), "7/2");
    EXPECT_EQ(Result(ValueNegate, "7/2"), "-7/2");
    EXPECT_EQ(Result(ValueNegate, "0"), "-0");
}

TEST_F(RationalValues, AreDividedByMachineIntegers) {
    const auto divide = [](uint64_t k) {
        return [k](uint64_t* dest, const uint64_t* a) { ValueDivideSmall(dest, a, k); };
    };
    EXPECT_EQ(Result(divide(6), "-9/2"), "-3/4");
    EXPECT_EQ(Result(divide(UINT64_MAX), "1"), "1/18446744073709551615");
    EXPECT_EQ(Result(divide(0), "0"), "0");
    EXPECT_EQ(Result(divide(0), "1"), "0 code 202");
}

TEST_F(RationalValues, AreMadeFromMachineIntegers) {
    EXPECT_EQ(Made(ValueFromInteger, MinInt64), "-9223372036854775808");
    EXPECT_EQ(Made(ValueFromInteger, int64_t{5}), "5");
    EXPECT_EQ(Made(ValueFromUnsigned, UINT64_MAX), "18446744073709551615");
    EXPECT_EQ(Made(ValueZero), "0");
    EXPECT_EQ(Made(ValueSetInvalid), "0");
    EXPECT_EQ(Made(ValueSetUnavailable), "0 code 102");
    EXPECT_EQ(Made(ValuePi), "0 code 102");
}

TEST_F(RationalValues, AreReadAsMachineIntegers) {
    EXPECT_EQ(Small("-18446744073709551615"), "18446744073709551615");
    EXPECT_EQ(Small("2^64"), "none");
    EXPECT_EQ(Small("1/2"), "none");
    EXPECT_EQ(Small("-0"), "0");
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

TEST_F(RationalValues, AreWrittenAsText) {
    EXPECT_EQ(Text("-3/4", 0), "-3/4");
    EXPECT_EQ(Text("5", 0), "5");
    EXPECT_EQ(Text("-0", 0), "0");
    EXPECT_EQ(Text("12345/6789", TextGroup), "12'345/6'789");
    EXPECT_EQ(Text("-3/4", 0, 4), "-3/4");
    EXPECT_EQ(Text("-3/4", 0, 3), "[$] code 300");
    EXPECT_EQ(ValueToText(nullptr, 0, nullptr, TextGroup), 2 * BigUintTextLength(TextGroup) + 2);
}

TEST_F(RationalValues, ToSigned) {
    EXPECT_EQ(Signed("0"), "0");
    EXPECT_EQ(Signed("-0"), "0");
    EXPECT_EQ(Signed("-5"), "-5");
    EXPECT_EQ(Signed("9223372036854775807"), "9223372036854775807");
    EXPECT_EQ(Signed("9223372036854775808"), "none");
    EXPECT_EQ(Signed("-9223372036854775808"), "-9223372036854775808");
    EXPECT_EQ(Signed("-9223372036854775809"), "none");
    EXPECT_EQ(Signed("18446744073709551615"), "none");
    EXPECT_EQ(Signed("2^64"), "none");
    EXPECT_EQ(Signed("1/2"), "none");
    EXPECT_EQ(Signed("4/2"), "none") << "not in lowest terms, so no integer";
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

}  // namespace
}  // namespace tallymere
