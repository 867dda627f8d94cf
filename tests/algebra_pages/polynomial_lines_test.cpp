#include "algebra_pages/polynomial_lines.h"

#include <string>

#include "shell/ui_message.h"
#include "support/page_run_testing.h"
#include "values/value_operations.h"

namespace tallymere {
namespace {

using namespace testing_support;

class PolynomialLines : public PageRunTest {
protected:
    PolynomialLines() : setup_(NumberSetup{.type = NumberTypeReal, .digits = 13}) {}

    // Shows a calculation in lines of that capacity.
    RunResult Show(const PolyCalculation& calculation, int64_t capacity) {
        return ResultOf([&] {
            isRight_ = PrintPolyResult(
                calculation, store_, 0, capacity,
                [](void*, const char16_t* text) { KeepPiece(text); }, nullptr);
            char16_t text[UiErrorMessageCapacity + 1];
            TextSink sink{0, UiErrorMessageCapacity, text};
            FormatUiErrorMessage(sink);
            EndSinkText(sink);
            message_ = text;
        });
    }
    // The polynomial 123456 x.
    RunResult Show(int64_t capacity) {
        ScratchStackScope scope;
        PolyCalculation calculation = TakePolyCalculation(scope, PolyOperator::Plus, 2, 10);
        calculation.count = 2;
        ValueFromUnsigned(calculation.result.coefficients[1], 123456);
        return Show(calculation, capacity);
    }
    // The quotient 12 and the remainder number / divisor.
    RunResult ShowQuotient(int64_t number, uint64_t divisor, int64_t capacity) {
        ScratchStackScope scope;
        PolyCalculation calculation = TakePolyCalculation(scope, PolyOperator::Divide, 2, 10);
        calculation.count = 2;
        ValueFromUnsigned(calculation.result.coefficients[0], 12);
        uint64_t* rest = calculation.remainder.coefficients[0];
        ValueFromInteger(rest, number);
        ValueDivideSmall(rest, rest, divisor);
        return Show(calculation, capacity);
    }

    ResultStore store_;
    bool isRight_ = false;
    std::u16string message_;  // of the error that was pending

private:
    NumberSetupScope setup_;
};

TEST_F(PolynomialLines, HaveRoomForTheLongestNumber) {
    ScratchStackScope scope;
    const PolyNumbers any = AllocPolynomial(scope);
    EXPECT_EQ(PolyLineCapacity(0), NumberToText(nullptr, 0, any.coefficients[0], 0) + 200);
    EXPECT_EQ(Show(PolyLineCapacity(0)),
              Sends(u"P0(x) + P1(x) = b1*x + b0\r\n\r\nb1 = 123456\r\nb0 = 0\r\n"));
    EXPECT_TRUE(isRight_);
}

TEST_F(PolynomialLines, EndWithAnEllipsisWhereTheyDoNotFit) {
    const RunResult result = Show(9);
    EXPECT_EQ(result.text, u"P0(x) + \u2026b1 = 123\u2026b0 = 0\r\n");
    EXPECT_EQ(result.error, UiErrorTextOverflow);
    EXPECT_EQ(message_, u"String buffer overflow!");
    EXPECT_FALSE(isRight_);
    EXPECT_EQ(std::u16string(KeptResultText(store_, 1)), u"123456");
}

constexpr int64_t Numerator = -1234567890123456789;
constexpr uint64_t Denominator = 987654321987654322;

// The line of the remainder alone is too long. What was kept of the result stays.
TEST_F(PolynomialLines, OfARemainderEndLikewise) {
    const std::u16string head = u"P0(x) / P1(x) = b0    Remainder    r0\r\n\r\nb0 = 12\r\n\r\n";
    const struct {
        NumberSetup setup;
        uint64_t divisor;
        const char16_t* whole;
        const char16_t* cut;
    } examples[] = {{{.type = NumberTypeRational, .width = UintWidthForLimbs(26)},
                     Denominator,
                     u"r0 = -1234567890123456789/987654321987654322\r\n",
                     u"r0 = -1234567890123456789/9876543219876543\u2026"},
                    {{.type = NumberTypeReal, .digits = 50},
                     7,
                     u"r0 = -1.7636684144620811271428571428571428571428571428571e+17\r\n",
                     u"r0 = -1.7636684144620811271428571428571428\u2026"},
                    {{.type = NumberTypeComplex, .digits = 50},
                     7,
                     u"r0 = -1.7636684144620811271428571428571428571428571428571e+17\r\n",
                     u"r0 = -1.7636684144620811271428571428571428\u2026"}};
    for (const auto& example : examples) {
        const NumberSetupScope scope(example.setup);
        EXPECT_EQ(ShowQuotient(Numerator, example.divisor, PolyLineCapacity(0)),
                  Sends(head + example.whole));
        EXPECT_TRUE(isRight_);
        EmptyResultStore(store_);
        const RunResult result = ShowQuotient(Numerator, example.divisor, 43);
        EXPECT_EQ(result.text, head + example.cut);
        EXPECT_EQ(result.error, UiErrorTextOverflow);
        EXPECT_EQ(message_, u"String buffer overflow!");
        EXPECT_FALSE(isRight_);
        EXPECT_EQ(std::u16string(KeptResultText(store_, 0)), u"12");
        EXPECT_EQ(std::u16string(KeptResultText(store_, 1)), u"");
    }
}

// A line of the result is; those behind it come all the same.
TEST_F(PolynomialLines, OfFractionsEndLikewise) {
    const NumberSetupScope setup(
        NumberSetup{.type = NumberTypeRational, .width = UintWidthForLimbs(26)});
    ScratchStackScope scope;
    PolyCalculation calculation = TakePolyCalculation(scope, PolyOperator::Plus, 2, 10);
    calculation.count = 2;
    uint64_t* highest = calculation.result.coefficients[1];
    ValueFromInteger(highest, Numerator);
    ValueDivideSmall(highest, highest, Denominator);
    const RunResult result = Show(calculation, 30);
    EXPECT_EQ(result.text,
              u"P0(x) + P1(x) = b1*x + b0\r\n\r\nb1 = -1234567890123456789/987\u2026b0 = 0\r\n");
    EXPECT_EQ(result.error, UiErrorTextOverflow);
    EXPECT_EQ(message_, u"String buffer overflow!");
    EXPECT_FALSE(isRight_);
    EXPECT_EQ(std::u16string(KeptResultText(store_, 1)),
              u"-1234567890123456789/987654321987654322");
    EXPECT_EQ(std::u16string(KeptResultText(store_, 0)), u"0");
}

TEST_F(PolynomialLines, ComeBeforeWhatWentWrong) {
    SetCalcError(CalcErrorOverflow);
    const RunResult result = Show(PolyLineCapacity(0));
    EXPECT_EQ(result.error, UiErrorCalculation);
    EXPECT_EQ(result.text, u"P0(x) + P1(x) = b1*x + b0\r\n\r\nb1 = 123456\r\nb0 = 0\r\n");
    EXPECT_FALSE(isRight_);
}

TEST(PolynomialOperators, HaveTheirSigns) {
    std::u16string signs;
    for (const PolyOperator operation : PolyOperators) {
        signs += SignOfOperator(operation);
    }
    EXPECT_EQ(signs, u"+-*/^");
}

}  // namespace
}  // namespace tallymere
