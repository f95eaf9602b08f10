#include "core/engine/KeptIndex.h"

namespace dv::engine {

KeptIndex::KeptIndex(const Reduction& r, int universe, int len) : m_t(r.shared) {
    if (!r.on || m_t > len) {
        m_mode = Mode::Never;
    } else if (m_t <= 0) {
        m_mode = Mode::AfterFirst;
    } else if (Binomial(universe, m_t - 1) <= MaxTable) {
        m_mode = Mode::Table;
        m_ext.assign(static_cast<size_t>(Binomial(universe, m_t - 1)), Mask{});
    } else {
        m_mode = Mode::Scan;
        m_kept.reserve(static_cast<size_t>(MaxColonne));
    }
}

// Calls f(rank, subset) for every s-subset of e[from..n-1] joined to `sub`; e ascending, and the
// rank is the colexicographic rank of the whole subset (sum of C(e_m, m+1) over its members).
template <typename F>
void KeptIndex::forEachSubset(const uint8_t* e, int n, int s, int from, uint64_t rank, Mask sub, F& f) const {
    const int m = Size(sub);
    if (s == 0) {
        f(rank, sub);
        return;
    }
    for (int a = from; a <= n - s; ++a)
        forEachSubset(e, n, s - 1, a + 1, rank + static_cast<uint64_t>(Binomial(e[a], m + 1)), sub | Mask::bit(e[a]),
                      f);
}

void KeptIndex::add(const uint8_t* idx, Mask k) {
    m_anyKept = true;
    if (m_mode == Mode::Scan) m_kept.push_back(k);
    if (m_mode != Mode::Table) return;
    auto extend = [&](uint64_t rank, Mask q) { m_ext[rank] |= k - q; };
    forEachSubset(idx, Size(k), m_t - 1, 0, 0, Mask{}, extend);
}

bool KeptIndex::fails(const uint8_t* idx, Mask c) const {
    switch (m_mode) {
    case Mode::Never:
        return false;
    case Mode::AfterFirst:
        return m_anyKept;
    case Mode::Scan:
        for (size_t j = m_kept.size(); j-- > 0;)
            if (Common(m_kept[j], c) >= m_t) return true;
        return false;
    case Mode::Table: {
        bool hit = false;
        auto probe = [&](uint64_t rank, Mask q) { hit = hit || (m_ext[rank] & (c - q)).any(); };
        forEachSubset(idx, Size(c), m_t - 1, 0, 0, Mask{}, probe);
        return hit;
    }
    }
    return false;
}

Mask KeptIndex::newExtensions(const uint8_t* idx, int d) const {
    assert(m_mode == Mode::Table && d >= m_t - 1);
    if (m_t == 1) return d == 0 ? m_ext[0] : Mask{};
    Mask out;
    const int x = idx[d - 1];
    auto gather = [&](uint64_t rank, Mask) { out |= m_ext[rank]; };
    // Subsets of size t-2 among the d-1 earlier members, then x on top: x is the largest.
    forEachSubset(idx, d - 1, m_t - 2, 0, static_cast<uint64_t>(Binomial(x, m_t - 1)), Mask{}, gather);
    return out;
}

} // namespace dv::engine
