// The operands of the benchmarks, as text: the same digits for every side of a comparison.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tallymere::bench {

/// The digits at which everything is measured.
inline constexpr int64_t BenchDigits[] = {20, 50, 100, 1'000, 10'000};

/// Every measurement goes round so many pairs: enough that a processor cannot learn the branches of
/// them by heart. At thousands of digits one pair has more branches than that.
constexpr int64_t OperandPairs(int64_t digits) {
    return digits <= 1'000 ? 512 : 16;
}

enum class OperandKind {
    Numbers,        ///< two of the precision, with exponents that differ by less than 16
    WholeNumbers,   ///< an integer of the precision and one of half its digits
    SmallDivisors,  ///< a number of the precision and an integer from 2 to 2000
    LargeDivisors,  ///< a number of the precision and an integer from 2001 to 10^9
};

struct OperandPair {
    std::string a;
    std::string b;
};

/// OperandPairs(digits) pairs of random digits, the same at every call.
std::vector<OperandPair> MakeOperands(OperandKind kind, int64_t digits);

/// The kind with the name "numbers", "whole", "small" or "large"; false if there is none.
bool FindOperandKind(std::string_view name, OperandKind* kind);

}  // namespace tallymere::bench
