// Powers modulo a number.
#pragma once

#include <cstdint>

namespace tallymere {

/// dest = a^e mod m. 0 and code 202 for m = 0. Asked to stop, 0 and code 207: polled once for each
/// bit of e.
void BigUintModPower(uint64_t* dest, const uint64_t* a, const uint64_t* e, const uint64_t* m);

}  // namespace tallymere
