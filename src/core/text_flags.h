// The flag word of number texts, shared by reading and writing and by all number types.
#pragma once

#include <cstdint>

namespace tallymere {

enum TextFlags : uint32_t {
    TextBaseMask = 0xFF,          ///< the base; 0 means 10
    TextGroup = 0x100,            ///< write group separators; accept them between digits
    TextPlainSeparators = 0x200,  ///< "." and "'" in place of the context's separators
    TextAlwaysSign = 0x1000,      ///< write "+" before what is not negative
    TextNoExponentPlus = 0x2000,  ///< write no "+" before a positive exponent
    TextKeepFraction = 0x4000,    ///< write a fraction digit even where there is no fraction
    TextFixed = 0x8000,           ///< force fixed notation
    TextScientific = 0x10000,     ///< force scientific notation
    TextLowerHex = 0x40000,       ///< lower-case digits in base 16
    TextStripZeros = 0x80000,     ///< strip trailing zeros of the fraction
    TextAcceptInfinity = 0x100000,
    TextAcceptNaN = 0x200000,
    TextNoTerminator = 0x400000,  ///< write no 0 character at the end
};

}  // namespace tallymere
