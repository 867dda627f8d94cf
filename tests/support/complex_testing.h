// What tests of ComplexNumber share, on top of support/real_testing.h.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/complex_number.h"
#include "support/real_testing.h"

namespace tallymere::testing_support {

/// A record of the layout in force at its making, behind which a guard word must stay as it is.
class ComplexBuffer {
public:
    /// Filled with junk.
    ComplexBuffer();
    /// The value of two numbers in the form of RealFromPlainText with a space between them, the
    /// real part first: "3 -0".
    explicit ComplexBuffer(std::string_view plainParts);
    ComplexBuffer(const RealBuffer& realPart, const RealBuffer& imaginaryPart);
    ComplexBuffer(const ComplexBuffer&) = default;
    ComplexBuffer& operator=(const ComplexBuffer&) = default;
    ~ComplexBuffer();

    ComplexNumber* Get() { return ComplexAt(words_.data()); }
    const ComplexNumber* Get() const { return ComplexAt(words_.data()); }
    operator ComplexNumber*() { return Get(); }
    operator const ComplexNumber*() const { return Get(); }

    uint64_t* Words() { return words_.data(); }
    const uint64_t* Words() const { return words_.data(); }

    /// Every word alike; records of different lengths are never equal.
    bool operator==(const ComplexBuffer& other) const { return words_ == other.words_; }

private:
    std::vector<uint64_t> words_;
};

/// Shows a record in failure messages.
void PrintTo(const ComplexBuffer& z, std::ostream* out);

/// Both parts in the form of PlainText with a space between them: "3e0 -0".
std::string PlainText(const ComplexNumber* z);

/// Fails the test unless both parts are as ExpectWellFormed wants them. PlainText checks this by
/// itself.
void ExpectWellFormed(const ComplexNumber* z);

/// The value in PlainText and the code noted by the last operations, which is taken.
Outcome OutcomeOf(const ComplexBuffer& z);

/// A value whose parts are as FillReal, each of them often a zero of either sign, and in two of a
/// hundred cases an infinity or NaN.
ComplexBuffer RandomComplex(RandomSource& random, int64_t exponentRange);

/// The outcome of `operation(dest, z)`. It must be the same, word by word, with z as destination.
template <typename Operation>
Outcome UnaryOutcome(Operation operation, const ComplexBuffer& z) {
    ComplexBuffer result;
    operation(result.Get(), z.Get());
    const Outcome outcome = OutcomeOf(result);
    ComplexBuffer inPlace = z;
    operation(inPlace.Get(), inPlace.Get());
    EXPECT_EQ(OutcomeOf(inPlace), outcome) << "in place";
    EXPECT_EQ(inPlace, result);
    return outcome;
}

/// The outcome of `operation(dest, a, b)`. It must be the same, word by word, with either operand
/// as destination, and with one record for all three where the operands are equal.
template <typename Operation>
Outcome BinaryOutcome(Operation operation, const ComplexBuffer& a, const ComplexBuffer& b) {
    ComplexBuffer result;
    operation(result.Get(), a.Get(), b.Get());
    const Outcome outcome = OutcomeOf(result);
    ComplexBuffer left = a;
    operation(left.Get(), left.Get(), b.Get());
    EXPECT_EQ(OutcomeOf(left), outcome) << "in the left operand";
    EXPECT_EQ(left, result);
    ComplexBuffer right = b;
    operation(right.Get(), a.Get(), right.Get());
    EXPECT_EQ(OutcomeOf(right), outcome) << "in the right operand";
    EXPECT_EQ(right, result);
    if (a == b) {
        ComplexBuffer both = a;
        operation(both.Get(), both.Get(), both.Get());
        EXPECT_EQ(OutcomeOf(both), outcome) << "in both operands";
        EXPECT_EQ(both, result);
    }
    return outcome;
}

}  // namespace tallymere::testing_support
