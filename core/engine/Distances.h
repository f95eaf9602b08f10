// The distance conditions compiled for the walk of an ascending forecast: for each record, what
// the pairs placed so far leave possible, and which last numbers can still pass.
#pragma once

#include "core/Corpo.h"
#include "core/engine/Mask.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>

namespace dv::engine {

class DistanceBounds {
public:
    // The smallest and greatest gap over a record's pairs placed so far (89 and 0 before any).
    struct Gaps {
        std::array<uint8_t, MaxCondizioniDistanza> least, greatest;
    };
    enum class Outlook { Open, Dead, DeadOnward };

    DistanceBounds(const TabellaDistanze& table, int len);

    int count() const { return m_count; }
    // Every table holds only true (-1) and false: the set of last numbers is exact.
    bool exact() const { return m_exact; }
    static Gaps initial();
    // The records that choose pair p (positions p and p+1), as bits.
    uint32_t recordsOf(int pair) const { return m_recordsOf[static_cast<size_t>(pair)]; }
    // A gap of 1 at pair (positions pair and pair+1) leaves some record able to pass: false when
    // every record chooses the pair and refuses 1 as the least gap.
    bool consecutiveAllowed(int pair) const { return m_consecutive[static_cast<size_t>(pair)]; }
    // The gaps of `from` with gap taken into every record that chooses pair, into `to`. Only the
    // records in use are copied, byte by byte: the next copy reads what this one wrote.
    void place(const Gaps& from, Gaps& to, int pair, int gap) const {
        const uint32_t placing = recordsOf(pair);
        for (int i = 0; i < m_count; ++i) {
            const auto k = static_cast<size_t>(i);
            const bool in = (placing >> i) & 1u;
            to.least[k] = in && gap < from.least[k] ? static_cast<uint8_t>(gap) : from.least[k];
            to.greatest[k] = in && gap > from.greatest[k] ? static_cast<uint8_t>(gap) : from.greatest[k];
        }
    }
    // Whether some record can still pass once `placed` numbers are placed, the last one being
    // last, with r more to come, none above vmax. DeadOnward: neither can a prefix that differs
    // only by a greater last number.
    Outlook outlook(const Gaps& g, int placed, int last, int r, int vmax) const;
    // The last numbers that some record can pass with, when len-1 numbers are placed, the last
    // one being last. A record's tables read as true or false: a column in the set still goes
    // through the exact match.
    Mask lastNumbers(const Gaps& g, int last) const { return lastNumbersAfter(g, 0, 0, last); }
    // The same when `last` has just been placed at pair `pair`, `gap` above the number before
    // it, and g does not hold that gap yet (pair 0: nothing placed).
    Mask lastNumbersAfter(const Gaps& g, int pair, int gap, int last) const;
    // The greatest number that can follow `last` at pair `pair` (the pair of the next number)
    // and still leave some record able to pass: a greater gap exceeds every greatest gap that the
    // records choosing the pair allow. 127 when no record bounds it.
    int nextLimit(const Gaps& g, int pair, int last) const;

private:
    struct Record {
        int lastPair = 0;                             // the highest chosen pair below len, 0 for none
        std::array<bool, 90> minOk{};                 // d as the least gap passes (element 0 included)
        std::array<bool, 90> maxOk{};                 // d as the greatest gap passes
        std::array<uint8_t, 90> minUpTo{}, maxUpTo{}; // allowed d within 1..x
        Mask minGaps, maxGaps;                        // allowed d within 1..89
        int maxTop = 0;                               // the greatest allowed d within 1..89
        // The gaps g of the last pair that pass as the least gap min(least, g), per least, and
        // as the greatest gap max(greatest, g), per greatest.
        std::array<Mask, 90> asLeast{}, asGreatest{};
    };
    bool maxAllowedWithin(const Record& rec, int lo, int hi) const {
        return rec.maxUpTo[static_cast<size_t>(hi)] > rec.maxUpTo[static_cast<size_t>(lo - 1)];
    }

    int m_len;
    int m_count;
    bool m_exact = true;
    std::array<Record, MaxCondizioniDistanza> m_records{};
    std::array<uint32_t, MaxLenColonna + 1> m_recordsOf{};
    std::array<bool, MaxLenColonna + 1> m_consecutive{};
};

// Inline: the walk asks these at every step.
inline DistanceBounds::Outlook DistanceBounds::outlook(const Gaps& g, int placed, int last, int r,
                                                       int vmax) const {
    // A greater last number changes the gap of pair placed-1 and lowers the greatest gap that
    // the pairs still to come can reach.
    const uint32_t changing = placed >= 2 ? recordsOf(placed - 1) : 0;
    bool onward = true;
    for (int k = 0; k < m_count; ++k) {
        const Record& rec = m_records[static_cast<size_t>(k)];
        const int least = g.least[static_cast<size_t>(k)], greatest = g.greatest[static_cast<size_t>(k)];
        const bool changes = (changing >> k) & 1u;
        if (rec.lastPair < placed) {
            // 1. Every chosen pair is placed: the record's verdict is known.
            if (rec.minOk[static_cast<size_t>(least)] && rec.maxOk[static_cast<size_t>(greatest)])
                return Outlook::Open;
            // A greater gap of the last pair can pass only at a greater greatest gap.
            if (changes && maxAllowedWithin(rec, std::max(greatest, 1), 89)) onward = false;
            continue;
        }
        // 2. Pairs still to come: the least gap can only fall, the greatest only rise, and no
        //    gap to come exceeds what is left above the last number.
        const int reach = std::clamp(vmax - last - (r - 1), 1, 89);
        const bool minPart = rec.minUpTo[static_cast<size_t>(least)] > 0;
        const int lo = std::max(greatest, 1), hi = std::max(greatest, reach);
        if (minPart && maxAllowedWithin(rec, lo, hi)) return Outlook::Open;
        if (changes && (!minPart || maxAllowedWithin(rec, lo, 89))) onward = false;
    }
    return onward ? Outlook::DeadOnward : Outlook::Dead;
}

inline Mask DistanceBounds::lastNumbersAfter(const Gaps& g, int pair, int gap, int last) const {
    const uint32_t placing = recordsOf(pair), changing = recordsOf(m_len - 1);
    Mask gaps;
    for (int k = 0; k < m_count; ++k) {
        const Record& rec = m_records[static_cast<size_t>(k)];
        int least = g.least[static_cast<size_t>(k)], greatest = g.greatest[static_cast<size_t>(k)];
        if ((placing >> k) & 1u) {
            least = std::min(least, gap);
            greatest = std::max(greatest, gap);
        }
        if (((changing >> k) & 1u) == 0) {
            if (rec.minOk[static_cast<size_t>(least)] && rec.maxOk[static_cast<size_t>(greatest)])
                return Mask::range(last + 1, 127);
            continue;
        }
        gaps |= rec.asLeast[static_cast<size_t>(least)] & rec.asGreatest[static_cast<size_t>(greatest)];
    }
    return gaps.shiftedUp(last);
}

inline int DistanceBounds::nextLimit(const Gaps& g, int pair, int last) const {
    int limit = last; // no record left: no next number
    for (int k = 0; k < m_count; ++k) {
        const Record& rec = m_records[static_cast<size_t>(k)];
        const int least = g.least[static_cast<size_t>(k)], greatest = g.greatest[static_cast<size_t>(k)];
        if (((recordsOf(pair) >> k) & 1u) == 0) {
            // A record that has pairs still to come but not this one, or whose verdict is known
            // and passes, sets no bound.
            if (rec.lastPair > pair ||
                (rec.minOk[static_cast<size_t>(least)] && rec.maxOk[static_cast<size_t>(greatest)]))
                return 127;
            continue;
        }
        if (rec.maxTop >= greatest) limit = std::max(limit, last + rec.maxTop);
    }
    return std::min(limit, 127);
}

} // namespace dv::engine
