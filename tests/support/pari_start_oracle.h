// PARI for the oracles that ask it. Native only.
#pragma once

namespace tallymere::testing_support {

/// Starts PARI at the first call, with a stack that grows to 1 GB and without handlers of signals.
void StartPari();

}  // namespace tallymere::testing_support
