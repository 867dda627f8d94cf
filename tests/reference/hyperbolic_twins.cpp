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
Limb LnTwice(RealNumber* dest, const RealNumber* x) {
    RealBuffer ln2;
    LoadConstant(ln2, ConstLn2);
    return RealAddRaw(dest, ln2, Ln(x), false);
}

}  // namespace

Limb TwinSinh(RealNumber* dest, const RealNumber* x) {
    const int64_t exponent = RealExponent(x);
    if (exponent < -1 || (exponent == -1 && RealLeadingDigits(RealLimbs(x), 1) < 5)) {
        reference::SeriesSinh(dest, x);
        return 0;
    }
    const RealBuffer e = Exp(x);
    return RealDivUint(dest, Difference(e, Inverse(e)), 2);
}

Limb TwinCosh(RealNumber* dest, const RealNumber* x) {
    const RealBuffer e = Exp(x);
    return RealDivUint(dest, Sum(e, Inverse(e)), 2);
}

Limb TwinTanh(RealNumber* dest, const RealNumber* x) {
    const RealBuffer one("1");
    const int64_t p = numberContext.precisionDigits;
    if (RealExponent(x) < -1) {
        RealBuffer s;
        RealBuffer c;
        reference::SeriesSinhCosh(s, c, x);
        return RealDivRaw(dest, s, c);
    }
    if (RealCompareUint(x, static_cast<uint64_t>(295 * p / 256 + 1), true) >= 0) {
        RealCopy(dest, one);
        RealSetSign(dest, RealSign(x));
        return 0;
    }
    RealBuffer twice;
    RealMulUint(twice, x, 2);
    const RealBuffer e = Exp(twice);
    return RealDivRaw(dest, Difference(e, one), Sum(e, one));
}

Limb TwinAsinh(RealNumber* dest, const RealNumber* x) {
    RealBuffer t = Copy(x);
    RealSetSign(t, 0);
    RealBuffer result;
    Limb guard = 0;
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
            guard = RealAddRaw(result, result, u, false);
        } while (!SeriesIsOver(result, u));
    } else if (2 * RealExponent(x) >= numberContext.precisionDigits) {
        guard = LnTwice(result, t);
    } else {
        guard = RealLn(result, Sum(t, Root(Sum(Product(t, t), RealBuffer("1")))));
    }
    RealCopy(dest, result);
    RealSetSign(dest, RealSign(x));
    return guard;
}

Limb TwinAcosh(RealNumber* dest, const RealNumber* x) {
    const RealBuffer one("1");
    if (2 * RealExponent(x) >= numberContext.precisionDigits) {
        return LnTwice(dest, x);
    }
    const RealBuffer w = Root(Difference(Product(x, x), one));
    if (RealCompareScaled(x, 11, 0) < 0) {
        return RealLnSmall(dest, Sum(Difference(x, one), w));
    }
    return RealLn(dest, Sum(x, w));
}

Limb TwinAtanh(RealNumber* dest, const RealNumber* x) {
    const RealBuffer one("1");
    if (RealExponent(x) < -2) {
        reference::SeriesAtanh(dest, x);
        return 0;
    }
    return RealDivUint(dest, Ln(Quotient(Sum(one, x), Difference(one, x))), 2);
}

}  // namespace tallymere::reference
