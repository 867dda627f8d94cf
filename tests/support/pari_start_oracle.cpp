#include <pari/pari.h>

#include "support/pari_start_oracle.h"

namespace tallymere::testing_support {

void StartPari() {
    static const bool started = [] {
        pari_init_opts(16'000'000, 500'000, INIT_DFTm);
        paristack_setsize(16'000'000, 1'000'000'000);
        setrand(utoipos(1));
        return true;
    }();
    static_cast<void>(started);
}

}  // namespace tallymere::testing_support
