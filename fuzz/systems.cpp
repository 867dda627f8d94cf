// Small systems of linear equations with integers as coefficients: the solution, put back,
// satisfies all equations, it has as many parameters as the rank leaves, and real numbers give the
// digits of the fractions. Then the same system with coefficients of any size, in real or cplx, of
// which some are off: what is called certain is what a plain twin finds in fractions.
//
// Input: count of equations, digits, then the coefficients row by row. Behind them: whether the
// second system is complex, its spare digits, and for each coefficient its part, its power of ten,
// and which way it is off at which digit.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "algebra/linear_system.h"
#include "core/real_add.h"
#include "core/real_rounding.h"
#include "exact/rational_arithmetic.h"
#include "fuzz/harness_list.h"
#include "support/formula_testing.h"
#include "values/exact_conversions.h"
#include "values/value_operations.h"

namespace tallymere::fuzz {

using namespace testing_support;

namespace {

constexpr int64_t MostEquations = 5;
// Determinants are too small for an unknown that counts as 0 beside so many digits.
constexpr int64_t FewestDigits = 10;
constexpr int64_t MostDigits = 30;
// Beyond what is shown: for what the elimination loses of numbers this small.
constexpr int64_t SpareDigits = 60;
constexpr int64_t Limbs = 8;

// Of the second system.
constexpr int64_t ScaledExponents[] = {0,   0,  0,   1,  -1, 5,   -5, 10,
                                       -10, 20, -20, 38, 46, -46, 60, -60};
constexpr int64_t ScaledKnownDigits[] = {45, 38, 30, 20, 12, 3};
constexpr int64_t ScaledDirections[] = {0, 0, 1, -1};
constexpr int64_t ImaginaryParts[] = {0, 1, -1, 7, -12};
constexpr int64_t SpareBeyondNoise[] = {0, 1, 19, 60, 300};
constexpr int64_t TwinLimbs = 250;
constexpr int64_t TwinDigits = 600;

using Rows = std::vector<std::vector<int64_t>>;
using Value = std::vector<uint64_t>;

Value NewValue() {
    Value value(SizeOfNumber() / 8);
    ValueZero(value.data());
    return value;
}

Value ValueOf(int64_t k) {
    Value value = NewValue();
    ValueFromInteger(value.data(), k);
    return value;
}

std::string TextOf(const Rows& rows) {
    std::string text;
    for (const std::vector<int64_t>& row : rows) {
        for (const int64_t value : row) {
            text += std::to_string(value) + " ";
        }
        text += "\n";
    }
    return text;
}

// The rank of the first `columns` columns, modulo a prime above all minors.
int64_t RankOf(const Rows& rows, size_t columns) {
    __extension__ typedef __int128 Integer;
    constexpr int64_t Prime = (int64_t{1} << 61) - 1;
    const auto modulo = [](Integer a) { return static_cast<int64_t>((a % Prime + Prime) % Prime); };
    const auto inverse = [&](int64_t a) {
        int64_t power = 1;
        for (int64_t exponent = Prime - 2; exponent > 0; exponent >>= 1) {
            power = (exponent & 1) != 0 ? modulo(Integer{power} * a) : power;
            a = modulo(Integer{a} * a);
        }
        return power;
    };
    Rows left = rows;
    size_t rank = 0;
    for (size_t column = 0; column < columns && rank < left.size(); column++) {
        size_t pivot = rank;
        while (pivot < left.size() && modulo(left[pivot][column]) == 0) {
            pivot++;
        }
        if (pivot == left.size()) {
            continue;
        }
        std::swap(left[rank], left[pivot]);
        const int64_t scale = inverse(modulo(left[rank][column]));
        for (size_t row = rank + 1; row < left.size(); row++) {
            const int64_t factor = modulo(Integer{left[row][column]} * scale);
            for (size_t i = column; i < columns; i++) {
                left[row][i] = modulo(left[row][i] - Integer{factor} * left[rank][i]);
            }
        }
        rank++;
    }
    return static_cast<int64_t>(rank);
}

// A zero is shown without a sign.
std::string ShownText(const RealNumber* x) {
    return RealIsZero(x) ? "0" : PlainText(x);
}

// A system and its solution in the number type in force.
class SolvedSystem {
public:
    SolvedSystem(const Rows& rows, int64_t digits) : rows_(rows) {
        const auto count = static_cast<int64_t>(rows.size());
        LinearSystem system = TakeLinearSystem(CurrentScratchStack(), count);
        solution_ = TakeLinearSolution(CurrentScratchStack(), count);
        for (int64_t i = 0; i < count; i++) {
            for (int64_t j = 0; j <= count; j++) {
                const int64_t k = rows[static_cast<size_t>(i)][static_cast<size_t>(j)];
                ValueCopy(SystemValue(system, i, j), ValueOf(k).data());
            }
        }
        outcome_ = SolveLinearSystem(system, solution_, digits);
        EXPECT_EQ(TakeCode(), CalcErrorNone);
    }

    LinearOutcome Outcome() const { return outcome_; }
    int64_t Parameters() const { return solution_.parameterCount; }
    const uint64_t* Unknown(int64_t i) const { return SolutionValue(solution_, i, 0); }

    // The constants give the right sides, and the coefficients of each parameter give 0.
    void ExpectSatisfied() const {
        for (const std::vector<int64_t>& row : rows_) {
            for (int64_t k = 0; k <= Parameters(); k++) {
                Value sum = NewValue();
                for (size_t j = 0; j + 1 < row.size(); j++) {
                    Value term = ValueOf(row[j]);
                    ValueMultiply(term.data(), term.data(),
                                  SolutionValue(solution_, static_cast<int64_t>(j), k));
                    ValueAdd(sum.data(), sum.data(), term.data());
                }
                EXPECT_EQ(ValueCompareSmall(sum.data(), k == 0 ? row.back() : 0), 0)
                    << "value " << k << " of\n"
                    << TextOf(rows_);
            }
        }
        EXPECT_EQ(TakeCode(), CalcErrorNone);
    }

private:
    const ScratchStackScope scope_;
    const Rows rows_;
    LinearSolution solution_;
    LinearOutcome outcome_;
};

// The unknowns as fractions, rounded to digits at a precision that holds them.
std::vector<std::string> RoundedUnknowns(const Rows& rows, int64_t digits) {
    const auto count = static_cast<int64_t>(rows.size());
    const SolvedSystem fractions(rows, 1);
    const int64_t rank = RankOf(rows, rows.size());
    if (fractions.Outcome() == LinearOutcome::Unsolvable) {
        // One row that has a choice left counts as a contradiction by itself.
        EXPECT_LT(rank, count) << TextOf(rows);
        return {};
    }
    EXPECT_EQ(fractions.Outcome(), LinearOutcome::Solved) << TextOf(rows);
    EXPECT_EQ(fractions.Parameters(), count - rank) << TextOf(rows);
    EXPECT_EQ(RankOf(rows, rows.size() + 1), rank) << TextOf(rows);
    fractions.ExpectSatisfied();
    std::vector<std::string> unknowns;
    for (int64_t i = 0; i < count && fractions.Parameters() == 0; i++) {
        RealBuffer x;
        RealFromRational(x, RationalAt(fractions.Unknown(i)));
        RealRoundDigitsAny(x, x, digits);
        unknowns.push_back(ShownText(x));
    }
    return unknowns;
}

// A coefficient of the second system: (whole + imaginary * i) * 10^exponent, which is given as
// 10^(exponent - knownDigits) * direction more than that.
struct ScaledCoefficient {
    int64_t whole;
    int64_t imaginary;
    int64_t exponent;
    int64_t knownDigits;
    int64_t direction;
};

struct ScaledSystem {
    bool isComplex;
    int64_t digits;
    std::vector<std::vector<ScaledCoefficient>> rows;

    std::string Text() const {
        std::string text = std::to_string(digits) + (isComplex ? " digits, cplx\n" : " digits\n");
        for (const std::vector<ScaledCoefficient>& row : rows) {
            for (const ScaledCoefficient& k : row) {
                text += std::to_string(k.whole) + "," + std::to_string(k.imaginary) + "e" +
                        std::to_string(k.exponent) + "~" + std::to_string(k.direction) + "e-" +
                        std::to_string(k.knownDigits) + " ";
            }
            text += "\n";
        }
        return text;
    }
};

// Fractions of the number type rat, which is in force.
Value operator+(const Value& a, const Value& b) {
    Value sum = NewValue();
    ValueAdd(sum.data(), a.data(), b.data());
    return sum;
}
Value operator-(const Value& a, const Value& b) {
    Value difference = NewValue();
    ValueSubtract(difference.data(), a.data(), b.data());
    return difference;
}
Value operator*(const Value& a, const Value& b) {
    Value product = NewValue();
    ValueMultiply(product.data(), a.data(), b.data());
    return product;
}
Value operator/(const Value& a, const Value& b) {
    Value quotient = NewValue();
    ValueDivide(quotient.data(), a.data(), b.data());
    return quotient;
}

Value PowerOfTen(int64_t exponent) {
    Value power = ValueOf(1);
    const Value ten = ValueOf(10);
    for (int64_t k = 0; k < std::abs(exponent); k++) {
        power = exponent < 0 ? power / ten : power * ten;
    }
    return power;
}

struct ComplexFraction {
    Value re = NewValue();
    Value im = NewValue();

    bool IsZero() const { return ValueIsZero(re.data()) && ValueIsZero(im.data()); }
    Value Square() const { return re * re + im * im; }
};

ComplexFraction Product(const ComplexFraction& a, const ComplexFraction& b) {
    return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}

// The steps of the elimination in fractions, written down once more.
class FractionTwin {
public:
    explicit FractionTwin(const ScaledSystem& system)
        : count_(system.rows.size()), epsilon_(PowerOfTen(-system.digits)) {
        for (const std::vector<ScaledCoefficient>& row : system.rows) {
            std::vector<ComplexFraction> values;
            for (const ScaledCoefficient& k : row) {
                const Value power = PowerOfTen(k.exponent);
                values.push_back({ValueOf(k.whole) * power, ValueOf(k.imaginary) * power});
            }
            rows_.push_back(values);
        }
        Eliminate();
        for (size_t i = 0; i < count_; i++) {
            parameters += rows_[i][i].IsZero() ? 1U : 0U;
        }
        isSolvable = SubstituteBack();
    }

    bool isSolvable;
    size_t parameters = 0;
    // Of each unknown the constant, then the coefficients of the parameters.
    std::vector<std::vector<ComplexFraction>> unknowns;

private:
    using Row = std::vector<ComplexFraction>;

    void Snap(ComplexFraction& a) const {
        for (Value* part : {&a.re, &a.im}) {
            if (ValueCompare(part->data(), epsilon_.data(), true) < 0) {
                *part = NewValue();
            }
        }
    }
    void SubtractProduct(ComplexFraction& a, const ComplexFraction& b,
                         const ComplexFraction& c) const {
        const ComplexFraction product = Product(b, c);
        a = {a.re - product.re, a.im - product.im};
        Snap(a);
    }
    static ComplexFraction Quotient(const ComplexFraction& a, const ComplexFraction& b) {
        const ComplexFraction product = Product(a, {b.re, NewValue() - b.im});
        const Value square = b.Square();
        return {product.re / square, product.im / square};
    }
    void Eliminate() {
        for (size_t column = 0; column + 1 < count_; column++) {
            for (size_t i = column + 1; i < count_; i++) {
                if (ValueCompare(rows_[i][column].Square().data(),
                                 rows_[column][column].Square().data(), false) > 0) {
                    std::swap(rows_[i], rows_[column]);
                }
            }
            for (size_t i = column + 1; i < count_ && !rows_[column][column].IsZero(); i++) {
                const ComplexFraction factor = Quotient(rows_[i][column], rows_[column][column]);
                rows_[i][column] = {};
                for (size_t j = column + 1; j <= count_; j++) {
                    SubtractProduct(rows_[i][j], factor, rows_[column][j]);
                }
            }
        }
    }
    bool SubstituteBack() {
        unknowns.assign(count_, Row(parameters + 1));
        size_t made = 0;
        for (size_t i = count_; i-- > 0;) {
            Row& unknown = unknowns[i];
            unknown[0] = rows_[i][count_];
            for (size_t j = i + 1; j < count_; j++) {
                for (size_t k = 0; k <= parameters; k++) {
                    SubtractProduct(unknown[k], rows_[i][j], unknowns[j][k]);
                }
            }
            if (!rows_[i][i].IsZero()) {
                for (ComplexFraction& value : unknown) {
                    value = Quotient(value, rows_[i][i]);
                    Snap(value);
                }
                continue;
            }
            for (size_t k = 0; k <= made; k++) {
                if (!unknown[k].IsZero()) {
                    return false;
                }
            }
            unknown[++made].re = ValueOf(1);
        }
        return true;
    }

    size_t count_;
    Value epsilon_;
    std::vector<Row> rows_;
};

std::string RoundedText(const Value& fraction, int64_t digits) {
    RealBuffer x;
    RealFromRational(x, RationalAt(fraction.data()));
    RealRoundDigitsAny(x, x, digits);
    return ShownText(x);
}

// All that a solution says, one line for each value.
using Lines = std::vector<std::string>;

// Nothing where the fractions become too long.
Lines LinesOfTwin(const ScaledSystem& scaled) {
    // Fractions become real numbers without a wrong middle between two results.
    const FormulaScope scope(TwinDigits, NumberTypeRational);
    InstallUintWidth(UintWidthForLimbs(TwinLimbs));
    const FractionTwin twin(scaled);
    Lines lines = {twin.isSolvable ? std::to_string(twin.parameters) : "unsolvable"};
    for (size_t i = 0; i < scaled.rows.size() && twin.isSolvable; i++) {
        for (const ComplexFraction& value : twin.unknowns[i]) {
            lines.push_back(RoundedText(value.re, scaled.digits));
            if (scaled.isComplex) {
                lines.push_back(RoundedText(value.im, scaled.digits));
            }
        }
    }
    return TakeCode() == CalcErrorNone ? lines : Lines();
}

// x = k * 10^exponent, and 10^(exponent - knownDigits) * direction more.
void WriteScaled(RealNumber* x, int64_t k, const ScaledCoefficient& scaled) {
    RealFromPlainText(x, std::to_string(k) + "e" + std::to_string(scaled.exponent));
    RealBuffer off;
    RealFromPlainText(off, std::to_string(scaled.direction) + "e" +
                               std::to_string(scaled.exponent - scaled.knownDigits));
    RealAdd(x, x, off);
}

void WriteScaledSystem(const LinearSystem& system, const ScaledSystem& scaled) {
    for (int64_t i = 0; i < system.count; i++) {
        for (int64_t j = 0; j <= system.count; j++) {
            const ScaledCoefficient& k =
                scaled.rows[static_cast<size_t>(i)][static_cast<size_t>(j)];
            uint64_t* value = SystemValue(system, i, j);
            WriteScaled(RealAt(value), k.whole, k);
            if (scaled.isComplex) {
                WriteScaled(RealAt(value + RealWords()), k.imaginary, k);
            }
            if (k.direction != 0) {
                // The modulus where both parts are off, and a little more.
                system.errors[i][j] = MakeMagnitude(1.4143, k.exponent - k.knownDigits);
            }
        }
    }
}

// What the solver calls certain; nothing where it does not.
Lines CertainLines(const ScaledSystem& scaled, int64_t precision) {
    const FormulaScope scope(precision, scaled.isComplex ? NumberTypeComplex : NumberTypeReal);
    const auto count = static_cast<int64_t>(scaled.rows.size());
    ScratchStackScope stack;
    LinearSystem system = TakeLinearSystem(CurrentScratchStack(), count);
    LinearSolution solution = TakeLinearSolution(CurrentScratchStack(), count);
    WriteScaledSystem(system, scaled);
    const LinearOutcome outcome = SolveLinearSystem(system, solution, scaled.digits);
    EXPECT_EQ(TakeCode(), CalcErrorNone) << scaled.Text();
    if (!solution.isCertain) {
        return {};
    }
    const bool isSolved = outcome == LinearOutcome::Solved;
    Lines lines = {isSolved ? std::to_string(solution.parameterCount) : "unsolvable"};
    for (int64_t i = 0; i < count && isSolved; i++) {
        for (int64_t k = 0; k <= solution.parameterCount; k++) {
            const uint64_t* value = SolutionValue(solution, i, k);
            for (int64_t part = 0; part < ValueRealParts(); part++) {
                lines.push_back(ShownText(RealAt(value + part * RealWords())));
            }
        }
    }
    return lines;
}

ScaledSystem ReadScaledSystem(FuzzInput& input, const Rows& rows, int64_t digits) {
    ScaledSystem scaled = {.isComplex = input.Flag(), .digits = digits, .rows = {}};
    for (const std::vector<int64_t>& row : rows) {
        std::vector<ScaledCoefficient> values;
        for (const int64_t whole : row) {
            const int64_t imaginary = scaled.isComplex ? input.OneOf(ImaginaryParts) : 0;
            ScaledCoefficient value = {whole, imaginary, input.OneOf(ScaledExponents), 0, 0};
            if (whole != 0 && (imaginary != 0 || !scaled.isComplex)) {
                value.knownDigits = input.OneOf(ScaledKnownDigits);
                value.direction = input.OneOf(ScaledDirections);
            }
            values.push_back(value);
        }
        scaled.rows.push_back(values);
    }
    return scaled;
}

void CheckCertainty(FuzzInput& input, const Rows& rows, int64_t digits) {
    const int64_t spare = input.OneOf(SpareBeyondNoise);
    const ScaledSystem scaled = ReadScaledSystem(input, rows, digits);
    const Lines certain = CertainLines(scaled, digits + 2 * RoundingNoiseDigits + spare);
    if (certain.empty()) {
        return;
    }
    const Lines exact = LinesOfTwin(scaled);
    if (!exact.empty()) {
        EXPECT_EQ(certain, exact) << scaled.Text();
    }
}

// Integers as they are, in real numbers and in fractions.
void CheckIntegers(const Rows& rows, int64_t digits) {
    const FormulaScope scope(digits + SpareDigits, NumberTypeRational);
    InstallUintWidth(UintWidthForLimbs(Limbs));
    const std::vector<std::string> expected = RoundedUnknowns(rows, digits);
    if (expected.empty()) {
        return;
    }
    const FieldScope<NumberType> type(numberContext.numberType, NumberTypeReal);
    const SolvedSystem reals(rows, digits);
    EXPECT_EQ(reals.Outcome(), LinearOutcome::Solved) << TextOf(rows);
    EXPECT_EQ(reals.Parameters(), 0) << TextOf(rows);
    for (size_t i = 0; i < rows.size(); i++) {
        EXPECT_EQ(ShownText(RealAt(reals.Unknown(static_cast<int64_t>(i)))), expected[i])
            << TextOf(rows);
    }
}

}  // namespace

void FuzzSystems(FuzzInput& input) {
    const auto count = static_cast<size_t>(input.Number(MinUnknowns, MostEquations));
    const int64_t digits = input.Number(FewestDigits, MostDigits);
    Rows rows(count, std::vector<int64_t>(count + 1));
    for (std::vector<int64_t>& row : rows) {
        for (int64_t& value : row) {
            value = input.Number(-12, 12);
        }
    }
    CheckIntegers(rows, digits);
    CheckCertainty(input, rows, digits);
}

}  // namespace tallymere::fuzz
