// The stored constants against MPFR, digit by digit.
#include <gtest/gtest.h>
#include <mpfr.h>

#include <functional>
#include <string>

#include "functions/stored_constants.h"

namespace tallymere {
namespace {

constexpr size_t ReliableDigits = 10'046;

// What MPFR computes at far more digits, as the leading digits and the exponent of the first.
struct Digits {
    std::string text;
    mpfr_exp_t exponent;
};

using Computation = std::function<void(mpfr_ptr)>;

Digits DigitsOf(const Computation& compute) {
    mpfr_t value;
    mpfr_init2(value, 34'000);
    compute(value);
    mpfr_exp_t exponent = 0;
    char* text = mpfr_get_str(nullptr, &exponent, 10, ReliableDigits, value, MPFR_RNDZ);
    Digits digits = {text, exponent - 1};
    mpfr_free_str(text);
    mpfr_clear(value);
    return digits;
}

std::string StoredDigits(const StoredConstant& constant) {
    const Limb* limbs = reinterpret_cast<const Limb*>(&constant + 1);
    std::string text;
    for (size_t i = 0; i < constant.limbCount; i++) {
        const std::string limb = std::to_string(limbs[i]);
        text += std::string(static_cast<size_t>(DigitsPerLimb) - limb.size(), '0') + limb;
    }
    return text;
}

void SetQuotient(mpfr_ptr value, unsigned long a, unsigned long b) {
    mpfr_set_ui(value, a, MPFR_RNDN);
    mpfr_div_ui(value, value, b, MPFR_RNDN);
}

void CompareDigits(const StoredConstant& constant, const Computation& compute) {
    const Digits expected = DigitsOf(compute);
    EXPECT_EQ(constant.limbCount, LongConstantLimbs);
    EXPECT_EQ(constant.sign, 0);
    EXPECT_EQ(constant.exponent, expected.exponent);
    EXPECT_EQ(StoredDigits(constant).substr(0, ReliableDigits), expected.text);
}

TEST(StoredConstantsOracle, PiQuarterHasAllReliableDigits) {
    CompareDigits(ConstPiQuarter, [](mpfr_ptr value) {
        mpfr_const_pi(value, MPFR_RNDN);
        mpfr_div_ui(value, value, 4, MPFR_RNDN);
    });
}

TEST(StoredConstantsOracle, PiQuarterGoesOnInItsTail) {
    constexpr size_t Digits = 2 * LongConstantLimbs * size_t{DigitsPerLimb};
    mpfr_t value;
    mpfr_init2(value, 67'000);
    mpfr_const_pi(value, MPFR_RNDN);
    mpfr_div_ui(value, value, 4, MPFR_RNDN);
    mpfr_exp_t exponent = 0;
    char* text = mpfr_get_str(nullptr, &exponent, 10, Digits, value, MPFR_RNDZ);
    EXPECT_EQ(StoredDigits(ConstPiQuarter) + StoredDigits(ConstPiQuarterTail), text);
    mpfr_free_str(text);
    mpfr_clear(value);
}

TEST(StoredConstantsOracle, LogarithmsHaveAllReliableDigits) {
    const auto logarithm = [](unsigned long a, unsigned long b) {
        return [a, b](mpfr_ptr value) {
            SetQuotient(value, a, b);
            mpfr_log(value, value, MPFR_RNDN);
        };
    };
    CompareDigits(ConstLn2, logarithm(2, 1));
    CompareDigits(ConstLn10, logarithm(10, 1));
    CompareDigits(ConstLn12, logarithm(6, 5));
    CompareDigits(ConstLn101, logarithm(101, 100));
}

TEST(StoredConstantsOracle, Log10EHasAllReliableDigits) {
    CompareDigits(ConstLog10E, [](mpfr_ptr value) {
        mpfr_log_ui(value, 10, MPFR_RNDN);
        mpfr_ui_div(value, 1, value, MPFR_RNDN);
    });
}

TEST(StoredConstantsOracle, ArctangentsHaveAllReliableDigits) {
    const auto arctangent = [](unsigned long x) {
        return [x](mpfr_ptr value) {
            SetQuotient(value, 1, x);
            mpfr_atan(value, value, MPFR_RNDN);
        };
    };
    CompareDigits(ConstAtan21, arctangent(21));
    CompareDigits(ConstAtan351, arctangent(351));
}

}  // namespace
}  // namespace tallymere
