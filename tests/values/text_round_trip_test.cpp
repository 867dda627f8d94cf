// Every number type reads what it writes, under every layout.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/complex_text.h"
#include "core/real_rounding.h"
#include "core/real_text.h"
#include "core/text_flags.h"
#include "exact/big_uint_text.h"
#include "exact/rational_text.h"
#include "support/complex_testing.h"
#include "support/decimal_text.h"
#include "support/exact_testing.h"
#include "support/number_layouts.h"
#include "support/rational_testing.h"
#include "support/text_outcomes.h"
#include "values/number_text.h"
#include "values/value_operations.h"

namespace tallymere {
namespace {

using namespace testing_support;

// The words of a value of the type in force.
using Value = std::vector<uint64_t>;

Value MakeValue() {
    return Value(SizeOfNumber() / sizeof(uint64_t));
}

// A value that uses digits and limbs to the last. The sign of a zero is not written, so it has
// none.
Value RandomValue(RandomSource& random) {
    constexpr int64_t exponentRange = 150;
    Value value = MakeValue();
    switch (numberContext.numberType) {
        case NumberTypeReal:
            FillReal(random, RealAt(value.data()), exponentRange);
            break;
        case NumberTypeComplex:
            FillReal(random, RealPart(ComplexAt(value.data())), exponentRange);
            FillReal(random, ImaginaryPart(ComplexAt(value.data())), exponentRange);
            break;
        case NumberTypeUint:
            FillUint(random, value.data());
            break;
        case NumberTypeRational:
            FillRational(random, RationalAt(value.data()), numberContext.uintLimbs);
            if (RationalIsZero(RationalAt(value.data()))) {
                RationalAt(value.data())->sign = 0;
            }
            break;
        case NumberTypeNone:
            ADD_FAILURE() << "no number type";
    }
    return value;
}

std::u16string WriteValue(const Value& value, uint32_t flags) {
    std::u16string text(static_cast<size_t>(NumberToText(nullptr, 0, value.data(), flags)), u'#');
    text.resize(static_cast<size_t>(NumberToText(text.data(), static_cast<int64_t>(text.size()),
                                                 value.data(), flags | TextNoTerminator)));
    return text;
}

Value ReadValue(const std::u16string& text, uint32_t flags) {
    Value value = MakeValue();
    const auto length = static_cast<int64_t>(text.size());
    RealNumber* const real = RealAt(value.data());
    switch (numberContext.numberType) {
        case NumberTypeReal:
            RealRound(real, RealFromText(real, text.data(), length, flags));
            break;
        case NumberTypeComplex:
            ComplexFromText(ComplexAt(value.data()), text.data(), length, flags);
            break;
        case NumberTypeUint:
            BigUintFromText(value.data(), text.data(), length, flags);
            break;
        case NumberTypeRational:
            RationalFromText(RationalAt(value.data()), text.data(), length, flags);
            break;
        case NumberTypeNone:
            ADD_FAILURE() << "no number type";
    }
    return value;
}

TEST(NumberText, OfEveryTypeIsReadAsWhatItWasWrittenFrom) {
    RandomSource random;
    // None of them a plain one, which would be read as well.
    char16_t* const decimal = numberContext.decimalSeparators;
    char16_t* const group = numberContext.groupSeparators;
    const FieldScope<char16_t> scopes[] = {{decimal[0], u','}, {decimal[1], u','},
                                           {decimal[2], u','}, {group[0], u' '},
                                           {group[1], u' '},   {group[2], u' '}};
    ForEachLayout(AllNumberTypes, LayoutRange::All, [&](const NumberLayout&) {
        for (const uint32_t flags :
             {uint32_t{0}, uint32_t{TextAlwaysSign}, uint32_t{TextGroup}, uint32_t{TextScientific},
              TextGroup | TextPlainSeparators | TextScientific | TextStripZeros}) {
            const Value value = RandomValue(random);
            const std::u16string text = WriteValue(value, flags);
            EXPECT_EQ(ReadValue(text, flags), value) << NarrowText(text);
            EXPECT_EQ(TakeCode(), CalcErrorNone);
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
