#include "algebra_pages/coefficient_cell.h"

#include <string>

#include "core/complex_text.h"
#include "core/limits.h"
#include "core/stop_request.h"
#include "support/page_run_testing.h"
#include "values/value_operations.h"

namespace tallymere {
namespace {

using namespace testing_support;

struct Cell {
    CellOutcome outcome;
    FormulaError error;
    uint64_t errorPosition;
    std::u16string value;
};

class CoefficientCell : public PageRunTest {
protected:
    // Reads a cell into junk.
    static Cell Read(const std::u16string& text, NumberType type = NumberTypeComplex) {
        const NumberSetupScope scope(
            NumberSetup{.type = type, .digits = 20, .width = UintWidthForLimbs(2)});
        ScratchStackScope scratch;
        uint64_t* value = scratch.Take(static_cast<int64_t>(SizeOfNumber()) / BytesPerWord);
        ValueFromInteger(value, 77);
        const CellReading reading = ReadCoefficientCell(value, text.c_str());
        char16_t shown[100];
        NumberToText(shown, 99, value, 0);
        return {reading.outcome, reading.error, reading.errorPosition, shown};
    }
    static void ExpectRead(const std::u16string& text, const std::u16string& value,
                           NumberType type = NumberTypeComplex) {
        const Cell cell = Read(text, type);
        EXPECT_EQ(cell.outcome, CellOutcome::Read);
        EXPECT_EQ(cell.value, value);
    }
    static void ExpectFailed(const std::u16string& text, FormulaError error, uint64_t position,
                             NumberType type = NumberTypeComplex) {
        const Cell cell = Read(text, type);
        EXPECT_EQ(cell.outcome, CellOutcome::Failed);
        EXPECT_EQ(cell.error, error);
        EXPECT_EQ(cell.errorPosition, position);
        EXPECT_EQ(cell.value, u"0");
    }
};

TEST_F(CoefficientCell, IsAFormula) {
    ExpectRead(u"-2.5", u"-2.5");
    ExpectRead(u"2*(3+4i)", u"6+8i");
    ExpectRead(u"sqrt(2)", u"1.4142135623730950488");
    ExpectRead(u"1,234,567", u"1234567");
}

TEST_F(CoefficientCell, IsAFraction) {
    ExpectRead(u"4/6", u"2/3", NumberTypeRational);
    ExpectRead(u"-(2/3)^2", u"-4/9", NumberTypeRational);
    ExpectFailed(u"0.5", FormulaErrorBadNumber, 1, NumberTypeRational);
    ExpectFailed(u"sqrt(2)", FormulaErrorOperationFailed, 7, NumberTypeRational);
    ExpectFailed(u"2^128", FormulaErrorOperationFailed, 6, NumberTypeRational);
}

TEST_F(CoefficientCell, WithoutAnythingIsZero) {
    ExpectRead(u"", u"0");
    ExpectRead(u" \t  \t", u"0");
    ExpectRead(u"", u"0", NumberTypeRational);
}

TEST_F(CoefficientCell, MayBeginWithSpacesAndTabs) {
    ExpectRead(u" \t 7", u"7");
    ExpectFailed(u" \t 7+", FormulaErrorUnexpectedEnd, 6);
    ExpectFailed(u"7+", FormulaErrorUnexpectedEnd, 3);
}

TEST_F(CoefficientCell, KnowsNoVariables) {
    ExpectFailed(u"2*x", FormulaErrorUndefinedName, 3);
    ExpectFailed(u"ans", FormulaErrorUndefinedName, 1);
}

TEST_F(CoefficientCell, HasALongestLength) {
    const std::u16string longest(CoefficientCharacters - 1, u'0');
    EXPECT_EQ(longest.size(), 1029u);
    ExpectRead(longest + u"3", u"3");
    const Cell cell = Read(longest + u"30");
    EXPECT_EQ(cell.outcome, CellOutcome::TooLong);
    EXPECT_EQ(cell.value, u"0");
    // Spaces count.
    EXPECT_EQ(Read(u" " + longest + u"3").outcome, CellOutcome::TooLong);
}

// The arithmetic notes what failed; the reading alone tells it.
TEST_F(CoefficientCell, NotesNoCodeOfTheArithmetic) {
    for (const auto& [text, type] : {std::pair(u"1/0", NumberTypeComplex),
                                     {u"ln(0)", NumberTypeComplex},
                                     {u"1e9000000000000000000", NumberTypeComplex},
                                     {u"10^10^20", NumberTypeComplex},
                                     {u"1/0", NumberTypeRational},
                                     {u"2^128", NumberTypeRational},
                                     {u"0.5", NumberTypeRational},
                                     {u"2*x", NumberTypeComplex},
                                     {u"(", NumberTypeComplex}}) {
        SCOPED_TRACE(testing::PrintToString(std::u16string(text)));
        EXPECT_EQ(Read(text, type).outcome, CellOutcome::Failed);
        EXPECT_EQ(numberContext.calcError, CalcErrorNone);
    }
    RequestStop();
    EXPECT_EQ(Read(u"2^0.5").outcome, CellOutcome::Stopped);
    EXPECT_EQ(numberContext.calcError, CalcErrorNone);
    EXPECT_EQ(PendingUiError(), UiErrorNone);
}

TEST_F(CoefficientCell, EndsWithAStop) {
    RequestStop();
    EXPECT_EQ(Read(u"1+1").outcome, CellOutcome::Stopped);
}

}  // namespace
}  // namespace tallymere
