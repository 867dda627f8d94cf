#include "core/complex_number.h"

#include <gtest/gtest.h>

#include "support/complex_testing.h"
#include "support/number_layouts.h"

namespace tallymere {
namespace {

using namespace testing_support;

TEST(ComplexNumber, IsTwoRealRecordsOneBehindTheOther) {
    ForEachLayout(NumberTypeComplex, LayoutRange::All, [](const NumberLayout&) {
        EXPECT_EQ(ComplexWords(), 2 * (numberContext.realLimbs + 1));
        ComplexBuffer z("3 -4");
        EXPECT_EQ(&RealPart(z.Get())->header, z.Words());
        EXPECT_EQ(&ImaginaryPart(z.Get())->header, z.Words() + RealWords());
        EXPECT_EQ(PlainText(RealPart(z.Get())), "3e0");
        EXPECT_EQ(PlainText(ImaginaryPart(z.Get())), "-4e0");
    });
}

TEST(ComplexIsReal, AcceptsAZeroOfEitherSignAsImaginaryPartAndNothingElse) {
    ForEachLayout(NumberTypeComplex, LayoutRange::Small, [](const NumberLayout&) {
        for (const char* real : {"5 0", "5 -0", "0 0", "-0 -0", "inf 0", "nan -0"}) {
            EXPECT_TRUE(ComplexIsReal(ComplexBuffer(real))) << real;
        }
        for (const char* complex : {"5 1", "0 -1", "5 1e-4611686018427387903", "5 inf", "0 nan"}) {
            EXPECT_FALSE(ComplexIsReal(ComplexBuffer(complex))) << complex;
        }
    });
}

TEST(ComplexIsZero, AcceptsZerosOfEitherSignInBothParts) {
    PrecisionScope scope(20);
    for (const char* zero : {"0 0", "-0 0", "0 -0", "-0 -0"}) {
        EXPECT_TRUE(ComplexIsZero(ComplexBuffer(zero))) << zero;
    }
    for (const char* other : {"1 0", "0 1", "nan 0", "0 inf"}) {
        EXPECT_FALSE(ComplexIsZero(ComplexBuffer(other))) << other;
    }
}

TEST(ComplexSetNaN, LeavesAnImaginaryZeroAndTheFirstCode) {
    ForEachLayout(NumberTypeComplex, LayoutRange::All, [](const NumberLayout&) {
        ComplexBuffer z;
        ComplexSetNaN(z, CalcErrorComplexNotAllowed);
        ComplexSetNaN(z, CalcErrorUndefined);
        EXPECT_EQ(OutcomeOf(z), (Outcome{"nan 0", CalcErrorComplexNotAllowed}));
    });
}

TEST(ComplexSetZero, GivesTheSignToTheRealPartAlone) {
    ForEachLayout(NumberTypeComplex, LayoutRange::All, [](const NumberLayout&) {
        ComplexBuffer z;
        ComplexSetZero(z, 1);
        EXPECT_EQ(OutcomeOf(z), Silent("-0 0"));
        ComplexSetZero(z, 0);
        EXPECT_EQ(OutcomeOf(z), Silent("0 0"));
    });
}

TEST(ComplexNegate, FlipsBothSignsButThatOfNaN) {
    ForEachLayout(NumberTypeComplex, LayoutRange::All, [](const NumberLayout&) {
        ComplexBuffer z("3 -0");
        ComplexNegate(z);
        EXPECT_EQ(OutcomeOf(z), Silent("-3e0 0"));
        z = ComplexBuffer("nan -inf");
        ComplexNegate(z);
        EXPECT_EQ(OutcomeOf(z), Silent("nan inf"));
    });
}

TEST(ComplexCopy, CopiesEveryWord) {
    RandomSource random;
    ForEachLayout(NumberTypeComplex, LayoutRange::All, [&](const NumberLayout&) {
        const ComplexBuffer z = RandomComplex(random, 100);
        ComplexBuffer copy;
        ComplexCopy(copy, z);
        EXPECT_EQ(copy, z);
        ComplexCopy(copy, copy);
        EXPECT_EQ(copy, z);
        ComplexClearImaginaryPart(copy);
        EXPECT_EQ(PlainText(copy.Get()), PlainText(RealPart(z.Get())) + " 0");
    });
}

TEST(ComplexIsWellFormed, WantsBothPartsInNormalForm) {
    ForEachLayout(NumberTypeComplex, LayoutRange::All, [](const NumberLayout&) {
        for (const char* parts : {"1 0", "-0 -2", "nan 0", "inf nan"}) {
            EXPECT_TRUE(ComplexIsWellFormed(ComplexBuffer(parts))) << parts;
        }
        ComplexBuffer z("1 2");
        RealLimbs(RealPart(z.Get()))[0] = 0;
        EXPECT_FALSE(ComplexIsWellFormed(z));
        z = ComplexBuffer("1 2");
        RealLimbs(ImaginaryPart(z.Get()))[0] = LimbBase;
        EXPECT_FALSE(ComplexIsWellFormed(z));
    });
}

}  // namespace
}  // namespace tallymere
