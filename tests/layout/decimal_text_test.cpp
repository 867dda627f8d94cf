#include "layout/decimal_text.h"

#include <gtest/gtest.h>

#include <string>

namespace tallymere {
namespace {

TEST(DecimalText, IsTheDigitsWithASignOfANegativeNumber) {
    for (const int32_t value : {0, 7, 10, 99, 100, -1, -10, 1'234'567, INT32_MAX, INT32_MIN}) {
        const std::string expected = std::to_string(value);
        const DecimalText decimal = DecimalTextOf(value);
        EXPECT_EQ(std::u16string(decimal.text), std::u16string(expected.begin(), expected.end()));
        EXPECT_EQ(decimal.length, static_cast<int32_t>(expected.size()));
    }
}

}  // namespace
}  // namespace tallymere
