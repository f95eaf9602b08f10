// The kept columns as a reduction sees them. A candidate fails when it shares `shared` (t)
// numbers with a kept column. Columns are sets of indices 0..universe-1.
//
// For every (t-1)-subset Q of the universe the index holds the union of K \ Q over the kept
// columns K that contain Q (Q's extensions). A column C shares t numbers with some kept column
// exactly when some (t-1)-subset Q of C has an extension inside C \ Q; and a prefix P of the walk
// can take next exactly the numbers outside the extensions of its (t-1)-subsets. The table is
// addressed by the rank of Q among the subsets of its size, when it fits in memory; otherwise
// the kept columns are scanned, newest first, with a popcount each.
#pragma once

#include "core/engine/Conditions.h"
#include "core/engine/Mask.h"

#include <array>
#include <cstdint>
#include <vector>

namespace dv::engine {

class KeptIndex {
public:
    enum class Mode {
        Never,      // nothing can share t numbers
        AfterFirst, // t <= 0: every column fails once one is kept
        Table,      // extensions by the rank of their subset
        Scan        // popcount against every kept column
    };
    // Entries of the extension table at most (16 bytes each).
    static constexpr Count MaxTable = Count{1} << 22;
    // Subsets listed for one prefix length at most.
    static constexpr Count MaxListed = 4096;

    // forWalk: the index serves only newExtensions() and the columns come in lexicographic
    // order, so an entry needs only the members above its subset's largest one; most entries
    // then fit in 16 bits, and the table in the processor's cache.
    KeptIndex(const Reduction& r, int universe, int len, bool forWalk = false);

    Mode mode() const { return m_mode; }
    int shared() const { return m_t; }
    // Adds a kept column: its indices ascending, and the same as a set.
    void add(const uint8_t* idx, Mask k);
    // The candidate (indices ascending, and as a set) shares t numbers with a kept column.
    bool fails(const uint8_t* idx, Mask c) const;
    // Table mode: the extensions of every (t-1)-subset of idx[0..d-1] that holds idx[d-1].
    // Together with those of idx[0..d-2] they are the numbers the prefix idx[0..d-1] cannot
    // take next. idx ascending; d >= t-1 >= 0 (with t-1 = 0, the empty subset at d = 0). May
    // stop early, once every member of `wanted` is found.
    // Keeps the ranks of the prefix's subsets from one call to the next: the walk changes a
    // prefix only at its end.
    Mask newExtensions(const uint8_t* idx, int d, Mask wanted) {
        // The walk's usual case inline: the subsets listed, the entries of 16 numbers above x.
        const int m = d - 1, s = m_t - 2;
        if (s > 0 && m <= m_listed) {
            const int x = idx[d - 1];
            const uint64_t first = m_topRank[static_cast<size_t>(x)];
            if (first >= m_split)
                return Mask::placedAbove(
                    orListed(m_above.data() + (first - m_split), idx, m, wanted.above(x)), x);
        }
        return extensionsOf(idx, d, wanted);
    }
    // The walk changed idx[place]: what the index kept of longer prefixes no longer holds.
    void prefixChanged(int place) {
        if (m_built > place) m_built = place;
    }

private:
    static Mask asMask(uint64_t bits) { return Mask{bits, 0}; }
    static Mask asMask(Mask m) { return m; }
    // The union of table[rank] over the (t-2)-subsets of idx[0..m-1], the table placed at the
    // first subset topped by the new number. Those of idx[0..m-2] are listed; those topped by
    // idx[m-1] put it on each listed (t-3)-subset of idx[0..m-2], so they are read through the
    // table moved on by its part of their rank, and the last level is never listed. Whether
    // every wanted number is found is asked once per 32 loads: a test after each load costs
    // more in mispredicted exits than the loads it saves.
    template <typename Ext> Ext orListed(const Ext* table, const uint8_t* idx, int m, Mask wanted) {
        const auto s = static_cast<size_t>(m_t - 2), below = static_cast<size_t>(m - 1);
        if (m - 1 > m_built) listPrefix(idx, m - 1);
        Ext out{};
        for (int part = 0; part < 2; ++part) {
            const Ext* from = table;
            const uint32_t* ranks = m_stack[s].data();
            const uint32_t* end = ranks + m_end[s][below];
            if (part == 1) {
                const uint8_t e = idx[m - 1];
                if (s == 1) return out |= table[e];
                from = table + m_sRank[e];
                ranks = m_stack[s - 1].data();
                end = ranks + m_end[s - 1][below];
            }
            while (end - ranks > 32) {
                for (const uint32_t* stop = ranks + 32; ranks != stop; ++ranks)
                    out |= from[*ranks];
                if (!(wanted - asMask(out)).any()) return out;
            }
            for (; end - ranks >= 4; ranks += 4)
                out |=
                    static_cast<Ext>((from[ranks[0]] | from[ranks[1]]) | (from[ranks[2]] | from[ranks[3]]));
            for (; ranks != end; ++ranks)
                out |= from[*ranks];
        }
        return out;
    }
    Mask extensionsOf(const uint8_t* idx, int d, Mask wanted);
    // The entries of ext stand for the ranks from `first` on.
    template <typename Ext>
    Mask gather(const std::vector<Ext>& ext, const uint8_t* idx, int d, Mask wanted, uint64_t first);
    void listPrefix(const uint8_t* idx, int m);
    Mode m_mode = Mode::Never;
    int m_t = 0;
    bool m_anyKept = false;
    bool m_aboveOnly = false; // the walk reads only the members above a subset's largest one
    int m_width = 128;        // bits of a table entry: the universe rounded up to 32, 64 or 128
    // Walk: from rank m_split on, entries hold the 16 numbers above their subset's largest member.
    uint64_t m_split = ~uint64_t{0};
    std::vector<uint16_t> m_above;
    std::vector<uint64_t> m_topRank; // walk: per x, the rank of the first subset topped by x
    std::vector<uint32_t> m_sRank;   // walk: per x, the same for the (t-2)-subsets
    // Walk: the ranks of the k-subsets of the prefix idx[0..m-1], for prefixes of up to m_listed
    // numbers (few enough (t-2)-subsets to list) and the sizes k that can still grow to t-2
    // members by then. m_stack[k] holds them level by level: those of idx[0..l-1] end at
    // m_end[k][l], and the level l ones (topped by idx[l-1]) follow those of the shorter prefix.
    // A level is built again only when its number changes; it serves every longer prefix over it.
    int m_listed = 0;
    int m_built = 0; // levels 1..m_built hold the walk's prefix (m_member, for the asserts)
    std::array<int, MaxLenColonna + 1> m_member{};
    std::array<std::vector<uint32_t>, MaxLenColonna> m_stack;
    std::array<std::array<uint32_t, MaxLenColonna + 1>, MaxLenColonna> m_end{};
    std::vector<uint32_t> m_ext32; // extensions by rank, for each width
    std::vector<uint64_t> m_ext64;
    std::vector<Mask> m_ext;
    std::vector<Mask> m_kept;
};

} // namespace dv::engine
