#include "support/equation_testing.h"

#include <string_view>

#include "core/scratch.h"

namespace tallymere::testing_support {

ScratchStackOwner::ScratchStackOwner() {
    CreateScratchStack();
}

ScratchStackOwner::~ScratchStackOwner() {
    EXPECT_EQ(*CurrentScratchStack().top, CurrentScratchStack().base) << "ScratchStack left in use";
    DestroyScratchStack();
}

SolutionBuffer::SolutionBuffer()
    : values_(MaxEquationDegree),
      texts_(MaxEquationDegree, std::u16string(ExactTextCapacity + 2, u'#')),
      set_{} {
    for (int64_t i = 0; i < MaxEquationDegree; i++) {
        set_.values[i] = values_[static_cast<size_t>(i)];
        set_.exactTexts[i] = texts_[static_cast<size_t>(i)].data();
    }
}

SolutionBuffer::SolutionBuffer(const std::vector<std::string>& values) : SolutionBuffer() {
    for (const std::string& value : values) {
        const auto i = static_cast<size_t>(set_.count++);
        values_[i] = ComplexBuffer(value);
        set_.values[i] = values_[i];
        texts_[i][0] = u'\0';
        set_.multiplicities[i] = 1;
    }
}

SolutionBuffer::~SolutionBuffer() {
    for (const std::u16string& text : texts_) {
        EXPECT_EQ(text.back(), u'#') << "exact text beyond its end";
    }
}

std::string SolutionBuffer::Text(int64_t i) const {
    const std::u16string_view text = set_.exactTexts[i];
    return std::string(text.begin(), text.end());
}

std::vector<std::string> SolutionBuffer::Texts() const {
    EXPECT_TRUE(SolutionSetIsWellFormed(set_));
    std::vector<std::string> roots;
    for (int64_t i = 0; i < set_.count; i++) {
        const std::string multiplicity =
            Multiplicity(i) == 1 ? "" : " [" + std::to_string(Multiplicity(i)) + "]";
        roots.push_back(PlainText(Value(i)) + multiplicity);
    }
    return roots;
}

std::vector<std::string> SolutionBuffer::Lines() const {
    std::vector<std::string> lines = Texts();
    for (size_t i = 0; i < lines.size(); i++) {
        lines[i] = Text(static_cast<int64_t>(i)) + " = " + lines[i];
    }
    return lines;
}

std::vector<std::string> RootsBy(PolynomialSolver solver,
                                 const std::vector<std::string>& coefficients, int64_t digits,
                                 uint32_t flags) {
    const auto degree = static_cast<int64_t>(coefficients.size()) - 1;
    const PrecisionScope scope(RootInputDigits(degree, digits));
    std::vector<ComplexBuffer> values;
    for (const std::string& text : coefficients) {
        values.emplace_back(text.find(' ') == std::string::npos ? text + " 0" : text);
    }
    CoefficientList list{degree, {}};
    for (int64_t i = 0; i <= degree; i++) {
        list.coefficients[i] = values[static_cast<size_t>(i)];
    }
    SolutionBuffer solutions;
    const RootOutcome outcome = solver(solutions.Set(), list, digits, flags);
    const CalcError code = TakeCode();
    if (code != CalcErrorNone) {
        return {CodeName(code)};
    }
    if (outcome != RootOutcome::Found) {
        EXPECT_EQ(solutions.Set().count, -1);
        return {OutcomeName(outcome)};
    }
    return solutions.Texts();
}

std::vector<std::string> RootsOf(const std::vector<std::string>& coefficients, int64_t digits,
                                 uint32_t flags) {
    return RootsBy(SolvePolynomial, coefficients, digits, flags);
}

std::string OutcomeName(RootOutcome outcome) {
    switch (outcome) {
        case RootOutcome::Found:
            return "Found";
        case RootOutcome::NotConverged:
            return "NotConverged";
        case RootOutcome::Stopped:
            return "Stopped";
        case RootOutcome::Internal:
            return "Internal";
        case RootOutcome::TextOverflow:
            return "TextOverflow";
    }
    return "";
}

}  // namespace tallymere::testing_support
