#include "support/formula_model.h"

#include <algorithm>
#include <map>
#include <string>
#include <utility>

#include "core/real_add.h"
#include "core/real_div_mod.h"
#include "core/real_divide.h"
#include "core/real_integer.h"
#include "core/real_multiply.h"
#include "core/real_rounding.h"
#include "core/real_text.h"

namespace tallymere::testing_support {

namespace {

using Text = std::u16string;

struct Unmodelled {};

struct Refusal {
    uint32_t error;
    size_t position;
    size_t length;
};

constexpr int StackLimit = 50;

const std::map<Text, int> ArgumentCounts = {
    {u"sqrt", 1},   {u"cbrt", 1}, {u"ln", 1},   {u"log2", 1},  {u"log10", 1}, {u"exp", 1},
    {u"abs", 1},    {u"sin", 1},  {u"cos", 1},  {u"tan", 1},   {u"asin", 1},  {u"acos", 1},
    {u"atan", 1},   {u"sind", 1}, {u"cosd", 1}, {u"tand", 1},  {u"asind", 1}, {u"acosd", 1},
    {u"atand", 1},  {u"sing", 1}, {u"cosg", 1}, {u"tang", 1},  {u"asing", 1}, {u"acosg", 1},
    {u"atang", 1},  {u"sinh", 1}, {u"cosh", 1}, {u"tanh", 1},  {u"asinh", 1}, {u"acosh", 1},
    {u"atanh", 1},  {u"fact", 1}, {u"root", 2}, {u"sqrtc", 2}, {u"cbrtc", 2}, {u"rootc", 3},
    {u"arg", 1},    {u"argd", 1}, {u"argg", 1}, {u"realp", 1}, {u"imagp", 1}, {u"trunc", 1},
    {u"frac", 1},   {u"ncr", 2},  {u"npr", 2},  {u"logx", 2},  {u"gcd", 2},   {u"lcm", 2},
    {u"powmod", 3}, {u"round", 1}};

bool IsOneOf(const Text& word, std::initializer_list<const char16_t*> words) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

bool Among(char16_t c, const char16_t* characters, int count) {
    return c != 0 && std::find(characters, characters + count, c) != characters + count;
}

bool Digit(char16_t c) {
    return u'0' <= c && c <= u'9';
}

bool WordCharacter(char16_t c) {
    return Text(u"_ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz").find(c) != Text::npos ||
           (c >= u'\u0391' && c <= u'\u03A9') || (c >= u'\u03B1' && c <= u'\u03C9');
}

enum class Kind { End, Invalid, Number, Imaginary, Function, Pi, Name, Symbol };

struct Lexeme {
    Kind kind = Kind::End;
    Text word;  // the characters; of "mod" and the symbols the symbol
    size_t position = 0;
    size_t length = 0;
};

class Lexer {
public:
    explicit Lexer(std::u16string_view text) : text_(text.substr(0, text.find(u'\0'))) {}

    Lexeme Next() {
        at_ = std::min(text_.find_first_not_of(u" \n\r", at_), text_.size());
        Lexeme lexeme;
        lexeme.position = at_;
        if (at_ == text_.size()) {
            length_ = 0;
            return lexeme;
        }
        const char16_t c = text_[at_];
        const bool lone = !WordCharacter(Peek(1)) && !Digit(Peek(1));
        if (!Digit(c) && lone && Among(c, numberContext.imaginaryChars, 2)) {
            at_++;
            lexeme.kind = Kind::Imaginary;
            lexeme.length = length_;
            return lexeme;
        }
        if (Digit(c)) {
            lexeme.kind = Kind::Number;
            PassNumber();
        } else if (WordCharacter(c)) {
            while (WordCharacter(Peek(0)) || Digit(Peek(0))) {
                at_++;
            }
        } else if (Text(u"+-*/^();").find(c) != Text::npos) {
            lexeme.kind = Kind::Symbol;
            at_++;
        } else {
            lexeme.kind = Kind::Invalid;
        }
        lexeme.length = length_ = at_ - lexeme.position;
        lexeme.word = text_.substr(lexeme.position, lexeme.length);
        if (lexeme.kind == Kind::End) {
            lexeme.kind = lexeme.word == u"mod"                      ? Kind::Symbol
                          : IsOneOf(lexeme.word, {u"pi", u"\u03C0"}) ? Kind::Pi
                          : ArgumentCounts.contains(lexeme.word)     ? Kind::Function
                                                                     : Kind::Name;
        }
        return lexeme;
    }

private:
    char16_t Peek(size_t ahead) const {
        return at_ + ahead < text_.size() ? text_[at_ + ahead] : u'\0';
    }

    void PassNumber() {
        const bool prefix =
            Peek(0) == u'0' && Text(u"xXyYtT").find(Peek(1)) != Text::npos && Peek(1) != 0;
        const bool hexadecimal = prefix && (Peek(1) == u'x' || Peek(1) == u'X');
        at_ += prefix ? 2 : 1;
        while (true) {
            const char16_t c = Peek(0);
            const bool hexadecimalDigit =
                hexadecimal && c != 0 && Text(u"abcdefABCDEF").find(c) != Text::npos;
            if (Digit(c) || hexadecimalDigit || Among(c, numberContext.decimalSeparators, 3) ||
                Among(c, numberContext.groupSeparators, 3)) {
                at_++;
            } else if (!prefix && Among(c, numberContext.exponentChars, 4) &&
                       (Peek(1) == u'+' || Peek(1) == u'-' || Digit(Peek(1)))) {
                at_ += 2;
            } else {
                return;
            }
        }
    }

    Text text_;
    size_t at_ = 0;
    size_t length_ = 0;
};

struct Operand {
    RealBuffer value;
    size_t position;
    size_t end;
};

using Values = std::map<Text, RealBuffer>;

// One formula. `coming_` is the token that has been read but not yet taken; operations that fail
// show their error there.
class Descent {
public:
    Descent(std::u16string_view text, const Values& variables)
        : lexer_(text), variables_(variables) {
        coming_ = lexer_.Next();
    }

    RealBuffer Formula() {
        const Operand whole = Sum();
        if (IsSymbol(u";")) {
            throw Refusal{10200, whole.position, whole.end - whole.position};
        }
        if (IsSymbol(u")")) {
            Refuse(10201);
        }
        return whole.value;
    }

private:
    bool IsSymbol(const char16_t* symbol) const {
        return coming_.kind == Kind::Symbol && coming_.word == symbol;
    }

    [[noreturn]] void Refuse(uint32_t error) const {
        throw Refusal{error, coming_.position, coming_.length};
    }

    [[noreturn]] void RefuseHere() const {
        Refuse(coming_.kind == Kind::Imaginary ? 10207 : coming_.kind == Kind::End ? 10202 : 10200);
    }

    // Takes the token, which needs a place of its own.
    Lexeme Take() {
        if (entries_ == StackLimit) {
            Refuse(10204);
        }
        entries_++;
        return Pass();
    }

    Lexeme Pass() { return std::exchange(coming_, lexer_.Next()); }

    Operand Sum() {
        if (!IsSymbol(u"+") && !IsSymbol(u"-")) {
            return SumFrom(Product());
        }
        const Lexeme sign = Take();
        Operand operand = Product();
        if (sign.word == u"-") {
            RealNegate(operand.value);
        }
        operand.position = sign.position;
        entries_--;
        return SumFrom(std::move(operand));
    }

    Operand SumFrom(Operand left) {
        while (IsSymbol(u"+") || IsSymbol(u"-")) {
            const Lexeme operation = Take();
            const Operand right = Product();
            Combine(operation, left, right);
        }
        return left;
    }

    Operand Product() {
        Operand left = Power();
        while (IsSymbol(u"*") || IsSymbol(u"/") || IsSymbol(u"mod")) {
            const Lexeme operation = Take();
            const Operand right = Power();
            Combine(operation, left, right);
        }
        return left;
    }

    Operand Power() {
        Operand base = Atom();
        if (IsSymbol(u"^")) {
            Take();
            Power();
            throw Unmodelled{};
        }
        return base;
    }

    Operand Atom() {
        Operand atom = [this] {
            switch (coming_.kind) {
                case Kind::Number:
                    return Number();
                case Kind::Pi:
                    Take();
                    throw Unmodelled{};
                case Kind::Name:
                    return Variable();
                case Kind::Function:
                    return Call();
                default:
                    if (!IsSymbol(u"(")) {
                        RefuseHere();
                    }
                    return Parentheses();
            }
        }();
        if (coming_.kind != Kind::End && (coming_.kind != Kind::Symbol || IsSymbol(u"("))) {
            RefuseHere();
        }
        return atom;
    }

    Operand Number() {
        const Lexeme token = Take();
        const Refusal bad = {10208, token.position, token.length};
        Operand operand = {RealBuffer(), token.position, token.position + token.length};
        if (token.word.size() >= 2 && token.word[0] == u'0' &&
            Text(u"xXyYtT").find(token.word[1]) != Text::npos) {
            throw bad;
        }
        RealRound(operand.value, RealFromText(operand.value, token.word.c_str(),
                                              static_cast<int64_t>(token.word.size()), TextGroup));
        if (TakeCode() != CalcErrorNone) {
            throw bad;
        }
        return operand;
    }

    Operand Variable() {
        const Lexeme token = Take();
        const auto found = variables_.find(token.word);
        if (found == variables_.end()) {
            throw Refusal{10211, token.position, token.length};
        }
        return {found->second, token.position, token.position + token.length};
    }

    Operand Parentheses() {
        const Lexeme open = Take();
        Operand inner = Sum();
        if (IsSymbol(u";")) {
            throw Refusal{10200, Take().position, 1};
        }
        Close();
        entries_--;
        inner.position = open.position;
        return inner;
    }

    Operand Call() {
        const Lexeme function = Take();
        if (!IsSymbol(u"(")) {
            RefuseHere();
        }
        Take();
        Operand argument = Sum();
        int count = 1;
        RealBuffer first = argument.value;
        while (IsSymbol(u";")) {
            Take();
            argument = Sum();
            count++;
        }
        Close();
        const auto refuse = [&](uint32_t error) {
            throw Refusal{error, function.position, function.length};
        };
        if (count != ArgumentCounts.at(function.word)) {
            refuse(10206);
        }
        if (function.word == u"powmod") {
            refuse(10209);
        }
        if (IsOneOf(function.word,
                    {u"rootc", u"sqrtc", u"cbrtc", u"arg", u"argd", u"argg", u"realp", u"imagp"})) {
            refuse(10207);
        }
        entries_ -= 2 * count;
        return {Evaluate(function.word, first), function.position, argument.end};
    }

    static RealBuffer Evaluate(const Text& function, const RealBuffer& x) {
        RealBuffer value;
        if (function == u"abs") {
            value = x;
            RealSetSign(value, 0);
        } else if (function == u"trunc") {
            RealIntegerPart(value, x);
        } else if (function == u"frac") {
            RealFractionPart(value, x);
        } else if (function == u"round") {
            // |x| cut to an integer, one up when a half or more is cut off.
            RealBuffer rest;
            const RealBuffer half("0.5");
            const RealBuffer one("1");
            RealIntegerPart(value, x);
            RealFractionPart(rest, x);
            RealSetSign(rest, 0);
            RealSubtract(rest, rest, half);
            const bool up = RealSign(rest) == 0;
            const uint64_t sign = RealSign(x);
            RealSetSign(value, 0);
            if (up) {
                RealAdd(value, value, one);
            }
            RealSetSign(value, sign);
        } else {
            throw Unmodelled{};
        }
        return value;
    }

    // Takes the `)` of an open parenthesis, which stays on the stack with its contents.
    void Close() {
        if (coming_.kind == Kind::End) {
            Refuse(10202);
        }
        Pass();
    }

    void Combine(const Lexeme& operation, Operand& left, const Operand& right) {
        RealBuffer& a = left.value;
        const RealBuffer& b = right.value;
        uint64_t k = 0;
        if (operation.word == u"+") {
            RealAdd(a, a, b);
        } else if (operation.word == u"-") {
            RealSubtract(a, a, b);
        } else if (operation.word == u"mod") {
            RealDivMod(nullptr, a, a, b);
        } else if (operation.word == u"*") {
            const bool smallLeft = RealToUint(&k, a, AllowNegative);
            if (smallLeft || RealToUint(&k, b, AllowNegative)) {
                const RealBuffer& factor = smallLeft ? a : b;
                const RealBuffer& other = smallLeft ? b : a;
                const bool negative = RealSign(factor) != 0;
                RealBuffer product;
                RealRound(product, RealMulUint(product, other, k));
                if (negative) {
                    RealNegate(product);
                }
                a = product;
            } else {
                RealMul(a, a, b);
            }
        } else if (RealToUint(&k, b, AllowNegative)) {
            RealRound(a, RealDivUint(a, a, k));
            if (RealSign(b) != 0) {
                RealNegate(a);
            }
        } else {
            RealDiv(a, a, b);
        }
        if (TakeCode() != CalcErrorNone) {
            Refuse(10203);
        }
        left.end = right.end;
        entries_ -= 2;
    }

    Lexer lexer_;
    const Values& variables_;
    Lexeme coming_;
    int entries_ = 0;
};

// The values of the variables that the formula uses.
Values UsedValues(std::u16string_view text, const Variables& variables) {
    std::vector<std::pair<Lexeme, const Text*>> used;
    Lexer lexer(text);
    for (Lexeme token = lexer.Next(); token.kind != Kind::End && token.kind != Kind::Invalid;
         token = lexer.Next()) {
        if (token.kind != Kind::Name || std::any_of(used.begin(), used.end(), [&](const auto& one) {
                return one.first.word == token.word;
            })) {
            continue;
        }
        const auto row =
            std::find_if(variables.begin(), variables.end(),
                         [&](const auto& variable) { return variable.first == token.word; });
        if (row == variables.end()) {
            throw Refusal{10211, token.position, token.length};
        }
        used.emplace_back(token, &row->second);
    }
    Values values;
    const Values none;
    for (const auto& [token, valueText] : used) {
        try {
            values.emplace(token.word, Descent(*valueText, none).Formula());
        } catch (const Refusal&) {
            throw Refusal{10212, token.position, token.length};
        }
    }
    return values;
}

}  // namespace

std::optional<FormulaOutcome> PredictFormula(std::u16string_view text, const Variables& variables) {
    try {
        const Values values = variables.empty() ? Values() : UsedValues(text, variables);
        FormulaOutcome outcome;
        outcome.value = PlainText(Descent(text, values).Formula());
        return outcome;
    } catch (const Refusal& refusal) {
        return Failure(refusal.error, refusal.position + 1, refusal.length);
    } catch (const Unmodelled&) {
        return std::nullopt;
    }
}

}  // namespace tallymere::testing_support
