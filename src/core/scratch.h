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

namespace tallymere {

inline constexpr int64_t BytesPerWord = 8;

/// A bump area of 64-bit words: base <= *top <= end. The bump pointer lies where its owner keeps
/// it.
struct ScratchArea {
    uint64_t* base;
    uint64_t* end;
    uint64_t** top;
    int64_t highWaterWords;  ///< the most that was ever taken at one time
    const char* name;        ///< for the message when the area is exhausted
};

/// Takes `words` words (0 or more); the content is undefined.
uint64_t* ScratchTake(ScratchArea& area, int64_t words);

/// Gives back everything that was taken since *area.top was `mark`.
void ScratchRelease(ScratchArea& area, uint64_t* mark);

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

/// The bytes of CoreScratch, the static area on which the arithmetic core takes its temporaries.
inline constexpr int64_t CoreScratchBytes = 160'000;

/// CoreScratch; its bump pointer is NumberContext::scratchTop.
extern ScratchArea coreScratch;

/// The scope of one core routine on CoreScratch.
class CoreScratchScope : public ScratchScope {
public:
    CoreScratchScope() : ScratchScope(coreScratch) {}
};

/// The bytes of a ScratchStack, the heap block of each calculating thread for the layers above the
/// core: 1,200,000 for numbers and tokens, and the texts of 101 variables at their longest.
inline constexpr int64_t ScratchStackBytes = 1'200'000 + 101 * 88'664 * 2;

/// Makes the calling thread's ScratchStack; the thread must not have one.
void CreateScratchStack();

/// Frees the calling thread's ScratchStack.
void DestroyScratchStack();

/// The calling thread's ScratchStack; the thread must have one.
ScratchArea& CurrentScratchStack();

/// The scope of one routine on the calling thread's ScratchStack.
class ScratchStackScope : public ScratchScope {
public:
    ScratchStackScope() : ScratchScope(CurrentScratchStack()) {}
};

}  // namespace tallymere
