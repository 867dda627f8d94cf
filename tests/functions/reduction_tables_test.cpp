#include "functions/reduction_tables.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tallymere {
namespace {

void CheckPowers(const StepPower* powers, size_t count, uint64_t base) {
    uint64_t power = 1;
    for (size_t k = 0; k < count; k++) {
        SCOPED_TRACE(k);
        EXPECT_EQ(powers[k].power, power);
        EXPECT_EQ(powers[k].reciprocal, DivisorReciprocal(power));
        power *= base;
    }
}

TEST(StepPowers, FollowTheirRule) {
    ASSERT_EQ(Twelve.size(), 14u);
    ASSERT_EQ(HundredOne.size(), 10u);
    CheckPowers(Twelve.data(), Twelve.size(), 12);
    CheckPowers(HundredOne.data(), HundredOne.size(), 101);
    EXPECT_EQ(Twelve[13].power, 106'993'205'379'072u);
    EXPECT_EQ(HundredOne[9].power, 1'093'685'272'684'360'901u);
    EXPECT_EQ(Twelve[0].reciprocal, 0x8000000000000000u);
    EXPECT_EQ(Twelve[1].reciprocal, 0xAAAAAAAAAAAAAAAAu);
    EXPECT_EQ(Twelve[2].reciprocal, 0xE38E38E38E38E38Eu);
    EXPECT_EQ(HundredOne[0].reciprocal, 0x8000000000000000u);
    EXPECT_EQ(HundredOne[1].reciprocal, 0xA237C32B16CFD772u);
}

// The nine leading digits of a magnitude and their scale: value = digits * 10^(exponent - 8).
double NineDigits(double value, int64_t* exponent) {
    *exponent = static_cast<int64_t>(std::floor(std::log10(value)));
    return value * std::pow(10.0, static_cast<double>(8 - *exponent));
}

void CheckExpThresholds(const ExpReductionTable& table, double step) {
    for (int64_t k = 1; k <= table.thresholdCount; k++) {
        SCOPED_TRACE(k);
        int64_t exponent = 0;
        const double digits = NineDigits((static_cast<double>(k) - 0.5) * step, &exponent);
        EXPECT_EQ(table.thresholds[k - 1].exponent, exponent);
        EXPECT_EQ(table.thresholds[k - 1].digits, static_cast<uint32_t>(std::floor(digits + 0.5)));
    }
}

TEST(ExpReductionTables, HaveTheirThresholdsHalfWayBetweenTheSteps) {
    EXPECT_EQ(ExpReductionTables[0].constant, &ConstLn12);
    EXPECT_EQ(ExpReductionTables[0].decimalStep, 1);
    EXPECT_EQ(ExpReductionTables[0].powers, Twelve.data());
    ASSERT_EQ(ExpReductionTables[0].thresholdCount, 13);
    CheckExpThresholds(ExpReductionTables[0], std::log(1.2));
    EXPECT_EQ(ExpReductionTables[1].constant, &ConstLn101);
    EXPECT_EQ(ExpReductionTables[1].decimalStep, 2);
    EXPECT_EQ(ExpReductionTables[1].powers, HundredOne.data());
    ASSERT_EQ(ExpReductionTables[1].thresholdCount, 9);
    CheckExpThresholds(ExpReductionTables[1], std::log1p(0.01));
}

// The last step leaves no more than half a step of the largest argument.
TEST(ExpReductionTables, CoverTheirRange) {
    EXPECT_LT(std::log(10.0) - 13 * std::log(1.2), 0.5 * std::log(1.2));
    EXPECT_LT(0.5 * std::log(1.2) - 9 * std::log1p(0.01), 0.5 * std::log1p(0.01));
}

void CheckLnThresholds(const LnReductionTable& table, double base) {
    EXPECT_EQ(table.upper[0], 100'000'000u);
    EXPECT_EQ(table.lower[0], 100'000'000u);
    for (int64_t k = 1; k < table.entryCount; k++) {
        SCOPED_TRACE(k);
        const double middle = std::pow(base, static_cast<double>(k) - 0.5);
        EXPECT_EQ(table.upper[k], static_cast<uint32_t>(middle * 1e8));
        EXPECT_EQ(table.lower[k], static_cast<uint32_t>(1e9 / middle));
    }
}

TEST(LnReductionTables, HaveTheirThresholdsHalfWayBetweenThePowers) {
    EXPECT_EQ(LnReductionTables[0].constant, &ConstLn12);
    EXPECT_EQ(LnReductionTables[0].decimalStep, 1);
    EXPECT_EQ(LnReductionTables[0].powers, Twelve.data());
    ASSERT_EQ(LnReductionTables[0].entryCount, 7);
    CheckLnThresholds(LnReductionTables[0], 1.2);
    EXPECT_EQ(LnReductionTables[1].constant, &ConstLn101);
    EXPECT_EQ(LnReductionTables[1].decimalStep, 2);
    EXPECT_EQ(LnReductionTables[1].powers, HundredOne.data());
    ASSERT_EQ(LnReductionTables[1].entryCount, 10);
    CheckLnThresholds(LnReductionTables[1], 1.01);
}

}  // namespace
}  // namespace tallymere
