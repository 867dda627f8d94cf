#include "functions/inverse_trigonometric.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "functions/function_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

TEST(AtanStepTable, HoldsTheTangentsOfTheMultiples) {
    const AtanStep coarse[] = {
        {0, 1},
        {1, 21},
        {21, 220},
        {661, 4599},
        {9240, 47959},
        {241999, 997899},
        {3039939, 10356940},
        {74195659, 214455801},
        {886282320, 2214688081},
        {20826616801, 45622167381},
        {241490560101, 468619449100},
        {5539921211221, 9599517870999},
        {62968931653320, 98024977039879},
        {1420372541759599, 1995555586184139},
        {15911689481567859, 20243147384053660},
        {354388626496978699, 409194405583559001},
        {3925677781010055840, 4119346945378880161},
        {1, 1},
    };
    const AtanStep fine[] = {
        {0, 1},
        {1, 351},
        {351, 61600},
        {184801, 21621249},
        {43243200, 3794436799},
        {18972799999, 1331804073249},
        {3995628436449, 233722128455200},
        {1636187709648799, 82032471459338751},
        {328167178773033600, 14395880647259126401u},
    };
    EXPECT_TRUE(std::ranges::equal(AtanStepTable.coarse, coarse));
    EXPECT_TRUE(std::ranges::equal(AtanStepTable.fine, fine));
}

}  // namespace
}  // namespace tallymere
