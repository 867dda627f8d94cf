#include "support/decimal_text.h"

#include <algorithm>

namespace tallymere::testing_support {

namespace {

constexpr int64_t LargestExponent = 4'611'686'018'427'387'903;

// The parts of a text that an automaton has accepted as a number.
struct Parts {
    std::string integer;
    std::string fraction;
    std::string exponent;
    bool exponentNegative = false;
};

enum class State {
    Start,        // nothing, or the sign
    Integer,      // a digit was last
    IntegerMark,  // a group separator was last: a digit must follow
    Point,        // the decimal separator was last: a digit must follow
    Fraction,
    FractionMark,
    Exponent,      // the exponent mark was last
    ExponentSign,  // its sign was last: a digit must follow
    ExponentDigits,
    ExponentDigitsMark,
    Refused,
};

State AfterDigit(State state) {
    switch (state) {
        case State::Start:
        case State::Integer:
        case State::IntegerMark:
            return State::Integer;
        case State::Point:
        case State::Fraction:
        case State::FractionMark:
            return State::Fraction;
        case State::Refused:
            return State::Refused;
        default:
            return State::ExponentDigits;
    }
}

State AfterMark(State state) {
    switch (state) {
        case State::Integer:
            return State::IntegerMark;
        case State::Fraction:
            return State::FractionMark;
        case State::ExponentDigits:
            return State::ExponentDigitsMark;
        default:
            return State::Refused;
    }
}

bool Accept(std::u16string_view text, char16_t point, char16_t mark, Parts* parts) {
    State state = State::Start;
    for (char16_t c : text) {
        if (c >= u'0' && c <= u'9') {
            state = AfterDigit(state);
            std::string& part = state == State::Integer    ? parts->integer
                                : state == State::Fraction ? parts->fraction
                                                           : parts->exponent;
            part += static_cast<char>(c);
        } else if (mark != 0 && c == mark) {
            state = AfterMark(state);
        } else if (c == point) {
            state = state == State::Integer ? State::Point : State::Refused;
        } else if (c == u'e' || c == u'E') {
            state = state == State::Integer || state == State::Fraction ? State::Exponent
                                                                        : State::Refused;
        } else if (c == u'+' || c == u'-') {
            state = state == State::Exponent ? State::ExponentSign : State::Refused;
            parts->exponentNegative = c == u'-';
        } else {
            state = State::Refused;
        }
        if (state == State::Refused) {
            return false;
        }
    }
    return state == State::Integer || state == State::Fraction || state == State::ExponentDigits;
}

// The written exponent; one that no position of a digit brings back into the range is cut.
int64_t ExponentOf(const Parts& parts) {
    constexpr int64_t FarOut = 5'000'000'000'000'000'000;
    std::string digits = parts.exponent;
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));
    int64_t value = 0;
    if (digits.size() > 19 || (digits.size() == 19 && digits > std::to_string(FarOut))) {
        value = FarOut;
    } else if (!digits.empty()) {
        value = std::stoll(digits);
    }
    return parts.exponentNegative ? -value : value;
}

// Adds one to the last of some digits; true if the result is "1000...", one place further up.
bool Increment(std::string& digits) {
    for (size_t i = digits.size(); i-- > 0;) {
        if (digits[i] != '9') {
            digits[i]++;
            return false;
        }
        digits[i] = '0';
    }
    digits[0] = '1';
    return true;
}

std::string Grouped(std::string integer, const std::string& mark) {
    for (size_t fromRight = 3; fromRight < integer.size(); fromRight += 3 + mark.size()) {
        integer.insert(integer.size() - fromRight, mark);
    }
    return integer;
}

}  // namespace

std::u16string WideText(std::string_view ascii) {
    return std::u16string(ascii.begin(), ascii.end());
}

std::string NarrowText(std::u16string_view text) {
    std::string ascii;
    for (char16_t c : text) {
        ascii += c == u'\u221E' ? '~' : c < 0x80 ? static_cast<char>(c) : '?';
    }
    return ascii;
}

ReadResult ReadDecimal(std::u16string_view text, int64_t p, char16_t point, char16_t mark) {
    while (text.starts_with(u' ')) {
        text.remove_prefix(1);
    }
    while (text.ends_with(u' ')) {
        text.remove_suffix(1);
    }
    std::string sign;
    if (text.starts_with(u'-')) {
        sign = "-";
    }
    if (text.starts_with(u'-') || text.starts_with(u'+')) {
        text.remove_prefix(1);
    }
    if (text == u"inf" || text == u"in" || text == u"\u221E") {
        return {sign + "inf", CalcErrorNone};
    }
    if (text == u"NaN" || text == u"Na" || text == u"N") {
        return {"nan", CalcErrorNone};
    }
    Parts parts;
    if (!Accept(text, point, mark, &parts)) {
        return {"nan", CalcErrorSyntax};
    }

    std::string digits = parts.integer + parts.fraction;
    const size_t leading = digits.find_first_not_of('0');
    if (leading == std::string::npos) {
        return {sign + "0", CalcErrorNone};
    }
    digits.erase(0, leading);
    int64_t exponent = ExponentOf(parts) + static_cast<int64_t>(parts.integer.size()) - 1 -
                       static_cast<int64_t>(leading);
    if (exponent < -LargestExponent) {
        return {sign + "0", CalcErrorNone};
    }
    const size_t precision = static_cast<size_t>(p);
    const bool up = digits.size() > precision && digits[precision] >= '5';
    digits.resize(precision, '0');
    if (exponent <= LargestExponent && up && Increment(digits)) {
        exponent++;
    }
    if (exponent > LargestExponent) {
        return {sign + "inf", CalcErrorOverflow};
    }
    digits.erase(digits.find_last_not_of('0') + 1);
    if (digits.size() > 1) {
        digits.insert(1, ".");
    }
    return {sign + digits + "e" + std::to_string(exponent), CalcErrorNone};
}

std::string WriteDecimal(const std::string& digits, bool negative, int64_t exponent,
                         const WriteStyle& style, int64_t capacity) {
    const bool isZero = digits.find_first_not_of('0') == std::string::npos;
    const bool automatic = style.notation == Notation::Automatic;
    const bool fixed =
        style.notation == Notation::Fixed || (automatic && exponent > -4 && exponent < 10);

    std::string integer = digits.substr(0, 1);
    std::string fraction = digits.substr(1);
    if (fixed && exponent < 0) {
        integer = "0";
        fraction = std::string(static_cast<size_t>(-exponent - 1), '0') + digits;
    } else if (fixed) {
        const size_t length = static_cast<size_t>(exponent) + 1;
        integer = digits.substr(0, length);
        integer.resize(length, '0');
        fraction = length < digits.size() ? digits.substr(length) : "";
        integer = style.mark.empty() ? integer : Grouped(integer, style.mark);
    }

    std::string text = style.alwaysSign ? "+" : "";
    if (negative && (!isZero || style.alwaysSign)) {
        text = "-";
    }
    text += integer;
    const size_t unstripped = text.size() + (fraction.empty() ? 0 : 1 + fraction.size());
    if (automatic || style.strip) {
        fraction.erase(fraction.find_last_not_of('0') + 1);
    }
    if (fraction.empty() && style.keepFraction) {
        fraction = "0";
    }
    if (!fraction.empty()) {
        text += style.point + fraction;
    }
    if (!fixed) {
        text += exponent < 0 ? "e" : style.exponentPlus ? "e+" : "e";
        text += std::to_string(exponent);
    }
    const size_t room = static_cast<size_t>(capacity);
    return unstripped > room || text.size() > room ? "overflow" : text;
}

std::string HostileDigits(RandomSource& random, int64_t most, int64_t p) {
    const int64_t length = random.Between(1, most);
    std::string digits;
    for (int64_t i = 0; i < length; i++) {
        digits += static_cast<char>('0' + random.Below(10));
    }
    const size_t from = static_cast<size_t>(random.Between(0, length - 1));
    const size_t count = static_cast<size_t>(random.Between(1, length));
    const std::string run(std::min(count, digits.size() - from), random.Below(2) == 0 ? '0' : '9');
    switch (random.Below(8)) {
        case 0:
            digits.assign(digits.size(), '9');
            break;
        case 1:
            digits.replace(from, run.size(), run);
            break;
        case 2:
            digits.replace(0, run.size(), std::string(run.size(), '0'));
            break;
        case 3:
            digits.replace(from, std::string::npos, std::string(digits.size() - from, '0'));
            break;
        case 4:
        case 5:
            if (p < most) {
                digits.resize(static_cast<size_t>(p), random.Below(2) == 0 ? '9' : '7');
                digits += "459"[random.Below(3)];
            }
            break;
        default:
            break;
    }
    return digits;
}

}  // namespace tallymere::testing_support
