// GMP as the judge of decimal results: exact values, and what a result may be when the computed
// value lies within known bounds of the exact one. Native only.
#pragma once

#include <gmp.h>

#include <cstdint>
#include <string>

#include "core/real_number.h"

namespace tallymere::testing_support {

/// An integer of GMP.
class Integer {
public:
    Integer() { mpz_init(value_); }
    explicit Integer(uint64_t value) { mpz_init_set_ui(value_, value); }
    Integer(const Integer& other) { mpz_init_set(value_, other.value_); }
    Integer& operator=(const Integer& other) {
        mpz_set(value_, other.value_);
        return *this;
    }
    ~Integer() { mpz_clear(value_); }
    int Sign() const { return mpz_sgn(value_); }
    operator mpz_ptr() { return value_; }
    operator mpz_srcptr() const { return value_; }

private:
    mpz_t value_;
};

/// 10^k for k >= 0, kept for the next call.
const Integer& PowerOfTenInteger(int64_t k);

/// The mantissa of a finite non-zero number in the current layout as an integer of p digits,
/// without its sign.
void ReadMantissa(Integer& mantissa, const RealNumber* x);

/// The positive value numerator / denominator * 10^exponent.
struct ExactValue {
    Integer numerator;
    Integer denominator{1};
    int64_t exponent = 0;
};

/// How far below and above the exact value a computed one may lie, in units of 10^-ErrorDigits of
/// the exact value's last place.
struct ErrorBounds {
    uint64_t below = 0;
    uint64_t above = 0;
};

/// An error of one unit in the last place is 10^ErrorDigits.
inline constexpr int64_t ErrorDigits = 20;

/// A magnitude of p digits: mantissa * 10^(exponent - p + 1).
struct RoundedValue {
    Integer mantissa;
    int64_t exponent = 0;
};

/// The magnitudes that a result may have: the computed value, within `bounds` of the exact one and
/// rounded half up. For bounds of 0 both are the correctly rounded value.
struct AllowedResults {
    RoundedValue least;
    RoundedValue most;
};
AllowedResults RoundExact(const ExactValue& exact, const ErrorBounds& bounds);

/// True when the finite non-zero x is in normal form, with this sign and a magnitude between the
/// two.
bool IsAllowed(const RealNumber* x, uint64_t sign, const AllowedResults& allowed);

/// True when a raw result in normal form and its guard limb, taken as one number of p + 19 digits,
/// lies less than `below` units of that number's last place under the exact value, or at most
/// `above` over it.
bool IsRawWithin(const RealNumber* x, Limb guard, const ExactValue& exact, uint64_t below,
                 uint64_t above);

/// True when x is in normal form and exactly this: value * 10^exponent with the sign, zero for a
/// value of 0.
bool IsExactly(const RealNumber* x, uint64_t sign, const Integer& value, int64_t exponent);

}  // namespace tallymere::testing_support
