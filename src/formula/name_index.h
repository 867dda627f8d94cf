// An index of the rows of a table by the first character of their names, so that the search for a
// name looks at few rows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "core/contract.h"

namespace tallymere {

template <size_t RowCount>
struct NameIndex {
    static constexpr size_t Buckets = 64;
    static constexpr uint8_t End = 255;  ///< no further row
    static_assert(RowCount < End);

    uint8_t first[Buckets];  ///< by the first character modulo Buckets, the first row or End
    uint8_t next[RowCount];  ///< of each row, the next one of its bucket or End

    /// The first row that may have a name with this first character; go on with `next`. Longer
    /// names come first, and names of one length in the order of the table.
    constexpr uint8_t FirstRow(char16_t character) const { return first[character % Buckets]; }
};

/// The index of a table whose rows have their name in the member `name`. No name is empty.
template <typename Row, size_t RowCount>
constexpr NameIndex<RowCount> MakeNameIndex(const Row (&rows)[RowCount],
                                            const char16_t* Row::*name) {
    NameIndex<RowCount> index{};
    for (uint8_t& row : index.first) {
        row = index.End;
    }
    for (size_t i = RowCount; i-- > 0;) {
        const std::u16string_view own = rows[i].*name;
        TALLYMERE_REQUIRE(!own.empty());
        uint8_t* place = &index.first[own[0] % index.Buckets];
        while (*place != index.End && std::u16string_view(rows[*place].*name).size() > own.size()) {
            place = &index.next[*place];
        }
        index.next[i] = *place;
        *place = static_cast<uint8_t>(i);
    }
    return index;
}

/// The row with the longest name that the NUL-terminated text begins with, and the length of that
/// name; null and 0 where there is none. The index is the one of these rows and names.
template <typename Row, size_t RowCount>
constexpr const Row* FindLongestName(const Row (&rows)[RowCount], const char16_t* Row::*name,
                                     const NameIndex<RowCount>& index, const char16_t* text,
                                     uint64_t* length) {
    for (size_t i = index.FirstRow(text[0]); i != index.End; i = index.next[i]) {
        const char16_t* candidate = rows[i].*name;
        uint64_t same = 0;
        while (candidate[same] != 0 && candidate[same] == text[same]) {
            same++;
        }
        if (candidate[same] == 0) {
            *length = same;
            return &rows[i];
        }
    }
    *length = 0;
    return nullptr;
}

}  // namespace tallymere
