// What conversions and texts of values require of their caller stops a checking build.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/contract.h"
#include "support/contract_testing.h"
#include "values/exact_conversions.h"
#include "values/number_text.h"

namespace tallymere {
namespace {

using namespace testing_support;

#ifdef TALLYMERE_CHECK_CONTRACTS

// What a program that breaks `condition` in a file of src/values says.
std::string Broken(const std::string& file, const std::string& condition) {
    return BrokenContract("values", file, condition);
}

TEST(ValueContracts, OfConversionsIsThatNumbersAreWellFormedAndApart) {
    PrecisionScope scope(39);
    const auto broken = [](const char* condition) {
        return Broken("exact_conversions", condition);
    };
    std::vector<uint64_t> words(8);
    RealNumber* const x = RealAt(words.data());
    RealSetOne(x);
    BigUintFromReal(words.data() + 4, 4, x);
    RealFromBigUint(x, words.data() + 4, 4);
    EXPECT_DEATH(BigUintFromReal(words.data() + 3, 4, x), broken("UintLimbsAreApart"));
    EXPECT_DEATH(RealFromBigUint(x, words.data() + 3, 4), broken("UintLimbsAreApart"));
    EXPECT_DEATH(BigUintFromReal(words.data() + 4, -1, x), broken("m >= 0"));
    EXPECT_DEATH(RealFromBigUint(x, words.data() + 4, -1), broken("m >= 0"));
    RealLimbs(x)[2] = LimbBase;
    EXPECT_DEATH(BigUintFromReal(words.data() + 4, 4, x), broken("RealIsWellFormed"));
}

TEST(ValueContracts, OfTextsIsThatTheCapacityIsNotNegative) {
    char16_t text[1];
    const RealBuffer x("1");
    EXPECT_DEATH(NumberToText(text, -1, &x.Get()->header, 0),
                 Broken("number_text", "capacity >= 0"));
}

#endif

}  // namespace
}  // namespace tallymere
