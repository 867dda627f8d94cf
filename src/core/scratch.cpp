#include "core/scratch.h"

#include <cstdio>
#include <cstdlib>

#include "core/contract.h"
#include "core/number_context.h"
#include "core/scratch_making.h"

#ifdef TALLYMERE_CHECKED_SCRATCH
#include <sanitizer/asan_interface.h>
#endif

namespace tallymere {

namespace {

#ifdef TALLYMERE_CHECKED_SCRATCH
constexpr uint64_t JunkWord = 0xF00DFACEF00DFACEu;
#endif

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

// Defined here because it starts with its bump pointer in CoreScratch.
constinit NumberContext numberContext = [] {
    NumberContext context;
    context.scratchBase = coreScratchWords;
    context.scratchTop = coreScratchWords;
    return context;
}();

constinit ScratchArea coreScratch = {coreScratchWords,
                                     coreScratchWords + AreaWords(CoreScratchBytes),
                                     &numberContext.scratchTop, 0, "CoreScratch"};

void StopScratchExhausted(const ScratchArea& area) {
    std::fprintf(stderr, "Tallymere: %s is exhausted.\n", area.name);
    std::abort();
}

void OpenCheckedBlock([[maybe_unused]] uint64_t* block, [[maybe_unused]] int64_t words) {
#ifdef TALLYMERE_CHECKED_SCRATCH
    ASAN_UNPOISON_MEMORY_REGION(block, static_cast<size_t>(words) * sizeof(uint64_t));
    ASAN_POISON_MEMORY_REGION(block + words, ScratchGapWords * sizeof(uint64_t));
    for (int64_t i = 0; i < words; i++) {
        block[i] = JunkWord;
    }
#endif
}

void CloseCheckedBlocks([[maybe_unused]] uint64_t* start, [[maybe_unused]] uint64_t* end) {
#ifdef TALLYMERE_CHECKED_SCRATCH
    ASAN_POISON_MEMORY_REGION(start, static_cast<size_t>(end - start) * sizeof(uint64_t));
#endif
}

bool TryCreateScratchStack() {
    TALLYMERE_REQUIRE(scratchStack.area.base == nullptr);
    const int64_t words = AreaWords(ScratchStackBytes);
    auto* block = static_cast<uint64_t*>(std::malloc(static_cast<size_t>(words) * BytesPerWord));
    if (block == nullptr) {
        return false;
    }
    scratchStack.top = block;
    scratchStack.area = {block, block + words, &scratchStack.top, 0, "ScratchStack"};
    CloseCheckedBlocks(block, block + words);
    return true;
}

void CreateScratchStack() {
    if (!TryCreateScratchStack()) {
        std::fprintf(stderr, "Tallymere: no memory for a ScratchStack.\n");
        std::abort();
    }
}

void DestroyScratchStack() {
    TALLYMERE_REQUIRE(scratchStack.area.base != nullptr);
    ScratchArea& area = scratchStack.area;
#ifdef TALLYMERE_CHECKED_SCRATCH
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
