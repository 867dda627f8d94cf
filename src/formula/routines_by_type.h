// The routines of an operation, one for each number type.
#pragma once

#include "core/number_context.h"

namespace tallymere {

/// A null pointer stands where a number type does not have the operation.
template <typename Routine>
struct RoutinesByType {
    Routine real;
    Routine cplx;
    Routine uint;
    Routine rat;
};

/// The routine of a number type; null where the type does not have the operation, and for a value
/// that is no number type.
template <typename Routine>
constexpr Routine RoutineOf(const RoutinesByType<Routine>& routines, NumberType type) {
    switch (type) {
        case NumberTypeReal:
            return routines.real;
        case NumberTypeComplex:
            return routines.cplx;
        case NumberTypeUint:
            return routines.uint;
        case NumberTypeRational:
            return routines.rat;
        case NumberTypeNone:
            break;
    }
    return nullptr;
}

}  // namespace tallymere
