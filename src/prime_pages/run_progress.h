// How far the run of a prime page is, for whoever shows it meanwhile.
#pragma once

#include <cstdint>

namespace tallymere {

/// Numbers of the interval. A test and the search for the next prime have no length that anybody
/// could tell: their total is 0.
struct RunProgress {
    uint64_t done;  ///< 0 to total, or how many were visited where the total is 0
    uint64_t total;
};

/// How far the run under way is; after its end, how far it came. May be called from any thread, and
/// the two figures may then be of two moments.
RunProgress CurrentRunProgress();

/// A run begins, and a run has got so far. The runs call these.
void BeginRunProgress(uint64_t total);
void SetRunProgress(uint64_t done);

}  // namespace tallymere
