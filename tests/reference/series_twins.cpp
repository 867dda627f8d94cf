#include "reference/series_twins.h"

#include <vector>

#include "core/real_add.h"
#include "core/real_divide.h"
#include "core/real_multiply.h"

namespace tallymere::reference {

namespace {

// A record of its own for the layout in force.
struct Number {
    std::vector<uint64_t> words = std::vector<uint64_t>(static_cast<size_t>(RealWords()));
    operator RealNumber*() { return RealAt(words.data()); }
};

bool Ends(const RealNumber* sum, const RealNumber* term) {
    return RealIsSpecial(sum) || RealIsSpecial(term) ||
           RealExponent(sum) - RealExponent(term) >= numberContext.precisionDigits - 1;
}

}  // namespace

void SeriesExp(RealNumber* dest, const RealNumber* x) {
    Number sum;
    Number term;
    RealSetOne(sum);
    RealSetOne(term);
    uint64_t j = 0;
    do {
        RealMulRaw(term, term, x);
        j++;
        RealDivUint(term, term, j);
        RealAddRaw(sum, sum, term, false);
    } while (!Ends(sum, term));
    RealCopy(dest, sum);
}

int64_t SeriesAtanh(RealNumber* dest, const RealNumber* x) {
    Number sum;
    Number square;
    Number power;
    Number term;
    RealCopy(sum, x);
    RealCopy(power, x);
    RealMulRaw(square, x, x);
    int64_t terms = 0;
    uint64_t k = 1;
    do {
        RealMulRaw(power, power, square);
        k += 2;
        RealDivUint(term, power, k);
        RealAddRaw(sum, sum, term, false);
        terms++;
    } while (!Ends(sum, term));
    RealCopy(dest, sum);
    return terms;
}

}  // namespace tallymere::reference
