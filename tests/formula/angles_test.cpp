#include "formula/angles.h"

#include <gtest/gtest.h>

#include <array>
#include <initializer_list>
#include <string>
#include <string_view>

#include "core/real_integer.h"
#include "core/real_layout.h"
#include "core/real_multiply.h"
#include "core/real_rounding.h"
#include "functions/stored_constants.h"
#include "support/formula_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

constexpr AngleUnit AllUnits[] = {AngleUnit::Radians, AngleUnit::Degrees, AngleUnit::Gon};

QuarterTurns Reduce(const RealBuffer& angle, AngleUnit unit) {
    return ReduceAngleArgument(angle, unit);
}

// Of an angle and of its opposite, which have to agree.
QuarterTurns Reduce(std::string_view text, AngleUnit unit) {
    RealBuffer angle(text);
    const QuarterTurns turns = Reduce(angle, unit);
    RealNegate(angle);
    EXPECT_EQ(Reduce(angle, unit), turns) << text;
    return turns;
}

TEST(ReduceAngleArgument, FindsEveryMultipleInDegreesAndGon) {
    for (const int64_t p : {19, 20, 38, 57}) {
        FormulaScope scope(p);
        for (const auto& [unit, quarter] : {std::pair{AngleUnit::Degrees, int64_t{90}},
                                            std::pair{AngleUnit::Gon, int64_t{100}}}) {
            const int64_t last = 999'999'999 / quarter;
            for (const int64_t k : std::array<int64_t, 14>{1, 2, 3, 4, 5, 6, 7, 8, 99, 100, 1001,
                                                           1'234'567, last - 1, last}) {
                RealBuffer angle;
                RealFromInt(angle, k * quarter);
                const QuarterTurns expected = k % 2 == 0 ? QuarterTurns::Even : QuarterTurns::Odd;
                EXPECT_EQ(Reduce(angle, unit), expected) << k;
                RealNegate(angle);
                EXPECT_EQ(Reduce(angle, unit), expected) << -k;
            }
        }
    }
}

TEST(ReduceAngleArgument, AllowsNoDifferenceInDegreesAndGon) {
    FormulaScope scope(20);
    for (const char* angle : {"89.999999999999999999", "90.000000000000000001", "45", "1", "30",
                              "180.00000000000000001", "179.99999999999999999"}) {
        EXPECT_EQ(Reduce(angle, AngleUnit::Degrees), QuarterTurns::NoMultiple) << angle;
    }
    for (const char* angle : {"99.999999999999999999", "100.00000000000000001", "50", "90"}) {
        EXPECT_EQ(Reduce(angle, AngleUnit::Gon), QuarterTurns::NoMultiple) << angle;
    }
}

TEST(ReduceAngleArgument, TakesZeroForAnEvenMultiple) {
    FormulaScope scope(20);
    for (const AngleUnit unit : AllUnits) {
        EXPECT_EQ(Reduce("0", unit), QuarterTurns::Even);
    }
}

TEST(ReduceAngleArgument, LooksOnlyAtMagnitudesFromOneOn) {
    FormulaScope scope(20);
    for (const AngleUnit unit : AllUnits) {
        for (const char* angle :
             {"0.5", "0.99999999999999999999", "1e-30", "1e300", "inf", "nan"}) {
            EXPECT_EQ(Reduce(RealBuffer(angle), unit), QuarterTurns::NoMultiple) << angle;
        }
    }
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

// Up to where the functions have no value any more: 45 * 2^64 degrees are 830103483316929822720.
TEST(ReduceAngleArgument, FindsLargeMultiplesInDegreesAndGonAlone) {
    for (const int64_t p : {1, 2, 3, 5, 20, 38}) {
        FormulaScope scope(p);
        EXPECT_EQ(Reduce("9e9", AngleUnit::Degrees), QuarterTurns::Even);
        EXPECT_EQ(Reduce("1e9", AngleUnit::Degrees), QuarterTurns::NoMultiple);
        EXPECT_EQ(Reduce("9e19", AngleUnit::Degrees), QuarterTurns::Even);
        EXPECT_EQ(Reduce("1e9", AngleUnit::Gon), QuarterTurns::Even);
        EXPECT_EQ(Reduce("9e20", AngleUnit::Gon), QuarterTurns::Even);
        EXPECT_EQ(Reduce("9e20", AngleUnit::Degrees), QuarterTurns::NoMultiple) << "too large";
        EXPECT_EQ(Reduce("1e21", AngleUnit::Gon), QuarterTurns::NoMultiple) << "too large";
    }
    FormulaScope scope(20);
    EXPECT_EQ(Reduce("999999900", AngleUnit::Degrees), QuarterTurns::Even);
    EXPECT_EQ(Reduce("999999900", AngleUnit::Gon), QuarterTurns::Odd);
    EXPECT_EQ(Reduce("9000000090", AngleUnit::Degrees), QuarterTurns::Odd);
    EXPECT_EQ(Reduce("100000000000000000100", AngleUnit::Gon), QuarterTurns::Odd);
    for (const char* angle : {"1e9", "1570796326.7948966192"}) {
        EXPECT_EQ(Reduce(angle, AngleUnit::Radians), QuarterTurns::NoMultiple) << angle;
    }
}

// pi / 2 at 20 digits is 1.5707963267948966192, so each case is a multiple of that and the
// difference that is or is not allowed: less than 1e-18 below 10, less than 1e-17 below 100.
TEST(ReduceAngleArgument, AllowsAHundredUnitsOfTheLastPlaceInRadians) {
    FormulaScope scope(20);
    struct Case {
        const char* angle;
        QuarterTurns expected;
    };
    for (const Case& c : {
             Case{"1.5707963267948966192", QuarterTurns::Odd},
             Case{"1.5707963267948966201", QuarterTurns::Odd},
             Case{"1.5707963267948966202", QuarterTurns::NoMultiple},
             Case{"1.5707963267948966183", QuarterTurns::Odd},
             Case{"1.5707963267948966182", QuarterTurns::NoMultiple},
             Case{"3.1415926535897932385", QuarterTurns::Even},
             Case{"3.1415926535897932393", QuarterTurns::Even},
             Case{"3.1415926535897932394", QuarterTurns::NoMultiple},
             Case{"3.1415926535897932375", QuarterTurns::Even},
             Case{"3.1415926535897932374", QuarterTurns::NoMultiple},
             Case{"4.7123889803846898576", QuarterTurns::Odd},
             Case{"4.7123889803846898586", QuarterTurns::NoMultiple},
             Case{"12.566370614359172963", QuarterTurns::Even},
             Case{"12.566370614359172964", QuarterTurns::NoMultiple},
             Case{"12.566370614359172944", QuarterTurns::Even},
             Case{"12.566370614359172943", QuarterTurns::NoMultiple},
             Case{"14.137166941154069582", QuarterTurns::Odd},
             Case{"3", QuarterTurns::NoMultiple},
             Case{"1", QuarterTurns::NoMultiple},
         }) {
        EXPECT_EQ(Reduce(c.angle, AngleUnit::Radians), c.expected) << c.angle;
    }
}

// Where a difference of more than 10^-3 would be allowed ordinary angles would be swallowed.
TEST(ReduceAngleArgument, TakesNoCoarseAngleForAMultiple) {
    struct Case {
        int64_t precision;
        const char* angle;
        QuarterTurns expected;
    };
    for (const Case& c : {
             Case{5, "3.1416", QuarterTurns::Even},  // less than 10^-3 allowed
             Case{5, "3.1424", QuarterTurns::Even},
             Case{5, "3.1426", QuarterTurns::NoMultiple},
             Case{4, "3.142", QuarterTurns::NoMultiple},  // it would be 10^-2
             Case{3, "3.14", QuarterTurns::NoMultiple},
             Case{3, "1.57", QuarterTurns::NoMultiple},  // pi / 2 at 3 digits
             Case{1, "2", QuarterTurns::NoMultiple},     // pi / 2 at 1 digit
             Case{5, "10.996", QuarterTurns::NoMultiple},
             Case{6, "10.9956", QuarterTurns::Odd},
             Case{7, "90325000", QuarterTurns::NoMultiple},
             Case{12, "123456789", QuarterTurns::NoMultiple},
             Case{12, "123456788.747", QuarterTurns::NoMultiple},
             Case{13, "123456788.9586", QuarterTurns::NoMultiple},
             Case{1, "0", QuarterTurns::Even},
         }) {
        FormulaScope scope(c.precision);
        EXPECT_EQ(Reduce(c.angle, AngleUnit::Radians), c.expected)
            << c.angle << " at " << c.precision;
    }
    for (const int64_t p : {1, 2, 3}) {
        FormulaScope scope(p);
        EXPECT_EQ(Reduce("90", AngleUnit::Degrees), QuarterTurns::Odd);
        EXPECT_EQ(Reduce("900", AngleUnit::Degrees), QuarterTurns::Even);
        EXPECT_EQ(Reduce("80", AngleUnit::Degrees), QuarterTurns::NoMultiple);
        EXPECT_EQ(Reduce("300", AngleUnit::Gon), QuarterTurns::Odd);
        EXPECT_EQ(Reduce("4e8", AngleUnit::Gon), QuarterTurns::Even);
        EXPECT_EQ(Reduce("50", AngleUnit::Gon), QuarterTurns::NoMultiple);
    }
    FormulaScope scope(7);
    EXPECT_EQ(Evaluate(u"sin(9.0325e7)"), Value("0.9954282"));
    EXPECT_EQ(Evaluate(u"tan(123456789)"), Value("-0.1371483"));
}

// Multiples of pi / 2 as good as the precision allows are found up to the last, at every precision.
TEST(ReduceAngleArgument, FindsRoundedMultiplesInRadians) {
    for (const int64_t p : {16, 19, 20, 38, 57, 100, 1000}) {
        FormulaScope scope(p);
        for (const uint64_t k : std::initializer_list<uint64_t>{
                 1, 2, 3, 4, 7, 22, 1001, 123'456'789, 636'619'771, 636'619'772}) {
            RealBuffer angle;
            {
                // k pi / 2 at 30 more digits, so that it is rounded once.
                FormulaScope wide(p + 30);
                RealBuffer product;
                RealPi(product);
                RealRound(product, RealMulUint(product, product, 5 * k));
                RealSetExponent(product, RealExponent(product) - 1);
                RealConvertPrecision(angle, p, product, p + 30);
            }
            EXPECT_EQ(Reduce(angle, AngleUnit::Radians),
                      k % 2 == 0 ? QuarterTurns::Even : QuarterTurns::Odd)
                << k << " at " << p;
        }
    }
}

TEST(ReduceAngleArgument, EndsWithItsCodeWhenStopped) {
    FormulaScope scope(20);
    uint8_t stop = 1;
    FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    Reduce(RealBuffer("180"), AngleUnit::Degrees);
    EXPECT_EQ(TakeCode(), CalcErrorCancelled);
    EXPECT_EQ(EvaluateTokenByToken(u"1+sind(180)"), Failure(FormulaErrorAborted, 1, 0));
}

// The sign of a zero is seen in PlainText.
TEST(CircularFunctions, AreExactlyZeroAtMultiplesOfTheQuarterTurn) {
    for (const NumberType type : {NumberTypeReal, NumberTypeComplex}) {
        FormulaScope scope(20, type);
        const FormulaOutcome zero = type == NumberTypeReal ? Value("0") : Value("0", "0");
        for (const char16_t* formula :
             {u"sind(180)",  u"sind(-180)",      u"sind(360)",      u"sind(0)",   u"sind(-0)",
              u"cosd(90)",   u"cosd(-90)",       u"cosd(270)",      u"tand(180)", u"tand(-360)",
              u"tand(-0)",   u"sing(200)",       u"sing(-400)",     u"cosg(100)", u"cosg(-300)",
              u"tang(-200)", u"sin(pi)",         u"sin(-pi)",       u"sin(2*pi)", u"sin(1000*pi)",
              u"sin(-0)",    u"cos(pi/2)",       u"cos(-5*pi/2)",   u"tan(pi)",   u"tan(-3*pi)",
              u"tan(0)",     u"sind(999999900)", u"cosg(999999900)"}) {
            EXPECT_EQ(Evaluate(formula), zero) << Printable(formula);
        }
    }
}

TEST(CircularFunctions, AreComputedWhereTheyAreNotZero) {
    FormulaScope scope(20);
    EXPECT_EQ(Evaluate(u"cos(0)"), Value("1"));
    EXPECT_EQ(Evaluate(u"cosd(180)"), Value("-1"));
    EXPECT_EQ(Evaluate(u"cosg(-400)"), Value("1"));
    EXPECT_EQ(Evaluate(u"sind(90)"), Value("1"));
    EXPECT_EQ(Evaluate(u"sing(-100)"), Value("-1"));
    EXPECT_EQ(Evaluate(u"sin(pi/2)"), Value("1"));
    EXPECT_EQ(Evaluate(u"sind(0.5)"), Value("8.7265354983739349649e-3"));
    EXPECT_EQ(Evaluate(u"sin(1e10)"), Value("-0.48750602508751069153"));
    EXPECT_EQ(Evaluate(u"sin(3.1415926535897932394)"), Value("-9.3735661672049711580e-19"));
}

// Angles are reduced in degrees or gon, before pi comes in.
TEST(CircularFunctions, KeepAllDigitsOfLargeAnglesInDegreesAndGon) {
    FormulaScope twelve(12);
    EXPECT_EQ(Evaluate(u"sind(36030)"), Value("0.5"));
    EXPECT_EQ(Evaluate(u"cosd(450.1)"), Value("-1.74532836590e-3"));
    EXPECT_EQ(Evaluate(u"sind(1000000)"), Value("-0.984807753012"));
    EXPECT_EQ(Evaluate(u"tand(89.9999)"), Value("572957.795130"));
    EXPECT_EQ(Evaluate(u"cosg(99.999999)"), Value("1.57079632679e-8"));
    EXPECT_EQ(Evaluate(u"sind(100000030)"), Value("-0.766044443119"));
    FormulaScope twenty(20);
    EXPECT_EQ(Evaluate(u"sind(100000030)"), Value("-0.76604444311897803520"));
    EXPECT_EQ(Evaluate(u"cosd(1e20)"), Value("0.17364817766693034885"));
    EXPECT_EQ(Evaluate(u"tand(9000000090)"), Failure(FormulaErrorOperationFailed, 1, 4));
    EXPECT_EQ(Evaluate(u"cosd(9000000090)"), Value("0"));
    FormulaScope complex(12, NumberTypeComplex);
    EXPECT_EQ(Evaluate(u"sind(36030)"), Value("0.5", "0"));
    EXPECT_EQ(Evaluate(u"tand(89.9999)"), Value("572957.795130", "0"));
}

// Twice rounded, it would be 89.5 at first and 90 then.
TEST(InverseCircularFunctions, AreRoundedOnceInDegreesAndGon) {
    FormulaScope two(2);
    EXPECT_EQ(Evaluate(u"atand(110)"), Value("89"));
    FormulaScope twenty(20);
    EXPECT_EQ(Evaluate(u"asind(0.5)"), Value("30"));
    EXPECT_EQ(Evaluate(u"acosg(-1)"), Value("200"));
    EXPECT_EQ(Evaluate(u"atang(-1)"), Value("-50"));
    FormulaScope complex(20, NumberTypeComplex);
    EXPECT_EQ(Evaluate(u"argd(-1+i)"), Value("135", "0"));
    EXPECT_EQ(Evaluate(u"argg(-1-i)"), Value("-150", "0"));
    EXPECT_EQ(Evaluate(u"argd(-5)"), Value("180", "0"));
}

TEST(CircularFunctions, HaveNoTangentAtOddMultiples) {
    for (const NumberType type : {NumberTypeReal, NumberTypeComplex}) {
        FormulaScope scope(20, type);
        EXPECT_EQ(Evaluate(u"tand(90)"), Failure(FormulaErrorOperationFailed, 1, 4));
        EXPECT_EQ(Evaluate(u"2*tand(-270)+1"), Failure(FormulaErrorOperationFailed, 3, 4));
        EXPECT_EQ(Evaluate(u"2*tang(100)"), Failure(FormulaErrorOperationFailed, 3, 4));
        EXPECT_EQ(Evaluate(u"1+(2*tan(pi/2))"), Failure(FormulaErrorOperationFailed, 6, 3));
        EXPECT_EQ(Evaluate(u"tan(-3*pi/2)"), Failure(FormulaErrorOperationFailed, 1, 3));
        EXPECT_EQ(Evaluate(u"abs(tand(90))"), Failure(FormulaErrorOperationFailed, 5, 4));
        EXPECT_EQ(Evaluate(u"x", {{u"x", u"tand(90)"}}), Failure(FormulaErrorVariableFailed, 1, 1));
    }
}

TEST(CircularFunctions, NoteNoCodeAtAPole) {
    FormulaScope scope(20);
    FormulaEvaluator evaluator{};
    RealBuffer x("90");
    CallFunction(evaluator, Token(FunctionId::TanDegrees, 4, 4), &x.Get()->header,
                 {&x.Get()->header});
    EXPECT_EQ(evaluator.error, uint32_t{FormulaErrorOperationFailed});
    EXPECT_EQ(evaluator.errorPosition, 5u);
    EXPECT_EQ(evaluator.errorLength, 4u);
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

}  // namespace
}  // namespace tallymere
