// Where the arithmetic takes its memory from: CoreScratch alone, within its bounds, given back by
// every routine; never the heap.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <new>
#include <string>
#include <vector>

#include "core/real_add.h"
#include "core/real_compare.h"
#include "core/real_div_mod.h"
#include "core/real_divide.h"
#include "core/real_integer.h"
#include "core/real_layout.h"
#include "core/real_multiply.h"
#include "core/real_rounding.h"
#include "core/scratch.h"
#include "support/real_testing.h"

namespace {

// Atomic so that no compiler takes two readings for one.
std::atomic<int64_t> heapRequests = 0;

}  // namespace

// Every request to the heap is counted: operator new on all platforms, and with the GNU library,
// where the program may put its own in front, malloc itself.
#if defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__)
extern "C" void* __libc_malloc(size_t size);
extern "C" void* __libc_calloc(size_t count, size_t size);
extern "C" void* __libc_realloc(void* block, size_t size);
extern "C" void* malloc(size_t size) {
    heapRequests++;
    return __libc_malloc(size);
}
extern "C" void* calloc(size_t count, size_t size) {
    heapRequests++;
    return __libc_calloc(count, size);
}
extern "C" void* realloc(void* block, size_t size) {
    heapRequests++;
    return __libc_realloc(block, size);
}
#endif

void* operator new(size_t size) {
    heapRequests++;
    void* block = std::malloc(size);
    if (block == nullptr) {
        std::abort();
    }
    return block;
}
void operator delete(void* block) noexcept {
    std::free(block);
}
void operator delete(void* block, size_t) noexcept {
    std::free(block);
}

namespace tallymere {
namespace {

using namespace testing_support;

struct Routine {
    const char* name;
    std::function<void()> run;
};

// Operands of the layout in force, and every routine of the arithmetic on them.
class Workload {
public:
    explicit Workload(RandomSource& random) {
        FillReal(random, a_, 0);
        FillReal(random, b_, 0);
        // A quotient of a few digits, so that the longest layouts stay quick.
        a_.Get()->header = MakeHeader(4, 0);
        b_.Get()->header = MakeHeader(0, 1);
        // One of so many digits that they are skipped.
        far_ = a_;
        far_.Get()->header = MakeHeader(1'000'000, 0);
    }

    std::vector<Routine> Routines() {
        return {
            {"RealAdd", [this] { RealAdd(dest_, a_, b_); }},
            {"RealSub", [this] { RealSub(dest_, a_, b_); }},
            {"RealMul", [this] { RealMul(dest_, a_, b_); }},
            {"RealMulUint", [this] { RealMulUint(dest_, a_, 12'345); }},
            {"RealDivUint", [this] { RealDivUint(dest_, a_, 12'345); }},
            {"RealReciprocalRaw", [this] { RealReciprocalRaw(dest_, b_); }},
            {"RealReciprocal", [this] { RealReciprocal(dest_, b_); }},
            {"RealDivRaw", [this] { RealDivRaw(dest_, a_, b_); }},
            {"RealDiv", [this] { RealDiv(dest_, a_, b_); }},
            {"RealDivMod", [this] { RealDivMod(dest_, other_, a_, b_); }},
            {"RealDivMod, far apart", [this] { RealDivMod(dest_, other_, far_, b_); }},
            {"RealFractionPart", [this] { RealFractionPart(dest_, a_); }},
            {"RealIntegerPart", [this] { RealIntegerPart(dest_, a_); }},
            {"RealRoundDigits", [this] { RealRoundDigits(dest_, a_, 1); }},
            {"RealCompare", [this] { RealCompare(a_, b_); }},
            {"RealFromUint", [this] { RealFromUint(dest_, 12'345); }},
            {"WithGuardDigitsBinary",
             [this] { WithGuardDigitsBinary(dest_, a_, b_, MaxGuardDigits, RealDivRaw); }},
        };
    }

private:
    RealBuffer a_;
    RealBuffer b_;
    RealBuffer dest_;
    RealBuffer other_;
    RealBuffer far_;
};

TEST(HeapCounter, SeesRequests) {
    const int64_t before = heapRequests.load();
    std::vector<int> block(static_cast<size_t>(numberContext.realLimbs) + 1000);
    ASSERT_FALSE(block.empty());
    EXPECT_GT(heapRequests.load(), before);
}

TEST(RealArithmetic, NeverAsksTheHeap) {
    RandomSource random;
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        Workload workload(random);
        for (const Routine& routine : workload.Routines()) {
            const int64_t before = heapRequests.load();
            routine.run();
            EXPECT_EQ(heapRequests.load(), before) << routine.name;
        }
    }
}

TEST(RealArithmetic, GivesCoreScratchBackAfterEveryRoutine) {
    RandomSource random;
    for (int64_t p : AllPrecisions) {
        PrecisionScope scope(p);
        Workload workload(random);
        for (const Routine& routine : workload.Routines()) {
            routine.run();
            EXPECT_EQ(numberContext.scratchTop, numberContext.scratchBase) << routine.name;
        }
    }
}

// The figures stand in the log of the run: the most bytes of CoreScratch that a routine takes at
// 10,000 digits with the two that the calculator adds, and at the longest layout.
TEST(RealArithmetic, StaysWithinCoreScratchAtTheLongestLayouts) {
    RandomSource random;
    const int64_t usual = coreScratch.highWaterWords;
    for (int64_t p : {int64_t{10'002}, MaxPrecisionDigits}) {
        PrecisionScope scope(p);
        Workload workload(random);
        for (const Routine& routine : workload.Routines()) {
            coreScratch.highWaterWords = 0;
            routine.run();
            const int64_t bytes = coreScratch.highWaterWords * BytesPerWord;
            EXPECT_LE(bytes, CoreScratchBytes) << routine.name;
            std::printf("CoreScratch at %d digits: %-22s %7d bytes, %4.1f records\n",
                        static_cast<int>(p), routine.name, static_cast<int>(bytes),
                        static_cast<double>(bytes) / static_cast<double>(8 * RealWords()));
        }
    }
    coreScratch.highWaterWords = std::max(usual, coreScratch.highWaterWords);
}

}  // namespace
}  // namespace tallymere
