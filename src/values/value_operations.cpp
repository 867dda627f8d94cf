#include "values/value_operations.h"

#include <cstring>

#include "core/complex_arithmetic.h"
#include "core/number_context.h"
#include "core/real_add.h"
#include "core/real_compare.h"
#include "core/real_divide.h"
#include "core/real_integer.h"
#include "core/real_multiply.h"
#include "core/real_rounding.h"
#include "exact/big_uint.h"
#include "exact/big_uint_multiply.h"
#include "exact/rational_arithmetic.h"
#include "functions/complex_modulus.h"
#include "functions/stored_constants.h"

namespace tallymere {

namespace {

int BigUintCompareSmall(const uint64_t* a, int64_t k) {
    if (k < 0 || !BigUintFitsUnsigned(a)) {
        return 1;
    }
    const auto word = static_cast<uint64_t>(k);
    return a[0] < word ? -1 : static_cast<int>(a[0] > word);
}

void BigUintFromSigned(uint64_t* dest, int64_t k) {
    BigUintFromUnsigned(dest, k < 0 ? 0 : static_cast<uint64_t>(k));
    if (k < 0) {
        SetCalcError(CalcErrorUndefined);
    }
}

bool BigUintToUnsigned(uint64_t* out, const uint64_t* a) {
    const bool fits = BigUintFitsUnsigned(a);
    *out = fits ? a[0] : 0;
    return fits;
}

bool BigUintToSigned(int64_t* out, const uint64_t* a) {
    const bool fits = BigUintFitsSigned(a);
    *out = fits ? static_cast<int64_t>(a[0]) : 0;
    return fits;
}

void SnapRealToZero(RealNumber* x, const RealNumber* epsilon) {
    if (RealCompare(x, epsilon, true) < 0) {
        RealSetZero(x, 0);
    }
}

}  // namespace

uint64_t SizeOfNumber() {
    const uint64_t realBytes = 8 * static_cast<uint64_t>(numberContext.realLimbs + 1);
    const uint64_t uintBytes = 8 * static_cast<uint64_t>(numberContext.uintLimbs);
    switch (numberContext.numberType) {
        case NumberTypeReal:
            return realBytes;
        case NumberTypeComplex:
            return 2 * realBytes;
        case NumberTypeUint:
            return uintBytes;
        case NumberTypeRational:
            return 2 * uintBytes + 8;
        case NumberTypeNone:
            break;
    }
    SetCalcError(CalcErrorUnknownType);
    return 0;
}

void ValueCopy(uint64_t* dest, const uint64_t* source) {
    std::memmove(dest, source, SizeOfNumber());
}

int ValueCompare(const uint64_t* a, const uint64_t* b, bool ignoreSign) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            return RealCompare(RealAt(a), RealAt(b), ignoreSign);
        case NumberTypeComplex:
            return ComplexCompare(ComplexAt(a), ComplexAt(b), ignoreSign);
        case NumberTypeUint:
            return BigUintCompare(a, b);
        case NumberTypeRational:
            return RationalCompare(RationalAt(a), RationalAt(b), ignoreSign);
        case NumberTypeNone:
            break;
    }
    SetCalcError(CalcErrorUnknownType);
    return 1;
}

int ValueCompareSmall(const uint64_t* a, int64_t k) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            return RealCompareInt(RealAt(a), k);
        case NumberTypeComplex:
            return ComplexIsReal(ComplexAt(a)) ? RealCompareInt(RealPart(ComplexAt(a)), k) : 1;
        case NumberTypeUint:
            return BigUintCompareSmall(a, k);
        case NumberTypeRational:
            return RationalCompareSmall(RationalAt(a), IntegerMagnitude(k), k < 0);
        case NumberTypeNone:
            break;
    }
    SetCalcError(CalcErrorUnknownType);
    return 1;
}

bool ValueIsZero(const uint64_t* a) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            return RealIsZero(RealAt(a));
        case NumberTypeComplex:
            return ComplexIsZero(ComplexAt(a));
        case NumberTypeUint:
            return BigUintIsZero(a);
        case NumberTypeRational:
            return RationalIsZero(RationalAt(a));
        case NumberTypeNone:
            break;
    }
    SetCalcError(CalcErrorUnknownType);
    return false;
}

bool ValuesAreExact() {
    switch (numberContext.numberType) {
        case NumberTypeReal:
        case NumberTypeComplex:
            return false;
        case NumberTypeUint:
        case NumberTypeRational:
            return true;
        case NumberTypeNone:
            break;
    }
    SetCalcError(CalcErrorUnknownType);
    return false;
}

int64_t ValueRealParts() {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            return 1;
        case NumberTypeComplex:
            return 2;
        case NumberTypeUint:
        case NumberTypeRational:
            return 0;
        case NumberTypeNone:
            break;
    }
    SetCalcError(CalcErrorUnknownType);
    return 0;
}

bool ValueHasTwoParts(const uint64_t* a) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
        case NumberTypeUint:
            return false;
        case NumberTypeComplex:
            return !RealIsZero(RealPart(ComplexAt(a))) && !ComplexIsReal(ComplexAt(a));
        case NumberTypeRational:
            return !RationalIsInteger(RationalAt(a));
        case NumberTypeNone:
            break;
    }
    SetCalcError(CalcErrorUnknownType);
    return false;
}

void SnapToZero(uint64_t* a, const RealNumber* epsilon) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            SnapRealToZero(RealAt(a), epsilon);
            return;
        case NumberTypeComplex:
            SnapRealToZero(RealPart(ComplexAt(a)), epsilon);
            SnapRealToZero(ImaginaryPart(ComplexAt(a)), epsilon);
            return;
        case NumberTypeUint:
        case NumberTypeRational:
            return;
        case NumberTypeNone:
            break;
    }
    SetCalcError(CalcErrorUnknownType);
}

void ValueAbs(uint64_t* dest, const uint64_t* source) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            RealAbs(RealAt(dest), RealAt(source));
            return;
        case NumberTypeComplex:
            ComplexAbs(ComplexAt(dest), ComplexAt(source));
            return;
        case NumberTypeUint:
            BigUintCopy(dest, source);
            return;
        case NumberTypeRational:
            RationalCopy(RationalAt(dest), RationalAt(source));
            RationalAt(dest)->sign = 0;
            return;
        case NumberTypeNone:
            break;
    }
    ValueSetUnavailable(dest);
}

void ValueNegate(uint64_t* dest, const uint64_t* source) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            RealCopy(RealAt(dest), RealAt(source));
            RealNegate(RealAt(dest));
            return;
        case NumberTypeComplex:
            ComplexCopy(ComplexAt(dest), ComplexAt(source));
            ComplexNegate(ComplexAt(dest));
            return;
        case NumberTypeRational:
            RationalCopy(RationalAt(dest), RationalAt(source));
            RationalNegate(RationalAt(dest));
            return;
        case NumberTypeUint:
        case NumberTypeNone:
            break;
    }
    ValueSetUnavailable(dest);
}

void ValueAdd(uint64_t* dest, const uint64_t* a, const uint64_t* b) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            RealAdd(RealAt(dest), RealAt(a), RealAt(b));
            return;
        case NumberTypeComplex:
            ComplexAdd(ComplexAt(dest), ComplexAt(a), ComplexAt(b));
            return;
        case NumberTypeRational:
            RationalAddSub(RationalAt(dest), RationalAt(a), RationalAt(b), false);
            return;
        case NumberTypeUint:
            BigUintAdd(dest, a, b);
            return;
        case NumberTypeNone:
            break;
    }
    ValueSetUnavailable(dest);
}

void ValueSubtract(uint64_t* dest, const uint64_t* a, const uint64_t* b) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            RealSub(RealAt(dest), RealAt(a), RealAt(b));
            return;
        case NumberTypeComplex:
            ComplexSub(ComplexAt(dest), ComplexAt(a), ComplexAt(b));
            return;
        case NumberTypeRational:
            RationalAddSub(RationalAt(dest), RationalAt(a), RationalAt(b), true);
            return;
        case NumberTypeUint:
            BigUintSub(dest, a, b);
            return;
        case NumberTypeNone:
            break;
    }
    ValueSetUnavailable(dest);
}

void ValueMultiply(uint64_t* dest, const uint64_t* a, const uint64_t* b) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            RealMul(RealAt(dest), RealAt(a), RealAt(b));
            return;
        case NumberTypeComplex:
            ComplexMul(ComplexAt(dest), ComplexAt(a), ComplexAt(b));
            return;
        case NumberTypeRational:
            RationalMulDiv(RationalAt(dest), RationalAt(a), RationalAt(b), false);
            return;
        case NumberTypeUint:
            BigUintMul(dest, a, b);
            return;
        case NumberTypeNone:
            break;
    }
    ValueSetUnavailable(dest);
}

void ValueDivide(uint64_t* dest, const uint64_t* a, const uint64_t* b) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            RealDiv(RealAt(dest), RealAt(a), RealAt(b));
            return;
        case NumberTypeComplex:
            ComplexDiv(ComplexAt(dest), ComplexAt(a), ComplexAt(b));
            return;
        case NumberTypeRational:
            RationalMulDiv(RationalAt(dest), RationalAt(a), RationalAt(b), true);
            return;
        case NumberTypeUint:
        case NumberTypeNone:
            break;
    }
    ValueSetUnavailable(dest);
}

void ValueDivideSmall(uint64_t* dest, const uint64_t* source, uint64_t k) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            RealRound(RealAt(dest), RealDivUint(RealAt(dest), RealAt(source), k));
            return;
        case NumberTypeComplex:
            ComplexDivUint(ComplexAt(dest), ComplexAt(source), k);
            return;
        case NumberTypeRational:
            RationalDivSmall(RationalAt(dest), RationalAt(source), k);
            return;
        case NumberTypeUint:
        case NumberTypeNone:
            break;
    }
    ValueSetUnavailable(dest);
}

void ValueFromInteger(uint64_t* dest, int64_t k) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            RealFromInt(RealAt(dest), k);
            return;
        case NumberTypeComplex:
            RealFromInt(RealPart(ComplexAt(dest)), k);
            ComplexClearImaginaryPart(ComplexAt(dest));
            return;
        case NumberTypeUint:
            BigUintFromSigned(dest, k);
            return;
        case NumberTypeRational:
            RationalFromUnsigned(RationalAt(dest), IntegerMagnitude(k), k < 0 ? 1 : 0);
            return;
        case NumberTypeNone:
            break;
    }
    ValueSetUnavailable(dest);
}

void ValueFromUnsigned(uint64_t* dest, uint64_t k) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            RealRound(RealAt(dest), RealFromUint(RealAt(dest), k));
            return;
        case NumberTypeComplex:
            RealRound(RealPart(ComplexAt(dest)), RealFromUint(RealPart(ComplexAt(dest)), k));
            ComplexClearImaginaryPart(ComplexAt(dest));
            return;
        case NumberTypeUint:
            BigUintFromUnsigned(dest, k);
            return;
        case NumberTypeRational:
            RationalFromUnsigned(RationalAt(dest), k, 0);
            return;
        case NumberTypeNone:
            break;
    }
    ValueSetUnavailable(dest);
}

void ValueZero(uint64_t* dest) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            RealSetZero(RealAt(dest), 0);
            return;
        case NumberTypeComplex:
            ComplexSetZero(ComplexAt(dest), 0);
            return;
        case NumberTypeUint:
            BigUintClear(dest);
            return;
        case NumberTypeRational:
            RationalSetZero(RationalAt(dest));
            return;
        case NumberTypeNone:
            break;
    }
    SetCalcError(CalcErrorUnknownType);
}

void ValueSetInvalid(uint64_t* dest) {
    ValueZero(dest);
    if (numberContext.numberType == NumberTypeReal ||
        numberContext.numberType == NumberTypeComplex) {
        RealSetNaN(RealAt(dest));
    }
}

void ValueSetUnavailable(uint64_t* dest) {
    SetCalcError(CalcErrorUnknownType);
    ValueSetInvalid(dest);
}

void ValuePi(uint64_t* dest) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            RealPi(RealAt(dest));
            return;
        case NumberTypeComplex:
            RealPi(RealPart(ComplexAt(dest)));
            ComplexClearImaginaryPart(ComplexAt(dest));
            return;
        case NumberTypeUint:
        case NumberTypeRational:
        case NumberTypeNone:
            break;
    }
    ValueSetUnavailable(dest);
}

bool ValueToSmall(uint64_t* out, const uint64_t* a) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            return RealToUint(out, RealAt(a), AllowNegative);
        case NumberTypeComplex:
            return ComplexToUint(out, ComplexAt(a));
        case NumberTypeUint:
            return BigUintToUnsigned(out, a);
        case NumberTypeRational:
            return RationalToUnsigned(out, RationalAt(a), AllowNegative);
        case NumberTypeNone:
            break;
    }
    SetCalcError(CalcErrorUnknownType);
    *out = 0;
    return false;
}

bool ValueToSigned(int64_t* out, const uint64_t* a) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            return RealToInt(out, RealAt(a), IntegerExact);
        case NumberTypeComplex:
            return ComplexToInt(out, ComplexAt(a));
        case NumberTypeUint:
            return BigUintToSigned(out, a);
        case NumberTypeRational:
            return RationalToSigned(out, RationalAt(a));
        case NumberTypeNone:
            break;
    }
    SetCalcError(CalcErrorUnknownType);
    *out = 0;
    return false;
}

}  // namespace tallymere
