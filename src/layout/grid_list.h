// A growing array, in which the grid keeps its columns and cells.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <type_traits>

#include "layout/grid_memory.h"

namespace tallymere {

/// The first room of a list, and by how much it grows.
inline constexpr int32_t GridListStep = 16;

/// Items in one block of memory, which the list owns. What the items own is their own affair. A
/// list of zeros is empty and needs no memory.
template <typename Item>
struct GridList {
    int32_t capacity;
    Item* items;
    int32_t count;
};

/// True when the fields of a list fit together.
template <typename Item>
bool GridListIsConsistent(const GridList<Item>& list) {
    return list.count >= 0 && list.count <= list.capacity && list.capacity % GridListStep == 0 &&
           (list.items != nullptr) == (list.capacity != 0);
}

/// Makes room for one more item. False without memory; the list is as before.
template <typename Item>
[[nodiscard]] bool ReserveGridItem(GridList<Item>& list) {
    static_assert(std::is_trivially_copyable_v<Item>);
    if (list.count < list.capacity) {
        return true;
    }
    const int32_t capacity = list.capacity + GridListStep;
    auto* const items = static_cast<Item*>(
        allocateForGrid(list.items, static_cast<size_t>(capacity) * sizeof(Item)));
    if (items == nullptr) {
        return false;
    }
    list.items = items;
    list.capacity = capacity;
    return true;
}

/// Puts an item at a position from 0 to the count. There must be room for it.
template <typename Item>
void InsertGridItem(GridList<Item>& list, int32_t position, const Item& item) {
    for (int32_t i = list.count; i > position; i--) {
        list.items[i] = list.items[i - 1];
    }
    list.items[position] = item;
    list.count++;
}

/// Takes the item at a position below the count out.
template <typename Item>
void RemoveGridItem(GridList<Item>& list, int32_t position) {
    list.count--;
    for (int32_t i = position; i < list.count; i++) {
        list.items[i] = list.items[i + 1];
    }
}

/// Frees the memory of the list, not what the items own. The list is empty then.
template <typename Item>
void FreeGridList(GridList<Item>& list) {
    std::free(list.items);
    list = {};
}

}  // namespace tallymere
