#include "prize/PianiColonne.h"

#include <algorithm>
#include <bit>
#include <cassert>

namespace dv {

void PianiColonne::prepara(int32_t count, int len, const std::array<bool, 91>& usati) {
    m_colonne = count < 0 ? 0 : count;
    m_len = len;
    m_blocchi = (m_colonne + 63) / 64;
    m_piano.fill(-1);
    int u = 0;
    for (int n = 1; n <= 90; ++n)
        if (usati[static_cast<size_t>(n)]) m_piano[static_cast<size_t>(n)] = static_cast<int8_t>(u++);
    m_numeri = u;
    // Planes, the ordinary columns, a word for numbers outside the expected ones, a word for 0
    // and numbers above 90 (never a hit).
    m_passo = static_cast<size_t>(u) + 3;
    m_parole.assign(static_cast<size_t>(m_blocchi) * m_passo, 0);
    m_speciali.clear();
    m_primoSpeciale.assign(static_cast<size_t>(m_blocchi) + 1, 0);
}

// Fills the planes from leggi(column, position), or from righe[p - 1][c - 1] when the columns lie
// in rows by position. Returns false when a column holds a number outside the expected ones.
template <typename Leggi> bool PianiColonne::costruisci(Leggi leggi, const uint8_t* const* righe) {
    const int u = m_numeri;
    std::array<uint16_t, 256> dove{};
    std::array<uint64_t, 256> conta{};
    for (int v = 0; v < 256; ++v) {
        const bool numero = v >= 1 && v <= 90;
        dove[static_cast<size_t>(v)] = static_cast<uint16_t>(
            numero ? (m_piano[static_cast<size_t>(v)] >= 0 ? m_piano[static_cast<size_t>(v)] : u + 1)
                   : u + 2);
        conta[static_cast<size_t>(v)] = numero ? ~uint64_t{0} : 0;
    }
    std::array<std::vector<Speciale>, 2> parte;
    DueParti(m_blocchi >= 512, [&](int t, int n) {
        const int32_t b0 = static_cast<int32_t>(int64_t{m_blocchi} * t / n);
        const int32_t b1 = static_cast<int32_t>(int64_t{m_blocchi} * (t + 1) / n);
        std::vector<uint64_t> copie(righe ? 3 * m_passo : 0);
        for (int32_t b = b0; b < b1; ++b) {
            uint64_t* w = &m_parole[static_cast<size_t>(b) * m_passo];
            const int32_t c0 = b * 64;
            const int jn = std::min(64, m_colonne - c0);
            if (righe) {
                // Position by position along the store's rows, every fourth column into a copy of
                // the block's words of its own, so that runs of equal numbers do not wait on one
                // word. When each column has len distinct planes (a number 0 or above 90 counting
                // once), no column holds a number twice; otherwise the block is made again
                // column by column to find those that do.
                std::fill(copie.begin(), copie.end(), uint64_t{0});
                uint64_t* w1 = copie.data();
                uint64_t* w2 = w1 + m_passo;
                uint64_t* w3 = w2 + m_passo;
                for (int p = 0; p < m_len; ++p) {
                    const uint8_t* r = righe[p] + c0;
                    int j = 0;
                    for (; j + 4 <= jn; j += 4) {
                        w[dove[r[j]]] |= uint64_t{1} << j;
                        w1[dove[r[j + 1]]] |= uint64_t{2} << j;
                        w2[dove[r[j + 2]]] |= uint64_t{4} << j;
                        w3[dove[r[j + 3]]] |= uint64_t{8} << j;
                    }
                    for (; j < jn; ++j)
                        w[dove[r[j]]] |= uint64_t{1} << j;
                }
                int32_t distinti = 0;
                for (size_t k = 0; k < m_passo; ++k) {
                    w[k] |= w1[k] | w2[k] | w3[k];
                    if (k != static_cast<size_t>(u)) distinti += std::popcount(w[k]);
                }
                if (distinti == jn * m_len || w[u + 1] != 0) {
                    w[u] = jn == 64 ? ~uint64_t{0} : (uint64_t{1} << jn) - 1;
                    continue;
                }
                std::fill(w, w + m_passo, uint64_t{0});
            }
            uint64_t ordinarie = 0;
            for (int j = 0; j < jn; ++j) {
                const uint64_t bit = uint64_t{1} << j;
                uint64_t doppio = 0;
                for (int p = 1; p <= m_len; ++p) {
                    const uint8_t v = leggi(c0 + j + 1, p);
                    uint64_t& x = w[dove[v]];
                    doppio |= x & bit & conta[v];
                    x |= bit;
                }
                if (doppio == 0) {
                    ordinarie |= bit;
                    continue;
                }
                Speciale s;
                s.colonna = c0 + j + 1;
                s.len = static_cast<uint8_t>(m_len);
                for (int p = 1; p <= m_len; ++p)
                    s.numeri[static_cast<size_t>(p - 1)] = leggi(c0 + j + 1, p);
                parte[static_cast<size_t>(t)].push_back(s);
                ++m_primoSpeciale[static_cast<size_t>(b) + 1];
            }
            w[u] = ordinarie;
        }
    });
    m_speciali = std::move(parte[0]);
    m_speciali.insert(m_speciali.end(), parte[1].begin(), parte[1].end());
    for (size_t b = 1; b < m_primoSpeciale.size(); ++b)
        m_primoSpeciale[b] += m_primoSpeciale[b - 1];
    for (int32_t b = 0; b < m_blocchi; ++b)
        if (blocco(b)[u + 1] != 0) return false;
    return true;
}

void PianiColonne::daSistema(const ColumnStore& store, int32_t count, int len, const uint8_t* candidati,
                             int nCandidati) {
    assert(len >= 0 && len <= StorePositions);
    std::array<bool, 91> usati{};
    for (int i = 0; i < nCandidati; ++i)
        if (candidati[i] >= 1 && candidati[i] <= 90) usati[candidati[i]] = true;
    auto leggi = [&store](int32_t c, int p) { return store.get(c, p); };
    std::array<const uint8_t*, StorePositions> righe{};
    for (int p = 1; p <= len; ++p)
        righe[static_cast<size_t>(p - 1)] = store.position(p);
    const uint8_t* const* r = store.allocated() && count <= MaxColonne ? righe.data() : nullptr;
    prepara(count, len, usati);
    if (costruisci(leggi, r)) return;
    usati.fill(true);
    prepara(count, len, usati);
    costruisci(leggi, r);
}

void PianiColonne::daRecord(const std::vector<RecordNumeri>& records, int len) {
    assert(len >= 0 && len <= 25);
    const int32_t count = static_cast<int32_t>(records.size()) - 1;
    std::array<bool, 91> usati{};
    for (int32_t r = 1; r <= count; ++r)
        for (int p = 0; p < len; ++p) {
            const uint8_t v = records[static_cast<size_t>(r)].numbers[static_cast<size_t>(p)];
            if (v >= 1 && v <= 90) usati[v] = true;
        }
    prepara(count, len, usati);
    costruisci(
        [&records](int32_t c, int p) {
            return records[static_cast<size_t>(c)].numbers[static_cast<size_t>(p - 1)];
        },
        nullptr);
}

void EstrazionePiani::imposta(const PianiColonne& p, const uint8_t* numeri, int count, uint8_t numeroOro,
                              uint8_t doppioOro) {
    maschera = {};
    for (int i = 0; i < count; ++i)
        if (numeri[i] >= 1 && numeri[i] <= 90)
            maschera[static_cast<size_t>(numeri[i] - 1) >> 6] |= uint64_t{1} << ((numeri[i] - 1) & 63);
    n = 0;
    for (int v = 1; v <= 90; ++v)
        if (presente(v) && p.piano(v) >= 0)
            piani[static_cast<size_t>(n++)] = static_cast<int16_t>(p.piano(v));
    oro = numeroOro;
    doppio = doppioOro;
    pianoOro = presente(numeroOro) ? p.piano(numeroOro) : -1;
    pianoDoppio = presente(doppioOro) ? p.piano(doppioOro) : -1;
}

void Classifica(const PianiColonne& p, int32_t b, uint64_t scelte, const EstrazionePiani& e,
                ClassiBlocco& out) {
    const uint64_t* w = p.blocco(b);
    const uint64_t sel = scelte & p.ordinarie(b);

    // 1. The hits of the 64 columns in vertical counters: bit k of a column's count in c[k].
    std::array<uint64_t, 5> c{};
    for (int i = 0; i < e.n; ++i) {
        uint64_t carry = w[e.piani[static_cast<size_t>(i)]];
        for (size_t k = 0; k < c.size() && carry != 0; ++k) {
            const uint64_t t = c[k] & carry;
            c[k] ^= carry;
            carry = t;
        }
    }
    const int bits = std::bit_width(static_cast<unsigned>(e.n));
    const uint64_t a1 = e.pianoOro >= 0 ? w[e.pianoOro] : 0;
    const uint64_t a2 = e.pianoDoppio >= 0 ? w[e.pianoDoppio] : 0;

    // 2. The columns of each count, split by the two Oro flags.
    out.hMax = std::min(e.n, p.len());
    for (int h = 0; h <= out.hMax; ++h) {
        uint64_t eq = sel;
        for (int k = 0; k < bits; ++k)
            eq &= ((h >> k) & 1) ? c[static_cast<size_t>(k)] : ~c[static_cast<size_t>(k)];
        auto& m = out.m[static_cast<size_t>(h)];
        m[0] = eq & ~(a1 | a2);
        m[1] = eq & a1 & ~a2;
        m[2] = eq & a2 & ~a1;
        m[3] = eq & a1 & a2;
    }

    // 3. Columns that hold a number twice, one position at a time.
    for (const PianiColonne::Speciale* s = p.specialiDa(b); s != p.specialiA(b); ++s) {
        const uint64_t bit = uint64_t{1} << ((s->colonna - 1) & 63);
        if ((scelte & bit) == 0) continue;
        const auto [h, k] = ClasseSpeciale(*s, e);
        while (out.hMax < h)
            out.m[static_cast<size_t>(++out.hMax)] = {};
        out.m[static_cast<size_t>(h)][static_cast<size_t>(k)] |= bit;
    }
}

std::pair<int, int> ClasseSpeciale(const PianiColonne::Speciale& s, const EstrazionePiani& e) {
    int h = 0;
    bool oro1 = false, oro2 = false;
    for (int i = 0; i < s.len; ++i) {
        const uint8_t v = s.numeri[static_cast<size_t>(i)];
        if (!e.presente(v)) continue;
        ++h;
        if (v == e.oro) oro1 = true;
        if (v == e.doppio) oro2 = true;
    }
    return {h, oro1 + 2 * oro2};
}

} // namespace dv
