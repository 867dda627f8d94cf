#include "core/complex_arithmetic.h"

#include "core/contract.h"
#include "core/real_add.h"
#include "core/real_compare.h"
#include "core/real_div_mod.h"
#include "core/real_divide.h"
#include "core/real_integer.h"
#include "core/real_layout.h"
#include "core/real_multiply.h"
#include "core/scratch.h"

namespace tallymere {

namespace {

bool BothReal(const ComplexNumber* a, const ComplexNumber* b) {
    return ComplexIsReal(a) && ComplexIsReal(b);
}

// dest = x^2 + y^2.
void SumOfSquares(RealNumber* dest, const RealNumber* x, const RealNumber* y) {
    CoreScratchScope scratch;
    RealNumber* square = RealAt(scratch.Take(RealWords()));
    RealMul(square, x, x);
    RealMul(dest, y, y);
    RealAdd(dest, square, dest);
}

// dest = a1 b1 + a2 b2, or a1 b1 - a2 b2 with `subtract`. dest must not be an operand.
void SumOfProducts(RealNumber* dest, const RealNumber* a1, const RealNumber* b1,
                   const RealNumber* a2, const RealNumber* b2, bool subtract) {
    CoreScratchScope scratch;
    RealNumber* second = RealAt(scratch.Take(RealWords()));
    RealMul(dest, a1, b1);
    RealMul(second, a2, b2);
    RealRound(dest, RealAddRaw(dest, dest, second, subtract));
}

void SetNaNWhereWanted(ComplexNumber* dest, CalcError code) {
    if (dest != nullptr) {
        ComplexSetNaN(dest, code);
    }
}

RealNumber* RealPartWhereWanted(ComplexNumber* z) {
    return z == nullptr ? nullptr : RealPart(z);
}

void ClearImaginaryPartWhereWanted(ComplexNumber* z) {
    if (z != nullptr) {
        ComplexClearImaginaryPart(z);
    }
}

}  // namespace

int ComplexCompare(const ComplexNumber* a, const ComplexNumber* b, bool ignoreSign) {
    TALLYMERE_REQUIRE(ComplexIsWellFormed(a) && ComplexIsWellFormed(b));
    if (BothReal(a, b)) {
        return RealCompare(RealPart(a), RealPart(b), ignoreSign);
    }
    if (ignoreSign) {
        SetCalcError(CalcErrorComplexNotAllowed);
        return 1;
    }
    const bool equal = RealCompare(RealPart(a), RealPart(b)) == 0 &&
                       RealCompare(ImaginaryPart(a), ImaginaryPart(b)) == 0;
    return equal ? 0 : 1;
}

void ComplexAdd(ComplexNumber* dest, const ComplexNumber* a, const ComplexNumber* b) {
    TALLYMERE_REQUIRE(ComplexIsWellFormed(a) && ComplexIsWellFormed(b));
    TALLYMERE_REQUIRE(ComplexSameOrApart(dest, a) && ComplexSameOrApart(dest, b));
    RealAdd(RealPart(dest), RealPart(a), RealPart(b));
    RealAdd(ImaginaryPart(dest), ImaginaryPart(a), ImaginaryPart(b));
}

void ComplexSub(ComplexNumber* dest, const ComplexNumber* a, const ComplexNumber* b) {
    TALLYMERE_REQUIRE(ComplexIsWellFormed(a) && ComplexIsWellFormed(b));
    TALLYMERE_REQUIRE(ComplexSameOrApart(dest, a) && ComplexSameOrApart(dest, b));
    RealSub(RealPart(dest), RealPart(a), RealPart(b));
    RealSub(ImaginaryPart(dest), ImaginaryPart(a), ImaginaryPart(b));
}

void ComplexMul(ComplexNumber* dest, const ComplexNumber* a, const ComplexNumber* b) {
    TALLYMERE_REQUIRE(ComplexIsWellFormed(a) && ComplexIsWellFormed(b));
    TALLYMERE_REQUIRE(ComplexSameOrApart(dest, a) && ComplexSameOrApart(dest, b));
    const RealNumber* x = RealPart(a);
    const RealNumber* y = ImaginaryPart(a);
    const RealNumber* c = RealPart(b);
    const RealNumber* d = ImaginaryPart(b);
    if (BothReal(a, b)) {
        RealMul(RealPart(dest), x, c);
        ComplexClearImaginaryPart(dest);
        return;
    }
    CoreScratchScope scratch;
    RealNumber* xc = RealAt(scratch.Take(RealWords()));
    RealNumber* xd = RealAt(scratch.Take(RealWords()));
    RealNumber* yd = RealAt(scratch.Take(RealWords()));
    RealNumber* yc = RealAt(scratch.Take(RealWords()));
    RealMul(xc, x, c);
    RealMul(xd, x, d);
    RealMul(yd, y, d);
    RealMul(yc, y, c);
    RealSub(RealPart(dest), xc, yd);
    RealAdd(ImaginaryPart(dest), xd, yc);
}

void ComplexMulUint(ComplexNumber* dest, const ComplexNumber* z, uint64_t k) {
    TALLYMERE_REQUIRE(ComplexIsWellFormed(z));
    TALLYMERE_REQUIRE(ComplexSameOrApart(dest, z));
    const bool isReal = ComplexIsReal(z);
    RealRound(RealPart(dest), RealMulUint(RealPart(dest), RealPart(z), k));
    if (isReal) {
        ComplexClearImaginaryPart(dest);
    } else {
        RealRound(ImaginaryPart(dest), RealMulUint(ImaginaryPart(dest), ImaginaryPart(z), k));
    }
}

void ComplexDiv(ComplexNumber* dest, const ComplexNumber* a, const ComplexNumber* b) {
    TALLYMERE_REQUIRE(ComplexIsWellFormed(a) && ComplexIsWellFormed(b));
    TALLYMERE_REQUIRE(ComplexSameOrApart(dest, a) && ComplexSameOrApart(dest, b));
    const RealNumber* x = RealPart(a);
    const RealNumber* y = ImaginaryPart(a);
    const RealNumber* c = RealPart(b);
    const RealNumber* d = ImaginaryPart(b);
    if (BothReal(a, b)) {
        RealDiv(RealPart(dest), x, c);
        ComplexClearImaginaryPart(dest);
        return;
    }
    CoreScratchScope scratch;
    ComplexNumber* numerator = ComplexAt(scratch.Take(ComplexWords()));
    RealNumber* denominator = RealAt(scratch.Take(RealWords()));
    if (ComplexIsReal(b)) {
        ComplexCopy(numerator, a);
        RealCopy(denominator, c);
    } else {
        SumOfSquares(denominator, c, d);
        SumOfProducts(RealPart(numerator), x, c, y, d, false);
        SumOfProducts(ImaginaryPart(numerator), y, c, x, d, true);
    }
    RealDiv(RealPart(dest), RealPart(numerator), denominator);
    RealDiv(ImaginaryPart(dest), ImaginaryPart(numerator), denominator);
}

void ComplexDivUint(ComplexNumber* dest, const ComplexNumber* z, uint64_t k) {
    TALLYMERE_REQUIRE(ComplexIsWellFormed(z));
    TALLYMERE_REQUIRE(ComplexSameOrApart(dest, z));
    const bool isReal = ComplexIsReal(z);
    RealRound(RealPart(dest), RealDivUint(RealPart(dest), RealPart(z), k));
    if (isReal) {
        ComplexClearImaginaryPart(dest);
    } else {
        RealRound(ImaginaryPart(dest), RealDivUint(ImaginaryPart(dest), ImaginaryPart(z), k));
    }
}

void ComplexReciprocal(ComplexNumber* dest, const ComplexNumber* z) {
    TALLYMERE_REQUIRE(ComplexIsWellFormed(z));
    TALLYMERE_REQUIRE(ComplexSameOrApart(dest, z));
    if (ComplexIsReal(z)) {
        RealReciprocal(RealPart(dest), RealPart(z));
        ComplexClearImaginaryPart(dest);
        return;
    }
    CoreScratchScope scratch;
    RealNumber* denominator = RealAt(scratch.Take(RealWords()));
    SumOfSquares(denominator, RealPart(z), ImaginaryPart(z));
    RealDiv(RealPart(dest), RealPart(z), denominator);
    RealDiv(ImaginaryPart(dest), ImaginaryPart(z), denominator);
    RealNegate(ImaginaryPart(dest));
}

void ComplexDivMod(ComplexNumber* quotient, ComplexNumber* remainder, const ComplexNumber* a,
                   const ComplexNumber* b) {
    TALLYMERE_REQUIRE(ComplexIsWellFormed(a) && ComplexIsWellFormed(b));
    for ([[maybe_unused]] const ComplexNumber* dest : {quotient, remainder}) {
        TALLYMERE_REQUIRE(dest == nullptr ||
                          (ComplexSameOrApart(dest, a) && ComplexSameOrApart(dest, b)));
    }
    TALLYMERE_REQUIRE(quotient == nullptr || remainder == nullptr ||
                      (quotient != remainder && ComplexSameOrApart(quotient, remainder)));
    if (!BothReal(a, b)) {
        SetCalcError(CalcErrorComplexNotAllowed);
        SetNaNWhereWanted(quotient, CalcErrorUndefined);
        SetNaNWhereWanted(remainder, CalcErrorUndefined);
        return;
    }
    RealDivMod(RealPartWhereWanted(quotient), RealPartWhereWanted(remainder), RealPart(a),
               RealPart(b));
    ClearImaginaryPartWhereWanted(quotient);
    ClearImaginaryPartWhereWanted(remainder);
}

void ComplexRoundDigits(ComplexNumber* dest, const ComplexNumber* z, int64_t d) {
    TALLYMERE_REQUIRE(ComplexIsWellFormed(z));
    TALLYMERE_REQUIRE(ComplexSameOrApart(dest, z));
    if (d < 1) {
        ComplexSetNaN(dest, CalcErrorUndefined);
        return;
    }
    RealRoundDigitsAny(RealPart(dest), RealPart(z), d);
    RealRoundDigitsAny(ImaginaryPart(dest), ImaginaryPart(z), d);
}

void ComplexRealOnly(ComplexNumber* dest, const ComplexNumber* a, const ComplexNumber* b,
                     RealRoundedBinary function) {
    TALLYMERE_REQUIRE(ComplexIsWellFormed(a) && ComplexIsWellFormed(b));
    TALLYMERE_REQUIRE(ComplexSameOrApart(dest, a) && ComplexSameOrApart(dest, b));
    if (!BothReal(a, b)) {
        ComplexSetNaN(dest, CalcErrorComplexNotAllowed);
        return;
    }
    function(RealPart(dest), RealPart(a), RealPart(b));
    ComplexClearImaginaryPart(dest);
}

void ComplexConvertPrecision(ComplexNumber* dest, int64_t digits, const ComplexNumber* src,
                             int64_t sourceDigits) {
    if (!IsPrecision(digits) || !IsPrecision(sourceDigits)) {
        SetCalcError(CalcErrorBadParameter);
        return;
    }
    const int64_t destWords = LayoutForDigits(digits).limbs + 1;
    const int64_t sourceWords = LayoutForDigits(sourceDigits).limbs + 1;
    // In place, either part of dest may lie where the imaginary part of src does.
    CoreScratchScope scratch;
    RealNumber* imaginary = RealAt(scratch.Take(destWords));
    RealConvertPrecision(imaginary, digits, RealAt(&src->realHeader + sourceWords), sourceDigits);
    RealConvertPrecision(RealPart(dest), digits, RealPart(src), sourceDigits);
    LimbsCopy(&dest->realHeader + destWords, &imaginary->header, destWords);
}

bool ComplexToUint(uint64_t* out, const ComplexNumber* z) {
    TALLYMERE_REQUIRE(ComplexIsWellFormed(z));
    *out = 0;
    return ComplexIsReal(z) && RealToUint(out, RealPart(z), AllowNegative);
}

bool ComplexToInt(int64_t* out, const ComplexNumber* z) {
    TALLYMERE_REQUIRE(ComplexIsWellFormed(z));
    *out = 0;
    return ComplexIsReal(z) && RealToInt(out, RealPart(z), IntegerExact);
}

}  // namespace tallymere
