#include "algebra_pages/polynomial_lines.h"

#include <string>

#include "support/page_run_testing.h"
#include "values/value_operations.h"

namespace tallymere {
namespace {

using namespace testing_support;

class PolynomialLines : public PageRunTest {
protected:
    PolynomialLines() : setup_(NumberSetup{.type = NumberTypeReal, .digits = 13}) {}

    // Shows the polynomial 123456 x in lines of that capacity.
    RunResult Show(int64_t capacity) {
        ScratchStackScope scope;
        PolyCalculation calculation = TakePolyCalculation(scope, PolyOperator::Plus, 2, 10);
        calculation.count = 2;
        ValueFromUnsigned(calculation.result.coefficients[1], 123456);
        return ResultOf([&] {
            isRight_ = PrintPolyResult(
                calculation, store_, 0, capacity,
                [](void*, const char16_t* text) { KeepPiece(text); }, nullptr);
        });
    }

    ResultStore store_;
    bool isRight_ = false;

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
    EXPECT_FALSE(isRight_);
    EXPECT_EQ(std::u16string(KeptResultText(store_, 1)), u"123456");
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
