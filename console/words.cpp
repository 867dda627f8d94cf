#include "console/words.h"

#include <algorithm>
#include <iterator>

#include "console/equation_word.h"
#include "console/factor_word.h"
#include "console/polynomial_word.h"
#include "console/primes_word.h"
#include "console/system_word.h"

namespace tallymere {

namespace {

constexpr Word Words[] = {
    {"equation", "the roots of an equation", RunEquationWord},
    {"factor", "prime factors and divisors of numbers", RunFactorWord},
    {"polynomial", "sums, products, quotients and powers of polynomials", RunPolynomialWord},
    {"primes", "prime numbers from a number on, or whether it is one", RunPrimesWord},
    {"system", "the unknowns of a system of linear equations", RunSystemWord},
};

constexpr size_t PurposeColumn = 16;

}  // namespace

const Word* FindWord(std::string_view argument) {
    const auto* word = std::ranges::find(Words, argument, &Word::name);
    return word != std::end(Words) ? word : nullptr;
}

std::string WordUsage() {
    std::string text;
    for (const Word& word : Words) {
        std::string line = "  " + std::string(word.name);
        line.resize(PurposeColumn, ' ');
        text += line.append(word.purpose) + "\n";
    }
    return text;
}

}  // namespace tallymere
