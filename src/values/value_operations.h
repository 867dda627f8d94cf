// Operations on values of the current number type, for those who do not care which one it is.
//
// A value is SizeOfNumber() bytes anywhere. Each operation is one switch on
// NumberContext::numberType; a type that has no such operation gives code 102 and a well-formed
// value (NaN, or 0 where the type has none), or the stated result. Destinations may be operands.
#pragma once

#include <cstdint>

#include "values/number_text.h"

namespace tallymere {

/// Bytes of one value of the current number type: real 8 (n + 1), cplx twice that, uint
/// 8 uintLimbs, rat 16 uintLimbs + 8. Any other type gives 0 and code 102.
uint64_t SizeOfNumber();

/// Copies one value.
void ValueCopy(uint64_t* dest, const uint64_t* source);

/// -1, 0 or 1 in the order of the type; ignoreSign compares magnitudes. 1 with code 102. Values of
/// cplx that are not real have no order: as ComplexCompare, which see. Integers ignore ignoreSign.
int ValueCompare(const uint64_t* a, const uint64_t* b, bool ignoreSign);

/// Compares with k: -1, 0 or 1; 1 with code 102. In real as RealCompareInt does, which looks at no
/// more digits of k than stand in the first limb; a value of cplx that is not real gives 1. Any
/// integer is above a negative k.
int ValueCompareSmall(const uint64_t* a, int64_t k);

/// True for zero, in cplx when both parts are; false with code 102.
bool ValueIsZero(const uint64_t* a);

/// dest = |source|, in cplx the modulus.
void ValueAbs(uint64_t* dest, const uint64_t* source);

/// dest = -source, also for a zero; in cplx both parts. uint does not have it.
void ValueNegate(uint64_t* dest, const uint64_t* source);

/// dest = source / k, rounded, in rat exact; uint does not have it. 0/0 is 0 in rat.
void ValueDivideSmall(uint64_t* dest, const uint64_t* source, uint64_t k);

/// dest = k, rounded. 0 and code 203 for a negative k in uint.
void ValueFromInteger(uint64_t* dest, int64_t k);

/// dest = k, rounded.
void ValueFromUnsigned(uint64_t* dest, uint64_t k);

/// dest = the zero of the type.
void ValueZero(uint64_t* dest);

/// dest = NaN, or 0 in a type that has none: what stands where an operation failed.
void ValueSetInvalid(uint64_t* dest);

/// Notes code 102 and calls ValueSetInvalid: the type does not have the operation.
void ValueSetUnavailable(uint64_t* dest);

/// dest = pi.
void ValuePi(uint64_t* dest);

/// Writes |a| and returns true when a is an integer whose magnitude fits 64 bits; else writes 0.
bool ValueToSmall(uint64_t* out, const uint64_t* a);

/// Writes a and returns true when a is an integer in the signed 64-bit range; else writes 0.
bool ValueToSigned(int64_t* out, const uint64_t* a);

/// Writes a as text by the rules of NumberToText, which see, and returns the length.
inline int64_t ValueToText(char16_t* characters, int64_t capacity, const uint64_t* a,
                           uint32_t flags) {
    return NumberToText(characters, capacity, a, flags);
}

}  // namespace tallymere
