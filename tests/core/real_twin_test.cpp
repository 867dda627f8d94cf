// The operations on numbers against their plain twins: the same limbs, exponent, sign, guard limb
// and code for every operand, wherever the result goes.
#include <gtest/gtest.h>

#include <algorithm>

#include "core/real_add.h"
#include "core/real_div_mod.h"
#include "core/real_divide.h"
#include "core/real_layout.h"
#include "core/real_multiply.h"
#include "reference/real_twins.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;
using reference::Read;
using reference::Real;
using reference::RealResult;

// The numbers of `rounds` rounds of a test have `limbs` limbs, `topDigits` digits in the first.
struct Layout {
    int64_t limbs;
    int64_t topDigits;
    int rounds;
};

// Every limb count from 1 to 40 with every sampled t, and samples up to 527 limbs; `work` scales
// the rounds, `longest` bounds the limbs.
std::vector<Layout> Layouts(int work, int64_t longest) {
    std::vector<Layout> layouts;
    for (int64_t n = 1; n <= 40; n++) {
        const int64_t step = n <= 3 ? 1 : 3;
        for (int64_t t = 1 + n % step; t <= 19; t += step) {
            layouts.push_back({n, t, TestRounds(n <= 3 ? 4 * work : work)});
        }
    }
    for (int64_t n : {53, 64, 100, 128, 263, 526, 527}) {
        if (n <= longest) {
            layouts.push_back({n, 11, TestRounds(1 + work / 10)});
            if (n <= 128) {
                layouts.push_back({n, 1, TestRounds(1 + work / 10)});
                layouts.push_back({n, 19, TestRounds(1 + work / 10)});
            }
        }
    }
    return layouts;
}

int64_t Digits(const Layout& layout) {
    return 19 * layout.limbs - 19 + layout.topDigits;
}

void ExpectSame(const RealNumber* actual, const Real& expected, const char* what) {
    ASSERT_TRUE(RealIsWellFormed(actual)) << what;
    const Real found = Read(actual);
    ASSERT_EQ(found.exponent, expected.exponent) << what;
    ASSERT_EQ(found.sign, expected.sign) << what;
    ASSERT_EQ(found.limbs, expected.limbs) << what;
}

void ExpectResult(const RealNumber* actual, Limb guard, const RealResult& expected,
                  const char* what) {
    ExpectSame(actual, expected.value, what);
    EXPECT_EQ(TakeCode(), expected.code) << what;
    if (!reference::IsSpecial(expected.value)) {
        ASSERT_EQ(guard, expected.guard) << what;
    }
}

template <typename Operation>
void ExpectBinaryTwin(const RealBuffer& a, const RealBuffer& b, const RealResult& expected,
                      Operation operation) {
    const RealBuffer aBefore = a;
    const RealBuffer bBefore = b;
    RealBuffer dest;
    Limb guard = operation(dest, a, b);
    ASSERT_NO_FATAL_FAILURE(ExpectResult(dest, guard, expected, "destination apart"));
    ASSERT_EQ(a, aBefore);
    ASSERT_EQ(b, bBefore);
    dest = a;
    guard = operation(dest, dest, b);
    ASSERT_NO_FATAL_FAILURE(ExpectResult(dest, guard, expected, "destination the first operand"));
    ASSERT_EQ(b, bBefore);
    dest = b;
    guard = operation(dest, a, dest);
    ASSERT_NO_FATAL_FAILURE(ExpectResult(dest, guard, expected, "destination the second operand"));
    ASSERT_EQ(a, aBefore);
}

template <typename Operation>
void ExpectUnaryTwin(const RealBuffer& x, const RealResult& expected, Operation operation) {
    const RealBuffer before = x;
    RealBuffer dest;
    Limb guard = operation(dest, x);
    ASSERT_NO_FATAL_FAILURE(ExpectResult(dest, guard, expected, "destination apart"));
    ASSERT_EQ(x, before);
    dest = x;
    guard = operation(dest, dest);
    ASSERT_NO_FATAL_FAILURE(ExpectResult(dest, guard, expected, "destination the operand"));
}

// Now and then moves the exponents to an end of the range.
void StretchExponents(RandomSource& random, RealBuffer& a, RealBuffer& b) {
    if (random.Below(12) != 0) {
        return;
    }
    const int64_t end = random.Below(2) == 0 ? MaxExponent : MinExponent;
    const int64_t inward = end > 0 ? -1 : 1;
    const auto place = [&](RealBuffer& x) {
        x.Get()->header = MakeHeader(end + inward * random.Between(0, 2), random.Below(2));
    };
    place(a);
    if (random.Below(2) == 0) {
        place(b);
    }
}

TEST(RealTwin, SumsAndDifferencesAgree) {
    RandomSource random;
    for (const Layout& layout : Layouts(400, 527)) {
        PrecisionScope scope(Digits(layout));
        FieldScope<uint8_t> report(numberContext.reportUnderflow, 1);
        for (int round = 0; round < layout.rounds; round++) {
            RealBuffer a;
            RealBuffer b;
            FillReal(random, a, 50);
            FillPartner(random, b, a, 50);
            StretchExponents(random, a, b);
            for (bool subtract : {false, true}) {
                ASSERT_NO_FATAL_FAILURE(ExpectBinaryTwin(
                    a, b, reference::Add(Read(a), Read(b), subtract),
                    [&](RealNumber* dest, const RealNumber* x, const RealNumber* y) {
                        return RealAddRaw(dest, x, y, subtract);
                    }))
                    << PlainText(a) << "\n"
                    << PlainText(b);
            }
            // Both operands the same record, and the result in it.
            const RealResult doubled = reference::Add(Read(a), Read(a), false);
            const Limb guard = RealAddRaw(a, a, a, false);
            ASSERT_NO_FATAL_FAILURE(ExpectResult(a, guard, doubled, "one record three times"));
        }
    }
}

TEST(RealTwin, ProductsAgree) {
    RandomSource random;
    for (const Layout& layout : Layouts(80, 527)) {
        PrecisionScope scope(Digits(layout));
        FieldScope<uint8_t> report(numberContext.reportUnderflow, 1);
        for (int round = 0; round < layout.rounds; round++) {
            RealBuffer a;
            RealBuffer b;
            FillReal(random, a, MaxExponent);
            FillReal(random, b, MaxExponent);
            StretchExponents(random, a, b);
            ASSERT_NO_FATAL_FAILURE(
                ExpectBinaryTwin(a, b, reference::Multiply(Read(a), Read(b)), RealMulRaw));
        }
    }
}

// Small numbers, powers of two and of ten, their neighbours, and any word.
uint64_t RandomFactor(RandomSource& random) {
    switch (random.Below(6)) {
        case 0:
            return random.Between(1, 20);
        case 1:
            return random.Between(1, 2010);
        case 2:
            return uint64_t{1} << random.Below(64);
        case 3:
            return reference::TenTo(random.Between(0, 19)) + random.Below(3) - (random.Below(2));
        case 4:
            return ~random.Below(3);
        default:
            return random.Word() >> random.Below(64);
    }
}

TEST(RealTwin, ProductsWithAMachineIntegerAgree) {
    RandomSource random;
    for (const Layout& layout : Layouts(500, 527)) {
        PrecisionScope scope(Digits(layout));
        for (int round = 0; round < layout.rounds; round++) {
            RealBuffer x;
            FillReal(random, x, 50);
            StretchExponents(random, x, x);
            const uint64_t k = RandomFactor(random);
            SCOPED_TRACE(k);
            ASSERT_NO_FATAL_FAILURE(ExpectUnaryTwin(x, reference::MultiplyByUint(Read(x), k),
                                                    [&](RealNumber* dest, const RealNumber* from) {
                                                        return RealMulUint(dest, from, k);
                                                    }));
        }
    }
}

TEST(RealTwin, QuotientsByAMachineIntegerAgree) {
    RandomSource random;
    for (const Layout& layout : Layouts(500, 527)) {
        PrecisionScope scope(Digits(layout));
        FieldScope<uint8_t> report(numberContext.reportUnderflow, 1);
        for (int round = 0; round < layout.rounds; round++) {
            RealBuffer x;
            FillReal(random, x, 50);
            StretchExponents(random, x, x);
            const uint64_t d = std::max<uint64_t>(1, RandomFactor(random));
            SCOPED_TRACE(d);
            for (uint64_t reciprocal : {uint64_t{0}, DivisorReciprocal(d)}) {
                ASSERT_NO_FATAL_FAILURE(
                    ExpectUnaryTwin(x, reference::DivideByUint(Read(x), d),
                                    [&](RealNumber* dest, const RealNumber* from) {
                                        return RealDivUint(dest, from, d, reciprocal);
                                    }))
                    << PlainText(x);
            }
        }
    }
}

TEST(RealTwin, QuotientsByEveryTableDivisorAgree) {
    RandomSource random;
    for (int64_t p : {1, 19, 20, 38, 39}) {
        PrecisionScope scope(p);
        RealBuffer x;
        for (uint64_t d = 1; d <= 2002; d++) {
            FillReal(random, x, 5);
            ASSERT_NO_FATAL_FAILURE(ExpectUnaryTwin(x, reference::DivideByUint(Read(x), d),
                                                    [&](RealNumber* dest, const RealNumber* from) {
                                                        return RealDivUint(dest, from, d);
                                                    }));
        }
    }
}

TEST(RealTwin, ReciprocalsAgree) {
    RandomSource random;
    for (const Layout& layout : Layouts(40, 263)) {
        PrecisionScope scope(Digits(layout));
        FieldScope<uint8_t> report(numberContext.reportUnderflow, 1);
        for (int round = 0; round < layout.rounds; round++) {
            RealBuffer x;
            FillReal(random, x, 50);
            StretchExponents(random, x, x);
            ASSERT_NO_FATAL_FAILURE(
                ExpectUnaryTwin(x, reference::Reciprocal(Read(x)), RealReciprocalRaw))
                << PlainText(x);
        }
    }
}

TEST(RealTwin, QuotientsAgree) {
    RandomSource random;
    for (const Layout& layout : Layouts(30, 128)) {
        PrecisionScope scope(Digits(layout));
        for (int round = 0; round < layout.rounds; round++) {
            RealBuffer a;
            RealBuffer b;
            FillReal(random, a, 50);
            FillReal(random, b, 50);
            StretchExponents(random, a, b);
            ASSERT_NO_FATAL_FAILURE(
                ExpectBinaryTwin(a, b, reference::Divide(Read(a), Read(b)), RealDivRaw));
        }
    }
}

TEST(RealTwin, QuotientAndReciprocalAgreeAtTheLongestLayout) {
    RandomSource random;
    PrecisionScope scope(MaxPrecisionDigits);
    RealBuffer a;
    RealBuffer b;
    FillReal(random, a, 50);
    FillReal(random, b, 50);
    RealBuffer dest;
    const Limb guard = RealDivRaw(dest, a, b);
    ExpectResult(dest, guard, reference::Divide(Read(a), Read(b)), "10,005 digits");
}

// The number in a layout of g more digits.
RealBuffer Widened(const RealBuffer& x, int64_t g) {
    const RealLayout narrow = CurrentRealLayout();
    RealLayoutScope scope;
    InstallRealLayout(LayoutForDigits(narrow.digits + g));
    RealBuffer wide;
    RealConvertLayout(wide, x, narrow);
    return wide;
}

// The raw result of an operation on numbers of g more digits, rounded to the layout in force.
template <typename Operation>
RealBuffer RoundedFromGuardDigits(int64_t g, Operation operation) {
    const int64_t p = numberContext.precisionDigits;
    RealBuffer rounded;
    RealLayoutScope scope;
    InstallRealLayout(LayoutForDigits(p + g));
    RealBuffer wide;
    operation(wide);
    RealConvertPrecision(rounded, p, wide, p + g);
    return rounded;
}

// One guard digit more or less gives the same result for most operands but not for all.
TEST(RealTwin, RoundedQuotientsHaveThreeGuardDigitsAndReciprocalsTwo) {
    RandomSource random;
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        for (int round = 0; round < TestRounds(2000); round++) {
            RealBuffer a;
            RealBuffer b;
            FillReal(random, a, 50);
            FillReal(random, b, 50);
            RealBuffer result;
            RealReciprocal(result, b);
            const RealBuffer wideB = Widened(b, 2);
            ASSERT_EQ(result, RoundedFromGuardDigits(
                                  2, [&](RealNumber* dest) { RealReciprocalRaw(dest, wideB); }));
            RealDiv(result, a, b);
            const RealBuffer wideA = Widened(a, 3);
            const RealBuffer wideDivisor = Widened(b, 3);
            ASSERT_EQ(result, RoundedFromGuardDigits(3, [&](RealNumber* dest) {
                          RealDivRaw(dest, wideA, wideDivisor);
                      }));
        }
    }
}

TEST(RealTwin, IntegerQuotientsAndRemaindersAgree) {
    RandomSource random;
    for (const Layout& layout : Layouts(80, 128)) {
        PrecisionScope scope(Digits(layout));
        FieldScope<uint8_t> report(numberContext.reportUnderflow, 1);
        const int64_t p = Digits(layout);
        for (int round = 0; round < layout.rounds; round++) {
            RealBuffer a;
            RealBuffer b;
            FillReal(random, b, 20);
            FillPartner(random, a, b, 20);
            const int64_t range = random.Below(4) == 0 ? std::min<int64_t>(p + 25, 150) : 25;
            a.Get()->header =
                MakeHeader(RealExponent(b) + random.Between(-2, range), random.Below(2));
            const reference::DivModResult expected = reference::DivMod(Read(a), Read(b));
            const RealBuffer aBefore = a;
            const RealBuffer bBefore = b;
            const auto check = [&](const RealNumber* quotient, const RealNumber* remainder,
                                   const char* what) {
                if (quotient != nullptr) {
                    ExpectSame(quotient, expected.quotient, what);
                }
                if (remainder != nullptr) {
                    ExpectSame(remainder, expected.remainder, what);
                }
                ASSERT_EQ(TakeCode(), expected.code);
            };
            RealBuffer quotient;
            RealBuffer remainder;
            RealDivMod(quotient, remainder, a, b);
            ASSERT_NO_FATAL_FAILURE(check(quotient, remainder, "both apart"));
            ASSERT_EQ(a, aBefore);
            ASSERT_EQ(b, bBefore);
            RealBuffer only;
            RealDivMod(only, nullptr, a, b);
            ASSERT_NO_FATAL_FAILURE(check(only, nullptr, "quotient alone"));
            RealDivMod(nullptr, only, a, b);
            ASSERT_NO_FATAL_FAILURE(check(nullptr, only, "remainder alone"));
            RealBuffer x = a;
            RealBuffer y = b;
            RealDivMod(x, y, x, y);
            ASSERT_NO_FATAL_FAILURE(check(x, y, "quotient into a, remainder into b"));
            x = a;
            y = b;
            RealDivMod(y, x, x, y);
            ASSERT_NO_FATAL_FAILURE(check(y, x, "quotient into b, remainder into a"));
        }
    }
}

// Past the precision the quotient has many more digits than there are to be shown.
TEST(RealTwin, RemaindersOfFarLargerDividendsAgree) {
    RandomSource random;
    for (int64_t p : {1, 10, 19, 20, 38, 57, 90}) {
        PrecisionScope scope(p);
        for (int round = 0; round < TestRounds(60); round++) {
            RealBuffer a;
            RealBuffer b;
            FillReal(random, b, 20);
            FillPartner(random, a, b, 20);
            a.Get()->header =
                MakeHeader(RealExponent(b) + random.Between(100, 3'000), random.Below(2));
            const reference::DivModResult expected = reference::DivMod(Read(a), Read(b));
            RealBuffer quotient;
            RealBuffer remainder;
            RealDivMod(quotient, remainder, a, b);
            ASSERT_NO_FATAL_FAILURE(ExpectSame(quotient, expected.quotient, "quotient"));
            ASSERT_NO_FATAL_FAILURE(ExpectSame(remainder, expected.remainder, "remainder"));
            ASSERT_EQ(TakeCode(), expected.code);
        }
    }
}

// Dividends X * (d0 B + d1) for divisors with the limbs d0, d1 and then nines: the first three
// limbs of one pass divide by the divisor's first two without a remainder, so the quotient limb
// looks one larger than it is. Random operands never come there.
TEST(RealTwin, IntegerQuotientsAgreeWhereALimbLooksOneTooLarge) {
    RandomSource random;
    for (int64_t p : {57, 76, 190, 1007}) {
        PrecisionScope scope(p);
        const int64_t n = numberContext.realLimbs;
        ASSERT_EQ(numberContext.topLimbDigits, DigitsPerLimb);
        for (int round = 0; round < 200; round++) {
            RealBuffer a("1e40");
            RealBuffer b("1");
            const bool flat = random.Below(2) == 0;
            b.Limbs()[0] = flat ? PowerOfTen(18) + random.Below(100)
                                : PowerOfTen(18) + random.Below(9 * PowerOfTen(18));
            b.Limbs()[1] = random.Below(2) == 0 ? random.Below(3) : random.Below(LimbBase);
            std::fill_n(b.Limbs() + 2, n - 2, LimbBase - 1);
            const uint64_t x = LimbBase - 1 - random.Below(PowerOfTen(17));
            const LimbQuotient low = LimbStep(x, b.Limbs()[1], 0, 0);
            const LimbQuotient high = LimbStep(x, b.Limbs()[0], low.quotient, 0);
            a.Limbs()[0] = high.quotient;
            a.Limbs()[1] = high.remainder;
            a.Limbs()[2] = low.remainder;
            if (high.quotient < PowerOfTen(18)) {
                continue;
            }
            const reference::DivModResult expected = reference::DivMod(Read(a), Read(b));
            RealBuffer quotient;
            RealBuffer remainder;
            RealDivMod(quotient, remainder, a, b);
            ASSERT_NO_FATAL_FAILURE(ExpectSame(quotient, expected.quotient, "quotient"));
            ASSERT_NO_FATAL_FAILURE(ExpectSame(remainder, expected.remainder, "remainder"));
            ASSERT_EQ(quotient.Limbs()[0], x - 1);
        }
    }
}

TEST(RealTwin, IntegerQuotientsOfTheSameRecordAgree) {
    for (int64_t p : SmallPrecisions) {
        PrecisionScope scope(p);
        RealBuffer x("-7e5");
        RealBuffer quotient;
        RealBuffer remainder;
        RealDivMod(quotient, remainder, x, x);
        EXPECT_EQ(PlainText(quotient), "1e0");
        EXPECT_EQ(PlainText(remainder), "0");
    }
}

}  // namespace
}  // namespace tallymere
