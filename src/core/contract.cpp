#include "core/contract.h"

#ifdef TALLYMERE_CHECK_CONTRACTS

#include <cstdio>
#include <cstdlib>

namespace tallymere {

void ReportBrokenContract(const char* file, int line, const char* condition) {
    std::fprintf(stderr, "%s:%d: contract broken: %s\n", file, line, condition);
    std::abort();
}

}  // namespace tallymere

#endif
