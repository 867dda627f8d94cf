// What tests of exact numbers share: values in buffers of their own, made from and shown as plain
// text, random and hostile operands, and a scope that holds the context to its contract.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/number_context.h"
#include "exact/big_uint.h"
#include "support/random_source.h"
#include "support/real_testing.h"

namespace tallymere::testing_support {

/// The widths at which everything that depends on the width is tested, in limbs.
inline constexpr int64_t SmallUintWidths[] = {1, 2, 26, 65};
inline constexpr int64_t AllUintWidths[] = {1, 2, 26, 65, 520, 1039};

/// A BigUint of the width in force at its making, behind which a guard word must stay as it is.
class UintBuffer {
public:
    /// Filled with junk.
    UintBuffer();
    /// The value that UintFromPlainText makes of the text.
    explicit UintBuffer(std::string_view plainText);
    /// Filled with junk, and so many limbs long whatever the width in force.
    static UintBuffer OfLimbs(int64_t limbs);
    UintBuffer(const UintBuffer&) = default;
    UintBuffer& operator=(const UintBuffer&) = default;
    ~UintBuffer();

    uint64_t* Get() { return words_.data(); }
    const uint64_t* Get() const { return words_.data(); }
    operator uint64_t*() { return Get(); }
    operator const uint64_t*() const { return Get(); }

    int64_t LimbCount() const { return static_cast<int64_t>(words_.size()) - 1; }
    std::vector<uint64_t> Limbs() const { return {words_.begin(), words_.end() - 1}; }

    /// All limbs, whatever the width in force, as UintText shows them.
    std::string Text() const;

    /// Every limb alike; values of different widths are never equal.
    bool operator==(const UintBuffer& other) const { return words_ == other.words_; }

private:
    explicit UintBuffer(size_t limbs);
    std::vector<uint64_t> words_;
};

/// Shows a value in failure messages.
void PrintTo(const UintBuffer& a, std::ostream* out);

/// Makes a value of the width in force of "1234" in decimal, "0x12ab" in hexadecimal, or "2^100",
/// "2^100-7", "2^100+7" with an addend below 2^63. A text whose value does not fit fails the test.
/// Shares no code with the program.
void UintFromPlainText(uint64_t* dest, std::string_view text);

/// The value in decimal, without leading zeros; of the width in force, or of so many limbs.
std::string UintText(const uint64_t* a);
std::string UintText(const uint64_t* a, int64_t limbs);

/// The value of the text, which is as for UintFromPlainText, in decimal.
std::string UintTextOf(std::string_view plainText);

/// 2^exponent as UintFromPlainText reads it, with an addend such as "-1" behind it.
std::string TwoTo(int64_t exponent, std::string_view addend = "");

/// The bits of a BigUint of the width in force.
inline int64_t UintBits() {
    return BitsPerUintLimb * numberContext.uintLimbs;
}

/// The value as UintText, and the code that the operations before noted; none is noted afterwards.
/// Fails the test unless the width in force is one that a BigUint can have.
Outcome TakeOutcome(const UintBuffer& a);

/// The outcome of an operation that gives the value of the text and notes nothing.
Outcome UintValue(std::string_view plainText);

/// The outcome of an operation that cannot give its result: 0 and a code.
inline Outcome Refused(CalcError code) {
    return {"0", code};
}

/// The text that write(buffer, capacity) puts into a buffer of so many characters and, unless
/// `flags` have TextNoTerminator, a terminator, and the code that it notes. The characters behind
/// must stay as they are.
Outcome WrittenOutcome(uint32_t flags, int64_t capacity,
                       const std::function<int64_t(char16_t* buffer, int64_t capacity)>& write);

/// Works at a width for its life, and checks the context as ContextCheck does.
class WidthScope {
public:
    explicit WidthScope(int64_t limbs);

private:
    UintWidthScope width_;
    ::testing::ScopedTrace trace_;
    ContextCheck check_;
};

/// Fills a value of the width in force: random limbs, few limbs, small values, 0, 1, 2^k, 2^k - 1
/// and 2^k + 1, all ones, single bits, runs of ones and zeros across limbs.
void FillUint(RandomSource& random, uint64_t* dest);

/// In the same way, below 2^(64 limbs), for limbs from 0 to the width.
void FillUint(RandomSource& random, uint64_t* dest, int64_t limbs);

}  // namespace tallymere::testing_support
