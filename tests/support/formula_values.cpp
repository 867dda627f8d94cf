#include "support/formula_values.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "core/real_add.h"
#include "core/real_compare.h"
#include "core/real_div_mod.h"
#include "core/real_divide.h"
#include "core/real_integer.h"
#include "core/real_layout.h"
#include "core/real_multiply.h"
#include "core/real_rounding.h"
#include "core/real_text.h"
#include "functions/combinatorics.h"
#include "functions/complex_roots.h"
#include "functions/exponential.h"
#include "functions/factorial.h"
#include "functions/hyperbolic.h"
#include "functions/hypotenuse.h"
#include "functions/inverse_trigonometric.h"
#include "functions/logarithm.h"
#include "functions/powers.h"
#include "functions/roots.h"
#include "functions/stored_constants.h"
#include "functions/trigonometric.h"

namespace tallymere::testing_support {

namespace {

using Text = std::u16string;

bool Complex() {
    return numberContext.numberType == NumberTypeComplex;
}

void Refuse(ModelValue& a, CalcError code) {
    SetCalcError(code);
    a = {RealBuffer("nan"), RealBuffer("0")};
}

void Negate(ModelValue& a) {
    RealNegate(a.realPart);
    RealNegate(a.imaginaryPart);
}

RealBuffer Sum(const RealBuffer& a, const RealBuffer& b) {
    RealBuffer sum;
    RealAdd(sum, a, b);
    return sum;
}

RealBuffer Difference(const RealBuffer& a, const RealBuffer& b) {
    RealBuffer difference;
    RealSub(difference, a, b);
    return difference;
}

RealBuffer Product(const RealBuffer& a, const RealBuffer& b) {
    RealBuffer product;
    RealMul(product, a, b);
    return product;
}

RealBuffer Quotient(const RealBuffer& a, const RealBuffer& b) {
    RealBuffer quotient;
    RealDiv(quotient, a, b);
    return quotient;
}

// The signed integer that a value is, if it is one of the machine.
bool Integer(const ModelValue& a, int64_t* out) {
    return a.IsReal() && RealToInt(out, a.realPart, IntegerExact);
}

bool Magnitude(const ModelValue& a, uint64_t* out) {
    return a.IsReal() && RealToUint(out, a.realPart, AllowNegative);
}

// Applies a step to the real part and, of a value that is not real, to the imaginary part.
template <typename Step>
void ByParts(ModelValue& a, Step step) {
    step(a.realPart);
    if (a.IsReal()) {
        RealSetZero(a.imaginaryPart, 0);
    } else {
        step(a.imaginaryPart);
    }
}

ModelValue FullProduct(const ModelValue& a, const ModelValue& b) {
    if (a.IsReal() && b.IsReal()) {
        return {Product(a.realPart, b.realPart), RealBuffer("0")};
    }
    return {Difference(Product(a.realPart, b.realPart), Product(a.imaginaryPart, b.imaginaryPart)),
            Sum(Product(a.realPart, b.imaginaryPart), Product(a.imaginaryPart, b.realPart))};
}

void Multiply(ModelValue& a, const ModelValue& b) {
    uint64_t k = 0;
    const bool smallLeft = Magnitude(a, &k);
    if (smallLeft || Magnitude(b, &k)) {
        const bool negative = RealSign(smallLeft ? a.realPart : b.realPart) != 0;
        a = smallLeft ? b : a;
        ByParts(a, [&](RealBuffer& part) { RealRound(part, RealMulUint(part, part, k)); });
        if (negative) {
            Negate(a);
        }
    } else {
        a = FullProduct(a, b);
    }
}

void Divide(ModelValue& a, const ModelValue& b) {
    uint64_t k = 0;
    if (Magnitude(b, &k)) {
        ByParts(a, [&](RealBuffer& part) { RealRound(part, RealDivUint(part, part, k)); });
        if (RealSign(b.realPart) != 0) {
            Negate(a);
        }
    } else if (b.IsReal()) {
        ByParts(a, [&](RealBuffer& part) { part = Quotient(part, b.realPart); });
    } else {
        const RealBuffer square =
            Sum(Product(b.realPart, b.realPart), Product(b.imaginaryPart, b.imaginaryPart));
        a = {Quotient(
                 Sum(Product(a.realPart, b.realPart), Product(a.imaginaryPart, b.imaginaryPart)),
                 square),
             Quotient(Difference(Product(a.imaginaryPart, b.realPart),
                                 Product(a.realPart, b.imaginaryPart)),
                      square)};
    }
}

void Remainder(ModelValue& a, const ModelValue& b) {
    if (!a.IsReal() || !b.IsReal()) {
        Refuse(a, CalcErrorComplexNotAllowed);
        return;
    }
    RealDivMod(nullptr, a.realPart, a.realPart, b.realPart);
    RealSetZero(a.imaginaryPart, 0);
}

void Invert(ModelValue& a) {
    if (a.IsReal()) {
        RealReciprocal(a.realPart, a.realPart);
        RealSetZero(a.imaginaryPart, 0);
        return;
    }
    const RealBuffer square =
        Sum(Product(a.realPart, a.realPart), Product(a.imaginaryPart, a.imaginaryPart));
    a = {Quotient(a.realPart, square), Quotient(a.imaginaryPart, square)};
    RealNegate(a.imaginaryPart);
}

// a^n for a value that is not real and n other than 0, by the bits of |n| from the last one on.
void ComplexIntegerPower(ModelValue& a, int64_t n) {
    ModelValue square = a;
    bool started = false;
    for (uint64_t bits = n < 0 ? 0 - static_cast<uint64_t>(n) : static_cast<uint64_t>(n); bits != 0;
         bits >>= 1) {
        if ((bits & 1) != 0) {
            a = started ? FullProduct(a, square) : square;
            started = true;
        }
        if (bits != 1) {
            square = FullProduct(square, square);
        }
    }
    if (n < 0) {
        Invert(a);
    }
}

void RealPowerBySelection(RealBuffer& x, bool integerBase, int64_t base, const ModelValue& b) {
    int64_t n = 0;
    const bool integerExponent = Integer(b, &n);
    if (integerBase && base == 2 && integerExponent) {
        RealPowerOfTwoRounded(x, n);
    } else if (integerBase && base == 10 && integerExponent) {
        RealSetOne(x);
        RealSetExponent(x, n);
    } else if (integerExponent) {
        RealPowerIntRounded(x, x, n);
    } else if (integerBase && base == 2) {
        RealExp2Rounded(x, b.realPart);
    } else if (integerBase && base == 10) {
        RealExp10Rounded(x, b.realPart);
    } else {
        RealPowerRounded(x, x, b.realPart);
    }
}

void Power(ModelValue& a, const ModelValue& b) {
    int64_t k = 0;
    if (!b.IsReal()) {
        Refuse(a, CalcErrorComplexNotAllowed);
    } else if (a.IsReal()) {
        const bool integerBase = Integer(a, &k);
        RealPowerBySelection(a.realPart, integerBase, k, b);
        RealSetZero(a.imaginaryPart, 0);
    } else if (!Integer(b, &k)) {
        Refuse(a, CalcErrorUndefined);
    } else if (k == 0) {
        a = {RealBuffer("1"), RealBuffer("0")};
    } else {
        ComplexIntegerPower(a, k);
    }
}

void Round(RealBuffer& x) {
    // |x| cut to an integer, one up when a half or more is cut off.
    RealBuffer rest;
    const uint64_t sign = RealSign(x);
    RealFractionPart(rest, x);
    RealIntegerPart(x, x);
    RealSetSign(rest, 0);
    RealSetSign(x, 0);
    if (RealCompare(rest, RealBuffer("0.5")) >= 0) {
        x = Sum(x, RealBuffer("1"));
    }
    RealSetSign(x, sign);
}

enum class Turns { No, Odd, Even };

// Which multiple of the quarter turn an angle is, in degrees, gon or, with unit 0, radians.
Turns QuarterTurnsOf(const RealBuffer& angle, int64_t quarter) {
    RealBuffer m = angle;
    RealSetSign(m, 0);
    if (RealIsZero(m)) {
        return Turns::Even;
    }
    const char* end = quarter == 0 ? "1e9" : "8e20";
    if (RealCompare(m, RealBuffer("1")) < 0 || RealCompare(m, RealBuffer(end)) >= 0) {
        return Turns::No;
    }
    RealBuffer turn;
    RealFromInt(turn, quarter);
    if (quarter == 0) {
        RealAtan2Rounded(turn, RealBuffer("1"), RealBuffer("0"));
    }
    RealBuffer count;
    RealBuffer rest;
    RealDivMod(count, rest, m, turn);
    if (quarter == 0) {
        RealBuffer tolerance("1");
        RealSetExponent(tolerance, RealExponent(m) - numberContext.precisionDigits + 2);
        if (RealExponent(tolerance) > -3) {
            return Turns::No;
        }
        const RealBuffer missing = Difference(turn, rest);
        if (RealCompare(rest, tolerance) < 0) {
            RealSetZero(rest, 0);
        } else if (RealCompare(missing, tolerance) < 0) {
            RealSetZero(rest, 0);
            count = Sum(count, RealBuffer("1"));
        }
    }
    return !RealIsZero(rest) ? Turns::No : RealIsEven(count) ? Turns::Even : Turns::Odd;
}

// Of a function that ends in the letter of its unit the quarter turn, otherwise 0.
int64_t QuarterOf(const Text& function) {
    return function.back() == u'd' ? 90 : function.back() == u'g' ? 100 : 0;
}

// Sine, cosine, tangent and their inverses in any unit; nothing else is touched.
bool Circular(const Text& function, RealBuffer& x, ModelRefusal* refusal) {
    static const std::map<Text, RealRoundedUnary> forward = {
        {u"sin", RealSinRounded},         {u"cos", RealCosRounded},
        {u"tan", RealTanRounded},         {u"sind", RealSinDegreesRounded},
        {u"cosd", RealCosDegreesRounded}, {u"tand", RealTanDegreesRounded},
        {u"sing", RealSinGonRounded},     {u"cosg", RealCosGonRounded},
        {u"tang", RealTanGonRounded}};
    static const std::map<Text, RealRoundedUnary> inverse = {
        {u"asin", RealAsinRounded},         {u"acos", RealAcosRounded},
        {u"atan", RealAtanRounded},         {u"asind", RealAsinDegreesRounded},
        {u"acosd", RealAcosDegreesRounded}, {u"atand", RealAtanDegreesRounded},
        {u"asing", RealAsinGonRounded},     {u"acosg", RealAcosGonRounded},
        {u"atang", RealAtanGonRounded}};
    if (const auto found = inverse.find(function); found != inverse.end()) {
        found->second(x, x);
        return true;
    }
    const auto found = forward.find(function);
    if (found == forward.end()) {
        return false;
    }
    const Text name = function.substr(0, 3);
    const Turns turns = QuarterTurnsOf(x, QuarterOf(function));
    if (name == u"tan" && turns == Turns::Odd) {
        *refusal = ModelRefusal::Pole;
    } else if (turns == (name == u"cos" ? Turns::Odd : Turns::Even)) {
        RealSetZero(x, 0);
    } else {
        found->second(x, x);
    }
    return true;
}

void RoundedLcm(RealNumber* dest, const RealNumber* a, const RealNumber* b) {
    RealRound(dest, RealLcm(dest, a, b));
}

void RoundedGcd(RealNumber* dest, const RealNumber* a, const RealNumber* b) {
    RealRound(dest, RealGcd(dest, a, b));
}

// The functions that take real values alone.
ModelRefusal RealOnly(const Text& function, const std::vector<ModelValue>& arguments,
                      ModelValue* result) {
    static const std::map<Text, RealRoundedUnary> unary = {
        {u"sqrt", RealSqrtRounded},     {u"cbrt", RealCbrtRounded},   {u"ln", RealLnRounded},
        {u"log2", RealLog2Rounded},     {u"log10", RealLog10Rounded}, {u"exp", RealExpRounded},
        {u"sinh", RealSinhRounded},     {u"cosh", RealCoshRounded},   {u"tanh", RealTanhRounded},
        {u"asinh", RealAsinhRounded},   {u"acosh", RealAcoshRounded}, {u"atanh", RealAtanhRounded},
        {u"fact", RealFactorialRounded}};
    static const std::map<Text, RealRoundedBinary> binary = {
        {u"root", RealRootRounded}, {u"logx", RealLogRounded}, {u"ncr", RealCombinations},
        {u"npr", RealPermutations}, {u"gcd", RoundedGcd},      {u"lcm", RoundedLcm}};
    if (std::any_of(arguments.begin(), arguments.end(),
                    [](const ModelValue& value) { return !value.IsReal(); })) {
        Refuse(*result, CalcErrorComplexNotAllowed);
        return ModelRefusal::None;
    }
    ModelRefusal refusal = ModelRefusal::None;
    RealBuffer x = arguments[0].realPart;
    if (const auto found = unary.find(function); found != unary.end()) {
        found->second(x, x);
    } else if (const auto two = binary.find(function); two != binary.end()) {
        two->second(x, x, arguments[1].realPart);
    } else {
        EXPECT_TRUE(Circular(function, x, &refusal)) << "a function that the model lacks";
    }
    *result = {x, RealBuffer("0")};
    return refusal;
}

// A branch of the root of the given degree.
ModelValue RootBranch(const ModelValue& degree, const ModelValue& z, const ModelValue& branch) {
    ModelValue root;
    if (!degree.IsReal() || !branch.IsReal()) {
        Refuse(root, CalcErrorUndefined);
        return root;
    }
    const auto words = static_cast<size_t>(RealWords());
    std::vector<uint64_t> value(2 * words);
    ComplexNumber* record = ComplexAt(value.data());
    RealCopy(RealPart(record), z.realPart);
    RealCopy(ImaginaryPart(record), z.imaginaryPart);
    ComplexRootBranch(record, degree.realPart, record, branch.realPart);
    RealCopy(root.realPart, RealPart(record));
    RealCopy(root.imaginaryPart, ImaginaryPart(record));
    return root;
}

ModelValue RealModelValue(const RealBuffer& x) {
    return {x, RealBuffer("0")};
}

// The functions that only the type cplx has.
ModelValue ComplexFunction(const Text& function, const std::vector<ModelValue>& arguments) {
    const ModelValue& z = arguments[0];
    if (function == u"realp") {
        return RealModelValue(z.realPart);
    }
    if (function == u"imagp") {
        return RealModelValue(z.imaginaryPart);
    }
    if (function == u"sqrtc") {
        return RootBranch(RealModelValue(RealBuffer("2")), z, arguments[1]);
    }
    if (function == u"cbrtc") {
        return RootBranch(RealModelValue(RealBuffer("3")), z, arguments[1]);
    }
    if (function == u"rootc") {
        return RootBranch(z, arguments[1], arguments[2]);
    }
    RealBuffer angle;
    const RealRoundedBinary routine = function == u"argd"   ? RealAtan2DegreesRounded
                                      : function == u"argg" ? RealAtan2GonRounded
                                                            : RealAtan2Rounded;
    routine(angle, z.imaginaryPart, z.realPart);
    return RealModelValue(angle);
}

ModelValue Number(const Text& text) {
    ModelValue value;
    if (ModelBaseOfPrefix(text) != nullptr) {
        SetCalcError(CalcErrorSyntax);
        return value;
    }
    RealRound(value.realPart, RealFromText(value.realPart, text.c_str(),
                                           static_cast<int64_t>(text.size()), TextGroup));
    return value;
}

ModelValue Pi() {
    ModelValue value;
    RealPi(value.realPart);
    return value;
}

void Combine(const Text& operation, ModelValue& a, const ModelValue& b) {
    if (operation == u"+") {
        a = {Sum(a.realPart, b.realPart), Sum(a.imaginaryPart, b.imaginaryPart)};
    } else if (operation == u"-") {
        a = {Difference(a.realPart, b.realPart), Difference(a.imaginaryPart, b.imaginaryPart)};
    } else if (operation == u"*") {
        Multiply(a, b);
    } else if (operation == u"/") {
        Divide(a, b);
    } else if (operation == u"^") {
        Power(a, b);
    } else if (operation == u"mod") {
        Remainder(a, b);
    } else {
        ADD_FAILURE() << ::testing::PrintToString(operation)
                      << " is missing in tests/support/formula_values.cpp";
    }
}

ModelRefusal Function(const Text& function, const std::vector<ModelValue>& arguments,
                      ModelValue* result) {
    if (function == u"powmod") {
        return ModelRefusal::Type;
    }
    if (IsOneOf(function,
                {u"rootc", u"sqrtc", u"cbrtc", u"arg", u"argd", u"argg", u"realp", u"imagp"})) {
        if (!Complex()) {
            return ModelRefusal::Complex;
        }
        *result = ComplexFunction(function, arguments);
        return ModelRefusal::None;
    }
    *result = arguments[0];
    RealBuffer& x = result->realPart;
    RealBuffer& y = result->imaginaryPart;
    if (function == u"abs") {
        if (Complex()) {
            RealHypotRounded(x, x, y);
        }
        RealSetSign(x, 0);
        RealSetZero(y, 0);
    } else if (function == u"trunc") {
        RealIntegerPart(x, x);
        RealIntegerPart(y, y);
    } else if (function == u"frac") {
        RealFractionPart(x, x);
        RealFractionPart(y, y);
    } else if (function == u"round") {
        Round(x);
        Round(y);
    } else {
        return RealOnly(function, arguments, result);
    }
    return ModelRefusal::None;
}

std::string DecimalText(const ModelValue& value) {
    const std::string realPart = PlainText(value.realPart);
    return Complex() ? realPart + ", " + PlainText(value.imaginaryPart) : realPart;
}

}  // namespace

const std::map<std::u16string, int> ModelFunctions = {
    {u"sqrt", 1},   {u"cbrt", 1}, {u"ln", 1},   {u"log2", 1},  {u"log10", 1}, {u"exp", 1},
    {u"abs", 1},    {u"sin", 1},  {u"cos", 1},  {u"tan", 1},   {u"asin", 1},  {u"acos", 1},
    {u"atan", 1},   {u"sind", 1}, {u"cosd", 1}, {u"tand", 1},  {u"asind", 1}, {u"acosd", 1},
    {u"atand", 1},  {u"sing", 1}, {u"cosg", 1}, {u"tang", 1},  {u"asing", 1}, {u"acosg", 1},
    {u"atang", 1},  {u"sinh", 1}, {u"cosh", 1}, {u"tanh", 1},  {u"asinh", 1}, {u"acosh", 1},
    {u"atanh", 1},  {u"fact", 1}, {u"root", 2}, {u"sqrtc", 2}, {u"cbrtc", 2}, {u"rootc", 3},
    {u"arg", 1},    {u"argd", 1}, {u"argg", 1}, {u"realp", 1}, {u"imagp", 1}, {u"trunc", 1},
    {u"frac", 1},   {u"ncr", 2},  {u"npr", 2},  {u"logx", 2},  {u"gcd", 2},   {u"lcm", 2},
    {u"powmod", 3}, {u"round", 1}};

const std::map<std::u16string, ModelLevel> ModelOperators = {
    {u"+", ModelLevel::Sum},     {u"-", ModelLevel::Sum},       {u"*", ModelLevel::Product},
    {u"/", ModelLevel::Product}, {u"mod", ModelLevel::Product}, {u"^", ModelLevel::Power}};

const std::vector<ModelBase> ModelBases = {{2, u'y'}, {8, u't'}, {16, u'x'}};

const ModelBase* ModelBaseOfPrefix(std::u16string_view text) {
    if (text.size() < 2 || text[0] != u'0') {
        return nullptr;
    }
    const auto row = std::find_if(ModelBases.begin(), ModelBases.end(), [&](const ModelBase& one) {
        return one.prefixLetter == text[1] || one.prefixLetter - u'a' + u'A' == text[1];
    });
    return row == ModelBases.end() ? nullptr : &*row;
}

bool IsOneOf(std::u16string_view word, std::initializer_list<const char16_t*> words) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

const ModelArithmetic DecimalArithmetic = {Number, Pi, Combine, Negate, Function, DecimalText};

}  // namespace tallymere::testing_support
