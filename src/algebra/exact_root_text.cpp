#include "algebra/exact_root_text.h"

#include <algorithm>
#include <string_view>

#include "core/contract.h"
#include "core/scratch.h"
#include "core/text_writer.h"
#include "exact/big_uint.h"
#include "exact/big_uint_text.h"
#include "exact/rational_text.h"

namespace tallymere {

namespace {

constexpr std::u16string_view RootBegin = u"sqrt(";
constexpr std::u16string_view RootEnd = u")";

// What stands beside the numbers: a "*" twice, a square root and an imaginary unit.
constexpr int64_t OtherCharacters = 3 + static_cast<int64_t>(RootBegin.size() + RootEnd.size());

void WriteRational(TextWriter& text, const RationalNumber* q, uint32_t flags) {
    text.position += RationalToText(text.buffer + text.position, text.capacity - text.position, q,
                                    flags | TextNoTerminator);
}

// True for 1 and -1.
bool IsUnit(const RationalNumber* q) {
    return RationalIsInteger(q) && BigUintEqualsSmall(RationalNumerator(q), 1);
}

// The term q sqrt(r), behind p if that is not 0.
void WriteTerm(TextWriter& text, const ExactRoot& root) {
    WriteRational(text, root.q, RationalIsZero(root.p) ? 0u : uint32_t{TextAlwaysSign});
    if (!BigUintEqualsSmall(root.r, 1)) {
        if (IsUnit(root.q)) {
            text.position--;
        } else {
            WriteChar(text, u'*');
        }
        WriteChars(text, RootBegin);
        BigUintWrite(text, root.r, 0);
        WriteChars(text, RootEnd);
    }
    if (root.imaginary) {
        WriteChar(text, u'*');
        WriteChar(text, numberContext.imaginaryChars[0]);
    }
}

}  // namespace

bool WriteExactRoot(char16_t* text, const ExactRoot& root) {
    TALLYMERE_REQUIRE(ExactRootIsWellFormed(root));
    CoreScratchScope scratch;
    const int64_t capacity =
        2 * RationalToText(nullptr, 0, root.p, 0) + BigUintTextLength(0) + OtherCharacters;
    uint64_t* words = scratch.Take((capacity + CharactersPerWord - 1) / CharactersPerWord);
    TextWriter whole = {0, capacity, reinterpret_cast<char16_t*>(words)};
    if (root.q == nullptr || !RationalIsZero(root.p)) {
        WriteRational(whole, root.p, 0);
    }
    if (root.q != nullptr) {
        WriteTerm(whole, root);
    }
    TALLYMERE_REQUIRE(!WriterOverflowed(whole));
    const int64_t length = std::min(whole.position, ExactTextCapacity);
    std::copy_n(whole.buffer, length, text);
    text[length] = u'\0';
    if (length == whole.position) {
        return true;
    }
    text[length - 1] = Ellipsis;
    return false;
}

}  // namespace tallymere
