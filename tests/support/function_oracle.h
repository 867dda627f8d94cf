// The functions of the program beside MPFR and MPC: a record for each, with the program's own
// rounded form, the exact value to any number of digits, and arguments over its whole domain.
// Native only.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "core/real_rounding.h"
#include "support/function_arguments_oracle.h"
#include "support/mpfr_oracle.h"
#include "support/real_testing.h"

namespace tallymere::testing_support {

/// The arguments of one call, in the current layout. A complex argument is two reals.
struct FunctionArguments {
    std::vector<RealBuffer> reals;
    int64_t n = 0;  ///< the machine integer of integer powers, branches and the like
};

/// The same as exact values.
struct ExactArguments {
    std::vector<DecimalValue> reals;
    int64_t n = 0;
};

/// A function of `reals` real arguments and perhaps an integer with one result, or two for the
/// parts of a complex one.
struct TestedFunction {
    std::string name;
    size_t reals = 1;
    size_t results = 1;
    bool hasInteger = false;
    std::function<void(std::vector<RealBuffer>& results, const FunctionArguments& x)> run;
    std::function<std::vector<FunctionValue>(const ExactArguments& x, int64_t digits)> exact;
    std::function<void(RandomSource& random, FunctionArguments& x)> draw;
};

/// The functions of one kind.
std::vector<TestedFunction> ExponentialFunctions();
std::vector<TestedFunction> RootFunctions();
std::vector<TestedFunction> PowerFunctions();
std::vector<TestedFunction> TrigonometricFunctions();
std::vector<TestedFunction> HyperbolicFunctions();
std::vector<TestedFunction> CombinatoricFunctions();
std::vector<TestedFunction> ComplexFunctions();

/// All of them.
const std::vector<TestedFunction>& TestedFunctions();

/// Arguments of the current layout for a function, by chance.
FunctionArguments DrawArguments(const TestedFunction& function, RandomSource& random);

/// How a call compares with the exact value. Of a complex result `ulps` counts in units of the last
/// place of the larger part, and `partUlps` in units of each part's own.
struct FunctionDeviation {
    double ulps = 0;
    double logUlps = 0;  ///< log10 of it, also beyond the range of double
    double partUlps = 0;
    int wrongRoundings = 0;  ///< parts that are not the exact value rounded half away from zero
    int64_t exponent = 0;    ///< of the exact value or its larger part; 0 for an exact zero
    bool inDomain = true;
};

/// Runs a function and compares. A code that it notes makes the deviation infinite.
FunctionDeviation CompareFunction(const TestedFunction& function, const FunctionArguments& x);

/// The arguments as text, numbers as PlainText.
std::string ArgumentsText(const TestedFunction& function, const FunctionArguments& x);

using ExactFunction = std::function<FunctionValue(const DecimalValue& x, int64_t digits)>;
using ExactFunction2 =
    std::function<FunctionValue(const DecimalValue& a, const DecimalValue& b, int64_t digits)>;

/// The records of real functions of one and of two real arguments.
TestedFunction UnaryFunction(std::string name, RealRoundedUnary run, ExactFunction exact,
                             ArgumentDomain domain);
TestedFunction BinaryFunction(std::string name, RealRoundedBinary run, ExactFunction2 exact,
                              std::function<void(RandomSource&, FunctionArguments&)> draw);

/// A value that says "outside the domain".
FunctionValue OutsideDomain();

/// 10^-k is the distance of |x| from 1, k rounded up; 0 where it is 1 or not near it.
int64_t DigitsNearOne(const DecimalValue& x);

/// ln |x| for a finite non-zero x; `lost` tells what cancels near 1.
FunctionValue LogarithmOf(const DecimalValue& x, int64_t digits);

/// e^x for an x with an absolute error below 10^-digits; the precision of x is worked with.
FunctionValue ExponentialOf(const Float& x);

}  // namespace tallymere::testing_support
