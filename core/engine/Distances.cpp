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

} // namespace dv::engine
