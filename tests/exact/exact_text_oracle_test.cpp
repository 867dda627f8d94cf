// Texts of integers and fractions against GMP: what is written, and what random texts, good and
// mangled, are read as.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "core/number_bases.h"
#include "core/number_scanner.h"
#include "exact/big_uint_text.h"
#include "exact/rational_text.h"
#include "support/exact_text_oracle.h"

namespace tallymere {
namespace {

using namespace testing_support;

using Text = std::u16string;
using TextView = std::u16string_view;

// Puts separators in force of which no character has two meanings.
class SeparatorScope {
public:
    SeparatorScope(TextView decimal, TextView group) : saved_(numberContext) {
        std::copy(decimal.begin(), decimal.end(), numberContext.decimalSeparators);
        std::copy(group.begin(), group.end(), numberContext.groupSeparators);
    }
    ~SeparatorScope() {
        std::copy_n(saved_.decimalSeparators, 3, numberContext.decimalSeparators);
        std::copy_n(saved_.groupSeparators, 3, numberContext.groupSeparators);
    }
    SeparatorScope(const SeparatorScope&) = delete;
    SeparatorScope& operator=(const SeparatorScope&) = delete;

private:
    NumberContext saved_;
};

std::string Narrow(TextView text) {
    std::string narrow;
    for (const char16_t c : text) {
        narrow += c < 0x80 ? std::string(1, static_cast<char>(c)) : "\\" + std::to_string(c);
    }
    return narrow;
}

Text DigitsOf(mpz_srcptr value, uint32_t base, bool lower) {
    std::string digits(mpz_sizeinbase(value, static_cast<int>(base)) + 2, '\0');
    mpz_get_str(digits.data(), lower ? static_cast<int>(base) : -static_cast<int>(base), value);
    digits.resize(digits.find('\0'));
    return Text(digits.begin(), digits.end());
}

uint32_t RandomFlags(RandomSource& random, std::initializer_list<uint32_t> choices) {
    uint32_t flags = 0;
    for (const uint32_t flag : choices) {
        flags |= random.Below(3) == 0 ? flag : 0;
    }
    return flags;
}

// --- Writing ---

char16_t DecimalMark(uint32_t flags) {
    return (flags & TextPlainSeparators) != 0 ? u'.' : numberContext.decimalSeparators[0];
}

char16_t GroupMark(uint32_t flags) {
    return (flags & TextPlainSeparators) != 0 ? u'\'' : numberContext.groupSeparators[0];
}

Text Grouped(const Text& digits, size_t size, uint32_t flags) {
    Text grouped;
    for (size_t i = 0; i < digits.size(); i++) {
        if (i != 0 && (digits.size() - i) % size == 0 && (flags & TextGroup) != 0) {
            grouped += GroupMark(flags);
        }
        grouped += digits[i];
    }
    return grouped;
}

Text Scientific(Text digits, uint32_t flags) {
    const std::string exponent = std::to_string(digits.size() - 1);
    if ((flags & TextStripZeros) != 0) {
        digits.resize(std::max<size_t>(digits.find_last_not_of(u'0') + 1, 1));
    }
    Text text = digits.substr(0, 1);
    if (digits.size() > 1) {
        text += DecimalMark(flags) + digits.substr(1);
    }
    text += numberContext.exponentChars[0];
    text += (flags & TextNoExponentPlus) != 0 ? u"" : u"+";
    return text + Text(exponent.begin(), exponent.end());
}

// The text of an integer without its sign, and CalcErrorBadParameter for a form that it lacks.
Text ExpectedDigits(mpz_srcptr value, uint32_t flags, CalcError* code) {
    const uint32_t base = (flags & TextBaseMask) == 0 ? 10 : flags & TextBaseMask;
    const bool scientific = (flags & TextScientific) != 0;
    const OracleBase* row = FindOracleBase(base);
    if (row == nullptr || (scientific && base != 10)) {
        *code = CalcErrorBadParameter;
        return u"[P]";
    }
    const Text digits = DigitsOf(value, base, (flags & TextLowerHex) != 0);
    return scientific ? Scientific(digits, flags) : Grouped(digits, row->groupSize, flags);
}

// Mostly a base of integers, often the decimal one with and without its number, rarely none.
uint32_t RandomBase(RandomSource& random) {
    if (random.Below(200) == 0) {
        return static_cast<uint32_t>(random.Below(256));
    }
    return random.Below(3) == 0 ? static_cast<uint32_t>(random.Below(2) * 10)
                                : OracleBases[random.Below(std::size(OracleBases))].base;
}

uint32_t OutputFlags(RandomSource& random) {
    const uint32_t base = RandomBase(random);
    uint32_t flags = base | RandomFlags(random, {TextGroup, TextPlainSeparators, TextAlwaysSign,
                                                 TextNoExponentPlus, TextLowerHex, TextStripZeros,
                                                 TextNoTerminator});
    if (random.Below(base == 0 || base == 10 ? 3 : 100) == 0) {
        flags |= TextScientific;
    }
    return flags;
}

// What write(buffer, capacity, flags) makes of a number, at the capacity of `bound` characters or a
// random one that is too small or just large enough.
template <typename Write>
void JudgeWriting(RandomSource& random, const Text& expected, CalcError code, int64_t bound,
                  uint32_t flags, Write write) {
    constexpr char16_t Untouched = u'\uABCD';
    const auto length = static_cast<int64_t>(expected.size());
    ASSERT_LE(length, bound);
    const int64_t capacity =
        random.Below(4) == 0 ? std::max<int64_t>(0, length - random.Between(-1, 5)) : bound;
    Text wanted = expected;
    if (capacity < length) {
        wanted = capacity >= 3 ? u"[$]" : u"";
        code = code == CalcErrorNone ? CalcErrorTextTooLong : code;
    }
    std::vector<char16_t> buffer(static_cast<size_t>(capacity) + 2, Untouched);
    const int64_t written = write(buffer.data(), capacity, flags);
    ASSERT_EQ(TakeCode(), code) << Narrow(expected) << " with flags " << flags;
    ASSERT_EQ(written, static_cast<int64_t>(wanted.size())) << Narrow(expected);
    ASSERT_TRUE(std::equal(wanted.begin(), wanted.end(), buffer.begin()))
        << "flags " << flags << "\ngave " << Narrow({buffer.data(), wanted.size()}) << "\nfor "
        << Narrow(wanted);
    const bool terminated = (flags & TextNoTerminator) == 0;
    ASSERT_TRUE(!terminated || buffer[wanted.size()] == 0) << Narrow(expected);
    ASSERT_EQ(buffer.back(), Untouched);
}

TEST(ExactTextOracle, KnowsTheBasesOfTheProgram) {
    for (const NumberBase& row : NumberBases) {
        EXPECT_NE(FindOracleBase(static_cast<uint32_t>(row.base)), nullptr)
            << row.base << " is missing in tests/support/exact_text_oracle.h";
    }
    for (const OracleBase& row : OracleBases) {
        EXPECT_NE(FindNumberBase(row.base), nullptr)
            << row.base << " is missing in core/number_bases.h";
    }
}

TEST(ExactTextOracle, IntegersAreWrittenDigitByDigit) {
    RandomSource random;
    for (const int64_t limbs : AllUintWidths) {
        const WidthScope scope(limbs);
        UintBuffer a;
        for (int round = OperandSets(); round > 0; round--) {
            const SeparatorScope separators(round % 2 == 0 ? u"..." : u",\u00B7\u00B7",
                                            round % 2 == 0 ? u"'''" : u".\u202F'");
            FillUint(random, a, RandomLength(random, limbs));
            const uint32_t flags = OutputFlags(random);
            CalcError code = CalcErrorNone;
            const Text sign = (flags & TextAlwaysSign) != 0 ? u"+" : u"";
            const Text expected = sign + ExpectedDigits(LimbsView(a), flags, &code);
            ASSERT_NO_FATAL_FAILURE(
                JudgeWriting(random, expected, code, BigUintTextLength(flags), flags,
                             [&](char16_t* buffer, int64_t capacity, uint32_t given) {
                                 return BigUintToText(buffer, capacity, a, given);
                             }))
                << a.Text();
        }
    }
}

TEST(ExactTextOracle, FractionsAreWrittenPartByPart) {
    RandomSource random;
    for (const int64_t limbs : AllUintWidths) {
        const WidthScope scope(limbs);
        std::vector<uint64_t> words(static_cast<size_t>(RationalWords()));
        RationalNumber* q = RationalAt(words.data());
        for (int round = OperandSets(); round > 0; round--) {
            q->sign = random.Below(50) == 0 ? RandomWord(random) : random.Below(2);
            FillUint(random, RationalNumerator(q), RandomLength(random, limbs));
            FillUint(random, RationalDenominator(q), RandomLength(random, limbs));
            if (random.Below(3) == 0) {
                FillUint(random, RationalDenominator(q), 0);
                RationalDenominator(q)[0] = random.Below(20) == 0 ? 0 : 1;
            }
            const uint32_t flags = OutputFlags(random);
            const LimbsView numerator(RationalNumerator(q));
            const LimbsView denominator(RationalDenominator(q));
            const bool always = (flags & TextAlwaysSign) != 0;
            CalcError code = CalcErrorNone;
            // Bit 0 of the sign word is the sign also of a record that is damaged.
            const bool minus = (q->sign & 1) != 0 && (always || !numerator.IsZero());
            Text expected = minus ? u"-" : always ? u"+" : u"";
            if (q->sign > 1 || denominator.IsZero()) {
                expected += u"[?]";
                code = CalcErrorMalformed;
            } else {
                expected += ExpectedDigits(numerator, flags, &code);
                if (mpz_cmp_ui(mpz_srcptr(denominator), 1) != 0) {
                    expected += u"/" + ExpectedDigits(denominator, flags, &code);
                }
            }
            ASSERT_NO_FATAL_FAILURE(
                JudgeWriting(random, expected, code, 2 * BigUintTextLength(flags) + 2, flags,
                             [&](char16_t* buffer, int64_t capacity, uint32_t given) {
                                 return RationalToText(buffer, capacity, q, given);
                             }));
        }
    }
}

// --- Reading ---

// A text of an integer, now and then of one that is a little too large.
Text RandomIntegerText(RandomSource& random, uint32_t base) {
    UintBuffer a;
    Integer value;
    FillUint(random, a, RandomLength(random, numberContext.uintLimbs));
    mpz_set(value, LimbsView(a));
    if (random.Below(10) == 0) {
        mpz_ui_pow_ui(value, 2, UintBits());
        const uint64_t beside = random.Below(3);
        random.Below(2) == 0 ? mpz_add_ui(value, value, beside) : mpz_sub_ui(value, value, beside);
    }
    const uint32_t written = FindOracleBase(base) != nullptr ? base : 10;
    Text text = DigitsOf(value, written, random.Below(2) == 0);
    if (written == 10 && random.Below(3) == 0) {
        const size_t zeros = random.Below(4) == 0 ? text.size() : text.find_last_not_of(u'0') + 1;
        const size_t point = random.Below(text.size());
        const std::string exponent =
            std::to_string(static_cast<int64_t>(text.size() - 1 - point) +
                           random.Between(-2, 2) * (random.Below(3) == 0 ? 1 : 0));
        text = text.substr(0, point + 1) +
               (point + 1 < zeros ? DecimalMark(0) + text.substr(point + 1) : Text()) +
               (random.Below(2) == 0 ? u"e" : u"E") +
               (exponent[0] != '-' && random.Below(2) == 0 ? u"+" : u"") +
               Text(exponent.begin(), exponent.end());
    }
    for (uint64_t i = random.Below(3); i > 0 && random.Below(3) == 0; i--) {
        text.insert(random.Below(text.size() + 1), 1, GroupMark(0));
    }
    if (random.Below(6) == 0) {
        text.insert(0, Text(random.Below(3), u'0'));
    }
    if (random.Below(6) == 0) {
        text.insert(0, u"+");
    }
    if (random.Below(6) == 0) {
        text = Text(random.Below(3), u' ') + text + Text(random.Below(3), u' ');
    }
    return text;
}

// Some characters more, other or fewer. The exponent has no group marks: which of them count there
// is nobody's business.
void MangleNumber(RandomSource& random, Text& text) {
    constexpr TextView alphabet = u"00112345789abcfgABFGeE+-.,' /i\u221E\u202F\u0009xX";
    for (uint64_t i = random.Between(1, 3); i > 0; i--) {
        const size_t at = random.Below(text.size() + 1);
        const char16_t c = alphabet[random.Below(alphabet.size())];
        if (at == text.size() || random.Below(3) == 0) {
            text.insert(at, 1, c);
        } else if (random.Below(2) == 0) {
            text[at] = c;
        } else {
            text.erase(at, random.Below(4) == 0 ? random.Below(6) : 1);
        }
    }
}

void DropGroupMarksOfExponent(Text& text) {
    const size_t exponent = text.find_first_of(u"eE");
    if (exponent != Text::npos) {
        Text behind = text.substr(exponent);
        std::erase_if(behind, [](char16_t c) {
            return c == u'\'' || c == u'.' || c == u',' || c == u'\u202F';
        });
        text = text.substr(0, exponent) + behind;
    }
}

uint32_t InputFlags(RandomSource& random) {
    const uint32_t base = RandomBase(random);
    return base | (random.Below(4) != 0 ? TextGroup : 0) |
           (random.Below(3) == 0 ? TextPlainSeparators : 0);
}

TEST(ExactTextOracle, IntegersAreReadAsWhatTheirTextDenotes) {
    RandomSource random;
    int codes[2] = {};
    for (const int64_t limbs : AllUintWidths) {
        const WidthScope scope(limbs);
        UintBuffer dest;
        for (int round = OperandSets(); round > 0; round--) {
            const SeparatorScope separators(round % 2 == 0 ? u"..." : u",\u00B7\u00B7",
                                            round % 2 == 0 ? u"'''" : u".\u202F'");
            const uint32_t flags = InputFlags(random);
            Text text = RandomIntegerText(random, flags & TextBaseMask);
            if (random.Below(3) == 0) {
                MangleNumber(random, text);
            }
            DropGroupMarksOfExponent(text);
            ExpectedUint expected;
            ReadUintText(expected, text, flags);
            const bool terminated = random.Below(2) == 0;
            BigUintFromText(dest, text.c_str(),
                            terminated ? TextUntilZero : static_cast<int64_t>(text.size()), flags);
            const CalcError code = TakeCode();
            ASSERT_TRUE(code == expected.code && mpz_cmp(LimbsView(dest), expected.value) == 0)
                << "\"" << Narrow(text) << "\" with flags " << flags << "\ngave " << dest.Text()
                << " with code " << code << "\nfor " << IntegerText(expected.value) << " with code "
                << expected.code;
            codes[0] += code == CalcErrorSyntax ? 1 : 0;
            codes[1] += code == CalcErrorOverflow ? 1 : 0;
        }
    }
    EXPECT_GT(codes[0], TestRounds(10'000));
    EXPECT_GT(codes[1], TestRounds(2'000));
}

TEST(ExactTextOracle, FractionsAreReadInLowestTerms) {
    RandomSource random;
    int good = 0;
    for (const int64_t limbs : AllUintWidths) {
        const WidthScope scope(limbs);
        std::vector<uint64_t> words(static_cast<size_t>(RationalWords()));
        RationalNumber* q = RationalAt(words.data());
        for (int round = OperandSets(); round > 0; round--) {
            const uint32_t flags = InputFlags(random);
            const uint32_t base = flags & TextBaseMask;
            Text above = RandomIntegerText(random, base);
            DropGroupMarksOfExponent(above);
            Text below = random.Below(4) == 0 ? Text() : RandomIntegerText(random, base);
            DropGroupMarksOfExponent(below);
            Text text = above + (below.empty() ? u"" : u"/") + below;
            if (random.Below(4) == 0) {
                text.insert(0, 1, u'-');
            }
            if (random.Below(4) == 0) {
                MangleNumber(random, text);
                // A mangled mark may have come behind an exponent.
                if (text.find_first_of(u"eE") != Text::npos) {
                    std::erase_if(text, [](char16_t c) { return c == u'\'' || c == u'.'; });
                }
            }
            ExpectedRational expected;
            ReadRationalText(expected, text, flags);
            RationalFromText(q, text.c_str(), static_cast<int64_t>(text.size()), flags);
            const CalcError code = TakeCode();
            ASSERT_TRUE(code == expected.code && expected == q)
                << "\"" << Narrow(text) << "\" with flags " << flags << "\ngave sign " << q->sign
                << " " << UintText(RationalNumerator(q)) << " / "
                << UintText(RationalDenominator(q)) << " with code " << code << "\nfor code "
                << expected.code;
            good += code == CalcErrorNone ? 1 : 0;
        }
    }
    EXPECT_GT(good, TestRounds(50'000));
}

}  // namespace
}  // namespace tallymere
