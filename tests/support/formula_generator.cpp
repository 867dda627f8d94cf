#include "support/formula_generator.h"

#include <algorithm>
#include <string_view>

namespace tallymere::testing_support {

namespace {

using Text = std::u16string;

// What mangling puts in: every character of the language, separators of all kinds, near misses.
constexpr std::u16string_view Alphabet =
    u"0123456789012345678901234567890123456789++--**//^^(((())));;; \n\r\t.,',eEixXyYtTabcdefmodpi_"
    u"\u03C0\u03B1\u03A9\u00A0\u202F\u2019\u2212\u221E!%&=\uFFFF\u0001";

constexpr std::u16string_view LongWorkers[] = {u"mod", u"fact", u"ncr", u"npr",
                                               u"gcd", u"lcm",  u"^",   u"root"};

template <size_t N>
const char16_t* Pick(RandomSource& random, const char16_t* const (&choices)[N]) {
    return choices[random.Below(N)];
}

bool OneIn(RandomSource& random, uint64_t n) {
    return random.Below(n) == 0;
}

Text Digits(RandomSource& random, int64_t most) {
    Text digits;
    for (int64_t i = random.Between(1, most); i > 0; i--) {
        digits += static_cast<char16_t>(u'0' + random.Below(10));
    }
    return digits;
}

Text Number(RandomSource& random) {
    switch (random.Below(12)) {
        case 0:
            return u"0";
        case 1:
            return Digits(random, 30);
        case 2:
            return Digits(random, 3) + u"." + Digits(random, 25);
        case 3:
            return Digits(random, 2) + u"e" + (OneIn(random, 2) ? u"-" : u"") + Digits(random, 2);
        case 4:
            return Digits(random, 1) + u"." + Digits(random, 4) + u"E+" + Digits(random, 3);
        case 5:
            return Digits(random, 3) + u"'" + Digits(random, 3);
        case 6:
            return OneIn(random, 4) ? Text(u"18446744073709551615") : u"0." + Digits(random, 3);
        default:
            return Digits(random, 2);
    }
}

class Writer {
public:
    explicit Writer(RandomSource& random) : random_(random) {}

    Text Formula(int depth) {
        Sum(depth);
        return text_;
    }

private:
    void Put(std::u16string_view part) {
        if (OneIn(random_, 12)) {
            text_ += Pick(random_, {u" ", u"  ", u"\n", u"\r\n "});
        }
        text_ += part;
    }

    void Sum(int depth) {
        if (OneIn(random_, 6)) {
            Put(OneIn(random_, 4) ? u"+" : u"-");
        }
        Operand(depth);
        while (OneIn(random_, 2)) {
            Put(OneIn(random_, 60)
                    ? u"^"
                    : Pick(random_, {u"+", u"-", u"*", u"/", u"+", u"-", u"*", u" mod "}));
            Operand(depth);
        }
    }

    void Operand(int depth) {
        const uint64_t choice = random_.Below(100);
        if (depth == 0 || choice < 50) {
            Put(Number(random_));
        } else if (choice < 60) {
            const Variables& variables = RandomFormulaVariables();
            Put(variables[random_.Below(OneIn(random_, 20) ? variables.size() : 3)].first);
        } else if (choice < 80) {
            Put(u"(");
            Sum(depth - 1);
            Put(u")");
        } else if (choice < 97) {
            Put(Pick(random_, {u"abs", u"trunc", u"frac", u"round"}));
            Arguments(depth, 1);
        } else if (choice < 98) {
            Put(Pick(random_, {u"arg", u"imagp", u"sqrtc", u"rootc", u"powmod", u"realp"}));
            Arguments(depth, random_.Between(1, 3));
        } else if (choice < 99) {
            Put(Pick(random_, {u"abs", u"gcd", u"sin", u"powmod"}));
            Arguments(depth, random_.Between(2, 5));
        } else {
            Put(Pick(random_, {u"pi", u"i", u"3i", u"e", u"nobody", u"0x1F", u"1.2.3", u"5e"}));
        }
    }

    void Arguments(int depth, int64_t count) {
        Put(u"(");
        Sum(depth - 1);
        while (--count > 0) {
            Put(u";");
            Sum(depth - 1);
        }
        Put(u")");
    }

    RandomSource& random_;
    Text text_;
};

}  // namespace

const Variables& RandomFormulaVariables() {
    static const Variables variables = {
        {u"x", u"2.5"},  {u"\u03B1_1", u"-(3+4)/7"}, {u"ans", u"1'000e-2"}, {u"bad", u"1/0"},
        {u"empty", u""}, {u"other", u"x"},           {u"E2", u"12e2"},      {u"deep", u"((1)"}};
    return variables;
}

Text RandomFormula(RandomSource& random, int depth) {
    return Writer(random).Formula(depth);
}

Text RandomNest(RandomSource& random) {
    Text text;
    int64_t open = 0;
    const int64_t levels = random.Between(3, 45);
    while (open < levels) {
        const char16_t* part =
            OneIn(random, 25)
                ? Pick(random, {u"arg(1;", u"powmod(-1;2;"})
                : Pick(random, {u"(", u"(", u"abs(", u"trunc(", u"-(", u"1+(", u"2*(3-("});
        // A sign stands only where it may.
        if (part[0] == u'-' && (text.empty() || text.back() != u'(')) {
            continue;
        }
        text += part;
        open += std::count(part, part + std::char_traits<char16_t>::length(part), u'(');
    }
    text += Number(random);
    return text +
           Text(static_cast<size_t>(open - (OneIn(random, 8) ? random.Between(-1, 2) : 0)), u')');
}

void Mangle(RandomSource& random, Text& text) {
    for (uint64_t i = random.Between(1, 4); i > 0; i--) {
        const size_t at = random.Below(text.size() + 1);
        const char16_t c = Alphabet[random.Below(Alphabet.size())];
        switch (at == text.size() ? 0 : random.Below(6)) {
            case 0:
            case 1:
                text.insert(at, 1, c);
                break;
            case 2:
                text[at] = c;
                break;
            case 3:
                text.erase(at, 1);
                break;
            case 4:
                text.insert(at, text.substr(at, random.Between(1, 8)));
                break;
            default:
                if (OneIn(random, 4)) {
                    text.resize(at);
                } else {
                    text.erase(at, random.Between(1, 5));
                }
        }
    }
}

void KeepShort(Text& text) {
    if (std::none_of(std::begin(LongWorkers), std::end(LongWorkers),
                     [&](std::u16string_view word) { return text.find(word) != Text::npos; })) {
        return;
    }
    const auto continuesExponent = [&](size_t i) {
        return i < text.size() &&
               std::u16string_view(u"0123456789.,' \u2019\u202F\u00B7").find(text[i]) !=
                   std::u16string_view::npos;
    };
    for (size_t i = 0; i < text.size(); i++) {
        if (text[i] != u'e' && text[i] != u'E') {
            continue;
        }
        size_t end = i + 1;
        if (end < text.size() && (text[end] == u'+' || text[end] == u'-')) {
            end++;
        }
        size_t digits = end;
        while (continuesExponent(digits)) {
            digits++;
        }
        if (digits - end > 3) {
            text.erase(end + 3, digits - end - 3);
        }
    }
}

}  // namespace tallymere::testing_support
