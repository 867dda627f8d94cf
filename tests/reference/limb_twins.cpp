#include "reference/limb_twins.h"

#include <algorithm>

#include "core/number_context.h"

namespace tallymere::reference {

namespace {

__extension__ typedef unsigned __int128 Word128;

constexpr uint64_t Base = 10'000'000'000'000'000'000u;

// x * y + carry + w split by the base: the remainder comes back, the quotient is the next carry.
uint64_t Step(uint64_t x, uint64_t y, uint64_t& carry, uint64_t w) {
    const Word128 sum = Word128{x} * y + carry + w;
    carry = static_cast<uint64_t>(sum / Base);
    return static_cast<uint64_t>(sum % Base);
}

int64_t TopDigits() {
    return numberContext.topLimbDigits;
}

}  // namespace

uint64_t TenTo(int64_t k) {
    uint64_t power = 1;
    for (int64_t i = 0; i < k; i++) {
        power *= 10;
    }
    return power;
}

int64_t CountDigits(uint64_t v) {
    int64_t digits = 0;
    while (v != 0) {
        v /= 10;
        digits++;
    }
    return digits;
}

LimbResult ShiftRightDigits(const Limbs& src, int64_t k, uint64_t guard) {
    // Each limb of the result is the low k digits of the limb before and the rest of its own.
    LimbResult result{src};
    const uint64_t low = TenTo(k);
    const uint64_t up = TenTo(19 - k);
    for (size_t i = 0; i < src.size(); i++) {
        const uint64_t fromAbove = i == 0 ? 0 : src[i - 1] % low;
        result.limbs[i] = fromAbove * up + src[i] / low;
    }
    result.guard = (src.back() % low) * up + guard / low;
    return result;
}

LimbResult ShiftLeftDigits(const Limbs& src, int64_t k, uint64_t guard) {
    LimbResult result{src};
    const uint64_t up = TenTo(k);
    const uint64_t low = TenTo(19 - k);
    for (size_t i = 0; i < src.size(); i++) {
        const uint64_t below = i + 1 < src.size() ? src[i + 1] : guard;
        result.limbs[i] = (src[i] % low) * up + below / low;
    }
    result.guard = (guard % low) * up;
    return result;
}

LimbResult ShiftRightFar(const Limbs& src, int64_t k) {
    LimbResult result{src};
    if (k >= int64_t{1} << 31) {
        std::fill(result.limbs.begin(), result.limbs.end(), 0);
        return result;
    }
    for (; k >= 19; k -= 19) {
        result.guard = result.limbs.back();
        result.limbs.pop_back();
        result.limbs.insert(result.limbs.begin(), 0);
        if (result.guard == 0 && std::all_of(result.limbs.begin(), result.limbs.end(),
                                             [](uint64_t v) { return v == 0; })) {
            return result;
        }
    }
    return ShiftRightDigits(result.limbs, k, result.guard);
}

LimbResult ShiftLeftFar(const Limbs& src, int64_t k, uint64_t guard) {
    LimbResult result{src, guard};
    int64_t limbsToGo = static_cast<int64_t>(src.size()) + 1;
    for (; k >= 19 && limbsToGo > 0; k -= 19, limbsToGo--) {
        result.limbs.erase(result.limbs.begin());
        result.limbs.push_back(result.guard);
        result.guard = 0;
    }
    return ShiftLeftDigits(result.limbs, k % 19, result.guard);
}

LimbResult Normalise(const Limbs& src, uint64_t guard) {
    Limbs withGuard = src;
    withGuard.push_back(guard);
    size_t first = 0;
    while (first < withGuard.size() && withGuard[first] == 0) {
        first++;
    }
    LimbResult result{src};
    if (first == withGuard.size()) {
        return result;
    }
    const int64_t count =
        19 * static_cast<int64_t>(first) + TopDigits() - CountDigits(withGuard[first]);
    result = count < 0 ? ShiftRightDigits(src, -count, guard) : ShiftLeftFar(src, count, guard);
    result.count = count;
    return result;
}

Limbs Divide(const Limbs& src, uint64_t d, uint64_t& remainder) {
    Limbs quotient;
    for (uint64_t limb : src) {
        const Word128 value = Word128{remainder} * Base + limb;
        quotient.push_back(static_cast<uint64_t>(value / d));
        remainder = static_cast<uint64_t>(value % d);
    }
    return quotient;
}

LimbResult Multiply(const Limbs& a, const Limbs& b) {
    const int64_t n = static_cast<int64_t>(a.size());
    const int64_t t = TopDigits();
    const Limbs aligned = ShiftLeftDigits(a, 19 - t, 0).limbs;
    const uint64_t least = TenTo(t - 1);
    LimbResult result;
    Limbs w;
    if (n == 1) {
        uint64_t high = 0;
        const uint64_t low = Step(aligned[0], b[0], high, 0);
        w = {high, low};
    } else {
        // Row by row from the last limb of b; a limb product whose column lies beyond n + 1 is left
        // out. Two limbs thus make all four of theirs.
        w.assign(static_cast<size_t>(n) + 2, 0);
        for (int64_t i = n - 1; i >= 0; i--) {
            uint64_t carry = 0;
            for (int64_t j = std::min(n - 1, n - i); j >= 0; j--) {
                uint64_t& column = w[static_cast<size_t>(i + j + 1)];
                column =
                    Step(b[static_cast<size_t>(i)], aligned[static_cast<size_t>(j)], carry, column);
            }
            w[static_cast<size_t>(i)] = carry;
        }
    }
    result.limbs.assign(w.begin(), w.begin() + n);
    result.guard = w[static_cast<size_t>(n)];
    if (w[0] < least) {
        result = ShiftLeftDigits(result.limbs, 1, result.guard);
        result.count = 1;
    }
    return result;
}

}  // namespace tallymere::reference
