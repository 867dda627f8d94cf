// Systems of linear equations against the same steps in exact fractions: every character that the
// page shows.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "reference/linear_system_oracle.h"
#include "support/page_run_testing.h"
#include "support/random_source.h"
#include "support/system_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;
using namespace reference;

// A number as text of a cell and as what it means.
struct Cell {
    std::string text;
    ExactNumber value;
};
using Cells = std::vector<std::vector<Cell>>;

const mpz_class TenTo18 = 1'000'000'000'000'000'000;

std::string Shortened(const std::string& line) {
    const auto most = static_cast<size_t>(SystemLineCharacters);
    return line.size() <= most ? line + "\n" : line.substr(0, most - 1) + "…";
}

std::string ExpectedText(const Cells& cells, NumberType type, int64_t digits) {
    ExactSystem rows;
    for (const std::vector<Cell>& row : cells) {
        std::vector<ExactNumber>& values = rows.emplace_back();
        for (const Cell& cell : row) {
            values.push_back(cell.value);
        }
    }
    const int64_t shownDigits = type == NumberTypeRational ? 0 : digits;
    const ExactSolution solution = TwinSolveLinearSystem(std::move(rows), shownDigits);
    if (!solution.isSolvable) {
        return "Equation system is unsolvable!\n";
    }
    std::string text;
    bool isCut = false;
    for (size_t i = 0; i < solution.unknowns.size(); i++) {
        // The line end of two characters counts, and goes first.
        const std::string line =
            "x" + std::to_string(i + 1) + " = " + TwinUnknownText(solution, i, shownDigits);
        const bool fits = line.size() + 2 <= static_cast<size_t>(SystemLineCharacters);
        isCut = isCut || !fits;
        text += fits ? line + "\n" : Shortened(line + "##");
    }
    const std::string names = TwinParameterList(solution.parameters);
    if (solution.parameters == 1) {
        text += "\nThe parameter variable " + names + " is freely selectable.\n";
    } else if (solution.parameters > 1) {
        text += "\nThe parameter variables " + names + " are freely selectable.\n";
    }
    return text + (isCut ? "error 9002" : "");
}

SystemTexts TextsOf(const Cells& cells) {
    SystemTexts texts;
    for (const std::vector<Cell>& row : cells) {
        std::vector<std::string>& line = texts.emplace_back();
        for (const Cell& cell : row) {
            line.push_back(cell.text);
        }
    }
    return texts;
}

// The values that an unknown has for values of the parameters, read from its text: a sum of terms
// such as "2", "-r" and "+(3/4)*s".
class PrintedUnknown {
public:
    PrintedUnknown(std::string text, const std::map<std::string, mpq_class>& parameters)
        : text_(std::move(text)), parameters_(parameters) {}

    mpq_class Value() {
        mpq_class sum = 0;
        while (place_ < text_.size()) {
            sum += Term();
        }
        return sum;
    }

private:
    bool Passes(char c) {
        const bool isThere = place_ < text_.size() && text_[place_] == c;
        place_ += isThere ? 1 : 0;
        return isThere;
    }
    std::string Run(const char* characters) {
        const size_t end = std::min(text_.find_first_not_of(characters, place_), text_.size());
        const std::string run = text_.substr(place_, end - place_);
        place_ = end;
        return run;
    }
    mpq_class Term() {
        const bool isNegative = Passes('-');
        Passes('+');
        const bool hasParentheses = Passes('(');
        const std::string digits = Run("0123456789/");
        EXPECT_EQ(Passes(')'), hasParentheses);
        mpq_class value(digits.empty() ? "1" : digits);
        if (Passes('*') || digits.empty()) {
            const std::string name = Run("rstuv0123456789");
            EXPECT_EQ(parameters_.count(name), 1u) << name << " in " << text_;
            value *= parameters_.at(name);
        }
        return isNegative ? mpq_class(-value) : value;
    }

    std::string text_;
    const std::map<std::string, mpq_class>& parameters_;
    size_t place_ = 0;
};

class SystemRunOracle : public PageRunTest {
protected:
    // Returns what was expected.
    static std::string Check(const Cells& cells, NumberType type, int64_t digits) {
        std::string trace = std::to_string(digits) + " digits:";
        for (const std::vector<Cell>& row : cells) {
            for (const Cell& cell : row) {
                trace += (&cell == row.data() ? "\n" : ";") + cell.text;
            }
        }
        SCOPED_TRACE(trace.substr(0, 3000));
        const std::string expected = ExpectedText(cells, type, digits);
        EXPECT_EQ(ShownSystem(TextsOf(cells), type, digits), expected);
        return expected;
    }

    Cell Whole(int64_t most) {
        const int64_t value = random_.Between(-most, most);
        return {std::to_string(value), {mpq_class(value), 0}};
    }
    Cell Fraction(int64_t most) {
        const int64_t numerator = random_.Between(-most, most);
        const int64_t denominator = random_.Between(1, most);
        mpq_class value(numerator, denominator);
        value.canonicalize();
        return {std::to_string(numerator) + "/" + std::to_string(denominator), {value, 0}};
    }
    Cell Complex(int64_t most) {
        const Cell re = Fraction(most);
        const Cell im = random_.Below(4) == 0 ? Cell{"0", {}} : Fraction(most);
        return {re.text + "+(" + im.text + ")*i", {re.value.re, im.value.re}};
    }
    Cell Decimal(int64_t digits, int64_t scale) {
        std::string mantissa = std::to_string(random_.Between(1, 9));
        for (int64_t i = 1; i < digits; i++) {
            mantissa += static_cast<char>('0' + random_.Below(10));
        }
        const int64_t exponent = random_.Between(-scale, scale);
        mpz_class power;
        mpz_ui_pow_ui(power.get_mpz_t(), 10, static_cast<unsigned long>(std::abs(exponent)));
        mpq_class value = exponent < 0 ? mpq_class(mpz_class(mantissa), power)
                                       : mpq_class(mpz_class(mpz_class(mantissa) * power));
        value.canonicalize();
        return {mantissa + "e" + std::to_string(exponent), {value, 0}};
    }

    template <typename MakeCell>
    static Cells Filled(int64_t count, MakeCell make) {
        Cells cells(static_cast<size_t>(count));
        for (std::vector<Cell>& row : cells) {
            for (int64_t column = 0; column <= count; column++) {
                row.push_back(make());
            }
        }
        return cells;
    }

    // A number as a cell.
    static Cell CellOf(const ExactNumber& value) {
        return {value.im == 0 ? value.re.get_str()
                              : value.re.get_str() + "+(" + value.im.get_str() + ")*i",
                value};
    }

    // Sums of `rank` rows, so that the other unknowns are parameters or the system is
    // contradictory, as told by the order of its rows.
    template <typename MakeCell>
    Cells Deficient(int64_t count, int64_t rank, MakeCell make) {
        const Cells base = Filled(count, make);
        Cells cells(static_cast<size_t>(count));
        for (std::vector<Cell>& row : cells) {
            std::vector<ExactNumber> sum(static_cast<size_t>(count) + 1);
            for (int64_t i = 0; i < rank; i++) {
                const mpq_class factor = mpq_class(random_.Between(-2, 2));
                for (size_t j = 0; j < sum.size(); j++) {
                    const ExactNumber& term = base[static_cast<size_t>(i)][j].value;
                    sum[j] = {sum[j].re + factor * term.re, sum[j].im + factor * term.im};
                }
            }
            for (const ExactNumber& value : sum) {
                row.push_back(CellOf(value));
            }
        }
        return cells;
    }

    // Multiples of one row.
    template <typename MakeCell>
    Cells Multiples(int64_t count, MakeCell make) {
        Cells cells = Filled(count, make);
        for (std::vector<Cell>& row : cells) {
            const mpq_class factor = mpq_class(random_.Between(1, 99));
            for (size_t j = 0; j < row.size(); j++) {
                const ExactNumber& first = cells[0][j].value;
                row[j] = CellOf({factor * first.re, factor * first.im});
            }
        }
        return cells;
    }

    // 10^exponent.
    static ExactNumber Power(int64_t exponent) {
        mpz_class power;
        mpz_ui_pow_ui(power.get_mpz_t(), 10, static_cast<unsigned long>(exponent));
        return {mpq_class(power), 0};
    }

    static Cells Scaled(Cells cells, int64_t exponent) {
        const mpq_class power = Power(exponent).re;
        for (std::vector<Cell>& row : cells) {
            for (Cell& cell : row) {
                cell.text = "(" + cell.text + ")*1e" + std::to_string(exponent);
                cell.value = {cell.value.re * power, cell.value.im * power};
            }
        }
        return cells;
    }

    // A number from 0.1 to 1 with one digit more than so many, which is a 5.
    mpq_class Tie(int64_t digits) {
        mpz_class tie = random_.Between(1, 9);
        for (int64_t i = 1; i < digits; i++) {
            tie = tie * 10 + random_.Between(0, 9);
        }
        mpq_class value(mpz_class(tie * 10 + 5), Power(digits + 1).re.get_num());
        value.canonicalize();
        return value;
    }

    // The coefficients, with right sides so that these are the unknowns.
    static Cells SolvedBy(Cells cells, const std::vector<ExactNumber>& unknowns) {
        for (std::vector<Cell>& row : cells) {
            ExactNumber sum;
            for (size_t j = 0; j < unknowns.size(); j++) {
                const ExactNumber& a = row[j].value;
                const ExactNumber& x = unknowns[j];
                sum = {sum.re + a.re * x.re - a.im * x.im, sum.im + a.re * x.im + a.im * x.re};
            }
            row.back() = CellOf(sum);
        }
        return cells;
    }

    int64_t AnyDigits() {
        constexpr int64_t Choices[] = {5, 6, 10, 10, 17, 38, 100};
        return Choices[random_.Below(std::size(Choices))];
    }
    // Small ones most of the time.
    int64_t AnyCount() {
        return random_.Below(4) == 0 ? random_.Between(8, 25) : random_.Between(2, 7);
    }

    RandomSource random_;
};

TEST_F(SystemRunOracle, SolvesRegularSystems) {
    for (int round = 0; round < TestRounds(150); round++) {
        Check(Filled(AnyCount(), [&] { return Whole(9); }), NumberTypeReal, AnyDigits());
        Check(Filled(AnyCount(), [&] { return Fraction(9); }), NumberTypeReal, AnyDigits());
        Check(Filled(AnyCount(), [&] { return Complex(9); }), NumberTypeComplex, AnyDigits());
        Check(Filled(AnyCount(), [&] { return Whole(99); }), NumberTypeRational, 10);
    }
}

TEST_F(SystemRunOracle, SolvesTheLargestSystems) {
    for (int round = 0; round < TestRounds(5); round++) {
        Check(Filled(25, [&] { return Decimal(30, 0); }), NumberTypeReal, 1000);
        Check(Filled(25, [&] { return Complex(9); }), NumberTypeComplex, 100);
        Check(Filled(25, [&] { return Whole(9); }), NumberTypeRational, 10);
    }
    Check(Filled(25, [&] { return Complex(2); }), NumberTypeComplex, 1000);
}

TEST_F(SystemRunOracle, SolvesBadlyScaledSystems) {
    for (int round = 0; round < TestRounds(100); round++) {
        const int64_t scale = random_.Between(1, 25);
        Check(Filled(random_.Between(2, 6), [&] { return Decimal(8, scale); }), NumberTypeReal,
              AnyDigits());
    }
}

// Numbers with far more digits than are worked with at first.
TEST_F(SystemRunOracle, ReadsAllDigitsOfACell) {
    for (int round = 0; round < TestRounds(30); round++) {
        const int64_t digits = random_.Between(20, 40);
        Check(Filled(random_.Between(2, 4), [&] { return Decimal(digits, 3); }), NumberTypeReal, 5);
    }
}

TEST_F(SystemRunOracle, NamesParameters) {
    int withParameters = 0;
    for (int round = 0; round < TestRounds(150); round++) {
        const int64_t count = AnyCount();
        const int64_t rank = random_.Between(0, count - 1);
        const auto hasParameters = [&](const std::string& text) {
            return text.find("freely") != text.npos ? 1 : 0;
        };
        withParameters += hasParameters(
            Check(Deficient(count, rank, [&] { return Whole(9); }), NumberTypeReal, AnyDigits()));
        withParameters += hasParameters(Check(Deficient(count, rank, [&] { return Fraction(9); }),
                                              NumberTypeReal, AnyDigits()));
        withParameters += hasParameters(Check(Deficient(count, rank, [&] { return Complex(3); }),
                                              NumberTypeComplex, AnyDigits()));
        withParameters += hasParameters(
            Check(Deficient(count, rank, [&] { return Fraction(3); }), NumberTypeRational, 10));
    }
    EXPECT_GT(withParameters, TestRounds(150));
}

// Each number of parameters from 1 to 25.
TEST_F(SystemRunOracle, NamesAsManyParametersAsThereAre) {
    for (int64_t rank = 0; rank < 25; rank++) {
        const std::string text =
            Check(Deficient(25, rank, [&] { return Whole(5); }), NumberTypeReal, 10);
        EXPECT_NE(text.find(rank == 24 ? "variable r is" : "variables r, s"), text.npos);
    }
}

// The printed solution is put into the equations, with any values for the parameters.
TEST_F(SystemRunOracle, SatisfiesTheEquationsForAllParameters) {
    int checked = 0;
    for (int round = 0; round < TestRounds(100); round++) {
        const int64_t count = random_.Between(2, 25);
        const int64_t rank = random_.Between(std::max<int64_t>(count - 24, 0), count - 1);
        const Cells cells = Deficient(count, rank, [&] { return Fraction(5); });
        const std::string text = ShownSystem(TextsOf(cells), NumberTypeRational);
        if (text.find("unsolvable") != text.npos) {
            continue;
        }
        std::map<std::string, mpq_class> parameters;
        for (int position = 1; position <= 25; position++) {
            mpq_class value(random_.Between(-99, 99), random_.Between(1, 9));
            value.canonicalize();
            parameters[TwinParameterName(static_cast<size_t>(position))] = value;
        }
        std::vector<mpq_class> unknowns;
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line) && !line.empty();) {
            unknowns.push_back(
                PrintedUnknown(line.substr(line.find(" = ") + 3), parameters).Value());
        }
        ASSERT_EQ(static_cast<int64_t>(unknowns.size()), count);
        for (const std::vector<Cell>& row : cells) {
            mpq_class sum = 0;
            for (size_t j = 0; j < unknowns.size(); j++) {
                sum += row[j].value.re * unknowns[j];
            }
            EXPECT_EQ(sum.get_str(), row.back().value.re.get_str()) << text;
        }
        checked++;
    }
    EXPECT_GT(checked, TestRounds(100) / 2);
}

TEST_F(SystemRunOracle, FindsContradictions) {
    for (int round = 0; round < TestRounds(60); round++) {
        const int64_t count = AnyCount();
        Cells cells = Deficient(count, count - 1, [&] { return Whole(9); });
        const size_t row = random_.Below(static_cast<uint64_t>(count));
        cells[row].back() = CellOf({cells[row].back().value.re + 1, 0});
        Check(cells, NumberTypeReal, AnyDigits());
        Check(cells, NumberTypeRational, 10);
    }
}

// Zeros on the diagonal and everywhere else.
TEST_F(SystemRunOracle, AgreesOnSparseSystems) {
    for (int round = 0; round < TestRounds(400); round++) {
        const int64_t count = random_.Between(2, 5);
        const auto make = [&] { return random_.Below(3) == 0 ? Whole(2) : Cell{"", {}}; };
        Check(Filled(count, make), NumberTypeReal, 10);
        Check(Filled(count, make), NumberTypeRational, 10);
    }
}

// Two candidates for a pivot have the same magnitude but for rounding errors, and the order of the
// rows decides: behind the first of the two the last row becomes zeros, and behind the second one
// it does not.
TEST_F(SystemRunOracle, KeepsTheOrderOfEqualCandidates) {
    const auto any = [&] {
        mpq_class value(random_.Between(-9, 9), random_.Between(1, 9));
        value.canonicalize();
        return value;
    };
    int unsolvable = 0;
    int solvable = 0;
    for (int round = 0; round < TestRounds(200); round++) {
        const mpq_class ratio = any();
        const std::vector<mpq_class> first = {30, any(), any(), any(), any()};
        std::vector<std::vector<mpq_class>> rows(4, std::vector<mpq_class>(5));
        rows[0] = first;
        const mpq_class a = any() + 10;
        rows[1] = {0, a, a * ratio, any(), any()};
        rows[2] = {0, -a, -a * ratio, any(), any()};
        const size_t chosen = 1 + random_.Below(2);
        for (size_t j = 0; j < 5; j++) {
            rows[3][j] = rows[chosen][j] / 3;
        }
        Cells cells(4);
        for (size_t i = 0; i < 4; i++) {
            const mpq_class factor = i == 0 ? mpq_class(0) : any();
            for (size_t j = 0; j < 5; j++) {
                cells[i].push_back(CellOf({rows[i][j] + factor * first[j], 0}));
            }
        }
        const bool isUnsolvable =
            Check(cells, NumberTypeReal, 10).find("unsolvable") != std::string::npos;
        (isUnsolvable ? unsolvable : solvable)++;
    }
    EXPECT_GT(unsolvable, 0);
    EXPECT_GT(solvable, 0);
}

// Values that are the least one that is not taken for 0, or nearly so, but for rounding errors.
TEST_F(SystemRunOracle, KeepsWhatIsExactlyTheLeast) {
    for (int round = 0; round < TestRounds(1000); round++) {
        const int64_t count = random_.Between(2, 4);
        Cells cells = Filled(count, [&] { return Fraction(7); });
        for (std::vector<Cell>& row : cells) {
            mpq_class sum = 0;
            for (size_t j = 0; j < row.size() - 1; j++) {
                sum += row[j].value.re / 100'000;
            }
            row.back() = CellOf({sum, 0});
        }
        Check(cells, NumberTypeReal, 5);
    }
}

TEST_F(SystemRunOracle, AgreesOnWhatIsTooSmall) {
    for (int round = 0; round < TestRounds(400); round++) {
        const auto make = [&] { return random_.Below(3) == 0 ? Decimal(1, 8) : Cell{"", {}}; };
        Check(Filled(random_.Between(2, 4), make), NumberTypeReal, 5);
        const auto makeComplex = [&] {
            const Cell re = make();
            const Cell im = make();
            return CellOf({re.value.re, im.value.re});
        };
        Check(Filled(random_.Between(2, 4), makeComplex), NumberTypeComplex, 5);
    }
}

// Their condition grows by a factor of 30 with each unknown, and pivots below 10^-digits are 0.
TEST_F(SystemRunOracle, SolvesHilbertSystems) {
    for (const int64_t count : {2, 3, 5, 8, 12, 25}) {
        Cells cells(static_cast<size_t>(count));
        for (int64_t i = 0; i < count; i++) {
            for (int64_t j = 0; j < count; j++) {
                cells[static_cast<size_t>(i)].push_back(
                    {"1/" + std::to_string(i + j + 1), {mpq_class(1, i + j + 1), 0}});
            }
            cells[static_cast<size_t>(i)].push_back({"1", {1, 0}});
        }
        for (const int64_t digits : {5, 10, 20, 50, 200}) {
            Check(cells, NumberTypeReal, digits);
        }
        Check(cells, NumberTypeRational, 10);
    }
}

// Unknowns that lie exactly between two numbers of so many digits.
TEST_F(SystemRunOracle, RoundsTiesAwayFromZero) {
    const auto checkTies = [&](const Cells& coefficients, NumberType type, int64_t digits) {
        std::vector<ExactNumber> unknowns;
        for (size_t i = 0; i < coefficients.size(); i++) {
            unknowns.push_back(
                {Tie(digits), type == NumberTypeComplex ? Tie(digits) : mpq_class(0)});
        }
        Check(SolvedBy(coefficients, unknowns), type, digits);
    };
    for (int round = 0; round < TestRounds(60); round++) {
        for (const int64_t digits : {5, 10, 100}) {
            const int64_t count = random_.Between(2, 6);
            checkTies(Filled(count, [&] { return Fraction(9); }), NumberTypeReal, digits);
            checkTies(Filled(count, [&] { return Complex(9); }), NumberTypeComplex, digits);
        }
    }
}

// The bound below which a value is 0 is absolute, so rounding errors grow past it together with the
// coefficients.
TEST_F(SystemRunOracle, FindsParametersBesideLargeCoefficients) {
    constexpr int64_t Exponents[] = {15, 30, 37, 38, 39, 40, 41, 60, 100, 300, 1000, 2500};
    int withParameters = 0;
    for (int round = 0; round < TestRounds(10); round++) {
        for (const int64_t exponent : Exponents) {
            const int64_t count = random_.Between(2, 6);
            const int64_t rank = random_.Between(1, count - 1);
            const auto check = [&](const Cells& cells, NumberType type) {
                const std::string text = Check(Scaled(cells, exponent), type, AnyDigits());
                withParameters += text.find("freely") != text.npos ? 1 : 0;
            };
            check(Deficient(count, rank, [&] { return Whole(99); }), NumberTypeReal);
            check(Deficient(count, rank, [&] { return Fraction(9); }), NumberTypeReal);
            check(Deficient(count, rank, [&] { return Complex(9); }), NumberTypeComplex);
            check(Multiples(count, [&] { return Whole(99); }), NumberTypeReal);
        }
    }
    EXPECT_GT(withParameters, TestRounds(10) * std::ssize(Exponents));
}

// Products of triangular matrices with 1 on the diagonal: what the elimination finds is that 1,
// however long the coefficients are.
TEST_F(SystemRunOracle, FindsWhatIsLeftOfLongCoefficients) {
    for (int round = 0; round < TestRounds(5); round++) {
        const auto count = static_cast<size_t>(random_.Between(4, 6));
        const int64_t digits = random_.Between(100, 300);
        const auto entry = [&](bool isThere) {
            mpz_class value = 0;
            for (int64_t k = 0; isThere && k < digits; k += 18) {
                value = value * TenTo18 + random_.Between(0, 999'999'999'999'999'999);
            }
            return value;
        };
        std::vector<std::vector<mpz_class>> lower(count);
        std::vector<std::vector<mpz_class>> upper(count);
        for (size_t i = 0; i < count; i++) {
            for (size_t j = 0; j < count; j++) {
                lower[i].push_back(i == j ? mpz_class(1) : entry(j < i));
                upper[i].push_back(i == j ? mpz_class(1) : entry(j > i));
            }
        }
        Cells cells(count);
        for (size_t i = 0; i < count; i++) {
            for (size_t j = 0; j < count; j++) {
                mpz_class sum = 0;
                for (size_t k = 0; k < count; k++) {
                    sum += lower[i][k] * upper[k][j];
                }
                cells[i].push_back(CellOf({sum, 0}));
            }
            cells[i].push_back(Whole(9));
        }
        Check(cells, NumberTypeReal, AnyDigits());
    }
}

// Two rows that are the same but for one digit far behind, or quite the same.
TEST_F(SystemRunOracle, SeesADifferenceInAnyDigit) {
    for (int round = 0; round < TestRounds(60); round++) {
        const int64_t place = random_.Between(30, 200);
        const int64_t count = random_.Between(2, 4);
        for (const bool isComplex : {false, true}) {
            Cells cells = Filled(count, [&] { return isComplex ? Complex(9) : Whole(9); });
            cells[0][1] = CellOf(Power(place));
            cells[1] = cells[0];
            const ExactNumber difference = {isComplex ? 0 : 1, isComplex ? 1 : 0};
            if (random_.Below(4) != 0) {
                cells[1][1] = CellOf({cells[0][1].value.re + difference.re, difference.im});
            }
            if (random_.Below(2) != 0) {
                cells[1].back() = CellOf({cells[0].back().value.re + 2, 0});
            }
            Check(cells, isComplex ? NumberTypeComplex : NumberTypeReal, AnyDigits());
        }
    }
}

// The row with the largest coefficient goes first, which decides what is unsolvable.
TEST_F(SystemRunOracle, TellsCandidatesApartByAnyDigit) {
    for (int round = 0; round < TestRounds(100); round++) {
        const ExactNumber power = Power(random_.Between(12, 60));
        const auto candidate = [&](int64_t re, int64_t im) {
            return CellOf({power.re + random_.Between(-re, re), random_.Between(-im, im)});
        };
        for (const bool isComplex : {false, true}) {
            Cells cells = Filled(3, [&] { return Whole(2); });
            for (std::vector<Cell>& row : cells) {
                row[0] = isComplex ? candidate(0, 3) : candidate(1, 0);
                row[1] = random_.Below(2) == 0 ? row[0] : CellOf(power);
            }
            Check(cells, isComplex ? NumberTypeComplex : NumberTypeReal, AnyDigits());
        }
    }
}

}  // namespace
}  // namespace tallymere
