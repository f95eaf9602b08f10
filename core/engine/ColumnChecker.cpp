#include "core/engine/ColumnChecker.h"

namespace dv::engine {

namespace {
constexpr Mask Everything{~uint64_t{0}, ~uint64_t{0}};

Mask NumbersOf(const uint8_t* col, int len) {
    Mask m;
    for (int i = 0; i < len; ++i)
        m |= Mask::bit(col[i]);
    return m;
}
} // namespace

ColumnChecker::ColumnChecker(const Corpo& c, Mask universe, bool sets)
    : m_c(c), m_sets(sets), m_len(c.LenColonna),
      m_cond(c, sets ? universe : Everything, sets ? Size(universe) : 0),
      m_kept(m_cond.reduction, sets ? Size(universe) : 0, c.LenColonna) {
    int k = 0;
    for (int v = 0; v < 128; ++v)
        if (universe.has(v)) m_universeIndex[static_cast<size_t>(v)] = static_cast<uint8_t>(k++);
}

Mask ColumnChecker::indices(Mask numbers) {
    Mask out;
    int k = 0;
    for (int half = 0; half < 2; ++half)
        for (uint64_t w = half == 0 ? numbers.lo : numbers.hi; w != 0; w &= w - 1) {
            const int v = std::countr_zero(w) + 64 * half;
            const uint8_t i = m_universeIndex[static_cast<size_t>(v)];
            m_idx[static_cast<size_t>(k++)] = i;
            out |= Mask::bit(i);
        }
    return out;
}

// The reductions on any bytes: the candidate's non-zero bytes in a presence map, and each kept
// column, newest first, counting its bytes found there.
bool ColumnChecker::sharesTooMany(const uint8_t* col, int32_t kept) {
    const Reduction& r = m_cond.reduction;
    if (!r.on || kept == 0) return false;
    for (int i = 0; i < m_len; ++i)
        if (col[i] != 0) m_presenza[col[i]] = 1;
    bool fails = false;
    std::array<uint8_t, MaxLenColonna> k{};
    for (int32_t j = kept; j >= 1 && !fails; --j) {
        m_c.Colonne.getColumn(j, k.data(), m_len);
        fails = NumeriComuni(k.data(), m_len, m_presenza.data()) >= r.shared;
    }
    for (int i = 0; i < m_len; ++i)
        m_presenza[col[i]] = 0;
    return fails;
}

bool ColumnChecker::passes(const uint8_t* col, int32_t kept) {
    if (!m_sets) return m_cond.passesAlone(col, ByteHits{col, m_len}) && !sharesTooMany(col, kept);
    assert(IsSet(col, m_len));
    const Mask numbers = NumbersOf(col, m_len);
    if (!m_cond.passesAlone(col, SetHits{numbers})) return false;
    return kept == 0 || !m_kept.fails(m_idx.data(), indices(numbers));
}

void ColumnChecker::add(const uint8_t* col) {
    if (m_sets) m_kept.add(m_idx.data(), indices(NumbersOf(col, m_len)));
}

} // namespace dv::engine
