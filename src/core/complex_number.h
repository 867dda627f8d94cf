// ComplexNumber: two real numbers, the real part first and the imaginary part right behind it.
//
// A record takes ComplexWords() words of its owner's memory and, like a RealNumber, means something
// only under the layout it was written in. Any two well-formed parts make a well-formed value. A
// value *is real* when its imaginary part is a zero of either sign; operations then take the way of
// real arithmetic and leave +0 as imaginary part. There is no infinity or NaN of its own: where an
// operation as a whole has no value, the real part is NaN and the imaginary part +0.
//
// In all operations the destination comes first and may be an operand, but may not overlap one
// otherwise.
#pragma once

#include "core/real_number.h"

namespace tallymere {

/// The first word of a record; the rest of the real part and the imaginary part follow it.
struct ComplexNumber {
    uint64_t realHeader;
};

/// Words of one record in the current layout.
inline int64_t ComplexWords() {
    return 2 * RealWords();
}

/// True when two records of the current layout are one and the same, or have no word in common.
inline bool ComplexSameOrApart(const ComplexNumber* a, const ComplexNumber* b) {
    return SameOrApart(&a->realHeader, &b->realHeader, ComplexWords());
}

/// The record that lies in `words`.
inline ComplexNumber* ComplexAt(uint64_t* words) {
    return reinterpret_cast<ComplexNumber*>(words);
}
inline const ComplexNumber* ComplexAt(const uint64_t* words) {
    return reinterpret_cast<const ComplexNumber*>(words);
}

inline RealNumber* RealPart(ComplexNumber* z) {
    return RealAt(&z->realHeader);
}
inline const RealNumber* RealPart(const ComplexNumber* z) {
    return RealAt(&z->realHeader);
}

inline RealNumber* ImaginaryPart(ComplexNumber* z) {
    return RealAt(&z->realHeader + RealWords());
}
inline const RealNumber* ImaginaryPart(const ComplexNumber* z) {
    return RealAt(&z->realHeader + RealWords());
}

/// True when both parts are in normal form in the current layout, as RealIsWellFormed says.
inline bool ComplexIsWellFormed(const ComplexNumber* z) {
    return RealIsWellFormed(RealPart(z)) && RealIsWellFormed(ImaginaryPart(z));
}

/// True when the imaginary part is a zero of either sign; exact, without a tolerance.
inline bool ComplexIsReal(const ComplexNumber* z) {
    return RealIsZero(ImaginaryPart(z));
}

/// True when both parts are zeros of either sign.
inline bool ComplexIsZero(const ComplexNumber* z) {
    return RealIsZero(RealPart(z)) && ComplexIsReal(z);
}

/// The imaginary part becomes +0, the real part stays.
inline void ComplexClearImaginaryPart(ComplexNumber* z) {
    RealSetZero(ImaginaryPart(z), 0);
}

/// NaN as real part and +0 as imaginary part, and notes `code`.
inline void ComplexSetNaN(ComplexNumber* dest, CalcError code) {
    RealSetNaN(RealPart(dest), code);
    ComplexClearImaginaryPart(dest);
}

/// A zero of that sign as real part and +0 as imaginary part.
inline void ComplexSetZero(ComplexNumber* dest, uint64_t sign) {
    RealSetZero(RealPart(dest), sign);
    ComplexClearImaginaryPart(dest);
}

/// Flips the signs of both parts, also of zeros; a NaN keeps its cleared sign.
inline void ComplexNegate(ComplexNumber* z) {
    RealNegate(RealPart(z));
    RealNegate(ImaginaryPart(z));
}

/// Copies both parts.
inline void ComplexCopy(ComplexNumber* dest, const ComplexNumber* src) {
    RealCopy(RealPart(dest), RealPart(src));
    RealCopy(ImaginaryPart(dest), ImaginaryPart(src));
}

}  // namespace tallymere
