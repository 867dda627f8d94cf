#include "reference/big_uint_division_twins.h"

#include <array>
#include <cstddef>

namespace tallymere::reference {

namespace {

__extension__ typedef unsigned __int128 Word128;

size_t BitLength(const TwinLimbs& a) {
    for (size_t bits = 64 * a.size(); bits > 0; bits--) {
        if ((a[(bits - 1) / 64] >> ((bits - 1) % 64)) & 1) {
            return bits;
        }
    }
    return 0;
}

bool IsZero(const TwinLimbs& a) {
    return BitLength(a) == 0;
}

TwinLimbs FromWord(uint64_t k, size_t width) {
    TwinLimbs value(width, 0);
    value[0] = k;
    return value;
}

TwinLimbs Resize(TwinLimbs a, size_t width) {
    a.resize(width, 0);
    return a;
}

bool IsBelow(const TwinLimbs& a, const TwinLimbs& b) {
    for (size_t i = a.size(); i-- > 0;) {
        if (a[i] != b[i]) {
            return a[i] < b[i];
        }
    }
    return false;
}

TwinLimbs Add(const TwinLimbs& a, const TwinLimbs& b) {
    TwinLimbs sum(a.size());
    uint64_t carry = 0;
    for (size_t i = 0; i < a.size(); i++) {
        const Word128 part = Word128{a[i]} + b[i] + carry;
        sum[i] = static_cast<uint64_t>(part);
        carry = static_cast<uint64_t>(part >> 64);
    }
    return sum;
}

void Subtract(TwinLimbs& a, const TwinLimbs& b) {
    uint64_t borrow = 0;
    for (size_t i = 0; i < a.size(); i++) {
        const Word128 part = Word128{a[i]} - b[i] - borrow;
        a[i] = static_cast<uint64_t>(part);
        borrow = static_cast<uint64_t>(part >> 64) & 1;
    }
}

// Hexadecimal digit i of a.
uint64_t HexDigit(const TwinLimbs& a, size_t i) {
    return (a[i / 16] >> (i % 16 * 4)) & 15;
}

// a without its lowest `count` hexadecimal digits, in so many limbs.
TwinLimbs DropHexDigits(const TwinLimbs& a, size_t count, size_t limbs) {
    TwinLimbs rest(limbs, 0);
    for (size_t i = count; i < 16 * a.size(); i++) {
        if (HexDigit(a, i) != 0) {
            rest[(i - count) / 16] |= HexDigit(a, i) << ((i - count) % 16 * 4);
        }
    }
    return rest;
}

void AppendHexDigit(TwinLimbs& a, uint64_t digit) {
    for (size_t i = a.size() - 1; i > 0; i--) {
        a[i] = a[i] << 4 | a[i - 1] >> 60;
    }
    a[0] = a[0] << 4 | digit;
}

// The multiples of b from 1 to 15; entry 0 is unused.
using Multiples = std::array<TwinLimbs, 16>;

// The largest multiple in `rest`, by bisection.
size_t FindDigit(const TwinLimbs& rest, const Multiples& multiples) {
    size_t index = 8;
    for (size_t step = 4; step > 0; step /= 2) {
        if (IsBelow(rest, multiples[index])) {
            index -= step;
        } else {
            index += step;
        }
    }
    return IsBelow(rest, multiples[index]) ? index - 1 : index;
}

}  // namespace

TwinQuotient TwinDivide(const TwinLimbs& a, const TwinLimbs& b) {
    const size_t width = a.size();
    const size_t bitsOfB = BitLength(b);
    if (bitsOfB <= 64) {
        const TwinSmallQuotient small = TwinDivideSmall(a, b[0]);
        return {small.quotient, FromWord(small.remainder, width), small.code};
    }
    const size_t digitsOfA = (BitLength(a) + 3) / 4;
    const size_t digitsOfB = (bitsOfB + 3) / 4;
    if (digitsOfA < digitsOfB) {
        return {TwinLimbs(width, 0), a};
    }
    // Room for one more digit.
    const size_t limbs = (bitsOfB + 67) / 64;
    size_t position = digitsOfA - digitsOfB;
    TwinLimbs rest = DropHexDigits(a, position, limbs);
    Multiples multiples;
    multiples[1] = Resize(b, limbs);
    for (size_t i = 2; i < multiples.size(); i++) {
        multiples[i] = Add(multiples[i - 1], multiples[1]);
    }
    TwinLimbs quotient(width, 0);
    for (;;) {
        const size_t digit = FindDigit(rest, multiples);
        if (digit != 0) {
            Subtract(rest, multiples[digit]);
        }
        quotient[position / 16] |= uint64_t{digit} << (position % 16 * 4);
        if (position == 0) {
            return {quotient, Resize(rest, width)};
        }
        position--;
        AppendHexDigit(rest, HexDigit(a, position));
    }
}

TwinSmallQuotient TwinDivideSmall(const TwinLimbs& a, uint64_t d) {
    TwinSmallQuotient result = {TwinLimbs(a.size(), 0)};
    if (d == 0) {
        result.code = CalcErrorExactDivisionByZero;
        return result;
    }
    const size_t shift = BitLength({d}) - 1;
    const bool isPowerOfTwo = d == uint64_t{1} << shift;
    const uint64_t reciprocal =
        isPowerOfTwo ? 0 : static_cast<uint64_t>((Word128{1} << (64 + shift)) / d);
    for (size_t i = a.size(); i-- > 0;) {
        const Word128 part = Word128{result.remainder} << 64 | a[i];
        if (isPowerOfTwo) {
            result.quotient[i] = static_cast<uint64_t>(part >> shift);
            result.remainder = a[i] & (d - 1);
            continue;
        }
        const Word128 product =
            Word128{result.remainder} * reciprocal + (Word128{a[i]} * reciprocal >> 64);
        uint64_t quotient = static_cast<uint64_t>(product >> shift);
        Word128 rest = part - Word128{quotient} * d;
        while (rest >= d) {
            rest -= d;
            quotient++;
        }
        result.quotient[i] = quotient;
        result.remainder = static_cast<uint64_t>(rest);
    }
    return result;
}

TwinUint TwinGcd(const TwinLimbs& a, const TwinLimbs& b) {
    if (IsZero(a) || IsZero(b)) {
        return {TwinLimbs(a.size(), 0), CalcErrorUndefined};
    }
    TwinLimbs rest = TwinDivide(a, b).remainder;
    TwinLimbs divisor = b;
    while (!IsZero(rest)) {
        const TwinLimbs before = divisor;
        divisor = rest;
        rest = TwinDivide(before, divisor).remainder;
    }
    return {divisor};
}

TwinUint TwinModPower(const TwinLimbs& a, const TwinLimbs& e, const TwinLimbs& m) {
    const size_t width = a.size();
    if (IsZero(m)) {
        return {TwinLimbs(width, 0), CalcErrorExactDivisionByZero};
    }
    const bool modulusIsOne = BitLength(m) == 1;
    if (IsZero(e)) {
        return {FromWord(modulusIsOne ? 0 : 1, width)};
    }
    const TwinLimbs modulus = Resize(m, 2 * width);
    TwinLimbs power = FromWord(1, 2 * width);
    const auto multiply = [&](const TwinLimbs& factor) {
        power = TwinDivide(TwinMulFull(Resize(power, width), factor), modulus).remainder;
    };
    for (size_t i = BitLength(e); i-- > 0;) {
        multiply(Resize(power, width));
        if ((e[i / 64] >> (i % 64)) & 1) {
            multiply(a);
        }
    }
    return {Resize(power, width)};
}

}  // namespace tallymere::reference
