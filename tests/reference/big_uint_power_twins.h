// Plain twins of powers, roots and logarithms of exact integers, one operation for each step of the
// method.
//
// The functions under test may take any road that leads to the same integers. No code may be noted
// before; dest must not be an operand.
#pragma once

#include <cstdint>

namespace tallymere::reference {

/// Square and multiply from the lowest bit of e.
void TwinPower(uint64_t* dest, const uint64_t* base, int64_t e);

/// Square and multiply on 10^16, and one power below that.
void TwinPowerOfTen(uint64_t* dest, int64_t n);

/// Bisection by bits.
bool TwinSquareRoot(uint64_t* dest, const uint64_t* x);
bool TwinRoot(uint64_t* dest, int64_t n, const uint64_t* x);

/// Division by the base, again and again.
bool TwinLog(uint64_t* dest, const uint64_t* base, const uint64_t* x);

}  // namespace tallymere::reference
