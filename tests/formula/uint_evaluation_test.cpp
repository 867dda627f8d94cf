#include "formula/uint_evaluation.h"

#include <gtest/gtest.h>

#include "formula/function_table.h"
#include "support/exact_operations.h"
#include "support/formula_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// At two limbs, so that 2^128 is the first number that does not fit.
class UintFunctions : public ::testing::Test {
protected:
    FormulaScope scope_{NumberTypeUint, 2};
};

TEST_F(UintFunctions, RootsAreRoundedDownAndNoteIt) {
    EXPECT_EQ(Apply(FunctionId::Sqrt, {"16"}), Is("4"));
    EXPECT_EQ(Apply(FunctionId::Sqrt, {"17"}), IsAbout("4"));
    EXPECT_EQ(Apply(FunctionId::Sqrt, {"0"}), Is("0"));
    EXPECT_EQ(Apply(FunctionId::Sqrt, {"2^128-1"}), IsAbout("18446744073709551615"));
    EXPECT_EQ(Apply(FunctionId::Cbrt, {"27"}), Is("3"));
    EXPECT_EQ(Apply(FunctionId::Cbrt, {"28"}), IsAbout("3"));
    EXPECT_EQ(Apply(FunctionId::Cbrt, {"2^126"}), Is("4398046511104"));
    EXPECT_EQ(Apply(FunctionId::Root, {"3", "27"}), Is("3"));
    EXPECT_EQ(Apply(FunctionId::Root, {"4", "80"}), IsAbout("2"));
    EXPECT_EQ(Apply(FunctionId::Root, {"1", "2^127"}),
              Is("170141183460469231731687303715884105728"));
}

TEST_F(UintFunctions, RootsOfOddDegrees) {
    EXPECT_EQ(Apply(FunctionId::Root, {"0", "5"}), Fails(CalcErrorUndefined));
    for (const char* degree : {"200", "2^63-1", "2^63", "2^64", "2^100"}) {
        EXPECT_EQ(Apply(FunctionId::Root, {degree, "5"}), IsAbout("1")) << degree;
        EXPECT_EQ(Apply(FunctionId::Root, {degree, "1"}), Is("1")) << degree;
        EXPECT_EQ(Apply(FunctionId::Root, {degree, "0"}), Is("0")) << degree;
    }
}

TEST_F(UintFunctions, LogarithmsAreRoundedDownAndNoteIt) {
    EXPECT_EQ(Apply(FunctionId::Log2, {"1"}), Is("0"));
    EXPECT_EQ(Apply(FunctionId::Log2, {"2^127"}), Is("127"));
    EXPECT_EQ(Apply(FunctionId::Log2, {"2^127+1"}), IsAbout("127"));
    EXPECT_EQ(Apply(FunctionId::Log10, {"1000"}), Is("3"));
    EXPECT_EQ(Apply(FunctionId::Log10, {"999"}), IsAbout("2"));
    EXPECT_EQ(Apply(FunctionId::Log10, {"1001"}), IsAbout("3"));
    EXPECT_EQ(Apply(FunctionId::LogX, {"3", "81"}), Is("4"));
    EXPECT_EQ(Apply(FunctionId::LogX, {"3", "82"}), IsAbout("4"));
    EXPECT_EQ(Apply(FunctionId::LogX, {"2", "1024"}), Is("10"));
    EXPECT_EQ(Apply(FunctionId::LogX, {"2^64", "2^100"}), IsAbout("1"));
    EXPECT_EQ(Apply(FunctionId::LogX, {"7", "5"}), IsAbout("0"));
    EXPECT_EQ(Apply(FunctionId::LogX, {"7", "1"}), Is("0"));
}

TEST_F(UintFunctions, LogarithmsOfZeroAndToNoBaseFail) {
    EXPECT_EQ(Apply(FunctionId::Log2, {"0"}), Fails(CalcErrorOverflow));
    EXPECT_EQ(Apply(FunctionId::Log10, {"0"}), Fails(CalcErrorOverflow));
    EXPECT_EQ(Apply(FunctionId::LogX, {"3", "0"}), Fails(CalcErrorOverflow));
    EXPECT_EQ(Apply(FunctionId::LogX, {"0", "5"}), Fails(CalcErrorOverflow));
    EXPECT_EQ(Apply(FunctionId::LogX, {"1", "5"}), Fails(CalcErrorOverflow));
}

TEST_F(UintFunctions, OfWholeNumbersGiveTheirArgument) {
    for (const char* x : {"0", "5", "340282366920938463463374607431768211455"}) {
        EXPECT_EQ(Apply(FunctionId::Abs, {x}), Is(x));
        EXPECT_EQ(Apply(FunctionId::Trunc, {x}), Is(x));
    }
}

// Rounding an integer is no work, and none is done: not even the destination is written.
TEST_F(UintFunctions, RoundLeavesItsDestinationAlone) {
    EXPECT_EQ(Apply(FunctionId::Round, {"5"}, 0), Is("0"));
    EXPECT_EQ(Apply(FunctionId::Round, {"5"}, 1), Is("18446744073709551617")) << "1 in both limbs";
}

// The operand is read as a fraction, and there are only zeros behind it.
TEST_F(UintFunctions, FracDividesByZero) {
    for (const char* x : {"0", "1", "5", "2^64+7", "2^128-1"}) {
        EXPECT_EQ(Apply(FunctionId::Frac, {x}), Fails(CalcErrorExactDivisionByZero)) << x;
    }
    FormulaScope widest(NumberTypeUint, 1039);
    EXPECT_EQ(Apply(FunctionId::Frac, {"2^66496-1"}), Fails(CalcErrorExactDivisionByZero));
}

TEST_F(UintFunctions, FactorialsEndWithTheWidth) {
    EXPECT_EQ(Apply(FunctionId::Fact, {"0"}), Is("1"));
    EXPECT_EQ(Apply(FunctionId::Fact, {"5"}), Is("120"));
    EXPECT_EQ(Apply(FunctionId::Fact, {"34"}), Is("295232799039604140847618609643520000000"));
    for (const char* n : {"35", "2^63", "2^64-1", "2^64", "2^100"}) {
        EXPECT_EQ(Apply(FunctionId::Fact, {n}), Fails(CalcErrorOverflow)) << n;
    }
}

TEST_F(UintFunctions, CountCombinationsAndPermutations) {
    EXPECT_EQ(Apply(FunctionId::Ncr, {"5", "2"}), Is("10"));
    EXPECT_EQ(Apply(FunctionId::Ncr, {"7", "5"}), Is("21"));
    EXPECT_EQ(Apply(FunctionId::Ncr, {"5", "7"}), Is("0"));
    EXPECT_EQ(Apply(FunctionId::Ncr, {"5", "0"}), Is("1"));
    EXPECT_EQ(Apply(FunctionId::Ncr, {"2^100", "2^100-1"}), Is("1267650600228229401496703205376"));
    EXPECT_EQ(Apply(FunctionId::Npr, {"7", "5"}), Is("2520"));
    EXPECT_EQ(Apply(FunctionId::Npr, {"5", "7"}), Is("0"));
    EXPECT_EQ(Apply(FunctionId::Npr, {"5", "0"}), Is("1"));
    EXPECT_EQ(Apply(FunctionId::Ncr, {"2^66", "2^65"}), Fails(CalcErrorUndefined))
        << "too many factors";
    EXPECT_EQ(Apply(FunctionId::Npr, {"2^65", "2^64"}), Fails(CalcErrorUndefined));
    EXPECT_EQ(Apply(FunctionId::Npr, {"2^100", "2"}), Fails(CalcErrorOverflow));
}

TEST_F(UintFunctions, DivisorsAndMultiplesNeedPositiveArguments) {
    EXPECT_EQ(Apply(FunctionId::Gcd, {"4", "6"}), Is("2"));
    EXPECT_EQ(Apply(FunctionId::Gcd, {"2^127", "2^70"}), Is("1180591620717411303424"));
    EXPECT_EQ(Apply(FunctionId::Lcm, {"4", "6"}), Is("12"));
    EXPECT_EQ(Apply(FunctionId::Lcm, {"2^100", "2^100-1"}), Fails(CalcErrorOverflow));
    for (const FunctionId id : {FunctionId::Gcd, FunctionId::Lcm}) {
        EXPECT_EQ(Apply(id, {"0", "6"}), Fails(CalcErrorUndefined));
        EXPECT_EQ(Apply(id, {"6", "0"}), Fails(CalcErrorUndefined));
        EXPECT_EQ(Apply(id, {"0", "0"}), Fails(CalcErrorUndefined));
    }
}

TEST_F(UintFunctions, PowersHaveRemainders) {
    EXPECT_EQ(Apply(FunctionId::PowMod, {"2", "10", "1000"}), Is("24"));
    EXPECT_EQ(Apply(FunctionId::PowMod, {"3", "2^100", "2^120-7"}),
              Is("93012195038420621103416804102160657"));
    EXPECT_EQ(Apply(FunctionId::PowMod, {"2", "0", "1"}), Is("0"));
    EXPECT_EQ(Apply(FunctionId::PowMod, {"0", "0", "5"}), Is("1"));
    EXPECT_EQ(Apply(FunctionId::PowMod, {"5", "3", "0"}), Fails(CalcErrorExactDivisionByZero));
}

TEST_F(UintFunctions, ThatPollForAStopAreCancelled) {
    uint8_t stop = 1;
    FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    EXPECT_EQ(Apply(FunctionId::Ncr, {"7", "5"}), Fails(CalcErrorCancelled));
    EXPECT_EQ(Apply(FunctionId::Npr, {"7", "5"}), Fails(CalcErrorCancelled));
    EXPECT_EQ(Apply(FunctionId::PowMod, {"2", "10", "1000"}), Fails(CalcErrorCancelled));
    EXPECT_EQ(Apply(FunctionId::Fact, {"5"}), Is("120")) << "not at all";
}

TEST_F(UintFunctions, WithoutAnIntegerMeaningAreNotThere) {
    for (const FunctionId id :
         {FunctionId::Ln, FunctionId::Exp, FunctionId::Sin, FunctionId::CosDegrees,
          FunctionId::TanGon, FunctionId::Asin, FunctionId::AcosDegrees, FunctionId::AtanGon,
          FunctionId::Sinh, FunctionId::Cosh, FunctionId::Tanh, FunctionId::Asinh,
          FunctionId::Acosh, FunctionId::Atanh}) {
        EXPECT_EQ(Apply(id, {"1"}), Fails(CalcErrorUnknownType)) << Printable(FunctionOf(id).name);
    }
}

}  // namespace
}  // namespace tallymere
