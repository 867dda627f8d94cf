// Where the table of a grid gets its memory.
#pragma once

#include <cstddef>
#include <cstdlib>

namespace tallymere {

/// Gives a block of so many bytes, which holds what the old one held, as std::realloc does; null
/// without memory, and the old one stays. std::free takes it back. Tests put a function in its
/// place that has none.
using GridAllocator = void* (*)(void* block, size_t bytes);
inline GridAllocator allocateForGrid = [](void* block, size_t bytes) {
    return std::realloc(block, bytes);
};

}  // namespace tallymere
