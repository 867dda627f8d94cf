// Which approximations stand for which roots: discs that are proven to hold as many roots as they
// are said to.
//
// Around the mean c of a group of m approximations the polynomial is the sum of t_j x^j. If
// |t_m| r^m is larger than the sum of all other |t_j| r^j, exactly m roots lie within r of c
// (Pellet, Bull. Sci. Math. 5, 1881). Groups for which no such r is found, and groups whose discs
// meet, are united with the nearest one.
#pragma once

#include "algebra/simultaneous_iteration.h"

namespace tallymere {

/// A disc that holds exactly `count` roots.
struct RootGroup {
    ComplexNumber* center;
    Magnitude radius;
    int64_t count;
};

/// A radius r for which the term of index `count` outweighs all others, which are at most `sizes`;
/// `outweighing` is the least that the size of that term can be. False if none was found.
bool FindPelletRadius(Magnitude* radius, const Magnitude* sizes, Magnitude outweighing,
                      int64_t degree, int64_t count);

/// Parts the approximations of IterateRoots into groups, which lie in groups[0 .. result-1]; the
/// caller gives frame.count groups with centres in the layout in force. -1 when a stop was
/// requested. A single group of all need not be proven: its radius is then 0, and it holds the
/// roots that the caller knows of.
int64_t GroupRoots(RootGroup* groups, ComplexNumber* const* roots, const RootFrame& frame);

}  // namespace tallymere
