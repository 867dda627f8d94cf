// Sums, products, quotients and what solvers ask of a value, in all number types.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/complex_number.h"
#include "support/complex_testing.h"
#include "support/exact_testing.h"
#include "support/formula_testing.h"
#include "values/value_operations.h"

namespace tallymere {
namespace {

using namespace testing_support;

using ValueBinary = void (*)(uint64_t* dest, const uint64_t* a, const uint64_t* b);

// a (operation) b, with the code behind it if there is one, and the same over the operands.
std::string Exact(ValueBinary operation, const char* a, const char* b) {
    const std::vector<uint64_t> first = ExactWords(a);
    const std::vector<uint64_t> second = ExactWords(b);
    std::vector<uint64_t> dest(first.size(), 99);
    operation(dest.data(), first.data(), second.data());
    const CalcError code = TakeCode();
    for (const bool overFirst : {true, false}) {
        std::vector<uint64_t> inPlace = overFirst ? first : second;
        operation(inPlace.data(), overFirst ? inPlace.data() : first.data(),
                  overFirst ? second.data() : inPlace.data());
        EXPECT_EQ(TakeCode(), code);
        EXPECT_EQ(inPlace, dest);
    }
    return ValueText(dest.data()) + (code == CalcErrorNone ? "" : " code " + std::to_string(code));
}

TEST(RealArithmetic, RoundsOnce) {
    FormulaScope scope(5, NumberTypeReal);
    const auto result = [](ValueBinary operation, const char* a, const char* b) {
        RealBuffer dest;
        operation(&dest.Get()->header, &RealBuffer(a).Get()->header, &RealBuffer(b).Get()->header);
        return PlainText(dest.Get());
    };
    EXPECT_EQ(result(ValueAdd, "1", "0.000049999"), "1e0");
    EXPECT_EQ(result(ValueAdd, "1", "0.00005"), "1.0001e0");
    EXPECT_EQ(result(ValueSubtract, "1", "2.5"), "-1.5e0");
    EXPECT_EQ(result(ValueMultiply, "1.0001", "1.0001"), "1.0002e0");
    EXPECT_EQ(result(ValueDivide, "2", "-3"), "-6.6667e-1");
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    EXPECT_EQ(result(ValueDivide, "1", "0"), "inf");
    EXPECT_EQ(TakeCode(), CalcErrorOverflow);
}

TEST(ComplexArithmetic, TakesBothParts) {
    FormulaScope scope(20, NumberTypeComplex);
    const auto make = [](const char* re, const char* im) {
        return ComplexBuffer{RealBuffer(re), RealBuffer(im)};
    };
    ComplexBuffer dest;
    ValueAdd(dest.Words(), make("1", "2").Words(), make("3", "4").Words());
    EXPECT_EQ(dest, make("4", "6"));
    ValueSubtract(dest.Words(), make("1", "2").Words(), make("3", "5").Words());
    EXPECT_EQ(dest, make("-2", "-3"));
    ValueMultiply(dest.Words(), make("1", "2").Words(), make("3", "4").Words());
    EXPECT_EQ(dest, make("-5", "10"));
    ValueDivide(dest.Words(), make("1", "0").Words(), make("0", "1").Words());
    EXPECT_EQ(dest, make("0", "-1"));
}

TEST(RationalArithmetic, IsExact) {
    FormulaScope scope(NumberTypeRational, 2);
    EXPECT_EQ(Exact(ValueAdd, "1/3", "1/6"), "1/2");
    EXPECT_EQ(Exact(ValueSubtract, "1/3", "1/2"), "-1/6");
    EXPECT_EQ(Exact(ValueMultiply, "-3/4", "2/3"), "-1/2");
    EXPECT_EQ(Exact(ValueDivide, "3/4", "-2"), "-3/8");
    EXPECT_EQ(Exact(ValueDivide, "3/4", "0"), "0 code 202");
    const char* const most = "340282366920938463463374607431768211455";
    EXPECT_EQ(Exact(ValueAdd, most, "1"), "0 code 200");
    EXPECT_EQ(Exact(ValueMultiply, most, "2"), "0 code 200");
}

TEST(UintArithmetic, HasNoQuotients) {
    FormulaScope scope(NumberTypeUint, 1);
    EXPECT_EQ(Exact(ValueAdd, "18446744073709551614", "1"), "18446744073709551615");
    EXPECT_EQ(Exact(ValueAdd, "18446744073709551615", "1"), "0 code 200");
    EXPECT_EQ(Exact(ValueSubtract, "5", "3"), "2");
    EXPECT_EQ(Exact(ValueSubtract, "3", "5"), "0 code 200");
    EXPECT_EQ(Exact(ValueMultiply, "4294967296", "4294967295"), "18446744069414584320");
    EXPECT_EQ(Exact(ValueMultiply, "4294967296", "4294967296"), "0 code 200");
    EXPECT_EQ(Exact(ValueDivide, "6", "3"), "0 code 102");
}

TEST(ValuesOfNoTypeToo, HaveNoArithmetic) {
    FormulaScope scope(20, NumberTypeNone);
    uint64_t word = 9;
    for (const ValueBinary operation : {ValueAdd, ValueSubtract, ValueMultiply, ValueDivide}) {
        operation(&word, &word, &word);
        EXPECT_EQ(TakeCode(), CalcErrorUnknownType);
    }
    const RealBuffer epsilon("1");
    SnapToZero(&word, epsilon.Get());
    EXPECT_EQ(TakeCode(), CalcErrorUnknownType);
    EXPECT_FALSE(ValuesAreExact());
    EXPECT_EQ(TakeCode(), CalcErrorUnknownType);
    EXPECT_FALSE(ValueHasTwoParts(&word));
    EXPECT_EQ(TakeCode(), CalcErrorUnknownType);
    EXPECT_EQ(word, 9u);
}

TEST(ExactTypes, AreUintAndRat) {
    const auto exactAs = [](NumberType type) {
        FormulaScope scope(20, type);
        return ValuesAreExact();
    };
    EXPECT_FALSE(exactAs(NumberTypeReal));
    EXPECT_FALSE(exactAs(NumberTypeComplex));
    EXPECT_TRUE(exactAs(NumberTypeUint));
    EXPECT_TRUE(exactAs(NumberTypeRational));
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

TEST(SnapToZero, TakesWhatIsBelowEpsilonInEachPart) {
    FormulaScope scope(20, NumberTypeReal);
    const RealBuffer epsilon("1e-10");
    const auto snapped = [&](const char* text) {
        RealBuffer x(text);
        SnapToZero(&x.Get()->header, epsilon.Get());
        return PlainText(x.Get());
    };
    EXPECT_EQ(snapped("9.9999999999999999999e-11"), "0");
    EXPECT_EQ(snapped("-9.9999999999999999999e-11"), "0");
    EXPECT_EQ(snapped("1e-10"), "1e-10") << "epsilon itself stays";
    EXPECT_EQ(snapped("-1e-10"), "-1e-10");
    EXPECT_EQ(snapped("-0"), "0");
    EXPECT_EQ(snapped("nan"), "nan");
    EXPECT_EQ(snapped("-inf"), "-inf");

    FormulaScope complexes(20, NumberTypeComplex);
    const auto make = [](const char* re, const char* im) {
        return ComplexBuffer{RealBuffer(re), RealBuffer(im)};
    };
    const auto parts = [&](ComplexBuffer z) {
        SnapToZero(z.Words(), epsilon.Get());
        return z;
    };
    EXPECT_EQ(parts(make("1e-11", "5")), make("0", "5"));
    EXPECT_EQ(parts(make("5", "-1e-11")), make("5", "0"));
    EXPECT_EQ(parts(make("1e-11", "-1e-11")), make("0", "0"));
    EXPECT_EQ(parts(make("1e-10", "-1e-10")), make("1e-10", "-1e-10"));
}

TEST(SnapToZero, KeepsExactValues) {
    const RealBuffer epsilon("1e9");
    for (const NumberType type : {NumberTypeUint, NumberTypeRational}) {
        FormulaScope scope(type, 2);
        std::vector<uint64_t> one = ExactWords("1");
        SnapToZero(one.data(), epsilon.Get());
        EXPECT_EQ(one, ExactWords("1"));
        EXPECT_EQ(TakeCode(), CalcErrorNone);
    }
}

TEST(TwoParts, AreASumOrAQuotient) {
    {
        FormulaScope scope(20, NumberTypeComplex);
        const auto isTwo = [](const char* re, const char* im) {
            return ValueHasTwoParts(ComplexBuffer{RealBuffer(re), RealBuffer(im)}.Words());
        };
        EXPECT_TRUE(isTwo("1", "-2"));
        EXPECT_FALSE(isTwo("1", "-0"));
        EXPECT_FALSE(isTwo("-0", "2"));
        EXPECT_FALSE(isTwo("0", "0"));
    }
    {
        FormulaScope scope(NumberTypeRational, 2);
        EXPECT_TRUE(ValueHasTwoParts(ExactWords("-1/2").data()));
        EXPECT_FALSE(ValueHasTwoParts(ExactWords("-2").data()));
    }
    {
        FormulaScope scope(20, NumberTypeReal);
        EXPECT_FALSE(ValueHasTwoParts(&RealBuffer("1.5").Get()->header));
    }
    FormulaScope scope(NumberTypeUint, 2);
    EXPECT_FALSE(ValueHasTwoParts(ExactWords("15").data()));
}

}  // namespace
}  // namespace tallymere
