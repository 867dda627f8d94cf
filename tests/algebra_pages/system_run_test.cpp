#include "algebra_pages/system_run.h"

#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "core/limits.h"
#include "core/stop_request.h"
#include "support/page_run_testing.h"
#include "support/system_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

class SystemRun : public PageRunTest {};

constexpr NumberType OfferedTypes[] = {NumberTypeReal, NumberTypeComplex, NumberTypeRational};

TEST_F(SystemRun, ShowsALineForEachUnknown) {
    for (const NumberType type : OfferedTypes) {
        EXPECT_EQ(ShownSystem({{"1", "1", "2"}, {"1", "-1", "0"}}, type), "x1 = 1\nx2 = 1\n");
    }
    EXPECT_EQ(ShownSystem({{"3", "0", "2"}, {"0", "7", "1"}}, NumberTypeReal),
              "x1 = 0.6666666667\nx2 = 0.1428571429\n");
    EXPECT_EQ(ShownSystem({{"3", "0", "2"}, {"0", "7", "1"}}, NumberTypeReal, 5),
              "x1 = 0.66667\nx2 = 0.14286\n");
    EXPECT_EQ(ShownSystem({{"3", "0", "2"}, {"0", "7", "1"}}, NumberTypeRational),
              "x1 = 2/3\nx2 = 1/7\n");
    EXPECT_EQ(ShownSystem({{"i", "0", "2"}, {"0", "1+i", "1"}}, NumberTypeComplex),
              "x1 = -2i\nx2 = 0.5-0.5i\n");
}

TEST_F(SystemRun, EndsLinesAsTheBoxWantsThem) {
    const SystemRequest request = {.count = 2,
                                   .type = NumberTypeReal,
                                   .digits = 10,
                                   .grouped = false,
                                   .readCell =
                                       [](void*, int32_t row, int32_t column, char16_t* text) {
                                           text[0] = row == 0 && column != 1 ? u'1' : u'0';
                                           text[1] = 0;
                                       },
                                   .context = nullptr};
    std::u16string shown;
    RunSystem(
        request,
        [](void* context, const char16_t* text) { *static_cast<std::u16string*>(context) += text; },
        &shown);
    EXPECT_EQ(shown, u"x1 = 1\r\nx2 = r\r\n\r\nThe parameter variable r is freely selectable.\r\n");
}

TEST_F(SystemRun, NamesTheParameters) {
    for (const NumberType type : OfferedTypes) {
        EXPECT_EQ(ShownSystem({{"1", "1", "2"}, {"1", "1", "2"}}, type),
                  "x1 = 2-r\nx2 = r\n\nThe parameter variable r is freely selectable.\n");
        EXPECT_EQ(ShownSystem({{"", "", ""}, {"", "", ""}}, type),
                  "x1 = r\nx2 = s\n\nThe parameter variables r, s are freely selectable.\n");
        EXPECT_EQ(ShownSystem({{"1", "1", "2"}, {"1", "1", "3"}}, type),
                  "Equation system is unsolvable!\n");
        EXPECT_EQ(ShownSystem({{"0", "1", "0", "1"}, {"", "", "", ""}, {"", "", "", ""}}, type),
                  "Equation system is unsolvable!\n");
    }
    EXPECT_EQ(ShownSystem({{"4", "3", "2"}, {"4", "3", "2"}}, NumberTypeRational),
              "x1 = 1/2-(3/4)*r\nx2 = r\n\nThe parameter variable r is freely selectable.\n");
}

TEST_F(SystemRun, SaysItInGermanToo) {
    InstallLanguage(LanguageGerman);
    EXPECT_EQ(ShownSystem({{"1", "1", "2"}, {"1", "1", "3"}}, NumberTypeReal),
              "Gleichungssystem ist unl?sbar!\n");
    EXPECT_EQ(ShownSystem({{"1", "1", "2"}, {"1", "1", "2"}}, NumberTypeReal),
              "x1 = 2-r\nx2 = r\n\nDie Parametervariable r ist frei w?hlbar.\n");
}

TEST_F(SystemRun, ReadsCellsAsFormulas) {
    EXPECT_EQ(ShownSystem({{"sqrt(4)", " \t ", "2^3"}, {"", "1,000", "10"}}, NumberTypeReal),
              "x1 = 4\nx2 = 0.01\n");
}

TEST_F(SystemRun, NamesTheCellThatCannotBeRead) {
    EXPECT_EQ(ShownSystem({{"1", "1", "2"}, {"1", "1+", "0"}}, NumberTypeReal),
              "error 3401 2 a2 Unexpected end of formula!");
    EXPECT_EQ(ShownSystem({{"1", "1", "x"}, {"1", "1", "0"}}, NumberTypeReal),
              "error 3401 1 b The variable or function at character position 1 is not defined!");
    EXPECT_EQ(ShownSystem({{"1", "1", "0"}, {"1", "i", "0"}}, NumberTypeReal),
              "error 3401 2 a2 The function or number at character position 1 requires a complex "
              "number type!");
    EXPECT_EQ(ShownSystem({{"1", "1", "0"}, {"1", "pi", "0"}}, NumberTypeRational),
              "error 3401 2 a2 Overflow at character position 1!");
    EXPECT_EQ(ShownSystem({{"1/0", "1+", "0"}, {"1", "1", "0"}}, NumberTypeReal),
              "error 3401 1 a1 Overflow at character position 4!")
        << "the first one";
    const std::string longest(static_cast<size_t>(CoefficientCharacters), '1');
    EXPECT_EQ(ShownSystem({{longest + "1", "1", "2"}, {"1", "-1", "0"}}, NumberTypeReal),
              "error 3400 1 a1");
    EXPECT_EQ(ShownSystem({{"1", "1", "2"}, {"1", "-1", longest + "1"}}, NumberTypeReal),
              "error 3400 2 b");
    EXPECT_EQ(ShownSystem({{longest, "0", longest}, {"0", "1", "1"}}, NumberTypeReal),
              "x1 = 1\nx2 = 1\n");
}

TEST_F(SystemRun, NamesTheColumnsOfTheLargestSystem) {
    SystemTexts cells(25, std::vector<std::string>(26, "0"));
    cells[24][24] = "?";
    EXPECT_EQ(ShownSystem(cells, NumberTypeReal).substr(0, 17), "error 3401 25 a25");
    cells[24][24] = "1";
    cells[24][25] = "?";
    EXPECT_EQ(ShownSystem(cells, NumberTypeReal).substr(0, 15), "error 3401 25 b");
    cells[24][25] = "1";
    const std::string text = ShownSystem(cells, NumberTypeReal);
    EXPECT_EQ(text.substr(text.find("x24")),
              "x24 = v20\nx25 = 1\n\nThe parameter variables r, s, t, u, v1, …, v20 are freely "
              "selectable.\n");
}

TEST_F(SystemRun, RefusesAWrongCount) {
    EXPECT_EQ(ShownSystem({{"1", "2"}}, NumberTypeReal), "error 9000");
    EXPECT_EQ(ShownSystem(SystemTexts(26, std::vector<std::string>(27, "1")), NumberTypeReal),
              "error 9000");
}

TEST_F(SystemRun, HasNoQuotientsInUint) {
    EXPECT_EQ(ShownSystem({{"1", "1", "2"}, {"1", "0", "1"}}, NumberTypeUint), "error 1001");
}

TEST_F(SystemRun, FailsBeyondTheRangeOfNumbers) {
    for (const NumberType type : {NumberTypeReal, NumberTypeComplex}) {
        EXPECT_EQ(
            ShownSystem({{"1e-3000000000000000000", "0", "1e3000000000000000000"}, {"0", "1", "1"}},
                        type),
            "error 1001");
    }
}

// The widest fractions have 26 limbs in each part.
TEST_F(SystemRun, HoldsFractionsToTheLastLimb) {
    const std::string most = "(2^1663-1+2^1663)";
    EXPECT_EQ(
        ShownSystem({{"1", "0", "1/" + most}, {"0", "1/" + most, "1/" + most}}, NumberTypeRational)
            .substr(508),
        "\nx2 = 1\n")
        << "x1 is 1 over a number of 501 digits";
    EXPECT_EQ(ShownSystem({{"1", "0", most}, {"0", "1/2", most}}, NumberTypeRational),
              "error 1001");
}

TEST_F(SystemRun, WritesGroupsWhereTheyAreAskedFor) {
    const SystemTexts cells = {{"1", "0", "1234567"}, {"0", "0", "0"}};
    EXPECT_EQ(ShownSystem(cells, NumberTypeReal, 10, true).substr(0, 15), "x1 = 1,234,567\n");
    EXPECT_EQ(ShownSystem(cells, NumberTypeReal, 10, false).substr(0, 13), "x1 = 1234567\n");
}

TEST_F(SystemRun, CutsALineThatIsTooLong) {
    // The two last unknowns of ten are parameters; of the others each is a sum of complex terms.
    SystemTexts cells(10, std::vector<std::string>(11, "0"));
    for (size_t i = 0; i < 4; i++) {
        for (size_t j = 0; j < 11; j++) {
            cells[i][j] = i == j ? "1" : j < 4 ? "0" : "1/(" + std::to_string(i + j) + "+i)";
        }
    }
    const std::string text = ShownSystem(cells, NumberTypeComplex, 1000);
    const size_t end = text.find("…");
    EXPECT_EQ(text.compare(0, 5, "x1 = "), 0);
    EXPECT_EQ(end, static_cast<size_t>(SystemLineCharacters) - 1);
    EXPECT_EQ(text.compare(end, 8, "…x2 = "), 0) << "the end of the line is cut as well";
    EXPECT_NE(text.find("\nThe parameter variables r, s, t, u, v1, v2 are"), text.npos);
    EXPECT_EQ(text.substr(text.size() - 10), "error 9002");
}

// At 10 digits the first run works with 12, in which the two rows are the same.
TEST_F(SystemRun, ShowsRightDigitsOfSystemsOfBadCondition) {
    EXPECT_EQ(ShownSystem({{"1", "10^15", "1"}, {"1", "10^15+1", "3"}}, NumberTypeReal),
              "x1 = -2e+15\nx2 = 2\n");
    EXPECT_EQ(
        ShownSystem({{"10^7/3", "10^7/7", "1"}, {"10^7/6", "10^7/14", "1/2"}}, NumberTypeReal),
        "x1 = 3e-7-0.4285714286*r\nx2 = r\n\nThe parameter variable r is freely "
        "selectable.\n");
}

// Coefficients whose rounding errors are above 10^-digits, also with 38 digits more.
TEST_F(SystemRun, TakesNoRoundingErrorOfALargeCoefficientForAValue) {
    EXPECT_EQ(ShownSystem({{"3e40", "7e40", "1e40"}, {"9e40", "21e40", "3e40"}}, NumberTypeReal),
              "x1 = 0.3333333333-2.333333333*r\nx2 = r\n\nThe parameter variable r is freely "
              "selectable.\n");
    EXPECT_EQ(
        ShownSystem({{"81e38", "1e38", "37e38"}, {"7209e38", "89e38", "3293e38"}}, NumberTypeReal)
            .substr(0, 40),
        "x1 = 0.4567901235-0.01234567901*r\nx2 = r");
}

// Numbers that all runs with too few digits would cut alike.
TEST_F(SystemRun, ReadsTheLastDigitOfALongNumber) {
    const std::string longest = "1" + std::string(59, '0') + "1";
    EXPECT_EQ(ShownSystem({{"1", "1e60", "1"}, {"1", longest, "3"}}, NumberTypeReal),
              "x1 = -2e+60\nx2 = 2\n");
    EXPECT_EQ(ShownSystem({{"1", "1e60", "0", "1"}, {"1", "1", "0", "1"}, {"1", "0", "1", "2"}},
                          NumberTypeReal),
              "x1 = 1\nx2 = 0\nx3 = 1\n");
}

// The moduli 10^14 and |10^14 + i| differ in their digit 29. With the second row in front, all
// other rows are multiples of one.
TEST_F(SystemRun, TellsModuliApart) {
    for (const int64_t digits : {5, 6, 7, 10}) {
        EXPECT_EQ(ShownSystem({{"1e14", "1e14", "1", "0"},
                               {"1e14+i", "1e14+i", "2", "1"},
                               {"5e13", "5e13", "1/2", "0"}},
                              NumberTypeComplex, digits)
                      .substr(0, 23),
                  "x1 = -r\nx2 = r\nx3 = 1\n\n");
    }
}

// What the first run refuses is refused, even where more digits would help.
TEST_F(SystemRun, FailsWhereTheFirstRunFails) {
    EXPECT_EQ(ShownSystem({{"1/(10^15+1-10^15)", "0", "1"}, {"0", "1", "1"}}, NumberTypeReal),
              "error 3401 1 a1 Overflow at character position 18!");
}

// And what a later run refuses is shown as it was found before.
TEST_F(SystemRun, KeepsAResultWhereALaterRunFails) {
    EXPECT_EQ(ShownSystem({{"1/(1-(10^15+1-10^15))", "0", "1"}, {"0", "1", "1"}}, NumberTypeReal),
              "x1 = 1\nx2 = 1\n");
}

TEST_F(SystemRun, KeepsAResultWhereALaterRunCannotBeCalculated) {
    EXPECT_EQ(
        ShownSystem({{"1e-3000000000000000000", "0", "1+1e3000000000000000000*(10^15+1-10^15)"},
                     {"0", "1", "1"}},
                    NumberTypeReal),
        "x1 = 1e+3000000000000000000\nx2 = 1\n");
}

// The error of x1 is as large as x1 in the run with 38 digits more.
TEST_F(SystemRun, GoesOnWhereAnErrorIsAsLargeAsTheValue) {
    EXPECT_EQ(ShownSystem({{"1", "1e46", "1e46+1"}, {"0", "1", "1"}}, NumberTypeReal),
              "x1 = 1\nx2 = 1\n");
}

TEST_F(SystemRun, TakesACellForZeroThatIsNothingButRounding) {
    const std::string unsolvable = "Equation system is unsolvable!\n";
    const std::string parameter =
        "x1 = r\nx2 = 2\n\nThe parameter variable r is freely selectable.\n";
    EXPECT_EQ(ShownSystem({{"3*(1/3)-1", "2", "5"}, {"0", "4", "8"}}, NumberTypeReal), unsolvable);
    EXPECT_EQ(ShownSystem({{"3*(1/3)-1", "2", "4"}, {"0", "4", "8"}}, NumberTypeReal), parameter);
    EXPECT_EQ(ShownSystem({{"sqrt(3)^2-3", "2", "4"}, {"0", "4", "8"}}, NumberTypeReal), parameter);
    EXPECT_EQ(
        ShownSystem({{"(1/3*3-1)+(1/3*3-1)*i", "2", "4"}, {"0", "4", "9"}}, NumberTypeComplex),
        unsolvable);
}

// Runs with fewer digits would see another value.
TEST_F(SystemRun, ReadsCellsWithAllDigitsThatAnyRunTakes) {
    std::string cell = "0";
    for (const char* exponent : {"30", "100", "200", "400", "1000"}) {
        cell += std::string("+(10^") + exponent + "+1-10^" + exponent + ")";
    }
    EXPECT_EQ(ShownSystem({{"1", "0", cell}, {"0", "1", "1"}}, NumberTypeReal), "x1 = 5\nx2 = 1\n");
}

// The first cell of each is 1/3, of which a first reading has few digits or none.
TEST_F(SystemRun, ReadsCellsAnewWhereTheirDigitsDecide) {
    for (const char* cell : {"10^1258+1/3-10^1258", "10^1262+1/3-10^1262",
                             "10^1262*pi+1/3-10^1262*pi", "10^100*(10^1262+1/3-10^1262)/10^100"}) {
        SCOPED_TRACE(cell);
        EXPECT_EQ(ShownSystem({{cell, "0", "1"}, {"0", "1", "1"}}, NumberTypeReal),
                  "x1 = 3\nx2 = 1\n");
        EXPECT_EQ(ShownSystem({{cell, "1", "1"}, {"1", "0", "1"}}, NumberTypeReal),
                  "x1 = 1\nx2 = 0.6666666667\n");
        EXPECT_EQ(ShownSystem({{cell, "1", "1"}, {"1", "3", "3"}}, NumberTypeReal),
                  "x1 = 3-3*r\nx2 = r\n\nThe parameter variable r is freely selectable.\n");
    }
}

// The second equation is three times the first one, which rounding errors hide where they are
// larger than 10^-digits.
TEST_F(SystemRun, ShowsNoDigitsWhereNoneAreProven) {
    const auto shown = [](const std::string& power) {
        return ShownSystem(
            {{"3" + power, "7" + power, "1" + power}, {"9" + power, "21" + power, "3" + power}},
            NumberTypeReal);
    };
    const std::string parameter =
        "x1 = 0.3333333333-2.333333333*r\nx2 = r\n\nThe parameter variable r is freely "
        "selectable.\n";
    EXPECT_EQ(shown("e1300"), parameter);
    EXPECT_EQ(shown("e8700"), parameter);
    EXPECT_EQ(shown("e8700/3"), parameter);
    EXPECT_EQ(ShownSystem({{"pi", "1", "1e8700"}, {"pi", "1", "1e8700"}}, NumberTypeReal),
              "x1 = 3.183098862e+8699-0.3183098862*r\nx2 = r\n\nThe parameter variable r is freely "
              "selectable.\n")
        << "two runs agree, though no bound tells that the candidates are equal";
    EXPECT_EQ(shown("e9000"), "error 1001");
    EXPECT_EQ(shown("e2000000000000000"), "error 1001");
    EXPECT_EQ(ShownSystem({{"3e9000", "7e9000", "1e9000"}, {"9e9000", "20e9000", "2e9000"}},
                          NumberTypeReal),
              "x1 = -2\nx2 = 1\n")
        << "nothing cancels";
}

// The sizes of the coefficients are seen by a reading with more digits alone.
TEST_F(SystemRun, TakesTheSizesOfCoefficientsFromTheWidestReading) {
    const std::string power = "*(10^20+1-10^20)*10^3000";
    EXPECT_EQ(ShownSystem({{"3" + power, "7" + power, "1" + power},
                           {"9" + power, "21" + power, "3" + power}},
                          NumberTypeReal),
              "x1 = 0.3333333333-2.333333333*r\nx2 = r\n\nThe parameter variable r is freely "
              "selectable.\n");
}

TEST_F(SystemRun, EndsAtAStop) {
    RequestStop();
    EXPECT_EQ(ShownSystem({{"1", "1", "2"}, {"1", "-1", "0"}}, NumberTypeReal), "error 9003");
}

// A stop at each cell of the first run, and of the second one.
TEST_F(SystemRun, EndsAtAStopInAnyRun) {
    struct Reader {
        int reads;
        int stopsAt;
    };
    constexpr int Cells = 6;
    for (int stopsAt = 1; stopsAt <= 2 * Cells; stopsAt++) {
        SCOPED_TRACE(stopsAt);
        ClearErrors();
        ClearStopRequest();
        Reader reader = {0, stopsAt};
        const SystemRequest request = {.count = 2,
                                       .type = NumberTypeReal,
                                       .digits = 10,
                                       .grouped = false,
                                       .readCell =
                                           [](void* context, int32_t, int32_t, char16_t* text) {
                                               auto& state = *static_cast<Reader*>(context);
                                               state.reads++;
                                               if (state.reads == state.stopsAt) {
                                                   RequestStop();
                                               }
                                               text[0] = u'1';
                                               text[1] = 0;
                                           },
                                       .context = &reader};
        RunSystem(
            request, [](void*, const char16_t*) { ADD_FAILURE() << "a result"; }, nullptr);
        EXPECT_EQ(uiError.code, UiErrorStopped);
        EXPECT_EQ(reader.reads, stopsAt);
    }
}

// A stop that comes while it calculates leaves no text and no other error.
TEST_F(SystemRun, EndsAtAStopAtAnyTime) {
    SystemTexts cells(12, std::vector<std::string>(13, "1"));
    for (size_t i = 0; i < 12; i++) {
        for (size_t j = 0; j < 13; j++) {
            cells[i][j] = "1/" + std::to_string(i * i + j + 1);
        }
    }
    const std::string whole = ShownSystem(cells, NumberTypeComplex, 1000);
    int stopped = 0;
    for (int delay = 0; delay < 20; delay++) {
        ClearErrors();
        ClearStopRequest();
        std::thread other([delay] {
            std::this_thread::sleep_for(std::chrono::milliseconds(delay));
            RequestStop();
        });
        const std::string shown = ShownSystem(cells, NumberTypeComplex, 1000);
        other.join();
        if (shown != whole) {
            EXPECT_EQ(shown, "error 9003");
            stopped++;
        }
    }
    EXPECT_GT(stopped, 0);
}

TEST_F(SystemRun, LeavesTheNumberSetupAsItWas) {
    const NumberSetup before = CurrentNumberSetup();
    ShownSystem({{"1", "1", "2"}, {"1", "-1", "0"}}, NumberTypeComplex, 100);
    const NumberSetup after = CurrentNumberSetup();
    EXPECT_EQ(after.type, before.type);
    EXPECT_EQ(after.digits, before.digits);
    EXPECT_EQ(after.width.limbs, before.width.limbs);
}

TEST_F(SystemRun, WorksWithAFewDigitsMoreThanItShows) {
    const auto digitsFor = [](int32_t count, int64_t digits) {
        SystemRequest request = {};
        request.count = count;
        request.digits = digits;
        request.type = NumberTypeReal;
        return SystemNumberSetup(request).digits;
    };
    EXPECT_EQ(digitsFor(2, 10), 12);
    EXPECT_EQ(digitsFor(3, 10), 12);
    EXPECT_EQ(digitsFor(4, 10), 13);
    EXPECT_EQ(digitsFor(25, 1000), 1008);
    const NumberSetup setup = SystemNumberSetup({});
    EXPECT_EQ(setup.width.limbs, 26);
    EXPECT_EQ(setup.width.digits, 500);
}

}  // namespace
}  // namespace tallymere
