// Covering matrices computed greedily: columns of K indices of 1..V chosen until every M-subset
// of 1..V has a column holding at least T of it.
#pragma once

#include <cstdint>
#include <vector>

namespace dv {

// Subsets above this count are not tracked.
constexpr uint64_t MaxSottoinsiemiCopertura = 400'000'000ull;

// The columns, each ascending, in the order chosen; empty when the sizes make no covering
// (K > V, T > K, T > M, M > V) or too many subsets. Each step takes the first subset still
// uncovered and, among candidates holding T of its members and K - T indices drawn from seed,
// keeps the one that covers the most subsets still uncovered.
std::vector<std::vector<uint8_t>> CoperturaGreedy(int v, int k, int t, int m, uint32_t seed,
                                                  int candidati = 24);

} // namespace dv
