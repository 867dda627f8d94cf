#include "algebra/polynomial_pattern.h"

#include <string_view>

#include "core/digit_text.h"

namespace tallymere {

namespace {

// From this degree on the terms in the middle are left out.
constexpr int64_t ShortenedDegree = 5;

void WriteText(TextWriter& text, std::u16string_view characters) {
    WriteChars(text, characters.data(), static_cast<int64_t>(characters.size()));
}

// An index from 0 to MaxPolyPatternDegree.
void WriteIndex(TextWriter& text, int64_t index) {
    const int64_t digits = index < 10 ? 1 : index < 100 ? 2 : 3;
    if (char16_t* place = WriteReserve(text, digits)) {
        WriteDecimalRun(place, static_cast<uint64_t>(index), digits);
    }
}

}  // namespace

void AppendPolyPattern(TextWriter& text, int64_t degree, char16_t letter) {
    if (degree > MaxPolyPatternDegree) {
        return;
    }
    for (int64_t index = degree; index >= 0; index--) {
        if (degree >= ShortenedDegree && index == degree - 2) {
            WriteText(text, u"... + ");
            index = 1;
        }
        WriteChar(text, letter);
        WriteIndex(text, index);
        if (index >= 1) {
            WriteText(text, u"*x");
        }
        if (index >= 2) {
            WriteText(text, u"^");
            WriteIndex(text, index);
        }
        if (index >= 1) {
            WriteText(text, u" + ");
        }
    }
}

}  // namespace tallymere
