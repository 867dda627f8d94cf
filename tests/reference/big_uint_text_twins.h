// Plain twins of reading and writing exact integers: digit by digit, and by dividing the whole
// number again and again.
//
// The functions under test may take any road that leads to the same values, texts and codes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tallymere::reference {

void TwinUintFromText(uint64_t* dest, std::u16string_view text, uint32_t flags);

/// The text without a terminator; the buffer is as long as it takes.
std::u16string TwinUintText(const uint64_t* a, uint32_t flags);

}  // namespace tallymere::reference
