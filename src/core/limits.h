// The limits of the program, each with its name. Whatever depends on a limit reads it here.
//
// With TALLYMERE_ADJUSTABLE_LIMITS, which no build of the product has, the limits that are declared
// with TALLYMERE_LIMIT are variables: tests lower them to reach them cheaply, through LoweredLimit
// in tests/support/lowered_limits.h. They never rise above the constant of the product that stands
// beside each of them, so arrays have the length of that constant.
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/contract.h"

#ifdef TALLYMERE_ADJUSTABLE_LIMITS
#define TALLYMERE_LIMIT inline constinit
#else
#define TALLYMERE_LIMIT inline constexpr
#endif

namespace tallymere {

// Digits

/// Significant decimal digits that a user can ask for: the most, and without a choice.
inline constexpr int64_t MaxDigits = 10'000;
inline constexpr int64_t DefaultDigits = 10;

/// The largest precision of the core in digits; the widest layout that a program may install.
/// Guard digits of single operations go beyond it for a while.
inline constexpr int64_t MaxPrecisionDigits = MaxDigits + 5;
static_assert(MaxPrecisionDigits == 10'005);

/// Decimal digits of the integers in the number types uint and rat of the calculator.
inline constexpr int64_t CalcUintDigits = 20'000;
inline constexpr int64_t CalcRationalDigits = 10'000;

/// Limbs of a BigUint. Wider integers are refused by SetUintDigits and by conversions that are
/// given a width.
inline constexpr int64_t MaxUintLimbs = 2'000;

/// The widest that operations work for a while.
inline constexpr int64_t MaxWorkingUintLimbs = 2 * MaxUintLimbs;

/// The most digits that a width can be asked for.
inline constexpr int64_t MaxUintDigits = 10'000'000'000;

/// The limbs for integers of so many decimal digits: digits * log2(10) / 64, rounded down, and
/// one. `digits` is 0 to MaxUintDigits.
constexpr int64_t UintLimbsForDigits(int64_t digits) {
    TALLYMERE_REQUIRE(digits >= 0 && digits <= MaxUintDigits);
    return ((digits * 891'723'283) >> 34) + 1;
}

/// The largest end of a notation window on either side of 0.
inline constexpr int64_t MaxFixedExponent = 1'000'000'000;

// Texts. A terminating 0 is not counted.

/// Characters of a result: room for as many digits as the longest integer has in base 2, 66,496,
/// in groups of three.
inline constexpr int64_t ProductResultCharacters = [] {
    const int64_t binaryDigits = 64 * UintLimbsForDigits(CalcUintDigits);
    return binaryDigits + binaryDigits / 3;
}();
static_assert(ProductResultCharacters == 88'661);
TALLYMERE_LIMIT int64_t CalcResultCharacters = ProductResultCharacters;

/// Characters of the longest formula that is evaluated: as many as a result can have, so that each
/// result can be taken into a formula as it is.
inline constexpr int64_t CalcFormulaCharacters = ProductResultCharacters;

/// Characters of a variable's name and of its value. A variable can have each result for its value.
inline constexpr int64_t VariableNameCharacters = 10;
inline constexpr int64_t ProductVariableCharacters = ProductResultCharacters;
TALLYMERE_LIMIT int64_t VariableValueCharacters = ProductVariableCharacters;

/// Characters of a coefficient that is evaluated: of a cell in a grid.
inline constexpr int64_t CoefficientCharacters = 1'030;

/// Characters of a path, of each argument of an error, and of a reported message.
inline constexpr int64_t PathCapacity = 259;
inline constexpr int64_t UiErrorArgumentCapacity = 260;
inline constexpr int64_t UiErrorMessageCapacity = 1'023;

/// Bytes of a line that the console reads; of a longer one the rest is passed over.
inline constexpr size_t MaxLineBytes = 16u << 20;

// Tables

/// The entries of the formula stack, and thereby the bound on the nesting of a formula: `f(` takes
/// two entries, each `;` two more.
inline constexpr int64_t ProductStackEntries = 50;
TALLYMERE_LIMIT int64_t FormulaStackEntries = ProductStackEntries;

/// The user's variables.
inline constexpr int64_t ProductVariables = 100;
TALLYMERE_LIMIT int64_t MaxVariables = ProductVariables;

// Memory

/// The bytes of CoreScratch, the static area on which the arithmetic core takes its temporaries.
inline constexpr int64_t CoreScratchBytes = 160'000;

/// The bytes of a ScratchStack, the heap block of each calculating thread for the layers above the
/// core: 1,500,000 for numbers, tokens and tables, and the texts of all variables and of `ans` at
/// their longest, each with its 0 in whole words. The most that numbers ask for is a formula of
/// complex numbers at 10,002 digits with all variables, `ans` and a full stack.
inline constexpr int64_t ScratchStackBytes = [] {
    const int64_t textBytes = (ProductVariableCharacters + 1) * int64_t{sizeof(char16_t)};
    return 1'500'000 + (ProductVariables + 1) * ((textBytes + 7) / 8 * 8);
}();
static_assert(ScratchStackBytes == 19'410'128);

}  // namespace tallymere
