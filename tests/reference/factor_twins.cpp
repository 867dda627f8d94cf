#include "reference/factor_twins.h"

#include <array>
#include <numeric>
#include <vector>

#include "exact/big_uint.h"
#include "exact/big_uint_division.h"
#include "exact/big_uint_multiply.h"
#include "exact/big_uint_roots.h"

namespace tallymere::reference {

namespace {

using Value = std::array<uint64_t, 2>;

// The next candidate: a prime up to 13, or a number without any of these as factor.
uint64_t NextCandidate(uint64_t d) {
    do {
        d++;
    } while (d > 13 ? std::gcd(d, uint64_t{30'030}) != 1
                    : d != 2 && d != 3 && d != 5 && d != 7 && d != 11 && d != 13);
    return d;
}

void Store(FactorList* list, const Value& prime, uint64_t multiplicity) {
    if (list->count < 0 || list->count >= 26) {
        list->count = -1;
        return;
    }
    list->primes[list->count][0] = prime[0];
    list->primes[list->count][1] = prime[1];
    list->multiplicities[list->count] = multiplicity;
    list->count++;
}

struct LayerEntry {
    Value value;
    std::vector<uint64_t> available;
};

void Insert(DivisorList* list, const Value& value) {
    if (list->count < 0 || list->count > 16'383) {
        list->count = -1;
        return;
    }
    int64_t place = list->count;
    while (place > 0 && BigUintCompare(list->divisors + 2 * (place - 1), value.data()) > 0) {
        BigUintCopy(list->divisors + 2 * place, list->divisors + 2 * (place - 1));
        place--;
    }
    BigUintCopy(list->divisors + 2 * place, value.data());
    list->count++;
}

bool Holds(const std::vector<LayerEntry>& layer, const Value& value) {
    for (const LayerEntry& entry : layer) {
        if (entry.value == value) {
            return true;
        }
    }
    return false;
}

}  // namespace

void TwinFactorizeNumber(FactorList* list, const uint64_t* n) {
    list->count = 0;
    Value rest = {n[0], n[1]};
    uint64_t d = 1;
    while (rest[1] != 0 || rest[0] >= 2) {
        Value root;
        BigUintSquareRoot(root.data(), rest.data());
        uint64_t remainder = 1;
        // A candidate that was a factor is not tried again.
        do {
            d = NextCandidate(d);
            if (d > root[0]) {
                break;
            }
            BigUintDivideSmall(nullptr, &remainder, rest.data(), d, 0);
        } while (remainder != 0);
        if (remainder != 0) {
            Store(list, rest, 1);
            return;
        }
        uint64_t multiplicity = 0;
        while (remainder == 0) {
            BigUintDivideSmall(rest.data(), nullptr, rest.data(), d, 0);
            multiplicity++;
            BigUintDivideSmall(nullptr, &remainder, rest.data(), d, 0);
        }
        Store(list, {d, 0}, multiplicity);
    }
}

void TwinBuildDivisorList(DivisorList* list, const FactorList* factors) {
    if (factors->count < 0) {
        list->count = -1;
        return;
    }
    const auto primes = static_cast<size_t>(factors->count);
    list->count = 0;
    Insert(list, {1, 0});
    std::vector<LayerEntry> layer;
    for (size_t i = 0; i < primes; i++) {
        LayerEntry entry = {{factors->primes[i][0], factors->primes[i][1]}, {}};
        for (size_t j = 0; j < primes; j++) {
            const uint64_t multiplicity = factors->multiplicities[j];
            if (multiplicity < 1 || multiplicity > 255) {
                list->count = -1;
                break;
            }
            entry.available.push_back(multiplicity - (j == i ? 1 : 0));
        }
        Insert(list, entry.value);
        layer.push_back(entry);
    }
    while (!layer.empty() && list->count >= 0) {
        std::vector<LayerEntry> next;
        for (const LayerEntry& entry : layer) {
            for (size_t j = 0; j < primes; j++) {
                if (entry.available[j] == 0) {
                    continue;
                }
                LayerEntry product = entry;
                BigUintMul(product.value.data(), entry.value.data(), factors->primes[j]);
                if (Holds(next, product.value)) {
                    continue;
                }
                if (next.size() == 4'096) {
                    list->count = -1;
                    break;
                }
                product.available[j]--;
                Insert(list, product.value);
                next.push_back(product);
            }
        }
        layer = next;
    }
}

}  // namespace tallymere::reference
