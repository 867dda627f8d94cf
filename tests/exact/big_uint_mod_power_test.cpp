#include "exact/big_uint_mod_power.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

#include "exact/big_uint.h"
#include "exact/big_uint_division.h"
#include "support/exact_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

Outcome ModPower(std::string_view a, std::string_view e, std::string_view m) {
    UintBuffer dest;
    BigUintModPower(dest, UintBuffer(a), UintBuffer(e), UintBuffer(m));
    return TakeOutcome(dest);
}

TEST(BigUintModPower, RefusesAModulusOfZero) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(ModPower("5", "3", "0"), Refused(CalcErrorExactDivisionByZero));
        EXPECT_EQ(ModPower("0", "0", "0"), Refused(CalcErrorExactDivisionByZero));
    }
}

TEST(BigUintModPower, TakesAnExponentOfZeroForOne) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(ModPower("2", "0", "1"), Silent("0"));
        EXPECT_EQ(ModPower("0", "0", "1"), Silent("0"));
        EXPECT_EQ(ModPower("0", "0", "5"), Silent("1"));
        EXPECT_EQ(ModPower("7", "0", "2"), Silent("1"));
    }
}

TEST(BigUintModPower, IsZeroModuloOne) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        const std::string ones = TwoTo(64 * limbs, "-1");
        EXPECT_EQ(ModPower("5", "3", "1"), Silent("0"));
        EXPECT_EQ(ModPower(ones, "3", "1"), Silent("0"));
        EXPECT_EQ(ModPower("0", "1", "1"), Silent("0"));
    }
}

TEST(BigUintModPower, FindsHandCheckedPowers) {
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        EXPECT_EQ(ModPower("2", "10", "1000"), Silent("24"));
        EXPECT_EQ(ModPower("3", "4", "80"), Silent("1"));
        EXPECT_EQ(ModPower("3", "4", "81"), Silent("0"));
        EXPECT_EQ(ModPower("3", "4", "82"), Silent("81"));
        EXPECT_EQ(ModPower("0", "7", "5"), Silent("0"));
        EXPECT_EQ(ModPower("10", "1", "7"), Silent("3"));
        EXPECT_EQ(ModPower("7", "18446744073709551615", "10"), Silent("3"));
    }
}

// a^(p - 1) = 1 modulo a prime p, for the primes 2^61 - 1, 2^89 - 1, 2^521 - 1.
TEST(BigUintModPower, FollowsFermat) {
    WidthScope scope(9);
    for (const char* prime : {"2^61-1", "2^89-1", "2^521-1"}) {
        UintBuffer exponent(prime);
        BigUintSubOne(exponent, exponent);
        for (const char* base : {"2", "3", "2^60+5", "2^64+1"}) {
            EXPECT_EQ(ModPower(base, exponent.Text(), prime), Silent("1")) << base;
        }
        EXPECT_EQ(ModPower("123456789", prime, prime), Silent("123456789"));
    }
    EXPECT_EQ(ModPower("2^576-1", "2", "2^576-2"), Silent("1"));
}

// a^e = a^(e mod (p - 1)) modulo a prime p, and modulo 2 p for an odd a. Of the longer exponent
// more bits are taken at once.
TEST(BigUintModPower, NeedsOfAnExponentOnlyItsRemainder) {
    RandomSource random;
    WidthScope scope(65);
    for (const char* primeText : {"2^61-1", "2^89-1", "2^521-1"}) {
        const UintBuffer prime(primeText);
        UintBuffer twice;
        BigUintShiftLeft(twice, prime, 1, true);
        UintBuffer order;
        BigUintSubOne(order, prime);
        for (int64_t limbs = 1; limbs <= 65; limbs += 4) {
            UintBuffer e;
            FillUint(random, e, limbs);
            UintBuffer rest;
            BigUintDivide(nullptr, rest, e, order);
            const UintBuffer a(std::to_string(2 * random.Below(1'000'000) + 3));
            for (const UintBuffer& modulus : {prime, twice}) {
                UintBuffer expected;
                BigUintModPower(expected, a, rest, modulus);
                UintBuffer power;
                BigUintModPower(power, a, e, modulus);
                ASSERT_EQ(power, expected)
                    << a.Text() << " ^ " << e.Text() << " mod " << modulus.Text();
            }
        }
    }
    EXPECT_EQ(TakeCode(), CalcErrorNone);
}

TEST(BigUintModPower, TakesBasesAboveTheModulus) {
    WidthScope scope(4);
    EXPECT_EQ(ModPower("2^256-1", "1", "10"), Silent("5"));
    EXPECT_EQ(ModPower("2^256-1", "3", "2^64"), UintValue("2^64-1"));
    EXPECT_EQ(ModPower("2^256-1", "2", "2^128+1"), Silent("0"));
    EXPECT_EQ(ModPower("2^200", "5", "2^199+1"), UintValue("2^199-31"));
}

TEST(BigUintModPower, TakesEvenModuli) {
    WidthScope scope(4);
    // The odd numbers modulo 2^k have orders that divide 2^(k - 2).
    EXPECT_EQ(ModPower("3", "2^190", "2^192"), Silent("1"));
    EXPECT_EQ(ModPower("3", "2^189", "2^192"), UintValue("2^191+1"));
    EXPECT_EQ(ModPower("6", "2^100", "2^192"), Silent("0"));
    // 2^200 = 2^100 modulo 2^100 (2^100 - 1).
    EXPECT_EQ(ModPower("2", "200", "1606938044258990275541962092339894951921974764381296132096000"),
              UintValue("2^100"));
}

// No factor is a multiple of the odd modulus, but their product is.
TEST(BigUintModPower, IsZeroWhereOnlyAProductIsAMultipleOfTheModulus) {
    WidthScope scope(4);
    const char* square = "0x100000000000000020000000000000001";  // (2^64 + 1)^2
    EXPECT_EQ(ModPower("2^64+1", "1", square), UintValue("2^64+1"));
    EXPECT_EQ(ModPower("2^64+1", "2", square), Silent("0"));
    EXPECT_EQ(ModPower("2^64+1", "3", square), Silent("0"));
    EXPECT_EQ(ModPower("2^65+2", "2^100-1", square), Silent("0"));
}

TEST(BigUintModPower, WritesOverItsOperands) {
    for (int64_t limbs : {1, 2, 26}) {
        WidthScope scope(limbs);
        for (const char* modulus : {"1000000007", "1000000006", "0", "1"}) {
            const UintBuffer a("123456789012");
            const UintBuffer e("987654321");
            const UintBuffer m(modulus);
            UintBuffer expected;
            BigUintModPower(expected, a, e, m);
            const CalcError code = TakeCode();
            UintBuffer dest = a;
            BigUintModPower(dest, dest, e, m);
            EXPECT_EQ(dest, expected);
            dest = e;
            BigUintModPower(dest, a, dest, m);
            EXPECT_EQ(dest, expected);
            dest = m;
            BigUintModPower(dest, a, e, dest);
            EXPECT_EQ(dest, expected);
            EXPECT_EQ(TakeCode(), code);
            dest = a;
            BigUintModPower(dest, dest, dest, dest);
            EXPECT_EQ(TakeOutcome(dest), Silent("0"));
        }
    }
}

TEST(BigUintModPower, KeepsACodeThatWasNotedBefore) {
    WidthScope scope(2);
    SetCalcError(CalcErrorOverflow);
    EXPECT_EQ(ModPower("2", "10", "1000"), (Outcome{"24", CalcErrorOverflow}));
    SetCalcError(CalcErrorOverflow);
    EXPECT_EQ(ModPower("2", "10", "0"), (Outcome{"0", CalcErrorOverflow}));
}

TEST(BigUintModPower, PutsBackAWidthWhoseDigitsAreNotThoseOfItsLimbs) {
    ContextCheck check;
    UintWidthScope width;
    InstallUintWidth({501, 27});
    uint8_t stop = 1;
    FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    for (uint8_t asked : {0, 1}) {
        SetStopByte(&stop, asked);
        ModPower("3", "2^70", "2^1000+1");
        EXPECT_EQ(CurrentUintWidth().digits, 501);
        EXPECT_EQ(CurrentUintWidth().limbs, 27);
    }
}

// The byte is read before each bit of e, so that even the shortest power ends by it.
TEST(BigUintModPower, EndsWithoutAResultWhenAskedToStop) {
    uint8_t stop = 1;
    for (int64_t limbs : AllUintWidths) {
        WidthScope scope(limbs);
        FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
        EXPECT_EQ(ModPower("3", "100", "7"), Refused(CalcErrorCancelled));
        EXPECT_EQ(ModPower("3", "1", "7"), Refused(CalcErrorCancelled));
        EXPECT_EQ(ModPower("0", "1", "1"), Refused(CalcErrorCancelled));
        // Nothing is read where there is no bit.
        EXPECT_EQ(ModPower("3", "0", "7"), Silent("1"));
        EXPECT_EQ(ModPower("3", "5", "0"), Refused(CalcErrorExactDivisionByZero));
    }
}

// At the largest width a power of all ones takes half a minute and more.
TEST(BigUintModPower, StopsInTheMiddleOfTheLargestOperands) {
    WidthScope scope(1039);
    uint8_t stop = 0;
    FieldScope<uint8_t*> flag(numberContext.abortFlag, &stop);
    UintBuffer ones;
    std::fill_n(ones.Get(), 1039, ~uint64_t{0});
    UintBuffer modulus = ones;
    modulus.Get()[0]--;
    UintBuffer dest;
    std::thread asking([&] { SetStopByte(&stop, 1); });
    BigUintModPower(dest, ones, ones, modulus);
    asking.join();
    EXPECT_EQ(TakeOutcome(dest), Refused(CalcErrorCancelled));
}

}  // namespace
}  // namespace tallymere
