// What the search for exact roots takes of CoreScratch at its longest numbers: always within its
// bounds, and given back.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "algebra/exact_equation_testing.h"
#include "algebra/rational_roots.h"
#include "support/memory_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// Solves (x - 1) (x^2 - 2) times so many factors x at a precision.
void Measure(int64_t zeros, int64_t digits, int64_t precision, int64_t expectedBytes) {
    EquationScope scope(precision);
    std::vector<std::string> coefficients = {"1", "-1", "-2", "2"};
    Lines values = {"1.414e0 0", "1e0 0", "-1.414e0 0"};
    coefficients.insert(coefficients.end(), static_cast<size_t>(zeros), "0");
    values.insert(values.end(), static_cast<size_t>(zeros), "0 0");
    const PolynomialBuffer polynomial(coefficients);
    SolutionBuffer solutions(values);
    const CoreScratchCount count;
    EXPECT_EQ(FindExactRoots(solutions, polynomial, digits), RootOutcome::Found);
    EXPECT_EQ(solutions.Text(0), "sqrt(2)");
    ExpectMostOfCoreScratch("FindExactRoots, degree " + std::to_string(3 + zeros) + ", " +
                                std::to_string(digits) + " digits",
                            expectedBytes);
}

// The most digits that the page asks for by degree, with the precision that it installs.
TEST(ExactRootsMemory, StaysWithinCoreScratch) {
    Measure(0, 2'000, 6'600, 26'560);
    Measure(1, 2'000, 9'046, 26'640);
    Measure(7, 750, 10'000, 17'832);
}

}  // namespace
}  // namespace tallymere
