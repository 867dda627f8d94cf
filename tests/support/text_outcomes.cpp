#include "support/text_outcomes.h"

#include <string>

#include "core/complex_text.h"
#include "core/real_rounding.h"
#include "core/real_text.h"
#include "exact/big_uint_text.h"
#include "exact/rational_text.h"
#include "support/complex_testing.h"
#include "support/exact_testing.h"
#include "support/rational_testing.h"

namespace tallymere::testing_support {

namespace {

// The outcome of read(text, length), which gives an Outcome.
template <typename Read>
Outcome ReadBothWays(std::u16string_view text, Read read) {
    const CalcError codeBefore = numberContext.calcError;
    const Outcome counted = read(text.data(), static_cast<int64_t>(text.size()));
    if (text.find(u'\0') == text.npos) {
        SetCalcError(codeBefore);
        EXPECT_EQ(read(std::u16string(text).c_str(), TextUntilZero), counted)
            << "without the length";
    }
    return counted;
}

}  // namespace

Outcome ReadReal(std::u16string_view text, uint32_t flags) {
    return ReadBothWays(text, [flags](const char16_t* characters, int64_t length) -> Outcome {
        RealBuffer x;
        RealRound(x, RealFromText(x, characters, length, flags));
        const CalcError code = TakeCode();
        return {PlainText(x), code};
    });
}

Outcome ReadComplex(std::u16string_view text, uint32_t flags) {
    return ReadBothWays(text, [flags](const char16_t* characters, int64_t length) {
        ComplexBuffer z;
        ComplexFromText(z, characters, length, flags);
        return OutcomeOf(z);
    });
}

Outcome ReadUint(std::u16string_view text, uint32_t flags) {
    return ReadBothWays(text, [flags](const char16_t* characters, int64_t length) {
        UintBuffer a;
        BigUintFromText(a, characters, length, flags);
        return TakeOutcome(a);
    });
}

Outcome ReadRational(std::u16string_view text, uint32_t flags) {
    return ReadBothWays(text, [flags](const char16_t* characters, int64_t length) {
        RationalBuffer q;
        RationalFromText(q, characters, length, flags);
        return TakeOutcome(q);
    });
}

Outcome ReadNumber(NumberType type, std::u16string_view text, uint32_t flags) {
    switch (type) {
        case NumberTypeReal:
            return ReadReal(text, flags);
        case NumberTypeComplex:
            return ReadComplex(text, flags);
        case NumberTypeUint:
            return ReadUint(text, flags);
        case NumberTypeRational:
            return ReadRational(text, flags);
        case NumberTypeNone:
            break;
    }
    ADD_FAILURE() << "no number type";
    return {"", CalcErrorUnknownType};
}

}  // namespace tallymere::testing_support
