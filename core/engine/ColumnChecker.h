// The chain of tests for one candidate at a time, in the order the caller gives them: the held
// columns of a re-development, or the combinations of a forecast that cannot be walked as sets.
#pragma once

#include "core/Corpo.h"
#include "core/engine/Conditions.h"
#include "core/engine/KeptIndex.h"

#include <array>
#include <cstdint>

namespace dv::engine {

class ColumnChecker {
public:
    // sets: every candidate will be a set (IsSet) of numbers within `universe`. Otherwise any
    // bytes: a 0, repeats, numbers out of order or above 90, as a system file may hold.
    ColumnChecker(const Corpo& c, Mask universe, bool sets);

    // The whole chain for col; the store holds the `kept` columns kept so far.
    bool passes(const uint8_t* col, int32_t kept);
    // col has just been kept.
    void add(const uint8_t* col);

private:
    // The universe indices of a set column, ascending, and the same as a set.
    Mask indices(Mask numbers);
    bool sharesTooMany(const uint8_t* col, int32_t kept);

    const Corpo& m_c;
    bool m_sets;
    int m_len;
    CompiledConditions m_cond;
    KeptIndex m_kept;
    std::array<uint8_t, 128> m_universeIndex{}; // number -> index in the universe
    std::array<uint8_t, MaxLenColonna> m_idx{};
    std::array<uint8_t, 256> m_presenza{};
};

} // namespace dv::engine
