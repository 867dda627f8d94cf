// The tangent numbers T_1 = 1, T_2 = 2, T_3 = 16, T_4 = 272, ... one after the other, by additions
// alone.
//
// tan x is the sum of T_k x^(2k-1) / (2k-1)!, and the Bernoulli numbers follow from
// |B_2k| = 2k T_k / (16^k - 4^k). Method: the triangle of Seidel and Entringer, in which each line
// is made of partial sums of the line before it, read in the other direction; every second line
// ends with a tangent number (Arnold, "Snake calculus and combinatorics of Bernoulli, Euler and
// Springer numbers"). The table holds one line at a time.
//
// The table is the one place of the arithmetic that takes heap memory: at 10,000 digits it has
// 12.7 million bytes, far more than CoreScratch, and only a long factorial needs it.
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/real_number.h"

namespace tallymere {

/// The most rows of a table; T_1500 is the last tangent number that fits.
inline constexpr int64_t TangentTableRows = 3000;

/// A line of the triangle at work. Row 0 holds T_k between two pairs of steps.
struct TangentTable {
    uint64_t* rows;    ///< TangentTableRows records of the layout at its making, of which only rows
                       ///< that were in use are ever touched; null if there was no memory
    int64_t rowWords;  ///< words of a record
    int64_t steps;     ///< odd where row 0 holds a tangent number
    int64_t length;    ///< rows in use, 2k - 1
};

/// Row i, 0 <= i < length.
inline RealNumber* TangentRow(const TangentTable& table, int64_t i) {
    return RealAt(table.rows + i * table.rowWords);
}

/// One half of the way from T_k to T_(k+1): the first step of each pair makes partial sums, the
/// second makes them in the other direction, two rows longer, and puts T_(k+1) into row 0. Sums are
/// raw; they are exact as long as they fit the precision. The layout in force must be that of the
/// table's making. Past the last row the second step puts NaN into row 0, sets CalcErrorCapacity
/// and changes nothing else.
void TangentStep(TangentTable& table);

/// Where tables take their block from and give it back to: malloc and free, unless a test puts
/// others in their place. `take` may answer null.
struct TangentMemory {
    void* (*take)(size_t bytes);
    void (*giveBack)(void* block);
};
extern TangentMemory tangentMemory;

/// Owns a table at T_1 for the layout in force, and gives its memory back at the end of its life.
class TangentTableScope {
public:
    TangentTableScope();
    ~TangentTableScope();
    TangentTableScope(const TangentTableScope&) = delete;
    TangentTableScope& operator=(const TangentTableScope&) = delete;

    /// False if there was no memory; nothing but this may be asked then.
    bool HasMemory() const { return table_.rows != nullptr; }
    TangentTable& Table() { return table_; }

private:
    TangentTable table_;
};

}  // namespace tallymere
