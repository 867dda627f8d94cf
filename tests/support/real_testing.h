// What tests of RealNumber share: records in buffers of their own, numbers made from and shown as
// plain text, random and hostile operands, and scopes that hold the context to its contract.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/number_context.h"
#include "core/real_number.h"
#include "support/random_source.h"

namespace tallymere::testing_support {

/// The precisions at which everything that depends on the layout is tested.
inline constexpr int64_t SmallPrecisions[] = {1, 2, 3, 9, 16, 18, 19, 20, 37, 38, 39, 57, 100};
inline constexpr int64_t AllPrecisions[] = {1,  2,  3,  9,  16,  18,   19,    20,
                                            37, 38, 39, 57, 100, 1000, 10000, 10005};

/// A record of the layout in force at its making, behind which a guard word must stay as it is.
class RealBuffer {
public:
    /// Filled with junk.
    RealBuffer();
    /// The number that RealFromPlainText makes of the text.
    explicit RealBuffer(std::string_view plainText);
    RealBuffer(const RealBuffer&) = default;
    RealBuffer& operator=(const RealBuffer&) = default;
    ~RealBuffer();

    RealNumber* Get() { return RealAt(words_.data()); }
    const RealNumber* Get() const { return RealAt(words_.data()); }
    operator RealNumber*() { return Get(); }
    operator const RealNumber*() const { return Get(); }

    Limb* Limbs() { return words_.data() + 1; }
    const Limb* Limbs() const { return words_.data() + 1; }
    int64_t LimbCount() const { return static_cast<int64_t>(words_.size()) - 2; }

    /// Every word alike; records of different lengths are never equal.
    bool operator==(const RealBuffer& other) const { return words_ == other.words_; }

private:
    std::vector<uint64_t> words_;
};

/// Shows a record in failure messages.
void PrintTo(const RealBuffer& x, std::ostream* out);

/// Makes a number in the current layout of "[-]digits[.digits][e[-]digits]", "[-]inf" or "nan".
/// Digits beyond the precision must be zeros. Shares no code with the program.
void RealFromPlainText(RealNumber* dest, std::string_view text);

/// The number as RealFromPlainText reads it, in its shortest scientific form such as "-1.25e3" and
/// "5e0", or "0", "-0", "inf", "-inf", "nan". Fails the test on a record outside the normal form,
/// of which it gives "malformed:" and its words.
std::string PlainText(const RealNumber* x);

/// Fails the test unless the record is in normal form in the current layout and a NaN has its sign
/// cleared, as every result must be. PlainText checks this by itself.
void ExpectWellFormed(const RealNumber* x);

/// The code noted by the last operations; none is noted afterwards.
CalcError TakeCode();

/// The result of an operation as PlainText and the code that it noted.
struct Outcome {
    std::string text;
    CalcError code;
    bool operator==(const Outcome&) const = default;
};

/// "CalcErrorUndefined" for CalcErrorUndefined, and so on.
std::string CodeName(CalcError code);

/// The text, and behind it the name of the code unless that is CalcErrorNone:
/// "nan CalcErrorSyntax".
std::string PlainText(const Outcome& outcome);

/// Shows an outcome in failure messages.
void PrintTo(const Outcome& outcome, std::ostream* out);

/// The outcome that notes no code.
inline Outcome Silent(const std::string& text) {
    return {text, CalcErrorNone};
}

/// Puts `value` into a field of the context for the scope's life.
template <typename T>
class FieldScope {
public:
    FieldScope(T& field, T value) : field_(field), saved_(field) { field = value; }
    ~FieldScope() { field_ = saved_; }
    FieldScope(const FieldScope&) = delete;
    FieldScope& operator=(const FieldScope&) = delete;

private:
    T& field_;
    T saved_;
};

/// Fails the test if at its end anything in the context is not as it was at its making: layout,
/// width, number type, flags, texts and CoreScratch. A code must have been taken by TakeCode.
/// Every test outside the rooms of windows runs under one, see context_listener.cpp.
class ContextCheck {
public:
    ContextCheck();
    ~ContextCheck();
    ContextCheck(const ContextCheck&) = delete;
    ContextCheck& operator=(const ContextCheck&) = delete;

private:
    NumberContext before_;
};

/// Works at p digits for its life, and checks the context as ContextCheck does.
class PrecisionScope {
public:
    explicit PrecisionScope(int64_t p);

private:
    RealLayoutScope layout_;
    ::testing::ScopedTrace trace_;
    ContextCheck check_;
};

/// Fills `count` limbs, none of them normalised: random limbs, or runs of 0 and of 10^19 - 1,
/// single units, powers of ten, runs of the digit 9 across limbs.
void FillLimbs(RandomSource& random, Limb* limbs, int64_t count);

/// Fills the limbs of a mantissa in normal form in the current layout: as FillLimbs, or a power of
/// ten, all nines, a first limb that is the smallest or the largest, few leading digits.
void FillMantissa(RandomSource& random, Limb* limbs);

/// A finite non-zero number with a mantissa of FillMantissa, either sign and an exponent between
/// -range and range.
void FillReal(RandomSource& random, RealNumber* dest, int64_t exponentRange);

/// A partner for x: mostly as FillReal, often near x in value, so that a difference cancels, or
/// with an exponent such that the digits of the two just overlap or just do not.
void FillPartner(RandomSource& random, RealNumber* dest, const RealNumber* x,
                 int64_t exponentRange);

}  // namespace tallymere::testing_support
