// Memory of grids that comes to an end, for tests.
#pragma once

#include <cstdint>

#include "layout/grid_memory.h"

namespace tallymere::testing_support {

/// While it lives, grids get so many blocks of memory, and then none.
class GridMemory {
public:
    explicit GridMemory(int64_t blocks) : system_(allocateForGrid) {
        left = blocks;
        allocateForGrid = [](void* block, size_t bytes) -> void* {
            return left-- > 0 ? std::realloc(block, bytes) : nullptr;
        };
    }
    ~GridMemory() { allocateForGrid = system_; }
    GridMemory(const GridMemory&) = delete;
    GridMemory& operator=(const GridMemory&) = delete;

    /// True when a block was asked for that was not there.
    static bool HasFailed() { return left < 0; }

private:
    static inline int64_t left = 0;
    GridAllocator system_;
};

}  // namespace tallymere::testing_support
