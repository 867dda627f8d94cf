#include "core/complex_arithmetic.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "core/real_add.h"
#include "core/real_compare.h"
#include "core/real_div_mod.h"
#include "core/real_divide.h"
#include "core/real_layout.h"
#include "core/real_multiply.h"
#include "core/real_rounding.h"
#include "support/complex_testing.h"
#include "support/number_layouts.h"

namespace tallymere {
namespace {

using namespace testing_support;

using Binary = void (*)(ComplexNumber* dest, const ComplexNumber* a, const ComplexNumber* b);

Outcome Result(Binary operation, std::string_view a, std::string_view b) {
    return BinaryOutcome(operation, ComplexBuffer(a), ComplexBuffer(b));
}

Outcome Sum(std::string_view a, std::string_view b) {
    return Result(ComplexAdd, a, b);
}
Outcome Difference(std::string_view a, std::string_view b) {
    return Result(ComplexSub, a, b);
}
Outcome Product(std::string_view a, std::string_view b) {
    return Result(ComplexMul, a, b);
}
Outcome Quotient(std::string_view a, std::string_view b) {
    return Result(ComplexDiv, a, b);
}
Outcome Reciprocal(std::string_view z) {
    return UnaryOutcome(ComplexReciprocal, ComplexBuffer(z));
}
Outcome Multiple(std::string_view z, uint64_t k) {
    return UnaryOutcome(
        [k](ComplexNumber* dest, const ComplexNumber* x) { ComplexMulUint(dest, x, k); },
        ComplexBuffer(z));
}
Outcome Rounded(std::string_view z, int64_t digits) {
    return UnaryOutcome([digits](ComplexNumber* dest,
                                 const ComplexNumber* x) { ComplexRoundDigits(dest, x, digits); },
                        ComplexBuffer(z));
}

const Outcome Refused = {"nan 0", CalcErrorComplexNotAllowed};

TEST(ComplexCompare, OrdersRealValues) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        const auto compare = [](std::string_view a, std::string_view b, bool ignoreSign) {
            return ComplexCompare(ComplexBuffer(a), ComplexBuffer(b), ignoreSign);
        };
        EXPECT_EQ(compare("1 0", "2 -0", false), -1);
        EXPECT_EQ(compare("2 -0", "1 0", false), 1);
        EXPECT_EQ(compare("2 0", "2 -0", false), 0);
        EXPECT_EQ(compare("-2 0", "2 0", false), -1);
        EXPECT_EQ(compare("-2 0", "2 0", true), 0);
        EXPECT_EQ(compare("-3 0", "2 0", true), 1);
        EXPECT_EQ(compare("-0 0", "0 -0", false), 0);
        EXPECT_EQ(compare("nan 0", "nan 0", false), 1);
        EXPECT_EQ(compare("-inf 0", "inf 0", true), 0);
        EXPECT_EQ(TakeCode(), CalcErrorNone);
    }
}

TEST(ComplexCompare, TellsEqualFromUnequalForOtherValues) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        const auto compare = [](std::string_view a, std::string_view b) {
            return ComplexCompare(ComplexBuffer(a), ComplexBuffer(b));
        };
        EXPECT_EQ(compare("1 1", "1 1"), 0);
        EXPECT_EQ(compare("0 1", "-0 1"), 0);
        EXPECT_EQ(compare("1 1", "1 2"), 1);
        EXPECT_EQ(compare("1 2", "1 1"), 1);
        EXPECT_EQ(compare("1 1", "2 1"), 1);
        EXPECT_EQ(compare("2 1", "1 1"), 1);
        EXPECT_EQ(compare("1 1", "1 0"), 1);
        EXPECT_EQ(compare("1 0", "1 1"), 1);
        EXPECT_EQ(compare("1 nan", "1 nan"), 1);
        EXPECT_EQ(compare("nan 1", "nan 1"), 1);
        EXPECT_EQ(TakeCode(), CalcErrorNone);
    }
}

TEST(ComplexCompare, KnowsNoMagnitudeOfValuesThatAreNotReal) {
    PrecisionScope scope(16);
    for (const char* other : {"1 1", "1 0", "5 -2"}) {
        EXPECT_EQ(ComplexCompare(ComplexBuffer("1 1"), ComplexBuffer(other), true), 1);
        EXPECT_EQ(TakeCode(), CalcErrorComplexNotAllowed);
        EXPECT_EQ(ComplexCompare(ComplexBuffer(other), ComplexBuffer("1 1"), true), 1);
        EXPECT_EQ(TakeCode(), CalcErrorComplexNotAllowed);
    }
}

TEST(ComplexAdd, AddsPartByPart) {
    ForEachLayout(NumberTypeComplex, LayoutRange::All, [](const NumberLayout&) {
        EXPECT_EQ(Sum("1 2", "3 4"), Silent("4e0 6e0"));
        EXPECT_EQ(Sum("1 2", "-1 -2"), Silent("0 0"));
        EXPECT_EQ(Sum("-1 -2", "1 2"), Silent("-0 -0"));
        EXPECT_EQ(Sum("0 0", "-0 -0"), Silent("-0 -0"));
        EXPECT_EQ(Sum("5 -0", "1 0"), Silent("6e0 0"));
        EXPECT_EQ(Difference("1 2", "3 5"), Silent("-2e0 -3e0"));
        EXPECT_EQ(Difference("1 2", "1 2"), Silent("0 0"));
        EXPECT_EQ(Difference("0 0", "0 0"), Silent("-0 -0"));
        EXPECT_EQ(Sum("inf 1", "-inf 2"), (Outcome{"nan 3e0", CalcErrorUndefined}));
        EXPECT_EQ(Difference("1 inf", "1 inf"), (Outcome{"0 nan", CalcErrorUndefined}));
        EXPECT_EQ(Sum("nan 1", "1 2"), Silent("nan 3e0"));
    });
}

TEST(ComplexAdd, RoundsEachPart) {
    PrecisionScope scope(3);
    EXPECT_EQ(Sum("9.99 1.25", "0.005 10"), Silent("1e1 1.13e1"));
    EXPECT_EQ(Difference("1 1.25", "0.0005 -10"), Silent("1e0 1.13e1"));
}

TEST(ComplexMul, MultipliesByTheSchoolFormula) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(Product("1 2", "3 4"), Silent("-5e0 1e1"));
        EXPECT_EQ(Product("0 1", "0 1"), Silent("-1e0 0"));
        EXPECT_EQ(Product("2 0", "0 3"), Silent("-0 6e0"));
        EXPECT_EQ(Product("2 3", "2 -3").text, p == 1 ? "1e1 -0" : "1.3e1 -0");
        EXPECT_EQ(TakeCode(), CalcErrorNone);
    }
}

TEST(ComplexMul, KeepsTheProductOfRealValuesReal) {
    ForEachLayout(NumberTypeComplex, LayoutRange::Small, [](const NumberLayout&) {
        EXPECT_EQ(Product("2 -0", "-3 -0"), Silent("-6e0 0"));
        EXPECT_EQ(Product("inf 0", "-3 -0"), Silent("-inf 0"));
        EXPECT_EQ(Product("-0 -0", "3 0"), Silent("-0 0"));
        EXPECT_EQ(Product("nan 0", "3 0"), Silent("nan 0"));
        EXPECT_EQ(Product("0 0", "inf 0"), (Outcome{"nan 0", CalcErrorUndefined}));
        EXPECT_EQ(Product("1e4611686018427387903 0", "10 0"),
                  (Outcome{"inf 0", CalcErrorOverflow}));
    });
}

TEST(ComplexMul, RoundsTheProductsBeforeTheirSum) {
    PrecisionScope scope(2);
    // xc = 1.44, yd = 0.05: 1.4 - 0.05 is 1.35, where 1.39 would be the nearest to xc - yd.
    EXPECT_EQ(Product("1.2 0.5", "1.2 0.1"), Silent("1.4e0 7.2e-1"));
    // yd = 0.0125 rounds to 0.013 and xc = 0.0121 to 0.012: -0.001 and not -0.0004.
    EXPECT_EQ(Product("0.11 0.25", "0.11 0.05"), Silent("-1e-3 3.4e-2"));
}

TEST(ComplexMul, MultipliesPartsByTheRulesOfSpecialValues) {
    PrecisionScope scope(20);
    EXPECT_EQ(Product("inf 0", "0 1"), (Outcome{"nan inf", CalcErrorUndefined}));
    EXPECT_EQ(Product("inf 1", "1 1"), Silent("inf inf"));
    EXPECT_EQ(Product("inf inf", "1 1"), (Outcome{"nan inf", CalcErrorUndefined}));
    EXPECT_EQ(Product("nan 1", "1 1"), Silent("nan nan"));
    EXPECT_EQ(Product("1e4611686018427387903 1", "10 10"), (Outcome{"inf inf", CalcErrorOverflow}));
}

TEST(ComplexMulUint, MultipliesEachPart) {
    ForEachLayout(NumberTypeComplex, LayoutRange::All, [](const NumberLayout&) {
        EXPECT_EQ(Multiple("2 -3", 3), Silent("6e0 -9e0"));
        EXPECT_EQ(Multiple("0 -3", 3), Silent("0 -9e0"));
        EXPECT_EQ(Multiple("2 -0", 3), Silent("6e0 0"));
        EXPECT_EQ(Multiple("2 -3", 0), Silent("0 -0"));
        EXPECT_EQ(Multiple("nan -3", 2), Silent("nan -6e0"));
        EXPECT_EQ(Multiple("1 inf", 0), (Outcome{"0 nan", CalcErrorUndefined}));
    });
    PrecisionScope scope(3);
    EXPECT_EQ(Multiple("1.25 9.99", 7), Silent("8.75e0 6.99e1"));
    EXPECT_EQ(Multiple("9.98 -9.98", 7), Silent("6.99e1 -6.99e1"));
    EXPECT_EQ(Multiple("1.11 -1", 18'446'744'073'709'551'615u), Silent("2.05e19 -1.84e19"));
}

TEST(ComplexDivUint, DividesEachPart) {
    const auto part = [](std::string_view z, uint64_t k) {
        return UnaryOutcome(
            [k](ComplexNumber* dest, const ComplexNumber* x) { ComplexDivUint(dest, x, k); },
            ComplexBuffer(z));
    };
    ForEachLayout(NumberTypeComplex, LayoutRange::All, [&](const NumberLayout&) {
        EXPECT_EQ(part("6 -9", 3), Silent("2e0 -3e0"));
        EXPECT_EQ(part("-6 -0", 3), Silent("-2e0 0"));
        EXPECT_EQ(part("nan -6", 2), Silent("nan -3e0"));
        EXPECT_EQ(part("6 0", 0), (Outcome{"inf 0", CalcErrorOverflow}));
        EXPECT_EQ(part("6 -1", 0), (Outcome{"inf -inf", CalcErrorOverflow}));
    });
    PrecisionScope scope(3);
    EXPECT_EQ(part("2 1", 3), Silent("6.67e-1 3.33e-1"));
}

TEST(ComplexDiv, DividesByTheSchoolFormula) {
    ForEachLayout(NumberTypeComplex, LayoutRange::All, [](const NumberLayout&) {
        EXPECT_EQ(Quotient("1 0", "0 1"), Silent("0 -1e0"));
        EXPECT_EQ(Quotient("0 1", "0 1"), Silent("1e0 -0"));
        EXPECT_EQ(Quotient("4 2", "1 1"), Silent("3e0 -1e0"));
        EXPECT_EQ(Quotient("5 0", "1 -2"), Silent("1e0 2e0"));
        EXPECT_EQ(Quotient("1 1", "nan 1"), Silent("nan nan"));
    });
}

TEST(ComplexDiv, DividesByARealValuePartByPart) {
    ForEachLayout(NumberTypeComplex, LayoutRange::All, [](const NumberLayout&) {
        EXPECT_EQ(Quotient("6 -9", "3 -0"), Silent("2e0 -3e0"));
        EXPECT_EQ(Quotient("0 -9", "-3 0"), Silent("-0 3e0"));
        EXPECT_EQ(Quotient("6 -9", "inf 0"), Silent("0 -0"));
        EXPECT_EQ(Quotient("6 -9", "nan 0"), Silent("nan nan"));
        EXPECT_EQ(Quotient("6 -9", "0 0"), (Outcome{"inf -inf", CalcErrorOverflow}));
        EXPECT_EQ(Quotient("0 -9", "0 0"), (Outcome{"nan -inf", CalcErrorUndefined}));
    });
}

TEST(ComplexDiv, KeepsTheQuotientOfRealValuesReal) {
    ForEachLayout(NumberTypeComplex, LayoutRange::All, [](const NumberLayout&) {
        EXPECT_EQ(Quotient("6 -0", "3 -0"), Silent("2e0 0"));
        EXPECT_EQ(Quotient("6 0", "0 -0"), (Outcome{"inf 0", CalcErrorOverflow}));
        EXPECT_EQ(Quotient("-6 0", "0 0"), (Outcome{"-inf 0", CalcErrorOverflow}));
        EXPECT_EQ(Quotient("6 0", "-0 0"), (Outcome{"-inf 0", CalcErrorOverflow}));
        EXPECT_EQ(Quotient("0 0", "0 0"), (Outcome{"nan 0", CalcErrorUndefined}));
        EXPECT_EQ(Quotient("nan 0", "0 0"), Silent("nan 0"));
    });
}

TEST(ComplexDiv, RunsOutOfRangeWithTheSquareOfTheDivisor) {
    PrecisionScope scope(16);
    EXPECT_EQ(Quotient("1 0", "1e4611686018427387000 1"), (Outcome{"0 -0", CalcErrorOverflow}));
    EXPECT_EQ(Quotient("1 0", "1e-4611686018427387000 1e-4611686018427387000"),
              (Outcome{"inf -inf", CalcErrorOverflow}));
}

TEST(ComplexReciprocal, DividesTheConjugateByTheSquareOfTheModulus) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(Reciprocal("0 1"), Silent("0 -1e0"));
        EXPECT_EQ(Reciprocal("0 -1"), Silent("0 1e0"));
        EXPECT_EQ(Reciprocal("1 1"), Silent("5e-1 -5e-1"));
        EXPECT_EQ(Reciprocal("4 -0"), Silent(p == 1 ? "3e-1 0" : "2.5e-1 0"));
        EXPECT_EQ(Reciprocal("-0 0"), (Outcome{"-inf 0", CalcErrorOverflow}));
        EXPECT_EQ(Reciprocal("-inf -0"), Silent("-0 0"));
        EXPECT_EQ(Reciprocal("1 inf"), (Outcome{"0 nan", CalcErrorUndefined}));
        EXPECT_EQ(Reciprocal("nan 1"), Silent("nan nan"));
        EXPECT_EQ(Reciprocal("1 nan"), Silent("nan nan"));
    }
}

struct DivModOutcome {
    Outcome quotient;
    Outcome remainder;
    bool operator==(const DivModOutcome&) const = default;
};

void PrintTo(const DivModOutcome& outcome, std::ostream* out) {
    *out << outcome.quotient.text << ", " << outcome.remainder.text << " code "
         << outcome.quotient.code;
}

// Quotient and remainder, the same when one of them is not wanted and when they go into operands.
DivModOutcome DividedWithRemainder(std::string_view a, std::string_view b) {
    const ComplexBuffer x(a);
    const ComplexBuffer y(b);
    ComplexBuffer quotient;
    ComplexBuffer remainder;
    ComplexDivMod(quotient, remainder, x, y);
    const CalcError code = TakeCode();
    ComplexBuffer one;
    ComplexDivMod(one, nullptr, x, y);
    EXPECT_EQ(TakeCode(), code);
    EXPECT_EQ(one, quotient);
    ComplexDivMod(nullptr, one, x, y);
    EXPECT_EQ(TakeCode(), code);
    EXPECT_EQ(one, remainder);
    ComplexDivMod(nullptr, nullptr, x, y);
    EXPECT_EQ(TakeCode(), code);
    for (bool crossed : {false, true}) {
        ComplexBuffer left = x;
        ComplexBuffer right = y;
        ComplexDivMod(crossed ? right : left, crossed ? left : right, left, right);
        EXPECT_EQ(TakeCode(), code);
        EXPECT_EQ(crossed ? right : left, quotient);
        EXPECT_EQ(crossed ? left : right, remainder);
    }
    return {{PlainText(quotient.Get()), code}, {PlainText(remainder.Get()), code}};
}

TEST(ComplexDivMod, DividesRealValuesAsIntegers) {
    ForEachLayout(NumberTypeComplex, LayoutRange::All, [](const NumberLayout&) {
        EXPECT_EQ(DividedWithRemainder("7 0", "-2 -0"),
                  (DivModOutcome{Silent("-3e0 0"), Silent("-1e0 0")}));
        EXPECT_EQ(DividedWithRemainder("2 -0", "7 0"),
                  (DivModOutcome{Silent("0 0"), Silent("2e0 0")}));
        const Outcome undefined = {"nan 0", CalcErrorUndefined};
        EXPECT_EQ(DividedWithRemainder("7 0", "0 0"), (DivModOutcome{undefined, undefined}));
        EXPECT_EQ(DividedWithRemainder("nan 0", "2 0"),
                  (DivModOutcome{Silent("nan 0"), Silent("nan 0")}));
    });
}

TEST(ComplexDivMod, RefusesValuesThatAreNotReal) {
    ForEachLayout(NumberTypeComplex, LayoutRange::Small, [](const NumberLayout&) {
        EXPECT_EQ(DividedWithRemainder("7 1", "2 0"), (DivModOutcome{Refused, Refused}));
        EXPECT_EQ(DividedWithRemainder("7 0", "2 1"), (DivModOutcome{Refused, Refused}));
        EXPECT_EQ(DividedWithRemainder("7 nan", "2 1"), (DivModOutcome{Refused, Refused}));
    });
}

TEST(ComplexDivMod, StopsAtTheByteThatAsksForIt) {
    PrecisionScope scope(20);
    uint8_t stop = 1;
    FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    const Outcome cancelled = {"nan 0", CalcErrorCancelled};
    EXPECT_EQ(DividedWithRemainder("7 -0", "2 0"), (DivModOutcome{cancelled, cancelled}));
}

TEST(ComplexRoundDigits, RoundsEachPartAndCopiesSpecialValues) {
    PrecisionScope scope(39);
    EXPECT_EQ(Rounded("1.2345 -9.96e5", 2), Silent("1.2e0 -1e6"));
    EXPECT_EQ(Rounded("1.2345 -9.96e5", 4), Silent("1.235e0 -9.96e5"));
    EXPECT_EQ(Rounded("1.2345 -9.96e5", 40), Silent("1.2345e0 -9.96e5"));
    EXPECT_EQ(Rounded("-0 1.25", 2), Silent("-0 1.3e0"));
    EXPECT_EQ(Rounded("1.25 -0", 2), Silent("1.3e0 -0"));
    EXPECT_EQ(Rounded("inf nan", 1), Silent("inf nan"));
}

TEST(ComplexRoundDigits, HasNoValueForLessThanOneDigit) {
    PrecisionScope scope(19);
    for (int64_t digits : {int64_t{0}, int64_t{-1}, INT64_MIN}) {
        for (const char* z : {"1.5 2.5", "1.5 0", "inf nan"}) {
            EXPECT_EQ(Rounded(z, digits), (Outcome{"nan 0", CalcErrorUndefined})) << z;
        }
    }
}

TEST(ComplexRealOnly, RunsAFunctionOnTheRealParts) {
    ForEachLayout(NumberTypeComplex, LayoutRange::Small, [](const NumberLayout&) {
        const Binary subtract = [](ComplexNumber* dest, const ComplexNumber* a,
                                   const ComplexNumber* b) {
            ComplexRealOnly(dest, a, b, RealSub);
        };
        EXPECT_EQ(Result(subtract, "7 -0", "2 -0"), Silent("5e0 0"));
        const Binary divide = [](ComplexNumber* dest, const ComplexNumber* a,
                                 const ComplexNumber* b) { ComplexRealOnly(dest, a, b, RealDiv); };
        EXPECT_EQ(Result(divide, "1 0", "0 0"), (Outcome{"inf 0", CalcErrorOverflow}));
        EXPECT_EQ(Result(subtract, "7 1", "2 0"), Refused);
        EXPECT_EQ(Result(subtract, "7 0", "2 1"), Refused);
        EXPECT_EQ(Result(subtract, "7 0", "2 nan"), Refused);
    });
}

TEST(ComplexConvertPrecision, RoundsBothPartsToTheDigits) {
    const int64_t precisions[] = {1, 2, 19, 20, 38, 39, 57, 100, 1000, 10'005};
    for (int64_t from : precisions) {
        for (int64_t to : precisions) {
            PrecisionScope outer(16);
            const auto at = [](int64_t p, std::string_view parts) {
                PrecisionScope scope(p);
                return ComplexBuffer(parts);
            };
            const ComplexBuffer source = at(from, from == 1 ? "7 -5e9" : "7.5 -9.9e9");
            ComplexBuffer result = at(to, "1 1");
            ComplexConvertPrecision(result, to, source, from);
            PrecisionScope scope(to);
            EXPECT_EQ(PlainText(result.Get()), from == 1 ? "7e0 -5e9"
                                               : to == 1 ? "8e0 -1e10"
                                                         : "7.5e0 -9.9e9");
            const int64_t sourceWords = 2 * (LayoutForDigits(from).limbs + 1);
            std::vector<uint64_t> inPlace(
                static_cast<size_t>(std::max(sourceWords, ComplexWords())));
            std::copy_n(source.Words(), sourceWords, inPlace.data());
            ComplexNumber* const place = ComplexAt(inPlace.data());
            ComplexConvertPrecision(place, to, place, from);
            EXPECT_TRUE(
                std::equal(result.Words(), result.Words() + ComplexWords(), inPlace.data()));
        }
    }
}

TEST(ComplexConvertPrecision, CopiesSpecialParts) {
    PrecisionScope scope(38);
    ComplexBuffer z("1.5 -inf");
    ComplexConvertPrecision(z, 38, z, 38);
    EXPECT_EQ(OutcomeOf(z), Silent("1.5e0 -inf"));
}

TEST(ComplexConvertPrecision, RefusesAPrecisionOutOfRange) {
    PrecisionScope scope(20);
    const ComplexBuffer source("1.5 2.5");
    for (int64_t digits : {int64_t{0}, int64_t{-3}, MaxPrecisionDigits + 1, INT64_MAX}) {
        ComplexBuffer result("7 8");
        ComplexConvertPrecision(result, digits, source, 20);
        EXPECT_EQ(OutcomeOf(result), (Outcome{"7e0 8e0", CalcErrorBadParameter}));
        ComplexConvertPrecision(result, 20, source, digits);
        EXPECT_EQ(OutcomeOf(result), (Outcome{"7e0 8e0", CalcErrorBadParameter}));
    }
}

// The same operations written for the eye, on parts in buffers of their own.
using Part = RealBuffer;

Part Make(RealRoundedBinary operation, const Part& a, const Part& b) {
    Part result;
    operation(result, a, b);
    return result;
}
Part operator+(const Part& a, const Part& b) {
    return Make(RealAdd, a, b);
}
Part operator-(const Part& a, const Part& b) {
    return Make(RealSub, a, b);
}
Part operator*(const Part& a, const Part& b) {
    return Make(RealMul, a, b);
}
Part operator/(const Part& a, const Part& b) {
    return Make(RealDiv, a, b);
}

struct Parts {
    Part x;
    Part y;
};

Parts PartsOf(const ComplexBuffer& z) {
    Parts parts;
    RealCopy(parts.x, RealPart(z.Get()));
    RealCopy(parts.y, ImaginaryPart(z.Get()));
    return parts;
}

bool IsReal(const Parts& z) {
    return RealIsZero(z.y);
}

ComplexBuffer PlainSum(const Parts& a, const Parts& b) {
    const Part realPart = a.x + b.x;
    return {realPart, a.y + b.y};
}

ComplexBuffer PlainDifference(const Parts& a, const Parts& b) {
    const Part realPart = a.x - b.x;
    return {realPart, a.y - b.y};
}

ComplexBuffer PlainProduct(const Parts& a, const Parts& b) {
    if (IsReal(a) && IsReal(b)) {
        return {a.x * b.x, Part("0")};
    }
    const Part xc = a.x * b.x;
    const Part xd = a.x * b.y;
    const Part yd = a.y * b.y;
    const Part yc = a.y * b.x;
    const Part realPart = xc - yd;
    return {realPart, xd + yc};
}

ComplexBuffer PlainQuotient(const Parts& a, const Parts& b) {
    if (IsReal(b)) {
        const Part realPart = a.x / b.x;
        return {realPart, IsReal(a) ? Part("0") : a.y / b.x};
    }
    const Part cc = b.x * b.x;
    const Part dd = b.y * b.y;
    const Part denominator = cc + dd;
    const Part xc = a.x * b.x;
    const Part yd = a.y * b.y;
    const Part p = xc + yd;
    const Part yc = a.y * b.x;
    const Part xd = a.x * b.y;
    const Part q = yc - xd;
    const Part realPart = p / denominator;
    return {realPart, q / denominator};
}

ComplexBuffer PlainReciprocal(const Parts& z) {
    if (IsReal(z)) {
        Part realPart;
        RealReciprocal(realPart, z.x);
        return {realPart, Part("0")};
    }
    const Part xx = z.x * z.x;
    const Part yy = z.y * z.y;
    const Part denominator = xx + yy;
    const Part realPart = z.x / denominator;
    Part imaginaryPart = z.y / denominator;
    RealNegate(imaginaryPart);
    return {realPart, imaginaryPart};
}

TEST(ComplexArithmetic, IsMadeOfRoundedOperationsOnTheParts) {
    RandomSource random;
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        for (int round = TestRounds(p > 100 ? 10 : 1'000); round > 0 && !HasFailure(); round--) {
            const ComplexBuffer a = RandomComplex(random, 30);
            const ComplexBuffer b = random.Below(10) == 0 ? a : RandomComplex(random, 30);
            SCOPED_TRACE(PlainText(a.Get()).substr(0, 300));
            SCOPED_TRACE(PlainText(b.Get()).substr(0, 300));
            const Parts x = PartsOf(a);
            const Parts y = PartsOf(b);
            Outcome expected = OutcomeOf(PlainSum(x, y));
            EXPECT_EQ(BinaryOutcome(ComplexAdd, a, b), expected);
            expected = OutcomeOf(PlainDifference(x, y));
            EXPECT_EQ(BinaryOutcome(ComplexSub, a, b), expected);
            expected = OutcomeOf(PlainProduct(x, y));
            EXPECT_EQ(BinaryOutcome(ComplexMul, a, b), expected);
            expected = OutcomeOf(PlainQuotient(x, y));
            EXPECT_EQ(BinaryOutcome(ComplexDiv, a, b), expected);
            expected = OutcomeOf(PlainReciprocal(x));
            EXPECT_EQ(UnaryOutcome(ComplexReciprocal, a), expected);
        }
    }
}

TEST(ComplexArithmetic, IsExactOnSmallIntegers) {
    RandomSource random;
    for (int64_t p : {16, 19, 20, 38, 100, 1000, 10005}) {
        PrecisionScope scope(p);
        const auto value = [](int64_t x, int64_t y) {
            return ComplexBuffer(std::to_string(x) + " " + std::to_string(y));
        };
        for (int round = TestRounds(p > 100 ? 5 : 300); round > 0 && !HasFailure(); round--) {
            const int64_t x = random.Between(-9'999, 9'999);
            const int64_t y = random.Between(-9'999, 9'999);
            const int64_t c = random.Between(-9'999, 9'999);
            const int64_t d = random.Between(1, 9'999);
            const ComplexBuffer product = value(x * c - y * d, x * d + y * c);
            ComplexBuffer result;
            ComplexMul(result, value(x, y), value(c, d));
            EXPECT_EQ(ComplexCompare(result, product), 0) << x << " " << y << " " << c << " " << d;
            ComplexDiv(result, product, value(c, d));
            EXPECT_EQ(ComplexCompare(result, value(x, y)), 0)
                << x << " " << y << " " << c << " " << d;
        }
    }
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

}  // namespace
}  // namespace tallymere
