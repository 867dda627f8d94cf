#include "support/rational_testing.h"

#include <algorithm>
#include <ostream>

#include "exact/big_uint.h"
#include "reference/rational_twins.h"

namespace tallymere::testing_support {

namespace {

constexpr uint64_t GuardWord = 0x6AFE6AFE6AFE6AFEu;
constexpr uint64_t JunkWord = 0xDEADBEEFDEADBEEFu;

}  // namespace

RationalBuffer::RationalBuffer() : words_(static_cast<size_t>(RationalWords()) + 1, JunkWord) {
    words_.back() = GuardWord;
}

RationalBuffer::RationalBuffer(std::string_view plainText) : RationalBuffer() {
    RationalFromPlainText(Get(), plainText);
}

RationalBuffer::~RationalBuffer() {
    EXPECT_EQ(words_.back(), GuardWord) << "an operation wrote past the end of a record";
}

void PrintTo(const RationalBuffer& q, std::ostream* out) {
    *out << RationalPlainText(q);
}

void RationalFromPlainText(RationalNumber* dest, std::string_view text) {
    dest->sign = text.starts_with('-') ? 1 : 0;
    text.remove_prefix(dest->sign);
    const size_t slash = std::min(text.find('/'), text.size());
    UintFromPlainText(RationalNumerator(dest), text.substr(0, slash));
    UintFromPlainText(RationalDenominator(dest),
                      slash == text.size() ? "1" : text.substr(slash + 1));
}

std::string RationalPlainText(const RationalNumber* q) {
    const std::string denominator = UintText(RationalDenominator(q));
    return ((q->sign & 1) != 0 ? "-" : "") + UintText(RationalNumerator(q)) +
           (denominator == "1" ? "" : "/" + denominator) +
           (q->sign > 1 ? " sign " + std::to_string(q->sign) : "");
}

::testing::AssertionResult IsResult(const RationalNumber* q, Terms terms) {
    if (!RationalIsWellFormed(q)) {
        return ::testing::AssertionFailure() << RationalPlainText(q) << " is not well-formed";
    }
    if (terms == Terms::Lowest && !RationalIsInLowestTerms(q)) {
        return ::testing::AssertionFailure() << RationalPlainText(q) << " is not in lowest terms";
    }
    return ::testing::AssertionSuccess();
}

Outcome TakeOutcome(const RationalBuffer& q, Terms terms) {
    EXPECT_TRUE(IsResult(q, terms));
    return {RationalPlainText(q), TakeCode()};
}

Outcome Apply(RationalUnary operation, std::string_view a, Terms terms) {
    RationalBuffer dest;
    operation(dest, RationalBuffer(a));
    return TakeOutcome(dest, terms);
}

Outcome Apply(RationalBinary operation, std::string_view a, std::string_view b, Terms terms) {
    RationalBuffer dest;
    operation(dest, RationalBuffer(a), RationalBuffer(b));
    return TakeOutcome(dest, terms);
}

void FillRational(RandomSource& random, RationalNumber* dest, int64_t limbs) {
    uint64_t* numerator = RationalNumerator(dest);
    uint64_t* denominator = RationalDenominator(dest);
    dest->sign = random.Below(2);
    FillUint(random, numerator, limbs);
    FillUint(random, denominator, limbs);
    switch (random.Below(8)) {
        case 0:
            BigUintFromUnsigned(denominator, 1);
            break;
        case 1:
            BigUintFromUnsigned(numerator, 1);
            break;
        default:
            break;
    }
    if (BigUintIsZero(denominator)) {
        BigUintFromUnsigned(denominator, 1);
    }
    reference::TwinReduceFraction(numerator, denominator);
}

}  // namespace tallymere::testing_support
