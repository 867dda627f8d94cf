// A block of the heap whose failure is seen and not thrown.
#pragma once

#include <cstdint>
#include <memory>
#include <new>

namespace tallymere {

/// A block of `count` items, 0 or more, which are not cleared. Null without memory.
template <typename Item>
std::unique_ptr<Item[]> NewBlock(int64_t count) {
    return std::unique_ptr<Item[]>(new (std::nothrow) Item[static_cast<size_t>(count)]);
}

}  // namespace tallymere
