#include "support/complex_testing.h"

#include <ostream>

namespace tallymere::testing_support {

namespace {

constexpr uint64_t GuardWord = 0x6AFE6AFE6AFE6AFEu;
constexpr uint64_t JunkWord = 0xDEADBEEFDEADBEEFu;

RealBuffer RandomPart(RandomSource& random, int64_t exponentRange) {
    switch (random.Below(100)) {
        case 0:
            return RealBuffer(random.Below(2) == 0 ? "inf" : "-inf");
        case 1:
            return RealBuffer("nan");
        default:
            break;
    }
    if (random.Below(4) == 0) {
        return RealBuffer(random.Below(2) == 0 ? "0" : "-0");
    }
    RealBuffer part;
    FillReal(random, part, exponentRange);
    return part;
}

}  // namespace

ComplexBuffer::ComplexBuffer() : words_(static_cast<size_t>(ComplexWords()) + 1, JunkWord) {
    words_.back() = GuardWord;
}

ComplexBuffer::ComplexBuffer(std::string_view plainParts) : ComplexBuffer() {
    const size_t space = plainParts.find(' ');
    RealFromPlainText(RealPart(Get()), plainParts.substr(0, space));
    RealFromPlainText(ImaginaryPart(Get()), plainParts.substr(space + 1));
}

ComplexBuffer::ComplexBuffer(const RealBuffer& realPart, const RealBuffer& imaginaryPart)
    : ComplexBuffer() {
    RealCopy(RealPart(Get()), realPart);
    RealCopy(ImaginaryPart(Get()), imaginaryPart);
}

ComplexBuffer::~ComplexBuffer() {
    EXPECT_EQ(words_.back(), GuardWord) << "an operation wrote past the end of a record";
}

void PrintTo(const ComplexBuffer& z, std::ostream* out) {
    *out << PlainText(z.Get());
}

void ExpectWellFormed(const ComplexNumber* z) {
    EXPECT_TRUE(ComplexIsWellFormed(z));
    ExpectWellFormed(RealPart(z));
    ExpectWellFormed(ImaginaryPart(z));
}

std::string PlainText(const ComplexNumber* z) {
    ExpectWellFormed(z);
    return PlainText(RealPart(z)) + " " + PlainText(ImaginaryPart(z));
}

Outcome OutcomeOf(const ComplexBuffer& z) {
    const CalcError code = TakeCode();
    return {PlainText(z.Get()), code};
}

ComplexBuffer RandomComplex(RandomSource& random, int64_t exponentRange) {
    const RealBuffer realPart = RandomPart(random, exponentRange);
    return ComplexBuffer(realPart, RandomPart(random, exponentRange));
}

}  // namespace tallymere::testing_support
