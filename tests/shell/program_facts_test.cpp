#include "shell/program_facts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace tallymere {
namespace {

// The form of a text: its digits as "9".
std::u16string FormOf(std::u16string text) {
    std::replace_if(
        text.begin(), text.end(), [](char16_t c) { return c >= u'0' && c <= u'9'; }, u'9');
    return text;
}

TEST(ProgramFacts, TheBuildTimeIsADateAndATime) {
    EXPECT_EQ(FormOf(ProgramBuildTime), u"9999-99-99 99:99:99");
    EXPECT_GE(std::u16string(ProgramBuildTime).substr(0, 4), u"2025");
}

TEST(ProgramFacts, TheVersionIsNumbersWithPoints) {
    const std::u16string version = ProgramVersion;
    EXPECT_FALSE(version.empty());
    EXPECT_EQ(FormOf(version).find_first_not_of(u"9."), std::u16string::npos);
}

}  // namespace
}  // namespace tallymere
