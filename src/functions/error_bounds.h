// How far the rounded functions may lie from the exact values of their arguments.
//
// An error counts in ulps: units in the last of the p digits of the exact value, of a complex
// result in those of its larger part. A correctly rounded result is within 0.5 ulp. The bounds hold
// for every argument of the domain, up to 100 digits and up to 1,000; from there to 10,000 digits
// errors grow with the number of terms, and docs/accuracy.md has the largest that were found.
//
// Bounds are judged by experiment: tests and tools/accuracy compare with exact values over the
// whole domain. docs/accuracy.md says what each excess comes from.
#pragma once

#include <cstdint>

namespace tallymere {

/// The largest error in ulps.
struct ErrorBound {
    double upTo100;   ///< with a precision of 100 digits at most
    double upTo1000;  ///< with 1,000 at most
};

/// Of every function and operation that has no bound of its own below: the guard digits leave two
/// hundredths of an ulp beside the half of the rounding. Combinations and permutations of a number
/// that is no integer have no bound.
inline constexpr double UsualErrorBound = 0.52;

inline constexpr ErrorBound ExpErrorBound = {2, 12};  ///< of all three bases
inline constexpr ErrorBound LnErrorBound = {0.75, 0.6};
inline constexpr ErrorBound Log2ErrorBound = {0.65, 0.6};
inline constexpr ErrorBound Log10ErrorBound = {0.95, 0.7};

inline constexpr ErrorBound SqrtErrorBound = {0.56, 0.52};
inline constexpr ErrorBound PowerErrorBound = {0.75, 2};
inline constexpr ErrorBound PowerIntErrorBound = {1.5, 1.5};
inline constexpr ErrorBound PowerOfTwoErrorBound = {0.55, 0.52};
inline constexpr ErrorBound RootErrorBound = {0.75, 2};

/// Of x^y and of roots where the exponent of x has more than three digits: so much, and another ulp
/// for every hundred of the result's exponent. Guard digits are lost to ln x, so that below 16
/// digits there may be no right digit.
inline constexpr double FarBaseErrorBound = 2;
inline constexpr double FarBaseExponentPerUlp = 100;
inline constexpr int64_t FarBaseLeastPrecision = 16;

/// Of sine, cosine and tangent in radians, degrees and gon, next to their zeros and poles as well.
inline constexpr ErrorBound CircularErrorBound = {0.51, 0.51};

/// Of the inverse functions in degrees and gon.
inline constexpr ErrorBound ArcInUnitsErrorBound = {0.51, 0.51};

inline constexpr ErrorBound DegToRadErrorBound = {0.6, 0.6};
inline constexpr ErrorBound RadToDegErrorBound = {0.7, 0.7};
inline constexpr ErrorBound RadToGonErrorBound = {0.7, 0.7};

inline constexpr ErrorBound SinhErrorBound = {2.5, 12};
inline constexpr ErrorBound CoshErrorBound = {2, 12};
inline constexpr ErrorBound TanhErrorBound = {90, 600};
inline constexpr ErrorBound AsinhErrorBound = {0.75, 0.9};
inline constexpr ErrorBound AtanhErrorBound = {0.7, 0.75};

/// From x = 1.01 on. Nearer to 1, for a result with the exponent -s: UsualErrorBound and so many
/// times 10^(2 s - 2).
inline constexpr ErrorBound AcoshErrorBound = {0.55, 1.5};
inline constexpr double AcoshNearOneFactor = 1;

inline constexpr ErrorBound ComplexMulErrorBound = {12, 12};
inline constexpr ErrorBound ComplexDivErrorBound = {25, 25};
inline constexpr ErrorBound ComplexReciprocalErrorBound = {20, 20};
inline constexpr ErrorBound ComplexPowerIntErrorBound = {200, 200};  ///< for |n| up to 12
inline constexpr ErrorBound ComplexRootErrorBound = {2.5, 15};       ///< not of degrees 2 and 3

/// Of the raw square and cube root at the layout in force, in units of the last place.
inline constexpr int64_t RawRootErrorBound = 20;

/// Of the raw sine and cosine of arguments below 10 at the layout in force, for results from 0.1
/// on, in units of the last place.
inline constexpr int64_t RawSinCosErrorBound = 20;

}  // namespace tallymere
