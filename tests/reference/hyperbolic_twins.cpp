#include "reference/hyperbolic_twins.h"

#include "core/real_add.h"
#include "core/real_compare.h"
#include "core/real_divide.h"
#include "core/real_integer.h"
#include "core/real_multiply.h"
#include "functions/exponential.h"
#include "functions/logarithm.h"
#include "functions/roots.h"
#include "functions/stored_constants.h"
#include "reference/series_twins.h"
#include "support/real_testing.h"

namespace tallymere::reference {

namespace {

using testing_support::RealBuffer;

RealBuffer Copy(const RealNumber* x) {
    RealBuffer copy;
    RealCopy(copy, x);
    return copy;
}
RealBuffer Sum(const RealNumber* a, const RealNumber* b) {
    RealBuffer sum;
    RealAddRaw(sum, a, b, false);
    return sum;
}
RealBuffer Difference(const RealNumber* a, const RealNumber* b) {
    RealBuffer difference;
    RealAddRaw(difference, a, b, true);
    return difference;
}
RealBuffer Product(const RealNumber* a, const RealNumber* b) {
    RealBuffer product;
    RealMulRaw(product, a, b);
    return product;
}
RealBuffer Quotient(const RealNumber* a, const RealNumber* b) {
    RealBuffer quotient;
    RealDivRaw(quotient, a, b);
    return quotient;
}
RealBuffer Half(const RealNumber* x) {
    RealBuffer half;
    RealDivUint(half, x, 2);
    return half;
}
RealBuffer Exp(const RealNumber* x) {
    RealBuffer power;
    RealExpBase(power, x, ExpOfE);
    return power;
}
RealBuffer Inverse(const RealNumber* x) {
    RealBuffer inverse;
    RealReciprocalAny(inverse, x);
    return inverse;
}
RealBuffer Root(const RealNumber* x) {
    RealBuffer root;
    RealSqrt(root, x);
    return root;
}
RealBuffer Ln(const RealNumber* x) {
    RealBuffer ln;
    RealLn(ln, x);
    return ln;
}
RealBuffer LnTwice(const RealNumber* x) {
    RealBuffer ln2;
    LoadConstant(ln2, ConstLn2);
    return Sum(ln2, Ln(x));
}

}  // namespace

void TwinSinh(RealNumber* dest, const RealNumber* x) {
    const int64_t exponent = RealExponent(x);
    if (exponent < -1 || (exponent == -1 && RealLeadingDigits(RealLimbs(x), 1) < 5)) {
        reference::SeriesSinh(dest, x);
        return;
    }
    const RealBuffer e = Exp(x);
    RealCopy(dest, Half(Difference(e, Inverse(e))));
}

void TwinCosh(RealNumber* dest, const RealNumber* x) {
    const RealBuffer e = Exp(x);
    RealCopy(dest, Half(Sum(e, Inverse(e))));
}

void TwinTanh(RealNumber* dest, const RealNumber* x) {
    const RealBuffer one("1");
    const int64_t p = numberContext.precisionDigits;
    if (RealExponent(x) < -1) {
        RealBuffer s;
        RealBuffer c;
        reference::SeriesSinhCosh(s, c, x);
        RealCopy(dest, Quotient(s, c));
        return;
    }
    if (RealCompareUint(x, static_cast<uint64_t>(295 * p / 256 + 1), true) >= 0) {
        RealCopy(dest, one);
        RealSetSign(dest, RealSign(x));
        return;
    }
    RealBuffer twice;
    RealMulUint(twice, x, 2);
    const RealBuffer e = Exp(twice);
    RealCopy(dest, Quotient(Difference(e, one), Sum(e, one)));
}

void TwinAsinh(RealNumber* dest, const RealNumber* x) {
    RealBuffer t = Copy(x);
    RealSetSign(t, 0);
    RealBuffer result;
    if (RealExponent(x) < -1) {
        result = t;
        RealBuffer u = t;
        const RealBuffer w = Product(t, t);
        uint64_t j = 1;
        do {
            u = Product(u, w);
            RealMulUint(u, u, j * j);
            j += 2;
            RealDivUint(u, u, (j - 1) * j);
            RealNegate(u);
            result = Sum(result, u);
        } while (!SeriesIsOver(result, u));
    } else if (2 * RealExponent(x) >= numberContext.precisionDigits) {
        result = LnTwice(t);
    } else {
        result = Ln(Sum(t, Root(Sum(Product(t, t), RealBuffer("1")))));
    }
    RealCopy(dest, result);
    RealSetSign(dest, RealSign(x));
}

void TwinAcosh(RealNumber* dest, const RealNumber* x) {
    const RealBuffer one("1");
    if (2 * RealExponent(x) >= numberContext.precisionDigits) {
        RealCopy(dest, LnTwice(x));
        return;
    }
    const RealBuffer w = Root(Difference(Product(x, x), one));
    if (RealCompareScaled(x, 11, 0) < 0) {
        RealLnSmall(dest, Sum(Difference(x, one), w));
    } else {
        RealLn(dest, Sum(x, w));
    }
}

void TwinAtanh(RealNumber* dest, const RealNumber* x) {
    const RealBuffer one("1");
    if (RealExponent(x) < -2) {
        reference::SeriesAtanh(dest, x);
    } else {
        RealCopy(dest, Half(Ln(Quotient(Sum(one, x), Difference(one, x)))));
    }
}

}  // namespace tallymere::reference
