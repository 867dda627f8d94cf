#include "support/exact_text_oracle.h"

#include <algorithm>
#include <string>

#include "core/text_flags.h"

namespace tallymere::testing_support {

namespace {

using TextView = std::u16string_view;

int DigitValue(char16_t c) {
    if (c >= u'0' && c <= u'9') {
        return c - u'0';
    }
    if (c >= u'a' && c <= u'z') {
        return c - u'a' + 10;
    }
    return c >= u'A' && c <= u'Z' ? c - u'A' + 10 : 99;
}

// What a text of an unsigned integer denotes, read with one look at each character.
class DenotedInteger {
public:
    DenotedInteger(TextView text, uint32_t flags) : flags_(flags) {
        base_ = (flags & TextBaseMask) == 0 ? 10 : static_cast<int>(flags & TextBaseMask);
        const size_t first = text.find_first_not_of(u' ');
        if (first != TextView::npos) {
            text_ = text.substr(first, text.find_last_not_of(u' ') + 1 - first);
        }
    }

    void Read(ExpectedUint& expected) {
        if (FindOracleBase(static_cast<uint32_t>(base_)) == nullptr) {
            expected.Refuse(CalcErrorBadParameter);
        } else if (!Divide()) {
            expected.Refuse(CalcErrorSyntax);
        } else {
            Evaluate(expected);
        }
    }

private:
    char16_t Peek(size_t ahead = 0) const {
        return at_ + ahead < text_.size() ? text_[at_ + ahead] : u'\0';
    }

    bool IsDigit(size_t ahead) const { return DigitValue(Peek(ahead)) < base_; }

    bool IsMark(const char16_t (&marks)[3], char16_t neutral) const {
        const char16_t c = Peek();
        return c != 0 &&
               ((flags_ & TextPlainSeparators) != 0 ? c == neutral
                                                    : std::find(marks, marks + 3, c) != marks + 3);
    }

    bool IsGroupMark() const {
        return (flags_ & TextGroup) != 0 && IsMark(numberContext.groupSeparators, u'\'') &&
               IsDigit(1);
    }

    // The digits from here on, without the marks of groups.
    std::string PassDigits() {
        std::string digits;
        while (IsDigit(0) || (!digits.empty() && IsGroupMark())) {
            if (IsDigit(0)) {
                digits += static_cast<char>(Peek());
            }
            at_++;
        }
        return digits;
    }

    // Cuts the text into its parts; false for a text that is no number.
    bool Divide() {
        at_ += Peek() == u'+' ? 1 : 0;
        whole_ = PassDigits();
        if (whole_.empty()) {
            return false;
        }
        if (base_ == 10 && IsMark(numberContext.decimalSeparators, u'.') && IsDigit(1)) {
            at_++;
            fraction_ = PassDigits();
        }
        if (base_ == 10 && (Peek() == u'e' || Peek() == u'E')) {
            at_++;
            const bool negative = Peek() == u'-';
            at_ += negative || Peek() == u'+' ? 1 : 0;
            const std::string digits = PassDigits();
            Integer exponent;
            if (digits.empty() || mpz_set_str(exponent, digits.c_str(), 10) != 0 ||
                mpz_fits_slong_p(exponent) == 0) {
                return false;
            }
            exponent_ = mpz_get_si(exponent);
            exponent_ = negative ? -exponent_ : exponent_;
        }
        return at_ == text_.size();
    }

    void Evaluate(ExpectedUint& expected) const {
        // The point moves to the right as far as there are digits.
        const auto places = static_cast<int64_t>(fraction_.size());
        const auto moved = static_cast<size_t>(std::clamp<int64_t>(exponent_, 0, places));
        const std::string digits = whole_ + fraction_.substr(0, moved);
        mpz_set_str(expected.value, digits.c_str(), base_);
        expected.Limit();
        if (expected.code != CalcErrorNone) {
            return;
        }
        if (fraction_.find_first_not_of('0', moved) != std::string::npos) {
            expected.Refuse(CalcErrorSyntax);
            return;
        }
        if (expected.value.Sign() == 0) {
            return;
        }
        const int64_t rest = exponent_ - static_cast<int64_t>(moved);
        Integer power;
        const Integer ten(10);
        const bool moderate = PowerOfGmp(power, ten, static_cast<uint64_t>(std::abs(rest)));
        if (rest >= 0) {
            if (!moderate) {
                expected.Refuse(CalcErrorOverflow);
                return;
            }
            mpz_mul(expected.value, expected.value, power);
            expected.Limit();
        } else if (moderate && mpz_divisible_p(expected.value, power) != 0) {
            mpz_divexact(expected.value, expected.value, power);
        } else {
            expected.Refuse(CalcErrorSyntax);
        }
    }

    TextView text_;
    uint32_t flags_;
    int base_ = 10;
    size_t at_ = 0;
    std::string whole_;
    std::string fraction_;
    int64_t exponent_ = 0;
};

}  // namespace

const OracleBase* FindOracleBase(uint32_t base) {
    for (const OracleBase& row : OracleBases) {
        if (row.base == base) {
            return &row;
        }
    }
    return nullptr;
}

void ReadUintText(ExpectedUint& expected, TextView text, uint32_t flags) {
    DenotedInteger(text, flags).Read(expected);
}

void ReadRationalText(ExpectedRational& expected, TextView text, uint32_t flags) {
    const size_t first = text.find_first_not_of(u' ');
    if (first == TextView::npos) {
        expected.Refuse(CalcErrorSyntax);
        return;
    }
    text = text.substr(first, text.find_last_not_of(u' ') + 1 - first);
    const auto isSign = [](TextView part) {
        return !part.empty() && (part[0] == u'+' || part[0] == u'-');
    };
    if (isSign(text)) {
        expected.sign = text[0] == u'-' ? 1 : 0;
        text.remove_prefix(1);
        if (text.empty() || isSign(text)) {
            expected.Refuse(CalcErrorSyntax);
            return;
        }
    }
    const size_t slash = text.find(u'/');
    ExpectedUint part;
    ReadUintText(part, text.substr(0, slash), flags);
    if (part.code != CalcErrorNone) {
        expected.Refuse(part.code);
        return;
    }
    mpz_set(expected.numerator, part.value);
    if (slash == TextView::npos) {
        return;
    }
    const TextView below = text.substr(slash + 1);
    if (below.empty() || below[0] == u'+') {
        expected.Refuse(CalcErrorSyntax);
        return;
    }
    part = ExpectedUint();
    ReadUintText(part, below, flags);
    if (part.code != CalcErrorNone) {
        expected.Refuse(part.code);
    } else if (part.value.Sign() == 0) {
        expected.Refuse(CalcErrorUndefined);
    } else {
        mpz_set(expected.denominator, part.value);
        expected.Reduce();
    }
}

}  // namespace tallymere::testing_support
