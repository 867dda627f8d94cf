#include "numtheory/factorize_number.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "core/stop_request.h"
#include "reference/factor_twins.h"
#include "support/exact_testing.h"
#include "support/random_source.h"

namespace tallymere {
namespace {

using namespace testing_support;

// "2^3 * 3^2 * 5", and "" for a list without factors.
std::string Text(const FactorList& list) {
    if (list.count < 0) {
        return "overflow";
    }
    std::string text;
    for (int64_t i = 0; i < list.count; i++) {
        text += i > 0 ? " * " : "";
        text += UintText(list.primes[i], FactorLimbs);
        if (list.multiplicities[i] != 1) {
            text += "^" + std::to_string(list.multiplicities[i]);
        }
    }
    return text;
}

// The factors of a number that is given as for UintFromPlainText.
std::string Factors(std::string_view number) {
    WidthScope scope(FactorLimbs);
    const UintBuffer n(number);
    FactorList list;
    EXPECT_EQ(FactorizeNumber(&list, n), FactorOutcome::Complete);
    EXPECT_TRUE(FactorListIsWellFormed(list));
    EXPECT_EQ(n, UintBuffer(number)) << "n has changed";
    return Text(list);
}

TEST(FactorizeNumber, GivesPrimesInAscendingOrderWithTheirExponents) {
    EXPECT_EQ(Factors("360"), "2^3 * 3^2 * 5");
    EXPECT_EQ(Factors("4"), "2^2");
    EXPECT_EQ(Factors("6"), "2 * 3");
    EXPECT_EQ(Factors("1000000007"), "1000000007");
    EXPECT_EQ(Factors("1000000016000000063"), "1000000007 * 1000000009");
    EXPECT_EQ(Factors("1000000014000000049"), "1000000007^2");
}

TEST(FactorizeNumber, OfZeroAndOneIsEmpty) {
    EXPECT_EQ(Factors("0"), "");
    EXPECT_EQ(Factors("1"), "");
}

TEST(FactorizeNumber, OfTwoAndThreeIsTheNumber) {
    EXPECT_EQ(Factors("2"), "2");
    EXPECT_EQ(Factors("3"), "3");
}

TEST(FactorizeNumber, OfTwoToThe127IsOnePrime) {
    EXPECT_EQ(Factors("2^127"), "2^127");
}

TEST(FactorizeNumber, OfTheLargestNumberHasNinePrimes) {
    EXPECT_EQ(Factors("2^128-1"),
              "3 * 5 * 17 * 257 * 641 * 65537 * 274177 * 6700417 * 67280421310721");
}

// The factors below are those of GNU factor and PARI.
TEST(FactorizeNumber, OfTheNumbersNextToTheLargest) {
    EXPECT_EQ(Factors("2^128-2"), "2 * 170141183460469231731687303715884105727");
    EXPECT_EQ(Factors("2^127-1"), "170141183460469231731687303715884105727");
    EXPECT_EQ(Factors("2^128-159"), "340282366920938463463374607431768211297");
}

TEST(FactorizeNumber, OfProductsOfTheLargestPrimesOfOneWord) {
    // (2^64 - 59)^2 and (2^64 - 59) (2^64 - 83).
    EXPECT_EQ(Factors("340282366920938461286658806734041124249"), "18446744073709551557^2");
    EXPECT_EQ(Factors("340282366920938460843936948965011886881"),
              "18446744073709551533 * 18446744073709551557");
}

TEST(FactorizeNumber, OfTheProductOfThe26FirstPrimesHoldsAllOfThem) {
    EXPECT_EQ(
        Factors("232862364358497360900063316880507363070"),
        "2 * 3 * 5 * 7 * 11 * 13 * 17 * 19 * 23 * 29 * 31 * 37 * 41 * 43 * 47 * 53 * 59 * 61 * "
        "67 * 71 * 73 * 79 * 83 * 89 * 97 * 101");
}

TEST(FactorizeNumber, OfCarmichaelNumbers) {
    EXPECT_EQ(Factors("561"), "3 * 11 * 17");
    EXPECT_EQ(Factors("1729"), "7 * 13 * 19");
    EXPECT_EQ(Factors("3215031751"), "151 * 751 * 28351");
    EXPECT_EQ(Factors("341550071728321"), "10670053 * 32010157");
    EXPECT_EQ(Factors("3317044064679887385961981"), "1287836182261 * 2575672364521");
}

TEST(FactorizeNumber, WantsTwoLimbs) {
    for (const int64_t limbs : {1, 3, 65}) {
        WidthScope scope(limbs);
        const UintBuffer n("12");
        FactorList list;
        list.count = 5;
        EXPECT_EQ(FactorizeNumber(&list, n), FactorOutcome::WrongWidth);
        EXPECT_EQ(list.count, -1);
    }
}

TEST(FactorizeNumber, EqualsTheTwinForAllSmallNumbers) {
    WidthScope scope(FactorLimbs);
    const uint64_t count = static_cast<uint64_t>(TestRounds(60'000));
    // From 0 on, then where the root passes the bound of the walk, then beyond it.
    for (const uint64_t start : {uint64_t{0}, 1'000'000 - count / 4, uint64_t{1'010'000}}) {
        for (uint64_t n = start; n < start + (start == 0 ? count : count / 2); n++) {
            const uint64_t limbs[] = {n, 0};
            FactorList ours;
            ASSERT_EQ(FactorizeNumber(&ours, limbs), FactorOutcome::Complete);
            FactorList twin;
            reference::TwinFactorizeNumber(&twin, limbs);
            ASSERT_EQ(Text(ours), Text(twin)) << n;
        }
    }
}

TEST(FactorizeNumber, EqualsTheTwinForRandomNumbers) {
    WidthScope scope(FactorLimbs);
    RandomSource random;
    for (int round = 0; round < TestRounds(500); round++) {
        const uint64_t limbs[] = {random.Word() >> random.Between(24, 63), 0};
        FactorList ours;
        ASSERT_EQ(FactorizeNumber(&ours, limbs), FactorOutcome::Complete);
        FactorList twin;
        reference::TwinFactorizeNumber(&twin, limbs);
        ASSERT_EQ(Text(ours), Text(twin)) << limbs[0];
    }
}

TEST(FactorizeNumber, DoesNothingWhenAStopWasRequested) {
    WidthScope scope(FactorLimbs);
    RequestStop();
    FactorList list;
    list.count = 7;
    EXPECT_EQ(FactorizeNumber(&list, UintBuffer("360")), FactorOutcome::Stopped);
    EXPECT_EQ(list.count, 0);
    // There is nothing to search for, and so nothing to stop.
    EXPECT_EQ(FactorizeNumber(&list, UintBuffer("1")), FactorOutcome::Complete);
    ClearStopRequest();
}

TEST(FactorizeNumber, EndsWhenAStopIsRequested) {
    WidthScope scope(FactorLimbs);
    // 4 times the product of two primes of 63 bits. Again and again, since the first search may end
    // before the other thread begins.
    const UintBuffer n("340282366920938456453611859422138613876");
    std::thread asking(RequestStop);
    FactorList list;
    FactorOutcome outcome;
    do {
        outcome = FactorizeNumber(&list, n);
    } while (outcome == FactorOutcome::Complete);
    asking.join();
    ClearStopRequest();
    EXPECT_EQ(outcome, FactorOutcome::Stopped);
    // What was found until then stays.
    EXPECT_TRUE(Text(list) == "" || Text(list) == "2^2") << Text(list);
}

TEST(FactorListIsWellFormed, WantsAscendingPrimesWithExponents) {
    const FactorList good = {.count = 2, .primes = {{2, 0}, {0, 1}}, .multiplicities = {1, 3}};
    EXPECT_TRUE(FactorListIsWellFormed(good));
    FactorList list = good;
    list.multiplicities[1] = 0;
    EXPECT_FALSE(FactorListIsWellFormed(list));
    list = good;
    list.primes[1][1] = 0;
    EXPECT_FALSE(FactorListIsWellFormed(list));
    list = good;
    list.primes[0][1] = 1;
    EXPECT_FALSE(FactorListIsWellFormed(list));
    list = good;
    list.primes[0][0] = 1;
    EXPECT_FALSE(FactorListIsWellFormed(list));
    for (const int64_t count : {int64_t{-2}, MaxDistinctPrimes + 1}) {
        list.count = count;
        EXPECT_FALSE(FactorListIsWellFormed(list));
    }
    list.count = -1;
    EXPECT_TRUE(FactorListIsWellFormed(list));
}

TEST(AddFactor, SortsPrimesAndCountsEqualOnes) {
    FactorList list;
    list.count = 0;
    AddFactor(&list, {0, 7}, 1);
    AddFactor(&list, {1, 3}, 1);
    AddFactor(&list, {0, 3}, 2);
    AddFactor(&list, {0, 7}, 3);
    AddFactor(&list, {0, 5}, 1);
    EXPECT_EQ(Text(list), "3^2 * 5 * 7^4 * 18446744073709551619");
    EXPECT_TRUE(FactorListIsWellFormed(list));
}

TEST(AddFactor, RefusesA27thPrimeForGood) {
    FactorList list;
    list.count = 0;
    for (uint64_t i = 0; i < MaxDistinctPrimes; i++) {
        AddFactor(&list, {0, 101 + i}, 1);
    }
    AddFactor(&list, {0, 101}, 1);
    EXPECT_EQ(list.count, MaxDistinctPrimes);
    AddFactor(&list, {0, 2}, 1);
    EXPECT_EQ(list.count, -1);
    AddFactor(&list, {0, 2}, 1);
    EXPECT_EQ(list.count, -1);
}

}  // namespace
}  // namespace tallymere
