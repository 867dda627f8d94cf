// An index of the rows of a table by the first character of their names, so that the search for a
// name looks at few rows.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tallymere {

template <size_t RowCount>
struct NameIndex {
    static constexpr size_t Buckets = 64;
    static constexpr uint8_t End = 255;  ///< no further row
    static_assert(RowCount < End);

    uint8_t first[Buckets];  ///< by the first character modulo Buckets, the first row or End
    uint8_t next[RowCount];  ///< of each row, the next one of its bucket or End

    /// The first row that may have a name with this first character; go on with `next`. Rows of a
    /// bucket come in the order of the table.
    constexpr uint8_t FirstRow(char16_t character) const { return first[character % Buckets]; }
};

/// The index of a table whose rows have their name in the member `name`.
template <typename Row, size_t RowCount>
constexpr NameIndex<RowCount> MakeNameIndex(const Row (&rows)[RowCount],
                                            const char16_t* Row::*name) {
    NameIndex<RowCount> index{};
    for (uint8_t& row : index.first) {
        row = index.End;
    }
    for (size_t i = RowCount; i-- > 0;) {
        uint8_t& first = index.first[(rows[i].*name)[0] % index.Buckets];
        index.next[i] = first;
        first = static_cast<uint8_t>(i);
    }
    return index;
}

}  // namespace tallymere
