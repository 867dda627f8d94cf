// The page of linear systems for a test, and hands for its controls.
#pragma once

#include <string>
#include <vector>

#include "algebra_pages/system_columns.h"
#include "algebra_pages/windows/system_page.h"
#include "algebra_pages_windows/coefficient_page_testing.h"

namespace tallymere::testing_support {

class SystemPageTest : public CoefficientPageTest<systemPage, SystemGrid, SystemOutput> {
protected:
    SystemPageTest() : CoefficientPageTest(PageLinearSystems, CreateSystemPage) {}

    static void ChooseType(NumberType type) { ChooseTypeIn(SystemType, type); }

    /// The texts of the system, row by row.
    static std::vector<Row> Cells() {
        std::vector<Row> rows;
        for (int32_t row = 0; row < Rows(); row++) {
            rows.emplace_back();
            for (int32_t column = 0; column <= Rows(); column++) {
                rows.back().push_back(GridCell(row, GridColumnOfSystem(column, Rows())));
            }
        }
        return rows;
    }
    static void WriteSystem(const std::vector<Row>& rows) {
        const auto count = static_cast<int32_t>(rows.size());
        EnterNumber(SystemCount, count);
        for (int32_t row = 0; row < count; row++) {
            for (int32_t column = 0; column <= count; column++) {
                WriteGridCell(row, GridColumnOfSystem(column, count),
                              rows[static_cast<size_t>(row)][static_cast<size_t>(column)]);
            }
        }
    }

    static std::u16string Solve(const std::vector<Row>& rows) {
        WriteSystem(rows);
        Click(SystemSolve);
        return Output();
    }
};

}  // namespace tallymere::testing_support
