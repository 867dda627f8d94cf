#include "formula/value_operations.h"

#include <algorithm>
#include <cstring>

#include "core/complex_arithmetic.h"
#include "core/complex_modulus.h"
#include "core/number_context.h"
#include "core/real_compare.h"
#include "core/real_divide.h"
#include "core/real_integer.h"
#include "core/real_rounding.h"
#include "formula/complex_operators.h"
#include "functions/stored_constants.h"

namespace tallymere {

void ValueCopy(uint64_t* dest, const uint64_t* source) {
    std::memmove(dest, source, SizeOfNumber());
}

int ValueCompare(const uint64_t* a, const uint64_t* b, bool ignoreSign) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            return RealCompare(RealAt(a), RealAt(b), ignoreSign);
        case NumberTypeComplex:
            return ComplexCompare(ComplexAt(a), ComplexAt(b), ignoreSign);
        default:
            SetCalcError(CalcErrorUnknownType);
            return 1;
    }
}

int ValueCompareSmall(const uint64_t* a, int64_t k) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            return RealCompareInt(RealAt(a), k);
        case NumberTypeComplex:
            return ComplexIsReal(ComplexAt(a)) ? RealCompareInt(RealPart(ComplexAt(a)), k) : 1;
        default:
            SetCalcError(CalcErrorUnknownType);
            return 1;
    }
}

bool ValueIsZero(const uint64_t* a) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            return RealIsZero(RealAt(a));
        case NumberTypeComplex:
            return ComplexIsZero(ComplexAt(a));
        default:
            SetCalcError(CalcErrorUnknownType);
            return false;
    }
}

void ValueAbs(uint64_t* dest, const uint64_t* source) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            RealAbs(RealAt(dest), RealAt(source));
            break;
        case NumberTypeComplex:
            ComplexAbs(ComplexAt(dest), ComplexAt(source));
            break;
        default:
            ValueSetUnavailable(dest);
    }
}

void ValueNegate(uint64_t* dest, const uint64_t* source) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            RealCopy(RealAt(dest), RealAt(source));
            RealNegate(RealAt(dest));
            break;
        case NumberTypeComplex:
            ComplexCopy(ComplexAt(dest), ComplexAt(source));
            ComplexNegate(ComplexAt(dest));
            break;
        default:
            ValueSetUnavailable(dest);
    }
}

void ValueDivideSmall(uint64_t* dest, const uint64_t* source, uint64_t k) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            RealRound(RealAt(dest), RealDivUint(RealAt(dest), RealAt(source), k));
            break;
        case NumberTypeComplex:
            ComplexDivUint(ComplexAt(dest), ComplexAt(source), k);
            break;
        default:
            ValueSetUnavailable(dest);
    }
}

void ValueFromInteger(uint64_t* dest, int64_t k) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            RealFromInt(RealAt(dest), k);
            break;
        case NumberTypeComplex:
            RealFromInt(RealPart(ComplexAt(dest)), k);
            ComplexClearImaginaryPart(ComplexAt(dest));
            break;
        default:
            ValueSetUnavailable(dest);
    }
}

void ValueFromUnsigned(uint64_t* dest, uint64_t k) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            RealRound(RealAt(dest), RealFromUint(RealAt(dest), k));
            break;
        case NumberTypeComplex:
            RealRound(RealPart(ComplexAt(dest)), RealFromUint(RealPart(ComplexAt(dest)), k));
            ComplexClearImaginaryPart(ComplexAt(dest));
            break;
        default:
            ValueSetUnavailable(dest);
    }
}

void ValueZero(uint64_t* dest) {
    const int64_t uintWords = numberContext.uintLimbs;
    switch (numberContext.numberType) {
        case NumberTypeReal:
            RealSetZero(RealAt(dest), 0);
            break;
        case NumberTypeComplex:
            ComplexSetZero(ComplexAt(dest), 0);
            break;
        case NumberTypeUint:
            std::fill_n(dest, uintWords, 0);
            break;
        case NumberTypeRational:  // 0/1 with a clear sign word
            std::fill_n(dest, 2 * uintWords + 1, 0);
            dest[uintWords + 1] = 1;
            break;
        default:
            SetCalcError(CalcErrorUnknownType);
    }
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
            break;
        case NumberTypeComplex:
            RealPi(RealPart(ComplexAt(dest)));
            ComplexClearImaginaryPart(ComplexAt(dest));
            break;
        default:
            ValueSetUnavailable(dest);
    }
}

bool ValueToSmall(uint64_t* out, const uint64_t* a) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            return RealToUint(out, RealAt(a), AllowNegative);
        case NumberTypeComplex:
            return ComplexToUint(out, ComplexAt(a));
        default:
            SetCalcError(CalcErrorUnknownType);
            *out = 0;
            return false;
    }
}

bool ValueToSigned(int64_t* out, const uint64_t* a) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            return RealToInt(out, RealAt(a), IntegerExact);
        case NumberTypeComplex:
            return ComplexToInt(out, ComplexAt(a));
        default:
            SetCalcError(CalcErrorUnknownType);
            *out = 0;
            return false;
    }
}

}  // namespace tallymere
