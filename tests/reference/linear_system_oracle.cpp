#include "reference/linear_system_oracle.h"

#include <utility>

namespace tallymere::reference {

namespace {

ExactNumber Add(const ExactNumber& a, const ExactNumber& b) {
    return {a.re + b.re, a.im + b.im};
}

ExactNumber Negate(const ExactNumber& a) {
    return {-a.re, -a.im};
}

ExactNumber Multiply(const ExactNumber& a, const ExactNumber& b) {
    return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}

ExactNumber Divide(const ExactNumber& a, const ExactNumber& b) {
    const mpq_class norm = b.re * b.re + b.im * b.im;
    return Multiply(a, {b.re / norm, -b.im / norm});
}

mpq_class SquareOfModulus(const ExactNumber& a) {
    return a.re * a.re + a.im * a.im;
}

bool IsZero(const ExactNumber& a) {
    return a.re == 0 && a.im == 0;
}

mpz_class PowerOfTen(int64_t exponent) {
    mpz_class power;
    mpz_ui_pow_ui(power.get_mpz_t(), 10, static_cast<unsigned long>(exponent));
    return power;
}

struct Snapping {
    mpq_class epsilon = 0;

    void Apply(ExactNumber& a) const {
        for (mpq_class* part : {&a.re, &a.im}) {
            if (abs(*part) < epsilon) {
                *part = 0;
            }
        }
    }
};

void Eliminate(ExactSystem& rows, const Snapping& snapping) {
    const size_t n = rows.size();
    for (size_t c = 0; c + 1 < n; c++) {
        for (size_t i = c + 1; i < n; i++) {
            if (SquareOfModulus(rows[i][c]) > SquareOfModulus(rows[c][c])) {
                std::swap(rows[i], rows[c]);
            }
        }
        if (IsZero(rows[c][c])) {
            continue;
        }
        for (size_t i = c + 1; i < n; i++) {
            const ExactNumber factor = Negate(Divide(rows[i][c], rows[c][c]));
            rows[i][c] = {};
            for (size_t j = c + 1; j <= n; j++) {
                rows[i][j] = Add(rows[i][j], Multiply(factor, rows[c][j]));
                snapping.Apply(rows[i][j]);
            }
        }
    }
}

// Of 10^exponent <= |value| < 10^(exponent + 1).
int64_t DecimalExponent(const mpq_class& value) {
    const mpq_class magnitude = abs(value);
    auto exponent = static_cast<int64_t>(mpz_sizeinbase(magnitude.get_num_mpz_t(), 10)) -
                    static_cast<int64_t>(mpz_sizeinbase(magnitude.get_den_mpz_t(), 10));
    const auto power = [](int64_t e) {
        return e >= 0 ? mpq_class(PowerOfTen(e)) : mpq_class(mpz_class(1), PowerOfTen(-e));
    };
    while (magnitude < power(exponent)) {
        exponent--;
    }
    while (magnitude >= power(exponent + 1)) {
        exponent++;
    }
    return exponent;
}

std::string StripZeros(std::string digits) {
    while (digits.size() > 1 && digits.back() == '0') {
        digits.pop_back();
    }
    return digits;
}

// In parentheses where there is an exponent.
std::string ImaginaryText(const mpq_class& magnitude, int64_t digits) {
    const std::string text = digits > 0 ? TwinNumberText(magnitude, digits) : magnitude.get_str();
    if (text == "1") {
        return "i";
    }
    return text.find('e') == std::string::npos ? text + "i" : "(" + text + ")i";
}

// Without a "+" in front.
std::string NumberText(const ExactNumber& a, int64_t digits) {
    if (digits == 0) {
        return a.re.get_str();
    }
    if (a.im == 0) {
        return TwinNumberText(a.re, digits);
    }
    const std::string imaginary = ImaginaryText(abs(a.im), digits);
    const std::string sign = a.im < 0 ? "-" : "";
    if (a.re == 0) {
        return sign + imaginary;
    }
    return TwinNumberText(a.re, digits) + (sign.empty() ? "+" : sign) + imaginary;
}

// Everything in front of the name of the parameter, where something stands before it or not.
std::string CoefficientText(const ExactNumber& a, int64_t digits, bool somethingBefore) {
    const std::string plus = somethingBefore ? "+" : "";
    if (a.re == 1 && a.im == 0) {
        return plus;
    }
    if (a.re == -1 && a.im == 0) {
        return "-";
    }
    if (digits > 0 && a.re != 0 && a.im != 0) {
        return plus + "(" + NumberText(a, digits) + ")*";
    }
    if (digits == 0 && a.re.get_den() != 1) {
        const mpq_class magnitude = abs(a.re);
        return (a.re < 0 ? "-(" : plus + "(") + magnitude.get_str() + ")*";
    }
    const std::string text = NumberText(a, digits);
    return (text[0] == '-' ? "" : plus) + text + "*";
}

// A fraction rounded to so many digits.
mpq_class Rounded(const mpq_class& value, int64_t digits) {
    if (value == 0 || digits == 0) {
        return value;
    }
    const int64_t shift = digits - 1 - DecimalExponent(value);
    mpq_class scaled = abs(value);
    scaled *=
        shift >= 0 ? mpq_class(PowerOfTen(shift)) : mpq_class(mpz_class(1), PowerOfTen(-shift));
    const mpz_class whole = (2 * scaled.get_num() + scaled.get_den()) / (2 * scaled.get_den());
    mpq_class result(whole);
    result *=
        shift >= 0 ? mpq_class(mpz_class(1), PowerOfTen(shift)) : mpq_class(PowerOfTen(-shift));
    result.canonicalize();
    return value < 0 ? mpq_class(-result) : result;
}

}  // namespace

ExactSolution TwinSolveLinearSystem(ExactSystem rows, int64_t digits) {
    Snapping snapping;
    if (digits > 0) {
        snapping.epsilon = mpq_class(mpz_class(1), PowerOfTen(digits));
    }
    Eliminate(rows, snapping);
    const size_t n = rows.size();
    ExactSolution solution;
    for (size_t i = 0; i < n; i++) {
        solution.parameters += IsZero(rows[i][i]) ? 1 : 0;
    }
    solution.unknowns.assign(n, std::vector<ExactNumber>(n + 1));
    size_t p = 0;
    for (size_t i = n; i-- > 0;) {
        std::vector<ExactNumber>& unknown = solution.unknowns[i];
        unknown[0] = rows[i][n];
        for (size_t j = i + 1; j < n; j++) {
            for (size_t e = 0; e <= solution.parameters; e++) {
                unknown[e] = Add(unknown[e], Multiply(Negate(rows[i][j]), solution.unknowns[j][e]));
                snapping.Apply(unknown[e]);
            }
        }
        if (IsZero(rows[i][i])) {
            for (size_t e = 0; e <= p; e++) {
                if (!IsZero(unknown[e])) {
                    return solution;
                }
            }
            p++;
            unknown[p] = {1, 0};
        } else {
            for (size_t e = 0; e <= solution.parameters; e++) {
                unknown[e] = Divide(unknown[e], rows[i][i]);
                snapping.Apply(unknown[e]);
            }
        }
    }
    for (std::vector<ExactNumber>& unknown : solution.unknowns) {
        for (ExactNumber& value : unknown) {
            value = {Rounded(value.re, digits), Rounded(value.im, digits)};
        }
    }
    solution.isSolvable = true;
    return solution;
}

std::string TwinNumberText(const mpq_class& value, int64_t digits) {
    if (value == 0) {
        return "0";
    }
    const mpq_class rounded = abs(Rounded(value, digits));
    const std::string sign = value < 0 ? "-" : "";
    const int64_t exponent = DecimalExponent(rounded);
    const int64_t shift = digits - 1 - exponent;
    mpq_class mantissa = rounded;
    mantissa *=
        shift >= 0 ? mpq_class(PowerOfTen(shift)) : mpq_class(mpz_class(1), PowerOfTen(-shift));
    mantissa.canonicalize();
    const std::string text = StripZeros(mantissa.get_num().get_str());
    if (exponent <= -4 || exponent >= 10) {
        return sign + text.substr(0, 1) + (text.size() > 1 ? "." + text.substr(1) : "") + "e" +
               (exponent > 0 ? "+" : "") + std::to_string(exponent);
    }
    if (exponent < 0) {
        return sign + "0." + std::string(static_cast<size_t>(-exponent - 1), '0') + text;
    }
    const auto whole = static_cast<size_t>(exponent) + 1;
    if (text.size() <= whole) {
        return sign + text + std::string(whole - text.size(), '0');
    }
    return sign + text.substr(0, whole) + "." + text.substr(whole);
}

std::string TwinUnknownText(const ExactSolution& solution, size_t index, int64_t digits) {
    const std::vector<ExactNumber>& unknown = solution.unknowns[index];
    std::string text = IsZero(unknown[0]) ? "" : NumberText(unknown[0], digits);
    for (size_t k = 1; k <= solution.parameters; k++) {
        if (!IsZero(unknown[k])) {
            text += CoefficientText(unknown[k], digits, !text.empty());
            text += TwinParameterName(solution.parameters - k + 1);
        }
    }
    return text.empty() ? "0" : text;
}

std::string TwinParameterName(size_t position) {
    const char* const first[] = {"r", "s", "t", "u"};
    return position <= 4 ? first[position - 1] : "v" + std::to_string(position - 4);
}

std::string TwinParameterList(size_t parameters) {
    std::string list;
    for (size_t position = 1; position <= parameters; position++) {
        list += list.empty() ? "" : ", ";
        if (position == 6 && parameters > 6) {
            list += "…, ";
            position = parameters;
        }
        list += TwinParameterName(position);
    }
    return list;
}

}  // namespace tallymere::reference
