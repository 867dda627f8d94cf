// Systems of n linear equations in n unknowns, over any number type that divides.
//
// SolveLinearSystem eliminates with partial pivoting and substitutes back. Two of its rules decide
// what a user sees, and both are kept as they are:
// - A pivot is looked for in its own column alone. Where a column has none, the next column goes on
//   with the next row, so a row with a zero on the diagonal may keep entries to the right of it.
//   Such a row is judged by itself: unless nothing is left of it, it counts as a contradiction,
//   even where some choice of the parameters would satisfy it. The rows (0 1 0 | 1), (0 0 0 | 0),
//   (0 0 0 | 0) are unsolvable, although x2 = 1 satisfies them.
// - What is below 10^-digits is 0, whatever the size of the coefficients. So a system with large
//   coefficients may need more digits than those asked for, and one with small ones may seem to
//   have fewer equations.
#pragma once

#include <cstdint>

#include "algebra/bounded_steps.h"
#include "core/scratch.h"

namespace tallymere {

/// How many unknowns a system may have, and a parameter for each of them.
inline constexpr int64_t MinUnknowns = 2;
inline constexpr int64_t MaxUnknowns = 25;

/// `count` rows of count + 1 values of the number type in force, one behind the other in memory.
/// The last value of a row is the right side.
struct LinearSystem {
    int64_t count;  ///< MinUnknowns to MaxUnknowns
    uint64_t* rows[MaxUnknowns];
    int64_t valueWords;
    Magnitude* errors[MaxUnknowns];  ///< how far values may be off, likewise; 0 for a value of 0
};

/// The unknowns, each an array of count + 1 values. Value 0 is the constant, value k the
/// coefficient of parameter k, from 1 to parameterCount. The parameter that belongs to the unknown
/// of the highest index is the first.
struct LinearSolution {
    int64_t count;
    int64_t parameterCount;
    uint64_t* unknowns[MaxUnknowns];
    int64_t valueWords;
    Magnitude* errors[MaxUnknowns];  ///< how far values may be off, likewise
    bool isCertain;                  ///< see SolveLinearSystem
};

enum class LinearOutcome {
    Solved,
    Unsolvable,  ///< a contradiction; the unknowns mean nothing
    Failed,      ///< a CalcError is noted; the unknowns mean nothing
    Stopped,     ///< a stop is asked for; likewise
};

/// Takes the memory of a system, or of a solution, for the number type and the layout in force.
/// Values of a system are 0, and so are all errors. 2 * 25 * 26 values are taken at most.
LinearSystem TakeLinearSystem(ScratchArea& area, int64_t count);
LinearSolution TakeLinearSolution(ScratchArea& area, int64_t count);

/// Writes a system whose values are rounded ones of `sourceDigits` digits to one of as many rows,
/// of values in the layout in force. What the rounding takes away is added to the errors.
void ConvertLinearSystem(const LinearSystem& dest, const LinearSystem& source,
                         int64_t sourceDigits);

/// The value in a row, and that of an unknown.
inline uint64_t* SystemValue(const LinearSystem& system, int64_t row, int64_t column) {
    return system.rows[row] + column * system.valueWords;
}
inline uint64_t* SolutionValue(const LinearSolution& solution, int64_t unknown, int64_t index) {
    return solution.unknowns[unknown] + index * solution.valueWords;
}

/// Finds the unknowns. Values of 0 have no error. The system is overwritten, and its rows may
/// change places. `digits`, from 1 on, counts for types that round: it says what is taken for 0,
/// and what the unknowns are rounded to. Fractions are exact.
///
/// Every step rounds to the precision in force. Where this is 2 * RoundingNoiseDigits above
/// `digits` or more, a difference in the last RoundingNoiseDigits digits is taken for a rounding
/// error: it does not make one candidate larger than another and does not decide how a tie is
/// rounded. Nor does a difference behind the first half of the digits to spare bring a value below
/// 10^-digits. The result is then the one of these steps in exact arithmetic, rounded once, unless
/// the elimination lost more digits than there are to spare. Its condition decides that. Where
/// solution.isCertain is true, it did not; where it is false, no bound is promised, and a caller
/// may tell it by a second run with more digits.
///
/// The caller chooses a precision for which this holds. Rounding errors grow with the largest
/// coefficient, and have to stay below 10^-digits. Magnitudes of candidates that are not equal have
/// to differ in front of the last RoundingNoiseDigits digits; in cplx two moduli may be the same in
/// twice as many digits as the parts have. A coefficient that is cut to the precision stands for
/// the number that is left of it.
///
/// solution.isCertain says that the outcome is proven to be that of these steps in exact arithmetic
/// on the true coefficients, rounded once, whatever these are within the errors that the system
/// has. Where it is false the outcome may be the same, but a difference was too small to decide.
/// Exact types are always certain. algebra/bounded_steps.h has the steps.
///
/// Codes: those of the operations, CalcErrorOverflow among them. uint has no quotients, so that
/// CalcErrorUnknownType comes with the first one. A code that was noted before is cleared.
LinearOutcome SolveLinearSystem(LinearSystem& system, LinearSolution& solution, int64_t digits);

}  // namespace tallymere
