// Operations on values of the number type in force, for callers that serve all types alike.
//
// A value is SizeOfNumber() bytes, anywhere. Each operation is one switch on
// NumberContext::numberType. Where a type does not have the operation, it notes
// CalcErrorUnknownType. The result is then the one stated here, else NaN, or 0 in a type without
// NaN. Destinations may be operands.
#pragma once

#include <cstdint>

#include "core/real_number.h"
#include "values/number_text.h"

namespace tallymere {

/// Bytes of one value of the number type in force: real 8 (n + 1), cplx twice that, uint
/// 8 uintLimbs, rat 16 uintLimbs + 8. Any other type gives 0 and CalcErrorUnknownType.
uint64_t SizeOfNumber();

/// Copies one value.
void ValueCopy(uint64_t* dest, const uint64_t* source);

/// -1, 0 or 1 as a is below, equal to or above b. With `ignoreSign` it compares magnitudes; in uint
/// that is the same. Values of cplx that are not real have no order; ComplexCompare says what they
/// give. 1 for any other type.
int ValueCompare(const uint64_t* a, const uint64_t* b, bool ignoreSign);

/// -1, 0 or 1 as a is below, equal to or above k. Real numbers are compared by RealCompareInt,
/// which looks at no more digits of k than the first limb has. A value of cplx that is not real
/// gives 1, and so does any other type.
int ValueCompareSmall(const uint64_t* a, int64_t k);

/// True for zero; in cplx when both parts are zero. False for any other type.
bool ValueIsZero(const uint64_t* a);

/// True for the types without rounding, uint and rat. False for any other type, which notes
/// CalcErrorUnknownType where it is none.
bool ValuesAreExact();

/// How many real numbers a value consists of, one behind the other: 1 in real, 2 in cplx, 0 in the
/// exact types. 0 for any other type, too, which notes CalcErrorUnknownType.
int64_t ValueRealParts();

/// True when the text of a value is a sum or a quotient, and so needs parentheses as a factor: in
/// cplx when neither part is zero, in rat when the denominator is not 1. False for any other type.
bool ValueHasTwoParts(const uint64_t* a);

/// a = 0 where |a| < epsilon; in cplx part by part. Exact types keep their values.
void SnapToZero(uint64_t* a, const RealNumber* epsilon);

/// dest = |source|, in cplx the modulus.
void ValueAbs(uint64_t* dest, const uint64_t* source);

/// dest = -source; in cplx both parts. A zero changes its sign too. uint does not have it.
void ValueNegate(uint64_t* dest, const uint64_t* source);

/// dest = a + b, a - b, a * b; rounded, part by part in cplx, and exact in rat and uint. What does
/// not fit there is 0 and CalcErrorOverflow.
void ValueAdd(uint64_t* dest, const uint64_t* a, const uint64_t* b);
void ValueSubtract(uint64_t* dest, const uint64_t* a, const uint64_t* b);
void ValueMultiply(uint64_t* dest, const uint64_t* a, const uint64_t* b);

/// dest = a / b, rounded, as RealDiv and ComplexDiv; in rat exact. uint does not have it: a
/// quotient is no integer.
void ValueDivide(uint64_t* dest, const uint64_t* a, const uint64_t* b);

/// dest = source / k, rounded; in rat exact. 0/0 is 0 in rat. uint does not have it.
void ValueDivideSmall(uint64_t* dest, const uint64_t* source, uint64_t k);

/// dest = k, rounded. In uint a negative k gives 0 and CalcErrorUndefined.
void ValueFromInteger(uint64_t* dest, int64_t k);

/// dest = k, rounded.
void ValueFromUnsigned(uint64_t* dest, uint64_t k);

/// dest = the zero of the type.
void ValueZero(uint64_t* dest);

/// Marks a failed result: dest = NaN, or 0 in a type without NaN.
void ValueSetInvalid(uint64_t* dest);

/// For an operation that the type does not have: notes CalcErrorUnknownType and calls
/// ValueSetInvalid.
void ValueSetUnavailable(uint64_t* dest);

/// dest = pi.
void ValuePi(uint64_t* dest);

/// *out = |a|, and returns true, when a is an integer and |a| < 2^64. Else *out = 0, and returns
/// false.
bool ValueToSmall(uint64_t* out, const uint64_t* a);

/// *out = a, and returns true, when a is an integer from -2^63 to 2^63 - 1. Else *out = 0, and
/// returns false.
bool ValueToSigned(int64_t* out, const uint64_t* a);

/// The same as NumberToText (values/number_text.h).
inline int64_t ValueToText(char16_t* characters, int64_t capacity, const uint64_t* a,
                           uint32_t flags) {
    return NumberToText(characters, capacity, a, flags);
}

}  // namespace tallymere
