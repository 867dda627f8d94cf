// What the largest calculations with polynomials take of both areas: always within their bounds,
// and given back.
#include <gtest/gtest.h>

#include <string>

#include "algebra_pages/polynomial_run.h"
#include "support/memory_testing.h"
#include "support/page_run_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

class PolynomialMemory : public PageRunTest {
protected:
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
    CoreScratchCount count_;
};

// A long decimal number with equal parts.
std::u16string LongCell() {
    return u"1." + std::u16string(1000, u'7') + u"*(1+i)";
}

// Of so many full coefficients whether a part is 0 is not known before the most digits.
TEST_F(PolynomialMemory, StaysWithinItsBounds) {
    Run(PolyOperator::Times, 12, 1, NumberTypeComplex, LongCell());
    ExpectMostOfScratchStack("product of 12, cplx", 990'912);
    ExpectMostOfCoreScratch("product of 12, cplx", 25'344);
}

TEST_F(PolynomialMemory, StaysWithinItsBoundsForQuotients) {
    Run(PolyOperator::Divide, 2, 20, NumberTypeComplex, LongCell());
    ExpectMostOfScratchStack("quotient, cplx", 241'792);
    ExpectMostOfCoreScratch("quotient, cplx", 12'840);
}

// The sum is a middle that no reading comes to.
TEST_F(PolynomialMemory, StaysWithinItsBoundsForTheLastReading) {
    Run(PolyOperator::Plus, 12, 20, NumberTypeComplex, u"(1+15e-1000)/12*(1+i)");
    ExpectMostOfScratchStack("sum of 12, cplx", 793'968);
    ExpectMostOfCoreScratch("sum of 12, cplx", 6'672);
}

TEST_F(PolynomialMemory, StaysWithinItsBoundsForFractions) {
    Run(PolyOperator::Plus, 12, 20, NumberTypeRational, u"1/(2^1600-1)");
    ExpectMostOfScratchStack("sum of 12, rat", 133'560);
    ExpectMostOfCoreScratch("sum of 12, rat", 3'064);
}

}  // namespace
}  // namespace tallymere
