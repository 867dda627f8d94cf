#include "algebra_pages/coefficient_cell.h"

#include <chrono>
#include <string>
#include <thread>
#include <vector>

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
    // The same without what rounding left of 0.
    static std::u16string ReadClean(const std::u16string& text, int64_t digits = 20) {
        const NumberSetupScope scope(NumberSetup{
            .type = NumberTypeComplex, .digits = digits, .width = UintWidthForLimbs(2)});
        ScratchStackScope scratch;
        uint64_t* value = scratch.Take(static_cast<int64_t>(SizeOfNumber()) / BytesPerWord);
        EXPECT_EQ(ReadCellWithoutNoise(value, text.c_str()).outcome, CellOutcome::Read);
        std::u16string shown(4 * MaxDigits, u'\0');
        NumberToText(shown.data(), static_cast<int64_t>(shown.size()) - 1, value, 0);
        return shown.c_str();
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

TEST_F(CoefficientCell, IsZeroWhereRoundingLeavesLittle) {
    for (const int64_t digits : {int64_t{20}, MaxDigits}) {
        EXPECT_EQ(ReadClean(u"1/3*3-1", digits), u"0");
        EXPECT_EQ(ReadClean(u"7+i*(1/3*3-1)", digits), u"7");
        EXPECT_EQ(ReadClean(u"1/3*3-1+2i", digits), u"2i");
    }
    EXPECT_EQ(ReadClean(u"1e-30"), u"1e-30");
    EXPECT_EQ(ReadClean(u"1+1e-19-1"), u"1e-19");
    // What two readings leave in like size may be more than the rest of 0.
    EXPECT_EQ(ReadClean(u"1+1.4e-19-1"), u"1e-19");
    EXPECT_EQ(ReadClean(u"0"), u"0");
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

// What a cell reads as with 10, 20 and `digits` digits, and the errors of its parts.
struct Inexact {
    CellOutcome outcome;
    std::u16string value;
    bool isZero;
    PartSizes errors;
};

Inexact ReadThrice(const char16_t* text, NumberType type = NumberTypeComplex, int64_t digits = 30) {
    const NumberSetupScope setup(
        NumberSetup{.type = type, .digits = digits, .width = UintWidthForLimbs(2)});
    ScratchStackScope scratch;
    uint64_t* value = scratch.Take(static_cast<int64_t>(SizeOfNumber()) / BytesPerWord);
    PartSizes errors;
    const CellReading reading =
        ReadCellWithError(value, &errors, text, {.checked = 10, .before = 20});
    char16_t shown[100];
    NumberToText(shown, 99, value, 0);
    return {reading.outcome, shown, ValueIsZero(value), errors};
}

TEST_F(CoefficientCell, IsExactWhereTwoReadingsAreOneNumber) {
    for (const char16_t* text : {u"1.2345678901234567", u"1/8", u"-7", u"", u"2^20"}) {
        const Inexact cell = ReadThrice(text);
        EXPECT_EQ(cell.outcome, CellOutcome::Read);
        EXPECT_TRUE(IsZero(cell.errors.real));
        EXPECT_TRUE(IsZero(cell.errors.imaginary));
    }
    EXPECT_EQ(ReadThrice(u"1.2345678901234567").value, u"1.2345678901234567");
    EXPECT_EQ(ReadThrice(u"1/3", NumberTypeRational).value, u"1/3");
}

TEST_F(CoefficientCell, HasTheErrorOfEachPart) {
    const Inexact cell = ReadThrice(u"1/3+2*i");
    EXPECT_EQ(cell.value, u"0.333333333333333333333333333333+2i");
    EXPECT_EQ(cell.errors.real.exponent, -21);
    EXPECT_NEAR(cell.errors.real.mantissa, 6.67, 0.01);
    EXPECT_TRUE(IsZero(cell.errors.imaginary));
    const Inexact turned = ReadThrice(u"2+i*2/3");
    EXPECT_TRUE(IsZero(turned.errors.real));
    EXPECT_EQ(turned.errors.imaginary.exponent, -21);
}

TEST_F(CoefficientCell, IsZeroWithinItsError) {
    const Inexact cell = ReadThrice(u"1/7*7-1+i", NumberTypeComplex);
    EXPECT_EQ(cell.value, u"i");
    EXPECT_TRUE(IsZero(cell.errors.real));
    EXPECT_EQ(ReadThrice(u"1/3-0.3333333333333", NumberTypeReal).value.substr(0, 6), u"3.3333");
}

// 20 digits have nothing of them, and 68 settle them.
TEST_F(CoefficientCell, IsNotZeroWhereMoreDigitsTellIt) {
    const Inexact exact = ReadThrice(u"1+1e-25-1", NumberTypeReal);
    EXPECT_EQ(exact.value, u"1e-25");
    EXPECT_TRUE(IsZero(exact.errors.real));
    const Inexact rounded = ReadThrice(u"1+1.23e-28-1", NumberTypeReal);
    EXPECT_EQ(rounded.value, u"1.2e-28");
    EXPECT_EQ(rounded.errors.real.exponent, -30);
    EXPECT_NEAR(rounded.errors.real.mantissa, 6, 0.01);
    EXPECT_EQ(ReadThrice(u"1+1e-29-1", NumberTypeReal).value, u"1e-29");
    EXPECT_EQ(ReadThrice(u"1+1e-30-1", NumberTypeReal).value, u"0");
}

TEST_F(CoefficientCell, SettlesEachPart) {
    const Inexact first = ReadThrice(u"1+1e-25-1+i*(1/7*7-1)");
    EXPECT_EQ(first.value, u"1e-25");
    EXPECT_TRUE(IsZero(first.errors.imaginary));
    const Inexact second = ReadThrice(u"1/7*7-1+i*(1+1e-25-1)");
    EXPECT_EQ(second.value, u"(1e-25)i");
    EXPECT_TRUE(IsZero(second.errors.real));
    // The other part keeps the error that it had.
    const Inexact third = ReadThrice(u"1+1e-25-1+i/3");
    EXPECT_EQ(third.value, u"1e-25+0.333333333333333333333333333333i");
    EXPECT_EQ(third.errors.imaginary.exponent, -21);
}

TEST_F(CoefficientCell, IsZeroWhereMoreDigitsTellNothing) {
    EXPECT_EQ(ReadThrice(u"1+1e-25-1+0*sqrt(1-1e-40-1)", NumberTypeReal).value, u"0");
    const Inexact cell = ReadThrice(u"1/3*3-1", NumberTypeReal, MaxPrecisionDigits);
    EXPECT_TRUE(cell.isZero);
    EXPECT_TRUE(IsZero(cell.errors.real));
}

TEST_F(CoefficientCell, FailsWithTheFewestDigitsAlone) {
    EXPECT_EQ(ReadThrice(u"1/(1+1e-15-1)", NumberTypeReal).outcome, CellOutcome::Failed);
    const Inexact cell = ReadThrice(u"sqrt(1-1e-15-1)+2", NumberTypeReal);
    EXPECT_EQ(cell.outcome, CellOutcome::Read);
    EXPECT_EQ(cell.value, u"2");
    EXPECT_TRUE(IsZero(cell.errors.real));
    RequestStop();
    EXPECT_EQ(ReadThrice(u"1/3").outcome, CellOutcome::Stopped);
}

// The first reading, with 10 digits, takes no time, and those with all digits many milliseconds.
TEST_F(CoefficientCell, EndsWithAStopInALaterReading) {
    const std::u16string text = u"exp(1.1)+exp(1.2)+exp(1.3)+exp(1.4)+exp(1.5)+exp(1.6)";
    const NumberSetupScope setup(
        NumberSetup{.type = NumberTypeReal, .digits = 4000, .width = UintWidthForLimbs(2)});
    const auto read = [&](int64_t before, std::vector<uint64_t>& value) {
        PartSizes errors;
        return ReadCellWithError(value.data(), &errors, text.c_str(),
                                 {.checked = 10, .before = before});
    };
    const auto words = static_cast<size_t>(RealWords());
    // With few digits before, the stop comes in the last reading, and else nearly always in both.
    for (const int64_t before : {int64_t{20}, int64_t{3990}}) {
        ClearStopRequest();
        std::vector<uint64_t> whole(words);
        ASSERT_EQ(read(before, whole).outcome, CellOutcome::Read);
        int stopped = 0;
        for (int delay = 1; delay <= 10; delay++) {
            ClearStopRequest();
            std::thread other([delay] {
                std::this_thread::sleep_for(std::chrono::milliseconds(delay));
                RequestStop();
            });
            std::vector<uint64_t> value(words);
            const CellOutcome outcome = read(before, value).outcome;
            other.join();
            stopped += outcome == CellOutcome::Stopped ? 1 : 0;
            if (outcome != CellOutcome::Stopped) {
                EXPECT_EQ(outcome, CellOutcome::Read);
                EXPECT_EQ(value, whole) << "not the number of 10 digits";
            }
        }
        EXPECT_GT(stopped, 0);
    }
    ClearStopRequest();
}

TEST_F(CoefficientCell, EndsWithAStop) {
    RequestStop();
    EXPECT_EQ(Read(u"1+1").outcome, CellOutcome::Stopped);
}

}  // namespace
}  // namespace tallymere
