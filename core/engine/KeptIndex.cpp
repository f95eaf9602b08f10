#include "core/engine/KeptIndex.h"

#include <algorithm>
#include <bit>

namespace dv::engine {

namespace {
// Binomials in 64 bits, saturated: ranks in the table stay below MaxTable.
struct RankTable {
    std::array<std::array<uint64_t, BinomialCols>, BinomialRows> c{};
    RankTable() {
        for (int n = 0; n < BinomialRows; ++n)
            for (int k = 0; k < BinomialCols; ++k) {
                const Count b = Binomial(n, k);
                c[static_cast<size_t>(n)][static_cast<size_t>(k)] =
                    b > UINT64_MAX ? UINT64_MAX : static_cast<uint64_t>(b);
            }
    }
};
const RankTable Ranks;

// Calls f(rank, subset) for every s-subset of e[0..m-1] (ascending) in lexicographic order, with
// the colexicographic rank of the subset plus `base` (the sum of C(e_i, i+1) over its members,
// smallest first); stops when f returns false.
template <typename F> void ForEachSubset(const uint8_t* e, int m, int s, uint64_t base, F&& f) {
    assert(s >= 0 && s <= m && s < MaxLenColonna);
    std::array<int, MaxLenColonna> pos{};
    std::array<uint64_t, MaxLenColonna + 1> rank{};
    std::array<Mask, MaxLenColonna + 1> sub{};
    rank[0] = base;
    auto place = [&](int k, int p) {
        const auto z = static_cast<size_t>(k);
        pos[z] = p;
        rank[z + 1] = rank[z] + Ranks.c[e[p]][z + 1];
        sub[z + 1] = sub[z] | Mask::bit(e[p]);
    };
    for (int k = 0; k < s; ++k)
        place(k, k);
    const auto last = static_cast<size_t>(s);
    for (;;) {
        if (!f(rank[last], sub[last])) return;
        int k = s - 1;
        while (k >= 0 && pos[static_cast<size_t>(k)] == m - s + k)
            --k;
        if (k < 0) return;
        place(k, pos[static_cast<size_t>(k)] + 1);
        for (int q = k + 1; q < s; ++q)
            place(q, pos[static_cast<size_t>(q - 1)] + 1);
    }
}

inline Mask Widen(uint16_t w) {
    return Mask{w, 0};
}
inline Mask Widen(uint32_t w) {
    return Mask{w, 0};
}
inline Mask Widen(uint64_t w) {
    return Mask{w, 0};
}
inline Mask Widen(Mask m) {
    return m;
}
inline uint16_t& Narrowed(uint16_t& w, Mask m) {
    return w |= static_cast<uint16_t>(m.lo);
}
inline uint32_t& Narrowed(uint32_t& w, Mask m) {
    return w |= static_cast<uint32_t>(m.lo);
}
inline uint64_t& Narrowed(uint64_t& w, Mask m) {
    return w |= m.lo;
}
inline Mask& Narrowed(Mask& w, Mask m) {
    return w |= m;
}

} // namespace

KeptIndex::KeptIndex(const Reduction& r, int universe, int len, bool forWalk)
    : m_t(r.shared), m_width(universe <= 32   ? 32
                             : universe <= 64 ? 64
                                              : 128) {
    if (!r.on || m_t > len) {
        m_mode = Mode::Never;
    } else if (m_t <= 0) {
        m_mode = Mode::AfterFirst;
    } else if (Binomial(universe, m_t - 1) <= MaxTable) {
        m_mode = Mode::Table;
        auto size = static_cast<size_t>(Binomial(universe, m_t - 1));
        if (forWalk && m_t >= 2) {
            m_aboveOnly = true;
            // Subsets whose largest member leaves at most 16 numbers above it rank last.
            m_split = static_cast<uint64_t>(Binomial(std::max(0, universe - 17), m_t - 1));
            m_above.assign(size - m_split, 0);
            for (int x = 0; x < universe; ++x) {
                m_topRank.push_back(Ranks.c[static_cast<size_t>(x)][static_cast<size_t>(m_t - 1)]);
                m_sRank.push_back(
                    static_cast<uint32_t>(Ranks.c[static_cast<size_t>(x)][static_cast<size_t>(m_t - 2)]));
            }
            size = m_split;
            const int s = m_t - 2;
            // The walk asks for prefixes of up to len-2 numbers before the new one.
            while (s > 0 && m_listed + 1 <= len - 2 && Binomial(m_listed + 1, s) <= MaxListed)
                ++m_listed;
            if (m_listed < s) m_listed = 0;
            // At most C(m_listed - s + k, k) k-subsets can still grow to s members.
            for (int k = 1; k <= s && m_listed > 0; ++k)
                m_stack[static_cast<size_t>(k)].resize(static_cast<size_t>(Binomial(m_listed - s + k, k)));
        }
        if (m_width == 32)
            m_ext32.assign(size, 0);
        else if (m_width == 64)
            m_ext64.assign(size, 0);
        else
            m_ext.assign(size, Mask{});
    } else {
        m_mode = Mode::Scan;
        m_kept.reserve(static_cast<size_t>(MaxColonne));
    }
}

void KeptIndex::add(const uint8_t* idx, Mask k) {
    m_anyKept = true;
    if (m_mode == Mode::Scan) m_kept.push_back(k);
    if (m_mode != Mode::Table) return;
    // For the walk an entry holds only the members above its subset's largest one: the subsets
    // topped by the column's last member would hold nothing.
    const int members = m_aboveOnly ? Size(k) - 1 : Size(k);
    ForEachSubset(idx, members, m_t - 1, 0, [&](uint64_t rank, Mask q) {
        if (rank >= m_split) {
            const int top = q.hi ? 127 - std::countl_zero(q.hi) : 63 - std::countl_zero(q.lo);
            m_above[rank - m_split] |= static_cast<uint16_t>((k - q).above(top).lo);
        } else if (m_width == 32)
            Narrowed(m_ext32[rank], k - q);
        else if (m_width == 64)
            Narrowed(m_ext64[rank], k - q);
        else
            Narrowed(m_ext[rank], k - q);
        return true;
    });
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
        assert(!m_aboveOnly);
        bool hit = false;
        ForEachSubset(idx, Size(c), m_t - 1, 0, [&](uint64_t rank, Mask q) {
            const Mask e = m_width == 32   ? Widen(m_ext32[rank])
                           : m_width == 64 ? Widen(m_ext64[rank])
                                           : m_ext[rank];
            hit = (e & (c - q)).any();
            return !hit;
        });
        return hit;
    }
    }
    return false;
}

template <typename Ext>
Mask KeptIndex::gather(const std::vector<Ext>& ext, const uint8_t* idx, int d, Mask wanted, uint64_t first) {
    if (m_t == 1) return d == 0 ? Widen(ext[0]) : Mask{};
    // Subsets of size s = t-2 among the m = d-1 earlier members, then idx[d-1] on top: it is the
    // largest. The same walk as ForEachSubset, without the subsets themselves.
    const int s = m_t - 2, m = d - 1;
    const Ext* table = ext.data() + (Ranks.c[idx[d - 1]][static_cast<size_t>(m_t - 1)] - first);
    Ext out{}, want{};
    Narrowed(want, wanted);
    if (s > 0 && m <= m_listed) {
        // The listed subsets: no enumeration, one load and one or each.
        return Widen(orListed(table, idx, m, wanted));
    }
    std::array<int, MaxLenColonna> pos{};
    std::array<uint64_t, MaxLenColonna + 1> rank{};
    for (int k = 0; k < s; ++k) {
        pos[static_cast<size_t>(k)] = k;
        rank[static_cast<size_t>(k + 1)] =
            rank[static_cast<size_t>(k)] + Ranks.c[idx[k]][static_cast<size_t>(k + 1)];
    }
    for (;;) {
        Narrowed(out, Widen(table[rank[static_cast<size_t>(s)]]));
        if (!(Widen(want) - Widen(out)).any()) break;
        int k = s - 1;
        while (k >= 0 && pos[static_cast<size_t>(k)] == m - s + k)
            --k;
        if (k < 0) break;
        for (int p = pos[static_cast<size_t>(k)] + 1; k < s; ++k, ++p) {
            pos[static_cast<size_t>(k)] = p;
            rank[static_cast<size_t>(k + 1)] =
                rank[static_cast<size_t>(k)] + Ranks.c[idx[p]][static_cast<size_t>(k + 1)];
        }
    }
    return Widen(out);
}

// Brings the levels 1..m up to the prefix idx[0..m-1]: the levels above the last place the walk
// changed are built again, each from those below it.
void KeptIndex::listPrefix(const uint8_t* idx, int m) {
    assert(m >= 1 && m <= m_listed);
    assert(std::equal(idx, idx + m_built, m_member.begin() + 1));
    if (m_built >= m) return;
    int l = m_built + 1;
    const int s = m_t - 2;
    for (; l <= m; ++l) {
        const uint8_t e = idx[l - 1];
        const auto below = static_cast<size_t>(l - 1), here = static_cast<size_t>(l);
        for (int k = std::max(1, s - (m_listed - l)); k <= std::min(s, l); ++k) {
            // The k-subsets topped by e: e on each (k-1)-subset of the numbers below it.
            const auto z = static_cast<size_t>(k);
            const auto add = static_cast<uint32_t>(Ranks.c[e][z]);
            uint32_t* out = m_stack[z].data() + m_end[z][below];
            if (k == 1) {
                *out++ = add;
            } else {
                const uint32_t* from = m_stack[z - 1].data();
                for (uint32_t i = 0, n = m_end[z - 1][below]; i < n; ++i)
                    *out++ = from[i] + add;
            }
            m_end[z][here] = static_cast<uint32_t>(out - m_stack[z].data());
            assert(m_end[z][here] <= m_stack[z].size());
        }
        m_member[here] = e;
    }
    m_built = m;
}

Mask KeptIndex::extensionsOf(const uint8_t* idx, int d, Mask wanted) {
    assert(m_mode == Mode::Table && d >= m_t - 1);
    if (m_t >= 2 && Ranks.c[idx[d - 1]][static_cast<size_t>(m_t - 1)] >= m_split) {
        // Entries above the largest member x = idx[d-1]: the wanted numbers all lie above it.
        const int x = idx[d - 1];
        const Mask found = gather(m_above, idx, d, wanted.above(x), m_split);
        return Mask::placedAbove(found.lo, x);
    }
    if (m_width == 32) return gather(m_ext32, idx, d, wanted, 0);
    return m_width == 64 ? gather(m_ext64, idx, d, wanted, 0) : gather(m_ext, idx, d, wanted, 0);
}

} // namespace dv::engine
