// What tests of calculations with polynomials share: polynomials as plain text.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "algebra/polynomial_calculation.h"
#include "core/complex_number.h"
#include "support/formula_testing.h"
#include "support/real_testing.h"
#include "values/value_operations.h"

namespace tallymere::testing_support {

/// "Done" for PolyOutcome::Done, and so on.
inline std::string OutcomeName(PolyOutcome outcome) {
    switch (outcome) {
        case PolyOutcome::Done:
            return "Done";
        case PolyOutcome::SameObject:
            return "SameObject";
        case PolyOutcome::DegreeTooHigh:
            return "DegreeTooHigh";
        case PolyOutcome::ExponentRefused:
            return "ExponentRefused";
        case PolyOutcome::DivisionByZero:
            return "DivisionByZero";
        case PolyOutcome::Stopped:
            return "Stopped";
    }
    return "?";
}

inline std::vector<std::string> Split(std::string_view text, char separator) {
    std::vector<std::string> parts(1);
    for (const char c : text) {
        if (c == separator) {
            parts.emplace_back();
        } else {
            parts.back() += c;
        }
    }
    return parts;
}

inline void SetValue(uint64_t* dest, const std::string& text) {
    if (numberContext.numberType == NumberTypeReal) {
        RealFromPlainText(RealAt(dest), text);
    } else if (numberContext.numberType == NumberTypeComplex) {
        const std::vector<std::string> parts = Split(text, ',');
        RealFromPlainText(RealPart(ComplexAt(dest)), parts[0]);
        RealFromPlainText(ImaginaryPart(ComplexAt(dest)), parts.size() > 1 ? parts[1] : "0");
    } else {
        const std::vector<uint64_t> words = ExactWords(text);
        std::copy(words.begin(), words.end(), dest);
    }
}

// And without the space of ValueText.
inline std::string WithoutZeroSigns(std::string text) {
    std::erase(text, ' ');
    for (const std::string sign : {"", ","}) {
        const std::string zero = sign + "-0";
        for (size_t at = 0; (at = text.find(zero, at)) != text.npos; at += 1) {
            const size_t end = at + zero.size();
            if ((at == 0 || !sign.empty()) && (end == text.size() || text[end] == ',')) {
                text.erase(end - 2, 1);
            }
        }
    }
    return text;
}

/// Writes a polynomial of the number type in force from its coefficients, the highest first and
/// parted by ";". Each is as ValueText of support/formula_testing.h writes it: "1;0;-25e-1", in
/// cplx "1,0;0,-2", in rat "1;-2/3". A complex one may lack its imaginary part.
inline void SetPolynomial(PolyNumbers& dest, std::string_view text) {
    const std::vector<std::string> coefficients = Split(text, ';');
    ClearPolynomial(dest);
    for (size_t i = 0; i < coefficients.size(); i++) {
        SetValue(dest.coefficients[coefficients.size() - 1 - i], coefficients[i]);
    }
}

/// The coefficients in the same form from the highest that is not 0 down; "0" for the polynomial 0.
/// A zero has no sign here. Fails the test on a malformed value.
inline std::string PolynomialText(const PolyNumbers& polynomial) {
    std::string text;
    for (int32_t i = std::max(PolyDegree(polynomial), 0); i >= 0; i--) {
        text += text.empty() ? "" : ";";
        text += WithoutZeroSigns(ValueText(polynomial.coefficients[i]));
    }
    return text;
}

inline std::string Calculate(PolyOperator operation, const std::vector<std::string>& polynomials,
                             int64_t digits, bool refine) {
    ScratchStackScope scope;
    PolyCalculation calculation =
        TakePolyCalculation(scope, operation, static_cast<int32_t>(polynomials.size()), digits);
    PolyOutcome outcome = PolyOutcome::Done;
    for (size_t k = 0; k < polynomials.size() && outcome == PolyOutcome::Done; k++) {
        SetPolynomial(NextOperand(calculation), polynomials[k]);
        outcome = ApplyOperand(calculation);
    }
    if (refine && outcome == PolyOutcome::Done) {
        outcome = RefinePolynomials(calculation);
    }
    std::string text =
        outcome == PolyOutcome::Done ? PolynomialText(calculation.result) : OutcomeName(outcome);
    if (outcome == PolyOutcome::Done && operation == PolyOperator::Divide) {
        text += " rest " + PolynomialText(calculation.remainder);
    }
    const CalcError code = TakeCode();
    return code == CalcErrorNone ? text : text + " code " + std::to_string(code);
}

/// What a calculation gives: the result, for quotients " rest " and the remainder behind it, or the
/// name of the outcome where it is not Done, and " code 200" behind what noted a code.
inline std::string Calculated(PolyOperator operation, const std::vector<std::string>& polynomials,
                              int64_t digits) {
    return Calculate(operation, polynomials, digits, true);
}

/// The same without RefinePolynomials.
inline std::string CalculatedPlainly(PolyOperator operation,
                                     const std::vector<std::string>& polynomials, int64_t digits) {
    return Calculate(operation, polynomials, digits, false);
}

}  // namespace tallymere::testing_support
