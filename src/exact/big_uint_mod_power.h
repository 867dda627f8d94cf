// Powers modulo a number.
#pragma once

#include <cstdint>

namespace tallymere {

/// dest = a^e mod m; 0^0 is 1 mod m. 0 and CalcErrorExactDivisionByZero for m = 0. The stop request
/// is polled once for each bit of e; it gives 0 and CalcErrorCancelled.
void BigUintModPower(uint64_t* dest, const uint64_t* a, const uint64_t* e, const uint64_t* m);

}  // namespace tallymere
