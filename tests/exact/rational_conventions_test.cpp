// What holds for every operation on fractions: where its result may stand, what becomes of a code
// that was there before, and that it leaves the context alone.
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "exact/rational_arithmetic.h"
#include "exact/rational_combinatorics.h"
#include "exact/rational_powers.h"
#include "support/rational_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

struct Operation {
    const char* name;
    void (*run)(RationalNumber* dest, const RationalNumber* a, const RationalNumber* b);
};

// Those of one operand take the first.
constexpr Operation Operations[] = {
    {"sum", [](auto* dest, auto* a, auto* b) { RationalAddSub(dest, a, b, false); }},
    {"difference", [](auto* dest, auto* a, auto* b) { RationalAddSub(dest, a, b, true); }},
    {"product", [](auto* dest, auto* a, auto* b) { RationalMulDiv(dest, a, b, false); }},
    {"quotient", [](auto* dest, auto* a, auto* b) { RationalMulDiv(dest, a, b, true); }},
    {"small product", [](auto* dest, auto* a, auto*) { RationalMulSmall(dest, a, 6); }},
    {"small quotient", [](auto* dest, auto* a, auto*) { RationalDivSmall(dest, a, 6); }},
    {"quotient by nothing", [](auto* dest, auto* a, auto*) { RationalDivSmall(dest, a, 0); }},
    {"whole quotient", [](auto* dest, auto* a, auto* b) { RationalDivMod(dest, nullptr, a, b); }},
    {"remainder", [](auto* dest, auto* a, auto* b) { RationalDivMod(nullptr, dest, a, b); }},
    {"reciprocal", [](auto* dest, auto* a, auto*) { RationalReciprocal(dest, a); }},
    {"integer part", [](auto* dest, auto* a, auto*) { RationalTrunc(dest, a); }},
    {"fraction", [](auto* dest, auto* a, auto*) { RationalFraction(dest, a); }},
    {"power", RationalPower},
    {"small power", [](auto* dest, auto* a, auto*) { RationalPowerSmall(dest, a, -3); }},
    {"power of two", [](auto* dest, auto* a, auto*) { RationalPowerOfTwo(dest, a); }},
    {"power of ten", [](auto* dest, auto* a, auto*) { RationalPowerOfTen(dest, a); }},
    {"square root", [](auto* dest, auto* a, auto*) { RationalSquareRoot(dest, a); }},
    {"cube root", [](auto* dest, auto* a, auto*) { RationalCubeRoot(dest, a); }},
    {"root", RationalRoot},
    {"logarithm", RationalLog},
    {"factorial", [](auto* dest, auto* a, auto*) { RationalFactorial(dest, a); }},
    {"ncr", [](auto* dest, auto* a, auto* b) { RationalBinomial(dest, a, b, false); }},
    {"npr", [](auto* dest, auto* a, auto* b) { RationalBinomial(dest, a, b, true); }},
    {"gcd", RationalGcd},
    {"lcm", RationalLcm},
};

// Each operation succeeds for some pair of them and fails for another.
constexpr const char* Operands[] = {"0",
                                    "-0",
                                    "1",
                                    "-1",
                                    "2",
                                    "-2",
                                    "3",
                                    "8",
                                    "64",
                                    "1/2",
                                    "-1/2",
                                    "2/3",
                                    "4/9",
                                    "1/8",
                                    "-8/27",
                                    "2/2",
                                    "1/64",
                                    "18446744073709551615",
                                    "-18446744073709551614/18446744073709551615"};

// A power with a fraction as exponent leaves common factors, and operands with some may keep them.
Terms TermsOf(const Operation& operation, const RationalBuffer& a, const RationalBuffer& b) {
    const bool isReduced = std::string_view(operation.name) != "power" &&
                           RationalIsInLowestTerms(a) && RationalIsInLowestTerms(b);
    return isReduced ? Terms::Lowest : Terms::AsTheOperand;
}

Outcome ResultOf(const Operation& operation, const RationalBuffer& a, const RationalBuffer& b) {
    RationalBuffer dest;
    operation.run(dest, a, b);
    return TakeOutcome(dest, TermsOf(operation, a, b));
}

TEST(RationalOperations, WriteOverTheirOperands) {
    WidthScope scope(1);
    for (const Operation& operation : Operations) {
        SCOPED_TRACE(operation.name);
        for (const char* first : Operands) {
            for (const char* second : Operands) {
                SCOPED_TRACE(::testing::Message() << first << " and " << second);
                const RationalBuffer a(first);
                const RationalBuffer b(second);
                const Outcome expected = ResultOf(operation, a, b);
                RationalBuffer place = a;
                operation.run(place, place, b);
                const Terms terms = TermsOf(operation, a, b);
                EXPECT_EQ(TakeOutcome(place, terms), expected) << "in the place of the first";
                place = b;
                operation.run(place, a, place);
                EXPECT_EQ(TakeOutcome(place, terms), expected) << "in the place of the second";
                EXPECT_EQ(a, RationalBuffer(first));
                EXPECT_EQ(b, RationalBuffer(second));
            }
            RationalBuffer place(first);
            const Outcome expected = ResultOf(operation, place, place);
            const Terms terms = TermsOf(operation, place, place);
            operation.run(place, place, place);
            EXPECT_EQ(TakeOutcome(place, terms), expected) << first << " and itself, in its place";
        }
    }
}

TEST(RationalOperations, KeepACodeFromBefore) {
    WidthScope scope(1);
    for (const Operation& operation : Operations) {
        SCOPED_TRACE(operation.name);
        int successes = 0;
        int failures = 0;
        for (const char* first : Operands) {
            for (const char* second : Operands) {
                const RationalBuffer a(first);
                const RationalBuffer b(second);
                const Outcome expected = ResultOf(operation, a, b);
                (expected.code == CalcErrorNone ? successes : failures)++;
                SetCalcError(CalcErrorSyntax);
                EXPECT_EQ(ResultOf(operation, a, b), (Outcome{expected.text, CalcErrorSyntax}))
                    << first << " and " << second;
            }
        }
        EXPECT_GT(successes, 0);
        const std::string name = operation.name;
        EXPECT_EQ(failures > 0, name != "integer part" && name != "fraction");
    }
}

TEST(RationalOperations, LeavePositiveZeroWhereTheyFail) {
    WidthScope scope(1);
    for (const Operation& operation : Operations) {
        for (const char* first : Operands) {
            for (const char* second : Operands) {
                RationalBuffer dest;
                operation.run(dest, RationalBuffer(first), RationalBuffer(second));
                if (TakeCode() != CalcErrorNone) {
                    EXPECT_EQ(dest, RationalBuffer("0/1")) << operation.name;
                }
            }
        }
    }
}

// CoreScratch holds what the longest fractions need, or the program would stop here.
TEST(RationalOperations, FitCoreScratchAtFullWidth) {
    WidthScope scope(520);
    const char* const operands[] = {
        "2^33280-1/2^33280-3", "-2^33280-5/2^33279-1", "2^33280-1", "1/2^33280-1", "3", "2/3"};
    for (const Operation& operation : Operations) {
        SCOPED_TRACE(operation.name);
        for (const char* first : operands) {
            for (const char* second : operands) {
                const RationalBuffer a(first);
                const RationalBuffer b(second);
                const Outcome outcome = ResultOf(operation, a, b);
                RationalBuffer place = b;
                operation.run(place, a, place);
                EXPECT_EQ(TakeOutcome(place), outcome);
            }
        }
    }
}

}  // namespace
}  // namespace tallymere
