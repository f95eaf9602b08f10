#include "archive/Ultimate.h"

#include "core/ColumnStore.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cassert>
#include <cmath>

namespace dv {

namespace {

constexpr int MaxN = 4;
constexpr int32_t MaxTrovate = 32767;

// Binomiali[v][i] = C(v, i) for v 0..90, i 0..4.
constexpr auto Binomiali = [] {
    std::array<std::array<uint32_t, MaxN + 1>, 91> b{};
    for (int v = 0; v <= 90; ++v) {
        b[static_cast<size_t>(v)][0] = 1;
        for (int i = 1; i <= MaxN; ++i)
            b[static_cast<size_t>(v)][static_cast<size_t>(i)] =
                v == 0 ? 0
                       : b[static_cast<size_t>(v - 1)][static_cast<size_t>(i - 1)] +
                             b[static_cast<size_t>(v - 1)][static_cast<size_t>(i)];
    }
    return b;
}();

uint32_t C(int v, int i) {
    return Binomiali[static_cast<size_t>(v)][static_cast<size_t>(i)];
}

// A set of numbers 1..90 as a 128-bit mask: bit v for number v.
struct Maschera {
    uint64_t lo = 0, hi = 0;
};

// BitNumero[v]: the mask of number v, empty for a byte outside 1..90.
constexpr auto BitNumero = [] {
    std::array<Maschera, 256> t{};
    for (int v = 1; v <= 90; ++v)
        (v < 64 ? t[static_cast<size_t>(v)].lo : t[static_cast<size_t>(v)].hi) = uint64_t{1} << (v & 63);
    return t;
}();

// x rounded to the nearest integer, halves to even, for 0 <= x < 2^31.
int ArrotondaPari(double x) {
    const int i = static_cast<int>(x);
    const double resto = x - i;
    return resto > 0.5 || (resto == 0.5 && (i & 1)) ? i + 1 : i;
}

// For each prefix P of n - 1 numbers, the union of the draws that hold P. The combination P + {c}
// (c above the last of P) was seen exactly when bit c of P's mask is set. Prefixes are indexed by
// their colex rank, the sum over i of C(p_i - 1, i) for p_1 < ... < p_m.
class TabellaPrefissi {
public:
    explicit TabellaPrefissi(int n) : m_m(n - 1), m_viste(C(90, n - 1)) {}

    // Adds a draw: its mask goes into the entry of every prefix it holds.
    void marca(const Estrazione& e) {
        // The draw's mask of its numbers 1..90 (a repeated number counts once).
        Maschera maschera;
        for (int i = 1; i <= 20; ++i) {
            const Maschera& bit = BitNumero[e.Numeri[static_cast<size_t>(i)]];
            maschera.lo |= bit.lo;
            maschera.hi |= bit.hi;
        }
        // Its numbers ascending; a prefix of one number is ranked by the number alone.
        std::array<uint8_t, 20> x{};
        int k = 0;
        for (int parte = 0; parte < 2; ++parte)
            for (uint64_t bits = parte == 0 ? maschera.lo : maschera.hi; bits; bits &= bits - 1) {
                const int v = parte * 64 + std::countr_zero(bits);
                if (m_m == 1) {
                    m_viste[static_cast<size_t>(v - 1)].lo |= maschera.lo;
                    m_viste[static_cast<size_t>(v - 1)].hi |= maschera.hi;
                } else {
                    x[static_cast<size_t>(k++)] = static_cast<uint8_t>(v);
                }
            }
        if (m_m == 1) return;
        // The rank term of each number at each position of a prefix.
        for (int i = 1; i <= m_m; ++i)
            for (int j = 0; j < k; ++j)
                m_termini[static_cast<size_t>(i)][static_cast<size_t>(j)] =
                    C(x[static_cast<size_t>(j)] - 1, i);
        switch (m_m) {
        case 2:
            marcaDa<2>(1, 0, k, 0, maschera);
            break;
        case 3:
            marcaDa<3>(1, 0, k, 0, maschera);
            break;
        default:
            assert(false);
        }
    }

    // The numbers above p[m - 1] that no draw holding the prefix p[0..m-1] holds, as a mask.
    Maschera libere(const uint8_t* p) const {
        uint32_t rank = 0;
        for (int i = 1; i <= m_m; ++i)
            rank += C(p[i - 1] - 1, i);
        const Maschera& v = m_viste[rank];
        // Bits 1..90 above the prefix's last number.
        const int ultimo = p[m_m - 1];
        Maschera sopra;
        sopra.lo = ultimo >= 63 ? 0 : ~uint64_t{0} << (ultimo + 1);
        sopra.hi =
            (ultimo >= 64 ? ~uint64_t{0} << (ultimo - 63) : ~uint64_t{0}) & ((uint64_t{1} << (91 - 64)) - 1);
        return {~v.lo & sopra.lo, ~v.hi & sopra.hi};
    }

private:
    template <int M> void marcaDa(int i, int start, int k, uint32_t rank, const Maschera& maschera) {
        const auto& t = m_termini[static_cast<size_t>(i)];
        for (int a = start; a <= k - (M - i) - 1; ++a) {
            const uint32_t r = rank + t[static_cast<size_t>(a)];
            if (i == M) {
                m_viste[r].lo |= maschera.lo;
                m_viste[r].hi |= maschera.hi;
            } else {
                marcaDa<M>(i + 1, a + 1, k, r, maschera);
            }
        }
    }

    int m_m;
    std::vector<Maschera> m_viste;
    std::array<std::array<uint32_t, 20>, MaxN> m_termini{};
};

} // namespace

ParametriUltimate UltimateParametri(int n, int q) {
    ParametriUltimate p;
    p.combinazioni90 = ColonneIntegrali(90, n);
    p.combinazioni20 = ColonneIntegrali(20, n);
    p.decadimento = std::log((p.combinazioni90 - p.combinazioni20) / p.combinazioni90);
    p.estrazioni = static_cast<int32_t>(std::nearbyint(std::log(q / p.combinazioni90) / p.decadimento));
    return p;
}

RisultatoUltimate UltimateCerca(const ArrayEstrazioni& archivio, int n, int32_t e, RunControl& ctl,
                                EngineObserver& obs) {
    assert(n >= 2 && n <= MaxN);
    RisultatoUltimate r;
    r.n = n;
    TabellaPrefissi tabella(n);
    const double total = C(90, n);

    // 1. What each of the latest e draws holds, from the newest back, stopping at the first.
    const int32_t ultima = UBound(archivio);
    for (int32_t i = ultima; i >= 1 && i > ultima - e; --i)
        tabella.marca(archivio[static_cast<size_t>(i)]);

    // 2. The combinations in lexicographic order: each prefix in that order, then its last number
    // ascending. The walk is cut at each of the 75 steps (where round(done / step) changes) to
    // report progress and to see a stop.
    obs.started(total);
    const double step = total / PassiUltimate;
    auto passo = [step](double done) { return ArrotondaPari(done / step); };
    int ultimoPasso = 0;
    // The first count done at which the step changes, or the total.
    auto prossimoTaglio = [&](double done) {
        double fine = std::clamp(static_cast<double>(static_cast<int64_t>((ultimoPasso + 0.5) * step)),
                                 done + 1, total);
        while (fine > done + 1 && passo(fine - 1) != ultimoPasso)
            --fine;
        while (fine < total && passo(fine) == ultimoPasso)
            ++fine;
        return fine;
    };
    double done = 0;
    double taglio = prossimoTaglio(0);
    std::array<uint8_t, MaxN> c{};
    const int m = n - 1;
    for (int i = 0; i < m; ++i)
        c[static_cast<size_t>(i)] = static_cast<uint8_t>(i + 1);
    for (;;) {
        const Maschera libere = tabella.libere(c.data());
        // The last numbers of this prefix, from the one after its last, as far as the next cut.
        for (int da = c[static_cast<size_t>(m - 1)] + 1; da <= 90;) {
            const int a = std::min(90, da + static_cast<int>(taglio - done) - 1);
            // The free numbers da..a, lowest first.
            for (int parte = 0; parte < 2; ++parte) {
                const int base = parte * 64;
                uint64_t bits = parte == 0 ? libere.lo : libere.hi;
                if (da > base) bits &= da - base >= 64 ? 0 : ~uint64_t{0} << (da - base);
                if (a < base + 63) bits &= a < base ? 0 : ~uint64_t{0} >> (63 - (a - base));
                for (; bits; bits &= bits - 1) {
                    const int v = base + std::countr_zero(bits);
                    if (r.trovate() == MaxTrovate) {
                        r.overflow = true;
                        r.elaborate = done + (v - da);
                        return r;
                    }
                    c[static_cast<size_t>(m)] = static_cast<uint8_t>(v);
                    r.numeri.insert(r.numeri.end(), c.begin(), c.begin() + n);
                }
            }
            done += a - da + 1;
            da = a + 1;
            r.elaborate = done;
            if (done < taglio) continue;
            const int k = passo(done);
            if (k != ultimoPasso) {
                ultimoPasso = k;
                ProgressInfo info;
                info.step = k;
                info.bar = static_cast<int16_t>(ArrotondaPari(k * 100.0 / PassiUltimate));
                info.total = total;
                info.counter = done;
                info.kept = r.trovate();
                obs.progress(info);
                if (ctl.StopElaborazione) {
                    r.interrotta = true;
                    return r;
                }
            }
            if (done >= total) return r;
            taglio = prossimoTaglio(done);
        }
        // The next prefix: the last position that can still grow, and the ones after it in a row.
        int j = m - 1;
        while (j >= 0 && c[static_cast<size_t>(j)] >= 90 - n + j + 1)
            --j;
        if (j < 0) return r;
        ++c[static_cast<size_t>(j)];
        for (int p = j + 1; p < m; ++p)
            c[static_cast<size_t>(p)] = static_cast<uint8_t>(c[static_cast<size_t>(p - 1)] + 1);
    }
}

std::string TestoUltimate(const RisultatoUltimate& r) {
    std::string testo;
    testo.reserve(static_cast<size_t>(r.trovate()) * (static_cast<size_t>(r.n) * 3 + 2));
    for (int32_t i = 0; i < r.trovate(); ++i) {
        const uint8_t* c = r.combinazione(i);
        for (int j = 0; j < r.n; ++j) {
            testo += std::to_string(c[j]);
            testo += ' ';
        }
        testo += "\r\n";
    }
    return testo;
}

void ScriviColonneUltimate(ColumnStore& colonne, const RisultatoUltimate& r) {
    for (int32_t i = 0; i < r.trovate(); ++i)
        colonne.setColumn(i + 1, r.combinazione(i), r.n);
}

std::string TestoOverflowUltimate(const std::string& chiusura) {
    return "Error 6 (Overflow" + chiusura;
}

} // namespace dv
