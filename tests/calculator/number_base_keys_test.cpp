// The keys of number bases insert the prefixes that core/number_bases.h has, and results show them.
#include <gtest/gtest.h>

#include <string>

#include "calculator/calculator_testing.h"
#include "calculator/key_texts.h"
#include "calculator/keypad.h"
#include "calculator/result_forms.h"
#include "core/number_bases.h"
#include "layout/number_base_layout.h"
#include "shell/settings.h"
#include "support/number_types.h"

namespace tallymere {
namespace {

using testing_support::AllNumberTypes;
using testing_support::CalculatorTest;

class NumberBaseKeys : public CalculatorTest {};

std::u16string PrefixOf(const NumberBase& row) {
    return row.prefixLetter == 0 ? u"" : std::u16string{u'0', row.prefixLetter};
}

TEST_F(NumberBaseKeys, InsertThePrefixesOfTheirBases) {
    const KeypadStyle style = {NumberTypeUint, AngleRadians, false, 0x0A00};
    EXPECT_EQ(TextForAction(ActionBinary, style).text, PrefixOf(*FindNumberBase(2)));
    EXPECT_EQ(TextForAction(ActionOctal, style).text, PrefixOf(*FindNumberBase(8)));
    EXPECT_EQ(TextForAction(ActionHexadecimal, style).text, PrefixOf(*FindNumberBase(16)));
}

TEST_F(NumberBaseKeys, AreOnTheKeypadForEveryPrefix) {
    const KeypadStyle style = {NumberTypeUint, AngleRadians, false, 0x0A00};
    for (const NumberBase& row : NumberBases) {
        int keys = 0;
        for (int32_t index = 0; index < KeyCount && PrefixLength(row) != 0; index++) {
            const KeyText text = TextForAction(KeypadEntry(index, style).action, style);
            keys += text.text == PrefixOf(row) ? 1 : 0;
        }
        EXPECT_EQ(keys, PrefixLength(row) != 0 ? 1 : 0)
            << "keys in calculator/keypad.cpp that insert the prefix of base " << row.base
            << ", by calculator/key_texts.cpp";
    }
}

TEST_F(NumberBaseKeys, InsertNoPrefixWithoutABase) {
    for (const NumberType type : AllNumberTypes) {
        const KeypadStyle style = {type, AngleRadians, false, 0x0A00};
        for (int32_t index = 0; index < KeyCount; index++) {
            const KeyAction action = KeypadEntry(index, style).action;
            const std::u16string text = TextForAction(action, style).text;
            if (text.size() == NumberPrefixCharacters && text[0] == u'0' && IsLetter(text[1])) {
                EXPECT_NE(NumberBaseOfPrefix(text.c_str()).base, DecimalBase)
                    << "core/number_bases.h has no base for the key that inserts 0"
                    << static_cast<char>(text[1]);
            }
        }
    }
}

TEST_F(NumberBaseKeys, AResultInAnyBaseCanBeTakenIntoAFormula) {
    const std::u16string number = u"98765432109876543210987654321098765432109876543210";
    for (const NumberBase& row : NumberBases) {
        ApplyNumberType(NumberTypeUint, row.base);
        const std::u16string text = Show(number);
        const std::u16string prefix = PrefixOf(row);
        EXPECT_EQ(text.substr(0, prefix.size()), prefix) << row.base;
        EXPECT_EQ(ResultDigitCount(), static_cast<int32_t>(text.size() - prefix.size()));
        ApplyNumberType(NumberTypeUint, 10);
        EXPECT_EQ(Show(text), number) << row.base;
    }
}

TEST_F(NumberBaseKeys, ResultsAreGroupedAsTheTableSays) {
    for (const NumberBase& row : NumberBases) {
        ApplyNumberType(NumberTypeUint, row.base);
        const std::u16string text = Show(u"10^30", ResultAutomatic, {true, false});
        const size_t last = text.rfind(numberContext.groupSeparators[0]);
        EXPECT_EQ(text.size() - last - 1, static_cast<size_t>(row.groupSize)) << row.base;
    }
}

TEST_F(NumberBaseKeys, TheSettingsAndTheListOfTheCalculatorKnowEveryBase) {
    const NumberBaseRows rows = RowsOfNumberBases(NumberBaseOffersAll);
    ASSERT_EQ(rows.count, static_cast<int32_t>(std::size(NumberBases)));
    for (const NumberBase& row : NumberBases) {
        Settings record;
        record.outputNumberBase = row.base;
        EXPECT_EQ(InstalledOutputBase(record), row.base);
        int32_t listRow = -5;
        EXPECT_TRUE(FindNumberBaseRow(rows, row.base, listRow));
        EXPECT_EQ(NumberBaseOfRow(rows, listRow), row.base);
    }
}

}  // namespace
}  // namespace tallymere
