// What the largest systems take of both areas: always within their bounds, and given back.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/memory_testing.h"
#include "support/page_run_testing.h"
#include "support/system_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

class SystemMemory : public PageRunTest {
    CoreScratchCount count_;
};

// No bound decides which of two candidates is larger, one cell is long, and another one large: that
// takes the most digits in reading and in the last run. All unknowns depend on as many parameters
// as leave them long.
TEST_F(SystemMemory, StaysWithinItsBounds) {
    SystemTexts cells(25, std::vector<std::string>(26, "0"));
    for (size_t i = 0; i < 12; i++) {
        for (size_t j = 0; j < 26; j++) {
            cells[i][j] = i == j ? "1" : j < 12 ? "0" : std::to_string(i + j) + "+3*i";
        }
    }
    cells[0][25] = "0." + std::string(1000, '7');
    cells[1][0] = "1+1e-30*i";
    cells[2][25] = "1e8000";
    const std::string text = ShownSystem(cells, NumberTypeComplex, 1000);
    EXPECT_NE(text.find("The parameter variables r, s, t, u, v1,"), text.npos);
    ExpectMostOfScratchStack("RunSystem", 17'846'776);
    ExpectMostOfCoreScratch("RunSystem", 85'712);
}

TEST_F(SystemMemory, StaysWithinItsBoundsForFractions) {
    SystemTexts cells(25, std::vector<std::string>(26, "0"));
    for (size_t i = 0; i < 25; i++) {
        for (size_t j = 0; j < 26; j++) {
            cells[i][j] = std::to_string((i * i + 7 * j * j + i * j) % 19);
        }
    }
    // The columns repeat after 19 of them: column 20 is column 1, and the right side is column 7.
    EXPECT_EQ(ShownSystem(cells, NumberTypeRational),
              "x1 = -r\nx2 = -s\nx3 = -t\nx4 = -u\nx5 = -v1\nx6 = -v2\nx7 = 1\nx8 = 0\nx9 = 0\n"
              "x10 = 0\nx11 = 0\nx12 = 0\nx13 = 0\nx14 = 0\nx15 = 0\nx16 = 0\nx17 = 0\nx18 = 0\n"
              "x19 = 0\nx20 = r\nx21 = s\nx22 = t\nx23 = u\nx24 = v1\nx25 = v2\n\n"
              "The parameter variables r, s, t, u, v1, v2 are freely selectable.\n");
    ExpectMostOfScratchStack("RunSystem in rat", 1'607'040);
    ExpectMostOfCoreScratch("RunSystem in rat", 1'272);
}

}  // namespace
}  // namespace tallymere
