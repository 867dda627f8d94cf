// What the operators and functions of formulas have to give, for the model of formulas: a table of
// operations for each kind of number type, and the one for the types real and cplx. Written from
// the rules of the operations, with the rounded routines of the core and the functions below it;
// complex products and quotients are worked out here.
#pragma once

#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "support/real_testing.h"

namespace tallymere::testing_support {

/// A value of the type in force; in the type real the imaginary part is 0 and not looked at.
struct ModelValue {
    RealBuffer realPart = RealBuffer("0");
    RealBuffer imaginaryPart = RealBuffer("0");
    std::string exact;     ///< of an exact type in its place, in decimal: "3/4", "-0/1"
    bool inexact = false;  ///< a remainder was lost on the way to it

    bool IsReal() const { return RealIsZero(imaginaryPart); }
};

/// The functions of formulas and how many arguments they have, written down a second time.
extern const std::map<std::u16string, int> ModelFunctions;

enum class ModelLevel { Sum, Product, Power };

/// The operators of formulas and how tight they bind, written down a second time.
extern const std::map<std::u16string, ModelLevel> ModelOperators;

/// A base other than 10 in which formulas write integers.
struct ModelBase {
    uint32_t base;
    char16_t prefixLetter;  ///< behind "0" before a number, in either case
};

/// These bases, written down a second time.
extern const std::vector<ModelBase> ModelBases;

/// The base whose prefix a text begins with; null without a prefix.
const ModelBase* ModelBaseOfPrefix(std::u16string_view text);

bool IsOneOf(std::u16string_view word, std::initializer_list<const char16_t*> words);

/// How a call ended, if not with a value.
enum class ModelRefusal { None, Complex, Type, Pole };

/// The operations of a number type. They note a CalcError where an operation fails, as the
/// operations of the program do.
struct ModelArithmetic {
    /// The number that a literal denotes, with the prefix of its base.
    ModelValue (*number)(const std::u16string& literal);

    ModelValue (*pi)();

    /// a = a (operation) b, for "+", "-", "*", "/", "^" and "mod".
    void (*combine)(const std::u16string& operation, ModelValue& a, const ModelValue& b);

    void (*negate)(ModelValue& a);

    /// *result = function(arguments), for a known function and as many arguments as it takes;
    /// unless it exists only in cplx, or not in the type, or is a tangent at an odd multiple of the
    /// quarter turn.
    ModelRefusal (*function)(const std::u16string& function,
                             const std::vector<ModelValue>& arguments, ModelValue* result);

    /// The value as ValueText writes it.
    std::string (*text)(const ModelValue& value);
};

/// Of the types real and cplx.
extern const ModelArithmetic DecimalArithmetic;

}  // namespace tallymere::testing_support
