// The single check's pass over the columns. Each position of the store is a row of bytes, one per
// column, so the loop reads 32 columns at a time and looks every byte up in the draw's presence
// table of 90 bits: the hits, the two Oro flags and whether the column wins come out of a few
// vector operations, and only the winning columns are visited one by one, to be listed.
#include "prize/PianiColonne.h"
#include "prize/Premi.h"
#include "prize/Spoglio.h"

#include <algorithm>
#include <bit>
#include <cassert>

#if defined(__x86_64__) || defined(__i386__)
#include <immintrin.h>
#define DV_SPOGLIO_AVX2 1
#endif

namespace dv {

namespace {

// The draw and the prize rules as the loop sees them.
struct Parametri {
    int len = 0;
    std::array<const uint8_t*, LunghezzaMassimaPremi> pos{}; // position p + 1, column c at [c - 1]
    std::array<uint8_t, 16> presenza{}; // bit n & 7 of byte n >> 3: the number n (1..90) is drawn
    // A byte read from a column: bit 0 drawn, bit 1 the Numero Oro, bit 2 the Doppio Oro (drawn).
    std::array<uint8_t, 256> classe{};
    uint8_t oro = 0, doppio = 0;
    // vince[k][h]: 0xff when a column of h hits and Oro flags k (bit 0 Numero, bit 1 Doppio) wins.
    std::array<std::array<uint8_t, 16>, 4> vince{};
};

// What one share of the columns gives. The lists grow ahead of what they hold, uninitialised, and
// are written through a raw pointer; n keeps their lengths.
struct Parte {
    std::array<int32_t, 44> conta{}; // winning columns by category h * 4 + k
    std::array<ListaColonne, 11> colonne;
    std::array<size_t, 11> n{};
    int max = 0, min = 10;

    // Where the next of at most 32 winning columns with h hits goes.
    int32_t* posto(unsigned h) {
        ListaColonne& v = colonne[h];
        if (v.size() - n[h] < 32) v.resize(std::max<size_t>(4096, v.size() * 2));
        return v.data() + n[h];
    }
    void chiudi() {
        for (size_t h = 0; h <= 10; ++h)
            colonne[h].resize(n[h]);
    }
};

// Columns c0 + 1 .. c1, one at a time.
void ContaScalare(const Parametri& q, int32_t c0, int32_t c1, Parte& r) {
    for (int32_t c = c0; c < c1; ++c) {
        unsigned h = 0, k = 0;
        for (int p = 0; p < q.len; ++p) {
            const unsigned x = q.classe[q.pos[static_cast<size_t>(p)][c]];
            h += x & 1;
            k |= x >> 1;
        }
        r.max = std::max(r.max, static_cast<int>(h));
        r.min = std::min(r.min, static_cast<int>(h));
        if (q.vince[k][h] == 0) continue;
        ++r.conta[h * 4 + k];
        *r.posto(h) = c + 1;
        ++r.n[h];
    }
}

#ifdef DV_SPOGLIO_AVX2
// A table of 16 bytes in both halves of a vector, for byte lookups.
__attribute__((target("avx2"))) inline __m256i Tabella(const std::array<uint8_t, 16>& t) {
    return _mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(t.data())));
}

// Columns c0 + 1 .. c1, 32 at a time; the last fewer than 32 one at a time.
__attribute__((target("avx2"))) void ContaAvx2(const Parametri& q, int32_t c0, int32_t c1, Parte& r) {
    const __m256i presenza = Tabella(q.presenza);
    const __m256i pesi = _mm256_setr_epi8(1, 2, 4, 8, 16, 32, 64, -128, 1, 2, 4, 8, 16, 32, 64, -128, 1, 2, 4,
                                          8, 16, 32, 64, -128, 1, 2, 4, 8, 16, 32, 64, -128);
    const __m256i basso = _mm256_set1_epi8(0x0f), segno = _mm256_set1_epi8(-128), sette = _mm256_set1_epi8(7);
    const __m256i oro = _mm256_set1_epi8(static_cast<char>(q.oro));
    const __m256i doppio = _mm256_set1_epi8(static_cast<char>(q.doppio));
    const __m256i t0 = Tabella(q.vince[0]), t1 = Tabella(q.vince[1]), t2 = Tabella(q.vince[2]),
                  t3 = Tabella(q.vince[3]);
    __m256i hMax = _mm256_setzero_si256(), hMin = _mm256_set1_epi8(10);
    alignas(32) uint8_t alti[32], bassi[32];
    int32_t c = c0;
    for (; c1 - c >= 32; c += 32) {
        __m256i h = _mm256_setzero_si256(), o1 = h, o2 = h;
        for (int p = 0; p < q.len; ++p) {
            const uint8_t* riga = q.pos[static_cast<size_t>(p)] + c;
            _mm_prefetch(reinterpret_cast<const char*>(riga) + 2048, _MM_HINT_T0);
            const __m256i v = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(riga));
            // Byte v >> 3 of the table, or 0 for v >= 128 (the index's top bit set), and bit v & 7.
            const __m256i indice =
                _mm256_or_si256(_mm256_and_si256(_mm256_srli_epi16(v, 3), basso), _mm256_and_si256(v, segno));
            const __m256i bit = _mm256_shuffle_epi8(pesi, _mm256_and_si256(v, sette));
            const __m256i hit =
                _mm256_cmpeq_epi8(_mm256_and_si256(_mm256_shuffle_epi8(presenza, indice), bit), bit);
            h = _mm256_sub_epi8(h, hit);
            o1 = _mm256_or_si256(o1, _mm256_and_si256(hit, _mm256_cmpeq_epi8(v, oro)));
            o2 = _mm256_or_si256(o2, _mm256_and_si256(hit, _mm256_cmpeq_epi8(v, doppio)));
        }
        hMax = _mm256_max_epu8(hMax, h);
        hMin = _mm256_min_epu8(hMin, h);
        const __m256i a = _mm256_blendv_epi8(_mm256_shuffle_epi8(t0, h), _mm256_shuffle_epi8(t1, h), o1);
        const __m256i b = _mm256_blendv_epi8(_mm256_shuffle_epi8(t2, h), _mm256_shuffle_epi8(t3, h), o1);
        uint32_t vincenti = static_cast<uint32_t>(_mm256_movemask_epi8(_mm256_blendv_epi8(a, b, o2)));
        // The winning columns of each count of hits, in column order, with their Oro flags counted.
        const uint32_t m1 = static_cast<uint32_t>(_mm256_movemask_epi8(o1));
        const uint32_t m2 = static_cast<uint32_t>(_mm256_movemask_epi8(o2));
        for (unsigned hh = 0; vincenti != 0; ++hh) {
            const __m256i uguale = _mm256_cmpeq_epi8(h, _mm256_set1_epi8(static_cast<char>(hh)));
            uint32_t m = static_cast<uint32_t>(_mm256_movemask_epi8(uguale)) & vincenti;
            if (m == 0) continue;
            vincenti &= ~m;
            const int n12 = std::popcount(m & m1 & m2), n1 = std::popcount(m & m1) - n12,
                      n2 = std::popcount(m & m2) - n12;
            int32_t* conta = &r.conta[hh * 4];
            conta[0] += std::popcount(m) - n1 - n2 - n12;
            conta[1] += n1;
            conta[2] += n2;
            conta[3] += n12;
            int32_t* const inizio = r.posto(hh);
            int32_t* dove = inizio;
            for (; m != 0; m &= m - 1)
                *dove++ = c + std::countr_zero(m) + 1;
            r.n[hh] += static_cast<size_t>(dove - inizio);
        }
    }
    if (c > c0) {
        _mm256_store_si256(reinterpret_cast<__m256i*>(alti), hMax);
        _mm256_store_si256(reinterpret_cast<__m256i*>(bassi), hMin);
        for (int j = 0; j < 32; ++j) {
            r.max = std::max(r.max, static_cast<int>(alti[j]));
            r.min = std::min(r.min, static_cast<int>(bassi[j]));
        }
    }
    ContaScalare(q, c, c1, r);
}

#endif

void Conta(const Parametri& q, int32_t c0, int32_t c1, Parte& r, bool vettori) {
#ifdef DV_SPOGLIO_AVX2
    if (vettori && ConAvx2()) return ContaAvx2(q, c0, c1, r);
#endif
    (void)vettori;
    ContaScalare(q, c0, c1, r);
}

} // namespace

RisultatoSpoglio SpoglioColonne(const Corpo& c, int32_t dal, int32_t al, ModoSpoglio modo) {
    RisultatoSpoglio r;
    const int len = c.LenColonna;
    assert(len >= 0 && len <= LunghezzaMassimaPremi);
    if (len < 0 || len > LunghezzaMassimaPremi) return r;
    dal = std::max(dal, int32_t{1});
    al = std::min({al, c.pronostico.NumColonne, MaxColonne});
    if (dal > al) return r;

    // 1. The draw's tables and the prize of each category, rounded column by column.
    Parametri q;
    q.len = len;
    q.oro = c.OroSpoglio;
    q.doppio = c.DoppioOroSpoglio;
    for (int i = 1; i <= 20; ++i) {
        const uint8_t n = c.NumeriSpoglio[static_cast<size_t>(i)];
        if (n < 1 || n > 90) continue;
        q.presenza[n >> 3] |= static_cast<uint8_t>(1u << (n & 7));
        q.classe[n] = static_cast<uint8_t>(1 | (n == q.oro ? 2 : 0) | (n == q.doppio ? 4 : 0));
    }
    std::array<std::array<int32_t, 4>, 11> euro{};
    for (int h = 0; h <= len; ++h)
        for (int k = 0; k < 4; ++k) {
            const int32_t v = Premio(ScegliTabella(c.TipoGiocata, k & 1, k & 2), len, h);
            euro[static_cast<size_t>(h)][static_cast<size_t>(k)] =
                ArrotondaEuro(static_cast<double>(v) * static_cast<double>(c.Importo));
            q.vince[static_cast<size_t>(k)][static_cast<size_t>(h)] = v != 0 ? 0xff : 0;
        }
    // A store never written reads 0 everywhere.
    std::vector<uint8_t> zeri;
    if (!c.Colonne.allocated()) zeri.assign(static_cast<size_t>(al), 0);
    for (int p = 1; p <= len; ++p)
        q.pos[static_cast<size_t>(p - 1)] = zeri.empty() ? c.Colonne.position(p) : zeri.data();

    // 2. The columns in one or two shares, the second starting at a multiple of 32.
    const bool vettori = modo != ModoSpoglio::Semplice;
    const bool dueThread =
        modo == ModoSpoglio::DueThread || (modo == ModoSpoglio::Automatico && al - dal >= 200'000);
    std::array<Parte, 2> parte;
    DueParti(dueThread, [&](int t, int n) {
        const int32_t meta =
            n == 1 ? al : std::clamp(dal - 1 + ((al - dal + 1) / 2 + 31) / 32 * 32, dal - 1, al);
        Parte& x = parte[static_cast<size_t>(t)];
        Conta(q, t == 0 ? dal - 1 : meta, t == 0 ? meta : al, x, vettori);
        x.chiudi();
    });

    // 3. The shares together, in column order.
    for (Parte& x : parte) {
        for (size_t h = 0; h <= 10; ++h) {
            auto& lista = r.colonne[h];
            if (lista.empty())
                lista = std::move(x.colonne[h]);
            else
                lista.insert(lista.end(), x.colonne[h].begin(), x.colonne[h].end());
            for (size_t k = 0; k < 4; ++k) {
                const int32_t n = x.conta[h * 4 + k];
                r.Vincite[h] += n;
                r.TotaleVinto = Somma32(r.TotaleVinto, int64_t{n} * euro[h][k]);
            }
        }
        r.MaxPunti = static_cast<uint8_t>(std::max<int>(r.MaxPunti, x.max));
        r.MinPunti = static_cast<uint8_t>(std::min<int>(r.MinPunti, x.min));
    }
    return r;
}

} // namespace dv
