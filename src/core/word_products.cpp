#include "core/word_products.h"

#include "core/contract.h"
#include "core/limb_tools.h"

#ifdef TALLYMERE_CARRY_CHAINS
#include <cpuid.h>
#endif

namespace tallymere {

namespace words_portable {

uint64_t Multiply(uint64_t* dest, const uint64_t* src, int64_t n, uint64_t k) {
    uint64_t carry = 0;
    for (int64_t i = 0; i < n; i++) {
        const Wide sum = wide::Add(wide::Multiply(src[i], k), {0, carry});
        dest[i] = sum.low;
        carry = sum.high;
    }
    return carry;
}

uint64_t Add(uint64_t* dest, const uint64_t* a, const uint64_t* b, int64_t n) {
    uint64_t carry = 0;
    for (int64_t i = 0; i < n; i++) {
        const Wide sum = wide::Add(wide::Add({0, a[i]}, {0, b[i]}), {0, carry});
        dest[i] = sum.low;
        carry = sum.high;
    }
    return carry;
}

uint64_t Subtract(uint64_t* dest, const uint64_t* a, const uint64_t* b, int64_t n) {
    uint64_t borrow = 0;
    for (int64_t i = 0; i < n; i++) {
        const Wide difference = wide::Subtract(wide::Subtract({0, a[i]}, {0, b[i]}), {0, borrow});
        dest[i] = difference.low;
        borrow = difference.high & 1;
    }
    return borrow;
}

}  // namespace words_portable

#ifdef TALLYMERE_CARRY_CHAINS

namespace words_carry_chains {

namespace {

constexpr int64_t WordsPerBlock = 8;

// The loops over the blocks. MULX touches no flag, ADCX keeps its carry in CF and ADOX in OF. Both
// stay in the flags from word to word and from block to block, which is why the pointers and the
// counter move by LEA and the counter is tested by JRCXZ. The high word of each product waits in
// `carry` and `high` in turn for the next word.
//
// WORD(AT, BELOW, ABOVE) is the work on the word AT bytes into the block: BELOW holds the high word
// of the product below, ABOVE takes this one's.
// clang-format off
#define TALLYMERE_RUN_BLOCKS(WORD)                                                        \
    uint64_t low;                                                                         \
    uint64_t high;                                                                        \
    uint64_t zero;                                                                        \
    asm volatile(                                                                         \
        "xorl %k[zero], %k[zero]\n"                                                       \
        "1:\n"                                                                            \
        WORD("0", "carry", "high") WORD("8", "high", "carry")                             \
        WORD("16", "carry", "high") WORD("24", "high", "carry")                           \
        WORD("32", "carry", "high") WORD("40", "high", "carry")                           \
        WORD("48", "carry", "high") WORD("56", "high", "carry")                           \
        "leaq 64(%[src]), %[src]\n"                                                       \
        "leaq 64(%[dest]), %[dest]\n"                                                     \
        "leaq -1(%[blocks]), %[blocks]\n"                                                 \
        "jrcxz 2f\n"                                                                      \
        "jmp 1b\n"                                                                        \
        "2:\n"                                                                            \
        "adcxq %[zero], %[carry]\n"                                                       \
        "adoxq %[zero], %[carry]\n"                                                       \
        : [carry] "+&r"(carry), [dest] "+&r"(dest), [src] "+&r"(src),                     \
          [blocks] "+&c"(blocks), [low] "=&r"(low), [high] "=&r"(high),                   \
          [zero] "=&r"(zero)                                                              \
        : "d"(k)                                                                          \
        : "cc", "memory")

#define TALLYMERE_MULTIPLY(AT, BELOW, ABOVE)         \
    "mulxq " AT "(%[src]), %[low], %[" ABOVE "]\n"   \
    "adcxq %[" BELOW "], %[low]\n"                   \
    "movq %[low], " AT "(%[dest])\n"

#define TALLYMERE_MULTIPLY_ADD(AT, BELOW, ABOVE)     \
    "mulxq " AT "(%[src]), %[low], %[" ABOVE "]\n"   \
    "adcxq " AT "(%[dest]), %[low]\n"                \
    "adoxq %[" BELOW "], %[low]\n"                   \
    "movq %[low], " AT "(%[dest])\n"
// clang-format on

// `blocks` is at least 1.

uint64_t MultiplyBlocks(uint64_t* dest, const uint64_t* src, int64_t blocks, uint64_t k,
                        uint64_t carry) {
    TALLYMERE_RUN_BLOCKS(TALLYMERE_MULTIPLY);
    return carry;
}

uint64_t MultiplyAddBlocks(uint64_t* dest, const uint64_t* src, int64_t blocks, uint64_t k,
                           uint64_t carry) {
    TALLYMERE_RUN_BLOCKS(TALLYMERE_MULTIPLY_ADD);
    return carry;
}

#undef TALLYMERE_MULTIPLY_ADD
#undef TALLYMERE_MULTIPLY
#undef TALLYMERE_RUN_BLOCKS

constexpr int64_t WordsPerCarryBlock = 4;

// Sums or differences of blocks, the carry in CF throughout. LEA and JRCXZ leave it alone.
// clang-format off
#define TALLYMERE_RUN_CARRY(INSTRUCTION, AT)     \
    "movq " AT "(%[a]), %[word]\n"               \
    INSTRUCTION " " AT "(%[b]), %[word]\n"       \
    "movq %[word], " AT "(%[dest])\n"

#define TALLYMERE_RUN_CARRY_BLOCKS(INSTRUCTION)                                           \
    uint64_t word;                                                                        \
    asm volatile(                                                                         \
        "addq $-1, %[carry]\n"                                                            \
        "1:\n"                                                                            \
        TALLYMERE_RUN_CARRY(INSTRUCTION, "0") TALLYMERE_RUN_CARRY(INSTRUCTION, "8")       \
        TALLYMERE_RUN_CARRY(INSTRUCTION, "16") TALLYMERE_RUN_CARRY(INSTRUCTION, "24")     \
        "leaq 32(%[a]), %[a]\n"                                                           \
        "leaq 32(%[b]), %[b]\n"                                                           \
        "leaq 32(%[dest]), %[dest]\n"                                                     \
        "leaq -1(%[blocks]), %[blocks]\n"                                                 \
        "jrcxz 2f\n"                                                                      \
        "jmp 1b\n"                                                                        \
        "2:\n"                                                                            \
        "movl $0, %k[carry]\n"                                                            \
        "adcq $0, %[carry]\n"                                                             \
        : [carry] "+&r"(carry), [dest] "+&r"(dest), [a] "+&r"(a), [b] "+&r"(b),           \
          [blocks] "+&c"(blocks), [word] "=&r"(word)                                      \
        :                                                                                 \
        : "cc", "memory")
// clang-format on

// `blocks` is at least 1, `carry` 0 or 1.

uint64_t AddBlocks(uint64_t* dest, const uint64_t* a, const uint64_t* b, int64_t blocks,
                   uint64_t carry) {
    TALLYMERE_RUN_CARRY_BLOCKS("adcq");
    return carry;
}

uint64_t SubtractBlocks(uint64_t* dest, const uint64_t* a, const uint64_t* b, int64_t blocks,
                        uint64_t carry) {
    TALLYMERE_RUN_CARRY_BLOCKS("sbbq");
    return carry;
}

#undef TALLYMERE_RUN_CARRY_BLOCKS
#undef TALLYMERE_RUN_CARRY

}  // namespace

bool Supported() {
    constexpr unsigned bmi2 = 1u << 8;
    constexpr unsigned adx = 1u << 19;
    unsigned eax = 0;
    unsigned ebx = 0;
    unsigned ecx = 0;
    unsigned edx = 0;
    return __get_cpuid_count(7, 0, &eax, &ebx, &ecx, &edx) != 0 && (ebx & bmi2) != 0 &&
           (ebx & adx) != 0;
}

// The few words that make no block come first.

uint64_t Multiply(uint64_t* dest, const uint64_t* src, int64_t n, uint64_t k) {
    const int64_t few = n % WordsPerBlock;
    const uint64_t carry = words_portable::Multiply(dest, src, few, k);
    return few == n ? carry : MultiplyBlocks(dest + few, src + few, n / WordsPerBlock, k, carry);
}

uint64_t MultiplyAdd(uint64_t* dest, const uint64_t* src, int64_t n, uint64_t k) {
    const int64_t few = n % WordsPerBlock;
    const uint64_t carry = words_portable::MultiplyAdd(dest, src, few, k);
    return few == n ? carry : MultiplyAddBlocks(dest + few, src + few, n / WordsPerBlock, k, carry);
}

uint64_t Add(uint64_t* dest, const uint64_t* a, const uint64_t* b, int64_t n) {
    const int64_t few = n % WordsPerCarryBlock;
    const uint64_t carry = words_portable::Add(dest, a, b, few);
    return few == n ? carry
                    : AddBlocks(dest + few, a + few, b + few, n / WordsPerCarryBlock, carry);
}

uint64_t Subtract(uint64_t* dest, const uint64_t* a, const uint64_t* b, int64_t n) {
    const int64_t few = n % WordsPerCarryBlock;
    const uint64_t borrow = words_portable::Subtract(dest, a, b, few);
    return few == n ? borrow
                    : SubtractBlocks(dest + few, a + few, b + few, n / WordsPerCarryBlock, borrow);
}

}  // namespace words_carry_chains

namespace {

const bool HasCarryChains = words_carry_chains::Supported();

}  // namespace

#endif

uint64_t MultiplyWords(uint64_t* dest, const uint64_t* src, int64_t n, uint64_t k) {
    TALLYMERE_REQUIRE(n >= 0);
    TALLYMERE_REQUIRE(SameOrApart(dest, src, n));
#ifdef TALLYMERE_CARRY_CHAINS
    if (HasCarryChains) {
        return words_carry_chains::Multiply(dest, src, n, k);
    }
#endif
    return words_portable::Multiply(dest, src, n, k);
}

uint64_t MultiplyAddWords(uint64_t* dest, const uint64_t* src, int64_t n, uint64_t k) {
    TALLYMERE_REQUIRE(n >= 0);
    TALLYMERE_REQUIRE(SameOrApart(dest, src, n));
#ifdef TALLYMERE_CARRY_CHAINS
    if (HasCarryChains) {
        return words_carry_chains::MultiplyAdd(dest, src, n, k);
    }
#endif
    return words_portable::MultiplyAdd(dest, src, n, k);
}

uint64_t AddWords(uint64_t* dest, const uint64_t* a, const uint64_t* b, int64_t n) {
    TALLYMERE_REQUIRE(n >= 0);
    TALLYMERE_REQUIRE(SameOrApart(dest, a, n) && SameOrApart(dest, b, n));
#ifdef TALLYMERE_CARRY_CHAINS
    return words_carry_chains::Add(dest, a, b, n);
#else
    return words_portable::Add(dest, a, b, n);
#endif
}

uint64_t SubtractWords(uint64_t* dest, const uint64_t* a, const uint64_t* b, int64_t n) {
    TALLYMERE_REQUIRE(n >= 0);
    TALLYMERE_REQUIRE(SameOrApart(dest, a, n) && SameOrApart(dest, b, n));
#ifdef TALLYMERE_CARRY_CHAINS
    return words_carry_chains::Subtract(dest, a, b, n);
#else
    return words_portable::Subtract(dest, a, b, n);
#endif
}

}  // namespace tallymere
