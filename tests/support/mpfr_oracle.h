// MPFR as the judge of functions: exact arguments, values with more digits than a result has, and
// how far a result lies from them. Native only.
#pragma once

#include <mpfr.h>

#include <cstdint>
#include <functional>
#include <string>

#include "core/real_number.h"
#include "support/gmp_oracle.h"

namespace tallymere::testing_support {

/// A number of MPFR, of `digits` decimal digits at least and with the widest exponents that MPFR
/// has.
class Float {
public:
    explicit Float(int64_t digits);
    Float(const Float& other);
    Float& operator=(const Float& other);
    ~Float() { mpfr_clear(value_); }

    operator mpfr_ptr() { return value_; }
    operator mpfr_srcptr() const { return value_; }

private:
    mpfr_t value_;
};

/// The decimal exponent of the leading digit of a finite non-zero x, or one less.
int64_t ExponentOf(const Float& x);

/// A finite number: mantissa * 10^(exponent - digits + 1). The mantissa has its sign and `digits`
/// digits, or is 0.
struct DecimalValue {
    Integer mantissa;
    int64_t exponent = 0;
    int64_t digits = 1;

    int Sign() const { return mantissa.Sign(); }
    bool IsZero() const { return mantissa.Sign() == 0; }
};

/// The value of a finite x in the current layout.
DecimalValue DecimalOf(const RealNumber* x);

/// Makes a number in the current layout of a value of p digits.
void RealFromDecimal(RealNumber* dest, const DecimalValue& value);

/// x rounded to the p digits of the current layout.
DecimalValue DecimalNear(const Float& x);

/// x moved by so many units in its last place; x is not 0 and does not become 0.
DecimalValue Neighbour(const DecimalValue& x, int64_t steps);

/// The value with a relative error below 10^-digits; exact where it has so few digits.
Float FloatOf(const DecimalValue& x, int64_t digits);

/// The same for x / 10^x.exponent, whose magnitude lies in [1, 10).
Float SignificandOf(const DecimalValue& x, int64_t digits);

/// value * 10^scale with a relative error below 10^(lost - digits), where `digits` is what the
/// computation was asked for. A NaN or an infinity says that the
/// arguments lie outside the domain.
struct FunctionValue {
    Float value;
    int64_t scale = 0;
    int64_t lost = 0;
};

/// A computation of what a result should be, to be asked for as many digits as it takes.
using ExactComputation = std::function<FunctionValue(int64_t digits)>;

/// How a result compares with the exact value. One ulp is 10^(exponent - p + 1).
struct Deviation {
    double ulps = 0;     ///< infinite for a result that is infinite or NaN
    double logUlps = 0;  ///< log10 of it, also beyond the range of double; for an exact value of
                         ///< zero in units of the last place of the result, rounded up
    bool correctlyRounded = true;  ///< it is the exact value rounded half away from zero
    bool inDomain = true;          ///< otherwise nothing else is set
    int64_t exponent = 0;          ///< of the exact value, or of the result where that is zero
    bool isZero = false;           ///< the exact value is zero
};

/// Compares a result in the current layout.
Deviation CompareResult(const RealNumber* result, const ExactComputation& exact);

}  // namespace tallymere::testing_support
