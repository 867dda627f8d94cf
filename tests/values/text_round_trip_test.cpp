// Every number type reads what it writes, under every layout.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/text_flags.h"
#include "support/number_layouts.h"
#include "support/text_outcomes.h"
#include "values/number_text.h"
#include "values/value_operations.h"

namespace tallymere {
namespace {

using namespace testing_support;

// The text of the value of 8 in the type in force.
std::u16string TextOfEight(uint32_t flags) {
    std::vector<uint64_t> value(SizeOfNumber() / sizeof(uint64_t));
    ValueFromInteger(value.data(), 8);
    std::u16string text(static_cast<size_t>(NumberToText(nullptr, 0, value.data(), flags)), u'#');
    text.resize(static_cast<size_t>(NumberToText(text.data(), static_cast<int64_t>(text.size()),
                                                 value.data(), flags | TextNoTerminator)));
    return text;
}

TEST(NumberText, OfEveryTypeIsReadAsWhatItWasWrittenFrom) {
    ForEachLayout(AllNumberTypes, LayoutRange::All, [](const NumberLayout& layout) {
        const Outcome outcome = ReadNumber(layout.type, TextOfEight(0), 0);
        switch (layout.type) {
            case NumberTypeReal:
                EXPECT_EQ(outcome, Silent("8e0"));
                break;
            case NumberTypeComplex:
                EXPECT_EQ(outcome, Silent("8e0 0"));
                break;
            default:
                EXPECT_EQ(outcome, Silent("8"));
        }
    });
}

TEST(NumberText, OfEveryTypeIsRefusedWhereItIsNoNumber) {
    ForEachLayout(AllNumberTypes, LayoutRange::Small, [](const NumberLayout& layout) {
        EXPECT_EQ(ReadNumber(layout.type, u"8x", 0).code, CalcErrorSyntax);
        EXPECT_EQ(ReadNumber(layout.type, u"", 0).code, CalcErrorSyntax);
    });
}

}  // namespace
}  // namespace tallymere
