#include "algebra/residue_structure.h"

#include <gtest/gtest.h>

#include "support/equation_testing.h"

namespace tallymere {
namespace {

using namespace testing_support;

// A polynomial of coefficients as RootsOf takes them, at 60 digits.
class Exact {
public:
    explicit Exact(const std::vector<std::string>& coefficients) : digits_(60) {
        for (const std::string& text : coefficients) {
            values_.emplace_back(text.find(' ') == std::string::npos ? text + " 0" : text);
        }
        polynomial_ = {static_cast<int64_t>(coefficients.size()) - 1, CurrentRealLayout(), {}};
        for (size_t i = 0; i < values_.size(); i++) {
            polynomial_.coefficients[i] = values_[i];
        }
    }
    int64_t Distinct() const { return CountDistinctRoots(polynomial_); }
    int64_t Mirrored(NumberPart part, const char* position) const {
        return CountMirroredRoots(polynomial_, part, RealBuffer(position));
    }

private:
    PrecisionScope digits_;
    std::vector<ComplexBuffer> values_;
    Polynomial polynomial_;
};

TEST(ResidueStructure, CountsDifferentRoots) {
    EXPECT_EQ(Exact({"-7", "3"}).Distinct(), 1);
    EXPECT_EQ(Exact({"1", "-2", "1"}).Distinct(), 1);
    EXPECT_EQ(
        Exact({"1", "-2", "1.0000000000000000000000000000000000000000000000000001"}).Distinct(), 2);
    EXPECT_EQ(Exact({"1", "0", "5", "0", "10", "0", "10", "0", "5", "0", "1"}).Distinct(), 2);
    // (x - i)^2 and (x - i)(x + i)
    EXPECT_EQ(Exact({"-1", "0 -2", "1"}).Distinct(), 1);
    EXPECT_EQ(Exact({"1", "0", "1"}).Distinct(), 2);
    // 10^-300 (x + 10^-300)^3
    EXPECT_EQ(Exact({"1e-1200", "3e-900", "3e-600", "1e-300"}).Distinct(), 1);
    EXPECT_EQ(Exact({"1e-1200", "3e-900", "3e-600", "2e-300"}).Distinct(), 3);
}

// The primes themselves, and differences that they divide.
constexpr const char* Primes[] = {"9223372036854775783", "9223372036854775643",
                                  "9223372036854775507"};

TEST(ResidueStructure, IsNotDeceivedByAPrime) {
    for (const std::string prime : Primes) {
        // (x - 1)^2 + prime 10^-38, and highest coefficients that the prime divides.
        EXPECT_EQ(Exact({"1.0000000000000000000" + prime, "-2", "1"}).Distinct(), 2);
        EXPECT_EQ(Exact({prime, "-" + prime, prime}).Distinct(), 2);
        EXPECT_EQ(Exact({"1", "2", prime}).Distinct(), 2);
        EXPECT_EQ(Exact({"1", "2", "0 " + prime}).Distinct(), 2);
        // Real parts of prime 10^-60, and of 0.123455 + prime 10^-60.
        const Exact pair({"1", "-" + prime + "e-60", "1"});
        EXPECT_EQ(pair.Mirrored(NumberPart::Real, "0"), 0);
        EXPECT_EQ(Exact({"2", "-0.24691000000000000000" + prime, "1"})
                      .Mirrored(NumberPart::Real, "0.123455"),
                  0);
    }
    EXPECT_EQ(
        Exact({"9223372036854775783", "-18446744073709551566", "9223372036854775783"}).Distinct(),
        1);
}

// All three primes divide the highest coefficient: nothing is known.
TEST(ResidueStructure, CountsAllRootsAsDifferentWhereNoPrimeTells) {
    const std::string product = "784637716923335053709813138355762477414617808059033783783";
    const std::string twice = "1569275433846670107419626276711524954829235616118067567566";
    EXPECT_EQ(Exact({product, "-" + twice, product}).Distinct(), 2);
    EXPECT_EQ(Exact({product, "0", product}).Mirrored(NumberPart::Imaginary, "0"), 0);
}

TEST(ResidueStructure, CountsMirroredRoots) {
    // (x^2 + 1)(x - 1)
    const Exact circle({"-1", "1", "-1", "1"});
    EXPECT_EQ(circle.Mirrored(NumberPart::Imaginary, "0"), 3);
    EXPECT_EQ(circle.Mirrored(NumberPart::Real, "0"), 2);
    EXPECT_EQ(circle.Mirrored(NumberPart::Real, "1"), 1);
    EXPECT_EQ(circle.Mirrored(NumberPart::Real, "0.5"), 0);
    EXPECT_EQ(circle.Mirrored(NumberPart::Imaginary, "1"), 1);
    // x^2 - 0.24691 x + 2
    const Exact pair({"2", "-0.24691", "1"});
    EXPECT_EQ(pair.Mirrored(NumberPart::Real, "0.123455"), 2);
    EXPECT_EQ(pair.Mirrored(NumberPart::Real, "0.123454"), 0);
    // (x - 1 - i)(x + 1 - i): mirrored at the imaginary axis.
    const Exact across({"-2", "0 -2", "1"});
    EXPECT_EQ(across.Mirrored(NumberPart::Real, "0"), 2);
    EXPECT_EQ(across.Mirrored(NumberPart::Imaginary, "0"), 0);
    EXPECT_EQ(across.Mirrored(NumberPart::Imaginary, "1"), 2);
    // (x - i)^2 (x + i): one of the double root has no image.
    const Exact uneven({"0 -1", "1", "0 -1", "1"});
    EXPECT_EQ(uneven.Mirrored(NumberPart::Real, "0"), 3);
    EXPECT_EQ(uneven.Mirrored(NumberPart::Imaginary, "0"), 2);
}

}  // namespace
}  // namespace tallymere
