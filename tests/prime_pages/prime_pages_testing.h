// What tests of the prime pages share.
#pragma once

#include "support/exact_testing.h"
#include "support/page_run_testing.h"

namespace tallymere::testing_support {

using PrimePagesTest = PageRunTest;

}  // namespace tallymere::testing_support
