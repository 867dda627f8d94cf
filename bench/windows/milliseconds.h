// The clock of the programs that measure windows.
#pragma once

#include "toolkit/win32.h"

namespace tallymere {

/// Milliseconds since some moment, with their fractions.
inline double Milliseconds() {
    LARGE_INTEGER count = {};
    LARGE_INTEGER perSecond = {};
    QueryPerformanceCounter(&count);
    QueryPerformanceFrequency(&perSecond);
    return 1000.0 * static_cast<double>(count.QuadPart) / static_cast<double>(perSecond.QuadPart);
}

}  // namespace tallymere
