#include "support/formula_model.h"

#include <algorithm>
#include <map>
#include <string>
#include <utility>
namespace tallymere::testing_support {

namespace {

using Text = std::u16string;

struct Refusal {
    uint32_t error;
    size_t position;
    size_t length;
};

constexpr int StackLimit = 50;

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
        } else if (const size_t length = SymbolLength(); length != 0) {
            lexeme.kind = Kind::Symbol;
            at_ += length;
        } else {
            lexeme.kind = Kind::Invalid;
        }
        lexeme.length = length_ = at_ - lexeme.position;
        lexeme.word = text_.substr(lexeme.position, lexeme.length);
        if (lexeme.kind == Kind::End) {
            lexeme.kind = ModelOperators.contains(lexeme.word)       ? Kind::Symbol
                          : IsOneOf(lexeme.word, {u"pi", u"\u03C0"}) ? Kind::Pi
                          : ModelFunctions.contains(lexeme.word)     ? Kind::Function
                                                                     : Kind::Name;
        }
        return lexeme;
    }

private:
    char16_t Peek(size_t ahead) const {
        return at_ + ahead < text_.size() ? text_[at_ + ahead] : u'\0';
    }

    // Of the parenthesis, the `;` or the longest operator here; 0 if there is none.
    size_t SymbolLength() const {
        size_t length = Text(u"();").find(Peek(0)) != Text::npos ? 1 : 0;
        for (const auto& [symbol, level] : ModelOperators) {
            if (text_.compare(at_, symbol.size(), symbol) == 0) {
                length = std::max(length, symbol.size());
            }
        }
        return length;
    }

    void PassNumber() {
        const ModelBase* base = ModelBaseOfPrefix(std::u16string_view(text_).substr(at_));
        const bool prefix = base != nullptr;
        const Text letters =
            prefix && base->base > 10 ? Text(u"aAbBcCdDeEfF", 2 * (base->base - 10)) : Text();
        at_ += prefix ? 2 : 1;
        while (true) {
            const char16_t c = Peek(0);
            const bool letterDigit = c != 0 && letters.find(c) != Text::npos;
            if (Digit(c) || letterDigit || Among(c, numberContext.decimalSeparators, 3) ||
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
    ModelValue value;
    size_t position;
    size_t end;
};

using Values = std::map<Text, ModelValue>;

// One formula. `coming_` is the token that has been read but not yet taken; operations that fail
// show their error there.
class Descent {
public:
    Descent(std::u16string_view text, const Values& variables, const ModelArithmetic& arithmetic)
        : lexer_(text), variables_(variables), arithmetic_(arithmetic) {
        coming_ = lexer_.Next();
    }

    ModelValue Formula() {
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

    bool IsOperator(ModelLevel level) const {
        const auto found = ModelOperators.find(coming_.word);
        return coming_.kind == Kind::Symbol && found != ModelOperators.end() &&
               found->second == level;
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
            return SumFrom(ProductFrom(Power()));
        }
        const Lexeme sign = Take();
        Operand operand = ProductFrom(Power());
        if (sign.word == u"-") {
            arithmetic_.negate(operand.value);
            RefuseOnCode();
        }
        operand.position = sign.position;
        entries_--;
        return SumFrom(std::move(operand));
    }

    Operand SumFrom(Operand left) {
        while (IsOperator(ModelLevel::Sum)) {
            const Lexeme operation = Take();
            const Operand right = ProductFrom(Power());
            Combine(operation, left, right);
        }
        return left;
    }

    Operand ProductFrom(Operand left) {
        while (IsOperator(ModelLevel::Product)) {
            const Lexeme operation = Take();
            const Operand right = Power();
            Combine(operation, left, right);
        }
        return left;
    }

    Operand Power() { return PowerFrom(Atom()); }

    Operand PowerFrom(Operand base) {
        if (IsOperator(ModelLevel::Power)) {
            const Lexeme operation = Take();
            const Operand exponent = Power();
            Combine(operation, base, exponent);
        }
        return base;
    }

    Operand Atom() {
        Operand atom = [this] {
            switch (coming_.kind) {
                case Kind::Number:
                    return Number();
                case Kind::Pi:
                    return Pi();
                case Kind::Imaginary:
                    return ImaginaryUnit();
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
        return BeforeOperator(std::move(atom));
    }

    // Takes the imaginary units behind a value, and refuses what may not follow one.
    Operand BeforeOperator(Operand atom) {
        while (coming_.kind == Kind::Imaginary && InCplx()) {
            if (!atom.value.IsReal()) {
                Refuse(10208);
            }
            Pass();
            std::swap(atom.value.realPart, atom.value.imaginaryPart);
            RealSetZero(atom.value.realPart, 0);
        }
        if (coming_.kind != Kind::End && (coming_.kind != Kind::Symbol || IsSymbol(u"("))) {
            RefuseHere();
        }
        return atom;
    }

    // What fails shows its error at the token that made it run.
    void RefuseOnCode() const {
        if (TakeCode() != CalcErrorNone) {
            Refuse(10203);
        }
    }

    static bool InCplx() { return numberContext.numberType == NumberTypeComplex; }

    static Operand OperandOf(const Lexeme& token) {
        return {ModelValue(), token.position, token.position + token.length};
    }

    Operand ImaginaryUnit() {
        if (!InCplx()) {
            RefuseHere();
        }
        Operand operand = OperandOf(Take());
        operand.value.imaginaryPart = RealBuffer("1");
        return operand;
    }

    Operand Pi() {
        const Lexeme token = Take();
        Operand operand = OperandOf(token);
        operand.value = arithmetic_.pi();
        if (TakeCode() != CalcErrorNone) {
            throw Refusal{10203, token.position, token.length};
        }
        return operand;
    }

    Operand Number() {
        const Lexeme token = Take();
        Operand operand = OperandOf(token);
        operand.value = arithmetic_.number(token.word);
        if (TakeCode() != CalcErrorNone) {
            throw Refusal{10208, token.position, token.length};
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
        if (coming_.kind == Kind::Imaginary && InCplx()) {
            RefuseBareArgument();
        }
        if (!IsSymbol(u"(")) {
            RefuseHere();
        }
        Take();
        std::vector<ModelValue> arguments;
        Operand argument = Sum();
        arguments.push_back(argument.value);
        while (IsSymbol(u";")) {
            Take();
            argument = Sum();
            arguments.push_back(argument.value);
        }
        const Lexeme close = Close();
        const int count = static_cast<int>(arguments.size());
        if (count != ModelFunctions.at(function.word)) {
            throw Refusal{10206, function.position, function.length};
        }
        entries_ -= 2 * count;
        return {Evaluate(function, arguments, close), function.position, argument.end};
    }

    // An `i` may follow a function for the moment, and so may what continues it; but nothing that
    // ends this is right.
    [[noreturn]] void RefuseBareArgument() {
        const Operand bare = SumFrom(ProductFrom(PowerFrom(BeforeOperator(ImaginaryUnit()))));
        if (IsSymbol(u";")) {
            throw Refusal{10200, bare.position, bare.end - bare.position};
        }
        Refuse(IsSymbol(u")") ? 10201 : 10202);
    }

    ModelValue Evaluate(const Lexeme& function, const std::vector<ModelValue>& arguments,
                        const Lexeme& close) const {
        const auto refuse = [&](uint32_t error) {
            TakeCode();
            throw Refusal{error, function.position, function.length};
        };
        ModelValue value;
        switch (arithmetic_.function(function.word, arguments, &value)) {
            case ModelRefusal::None:
                break;
            case ModelRefusal::Complex:
                refuse(10207);
                break;
            case ModelRefusal::Type:
                refuse(10209);
                break;
            case ModelRefusal::Pole:
                refuse(10203);
                break;
        }
        if (TakeCode() != CalcErrorNone) {
            throw Refusal{10203, close.position, close.length};
        }
        for (const ModelValue& argument : arguments) {
            value.inexact = value.inexact || argument.inexact;
        }
        return value;
    }

    // Takes the `)` of an open parenthesis, which stays on the stack with its contents.
    Lexeme Close() {
        if (coming_.kind == Kind::End) {
            Refuse(10202);
        }
        return Pass();
    }

    void Combine(const Lexeme& operation, Operand& left, const Operand& right) {
        const bool inexact = left.value.inexact || right.value.inexact;
        arithmetic_.combine(operation.word, left.value, right.value);
        RefuseOnCode();
        left.value.inexact = left.value.inexact || inexact;
        left.end = right.end;
        entries_ -= 2;
    }

    Lexer lexer_;
    const Values& variables_;
    const ModelArithmetic& arithmetic_;
    Lexeme coming_;
    int entries_ = 0;
};

// The values of the variables that the formula uses.
Values UsedValues(std::u16string_view text, const Variables& variables,
                  const ModelArithmetic& arithmetic) {
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
            values.emplace(token.word, Descent(*valueText, none, arithmetic).Formula());
        } catch (const Refusal&) {
            throw Refusal{10212, token.position, token.length};
        }
    }
    return values;
}

}  // namespace

FormulaOutcome PredictFormula(std::u16string_view text, const Variables& variables,
                              const ModelArithmetic& arithmetic) {
    try {
        const Values values =
            variables.empty() ? Values() : UsedValues(text, variables, arithmetic);
        const ModelValue value = Descent(text, values, arithmetic).Formula();
        FormulaOutcome outcome;
        outcome.value = arithmetic.text(value);
        outcome.inexact = value.inexact;
        return outcome;
    } catch (const Refusal& refusal) {
        return Failure(refusal.error, refusal.position + 1, refusal.length);
    }
}

}  // namespace tallymere::testing_support
