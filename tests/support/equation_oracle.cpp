#include "support/equation_oracle.h"

#include <gtest/gtest.h>
#include <pari/pari.h>

#include <algorithm>

#include "support/pari_start_oracle.h"

namespace tallymere::testing_support {

namespace {

// What PARI has no function for. A number is shown as mantissa "e" exponent of its last digit.
constexpr const char* Helpers[] = {
    "showrational(q, w) = { my(a = abs(q), e, m);"
    "  if (q == 0, return(\"0\"));"
    "  e = if(a >= 1, logint(floor(a), 10), -logint(ceil(1/a), 10));"
    "  while (a >= 10^(e+1), e++); while (a < 10^e, e--);"
    "  m = floor(a * 10^(w-1-e) + 1/2);"
    "  Str(if(q < 0, \"-\", \"\"), m, \"e\", e-w+1) }",
    "showcoefficients(p, w) = vector(poldegree(p) + 1, i, my(c = polcoeff(p, i-1));"
    "  Str(showrational(real(c), w), \" \", showrational(imag(c), w)))",
    "squarefree(p) = { my(parts = List(), c = gcd(p, p'), w, y, i = 1);"
    "  if (poldegree(c) == 0, return([[p, 1]]));"
    "  w = p / c;"
    "  while (poldegree(w) > 0, y = gcd(w, c); listput(parts, [w/y, i]); w = y; c = c/y; i++);"
    "  Vec(parts) }",
    // Of a part that is tiny beside the other one nothing is left.
    "showroot(z, w) = { my(e = if(z == 0, 0, floor(log(abs(z))/log(10))), least = 10^(e-w+20));"
    "  Str(showrational(if(abs(real(z)) < least, 0, asfraction(real(z))), w), \" \","
    "    showrational(if(abs(imag(z)) < least, 0, asfraction(imag(z))), w)) }",
    "asfraction(t) = { my(s = bitprecision(t) - exponent(t) - 64); round(t * 2.^s) / 2^s }",
    "showroots(p, w) = { my(texts = List()); localprec(w + 50);"
    "  foreach(squarefree(p), part, if (poldegree(part[1]) > 0,"
    "    foreach(polroots(part[1]), z, for(k = 1, part[2], listput(texts, showroot(z, w))))));"
    "  Vec(texts) }",
};

// The texts of a vector that a PARI formula gives.
std::vector<std::string> TextsOf(const std::string& formula) {
    StartPari();
    static const bool prepared = [] {
        for (const char* helper : Helpers) {
            gp_read_str(helper);
        }
        return true;
    }();
    static_cast<void>(prepared);
    const pari_sp top = avma;
    GEN vector = gp_read_str(formula.c_str());
    std::vector<std::string> texts;
    for (long i = 1; i < lg(vector); i++) {
        texts.emplace_back(GSTR(gel(vector, i)));
    }
    set_avma(top);
    return texts;
}

// A part in the form "-123e-5", rounded half away from zero, in the form of PlainText.
std::string RoundedText(const std::string& text, int64_t digits) {
    if (text == "0") {
        return text;
    }
    const bool isNegative = text[0] == '-';
    const size_t mark = text.find('e');
    std::string mantissa = text.substr(isNegative ? 1 : 0, mark - (isNegative ? 1 : 0));
    int64_t exponent =
        std::stoll(text.substr(mark + 1)) + static_cast<int64_t>(mantissa.size()) - 1;
    const auto kept = static_cast<size_t>(digits);
    if (mantissa.size() > kept) {
        const bool up = mantissa[kept] >= '5';
        mantissa.resize(kept);
        size_t i = kept;
        while (up && i > 0 && mantissa[i - 1] == '9') {
            mantissa[--i] = '0';
        }
        if (up && i > 0) {
            mantissa[i - 1]++;
        } else if (up) {
            mantissa.insert(0, "1");
            exponent++;
        }
    }
    mantissa.resize(std::max<size_t>(mantissa.find_last_not_of('0') + 1, 1));
    if (mantissa.size() > 1) {
        mantissa.insert(1, ".");
    }
    return (isNegative ? "-" : "") + mantissa + "e" + std::to_string(exponent);
}

}  // namespace

std::vector<std::string> CoefficientsByPari(const std::string& polynomial, int64_t digits) {
    std::vector<std::string> texts =
        TextsOf("showcoefficients(" + polynomial + ", " + std::to_string(digits) + ")");
    return texts;
}

std::string PolynomialText(const std::vector<std::string>& coefficients) {
    std::string text;
    for (size_t i = 0; i < coefficients.size(); i++) {
        const auto exact = [](const std::string& part) {
            const size_t mark = part.find('e');
            const std::string power = mark == std::string::npos ? "0" : part.substr(mark + 1);
            return "(" + part.substr(0, mark) + ")*10^(" + power + ")";
        };
        const size_t space = std::min(coefficients[i].find(' '), coefficients[i].size());
        const std::string imaginary =
            space == coefficients[i].size() ? "0" : coefficients[i].substr(space + 1);
        text += (i == 0 ? "(" : "+(") + exact(coefficients[i].substr(0, space)) + "+I*" +
                exact(imaginary) + ")*x^" + std::to_string(i);
    }
    return text;
}

std::vector<std::string> RootsByPari(const std::string& polynomial, int64_t digits,
                                     int64_t working) {
    std::vector<std::string> roots =
        TextsOf("showroots(" + polynomial + ", " + std::to_string(working) + ")");
    for (std::string& root : roots) {
        const size_t space = root.find(' ');
        root = RoundedText(root.substr(0, space), digits) + " " +
               RoundedText(root.substr(space + 1), digits);
    }
    std::sort(roots.begin(), roots.end());
    return roots;
}

}  // namespace tallymere::testing_support
