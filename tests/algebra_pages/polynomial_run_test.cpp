#include "algebra_pages/polynomial_run.h"

#include <string>
#include <vector>

#include "core/limits.h"
#include "core/stop_request.h"
#include "core/text_flags.h"
#include "support/page_run_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

using enum PolyOperator;

// The cells of the grid, each polynomial from its highest coefficient down; others are empty.
using Cells = std::vector<std::vector<std::u16string>>;

constexpr int32_t AsManyAsThereAre = -1;

struct Options {
    NumberType type = NumberTypeReal;
    int64_t digits = 10;
    uint32_t printFlags = 0;
    int32_t maxDegree = AsManyAsThereAre;
};

// What was asked for, in order, such as "P1a2 ", how many cells that were, and at which of them a
// stop is asked for; 0 for none.
std::string readCells;
size_t cellsRead;
size_t stopsAt;

void ReadCell(void* context, int32_t polynomial, int32_t power, char16_t* text) {
    readCells += "P" + std::to_string(polynomial) + "a" + std::to_string(power) + " ";
    cellsRead++;
    if (cellsRead == stopsAt) {
        RequestStop();
    }
    const auto& cells = (*static_cast<const Cells*>(context))[static_cast<size_t>(polynomial)];
    const auto degree = static_cast<int32_t>(cells.size()) - 1;
    const std::u16string cell = power > degree ? u"" : cells[static_cast<size_t>(degree - power)];
    cell.copy(text, cell.size());
    text[cell.size()] = 0;
}

class PolynomialRun : public PageRunTest {
protected:
    RunResult Run(PolyOperator operation, Cells cells, const Options& options = {}) {
        int32_t highest = 0;
        for (const auto& polynomial : cells) {
            highest = std::max(highest, static_cast<int32_t>(polynomial.size()) - 1);
        }
        const PolynomialRequest request = {
            .operation = operation,
            .count = static_cast<int32_t>(cells.size()),
            .maxDegree = options.maxDegree == AsManyAsThereAre ? highest : options.maxDegree,
            .type = options.type,
            .digits = options.digits,
            .printFlags = options.printFlags,
            .readCell = ReadCell,
            .context = &cells};
        readCells.clear();
        cellsRead = 0;
        const NumberSetup before = CurrentNumberSetup();
        RunResult result = ResultOf([&] {
            mayTakeResult_ = RunPolynomials(
                request, store_, [](void*, const char16_t* text) { KeepPiece(text); }, nullptr);
            arguments_ = std::u16string(uiError.arg1) + u"|" + uiError.arg2 + u"|" + uiError.arg3;
        });
        EXPECT_EQ(mayTakeResult_, result.error == UiErrorNone);
        EXPECT_EQ(CurrentNumberSetup().type, before.type);
        EXPECT_EQ(CurrentNumberSetup().digits, before.digits);
        EXPECT_EQ(CurrentNumberSetup().width.limbs, before.width.limbs);
        EXPECT_EQ(CurrentNumberSetup().window.low, before.window.low);
        return result;
    }

    // The code of the error, and all its arguments. No text comes with one.
    void ExpectError(PolyOperator operation, const Cells& cells, UiErrorCode code,
                     const std::u16string& arguments, const Options& options = {}) {
        const RunResult result = Run(operation, cells, options);
        EXPECT_EQ(result.error, code);
        EXPECT_EQ(result.text, u"");
        EXPECT_EQ(arguments_, arguments);
        EXPECT_EQ(Stored(), u"");
    }

    // The texts of the store from the highest down, each with a space behind.
    std::u16string Stored() const {
        std::u16string text;
        for (int32_t i = MaxPolyDegree; i >= 0; i--) {
            const std::u16string kept = KeptResultText(store_, i);
            text += kept.empty() ? u"" : kept + u" ";
        }
        return text;
    }

    ResultStore store_;
    bool mayTakeResult_ = false;
    std::u16string arguments_;
};

TEST_F(PolynomialRun, Adds) {
    EXPECT_EQ(
        Run(Plus, {{u"1", u"2"}, {u"3", u"", u"1/4"}}),
        Sends(u"P0(x) + P1(x) = b2*x^2 + b1*x + b0\r\n\r\nb2 = 3\r\nb1 = 1\r\nb0 = 2.25\r\n"));
    EXPECT_EQ(Stored(), u"3 1 2.25 ");
    EXPECT_TRUE(mayTakeResult_);
}

TEST_F(PolynomialRun, SubtractsWithThePlainMinusSign) {
    EXPECT_EQ(Run(Minus, {{u"1", u"2"}, {u"1", u"5"}, {u"2", u"0"}}),
              Sends(u"P0(x) - P1(x) - P2(x) = b1*x + b0\r\n\r\nb1 = -2\r\nb0 = -3\r\n"));
}

TEST_F(PolynomialRun, Multiplies) {
    EXPECT_EQ(Run(Times, {{u"1", u"1"}, {u"1", u"-1"}, {u"2"}}),
              Sends(u"P0(x) * P1(x) * P2(x) = b2*x^2 + b1*x + b0\r\n\r\n"
                    u"b2 = 2\r\nb1 = 0\r\nb0 = -2\r\n"));
    EXPECT_EQ(Run(Times, Cells(12, {u"1", u"0"})).text.substr(0, 127),
              u"P0(x) * P1(x) * P2(x) * P3(x) * P4(x) * P5(x) * P6(x) * P7(x) * P8(x) * P9(x) * "
              u"P10(x) * P11(x) = b12*x^12 + b11*x^11 + ... + b");
}

TEST_F(PolynomialRun, DividesWithARemainder) {
    EXPECT_EQ(Run(Divide, {{u"1", u"2", u"3"}, {u"1", u"1"}}),
              Sends(u"P0(x) / P1(x) = b1*x + b0    Remainder    r0\r\n\r\nb1 = 1\r\nb0 = 1\r\n"
                    u"\r\nr0 = 2\r\n"));
    EXPECT_EQ(Stored(), u"1 1 ");
    EXPECT_EQ(Run(Divide, {{u"5", u"6"}, {u"1", u"2", u"3"}}),
              Sends(u"P0(x) / P1(x) = b0    Remainder    r1*x + r0\r\n\r\nb0 = 0\r\n"
                    u"\r\nr1 = 5\r\nr0 = 6\r\n"));
    EXPECT_EQ(Stored(), u"0 ");
}

TEST_F(PolynomialRun, RaisesToAPower) {
    EXPECT_EQ(Run(Power, {{u"1", u"1"}, {u"0", u"2"}}),
              Sends(u"P0(x) ^ 2 = b2*x^2 + b1*x + b0\r\n\r\nb2 = 1\r\nb1 = 2\r\nb0 = 1\r\n"));
    EXPECT_EQ(Run(Power, {{u"1", u"1"}, {u"", u""}}), Sends(u"P0(x) ^ 0 = b0\r\n\r\nb0 = 1\r\n"));
    EXPECT_EQ(Run(Power, {{u"2"}, {u"20"}}), Sends(u"P0(x) ^ 20 = b0\r\n\r\nb0 = 1048576\r\n"));
}

TEST_F(PolynomialRun, ShowsAtLeastTheConstant) {
    EXPECT_EQ(Run(Minus, {{u"1", u"2"}, {u"1", u"2"}}),
              Sends(u"P0(x) - P1(x) = b0\r\n\r\nb0 = 0\r\n"));
    EXPECT_EQ(Stored(), u"0 ");
}

TEST_F(PolynomialRun, TakesFormulasOfItsType) {
    EXPECT_EQ(Run(Plus, {{u"sqrt(2)"}, {u"0"}}, {.digits = 20}),
              Sends(u"P0(x) + P1(x) = b0\r\n\r\nb0 = 1.4142135623730950488\r\n"));
    EXPECT_EQ(Run(Times, {{u"1", u"i"}, {u"1", u"-i"}}, {.type = NumberTypeComplex}),
              Sends(u"P0(x) * P1(x) = b2*x^2 + b1*x + b0\r\n\r\nb2 = 1\r\nb1 = 0\r\nb0 = 1\r\n"));
    EXPECT_EQ(Run(Divide, {{u"1", u"2", u"3"}, {u"3", u"1"}}, {.type = NumberTypeRational}),
              Sends(u"P0(x) / P1(x) = b1*x + b0    Remainder    r0\r\n\r\nb1 = 1/3\r\nb0 = 5/9\r\n"
                    u"\r\nr0 = 22/9\r\n"));
}

TEST_F(PolynomialRun, RoundsToTheDigitsAskedFor) {
    EXPECT_EQ(Run(Plus, {{u"2/3"}, {u"0"}}, {.digits = 5}),
              Sends(u"P0(x) + P1(x) = b0\r\n\r\nb0 = 0.66667\r\n"));
    EXPECT_EQ(Run(Plus, {{u"2/3"}, {u"0"}}, {.type = NumberTypeRational, .digits = 5}),
              Sends(u"P0(x) + P1(x) = b0\r\n\r\nb0 = 2/3\r\n"));
    const RunResult longest = Run(Plus, {{u"2/3"}, {u"0"}}, {.digits = 1000});
    EXPECT_EQ(longest.text,
              u"P0(x) + P1(x) = b0\r\n\r\nb0 = 0." + std::u16string(999, u'6') + u"7\r\n");
}

TEST_F(PolynomialRun, RoundsTypedNumbersOnce) {
    EXPECT_EQ(Run(Plus, {{u"1.00014999"}, {u"0"}}, {.digits = 5}),
              Sends(u"P0(x) + P1(x) = b0\r\n\r\nb0 = 1.0001\r\n"));
    EXPECT_EQ(Run(Minus, {{u"1.2345678901234567"}, {u"1.2345678901234"}}),
              Sends(u"P0(x) - P1(x) = b0\r\n\r\nb0 = 5.67e-14\r\n"));
    EXPECT_EQ(Run(Plus, {{u"1"}, {u"1e-12"}, {u"-1"}}),
              Sends(u"P0(x) + P1(x) + P2(x) = b0\r\n\r\nb0 = 1e-12\r\n"));
    // As many digits as a cell has room for.
    const std::u16string ones(1000, u'1');
    EXPECT_EQ(Run(Minus, {{u"1/9"}, {u"0." + ones}}),
              Sends(u"P0(x) - P1(x) = b0\r\n\r\nb0 = 1.111111111e-1001\r\n"));
}

TEST_F(PolynomialRun, KeepsTheDigitsOfNumbersWithoutEnd) {
    EXPECT_EQ(Run(Minus, {{u"1/3"}, {u"0.3333333333"}}),
              Sends(u"P0(x) - P1(x) = b0\r\n\r\nb0 = 3.333333333e-11\r\n"));
    EXPECT_EQ(Run(Minus, {{u"1/3+1e-60*i"}, {u"1/3"}}, {.type = NumberTypeComplex}),
              Sends(u"P0(x) - P1(x) = b0\r\n\r\nb0 = (1e-60)i\r\n"));
}

TEST_F(PolynomialRun, TakesWhatErrorsCoverForZero) {
    EXPECT_EQ(Run(Minus, {{u"1", u"1/3+1/7"}, {u"1", u"10/21"}}),
              Sends(u"P0(x) - P1(x) = b0\r\n\r\nb0 = 0\r\n"));
    EXPECT_EQ(Run(Divide, {{u"1", u"0", u"-5"}, {u"1", u"-sqrt(5)"}}),
              Sends(u"P0(x) / P1(x) = b1*x + b0    Remainder    r0\r\n\r\n"
                    u"b1 = 1\r\nb0 = 2.236067977\r\n\r\nr0 = 0\r\n"));
    EXPECT_EQ(Run(Times, {{u"sqrt(2)", u"1"}, {u"sqrt(2)", u"-1"}}),
              Sends(u"P0(x) * P1(x) = b2*x^2 + b1*x + b0\r\n\r\nb2 = 2\r\nb1 = 0\r\n"
                    u"b0 = -1\r\n"));
    EXPECT_EQ(Run(Plus, {{u"1/3*3-1", u"2"}, {u"1"}}),
              Sends(u"P0(x) + P1(x) = b0\r\n\r\nb0 = 3\r\n"));
}

// Readings have 13, 51, 89 and 127 digits.
TEST_F(PolynomialRun, FindsCellsThatAreNotZero) {
    for (const std::u16string size : {u"20", u"50", u"51", u"60", u"87", u"88"}) {
        EXPECT_EQ(Run(Plus, {{u"1+1e-" + size + u"-1"}, {u"0"}}),
                  Sends(u"P0(x) + P1(x) = b0\r\n\r\nb0 = 1e-" + size + u"\r\n"));
    }
    EXPECT_EQ(Run(Divide, {{u"1", u"0"}, {u"1+1e-60-1", u"1"}}),
              Sends(u"P0(x) / P1(x) = b0    Remainder    r0\r\n\r\nb0 = 1e+60\r\n\r\n"
                    u"r0 = -1e+60\r\n"));
    EXPECT_EQ(Run(Plus, {{u"1+1.2345678901234e-80-1"}, {u"0"}}),
              Sends(u"P0(x) + P1(x) = b0\r\n\r\nb0 = 1.23456789e-80\r\n"));
    // No reading of a cell tells the largest of these from 0.
    for (const std::u16string size : {u"89", u"100", u"300"}) {
        EXPECT_EQ(Run(Plus, {{u"1+1e-" + size + u"-1"}, {u"0"}}),
                  Sends(u"P0(x) + P1(x) = b0\r\n\r\nb0 = 0\r\n"));
    }
}

// The second round has 583 and 631 digits.
TEST_F(PolynomialRun, FindsWhatIsLeftOfTermsThatCancel) {
    for (const std::u16string size : {u"30", u"52", u"100", u"300", u"580"}) {
        EXPECT_EQ(Run(Plus, {{u"1e" + size + u"/3"}, {u"-1e" + size + u"/3"}, {u"1/7"}}),
                  Sends(u"P0(x) + P1(x) + P2(x) = b0\r\n\r\nb0 = 0.1428571429\r\n"));
    }
    EXPECT_EQ(Run(Minus, {{u"1/3+1e-60"}, {u"1/3"}}),
              Sends(u"P0(x) - P1(x) = b0\r\n\r\nb0 = 1e-60\r\n"));
    EXPECT_EQ(Run(Divide, {{u"1", u"0", u"1e-300-5"}, {u"1", u"-sqrt(5)"}}),
              Sends(u"P0(x) / P1(x) = b1*x + b0    Remainder    r0\r\n\r\n"
                    u"b1 = 1\r\nb0 = 2.236067977\r\n\r\nr0 = 1e-300\r\n"));
    EXPECT_EQ(Run(Plus, {{u"1e590/3"}, {u"-1e590/3"}, {u"1/7"}}),
              Sends(u"P0(x) + P1(x) + P2(x) = b0\r\n\r\nb0 = 0\r\n"));
}

// 1,573 digits tell what is left from 0, and 2,611 have its 1,000 digits.
TEST_F(PolynomialRun, ShowsDigitsThatItHasReadAlone) {
    const std::u16string size = u"*1e1500";
    const RunResult result = Run(
        Plus, {{u"sqrt(7)*sqrt(11)" + size}, {u"-sqrt(77)" + size}, {u"2/3"}}, {.digits = 1000});
    EXPECT_EQ(result.text,
              u"P0(x) + P1(x) + P2(x) = b0\r\n\r\nb0 = 0." + std::u16string(999, u'6') + u"7\r\n");
}

// Three times 0.33338333... is the middle 1.00015, to which no reading comes.
TEST_F(PolynomialRun, TakesWhatErrorsLeaveOpenForTheMiddle) {
    const std::vector<std::u16string> third = {u"1.00015/3"};
    const std::vector<std::u16string> negative = {u"-1.00015/3"};
    EXPECT_EQ(Run(Plus, {third, third, third}, {.digits = 5}).text,
              u"P0(x) + P1(x) + P2(x) = b0\r\n\r\nb0 = 1.0002\r\n");
    EXPECT_EQ(Run(Plus, {negative, negative, negative}, {.digits = 5}).text,
              u"P0(x) + P1(x) + P2(x) = b0\r\n\r\nb0 = -1.0002\r\n");
    // The last two readings have 578 and 621 digits.
    for (const std::u16string seen : {u"-1e-60", u"-1e-150", u"-1e-500"}) {
        EXPECT_EQ(Run(Plus, {third, third, third, {seen}}, {.digits = 5}).text,
                  u"P0(x) + P1(x) + P2(x) + P3(x) = b0\r\n\r\nb0 = 1.0001\r\n");
    }
    EXPECT_EQ(Run(Plus, {third, third, third, {u"-1e-1300"}}, {.digits = 5}).text,
              u"P0(x) + P1(x) + P2(x) + P3(x) = b0\r\n\r\nb0 = 1.0002\r\n");
}

// Middles that are made of an exact number and of one that is not.
TEST_F(PolynomialRun, CarriesTheErrorOfEachOperand) {
    const std::u16string third = u"1.00015/3";
    EXPECT_EQ(Run(Plus, {{u"0"}, {third}, {third}, {third}}, {.digits = 5}).text,
              u"P0(x) + P1(x) + P2(x) + P3(x) = b0\r\n\r\nb0 = 1.0002\r\n");
    for (const Cells& factors : {Cells{{u"3"}, {third}}, Cells{{third}, {u"3"}}}) {
        EXPECT_EQ(Run(Times, factors, {.digits = 5}).text,
                  u"P0(x) * P1(x) = b0\r\n\r\nb0 = 1.0002\r\n");
    }
    EXPECT_EQ(Run(Divide, {{u"0.70003"}, {u"2/3"}}, {.digits = 6}).text,
              u"P0(x) / P1(x) = b0    Remainder    r0\r\n\r\nb0 = 1.05005\r\n\r\nr0 = 0\r\n");
    EXPECT_EQ(Run(Divide, {{third}, {u"1/3"}}, {.digits = 5}).text,
              u"P0(x) / P1(x) = b0    Remainder    r0\r\n\r\nb0 = 1.0002\r\n\r\nr0 = 0\r\n");
}

// Digits that are lost beside a large coefficient, and remainders that are 0 but for rounding.
TEST_F(PolynomialRun, KeepsDigitsBesideCoefficientsOfAnySize) {
    const std::u16string large = u"e2000000000000000";
    EXPECT_EQ(
        Run(Plus, {{u"1" + large, u"1"}, {u"0.00004"}, {u"0.00004"}, {u"0.00004"}}, {.digits = 5}),
        Sends(u"P0(x) + P1(x) + P2(x) + P3(x) = b1*x + b0\r\n\r\n"
              u"b1 = 1e+2000000000000000\r\nb0 = 1.0001\r\n"));
    EXPECT_EQ(
        Run(Divide, {{u"1" + large, u"2" + large, u"1" + large}, {u"3", u"3"}}, {.digits = 5}),
        Sends(u"P0(x) / P1(x) = b1*x + b0    Remainder    r0\r\n\r\nb1 = 3.3333e+1999999999999999"
              u"\r\nb0 = 3.3333e+1999999999999999\r\n\r\nr0 = 0\r\n"));
    EXPECT_EQ(Run(Divide, {{u"1", u"2", u"1"}, {u"3" + large, u"3" + large}}, {.digits = 5}),
              Sends(u"P0(x) / P1(x) = b1*x + b0    Remainder    r0\r\n\r\n"
                    u"b1 = 3.3333e-2000000000000001\r\nb0 = 3.3333e-2000000000000001\r\n\r\n"
                    u"r0 = 0\r\n"));
}

TEST_F(PolynomialRun, WritesExponentsBeyondItsWindow) {
    EXPECT_EQ(Run(Plus, {{u"1000000000", u"10000000000", u"0.001", u"0.0001"}, {u"0"}}),
              Sends(u"P0(x) + P1(x) = b3*x^3 + b2*x^2 + b1*x + b0\r\n\r\n"
                    u"b3 = 1000000000\r\nb2 = 1e+10\r\nb1 = 0.001\r\nb0 = 1e-4\r\n"));
}

TEST_F(PolynomialRun, GroupsDigitsWhenAsked) {
    EXPECT_EQ(Run(Plus, {{u"1,234,567"}, {u"0"}}, {.printFlags = TextGroup}),
              Sends(u"P0(x) + P1(x) = b0\r\n\r\nb0 = 1,234,567\r\n"));
    EXPECT_EQ(Stored(), u"1,234,567 ");
    EXPECT_EQ(Run(Plus, {{u"1,234,567"}, {u"0"}}),
              Sends(u"P0(x) + P1(x) = b0\r\n\r\nb0 = 1234567\r\n"));
}

// The first round counts the digits of the cells.
TEST_F(PolynomialRun, ReadsFromTheHighestDegreeDown) {
    Run(Plus, {{u"1", u"2"}, {u"3", u"4"}});
    EXPECT_EQ(readCells, "P0a1 P0a0 P1a1 P1a0 P0a1 P0a0 P1a1 P1a0 ");
}

// Cells above the highest degree may still have a text; it does not count.
TEST_F(PolynomialRun, PassesOverCellsAboveTheHighestDegree) {
    EXPECT_EQ(Run(Plus, {{u"7", u"1+", u"3", u"4"}, {u"1"}}, {.maxDegree = 1}),
              Sends(u"P0(x) + P1(x) = b1*x + b0\r\n\r\nb1 = 3\r\nb0 = 5\r\n"));
    EXPECT_EQ(readCells, "P0a1 P0a0 P1a1 P1a0 P0a1 P0a0 P1a1 P1a0 ");
}

TEST_F(PolynomialRun, NamesACellThatItCannotRead) {
    ExpectError(Plus, {{u"1", u"2", u"3"}, {u"1+", u"2", u"3"}}, UiErrorPolynomialCoefficient,
                u"a2|P1(x)|Unexpected end of formula!");
    ExpectError(Plus, {{u"1"}, {u"2+*3"}}, UiErrorPolynomialCoefficient,
                u"a0|P1(x)|Syntax error at character position 3!");
    ExpectError(Plus, {{u"1"}, {u"  x"}}, UiErrorPolynomialCoefficient,
                u"a0|P1(x)|The variable or function at character position 3 is not defined!");
    ExpectError(Plus, {{u"i"}, {u"1"}}, UiErrorPolynomialCoefficient,
                u"a0|P0(x)|The function or number at character position 1 requires a complex "
                u"number type!");
}

TEST_F(PolynomialRun, NamesACellThatIsTooLong) {
    const std::u16string longest = u"1" + std::u16string(CoefficientCharacters - 1, u' ');
    EXPECT_EQ(Run(Plus, {{longest}, {u"1"}}).error, UiErrorNone);
    Cells cells(12, std::vector<std::u16string>(21, u""));
    cells[11][0] = longest + u" ";
    ExpectError(Plus, cells, UiErrorPolynomialCoefficientTooLong, u"a20|P11(x)|?");
}

TEST_F(PolynomialRun, RefusesDegreesAboveTwenty) {
    const std::vector<std::u16string> degree11 = {u"1", u"", u"", u"", u"", u"",
                                                  u"",  u"", u"", u"", u"", u"0"};
    ExpectError(Times, {degree11, degree11}, UiErrorPolynomialDegree, u"20|?|?");
    // The third one is not read any more.
    ExpectError(Times, {degree11, degree11, {u"1+"}}, UiErrorPolynomialDegree, u"20|?|?");
    ExpectError(Power, {{u"1", u"0", u"0"}, {u"11"}}, UiErrorPolynomialDegree, u"20|?|?");
}

TEST_F(PolynomialRun, RefusesWhatIsNoExponent) {
    for (const std::vector<std::u16string>& exponent :
         std::vector<std::vector<std::u16string>>{{u"1", u"0"}, {u"0.5"}, {u"-1"}, {u"21"}}) {
        ExpectError(Power, {{u"1", u"1"}, exponent}, UiErrorPolynomialNotInteger, u"P1(x)|20|?");
    }
}

TEST_F(PolynomialRun, TakesTheExponentThatItsErrorCovers) {
    EXPECT_EQ(Run(Power, {{u"1", u"1"}, {u"3*(1/3)"}}),
              Sends(u"P0(x) ^ 1 = b1*x + b0\r\n\r\nb1 = 1\r\nb0 = 1\r\n"));
    EXPECT_EQ(Run(Power, {{u"1", u"1"}, {u"1/3*3-1", u"sqrt(4/9)*3"}}),
              Sends(u"P0(x) ^ 2 = b2*x^2 + b1*x + b0\r\n\r\nb2 = 1\r\nb1 = 2\r\nb0 = 1\r\n"));
    for (const std::u16string exponent : {u"3.0000000001", u"3*(1/3)+1e-40"}) {
        ExpectError(Power, {{u"1", u"1"}, {exponent}}, UiErrorPolynomialNotInteger, u"P1(x)|20|?",
                    {.digits = 5});
    }
}

TEST_F(PolynomialRun, RefusesToDivideByZero) {
    ExpectError(Divide, {{u"1"}, {u"1/3*3-1"}}, UiErrorDivisionByZero, u"?|?|?");
    EXPECT_EQ(Run(Divide, {{u"1"}, {u"1/3-0.33333333333333333333"}}).text,
              u"P0(x) / P1(x) = b0    Remainder    r0\r\n\r\nb0 = 3e+20\r\n\r\nr0 = 0\r\n");
    ExpectError(Divide, {{u"1", u"1"}, {u"", u"0"}}, UiErrorDivisionByZero, u"?|?|?");
}

// With what is told, and without a result.
TEST_F(PolynomialRun, RefusesToDivideByZeroInEachType) {
    for (const NumberType type : {NumberTypeReal, NumberTypeComplex, NumberTypeRational}) {
        SCOPED_TRACE(type);
        const Options options = {.type = type};
        EXPECT_EQ(Run(Divide, {{u"6"}, {u"3"}}, options).error, UiErrorNone);
        EXPECT_EQ(Stored(), u"2 ");
        ExpectError(Divide, {{u"1", u"2/3"}, {u"", u"1/2-2/4"}}, UiErrorDivisionByZero, u"?|?|?",
                    options);
    }
    ExpectError(Divide, {{u"i"}, {u"i^2+1"}}, UiErrorDivisionByZero, u"?|?|?",
                {.type = NumberTypeComplex});
    ExpectError(Divide, {{u"0"}, {u"0"}}, UiErrorDivisionByZero, u"?|?|?",
                {.type = NumberTypeRational});
}

TEST_F(PolynomialRun, RaisesAnErrorForEachOutcome) {
    const struct {
        PolyOutcome outcome;
        UiErrorCode code;
        const char16_t* arguments;
    } errors[] = {{PolyOutcome::Done, UiErrorNone, u"||"},
                  {PolyOutcome::SameObject, UiErrorInternal, u"?|?|?"},
                  {PolyOutcome::DegreeTooHigh, UiErrorPolynomialDegree, u"20|?|?"},
                  {PolyOutcome::ExponentRefused, UiErrorPolynomialNotInteger, u"P1(x)|20|?"},
                  {PolyOutcome::DivisionByZero, UiErrorDivisionByZero, u"?|?|?"},
                  {PolyOutcome::Stopped, UiErrorStopped, u"?|?|?"}};
    for (const auto& expected : errors) {
        for (const CalcError code : {CalcErrorNone, CalcErrorOverflow}) {
            const bool isCode = expected.code == UiErrorNone && code != CalcErrorNone;
            ClearPendingErrors();
            if (code != CalcErrorNone) {
                SetCalcError(code);
            }
            RaisePolyOutcome(expected.outcome);
            EXPECT_EQ(std::u16string(uiError.arg1) + u"|" + uiError.arg2 + u"|" + uiError.arg3,
                      isCode ? u"?|?|?" : expected.arguments);
            EXPECT_EQ(TakeError(), isCode ? UiErrorCalculation : expected.code);
        }
    }
}

TEST_F(PolynomialRun, TellsWhatCannotBeCalculated) {
    ExpectError(Times, {{u"1e4000000000000000000"}, {u"1e4000000000000000000"}}, UiErrorCalculation,
                u"?|?|?");
    ExpectError(Times, {{u"10^300"}, {u"10^300"}}, UiErrorCalculation, u"?|?|?",
                {.type = NumberTypeRational});
    ExpectError(Plus, {{u"1"}, {u"1"}}, UiErrorCalculation, u"?|?|?", {.digits = 10'003});
    EXPECT_EQ(readCells, "");
    EXPECT_EQ(Run(Plus, {{u"1"}, {u"1"}}, {.digits = 10'002}).error, UiErrorNone);
    // More digits than any fraction has do no harm.
    EXPECT_EQ(Run(Plus, {{u"1"}, {u"1"}}, {.type = NumberTypeRational, .digits = 10'003}).error,
              UiErrorNone);
}

TEST_F(PolynomialRun, TakesFractionsOfItsWidth) {
    // 26 limbs have 1,664 bits.
    EXPECT_EQ(Run(Plus, {{u"2^1663"}, {u"2^1663-1"}}, {.type = NumberTypeRational}).error,
              UiErrorNone);
    EXPECT_EQ(Run(Plus, {{u"2^1663"}, {u"2^1663"}}, {.type = NumberTypeRational}).error,
              UiErrorCalculation);
}

TEST_F(PolynomialRun, ForgetsTheLastResultFirst) {
    Run(Plus, {{u"1", u"2"}, {u"3", u"4"}});
    EXPECT_EQ(Stored(), u"4 6 ");
    SetUiError(UiErrorInternal);
    SetCalcError(CalcErrorOverflow);
    EXPECT_EQ(Run(Plus, {{u"1"}, {u"1"}}).error, UiErrorNone);
    EXPECT_EQ(Stored(), u"2 ");
    Run(Plus, {{u"1"}, {u"1+"}});
    EXPECT_EQ(Stored(), u"");
}

TEST_F(PolynomialRun, HearsAStop) {
    RequestStop();
    ExpectError(Times, {{u"1", u"2"}, {u"3", u"4"}}, UiErrorStopped, u"?|?|?");
}

// Cells without a formula are read without a poll, and sums and differences have none.
TEST_F(PolynomialRun, EndsAtAStopAtAnyCell) {
    const std::u16string third = u"1.00015/3";
    const struct {
        Cells cells;
        size_t rounds;
    } examples[] = {{{{u"", u""}, {u"", u""}}, 2},
                    {{{u"1", u"2"}, {u"3", u"4"}}, 2},
                    {{{third, third}, {third, third}, {third, third}}, 3}};
    for (const auto& example : examples) {
        const size_t perRound = 2 * example.cells.size();
        for (stopsAt = 1; stopsAt <= example.rounds * perRound; stopsAt++) {
            SCOPED_TRACE(stopsAt);
            ClearStopRequest();
            ExpectError(Plus, example.cells, UiErrorStopped, u"?|?|?", {.digits = 5});
            // The count of digits goes on; the first cell that is evaluated ends the run.
            EXPECT_EQ(cellsRead, std::max(stopsAt, perRound + 1));
        }
        ClearStopRequest();
        EXPECT_EQ(Run(Plus, example.cells, {.digits = 5}).error, UiErrorNone);
        EXPECT_EQ(cellsRead, example.rounds * perRound);
    }
    stopsAt = 0;
}

TEST_F(PolynomialRun, SpeaksTheLanguageOfTheProgram) {
    InstallLanguage(LanguageGerman);
    EXPECT_EQ(Run(Divide, {{u"1"}, {u"2"}}),
              Sends(u"P0(x) / P1(x) = b0    Rest    r0\r\n\r\nb0 = 0.5\r\n\r\nr0 = 0\r\n"));
}

TEST(PolynomialCounts, DependOnTheOperator) {
    for (const PolyOperator operation : PolyOperators) {
        const bool takesTwo = operation == Divide || operation == Power;
        EXPECT_FALSE(TakesPolynomials(operation, 1));
        EXPECT_TRUE(TakesPolynomials(operation, 2));
        EXPECT_EQ(TakesPolynomials(operation, 3), !takesTwo);
        EXPECT_EQ(TakesPolynomials(operation, 12), !takesTwo);
        EXPECT_FALSE(TakesPolynomials(operation, 13));
    }
}

}  // namespace
}  // namespace tallymere
