#include "support/formula_generator.h"

#include <algorithm>
#include <span>
#include <string_view>

#include "core/number_context.h"
#include "formula/function_table.h"
#include "formula/operator_table.h"

namespace tallymere::testing_support {

namespace {

using Text = std::u16string;

// What mangling puts in: every character of the language, separators of all kinds, near misses.
constexpr std::u16string_view Alphabet =
    u"0123456789012345678901234567890123456789++--**//^^(((())));;; \n\r\t.,',eEixXyYtTabcdefmodpi_"
    u"\u03C0\u03B1\u03A9\u00A0\u202F\u2019\u2212\u221E!%&=\uFFFF\u0001";

// Functions and operators come from their tables; what follows are exceptions.

// Functions that get operands of their own, see FunctionOfNumbers and its sisters: they grow, they
// work long on large operands, or most operands do not suit them. The value of round in uint
// depends on what was calculated before.
constexpr std::u16string_view WithOperandsOfTheirOwn[] = {
    u"exp",    u"sinh", u"cosh", u"fact",  u"ncr",   u"npr",   u"gcd",  u"lcm",
    u"powmod", u"root", u"logx", u"sqrtc", u"cbrtc", u"rootc", u"round"};

// Of them, one that exact types have and one that they refuse, which do with any operand there.
constexpr const char16_t* ExactOnes[] = {u"fact", u"exp"};

// Operators whose exponent must be small.
constexpr std::u16string_view PowerOperators[] = {u"^"};

// Words whose work grows with the size of their operands, and words that make large operands. Of
// the operators it is all but the plain ones.
constexpr std::u16string_view LongWorkers[] = {u"gcd", u"lcm", u"ncr", u"npr"};
constexpr std::u16string_view PlainOperators[] = {u"+", u"-", u"*", u"/", u"^"};
constexpr std::u16string_view Growers[] = {u"exp", u"sinh", u"cosh", u"fact", u"ncr", u"npr"};

bool Contains(std::span<const std::u16string_view> words, std::u16string_view word) {
    return std::ranges::find(words, word) != words.end();
}

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

// A function of the table that general operands suit; mostly one that the type in force has.
const FunctionRow& GeneralFunction(RandomSource& random) {
    for (;;) {
        const FunctionRow& row = FunctionTable[random.Below(FunctionCount)];
        if (!Contains(WithOperandsOfTheirOwn, row.name) &&
            (RoutineOf(row.routines, numberContext.numberType) != nullptr || OneIn(random, 15))) {
            return row;
        }
    }
}

// The same, of the functions that cplx has and real does not have.
const FunctionRow& GeneralFunctionOfCplx(RandomSource& random) {
    for (;;) {
        const FunctionRow& row = FunctionTable[random.Below(FunctionCount)];
        if (!Contains(WithOperandsOfTheirOwn, row.name) && row.routines.real == nullptr &&
            row.routines.cplx != nullptr) {
            return row;
        }
    }
}

// An operator of the table that general operands suit.
Text GeneralOperator(RandomSource& random) {
    for (;;) {
        const OperatorRow& row = OperatorTable[random.Below(OperatorCount)];
        if (!Contains(PowerOperators, row.spelling)) {
            const Text spelling = row.spelling;
            return IsWordOperator(row) ? u" " + spelling + u" " : spelling;
        }
    }
}

bool IsExact() {
    return numberContext.numberType == NumberTypeUint ||
           numberContext.numberType == NumberTypeRational;
}

Text ExactNumber(RandomSource& random) {
    switch (random.Below(16)) {
        case 0:
            return u"0";
        case 1:
            return Digits(random, 30);
        case 2:
            return OneIn(random, 3) ? Text(u"18446744073709551616") : u"18446744073709551615";
        case 3:
            return Digits(random, 2) + u".5e" + Digits(random, 1);
        case 4:
            return Digits(random, 2) + u"E+" + Digits(random, 2);
        case 5:
            return Digits(random, 3) + u"'" + Digits(random, 3);
        case 6:
            return OneIn(random, 3) ? Digits(random, 2) + u"." + Digits(random, 2)
                                    : Digits(random, 2) + u"0e-1";
        case 7:
            if (numberContext.numberType == NumberTypeUint) {
                return Pick(random, {u"0x1F", u"0X1e5", u"0y101", u"0t17", u"0xFFFFFFFFFFFFFFFF"});
            }
            return Digits(random, 2);
        default:
            return Digits(random, 2);
    }
}

Text Number(RandomSource& random) {
    if (IsExact()) {
        return ExactNumber(random);
    }
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
            if (OneIn(random_, 10)) {
                Put(u"^");
                Put(IsExact() ? ExactExponent()
                              : Pick(random_, {u"2", u"3", u"(-1)", u"0.5", u"10", u"2^3",
                                               u"(-2.5)", u"0"}));
                continue;
            }
            Put(OneIn(random_, 60)  ? u"^"
                : OneIn(random_, 2) ? GeneralOperator(random_)
                                    : Pick(random_, {u"+", u"-", u"*", u"/"}));
            Operand(depth);
        }
    }

    void Operand(int depth) {
        const uint64_t choice = random_.Below(100);
        if (depth == 0 || choice < 50) {
            Put(Number(random_));
            ImaginaryUnit(4);
        } else if (choice < 60) {
            const Variables& variables = RandomFormulaVariables();
            Put(variables[random_.Below(OneIn(random_, 20) ? variables.size() : 3)].first);
        } else if (choice < 77) {
            Put(u"(");
            Sum(depth - 1);
            Put(u")");
            ImaginaryUnit(20);
        } else if (choice < 86) {
            Put(numberContext.numberType == NumberTypeUint
                    ? Pick(random_, {u"abs", u"trunc", u"abs", u"trunc", u"frac"})
                    : Pick(random_, {u"abs", u"trunc", u"frac", u"round"}));
            Arguments(depth, 1);
        } else if (choice < 90) {
            if (IsExact() && OneIn(random_, 5)) {
                Put(Pick(random_, ExactOnes));
                Arguments(depth, 1);
            } else {
                GeneralCall(depth, GeneralFunction(random_));
            }
        } else if (choice < 94) {
            IsExact() ? ExactFunctionOfNumbers(depth) : Put(FunctionOfNumbers());
        } else if (choice < 97) {
            FunctionOfCplx(depth);
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

    // A call with general operands or, if there are several, tame ones as well.
    void GeneralCall(int depth, const FunctionRow& row) {
        Put(row.name);
        if (ArgumentCount(row) == 1 || OneIn(random_, 2)) {
            Arguments(depth, ArgumentCount(row));
            return;
        }
        Put(u"(" + Digits(random_, 2));
        for (int64_t i = 1; i < ArgumentCount(row); i++) {
            Put(u";" + Digits(random_, 2));
        }
        Put(u")");
    }

    static bool InCplx() { return numberContext.numberType == NumberTypeComplex; }

    void ImaginaryUnit(uint64_t rarity) {
        if (InCplx() && OneIn(random_, rarity)) {
            Put(u"i");
        }
    }

    // Those that grow, or that most operands do not suit, get numbers that they can do with.
    Text FunctionOfNumbers() {
        const Text x = Digits(random_, 2);
        const Text y = Digits(random_, 2);
        switch (random_.Below(6)) {
            case 0:
                return Pick(random_, {u"exp(", u"sinh(", u"cosh("}) + x + u"." + y.substr(0, 1) +
                       u")";
            case 1:
                return u"fact(" + x + u")";
            case 2:
                return Pick(random_, {u"ncr(", u"npr(", u"gcd(", u"lcm("}) + x + u";" + y + u")";
            case 3:
                return Pick(random_, {u"root(", u"logx("}) + x.substr(0, 1) + u";" + y + u")";
            case 4:
                return Pick(random_, {u"sind", u"cosd", u"tand"}) + Text(u"(") +
                       Pick(random_, {u"90", u"180", u"45", u"-270", u"360"}) + u")";
            default:
                return Pick(random_, {u"sin", u"cos", u"tan"}) + Text(u"(") +
                       Pick(random_, {u"pi", u"pi/2", u"3*pi", u"-pi/2", u"1000*pi", u"pi/4"}) +
                       u")";
        }
    }

    const char16_t* ExactExponent() {
        return Pick(random_, {u"2", u"3", u"(1-2)", u"(-1)", u"(1/2)", u"10", u"2^3", u"64", u"0",
                              u"(-3)", u"(2/3)", u"5"});
    }

    // A good part of the operands are of the kind that the function wants.
    void ExactFunctionOfNumbers(int depth) {
        const Text x = Digits(random_, 2);
        const Text y = Digits(random_, 2);
        switch (random_.Below(8)) {
            case 0:
                Put(Pick(random_, {u"ncr(", u"npr(", u"gcd(", u"lcm(", u"root(", u"logx("}));
                Sum(depth - 1);
                Put(u";" + y + u")");
                return;
            case 1:
                Put(u"powmod(" + x + u";" + y + u";");
                Sum(depth - 1);
                Put(u")");
                return;
            case 2:
                Put(Pick(random_, {u"sqrt(", u"root(2;"}) + x + u"^2" +
                    Pick(random_, {u"", u"/9", u"*4", u"+1"}) + u")");
                return;
            case 3:
                Put(Pick(random_, {u"cbrt(", u"root(3;"}) + x + u"^3" +
                    Pick(random_, {u"", u"/8", u"*27", u"-1"}) + u")");
                return;
            case 4:
                Put(Pick(random_, {u"log2(2^", u"log10(10^", u"logx(3;3^", u"log2(1/2^"}) + y +
                    Pick(random_, {u")", u")", u"+1)"}));
                return;
            case 5:
                Put(Pick(random_, {u"root(", u"logx("}) + x.substr(0, 1) + u";" + y + u")");
                return;
            default:
                Put(Pick(random_, {u"ncr(", u"npr(", u"gcd(", u"lcm("}) + x + u";" + y + u")");
        }
    }

    // What is refused in the type real.
    void FunctionOfCplx(int depth) {
        if (!InCplx() && !OneIn(random_, 10)) {
            Put(u"1");
            return;
        }
        if (OneIn(random_, 2)) {
            GeneralCall(depth, GeneralFunctionOfCplx(random_));
            return;
        }
        Put(Pick(random_, {u"sqrtc(", u"cbrtc(", u"rootc(5;", u"rootc(4;"}));
        Sum(depth - 1);
        Put(Pick(random_, {u";0)", u";1)", u";2)", u";(-1))"}));
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

void ShortenExponents(Text& text) {
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

// The text behind a small number that stands at `at`, in parentheses or not; npos if there is none.
size_t BehindSmallNumber(const Text& text, size_t at) {
    const auto peek = [&](size_t i) { return i < text.size() ? text[i] : u'\0'; };
    const auto isDigit = [&](size_t i) { return peek(i) >= u'0' && peek(i) <= u'9'; };
    const bool open = peek(at) == u'(';
    at += open ? 1 : 0;
    at += peek(at) == u'-' ? 1 : 0;
    if (!isDigit(at)) {
        return Text::npos;
    }
    at += isDigit(at + 1) ? 2 : 1;
    if (peek(at) == u'.' && isDigit(at + 1)) {
        at += 2;
    }
    if (open) {
        return peek(at) == u')' ? at + 1 : Text::npos;
    }
    return at;
}

// True when what stands at `at` makes no longer number of the one before it.
bool EndsNumber(const Text& text, size_t at) {
    at = std::min(text.find_first_not_of(u" \n\r", at), text.size());
    return at == text.size() || std::u16string_view(u")+-*/;").find(text[at]) != Text::npos;
}

// True when the parenthesis at `at` opens a list of small numbers.
bool HasSmallArguments(const Text& text, size_t at) {
    if (at >= text.size() || text[at] != u'(') {
        return false;
    }
    do {
        at = BehindSmallNumber(text, at + 1);
    } while (at < text.size() && text[at] == u';');
    return at < text.size() && text[at] == u')';
}

// Takes out what makes large numbers of any but small ones: ^ becomes a sum, a function a name.
void TakeOutGrowers(Text& text) {
    for (size_t at = text.find(u'^'); at != Text::npos; at = text.find(u'^', at + 1)) {
        const size_t end = BehindSmallNumber(text, at + 1);
        if (end == Text::npos || !EndsNumber(text, end)) {
            text[at] = u'+';
        }
    }
    for (const std::u16string_view grower : Growers) {
        for (size_t at = text.find(grower); at != Text::npos; at = text.find(grower, at + 1)) {
            const bool inverse = at > 0 && text[at - 1] == u'a';
            if (!inverse && !HasSmallArguments(text, at + grower.size())) {
                text.erase(at, 1);
            }
        }
    }
}

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
    const auto occurs = [&](std::u16string_view word) { return text.find(word) != Text::npos; };
    const auto worksLong = [&](const OperatorRow& row) {
        return !Contains(PlainOperators, row.spelling) && occurs(row.spelling);
    };
    if (std::ranges::any_of(LongWorkers, occurs) || std::ranges::any_of(OperatorTable, worksLong)) {
        ShortenExponents(text);
        TakeOutGrowers(text);
    }
}

}  // namespace tallymere::testing_support
