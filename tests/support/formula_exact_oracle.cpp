#include "support/formula_exact_oracle.h"

#include <gtest/gtest.h>

#include "core/text_flags.h"
#include "support/exact_text_oracle.h"

namespace tallymere::testing_support {

namespace {

using Text = std::u16string;

void FailAsUnknown(const Text& operation) {
    ADD_FAILURE() << ::testing::PrintToString(operation)
                  << " is missing in tests/support/formula_exact_oracle.cpp";
}

Integer IntegerOf(const std::string& text) {
    Integer value;
    EXPECT_EQ(mpz_set_str(value, text.c_str(), 10), 0) << text;
    return value;
}

ModelValue PiOfExact() {
    SetCalcError(CalcErrorUnknownType);
    return {};
}

bool IsOnlyComplex(const Text& function) {
    return IsOneOf(function,
                   {u"rootc", u"sqrtc", u"cbrtc", u"arg", u"argd", u"argg", u"realp", u"imagp"});
}

// --- uint ---

Integer UintOf(const ModelValue& a) {
    return IntegerOf(a.exact);
}

// Takes over what an operation gives, its code too.
void TakeUint(ModelValue& dest, const ExpectedUint& expected) {
    dest.exact = IntegerText(expected.value);
    SetCalcError(expected.code);
}

// The same of one that notes when a remainder is lost.
void TakeFloor(ModelValue& dest, const ExpectedUint& expected) {
    TakeUint(dest, expected);
    dest.inexact = !expected.exact;
}

ModelValue UintNumber(const Text& literal) {
    const ModelBase* base = ModelBaseOfPrefix(literal);
    ExpectedUint expected;
    ReadUintText(expected, std::u16string_view(literal).substr(base == nullptr ? 0 : 2),
                 (base == nullptr ? 10 : base->base) | TextGroup);
    ModelValue value;
    TakeUint(value, expected);
    return value;
}

void CombineUint(const Text& operation, ModelValue& a, const ModelValue& b) {
    const Integer x = UintOf(a);
    const Integer y = UintOf(b);
    ExpectedUint expected;
    expected.exact = true;
    if (operation == u"+") {
        mpz_add(expected.value, x, y);
        expected.Limit();
    } else if (operation == u"-") {
        mpz_sub(expected.value, x, y);
        expected.Limit();
    } else if (operation == u"*") {
        mpz_mul(expected.value, x, y);
        expected.Limit();
    } else if (operation == u"^") {
        ExpectPower(expected, x, y);
        expected.exact = true;
    } else if (y.Sign() == 0) {
        expected.Refuse(CalcErrorExactDivisionByZero);
    } else if (operation == u"mod") {
        mpz_fdiv_r(expected.value, x, y);
    } else if (operation == u"/") {
        Integer remainder;
        mpz_fdiv_qr(expected.value, remainder, x, y);
        expected.exact = remainder.Sign() == 0;
    } else {
        FailAsUnknown(operation);
    }
    TakeFloor(a, expected);
}

void NegateUint(ModelValue&) {
    SetCalcError(CalcErrorUnknownType);
}

ModelRefusal UintFunction(const Text& function, const std::vector<ModelValue>& arguments,
                          ModelValue* result) {
    if (IsOnlyComplex(function)) {
        return ModelRefusal::Complex;
    }
    const Integer x = UintOf(arguments[0]);
    const Integer y = arguments.size() > 1 ? UintOf(arguments[1]) : Integer();
    ExpectedUint expected;
    if (IsOneOf(function, {u"sqrt", u"cbrt", u"root"})) {
        const Integer degree = function == u"root" ? x : Integer(function == u"sqrt" ? 2 : 3);
        ExpectRoot(expected, degree, function == u"root" ? y : x);
        TakeFloor(*result, expected);
        return ModelRefusal::None;
    }
    if (IsOneOf(function, {u"log2", u"log10", u"logx"})) {
        const Integer base = function == u"logx" ? x : Integer(function == u"log2" ? 2 : 10);
        ExpectLogarithm(expected, base, function == u"logx" ? y : x);
        TakeFloor(*result, expected);
        return ModelRefusal::None;
    }
    if (IsOneOf(function, {u"abs", u"trunc"})) {
        mpz_set(expected.value, x);
    } else if (function == u"frac") {
        expected.Refuse(CalcErrorExactDivisionByZero);
    } else if (function == u"fact") {
        ExpectFactorial(expected, x);
    } else if (IsOneOf(function, {u"ncr", u"npr"})) {
        ExpectBinomial(expected, x, y, function == u"npr");
    } else if (IsOneOf(function, {u"gcd", u"lcm"})) {
        if (x.Sign() == 0 || y.Sign() == 0) {
            expected.Refuse(CalcErrorUndefined);
        } else {
            (function == u"gcd" ? mpz_gcd : mpz_lcm)(expected.value, x, y);
            expected.Limit();
        }
    } else if (function == u"powmod") {
        const Integer m = UintOf(arguments[2]);
        if (m.Sign() == 0) {
            expected.Refuse(CalcErrorExactDivisionByZero);
        } else {
            mpz_powm(expected.value, x, y, m);
        }
    } else {
        EXPECT_NE(function, u"round");
        expected.Refuse(CalcErrorUnknownType);
    }
    TakeUint(*result, expected);
    return ModelRefusal::None;
}

std::string UintValueText(const ModelValue& value) {
    return value.exact;
}

// --- rat ---

Fraction FractionOfModel(const ModelValue& a) {
    Fraction fraction;
    fraction.sign = a.exact[0] == '-' ? 1 : 0;
    const std::string magnitude = a.exact.substr(fraction.sign);
    const size_t slash = magnitude.find('/');
    fraction.numerator = IntegerOf(magnitude.substr(0, slash));
    fraction.denominator = IntegerOf(magnitude.substr(slash + 1));
    return fraction;
}

void TakeFraction(ModelValue& dest, const ExpectedRational& expected) {
    dest.exact = (expected.sign != 0 ? "-" : "") + IntegerText(expected.numerator) + "/" +
                 IntegerText(expected.denominator);
    SetCalcError(expected.code);
}

ModelValue RationalNumberOf(const Text& literal) {
    ExpectedRational expected;
    if (ModelBaseOfPrefix(literal) != nullptr) {
        expected.Refuse(CalcErrorSyntax);
    } else {
        ReadRationalText(expected, literal, TextGroup);
    }
    ModelValue value;
    TakeFraction(value, expected);
    return value;
}

bool IsInteger(const Fraction& x, uint64_t k) {
    return x.sign == 0 && x.IsWhole() && mpz_cmp_ui(mpz_srcptr(x.numerator), k) == 0;
}

// The magnitude of an integer that fits 64 bits.
bool IsSmall(const Fraction& x, uint64_t* magnitude) {
    *magnitude = WordOf(x.numerator);
    return x.IsWhole() && mpz_fits_ulong_p(x.numerator) != 0;
}

// Products and quotients with a small integer look for common factors of that integer alone, which
// shows where the fraction is not in lowest terms.
void ExpectSmallProduct(ExpectedRational& expected, const Fraction& x, uint64_t k) {
    if (k == 0) {
        return;
    }
    const Integer common(mpz_gcd_ui(nullptr, x.denominator, k));
    mpz_mul_ui(expected.numerator, x.numerator, k / WordOf(common));
    mpz_divexact(expected.denominator, x.denominator, common);
    expected.Limit();
}

void ExpectSmallQuotient(ExpectedRational& expected, const Fraction& x, uint64_t k) {
    if (k == 0 && !x.IsZero()) {
        expected.Refuse(CalcErrorExactDivisionByZero);
        return;
    }
    // 0 / 0 is 0.
    const uint64_t common = x.IsZero() ? 1 : mpz_gcd_ui(nullptr, x.numerator, k);
    mpz_divexact_ui(expected.numerator, x.numerator, common);
    mpz_mul_ui(expected.denominator, x.denominator, x.IsZero() ? 1 : k / common);
    expected.Limit();
}

void Multiply(ExpectedRational& expected, const Fraction& x, const Fraction& y) {
    uint64_t k = 0;
    const bool smallLeft = IsSmall(x, &k);
    if (!smallLeft && !IsSmall(y, &k)) {
        ExpectProduct(expected, x, y);
        return;
    }
    ExpectSmallProduct(expected, smallLeft ? y : x, k);
    expected.sign = expected.code == CalcErrorNone ? x.sign ^ y.sign : 0;
}

void Divide(ExpectedRational& expected, const Fraction& x, const Fraction& y) {
    uint64_t k = 0;
    if (!IsSmall(y, &k)) {
        ExpectQuotient(expected, x, y);
        return;
    }
    ExpectSmallQuotient(expected, x, k);
    expected.sign = expected.code == CalcErrorNone ? x.sign ^ y.sign : 0;
}

void CombineFractions(const Text& operation, ModelValue& a, const ModelValue& b) {
    const Fraction x = FractionOfModel(a);
    const Fraction y = FractionOfModel(b);
    ExpectedRational expected;
    if (operation == u"+" || operation == u"-") {
        ExpectSum(expected, x, y, operation == u"-");
    } else if (operation == u"*") {
        Multiply(expected, x, y);
    } else if (operation == u"/") {
        Divide(expected, x, y);
    } else if (operation == u"mod") {
        ExpectedRational quotient;
        ExpectDivMod(quotient, expected, x, y);
    } else if (operation != u"^") {
        FailAsUnknown(operation);
    } else if ((IsInteger(x, 2) || IsInteger(x, 10)) && !y.IsWhole()) {
        expected.Refuse(CalcErrorUndefined);
    } else {
        ExpectPower(expected, x, y);
    }
    TakeFraction(a, expected);
}

void NegateFraction(ModelValue& a) {
    a.exact = a.exact[0] == '-' ? a.exact.substr(1) : "-" + a.exact;
}

// The argument itself plus 1, or minus 1, where half or more would be cut off; else what is left.
void ExpectRound(ExpectedRational& expected, const Fraction& x) {
    Integer rest;
    mpz_fdiv_qr(expected.numerator, rest, x.numerator, x.denominator);
    expected.sign = x.sign;
    mpz_mul_ui(rest, rest, 2);
    if (mpz_cmp(rest, x.denominator) >= 0) {
        expected = ExpectedRational();
        ExpectSum(expected, x, {x.sign, Integer(1), Integer(1)}, false);
    }
}

ModelRefusal RationalFunction(const Text& function, const std::vector<ModelValue>& arguments,
                              ModelValue* result) {
    if (IsOnlyComplex(function)) {
        return ModelRefusal::Complex;
    }
    if (function == u"powmod") {
        return ModelRefusal::Type;
    }
    const Fraction x = FractionOfModel(arguments[0]);
    const Fraction y = arguments.size() > 1 ? FractionOfModel(arguments[1]) : Fraction();
    const auto whole = [](uint64_t k) { return Fraction{0, Integer(k), Integer(1)}; };
    ExpectedRational expected;
    if (function == u"sqrt" || function == u"cbrt") {
        ExpectRoot(expected, whole(function == u"sqrt" ? 2 : 3), x);
    } else if (function == u"root") {
        ExpectRoot(expected, x, y);
    } else if (function == u"log2" || function == u"log10") {
        ExpectLogarithm(expected, whole(function == u"log2" ? 2 : 10), x);
    } else if (function == u"logx") {
        ExpectLogarithm(expected, x, y);
    } else if (function == u"abs") {
        static_cast<Fraction&>(expected) = x;
        expected.sign = 0;
    } else if (function == u"trunc") {
        expected.sign = x.sign;
        mpz_fdiv_q(expected.numerator, x.numerator, x.denominator);
    } else if (function == u"frac") {
        static_cast<Fraction&>(expected) = x;
        mpz_fdiv_r(expected.numerator, x.numerator, x.denominator);
    } else if (function == u"round") {
        ExpectRound(expected, x);
    } else if (function == u"fact") {
        ExpectFactorial(expected, x);
    } else if (function == u"ncr" || function == u"npr") {
        ExpectBinomial(expected, x, y, function == u"npr");
    } else if (function == u"gcd" || function == u"lcm") {
        ExpectOfIntegers(expected, x, y, function == u"gcd" ? mpz_gcd : mpz_lcm);
    } else {
        expected.Refuse(CalcErrorUnknownType);
    }
    TakeFraction(*result, expected);
    return ModelRefusal::None;
}

std::string FractionText(const ModelValue& value) {
    return value.exact.ends_with("/1") ? value.exact.substr(0, value.exact.size() - 2)
                                       : value.exact;
}

}  // namespace

const ModelArithmetic UintArithmetic = {UintNumber, PiOfExact,    CombineUint,
                                        NegateUint, UintFunction, UintValueText};

const ModelArithmetic RationalArithmetic = {RationalNumberOf, PiOfExact,        CombineFractions,
                                            NegateFraction,   RationalFunction, FractionText};

}  // namespace tallymere::testing_support
