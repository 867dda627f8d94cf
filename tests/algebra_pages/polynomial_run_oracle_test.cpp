// Calculations with polynomials from the texts of their cells to the text of the result, with
// coefficients that do not end, against fractions of GMP: every character that the page shows.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "algebra/polynomial_exact_oracle.h"
#include "algebra_pages/polynomial_run.h"
#include "reference/linear_system_oracle.h"
#include "support/page_run_testing.h"
#include "support/random_source.h"

namespace tallymere {
namespace {

using namespace testing_support;
using namespace reference;

// The digits that square roots are right to here. What is below KnownSize is 0, and what is as
// close as that below a middle counts as the middle.
constexpr int64_t RootDigits = 700;
const mpq_class KnownSize = TenTo(-500);

// A cell as its text and as what it means.
struct Cell {
    std::string text;
    ExactComplex value;
};

// From the constant upward.
using Cells = std::vector<Cell>;

mpq_class SquareRoot(const mpq_class& square) {
    const mpq_class scaled = square * TenTo(2 * RootDigits);
    mpz_class root = scaled.get_num() / scaled.get_den();
    root = sqrt(root);
    return mpq_class(root) * TenTo(-RootDigits);
}

mpq_class Cleared(const mpq_class& value, const mpq_class& known = KnownSize) {
    if (abs(value) <= known) {
        return 0;
    }
    return value < 0 ? mpq_class(value - known) : mpq_class(value + known);
}

std::string NumberOf(const ExactComplex& value, int64_t digits) {
    const ExactSolution number = {
        .isSolvable = true, .parameters = 0, .unknowns = {{{value.re, value.im}}}};
    return TwinUnknownText(number, 0, digits);
}

// The lines of the coefficients.
std::string PlainLinesOf(const ExactPoly& polynomial, char letter, int64_t digits) {
    std::string text;
    for (int i = std::max(DegreeOf(polynomial), 0); i >= 0; i--) {
        text += letter + std::to_string(i) + " = " +
                NumberOf(polynomial[static_cast<size_t>(i)], digits) + "\r\n";
    }
    return text;
}

std::string LinesOf(ExactPoly polynomial, char letter, int64_t digits) {
    for (ExactComplex& value : polynomial) {
        value = {Cleared(value.re), Cleared(value.im)};
    }
    return PlainLinesOf(polynomial, letter, digits);
}

ExactPoly ValuesOf(const Cells& cells) {
    ExactPoly values;
    for (size_t i = 0; i < cells.size(); i++) {
        values[i] = cells[i].value;
    }
    return values;
}

std::string ExpectedLines(PolyOperator operation, const std::vector<Cells>& operands,
                          int64_t digits) {
    ExactPoly result = ValuesOf(operands[0]);
    if (operation == PolyOperator::Divide) {
        ExactResult exact;
        ExactDivision(exact, result, ValuesOf(operands[1]));
        return LinesOf(exact.result, 'b', digits) + "\r\n" + LinesOf(exact.remainder, 'r', digits);
    }
    if (operation == PolyOperator::Power) {
        const auto exponent = static_cast<int>(operands[1][0].value.re.get_d());
        for (int k = 1; k < exponent; k++) {
            result = ExactProduct(result, ValuesOf(operands[0]));
        }
        return LinesOf(result, 'b', digits);
    }
    for (size_t k = 1; k < operands.size(); k++) {
        const ExactPoly operand = ValuesOf(operands[k]);
        if (operation == PolyOperator::Times) {
            result = ExactProduct(result, operand);
            continue;
        }
        for (size_t i = 0; i < operand.size(); i++) {
            result[i] =
                operation == PolyOperator::Plus ? result[i] + operand[i] : result[i] - operand[i];
        }
    }
    return LinesOf(result, 'b', digits);
}

ExactPoly SizesOf(const Cells& cells) {
    ExactPoly sizes;
    for (size_t i = 0; i < cells.size(); i++) {
        sizes[i].re = abs(cells[i].value.re);
    }
    return sizes;
}

// A sum or a product of real polynomials of any size: a coefficient is 0 where it is below
// 10^-583 of the sizes of its terms, which readings of 10 shown digits tell from 0.
std::string ExpectedLinesOfAnySize(PolyOperator operation, const std::vector<Cells>& operands) {
    ExactPoly result = ValuesOf(operands[0]);
    ExactPoly sizes = SizesOf(operands[0]);
    for (size_t k = 1; k < operands.size(); k++) {
        const ExactPoly operand = ValuesOf(operands[k]);
        if (operation == PolyOperator::Times) {
            result = ExactProduct(result, operand);
            sizes = ExactProduct(sizes, SizesOf(operands[k]));
            continue;
        }
        for (size_t i = 0; i < operand.size(); i++) {
            result[i] = result[i] + operand[i];
            sizes[i] = sizes[i] + SizesOf(operands[k])[i];
        }
    }
    for (size_t i = 0; i < result.size(); i++) {
        result[i].re = Cleared(result[i].re, sizes[i].re * TenTo(-583));
    }
    return PlainLinesOf(result, 'b', 10);
}

std::string ShownLines(PolyOperator operation, const std::vector<Cells>& operands, NumberType type,
                       int64_t digits) {
    PolynomialRequest request = {
        .operation = operation,
        .count = static_cast<int32_t>(operands.size()),
        .maxDegree = MaxPolyDegree,
        .type = type,
        .digits = digits,
        .printFlags = 0,
        .readCell =
            [](void* context, int32_t polynomial, int32_t power, char16_t* text) {
                const Cells& cells = (*static_cast<const std::vector<Cells>*>(
                    context))[static_cast<size_t>(polynomial)];
                const auto at = static_cast<size_t>(power);
                const std::string cell = at < cells.size() ? cells[at].text : "";
                std::copy(cell.begin(), cell.end(), text);
                text[cell.size()] = 0;
            },
        .context = const_cast<std::vector<Cells>*>(&operands)};
    ResultStore store;
    keptText.clear();
    EXPECT_TRUE(RunPolynomials(
        request, store, [](void*, const char16_t* text) { KeepPiece(text); }, nullptr));
    const std::string text(keptText.begin(), keptText.end());
    return text.substr(std::min(text.find("\r\n\r\n") + 4, text.size()));
}

class PolynomialRunOracle : public PageRunTest {
protected:
    static void Check(PolyOperator operation, const std::vector<Cells>& operands, NumberType type,
                      int64_t digits) {
        std::string trace = std::to_string(static_cast<int>(operation)) + " to " +
                            std::to_string(digits) + " digits:";
        for (const Cells& cells : operands) {
            trace += "\n";
            for (const Cell& cell : cells) {
                trace += cell.text + "; ";
            }
        }
        SCOPED_TRACE(trace);
        EXPECT_EQ(ShownLines(operation, operands, type, digits),
                  ExpectedLines(operation, operands, digits));
    }

    // Of about the size 1, so that no reading misses what an echo is off.
    Cell Decimal(int64_t digits) {
        std::string mantissa = std::to_string(random_.Between(1, 9));
        while (static_cast<int64_t>(mantissa.size()) < digits) {
            mantissa += static_cast<char>('0' + random_.Below(10));
        }
        const int64_t exponent = -random_.Between(digits - 2, digits + 1);
        return {mantissa + "e" + std::to_string(exponent),
                {mpz_class(mantissa) * TenTo(exponent), 0}};
    }
    Cell Fraction() {
        mpq_class value(random_.Between(-99, 99), random_.Between(1, 99));
        const std::string text = value.get_num().get_str() + "/" + value.get_den().get_str();
        value.canonicalize();
        return {text, {value, 0}};
    }
    Cell Root() {
        const Cell square = Decimal(random_.Between(1, 3));
        return {"sqrt(" + square.text + ")", {SquareRoot(square.value.re), 0}};
    }
    Cell Real(int64_t digits) {
        switch (random_.Below(4)) {
            case 0:
                return Decimal(random_.Between(digits + 4, digits + 20));
            case 1:
                return Root();
            case 2:
                return Decimal(random_.Between(1, 4));
            default:
                return Fraction();
        }
    }
    Cell Any(NumberType type, int64_t digits) {
        const Cell re = Real(digits);
        if (type == NumberTypeReal || random_.Below(3) == 0) {
            return re;
        }
        const Cell im = Real(digits);
        return {re.text + "+(" + im.text + ")*i", {re.value.re, im.value.re}};
    }
    Cells Polynomial(NumberType type, int64_t digits, int64_t degree) {
        Cells cells;
        for (int64_t i = 0; i <= degree; i++) {
            cells.push_back(Any(type, digits));
        }
        // The highest one is not 0.
        cells.push_back({"1/7", {mpq_class(1, 7), 0}});
        return cells;
    }

    // The same coefficients with other signs or the other way round, so that terms cancel; some are
    // a little off.
    Cells Echo(const Cells& source, int64_t digits) {
        Cells cells = source;
        for (size_t i = 0; i < cells.size(); i++) {
            const Cell& from = source[random_.Below(3) == 0 ? source.size() - 1 - i : i];
            cells[i] = {"-(" + from.text + ")", ExactComplex{} - from.value};
            if (random_.Below(4) == 0) {
                const int64_t exponent = -digits - random_.Between(0, 25);
                cells[i].text += "+1e" + std::to_string(exponent);
                cells[i].value.re += TenTo(exponent);
            }
        }
        return cells;
    }

    void CheckOne(PolyOperator operation, NumberType type, int64_t digits) {
        std::vector<Cells> operands = {Polynomial(type, digits, random_.Between(0, 3))};
        if (operation == PolyOperator::Power) {
            const int64_t exponent = random_.Between(1, 4);
            operands.push_back({{"1/7*" + std::to_string(7 * exponent),
                                 {mpq_class(static_cast<long>(exponent)), 0}}});
        } else if (random_.Below(2) == 0) {
            operands.push_back(Echo(operands[0], digits));
        } else {
            operands.push_back(Polynomial(type, digits, random_.Between(0, 2)));
        }
        const bool takesMore =
            operation != PolyOperator::Power && operation != PolyOperator::Divide;
        if (takesMore && random_.Below(3) == 0) {
            operands.push_back(Polynomial(type, digits, random_.Between(0, 2)));
        }
        Check(operation, operands, type, digits);
    }

    // A fraction other than 0 of about the size 10^exponent.
    Cell Sized(int64_t exponent) {
        const auto above = static_cast<long>(random_.Between(1, 99));
        const auto below = static_cast<long>(random_.Between(1, 99));
        return SizedAs(above, below, exponent);
    }
    static Cell SizedAs(long above, long below, int64_t exponent) {
        mpq_class value(above, below);
        value.canonicalize();
        return {
            std::to_string(above) + "/" + std::to_string(below) + "*1e" + std::to_string(exponent),
            {value * TenTo(exponent), 0}};
    }
    // A fraction without end, whose readings all differ, and its parts.
    struct Endless {
        long above;
        long below;
    };
    Endless EndlessFraction() {
        constexpr long Denominators[] = {9, 11, 13, 17, 19, 23};
        return {static_cast<long>(random_.Between(1, 8)),
                Denominators[random_.Below(std::size(Denominators))]};
    }
    // 3 such numbers of a size whose sum is 0, and which are rounded each in its own way.
    std::vector<Cell> Cancelling(int64_t exponent) {
        const Endless f = EndlessFraction();
        return {SizedAs(f.above, f.below, exponent), SizedAs(-6 * f.above, 7 * f.below, exponent),
                SizedAs(-f.above, 7 * f.below, exponent)};
    }

    RandomSource random_;
};

TEST_F(PolynomialRunOracle, HasEveryDigit) {
    constexpr int64_t Digits[] = {5, 6, 10, 17, 38, 100};
    for (int round = 0; round < TestRounds(60) && !HasFailure(); round++) {
        for (const PolyOperator operation : PolyOperators) {
            const int64_t digits = Digits[random_.Below(std::size(Digits))];
            CheckOne(operation, NumberTypeReal, digits);
            CheckOne(operation, NumberTypeComplex, digits);
        }
    }
}

// Sums whose largest terms cancel, with terms of 3 sizes from 10^300 to 10^-300.
TEST_F(PolynomialRunOracle, HasEveryDigitOfSumsOfAnySize) {
    for (int round = 0; round < TestRounds(60) && !HasFailure(); round++) {
        std::vector<Cells> operands(5);
        for (int i = 0; i <= 3; i++) {
            const int64_t largest = 100 * random_.Between(-2, 3);
            const std::vector<Cell> large = Cancelling(largest);
            operands[0].push_back(large[0]);
            operands[1].push_back(Sized(-300));
            operands[2].push_back(large[1]);
            operands[3].push_back(random_.Below(2) == 0 ? Sized(100 * random_.Between(-3, 3))
                                                        : Cell{"", {}});
            operands[4].push_back(large[2]);
        }
        SCOPED_TRACE(operands[0][0].text + " " + operands[1][0].text);
        EXPECT_EQ(ShownLines(PolyOperator::Plus, operands, NumberTypeReal, 10),
                  ExpectedLinesOfAnySize(PolyOperator::Plus, operands));
    }
}

// (u x + v) (u x - v + w) with u, v and w of any size: v u cancels.
TEST_F(PolynomialRunOracle, HasEveryDigitOfProductsOfAnySize) {
    for (int round = 0; round < TestRounds(60) && !HasFailure(); round++) {
        const int64_t size = 100 * random_.Between(-3, 3);
        const Cell u = Sized(100 * random_.Between(-3, 3));
        const Endless f = EndlessFraction();
        const Cell v = SizedAs(f.above, f.below, size);
        const Cell w = Sized(size - 100 * random_.Between(0, 5));
        const Cell last = {"-" + v.text + "+" + w.text, {w.value.re - v.value.re, 0}};
        const std::vector<Cells> operands = {{v, u}, {last, u}, {Sized(-300), Sized(300)}};
        SCOPED_TRACE(u.text + " " + v.text + " " + w.text);
        EXPECT_EQ(ShownLines(PolyOperator::Times, operands, NumberTypeReal, 10),
                  ExpectedLinesOfAnySize(PolyOperator::Times, operands));
    }
}

// (x - r) (x + r) / (x - r) with a rounded r leaves no remainder.
TEST_F(PolynomialRunOracle, FindsRemaindersOfRoots) {
    for (int round = 0; round < TestRounds(60); round++) {
        const Cell square = {std::to_string(random_.Between(2, 999)), {}};
        const mpq_class value(square.text);
        const Cells dividend = {
            {"-" + square.text, {mpq_class(-value), 0}}, {"0", {}}, {"1", {1, 0}}};
        const Cells divisor = {{"-sqrt(" + square.text + ")", {-SquareRoot(value), 0}},
                               {"1", {1, 0}}};
        Check(PolyOperator::Divide, {dividend, divisor}, NumberTypeReal, random_.Between(5, 40));
    }
}

}  // namespace
}  // namespace tallymere
