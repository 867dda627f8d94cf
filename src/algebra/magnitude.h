// Sizes of numbers, for bounds of errors and of distances: a double with an exponent that does not
// run out.
//
// A result is within MagnitudeError of the exact one, relatively, for every operation but Excess;
// whoever needs a bound puts MagnitudeMargin on it at the end, which covers thousands of
// operations.
#pragma once

#include <cstdint>

#include "core/complex_number.h"

namespace tallymere {

inline constexpr double MagnitudeError = 1e-14;
inline constexpr double MagnitudeMargin = 1e-9;

/// mantissa * 10^exponent; the mantissa is 0 or lies in 1 to 10, and 0 has the exponent 0.
struct Magnitude {
    double mantissa = 0;
    int64_t exponent = 0;
};

/// value * 10^exponent, for a finite value of 0 or more.
Magnitude MakeMagnitude(double value, int64_t exponent = 0);

/// |x| and |z| of finite numbers in the layout in force.
Magnitude MagnitudeOf(const RealNumber* x);
Magnitude MagnitudeOf(const ComplexNumber* z);

Magnitude operator+(Magnitude a, Magnitude b);
Magnitude operator*(Magnitude a, Magnitude b);

/// The divisor must not be 0.
Magnitude operator/(Magnitude a, Magnitude b);

/// a - b, or 0 where b is larger. Off by MagnitudeError of a, relatively: where b is nearly as
/// large as a, no digit of it may be right.
Magnitude Excess(Magnitude a, Magnitude b);

/// The n-th root, n >= 1.
Magnitude Root(Magnitude a, int64_t n);

bool operator<(Magnitude a, Magnitude b);

inline bool IsZero(Magnitude a) {
    return a.mantissa == 0;
}
inline Magnitude Larger(Magnitude a, Magnitude b) {
    return a < b ? b : a;
}

/// True when a, with the margin, is surely below b.
bool IsSurelyBelow(Magnitude a, Magnitude b);

/// Sizes of the real and the imaginary part of a number, or bounds of them.
struct PartSizes {
    Magnitude real;
    Magnitude imaginary;
};

/// The sizes of the parts of a finite number in the layout in force.
PartSizes PartSizesOf(const ComplexNumber* z);

inline PartSizes operator+(PartSizes a, PartSizes b) {
    return {a.real + b.real, a.imaginary + b.imaginary};
}
inline PartSizes operator*(PartSizes a, Magnitude factor) {
    return {a.real * factor, a.imaginary * factor};
}

/// What the parts of the product of two numbers can be at most.
inline PartSizes operator*(PartSizes a, PartSizes b) {
    return {a.real * b.real + a.imaginary * b.imaginary,
            a.real * b.imaginary + a.imaginary * b.real};
}

/// The number as it is, with a sign, rounded to the layout in force.
void RealFromMagnitude(RealNumber* dest, Magnitude a, uint64_t sign = 0);

/// dest = value * 10^exponent, for a finite value.
void RealFromDouble(RealNumber* dest, double value, int64_t exponent);

}  // namespace tallymere
