// The Algebraic Equations page for a test, and hands for its controls.
#pragma once

#include <string>
#include <vector>

#include "algebra_pages/windows/equation_page.h"
#include "algebra_pages_windows/coefficient_page_testing.h"

namespace tallymere::testing_support {

class EquationPageTest : public CoefficientPageTest<equationPage, EquationGrid, EquationOutput> {
protected:
    EquationPageTest() : CoefficientPageTest(PageAlgebraicEquations, CreateEquationPage) {}

    static void Select(EquationControl list, int32_t item) {
        SendMessageW(Control(list), CB_SETCURSEL, static_cast<WPARAM>(item), 0);
    }
    static void ChooseDegree(int32_t degree) { EnterNumber(EquationDegreeField, degree); }

    static void WriteCell(int32_t row, const std::u16string& text) { WriteGridCell(row, 0, text); }
    static std::u16string Cell(int32_t row) { return GridCell(row, 0); }
    static std::vector<std::u16string> Cells() {
        std::vector<std::u16string> cells;
        for (int32_t row = 0; row < Rows(); row++) {
            cells.push_back(Cell(row));
        }
        return cells;
    }
    /// From the highest coefficient down; the degree becomes that of the equation.
    static void WriteEquation(const std::vector<std::u16string>& coefficients) {
        ChooseDegree(static_cast<int32_t>(coefficients.size()) - 1);
        for (size_t i = 0; i < coefficients.size(); i++) {
            WriteCell(static_cast<int32_t>(i), coefficients[i]);
        }
    }
    static void TypeIntoCell(int32_t row, const std::u16string& text) {
        TypeIntoGridCell(row, 0, text);
    }

    // Runs.

    static PagePhase Phase() { return equationPage.run.states.phase; }

    static void Finish() { PageWindowTest::Finish(equationPage.run); }

    /// Clicks Solve and returns the output at the end of the run.
    static std::u16string Solve() {
        Click(EquationSolve);
        Finish();
        return Output();
    }
    static std::u16string Solve(const std::vector<std::u16string>& coefficients) {
        WriteEquation(coefficients);
        return Solve();
    }
};

}  // namespace tallymere::testing_support
