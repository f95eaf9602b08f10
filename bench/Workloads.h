// The benchmark workloads: working states built the same way on every run.
#pragma once

#include "core/Corpo.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace dv::bench {

struct Workload {
    std::string name;
    // Builds the state into c (its store is left as it is).
    std::function<void(Corpo&)> build;
    // The literal engine takes too long to run by default.
    bool literalOptional = false;
};

const std::vector<Workload>& Workloads();

// Twenty states of mixed conditions (even counts, runs, distance conditions, small filter
// tables), drawn with fixed seeds: forecasts of 26 to 60 numbers, columns of 6 to 12, 10 to 60
// million candidates each, fewer than 1,000,000 columns kept.
const std::vector<Workload>& MixedWorkloads();

} // namespace dv::bench
