// Separators of numbers for a while.
#pragma once

#include <algorithm>

#include "core/number_context.h"

namespace tallymere::fuzz {

struct Separators {
    char16_t decimal;
    char16_t group;
};

/// Puts separators in force and at its end those back that were.
class SeparatorScope {
public:
    explicit SeparatorScope(const Separators& separators) : saved_(numberContext) {
        std::ranges::fill(numberContext.decimalSeparators, separators.decimal);
        std::ranges::fill(numberContext.groupSeparators, separators.group);
    }
    ~SeparatorScope() {
        std::ranges::copy(saved_.decimalSeparators, numberContext.decimalSeparators);
        std::ranges::copy(saved_.groupSeparators, numberContext.groupSeparators);
    }
    SeparatorScope(const SeparatorScope&) = delete;
    SeparatorScope& operator=(const SeparatorScope&) = delete;

private:
    const NumberContext saved_;
};

}  // namespace tallymere::fuzz
