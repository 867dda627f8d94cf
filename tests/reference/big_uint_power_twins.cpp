#include "reference/big_uint_power_twins.h"

#include <vector>

#include "core/number_context.h"
#include "exact/big_uint.h"
#include "exact/big_uint_division.h"
#include "exact/big_uint_multiply.h"

namespace tallymere::reference {

namespace {

using Value = std::vector<uint64_t>;

Value NewValue(uint64_t k = 0) {
    Value value(static_cast<size_t>(numberContext.uintLimbs), 0);
    value[0] = k;
    return value;
}

bool Failed() {
    return numberContext.calcError != CalcErrorNone;
}

// The largest number below 2^bits whose power is not above x, and whether it is equal to x.
template <typename RaiseTo>
bool Bisect(uint64_t* dest, const uint64_t* x, int64_t bits, RaiseTo raise) {
    BigUintClear(dest);
    Value middle = NewValue();
    Value power = NewValue();
    while (bits > 0) {
        bits--;
        BigUintCopy(middle.data(), dest);
        middle[static_cast<size_t>(bits / 64)] |= uint64_t{1} << (bits % 64);
        raise(power.data(), middle.data());
        if (Failed()) {
            numberContext.calcError = CalcErrorNone;
            continue;
        }
        const int order = BigUintCompare(power.data(), x);
        if (order <= 0) {
            BigUintCopy(dest, middle.data());
        }
        if (order == 0) {
            return true;
        }
    }
    return false;
}

}  // namespace

void TwinPower(uint64_t* dest, const uint64_t* base, int64_t e) {
    if (e == 0) {
        BigUintFromUnsigned(dest, 1);
        return;
    }
    if (e < 0) {
        BigUintSetFailed(dest, CalcErrorUndefined);
        return;
    }
    if (BigUintIsZero(base)) {
        BigUintClear(dest);
        return;
    }
    Value square(base, base + numberContext.uintLimbs);
    bool first = true;
    while (true) {
        if (e % 2 != 0) {
            if (first) {
                BigUintCopy(dest, square.data());
            } else {
                BigUintMul(dest, dest, square.data());
            }
            first = false;
        }
        e /= 2;
        if (e == 0 || Failed()) {
            break;
        }
        BigUintMul(square.data(), square.data(), square.data());
    }
    if (Failed()) {
        BigUintClear(dest);
    }
}

void TwinPowerOfTen(uint64_t* dest, int64_t n) {
    constexpr int64_t TableSize = 20;
    if (n < 0) {
        BigUintSetFailed(dest, CalcErrorUndefined);
        return;
    }
    uint64_t table[TableSize] = {1};
    for (int64_t i = 1; i < TableSize; i++) {
        table[i] = table[i - 1] * 10;
    }
    if (n < TableSize) {
        BigUintFromUnsigned(dest, table[n]);
        return;
    }
    Value square = NewValue(table[16]);
    bool first = true;
    for (int64_t bits = n / 16; bits != 0 && !Failed(); bits /= 2) {
        if (bits % 2 != 0) {
            if (first) {
                BigUintMulSmall(dest, square.data(), table[n % 16]);
            } else {
                BigUintMul(dest, dest, square.data());
            }
            first = false;
        }
        if (bits > 1) {
            BigUintMul(square.data(), square.data(), square.data());
        }
    }
    if (Failed()) {
        BigUintClear(dest);
    }
}

bool TwinSquareRoot(uint64_t* dest, const uint64_t* x) {
    if (BigUintIsZero(x)) {
        BigUintClear(dest);
        return true;
    }
    return Bisect(dest, x, ((BigUintBitLength(x) - 1) >> 1) + 1,
                  [](uint64_t* square, const uint64_t* a) { BigUintMul(square, a, a); });
}

bool TwinRoot(uint64_t* dest, int64_t n, const uint64_t* x) {
    if (n < 0) {
        const bool inexact = BigUintBitLength(x) > 1;
        BigUintFromUnsigned(dest, inexact ? 1 : x[0]);
        return !inexact;
    }
    if (n == 1) {
        BigUintCopy(dest, x);
        return true;
    }
    if (n == 0) {
        BigUintSetFailed(dest, CalcErrorUndefined);
        return false;
    }
    if (BigUintIsZero(x)) {
        BigUintClear(dest);
        return true;
    }
    const int64_t bits = n < int64_t{1} << 31 ? (BigUintBitLength(x) - 1) / n + 1 : 1;
    return Bisect(dest, x, bits,
                  [n](uint64_t* power, const uint64_t* a) { TwinPower(power, a, n); });
}

bool TwinLog(uint64_t* dest, const uint64_t* base, const uint64_t* x) {
    if (BigUintIsZero(x) || BigUintIsZero(base) || BigUintEqualsSmall(base, 1)) {
        BigUintSetFailed(dest, CalcErrorOverflow);
        return false;
    }
    Value rest(x, x + numberContext.uintLimbs);
    Value remainder = NewValue();
    uint64_t count = 0;
    bool exact = true;
    while (BigUintCompare(rest.data(), base) >= 0) {
        BigUintDivide(rest.data(), remainder.data(), rest.data(), base);
        exact = exact && BigUintIsZero(remainder.data());
        count++;
    }
    BigUintFromUnsigned(dest, count);
    return exact && BigUintEqualsSmall(rest.data(), 1);
}

}  // namespace tallymere::reference
