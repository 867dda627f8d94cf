#include "algebra/magnitude.h"

#include <cmath>

#include "core/contract.h"
#include "core/real_integer.h"

namespace tallymere {

namespace {

// Beyond so many decimal orders a double does not see the smaller summand.
constexpr int64_t SeenOrders = 20;

constexpr int64_t MantissaDigits = 17;

double TenToMinus(int64_t k) {
    double power = 1;
    for (; k > 0; k--) {
        power /= 10;
    }
    return power;
}

}  // namespace

Magnitude MakeMagnitude(double value, int64_t exponent) {
    TALLYMERE_REQUIRE(value >= 0 && std::isfinite(value));
    if (value == 0) {
        return {};
    }
    while (value >= 10) {
        value /= 10;
        exponent++;
    }
    while (value < 1) {
        value *= 10;
        exponent--;
    }
    return {value, exponent};
}

Magnitude MagnitudeOf(const RealNumber* x) {
    TALLYMERE_REQUIRE(!RealIsSpecial(x) || RealIsZero(x));
    if (RealIsSpecial(x)) {
        return {};
    }
    const uint64_t digits = RealLeadingDigits(RealLimbs(x), MantissaDigits);
    return MakeMagnitude(static_cast<double>(digits) / 1e16, RealExponent(x));
}

Magnitude MagnitudeOf(const ComplexNumber* z) {
    const Magnitude x = MagnitudeOf(RealPart(z));
    const Magnitude y = MagnitudeOf(ImaginaryPart(z));
    return IsZero(x) ? y : IsZero(y) ? x : Root(x * x + y * y, 2);
}

Magnitude operator+(Magnitude a, Magnitude b) {
    if (IsZero(a) || IsZero(b)) {
        return IsZero(a) ? b : a;
    }
    const Magnitude larger = Larger(a, b);
    const Magnitude smaller = a < b ? a : b;
    const int64_t orders = larger.exponent - smaller.exponent;
    const double seen = orders > SeenOrders ? 0 : smaller.mantissa * TenToMinus(orders);
    return MakeMagnitude(larger.mantissa + seen, larger.exponent);
}

Magnitude operator*(Magnitude a, Magnitude b) {
    return MakeMagnitude(a.mantissa * b.mantissa, a.exponent + b.exponent);
}

Magnitude operator/(Magnitude a, Magnitude b) {
    TALLYMERE_REQUIRE(!IsZero(b));
    return MakeMagnitude(a.mantissa / b.mantissa, a.exponent - b.exponent);
}

Magnitude Excess(Magnitude a, Magnitude b) {
    if (!(b < a)) {
        return {};
    }
    const int64_t orders = a.exponent - b.exponent;
    const double seen = IsZero(b) || orders > SeenOrders ? 0 : b.mantissa * TenToMinus(orders);
    return MakeMagnitude(a.mantissa - seen, a.exponent);
}

Magnitude Root(Magnitude a, int64_t n) {
    TALLYMERE_REQUIRE(n >= 1);
    if (IsZero(a) || n == 1) {
        return a;
    }
    int64_t rest = a.exponent % n;
    rest += rest < 0 ? n : 0;
    const double order = static_cast<double>(rest) + std::log10(a.mantissa);
    return MakeMagnitude(std::pow(10.0, order / static_cast<double>(n)), (a.exponent - rest) / n);
}

bool operator<(Magnitude a, Magnitude b) {
    if (IsZero(a) || IsZero(b)) {
        return IsZero(a) && !IsZero(b);
    }
    return a.exponent != b.exponent ? a.exponent < b.exponent : a.mantissa < b.mantissa;
}

bool IsSurelyBelow(Magnitude a, Magnitude b) {
    return a * MakeMagnitude(1 + MagnitudeMargin) < b;
}

PartSizes PartSizesOf(const ComplexNumber* z) {
    return {MagnitudeOf(RealPart(z)), MagnitudeOf(ImaginaryPart(z))};
}

void RealFromMagnitude(RealNumber* dest, Magnitude a, uint64_t sign) {
    if (IsZero(a)) {
        RealSetZero(dest, 0);
        return;
    }
    RealFromInt(dest, static_cast<int64_t>(a.mantissa * 1e16));
    RealSetExponentAndSign(dest, RealExponent(dest) - 16 + a.exponent, sign);
}

void RealFromDouble(RealNumber* dest, double value, int64_t exponent) {
    RealFromMagnitude(dest, MakeMagnitude(std::fabs(value), exponent), value < 0 ? 1 : 0);
}

}  // namespace tallymere
