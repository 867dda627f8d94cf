// The two bump areas from which all temporaries are taken.
//
// Space is taken through a scope, which gives everything back at the end of its life; nothing is
// freed singly. Memory past the end of an area is never handed out: running out stops the program
// at once, and the tests show that no input reaches that point.
//
// In builds with AddressSanitizer each block is followed by a forbidden gap, new blocks are filled
// with junk and released space is forbidden again, so that an overrun or a read of memory that was
// never written shows.
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/contract.h"
#include "core/limits.h"

#if defined(__SANITIZE_ADDRESS__)
#define TALLYMERE_CHECKED_SCRATCH 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TALLYMERE_CHECKED_SCRATCH 1
#endif
#endif

namespace tallymere {

inline constexpr int64_t BytesPerWord = 8;
inline constexpr int64_t CharactersPerWord = BytesPerWord / int64_t{sizeof(char16_t)};

#ifdef TALLYMERE_CHECKED_SCRATCH
inline constexpr bool CheckedScratch = true;
inline constexpr int64_t ScratchGapWords = 4;
#else
inline constexpr bool CheckedScratch = false;
inline constexpr int64_t ScratchGapWords = 0;
#endif

/// A bump area of 64-bit words: base <= *top <= end. The bump pointer lies where its owner keeps
/// it.
struct ScratchArea {
    uint64_t* base;
    uint64_t* end;
    uint64_t** top;
    int64_t highWaterWords;  ///< the most that was ever taken at one time
    const char* name;        ///< for the message when the area is exhausted
};

/// Stops the program with a message that names the area.
[[noreturn]] void StopScratchExhausted(const ScratchArea& area);

/// In checked builds: allows a block, filled with junk, and forbids the gap behind it.
void OpenCheckedBlock(uint64_t* block, int64_t words);

/// In checked builds: forbids everything from start to end.
void CloseCheckedBlocks(uint64_t* start, uint64_t* end);

/// Takes `words` words (0 or more); the content is undefined.
inline uint64_t* ScratchTake(ScratchArea& area, int64_t words) {
    uint64_t* block = *area.top;
    if (words < 0 || words > area.end - block - ScratchGapWords) {
        StopScratchExhausted(area);
    }
    const int64_t taken = words + ScratchGapWords;
    if constexpr (CheckedScratch) {
        OpenCheckedBlock(block, words);
    }
    *area.top = block + taken;
    const int64_t used = *area.top - area.base;
    if (used > area.highWaterWords) {
        area.highWaterWords = used;
    }
    return block;
}

/// Gives back everything that was taken since *area.top was `mark`. Scopes end in the reverse order
/// of their beginnings, so `mark` is never above the top.
inline void ScratchRelease(ScratchArea& area, uint64_t* mark) {
    TALLYMERE_REQUIRE(mark >= area.base && mark <= *area.top);
    if constexpr (CheckedScratch) {
        CloseCheckedBlocks(mark, *area.top);
    }
    *area.top = mark;
}

/// The scope of one routine on an area: takes words and gives all of them back at its end.
class ScratchScope {
public:
    explicit ScratchScope(ScratchArea& area) : area_(area), mark_(*area.top) {}
    ~ScratchScope() { ScratchRelease(area_, mark_); }
    ScratchScope(const ScratchScope&) = delete;
    ScratchScope& operator=(const ScratchScope&) = delete;

    uint64_t* Take(int64_t words) { return ScratchTake(area_, words); }

private:
    ScratchArea& area_;
    uint64_t* mark_;
};

/// CoreScratch, of CoreScratchBytes; its bump pointer is NumberContext::scratchTop.
extern ScratchArea coreScratch;

/// The scope of one core routine on CoreScratch.
class CoreScratchScope : public ScratchScope {
public:
    CoreScratchScope() : ScratchScope(coreScratch) {}
};

/// Makes the calling thread's ScratchStack, of ScratchStackBytes; the thread must not have one.
void CreateScratchStack();

/// Frees the calling thread's ScratchStack.
void DestroyScratchStack();

/// The calling thread's ScratchStack; its base is null where the thread has none.
ScratchArea& CurrentScratchStack();

/// The scope of one routine on the calling thread's ScratchStack.
class ScratchStackScope : public ScratchScope {
public:
    ScratchStackScope() : ScratchScope(CurrentScratchStack()) {}
};

}  // namespace tallymere
