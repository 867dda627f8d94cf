#include "core/contract.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/complex_arithmetic.h"
#include "core/digit_format.h"
#include "core/digit_text.h"
#include "core/digit_walk.h"
#include "core/limb_columns.h"
#include "core/real_add.h"
#include "core/real_compare.h"
#include "core/real_div_mod.h"
#include "core/real_divide.h"
#include "core/real_integer.h"
#include "core/real_layout.h"
#include "core/real_multiply.h"
#include "core/scratch.h"
#include "core/text_writer.h"
#include "core/word_division.h"
#include "core/word_products.h"
#include "support/contract_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

constexpr int Half(int even) {
    TALLYMERE_REQUIRE(even % 2 == 0);
    return even / 2;
}

TEST(Contract, CanStandInAConstantExpression) {
    constexpr int half = Half(6);
    EXPECT_EQ(half, 3);
}

TEST(Contract, IsEvaluatedInCheckingBuildsOnly) {
    int evaluations = 0;
    TALLYMERE_REQUIRE(++evaluations == 1);
    EXPECT_EQ(evaluations, ContractsAreChecked ? 1 : 0);
}

TEST(Contract, OfTheContextIsNotThatFlagsAreOneAndTheTypeIsKnown) {
    FieldScope type(numberContext.numberType, static_cast<NumberType>(3));
    FieldScope truncate(numberContext.noRounding, uint8_t{255});
    FieldScope overflow(numberContext.reportOverflow, uint8_t{128});
    RealBuffer quotient("2");
    RealDiv(quotient, quotient, RealBuffer("3"));
    EXPECT_EQ(PlainText(quotient), "6.666666666666666e-1");
    RealDiv(quotient, quotient, RealBuffer("0"));
    EXPECT_EQ(TakeCode(), CalcErrorOverflow);
}

#ifdef TALLYMERE_CHECK_CONTRACTS

TEST(Contract, StopsTheProgramWithFileLineAndCondition) {
    EXPECT_DEATH(Half(7), "contract_test\\.cpp:[0-9]+: contract broken: even % 2 == 0");
}

class ArithmeticContract : public ContractTest {};

// What a program that breaks `condition` in a file of src/core says.
std::string Broken(const std::string& file, const std::string& condition) {
    return BrokenContract("core", file, condition);
}

TEST_F(ArithmeticContract, IsThatTheOperandIsWellFormedAndTheResultTheSameOrApart) {
    struct Case {
        const char* file;
        void (*run)(RealNumber* dest, const RealNumber* x);
    };
    const Case cases[] = {
        {"real_divide", [](RealNumber* dest, const RealNumber* x) { RealDivUint(dest, x, 7); }},
        {"real_divide", [](RealNumber* dest, const RealNumber* x) { RealReciprocalRaw(dest, x); }},
        {"real_divide", [](RealNumber* dest, const RealNumber* x) { RealReciprocalAny(dest, x); }},
        {"real_layout", RealReciprocal},
        {"real_multiply", [](RealNumber* dest, const RealNumber* x) { RealMulUint(dest, x, 7); }},
        {"real_rounding",
         [](RealNumber* dest, const RealNumber* x) { RealRoundDigits(dest, x, 5); }},
        {"real_rounding",
         [](RealNumber* dest, const RealNumber* x) { RealRoundDigitsAny(dest, x, 0); }},
        {"real_rounding", RealIntegerPart},
        {"real_rounding", RealRoundToInteger},
        {"real_rounding", RealFractionPart},
    };
    for (const Case& unary : cases) {
        SCOPED_TRACE(&unary - cases);
        unary.run(y_, x_);
        unary.run(x_, x_);
        RealSetOne(x_);
        TakeCode();  // of rounding to no digit
        EXPECT_DEATH(unary.run(y_, malformedX_), Broken(unary.file, "RealIsWellFormed"));
        EXPECT_DEATH(unary.run(shiftedX_, x_), Broken(unary.file, "RealSameOrApart"));
    }
    EXPECT_DEATH(RealCopy(shiftedX_, x_), Broken("real_number", "RealSameOrApart"));
}

TEST_F(ArithmeticContract, IsThatBothOperandsAreWellFormedAndTheResultTheSameOrApart) {
    struct Case {
        const char* file;
        void (*run)(RealNumber* dest, const RealNumber* a, const RealNumber* b);
    };
    const Case cases[] = {
        {"real_add", RealAdd},
        {"real_multiply", RealMul},
        {"real_divide", [](RealNumber* dest, const RealNumber* a,
                           const RealNumber* b) { RealDivRaw(dest, a, b); }},
        {"real_divide", RealDiv},
        {"real_layout",
         [](RealNumber* dest, const RealNumber* a, const RealNumber* b) {
             WithGuardDigitsBinary(dest, a, b, 3, RealDivRaw);
         }},
        {"real_div_mod", [](RealNumber* dest, const RealNumber* a,
                            const RealNumber* b) { RealDivMod(dest, nullptr, a, b); }},
        {"real_div_mod", [](RealNumber* dest, const RealNumber* a,
                            const RealNumber* b) { RealDivMod(nullptr, dest, a, b); }},
    };
    for (const Case& binary : cases) {
        SCOPED_TRACE(&binary - cases);
        binary.run(malformedX_, x_, y_);
        RealLimbs(malformedX_)[2] = LimbBase;
        EXPECT_DEATH(binary.run(y_, malformedX_, x_), Broken(binary.file, "RealIsWellFormed"));
        EXPECT_DEATH(binary.run(y_, x_, malformedX_), Broken(binary.file, "RealIsWellFormed"));
        EXPECT_DEATH(binary.run(shiftedX_, x_, y_), Broken(binary.file, "Apart"));
        EXPECT_DEATH(binary.run(shiftedX_, y_, x_), Broken(binary.file, "Apart"));
    }
    EXPECT_DEATH(RealDivMod(y_, y_, x_, x_), Broken("real_div_mod", "RealOutputsAreApart"));
    EXPECT_DEATH(RealDivMod(shiftedX_, x_, y_, y_), Broken("real_div_mod", "RealOutputsAreApart"));
}

TEST_F(ArithmeticContract, IsThatWhatIsOnlyReadIsWellFormed) {
    uint64_t magnitude = 0;
    int64_t integer = 0;
    EXPECT_DEATH(RealRound(malformedX_, 0), Broken("real_rounding", "RealIsWellFormed"));
    EXPECT_DEATH(RealIsInteger(malformedX_), Broken("real_rounding", "RealIsWellFormed"));
    EXPECT_DEATH(RealIsEven(malformedX_), Broken("real_rounding", "RealIsWellFormed"));
    EXPECT_DEATH(RealCompare(malformedX_, x_), Broken("real_compare", "RealIsWellFormed"));
    EXPECT_DEATH(RealCompare(x_, malformedX_), Broken("real_compare", "RealIsWellFormed"));
    EXPECT_DEATH(RealCompareInt(malformedX_, 1), Broken("real_compare", "RealIsWellFormed"));
    EXPECT_DEATH(RealCompareUint(malformedX_, 1), Broken("real_compare", "RealIsWellFormed"));
    EXPECT_DEATH(RealCompareScaled(malformedX_, 1, 0), Broken("real_compare", "RealIsWellFormed"));
    EXPECT_DEATH(RealToUint(&magnitude, malformedX_, AllowFraction),
                 Broken("real_integer", "RealIsWellFormed"));
    EXPECT_DEATH(RealToInt(&integer, malformedX_, AllowFraction),
                 Broken("real_integer", "RealIsWellFormed"));
    EXPECT_DEATH(RealConvertLayout(y_, malformedX_, CurrentRealLayout()),
                 Broken("real_layout", "RealIsWellFormed"));
}

TEST_F(ArithmeticContract, OfComplexNumbersLooksAtBothParts) {
    struct Case {
        void (*run)(ComplexNumber* dest, const ComplexNumber* a, const ComplexNumber* b);
    };
    const Case cases[] = {
        {ComplexAdd},
        {ComplexSub},
        {ComplexMul},
        {ComplexDiv},
        {[](ComplexNumber* dest, const ComplexNumber* a, const ComplexNumber* b) {
            ComplexRealOnly(dest, a, b, RealMul);
        }},
        {[](ComplexNumber* dest, const ComplexNumber* a, const ComplexNumber* b) {
            ComplexDivMod(dest, nullptr, a, b);
        }},
        {[](ComplexNumber* dest, const ComplexNumber* a, const ComplexNumber* b) {
            ComplexDivMod(nullptr, dest, a, b);
        }},
    };
    const std::string wellFormed = Broken("complex_arithmetic", "ComplexIsWellFormed");
    const std::string apart = Broken("complex_arithmetic", "ComplexSameOrApart");
    for (const Case& binary : cases) {
        SCOPED_TRACE(&binary - cases);
        EXPECT_DEATH(binary.run(w_, malformed_, z_), wellFormed);
        EXPECT_DEATH(binary.run(w_, z_, malformed_), wellFormed);
        EXPECT_DEATH(binary.run(shifted_, z_, w_), apart);
        EXPECT_DEATH(binary.run(shifted_, w_, z_), apart);
    }
    EXPECT_DEATH(ComplexDivMod(w_, w_, z_, z_), Broken("complex_arithmetic", "quotient"));
    EXPECT_DEATH(ComplexMulUint(w_, malformed_, 1), wellFormed);
    EXPECT_DEATH(ComplexDivUint(w_, malformed_, 1), wellFormed);
    EXPECT_DEATH(ComplexReciprocal(w_, malformed_), wellFormed);
    EXPECT_DEATH(ComplexRoundDigits(w_, malformed_, 0), wellFormed);
    EXPECT_DEATH(ComplexMulUint(shifted_, z_, 1), apart);
    EXPECT_DEATH(ComplexDivUint(shifted_, z_, 1), apart);
    EXPECT_DEATH(ComplexReciprocal(shifted_, z_), apart);
    EXPECT_DEATH(ComplexRoundDigits(shifted_, z_, 0), apart);
    uint64_t magnitude = 0;
    int64_t integer = 0;
    EXPECT_DEATH(ComplexCompare(z_, malformed_), wellFormed);
    EXPECT_DEATH(ComplexCompare(malformed_, z_), wellFormed);
    EXPECT_DEATH(ComplexToUint(&magnitude, malformed_), wellFormed);
    EXPECT_DEATH(ComplexToInt(&integer, malformed_), wellFormed);
    EXPECT_TRUE(ComplexIsWellFormed(z_));
}

TEST_F(ArithmeticContract, OfLayoutsIsThatRecordsOfDifferentLengthAreTheSameOrApart) {
    const RealLayout wider = WidenedLayout(19);
    RealNumber* const behind = RealAt(words_.data() + 4);
    RealWiden(behind, x_, 19, 3, 1);
    EXPECT_EQ(RealNarrow(x_, behind, 19, 3, 1), 0u);
    EXPECT_DEATH(RealWiden(x_, behind, 19, 3, 1), Broken("real_layout", "RecordsAreSameOrApart"));
    EXPECT_DEATH(RealNarrow(behind, x_, 19, 3, 1), Broken("real_layout", "RecordsAreSameOrApart"));
    EXPECT_DEATH(RealConvertLayout(shiftedX_, x_, CurrentRealLayout()),
                 Broken("real_layout", "RecordsAreSameOrApart"));
    EXPECT_DEATH(RealWiden(y_, x_, 3, 3, 2), Broken("real_layout", "increase == 1"));
    EXPECT_DEATH(RealNarrow(y_, x_, 20, 3, 0), Broken("real_layout", "decrease == 0"));
    EXPECT_DEATH(RealWiden(y_, x_, 39, 3, 2), Broken("real_layout", "MaxGuardDigits"));
    EXPECT_DEATH(RealNarrow(y_, x_, -1, 3, 0), Broken("real_layout", "g >= 0"));
    EXPECT_DEATH(RealWiden(y_, x_, 3, 0, 1), Broken("real_layout", "oldLimbs >= 1"));
    EXPECT_DEATH(RealNarrow(y_, x_, 3, 0, 1), Broken("real_layout", "oldLimbs >= 1"));
    EXPECT_DEATH(WidenedLayout(39), Broken("real_layout", "MaxGuardDigits"));
    EXPECT_DEATH(WidenedLayout(-1), Broken("real_layout", "g >= 0"));
    EXPECT_DEATH(RealConvertLayout(y_, x_, {39, 3, 2}), Broken("real_layout", "IsConsistent"));
    EXPECT_EQ(wider.limbs, 4);
}

TEST_F(ArithmeticContract, OfMultiplicationIsThatLimbsAreThoseOfAMantissa) {
    Limb* const limbs = RealLimbs(x_);
    Limb product[3];
    Limb guard = 0;
    const Limb aligned[3] = {PowerOfTen(18), 0, 0};
    const Limb low[3] = {0, 1, 0};
    const std::string normal = Broken("real_multiply", "FirstLimbIsNormal");
    EXPECT_DEATH(LimbsMultiply(2, product, &guard, limbs, limbs),
                 Broken("real_multiply", "realLimbs"));
    EXPECT_DEATH(LimbsMultiplyAligned(2, product, &guard, aligned, limbs),
                 Broken("real_multiply", "realLimbs"));
    EXPECT_DEATH(LimbsAlign(product, limbs, 2), Broken("real_multiply", "realLimbs"));
    EXPECT_DEATH(LimbsMultiply(3, product, &guard, low, limbs), normal);
    EXPECT_DEATH(LimbsMultiply(3, product, &guard, limbs, low), normal);
    EXPECT_DEATH(LimbsMultiplyAligned(3, product, &guard, aligned, low), normal);
    EXPECT_DEATH(LimbsMultiplyAligned(3, product, &guard, low, limbs),
                 Broken("real_multiply", "aligned"));
    EXPECT_DEATH(LimbsAlign(product, low, 3), normal);
}

TEST_F(ArithmeticContract, OfValuesIsThatTheyAreInRange) {
    uint64_t magnitude = 0;
    int64_t integer = 0;
    RealSetZero(y_, 1);
    EXPECT_DEATH(RealReciprocalRaw(x_, y_), Broken("real_divide", "RealIsSpecial"));
    EXPECT_DEATH(RealRoundDigits(x_, y_, 5), Broken("real_rounding", "RealIsSpecial"));
    EXPECT_DEATH(RealRoundDigits(x_, x_, 0), Broken("real_rounding", "d >= 1"));
    EXPECT_DEATH(RealRound(x_, LimbBase), Broken("real_rounding", "guard < LimbBase"));
    EXPECT_DEATH(RealSetZero(x_, 2), Broken("real_number", "sign <= 1"));
    EXPECT_DEATH(RealSetInfinity(x_, 2), Broken("real_number", "sign <= 1"));
    EXPECT_DEATH(RealSetSign(x_, 2), Broken("real_number", "sign <= 1"));
    EXPECT_DEATH(RealSetExponentAndSign(x_, 0, 2), Broken("real_number", "sign <= 1"));
    EXPECT_DEATH(RealToUint(&magnitude, x_, 1), Broken("real_integer", "flags"));
    EXPECT_DEATH(RealToInt(&integer, x_, 1), Broken("real_integer", "flags"));
    EXPECT_DEATH(RealLeadingDigits(RealLimbs(x_), 0), Broken("real_integer", "k >= 1"));
    EXPECT_DEATH(RealLeadingDigits(RealLimbs(x_), 20), Broken("real_integer", "DigitsPerLimb"));
    EXPECT_DEATH(RealLeadingDigits(RealLimbs(y_), 9), Broken("real_integer", "FirstLimbIsNormal"));
    EXPECT_DEATH(RealSetLeading(RealLimbs(x_), 1), Broken("real_integer", "v >= PowerOfTen"));
    EXPECT_DEATH(RealSetLeading(RealLimbs(x_), LimbBase), Broken("real_integer", "v < LimbBase"));
    EXPECT_DEATH(RealDivUint(x_, x_, 7, DivisorReciprocal(9)), Broken("real_divide", "reciprocal"));
}

TEST(Contract, OfTheContextIsThatItsLayoutsAreConsistent) {
    const std::string layout = Broken("number_context", "RealLayoutIsConsistent");
    EXPECT_DEATH(InstallRealLayout({16, 1, 15}), layout);
    EXPECT_DEATH(InstallRealLayout({20, 2, 20}), layout);
    EXPECT_DEATH(InstallUintWidth({20, 1}), Broken("number_context", "UintWidthIsConsistent"));
    EXPECT_DEATH(LayoutForDigits(0), Broken("number_context", "p >= 1"));
    EXPECT_DEATH(UintWidthForLimbs(0), Broken("number_context", "limbs >= 1"));
    EXPECT_DEATH(UintWidthForLimbs(MaxWorkingUintLimbs + 1),
                 Broken("number_context", "MaxWorkingUintLimbs"));
    EXPECT_DEATH(SetUintDigits(-1), Broken("limits", "digits >= 0"));
    EXPECT_DEATH(SetUintDigits(MaxUintDigits + 1), Broken("limits", "MaxUintDigits"));
    const std::string context = Broken("number_context", "NumberContextIsConsistent");
    const auto withoutMarks = [](auto scope) {
        numberContext.exponentChars[0] = u'\0';
        scope();
    };
    EXPECT_DEATH(withoutMarks([] { RealLayoutScope scope; }), context);
    EXPECT_DEATH(withoutMarks([] { UintWidthScope scope; }), context);
}

TEST(Contract, OfScratchIsThatMarksAreGivenBackInOrder) {
    uint64_t* const mark = numberContext.scratchTop;
    CoreScratchScope scope;
    scope.Take(4);
    EXPECT_DEATH(ScratchRelease(coreScratch, numberContext.scratchTop + 1),
                 Broken("scratch", "mark <= "));
    EXPECT_DEATH(ScratchRelease(coreScratch, coreScratch.base - 1), Broken("scratch", "mark >= "));
    EXPECT_LT(mark, numberContext.scratchTop);
    const auto createTwice = [] {
        CreateScratchStack();
        CreateScratchStack();
    };
    const auto destroyTwice = [] {
        DestroyScratchStack();
        DestroyScratchStack();
    };
    EXPECT_DEATH(createTwice(), Broken("scratch", "base == nullptr"));
    EXPECT_DEATH(destroyTwice(), Broken("scratch", "base != nullptr"));
}

TEST(Contract, OfLimbToolsIsThatArraysAreTheSameOrApart) {
    Limb words[8] = {1, 2, 3, 4, 5, 6, 7, 8};
    int64_t count = 0;
    const std::string apart = Broken("limb_tools", "SameOrApart");
    EXPECT_DEATH(LimbsShiftRightDigits(words + 1, words, 2, 1, 0), apart);
    EXPECT_DEATH(LimbsShiftLeftDigits(words + 1, words, 2, 1, 0), apart);
    EXPECT_DEATH(LimbsShiftRightFar(words + 1, words, 2, 1), apart);
    EXPECT_DEATH(LimbsShiftLeftFar(words + 1, words, 2, 1, 0), apart);
    EXPECT_DEATH(LimbsNormalise(words + 1, words, 2, &count, 0), apart);
    EXPECT_DEATH(LimbsAdd(words + 1, words, words + 4, 2), apart);
    EXPECT_DEATH(LimbsAdd(words + 1, words + 4, words, 2), apart);
    EXPECT_DEATH(LimbsSubtract(words + 1, words, words + 4, 2, 0), apart);
    EXPECT_DEATH(LimbsSubtract(words + 1, words + 4, words, 2, 0), apart);
    EXPECT_DEATH(LimbsDivideUint(words + 1, words, 2, 0, 7, 0), apart);
    EXPECT_EQ(LimbsDivideUint(words, words + 1, 2, 0, 1, 0), 0u);
    EXPECT_DEATH(MultiplyWords(words + 1, words, 2, 7), Broken("word_products", "SameOrApart"));
    EXPECT_DEATH(MultiplyAddWords(words + 1, words, 2, 7), Broken("word_products", "SameOrApart"));
}

TEST(Contract, OfLimbToolsIsThatCountsAndLimbsAreInRange) {
    Limb a[2] = {1, 2};
    const Limb b[2] = {1, 3};
    int64_t count = 0;
    const auto broken = [](const char* condition) { return Broken("limb_tools", condition); };
    EXPECT_DEATH(LimbsClear(a, -1), broken("n >= 0"));
    EXPECT_DEATH(LimbsCopy(a, b, -1), broken("n >= 0"));
    EXPECT_DEATH(LimbsAreZero(a, -1), broken("n >= 0"));
    EXPECT_DEATH(LimbsCompare(a, b, -1), broken("n >= 0"));
    EXPECT_DEATH(LimbsShiftRightDigits(a, a, 0, 1, 0), broken("m >= 1"));
    EXPECT_DEATH(LimbsShiftRightDigits(a, a, 2, 20, 0), broken("k <= DigitsPerLimb"));
    EXPECT_DEATH(LimbsShiftRightDigits(a, a, 2, -1, 0), broken("k >= 0"));
    EXPECT_DEATH(LimbsShiftRightDigits(a, a, 2, 1, LimbBase), broken("guard < LimbBase"));
    EXPECT_DEATH(LimbsShiftLeftDigits(a, a, 0, 1, 0), broken("m >= 1"));
    EXPECT_DEATH(LimbsShiftLeftDigits(a, a, 2, 20, 0), broken("k <= DigitsPerLimb"));
    EXPECT_DEATH(LimbsShiftLeftDigits(a, a, 2, -1, 0), broken("k >= 0"));
    EXPECT_DEATH(LimbsShiftLeftDigits(a, a, 2, 1, LimbBase), broken("guard < LimbBase"));
    EXPECT_DEATH(LimbsShiftRightFar(a, a, 0, 20), broken("m >= 1"));
    EXPECT_DEATH(LimbsShiftRightFar(a, a, 2, -1), broken("k >= 0"));
    EXPECT_DEATH(LimbsShiftLeftFar(a, a, 0, 20, 0), broken("m >= 1 && k >= 0 && guard"));
    EXPECT_DEATH(LimbsShiftLeftFar(a, a, 2, -1, 0), broken("m >= 1 && k >= 0 && guard"));
    EXPECT_DEATH(LimbsShiftLeftFar(a, a, 2, 20, LimbBase), broken("m >= 1 && k >= 0 && guard"));
    EXPECT_DEATH(LimbsNormalise(a, a, 0, &count, 0), broken("m >= 1"));
    EXPECT_DEATH(LimbsNormalise(a, a, 2, &count, LimbBase), broken("guard < LimbBase"));
    EXPECT_DEATH(LimbsAdd(a, a, b, 0), broken("n >= 1"));
    EXPECT_DEATH(LimbsSubtract(a, a, b, 0, 0), broken("n >= 1"));
    EXPECT_DEATH(LimbsSubtract(a, a, b, 2, LimbBase), broken("guard < LimbBase"));
    EXPECT_DEATH(LimbsSubtract(a, a, b, 2, 0), broken("borrow == 0"));
    EXPECT_DEATH(LimbsSubtract(a, b, b, 2, 1), broken("borrow == 0"));
    EXPECT_DEATH(LimbsDivideUint(a, a, -1, 2, 7, 0), broken("m >= 0"));
    EXPECT_DEATH(LimbsDivideUint(a, a, 2, -1, 7, 0), broken("zeros >= 0"));
    EXPECT_DEATH(LimbsDivideUint(a, a, 2, 0, 0, 0), broken("d >= 1"));
    EXPECT_DEATH(LimbsDivideUint(a, a, 2, 0, UintDivisorLimit, 0), broken("UintDivisorLimit"));
    EXPECT_DEATH(LimbsDivideUint(a, a, 2, 0, 7, 7), broken("remainder < d"));
    EXPECT_DEATH(MultiplyWords(a, b, -1, 7), Broken("word_products", "n >= 0"));
    EXPECT_DEATH(MultiplyAddWords(a, b, -1, 7), Broken("word_products", "n >= 0"));
}

TEST(Contract, OfSingleLimbsIsThatTheyAreInRange) {
    Limb carry = 0;
    Limb two = 2;
    ColumnSum column;
    const auto broken = [](const char* condition) { return Broken("limb", condition); };
    EXPECT_DEATH(PowerOfTen(20), broken("k <= DigitsPerLimb"));
    EXPECT_DEATH(PowerOfTen(-2), broken("k >= -1"));
    EXPECT_DEATH(PowerOfTenDivider(0), broken("k >= 1"));
    EXPECT_DEATH(DivideByPowerOfTen(1, 20), broken("k >= 0 && k <= DigitsPerLimb"));
    EXPECT_DEATH(DivideByPowerOfTen(1, -1), broken("k >= 0 && k <= DigitsPerLimb"));
    EXPECT_DEATH(WordReciprocal(1), broken("d >> 63 != 0"));
    EXPECT_DEATH(DivideByWord({0, 1}, 1, 0), broken("d >> 63 != 0 && value.high < d"));
    EXPECT_DEATH(DivideByLimbBase({LimbBase, 0}), broken("d >> 63 != 0 && value.high < d"));
    EXPECT_DEATH(AddLimbs(LimbBase, 0, carry), broken("a < LimbBase"));
    EXPECT_DEATH(AddLimbs(0, LimbBase, carry), broken("b < LimbBase"));
    EXPECT_DEATH(AddLimbs(0, 0, two), broken("carry <= 1"));
    EXPECT_DEATH(SubtractLimbs(LimbBase, 0, carry), broken("a < LimbBase"));
    EXPECT_DEATH(SubtractLimbs(0, LimbBase, carry), broken("b < LimbBase"));
    EXPECT_DEATH(SubtractLimbs(0, 0, two), broken("borrow <= 1"));
    EXPECT_DEATH(AddProducts(column, &carry, &carry, -1), Broken("limb_columns", "count >= 0"));
    EXPECT_DEATH(wide::Divide({7, 0}, 7), Broken("wide_arithmetic", "value.high < d"));
    EXPECT_DEATH(wide_portable::Divide({7, 0}, 7), Broken("wide_arithmetic", "value.high < d"));
    EXPECT_DEATH(HighestBit(0), Broken("wide_arithmetic", "v != 0"));
    EXPECT_DEATH(ComputeDivisorReciprocal(0), Broken("word_division", "d >= 1"));
    uint64_t remainder = 0;
    const auto divide = [&](uint64_t high, uint64_t d, uint64_t reciprocal) {
        return Divide128(&remainder, high, 0, d, reciprocal);
    };
    EXPECT_DEATH(divide(0, 0, 0), Broken("word_division", "d >= 1"));
    EXPECT_DEATH(divide(7, 7, DivisorReciprocal(7)), Broken("word_division", "high < d"));
    EXPECT_DEATH(divide(1, 7, DivisorReciprocal(9)), Broken("word_division", "reciprocal"));
}

TEST(Contract, OfTextsIsThatLengthsAndPlacesAreInRange) {
    char16_t text[] = u"12345678901234567890";
    EXPECT_DEATH(DecimalRunValue(text, 20), Broken("digit_text", "count <= DigitsPerLimb"));
    EXPECT_DEATH(DecimalRunValue(text, -1), Broken("digit_text", "count >= 0"));
    EXPECT_DEATH(WriteDecimalRun(text, 1, 20), Broken("digit_text", "count <= DigitsPerLimb"));
    EXPECT_DEATH(WriteDecimalRun(text, 1, -1), Broken("digit_text", "count >= 0"));
    EXPECT_DEATH(WriteLimbDigits(text, LimbBase), Broken("digit_text", "limb < LimbBase"));
    TextWriter writer = {0, 20, text};
    EXPECT_DEATH(WriteReserve(writer, -1), Broken("text_writer", "count >= 0"));
    EXPECT_DEATH(WriteInteger(writer, text, -1, 1, 0, u' '), Broken("digit_format", "count >= 0"));
    EXPECT_DEATH(WriteInteger(writer, text, 1, 0, 0, u' '), Broken("digit_format", "length >= 1"));
    EXPECT_DEATH(WriteInteger(writer, text, 1, 1, -1, u' '), Broken("digit_format", "groupSize"));
    EXPECT_DEATH(FormatDigits(writer, text, 0, false, 0, 0), Broken("digit_format", "count >= 1"));
    EXPECT_DEATH(FormatDigits(writer, text, 1, false, (int64_t{1} << 62) + 1, 0),
                 Broken("digit_format", "IntegerMagnitude"));
    const TextWriter inconsistent[] = {{2, -1, text}, {-1, 20, text}, {22, 20, text}};
    for (TextWriter broken : inconsistent) {
        const std::string consistent = Broken("text_writer", "TextWriterIsConsistent");
        EXPECT_DEATH(WriteChar(broken, u'x'), consistent);
        EXPECT_DEATH(FinishNumberText(broken, 0), consistent);
    }
    const auto broken = [](const char* condition) { return Broken("number_scanner", condition); };
    EXPECT_DEATH(MakeNumberScanner(text, -2, 0, 10), broken("length >= 0"));
    EXPECT_DEATH(MakeNumberScanner(text, 5, 0, 1), broken("radix >= 2"));
    EXPECT_DEATH(MakeNumberScanner(text, 5, 0, 17), broken("HighestBase"));
    const NumberScanner scanner = MakeNumberScanner(text, 5, 0, 10);
    EXPECT_DEATH(MakeDigitWalk(scanner, -1, 2), Broken("digit_walk", "start >= 0"));
    EXPECT_DEATH(MakeDigitWalk(scanner, 1, -1), Broken("digit_walk", "length >= 0"));
    EXPECT_DEATH(MakeDigitWalk(scanner, 1, 5), Broken("digit_walk", "scanner.length"));
    DigitWalk walk = MakeDigitWalk(scanner, 0, 5);
    EXPECT_DEATH(PassRun(walk, -1), Broken("digit_walk", "limit >= 0"));
    EXPECT_DEATH(TakeDigits(walk, -1), Broken("digit_walk", "limit >= 0 && "));
    EXPECT_DEATH(TakeDigits(walk, 20), Broken("digit_walk", "limit <= DigitsPerLimb"));
}

#else

TEST(Contract, IsGoneFromOtherBuilds) {
    EXPECT_EQ(Half(7), 3);
}

#endif

}  // namespace
}  // namespace tallymere
