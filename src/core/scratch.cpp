#include "core/scratch.h"

#include <cstdio>
#include <cstdlib>

#include "core/number_context.h"

#if defined(__SANITIZE_ADDRESS__)
#define TALLYMERE_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TALLYMERE_ADDRESS_SANITIZER 1
#endif
#endif

#ifdef TALLYMERE_ADDRESS_SANITIZER
#include <sanitizer/asan_interface.h>
#endif

namespace tallymere {

namespace {

#ifdef TALLYMERE_ADDRESS_SANITIZER
constexpr bool CheckedScratch = true;
constexpr int64_t GapWords = 4;
#else
constexpr bool CheckedScratch = false;
constexpr int64_t GapWords = 0;
#endif

[[maybe_unused]] constexpr uint64_t JunkWord = 0xF00DFACEF00DFACEu;

void Forbid([[maybe_unused]] const uint64_t* start, [[maybe_unused]] const uint64_t* end) {
#ifdef TALLYMERE_ADDRESS_SANITIZER
    ASAN_POISON_MEMORY_REGION(start, static_cast<size_t>(end - start) * sizeof(uint64_t));
#endif
}

void AllowWithJunk([[maybe_unused]] uint64_t* start, [[maybe_unused]] int64_t words) {
#ifdef TALLYMERE_ADDRESS_SANITIZER
    ASAN_UNPOISON_MEMORY_REGION(start, static_cast<size_t>(words) * sizeof(uint64_t));
    for (int64_t i = 0; i < words; i++) {
        start[i] = JunkWord;
    }
#endif
}

[[noreturn]] void StopExhausted(const ScratchArea& area) {
    std::fprintf(stderr, "Tallymere: %s is exhausted.\n", area.name);
    std::abort();
}

// Gaps are not part of what the program asks for, so a checked build gets more room for them.
constexpr int64_t AreaWords(int64_t bytes) {
    return (bytes + BytesPerWord - 1) / BytesPerWord * (CheckedScratch ? 2 : 1);
}

alignas(64) uint64_t coreScratchWords[AreaWords(CoreScratchBytes)];

struct ScratchStack {
    uint64_t* top;
    ScratchArea area;
};

thread_local ScratchStack scratchStack;

}  // namespace

constinit NumberContext numberContext = [] {
    NumberContext context;
    context.scratchBase = coreScratchWords;
    context.scratchTop = coreScratchWords;
    return context;
}();

constinit ScratchArea coreScratch = {coreScratchWords,
                                     coreScratchWords + AreaWords(CoreScratchBytes),
                                     &numberContext.scratchTop, 0, "CoreScratch"};

uint64_t* ScratchTake(ScratchArea& area, int64_t words) {
    uint64_t* block = *area.top;
    if (words < 0 || words > area.end - block - GapWords) {
        StopExhausted(area);
    }
    uint64_t* top = block + words;
    AllowWithJunk(block, words);
    Forbid(top, top + GapWords);
    *area.top = top + GapWords;
    const int64_t used = *area.top - area.base;
    if (used > area.highWaterWords) {
        area.highWaterWords = used;
    }
    return block;
}

void ScratchRelease(ScratchArea& area, uint64_t* mark) {
    Forbid(mark, *area.top);
    *area.top = mark;
}

void CreateScratchStack() {
    const int64_t words = AreaWords(ScratchStackBytes);
    auto* block = static_cast<uint64_t*>(std::malloc(static_cast<size_t>(words) * BytesPerWord));
    if (block == nullptr) {
        std::fprintf(stderr, "Tallymere: no memory for a ScratchStack.\n");
        std::abort();
    }
    scratchStack.top = block;
    scratchStack.area = {block, block + words, &scratchStack.top, 0, "ScratchStack"};
    Forbid(block, block + words);
}

void DestroyScratchStack() {
    ScratchArea& area = scratchStack.area;
#ifdef TALLYMERE_ADDRESS_SANITIZER
    ASAN_UNPOISON_MEMORY_REGION(area.base,
                                static_cast<size_t>(area.end - area.base) * sizeof(uint64_t));
#endif
    std::free(area.base);
    area = {};
    scratchStack.top = nullptr;
}

ScratchArea& CurrentScratchStack() {
    return scratchStack.area;
}

}  // namespace tallymere
