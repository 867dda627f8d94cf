#include "reference/real_twins.h"

#include <utility>

#include "core/number_context.h"

namespace tallymere::reference {

namespace {

__extension__ typedef unsigned __int128 Word128;

constexpr uint64_t Base = 10'000'000'000'000'000'000u;
constexpr int64_t LargestExponent = 0x3FFFFFFFFFFFFFFF;

int64_t TopDigits() {
    return numberContext.topLimbDigits;
}
size_t LimbCount() {
    return static_cast<size_t>(numberContext.realLimbs);
}

Real Special(uint64_t mark, uint64_t sign) {
    Real x{-LargestExponent - 1, sign, Limbs(LimbCount(), 0)};
    x.limbs[0] = mark;
    return x;
}

bool IsZero(const Real& x) {
    return IsSpecial(x) && x.limbs[0] == 0;
}

// The number of these limbs, in normal form or all zero, with its exponent held to the range.
RealResult Make(LimbResult parts, int64_t exponent, uint64_t sign) {
    if (parts.limbs[0] == 0) {
        return {Special(0, sign), parts.guard, CalcErrorNone};
    }
    if (exponent > LargestExponent) {
        return {Special(1, sign), parts.guard,
                numberContext.reportOverflow != 0 ? CalcErrorOverflow : CalcErrorNone};
    }
    if (exponent < -LargestExponent) {
        return {Special(0, sign), parts.guard,
                numberContext.reportUnderflow != 0 ? CalcErrorUnderflow : CalcErrorNone};
    }
    return {{exponent, sign, std::move(parts.limbs)}, parts.guard, CalcErrorNone};
}

// a + b with guard limb below b, moved right by a digit where the sum has one more.
RealResult AddMagnitudes(const Limbs& a, const Limbs& b, uint64_t guard, int64_t exponent,
                         uint64_t sign) {
    LimbResult sum{a, guard};
    uint64_t carry = 0;
    for (size_t i = a.size(); i-- > 0;) {
        const Word128 total = Word128{a[i]} + b[i] + carry;
        carry = total >= Base ? 1 : 0;
        sum.limbs[i] = static_cast<uint64_t>(total - (carry != 0 ? Base : 0));
    }
    const int64_t t = TopDigits();
    if (t <= 18 && sum.limbs[0] >= TenTo(t)) {
        sum = ShiftRightDigits(sum.limbs, 1, guard);
        exponent++;
    } else if (t == 19 && carry != 0) {
        sum = ShiftRightDigits(sum.limbs, 1, guard);
        sum.limbs[0] += TenTo(18);
        exponent++;
    }
    return Make(std::move(sum), exponent, sign);
}

// a - b with guard limb below b, in normal form.
RealResult SubtractMagnitudes(const Limbs& a, const Limbs& b, uint64_t guard, int64_t exponent,
                              uint64_t sign) {
    Limbs difference = a;
    uint64_t borrow = guard != 0 ? 1 : 0;
    for (size_t i = a.size(); i-- > 0;) {
        const Word128 taken = Word128{b[i]} + borrow;
        borrow = a[i] < taken ? 1 : 0;
        difference[i] = static_cast<uint64_t>(a[i] + (borrow != 0 ? Word128{Base} : 0) - taken);
    }
    const LimbResult normal = Normalise(difference, guard != 0 ? Base - guard : 0);
    return Make(normal, exponent - normal.count, sign);
}

// 2 with exponent 0 in the current layout.
Real Two() {
    Real two{0, 0, Limbs(LimbCount(), 0)};
    two.limbs[0] = 2 * TenTo(TopDigits() - 1);
    return two;
}

// The first 19 digits of a mantissa.
uint64_t LeadingDigits(const Limbs& limbs) {
    const int64_t t = TopDigits();
    const uint64_t next = limbs.size() > 1 ? limbs[1] : 0;
    return limbs[0] * TenTo(19 - t) + next / TenTo(t);
}

}  // namespace

Real Read(const RealNumber* x) {
    const uint64_t* limbs = &x->header + 1;
    return {static_cast<int64_t>(x->header) >> 1, x->header & 1, Limbs(limbs, limbs + LimbCount())};
}

bool IsSpecial(const Real& x) {
    return x.exponent == -LargestExponent - 1;
}

RealResult Add(const Real& a, const Real& b, bool subtract) {
    const uint64_t signA = a.sign;
    const uint64_t signB = subtract ? 1 - b.sign : b.sign;
    if (IsZero(a)) {
        return {{b.exponent, signB, b.limbs}, 0, CalcErrorNone};
    }
    if (IsZero(b)) {
        return {a, 0, CalcErrorNone};
    }
    if (a.exponent != b.exponent) {
        const bool largeIsA = a.exponent > b.exponent;
        const Real& large = largeIsA ? a : b;
        const Real& small = largeIsA ? b : a;
        const uint64_t sign = largeIsA ? signA : signB;
        const LimbResult shifted = ShiftRightFar(small.limbs, large.exponent - small.exponent);
        return signA == signB
                   ? AddMagnitudes(large.limbs, shifted.limbs, shifted.guard, large.exponent, sign)
                   : SubtractMagnitudes(large.limbs, shifted.limbs, shifted.guard, large.exponent,
                                        sign);
    }
    if (signA == signB) {
        return AddMagnitudes(a.limbs, b.limbs, 0, a.exponent, signA);
    }
    return a.limbs >= b.limbs ? SubtractMagnitudes(a.limbs, b.limbs, 0, a.exponent, signA)
                              : SubtractMagnitudes(b.limbs, a.limbs, 0, a.exponent, signB);
}

RealResult Multiply(const Real& a, const Real& b) {
    const uint64_t sign = a.sign ^ b.sign;
    if (IsZero(a) || IsZero(b)) {
        return {Special(0, sign), 0, CalcErrorNone};
    }
    const LimbResult product = Multiply(a.limbs, b.limbs);
    return Make(product, a.exponent + b.exponent + (product.count == 0 ? 1 : 0), sign);
}

RealResult MultiplyByUint(const Real& x, uint64_t k) {
    if (k == 0) {
        return {Special(0, x.sign), 0, CalcErrorNone};
    }
    // One limb more than x has, in front; the last one is the guard limb.
    Limbs product(x.limbs.size() + 1, 0);
    uint64_t carry = 0;
    for (size_t i = x.limbs.size(); i-- > 0;) {
        const Word128 sum = Word128{x.limbs[i]} * k + carry;
        product[i + 1] = static_cast<uint64_t>(sum % Base);
        carry = static_cast<uint64_t>(sum / Base);
    }
    product[0] = carry;
    const uint64_t guard = product.back();
    product.pop_back();
    const LimbResult normal = Normalise(product, guard);
    return Make(normal, x.exponent + 19 - normal.count, x.sign);
}

RealResult DivideByUint(const Real& x, uint64_t d) {
    const size_t n = x.limbs.size();
    const size_t skipped = x.limbs[0] < d ? 1 : 0;
    Limbs dividend(x.limbs.begin() + static_cast<int64_t>(skipped), x.limbs.end());
    dividend.resize(n + 1, 0);
    uint64_t remainder = skipped != 0 ? x.limbs[0] : 0;
    Limbs quotient = Divide(dividend, d, remainder);
    const uint64_t guard = quotient.back();
    quotient.pop_back();
    const int64_t shift = TopDigits() - CountDigits(quotient[0]);
    const LimbResult moved = shift >= 0 ? ShiftLeftDigits(quotient, shift, guard)
                                        : ShiftRightDigits(quotient, -shift, guard);
    return Make(moved, x.exponent - shift - (skipped != 0 ? 19 : 0), x.sign);
}

RealResult Reciprocal(const Real& x) {
    const int64_t p = numberContext.precisionDigits;
    const Real mantissa{0, 0, x.limbs};
    const double leading = static_cast<double>(LeadingDigits(x.limbs));
    const double inverse = 1e37 / leading;
    uint64_t seed = static_cast<uint64_t>(inverse);
    if (seed < TenTo(18)) {
        seed = TenTo(18);
    }
    int64_t seedExponent = -1;
    if (seed >= Base) {
        seed = TenTo(18);
        seedExponent = 0;
    }
    const int64_t t = TopDigits();
    Real y{seedExponent, 0, Limbs(LimbCount(), 0)};
    y.limbs[0] = seed / TenTo(19 - t);
    if (y.limbs.size() > 1) {
        y.limbs[1] = seed % TenTo(19 - t) * TenTo(t);
    }
    uint64_t guard = 0;
    int64_t c = 15;
    do {
        const Real w = Multiply(mantissa, y).value;
        const Real correction = Add(Two(), w, true).value;
        RealResult next = Multiply(y, correction);
        y = std::move(next.value);
        guard = next.guard;
        c *= 2;
    } while (c < p);
    return Make({y.limbs, guard}, y.exponent - x.exponent, x.sign);
}

RealResult Divide(const Real& a, const Real& b) {
    const RealResult reciprocal = Reciprocal(b);
    RealResult quotient = Multiply(a, reciprocal.value);
    if (reciprocal.code != CalcErrorNone) {
        quotient.code = reciprocal.code;
    }
    return quotient;
}

DivModResult DivMod(const Real& a, const Real& b) {
    const uint64_t sign = a.sign ^ b.sign;
    const int64_t q = a.limbs < b.limbs ? 1 : 0;
    if (a.exponent < b.exponent || (a.exponent == b.exponent && q == 1)) {
        return {Special(0, sign), a, CalcErrorNone};
    }
    const int64_t exponent = a.exponent - b.exponent - q;
    if (exponent > LargestExponent) {
        return {Special(2, 0), Special(2, 0),
                numberContext.reportOverflow != 0 ? CalcErrorOverflow : CalcErrorNone};
    }
    // A limb in front takes the digit that a shifted remainder has more.
    Limbs remainder = a.limbs;
    Limbs divisor = b.limbs;
    remainder.insert(remainder.begin(), 0);
    divisor.insert(divisor.begin(), 0);
    const uint64_t topUnit = TenTo(TopDigits() - 1);
    Limbs quotient(LimbCount(), 0);
    size_t limb = 0;
    uint64_t unit = topUnit;
    for (int64_t made = 0; made <= exponent; made++) {
        if (made > 0 || q == 1) {
            remainder = ShiftLeftDigits(remainder, 1, 0).limbs;
        }
        uint64_t digit = 0;
        while (remainder >= divisor) {
            uint64_t borrow = 0;
            for (size_t i = remainder.size(); i-- > 0;) {
                const Word128 taken = Word128{divisor[i]} + borrow;
                borrow = remainder[i] < taken ? 1 : 0;
                remainder[i] =
                    static_cast<uint64_t>(remainder[i] + (borrow != 0 ? Word128{Base} : 0) - taken);
            }
            digit++;
        }
        if (limb < quotient.size()) {
            quotient[limb] += digit * unit;
            unit /= 10;
            if (unit == 0) {
                unit = TenTo(18);
                limb++;
            }
        }
    }
    remainder.erase(remainder.begin());
    const LimbResult rest = Normalise(remainder, 0);
    const RealResult made = Make(rest, b.exponent - rest.count, sign);
    return {{exponent, sign, quotient}, made.value, made.code};
}

}  // namespace tallymere::reference
