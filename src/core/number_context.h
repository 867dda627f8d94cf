// The process-wide record that every number is written and read under.
//
// A RealNumber has no length of its own: NumberContext says how many limbs a number has and how
// many digits stand in the first. Arithmetic reads it at every step and widens it for a while to
// work with guard digits, so at most one thread calculates at a time and whoever changes the layout
// puts it back through RealLayoutScope.
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/calc_error.h"
#include "core/contract.h"
#include "core/limb.h"
#include "core/limits.h"
#include "core/stop_request.h"

namespace tallymere {

/// The number types of the program; NumberContext::numberType holds one, or 0 before any is set.
enum NumberType : uint32_t {
    NumberTypeNone = 0,
    NumberTypeReal = 1,
    NumberTypeComplex = 2,
    NumberTypeUint = 10,
    NumberTypeRational = 11,
};

/// Automatic notation writes no exponent for numbers whose exponent lies between these two, neither
/// of them included.
struct NotationWindow {
    int64_t low;
    int64_t high;
};

/// The window that the context starts with.
inline constexpr NotationWindow DefaultNotationWindow = {-4, 10};

/// The flags noRounding, reportUnderflow, reportOverflow and useInfinitySign keep their start
/// values as long as the program runs: nothing in it writes them. They are settings of the
/// arithmetic all the same, and every routine heeds them; the tests set them.
struct NumberContext {
    CalcError calcError = CalcErrorNone;
    uint8_t* abortFlag = &cancelFlag;  ///< the stop request; read through StopRequested

    int64_t precisionDigits = 16;  ///< p, the significant decimal digits of a RealNumber
    int64_t realLimbs = 1;         ///< n = ceiling(p / 19)
    int64_t topLimbDigits = 16;    ///< t = p - 19 n + 19, the digits in the first limb: 1 to 19
    int64_t uintDigits = 19;       ///< decimal digits that a BigUint is sure to hold
    int64_t uintLimbs = 1;         ///< 64-bit limbs of a BigUint
    NumberType numberType = NumberTypeNone;

    int64_t fixedExponentLow = DefaultNotationWindow.low;    ///< the NotationWindow in force
    int64_t fixedExponentHigh = DefaultNotationWindow.high;  ///< likewise

    uint8_t noRounding = 0;       ///< non-zero: RealRound and RealRoundDigits truncate
    uint8_t reportUnderflow = 0;  ///< non-zero: an exponent below the range sets CalcErrorUnderflow
    uint8_t reportOverflow = 1;   ///< non-zero: an exponent above the range sets CalcErrorOverflow
    uint8_t useInfinitySign = 1;  ///< non-zero: infinity is written with its sign, else "inf"

    // Of each group entry 0 is written and all entries are accepted on input.
    char16_t decimalSeparators[3] = {u'.', u'.', u'.'};
    char16_t groupSeparators[3] = {u'\'', u'\'', u'\''};
    char16_t exponentChars[4] = {u'e', u'E', u'E', u'E'};
    char16_t imaginaryChars[2] = {u'i', u'i'};

    uint64_t* scratchBase = nullptr;  ///< start of CoreScratch
    uint64_t* scratchTop = nullptr;   ///< its bump pointer; taken through CoreScratchScope only
};

/// The one context of the process. It has its start values before main runs: 16 digits, "." and
/// "'" as separators, CoreScratch empty, abortFlag on cancelFlag. The program puts in the user's
/// separators.
extern NumberContext numberContext;

/// True when the context is as every operation needs it: layout and width consistent in themselves,
/// CoreScratch in its place with its top inside, no separator or mark missing. A number type that
/// is unknown is not looked for: operations that go by the type note CalcErrorUnknownType. Nor are
/// the flags, which may have any value.
bool NumberContextIsConsistent();

/// Notes a failure; the first code wins.
inline void SetCalcError(CalcError code) {
    if (numberContext.calcError == CalcErrorNone) {
        numberContext.calcError = code;
    }
}

/// Where the digits of a RealNumber lie: p digits in n limbs, t of them in the first.
struct RealLayout {
    int64_t digits;
    int64_t limbs;
    int64_t topDigits;
};

/// The layout of p digits, p >= 1.
constexpr RealLayout LayoutForDigits(int64_t p) {
    TALLYMERE_REQUIRE(p >= 1);
    const int64_t n = (p + DigitsPerLimb - 1) / DigitsPerLimb;
    return {p, n, p - DigitsPerLimb * n + DigitsPerLimb};
}

/// The layout in force.
inline RealLayout CurrentRealLayout() {
    return {numberContext.precisionDigits, numberContext.realLimbs, numberContext.topLimbDigits};
}

/// True for a layout that LayoutForDigits gives.
constexpr bool RealLayoutIsConsistent(RealLayout layout) {
    return layout.digits >= 1 && layout.topDigits >= 1 && layout.topDigits <= DigitsPerLimb &&
           layout.digits == DigitsPerLimb * (layout.limbs - 1) + layout.topDigits;
}

/// Puts a layout in force, which must be one that LayoutForDigits gives.
inline void InstallRealLayout(RealLayout layout) {
    TALLYMERE_REQUIRE(RealLayoutIsConsistent(layout));
    numberContext.precisionDigits = layout.digits;
    numberContext.realLimbs = layout.limbs;
    numberContext.topLimbDigits = layout.topDigits;
}

/// True for a precision that a program may set.
constexpr bool IsPrecision(int64_t p) {
    return p >= 1 && p <= MaxPrecisionDigits;
}

/// Sets the precision to p digits, 1 to MaxPrecisionDigits, and returns true. Any other p sets
/// CalcErrorBadParameter, leaves the context as it is and returns false.
bool SetRealPrecision(int64_t p);

/// Puts the layout that it found back at the end of its life.
class RealLayoutScope {
public:
    RealLayoutScope() : saved_(CurrentRealLayout()) {
        TALLYMERE_REQUIRE(NumberContextIsConsistent());
    }
    ~RealLayoutScope() { InstallRealLayout(saved_); }
    RealLayoutScope(const RealLayoutScope&) = delete;
    RealLayoutScope& operator=(const RealLayoutScope&) = delete;

    const RealLayout& Saved() const { return saved_; }

private:
    RealLayout saved_;
};

/// How long a BigUint is.
struct UintWidth {
    int64_t digits;  ///< decimal digits that surely fit
    int64_t limbs;   ///< of 64 bits
};

/// The width of so many limbs, 1 to MaxWorkingUintLimbs: limbs * 64 * log10(2) digits, rounded
/// down.
constexpr UintWidth UintWidthForLimbs(int64_t limbs) {
    TALLYMERE_REQUIRE(limbs >= 1 && limbs <= MaxWorkingUintLimbs);
    return {(limbs * 0x9A209A85) >> 27, limbs};
}

/// The width in force.
inline UintWidth CurrentUintWidth() {
    return {numberContext.uintDigits, numberContext.uintLimbs};
}

/// True for a width that a BigUint can have: 1 to MaxWorkingUintLimbs limbs, and no more decimal
/// digits than surely fit.
constexpr bool UintWidthIsConsistent(UintWidth width) {
    return width.limbs >= 1 && width.limbs <= MaxWorkingUintLimbs && width.digits >= 0 &&
           width.digits <= UintWidthForLimbs(width.limbs).digits;
}

/// Puts a width in force, whose digits must fit its limbs.
inline void InstallUintWidth(UintWidth width) {
    TALLYMERE_REQUIRE(UintWidthIsConsistent(width));
    numberContext.uintDigits = width.digits;
    numberContext.uintLimbs = width.limbs;
}

/// Sets the width for integers of so many decimal digits, 0 to MaxUintDigits, and returns true. One
/// that needs more than MaxUintLimbs limbs sets CalcErrorBadParameter, leaves the width as it is
/// and returns false.
bool SetUintDigits(int64_t digits);

/// Puts the width that it found back at the end of its life.
class UintWidthScope {
public:
    UintWidthScope() : saved_(CurrentUintWidth()) {
        TALLYMERE_REQUIRE(NumberContextIsConsistent());
    }
    /// And works with so many limbs until then.
    explicit UintWidthScope(int64_t limbs) : UintWidthScope() {
        InstallUintWidth(UintWidthForLimbs(limbs));
    }
    ~UintWidthScope() { InstallUintWidth(saved_); }
    UintWidthScope(const UintWidthScope&) = delete;
    UintWidthScope& operator=(const UintWidthScope&) = delete;

    const UintWidth& Saved() const { return saved_; }

private:
    UintWidth saved_;
};

/// Clears the code that was noted before, so that a routine sees its own codes alone. At the end of
/// its life an earlier code, if there was one, is noted again in place of any other.
class CalcErrorScope {
public:
    CalcErrorScope() : saved_(numberContext.calcError) { numberContext.calcError = CalcErrorNone; }
    ~CalcErrorScope() {
        if (saved_ != CalcErrorNone) {
            numberContext.calcError = saved_;
        }
    }
    CalcErrorScope(const CalcErrorScope&) = delete;
    CalcErrorScope& operator=(const CalcErrorScope&) = delete;

private:
    CalcError saved_;
};

}  // namespace tallymere
