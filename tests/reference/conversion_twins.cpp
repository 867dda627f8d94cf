#include "reference/conversion_twins.h"

#include <algorithm>

#include "core/number_context.h"

namespace tallymere::reference {

Limbs TwinDecimalLimbs(std::vector<uint64_t> words) {
    __extension__ typedef unsigned __int128 Wide128;
    Limbs limbs;
    for (;;) {
        while (!words.empty() && words.back() == 0) {
            words.pop_back();
        }
        if (words.empty()) {
            break;
        }
        Wide128 remainder = 0;
        for (size_t k = words.size(); k-- > 0;) {
            const Wide128 value = (remainder << 64) | words[k];
            words[k] = static_cast<uint64_t>(value / TenTo(19));
            remainder = value % TenTo(19);
        }
        limbs.push_back(static_cast<uint64_t>(remainder));
    }
    std::reverse(limbs.begin(), limbs.end());
    return limbs;
}

LimbResult TwinRealFromWords(const std::vector<uint64_t>& words) {
    Limbs limbs = TwinDecimalLimbs(words);
    const auto produced = static_cast<int64_t>(limbs.size());
    const int64_t digits = CountDigits(limbs.front());
    const auto n = static_cast<size_t>(numberContext.realLimbs);
    const uint64_t below = limbs.size() > n ? limbs[n] : 0;
    limbs.resize(n, 0);
    const int64_t up = numberContext.topLimbDigits - digits;
    LimbResult result =
        up >= 0 ? ShiftLeftDigits(limbs, up, below) : ShiftRightDigits(limbs, -up, below);
    result.count = 19 * produced - 20 + digits;
    return result;
}

}  // namespace tallymere::reference
