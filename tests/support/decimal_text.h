// What number texts mean and how numbers are written, by school arithmetic on strings. Shares no
// code with the program.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/calc_error.h"
#include "support/random_source.h"

namespace tallymere::testing_support {

/// ASCII as 16-bit text.
std::u16string WideText(std::string_view ascii);

/// 16-bit text as ASCII; "~" for the infinity sign, "?" for other characters.
std::string NarrowText(std::u16string_view text);

struct ReadResult {
    std::string plain;  ///< in the form of PlainText, rounded to p digits
    CalcError code;

    bool operator==(const ReadResult&) const = default;
};

/// What a text is as a real number of p digits when decimal separators are `point`, group
/// separators are `mark` (0: none are allowed), exponent marks are "e" and "E", and infinity and
/// NaN are accepted. Rounding goes by the first digit that does not fit, half up in magnitude.
ReadResult ReadDecimal(std::u16string_view text, int64_t p, char16_t point, char16_t mark);

enum class Notation { Automatic, Fixed, Scientific };

/// How a number is to be written.
struct WriteStyle {
    Notation notation = Notation::Automatic;
    bool strip = false;
    bool keepFraction = false;
    bool alwaysSign = false;
    bool exponentPlus = true;
    std::string point = ".";
    std::string mark;  ///< between thousands; may be empty
};

/// The number +-d.ddd * 10^exponent for the digits d, under the start window of fixed notation; or
/// "overflow" if that text or, before trailing zeros are stripped, its mantissa is longer than
/// `capacity`.
std::string WriteDecimal(const std::string& digits, bool negative, int64_t exponent,
                         const WriteStyle& style, int64_t capacity);

/// A run of 1 to `most` digits such as a random test wants: mostly random, often all nines, runs of
/// 0 and 9, zeros at either end, and one digit more than p with 4, 5 or 9 as the surplus digit.
std::string HostileDigits(RandomSource& random, int64_t most, int64_t p);

}  // namespace tallymere::testing_support
