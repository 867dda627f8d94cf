// Steps on values of which it is known how far they may be off, and which of their decisions that
// leaves open. Method: a running bound of the error (N. J. Higham, Accuracy and Stability of
// Numerical Algorithms, section 3.3).
#pragma once

#include <cstdint>

#include "algebra/magnitude.h"
#include "core/real_layout.h"

namespace tallymere {

/// The digits that a layout needs beyond those asked for, so that values which differ by rounding
/// errors alone are taken for equal.
inline constexpr int64_t RoundingNoiseDigits = 19;

/// A value of the number type in force, and how far it may be off: the modulus of the difference.
/// The error of a value of 0 is 0.
struct BoundedValue {
    uint64_t* value;
    Magnitude* error;
};

/// What a sequence of steps has in common. As long as isCertain is true, every decision so far is
/// that of the true values, and all errors are bounds. Exact types have no errors and stay certain.
/// Behind a decision that is open, or a CalcError, errors mean nothing.
struct BoundedSteps {
    int64_t digits;       ///< of the results; what is below 10^-digits is 0
    RealNumber* epsilon;  ///< 10^-digits, or a little below
    uint64_t* product;    ///< room for a value, which every step overwrites
    bool* isCertain;
};

/// True when the precision in force leaves room for rounding noise behind so many digits.
bool ToleratesNoise(int64_t digits);

void CopyBounded(const BoundedValue& dest, const BoundedValue& source);
void ZeroBounded(const BoundedValue& dest);

/// a += factor * b, and each part that is below epsilon becomes 0, also where nothing is added.
void AddProduct(const BoundedSteps& steps, const BoundedValue& a, const BoundedValue& factor,
                const BoundedValue& b);

/// quotient = a / divisor, for which IsZero is false; quotient may be a.
void Divide(const BoundedSteps& steps, const BoundedValue& quotient, const BoundedValue& a,
            const BoundedValue& divisor);

/// Each part that is below epsilon becomes 0.
void SnapToZero(const BoundedSteps& steps, const BoundedValue& a);

bool IsZero(const BoundedSteps& steps, const BoundedValue& a);

/// Notes whether it is sure which of two values has the larger modulus, or that both are the same.
void NoteOrder(const BoundedSteps& steps, const BoundedValue& a, const BoundedValue& b);

/// Rounds a value to steps.digits, half away from zero. With room for rounding noise, it is first
/// rounded to the digits in front of that, so that one that would be a tie but for rounding errors
/// is rounded as a tie.
void RoundBounded(const BoundedSteps& steps, const BoundedValue& a);

/// dest = a value of `sourceDigits` digits, rounded to the layout in force; the errors too.
void ConvertBounded(const BoundedValue& dest, const BoundedValue& source, int64_t sourceDigits);

}  // namespace tallymere
