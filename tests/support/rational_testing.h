// What tests of fractions share: records in buffers of their own, made from and shown as plain
// text, and random operands in lowest terms.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "exact/rational_number.h"
#include "support/exact_testing.h"

namespace tallymere::testing_support {

/// A record of the width in force at its making, behind which a guard word must stay as it is.
class RationalBuffer {
public:
    /// Filled with junk.
    RationalBuffer();
    /// The fraction that RationalFromPlainText makes of the text.
    explicit RationalBuffer(std::string_view plainText);
    RationalBuffer(const RationalBuffer&) = default;
    RationalBuffer& operator=(const RationalBuffer&) = default;
    ~RationalBuffer();

    RationalNumber* Get() { return RationalAt(words_.data()); }
    const RationalNumber* Get() const { return RationalAt(words_.data()); }
    operator RationalNumber*() { return Get(); }
    operator const RationalNumber*() const { return Get(); }
    RationalNumber* operator->() { return Get(); }

    /// Every word alike; records of different widths are never equal.
    bool operator==(const RationalBuffer& other) const { return words_ == other.words_; }

private:
    std::vector<uint64_t> words_;
};

/// Shows a record in failure messages.
void PrintTo(const RationalBuffer& q, std::ostream* out);

/// Makes a fraction of the width in force of "[-]part" or "[-]part/part" as it stands, also out of
/// lowest terms; parts are as UintFromPlainText reads them.
void RationalFromPlainText(RationalNumber* dest, std::string_view text);

/// The fraction in decimal as RationalFromPlainText reads it, the denominator 1 left out: "-3/4",
/// "-0", "2/2". Behind a sign word above 1 stand " sign " and the word.
std::string RationalPlainText(const RationalNumber* q);

/// What a result promises beyond being well-formed.
enum class Terms {
    Lowest,        ///< no common factor, as nearly all results
    AsTheOperand,  ///< a common factor of the operand is kept, or the operation may leave one
};

/// Whether a record has the form of a result.
::testing::AssertionResult IsResult(const RationalNumber* q, Terms terms = Terms::Lowest);

/// The value as RationalPlainText, and the code that the operations before noted; none is noted
/// afterwards. Fails the test unless IsResult(q, terms).
Outcome TakeOutcome(const RationalBuffer& q, Terms terms = Terms::Lowest);

using RationalUnary = void (*)(RationalNumber* dest, const RationalNumber* a);
using RationalBinary = void (*)(RationalNumber* dest, const RationalNumber* a,
                                const RationalNumber* b);

/// The outcome of an operation on the fractions of these texts.
Outcome Apply(RationalUnary operation, std::string_view a, Terms terms = Terms::Lowest);
Outcome Apply(RationalBinary operation, std::string_view a, std::string_view b,
              Terms terms = Terms::Lowest);

/// A fraction in lowest terms with parts as FillUint makes them, of up to so many limbs; often an
/// integer or a unit fraction, of either sign, now and then a zero.
void FillRational(RandomSource& random, RationalNumber* dest, int64_t limbs);

}  // namespace tallymere::testing_support
