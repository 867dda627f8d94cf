// The tables by which the exponential and the logarithm are reduced to short series.
//
// Both take out powers of 1.2 and then of 1.01, whose logarithms are stored. Such a power is 12^k
// or 101^k and a power of ten, so that each step is exact: a product or a quotient by a machine
// integer and a change of the exponent. Each k is the nearest one on a logarithmic scale, found by
// nine leading digits.
#pragma once

#include <array>

#include "core/word_division.h"
#include "functions/stored_constants.h"

namespace tallymere {

/// A power of an integer with its DivisorReciprocal.
struct StepPower {
    uint64_t power;
    uint64_t reciprocal;
};

template <size_t Count>
constexpr std::array<StepPower, Count> MakeStepPowers(uint64_t base) {
    std::array<StepPower, Count> table{};
    uint64_t power = 1;
    for (StepPower& entry : table) {
        entry = {power, ComputeDivisorReciprocal(power)};
        power *= base;
    }
    return table;
}

/// 12^k.
inline constexpr auto Twelve = MakeStepPowers<14>(12);

/// 101^k.
inline constexpr auto HundredOne = MakeStepPowers<10>(101);

/// A magnitude by its exponent and its nine leading digits.
struct LeadingMagnitude {
    int64_t exponent;
    uint32_t digits;
};

/// How the exponential takes k * constant out of an exponent v. k is the number of thresholds that
/// |v| reaches; they lie in the middle between the multiples, rounded to nine digits.
struct ExpReductionTable {
    const StoredConstant* constant;      ///< ln(powers[1] / 10^decimalStep)
    int64_t decimalStep;                 ///< the power of ten in each step
    const StepPower* powers;             ///< thresholdCount + 1 entries
    int64_t thresholdCount;              ///< the largest k
    const LeadingMagnitude* thresholds;  ///< rising
};

inline constexpr LeadingMagnitude ExpThresholds12[] = {
    {-2, 911607784}, {-1, 273482335}, {-1, 455803892}, {-1, 638125449}, {-1, 820447006},
    {0, 100276856},  {0, 118509012},  {0, 136741168},  {0, 154973323},  {0, 173205479},
    {0, 191437635},  {0, 209669790},  {0, 227901946},
};
inline constexpr LeadingMagnitude ExpThresholds101[] = {
    {-3, 497516543}, {-2, 149254963}, {-2, 248758271}, {-2, 348261580}, {-2, 447764888},
    {-2, 547268197}, {-2, 646771505}, {-2, 746274814}, {-2, 845778123},
};

inline constexpr ExpReductionTable ExpReductionTables[] = {
    {&ConstLn12, 1, Twelve.data(), std::size(ExpThresholds12), ExpThresholds12},
    {&ConstLn101, 2, HundredOne.data(), std::size(ExpThresholds101), ExpThresholds101},
};

/// How the logarithm brings T near 1: it divides T >= 1 by the power k, the largest whose upper
/// threshold T reaches, or multiplies T < 1 by the power k, the largest whose lower threshold T
/// does not exceed. Thresholds are nine leading digits, cut off, of 1.2^(k - 1/2) or
/// 1.01^(k - 1/2) and of its inverse.
struct LnReductionTable {
    const StoredConstant* constant;  ///< ln(powers[1] / 10^decimalStep)
    int64_t decimalStep;             ///< the power of ten in each step
    int64_t entryCount;              ///< entries of the three tables; entry 0 stands for no step
    const StepPower* powers;
    const uint32_t* upper;
    const uint32_t* lower;
};

inline constexpr uint32_t LnUpper12[] = {100000000, 109544511, 131453413, 157744096,
                                         189292915, 227151499, 272581798};
inline constexpr uint32_t LnLower12[] = {100000000, 912870929, 760725774, 633938145,
                                         528281787, 440234823, 366862352};
inline constexpr uint32_t LnUpper101[] = {100000000, 100498756, 101503743, 102518781, 103543969,
                                          104579408, 105625202, 106681454, 107748269, 108825752};
inline constexpr uint32_t LnLower101[] = {100000000, 995037190, 985185336, 975431026, 965773293,
                                          956211181, 946743744, 937370043, 928089152, 918900150};

inline constexpr LnReductionTable LnReductionTables[] = {
    {&ConstLn12, 1, std::size(LnUpper12), Twelve.data(), LnUpper12, LnLower12},
    {&ConstLn101, 2, std::size(LnUpper101), HundredOne.data(), LnUpper101, LnLower101},
};

}  // namespace tallymere
