#include "algebra/solution_set.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "core/contract.h"
#include "core/real_compare.h"

namespace tallymere {

namespace {

bool TextEndsInTime(const char16_t* text) {
    for (int64_t i = 0; i <= ExactTextCapacity; i++) {
        if (text[i] == 0) {
            return true;
        }
    }
    return false;
}

void SwapEntries(SolutionSet& solutions, int64_t a, int64_t b) {
    std::swap(solutions.values[a], solutions.values[b]);
    std::swap(solutions.exactTexts[a], solutions.exactTexts[b]);
    std::swap(solutions.multiplicities[a], solutions.multiplicities[b]);
}

bool ComesBefore(const ComplexNumber* a, const ComplexNumber* b) {
    if (ComplexIsReal(a) != ComplexIsReal(b)) {
        return ComplexIsReal(a);
    }
    const int byRealPart = RealCompare(RealPart(a), RealPart(b));
    if (byRealPart != 0 || ComplexIsReal(a)) {
        return byRealPart < 0;
    }
    const int byMagnitude = RealCompare(ImaginaryPart(a), ImaginaryPart(b), true);
    if (byMagnitude != 0) {
        return byMagnitude < 0;
    }
    return RealSign(ImaginaryPart(a)) > RealSign(ImaginaryPart(b));
}

bool RootsAreInOrder(const SolutionSet& solutions) {
    for (int64_t i = 1; i < solutions.count; i++) {
        if (ComesBefore(solutions.values[i], solutions.values[i - 1])) {
            return false;
        }
    }
    return true;
}

bool AreEqual(const ComplexNumber* a, const ComplexNumber* b) {
    return RealCompare(RealPart(a), RealPart(b)) == 0 &&
           RealCompare(ImaginaryPart(a), ImaginaryPart(b)) == 0;
}

// The entry among the first `count` that is the same root as a later one; `count` if there is none.
int64_t FindSameRoot(const SolutionSet& solutions, int64_t count, int64_t index) {
    const std::u16string_view text = solutions.exactTexts[index];
    for (int64_t i = count - 1; i >= 0; i--) {
        if (!AreEqual(solutions.values[i], solutions.values[index])) {
            break;
        }
        if (solutions.exactTexts[i] == text) {
            return i;
        }
    }
    return count;
}

}  // namespace

bool SolutionSetIsWellFormed(const SolutionSet& solutions) {
    if (solutions.count < -1 || solutions.count > MaxEquationDegree) {
        return false;
    }
    for (int64_t i = 0; i < solutions.count; i++) {
        if (!ComplexIsWellFormed(solutions.values[i]) || !TextEndsInTime(solutions.exactTexts[i]) ||
            solutions.multiplicities[i] < 1) {
            return false;
        }
    }
    return true;
}

void SortRoots(SolutionSet& solutions) {
    TALLYMERE_REQUIRE(SolutionSetIsWellFormed(solutions));
    for (int64_t end = solutions.count; end > 1; end--) {
        for (int64_t i = 1; i < end; i++) {
            if (ComesBefore(solutions.values[i], solutions.values[i - 1])) {
                SwapEntries(solutions, i, i - 1);
            }
        }
    }
}

void MergeEqualRoots(SolutionSet& solutions) {
    TALLYMERE_REQUIRE(SolutionSetIsWellFormed(solutions) && RootsAreInOrder(solutions));
    int64_t count = 0;
    for (int64_t i = 0; i < solutions.count; i++) {
        const int64_t same = FindSameRoot(solutions, count, i);
        if (same < count) {
            solutions.multiplicities[same] += solutions.multiplicities[i];
        } else {
            SwapEntries(solutions, count, i);
            count++;
        }
    }
    solutions.count = std::min(solutions.count, count);
}

void DropNonRealRoots(SolutionSet& solutions) {
    TALLYMERE_REQUIRE(SolutionSetIsWellFormed(solutions) && RootsAreInOrder(solutions));
    while (solutions.count > 0 && !ComplexIsReal(solutions.values[solutions.count - 1])) {
        solutions.count--;
    }
}

void FinishSolutions(SolutionSet& solutions, RootOutcome outcome, uint32_t flags) {
    if (outcome != RootOutcome::Found) {
        solutions.count = -1;
        return;
    }
    SortRoots(solutions);
    if ((flags & KeepEqualRoots) == 0) {
        MergeEqualRoots(solutions);
    }
    if ((flags & KeepRealRootsOnly) != 0) {
        DropNonRealRoots(solutions);
    }
}

}  // namespace tallymere
