#include "algebra/newton_polygon.h"

#include <cmath>
#include <numbers>

namespace tallymere {

namespace {

// The angle of the first start value, so that none lies on the real axis.
constexpr double FirstAngle = 0.7;

// A decimal logarithm in two parts, so that exponents of any size leave the fraction its digits.
struct Slope {
    int64_t whole;
    double fraction;  // 0 to 1
};

bool IsSteeper(Slope a, Slope b) {
    return a.whole != b.whole ? a.whole > b.whole : a.fraction > b.fraction;
}

// The logarithm of (|a_i| / |a_j|)^(1 / (j - i)).
Slope SlopeOf(const Magnitude* sizes, int64_t i, int64_t j) {
    const int64_t run = j - i;
    const int64_t rise = sizes[i].exponent - sizes[j].exponent;
    Slope slope{rise / run, static_cast<double>(rise % run)};
    slope.fraction += std::log10(sizes[i].mantissa) - std::log10(sizes[j].mantissa);
    slope.fraction /= static_cast<double>(run);
    const double whole = std::floor(slope.fraction);
    slope.whole += static_cast<int64_t>(whole);
    slope.fraction -= whole;
    return slope;
}

// The other end of the edge of the hull that begins at i.
int64_t EndOfEdge(const Magnitude* sizes, int64_t i, int64_t count) {
    int64_t end = count;
    for (int64_t j = count - 1; j > i; j--) {
        if (!IsZero(sizes[j]) && IsSteeper(SlopeOf(sizes, i, end), SlopeOf(sizes, i, j))) {
            end = j;
        }
    }
    return end;
}

}  // namespace

void ChooseStarts(ComplexNumber* const* starts, const Magnitude* sizes, int64_t count) {
    TALLYMERE_REQUIRE(!IsZero(sizes[0]) && !IsZero(sizes[count]));
    for (int64_t i = 0; i < count;) {
        const int64_t end = EndOfEdge(sizes, i, count);
        const Slope slope = SlopeOf(sizes, i, end);
        const double radius = std::pow(10.0, slope.fraction);
        const double step = 2 * std::numbers::pi / static_cast<double>(end - i);
        for (int64_t k = i; k < end; k++) {
            const double angle =
                FirstAngle + static_cast<double>(i) + step * static_cast<double>(k);
            RealFromDouble(RealPart(starts[k]), radius * std::cos(angle), slope.whole);
            RealFromDouble(ImaginaryPart(starts[k]), radius * std::sin(angle), slope.whole);
        }
        i = end;
    }
}

}  // namespace tallymere
