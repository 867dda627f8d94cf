// From which length on a product of digits is made of shorter ones: what MeasuredCutovers of
// core/long_products.h is taken from.
#pragma once

namespace tallymere::bench {

/// Prints a table of each kind of product: its time digit by digit and split once, by its length,
/// and the least length from which on splitting takes less at all lengths. Returns 0.
int PrintProductCutovers();

}  // namespace tallymere::bench
