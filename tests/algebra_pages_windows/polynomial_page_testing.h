// The Polynomial Calculation page for a test, and hands for its controls.
#pragma once

#include <string>
#include <vector>

#include "algebra_pages/windows/polynomial_page.h"
#include "algebra_pages_windows/coefficient_page_testing.h"

namespace tallymere::testing_support {

class PolynomialPageTest
    : public CoefficientPageTest<polynomialPage, PolynomialGrid, PolynomialOutput> {
protected:
    PolynomialPageTest() : CoefficientPageTest(PagePolynomialCalculation, CreatePolynomialPage) {}

    static void ChooseType(NumberType type) { ChooseTypeIn(PolynomialType, type); }

    static void WriteCell(int32_t row, int32_t power, const std::u16string& text) {
        WriteGridCell(row, ColumnOfPower(power), text);
    }
    static std::u16string Cell(int32_t row, int32_t power) {
        return GridCell(row, ColumnOfPower(power));
    }
    /// All cells of a row, from the highest power down.
    static Row Cells(int32_t row) {
        Row cells;
        for (int32_t power = MaxPolyDegree; power >= 0; power--) {
            cells.push_back(Cell(row, power));
        }
        return cells;
    }
    /// From the highest power down; all other coefficients become empty.
    static void WritePolynomial(int32_t row, const Row& coefficients) {
        const auto degree = static_cast<int32_t>(coefficients.size()) - 1;
        for (int32_t power = 0; power <= MaxPolyDegree; power++) {
            WriteCell(row, power,
                      power <= degree ? coefficients[static_cast<size_t>(degree - power)] : u"");
        }
    }
    /// A row as Cells gives it.
    static Row Padded(const Row& coefficients) {
        Row cells(MaxPolyDegree + 1 - coefficients.size());
        cells.insert(cells.end(), coefficients.begin(), coefficients.end());
        return cells;
    }
    static void TypeIntoCell(int32_t row, int32_t power, const std::u16string& text) {
        TypeIntoGridCell(row, ColumnOfPower(power), text);
    }

    /// Clicks the button of an operator and returns the output.
    static std::u16string Calculate(PolynomialControl button) {
        Click(button);
        return Output();
    }
    /// Likewise for two polynomials.
    static std::u16string Calculate(const Row& first, PolynomialControl button, const Row& second) {
        WritePolynomial(0, first);
        WritePolynomial(1, second);
        return Calculate(button);
    }
    static bool CanTakeResult() {
        EXPECT_EQ(IsEnabled(PolynomialResultTo0), IsEnabled(PolynomialResultTo1));
        return IsEnabled(PolynomialResultTo0);
    }
};

}  // namespace tallymere::testing_support
