#include "core/number_context.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

#include "core/scratch.h"
#include "support/number_layouts.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

TEST(NumberContext, HasItsStartValues) {
    const NumberContext& context = numberContext;
    EXPECT_EQ(context.calcError, CalcErrorNone);
    EXPECT_EQ(context.precisionDigits, 16);
    EXPECT_EQ(context.realLimbs, 1);
    EXPECT_EQ(context.topLimbDigits, 16);
    EXPECT_EQ(context.uintDigits, 19);
    EXPECT_EQ(context.uintLimbs, 1);
    EXPECT_EQ(context.numberType, NumberTypeNone);
    EXPECT_EQ(context.fixedExponentLow, -4);
    EXPECT_EQ(context.fixedExponentHigh, 10);
    EXPECT_EQ(context.noRounding, 0);
    EXPECT_EQ(context.reportUnderflow, 0);
    EXPECT_EQ(context.reportOverflow, 1);
    EXPECT_EQ(context.useInfinitySign, 1);
    EXPECT_EQ(std::u16string(context.decimalSeparators, 3), u"...");
    EXPECT_EQ(std::u16string(context.groupSeparators, 3), u"'''");
    EXPECT_EQ(std::u16string(context.exponentChars, 4), u"eEEE");
    EXPECT_EQ(std::u16string(context.imaginaryChars, 2), u"ii");
    EXPECT_EQ(context.scratchTop, context.scratchBase);
    EXPECT_EQ(context.scratchBase, coreScratch.base);
}

TEST(SetRealPrecision, MapsDigitsToLimbs) {
    ContextCheck check;
    RealLayoutScope scope;
    struct Row {
        int64_t p, n, t;
    };
    for (const Row row : {Row{1, 1, 1}, Row{2, 1, 2}, Row{18, 1, 18}, Row{19, 1, 19}, Row{20, 2, 1},
                          Row{25, 2, 6}, Row{38, 2, 19}, Row{39, 3, 1}, Row{10'005, 527, 11}}) {
        EXPECT_TRUE(SetRealPrecision(row.p));
        EXPECT_EQ(numberContext.precisionDigits, row.p);
        EXPECT_EQ(numberContext.realLimbs, row.n);
        EXPECT_EQ(numberContext.topLimbDigits, row.t);
    }
    for (int64_t p = 1; p <= MaxPrecisionDigits; p++) {
        ASSERT_TRUE(SetRealPrecision(p));
        const int64_t n = numberContext.realLimbs;
        const int64_t t = numberContext.topLimbDigits;
        ASSERT_EQ(n, (p + 18) / 19);
        ASSERT_EQ(t, p - 19 * n + 19);
        ASSERT_TRUE(t >= 1 && t <= 19);
    }
}

TEST(SetRealPrecision, RefusesWhatIsOutOfRangeAndChangesNothing) {
    PrecisionScope scope(25);
    for (int64_t p : {int64_t{0}, int64_t{-1}, int64_t{10'006}, INT64_MAX, INT64_MIN}) {
        EXPECT_FALSE(SetRealPrecision(p));
        EXPECT_EQ(TakeCode(), CalcErrorBadParameter);
        EXPECT_EQ(numberContext.precisionDigits, 25);
        EXPECT_EQ(numberContext.realLimbs, 2);
        EXPECT_EQ(numberContext.topLimbDigits, 6);
    }
}

TEST(SetCalcError, KeepsTheFirstCode) {
    ContextCheck check;
    SetCalcError(CalcErrorOverflow);
    SetCalcError(CalcErrorUndefined);
    EXPECT_EQ(TakeCode(), CalcErrorOverflow);
}

TEST(CalcErrorCodes, AreThoseThatCallersKnow) {
    EXPECT_EQ(CalcErrorBadParameter, 100u);
    EXPECT_EQ(CalcErrorUnknownType, 102u);
    EXPECT_EQ(CalcErrorOverflow, 200u);
    EXPECT_EQ(CalcErrorUnderflow, 201u);
    EXPECT_EQ(CalcErrorExactDivisionByZero, 202u);
    EXPECT_EQ(CalcErrorUndefined, 203u);
    EXPECT_EQ(CalcErrorMalformed, 204u);
    EXPECT_EQ(CalcErrorComplexNotAllowed, 205u);
    EXPECT_EQ(CalcErrorCancelled, 207u);
    EXPECT_EQ(CalcErrorTextTooLong, 300u);
    EXPECT_EQ(CalcErrorSyntax, 301u);
    EXPECT_EQ(CalcErrorCapacity, 400u);
}

TEST(RealLayoutScope, PutsTheLayoutBack) {
    PrecisionScope scope(25);
    {
        RealLayoutScope inner;
        InstallRealLayout(LayoutForDigits(1000));
        EXPECT_EQ(inner.Saved().digits, 25);
        EXPECT_EQ(numberContext.realLimbs, 53);
    }
    EXPECT_EQ(CurrentRealLayout().digits, 25);
    EXPECT_EQ(CurrentRealLayout().limbs, 2);
    EXPECT_EQ(CurrentRealLayout().topDigits, 6);
}

TEST(UintLimbsForDigits, IsTheWholePartOfTheLimbsAndOne) {
    struct Row {
        int64_t digits, limbs;
    };
    // 10^19 < 2^64 < 10^20: 19 digits need 63.1 bits, 20 digits 66.4.
    for (const Row row : {Row{0, 1}, Row{1, 1}, Row{19, 1}, Row{20, 2}, Row{38, 2}, Row{39, 3},
                          Row{500, 26}, Row{1252, 65}, Row{10'000, 520}, Row{20'000, 1039}}) {
        EXPECT_EQ(UintLimbsForDigits(row.digits), row.limbs) << row.digits << " digits";
    }
}

TEST(UintWidthForLimbs, TellsTheDigitsThatSurelyFit) {
    struct Row {
        int64_t limbs, digits;
    };
    // The whole part of limbs * 64 * log10(2) = limbs * 19.2659...
    for (const Row row : {Row{1, 19}, Row{2, 38}, Row{3, 57}, Row{4, 77}, Row{26, 500},
                          Row{65, 1252}, Row{520, 10'018}, Row{1039, 20'017}, Row{2000, 38'531}}) {
        EXPECT_EQ(UintWidthForLimbs(row.limbs).digits, row.digits) << row.limbs << " limbs";
        EXPECT_EQ(UintWidthForLimbs(row.limbs).limbs, row.limbs);
    }
}

TEST(UintWidthForLimbs, GivesADoubledWidthTheDigitsOfItsLimbs) {
    // limbs * 128 * log10(2) by a factor of its own is what twice as many limbs have.
    for (int64_t limbs = 1; limbs <= MaxUintLimbs; limbs++) {
        ASSERT_EQ(UintWidthForLimbs(2 * limbs).digits, (limbs * 5'171'655'946) >> 27);
    }
    EXPECT_EQ(UintWidthForLimbs(2 * 1039).digits, 40'034);
}

TEST(SetUintDigits, SetsTheWidthAndKeepsTheDigitsAsAsked) {
    ContextCheck check;
    UintWidthScope scope;
    for (int64_t digits : {0, 1, 19, 20, 38, 500, 1252, 10'000, 20'000, 38'516, 38'531}) {
        EXPECT_TRUE(SetUintDigits(digits));
        EXPECT_EQ(numberContext.uintDigits, digits);
        EXPECT_EQ(numberContext.uintLimbs, UintLimbsForDigits(digits));
    }
}

TEST(SetUintDigits, RefusesMoreThanTheLargestWidthAndChangesNothing) {
    ContextCheck check;
    UintWidthScope scope;
    // The most digits whose product with the limbs of a digit, shifted, is 1,999.
    int64_t most = 38'000;
    while (UintLimbsForDigits(most + 1) <= MaxUintLimbs) {
        most++;
    }
    EXPECT_TRUE(SetUintDigits(most));
    EXPECT_EQ(numberContext.uintLimbs, 2000);
    EXPECT_EQ(numberContext.uintDigits, most);
    EXPECT_TRUE(SetUintDigits(25));
    for (int64_t digits : {most + 1, int64_t{100'000}, int64_t{10'000'000'000}}) {
        EXPECT_FALSE(SetUintDigits(digits));
        EXPECT_EQ(TakeCode(), CalcErrorBadParameter);
        EXPECT_EQ(numberContext.uintDigits, 25);
        EXPECT_EQ(numberContext.uintLimbs, 2);
    }
}

TEST(SetUintDigits, KeepsACodeThatWasNotedBefore) {
    ContextCheck check;
    SetCalcError(CalcErrorOverflow);
    EXPECT_FALSE(SetUintDigits(100'000));
    EXPECT_EQ(TakeCode(), CalcErrorOverflow);
}

TEST(UintWidthScope, PutsBothFieldsOfTheWidthBack) {
    ContextCheck check;
    UintWidthScope outer;
    // 500 digits have 26 limbs, and 26 limbs have 500 digits; 501 show which of the two came back.
    InstallUintWidth({501, 27});
    {
        UintWidthScope doubled(2 * numberContext.uintLimbs);
        EXPECT_EQ(numberContext.uintLimbs, 54);
        EXPECT_EQ(numberContext.uintDigits, 1040);
        EXPECT_EQ(doubled.Saved().limbs, 27);
        EXPECT_EQ(doubled.Saved().digits, 501);
        {
            UintWidthScope narrow(1);
            EXPECT_EQ(numberContext.uintLimbs, 1);
            EXPECT_EQ(numberContext.uintDigits, 19);
        }
        EXPECT_EQ(numberContext.uintLimbs, 54);
        EXPECT_EQ(numberContext.uintDigits, 1040);
    }
    EXPECT_EQ(numberContext.uintLimbs, 27);
    EXPECT_EQ(numberContext.uintDigits, 501);
    {
        UintWidthScope unchanged;
        EXPECT_EQ(numberContext.uintLimbs, 27);
        InstallUintWidth({1, 1});
    }
    EXPECT_EQ(CurrentUintWidth().limbs, 27);
    EXPECT_EQ(CurrentUintWidth().digits, 501);
}

TEST(CalcErrorScope, PutsTheEarlierCodeBackOverLaterOnes) {
    ContextCheck check;
    SetCalcError(CalcErrorUndefined);
    {
        CalcErrorScope scope;
        EXPECT_EQ(numberContext.calcError, CalcErrorNone);
        SetCalcError(CalcErrorOverflow);
        EXPECT_EQ(numberContext.calcError, CalcErrorOverflow);
    }
    EXPECT_EQ(TakeCode(), CalcErrorUndefined);
}

TEST(CalcErrorScope, LetsACodeOutWhenNoneWasNotedBefore) {
    ContextCheck check;
    {
        CalcErrorScope scope;
        SetCalcError(CalcErrorOverflow);
    }
    EXPECT_EQ(TakeCode(), CalcErrorOverflow);
    { CalcErrorScope scope; }
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

TEST(StopRequested, ReadsTheByteThatTheContextPointsTo) {
    uint8_t stop = 0;
    {
        FieldScope<uint8_t*> none(numberContext.abortFlag, nullptr);
        EXPECT_FALSE(StopRequested());
    }
    FieldScope<uint8_t*> scope(numberContext.abortFlag, &stop);
    EXPECT_FALSE(StopRequested());
    SetStopByte(&stop, 1);
    EXPECT_TRUE(StopRequested());
    SetStopByte(&stop, 0);
    EXPECT_FALSE(StopRequested());
}

TEST(NumberContext, IsConsistentUnderEveryLayout) {
    ForEachLayout(AllNumberTypes, LayoutRange::All, [](const NumberLayout& layout) {
        EXPECT_EQ(numberContext.numberType, layout.type);
        EXPECT_EQ(numberContext.precisionDigits, layout.digits);
        EXPECT_EQ(numberContext.uintLimbs, layout.limbs);
        EXPECT_TRUE(NumberContextIsConsistent());
    });
}

TEST(NumberContext, HasConsistentWidthsOfEveryLength) {
    for (int64_t limbs = 1; limbs <= MaxWorkingUintLimbs; limbs++) {
        const UintWidth width = UintWidthForLimbs(limbs);
        EXPECT_TRUE(UintWidthIsConsistent(width)) << limbs;
        EXPECT_TRUE(UintWidthIsConsistent({0, limbs})) << limbs;
        EXPECT_FALSE(UintWidthIsConsistent({width.digits + 1, limbs})) << limbs;
        EXPECT_FALSE(UintWidthIsConsistent({-1, limbs})) << limbs;
    }
    EXPECT_FALSE(UintWidthIsConsistent({0, 0}));
    EXPECT_FALSE(UintWidthIsConsistent({19, MaxWorkingUintLimbs + 1}));
    for (int64_t digits = 0; digits <= 38'000; digits++) {
        EXPECT_TRUE(UintWidthIsConsistent({digits, UintLimbsForDigits(digits)})) << digits;
    }
}

TEST(NumberContext, IsInconsistentWhereAnyOfItIsWrong) {
    const auto isConsistentWith = [](auto& field, auto value) {
        const FieldScope<std::remove_reference_t<decltype(field)>> scope(field, value);
        return NumberContextIsConsistent();
    };
    NumberContext& context = numberContext;
    EXPECT_TRUE(isConsistentWith(context.noRounding, uint8_t{255}));
    EXPECT_TRUE(isConsistentWith(context.reportUnderflow, uint8_t{255}));
    EXPECT_TRUE(isConsistentWith(context.reportOverflow, uint8_t{255}));
    EXPECT_TRUE(isConsistentWith(context.useInfinitySign, uint8_t{255}));
    EXPECT_TRUE(isConsistentWith(context.numberType, static_cast<NumberType>(3)));
    EXPECT_FALSE(isConsistentWith(context.precisionDigits, context.precisionDigits + 1));
    EXPECT_FALSE(isConsistentWith(context.realLimbs, context.realLimbs + 1));
    EXPECT_FALSE(isConsistentWith(context.topLimbDigits, int64_t{0}));
    EXPECT_FALSE(isConsistentWith(context.uintLimbs, int64_t{0}));
    EXPECT_FALSE(isConsistentWith(context.uintDigits, int64_t{20}));
    EXPECT_FALSE(isConsistentWith(context.uintDigits, int64_t{-1}));
    EXPECT_FALSE(isConsistentWith(context.scratchBase, context.scratchBase + 1));
    EXPECT_FALSE(isConsistentWith(context.scratchTop, coreScratch.end + 1));
    EXPECT_FALSE(isConsistentWith(context.scratchTop, static_cast<uint64_t*>(nullptr)));
    EXPECT_FALSE(isConsistentWith(context.decimalSeparators[2], u'\0'));
    EXPECT_FALSE(isConsistentWith(context.groupSeparators[0], u'\0'));
    EXPECT_FALSE(isConsistentWith(context.exponentChars[3], u'\0'));
    EXPECT_FALSE(isConsistentWith(context.imaginaryChars[1], u'\0'));
    EXPECT_TRUE(NumberContextIsConsistent());
}

}  // namespace
}  // namespace tallymere
