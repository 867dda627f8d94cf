#include "support/equation_testing.h"

#include "core/scratch.h"

namespace tallymere::testing_support {

ScratchStackOwner::ScratchStackOwner() {
    CreateScratchStack();
}

ScratchStackOwner::~ScratchStackOwner() {
    EXPECT_EQ(*CurrentScratchStack().top, CurrentScratchStack().base) << "ScratchStack left in use";
    DestroyScratchStack();
}

SolutionRoom::SolutionRoom()
    : values_(MaxEquationDegree),
      texts_(MaxEquationDegree, std::u16string(ExactTextCapacity + 1, u'x')),
      set_{} {
    set_.count = -1;
    for (int64_t i = 0; i < MaxEquationDegree; i++) {
        set_.values[i] = values_[static_cast<size_t>(i)];
        set_.exactTexts[i] = texts_[static_cast<size_t>(i)].data();
    }
}

std::vector<std::string> SolutionRoom::Texts() const {
    EXPECT_TRUE(SolutionSetIsWellFormed(set_));
    std::vector<std::string> roots;
    for (int64_t i = 0; i < set_.count; i++) {
        std::string text = PlainText(set_.values[i]);
        if (set_.multiplicities[i] != 1) {
            text += " [" + std::to_string(set_.multiplicities[i]) + "]";
        }
        roots.push_back(text);
    }
    return roots;
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
    SolutionRoom room;
    const RootOutcome outcome = solver(room.Set(), list, digits, flags);
    const CalcError code = TakeCode();
    if (code != CalcErrorNone) {
        return {CodeName(code)};
    }
    if (outcome != RootOutcome::Found) {
        EXPECT_EQ(room.Set().count, -1);
        return {OutcomeName(outcome)};
    }
    return room.Texts();
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
