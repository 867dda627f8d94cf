#include "reference/factor_run_twins.h"

#include <vector>

namespace tallymere::reference {

namespace {

std::u16string Digits(uint64_t number, int base, bool grouped) {
    const int groupSize = base == 10 ? 3 : 4;
    std::u16string text;
    int written = 0;
    do {
        if (grouped && written > 0 && written % groupSize == 0) {
            text = u"," + text;
        }
        text = u"0123456789ABCDEF"[number % static_cast<uint64_t>(base)] + text;
        number /= static_cast<uint64_t>(base);
        written++;
    } while (number != 0);
    return text;
}

std::vector<uint64_t> DivisorsOf(uint64_t n) {
    std::vector<uint64_t> lower;
    std::vector<uint64_t> upper;
    for (uint64_t d = 1; d * d <= n; d++) {
        if (n % d == 0) {
            lower.push_back(d);
            if (d * d != n) {
                upper.push_back(n / d);
            }
        }
    }
    lower.insert(lower.end(), upper.rbegin(), upper.rend());
    return lower;
}

}  // namespace

std::u16string TwinFactorLines(uint64_t first, int64_t interval, int base, bool grouped) {
    std::u16string text;
    for (uint64_t n = first; n < first + static_cast<uint64_t>(interval); n++) {
        text += Digits(n, base, grouped) + u" = ";
        if (n == 1) {
            text += u"Number has no prime factors!";
        }
        uint64_t rest = n;
        for (uint64_t d = 2; rest > 1; d = d * d > rest ? rest : d + 1) {
            uint64_t multiplicity = 0;
            for (; rest % d == 0; rest /= d) {
                multiplicity++;
            }
            if (multiplicity == 0) {
                continue;
            }
            text += Digits(d, base, grouped);
            if (multiplicity >= 2) {
                text += u"^" + Digits(multiplicity, base, grouped);
            }
            if (rest > 1) {
                text += u" * ";
            }
        }
        text += u"\r\n";
    }
    return text;
}

std::u16string TwinDivisorLines(uint64_t first, int64_t interval, int base, bool grouped,
                                bool showCount) {
    std::u16string text;
    for (uint64_t n = first; n < first + static_cast<uint64_t>(interval); n++) {
        text += u"D " + Digits(n, base, grouped) + u" = { ";
        const std::vector<uint64_t> divisors = DivisorsOf(n);
        for (size_t i = 0; i < divisors.size(); i++) {
            text += Digits(divisors[i], base, grouped);
            if (i + 1 < divisors.size()) {
                text += u", ";
            }
        }
        text += u" }";
        if (showCount) {
            text += u"  [" + Digits(divisors.size(), 10, false) + u"]";
        }
        text += u"\r\n";
    }
    return text;
}

}  // namespace tallymere::reference
