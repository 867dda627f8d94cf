// What the largest systems take of both areas: always within their bounds, and given back.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

#include "core/scratch.h"
#include "support/page_run_testing.h"
#include "support/system_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// Checked builds take more, for the gaps.
void Check(const char* name, int64_t words, int64_t expectedBytes, int64_t size) {
    const int64_t bytes = words * BytesPerWord;
    EXPECT_LT(bytes, size) << name;
    if (!CheckedScratch) {
        EXPECT_EQ(bytes, expectedBytes) << name;
    }
    std::printf("%-40s %8d bytes\n", name, static_cast<int>(bytes));
}

class SystemMemory : public PageRunTest {
protected:
    void SetUp() override {
        PageRunTest::SetUp();
        usual_ = coreScratch.highWaterWords;
        coreScratch.highWaterWords = 0;
    }
    void TearDown() override {
        coreScratch.highWaterWords = std::max(usual_, coreScratch.highWaterWords);
        PageRunTest::TearDown();
    }

private:
    int64_t usual_ = 0;
};

// A cell has another value in each run, so that the last one is reached, and all unknowns depend on
// as many parameters as leave them long.
TEST_F(SystemMemory, StaysWithinItsBounds) {
    std::string cell = "0";
    for (const char* exponent : {"1030", "1100", "1200", "1400", "2000"}) {
        cell += std::string("+(10^") + exponent + "+1-10^" + exponent + ")";
    }
    SystemTexts cells(25, std::vector<std::string>(26, "0"));
    for (size_t i = 0; i < 12; i++) {
        for (size_t j = 0; j < 26; j++) {
            cells[i][j] = i == j ? "1" : j < 12 ? "0" : "1/(" + std::to_string(i + j) + "+i)";
        }
    }
    cells[0][25] = cell;
    const std::string text = ShownSystem(cells, NumberTypeComplex, 1000);
    EXPECT_EQ(text.compare(0, 8, "x1 = 5+("), 0) << "the last run";
    Check("ScratchStack: RunSystem", CurrentScratchStack().highWaterWords, 3'579'480,
          ScratchStackBytes);
    Check("CoreScratch: RunSystem", coreScratch.highWaterWords, 9'344, CoreScratchBytes);
}

TEST_F(SystemMemory, StaysWithinItsBoundsForFractions) {
    SystemTexts cells(25, std::vector<std::string>(26, "0"));
    for (size_t i = 0; i < 25; i++) {
        for (size_t j = 0; j < 26; j++) {
            cells[i][j] = std::to_string((i * i + 7 * j * j + i * j) % 19);
        }
    }
    ShownSystem(cells, NumberTypeRational);
    Check("ScratchStack: RunSystem in rat", CurrentScratchStack().highWaterWords, 1'586'240,
          ScratchStackBytes);
    Check("CoreScratch: RunSystem in rat", coreScratch.highWaterWords, 1'272, CoreScratchBytes);
}

}  // namespace
}  // namespace tallymere
