// The constants of formulas.
#pragma once

#include <cstdint>

#include "core/contract.h"
#include "formula/operation_ids.h"
#include "formula/routines_by_type.h"

namespace tallymere {

/// dest = the constant, rounded to the precision in force.
using ConstantRoutine = void (*)(uint64_t* dest);

struct ConstantRow {
    ConstantId id;
    const char16_t* name;           ///< what its key inserts
    const char16_t* alternateName;  ///< for those who cannot type the name
    /// A type without a routine does not have the constant: CalcErrorUnknownType.
    RoutinesByType<ConstantRoutine> routines;
};

/// In the order of the ids.
extern const ConstantRow ConstantTable[ConstantCount];

/// The row of an id. Precondition: `id` is not ConstantId::Count.
inline const ConstantRow& ConstantOf(ConstantId id) {
    TALLYMERE_REQUIRE(id < ConstantId::Count);
    return ConstantTable[static_cast<int64_t>(id)];
}

/// The row with exactly these `length` characters as one of its names, or null.
const ConstantRow* FindConstant(const char16_t* text, uint64_t length);

}  // namespace tallymere
