// Residues modulo one number against GMP.
#include "exact/uint_modulus.h"

#include <gtest/gtest.h>

#include <vector>

#include "core/scratch.h"
#include "support/exact_oracle.h"

namespace tallymere {
namespace {

using namespace testing_support;

// A modulus of all the limbs of the width, odd or even, often near a power of 2^64.
void FillModulus(RandomSource& random, UintBuffer& m) {
    FillUint(random, m);
    uint64_t& top = m.Get()[m.LimbCount() - 1];
    if (top == 0) {
        top = random.Below(2) == 0 ? 1 : random.Word() | 1;
    }
}

TEST(UintModulusOracle, GmpAgreesOnSumsAndProducts) {
    RandomSource random;
    for (const int64_t limbs : {1, 2, 3, 7, 26, 65}) {
        WidthScope scope(limbs);
        UintBuffer m;
        UintBuffer a;
        UintBuffer b;
        for (int round = 0; round < TestRounds(3'000); round++) {
            FillModulus(random, m);
            FillUint(random, a);
            FillUint(random, b);
            std::vector<uint64_t> room(static_cast<size_t>(UintModulusRoom(limbs)));
            const UintModulus modulus = PrepareUintModulus(room.data(), m, limbs);
            UintBuffer x;
            UintBuffer y;
            UintResidueFrom(x, a, limbs, modulus);
            UintResidueFrom(y, b, limbs, modulus);
            const auto expectResult = [&](const UintBuffer& residue, const Integer& exact) {
                Integer expected;
                mpz_tdiv_r(expected, exact, LimbsView(m));
                UintBuffer result;
                UintResidueTo(result, residue, modulus);
                ASSERT_EQ(mpz_cmp(LimbsView(result), expected), 0)
                    << a.Text() << " " << b.Text() << " mod " << m.Text();
            };
            Integer exact;
            UintBuffer residue;
            UintResidueAdd(residue, x, y, modulus);
            mpz_add(exact, LimbsView(a), LimbsView(b));
            ASSERT_NO_FATAL_FAILURE(expectResult(residue, exact));
            UintResidueMultiply(residue, x, y, modulus);
            mpz_mul(exact, LimbsView(a), LimbsView(b));
            ASSERT_NO_FATAL_FAILURE(expectResult(residue, exact));
            UintResidueSquare(y, y, modulus);
            mpz_mul(exact, LimbsView(b), LimbsView(b));
            ASSERT_NO_FATAL_FAILURE(expectResult(y, exact));
            // Products are residues that need not be below the modulus.
            UintResidueAdd(residue, residue, y, modulus);
            mpz_addmul(exact, LimbsView(a), LimbsView(b));
            ASSERT_NO_FATAL_FAILURE(expectResult(residue, exact));
            UintResidueAdd(x, x, x, modulus);
            mpz_mul_ui(exact, LimbsView(a), 2);
            ASSERT_NO_FATAL_FAILURE(expectResult(x, exact));
        }
    }
}

}  // namespace
}  // namespace tallymere
