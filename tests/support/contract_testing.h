// What tests of contracts share: numbers that break them, and what a program then says.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/complex_testing.h"

namespace tallymere::testing_support {

/// What a program says when `condition` is broken in a file of a room of src/, as a pattern. The
/// file is named without its suffix.
inline std::string BrokenContract(const std::string& room, const std::string& file,
                                  const std::string& condition) {
    return room + "/" + file + "\\.(cpp|h):[0-9]+: contract broken: .*" + condition;
}

/// Memory for numbers of 39 digits that can overlap, and a malformed one. What is not malformed is
/// 1, or 1 + i.
class ContractTest : public ::testing::Test {
protected:
    ContractTest() {
        RealSetOne(RealPart(z_));
        RealSetOne(ImaginaryPart(z_));
        ComplexCopy(w_, z_);
        ComplexCopy(malformed_, z_);
        // Of its last limb only: first limbs are looked at more often.
        RealLimbs(malformedX_)[2] = LimbBase;
    }

    PrecisionScope scope_{39};
    std::vector<uint64_t> words_ = std::vector<uint64_t>(60);
    ComplexNumber* z_ = ComplexAt(words_.data());
    ComplexNumber* shifted_ = ComplexAt(words_.data() + 1);  ///< overlaps z_
    ComplexNumber* w_ = ComplexAt(words_.data() + 20);
    ComplexNumber* malformed_ = ComplexAt(words_.data() + 40);
    RealNumber* x_ = RealPart(z_);
    RealNumber* shiftedX_ = RealPart(shifted_);  ///< overlaps x_
    RealNumber* y_ = RealPart(w_);
    RealNumber* malformedX_ = ImaginaryPart(malformed_);
};

}  // namespace tallymere::testing_support
