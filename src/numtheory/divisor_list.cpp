#include "numtheory/divisor_list.h"

#include "core/contract.h"
#include "numtheory/wide_integers.h"

namespace tallymere {

namespace {

Wide DivisorAt(const uint64_t* divisors, int64_t i) {
    return WideFromLimbs(divisors + FactorLimbs * i);
}

void StoreDivisor(uint64_t* divisors, int64_t i, Wide value) {
    WideToLimbs(divisors + FactorLimbs * i, value);
}

// The number of divisors; -1 for more than MaxDivisors and for an exponent that is refused.
int64_t CountDivisors(const FactorList& factors) {
    int64_t count = 1;
    bool fits = true;
    for (int64_t i = 0; i < factors.count; i++) {
        const uint64_t multiplicity = factors.multiplicities[i];
        if (multiplicity < 1 || multiplicity > MaxDivisorMultiplicity) {
            return -1;
        }
        if (fits) {
            count *= static_cast<int64_t>(multiplicity) + 1;
            fits = count <= MaxDivisors;
        }
    }
    return fits ? count : -1;
}

// Replaces the ascending set S of `count` numbers by the union of S and the products prime x, x in
// S, which has `newCount` numbers.
//
// The largest numbers come first, from the end of the array down. The products that are still to
// come belong to the numbers 0 to j, the others are the numbers 0 to i; j <= i, since each product
// is above its number. The union of what is to come has at least i + 1 numbers, so nothing is
// overwritten that is still needed.
void JoinMultiples(uint64_t* divisors, int64_t count, int64_t newCount, Wide prime) {
    int64_t i = count - 1;
    int64_t j = count - 1;
    for (int64_t place = newCount - 1; j >= 0; place--) {
        const Wide product = MultiplyLow(DivisorAt(divisors, j), prime);
        const Wide number = DivisorAt(divisors, i);
        if (AtLeast(product, number)) {
            StoreDivisor(divisors, place, product);
            i -= product == number ? 1 : 0;
            j--;
        } else {
            StoreDivisor(divisors, place, number);
            i--;
        }
    }
}

}  // namespace

bool DivisorListIsWellFormed(const DivisorList& list) {
    if (list.count < -1 || list.count > MaxDivisors) {
        return false;
    }
    for (int64_t i = 1; i < list.count; i++) {
        if (!AtLeast(DivisorAt(list.divisors, i), DivisorAt(list.divisors, i - 1))) {
            return false;
        }
    }
    return true;
}

void InsertSortedDivisor(DivisorList* list, const uint64_t* value) {
    TALLYMERE_REQUIRE(list->count >= -1 && list->count <= MaxDivisors);
    if (list->count < 0 || list->count >= MaxDivisors) {
        list->count = -1;
        return;
    }
    const Wide inserted = WideFromLimbs(value);
    int64_t place = list->count;
    for (; place > 0; place--) {
        const Wide other = DivisorAt(list->divisors, place - 1);
        if (AtLeast(inserted, other)) {
            break;
        }
        StoreDivisor(list->divisors, place, other);
    }
    StoreDivisor(list->divisors, place, inserted);
    list->count++;
}

void BuildDivisorList(DivisorList* list, const FactorList* factors) {
    TALLYMERE_REQUIRE(factors->count >= -1 && factors->count <= MaxDistinctPrimes);
    list->count = factors->count < 0 ? -1 : CountDivisors(*factors);
    if (list->count < 0) {
        return;
    }
    StoreDivisor(list->divisors, 0, Widen(1));
    int64_t count = 1;
    for (int64_t i = 0; i < factors->count; i++) {
        const Wide prime = WideFromLimbs(factors->primes[i]);
        const int64_t block = count;
        for (uint64_t k = 0; k < factors->multiplicities[i]; k++) {
            JoinMultiples(list->divisors, count, count + block, prime);
            count += block;
        }
    }
}

}  // namespace tallymere
