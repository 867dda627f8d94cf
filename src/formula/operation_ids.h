// The ids of the functions, operators and constants of formulas.
//
// An id has no meaning but to name its row in function_table.h, operator_table.h or
// constant_table.h, which stand in the order of the ids.
#pragma once

#include <cstdint>

namespace tallymere {

enum class FunctionId : uint8_t {
    Sqrt,
    Cbrt,
    Root,
    Ln,
    Log2,
    Log10,
    LogX,
    Exp,
    Sin,
    Cos,
    Tan,
    Asin,
    Acos,
    Atan,
    SinDegrees,
    CosDegrees,
    TanDegrees,
    AsinDegrees,
    AcosDegrees,
    AtanDegrees,
    SinGon,
    CosGon,
    TanGon,
    AsinGon,
    AcosGon,
    AtanGon,
    Sinh,
    Cosh,
    Tanh,
    Asinh,
    Acosh,
    Atanh,
    Abs,
    Trunc,
    Frac,
    Round,
    Fact,
    Ncr,
    Npr,
    Gcd,
    Lcm,
    PowMod,
    RealPart,
    ImaginaryPart,
    Arg,
    ArgDegrees,
    ArgGon,
    ComplexSqrt,
    ComplexCbrt,
    ComplexRoot,
    Count,  ///< no function, but their number
};

enum class OperatorId : uint8_t {
    Add,
    Subtract,
    Multiply,
    Divide,
    Mod,
    Power,
    Count,  ///< no operator, but their number
};

enum class ConstantId : uint8_t {
    Pi,
    Count,  ///< no constant, but their number
};

inline constexpr int64_t FunctionCount = static_cast<int64_t>(FunctionId::Count);
inline constexpr int64_t OperatorCount = static_cast<int64_t>(OperatorId::Count);
inline constexpr int64_t ConstantCount = static_cast<int64_t>(ConstantId::Count);

}  // namespace tallymere
