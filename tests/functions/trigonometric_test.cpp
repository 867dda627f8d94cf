#include "functions/trigonometric.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "core/real_add.h"
#include "core/real_divide.h"
#include "core/real_layout.h"
#include "core/real_multiply.h"
#include "core/real_rounding.h"
#include "functions/error_bounds.h"
#include "functions/function_testing.h"
#include "functions/stored_constants.h"
#include "reference/trigonometric_twins.h"

namespace tallymere {
namespace {

using namespace testing_support;

TEST(RealSinCos, KnowsSpecialValues) {
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        EXPECT_EQ(ResultOf(RealSinRounded, "0"), Silent("0"));
        EXPECT_EQ(ResultOf(RealSinRounded, "-0"), Silent("-0"));
        EXPECT_EQ(ResultOf(RealCosRounded, "0"), Silent("1e0"));
        EXPECT_EQ(ResultOf(RealCosRounded, "-0"), Silent("1e0"));
        EXPECT_EQ(ResultOf(RealTanRounded, "0"), Silent("0"));
        EXPECT_EQ(ResultOf(RealTanRounded, "-0"), Silent("-0"));
        for (RealRoundedUnary f : {RealSinRounded, RealCosRounded, RealTanRounded}) {
            EXPECT_EQ(ResultOf(f, "nan"), Silent("nan"));
            for (const char* text : {"inf", "-inf", "1e20", "-1e20", "1e4000000000000000000"}) {
                EXPECT_EQ(ResultOf(f, text), Undefined) << text;
            }
        }
    }
}

// One angle in each octant. The digits come from another program.
struct KnownAngle {
    const char* x;
    const char* sine;
    const char* cosine;
    const char* tangent;
};
constexpr KnownAngle AnglesByOctant[] = {
    {"0.5", "0.479425538604203000273287935215571388081803",
     "0.877582561890372716116281582603829651991645",
     "0.546302489843790513255179465780285383297552"},
    {"1", "0.841470984807896506652502321630298999622563",
     "0.54030230586813971740093660744297660373231", "1.55740772465490223050697480745836017308725"},
    {"2", "0.909297426825681695396019865911744842702255",
     "-0.416146836547142386997568229500762189766001",
     "-2.18503986326151899164330610231368254343202"},
    {"3", "0.141120008059867222100744802808110279846933",
     "-0.989992496600445457271572794731261302393679",
     "-0.142546543074277805295635410533913493226092"},
    {"3.5", "-0.350783227689619848120368800043635585084982",
     "-0.936456687290796337698657626671760463019958",
     "0.374585640158594666330512579989147388450882"},
    {"4.5", "-0.977530117665097055389135014498629777864382",
     "-0.210795799430779705980481824793830393010787",
     "4.63733205455118446831908669495962673002033"},
    {"5", "-0.958924274663138468893154406155993973352462",
     "0.283662185463226264466639171513557308334423",
     "-3.38051500624658563698270587944734390870957"},
    {"6", "-0.279415498198925872811555446611894759627995",
     "0.960170286650366020545652297922924405451938",
     "-0.291006191384749157053699588868175542831156"},
};

std::string Negated(std::string_view text) {
    return text.front() == '-' ? std::string(text.substr(1)) : "-" + std::string(text);
}

TEST(RealSinCos, TakesSignsAndSeriesByOctant) {
    for (int64_t p : {9, 16, 18, 19, 20, 37, 38, 39}) {
        PrecisionScope scope(p);
        for (const KnownAngle& angle : AnglesByOctant) {
            SCOPED_TRACE(angle.x);
            const std::string minus = Negated(angle.x);
            EXPECT_EQ(ResultOf(RealSinRounded, angle.x), Digits(angle.sine));
            EXPECT_EQ(ResultOf(RealCosRounded, angle.x), Digits(angle.cosine));
            EXPECT_EQ(ResultOf(RealTanRounded, angle.x), Digits(angle.tangent));
            EXPECT_EQ(ResultOf(RealSinRounded, minus), Digits(Negated(angle.sine)));
            EXPECT_EQ(ResultOf(RealCosRounded, minus), Digits(angle.cosine));
            EXPECT_EQ(ResultOf(RealTanRounded, minus), Digits(Negated(angle.tangent)));
        }
    }
}

TEST(RealSinCos, GivesBothOutputsAtOnce) {
    PrecisionScope scope(39);
    for (const KnownAngle& angle : AnglesByOctant) {
        for (bool negative : {false, true}) {
            const RealBuffer x(negative ? Negated(angle.x) : angle.x);
            const RealBuffer sine = NumberOf(negative ? Negated(angle.sine) : angle.sine);
            const RealBuffer cosine = NumberOf(angle.cosine);
            RealBuffer s;
            RealBuffer c;
            RealSinCos(s, c, x);
            ExpectWithin(RawSinCosErrorBound, s, sine);
            ExpectWithin(RawSinCosErrorBound, c, cosine);
            RealBuffer same = x;
            RealSinCos(same, c, same);
            EXPECT_EQ(same, s);
            same = x;
            RealSinCos(s, same, same);
            EXPECT_EQ(same, c);
        }
    }
}

TEST(RealSinCos, LeavesOutWhatIsNotWanted) {
    for (int64_t p : {1, 16, 20, 39}) {
        PrecisionScope scope(p);
        for (const char* text : {"0", "-0", "2", "-5", "nan", "inf", "1e20"}) {
            SCOPED_TRACE(text);
            const RealBuffer x(text);
            RealBuffer s;
            RealBuffer c;
            RealSinCos(s, c, x);
            const CalcError code = TakeCode();
            RealBuffer alone;
            RealSinCos(alone, nullptr, x);
            EXPECT_EQ(TakeCode(), code);
            if (RealIsSpecial(s)) {
                EXPECT_EQ(alone, s);
            } else {
                ExpectWithin(RawSinCosErrorBound, alone, s);
            }
            RealSinCos(nullptr, alone, x);
            EXPECT_EQ(TakeCode(), code);
            if (RealIsSpecial(c)) {
                EXPECT_EQ(alone, c);
            } else {
                ExpectWithin(RawSinCosErrorBound, alone, c);
            }
            RealSinCos(nullptr, nullptr, x);
            EXPECT_EQ(TakeCode(), CalcErrorNone) << "no output, no failure";
        }
    }
}

TEST(RealSinCos, ReturnsTheGuardLimbOfASingleOutput) {
    PrecisionScope scope(19);
    const RealBuffer x("1");
    RealBuffer dest;
    // The sine of 1 is the cosine series of 1 - pi / 2, with digits below its last limb.
    const Limb guard = RealSinCos(dest, nullptr, x);
    EXPECT_EQ(RealSin(dest, x), guard);
    EXPECT_NE(guard, 0u);
    EXPECT_NE(RealCos(dest, x), 0u);
    RealBuffer both;
    EXPECT_EQ(RealSinCos(dest, both, x), 0u);
}

TEST(RealSinCos, ServesExponent19AsFarAsTheOctantsCanBeCounted) {
    constexpr const char* Sine =
        "-0.92706316604865038523412228966493597546472756382250801252964783167714983054479791283";
    constexpr const char* Cosine =
        "-0.374905169550717830153220546009610730974258226679595662508680895360230007300023313945";
    constexpr const char* Tangent =
        "2.4727937658465273603381867956365660224966779922635880995701048332631100148697672025";
    for (int64_t p : {2, 3, 9, 16, 18, 19, 20, 37, 38, 39, 57}) {
        PrecisionScope scope(p);
        EXPECT_EQ(ResultOf(RealSinRounded, "1e19"), Digits(Sine));
        EXPECT_EQ(ResultOf(RealSinRounded, "-1e19"), Digits(Negated(Sine)));
        EXPECT_EQ(ResultOf(RealCosRounded, "1e19"), Digits(Cosine));
        EXPECT_EQ(ResultOf(RealTanRounded, "1e19"), Digits(Tangent));
    }
    // 2^64 pi / 4 is 1.44880...e19.
    for (int64_t p : {9, 16, 19, 20, 39}) {
        PrecisionScope scope(p);
        EXPECT_EQ(ResultOf(RealSinRounded, "1.4488e19"),
                  Digits("-0.682657586979998875120196779675702501025370073097712701327715230163"));
        EXPECT_EQ(ResultOf(RealSinRounded, "1.4489e19"), Undefined);
        EXPECT_EQ(ResultOf(RealCosRounded, "-1.4489e19"), Undefined);
        EXPECT_EQ(ResultOf(RealTanRounded, "9e19"), Undefined);
    }
}

TEST(RealSinCos, KeepsTheDigitsOfLargeAngles) {
    constexpr const char* Sine =
        "-0.48750602508751069152779429434810604167644731692278688574525453784";
    constexpr const char* Cosine =
        "0.87311962267685600117619134530769519619041260016768673606921929287";
    for (int64_t p : {1, 2, 3, 9, 16, 18, 19, 20, 37, 38, 39, 57}) {
        PrecisionScope scope(p);
        EXPECT_EQ(ResultOf(RealSinRounded, "1e10"), Digits(Sine));
        EXPECT_EQ(ResultOf(RealCosRounded, "1e10"), Digits(Cosine));
    }
}

TEST(RealSinCos, KnowsAHundredDigits) {
    for (int64_t p : {1, 2, 3, 9, 16, 57, 100}) {
        PrecisionScope scope(p);
        EXPECT_EQ(
            ResultOf(RealSinRounded, "1"),
            Digits("0.8414709848078965066525023216302989996225630607983710656727517099919104043"
                   "912396689486397435430526958543490379"));
        EXPECT_EQ(
            ResultOf(RealCosRounded, "1"),
            Digits("0.5403023058681397174009366074429766037323104206179222276700972553811003947"
                   "744717645179518560871830893435717312"));
        EXPECT_EQ(
            ResultOf(RealTanRounded, "1"),
            Digits("1.5574077246549022305069748074583601730872507723815200383839466056988613971"
                   "51727289555099965202242983804633821412"));
    }
}

TEST(RealSinCos, GivesTinyAnglesBack) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (const char* text : {"1e-200", "-3e-1000", "7e-4000000000000000000"}) {
            EXPECT_EQ(ResultOf(RealSinRounded, text), Silent(text));
            EXPECT_EQ(ResultOf(RealTanRounded, text), Silent(text));
            EXPECT_EQ(ResultOf(RealCosRounded, text), Silent("1e0"));
        }
    }
}

TEST(RealTan, ReturnsTheGuardLimbOfTheQuotient) {
    for (int64_t p : {16, 19, 20, 39}) {
        PrecisionScope scope(p);
        const RealBuffer x("2");
        RealBuffer sine;
        RealBuffer cosine;
        RealSinCos(sine, cosine, x);
        RealBuffer quotient;
        const Limb guard = RealDivRaw(quotient, sine, cosine);
        RealBuffer dest;
        EXPECT_EQ(RealTan(dest, x), guard);
        EXPECT_EQ(dest, quotient);
        EXPECT_NE(guard, 0u);
    }
}

// pi / 4 as 3 digits hold it is 0.785, and twice that leaves no rest. Rounding works with four more
// digits, which see the difference.
TEST(RealTan, IsInfiniteWhereTheLayoutHoldsThePoleItself) {
    PrecisionScope scope(3);
    const RealBuffer x("1.57");
    RealBuffer dest;
    RealTan(dest, x);
    EXPECT_EQ(PlainText(dest), "-inf");
    EXPECT_EQ(TakeCode(), CalcErrorOverflow);
    FieldScope<uint8_t> quiet(numberContext.reportOverflow, 0);
    RealTan(dest, x);
    EXPECT_EQ(PlainText(dest), "-inf");
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    EXPECT_EQ(ResultOf(RealTanRounded, "1.57"), Digits("1255.7655915007896"));
}

TEST(RealTan, IsVeryLargeNextToAPole) {
    PrecisionScope scope(20);
    // They lie 3.1322e-20 below and 6.8678e-20 above pi / 2.
    EXPECT_EQ(ResultOf(RealTanRounded, "1.5707963267948966192"),
              Silent("3.1926755792808630288e19"));
    EXPECT_EQ(ResultOf(RealTanRounded, "1.5707963267948966193"),
              Silent("-1.4560638196773151247e19"));
}

// A multiple of pi / 2 rounded to p digits leaves about 10^-p, all of whose digits count.
TEST(RealSinCos, KeepsAllDigitsNextToMultiplesAtEveryPrecision) {
    for (const int64_t p : {1, 2, 19, 20, 57, 100, 1000, 5000, 10'002, 10'005}) {
        PrecisionScope scope(p);
        for (const uint64_t k : {1u, 2u, 3u, 4u, 1'000'003u}) {
            SCOPED_TRACE(std::to_string(k) + " at " + std::to_string(p));
            RealBuffer x;
            RealBuffer expected;
            {
                // x = k pi / 2 to p digits, and the rest of k pi / 2 behind it.
                RealLayoutScope layout;
                InstallRealLayout(LayoutForDigits(p + 45 + (p > 5000 ? 10'005 : p)));
                RealBuffer multiple;
                LoadLongPiQuarter(multiple);
                RealMulUint(multiple, multiple, 2 * k);
                RealBuffer shortened;
                RealRoundDigits(shortened, multiple, p);
                RealBuffer rest;
                RealSub(rest, multiple, shortened);
                const RealLayout wide = CurrentRealLayout();
                InstallRealLayout(layout.Saved());
                RealConvertLayout(x, shortened, wide);
                RealRound(expected, RealConvertLayout(expected, rest, wide));
            }
            // The cube of the rest is mostly below its last place.
            RealBuffer result;
            (k % 2 == 0 ? RealSinRounded : RealCosRounded)(result, x);
            RealSetSign(result, 0);
            RealSetSign(expected, 0);
            const bool cubeCounts = RealExponent(expected) >= -p / 2 - 1;
            EXPECT_TRUE(!cubeCounts || p <= 20);
            if (cubeCounts) {
                continue;
            }
            EXPECT_EQ(result, expected);
            RealBuffer tangent;
            RealTanRounded(tangent, x);
            RealSetSign(tangent, 0);
            if (k % 2 != 0) {
                RealReciprocal(expected, expected);
            }
            ExpectWithin(k % 2 == 0 ? 0 : 6, tangent, expected);
        }
    }
}

using UnitFunctions = std::array<RealRoundedUnary, 3>;
constexpr UnitFunctions InDegrees = {RealSinDegreesRounded, RealCosDegreesRounded,
                                     RealTanDegreesRounded};
constexpr UnitFunctions InGon = {RealSinGonRounded, RealCosGonRounded, RealTanGonRounded};

TEST(CircularInUnits, KnowSpecialValues) {
    for (const int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (const auto& [sine, cosine, tangent] : {InDegrees, InGon}) {
            EXPECT_EQ(ResultOf(sine, "-0"), Silent("-0"));
            EXPECT_EQ(ResultOf(cosine, "-0"), Silent("1e0"));
            EXPECT_EQ(ResultOf(tangent, "0"), Silent("0"));
            for (const RealRoundedUnary f : {sine, cosine, tangent}) {
                EXPECT_EQ(ResultOf(f, "nan"), Silent("nan"));
                for (const char* text : {"inf", "-inf", "1e21", "-1e4000000000000000000"}) {
                    EXPECT_EQ(ResultOf(f, text), Undefined) << text;
                }
            }
        }
        EXPECT_EQ(ResultOf(RealSinDegreesRounded, "9e20"), Undefined);
    }
}

TEST(CircularInUnits, AreExactAtMultiplesOfTheQuarterTurn) {
    const auto check = [](const UnitFunctions& functions, const char* quarter, const char* half,
                          const char* large) {
        const auto& [sine, cosine, tangent] = functions;
        const std::string minusQuarter = Negated(quarter);
        EXPECT_EQ(ResultOf(sine, quarter), Silent("1e0"));
        EXPECT_EQ(ResultOf(sine, minusQuarter), Silent("-1e0"));
        EXPECT_EQ(ResultOf(cosine, quarter), Silent("0"));
        EXPECT_EQ(ResultOf(cosine, minusQuarter), Silent("0"));
        EXPECT_EQ(ResultOf(tangent, quarter), (Outcome{"inf", CalcErrorOverflow}));
        EXPECT_EQ(ResultOf(tangent, minusQuarter), (Outcome{"-inf", CalcErrorOverflow}));
        for (const std::string& text : {std::string(half), Negated(half)}) {
            EXPECT_EQ(ResultOf(sine, text), Silent("0"));
            EXPECT_EQ(ResultOf(cosine, text), Silent("-1e0"));
            EXPECT_EQ(ResultOf(tangent, text), Silent("0"));
        }
        EXPECT_EQ(ResultOf(sine, large), Silent("0"));
        EXPECT_EQ(ResultOf(cosine, large), Silent("1e0"));
        FieldScope<uint8_t> quiet(numberContext.reportOverflow, 0);
        EXPECT_EQ(ResultOf(tangent, quarter), Silent("inf"));
    };
    for (const int64_t p : {2, 9, 19, 20, 39}) {
        PrecisionScope scope(p);
        check(InDegrees, "90", "180", "3.6e20");
        check(InGon, "100", "200", "1e20");
    }
}

// 45 degrees times 2^64 are the last that have a value.
TEST(CircularInUnits, EndAtTheirLimit) {
    for (const int64_t p : {21, 38, 39}) {
        PrecisionScope scope(p);
        EXPECT_FALSE(RealAngleIsTooLarge(RealBuffer("-830103483316929822720"), 45));
        EXPECT_TRUE(RealAngleIsTooLarge(RealBuffer("-830103483316929822721"), 45));
        EXPECT_EQ(ResultOf(RealCosDegreesRounded, "830103483316929822720"), Silent("1e0"));
        EXPECT_EQ(ResultOf(RealCosDegreesRounded, "830103483316929822721"), Undefined);
    }
    for (const int64_t p : {1, 5, 6, 19}) {
        PrecisionScope scope(p);
        EXPECT_FALSE(RealAngleIsTooLarge(RealBuffer("8e20"), 45));
        EXPECT_TRUE(RealAngleIsTooLarge(RealBuffer("9e20"), 45));
        EXPECT_FALSE(RealAngleIsTooLarge(RealBuffer("9e20"), 50));
        EXPECT_TRUE(RealAngleIsTooLarge(RealBuffer("-inf"), 50));
    }
}

TEST(RealSinCos, StopsInTheReductionWhenAsked) {
    PrecisionScope scope(20);
    uint8_t stop = 1;
    FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    for (RealRoundedUnary f : {RealSinRounded, RealCosRounded, RealTanRounded}) {
        EXPECT_EQ(ResultOf(f, "1000"), Cancelled);
        EXPECT_EQ(ResultOf(f, "0.5").code, CalcErrorNone) << "nothing to reduce";
    }
}

TEST(RealSinCos, EqualsItsTwin) {
    RandomSource random;
    const auto compare = [&](int rounds, int64_t p) {
        PrecisionScope scope(p);
        for (int round = 0; round < rounds; round++) {
            RealBuffer x;
            FillReal(random, x, 6);
            SCOPED_TRACE(PlainText(x));
            RealBuffer s;
            RealBuffer c;
            RealBuffer twinS;
            RealBuffer twinC;
            RealSinCos(s, c, x);
            reference::TwinSinCos(twinS, twinC, x);
            EXPECT_EQ(s, twinS);
            EXPECT_EQ(c, twinC);
            RealSin(s, x);
            reference::TwinSinCos(twinS, nullptr, x);
            EXPECT_EQ(s, twinS);
            RealCos(c, x);
            reference::TwinSinCos(nullptr, twinC, x);
            EXPECT_EQ(c, twinC);
        }
    };
    for (int64_t p : SmallPrecisions) {
        compare(TestRounds(100), p);
    }
    for (int64_t limbs = 1; limbs <= 40; limbs++) {
        compare(TestRounds(5),
                random.Between(DigitsPerLimb * (limbs - 1) + 1, DigitsPerLimb * limbs));
    }
}

// Both errors are below one half and a little more of their last places, and the squares and their
// sum are each rounded once.
TEST(RealSinCos, HasSquaresThatAddUpToOne) {
    RandomSource random;
    for (int round = 0; round < TestRounds(1000); round++) {
        PrecisionScope scope(random.Between(1, 200));
        RealBuffer x;
        FillReal(random, x, 18);
        SCOPED_TRACE(PlainText(x));
        RealBuffer s;
        RealBuffer c;
        RealSinRounded(s, x);
        RealCosRounded(c, x);
        RealMul(s, s, s);
        RealMul(c, c, c);
        RealAdd(s, s, c);
        ExpectWithin(1, s, RealBuffer("1"));
    }
}

TEST(RealTan, IsSineOverCosine) {
    RandomSource random;
    for (int round = 0; round < TestRounds(500); round++) {
        PrecisionScope scope(random.Between(3, 200));
        RealBuffer x;
        FillReal(random, x, 3);
        SCOPED_TRACE(PlainText(x));
        RealBuffer s;
        RealBuffer c;
        RealBuffer t;
        RealSinRounded(s, x);
        RealCosRounded(c, x);
        RealTanRounded(t, x);
        RealDiv(s, s, c);
        ExpectWithin(12, t, s);
    }
}

TEST(RealSinCos, WorksAtTheLongestLayout) {
    PrecisionScope scope(MaxPrecisionDigits);
    const RealBuffer x("12.5");
    RealBuffer s;
    RealBuffer c;
    RealSinRounded(s, x);
    RealCosRounded(c, x);
    RealMul(s, s, s);
    RealMul(c, c, c);
    RealAdd(s, s, c);
    ExpectWithin(1, s, RealBuffer("1"));
}

}  // namespace
}  // namespace tallymere
