#include "bench/operands.h"

namespace tallymere::bench {

namespace {

constexpr int64_t ExponentRange = 16;

// A number of so many digits whose leading one is of the order lowest to highest.
std::string RandomNumber(std::mt19937_64& random, int64_t digits, int64_t lowest = 0,
                         int64_t highest = ExponentRange - 1) {
    std::string text = RandomDigits(random, digits);
    text.insert(text.begin() + 1, '.');
    const uint64_t orders = static_cast<uint64_t>(highest - lowest + 1);
    return text + "e" + std::to_string(lowest + static_cast<int64_t>(random() % orders));
}

std::string RandomModerate(std::mt19937_64& random, int64_t digits) {
    return RandomNumber(random, digits, -1, 1);
}

std::string RandomSign(std::mt19937_64& random) {
    return random() % 2 == 0 ? "" : "-";
}

std::string RandomAboveTwo(std::mt19937_64& random, int64_t digits) {
    std::string text = RandomNumber(random, digits, 0, 1);
    text[0] = static_cast<char>('2' + random() % 8);
    return text;
}

std::string RandomBetween(std::mt19937_64& random, uint64_t low, uint64_t high) {
    return std::to_string(low + random() % (high - low + 1));
}

}  // namespace

std::string RandomDigits(std::mt19937_64& random, int64_t count) {
    std::string digits(1, static_cast<char>('1' + random() % 9));
    while (static_cast<int64_t>(digits.size()) < count) {
        digits += static_cast<char>('0' + random() % 10);
    }
    return digits;
}

std::vector<OperandPair> MakeOperands(OperandKind kind, int64_t digits) {
    std::mt19937_64 random(Seed + static_cast<uint64_t>(digits));
    std::vector<OperandPair> pairs;
    for (int64_t i = 0; i < OperandPairs(kind, digits); i++) {
        OperandPair pair;
        switch (kind) {
            case OperandKind::Numbers:
                pair.a = RandomNumber(random, digits);
                pair.b = RandomNumber(random, digits);
                break;
            case OperandKind::WholeNumbers:
                pair.a = RandomDigits(random, digits);
                pair.b = RandomDigits(random, digits / 2);
                break;
            case OperandKind::SmallDivisors:
                pair.a = RandomNumber(random, digits);
                pair.b = RandomBetween(random, 2, 2'000);
                break;
            case OperandKind::LargeDivisors:
                pair.a = RandomNumber(random, digits);
                pair.b = RandomBetween(random, 2'001, 1'000'000'000);
                break;
            case OperandKind::Logarithmands:
                pair.a = RandomNumber(random, digits, -4, ExponentRange - 1);
                pair.b = RandomNumber(random, digits, -4, ExponentRange - 1);
                break;
            case OperandKind::Moderate:
                pair.a = RandomSign(random) + RandomModerate(random, digits);
                pair.b = RandomSign(random) + RandomModerate(random, digits);
                break;
            case OperandKind::BaseAndExponent:
                pair.a = RandomModerate(random, digits);
                pair.b = RandomSign(random) + RandomModerate(random, digits);
                break;
            case OperandKind::Fractions:
                pair.a = RandomSign(random) + RandomNumber(random, digits, -2, -1);
                pair.b = RandomSign(random) + RandomNumber(random, digits, -2, -1);
                break;
            case OperandKind::AboveTwo:
                pair.a = RandomAboveTwo(random, digits);
                pair.b = RandomAboveTwo(random, digits);
                break;
        }
        pairs.push_back(pair);
    }
    return pairs;
}

bool FindOperandKind(std::string_view name, OperandKind* kind) {
    constexpr struct {
        std::string_view name;
        OperandKind kind;
    } names[] = {
        {"numbers", OperandKind::Numbers},
        {"whole", OperandKind::WholeNumbers},
        {"small", OperandKind::SmallDivisors},
        {"large", OperandKind::LargeDivisors},
        {"logarithmands", OperandKind::Logarithmands},
        {"moderate", OperandKind::Moderate},
        {"base-and-exponent", OperandKind::BaseAndExponent},
        {"fractions", OperandKind::Fractions},
        {"above-two", OperandKind::AboveTwo},
    };
    for (const auto& entry : names) {
        if (entry.name == name) {
            *kind = entry.kind;
            return true;
        }
    }
    return false;
}

}  // namespace tallymere::bench
