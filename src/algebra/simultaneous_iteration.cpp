#include "algebra/simultaneous_iteration.h"

#include "core/complex_arithmetic.h"
#include "core/contract.h"

namespace tallymere {

namespace {

// Approximations of an m-fold root come nearer by a fixed share in each sweep, so that even ten of
// them are as near as they can be within so many.
constexpr int64_t MaxSweeps = 500;

// A step that changes no more than the last digits is the last one.
constexpr int64_t LastDigits = 2;

// The numbers that one step needs.
struct StepNumbers {
    ComplexNumber* value;
    ComplexNumber* derivative;
    ComplexNumber* sum;
    ComplexNumber* term;
};

// The sum of 1 / (z_k - z_j) over all other approximations.
void SetSumOfInverses(StepNumbers& numbers, ComplexNumber* const* roots, int64_t count, int64_t k) {
    ComplexSetZero(numbers.sum, 0);
    for (int64_t j = 0; j < count; j++) {
        if (j == k) {
            continue;
        }
        ComplexSub(numbers.term, roots[k], roots[j]);
        if (!ComplexIsZero(numbers.term)) {
            ComplexReciprocal(numbers.term, numbers.term);
            ComplexAdd(numbers.sum, numbers.sum, numbers.term);
        }
    }
}

// z_k -= P / (P' - P * sum), or a move away from a point where that has no value.
void MoveRoot(StepNumbers& numbers, ComplexNumber* const* roots, int64_t count, int64_t k) {
    SetSumOfInverses(numbers, roots, count, k);
    ComplexMul(numbers.term, numbers.value, numbers.sum);
    ComplexSub(numbers.derivative, numbers.derivative, numbers.term);
    if (ComplexIsZero(numbers.derivative)) {
        ComplexMulUint(numbers.term, roots[k], 3);
    } else {
        ComplexDiv(numbers.term, numbers.value, numbers.derivative);
    }
    ComplexSub(roots[k], roots[k], numbers.term);
}

}  // namespace

bool ProblemIsWellFormed(const RootProblem& problem) {
    return problem.polynomial.layout.digits == numberContext.precisionDigits &&
           PolynomialIsWellFormed(problem.polynomial) && problem.count >= 1 &&
           problem.count <= problem.polynomial.degree;
}

bool IterateRoots(ComplexNumber* const* roots, const RootProblem& problem) {
    TALLYMERE_REQUIRE(ProblemIsWellFormed(problem));
    ScratchStackScope scope;
    StepNumbers numbers{TakeComplex(scope), TakeComplex(scope), TakeComplex(scope),
                        TakeComplex(scope)};
    const Magnitude lastStep = MakeMagnitude(1, LastDigits - problem.polynomial.layout.digits);
    bool steady[MaxEquationDegree] = {};
    int64_t moving = problem.count;
    for (int64_t sweep = 0; sweep < MaxSweeps && moving > 0; sweep++) {
        for (int64_t k = 0; k < problem.count; k++) {
            if (steady[k]) {
                continue;
            }
            if (!EvaluatePolynomial(numbers.value, numbers.derivative, problem.polynomial,
                                    roots[k])) {
                return false;
            }
            const Magnitude size = MagnitudeOf(roots[k]);
            steady[k] = !(EvaluateSizes(problem.errors, problem.polynomial.degree, size) <
                          MagnitudeOf(numbers.value));
            if (!steady[k]) {
                MoveRoot(numbers, roots, problem.count, k);
                steady[k] = MagnitudeOf(numbers.term) < size * lastStep;
            }
            moving -= steady[k] ? 1 : 0;
        }
    }
    return true;
}

}  // namespace tallymere
