#include "support/number_layouts.h"

#include <string>

#include "support/exact_testing.h"

namespace tallymere::testing_support {

namespace {

constexpr int64_t UnusedDigits = 16;
constexpr int64_t UnusedLimbs = 1;

std::string NameOf(NumberType type) {
    switch (type) {
        case NumberTypeNone:
            return "no type";
        case NumberTypeReal:
            return "real";
        case NumberTypeComplex:
            return "cplx";
        case NumberTypeUint:
            return "uint";
        case NumberTypeRational:
            return "rat";
    }
    return "an unknown type";
}

std::string Describe(const NumberLayout& layout) {
    return "in " + NameOf(layout.type) + " at " + std::to_string(layout.digits) + " digits and " +
           std::to_string(layout.limbs) + " limbs";
}

}  // namespace

std::vector<NumberLayout> LayoutsOf(NumberType type, LayoutRange range) {
    std::vector<NumberLayout> layouts;
    const auto addAll = [&](const auto& sizes) {
        const bool exact = type == NumberTypeUint || type == NumberTypeRational;
        for (const int64_t size : sizes) {
            layouts.push_back({type, exact ? UnusedDigits : size, exact ? size : UnusedLimbs});
        }
    };
    switch (type) {
        case NumberTypeReal:
        case NumberTypeComplex:
            range == LayoutRange::All ? addAll(AllPrecisions) : addAll(SmallPrecisions);
            break;
        case NumberTypeUint:
        case NumberTypeRational:
            range == LayoutRange::All ? addAll(AllUintWidths) : addAll(SmallUintWidths);
            break;
        case NumberTypeNone:
            break;
    }
    EXPECT_FALSE(layouts.empty());
    return layouts;
}

NumberLayoutScope::NumberLayoutScope(const NumberLayout& layout)
    : type_(numberContext.numberType, layout.type), trace_(__FILE__, __LINE__, Describe(layout)) {
    EXPECT_TRUE(SetRealPrecision(layout.digits));
    InstallUintWidth(UintWidthForLimbs(layout.limbs));
}

}  // namespace tallymere::testing_support
