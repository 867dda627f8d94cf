// What the largest calculations with polynomials take of both areas: always within their bounds,
// and given back.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>

#include "algebra_pages/polynomial_run.h"
#include "core/scratch.h"
#include "support/page_run_testing.h"

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

class PolynomialMemory : public PageRunTest {
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

    // Runs an operator on polynomials of which each cell has this text.
    void Run(PolyOperator operation, int32_t count, int32_t maxDegree, NumberType type,
             std::u16string cell) {
        const PolynomialRequest request = {.operation = operation,
                                           .count = count,
                                           .maxDegree = maxDegree,
                                           .type = type,
                                           .digits = MaxPolyDigits,
                                           .printFlags = 0,
                                           .readCell =
                                               [](void* context, int32_t, int32_t, char16_t* text) {
                                                   const auto& source =
                                                       *static_cast<const std::u16string*>(context);
                                                   source.copy(text, source.size());
                                                   text[source.size()] = 0;
                                               },
                                           .context = &cell};
        ResultStore store;
        EXPECT_TRUE(RunPolynomials(
            request, store, [](void*, const char16_t*) {}, nullptr));
    }

private:
    int64_t usual_ = 0;
};

// Of so many full coefficients whether a part is 0 is not known before the most digits.
TEST_F(PolynomialMemory, StaysWithinItsBounds) {
    Run(PolyOperator::Times, 12, 1, NumberTypeComplex, u"sqrt(2)+i*sqrt(2)");
    Check("ScratchStack: product of 12, cplx", CurrentScratchStack().highWaterWords, 972'096,
          ScratchStackBytes);
    Check("CoreScratch: product of 12, cplx", coreScratch.highWaterWords, 25'344, CoreScratchBytes);
}

TEST_F(PolynomialMemory, StaysWithinItsBoundsForQuotients) {
    Run(PolyOperator::Divide, 2, 20, NumberTypeComplex, u"sqrt(2)+i*sqrt(2)");
    Check("ScratchStack: quotient, cplx", CurrentScratchStack().highWaterWords, 236'416,
          ScratchStackBytes);
    Check("CoreScratch: quotient, cplx", coreScratch.highWaterWords, 12'840, CoreScratchBytes);
}

TEST_F(PolynomialMemory, StaysWithinItsBoundsForFractions) {
    Run(PolyOperator::Plus, 12, 20, NumberTypeRational, u"1/(2^1600-1)");
    Check("ScratchStack: sum of 12, rat", CurrentScratchStack().highWaterWords, 133'560,
          ScratchStackBytes);
    Check("CoreScratch: sum of 12, rat", coreScratch.highWaterWords, 3'064, CoreScratchBytes);
}

}  // namespace
}  // namespace tallymere
