// The time of a workload as the best of several runs: other work on the machine only ever adds
// time, so the least elapsed time is the one that measures the workload.
#pragma once

#include <algorithm>
#include <chrono>

namespace dv::bench {

template <typename F> double Secondi(F f, int volte = 1) {
    double migliore = 1e30;
    for (int i = 0; i < volte; ++i) {
        const auto t0 = std::chrono::steady_clock::now();
        f();
        migliore =
            std::min(migliore, std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count());
    }
    return migliore;
}

} // namespace dv::bench
