// Reading, checking and writing of the fields of both prime pages; the console reads its arguments
// through the same functions.
//
// A field that cannot be read raises UiErrorInvalidInput with its text. No function leaves a
// CalcError behind. Numbers have the width in force; during a change of the base that is the width
// of FactorNumberSetup or, on the Prime Numbers page, that of the probabilistic method.
#pragma once

#include <cstdint>

#include "core/scratch.h"

namespace tallymere {

/// The base that a page begins with. The other one is 16.
inline constexpr int32_t InitialPrimeBase = 10;

/// The flags that a number in a base is read with: its base if that is not 10; group separators may
/// stand between digits.
uint32_t PrimeParseFlags(int32_t base);

/// The flags that a number in a base is written with. `grouped` is Settings::groupPrimes.
uint32_t PrimePrintFlags(int32_t base, bool grouped);

/// True for a text without anything but spaces.
bool IsBlankField(const char16_t* text);

/// The digits and letters of a number field, which the control of digits shows: the characters 0 to
/// 9, A to Z and a to z.
int32_t CountFieldDigits(const char16_t* text);

/// *dest = the number in a field, not 0. Otherwise raises the error and returns false.
bool ReadPrimeNumberField(uint64_t* dest, const char16_t* text, uint32_t parseFlags);

/// *interval = the number in a field, 1 to `highest`. Otherwise, for a blank field as well, raises
/// the error and returns false; *interval is 0 then.
bool ReadIntervalField(int64_t* interval, const char16_t* text, uint32_t parseFlags,
                       int64_t highest);

/// The normal form of a number, which a field shows after it was read. The text lies in the scope.
const char16_t* NumberFieldText(ScratchScope& scope, const uint64_t* number, uint32_t printFlags);

/// Likewise for an interval, 0 or more.
const char16_t* IntervalFieldText(ScratchScope& scope, int64_t interval, uint32_t printFlags);

/// What a field shows after a change of the base: its number, which may be 0, in the new one. The
/// text lies in the scope. Null when the field stays as it is: it is blank, or it cannot be read,
/// which raises the error. A page does this with its number field and then with its interval field,
/// whatever became of the first, and takes the new base over in any case.
const char16_t* FieldTextInNewBase(ScratchScope& scope, const char16_t* text, uint32_t parseFlags,
                                   uint32_t printFlags);

}  // namespace tallymere
