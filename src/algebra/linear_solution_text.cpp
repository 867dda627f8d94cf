#include "algebra/linear_solution_text.h"

#include <string_view>

#include "core/digit_text.h"
#include "core/text_flags.h"
#include "values/value_operations.h"

namespace tallymere {

namespace {

// The first names; those behind are v1, v2 and so on.
constexpr std::u16string_view LetterNames = u"rstu";

// From this position on to the last but one a long list of names leaves them out.
constexpr int64_t ShortenedPosition = 6;

// Characters of a coefficient beside its number: sign, parentheses and "*".
constexpr int64_t CharactersAroundNumber = 4;

constexpr int64_t NameCharacters = 3;

// The longest list is "r, s, t, u, v1, \u2026, v21", so that none is ever cut.
static_assert(ParameterListCharacters >= 22 && MaxUnknowns <= 103);

void WriteText(TextWriter& text, std::u16string_view characters) {
    WriteChars(text, characters.data(), static_cast<int64_t>(characters.size()));
}

void WriteName(TextWriter& text, int64_t position) {
    WriteText(text, NameOfParameter(position).text);
}

int64_t NumberCapacity(uint32_t printFlags) {
    return NumberToText(nullptr, 0, nullptr, printFlags);
}

void WriteNumber(TextWriter& text, const uint64_t* number, uint32_t flags) {
    ScratchStackScope scope;
    const int64_t capacity = NumberCapacity(flags);
    auto* characters = reinterpret_cast<char16_t*>(scope.Take(capacity / CharactersPerWord + 1));
    WriteChars(text, characters, NumberToText(characters, capacity, number, flags));
}

// A sum or a quotient, in parentheses; the sign of a quotient stands outside.
void WriteInParentheses(TextWriter& text, const uint64_t* number, uint32_t flags, bool isFirst) {
    ScratchStackScope scope;
    const bool isNegative = ValueCompareSmall(number, 0) < 0;
    uint64_t* magnitude = scope.Take(static_cast<int64_t>(SizeOfNumber()) / BytesPerWord);
    if (isNegative) {
        ValueNegate(magnitude, number);
    } else {
        ValueCopy(magnitude, number);
    }
    WriteText(text, isNegative ? u"-(" : isFirst ? u"(" : u"+(");
    WriteNumber(text, magnitude, flags);
    WriteText(text, u")*");
}

void WriteCoefficient(TextWriter& text, const uint64_t* number, uint32_t flags, bool isFirst) {
    if (ValueCompareSmall(number, 1) == 0) {
        WriteText(text, isFirst ? u"" : u"+");
    } else if (ValueCompareSmall(number, -1) == 0) {
        WriteText(text, u"-");
    } else if (ValueHasTwoParts(number)) {
        WriteInParentheses(text, number, flags, isFirst);
    } else {
        WriteNumber(text, number, isFirst ? flags : flags | TextAlwaysSign);
        WriteText(text, u"*");
    }
}

}  // namespace

ParameterName NameOfParameter(int64_t position) {
    TALLYMERE_REQUIRE(position >= 1 && position <= MaxUnknowns);
    const auto letters = static_cast<int64_t>(LetterNames.size());
    if (position <= letters) {
        return {{LetterNames[static_cast<size_t>(position - 1)]}};
    }
    const int64_t number = position - letters;
    ParameterName name = {u"v"};
    WriteDecimalRun(name.text + 1, static_cast<uint64_t>(number), number < 10 ? 1 : 2);
    return name;
}

int64_t UnknownTextCapacity(const LinearSolution& solution, uint32_t printFlags) {
    return (solution.parameterCount + 1) *
           (NumberCapacity(printFlags | TextAlwaysSign) + CharactersAroundNumber + NameCharacters);
}

void PrintUnknown(TextWriter& text, const LinearSolution& solution, int64_t index,
                  uint32_t printFlags) {
    TALLYMERE_REQUIRE(index >= 0 && index < solution.count);
    bool isFirst = true;
    if (const uint64_t* constant = SolutionValue(solution, index, 0); !ValueIsZero(constant)) {
        WriteNumber(text, constant, printFlags);
        isFirst = false;
    }
    for (int64_t k = 1; k <= solution.parameterCount; k++) {
        const uint64_t* coefficient = SolutionValue(solution, index, k);
        if (!ValueIsZero(coefficient)) {
            WriteCoefficient(text, coefficient, printFlags, isFirst);
            WriteName(text, solution.parameterCount - k + 1);
            isFirst = false;
        }
    }
    if (isFirst) {
        WriteText(text, u"0");
    }
}

void ListParameters(TextWriter& text, const LinearSolution& solution) {
    const int64_t last = solution.parameterCount;
    for (int64_t position = 1; position <= last; position++) {
        if (position > 1) {
            WriteText(text, u", ");
        }
        if (position == ShortenedPosition && last > ShortenedPosition) {
            WriteText(text, u"\u2026, ");
            position = last;
        }
        WriteName(text, position);
    }
}

}  // namespace tallymere
