#include "algebra/linear_solution_text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/text_flags.h"
#include "support/complex_testing.h"
#include "support/equation_testing.h"
#include "support/exact_testing.h"
#include "support/formula_testing.h"
#include "values/value_operations.h"

namespace tallymere {
namespace {

using namespace testing_support;

std::string Utf8(const TextWriter& text) {
    std::string bytes;
    for (int64_t i = 0; i < text.position; i++) {
        const char16_t c = text.buffer[i];
        bytes += c == u'\u2026' ? std::string("…") : std::string(1, static_cast<char>(c));
    }
    return bytes;
}

class UnknownTexts : public ::testing::Test {
protected:
    // The text of an unknown with these values, the constant first.
    static std::string Shown(const std::vector<std::vector<uint64_t>>& values, uint32_t flags = 0) {
        ScratchStackScope scope;
        const auto parameters = static_cast<int64_t>(values.size()) - 1;
        LinearSolution solution =
            TakeLinearSolution(CurrentScratchStack(), std::max(parameters, MinUnknowns));
        solution.parameterCount = parameters;
        for (int64_t k = 0; k <= parameters; k++) {
            ValueCopy(SolutionValue(solution, 1, k), values[static_cast<size_t>(k)].data());
        }
        const int64_t capacity = UnknownTextCapacity(solution, flags);
        std::vector<char16_t> room(static_cast<size_t>(capacity));
        TextWriter text = {0, capacity, room.data()};
        PrintUnknown(text, solution, 1, flags);
        EXPECT_FALSE(WriterOverflowed(text));
        return Utf8(text);
    }
    static std::vector<uint64_t> Real(const char* text) {
        std::vector<uint64_t> words(SizeOfNumber() / 8);
        RealFromPlainText(RealAt(words.data()), text);
        return words;
    }
    static std::vector<uint64_t> Complex(const char* re, const char* im) {
        std::vector<uint64_t> words(SizeOfNumber() / 8);
        RealFromPlainText(RealPart(ComplexAt(words.data())), re);
        RealFromPlainText(ImaginaryPart(ComplexAt(words.data())), im);
        return words;
    }

    ScratchStackOwner stack_;
};

TEST_F(UnknownTexts, OfRealNumbers) {
    FormulaScope scope(20, NumberTypeReal);
    EXPECT_EQ(Shown({Real("0")}), "0");
    EXPECT_EQ(Shown({Real("-0"), Real("-0")}), "0");
    EXPECT_EQ(Shown({Real("-1.5")}), "-1.5");
    EXPECT_EQ(Shown({Real("2"), Real("-1")}), "2-r");
    EXPECT_EQ(Shown({Real("2"), Real("1")}), "2+r");
    EXPECT_EQ(Shown({Real("0"), Real("1")}), "r");
    EXPECT_EQ(Shown({Real("0"), Real("-1")}), "-r");
    EXPECT_EQ(Shown({Real("0"), Real("2.5")}), "2.5*r");
    EXPECT_EQ(Shown({Real("1"), Real("2.5")}), "1+2.5*r");
    EXPECT_EQ(Shown({Real("1"), Real("-2.5")}), "1-2.5*r");
    EXPECT_EQ(Shown({Real("1"), Real("-2e-20")}), "1-2e-20*r");
    EXPECT_EQ(Shown({Real("1"), Real("2"), Real("0"), Real("3")}), "1+2*t+3*r")
        << "the parameter that was made first has the highest name";
    EXPECT_EQ(Shown({Real("0"), Real("0"), Real("1"), Real("1"), Real("1"), Real("-1"), Real("1")}),
              "v1+u+t-s+r");
}

TEST_F(UnknownTexts, HaveGroupsWhereTheyAreAskedFor) {
    FormulaScope scope(20, NumberTypeReal);
    EXPECT_EQ(Shown({Real("1234567"), Real("-7654321")}, TextGroup), "1'234'567-7'654'321*r");
    EXPECT_EQ(Shown({Real("1234567"), Real("-7654321")}), "1234567-7654321*r");
}

TEST_F(UnknownTexts, OfComplexNumbers) {
    FormulaScope scope(20, NumberTypeComplex);
    EXPECT_EQ(Shown({Complex("0", "0")}), "0");
    EXPECT_EQ(Shown({Complex("1", "-2")}), "1-2i");
    EXPECT_EQ(Shown({Complex("0", "0"), Complex("-2", "1")}), "(-2+i)*r");
    EXPECT_EQ(Shown({Complex("1", "0"), Complex("-2", "1")}), "1+(-2+i)*r");
    EXPECT_EQ(Shown({Complex("1", "0"), Complex("1", "0")}), "1+r");
    EXPECT_EQ(Shown({Complex("1", "0"), Complex("-1", "0")}), "1-r");
    EXPECT_EQ(Shown({Complex("1", "0"), Complex("0", "1")}), "1+i*r");
    EXPECT_EQ(Shown({Complex("0", "0"), Complex("0", "1")}), "i*r");
    EXPECT_EQ(Shown({Complex("1", "0"), Complex("0", "-2.5")}), "1-2.5i*r");
    EXPECT_EQ(Shown({Complex("0", "0"), Complex("3", "0")}), "3*r");
}

TEST_F(UnknownTexts, OfFractions) {
    FormulaScope scope(NumberTypeRational, 2);
    EXPECT_EQ(Shown({ExactWords("0")}), "0");
    EXPECT_EQ(Shown({ExactWords("-3/4")}), "-3/4");
    EXPECT_EQ(Shown({ExactWords("0"), ExactWords("3/4")}), "(3/4)*r");
    EXPECT_EQ(Shown({ExactWords("0"), ExactWords("-3/4")}), "-(3/4)*r");
    EXPECT_EQ(Shown({ExactWords("2"), ExactWords("3/4")}), "2+(3/4)*r");
    EXPECT_EQ(Shown({ExactWords("2"), ExactWords("-3/4")}), "2-(3/4)*r");
    EXPECT_EQ(Shown({ExactWords("1/2"), ExactWords("1"), ExactWords("-1"), ExactWords("-5")}),
              "1/2+t-s-5*r");
    EXPECT_EQ(Shown({ExactWords("0"), ExactWords("12345/7")}, TextGroup), "(12'345/7)*r");
}

TEST_F(UnknownTexts, HaveRoomForTheLongest) {
    const std::string magnitude = "1.2345678901234567891e-4611686018427387903";
    {
        FormulaScope scope(20, NumberTypeComplex);
        const auto longest = Complex(("-" + magnitude).c_str(), ("-" + magnitude).c_str());
        const std::string number = "-" + magnitude + "-(" + magnitude + ")i";
        std::string expected = number;
        for (int64_t position = 25; position >= 1; position--) {
            const ParameterName name = NameOfParameter(position);
            const std::u16string characters = name.text;
            expected += "+(" + number + ")*" + std::string(characters.begin(), characters.end());
        }
        EXPECT_EQ(Shown(std::vector(26, longest), TextGroup), expected);
    }
    FormulaScope scope(NumberTypeRational, 2);
    const auto longest = ExactWords(
        "-340282366920938463463374607431768211455/340282366920938463463374607431768211454");
    const std::string text = Shown(std::vector(26, longest), TextGroup);
    EXPECT_NE(text.find("-(340'282'366'920'938'463'463'374'607'431'768'211'455/"), text.npos);
}

TEST(Parameters, HaveNamesByTheirPosition) {
    const auto name = [](int64_t position) {
        const ParameterName parameter = NameOfParameter(position);
        return std::u16string(parameter.text);
    };
    EXPECT_EQ(name(1), u"r");
    EXPECT_EQ(name(2), u"s");
    EXPECT_EQ(name(3), u"t");
    EXPECT_EQ(name(4), u"u");
    EXPECT_EQ(name(5), u"v1");
    EXPECT_EQ(name(6), u"v2");
    EXPECT_EQ(name(13), u"v9");
    EXPECT_EQ(name(14), u"v10");
    EXPECT_EQ(name(25), u"v21");
}

TEST(Parameters, AreListed) {
    const auto list = [](int64_t count) {
        LinearSolution solution = {25, count, {}, 2};
        char16_t characters[ParameterListCharacters];
        TextWriter text = {0, ParameterListCharacters, characters};
        ListParameters(text, solution);
        EXPECT_FALSE(WriterOverflowed(text));
        return Utf8(text);
    };
    EXPECT_EQ(list(0), "");
    EXPECT_EQ(list(1), "r");
    EXPECT_EQ(list(2), "r, s");
    EXPECT_EQ(list(5), "r, s, t, u, v1");
    EXPECT_EQ(list(6), "r, s, t, u, v1, v2");
    EXPECT_EQ(list(7), "r, s, t, u, v1, …, v3");
    EXPECT_EQ(list(11), "r, s, t, u, v1, …, v7");
    EXPECT_EQ(list(25), "r, s, t, u, v1, …, v21");
}

}  // namespace
}  // namespace tallymere
