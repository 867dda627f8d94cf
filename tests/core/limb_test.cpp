#include "core/limb.h"

#include <gtest/gtest.h>

namespace tallymere {
namespace {

TEST(LimbTables, DivisionReciprocalsFollowTheirRule) {
    EXPECT_EQ(DivisionReciprocal(1), 0xCCCCCCCCCCCCCCCCu);
    EXPECT_EQ(DivisionReciprocal(2), 0xA3D70A3D70A3D70Au);
    EXPECT_EQ(DivisionReciprocal(19), 0xEC1E4A7DB69561A5u);
}

}  // namespace
}  // namespace tallymere
