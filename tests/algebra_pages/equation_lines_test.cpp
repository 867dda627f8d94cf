#include "algebra_pages/equation_lines.h"

#include <initializer_list>
#include <string>

#include "core/complex_text.h"
#include "support/page_run_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

struct Root {
    std::u16string value;
    std::u16string exact;
    int64_t multiplicity = 1;
};

enum class Multiplicity { Hidden, Shown };
enum class Exact { Unwanted, Wanted };

class EquationLines : public PageRunTest {
protected:
    static RunResult Show(std::initializer_list<Root> roots, Exact exact = Exact::Unwanted,
                          Multiplicity multiplicity = Multiplicity::Hidden) {
        const NumberSetupScope setup(NumberSetup{.type = NumberTypeComplex, .digits = 20});
        ScratchStackScope scratch;
        SolutionSet solutions = {};
        char16_t texts[MaxEquationDegree][ExactTextCapacity + 1];
        for (const Root& root : roots) {
            const int64_t i = solutions.count++;
            solutions.values[i] = ComplexAt(scratch.Take(ComplexWords()));
            ComplexFromText(solutions.values[i], root.value.c_str(), TextUntilZero, 0);
            solutions.exactTexts[i] = texts[i];
            std::u16string_view(root.exact).copy(texts[i], ExactTextCapacity);
            texts[i][root.exact.size()] = 0;
            solutions.multiplicities[i] = root.multiplicity;
        }
        return ResultOf([&] {
            ShowEquationRoots(solutions, exact == Exact::Wanted,
                              multiplicity == Multiplicity::Shown, KeepPiece);
        });
    }
};

TEST_F(EquationLines, OfValues) {
    EXPECT_EQ(Show({{u"-1.5", u""}, {u"2+3i", u""}}), Sends(u"x1 = -1.5\r\nx2 = 2+3i\r\n"));
}

TEST_F(EquationLines, OfExactValues) {
    EXPECT_EQ(Show({{u"1.4142135623", u"sqrt(2)"}}, Exact::Wanted),
              Sends(u"x1 = sqrt(2) \u2248 1.4142135623\r\n"));
    EXPECT_EQ(Show({{u"1.2599210499", u""}}, Exact::Wanted), Sends(u"x1 \u2248 1.2599210499\r\n"));
}

TEST_F(EquationLines, ShowAnIntegerOnce) {
    EXPECT_EQ(Show({{u"-3", u"-3"}}, Exact::Wanted), Sends(u"x1 = -3\r\n"));
    EXPECT_EQ(Show({{u"-1i", u"-1*i"}}, Exact::Wanted), Sends(u"x1 = -1*i\r\n"));
    EXPECT_EQ(Show({{u"2-0.5i", u"2-1/2*i"}}, Exact::Wanted),
              Sends(u"x1 = 2-1/2*i \u2248 2-0.5i\r\n"));
    EXPECT_EQ(Show({{u"0.5-i", u"1/2-1*i"}}, Exact::Wanted),
              Sends(u"x1 = 1/2-1*i \u2248 0.5-i\r\n"));
}

TEST_F(EquationLines, EndWithTheMultiplicity) {
    EXPECT_EQ(Show({{u"0", u"", 4}, {u"7", u"", 1}}, Exact::Unwanted, Multiplicity::Shown),
              Sends(u"x1 = 0   [4]\r\nx2 = 7   [1]\r\n"));
    EXPECT_EQ(Show({{u"0.5", u"1/2", 2}}, Exact::Wanted, Multiplicity::Shown),
              Sends(u"x1 = 1/2 \u2248 0.5   [2]\r\n"));
}

TEST_F(EquationLines, SayThatThereIsNoRoot) {
    EXPECT_EQ(Show({}), Sends(u"The equation has no real solutions."));
    InstallLanguage(LanguageGerman);
    EXPECT_EQ(Show({}, Exact::Wanted), Sends(u"Die Gleichung hat keine reellen L\u00f6sungen."));
}

TEST_F(EquationLines, WriteNumbersInTheNotationOfTheSetup) {
    EXPECT_EQ(Show({{u"1e9", u""}, {u"1e10", u""}, {u"0.001", u""}, {u"0.0001i", u""}}),
              Sends(u"x1 = 1000000000\r\nx2 = 1e+10\r\nx3 = 0.001\r\nx4 = (1e-4)i\r\n"));
}

// The longest exact text and the longest value that is not in fixed notation.
TEST_F(EquationLines, HaveRoomForTheLongestRoot) {
    const std::u16string exact(ExactTextCapacity, u'7');
    const std::u16string part = u"1.2345678901234567891e-1000000000";
    const std::u16string value = u"-" + part + u"-(" + part + u")i";
    EXPECT_EQ(Show({{value, exact, 10}}, Exact::Wanted, Multiplicity::Shown),
              Sends(u"x1 = " + exact + u" \u2248 " + value + u"   [10]\r\n"));
}

// No solver writes so long a text.
TEST_F(EquationLines, EndWithAnEllipsisWhereTheyDoNotFit) {
    const NumberSetupScope setup(NumberSetup{.type = NumberTypeComplex, .digits = 20});
    ScratchStackScope scratch;
    std::u16string exact(100'000, u'7');
    SolutionSet solutions = {};
    solutions.count = 1;
    solutions.values[0] = ComplexAt(scratch.Take(ComplexWords()));
    ComplexFromText(solutions.values[0], u"7", TextUntilZero, 0);
    solutions.exactTexts[0] = exact.data();
    const RunResult result =
        ResultOf([&] { ShowEquationRoots(solutions, true, false, KeepPiece); });
    EXPECT_EQ(result.error, UiErrorTextOverflow);
    EXPECT_TRUE(result.text.starts_with(u"x1 = 777"));
    EXPECT_TRUE(result.text.ends_with(u"7\u2026"));
    EXPECT_LT(result.text.size(), exact.size());
}

}  // namespace
}  // namespace tallymere
