// The operands of the benchmarks, as text: the same digits for every side of a comparison.
#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace tallymere::bench {

/// The digits at which everything is measured.
inline constexpr int64_t BenchDigits[] = {20, 50, 100, 1'000, 10'000};

enum class OperandKind {
    Numbers,          ///< two of the precision, with exponents that differ by less than 16
    WholeNumbers,     ///< an integer of the precision and one of half its digits
    SmallDivisors,    ///< a number of the precision and an integer from 2 to 2000
    LargeDivisors,    ///< a number of the precision and an integer from 2001 to 10^9
    Logarithmands,    ///< two positive numbers of the precision from 10^-4 to 10^16
    Moderate,         ///< two of the precision from 0.1 to 100, of either sign
    BaseAndExponent,  ///< a positive number from 0.1 to 100, and one of either sign
    Fractions,        ///< two of the precision from 0.01 to 1, of either sign
    AboveTwo,         ///< two of the precision from 2 to 100
};

/// Every measurement goes round so many pairs: enough that a processor cannot learn the branches of
/// them by heart. At thousands of digits one pair has more branches than that, and a function of
/// the kinds from Logarithmands on at 1,000.
constexpr int64_t OperandPairs(OperandKind kind, int64_t digits) {
    if (kind < OperandKind::Logarithmands) {
        return digits <= 1'000 ? 512 : 16;
    }
    return digits < 1'000 ? 512 : digits == 1'000 ? 16 : 2;
}

/// What random operands begin with.
inline constexpr uint64_t Seed = 20'240'229;

/// Random digits, so many, of which the first is not 0.
std::string RandomDigits(std::mt19937_64& random, int64_t count);

struct OperandPair {
    std::string a;
    std::string b;
};

/// OperandPairs(kind, digits) pairs of random digits, the same at every call.
std::vector<OperandPair> MakeOperands(OperandKind kind, int64_t digits);

/// The kind with a name such as "numbers", "whole" or "moderate"; false if there is none.
bool FindOperandKind(std::string_view name, OperandKind* kind);

}  // namespace tallymere::bench
