#include "values/number_text.h"

#include "core/complex_arithmetic.h"
#include "core/complex_text.h"
#include "core/contract.h"
#include "core/real_rounding.h"
#include "core/real_text.h"
#include "exact/big_uint_text.h"
#include "exact/rational_text.h"

namespace tallymere {

int64_t NumberToText(char16_t* buffer, int64_t capacity, const uint64_t* number, uint32_t flags) {
    TALLYMERE_REQUIRE(buffer == nullptr || capacity >= 0);
    TextWriter writer = {0, capacity, buffer};
    switch (numberContext.numberType) {
        case NumberTypeReal:
            if (buffer == nullptr) {
                return RealTextCapacity(flags);
            }
            RealToText(writer, RealAt(number), flags);
            return FinishNumberText(writer, flags);
        case NumberTypeComplex:
            return ComplexToText(buffer, capacity, ComplexAt(number), flags);
        case NumberTypeUint:
            return BigUintToText(buffer, capacity, number, flags);
        case NumberTypeRational:
            return RationalToText(buffer, capacity, RationalAt(number), flags);
        case NumberTypeNone:
            break;
    }
    SetCalcError(CalcErrorUnknownType);
    return buffer == nullptr ? 0 : FinishNumberText(writer, flags);
}

void NumberRoundDigits(uint64_t* dest, const uint64_t* number, int64_t d) {
    switch (numberContext.numberType) {
        case NumberTypeReal:
            RealRoundDigitsAny(RealAt(dest), RealAt(number), d);
            return;
        case NumberTypeComplex:
            ComplexRoundDigits(ComplexAt(dest), ComplexAt(number), d);
            return;
        case NumberTypeUint:
        case NumberTypeRational:
        case NumberTypeNone:
            break;
    }
    SetCalcError(CalcErrorUnknownType);
}

}  // namespace tallymere
