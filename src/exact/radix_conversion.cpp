#include "exact/radix_conversion.h"

namespace tallymere {

int64_t WordsToDecimalLimbs(Limb* end, uint64_t* words, int64_t m) {
    Limb* first = end;
    for (;;) {
        while (m > 0 && words[m - 1] == 0) {
            m--;
        }
        if (m == 0) {
            return end - first;
        }
        Limb remainder = 0;
        for (int64_t i = m - 1; i >= 0; i--) {
            const LimbQuotient parts = DivideByLimbBase({remainder, words[i]});
            words[i] = parts.quotient;
            remainder = parts.remainder;
        }
        *--first = remainder;
    }
}

bool MultiplyAdd(GrowingInteger& x, uint64_t factor, uint64_t addend) {
    for (int64_t i = 0; i < x.length; i++) {
        const Wide sum = wide::Add(wide::Multiply(x.words[i], factor), {0, addend});
        x.words[i] = sum.low;
        addend = sum.high;
    }
    if (addend == 0) {
        return true;
    }
    if (x.length == x.capacity) {
        return false;
    }
    x.words[x.length++] = addend;
    return true;
}

bool MultiplyByPowerOfTen(GrowingInteger& x, uint64_t places) {
    if (x.length == 0) {
        return true;
    }
    for (; places >= DigitsPerLimb; places -= DigitsPerLimb) {
        if (!MultiplyAdd(x, LimbBase, 0)) {
            return false;
        }
    }
    return MultiplyAdd(x, PowerOfTen(static_cast<int64_t>(places)), 0);
}

}  // namespace tallymere
