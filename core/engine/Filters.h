// The three filter tables compiled for one run: records as masks, records that share their
// numbers merged into one group, and the verdict of a group for every column that can still
// grow out of a prefix.
#pragma once

#include "core/Corpo.h"
#include "core/engine/Mask.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <vector>

namespace dv::engine {

enum class Verdict : uint8_t { Fail, Open, Pass };

// Records with the same numbers see the same count of hits, so one count serves them all.
struct FilterGroup {
    Mask numbers;      // the record's numbers
    uint32_t presenze; // bit k: exactly k hits pass the group
    uint8_t weight;    // records in the group that pass together (XOR only; 2 means "two or more")
};

// What the hits of a group can still be: p hits are held, r more numbers are still to come
// from a suffix of suffixSize numbers, `in` of them inside the group. Every count between the
// least and the greatest possible one can be reached.
inline Verdict ClassifyCounts(uint32_t presenze, int p, int in, int r, int suffixSize) {
    const int lo = p + (r > suffixSize - in ? r - (suffixSize - in) : 0);
    const int hi = p + (r < in ? r : in);
    assert(lo <= hi && hi <= MaxLenColonna);
    const uint32_t range = (uint32_t{2} << hi) - (uint32_t{1} << lo);
    const uint32_t allowed = presenze & range;
    return allowed == 0 ? Verdict::Fail : allowed == range ? Verdict::Pass : Verdict::Open;
}
// The same with the numbers held, `prefix`, and the suffix as sets.
inline Verdict Classify(const FilterGroup& g, Mask prefix, Mask suffix, int r, int suffixSize) {
    return ClassifyCounts(g.presenze, Common(prefix, g.numbers), Common(suffix, g.numbers), r, suffixSize);
}

// The most hits that r numbers taken from a set can bring to a list of groups, each number one
// hit to every group it belongs to: the sum over t of min(r, the numbers in t or more groups).
// Past Depth groups a number is counted as being in all the rest, which only raises the sum.
class HitSupply {
public:
    explicit HitSupply(Mask from) { m_atLeast[0] = from; }
    void add(Mask numbers) {
        if (m_groups < Depth)
            ++m_groups;
        else
            ++m_beyond;
        for (int t = m_groups; t >= 1; --t)
            m_atLeast[static_cast<size_t>(t)] |= m_atLeast[static_cast<size_t>(t - 1)] & numbers;
    }
    int most(int r) const {
        int sum = 0;
        for (int t = 1; t <= m_groups; ++t)
            sum += std::min(r, Size(m_atLeast[static_cast<size_t>(t)]));
        return sum + m_beyond * std::min(r, Size(m_atLeast[Depth]));
    }

private:
    static constexpr int Depth = 8;
    std::array<Mask, Depth + 1> m_atLeast{};
    int m_groups = 0, m_beyond = 0;
};

// The hits an XOR group still open over a prefix with `hits` of its numbers needs before it
// fails: the count of allowed counts from `hits` up.
inline int HitsToFail(uint32_t presenze, int hits) {
    return std::countr_one(presenze >> hits);
}

// The hits that the open groups of an XOR table need, together, before they fail: all of them
// when a group passes already, and otherwise all but one group of weight 1, the one that needs
// most (it may be the one that passes).
class XorNeed {
public:
    // Adds an open group; gives the hits it needs.
    int add(uint32_t presenze, int hits, uint8_t weight) {
        const int m = HitsToFail(presenze, hits);
        m_sum += m;
        if (weight == 1) m_most = std::max(m_most, m);
        return m;
    }
    int hits(int passing) const { return passing == 0 ? m_sum - m_most : m_sum; }

private:
    int m_sum = 0, m_most = 0;
};

// The count of a column's numbers that belong to a set: a popcount for a column of distinct
// numbers; for any other column (0 or repeats, from a file) one look for each of its places.
struct SetHits {
    Mask column;
    int operator()(Mask m) const { return Common(column, m); }
};
struct ByteHits {
    const uint8_t* col;
    int len;
    int operator()(Mask m) const {
        int p = 0;
        for (int i = 0; i < len; ++i)
            p += col[i] < 128 && m.has(col[i]);
        return p;
    }
};

enum class TableKind { And, Or, Xor };

// One table for one run. After compile(): `fixed` tells whether the table decides alone
// (always fails, or asks nothing more), `base` counts the XOR records that pass every column,
// `open` lists the groups whose verdict depends on the column.
struct CompiledTable {
    TableKind kind = TableKind::And;
    bool inUse = false; // the table has records: an empty table asks nothing
    bool alwaysFails = false;
    bool satisfied = false;          // AND: no open group; OR: a group passes every column
    int base = 0;                    // XOR: records passing every column (0, 1 or 2)
    std::vector<FilterGroup> groups; // open groups; ids below index this
    // The group that decided the last column, tried first on the next one.
    mutable uint32_t lastDecider = 0;

    // Columns are len distinct numbers drawn from `universe`, a set of universeSize numbers;
    // with universeSize 0, columns are any bytes and every group stays open.
    void compile(const TabellaFiltri& table, TableKind k, Mask universe, int universeSize, int len);
    // The verdict of the table on a whole column (all of AND, one of OR, exactly one of XOR).
    template <typename Hits> bool passes(const Hits& hits) const;
};

template <typename Hits> bool CompiledTable::passes(const Hits& hits) const {
    if (alwaysFails) return false;
    if (satisfied) return true;
    auto pass = [&](uint32_t i) { return ((groups[i].presenze >> hits(groups[i].numbers)) & 1u) != 0; };
    const auto n = static_cast<uint32_t>(groups.size());
    switch (kind) {
    case TableKind::And:
        if (!pass(lastDecider)) return false;
        for (uint32_t i = 0; i < n; ++i)
            if (!pass(i)) {
                lastDecider = i;
                return false;
            }
        return true;
    case TableKind::Or:
        if (pass(lastDecider)) return true;
        for (uint32_t i = 0; i < n; ++i)
            if (pass(i)) {
                lastDecider = i;
                return true;
            }
        return false;
    case TableKind::Xor: {
        int count = base;
        for (uint32_t i = 0; i < n && count < 2; ++i)
            if (pass(i)) count += groups[i].weight;
        return count == 1;
    }
    }
    return false;
}

} // namespace dv::engine
