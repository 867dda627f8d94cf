// Tangent numbers against a recurrence on the integers of GMP.
#include <gtest/gtest.h>

#include <vector>

#include "functions/tangent_table.h"
#include "support/gmp_oracle.h"
#include "support/real_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// T_1 to T_count, by recurrences on integers (Brent and Harvey, "Fast computation of Bernoulli,
// tangent and secant numbers", algorithm TangentNumbers).
std::vector<Integer> TangentNumbers(size_t count) {
    std::vector<Integer> numbers(count + 1, Integer(1));
    for (size_t k = 2; k <= count; k++) {
        mpz_mul_ui(numbers[k], numbers[k - 1], k - 1);
    }
    Integer part;
    for (size_t k = 2; k <= count; k++) {
        for (size_t j = k; j <= count; j++) {
            mpz_mul_ui(part, numbers[j - 1], j - k);
            mpz_mul_ui(numbers[j], numbers[j], j - k + 2);
            mpz_add(numbers[j], numbers[j], part);
        }
    }
    return numbers;
}

TEST(TangentTableOracle, GivesEveryTangentNumberThatFits) {
    const std::vector<Integer> numbers = TangentNumbers(400);
    for (int64_t p : {1, 19, 20, 57, 100, 1000, 2000}) {
        PrecisionScope scope(p);
        TangentTableScope owner;
        for (size_t k = 1; k <= 400; k++) {
            if (mpz_cmp(numbers[k], PowerOfTenInteger(p)) >= 0) {
                break;
            }
            ASSERT_TRUE(IsExactly(TangentRow(owner.Table(), 0), 0, numbers[k], 0)) << k;
            TangentStep(owner.Table());
            TangentStep(owner.Table());
        }
    }
}

}  // namespace
}  // namespace tallymere
