// The development of a forecast of distinct numbers: the combinations in lexicographic order,
// walked as a tree of prefixes so that a prefix that no completion can pass is skipped whole.
#pragma once

#include "core/Corpo.h"
#include "core/engine/Progress.h"

#include <cstdint>

namespace dv::engine {

// The forecast can be walked as sets: n distinct numbers within 1..127.
bool CanWalk(const uint8_t* numeri, int n);

// Walks the C(n, LenColonna) combinations of numeri[0..n-1] into the store, reporting every
// candidate to `progress` (the skipped ones as ranges). Requires CanWalk.
void WalkIntegral(Corpo& c, const uint8_t* numeri, int n, RunProgress& progress);

} // namespace dv::engine
