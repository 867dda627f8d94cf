// Texts of numbers of all four types: each text is a well-formed number or refused, as a plain
// reader finds; each number is read back from what is written of it.
//
// Input: type, digits, limbs, base, forms of writing; then the text.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/complex_text.h"
#include "core/real_rounding.h"
#include "core/real_text.h"
#include "exact/big_uint_text.h"
#include "exact/rational_text.h"
#include "fuzz/harness_list.h"
#include "reference/big_uint_text_twins.h"
#include "support/decimal_text.h"
#include "support/exact_testing.h"
#include "support/formula_testing.h"
#include "support/number_types.h"
#include "support/text_outcomes.h"
#include "values/value_operations.h"

namespace tallymere::fuzz {

using namespace testing_support;

namespace {

constexpr int64_t MostDigits = 100;
constexpr int64_t MostLimbs = 4;
constexpr uint32_t AcceptSpecial = TextAcceptInfinity | TextAcceptNaN;
constexpr uint32_t Decimal = 10;
constexpr uint32_t Bases[] = {Decimal, 2, 8, 16};
constexpr uint32_t Forms[] = {TextGroup,      TextPlainSeparators, TextAlwaysSign,
                              TextLowerHex,   TextStripZeros,      TextNoExponentPlus,
                              TextScientific, TextKeepFraction};

// The words of a value of the type in force.
using Value = std::vector<uint64_t>;

Value ReadValue(const std::u16string& text, uint32_t flags) {
    Value value(SizeOfNumber() / sizeof(uint64_t));
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
    TakeCode();
    return value;
}

std::u16string Written(const Value& value, uint32_t flags) {
    std::u16string text(static_cast<size_t>(NumberToText(nullptr, 0, value.data(), flags)), u'#');
    const auto room = static_cast<int64_t>(text.size());
    text.resize(static_cast<size_t>(
        NumberToText(text.data(), room, value.data(), flags | TextNoTerminator)));
    EXPECT_EQ(TakeCode(), CalcErrorNone);
    return text;
}

// One character less is too few, and nothing is written beyond it.
void ExpectRefusedInLessRoom(const Value& value, uint32_t flags, size_t length) {
    std::u16string text(length, u'#');
    const int64_t written = NumberToText(text.data(), static_cast<int64_t>(length) - 1,
                                         value.data(), flags | TextNoTerminator);
    EXPECT_EQ(TakeCode(), CalcErrorTextTooLong);
    EXPECT_EQ(text.substr(0, static_cast<size_t>(written)), length > 3 ? u"[$]" : u"");
    EXPECT_EQ(text.back(), u'#');
}

// Zeros are written without a sign.
std::string WithoutZeroSigns(std::string plain) {
    for (size_t at = 0; (at = plain.find("-0", at)) != plain.npos; at++) {
        const bool isWhole =
            (at == 0 || plain[at - 1] == ' ') && (at + 2 == plain.size() || plain[at + 2] == ' ');
        plain.erase(at, isWhole ? 1 : 0);
    }
    return plain;
}

void ExpectAsPlainReader(const std::u16string& text, uint32_t flags, const Outcome& outcome) {
    if (numberContext.numberType == NumberTypeReal) {
        const char16_t mark = (flags & TextGroup) != 0 ? u'\'' : u'\0';
        const ReadResult plain = ReadDecimal(text, numberContext.precisionDigits, u'.', mark);
        EXPECT_EQ(outcome, (Outcome{plain.plain, plain.code})) << Printable(text);
    } else if (numberContext.numberType == NumberTypeUint) {
        UintBuffer plain;
        reference::TwinUintFromText(plain, text, flags);
        EXPECT_EQ(outcome, TakeOutcome(plain)) << Printable(text);
    }
}

}  // namespace

void FuzzNumberTexts(FuzzInput& input) {
    const NumberType type = input.OneOf(AllNumberTypes);
    const FormulaScope scope(input.Number(1, MostDigits), type);
    InstallUintWidth(UintWidthForLimbs(input.Number(1, MostLimbs)));
    const uint32_t base = type == NumberTypeUint ? input.OneOf(Bases) : Decimal;
    uint32_t flags = base | AcceptSpecial;
    const uint8_t forms = input.Byte();
    for (size_t i = 0; i < std::size(Forms); i++) {
        flags |= (forms >> i & 1) != 0 ? Forms[i] : 0;
    }
    if (base != Decimal) {
        flags &= ~uint32_t{TextScientific};
    }

    const std::u16string text = input.Text();
    const Outcome outcome = ReadNumber(type, text, flags);
    ExpectAsPlainReader(text, flags, outcome);
    if (outcome.code != CalcErrorNone) {
        return;
    }
    const Value value = ReadValue(text, flags);
    const std::u16string written = Written(value, flags);
    const Outcome again = ReadNumber(type, written, flags);
    EXPECT_EQ(WithoutZeroSigns(PlainText(again)), WithoutZeroSigns(PlainText(outcome)))
        << Printable(written);
    ExpectRefusedInLessRoom(value, flags, written.size());
}

}  // namespace tallymere::fuzz
