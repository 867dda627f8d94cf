// What the operators and functions of formulas have to give in the types real and cplx, for the
// model of formulas. Written from the rules of the operations, with the rounded routines of the
// core and the functions below it; complex products and quotients are worked out here.
#pragma once

#include <string>
#include <vector>

#include "support/real_testing.h"

namespace tallymere::testing_support {

/// A value of the type in force; in the type real the imaginary part is 0 and not looked at.
struct ModelValue {
    RealBuffer realPart = RealBuffer("0");
    RealBuffer imaginaryPart = RealBuffer("0");

    bool IsReal() const { return RealIsZero(imaginaryPart); }
};

// These note a CalcError where an operation fails, as the operations of the program do.

/// The number that a literal in base 10 denotes.
ModelValue ModelNumber(const std::u16string& text);

/// pi.
ModelValue ModelPi();

/// a = a (operation) b, for "+", "-", "*", "/", "^" and "mod".
void ModelOperator(const std::u16string& operation, ModelValue& a, const ModelValue& b);

void ModelNegate(ModelValue& a);

/// How a call ended, if not with a value.
enum class ModelRefusal { None, Complex, Type, Pole };

/// *result = function(arguments), for a known function and as many arguments as it takes; unless it
/// exists only in cplx, or in neither of the types, or is a tangent at an odd multiple of the
/// quarter turn.
ModelRefusal ModelFunction(const std::u16string& function, const std::vector<ModelValue>& arguments,
                           ModelValue* result);

}  // namespace tallymere::testing_support
