// Which approximations stand for which roots: discs that are proven to hold as many roots as they
// are said to.
//
// Around the mean c of m approximations the polynomial is the sum of t_j x^j. If |t_m| r^m is
// larger than the sum of all other |t_j| r^j, exactly m roots lie within r of c (Pellet, Bull. Sci.
// Math. 5, 1881). Approximations for which no such r is found, and those whose discs meet, are
// united with the nearest ones.
#pragma once

#include "algebra/simultaneous_iteration.h"

namespace tallymere {

/// A disc that holds exactly `count` roots.
struct RootDisc {
    ComplexNumber* center;
    Magnitude radius;
    int64_t count;
};

/// A radius r for which the term of index `count`, 0 to `degree`, outweighs all others, which are
/// at most `sizes`; `outweighing` is the least that the size of that term can be. False if none was
/// found.
bool FindPelletRadius(Magnitude* radius, const Magnitude* sizes, Magnitude outweighing,
                      int64_t degree, int64_t count);

/// Parts the approximations of IterateRoots: the discs of their roots lie in discs[0 .. result-1].
/// The caller gives problem.count discs with centres in the layout in force, which is that of the
/// problem. -1 when a stop was requested. A single disc of all need not be proven: its radius is
/// then 0, and it holds the roots that the caller knows of.
int64_t FindDiscs(RootDisc* discs, ComplexNumber* const* roots, const RootProblem& problem);

}  // namespace tallymere
