// Arguments for functions: over the whole domain, and where the methods change or digits cancel.
// Native only.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "support/mpfr_oracle.h"
#include "support/random_source.h"

namespace tallymere::testing_support {

/// A point near which arguments are drawn, with so many digits and more; one of a family, by
/// chance.
using SpecialPoint = std::function<Float(RandomSource& random, int64_t digits)>;

/// The points of a text such as "0.5" or "-1e3".
SpecialPoint PointAt(std::string_view decimal);

/// 10^j for j from `low` to `high`.
SpecialPoint PowersOfTen(int64_t low, int64_t high);

/// j / divisor for j from `low` to `high`.
SpecialPoint Fractions(int64_t low, int64_t high, uint64_t divisor);

/// j * pi / 4, j mostly small and sometimes up to 10^largestExponent.
SpecialPoint QuartersOfPi(int64_t largestExponent);

/// 10^j * 1.2^(k - 1/2) * 1.01^(l - 1/2), one of the factors or both left out by chance: where the
/// reductions by powers of 12 and of 101 change.
SpecialPoint LogarithmicSteps(int64_t lowestPower, int64_t highestPower);

/// ln of such a point, divided by ln(base) if base is not 0: where the exponential changes.
SpecialPoint ExponentialSteps(unsigned long base, int64_t lowestPower, int64_t highestPower);

/// tan of odd multiples of arctan(1/21) / 2, or of multiples of arctan(1/21) plus odd multiples of
/// arctan(1/351) / 2, or the inverse of that.
SpecialPoint TangentSteps();

/// (j / 50)^degree * 10^e: where the seeds of a root change, its exact results, and what is tied
/// to exponents.
SpecialPoint PerfectPowers(unsigned long degree, int64_t largestExponent);

/// What real arguments may be.
struct ArgumentDomain {
    int64_t leastExponent = -1'000'000;
    int64_t greatestExponent = 1'000'000;
    bool negative = true;
    std::vector<SpecialPoint> points;
    bool pointsOnly = false;  ///< no other arguments
};

/// Draws a finite non-zero number in the current layout: ordinary, tiny, huge, with few digits, or
/// within three units in the last place of a special point.
void DrawArgument(RandomSource& random, RealNumber* dest, const ArgumentDomain& domain);

/// Draws an integer from `low` to `high`, both of them 0 or above: small ones as often as large
/// ones.
int64_t DrawInteger(RandomSource& random, int64_t low, int64_t high);

/// The same as a number in the current layout, as near as its digits come.
void DrawIntegerArgument(RandomSource& random, RealNumber* dest, int64_t low, int64_t high);

}  // namespace tallymere::testing_support
