#include "core/contract.h"

#include <gtest/gtest.h>

namespace tallymere {
namespace {

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

#ifdef TALLYMERE_CHECK_CONTRACTS

TEST(Contract, StopsTheProgramWithFileLineAndCondition) {
    EXPECT_DEATH(static_cast<void>(Half(7)),
                 "contract_test\\.cpp:[0-9]+: contract broken: even % 2 == 0");
}

#else

TEST(Contract, IsGoneFromOtherBuilds) {
    EXPECT_EQ(Half(7), 3);
}

#endif

}  // namespace
}  // namespace tallymere
