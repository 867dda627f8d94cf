#include "functions/inverse_trigonometric.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "core/real_divide.h"
#include "core/real_layout.h"
#include "core/real_multiply.h"
#include "core/real_rounding.h"
#include "functions/function_testing.h"
#include "functions/roots.h"
#include "functions/stored_constants.h"
#include "functions/trigonometric.h"
#include "reference/trigonometric_twins.h"

namespace tallymere {
namespace {

using namespace testing_support;

constexpr const char* Pi =
    "3.14159265358979323846264338327950288419716939937510582097494459230781640628620899862803482534"
    "211706798214808651";
constexpr const char* HalfPi =
    "1.57079632679489661923132169163975144209858469968755291048747229615390820314310449931401741267"
    "105853399107404326";

TEST(AtanStepTable, HoldsTheTangentsOfTheMultiples) {
    const AtanStep coarse[] = {
        {0, 1},
        {1, 21},
        {21, 220},
        {661, 4599},
        {9240, 47959},
        {241999, 997899},
        {3039939, 10356940},
        {74195659, 214455801},
        {886282320, 2214688081},
        {20826616801, 45622167381},
        {241490560101, 468619449100},
        {5539921211221, 9599517870999},
        {62968931653320, 98024977039879},
        {1420372541759599, 1995555586184139},
        {15911689481567859, 20243147384053660},
        {354388626496978699, 409194405583559001},
        {3925677781010055840, 4119346945378880161},
        {1, 1},
    };
    const AtanStep fine[] = {
        {0, 1},
        {1, 351},
        {351, 61600},
        {184801, 21621249},
        {43243200, 3794436799},
        {18972799999, 1331804073249},
        {3995628436449, 233722128455200},
        {1636187709648799, 82032471459338751},
        {328167178773033600, 14395880647259126401u},
    };
    EXPECT_TRUE(std::ranges::equal(AtanStepTable.coarse, coarse));
    EXPECT_TRUE(std::ranges::equal(AtanStepTable.fine, fine));
}

// The angles of the steps, and nine leading digits of the tangents midway between two of them.
struct StepAngles {
    std::vector<double> angles;
    uint64_t (*nearest)(const RealNumber* y);

    double Midway(size_t k) const { return std::tan((angles[k] + angles[k + 1]) / 2); }
};

std::vector<StepAngles> BothSteps() {
    StepAngles coarse = {{}, NearestCoarseStep};
    for (int k = 0; k <= 16; k++) {
        coarse.angles.push_back(k * std::atan(1.0 / 21));
    }
    coarse.angles.push_back(std::atan(1.0));
    StepAngles fine = {{}, NearestFineStep};
    for (int k = 0; k <= 8; k++) {
        fine.angles.push_back(k * std::atan(1.0 / 351));
    }
    return {coarse, fine};
}

RealBuffer NumberWithDigits(uint64_t nineDigits, int64_t exponent, const std::string& tail) {
    return RealBuffer(std::to_string(nineDigits) + tail + "e" +
                      std::to_string(exponent - 8 - static_cast<int64_t>(tail.size())));
}

TEST(NearestAtanStep, ChangesAtNineDigitsOfTheTangentMidway) {
    for (int64_t p : {9, 10, 18, 19, 20, 28, 38, 39, 100}) {
        PrecisionScope scope(p);
        const std::string nines(static_cast<size_t>(p - 9), '9');
        for (const StepAngles& steps : BothSteps()) {
            for (size_t k = 0; k + 1 < steps.angles.size(); k++) {
                const double midway = steps.Midway(k);
                const int exponent = static_cast<int>(std::floor(std::log10(midway)));
                const auto digits =
                    static_cast<uint64_t>(std::llround(midway * std::pow(10.0, 8 - exponent)));
                SCOPED_TRACE(digits);
                EXPECT_EQ(steps.nearest(NumberWithDigits(digits, exponent, "")), k + 1);
                EXPECT_EQ(steps.nearest(NumberWithDigits(digits, exponent, nines)), k + 1);
                EXPECT_EQ(steps.nearest(NumberWithDigits(digits - 1, exponent, nines)), k);
                EXPECT_EQ(steps.nearest(NumberWithDigits(digits - 1, exponent, "")), k);
            }
        }
    }
}

TEST(NearestAtanStep, IsTheNearestMultiple) {
    PrecisionScope scope(16);
    RandomSource random;
    for (const StepAngles& steps : BothSteps()) {
        const double last = steps.angles.back() < 0.5 ? 0.0238 : 1.0;
        for (int round = 0; round < TestRounds(5000); round++) {
            const double y = last * static_cast<double>(random.Below(1000000)) / 1000000 + 1e-9;
            const double angle = std::atan(y);
            const RealBuffer number(std::to_string(static_cast<int64_t>(std::llround(y * 1e15))) +
                                    "e-15");
            double least = 10;
            for (double step : steps.angles) {
                least = std::min(least, std::fabs(angle - step));
            }
            const uint64_t k = steps.nearest(number);
            ASSERT_LT(k, steps.angles.size());
            EXPECT_LE(std::fabs(angle - steps.angles[k]), least + 1e-8) << y;
        }
    }
}

TEST(NearestAtanStep, IsNoStepForTheSmallest) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (const char* text : {"0", "1e-3", "1e-4000000000000000000"}) {
            EXPECT_EQ(NearestCoarseStep(RealBuffer(text)), 0u);
            EXPECT_EQ(NearestFineStep(RealBuffer(text)), 0u);
        }
        EXPECT_EQ(NearestCoarseStep(RealBuffer("1")), 17u);
    }
}

TEST(NearestAtanStep, ReadsMissingDigitsAsZeros) {
    PrecisionScope scope(2);
    EXPECT_EQ(NearestCoarseStep(RealBuffer("0.023")), 0u);
    EXPECT_EQ(NearestCoarseStep(RealBuffer("0.024")), 1u);
    EXPECT_EQ(NearestCoarseStep(RealBuffer("0.97")), 16u);
    EXPECT_EQ(NearestCoarseStep(RealBuffer("0.98")), 17u);
}

TEST(AtanShift, TakesAnAngleOff) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        RealBuffer x("1");
        AtanShift(x, 1, 1);
        EXPECT_EQ(PlainText(x), "0");
        // arctan(1/2) = arctan(1/3) + arctan(1/7)
        RealBuffer half("0.5");
        AtanShift(half, 1, 3);
        RealBuffer seventh;
        RealDiv(seventh, RealBuffer("1"), RealBuffer("7"));
        ExpectWithin(5, half, seventh);
    }
}

TEST(AtanShift, TakesDenominatorsAboveALimb) {
    for (int64_t p : {19, 20, 37, 38, 39, 57, 100}) {
        PrecisionScope scope(p);
        const AtanStep last = AtanStepTable.fine[8];
        const AtanStep middle = AtanStepTable.fine[4];
        RealBuffer numerator;
        RealBuffer x;
        RealFromUint(numerator, last.numerator);
        RealFromUint(x, last.denominator);
        RealDiv(x, numerator, x);
        AtanShift(x, middle.numerator, middle.denominator);
        RealBuffer expected;
        RealFromUint(numerator, middle.numerator);
        RealFromUint(expected, middle.denominator);
        RealDiv(expected, numerator, expected);
        ExpectWithin(5, x, expected);

        RealFromUint(numerator, last.numerator);
        RealFromUint(x, last.denominator);
        RealDiv(x, numerator, x);
        AtanShift(x, last.numerator, last.denominator);
        EXPECT_TRUE(RealIsZero(x) || RealExponent(x) <= 1 - p) << PlainText(x);
    }
}

// What lets RealAtan leave step 0 out.
TEST(AtanShift, ChangesNothingByStepZero) {
    RandomSource random;
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (int round = 0; round < TestRounds(100); round++) {
            RealBuffer x;
            FillReal(random, x, 30);
            RealSetSign(x, 0);
            RealBuffer shifted = x;
            EXPECT_EQ(AtanShift(shifted, 0, 1), 0u);
            EXPECT_EQ(shifted, x);
        }
    }
}

TEST(RealAtan, KnowsSpecialValues) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(ResultOf(RealAtanRounded, "0"), Silent("0"));
        EXPECT_EQ(ResultOf(RealAtanRounded, "-0"), Silent("-0"));
        EXPECT_EQ(ResultOf(RealAtanRounded, "nan"), Silent("nan"));
        EXPECT_EQ(ResultOf(RealAtanRounded, "inf"), Digits(HalfPi));
        EXPECT_EQ(ResultOf(RealAtanRounded, "-inf"), Digits("-" + std::string(HalfPi)));
    }
}

TEST(RealAtan, GivesAnEighthOfATurnAtOnceForOne) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        RealBuffer quarterPi;
        LoadConstant(quarterPi, ConstPiQuarter);
        const RealBuffer one("1");
        RealBuffer dest;
        RealAtan(dest, one);
        EXPECT_EQ(dest, quarterPi);
        RealAtan(dest, RealBuffer("-1"));
        RealNegate(quarterPi);
        EXPECT_EQ(dest, quarterPi);
    }
}

TEST(RealAtan, KnowsAHundredDigits) {
    for (int64_t p : {1, 2, 3, 9, 16, 18, 19, 20, 37, 38, 39, 57, 65, 66, 100}) {
        PrecisionScope scope(p);
        EXPECT_EQ(
            ResultOf(RealAtanRounded, "0.5"),
            Digits("0.4636476090008061162142562314612144020285370542861202638109330887201978641"
                   "657417053006002839848878925565298523"));
        EXPECT_EQ(
            ResultOf(RealAtanRounded, "-2"),
            Digits("-1.107148717794090503017065460178537040070047645401432646676539207433710338"
                   "97736279401341712868617064143454419"));
        EXPECT_EQ(
            ResultOf(RealAtanRounded, "10"),
            Digits("1.4711276743037345918528755717617308518553063771832382624719635193438804556"
                   "9555384489340478823677216241151566"));
        if (p > 1) {
            EXPECT_EQ(
                ResultOf(RealAtanRounded, "0.01"),
                Digits("0.009999666686665238206340116209279548561369352544376639627939418196456"
                       "553204058779979446645186674090416708"));
        }
    }
}

TEST(RealAtan, GivesTheSmallestAnglesBackAndTheLargestARightAngle) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(ResultOf(RealAtanRounded, "1e-200"), Silent("1e-200"));
        EXPECT_EQ(ResultOf(RealAtanRounded, "-1e-4600000000000000000"),
                  Silent("-1e-4600000000000000000"));
        EXPECT_EQ(ResultOf(RealAtanRounded, "1e200"), Digits(HalfPi));
        // The inverse of this one lies below the range.
        EXPECT_EQ(ResultOf(RealAtanRounded, "-9e4611686018427387903"),
                  Digits("-" + std::string(HalfPi)));
    }
}

TEST(RealAtan, EqualsItsTwin) {
    RandomSource random;
    const auto compare = [&](int rounds, int64_t p) {
        PrecisionScope scope(p);
        for (int round = 0; round < rounds; round++) {
            RealBuffer x;
            FillReal(random, x, round % 4 == 0 ? 40 : 2);
            SCOPED_TRACE(PlainText(x));
            RealBuffer dest;
            RealBuffer twin;
            EXPECT_EQ(RealAtan(dest, x), reference::TwinAtan(twin, x));
            EXPECT_EQ(dest, twin);
        }
    };
    for (int64_t p : SmallPrecisions) {
        compare(TestRounds(200), p);
    }
    // The fine steps begin at 70 digits.
    for (int64_t p : {69, 70, 71, 76, 77}) {
        compare(TestRounds(200), p);
    }
    for (int64_t limbs = 1; limbs <= 40; limbs++) {
        compare(TestRounds(10),
                random.Between(DigitsPerLimb * (limbs - 1) + 1, DigitsPerLimb * limbs));
    }
}

// Every threshold from both sides, at the tangents that the series sees with and without fine
// steps.
TEST(RealAtan, EqualsItsTwinWhereTheStepChanges) {
    for (int64_t p : {9, 20, 69, 70, 100}) {
        PrecisionScope scope(p);
        for (const StepAngles& steps : BothSteps()) {
            for (size_t k = 0; k + 1 < steps.angles.size(); k++) {
                const auto digits = static_cast<int64_t>(std::llround(steps.Midway(k) * 1e11));
                for (int64_t offset : {-200, -100, -2, -1, 0, 1, 100}) {
                    const std::string text = std::to_string((digits + offset) / 1000) + "e-8";
                    const std::string exact = std::to_string(digits + offset) + "e-11";
                    const RealBuffer x(p < 11 ? text : exact);
                    SCOPED_TRACE(PlainText(x));
                    RealBuffer dest;
                    RealBuffer twin;
                    EXPECT_EQ(RealAtan(dest, x), reference::TwinAtan(twin, x));
                    EXPECT_EQ(dest, twin);
                }
            }
        }
    }
}

TEST(RealAtan, WorksWithFourGuardDigitsAsItsKindredDo) {
    const auto four = [](const RealNumber*) { return int64_t{4}; };
    ExpectGuardDigits(RealAtanRounded, RealAtan, four, -3, 3);
    ExpectGuardDigits(RealAsinRounded, RealAsin, four, -3, -1);
    ExpectGuardDigits(RealAcosRounded, RealAcos, four, -3, -1);
    RandomSource random;
    for (int round = 0; round < TestRounds(2000); round++) {
        PrecisionScope scope(random.Between(10, 60));
        RealBuffer y;
        RealBuffer x;
        FillReal(random, y, 2);
        FillReal(random, x, 2);
        RealBuffer dest;
        RealAtan2Rounded(dest, y, x);
        RealBuffer expected;
        RealRound(expected, WithGuardDigitsBinary(expected, y, x, 4, RealAtan2));
        EXPECT_EQ(dest, expected);
    }
}

TEST(RealAsin, KnowsSpecialValues) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(ResultOf(RealAsinRounded, "nan"), Silent("nan"));
        EXPECT_EQ(ResultOf(RealAsinRounded, "0"), Silent("0"));
        EXPECT_EQ(ResultOf(RealAsinRounded, "-0"), Silent("-0"));
        EXPECT_EQ(ResultOf(RealAsinRounded, "1"), Digits(HalfPi));
        EXPECT_EQ(ResultOf(RealAsinRounded, "-1"), Digits("-" + std::string(HalfPi)));
        for (const char* text : {"inf", "-inf", "2", "-2", "1e30", "-1e30"}) {
            EXPECT_EQ(ResultOf(RealAsinRounded, text), Undefined);
            EXPECT_EQ(ResultOf(RealAcosRounded, text), Undefined);
        }
    }
    PrecisionScope scope(20);
    EXPECT_EQ(ResultOf(RealAsinRounded, "1.0000000000000000001"), Undefined);
    EXPECT_EQ(ResultOf(RealAcosRounded, "-1.0000000000000000001"), Undefined);
}

TEST(RealAcos, KnowsSpecialValues) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(ResultOf(RealAcosRounded, "nan"), Silent("nan"));
        EXPECT_EQ(ResultOf(RealAcosRounded, "1"), Silent("0"));
        EXPECT_EQ(ResultOf(RealAcosRounded, "-1"), Digits(Pi));
        EXPECT_EQ(ResultOf(RealAcosRounded, "0"), Digits(HalfPi));
        EXPECT_EQ(ResultOf(RealAcosRounded, "-0"), Digits(HalfPi));
    }
}

TEST(RealAsin, KnowsDigits) {
    for (int64_t p : {3, 9, 16, 18, 19, 20, 37, 38, 39, 57, 100}) {
        PrecisionScope scope(p);
        EXPECT_EQ(
            ResultOf(RealAsinRounded, "0.3"),
            Digits("0.3046926540153975079720029612275291669545600317067763873929779487464729925"
                   "120331594385999572313631487317349566"));
        EXPECT_EQ(
            ResultOf(RealAsinRounded, "-0.3"),
            Digits("-0.304692654015397507972002961227529166954560031706776387392977948746472992"
                   "5120331594385999572313631487317349566"));
        EXPECT_EQ(
            ResultOf(RealAsinRounded, "0.999"),
            Digits("1.5260712396261631879816254589682003721944041429253947276568345901727461026"
                   "5555105735564973618507914292384328"));
        EXPECT_EQ(
            ResultOf(RealAcosRounded, "0.3"),
            Digits("1.2661036727794991112593187304122222751440246679807765230944943474074352106"
                   "3107133987541745543969538525933909"));
        EXPECT_EQ(
            ResultOf(RealAcosRounded, "-0.3"),
            Digits("1.8754889808102941272033246528672806090531447313943292978804502449003811956"
                   "5513765875261736990242168272280900"));
        EXPECT_EQ(
            ResultOf(RealAcosRounded, "0.999"),
            Digits("0.0447250871687334312496962326715510699041805567621581828306377059811621004"
                   "8755344195836767648597939106723075958"));
    }
}

TEST(RealAsin, KeepsItsDigitsNextToOne) {
    PrecisionScope scope(20);
    // acos(1 - 1e-20) = sqrt(2e-20) (1 + 1e-20 / 12 + ...)
    EXPECT_EQ(ResultOf(RealAcosRounded, "0.99999999999999999999"),
              Digits("1.41421356237309504880168872420e-10"));
    EXPECT_EQ(ResultOf(RealAsinRounded, "1e-300"), Silent("1e-300"));
}

TEST(RealAtan2, KnowsTheAxes) {
    const std::string minusHalf = "-" + std::string(HalfPi);
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        const auto angle = [](const char* y, const char* x) {
            return ResultOf(RealAtan2Rounded, y, x);
        };
        for (const char* x : {"0", "-0"}) {
            EXPECT_EQ(angle("0", x), Silent("0"));
            EXPECT_EQ(angle("-0", x), Silent("0"));
            for (const char* y : {"3", "1e-500", "inf"}) {
                EXPECT_EQ(angle(y, x), Digits(HalfPi));
                EXPECT_EQ(angle(("-" + std::string(y)).c_str(), x), Digits(minusHalf));
            }
        }
        for (const char* x : {"-1", "-1e50", "-inf"}) {
            EXPECT_EQ(angle("0", x), Digits(Pi));
            EXPECT_EQ(angle("-0", x), Digits(Pi));
        }
        for (const char* x : {"1", "1e50", "inf"}) {
            EXPECT_EQ(angle("0", x), Silent("0"));
            EXPECT_EQ(angle("-0", x), Silent("-0"));
        }
        for (const char* x : {"1", "-1", "1e50"}) {
            EXPECT_EQ(angle("inf", x), Digits(HalfPi));
            EXPECT_EQ(angle("-inf", x), Digits(minusHalf));
        }
    }
}

TEST(RealAtan2, KnowsTheQuadrants) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(
            ResultOf(RealAtan2Rounded, "1", "1"),
            Digits("0.7853981633974483096156608458198757210492923498437764552437361480769541015"
                   "715522496570087063355292669955370216"));
        EXPECT_EQ(
            ResultOf(RealAtan2Rounded, "-3", "-3"),
            Digits("-2.356194490192344928846982537459627163147877049531329365731208444230862304"
                   "71465674897102611900658780098661106488"));
        EXPECT_EQ(
            ResultOf(RealAtan2Rounded, "1", "-2"),
            Digits("2.6779450445889871222483871518182884821686323450889855571640115035876185421"
                   "20467293327434541357229175425618234262"));
        EXPECT_EQ(
            ResultOf(RealAtan2Rounded, "-1", "2"),
            Digits("-0.463647609000806116214256231461214402028537054286120263810933088720197864"
                   "1657417053006002839848878925565298523"));
        EXPECT_EQ(ResultOf(RealAtan2Rounded, "-1e-300", "-1"), Digits("-" + std::string(Pi)));
    }
}

// The quotient of the coordinates leaves the range before the angle is worked out.
TEST(RealAtan2, NotesAQuotientBeyondTheRange) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        const auto angle = [](const char* y, const char* x) {
            return ResultOf(RealAtan2Rounded, y, x);
        };
        const std::string right = RoundedText(HalfPi, p);
        EXPECT_EQ(angle("1e4000000000000000000", "1e-4000000000000000000"),
                  (Outcome{right, CalcErrorOverflow}));
        EXPECT_EQ(angle("-1e4000000000000000000", "-1e-4000000000000000000"),
                  (Outcome{"-" + right, CalcErrorOverflow}));
        EXPECT_EQ(angle("-1e-4000000000000000000", "1e4000000000000000000"), Silent("-0"));
        EXPECT_EQ(angle("1e-4000000000000000000", "-1e4000000000000000000"), Digits(Pi));
        FieldScope<uint8_t> quiet(numberContext.reportOverflow, 0);
        EXPECT_EQ(angle("1e4000000000000000000", "1e-4000000000000000000"), Silent(right));
        FieldScope<uint8_t> loud(numberContext.reportUnderflow, 1);
        EXPECT_EQ(angle("-1e-4000000000000000000", "1e4000000000000000000"),
                  (Outcome{"-0", CalcErrorUnderflow}));
    }
}

TEST(RealAtan2, PassesNaNAndRefusesTwoInfinities) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (const char* other : {"nan", "0", "-0", "1", "-1", "inf", "-inf"}) {
            EXPECT_EQ(ResultOf(RealAtan2Rounded, "nan", other), Silent("nan"));
            EXPECT_EQ(ResultOf(RealAtan2Rounded, other, "nan"), Silent("nan"));
        }
        for (const char* y : {"inf", "-inf"}) {
            for (const char* x : {"inf", "-inf"}) {
                EXPECT_EQ(ResultOf(RealAtan2Rounded, y, x), Undefined);
            }
        }
    }
}

TEST(InverseTrigonometric, ReturnsTheGuardLimbOfItsLastStep) {
    RandomSource random;
    for (int64_t p : {16, 19, 20, 39, 100}) {
        PrecisionScope scope(p);
        for (int round = 0; round < TestRounds(20); round++) {
            RealBuffer x;
            FillReal(random, x, 0);
            RealSetExponentAndSign(x, -1, 0);
            SCOPED_TRACE(PlainText(x));
            const RealBuffer one("1");
            RealBuffer above;
            RealBuffer below;
            RealBuffer expected;
            RealBuffer dest;
            RealAddRaw(above, one, x, false);
            RealAddRaw(below, one, x, true);

            RealMulRaw(expected, below, above);
            RealSqrt(expected, expected);
            RealDivRaw(expected, x, expected);
            const Limb ofAsin = RealAtan(expected, expected);
            EXPECT_EQ(RealAsin(dest, x), ofAsin);
            EXPECT_EQ(dest, expected);

            RealDivRaw(expected, below, above);
            RealSqrt(expected, expected);
            RealAtan(expected, expected);
            const Limb ofAcos = RealMulUint(expected, expected, 2);
            EXPECT_EQ(RealAcos(dest, x), ofAcos);
            EXPECT_EQ(dest, expected);

            RealBuffer left("-3");
            RealBuffer halfTurn;
            LoadConstant(halfTurn, ConstPiQuarter);
            RealMulUint(halfTurn, halfTurn, 4);
            RealDivRaw(expected, x, left);
            RealAtan(expected, expected);
            const Limb ofAtan2 = RealAddRaw(expected, expected, halfTurn, false);
            EXPECT_EQ(RealAtan2(dest, x, left), ofAtan2);
            EXPECT_EQ(dest, expected);

            RealNegate(left);
            RealDivRaw(expected, x, left);
            const Limb ofRightHalf = RealAtan(expected, expected);
            EXPECT_EQ(RealAtan2(dest, x, left), ofRightHalf);
            EXPECT_EQ(dest, expected);
        }
    }
}

TEST(InverseTrigonometric, HasNothingToStop) {
    PrecisionScope scope(100);
    uint8_t stop = 1;
    FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    for (RealRoundedUnary f : {RealAtanRounded, RealAsinRounded, RealAcosRounded}) {
        EXPECT_EQ(ResultOf(f, "0.3").code, CalcErrorNone);
    }
    EXPECT_EQ(ResultOf(RealAtan2Rounded, "-3", "-2").code, CalcErrorNone);
}

// With |x| < 1 neither function makes an error larger.
TEST(RealAtan, IsUndoneByTheTangent) {
    RandomSource random;
    for (int round = 0; round < TestRounds(500); round++) {
        PrecisionScope scope(random.Between(1, 200));
        RealBuffer x;
        FillReal(random, x, 0);
        RealSetExponent(x, random.Between(-8, -1));
        RealBuffer y;
        RealAtanRounded(y, x);
        RealTanRounded(y, y);
        ExpectWithin(2, y, x);
    }
}

TEST(RealAsin, IsUndoneByTheSine) {
    RandomSource random;
    for (int round = 0; round < TestRounds(500); round++) {
        PrecisionScope scope(random.Between(1, 200));
        RealBuffer x;
        FillReal(random, x, 0);
        RealSetExponent(x, random.Between(-8, -1));
        RealBuffer y;
        RealAsinRounded(y, x);
        RealSinRounded(y, y);
        // The angle has a unit ten times that of x once it passes 1.
        ExpectWithin(6, y, x);
        RealAcosRounded(y, x);
        RealCosRounded(y, y);
        RealBuffer difference;
        RealSub(difference, y, x);
        EXPECT_TRUE(RealIsZero(difference) ||
                    RealExponent(difference) <= 1 - numberContext.precisionDigits);
    }
}

TEST(RealAtan, WorksAtTheLongestLayout) {
    PrecisionScope scope(MaxPrecisionDigits);
    // 4 arctan(1/2) + 4 arctan(1/3) = pi; 1/3 is not exact, but its error stays below one unit.
    RealBuffer half("0.5");
    RealBuffer third;
    RealDiv(third, RealBuffer("1"), RealBuffer("3"));
    RealAtanRounded(half, half);
    RealAtanRounded(third, third);
    RealAdd(half, half, third);
    RealBuffer quarterPi;
    RealAtanRounded(quarterPi, RealBuffer("1"));
    ExpectWithin(3, half, quarterPi);
}

// An eighth of a turn lies half way between two numbers of few digits, and is rounded up.
TEST(ArcInUnits, RoundsExactAnglesAwayFromZero) {
    for (const int64_t p : {1, 2, 3, 19, 20, 39}) {
        PrecisionScope scope(p);
        for (const char* tangent : {"1", "-1"}) {
            const std::string sign = tangent[0] == '-' ? "-" : "";
            EXPECT_EQ(ResultOf(RealAtanDegreesRounded, tangent), Digits(sign + "45"));
            EXPECT_EQ(ResultOf(RealAtanGonRounded, tangent), Digits(sign + "50"));
            EXPECT_EQ(ResultOf(RealAtan2DegreesRounded, tangent, "-1"), Digits(sign + "135"));
            EXPECT_EQ(ResultOf(RealAtan2GonRounded, tangent, "-1"), Digits(sign + "150"));
            EXPECT_EQ(ResultOf(RealAsinDegreesRounded, tangent), Digits(sign + "90"));
            EXPECT_EQ(ResultOf(RealAsinGonRounded, tangent), Digits(sign + "100"));
        }
        EXPECT_EQ(ResultOf(RealAtan2DegreesRounded, "0", "-1"), Digits("180"));
        EXPECT_EQ(ResultOf(RealAsinDegreesRounded, "0.5"), Digits("30"));
        EXPECT_EQ(ResultOf(RealAcosDegreesRounded, "-0.5"), Digits("120"));
        EXPECT_EQ(ResultOf(RealAcosGonRounded, "0"), Digits("100"));
    }
}

// At one digit arctan 0.7 is 34.992 degrees: near to a whole number, and none.
TEST(ArcInUnits, RoundsOtherAnglesOnce) {
    PrecisionScope one(1);
    EXPECT_EQ(ResultOf(RealAtanDegreesRounded, "0.7"), Silent("3e1"));
    PrecisionScope two(2);
    EXPECT_EQ(ResultOf(RealAtanDegreesRounded, "110"), Silent("8.9e1"));
}

TEST(ArcInUnits, KnowsSpecialValues) {
    for (const int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (const RealRoundedUnary f : {RealAsinDegreesRounded, RealAcosGonRounded}) {
            EXPECT_EQ(ResultOf(f, "nan"), Silent("nan"));
            EXPECT_EQ(ResultOf(f, "2"), Undefined);
        }
        EXPECT_EQ(ResultOf(RealAtanDegreesRounded, "-inf"), Digits("-90"));
        EXPECT_EQ(ResultOf(RealAtanGonRounded, "-0"), Silent("-0"));
        EXPECT_EQ(ResultOf(RealAtan2GonRounded, "0", "0"), Silent("0"));
    }
}

}  // namespace
}  // namespace tallymere
