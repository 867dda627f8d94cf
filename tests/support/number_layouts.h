// The layouts under which what depends on them is tested: number type, precision and integer width
// together.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <span>
#include <vector>

#include "core/number_context.h"
#include "support/number_types.h"
#include "support/real_testing.h"

namespace tallymere::testing_support {

/// All of them, or those that take little time.
enum class LayoutRange { Small, All };

/// One setting of the context.
struct NumberLayout {
    NumberType type;
    int64_t digits;  ///< the precision
    int64_t limbs;   ///< the width of integers
};

/// The layouts of a type: for real and cplx one of each precision of SmallPrecisions or
/// AllPrecisions, for uint and rat one of each width of SmallUintWidths or AllUintWidths. What does
/// not matter to the type is small: 16 digits or 1 limb.
std::vector<NumberLayout> LayoutsOf(NumberType type, LayoutRange range);

/// Works under a layout for its life, names it in failures, and checks the context as ContextCheck
/// does.
class NumberLayoutScope {
public:
    explicit NumberLayoutScope(const NumberLayout& layout);

private:
    ContextCheck check_;
    FieldScope<NumberType> type_;
    RealLayoutScope layout_;
    UintWidthScope width_;
    ::testing::ScopedTrace trace_;
};

/// Runs test(layout) under every layout of the type.
template <typename Test>
void ForEachLayout(NumberType type, LayoutRange range, Test test) {
    for (const NumberLayout& layout : LayoutsOf(type, range)) {
        const NumberLayoutScope scope(layout);
        test(layout);
    }
}

/// The same for every one of the types.
template <typename Test>
void ForEachLayout(std::span<const NumberType> types, LayoutRange range, Test test) {
    for (const NumberType type : types) {
        ForEachLayout(type, range, test);
    }
}

}  // namespace tallymere::testing_support
