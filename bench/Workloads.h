// The benchmark workloads: working states built the same way on every run.
#pragma once

#include "core/Corpo.h"

#include <memory>
#include <string>
#include <vector>

namespace dv::bench {

struct Workload {
    std::string name;
    // Builds the state into c (its store is left as it is).
    void (*build)(Corpo& c);
    // The literal engine takes too long to run by default.
    bool literalOptional = false;
};

const std::vector<Workload>& Workloads();

} // namespace dv::bench
