#include "algebra/enclosed_rounding.h"

#include <gtest/gtest.h>

#include <string>

#include "support/equation_testing.h"
#include "support/formula_testing.h"
#include "support/number_types.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

class EnclosedRounding : public ::testing::Test {
protected:
    // What a number rounds to, or "open".
    static std::string Rounded(const char* x, int64_t error, int64_t digits) {
        FormulaScope scope(30, NumberTypeReal);
        RealBuffer rounded;
        return RoundsAlike(rounded, RealBuffer(x), error, digits) ? PlainText(rounded) : "open";
    }

    ScratchStackOwner stack_;
};

TEST_F(EnclosedRounding, TellsWhereAllNumbersRoundAlike) {
    EXPECT_EQ(Rounded("1.2344", -5, 4), "1.234e0");
    EXPECT_EQ(Rounded("-1.2346", -5, 4), "-1.235e0");
    EXPECT_EQ(Rounded("1.23449", -4, 4), "open");
    EXPECT_EQ(Rounded("1.2345", -20, 4), "open") << "a tie";
    EXPECT_EQ(Rounded("9.9999", -5, 4), "1e1");
}

TEST_F(EnclosedRounding, LeavesOpenWhatMayBeZeroOrHaveEitherSign) {
    EXPECT_EQ(Rounded("1", 0, 4), "open");
    EXPECT_EQ(Rounded("-1", 0, 4), "open");
    EXPECT_EQ(Rounded("5", 0, 1), "open");
    EXPECT_EQ(Rounded("1", 3, 4), "open");
    EXPECT_EQ(Rounded("1e46", 46, 10), "open");
}

}  // namespace
}  // namespace tallymere
