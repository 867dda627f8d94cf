#include "exact/radix_conversion.h"

#include <algorithm>

#include "core/contract.h"
#include "core/limb_tools.h"
#include "core/long_products.h"
#include "core/scratch.h"
#include "exact/limb_division.h"

namespace tallymere {

namespace {

// Up to this many words, division by 10^19 is faster than divide and conquer.
constexpr int64_t DirectWords = 12;

// How often an integer can be halved. CoreScratch has no room for more.
constexpr int MaxHalvings = 32;

// Divides by 10^19 until nothing is left. m is 0 to DirectWords + 1.
void ConvertDirectly(Limb* dest, const uint64_t* words, int64_t m) {
    uint64_t rest[DirectWords + 1];
    std::copy_n(words, m, rest);
    for (int64_t i = MaxDecimalLimbs(m) - 1; i >= 0; i--) {
        Limb remainder = 0;
        for (int64_t k = m - 1; k >= 0; k--) {
            const LimbQuotient parts = DivideByLimbBase({remainder, rest[k]});
            rest[k] = parts.quotient;
            remainder = parts.remainder;
        }
        dest[i] = remainder;
        while (m > 0 && rest[m - 1] == 0) {
            m--;
        }
    }
}

struct LimbArray {
    const Limb* limbs;
    int64_t count;
};

LimbArray WithoutLeadingZeros(LimbArray a) {
    while (a.count > 0 && a.limbs[0] == 0) {
        a = {a.limbs + 1, a.count - 1};
    }
    return a;
}

// dest = a b in n limbs, which must hold it; there may be more of them than the product has, or
// fewer. dest must overlap no operand.
void MultiplyArrays(Limb* dest, int64_t n, LimbArray a, LimbArray b) {
    const int64_t count = a.count + b.count;
    if (a.count == 0 || b.count == 0) {
        LimbsClear(dest, n);
    } else if (count <= n) {
        LimbsClear(dest, n - count);
        LimbsMultiplyArrays(dest + n - count, a.limbs, a.count, b.limbs, b.count);
    } else {
        CoreScratchScope scratch;
        Limb* product = scratch.Take(count);
        LimbsMultiplyArrays(product, a.limbs, a.count, b.limbs, b.count);
        LimbsCopy(dest, product + count - n, n);
    }
}

// How integers of up to part 2^halvings words are halved. `part` is the words of the shortest
// parts; powers[i] is 2^(64 part 2^i).
struct Halving {
    int64_t part;
    LimbArray powers[MaxHalvings];
};

void ComputePowers(Halving& halving, int halvings, ScratchScope& scratch) {
    uint64_t words[DirectWords + 1] = {};
    words[halving.part] = 1;
    int64_t count = MaxDecimalLimbs(halving.part + 1);
    Limb* limbs = scratch.Take(count);
    ConvertDirectly(limbs, words, halving.part + 1);
    halving.powers[0] = WithoutLeadingZeros({limbs, count});
    for (int i = 1; i < halvings; i++) {
        const LimbArray root = halving.powers[i - 1];
        count = 2 * root.count;
        limbs = scratch.Take(count);
        MultiplyArrays(limbs, count, root, root);
        halving.powers[i] = WithoutLeadingZeros({limbs, count});
    }
}

// Converts an integer of m words, m <= part 2^level.
void ConvertByHalves(Limb* dest, const uint64_t* words, int64_t m, const Halving& halving,
                     int level) {
    if (level == 0) {
        ConvertDirectly(dest, words, m);
        return;
    }
    const int64_t lowWords = halving.part << (level - 1);
    if (m <= lowWords) {
        ConvertByHalves(dest, words, m, halving, level - 1);
        return;
    }
    const int64_t lowCount = MaxDecimalLimbs(lowWords);
    const int64_t highCount = MaxDecimalLimbs(m - lowWords);
    const int64_t n = MaxDecimalLimbs(m);
    {
        CoreScratchScope scratch;
        Limb* high = scratch.Take(highCount);
        ConvertByHalves(high, words + lowWords, m - lowWords, halving, level - 1);
        MultiplyArrays(dest, n, WithoutLeadingZeros({high, highCount}), halving.powers[level - 1]);
    }
    CoreScratchScope scratch;
    Limb* low = scratch.Take(lowCount);
    ConvertByHalves(low, words, lowWords, halving, level - 1);
    Limb* place = dest + n - lowCount;
    Limb carry = LimbsAdd(place, place, low, lowCount);
    for (int64_t i = n - lowCount - 1; carry != 0; i--) {
        dest[i] = AddLimbs(dest[i], 0, carry);
    }
}

// The decimal limbs that one pass over a growing integer appends.
constexpr int64_t LimbsPerPass = 4;

// x = x 10^(19 LimbsPerPass) + the LimbsPerPass limbs, for an x with room for as many more words.
//
// That takes LimbsPerPass multiplications by 10^19. All run in one pass over the words: each hands
// a word to the next as soon as it is ready. So the processor need not wait for the carries of one.
void TakeInDecimalLimbs(GrowingInteger& x, const Limb* limbs) {
    uint64_t carries[LimbsPerPass];
    std::copy_n(limbs, LimbsPerPass, carries);
    const auto passThrough = [&](uint64_t word, int64_t from) {
        for (int64_t k = from; k < LimbsPerPass; k++) {
            const Wide sum = wide::Add(wide::Multiply(word, LimbBase), {0, carries[k]});
            word = sum.low;
            carries[k] = sum.high;
        }
        return word;
    };
    for (int64_t i = 0; i < x.length; i++) {
        x.words[i] = passThrough(x.words[i], 0);
    }
    for (int64_t k = 0; k < LimbsPerPass; k++) {
        x.words[x.length++] = passThrough(carries[k], k + 1);
    }
    while (x.length > 0 && x.words[x.length - 1] == 0) {
        x.length--;
    }
}

}  // namespace

bool GrowingIntegerIsWellFormed(const GrowingInteger& x) {
    return x.length >= 0 && x.length <= x.capacity && (x.length == 0 || x.words[x.length - 1] != 0);
}

int64_t WordsToDecimalLimbs(Limb* end, const uint64_t* words, int64_t m) {
    TALLYMERE_REQUIRE(m >= 0);
    TALLYMERE_REQUIRE(UintLimbsAreApart(end - MaxDecimalLimbs(m), MaxDecimalLimbs(m), words, m));
    Halving halving = {m, {}};
    int halvings = 0;
    while (halving.part > DirectWords) {
        halving.part = (halving.part + 1) / 2;
        halvings++;
    }
    CoreScratchScope scratch;
    if (halvings > 0) {
        ComputePowers(halving, halvings, scratch);
    }
    const int64_t count = MaxDecimalLimbs(m);
    ConvertByHalves(end - count, words, m, halving, halvings);
    return WithoutLeadingZeros({end - count, count}).count;
}

bool MultiplyAdd(GrowingInteger& x, uint64_t factor, uint64_t addend) {
    TALLYMERE_REQUIRE(GrowingIntegerIsWellFormed(x) && factor >= 1);
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

bool AppendDecimalLimbs(GrowingInteger& x, const Limb* limbs, int64_t count) {
    TALLYMERE_REQUIRE(GrowingIntegerIsWellFormed(x) && count >= 0);
    while (count > 0) {
        if (count >= LimbsPerPass && x.capacity - x.length >= LimbsPerPass) {
            TakeInDecimalLimbs(x, limbs);
            limbs += LimbsPerPass;
            count -= LimbsPerPass;
        } else {
            if (!MultiplyAdd(x, LimbBase, *limbs)) {
                return false;
            }
            limbs++;
            count--;
        }
    }
    return true;
}

bool MultiplyByPowerOfTen(GrowingInteger& x, uint64_t places) {
    TALLYMERE_REQUIRE(GrowingIntegerIsWellFormed(x));
    constexpr Limb zeros[LimbsPerPass] = {};
    if (x.length == 0) {
        return true;
    }
    while (places >= DigitsPerLimb) {
        const int64_t count = places >= LimbsPerPass * DigitsPerLimb ? LimbsPerPass : 1;
        if (!AppendDecimalLimbs(x, zeros, count)) {
            return false;
        }
        places -= static_cast<uint64_t>(count * DigitsPerLimb);
    }
    return MultiplyAdd(x, PowerOfTen(static_cast<int64_t>(places)), 0);
}

}  // namespace tallymere
