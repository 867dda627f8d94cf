// What operations on exact numbers take of CoreScratch at the widths of the calculator, 1039 limbs
// for integers and 520 for each part of a fraction: always within its bounds, and given back.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "core/number_scanner.h"
#include "core/scratch.h"
#include "exact/big_uint.h"
#include "exact/big_uint_combinatorics.h"
#include "exact/big_uint_division.h"
#include "exact/big_uint_gcd.h"
#include "exact/big_uint_logarithms.h"
#include "exact/big_uint_mod_power.h"
#include "exact/big_uint_multiply.h"
#include "exact/big_uint_powers.h"
#include "exact/big_uint_roots.h"
#include "exact/big_uint_text.h"
#include "exact/rational_arithmetic.h"
#include "exact/rational_combinatorics.h"
#include "exact/rational_powers.h"
#include "exact/rational_text.h"
#include "support/exact_testing.h"
#include "support/rational_testing.h"
#include "values/exact_conversions.h"

namespace tallymere {
namespace {

using namespace testing_support;

constexpr int64_t IntegerLimbs = 1039;
constexpr int64_t FractionLimbs = 520;

struct MeasuredOperation {
    const char* name;
    std::function<void()> run;
};

// Runs each operation and holds what it takes to the size of CoreScratch. The figures stand in the
// log of the run and in docs/architecture.md.
void MeasureAll(const std::vector<MeasuredOperation>& operations) {
    const int64_t usual = coreScratch.highWaterWords;
    for (const MeasuredOperation& operation : operations) {
        coreScratch.highWaterWords = 0;
        operation.run();
        const int64_t bytes = coreScratch.highWaterWords * BytesPerWord;
        EXPECT_EQ(TakeCode(), CalcErrorNone) << operation.name;
        EXPECT_LT(bytes, CoreScratchBytes) << operation.name;
        EXPECT_EQ(numberContext.scratchTop, numberContext.scratchBase) << operation.name;
        std::printf("CoreScratch: %-32s %7d bytes, %4.1f integers\n", operation.name,
                    static_cast<int>(bytes),
                    static_cast<double>(bytes) /
                        static_cast<double>(BytesPerWord * numberContext.uintLimbs));
    }
    coreScratch.highWaterWords = std::max(usual, coreScratch.highWaterWords);
}

// Ones and zeros in no order, with the highest bit set, in so many limbs.
void FillLong(uint64_t* dest, int64_t limbs, uint64_t seed) {
    BigUintClear(dest);
    for (int64_t i = 0; i < limbs; i++) {
        seed = seed * 6'364'136'223'846'793'005 + 1'442'695'040'888'963'407;
        dest[i] = seed;
    }
    dest[limbs - 1] |= uint64_t{1} << 63;
    dest[0] |= 1;
}

UintBuffer Long(int64_t limbs, uint64_t seed = 1) {
    UintBuffer a;
    FillLong(a, limbs, seed);
    return a;
}

UintBuffer Word(uint64_t k) {
    UintBuffer a;
    BigUintFromUnsigned(a, k);
    return a;
}

// In lowest terms but for a small factor, which no operation minds.
RationalBuffer LongFraction(int64_t limbs, uint64_t seed = 1) {
    RationalBuffer q;
    q->sign = 0;
    FillLong(RationalNumerator(q), limbs, seed);
    FillLong(RationalDenominator(q), limbs, seed + 77);
    return q;
}

RationalBuffer Fraction(uint64_t numerator, uint64_t denominator) {
    RationalBuffer q;
    RationalFromUnsigned(q, numerator, 0);
    BigUintFromUnsigned(RationalDenominator(q), denominator);
    return q;
}

// The longest text of each kind.
template <typename Write>
std::u16string TextOf(int64_t capacity, Write write) {
    std::u16string text(static_cast<size_t>(capacity) + 1, u'\0');
    text.resize(static_cast<size_t>(write(text.data(), capacity)));
    return text;
}

TEST(ExactMemory, OfIntegersStaysWithinCoreScratch) {
    const WidthScope scope(IntegerLimbs);
    const UintBuffer a = Long(IntegerLimbs);
    const UintBuffer b = Long(IntegerLimbs, 5);
    const UintBuffer half = Long(IntegerLimbs / 2, 9);
    // Its leading limbs are those of a, from which no step of Lehmer's can be told.
    UintBuffer next;
    BigUintSubOne(next, a);
    UintBuffer dest;
    UintBuffer other;
    const auto textOf = [&](uint32_t flags) {
        return TextOf(BigUintTextLength(flags), [&](char16_t* buffer, int64_t capacity) {
            return BigUintToText(buffer, capacity, a, flags);
        });
    };
    const std::u16string decimal = textOf(10 | TextGroup);
    const std::u16string binary = textOf(2 | TextGroup);
    MeasureAll({
        {"BigUintMul", [&] { BigUintMul(dest, half, half); }},
        {"BigUintMulFull, over an operand",
         [&] {
             UintBuffer square = UintBuffer::OfLimbs(2 * IntegerLimbs);
             BigUintCopy(square, a);
             BigUintMulFull(square, square, square);
         }},
        {"BigUintShiftRight", [&] { BigUintShiftRight(dest, a, 1'000); }},
        {"BigUintDivide", [&] { BigUintDivide(dest, other, a, half); }},
        {"BigUintDivide, long divisor", [&] { BigUintDivide(dest, other, a, b); }},
        {"BigUintDivideExact", [&] { BigUintDivideExact(dest, a, b); }},
        {"BigUintDivideSmall", [&] { BigUintDivideSmall(dest, nullptr, a, 2'003, 0); }},
        {"BigUintGcd", [&] { BigUintGcd(dest, a, b); }},
        {"BigUintGcd, by a division", [&] { BigUintGcd(dest, a, next); }},
        {"BigUintLcm", [&] { BigUintLcm(dest, half, Long(IntegerLimbs / 2, 13)); }},
        {"BigUintLcm, by a division", [&] { BigUintLcm(dest, a, a); }},
        {"BigUintModPower", [&] { BigUintModPower(dest, a, Word(13), b); }},
        {"BigUintModPower, several bits at once",
         [&] { BigUintModPower(dest, a, Word(0x7FFF'FFFF), b); }},
        {"BigUintSquareRoot", [&] { BigUintSquareRoot(dest, a); }},
        {"BigUintRootSmall, degree 3", [&] { BigUintRootSmall(dest, 3, a); }},
        {"BigUintRootSmall, degree 100", [&] { BigUintRootSmall(dest, 100, a); }},
        {"BigUintPower", [&] { BigUintPower(dest, Word(3), Word(41'900)); }},
        {"BigUintPowerOfTen", [&] { BigUintPowerOfTen(dest, Word(20'000)); }},
        {"BigUintLogTen", [&] { BigUintLogTen(dest, a); }},
        {"BigUintLog, short base", [&] { BigUintLog(dest, Word(3), a); }},
        {"BigUintLog, long base", [&] { BigUintLog(dest, Long(26, 3), a); }},
        {"BigUintLog, power of the base",
         [&] {
             BigUintPower(other, Word(3), Word(41'900));
             BigUintLog(dest, Word(3), other);
         }},
        {"BigUintFactorial", [&] { BigUintFactorial(dest, Word(5'900)); }},
        {"BigUintBinomial", [&] { BigUintBinomial(dest, Word(20'000), Word(5'000), false); }},
        {"BigUintBinomial, long numbers", [&] { BigUintBinomial(dest, half, Word(2), true); }},
        {"BigUintFromText, decimal",
         [&] {
             BigUintFromText(dest, decimal.c_str(), TextUntilZero, 10 | TextGroup);
             EXPECT_EQ(dest, a);
         }},
        {"BigUintFromText, binary",
         [&] {
             BigUintFromText(dest, binary.c_str(), TextUntilZero, 2 | TextGroup);
             EXPECT_EQ(dest, a);
         }},
        {"BigUintToText, decimal", [&] { textOf(10 | TextGroup); }},
        {"BigUintToText, scientific", [&] { textOf(10 | TextScientific); }},
        {"BigUintToText, binary", [&] { textOf(2 | TextGroup); }},
    });
}

TEST(ExactMemory, OfFractionsStaysWithinCoreScratch) {
    const WidthScope scope(FractionLimbs);
    const RationalBuffer a = LongFraction(FractionLimbs / 2);
    const RationalBuffer b = LongFraction(FractionLimbs / 2, 5);
    const RationalBuffer longest = LongFraction(FractionLimbs, 3);
    RationalBuffer dest;
    RationalBuffer other;
    // Reduction in full: longest times its reciprocal, which has the longest parts that cancel.
    RationalBuffer reciprocal;
    RationalReciprocal(reciprocal, longest);
    const auto textOf = [&](uint32_t flags) {
        return TextOf(2 * BigUintTextLength(flags) + 2, [&](char16_t* buffer, int64_t capacity) {
            return RationalToText(buffer, capacity, longest, flags);
        });
    };
    const std::u16string decimal = textOf(10 | TextGroup);
    const std::u16string binary = textOf(2 | TextGroup);
    const RationalBuffer square = [&] {
        RationalBuffer power;
        RationalPowerSmall(power, LongFraction(FractionLimbs / 6), 6);
        return power;
    }();
    MeasureAll({
        {"RationalAddSub", [&] { RationalAddSub(dest, a, b, false); }},
        {"RationalAddSub, too long a sum",
         [&] {
             RationalAddSub(dest, LongFraction(FractionLimbs - 1),
                            LongFraction(FractionLimbs - 1, 5), false);
             EXPECT_EQ(TakeCode(), CalcErrorOverflow);
         }},
        {"RationalMulDiv", [&] { RationalMulDiv(dest, a, b, false); }},
        {"RationalMulDiv, longest", [&] { RationalMulDiv(dest, longest, reciprocal, false); }},
        {"RationalMulSmall", [&] { RationalMulSmall(dest, a, 2'003); }},
        {"RationalDivSmall", [&] { RationalDivSmall(dest, a, 2'003); }},
        {"RationalDivMod", [&] { RationalDivMod(dest, other, a, b); }},
        {"RationalDivMod, too long a rest",
         [&] {
             RationalDivMod(dest, other, longest, LongFraction(FractionLimbs, 8));
             EXPECT_EQ(TakeCode(), CalcErrorOverflow);
         }},
        {"RationalCompare", [&] { RationalCompare(longest, reciprocal, false); }},
        {"RationalCompareSmall", [&] { RationalCompareSmall(longest, 3, false); }},
        {"RationalTrunc", [&] { RationalTrunc(dest, longest); }},
        {"RationalFraction", [&] { RationalFraction(dest, longest); }},
        {"RationalPowerSmall", [&] { RationalPowerSmall(dest, Fraction(3, 7), -11'000); }},
        {"RationalPower", [&] { RationalPower(dest, Fraction(1, 1), Fraction(3, 7)); }},
        {"RationalPowerOfTen", [&] { RationalPowerOfTen(dest, Fraction(10'000, 1)); }},
        {"RationalSquareRoot", [&] { RationalSquareRoot(dest, square); }},
        {"RationalCubeRoot", [&] { RationalCubeRoot(dest, square); }},
        {"RationalRoot", [&] { RationalRoot(dest, Fraction(3, 2), square); }},
        {"RationalLog",
         [&] {
             RationalPowerSmall(other, Fraction(3, 1), -20'900);
             RationalLog(dest, Fraction(3, 1), other);
         }},
        {"RationalFactorial", [&] { RationalFactorial(dest, Fraction(3'000, 1)); }},
        {"RationalBinomial",
         [&] { RationalBinomial(dest, Fraction(1, 3), Fraction(999, 1), false); }},
        {"RationalGcd",
         [&] {
             RationalTrunc(other, longest);
             BigUintCopy(RationalNumerator(other), RationalNumerator(longest));
             RationalFromUnsigned(dest, 1, 0);
             BigUintCopy(RationalNumerator(dest), RationalDenominator(longest));
             RationalGcd(dest, other, dest);
         }},
        {"RationalFromText, decimal",
         [&] { RationalFromText(dest, decimal.c_str(), TextUntilZero, 10 | TextGroup); }},
        {"RationalFromText, binary",
         [&] { RationalFromText(dest, binary.c_str(), TextUntilZero, 2 | TextGroup); }},
        {"RationalToText, decimal", [&] { textOf(10 | TextGroup); }},
        {"RationalToText, binary", [&] { textOf(2 | TextGroup); }},
    });
}

// The calculator moves exact numbers to its longest decimal layout and back.
TEST(ExactMemory, OfConversionsStaysWithinCoreScratch) {
    const PrecisionScope precision(10'002);
    {
        const WidthScope scope(IntegerLimbs);
        const UintBuffer a = Long(IntegerLimbs);
        UintBuffer dest;
        RealBuffer x;
        MeasureAll({
            {"RealFromBigUint", [&] { RealFromBigUint(x, a, IntegerLimbs); }},
            {"BigUintFromReal",
             [&] {
                 BigUintFromReal(dest, IntegerLimbs, RealBuffer("123456789e19980"));
                 BigUintFromReal(dest, IntegerLimbs, RealBuffer("123456789e100"));
             }},
            {"ConvertRealToUint",
             [&] { ConvertRealToUint(dest, IntegerLimbs, RealBuffer("123456789e100"), 10'002); }},
        });
    }
    const WidthScope scope(FractionLimbs);
    const RationalBuffer q = LongFraction(FractionLimbs);
    RationalBuffer dest;
    RealBuffer x;
    MeasureAll({
        {"RealFromRational", [&] { RealFromRational(x, q); }},
        {"RealFromRational, small parts", [&] { RealFromRational(x, Fraction(3, 7)); }},
        {"ConvertRationalToReal", [&] { ConvertRationalToReal(x, 10'002, q, FractionLimbs); }},
        {"ConvertRealToRational",
         [&] { ConvertRealToRational(dest, FractionLimbs, RealBuffer("123456789e100"), 10'002); }},
    });
}

}  // namespace
}  // namespace tallymere
