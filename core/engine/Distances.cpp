#include "core/engine/Distances.h"

#include "core/ColumnTests.h"

#include <algorithm>

namespace dv::engine {

DistanceBounds::DistanceBounds(const TabellaDistanze& table, int len)
    : m_len(len), m_count(std::min<int>(table.count(), MaxCondizioniDistanza)) {
    for (int k = 0; k < m_count; ++k) {
        const CondizioneDistanza& cd = table[k + 1];
        Record& rec = m_records[static_cast<size_t>(k)];
        for (int i = 1; i <= cd.NumPosizioni && i <= 25; ++i) {
            const int p = cd.Posizioni[static_cast<size_t>(i)];
            if (p < 1 || p >= len) continue;
            m_recordsOf[static_cast<size_t>(p)] |= uint32_t{1} << k;
            rec.lastPair = std::max(rec.lastPair, p);
        }
        for (int d = 0; d <= 89; ++d) {
            const auto z = static_cast<size_t>(d);
            rec.minOk[z] =
                cd.NumDistanzeMin == 0 || DistanzaAmmessa(cd.DistanzaMin, cd.NumDistanzeMin, d) != 0;
            rec.maxOk[z] =
                cd.NumDistanzeMax == 0 || DistanzaAmmessa(cd.DistanzaMax, cd.NumDistanzeMax, d) != 0;
            if (d == 0) continue;
            for (int16_t v : {cd.DistanzaMin[z], cd.DistanzaMax[z]})
                m_exact = m_exact && (v == 0 || v == Vero);
            rec.minUpTo[z] = static_cast<uint8_t>(rec.minUpTo[z - 1] + rec.minOk[z]);
            rec.maxUpTo[z] = static_cast<uint8_t>(rec.maxUpTo[z - 1] + rec.maxOk[z]);
            if (rec.minOk[z]) rec.minGaps |= Mask::bit(d);
            if (rec.maxOk[z]) {
                rec.maxGaps |= Mask::bit(d);
                rec.maxTop = d;
            }
        }
    }
    for (int k = 0; k < m_count; ++k) {
        Record& rec = m_records[static_cast<size_t>(k)];
        for (int x = 0; x <= 89; ++x) {
            const auto z = static_cast<size_t>(x);
            rec.asLeast[z] =
                (rec.minGaps & Mask::range(1, x - 1)) | (rec.minOk[z] ? Mask::range(x, 89) : Mask{});
            rec.asGreatest[z] =
                (rec.maxGaps & Mask::range(x + 1, 89)) | (rec.maxOk[z] ? Mask::range(1, x) : Mask{});
        }
    }
    for (int p = 1; p < len; ++p) {
        bool allowed = m_count == 0;
        for (int k = 0; k < m_count && !allowed; ++k)
            allowed = ((m_recordsOf[static_cast<size_t>(p)] >> k) & 1u) == 0 ||
                      m_records[static_cast<size_t>(k)].minOk[1];
        m_consecutive[static_cast<size_t>(p)] = allowed;
    }
}

DistanceBounds::Gaps DistanceBounds::initial() {
    Gaps g;
    g.least.fill(89);
    g.greatest.fill(0);
    return g;
}

DistanceBounds::Outlook DistanceBounds::outlook(const Gaps& g, int placed, int last, int r, int vmax) const {
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

Mask DistanceBounds::lastNumbersAfter(const Gaps& g, int pair, int gap, int last) const {
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

int DistanceBounds::nextLimit(const Gaps& g, int pair, int last) const {
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
